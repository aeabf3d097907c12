// Uploads a Delayer sequence: output On/Off states and how long each is held.
#pragma once

#include "programmeruploader.h"

#include <QList>

namespace tarn2::specific::orvo5000::programmer {

// DelayerUploader hands out the elements of the caller's Delayer sequence themselves, not copies.
// The list is referenced: it must outlive the uploader. Should it shrink during a run, the steps
// it no longer holds are simply not handed out.
class TARN2_SPECIFIC_EXPORT DelayerUploader final : public ProgrammerUploader
{
    Q_OBJECT
    Q_DISABLE_COPY(DelayerUploader)

public:
    DelayerUploader(const QList<DelayerData> &data, QObject *parent);
    ~DelayerUploader() override;

    int getDataCount() const override;

protected:
    void processNextData() override;

private:
    const QList<DelayerData> *datas = nullptr;
};

} // namespace tarn2::specific::orvo5000::programmer

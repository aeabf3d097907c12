// Uploads a Delayer sequence: output On/Off states and how long each is held.
#pragma once

#include "stepuploader.h"

namespace tarn2::specific::orvo5000::programmer {

// DelayerUploader hands out the elements of the caller's Delayer sequence themselves, not copies.
// The list is referenced: it must outlive the uploader. Should it shrink during a run, the steps
// it no longer holds are simply not handed out.
class TARN2_SPECIFIC_EXPORT DelayerUploader final : public StepUploader<DelayerData>
{
    Q_OBJECT
    Q_DISABLE_COPY(DelayerUploader)

public:
    DelayerUploader(const QList<DelayerData> &data, QObject *parent);
    ~DelayerUploader() override;
};

} // namespace tarn2::specific::orvo5000::programmer

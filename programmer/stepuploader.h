// What the List and Delayer uploaders have in common: handing out the steps of a list they read.
#pragma once

#include "programmeruploader.h"

#include <QList>

namespace tarn2::specific::orvo5000::programmer {

// StepUploader hands out the elements of the caller's sequence themselves, not copies. The list
// is referenced: it must outlive the uploader. Should it shrink during a run, the steps it no
// longer holds are simply not handed out.
template<class Step> class StepUploader : public ProgrammerUploader
{
public:
    int getDataCount() const override;

protected:
    StepUploader(const QList<Step> &data, QObject *parent);
    ~StepUploader() override;

    void processNextData() override;

private:
    const QList<Step> *datas = nullptr;
};

extern template class TARN2_SPECIFIC_EXPORT StepUploader<ListData>;
extern template class TARN2_SPECIFIC_EXPORT StepUploader<DelayerData>;

} // namespace tarn2::specific::orvo5000::programmer

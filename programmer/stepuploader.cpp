// Handing out the steps of a List or Delayer sequence.
#include "stepuploader.h"

namespace tarn2::specific::orvo5000::programmer {

template<class Step>
StepUploader<Step>::StepUploader(const QList<Step> &data, QObject *parent)
    : ProgrammerUploader(parent)
    , datas(&data)
{}

template<class Step> StepUploader<Step>::~StepUploader() = default;

template<class Step> int StepUploader<Step>::getDataCount() const
{
    return boundedCount(datas->size());
}

template<class Step> void StepUploader<Step>::processNextData()
{
    const int i = currentIndex();
    if (i < 0 || i >= datas->size())
        return;
    // The element itself, so that the handler sees the very step of the caller's list.
    emit nextData(i, datas->at(i));
}

template class StepUploader<ListData>;
template class StepUploader<DelayerData>;

} // namespace tarn2::specific::orvo5000::programmer

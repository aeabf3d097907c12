// Hands out the steps of a Delayer sequence.
#include "delayeruploader.h"

#include <QMetaType>

namespace tarn2::specific::orvo5000::programmer {

DelayerUploader::DelayerUploader(const QList<DelayerData> &data, QObject *parent)
    : ProgrammerUploader(parent)
    , datas(&data)
{
    qRegisterMetaType<DelayerData>("tarn2::specific::orvo5000::programmer::DelayerData");
    qRegisterMetaType<DelayerData>("tarn2::specific::orvo5000::programmer::DelayerData&");
}

DelayerUploader::~DelayerUploader() = default;

int DelayerUploader::getDataCount() const
{
    return boundedCount(datas->size());
}

void DelayerUploader::processNextData()
{
    const int i = currentIndex();
    if (i < 0 || i >= datas->size())
        return;
    // The element itself, so that the handler sees the very step of the caller's list.
    emit nextData(i, datas->at(i));
}

} // namespace tarn2::specific::orvo5000::programmer

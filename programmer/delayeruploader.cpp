// Hands out the steps of a Delayer sequence.
#include "delayeruploader.h"

#include <QMetaType>

namespace tarn2::specific::orvo5000::programmer {

DelayerUploader::DelayerUploader(const QList<DelayerData> &data, QObject *parent)
    : StepUploader(data, parent)
{
    qRegisterMetaType<DelayerData>("tarn2::specific::orvo5000::programmer::DelayerData");
    qRegisterMetaType<DelayerData>("tarn2::specific::orvo5000::programmer::DelayerData&");
}

DelayerUploader::~DelayerUploader() = default;

} // namespace tarn2::specific::orvo5000::programmer

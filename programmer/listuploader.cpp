// Hands out the steps of a List sequence.
#include "listuploader.h"

#include <QMetaType>

namespace tarn2::specific::orvo5000::programmer {

ListUploader::ListUploader(const QList<ListData> &data, QObject *parent)
    : StepUploader(data, parent)
{
    qRegisterMetaType<ListData>("tarn2::specific::orvo5000::programmer::ListData");
    qRegisterMetaType<ListData>("tarn2::specific::orvo5000::programmer::ListData&");
}

ListUploader::~ListUploader() = default;

} // namespace tarn2::specific::orvo5000::programmer

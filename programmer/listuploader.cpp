// Hands out the steps of a List sequence.
#include "listuploader.h"

#include <QMetaType>

namespace tarn2::specific::orvo5000::programmer {

ListUploader::ListUploader(const QList<ListData> &data, QObject *parent)
    : ProgrammerUploader(parent)
    , datas(&data)
{
    qRegisterMetaType<ListData>("tarn2::specific::orvo5000::programmer::ListData");
    qRegisterMetaType<ListData>("tarn2::specific::orvo5000::programmer::ListData&");
}

ListUploader::~ListUploader() = default;

int ListUploader::getDataCount() const
{
    return boundedCount(datas->size());
}

void ListUploader::processNextData()
{
    const int i = currentIndex();
    if (i < 0 || i >= datas->size())
        return;
    // The element itself, so that the handler sees the very step of the caller's list.
    emit nextData(i, datas->at(i));
}

} // namespace tarn2::specific::orvo5000::programmer

// Fuzzes the byte form of the template vectors that the settings keep: whatever is read must
// write back and read again to the same vector.
#include <records.h>
#include <templateparam.h>
#include <templatestream.h>

#include <QBuffer>
#include <QDataStream>

#include <cstdint>

namespace {

template<class Param> void roundTrip(const QByteArray &bytes)
{
    QVector<Param> params;
    QDataStream in(bytes);
    in >> params;
    if (in.status() != QDataStream::Ok)
        return;
    QByteArray again;
    QDataStream out(&again, QIODevice::WriteOnly);
    out << params;
    QVector<Param> back;
    QDataStream reread(again);
    reread >> back;
    if (reread.status() != QDataStream::Ok || back.size() != params.size())
        __builtin_trap();
    QByteArray third;
    QDataStream out2(&third, QIODevice::WriteOnly);
    out2 << back;
    if (third != again)
        __builtin_trap();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes
        = QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<int>(size));
    roundTrip<tarn2::specific::orvo5000::programmer::ListTemplateParam>(bytes);
    roundTrip<tarn2::specific::orvo5000::programmer::DelayerTemplateParam>(bytes);
    return 0;
}

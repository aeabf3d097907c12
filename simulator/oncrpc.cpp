// Records, XDR and reply headers of ONC RPC (version 2) over TCP.
#include "oncrpc.h"

#include <QtEndian>

namespace tarn::sim::rpc {

namespace {

constexpr quint32 lastFragment = 0x80000000u;
constexpr int credentialsBound = 400; // the protocol's own bound on an auth body
constexpr quint32 callMessage = 0;
constexpr quint32 replyMessage = 1;

} // namespace

void RecordReader::feed(const QByteArray &bytes)
{
    if (!m_broken)
        m_input.append(bytes);
}

std::optional<QByteArray> RecordReader::next()
{
    while (!m_broken && m_input.size() >= 4) {
        const quint32 header = qFromBigEndian<quint32>(m_input.constData());
        const quint32 length = header & ~lastFragment;
        if (length > static_cast<quint32>(m_bound)
            || m_record.size() + static_cast<qint64>(length) > m_bound) {
            m_broken = true;
            m_input.clear();
            m_record.clear();
            return std::nullopt;
        }
        if (static_cast<quint32>(m_input.size()) < 4 + length)
            return std::nullopt;
        m_record.append(m_input.constData() + 4, static_cast<int>(length));
        m_input.remove(0, 4 + static_cast<int>(length));
        if ((header & lastFragment) != 0) {
            QByteArray record;
            record.swap(m_record);
            return record;
        }
    }
    return std::nullopt;
}

QByteArray frame(const QByteArray &record)
{
    QByteArray framed(4, Qt::Uninitialized);
    qToBigEndian<quint32>(lastFragment | static_cast<quint32>(record.size()), framed.data());
    return framed + record;
}

quint32 XdrReader::u32()
{
    if (m_failed || m_data.size() - m_at < 4) {
        m_failed = true;
        return 0;
    }
    const quint32 value = qFromBigEndian<quint32>(m_data.constData() + m_at);
    m_at += 4;
    return value;
}

QByteArray XdrReader::opaque(int bound)
{
    const quint32 length = u32();
    const qint64 padded = (qint64{length} + 3) & ~qint64{3};
    if (m_failed || length > static_cast<quint32>(bound) || m_data.size() - m_at < padded) {
        m_failed = true;
        return {};
    }
    const QByteArray bytes = m_data.mid(m_at, static_cast<int>(length));
    m_at += static_cast<int>(padded);
    return bytes;
}

XdrWriter &XdrWriter::u32(quint32 value)
{
    char word[4];
    qToBigEndian(value, word);
    m_data.append(word, 4);
    return *this;
}

XdrWriter &XdrWriter::opaque(const QByteArray &bytes)
{
    u32(static_cast<quint32>(bytes.size()));
    m_data.append(bytes);
    m_data.append((4 - bytes.size() % 4) % 4, '\0');
    return *this;
}

std::optional<Call> readCall(XdrReader *reader, bool *wrongRpcVersion, quint32 *xid)
{
    Call call;
    call.xid = reader->u32();
    *xid = call.xid;
    *wrongRpcVersion = false;
    if (reader->u32() != callMessage || reader->failed())
        return std::nullopt;
    if (reader->u32() != 2) {
        *wrongRpcVersion = !reader->failed();
        return std::nullopt;
    }
    call.program = reader->u32();
    call.version = reader->u32();
    call.procedure = reader->u32();
    for (int auth = 0; auth < 2; ++auth) {
        reader->u32(); // the flavour: any is taken, none is checked
        reader->opaque(credentialsBound);
    }
    if (reader->failed())
        return std::nullopt;
    return call;
}

XdrWriter acceptedReply(quint32 xid, Accepted status)
{
    XdrWriter reply;
    reply.u32(xid).u32(replyMessage).u32(0).u32(0).u32(0).u32(static_cast<quint32>(status));
    return reply;
}

QByteArray rpcVersionMismatch(quint32 xid)
{
    return XdrWriter().u32(xid).u32(replyMessage).u32(1).u32(0).u32(2).u32(2).data();
}

} // namespace tarn::sim::rpc

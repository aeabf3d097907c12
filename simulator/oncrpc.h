// Just enough ONC RPC for the simulated supply to serve calls over TCP: records, XDR, replies.
#pragma once

#include <QByteArray>

#include <optional>

namespace tarn::sim::rpc {

// The record marking of RPC over TCP: each record arrives as fragments, each with a 4-byte
// header (the last fragment's bit and a 31-bit length). Bytes are fed as they come; a record is
// handed out whole. A fragment or record over `bound` bytes makes the stream unusable: broken().
class RecordReader
{
public:
    explicit RecordReader(int bound)
        : m_bound(bound)
    {}

    void feed(const QByteArray &bytes);
    // The next whole record, if one has arrived.
    std::optional<QByteArray> next();
    bool broken() const { return m_broken; }
    // Bytes fed and not yet handed out, so that a reader can stop taking more.
    int pending() const { return m_input.size() + m_record.size(); }

private:
    int m_bound;
    QByteArray m_input;
    QByteArray m_record;
    bool m_broken = false;
};

// One record as a single last fragment.
QByteArray frame(const QByteArray &record);

// Reads XDR items from a record. Any read past the end, or an opaque item over its bound, sets
// failed() and gives zero or empty values from then on.
class XdrReader
{
public:
    explicit XdrReader(const QByteArray &data)
        : m_data(data)
    {}

    quint32 u32();
    qint32 i32() { return static_cast<qint32>(u32()); }
    QByteArray opaque(int bound);
    bool failed() const { return m_failed; }
    bool atEnd() const { return m_at == m_data.size(); }

private:
    QByteArray m_data;
    int m_at = 0;
    bool m_failed = false;
};

class XdrWriter
{
public:
    XdrWriter &u32(quint32 value);
    XdrWriter &i32(qint32 value) { return u32(static_cast<quint32>(value)); }
    XdrWriter &opaque(const QByteArray &bytes);
    const QByteArray &data() const { return m_data; }

private:
    QByteArray m_data;
};

// What the server tells a call it accepted, and the first words of its reply.
enum class Accepted : quint32 {
    Success = 0,
    ProgramUnavailable = 1,
    ProgramMismatch = 2,
    ProcedureUnavailable = 3,
    GarbageArguments = 4,
};

// A call's header, read from the front of its record; its arguments are what the reader holds next.
struct Call
{
    quint32 xid = 0;
    quint32 program = 0;
    quint32 version = 0;
    quint32 procedure = 0;
};

// Reads a call's header; nothing when the record is not a version-2 call (it has no answer).
std::optional<Call> readCall(XdrReader *reader, bool *wrongRpcVersion, quint32 *xid);
// An accepted reply's header with no credentials; results (or the version range) follow.
XdrWriter acceptedReply(quint32 xid, Accepted status);
// The denial of a call in another RPC version than 2.
QByteArray rpcVersionMismatch(quint32 xid);

} // namespace tarn::sim::rpc

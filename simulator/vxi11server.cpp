// The VXI-11 core channel of the simulated supply, on QTcpServer and a hand-made ONC RPC layer.
#include "vxi11server.h"

#include "commandinterpreter.h"
#include "oncrpc.h"
#include "supplyengine.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

namespace tarn::sim {

namespace {

constexpr quint32 coreProgram = 0x0607AF;
constexpr quint32 coreVersion = 1;
enum Procedure : quint32 {
    CreateLink = 10,
    DeviceWrite = 11,
    DeviceRead = 12,
    DestroyLink = 23,
};
enum DeviceError : qint32 {
    NoError = 0,
    DeviceNotAccessible = 3,
    InvalidLink = 4,
    OutOfResources = 9,
    IoTimeout = 15,
};
constexpr qint32 endFlag = 0x08;
constexpr qint32 requestCountReason = 0x01;
constexpr qint32 endReason = 0x04;
constexpr int deviceNameBound = 64;
constexpr int recordBound = Vxi11Server::maxReceive + 1024;
constexpr int waitingBound = 1 << 20; // replies not yet taken by the client's socket

} // namespace

struct Vxi11Server::Client
{
    rpc::RecordReader records{recordBound};
    QVector<Link> links;
    bool held = false; // a read waits for its time-out; calls after it wait too
};

Vxi11Server::Vxi11Server(SupplyEngine *engine, ServerFaults faults, QObject *parent)
    : QObject(parent)
    , m_engine(engine)
    , m_interpreter(std::make_unique<CommandInterpreter>(engine))
    , m_faults(faults)
    , m_server(new QTcpServer(this))
{
    connect(m_server, &QTcpServer::newConnection, this, &Vxi11Server::accept);
}

Vxi11Server::~Vxi11Server() = default;

bool Vxi11Server::listen(const QHostAddress &address, quint16 port)
{
    return m_server->listen(address, port);
}

QString Vxi11Server::errorString() const
{
    return m_server->errorString();
}

QHostAddress Vxi11Server::address() const
{
    return m_server->serverAddress();
}

quint16 Vxi11Server::port() const
{
    return m_server->serverPort();
}

void Vxi11Server::accept()
{
    while (QTcpSocket *socket = m_server->nextPendingConnection()) {
        if (m_clients.size() >= clientBound) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        socket->setReadBufferSize(recordBound);
        m_clients.emplace(socket, std::make_unique<Client>());
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { readClient(socket); });
        connect(socket, &QTcpSocket::bytesWritten, this, [this, socket] { readClient(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            m_clients.erase(socket);
            socket->deleteLater();
        });
    }
}

void Vxi11Server::readClient(QTcpSocket *socket)
{
    const auto found = m_clients.find(socket);
    if (found == m_clients.end())
        return;
    Client &client = *found->second;
    // Records are read only while the replies to earlier ones leave, so a client that does not
    // read its replies is held back by the kernel, not by memory here.
    while (!client.held && socket->bytesToWrite() < waitingBound) {
        if (client.records.pending() < recordBound)
            client.records.feed(socket->read(recordBound));
        const std::optional<QByteArray> record = client.records.next();
        if (client.records.broken()) {
            socket->abort();
            return;
        }
        if (!record)
            return;
        const std::optional<QByteArray> reply = answer(socket, client, *record);
        if (!reply) {
            socket->abort();
            return;
        }
        socket->write(*reply);
    }
}

Vxi11Server::Link *Vxi11Server::findLink(Client &client, qint32 id)
{
    for (Link &link : client.links) {
        if (link.id == id)
            return &link;
    }
    return nullptr;
}

std::optional<QByteArray>
Vxi11Server::answer(QTcpSocket *socket, Client &client, const QByteArray &record)
{
    rpc::XdrReader in(record);
    bool wrongRpcVersion = false;
    quint32 xid = 0;
    const std::optional<rpc::Call> call = rpc::readCall(&in, &wrongRpcVersion, &xid);
    if (!call) {
        if (!wrongRpcVersion)
            return std::nullopt;
        return rpc::frame(rpc::rpcVersionMismatch(xid));
    }
    if (call->program != coreProgram)
        return rpc::frame(rpc::acceptedReply(xid, rpc::Accepted::ProgramUnavailable).data());
    if (call->version != coreVersion)
        return rpc::frame(rpc::acceptedReply(xid, rpc::Accepted::ProgramMismatch)
                              .u32(coreVersion)
                              .u32(coreVersion)
                              .data());
    const auto garbage = [xid] {
        return rpc::frame(rpc::acceptedReply(xid, rpc::Accepted::GarbageArguments).data());
    };
    rpc::XdrWriter out = rpc::acceptedReply(xid, rpc::Accepted::Success);

    switch (call->procedure) {
    case CreateLink: {
        in.i32(); // the client's id: any
        in.u32(); // lockDevice: nothing else shares the supply's core channel's lock
        in.u32();
        const QByteArray device = in.opaque(deviceNameBound);
        if (in.failed() || !in.atEnd())
            return garbage();
        qint32 error = NoError;
        if (device != "inst0")
            error = DeviceNotAccessible;
        else if (client.links.size() >= linkBound)
            error = OutOfResources;
        else
            client.links.append({m_nextLink++, {}, {}, 0});
        out.i32(error).i32(error == NoError ? client.links.last().id : 0).u32(0).u32(maxReceive);
        break;
    }
    case DeviceWrite: {
        const qint32 id = in.i32();
        in.u32(); // io_timeout: a write is taken at once
        in.u32();
        const qint32 flags = in.i32();
        const QByteArray data = in.opaque(maxReceive);
        if (in.failed() || !in.atEnd())
            return garbage();
        Link *link = findLink(client, id);
        if (!link) {
            out.i32(InvalidLink).u32(0);
            break;
        }
        if (link->replyBytes > replyBound || link->message.size() + data.size() > messageBound) {
            link->message.clear();
            out.i32(OutOfResources).u32(0);
            break;
        }
        link->message += data;
        if ((flags & endFlag) != 0 && !runMessage(*link))
            return std::nullopt;
        out.i32(NoError).u32(static_cast<quint32>(data.size()));
        break;
    }
    case DeviceRead: {
        const qint32 id = in.i32();
        const quint32 requestSize = in.u32();
        const quint32 ioTimeout = in.u32();
        in.u32();
        in.i32();
        in.i32(); // termChar: replies end with END, the flag that asks for it is not needed
        if (in.failed() || !in.atEnd())
            return garbage();
        Link *link = findLink(client, id);
        if (!link) {
            out.i32(InvalidLink).i32(0).opaque({});
            break;
        }
        if (link->replies.isEmpty()) {
            // Nothing will come while the read waits: the interpreter answers at once or never.
            // Calls after it wait too, as on an instrument whose core channel is busy.
            client.held = true;
            out.i32(IoTimeout).i32(0).opaque({});
            const int waitMs = static_cast<int>(qMin<quint32>(ioTimeout, heldReadLimitMs));
            QTimer::singleShot(waitMs, socket, [this, socket, reply = rpc::frame(out.data())] {
                const auto found = m_clients.find(socket);
                if (found == m_clients.end())
                    return;
                found->second->held = false;
                socket->write(reply);
                readClient(socket);
            });
            return QByteArray();
        }
        QByteArray &front = link->replies.head();
        const int size = static_cast<int>(
            qMin<quint32>(requestSize, static_cast<quint32>(qMin(front.size(), maxReceive))));
        const QByteArray data = front.left(size);
        front.remove(0, size);
        link->replyBytes -= size;
        const bool ended = front.isEmpty();
        if (ended)
            link->replies.dequeue();
        out.i32(NoError).i32(ended ? endReason : requestCountReason).opaque(data);
        break;
    }
    case DestroyLink: {
        const qint32 id = in.i32();
        if (in.failed() || !in.atEnd())
            return garbage();
        qint32 error = InvalidLink;
        for (int i = 0; i < client.links.size(); ++i) {
            if (client.links.at(i).id == id) {
                client.links.remove(i);
                error = NoError;
                break;
            }
        }
        out.i32(error);
        break;
    }
    default:
        return rpc::frame(rpc::acceptedReply(xid, rpc::Accepted::ProcedureUnavailable).data());
    }
    return rpc::frame(out.data());
}

bool Vxi11Server::runMessage(Link &link)
{
    const QList<QByteArray> lines = link.message.split('\n');
    link.message.clear();
    for (QByteArray line : lines) {
        if (line.endsWith('\r'))
            line.chop(1);
        if (line.trimmed().isEmpty())
            continue;
        ++m_commands;
        if (m_faults.silentAfter > 0 && m_commands > m_faults.silentAfter)
            continue;
        if (const std::optional<QByteArray> reply = m_interpreter->execute(line)) {
            link.replies.enqueue(*reply + '\n');
            link.replyBytes += reply->size() + 1;
        }
        if (m_faults.dropAfter > 0 && m_commands >= m_faults.dropAfter)
            return false;
    }
    return true;
}

bool Vxi11Server::registerWithPortmapper(bool on, QString *error) const
{
    constexpr quint32 portmapperProgram = 100000;
    constexpr quint32 set = 1;
    constexpr quint32 unset = 2;
    constexpr quint16 portmapperPort = 111;
    constexpr int waitMs = 2000;
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, portmapperPort);
    if (!socket.waitForConnected(waitMs)) {
        *error
            = QStringLiteral("no portmapper runs on this machine (%1)").arg(socket.errorString());
        return false;
    }
    rpc::XdrWriter call;
    call.u32(1).u32(0).u32(2).u32(portmapperProgram).u32(2).u32(on ? set : unset);
    call.u32(0).u32(0).u32(0).u32(0); // no credentials, no verifier
    call.u32(coreProgram).u32(coreVersion).u32(6).u32(on ? port() : 0);
    socket.write(rpc::frame(call.data()));
    rpc::RecordReader records(1024);
    QElapsedTimer clock;
    clock.start();
    std::optional<QByteArray> record;
    while (!record && !records.broken() && clock.elapsed() < waitMs
           && socket.waitForReadyRead(static_cast<int>(waitMs - clock.elapsed()))) {
        records.feed(socket.readAll());
        record = records.next();
    }
    rpc::XdrReader reply(record.value_or(QByteArray()));
    const bool answered = reply.u32() == 1 && reply.u32() == 1 && reply.u32() == 0;
    reply.u32();
    reply.opaque(400);
    const bool done = answered && reply.u32() == 0 && reply.u32() == 1 && !reply.failed();
    if (!done)
        *error = QStringLiteral("the portmapper refused to %1 the VXI-11 port")
                     .arg(on ? QStringLiteral("register") : QStringLiteral("unregister"));
    return done;
}

} // namespace tarn::sim

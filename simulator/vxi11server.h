// The simulated supply as a VXI-11 instrument: the core channel over TCP, on the event loop.
#pragma once

#include "supplyserver.h"

#include <QHostAddress>
#include <QObject>
#include <QQueue>

#include <memory>
#include <optional>
#include <unordered_map>

class QTcpServer;
class QTcpSocket;

namespace tarn::sim {

class CommandInterpreter;
class SupplyEngine;

// Vxi11Server answers the core channel's create_link, device_write, device_read and destroy_link
// (other calls are unavailable; there is no abort or interrupt channel). A message written with
// END runs line by line through the interpreter, as lines on the raw socket do, and each reply
// waits for a device_read, which gets it with END set. A read with nothing to read is answered
// with an I/O timeout when its time-out has passed. Everything a client can make the server hold
// is bounded: records, messages, unread replies, links and clients; a client that breaks the
// record marking is disconnected, a call that cannot be read is answered as garbage.
// ServerFaults apply as on the raw socket: dropAfter cuts the connection instead of answering the
// write of that command, and commands after silentAfter run nowhere.
class Vxi11Server final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(Vxi11Server)

public:
    static constexpr int maxReceive = 16 * 1024; // the most one device_write may carry
    static constexpr int messageBound = 64 * 1024;
    static constexpr int replyBound = 1 << 20;
    static constexpr int clientBound = 8;
    static constexpr int linkBound = 4;
    static constexpr int heldReadLimitMs = 10000;

    Vxi11Server(SupplyEngine *engine, ServerFaults faults, QObject *parent = nullptr);
    ~Vxi11Server() override;

    bool listen(const QHostAddress &address, quint16 port);
    QString errorString() const;
    QHostAddress address() const;
    quint16 port() const;
    // Tells the portmapper running on this machine where the core channel is served (or that it
    // no longer is). False, with *error, when there is none or it refuses.
    bool registerWithPortmapper(bool on, QString *error) const;

private:
    struct Link
    {
        qint32 id;
        QByteArray message;
        QQueue<QByteArray> replies;
        qint64 replyBytes = 0;
    };
    struct Client;

    void accept();
    void readClient(QTcpSocket *socket);
    // The framed reply to one record, empty when it comes later; nothing when the connection is
    // to be cut.
    std::optional<QByteArray> answer(QTcpSocket *socket, Client &client, const QByteArray &record);
    Link *findLink(Client &client, qint32 id);
    // Runs a whole message's lines; false when a fault cuts the connection.
    bool runMessage(Link &link);

    SupplyEngine *m_engine;
    std::unique_ptr<CommandInterpreter> m_interpreter;
    ServerFaults m_faults;
    QTcpServer *m_server;
    std::unordered_map<QTcpSocket *, std::unique_ptr<Client>> m_clients;
    qint32 m_nextLink = 1;
    int m_commands = 0;
};

} // namespace tarn::sim

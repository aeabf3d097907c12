// The simulated supply on the network: a raw command socket, one client at a time.
#pragma once

#include "linebuffer.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QObject>
#include <QPointer>
#include <QQueue>
#include <QVector>

#include <memory>

class QTimer;

namespace tarn::sim {

class ClientConnection;
class CommandInterpreter;
class SupplyEngine;
class Listener;

// Faults a test can ask the server for; 0 leaves a fault out. Commands count the lines a client
// sent on its connection.
struct ServerFaults
{
    int latencyMs = 0;   // each reply leaves this much later
    int dropAfter = 0;   // the connection is cut right after this many commands
    int silentAfter = 0; // commands after this many are read and ignored, nothing answers
};

// SupplyServer reads newline-terminated commands, runs them through the interpreter in order and
// writes each reply line. A client that ends its input (a half-close) gets every reply before the
// socket closes. One client is served at a time: a client that arrives while another is served
// waits a moment, since a client that closes and reconnects at once arrives before its old
// connection has been seen to end; if the first one is still there after that, the newcomer is
// told the supply is busy and is closed, and the first one is not disturbed. A client that stops
// reading its replies is no longer read from until it catches up, so neither direction can make
// the server's memory grow without bound.
class SupplyServer final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SupplyServer)

public:
    SupplyServer(SupplyEngine *engine, ServerFaults faults, QObject *parent = nullptr);
    ~SupplyServer() override;

    bool listen(const QHostAddress &address, quint16 port);
    // Serves the master side of a pseudo-terminal as the one client, for as long as it lasts,
    // paced as a serial line of `baud` would be (0: unpaced). Takes the descriptor.
    void serveTerminal(int master, const QString &name, int baud);
    QString errorString() const;
    QHostAddress address() const;
    quint16 port() const;
    bool hasClient() const { return !m_client.isNull(); }
    // Bytes read from clients and replies written to them since the start, for the figures of
    // a line's speed.
    qint64 bytesIn() const { return m_bytesIn; }
    qint64 bytesOut() const { return m_bytesOut; }

    static constexpr qint64 outputBound = 1 << 20;
    // How long a newcomer waits for the client being served to leave.
    static constexpr int graceMs = 500;

signals:
    void clientConnected(const QString &peer);
    void clientDisconnected();

private:
    void accept(qintptr descriptor);
    void serve(ClientConnection *client);
    void judgeWaiting();
    void refuse(ClientConnection *client);
    void readClient();
    void processLines();
    void sendReply(const QByteArray &reply);
    void flushDelayedReplies();
    void dropClient();
    bool outputFull() const;

    SupplyEngine *m_engine;
    std::unique_ptr<CommandInterpreter> m_interpreter;
    ServerFaults m_faults;
    Listener *m_server;
    QPointer<ClientConnection> m_client;
    struct Waiting
    {
        QPointer<ClientConnection> client;
        qint64 since;
    };
    QVector<Waiting> m_waiting;
    QTimer *m_graceTimer;
    LineBuffer m_buffer;
    QQueue<QByteArray> m_lines;
    qint64 m_lineBytes = 0;
    int m_commands = 0;
    struct Delayed
    {
        qint64 due;
        QByteArray bytes;
    };
    QQueue<Delayed> m_delayed;
    qint64 m_delayedBytes = 0;
    QTimer *m_latencyTimer;
    QElapsedTimer m_clock;
    qint64 m_bytesIn = 0;
    qint64 m_bytesOut = 0;
};

} // namespace tarn::sim

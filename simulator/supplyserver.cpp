// The network shell of the simulated supply: lines in, replies out, faults on request.
#include "supplyserver.h"

#include "commandinterpreter.h"
#include "supplyengine.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

namespace tarn::sim {

namespace {
constexpr qint64 readChunk = qint64{16} * 1024;
} // namespace

SupplyServer::SupplyServer(SupplyEngine *engine, ServerFaults faults, QObject *parent)
    : QObject(parent)
    , m_engine(engine)
    , m_interpreter(std::make_unique<CommandInterpreter>(engine))
    , m_faults(faults)
    , m_server(new QTcpServer(this))
    , m_latencyTimer(new QTimer(this))
{
    m_latencyTimer->setSingleShot(true);
    m_clock.start();
    connect(m_server, &QTcpServer::newConnection, this, &SupplyServer::acceptConnections);
    connect(m_latencyTimer, &QTimer::timeout, this, &SupplyServer::flushDelayedReplies);
}

SupplyServer::~SupplyServer() = default;

bool SupplyServer::listen(const QHostAddress &address, quint16 port)
{
    return m_server->listen(address, port);
}

QString SupplyServer::errorString() const
{
    return m_server->errorString();
}

QHostAddress SupplyServer::address() const
{
    return m_server->serverAddress();
}

quint16 SupplyServer::port() const
{
    return m_server->serverPort();
}

void SupplyServer::acceptConnections()
{
    while (QTcpSocket *socket = m_server->nextPendingConnection()) {
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        if (m_client) {
            socket->write("ERROR: the supply is in use by another client; try again later\n");
            socket->disconnectFromHost();
            continue;
        }
        m_client = socket;
        m_buffer = LineBuffer();
        m_lines.clear();
        m_lineBytes = 0;
        m_commands = 0;
        m_delayed.clear();
        m_delayedBytes = 0;
        // A bounded read buffer lets the kernel hold back a client that writes faster than the
        // supply answers.
        socket->setReadBufferSize(LineBuffer::defaultBound);
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        connect(socket, &QTcpSocket::readyRead, this, &SupplyServer::readClient);
        connect(socket, &QTcpSocket::bytesWritten, this, &SupplyServer::readClient);
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            if (m_client == socket)
                dropClient();
            emit clientDisconnected();
        });
        emit clientConnected(
            QStringLiteral("%1:%2").arg(socket->peerAddress().toString()).arg(socket->peerPort()));
    }
}

bool SupplyServer::outputFull() const
{
    return m_client && m_client->bytesToWrite() + m_delayedBytes > outputBound;
}

void SupplyServer::readClient()
{
    processLines();
    char chunk[readChunk];
    // Lines are read only when those already read have been answered, so that at most one chunk
    // of lines and about outputBound bytes of replies wait here, whatever the client does.
    while (m_client && m_lines.isEmpty() && !outputFull() && m_client->bytesAvailable() > 0) {
        const qint64 n = m_client->read(chunk, sizeof chunk);
        if (n <= 0)
            break;
        m_buffer.feed(
            chunk,
            n,
            [this](const QByteArray &line) {
                m_lines.enqueue(line);
                m_lineBytes += line.size();
            },
            [this] { m_engine->errors().push(ScpiError::InputBufferOverrun); });
        processLines();
    }
}

void SupplyServer::processLines()
{
    while (m_client && !m_lines.isEmpty() && !outputFull()) {
        const QByteArray line = m_lines.dequeue();
        m_lineBytes -= line.size();
        ++m_commands;
        if (m_faults.silentAfter > 0 && m_commands > m_faults.silentAfter)
            continue;
        if (const std::optional<QByteArray> reply = m_interpreter->execute(line))
            sendReply(*reply + '\n');
        if (m_faults.dropAfter > 0 && m_commands >= m_faults.dropAfter) {
            m_client->abort();
            return;
        }
    }
}

void SupplyServer::sendReply(const QByteArray &reply)
{
    if (m_faults.latencyMs <= 0) {
        m_client->write(reply);
        return;
    }
    m_delayed.enqueue({m_clock.elapsed() + m_faults.latencyMs, reply});
    m_delayedBytes += reply.size();
    if (!m_latencyTimer->isActive())
        m_latencyTimer->start(m_faults.latencyMs);
}

void SupplyServer::flushDelayedReplies()
{
    const qint64 now = m_clock.elapsed();
    while (!m_delayed.isEmpty() && m_delayed.head().due <= now) {
        const Delayed reply = m_delayed.dequeue();
        m_delayedBytes -= reply.bytes.size();
        if (m_client)
            m_client->write(reply.bytes);
    }
    if (!m_delayed.isEmpty())
        m_latencyTimer->start(static_cast<int>(qMax<qint64>(0, m_delayed.head().due - now)));
    readClient();
}

void SupplyServer::dropClient()
{
    m_client = nullptr;
    m_lines.clear();
    m_lineBytes = 0;
    m_delayed.clear();
    m_delayedBytes = 0;
    m_latencyTimer->stop();
    // A client waiting in the queue of the listening socket is served now.
    acceptConnections();
}

} // namespace tarn::sim

// The network shell of the simulated supply: lines in, replies out, faults on request.
#include "supplyserver.h"

#include "clientconnection.h"
#include "commandinterpreter.h"
#include "supplyengine.h"

#include <QTcpServer>
#include <QTimer>

#include <functional>

namespace tarn::sim {

namespace {
constexpr qint64 readChunk = qint64{16} * 1024;
constexpr int mostWaiting = 8;
} // namespace

// The listening socket hands over bare descriptors, so that each client gets a ClientConnection.
class Listener final : public QTcpServer
{
public:
    Listener(std::function<void(qintptr)> accept, QObject *parent)
        : QTcpServer(parent)
        , m_accept(std::move(accept))
    {}

protected:
    void incomingConnection(qintptr descriptor) override { m_accept(descriptor); }

private:
    std::function<void(qintptr)> m_accept;
};

SupplyServer::SupplyServer(SupplyEngine *engine, ServerFaults faults, QObject *parent)
    : QObject(parent)
    , m_engine(engine)
    , m_interpreter(std::make_unique<CommandInterpreter>(engine))
    , m_faults(faults)
    , m_server(new Listener([this](qintptr descriptor) { accept(descriptor); }, this))
    , m_graceTimer(new QTimer(this))
    , m_latencyTimer(new QTimer(this))
{
    m_latencyTimer->setSingleShot(true);
    m_graceTimer->setSingleShot(true);
    m_clock.start();
    connect(m_graceTimer, &QTimer::timeout, this, &SupplyServer::judgeWaiting);
    connect(m_latencyTimer, &QTimer::timeout, this, &SupplyServer::flushDelayedReplies);
}

SupplyServer::~SupplyServer() = default;

bool SupplyServer::listen(const QHostAddress &address, quint16 port)
{
    return m_server->listen(address, port);
}

void SupplyServer::serveTerminal(int master, const QString &name, int baud)
{
    auto *terminal = new ClientConnection(master, name, this);
    connect(terminal, &ClientConnection::closed, terminal, &QObject::deleteLater);
    // Eight data bits, a start and a stop bit: ten bit times a byte.
    if (baud > 0)
        terminal->setPace(baud / 10);
    serve(terminal);
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

void SupplyServer::accept(qintptr descriptor)
{
    auto *client = new ClientConnection(descriptor, this);
    connect(client, &ClientConnection::closed, client, &QObject::deleteLater);
    if (!m_client) {
        serve(client);
        return;
    }
    if (m_waiting.size() >= mostWaiting) {
        refuse(client);
        return;
    }
    // The newcomer's commands stay in the kernel until it is served.
    client->setReading(false);
    m_waiting.append({client, m_clock.elapsed()});
    // The client being served may be the newcomer's own earlier connection, closed a moment ago.
    readClient();
    if (!m_graceTimer->isActive())
        m_graceTimer->start(graceMs);
}

void SupplyServer::serve(ClientConnection *client)
{
    m_client = client;
    m_buffer = LineBuffer();
    m_lines.clear();
    m_lineBytes = 0;
    m_commands = 0;
    m_delayed.clear();
    m_delayedBytes = 0;
    connect(client, &ClientConnection::readyRead, this, &SupplyServer::readClient);
    connect(client, &ClientConnection::bytesWritten, this, &SupplyServer::readClient);
    connect(client, &ClientConnection::closed, this, [this, client] {
        if (m_client == client)
            dropClient();
        emit clientDisconnected();
    });
    client->setReading(true);
    emit clientConnected(client->peer());
}

void SupplyServer::refuse(ClientConnection *client)
{
    client->write("ERROR: the supply is in use by another client; try again later\n");
    client->closeWhenWritten();
}

// A newcomer that has waited its grace is refused unless the client being served is already on
// its way out (its input has ended and only its replies are still leaving).
void SupplyServer::judgeWaiting()
{
    const qint64 now = m_clock.elapsed();
    const bool leaving = m_client && m_client->inputEnded();
    for (int i = 0; i < m_waiting.size();) {
        ClientConnection *client = m_waiting.at(i).client;
        if (!client || !client->isOpen()) {
            m_waiting.removeAt(i);
        } else if (m_client && !leaving && now - m_waiting.at(i).since >= graceMs) {
            m_waiting.removeAt(i);
            refuse(client);
        } else {
            ++i;
        }
    }
    if (!m_waiting.isEmpty()) {
        const qint64 due = m_waiting.first().since + graceMs - now;
        m_graceTimer->start(static_cast<int>(qBound<qint64>(10, due, graceMs)));
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
    while (m_client && m_lines.isEmpty() && !outputFull()) {
        const qint64 n = m_client->read(chunk, sizeof chunk);
        if (n <= 0)
            break;
        m_bytesIn += n;
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
    if (!m_client)
        return;
    const bool answered = m_lines.isEmpty() && m_delayed.isEmpty();
    if (m_client->inputEnded() && answered)
        m_client->closeWhenWritten();
    else
        m_client->setReading(m_lines.isEmpty() && !outputFull());
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
    m_bytesOut += reply.size();
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
    while (!m_waiting.isEmpty()) {
        ClientConnection *next = m_waiting.takeFirst().client;
        if (next && next->isOpen()) {
            serve(next);
            readClient();
            return;
        }
    }
}

} // namespace tarn::sim

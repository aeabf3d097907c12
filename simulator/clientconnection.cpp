// A client socket read and written with the system's calls, so that a half-close is seen as the
// end of the commands and not as the end of the connection.
#include "clientconnection.h"

#include <QElapsedTimer>
#include <QSocketNotifier>
#include <QTimer>

#include <arpa/inet.h>
#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tarn::sim {

namespace {

QString peerOf(int fd)
{
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    if (::getpeername(fd, reinterpret_cast<sockaddr *>(&address), &length) != 0)
        return QStringLiteral("?");
    char host[INET6_ADDRSTRLEN] = {};
    quint16 port = 0;
    if (address.ss_family == AF_INET) {
        const auto *v4 = reinterpret_cast<const sockaddr_in *>(&address);
        ::inet_ntop(AF_INET, &v4->sin_addr, host, sizeof host);
        port = ntohs(v4->sin_port);
    } else if (address.ss_family == AF_INET6) {
        const auto *v6 = reinterpret_cast<const sockaddr_in6 *>(&address);
        ::inet_ntop(AF_INET6, &v6->sin6_addr, host, sizeof host);
        port = ntohs(v6->sin6_port);
    }
    return QStringLiteral("%1:%2").arg(QString::fromLatin1(host)).arg(port);
}

bool wouldBlock(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

qint64 nowNs()
{
    static QElapsedTimer clock;
    if (!clock.isValid())
        clock.start();
    return clock.nsecsElapsed();
}

// At most this long a line's worth of bytes may pile up while the supply was busy.
constexpr double burstSeconds = 0.002;

} // namespace

ClientConnection::ClientConnection(qintptr descriptor, QObject *parent)
    : QObject(parent)
    , m_fd(static_cast<int>(descriptor))
    , m_peer(peerOf(m_fd))
{
    const int one = 1;
    ::setsockopt(m_fd, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
    watch();
}

ClientConnection::ClientConnection(int terminal, const QString &name, QObject *parent)
    : QObject(parent)
    , m_fd(terminal)
    , m_peer(name)
    , m_socket(false)
{
    watch();
}

void ClientConnection::watch()
{
    ::fcntl(m_fd, F_SETFL, ::fcntl(m_fd, F_GETFL) | O_NONBLOCK);
    m_readNotifier = new QSocketNotifier(m_fd, QSocketNotifier::Read, this);
    m_writeNotifier = new QSocketNotifier(m_fd, QSocketNotifier::Write, this);
    m_writeNotifier->setEnabled(false);
    connect(m_readNotifier, &QSocketNotifier::activated, this, &ClientConnection::readyRead);
    connect(m_writeNotifier, &QSocketNotifier::activated, this, [this] {
        flush();
        if (m_fd >= 0)
            emit bytesWritten();
    });
}

ClientConnection::~ClientConnection()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

qint64 ClientConnection::read(char *data, qint64 size)
{
    if (m_fd < 0 || m_inputEnded)
        return 0;
    if (m_pace > 0) {
        refill();
        size = qMin(size, static_cast<qint64>(m_readCredit));
        if (size <= 0) {
            updateReading();
            return 0;
        }
    }
    const ssize_t n = m_socket ? ::recv(m_fd, data, static_cast<size_t>(size), 0)
                               : ::read(m_fd, data, static_cast<size_t>(size));
    if (n > 0 && m_pace > 0)
        m_readCredit -= static_cast<double>(n);
    if (n > 0 && !m_socket)
        return n;
    if (n > 0) {
        // A command that gets no reply would leave its acknowledgement to the delayed-ACK timer,
        // and a client that sends its next line only once the last is acknowledged (Nagle's rule,
        // on by default in most VISA stacks) would wait 40 ms for it: acknowledge at once. The
        // kernel leaves quick-ack mode on its own, so it is asked for again after every read.
        const int one = 1;
        ::setsockopt(m_fd, IPPROTO_TCP, TCP_QUICKACK, &one, sizeof one);
        return n;
    }
    if (n == 0) {
        m_inputEnded = true;
        m_readNotifier->setEnabled(false);
    } else if (!wouldBlock(errno)) {
        abort();
    }
    return 0;
}

void ClientConnection::setReading(bool on)
{
    m_reading = on;
    updateReading();
}

void ClientConnection::updateReading()
{
    if (m_fd < 0)
        return;
    const bool credit = m_pace <= 0 || m_readCredit >= 1.0;
    m_readNotifier->setEnabled(m_reading && !m_inputEnded && credit);
    if (m_reading && !credit && !m_paceTimer->isActive())
        m_paceTimer->start();
}

void ClientConnection::setPace(int bytesPerSecond)
{
    m_pace = bytesPerSecond;
    if (!m_paceTimer) {
        m_paceTimer = new QTimer(this);
        m_paceTimer->setTimerType(Qt::PreciseTimer);
        m_paceTimer->setInterval(1);
        connect(m_paceTimer, &QTimer::timeout, this, [this] {
            refill();
            const bool waitingToWrite = m_sent < m_out.size();
            const bool waitingToRead = m_reading && !m_inputEnded;
            if (!waitingToWrite && !waitingToRead)
                m_paceTimer->stop();
            updateReading();
            if (waitingToWrite)
                flush();
        });
    }
    m_lastRefill = nowNs();
    m_readCredit = m_writeCredit = 0.0;
}

void ClientConnection::refill()
{
    const qint64 now = nowNs();
    const double earned = static_cast<double>(now - m_lastRefill) * 1e-9 * m_pace;
    const double most = qMax(1.0, m_pace * burstSeconds);
    m_lastRefill = now;
    m_readCredit = qMin(most, m_readCredit + earned);
    m_writeCredit = qMin(most, m_writeCredit + earned);
}

void ClientConnection::write(const QByteArray &bytes)
{
    if (m_fd < 0 || m_closing)
        return;
    m_out += bytes;
    flush();
}

void ClientConnection::flush()
{
    if (m_pace > 0)
        refill();
    while (m_fd >= 0 && m_sent < m_out.size()) {
        size_t size = static_cast<size_t>(m_out.size() - m_sent);
        if (m_pace > 0) {
            size = qMin(size, static_cast<size_t>(m_writeCredit));
            if (size == 0) {
                m_paceTimer->start();
                break;
            }
        }
        const char *from = m_out.constData() + m_sent;
        const ssize_t n
            = m_socket ? ::send(m_fd, from, size, MSG_NOSIGNAL) : ::write(m_fd, from, size);
        if (n > 0 && m_pace > 0)
            m_writeCredit -= static_cast<double>(n);
        if (n < 0) {
            if (wouldBlock(errno))
                break;
            abort();
            return;
        }
        m_sent += n;
    }
    if (m_fd < 0)
        return;
    const bool drained = m_sent == m_out.size();
    if (drained) {
        m_out.clear();
        m_sent = 0;
    } else if (m_sent > (qint64{1} << 16)) {
        // Drop what has left, so that a slow reader does not keep it all.
        m_out.remove(0, static_cast<int>(m_sent));
        m_sent = 0;
    }
    const bool paced = m_pace > 0 && m_writeCredit < 1.0;
    m_writeNotifier->setEnabled(!drained && !paced);
    if (drained && m_closing)
        abort();
}

void ClientConnection::closeWhenWritten()
{
    m_closing = true;
    flush();
}

void ClientConnection::abort()
{
    if (m_fd < 0)
        return;
    m_readNotifier->setEnabled(false);
    m_writeNotifier->setEnabled(false);
    if (m_paceTimer)
        m_paceTimer->stop();
    ::close(m_fd);
    m_fd = -1;
    m_out.clear();
    m_sent = 0;
    emit closed();
}

} // namespace tarn::sim

// A client socket read and written with the system's calls, so that a half-close is seen as the
// end of the commands and not as the end of the connection.
#include "clientconnection.h"

#include <QSocketNotifier>

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

} // namespace

ClientConnection::ClientConnection(qintptr descriptor, QObject *parent)
    : QObject(parent)
    , m_fd(static_cast<int>(descriptor))
    , m_peer(peerOf(m_fd))
{
    ::fcntl(m_fd, F_SETFL, ::fcntl(m_fd, F_GETFL) | O_NONBLOCK);
    const int one = 1;
    ::setsockopt(m_fd, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
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
    const ssize_t n = ::recv(m_fd, data, static_cast<size_t>(size), 0);
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
    if (m_fd >= 0)
        m_readNotifier->setEnabled(on && !m_inputEnded);
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
    while (m_fd >= 0 && m_sent < m_out.size()) {
        const ssize_t n = ::send(m_fd,
                                 m_out.constData() + m_sent,
                                 static_cast<size_t>(m_out.size() - m_sent),
                                 MSG_NOSIGNAL);
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
    m_writeNotifier->setEnabled(!drained);
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
    ::close(m_fd);
    m_fd = -1;
    m_out.clear();
    m_sent = 0;
    emit closed();
}

} // namespace tarn::sim

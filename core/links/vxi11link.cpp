// The VXI-11 link: a thread of its own that makes the core channel's calls through libtirpc.
#include "vxi11link.h"

#include <QMetaObject>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <rpc/rpc.h> // before pmap_prot.h, which needs its types

#include <rpc/pmap_prot.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tarn::host {

namespace {

// The core channel: its program, version and the four calls a session needs.
constexpr rpcprog_t coreProgram = 0x0607AF;
constexpr rpcvers_t coreVersion = 1;
constexpr rpcproc_t createLinkCall = 10;
constexpr rpcproc_t deviceWriteCall = 11;
constexpr rpcproc_t deviceReadCall = 12;
constexpr rpcproc_t destroyLinkCall = 23;

constexpr int32_t endFlag = 0x08;      // device_write: the last piece of a message
constexpr int32_t endReason = 0x04;    // device_read: the reply has ended
constexpr u_int readChunk = 16 * 1024; // the most one device_read asks for
constexpr u_int deviceNameBound = 64;

struct CreateLinkArguments
{
    int32_t clientId = 0;
    bool_t lockDevice = FALSE;
    uint32_t lockTimeout = 0;
    char *device = nullptr;
};

struct CreateLinkResult
{
    int32_t error = 0;
    int32_t lid = 0;
    uint32_t abortPort = 0;
    uint32_t maxRecvSize = 0;
};

struct WriteArguments
{
    int32_t lid = 0;
    uint32_t ioTimeout = 0;
    uint32_t lockTimeout = 0;
    int32_t flags = 0;
    u_int size = 0;
    char *data = nullptr;
};

struct WriteResult
{
    int32_t error = 0;
    uint32_t size = 0;
};

struct ReadArguments
{
    int32_t lid = 0;
    uint32_t requestSize = 0;
    uint32_t ioTimeout = 0;
    uint32_t lockTimeout = 0;
    int32_t flags = 0;
    int32_t termChar = 0;
};

struct ReadResult
{
    int32_t error = 0;
    int32_t reason = 0;
    u_int size = 0;
    char *data = nullptr; // points at a buffer of readChunk bytes before the call
};

bool_t xdrCreateLinkArguments(XDR *x, CreateLinkArguments *a)
{
    return xdr_int32_t(x, &a->clientId) && xdr_bool(x, &a->lockDevice)
           && xdr_uint32_t(x, &a->lockTimeout) && xdr_string(x, &a->device, deviceNameBound);
}

bool_t xdrCreateLinkResult(XDR *x, CreateLinkResult *r)
{
    return xdr_int32_t(x, &r->error) && xdr_int32_t(x, &r->lid) && xdr_uint32_t(x, &r->abortPort)
           && xdr_uint32_t(x, &r->maxRecvSize);
}

bool_t xdrWriteArguments(XDR *x, WriteArguments *a)
{
    return xdr_int32_t(x, &a->lid) && xdr_uint32_t(x, &a->ioTimeout)
           && xdr_uint32_t(x, &a->lockTimeout) && xdr_int32_t(x, &a->flags)
           && xdr_bytes(x, &a->data, &a->size, ~0u);
}

bool_t xdrWriteResult(XDR *x, WriteResult *r)
{
    return xdr_int32_t(x, &r->error) && xdr_uint32_t(x, &r->size);
}

bool_t xdrReadArguments(XDR *x, ReadArguments *a)
{
    return xdr_int32_t(x, &a->lid) && xdr_uint32_t(x, &a->requestSize)
           && xdr_uint32_t(x, &a->ioTimeout) && xdr_uint32_t(x, &a->lockTimeout)
           && xdr_int32_t(x, &a->flags) && xdr_int32_t(x, &a->termChar);
}

bool_t xdrReadResult(XDR *x, ReadResult *r)
{
    return xdr_int32_t(x, &r->error) && xdr_int32_t(x, &r->reason)
           && xdr_bytes(x, &r->data, &r->size, readChunk);
}

bool_t xdrDeviceError(XDR *x, int32_t *error)
{
    return xdr_int32_t(x, error);
}

template<typename T> xdrproc_t coder(bool_t (*routine)(XDR *, T *))
{
    return reinterpret_cast<xdrproc_t>(routine);
}

timeval after(int ms)
{
    return {ms / 1000, (ms % 1000) * 1000};
}

// What the instrument's error numbers mean.
QString deviceError(int32_t error)
{
    switch (error) {
    case 1:
        return Vxi11Link::tr("syntax error");
    case 3:
        return Vxi11Link::tr("device not accessible");
    case 4:
        return Vxi11Link::tr("invalid link identifier");
    case 5:
        return Vxi11Link::tr("parameter error");
    case 8:
        return Vxi11Link::tr("operation not supported");
    case 9:
        return Vxi11Link::tr("out of resources");
    case 11:
        return Vxi11Link::tr("device locked by another link");
    case 15:
        return Vxi11Link::tr("I/O timeout");
    case 17:
        return Vxi11Link::tr("I/O error");
    case 21:
        return Vxi11Link::tr("invalid address");
    case 23:
        return Vxi11Link::tr("abort");
    default:
        return Vxi11Link::tr("error %1").arg(error);
    }
}

// A TCP connection to `where`, given up after connectLimitMs or when `wake` is signalled.
int connectTo(const sockaddr_in &where, int wake, QString *problem)
{
    const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (fd < 0) {
        *problem = QString::fromLocal8Bit(std::strerror(errno));
        return -1;
    }
    int error = 0;
    if (::connect(fd, reinterpret_cast<const sockaddr *>(&where), sizeof where) != 0) {
        error = errno;
        if (error == EINPROGRESS) {
            pollfd fds[2] = {{fd, POLLOUT, 0}, {wake, POLLIN, 0}};
            const int ready = ::poll(fds, 2, Vxi11Link::connectLimitMs);
            socklen_t length = sizeof error;
            if (ready == 0)
                error = ETIMEDOUT;
            else if (ready < 0 || fds[1].revents != 0)
                error = ECANCELED;
            else
                ::getsockopt(fd, SOL_SOCKET, SO_ERROR, &error, &length);
        }
    }
    if (error != 0) {
        ::close(fd);
        *problem = QString::fromLocal8Bit(std::strerror(error));
        return -1;
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    return fd;
}

// An RPC client on a connected socket; destroying it closes the socket.
CLIENT *clientOn(int fd, sockaddr_in where, rpcprog_t program, rpcvers_t version)
{
    int socket = fd;
    CLIENT *client = clnttcp_create(&where, program, version, &socket, 0, 0);
    if (client == nullptr) {
        ::close(fd);
        return nullptr;
    }
    clnt_control(client, CLSET_FD_CLOSE, nullptr);
    return client;
}

} // namespace

Vxi11Link::Vxi11Link(const LinkAddress &address, QObject *parent)
    : InstrumentLink(parent)
    , m_address(address)
{}

Vxi11Link::~Vxi11Link()
{
    close();
}

QString Vxi11Link::address() const
{
    return m_address.port != 0
               ? QStringLiteral("vxi11://%1:%2/%3")
                     .arg(m_address.host)
                     .arg(m_address.port)
                     .arg(m_address.device)
               : QStringLiteral("TCPIP0::%1::%2::INSTR").arg(m_address.host, m_address.device);
}

void Vxi11Link::open()
{
    close();
    beginOpen();
    m_wake = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    m_stopping = false;
    m_busy = true;
    m_lines.clear();
    m_open = true;
    ++m_generation;
    m_thread = std::thread([this] { work(); });
}

void Vxi11Link::close()
{
    if (m_thread.joinable()) {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_stopping = true;
            // A call under way ends when its connection does; an idle link says goodbye.
            if (m_busy && m_socket >= 0)
                ::shutdown(m_socket, SHUT_RDWR);
        }
        m_more.notify_all();
        const quint64 one = 1;
        [[maybe_unused]] const ssize_t n = ::write(m_wake, &one, sizeof one);
        m_thread.join();
    }
    if (m_wake >= 0)
        ::close(m_wake);
    m_wake = -1;
    m_open = false;
    ++m_generation;
}

void Vxi11Link::write(const QByteArray &line)
{
    if (!m_open)
        return;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_lines.enqueue(line + '\n');
    }
    m_more.notify_one();
}

// An empty failure says the link has opened.
void Vxi11Link::post(const QString &failure)
{
    QMetaObject::invokeMethod(
        this,
        [this, failure, generation = m_generation] {
            if (generation != m_generation)
                return;
            if (failure.isEmpty()) {
                emit opened();
                return;
            }
            m_open = false;
            fail(failure);
        },
        Qt::QueuedConnection);
}

void Vxi11Link::work()
{
    // A write on a connection the instrument, or close(), has ended must fail the call, not end
    // the program: the signal it raises goes to this thread, which ignores it.
    sigset_t pipe;
    sigemptyset(&pipe);
    sigaddset(&pipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe, nullptr);

    const QString host = m_address.host;
    addrinfo hints = {};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *found = nullptr;
    if (::getaddrinfo(host.toUtf8().constData(), nullptr, &hints, &found) != 0 || !found) {
        post(tr("cannot find the host %1").arg(host));
        return;
    }
    sockaddr_in where = *reinterpret_cast<const sockaddr_in *>(found->ai_addr);
    ::freeaddrinfo(found);

    // The socket is handed over under the lock, so that close() shuts down only one still open.
    const auto connectClient
        = [this, &where](rpcprog_t program, rpcvers_t version, QString *problem) -> CLIENT * {
        const int fd = connectTo(where, m_wake, problem);
        if (fd < 0)
            return nullptr;
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_stopping) {
            ::close(fd);
            return nullptr;
        }
        m_socket = fd;
        return clientOn(fd, where, program, version);
    };
    const auto release = [this](CLIENT *client) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_socket = -1;
        clnt_destroy(client);
    };

    QString problem;
    if (m_address.port != 0) {
        where.sin_port = htons(m_address.port);
    } else {
        where.sin_port = htons(PMAPPORT);
        CLIENT *portmapper = connectClient(PMAPPROG, PMAPVERS, &problem);
        if (!portmapper) {
            post(tr("cannot ask the portmapper of %1 for its VXI-11 port (%2); give the port, as "
                    "in vxi11://HOST:PORT")
                     .arg(host, problem));
            return;
        }
        pmap question = {coreProgram, coreVersion, IPPROTO_TCP, 0};
        u_long port = 0;
        const clnt_stat asked = clnt_call(portmapper,
                                          PMAPPROC_GETPORT,
                                          coder(xdr_pmap),
                                          &question,
                                          coder(xdr_u_long),
                                          &port,
                                          after(connectLimitMs));
        release(portmapper);
        if (asked != RPC_SUCCESS || port == 0 || port > 65535) {
            post(asked != RPC_SUCCESS ? tr("the portmapper of %1 did not answer: %2")
                                            .arg(host, QString::fromLocal8Bit(clnt_sperrno(asked)))
                                      : tr("no VXI-11 service registered at %1").arg(host));
            return;
        }
        where.sin_port = htons(static_cast<uint16_t>(port));
    }

    CLIENT *client = connectClient(coreProgram, coreVersion, &problem);
    if (!client) {
        post(tr("cannot connect to the VXI-11 service of %1 (%2)").arg(host, problem));
        return;
    }
    QByteArray device = m_address.device.toUtf8();
    CreateLinkArguments create;
    create.clientId = static_cast<int32_t>(::getpid());
    create.device = device.data();
    CreateLinkResult created;
    clnt_stat status = clnt_call(client,
                                 createLinkCall,
                                 coder(xdrCreateLinkArguments),
                                 &create,
                                 coder(xdrCreateLinkResult),
                                 &created,
                                 after(connectLimitMs));
    if (status != RPC_SUCCESS || created.error != 0) {
        release(client);
        post(status != RPC_SUCCESS ? tr("the VXI-11 service of %1 refused the link: %2")
                                         .arg(host, QString::fromLocal8Bit(clnt_sperrno(status)))
                                   : tr("the instrument %1 has no device %2: %3")
                                         .arg(host, m_address.device, deviceError(created.error)));
        return;
    }
    post({});

    // Replies come in pieces of at most readChunk bytes; a message goes in pieces the instrument
    // takes (it may take less than it says).
    const u_int piece = qBound<u_int>(64, created.maxRecvSize, 1 << 20);
    QByteArray reply(readChunk, Qt::Uninitialized);
    QString broken;
    const auto call
        = [&](rpcproc_t procedure, xdrproc_t in, void *arguments, xdrproc_t out, void *result) {
              status = clnt_call(
                  client, procedure, in, arguments, out, result, after(replyLimitMs + 2000));
              if (status == RPC_SUCCESS)
                  return true;
              broken
                  = status == RPC_CANTRECV || status == RPC_CANTSEND
                        ? tr("The VXI-11 instrument %1 closed the connection: was it switched off?")
                              .arg(host)
                        : tr("The VXI-11 instrument %1 failed: %2")
                              .arg(host, QString::fromLocal8Bit(clnt_sperrno(status)));
              return false;
          };
    for (;;) {
        QByteArray message;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_busy = false;
            m_more.wait(lock, [this] { return m_stopping || !m_lines.isEmpty(); });
            if (m_stopping)
                break;
            m_busy = true;
            message = m_lines.dequeue();
        }
        for (int done = 0; done < message.size() && broken.isEmpty();) {
            WriteArguments out;
            out.lid = created.lid;
            out.ioTimeout = replyLimitMs;
            out.size = qMin<u_int>(piece, static_cast<u_int>(message.size() - done));
            out.flags = done + static_cast<int>(out.size) == message.size() ? endFlag : 0;
            out.data = message.data() + done;
            WriteResult written;
            if (!call(deviceWriteCall,
                      coder(xdrWriteArguments),
                      &out,
                      coder(xdrWriteResult),
                      &written))
                break;
            if (written.error != 0 || written.size == 0 || written.size > out.size)
                broken = tr("The VXI-11 instrument %1 refused a message: %2")
                             .arg(host, deviceError(written.error));
            done += static_cast<int>(written.size);
        }
        // A line with a query gets one reply; a read that timed out is given up (the session
        // that waits on the reply tells the user).
        for (bool ended = !message.contains('?'); !ended && broken.isEmpty();) {
            ReadArguments in;
            in.lid = created.lid;
            in.requestSize = readChunk;
            in.ioTimeout = replyLimitMs;
            ReadResult got;
            got.data = reply.data();
            if (!call(deviceReadCall, coder(xdrReadArguments), &in, coder(xdrReadResult), &got))
                break;
            if (got.error == 15)
                break;
            if (got.error != 0) {
                broken = tr("The VXI-11 instrument %1 failed to answer: %2")
                             .arg(host, deviceError(got.error));
                break;
            }
            ended = (got.reason & endReason) != 0;
            QByteArray bytes = reply.left(static_cast<int>(got.size));
            if (ended && !bytes.endsWith('\n'))
                bytes += '\n'; // the reply's end is its line's end
            QMetaObject::invokeMethod(
                this,
                [this, bytes, generation = m_generation] {
                    if (generation == m_generation)
                        receive(bytes);
                },
                Qt::QueuedConnection);
        }
        if (!broken.isEmpty())
            break;
    }
    if (broken.isEmpty()) {
        // Closing: the instrument frees the link at once rather than when it notices.
        int32_t error = 0;
        clnt_call(client,
                  destroyLinkCall,
                  coder(xdr_int32_t),
                  &created.lid,
                  coder(xdrDeviceError),
                  &error,
                  after(1000));
    }
    release(client);
    if (!broken.isEmpty())
        post(broken);
}

} // namespace tarn::host

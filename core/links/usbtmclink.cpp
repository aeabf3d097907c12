// The USBTMC link: a thread of its own that writes messages and waits on the driver's replies.
#include "usbtmclink.h"

#include "usbinstruments.h"

#include <QFile>
#include <QMetaObject>
#include <QTimer>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/usb/tmc.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tarn::host {

namespace {

bool vanished(int error)
{
    return error == ENODEV || error == EIO || error == ENXIO || error == ESHUTDOWN
           || error == EPIPE;
}

} // namespace

UsbtmcLink::UsbtmcLink(const LinkAddress &address, QObject *parent)
    : InstrumentLink(parent)
    , m_address(address)
    , m_device(address.device)
{}

UsbtmcLink::~UsbtmcLink()
{
    close();
}

QString UsbtmcLink::address() const
{
    return m_address.device.isEmpty()
               ? UsbInstrument{{}, m_address.vendor, m_address.product, m_address.serialNumber}
                     .resourceString()
               : QStringLiteral("usbtmc:%1").arg(m_address.device);
}

void UsbtmcLink::open()
{
    close();
    beginOpen();
    QString problem;
    if (m_address.device.isEmpty()) {
        m_device.clear();
        for (const UsbInstrument &instrument : attachedUsbInstruments(systemRoot())) {
            if (instrument.vendor == m_address.vendor && instrument.product == m_address.product
                && instrument.serialNumber == m_address.serialNumber)
                m_device = instrument.device;
        }
        if (m_device.isEmpty())
            problem = tr("no such USB instrument is attached, or the usbtmc driver has not taken "
                         "it on");
    }
    if (problem.isEmpty()) {
        m_fd = ::open(QFile::encodeName(m_device).constData(), O_RDWR | O_CLOEXEC | O_NOCTTY);
        if (m_fd < 0)
            problem = errno == EACCES
                          ? tr("Cannot open %1: permission denied (the README's \"Connecting an "
                               "instrument\" tells which group may use it)")
                                .arg(m_device)
                          : tr("Cannot open %1: %2")
                                .arg(m_device, QString::fromLocal8Bit(std::strerror(errno)));
    }
    if (!problem.isEmpty()) {
        QTimer::singleShot(0, this, [this, problem] { fail(problem); });
        return;
    }
    const __u32 timeout = replyLimitMs;
    m_driverTimes = ::ioctl(m_fd, USBTMC_IOCTL_SET_TIMEOUT, &timeout) == 0;
    if (!m_driverTimes)
        ::fcntl(m_fd, F_SETFL, ::fcntl(m_fd, F_GETFL) | O_NONBLOCK);
    m_wake = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    m_stopping = false;
    m_lines.clear();
    m_open = true;
    ++m_generation;
    m_thread = std::thread([this] { work(); });
    QTimer::singleShot(0, this, [this, generation = m_generation] {
        if (m_open && generation == m_generation)
            emit opened();
    });
}

void UsbtmcLink::close()
{
    if (m_thread.joinable()) {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_stopping = true;
        }
        m_more.notify_all();
        const quint64 one = 1;
        [[maybe_unused]] const ssize_t n = ::write(m_wake, &one, sizeof one);
        m_thread.join();
    }
    if (m_fd >= 0)
        ::close(m_fd);
    if (m_wake >= 0)
        ::close(m_wake);
    m_fd = -1;
    m_wake = -1;
    m_open = false;
    ++m_generation;
}

void UsbtmcLink::write(const QByteArray &line)
{
    if (!m_open)
        return;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_lines.enqueue(line + '\n');
    }
    m_more.notify_one();
}

void UsbtmcLink::work()
{
    for (;;) {
        QByteArray message;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_more.wait(lock, [this] { return m_stopping || !m_lines.isEmpty(); });
            if (m_stopping)
                return;
            message = m_lines.dequeue();
        }
        if (!send(message))
            return;
        // A line with a query gets one reply; the driver gives it only to a read that asks.
        if (message.contains('?') && !readReply())
            return;
    }
}

bool UsbtmcLink::waitFor(short events)
{
    if (m_driverTimes)
        return true;
    pollfd fds[2] = {{m_fd, events, 0}, {m_wake, POLLIN, 0}};
    const int ready = ::poll(fds, 2, replyLimitMs);
    if (fds[1].revents != 0)
        return false;
    if (ready > 0 && (fds[0].revents & (POLLHUP | POLLERR)) != 0
        && (fds[0].revents & POLLIN) == 0) {
        gone(EIO);
        return false;
    }
    if (ready == 0)
        errno = ETIMEDOUT;
    return ready > 0 || (ready < 0 && errno == EINTR);
}

bool UsbtmcLink::send(const QByteArray &message)
{
    qint64 done = 0;
    while (done < message.size()) {
        if (!waitFor(POLLOUT)) {
            if (errno == ETIMEDOUT)
                continue;
            return false;
        }
        const ssize_t n
            = ::write(m_fd, message.constData() + done, static_cast<size_t>(message.size() - done));
        if (n >= 0) {
            done += n;
        } else if (errno != EAGAIN && errno != EINTR && errno != ETIMEDOUT) {
            gone(errno);
            return false;
        }
    }
    return true;
}

bool UsbtmcLink::readReply()
{
    char chunk[16 * 1024];
    for (;;) {
        if (!waitFor(POLLIN)) {
            // Given up: the session that waits on this reply tells the user.
            return errno == ETIMEDOUT;
        }
        const ssize_t n = ::read(m_fd, chunk, sizeof chunk);
        if (n < 0 && (errno == EAGAIN || errno == EINTR))
            continue;
        if (n < 0 && errno == ETIMEDOUT)
            return true;
        if (n <= 0) {
            gone(n == 0 ? EIO : errno);
            return false;
        }
        const QByteArray bytes(chunk, static_cast<int>(n));
        QMetaObject::invokeMethod(
            this,
            [this, bytes, generation = m_generation] {
                if (generation == m_generation)
                    receive(bytes);
            },
            Qt::QueuedConnection);
        if (bytes.endsWith('\n'))
            return true;
    }
}

void UsbtmcLink::gone(int error)
{
    const QString reason
        = vanished(error)
              ? tr("The USB instrument %1 is gone: it was unplugged or switched off").arg(m_device)
              : tr("The USB instrument %1 failed: %2")
                    .arg(m_device, QString::fromLocal8Bit(std::strerror(error)));
    QMetaObject::invokeMethod(
        this,
        [this, reason, generation = m_generation] {
            if (generation != m_generation)
                return;
            m_open = false;
            fail(reason);
        },
        Qt::QueuedConnection);
}

} // namespace tarn::host

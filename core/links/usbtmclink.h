// A USB instrument through the kernel's test-and-measurement class driver (/dev/usbtmcN).
#pragma once

#include "instrumentlink.h"
#include "linkaddress.h"

#include <QQueue>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace tarn::host {

// The driver carries one message per write() and hands back one reply per read(), and a read
// waits for the instrument, so the link's own thread does the waiting: it writes each line as one
// message and, after a line holding a query, reads until the reply's line ends. The driver's
// time-out is set to replyLimitMs, longer than a session waits for a reply, so that a silent
// instrument is told by the session; the read that timed out is given up and the next line goes
// on. A device that does not take the driver's time-out (a stand-in on a pseudo-terminal) is
// waited on with poll() for as long. A device that vanishes (unplugged, switched off) fails the
// link with a message that says so.
class UsbtmcLink final : public InstrumentLink
{
    Q_OBJECT
    Q_DISABLE_COPY(UsbtmcLink)

public:
    static constexpr int replyLimitMs = 5000;

    explicit UsbtmcLink(const LinkAddress &address, QObject *parent = nullptr);
    ~UsbtmcLink() override;

    void open() override;
    void close() override;
    void write(const QByteArray &line) override;
    bool isOpen() const override { return m_open; }
    QString address() const override;

private:
    void work();
    // Both return false when the device is gone or the link closes.
    bool send(const QByteArray &message);
    bool readReply();
    bool waitFor(short events);
    void gone(int error);

    LinkAddress m_address;
    QString m_device;
    int m_fd = -1;
    int m_wake = -1; // an eventfd that ends the thread's waits when the link closes
    bool m_driverTimes = false;
    bool m_open = false;
    quint64 m_generation = 0; // what the thread posts after close() is dropped

    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_more;
    QQueue<QByteArray> m_lines;
    bool m_stopping = false;
};

} // namespace tarn::host

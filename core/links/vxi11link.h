// A LAN instrument through VXI-11's core channel (ONC RPC over TCP).
#pragma once

#include "instrumentlink.h"
#include "linkaddress.h"

#include <QQueue>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace tarn::host {

// Every call on the core channel waits for its answer, so the link's own thread makes them, the
// way UsbtmcLink waits on its driver: it connects (asking the host's portmapper for the port when
// the address gives none), creates the link to the device, writes each line as one message with
// END set and, after a line holding a query, reads until the instrument says the reply has ended.
// A read is given replyLimitMs, longer than a session waits for a reply, so that a silent
// instrument is told by the session; a read that timed out is given up and the next line goes on.
// A connection that breaks fails the link with a message that says so.
class Vxi11Link final : public InstrumentLink
{
    Q_OBJECT
    Q_DISABLE_COPY(Vxi11Link)

public:
    static constexpr int replyLimitMs = 5000;
    static constexpr int connectLimitMs = 5000;

    explicit Vxi11Link(const LinkAddress &address, QObject *parent = nullptr);
    ~Vxi11Link() override;

    void open() override;
    void close() override;
    void write(const QByteArray &line) override;
    bool isOpen() const override { return m_open; }
    QString address() const override;

private:
    void work();
    void post(const QString &failure);

    LinkAddress m_address;
    bool m_open = false;
    quint64 m_generation = 0; // what the thread posts after close() is dropped

    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_more;
    QQueue<QByteArray> m_lines;
    bool m_stopping = false;
    bool m_busy = false; // the thread is in a call, not waiting for lines
    int m_socket = -1;   // shut down by close() to end a call under way
    int m_wake = -1;     // an eventfd that ends a connect under way
};

} // namespace tarn::host

// Matching replies to queries.
#include "commandchannel.h"

#include "instrumentlink.h"

#include <QTimer>

namespace tarn::host {

CommandChannel::CommandChannel(QObject *parent)
    : QObject(parent)
    , m_timer(new QTimer(this))
{
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, [this] {
        if (m_pending.isEmpty())
            return;
        const QByteArray command = m_pending.head().command;
        forget();
        emit replyTimedOut(command);
    });
}

CommandChannel::~CommandChannel() = default;

void CommandChannel::setLink(InstrumentLink *link)
{
    if (m_link)
        disconnect(m_link, nullptr, this, nullptr);
    m_pending.clear();
    m_ignore = 0;
    m_timer->stop();
    m_link = link;
    if (link) {
        connect(link, &InstrumentLink::lineReceived, this, &CommandChannel::receive);
        // The time limit is on silence: a long reply still arriving restarts it.
        connect(link, &InstrumentLink::replyGrew, this, [this] {
            if (m_timer->isActive())
                m_timer->start(m_timeoutMs);
        });
    }
}

InstrumentLink *CommandChannel::link() const
{
    return m_link.data();
}

void CommandChannel::send(const QByteArray &command)
{
    if (!m_link)
        return;
    emit traffic(true, command);
    m_link->write(command);
}

void CommandChannel::query(const QByteArray &command, QObject *context, ReplyHandler handler)
{
    if (!m_link)
        return;
    m_pending.enqueue({command, context, std::move(handler)});
    if (!m_timer->isActive())
        m_timer->start(m_timeoutMs);
    send(command);
}

void CommandChannel::forget()
{
    m_ignore += m_pending.size();
    m_pending.clear();
    m_timer->stop();
}

void CommandChannel::setReplyTimeout(int msec)
{
    m_timeoutMs = msec;
}

void CommandChannel::receive(const QByteArray &line)
{
    emit traffic(false, line);
    if (m_ignore > 0) {
        --m_ignore;
        return;
    }
    if (m_pending.isEmpty())
        return; // an instrument's unasked line (a busy notice) belongs to the traffic log only
    const Pending pending = m_pending.dequeue();
    if (m_pending.isEmpty())
        m_timer->stop();
    else
        m_timer->start(m_timeoutMs);
    if (pending.context)
        pending.handler(line);
}

} // namespace tarn::host

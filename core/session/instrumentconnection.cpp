// Opening, identifying, probing and dropping the link to an instrument.
#include "instrumentconnection.h"

#include "commandchannel.h"
#include "limitsprobe.h"
#include "statusmonitor.h"

#include <instrumentlink.h>
#include <replyparser.h>

#include <QTimer>

namespace tarn::host {

InstrumentConnection::InstrumentConnection(const sim::InstrumentDescription &description,
                                           const CommandSet &commands,
                                           LinkFactory createLink,
                                           QObject *parent)
    : QObject(parent)
    , m_description(description)
    , m_commands(commands)
    , m_createLink(std::move(createLink))
    , m_channel(new CommandChannel(this))
    , m_probe(new LimitsProbe(m_channel, commands, this))
    , m_status(new StatusMonitor(m_channel, commands, description.channels.size(), this))
    , m_connectTimer(new QTimer(this))
{
    qRegisterMetaType<tarn::host::InstrumentConnection::State>();
    m_connectTimer->setSingleShot(true);
    connect(m_connectTimer, &QTimer::timeout, this, [this] {
        m_silent = true;
        linkFailed(tr("no answer within %1 s").arg(connectTimeoutMs / 1000));
    });
    connect(m_channel, &CommandChannel::traffic, this, &InstrumentConnection::traffic);
    connect(m_channel, &CommandChannel::replyTimedOut, m_probe, &LimitsProbe::replyTimedOut);
    connect(m_channel, &CommandChannel::replyTimedOut, m_status, &StatusMonitor::replyTimedOut);
    connect(m_probe, &LimitsProbe::finished, this, &InstrumentConnection::limitsRead);
}

InstrumentConnection::~InstrumentConnection()
{
    m_channel->setLink(nullptr);
}

InstrumentLink *InstrumentConnection::link() const
{
    return m_link.get();
}

void InstrumentConnection::setState(State state, const QString &message)
{
    m_state = state;
    emit stateChanged(state, message);
}

void InstrumentConnection::connectTo(const QString &address)
{
    disconnectFromInstrument();
    m_silent = false;
    QString error;
    std::unique_ptr<InstrumentLink> link = m_createLink(address, &error);
    m_address = address.trimmed();
    if (!link) {
        setState(State::Disconnected, error);
        return;
    }
    // Replies as long as the longest read-back, with room to spare, and no longer.
    link->setReplyBound(qMax(64 * 1024, m_description.maxCount * 128));
    m_link = std::move(link);
    connect(m_link.get(), &InstrumentLink::opened, this, &InstrumentConnection::linkOpened);
    connect(m_link.get(), &InstrumentLink::failed, this, &InstrumentConnection::linkFailed);
    setState(State::Connecting, tr("Connecting to %1").arg(m_link->address()));
    m_connectTimer->start(connectTimeoutMs);
    m_link->open();
}

void InstrumentConnection::linkOpened()
{
    m_channel->setLink(m_link.get());
    m_channel->query(m_commands.line("identify"), this, [this](const QByteArray &line) {
        m_connectTimer->stop();
        const auto identity = reply::parseIdentity(line);
        m_identity = identity.value_or(tr("(no identity)"));
        m_probe->start(m_description.channels.size());
    });
}

void InstrumentConnection::limitsRead()
{
    if (!m_link)
        return;
    setState(State::Connected,
             m_probe->answeredAny()
                 ? tr("Connected to %1").arg(m_link->address())
                 : tr("Connected to %1; it did not tell its limits, so those of the instrument "
                      "description apply")
                       .arg(m_link->address()));
    m_status->setPolling(true);
}

std::optional<InstrumentLimits> InstrumentConnection::instrumentLimits(int channel) const
{
    return m_probe->limits(channel);
}

StepLimits InstrumentConnection::stepLimits(int channel) const
{
    return stepLimitsFor(m_description, channel - 1, m_probe->limits(channel));
}

void InstrumentConnection::dropLink()
{
    m_connectTimer->stop();
    m_channel->setLink(nullptr);
    if (m_link) {
        m_link->disconnect(this);
        m_link->close();
        m_link.release()->deleteLater();
    }
    m_identity.clear();
    m_probe->clear();
    m_status->forget();
}

void InstrumentConnection::linkFailed(const QString &reason)
{
    const State was = m_state;
    const QString address = m_link ? m_link->address() : m_address;
    dropLink();
    emit linkLost(reason);
    setState(State::Disconnected,
             was == State::Connected ? tr("The connection to %1 was lost: %2").arg(address, reason)
                                     : tr("Could not connect to %1: %2").arg(address, reason));
}

void InstrumentConnection::disconnectFromInstrument()
{
    m_connectTimer->stop();
    if (!m_link)
        return;
    emit linkLost(tr("disconnected by the user"));
    dropLink();
    setState(State::Disconnected, tr("Disconnected"));
}

} // namespace tarn::host

// Polling the status byte, and the details only when it flags something.
#include "statusmonitor.h"

#include "commandchannel.h"
#include "replyparser.h"

#include <QTimer>

namespace tarn::host {

namespace {
constexpr int errorQueueBit = 4;
constexpr int questionableBit = 8;
constexpr int tripBits = 1 | 2; // over-voltage, over-current on some channel
constexpr int mostErrors = 1 << 20;
} // namespace

StatusMonitor::StatusMonitor(CommandChannel *channel,
                             const CommandSet &commands,
                             int channels,
                             QObject *parent)
    : QObject(parent)
    , m_channel(channel)
    , m_commands(commands)
    , m_channels(channels)
    , m_timer(new QTimer(this))
{
    qRegisterMetaType<tarn::host::InstrumentStatus>();
    m_timer->setInterval(1000);
    connect(m_timer, &QTimer::timeout, this, &StatusMonitor::refresh);
}

StatusMonitor::~StatusMonitor() = default;

void StatusMonitor::setInterval(int msec)
{
    m_timer->setInterval(msec);
}

void StatusMonitor::setPolling(bool on)
{
    ++m_generation;
    m_busy = false;
    m_again = false;
    if (!on) {
        m_timer->stop();
        return;
    }
    m_timer->start();
    refresh();
}

void StatusMonitor::refresh()
{
    if (!m_channel->link() || m_silent)
        return;
    if (m_busy) {
        m_again = true;
        return;
    }
    m_busy = true;
    const int generation = m_generation;
    // The questionable condition comes with the byte: the byte's summary bit only follows trips
    // the instrument was told to report, and only until *CLS, while the condition holds as long
    // as a protection stays tripped. *OPC? answers even where the others are unknown, so such an
    // instrument costs an error, never a wait.
    const QByteArray line = QByteArrayList{m_commands.line("statusByte"),
                                           m_commands.line("questionableCondition"),
                                           m_commands.line("complete")}
                                .join(';');
    m_channel->query(line, this, [this, generation](const QByteArray &reply) {
        if (generation != m_generation)
            return;
        const QList<QByteArray> fields = reply.split(';');
        const bool whole = fields.size() == 3 && fields.at(2).trimmed() == "1";
        const auto byte = whole ? reply::parseCount(fields.at(0), 255) : std::nullopt;
        const auto condition = whole ? reply::parseCount(fields.at(1), 32767) : std::nullopt;
        if (!byte || !condition) {
            m_silent = true;
            m_timer->stop();
            finish({});
        } else if ((*byte & (errorQueueBit | questionableBit)) || (*condition & tripBits)) {
            readDetails(*condition & tripBits, generation);
        } else {
            finish({true, 0, {}});
        }
    });
}

QByteArrayList StatusMonitor::leaveSelected() const
{
    const int channel = m_channelInUse ? m_channelInUse() : 0;
    if (channel <= 0)
        return {};
    return {m_commands.line("selectChannel", {QByteArray::number(channel)})};
}

void StatusMonitor::readDetails(bool trips, int generation)
{
    QByteArrayList queries{m_commands.line("errorCount")};
    if (trips) {
        for (int channel = 1; channel <= m_channels; ++channel)
            queries << m_commands.line("selectChannel", {QByteArray::number(channel)})
                    << m_commands.line("voltageTripped") << m_commands.line("currentTripped");
        queries << leaveSelected();
    }
    queries << m_commands.line("complete");
    m_channel->query(queries.join(';'), this, [this, trips, generation](const QByteArray &reply) {
        if (generation != m_generation)
            return;
        const QList<QByteArray> fields = reply.split(';');
        InstrumentStatus status;
        if (fields.size() != 2 + (trips ? 2 * m_channels : 0)) {
            finish(status);
            return;
        }
        const auto errors = reply::parseCount(fields.at(0), mostErrors);
        status.known = errors.has_value();
        status.errors = errors.value_or(0);
        for (int channel = 1; trips && channel <= m_channels; ++channel) {
            const auto overVoltage = reply::parseBool(fields.at(2 * channel - 1));
            const auto overCurrent = reply::parseBool(fields.at(2 * channel));
            status.known = status.known && overVoltage && overCurrent;
            if (overVoltage.value_or(false) || overCurrent.value_or(false))
                status.trips.append(
                    {channel, overVoltage.value_or(false), overCurrent.value_or(false)});
        }
        finish(status.known ? status : InstrumentStatus());
    });
}

void StatusMonitor::finish(const InstrumentStatus &status)
{
    m_busy = false;
    if (status != m_status) {
        m_status = status;
        emit changed(m_status);
    }
    if (m_again) {
        m_again = false;
        refresh();
    }
}

void StatusMonitor::clearTrips()
{
    if (!m_channel->link() || m_status.trips.isEmpty())
        return;
    QByteArrayList commands;
    for (const ProtectionTrip &trip : qAsConst(m_status.trips))
        commands << m_commands.line("selectChannel", {QByteArray::number(trip.channel)})
                 << m_commands.line("clearProtection");
    commands << leaveSelected();
    m_channel->send(commands.join(';'));
    refresh();
}

void StatusMonitor::forget()
{
    setPolling(false);
    m_silent = false;
    if (m_status != InstrumentStatus()) {
        m_status = {};
        emit changed(m_status);
    }
}

void StatusMonitor::replyTimedOut()
{
    // The channel has dropped every query in flight, this one's among them.
    ++m_generation;
    m_busy = false;
    m_again = false;
}

} // namespace tarn::host

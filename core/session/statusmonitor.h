// The instrument's status as the host last read it: tripped protection and errors waiting.
#pragma once

#include "commandset.h"

#include <QObject>
#include <QVector>

#include <functional>

class QTimer;

namespace tarn::host {

class CommandChannel;

struct ProtectionTrip
{
    int channel = 0; // from 1
    bool overVoltage = false;
    bool overCurrent = false;

    bool operator==(const ProtectionTrip &other) const
    {
        return channel == other.channel && overVoltage == other.overVoltage
               && overCurrent == other.overCurrent;
    }
};

struct InstrumentStatus
{
    bool known = false; // false before the first answer and for an instrument that cannot tell
    int errors = 0;     // waiting in the instrument's queue
    QVector<ProtectionTrip> trips;

    bool operator==(const InstrumentStatus &other) const
    {
        return known == other.known && errors == other.errors && trips == other.trips;
    }
    bool operator!=(const InstrumentStatus &other) const { return !(*this == other); }
};

// StatusMonitor reads the status byte and the questionable condition and, only when they flag
// errors or a trip, the error count and each channel's trips, in one line. It looks once per
// interval while it polls (1 s by default), never with more than one look in flight.
class StatusMonitor final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(StatusMonitor)

public:
    StatusMonitor(CommandChannel *channel,
                  const CommandSet &commands,
                  int channels,
                  QObject *parent = nullptr);
    ~StatusMonitor() override;

    // Reading a channel's trips selects it on the instrument; `channel` tells which channel to
    // leave selected afterwards (0: none matters), so that a run's polls keep reading their own.
    void setChannelInUse(std::function<int()> channel) { m_channelInUse = std::move(channel); }
    void setInterval(int msec);

    // On: looks now and then every interval. Off: a look in flight is no longer waited for, since
    // an upload may drop it with its own queries.
    void setPolling(bool on);
    void refresh();
    // Clears the protection of every tripped channel (the outputs stay off) and looks again.
    void clearTrips();
    // After the link is gone: nothing is known any more.
    void forget();
    void replyTimedOut();

    const InstrumentStatus &status() const { return m_status; }

signals:
    void changed(const tarn::host::InstrumentStatus &status);

private:
    void readDetails(bool trips, int generation);
    void finish(const InstrumentStatus &status);
    QByteArrayList leaveSelected() const;

    CommandChannel *m_channel;
    CommandSet m_commands;
    int m_channels;
    std::function<int()> m_channelInUse;
    QTimer *m_timer;
    InstrumentStatus m_status;
    int m_generation = 0;
    bool m_busy = false;
    bool m_again = false;
    bool m_silent = false; // the instrument gave no status byte: it is not asked again
};

} // namespace tarn::host

Q_DECLARE_METATYPE(tarn::host::InstrumentStatus)

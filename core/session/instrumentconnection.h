// The life of one connection to an instrument: opening the link, asking who it is and what it
// accepts, watching its status, and noticing when the link is gone.
#pragma once

#include "channellimits.h"
#include "commandset.h"

#include <instrumentdescription.h>
#include <instrumentlink.h>

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class QTimer;

namespace tarn::host {

class CommandChannel;
class LimitsProbe;
class StatusMonitor;

// InstrumentConnection turns an address into a working line to the instrument. Connecting means:
// the link opens, the instrument answers *IDN?, and the limits of every channel have been asked
// for; only then is it Connected. A link that fails, or an instrument silent for
// connectTimeoutMs, ends in Disconnected with the reason. Sessions use its command channel and
// hear of a lost link through linkLost(). Which links exist is the face's business: it hands in
// the factory that turns an address into one.
class InstrumentConnection final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(InstrumentConnection)

public:
    enum class State { Disconnected, Connecting, Connected };
    Q_ENUM(State)

    // Nothing, with *error telling why, for an address that cannot be a link.
    using LinkFactory
        = std::function<std::unique_ptr<InstrumentLink>(const QString &address, QString *error)>;

    InstrumentConnection(const sim::InstrumentDescription &description,
                         const CommandSet &commands,
                         LinkFactory createLink,
                         QObject *parent = nullptr);
    ~InstrumentConnection() override;

    void connectTo(const QString &address);
    void disconnectFromInstrument();

    State state() const { return m_state; }
    QString address() const { return m_address; }
    QString identity() const { return m_identity; }
    InstrumentLink *link() const;
    CommandChannel *channel() const { return m_channel; }
    StatusMonitor *statusMonitor() const { return m_status; }
    // What the connected instrument said `channel` (from 1) accepts; nothing when it did not say.
    std::optional<InstrumentLimits> instrumentLimits(int channel) const;
    // The limits a step on `channel` (from 1) is checked against: the instrument's where it told
    // them, the description's otherwise.
    StepLimits stepLimits(int channel) const;

    // Whether the last attempt to connect failed because the instrument stayed silent, rather
    // than because the link could not be made or broke.
    bool lastAttemptWasSilent() const { return m_silent; }

    static constexpr int connectTimeoutMs = 5000;

signals:
    void stateChanged(tarn::host::InstrumentConnection::State state, const QString &message);
    // The link broke or the user disconnected; sessions stop what they were doing.
    void linkLost(const QString &reason);
    void traffic(bool sent, const QByteArray &line);

private:
    void setState(State state, const QString &message);
    void linkOpened();
    void limitsRead();
    void linkFailed(const QString &reason);
    void dropLink();

    sim::InstrumentDescription m_description;
    CommandSet m_commands;
    LinkFactory m_createLink;
    std::unique_ptr<InstrumentLink> m_link;
    CommandChannel *m_channel;
    LimitsProbe *m_probe;
    StatusMonitor *m_status;
    QTimer *m_connectTimer;
    State m_state = State::Disconnected;
    QString m_address;
    QString m_identity;
    bool m_silent = false;
};

} // namespace tarn::host

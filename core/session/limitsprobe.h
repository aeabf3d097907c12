// Asking a freshly connected instrument what each of its channels accepts.
#pragma once

#include "channellimits.h"
#include "commandset.h"

#include <QObject>
#include <QVector>

#include <optional>

namespace tarn::host {

class CommandChannel;

// LimitsProbe asks, one line per channel, for the channel's voltage and current range and its
// protection levels. Each line ends in *OPC?, which answers even when a query before it fails, so
// an instrument that does not know a query costs that channel's answer, never a wait. A channel
// whose answer is short or does not add up stays unknown, and the description stands in for it.
class LimitsProbe final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(LimitsProbe)

public:
    LimitsProbe(CommandChannel *channel, const CommandSet &commands, QObject *parent = nullptr);
    ~LimitsProbe() override;

    // Asks about channels 1..count; finished() follows once every line is answered or the
    // instrument stopped answering.
    void start(int count);
    bool isActive() const { return m_waiting > 0; }
    void clear();
    void replyTimedOut();

    // What the instrument said about `channel` (from 1), when it gave a whole answer.
    std::optional<InstrumentLimits> limits(int channel) const;
    bool answeredAny() const;

    // The line that asks about `channel`, and what its reply says.
    QByteArray line(int channel) const;
    static std::optional<InstrumentLimits> read(const QByteArray &reply, int channel);

signals:
    void finished();

private:
    void end();

    CommandChannel *m_channel;
    CommandSet m_commands;
    QVector<std::optional<InstrumentLimits>> m_limits;
    int m_waiting = 0;
    int m_generation = 0;
};

} // namespace tarn::host

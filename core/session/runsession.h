// Running an uploaded sequence on the instrument and sampling what its output does.
#pragma once

#include "commandset.h"
#include "runtrace.h"
#include "uploadedsequence.h"

#include <instrumentdescription.h>

#include <QMap>
#include <QObject>
#include <QPair>

class QTimer;

namespace tarn::host {

class CommandChannel;

// RunSession keeps the sequences the host uploaded and verified, one per channel and mode, and
// runs one of them: the instrument plays it on its own clock, and the session polls the step now
// playing, the measured voltage and current and the output state from the event loop (10 Hz by
// default, never more than one poll in flight). The trace it records is the user's: it is kept
// when the run ends, fails or the link drops.
class RunSession final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(RunSession)

public:
    RunSession(CommandChannel *channel,
               const sim::InstrumentDescription &description,
               const CommandSet &commands,
               QObject *parent = nullptr);
    ~RunSession() override;

    void remember(const UploadedSequence &sequence);
    // What the instrument holds is no longer known: an upload to `channel` began, or the link
    // went (a sequence verified on one connection proves nothing about the next).
    void forget(int channel, bool list);
    void forgetAll();
    QList<UploadedSequence> uploaded() const { return m_uploaded.values(); }
    // The verified sequence of `channel` (from 1) and mode; nothing when there is none.
    const UploadedSequence *find(int channel, bool list) const;
    // The channel and mode of the sequence verified last.
    QPair<int, bool> lastUploaded() const { return m_last; }

    // Runs the uploaded sequence of `channel` (from 1) in List or Delayer mode.
    void start(int channel, bool list);
    void stop();
    bool isRunning() const { return m_state != State::Idle; }
    const UploadedSequence &current() const { return m_current; }
    const RunTrace &trace() const { return m_trace; }

    void setPollInterval(int msec);
    void linkLost(const QString &reason);
    void replyTimedOut(const QByteArray &command);

signals:
    void uploadedChanged();
    void started();
    void sampled(const tarn::host::RunSample &sample);
    void ended(const QString &message, bool failed);

private:
    enum class State { Idle, Starting, Running, Stopping };

    void poll();
    void finish(const QString &message, bool failed);
    const char *key(const char *list, const char *delayer) const;

    CommandChannel *m_channel;
    sim::InstrumentDescription m_description;
    CommandSet m_commands;
    QMap<QPair<int, bool>, UploadedSequence> m_uploaded;
    UploadedSequence m_current;
    QPair<int, bool> m_last{0, true};
    RunTrace m_trace;
    QTimer *m_pollTimer;
    State m_state = State::Idle;
    bool m_polling = false;
    int m_generation = 0;
    RunSample m_next;
    qint64 m_lastCycle = 0;
    quint64 m_serial = 0;
};

} // namespace tarn::host

Q_DECLARE_METATYPE(tarn::host::RunSample)

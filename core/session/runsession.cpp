// Run, poll, stop.
#include "runsession.h"

#include "commandchannel.h"
#include "replyparser.h"

#include <QTimer>

namespace tarn::host {

RunSession::RunSession(CommandChannel *channel,
                       const sim::InstrumentDescription &description,
                       const CommandSet &commands,
                       QObject *parent)
    : QObject(parent)
    , m_channel(channel)
    , m_description(description)
    , m_commands(commands)
    , m_pollTimer(new QTimer(this))
{
    qRegisterMetaType<tarn::host::RunSample>();
    m_pollTimer->setInterval(100);
    connect(m_pollTimer, &QTimer::timeout, this, &RunSession::poll);
}

RunSession::~RunSession() = default;

const char *RunSession::key(const char *list, const char *delayer) const
{
    return m_current.list ? list : delayer;
}

void RunSession::remember(const UploadedSequence &sequence)
{
    UploadedSequence &stored = m_uploaded[{sequence.channel, sequence.list}];
    stored = sequence;
    stored.serial = ++m_serial;
    m_last = {sequence.channel, sequence.list};
    emit uploadedChanged();
}

void RunSession::forget(int channel, bool list)
{
    if (m_uploaded.remove({channel, list}) > 0)
        emit uploadedChanged();
}

void RunSession::forgetAll()
{
    if (m_uploaded.isEmpty())
        return;
    m_uploaded.clear();
    m_last = {0, true};
    emit uploadedChanged();
}

const UploadedSequence *RunSession::find(int channel, bool list) const
{
    const auto found = m_uploaded.constFind({channel, list});
    return found == m_uploaded.cend() ? nullptr : &*found;
}

void RunSession::setPollInterval(int msec)
{
    m_pollTimer->setInterval(msec);
}

void RunSession::start(int channel, bool list)
{
    if (m_state != State::Idle)
        return;
    const UploadedSequence *found = find(channel, list);
    if (!found) {
        emit ended(tr("Upload and verify a sequence on this channel first"), true);
        return;
    }
    if (!m_channel->link()) {
        emit ended(tr("Not connected to an instrument"), true);
        return;
    }
    m_current = *found;
    m_trace.clear();
    m_lastCycle = 0;
    m_state = State::Starting;
    m_channel->send(m_commands.line("clearStatus"));
    m_channel->send(m_commands.line("selectChannel", {QByteArray::number(channel)}));
    m_channel->send(m_commands.line(key("listRun", "delayerRun")));
    m_channel->query(m_commands.line("nextError"), this, [this](const QByteArray &line) {
        if (m_state != State::Starting)
            return;
        const auto error = reply::parseError(line);
        if (!error || error->code != 0) {
            finish(tr("The instrument refused to run the sequence: %1")
                       .arg(error ? QStringLiteral("%1, %2").arg(error->code).arg(error->text)
                                  : QString::fromUtf8(line.left(200))),
                   true);
            return;
        }
        m_state = State::Running;
        emit started();
        poll();
        m_pollTimer->start();
    });
}

void RunSession::stop()
{
    if (m_state != State::Running && m_state != State::Starting)
        return;
    m_state = State::Stopping;
    m_pollTimer->stop();
    m_channel->send(m_commands.line(key("listStop", "delayerStop")));
    // One more look, so the trace ends with the output the end state left.
    m_polling = false;
    poll();
}

void RunSession::poll()
{
    if (m_polling || m_state == State::Idle || m_state == State::Starting)
        return;
    m_polling = true;
    // Replies of a poll overtaken by Stop still arrive; only the newest poll counts.
    const int generation = ++m_generation;
    m_channel->query(m_commands.line(key("listPosition", "delayerPosition")),
                     this,
                     [this, generation](const QByteArray &line) {
                         if (generation != m_generation)
                             return;
                         const auto p = reply::parsePosition(line, m_description.maxCount);
                         if (!p) {
                             finish(tr("The instrument's position reply could not be read: %1")
                                        .arg(QString::fromUtf8(line.left(200))),
                                    true);
                             return;
                         }
                         const double last = m_trace.samples().isEmpty()
                                                 ? 0.0
                                                 : m_trace.samples().constLast().time;
                         m_next = RunSample();
                         m_next.step = p->step;
                         m_next.cycle = p->cycle;
                         m_next.time = p->step > 0 ? p->elapsed : last;
                         if (p->cycle > 0)
                             m_lastCycle = p->cycle;
                     });
    m_channel->query(
        m_commands.line("measureVoltage"), this, [this, generation](const QByteArray &line) {
            if (generation == m_generation)
                m_next.voltage = reply::parseValue(line).value_or(0.0);
        });
    m_channel->query(
        m_commands.line("measureCurrent"), this, [this, generation](const QByteArray &line) {
            if (generation == m_generation)
                m_next.current = reply::parseValue(line).value_or(0.0);
        });
    m_channel->query(
        m_commands.line("outputState"), this, [this, generation](const QByteArray &line) {
            if (generation != m_generation || m_state == State::Idle)
                return;
            m_polling = false;
            m_next.output = reply::parseBool(line).value_or(false);
            m_trace.append(m_next);
            emit sampled(m_next);
            if (m_state == State::Stopping) {
                finish(tr("Stopped; the output is as the end state leaves it"), false);
            } else if (m_next.step == 0) {
                finish(m_lastCycle == 1 ? tr("The sequence ended after 1 cycle")
                                        : tr("The sequence ended after %1 cycles").arg(m_lastCycle),
                       false);
            }
        });
}

void RunSession::finish(const QString &message, bool failed)
{
    m_state = State::Idle;
    m_polling = false;
    m_pollTimer->stop();
    emit ended(message, failed);
}

void RunSession::linkLost(const QString &reason)
{
    if (m_state == State::Idle)
        return;
    finish(tr("The connection was lost during the run (%1); the trace so far is kept").arg(reason),
           true);
}

void RunSession::replyTimedOut(const QByteArray &command)
{
    if (m_state == State::Idle)
        return;
    finish(tr("The instrument stopped answering during the run (no reply to %1); the trace so far "
              "is kept")
               .arg(QString::fromUtf8(command)),
           true);
}

} // namespace tarn::host

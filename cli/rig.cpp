// Connecting, uploading, running and stopping, each waited for in an event loop of its own.
#include "rig.h"

#include "reporter.h"

#include <commandchannel.h>
#include <historyrecorder.h>
#include <linkfactory.h>
#include <replyparser.h>

#include <character.h>

#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace tarn::cli {

using namespace tarn::host;
using namespace tarn2::specific::orvo5000::programmer;

namespace {

int interruptPipe[2] = {-1, -1};

void onInterrupt(int)
{
    const char byte = 1;
    // Nothing else is safe in a signal handler; the event loop reads the byte.
    [[maybe_unused]] const ssize_t written = ::write(interruptPipe[1], &byte, 1);
}

// Runs an event loop until `done` says so after one of the emitted signals, or `msec` pass.
template<class Done> bool waitUntil(QEventLoop &loop, Done done, int msec)
{
    if (done())
        return true;
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
    limit.start(msec);
    while (!done() && limit.isActive())
        loop.exec();
    return done();
}

} // namespace

void Rig::catchInterrupt()
{
    if (interruptPipe[0] >= 0 || ::pipe(interruptPipe) != 0)
        return;
    ::fcntl(interruptPipe[1], F_SETFL, O_NONBLOCK);
    struct sigaction action = {};
    action.sa_handler = onInterrupt;
    sigemptyset(&action.sa_mask);
    ::sigaction(SIGINT, &action, nullptr);
}

Rig::Rig(const sim::InstrumentDescription &description,
         const CommandSet &commands,
         Reporter &reporter)
    : m_description(description)
    , m_commands(commands)
    , m_reporter(reporter)
    , m_connection(description,
                   commands,
                   [description](const QString &address, QString *error) {
                       return createLink(address, description, error);
                   })
    , m_upload(m_connection.channel(), description, commands)
    , m_run(m_connection.channel(), description, commands)
    , m_feeder(&m_upload)
{
    connect(&m_upload, &UploadSession::verified, &m_run, &RunSession::remember);
    connect(&m_connection, &InstrumentConnection::linkLost, this, [this](const QString &reason) {
        if (m_linkStatus == Success)
            m_linkStatus = Connection;
        m_upload.linkLost(reason);
        m_run.linkLost(reason);
    });
    connect(m_connection.channel(),
            &CommandChannel::replyTimedOut,
            this,
            [this](const QByteArray &command) {
                m_linkStatus = Timeout;
                m_upload.replyTimedOut(command);
                m_run.replyTimedOut(command);
            });
    if (interruptPipe[0] >= 0) {
        auto *notifier = new QSocketNotifier(interruptPipe[0], QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, [this] {
            char bytes[16];
            [[maybe_unused]] const ssize_t read = ::read(interruptPipe[0], bytes, sizeof bytes);
            emit interrupted();
        });
    }
}

Rig::~Rig() = default;

void Rig::recordInto(history::History *history)
{
    auto *recorder = new history::HistoryRecorder(history, m_description, this);
    recorder->watch(&m_connection, &m_upload, &m_run);
    connect(recorder, &history::HistoryRecorder::problem, this, [this](const QString &message) {
        m_reporter.error(message);
    });
}

ExitStatus Rig::connectTo(const QString &address)
{
    QString message;
    QEventLoop loop;
    connect(&m_connection,
            &InstrumentConnection::stateChanged,
            &loop,
            [&](InstrumentConnection::State, const QString &text) {
                message = text;
                loop.quit();
            });
    bool interruptedNow = false;
    connect(this, &Rig::interrupted, &loop, [&] {
        interruptedNow = true;
        loop.quit();
    });
    m_connection.connectTo(address);
    if (!m_connection.link()) {
        m_reporter.error(message);
        return Usage;
    }
    waitUntil(
        loop,
        [&] {
            return interruptedNow
                   || m_connection.state() != InstrumentConnection::State::Connecting;
        },
        InstrumentConnection::connectTimeoutMs + 1000);
    if (interruptedNow)
        return Interrupted;
    if (m_connection.state() != InstrumentConnection::State::Connected) {
        m_reporter.error(message);
        return m_connection.lastAttemptWasSilent() ? Timeout : Connection;
    }
    m_reporter.info(message, {{QStringLiteral("identity"), m_connection.identity()}});
    return Success;
}

std::optional<QByteArray> Rig::ask(const QByteArray &line, ExitStatus *status)
{
    std::optional<QByteArray> answer;
    QEventLoop loop;
    m_connection.channel()->query(line, &loop, [&](const QByteArray &reply) {
        answer = reply;
        loop.quit();
    });
    connect(&m_connection, &InstrumentConnection::linkLost, &loop, &QEventLoop::quit);
    connect(m_connection.channel(), &CommandChannel::replyTimedOut, &loop, &QEventLoop::quit);
    waitUntil(
        loop,
        [&] { return answer.has_value() || m_linkStatus != Success; },
        m_connection.channel()->replyTimeout() + 1000);
    if (!answer)
        *status = m_linkStatus != Success ? m_linkStatus : Timeout;
    return answer;
}

ExitStatus Rig::upload(const SequenceContent &content, int channel)
{
    QEventLoop loop;
    std::optional<UploadOutcome> outcome;
    bool interruptedNow = false;
    connect(&m_upload, &UploadSession::ended, &loop, [&](const UploadOutcome &ended) {
        outcome = ended;
        loop.quit();
    });
    connect(&m_upload, &UploadSession::progressed, &loop, [this](int confirmed, int total) {
        m_reporter.progress(confirmed, total);
    });
    connect(this, &Rig::interrupted, &loop, [&] {
        interruptedNow = true;
        m_upload.cancel();
    });
    m_feeder.start(content, channel, m_description.maxCount);
    // The session's own reply limit and the link end every upload; this only guards against
    // waiting forever on a session that has lost its way.
    waitUntil(
        loop, [&] { return outcome.has_value(); }, 24 * 3600 * 1000);
    if (!outcome) {
        m_reporter.error(QStringLiteral("the upload did not end"));
        return Failure;
    }
    QJsonObject fields{{QStringLiteral("verified"), outcome->verified},
                       {QStringLiteral("held"), outcome->held}};
    if (outcome->row >= 0)
        fields.insert(QStringLiteral("step"), outcome->row);
    m_reporter.result(outcome->verified, outcome->message, fields);
    if (interruptedNow)
        return Interrupted;
    switch (outcome->ending) {
    case UploadEnd::Verified:
        return Success;
    case UploadEnd::NotConnected:
    case UploadEnd::LinkLost:
        return Connection;
    case UploadEnd::BadRequest:
        return Usage;
    case UploadEnd::Refused:
        return Refused;
    case UploadEnd::Mismatch:
        return Mismatch;
    case UploadEnd::TimedOut:
        return Timeout;
    case UploadEnd::Cancelled:
        return Interrupted;
    case UploadEnd::Unreadable:
        return Failure;
    }
    return Failure;
}

ExitStatus Rig::readBackHeld(int channel, bool list)
{
    const CommandSet &commands = m_commands;
    m_connection.channel()->send(commands.line("selectChannel", {QByteArray::number(channel)}));
    UploadedSequence held;
    held.list = list;
    held.channel = channel;
    if (channel >= 1 && channel <= m_description.channels.size())
        held.channelName = m_description.channels.at(channel - 1).name;
    if (list) {
        ExitStatus status = Success;
        const auto steps = readList(&status);
        if (status != Success)
            return status;
        if (steps)
            held.listSteps = *steps;
    } else {
        ExitStatus status = Success;
        const std::optional<QByteArray> reply = ask(commands.line("delayerData"), &status);
        if (!reply)
            return status;
        const auto steps = reply::parseDelayerData(*reply, m_description.maxCount);
        if (steps)
            held.delayerSteps = *steps;
    }
    m_run.remember(held);
    return Success;
}

std::optional<ListReader::Steps> Rig::readList(ExitStatus *status)
{
    ListReader reader(m_connection.channel(), m_description, m_commands);
    bool answered = false;
    std::optional<ListReader::Steps> steps;
    QEventLoop loop;
    reader.read([&](const std::optional<ListReader::Steps> &held) {
        answered = true;
        steps = held;
        loop.quit();
    });
    connect(&m_connection, &InstrumentConnection::linkLost, &loop, &QEventLoop::quit);
    connect(m_connection.channel(), &CommandChannel::replyTimedOut, &loop, &QEventLoop::quit);
    // A read in pieces may take several replies; each has the channel's own limit.
    waitUntil(
        loop, [&] { return answered || m_linkStatus != Success; }, 24 * 3600 * 1000);
    if (!answered)
        *status = m_linkStatus != Success ? m_linkStatus : Timeout;
    return steps;
}

ExitStatus Rig::run(int channel, bool list, double seconds, const QString &tracePath)
{
    bool known = false;
    for (const UploadedSequence &sequence : m_run.uploaded())
        known = known || (sequence.channel == channel && sequence.list == list);
    if (!known) {
        const ExitStatus status = readBackHeld(channel, list);
        if (status != Success)
            return status;
    }

    QEventLoop loop;
    std::optional<QPair<QString, bool>> ended;
    bool interruptedNow = false;
    int lastStep = -1;
    connect(&m_run, &RunSession::ended, &loop, [&](const QString &message, bool failed) {
        ended = qMakePair(message, failed);
        loop.quit();
    });
    connect(&m_run, &RunSession::sampled, &loop, [&](const RunSample &sample) {
        if (sample.step != lastStep) {
            lastStep = sample.step;
            m_reporter.progress(sample.step, m_run.current().stepCount());
        }
    });
    QTimer limit;
    limit.setSingleShot(true);
    connect(&limit, &QTimer::timeout, &m_run, &RunSession::stop);
    connect(&m_run, &RunSession::started, &loop, [&] {
        if (seconds > 0)
            limit.start(static_cast<int>(qMin(seconds * 1000.0, 2.0e9)));
    });
    connect(this, &Rig::interrupted, &loop, [&] {
        interruptedNow = true;
        m_run.stop();
    });
    m_run.start(channel, list);
    waitUntil(
        loop, [&] { return ended.has_value(); }, std::numeric_limits<int>::max());
    limit.stop();

    const ExitStatus traced = tracePath.isEmpty() ? Success : writeTrace(tracePath);
    const bool failed = !ended || ended->second;
    m_reporter.result(!failed,
                      ended ? ended->first : QStringLiteral("the run did not end"),
                      {{QStringLiteral("samples"), m_run.trace().samples().size()}});
    if (interruptedNow)
        return Interrupted;
    if (failed)
        return m_linkStatus != Success ? m_linkStatus : Refused;
    return traced;
}

ExitStatus Rig::writeTrace(const QString &path)
{
    const QStringList lines = m_run.trace().csvLines(
        m_description.timeDecimals, m_description.voltageDecimals, m_description.currentDecimals);
    if (!tarn2::util::character::Character::csvSave(path, lines)) {
        m_reporter.error(QStringLiteral("could not write the trace to %1").arg(path));
        return Failure;
    }
    m_reporter.info(QStringLiteral("trace written to %1").arg(path),
                    {{QStringLiteral("trace"), path}});
    return Success;
}

ExitStatus Rig::stop(int channel)
{
    const CommandSet &commands = m_commands;
    m_connection.channel()->send(commands.line("selectChannel", {QByteArray::number(channel)}));
    m_connection.channel()->send(commands.line("listStop"));
    m_connection.channel()->send(commands.line("delayerStop"));
    ExitStatus status = Success;
    const std::optional<QByteArray> error = ask(commands.line("nextError"), &status);
    if (!error)
        return status;
    const auto parsed = reply::parseError(*error);
    if (!parsed || parsed->code != 0) {
        m_reporter.result(false,
                          QStringLiteral("the instrument refused to stop: %1")
                              .arg(QString::fromUtf8(error->left(200))));
        return Refused;
    }
    m_reporter.result(true, QStringLiteral("Stopped the sequences of channel %1").arg(channel));
    return Success;
}

} // namespace tarn::cli

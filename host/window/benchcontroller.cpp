// Connecting, uploading through the session, and telling the user how it went.
#include "benchcontroller.h"

#include "commandchannel.h"
#include "instrumentlink.h"
#include "limitsprobe.h"
#include "linkfactory.h"
#include "preflight.h"
#include "prompter.h"
#include "replyparser.h"
#include "statusmonitor.h"

#include <dialogprogrammer.h>

#include <QItemSelectionModel>
#include <QTimer>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

BenchController::BenchController(DialogProgrammer *dialog,
                                 const sim::InstrumentDescription &description,
                                 const CommandSet &commands,
                                 QObject *parent)
    : QObject(parent)
    , m_dialog(dialog)
    , m_description(description)
    , m_commands(commands)
    , m_channel(new CommandChannel(this))
    , m_session(new UploadSession(m_channel, description, commands, this))
    , m_run(new RunSession(m_channel, description, commands, this))
    , m_probe(new LimitsProbe(m_channel, commands, this))
    , m_status(new StatusMonitor(m_channel, commands, description.channels.size(), this))
    , m_connectTimer(new QTimer(this))
{
    qRegisterMetaType<tarn::host::BenchController::State>();
    m_connectTimer->setSingleShot(true);
    connect(m_connectTimer, &QTimer::timeout, this, [this] {
        linkFailed(tr("no answer within %1 s").arg(connectTimeoutMs / 1000));
    });
    connect(m_channel, &CommandChannel::traffic, this, &BenchController::traffic);
    connect(m_channel, &CommandChannel::replyTimedOut, m_session, &UploadSession::replyTimedOut);
    connect(m_channel, &CommandChannel::replyTimedOut, m_run, &RunSession::replyTimedOut);
    connect(m_channel, &CommandChannel::replyTimedOut, m_probe, &LimitsProbe::replyTimedOut);
    connect(m_channel, &CommandChannel::replyTimedOut, m_status, &StatusMonitor::replyTimedOut);
    connect(m_session, &UploadSession::verified, m_run, &RunSession::remember);
    connect(m_probe, &LimitsProbe::finished, this, &BenchController::limitsRead);
    m_status->setChannelInUse([this] { return m_run->isRunning() ? m_run->current().channel : 0; });
    // The status is not read during an upload, whose line count and pace stay its own; it is read
    // again once the upload has ended.
    connect(this, &BenchController::uploadEnded, this, [this] {
        if (m_state == State::Connected)
            m_status->setPolling(true);
    });

    connect(dialog, &DialogProgrammer::uploaderStarted, this, [this](const UploadParam &param) {
        // The instrument refuses to change a sequence while it plays; a new upload ends the run.
        m_run->stop();
        m_status->setPolling(false);
        m_uploading = true;
        m_nextWanted = false;
        m_uploadMode = static_cast<int>(param.mode);
        emit uploadRunning(true);
        if (preflight(param))
            m_session->begin(param);
    });
    connect(dialog, &DialogProgrammer::uploaderNextData, m_session, &UploadSession::step);
    connect(dialog, &DialogProgrammer::uploaderFinished, m_session, &UploadSession::finish);
    connect(dialog, &DialogProgrammer::uploaderError, m_session, &UploadSession::dialogError);
    connect(dialog, &DialogProgrammer::uploaderStoped, this, [this] {
        m_uploading = false;
        m_nextWanted = false;
        emit uploadRunning(false);
    });
    // The dialog is driven from the event loop, never from inside one of its own signals.
    connect(m_session, &UploadSession::nextWanted, this, [this] {
        m_nextWanted = true;
        schedulePump();
    });
    connect(m_session, &UploadSession::stopWanted, this, [this] {
        QTimer::singleShot(0, this, [this] {
            if (m_uploading && m_dialog)
                m_dialog->uploaderStop();
        });
    });
    connect(m_session, &UploadSession::progressed, this, &BenchController::uploadProgress);
    connect(m_session, &UploadSession::ended, this, [this](UploadOutcome outcome) {
        if (m_sequenceLength > outcome.held && outcome.held >= 0 && outcome.verified)
            outcome.message = tr("%1 (%2 of %3 steps sent; the instrument holds no more)")
                                  .arg(outcome.message)
                                  .arg(outcome.held)
                                  .arg(m_sequenceLength);
        // The row is selected once the dialog is unlocked again.
        QTimer::singleShot(0, this, [this, outcome] { showOutcome(outcome); });
    });
}

BenchController::~BenchController()
{
    m_channel->setLink(nullptr);
}

void BenchController::schedulePump()
{
    if (m_pumpScheduled || m_pumping)
        return;
    m_pumpScheduled = true;
    QTimer::singleShot(0, this, &BenchController::pump);
}

// Asks for up to a batch of steps in one turn of the event loop: each step's request still comes
// from here, not from inside the dialog's signal, but a step costs no event-loop turn of its own,
// and the link is served between batches.
void BenchController::pump()
{
    m_pumpScheduled = false;
    m_pumping = true;
    for (int i = 0; i < pumpBatch && m_nextWanted && m_uploading && m_dialog; ++i) {
        m_nextWanted = false;
        m_dialog->uploaderNext();
    }
    m_pumping = false;
    if (m_nextWanted && m_uploading)
        schedulePump();
}

InstrumentLink *BenchController::link() const
{
    return m_link.get();
}

void BenchController::setState(State state, const QString &message)
{
    m_state = state;
    emit stateChanged(state, message);
}

void BenchController::connectTo(const QString &address)
{
    disconnectFromInstrument();
    QString error;
    std::unique_ptr<InstrumentLink> link = createLink(address, m_description, &error);
    m_address = address.trimmed();
    if (!link) {
        setState(State::Disconnected, error);
        return;
    }
    // Replies as long as the longest read-back, with room to spare, and no longer.
    link->setReplyBound(qMax(64 * 1024, m_description.maxCount * 128));
    m_link = std::move(link);
    connect(m_link.get(), &InstrumentLink::opened, this, &BenchController::linkOpened);
    connect(m_link.get(), &InstrumentLink::failed, this, &BenchController::linkFailed);
    setState(State::Connecting, tr("Connecting to %1").arg(m_link->address()));
    m_connectTimer->start(connectTimeoutMs);
    m_link->open();
}

void BenchController::linkOpened()
{
    m_channel->setLink(m_link.get());
    m_channel->query(m_commands.line("identify"), this, [this](const QByteArray &line) {
        m_connectTimer->stop();
        const auto identity = reply::parseIdentity(line);
        m_identity = identity.value_or(tr("(no identity)"));
        m_probe->start(m_description.channels.size());
    });
}

void BenchController::limitsRead()
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

std::optional<InstrumentLimits> BenchController::instrumentLimits(int channel) const
{
    return m_probe->limits(channel);
}

void BenchController::linkFailed(const QString &reason)
{
    m_connectTimer->stop();
    const State was = m_state;
    const QString address = m_link ? m_link->address() : m_address;
    m_channel->setLink(nullptr);
    if (m_link) {
        m_link->disconnect(this);
        m_link->close();
        m_link.release()->deleteLater();
    }
    m_identity.clear();
    m_probe->clear();
    m_status->forget();
    m_session->linkLost(reason);
    m_run->linkLost(reason);
    setState(State::Disconnected,
             was == State::Connected ? tr("The connection to %1 was lost: %2").arg(address, reason)
                                     : tr("Could not connect to %1: %2").arg(address, reason));
}

void BenchController::disconnectFromInstrument()
{
    m_connectTimer->stop();
    if (!m_link)
        return;
    m_session->linkLost(tr("disconnected by the user"));
    m_run->linkLost(tr("disconnected by the user"));
    m_probe->clear();
    m_status->forget();
    m_channel->setLink(nullptr);
    m_link->disconnect(this);
    m_link->close();
    m_link.release()->deleteLater();
    m_identity.clear();
    setState(State::Disconnected, tr("Disconnected"));
}

void BenchController::cancelUpload()
{
    m_session->cancel();
}

bool BenchController::preflight(const UploadParam &param)
{
    if (!m_dialog)
        return false;
    // The limits the instrument gave are read while connecting; an upload does not go ahead of
    // them, nor compete with their replies.
    if (m_state == State::Connecting) {
        refuseUpload({false, tr("Not uploaded: still connecting; upload once connected"), -1, -1});
        return false;
    }
    const StepLimits limits
        = stepLimitsFor(m_description, param.channel - 1, m_probe->limits(param.channel));
    const bool list = param.mode == UploadMode::List;
    const Preflight check = list ? Preflight::check(m_dialog->listSequence(), limits)
                                 : Preflight::check(m_dialog->delayerSequence(), limits);
    m_sequenceLength = list ? m_dialog->listSequence().size() : m_dialog->delayerSequence().size();
    if (!check.passed()) {
        refuseUpload({false, check.refusal(), check.firstBad, -1});
        return false;
    }
    if (m_sequenceLength > param.maxCount && m_prompter
        && m_prompter->question(m_dialog,
                                tr("Upload"),
                                tr("The sequence has %1 steps; this instrument holds %2.\n\n"
                                   "Upload only the first %2 steps?")
                                    .arg(m_sequenceLength)
                                    .arg(param.maxCount))
               != Prompter::Answer::Yes) {
        refuseUpload(
            {false, tr("Not uploaded: the sequence is longer than the instrument holds"), -1, -1});
        return false;
    }
    return true;
}

void BenchController::refuseUpload(const UploadOutcome &outcome)
{
    // The dialog's run has started and only it can end it, from the event loop.
    QTimer::singleShot(0, this, [this, outcome] {
        if (m_uploading && m_dialog)
            m_dialog->uploaderStop();
        showOutcome(outcome);
    });
}

void BenchController::showOutcome(const UploadOutcome &outcome)
{
    if (m_dialog) {
        if (outcome.verified)
            m_dialog->showInfo(outcome.message, 0);
        else
            m_dialog->showError(outcome.message, 0);
        m_dialog->selectStep(static_cast<UploadMode>(m_uploadMode), outcome.row);
    }
    emit uploadEnded(outcome);
}

} // namespace tarn::host

// Connecting, uploading through the session, and telling the user how it went.
#include "benchcontroller.h"

#include "commandchannel.h"
#include "instrumentlink.h"
#include "linkfactory.h"
#include "prompter.h"
#include "statusmonitor.h"
#include "uploadgate.h"

#include <dialogprogrammer.h>

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
    , m_connection(new InstrumentConnection(
          description,
          commands,
          [description](const QString &address, QString *error) {
              return createLink(address, description, error);
          },
          this))
    , m_session(new UploadSession(m_connection->channel(), description, commands, this))
    , m_run(new RunSession(m_connection->channel(), description, commands, this))
{
    connect(
        m_connection, &InstrumentConnection::stateChanged, this, &BenchController::stateChanged);
    connect(m_connection, &InstrumentConnection::traffic, this, &BenchController::traffic);
    connect(m_connection, &InstrumentConnection::linkLost, m_session, &UploadSession::linkLost);
    connect(m_connection, &InstrumentConnection::linkLost, m_run, &RunSession::linkLost);
    connect(m_connection, &InstrumentConnection::stateChanged, m_run, [this](State state) {
        if (state != State::Connected)
            m_run->forgetAll();
    });
    CommandChannel *channel = m_connection->channel();
    connect(channel, &CommandChannel::replyTimedOut, m_session, &UploadSession::replyTimedOut);
    connect(channel, &CommandChannel::replyTimedOut, m_run, &RunSession::replyTimedOut);
    connect(m_session, &UploadSession::verified, m_run, &RunSession::remember);
    StatusMonitor *status = m_connection->statusMonitor();
    status->setChannelInUse([this] { return m_run->isRunning() ? m_run->current().channel : 0; });
    // The status is not read during an upload, whose line count and pace stay its own; it is read
    // again once the upload has ended.
    connect(this, &BenchController::uploadEnded, this, [this, status] {
        if (state() == State::Connected)
            status->setPolling(true);
    });

    connect(dialog, &DialogProgrammer::uploaderStarted, this, [this](const UploadParam &param) {
        // The instrument refuses to change a sequence while it plays; a new upload ends the run.
        m_run->stop();
        m_connection->statusMonitor()->setPolling(false);
        m_uploading = true;
        m_nextWanted = false;
        m_uploadMode = static_cast<int>(param.mode);
        emit uploadRunning(true);
        if (preflight(param)) {
            // From the first step on, the instrument no longer holds what was verified before.
            m_run->forget(param.channel, param.mode == UploadMode::List);
            m_session->begin(param);
        }
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

BenchController::~BenchController() = default;

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

void BenchController::connectTo(const QString &address)
{
    m_connection->connectTo(address);
}

void BenchController::disconnectFromInstrument()
{
    m_connection->disconnectFromInstrument();
}

std::optional<InstrumentLimits> BenchController::instrumentLimits(int channel) const
{
    return m_connection->instrumentLimits(channel);
}

void BenchController::cancelUpload()
{
    m_session->cancel();
}

bool BenchController::preflight(const UploadParam &param)
{
    if (!m_dialog)
        return false;
    const bool list = param.mode == UploadMode::List;
    m_sequenceLength = list ? m_dialog->listSequence().size() : m_dialog->delayerSequence().size();
    const std::optional<UploadOutcome> refusal
        = list ? UploadGate::check(
              *m_connection, param, m_dialog->listSequence(), m_prompter, m_dialog)
               : UploadGate::check(
                   *m_connection, param, m_dialog->delayerSequence(), m_prompter, m_dialog);
    if (refusal)
        refuseUpload(*refusal);
    return !refusal;
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

// Turning the sessions' signals into history records.
#include "historyrecorder.h"

#include "history.h"

#include <instrumentconnection.h>
#include <runsession.h>
#include <uploadsession.h>

#include <QCryptographicHash>
#include <QTimer>

#include <algorithm>

namespace tarn::history {

using namespace tarn2::specific::orvo5000::programmer;
using host::UploadEnd;

namespace {

QString outcomeName(UploadEnd ending)
{
    switch (ending) {
    case UploadEnd::Verified:
        return QStringLiteral("verified");
    case UploadEnd::NotConnected:
        return QStringLiteral("not-connected");
    case UploadEnd::BadRequest:
        return QStringLiteral("bad-request");
    case UploadEnd::Refused:
        return QStringLiteral("refused");
    case UploadEnd::Unreadable:
        return QStringLiteral("unreadable");
    case UploadEnd::Mismatch:
        return QStringLiteral("mismatch");
    case UploadEnd::TimedOut:
        return QStringLiteral("timed-out");
    case UploadEnd::LinkLost:
        return QStringLiteral("link-lost");
    case UploadEnd::Cancelled:
        return QStringLiteral("cancelled");
    }
    return QStringLiteral("refused");
}

} // namespace

HistoryRecorder::HistoryRecorder(History *history,
                                 const sim::InstrumentDescription &description,
                                 QObject *parent)
    : QObject(parent)
    , m_history(history)
    , m_dialect(dialectOf(description))
    , m_flushTimer(new QTimer(this))
{
    m_flushTimer->setInterval(flushMs);
    connect(m_flushTimer, &QTimer::timeout, this, &HistoryRecorder::flush);
}

HistoryRecorder::~HistoryRecorder() = default;

QString HistoryRecorder::dialectOf(const sim::InstrumentDescription &description)
{
    if (description.commands.isEmpty())
        return QStringLiteral("built-in");
    QStringList words;
    for (auto it = description.commands.cbegin(); it != description.commands.cend(); ++it)
        words << it.key() + QLatin1Char('=') + it.value();
    words.sort();
    const QByteArray digest = QCryptographicHash::hash(words.join(QLatin1Char('\n')).toUtf8(),
                                                       QCryptographicHash::Sha1);
    return QStringLiteral("custom:") + QString::fromLatin1(digest.toHex().left(8));
}

void HistoryRecorder::watch(host::InstrumentConnection *connection,
                            host::UploadSession *upload,
                            host::RunSession *run)
{
    m_connection = connection;
    m_upload = upload;
    m_run = run;
    connect(upload, &host::UploadSession::ended, this, &HistoryRecorder::uploadEnded);
    connect(run, &host::RunSession::started, this, &HistoryRecorder::runStarted);
    connect(run, &host::RunSession::sampled, this, [this](const host::RunSample &sample) {
        if (m_current.id > 0)
            m_waiting.append(sample);
    });
    connect(run, &host::RunSession::ended, this, &HistoryRecorder::runEnded);
}

HistoryRecord HistoryRecorder::fresh(HistoryRecord::Kind kind, int channel) const
{
    HistoryRecord record;
    record.kind = kind;
    record.station = m_history->station();
    record.identity = m_connection->identity();
    record.address = m_connection->address();
    record.dialect = m_dialect;
    record.channel = channel;
    return record;
}

void HistoryRecorder::tellNotices()
{
    for (const QString &notice : m_history->takeNotices())
        emit problem(notice);
}

void HistoryRecorder::uploadEnded(const host::UploadOutcome &outcome)
{
    const UploadParam &param = m_upload->param();
    HistoryRecord record = fresh(HistoryRecord::Kind::Upload, param.channel);
    record.channelName = m_upload->channelName();
    record.started = m_upload->began();
    record.ended = QDateTime::currentDateTimeUtc();
    record.sequence.mode = param.mode;
    record.sequence.cycles = param.cycles;
    record.sequence.endState = param.endState;
    record.sequence.list = m_upload->listSent();
    record.sequence.delayer = m_upload->delayerSent();
    record.outcome = outcomeName(outcome.ending);
    record.message = outcome.message;
    if (outcome.ending == UploadEnd::Refused || outcome.ending == UploadEnd::Mismatch)
        record.failedStep = outcome.row + 1;
    if (!m_history->local().add(&record)) {
        emit problem(tr("The upload could not be recorded in the history: %1")
                         .arg(m_history->local().error()));
        return;
    }
    if (outcome.verified)
        m_verifiedUploads.insert({param.channel, param.mode == List}, record.uid);
    m_history->recordFinished();
    tellNotices();
    emit recorded(record);
}

void HistoryRecorder::runStarted()
{
    const host::UploadedSequence &sequence = m_run->current();
    HistoryRecord record = fresh(HistoryRecord::Kind::Run, sequence.channel);
    record.channelName = sequence.channelName;
    record.started = QDateTime::currentDateTimeUtc();
    record.sequence.mode = sequence.list ? List : Delayer;
    record.sequence.cycles = sequence.cycles;
    record.sequence.endState = sequence.endState;
    record.sequence.list = sequence.listSteps;
    record.sequence.delayer = sequence.delayerSteps;
    record.outcome = QStringLiteral("running");
    record.uploadUid = m_verifiedUploads.value({sequence.channel, sequence.list});
    m_waiting.clear();
    if (!m_history->local().add(&record)) {
        emit problem(
            tr("The run could not be recorded in the history: %1").arg(m_history->local().error()));
        m_current = {};
        return;
    }
    m_current = record;
    m_flushTimer->start();
}

void HistoryRecorder::flush()
{
    if (m_current.id <= 0 || m_waiting.isEmpty())
        return;
    if (!m_history->local().appendSamples(m_current.id, m_waiting)) {
        // Kept for the next write: another writer may have held the file for a moment.
        emit problem(tr("The run's samples could not be written to the history: %1")
                         .arg(m_history->local().error()));
        return;
    }
    m_current.sampleCount += m_waiting.size();
    m_waiting.clear();
}

void HistoryRecorder::runEnded(const QString &message, bool failed)
{
    if (m_current.id <= 0)
        return;
    m_flushTimer->stop();
    flush();
    m_current.ended = QDateTime::currentDateTimeUtc();
    m_current.outcome = failed ? QStringLiteral("failed") : QStringLiteral("ended");
    m_current.message = message;
    if (!m_history->local().finish(m_current.id, m_current.outcome, message, m_current.ended))
        emit problem(tr("The end of the run could not be recorded in the history: %1")
                         .arg(m_history->local().error()));
    HistoryRecord record = m_current;
    m_current = {};
    m_history->recordFinished();
    tellNotices();
    emit recorded(record);
}

} // namespace tarn::history

// Recording what the sessions of one connection do, for the window and the command line alike.
#pragma once

#include "historyrecord.h"

#include <instrumentdescription.h>

#include <QMap>
#include <QObject>
#include <QPair>

class QTimer;

namespace tarn::host {
class InstrumentConnection;
class RunSession;
class UploadSession;
struct UploadOutcome;
} // namespace tarn::host

namespace tarn::history {

class History;

// HistoryRecorder listens to a connection's upload and run sessions and writes what they did:
// each upload when it ends, with the steps as sent and how it ended; each run from its start,
// its samples at least once a second while it goes, and how it ended. A face only creates one
// beside its sessions; the sessions know nothing of it. A write that fails is told through
// problem() and never stops the bench's work.
class HistoryRecorder final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(HistoryRecorder)

public:
    HistoryRecorder(History *history,
                    const sim::InstrumentDescription &description,
                    QObject *parent = nullptr);
    ~HistoryRecorder() override;

    void watch(host::InstrumentConnection *connection,
               host::UploadSession *upload,
               host::RunSession *run);
    // Writes the samples waiting now; the timer does it every flushMs during a run.
    void flush();

    static constexpr int flushMs = 500;
    // "built-in", or "custom:" and a digest of the words a description replaces.
    static QString dialectOf(const sim::InstrumentDescription &description);

signals:
    void recorded(const tarn::history::HistoryRecord &record);
    void problem(const QString &message);

private:
    void uploadEnded(const host::UploadOutcome &outcome);
    void runStarted();
    void runEnded(const QString &message, bool failed);
    void tellNotices();
    HistoryRecord fresh(HistoryRecord::Kind kind, int channel) const;

    History *m_history;
    QString m_dialect;
    host::InstrumentConnection *m_connection = nullptr;
    host::UploadSession *m_upload = nullptr;
    host::RunSession *m_run = nullptr;
    QMap<QPair<int, bool>, QString> m_verifiedUploads;
    HistoryRecord m_current;
    QVector<host::RunSample> m_waiting;
    QTimer *m_flushTimer;
};

} // namespace tarn::history

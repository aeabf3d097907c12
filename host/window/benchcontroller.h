// The glue between the programmer dialog and an instrument: the dialog's upload run and its
// outcome.
#pragma once

#include "channellimits.h"
#include "commandset.h"
#include "instrumentconnection.h"
#include "runsession.h"
#include "uploadsession.h"

#include <instrumentdescription.h>

#include <QObject>
#include <QPointer>

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

class CommandChannel;
class InstrumentLink;
class Prompter;

// BenchController wires the dialog's upload run to the upload session on one connection: it hands
// the session each step as it asks, checks the sequence first (asking before sending only part of
// it), and shows the outcome on the dialog's row. The link's life is the connection's, the run's
// the run session's. It has no widgets of its own, so the whole path from the dialog to the
// instrument can be driven in tests.
class BenchController final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(BenchController)

public:
    using State = InstrumentConnection::State;

    BenchController(tarn2::specific::orvo5000::programmer::DialogProgrammer *dialog,
                    const sim::InstrumentDescription &description,
                    const CommandSet &commands,
                    QObject *parent = nullptr);
    ~BenchController() override;

    InstrumentConnection *connection() const { return m_connection; }
    void connectTo(const QString &address);
    void disconnectFromInstrument();
    State state() const { return m_connection->state(); }
    QString address() const { return m_connection->address(); }
    QString identity() const { return m_connection->identity(); }
    InstrumentLink *link() const { return m_connection->link(); }
    CommandChannel *channel() const { return m_connection->channel(); }
    RunSession *runSession() const { return m_run; }
    UploadSession *uploadSession() const { return m_session; }
    StatusMonitor *statusMonitor() const { return m_connection->statusMonitor(); }
    // What the connected instrument said `channel` (from 1) accepts; nothing when it did not say.
    std::optional<InstrumentLimits> instrumentLimits(int channel) const;

    bool isUploading() const { return m_uploading; }
    void cancelUpload();
    // Asks before an upload that would send only part of a sequence; without one it just does.
    void setPrompter(Prompter *prompter) { m_prompter = prompter; }

    static constexpr int connectTimeoutMs = InstrumentConnection::connectTimeoutMs;
    static constexpr int pumpBatch = 256;

signals:
    void stateChanged(tarn::host::InstrumentConnection::State state, const QString &message);
    void traffic(bool sent, const QByteArray &line);
    void uploadRunning(bool running);
    void uploadProgress(int confirmed, int total, qint64 msecLeft);
    void uploadEnded(const tarn::host::UploadOutcome &outcome);

private:
    void schedulePump();
    void pump();
    void showOutcome(const UploadOutcome &outcome);
    // The check before any step leaves: false when the upload is refused or the user declined.
    bool preflight(const tarn2::specific::orvo5000::programmer::UploadParam &param);
    void refuseUpload(const UploadOutcome &outcome);

    QPointer<tarn2::specific::orvo5000::programmer::DialogProgrammer> m_dialog;
    sim::InstrumentDescription m_description;
    CommandSet m_commands;
    InstrumentConnection *m_connection;
    UploadSession *m_session;
    RunSession *m_run;
    bool m_uploading = false;
    bool m_nextWanted = false;
    bool m_pumpScheduled = false;
    bool m_pumping = false;
    int m_uploadMode = 0;
    Prompter *m_prompter = nullptr;
    int m_sequenceLength = 0;
};

} // namespace tarn::host

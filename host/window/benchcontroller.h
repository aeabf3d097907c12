// The glue between the programmer dialog and an instrument: connection, upload and its outcome.
#pragma once

#include "commandset.h"
#include "runsession.h"
#include "channellimits.h"
#include "uploadsession.h"

#include <instrumentdescription.h>

#include <QObject>
#include <QPointer>

#include <memory>

class QTimer;

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

class CommandChannel;
class InstrumentLink;
class LimitsProbe;
class Prompter;
class StatusMonitor;

// BenchController owns the link to the instrument and the upload session, and wires the dialog's
// upload signals to the session. It has no widgets of its own, so the whole path from the dialog
// to the instrument can be driven in tests.
class BenchController final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(BenchController)

public:
    enum class State { Disconnected, Connecting, Connected };
    Q_ENUM(State)

    BenchController(tarn2::specific::orvo5000::programmer::DialogProgrammer *dialog,
                    const sim::InstrumentDescription &description,
                    const CommandSet &commands,
                    QObject *parent = nullptr);
    ~BenchController() override;

    void connectTo(const QString &address);
    void disconnectFromInstrument();
    State state() const { return m_state; }
    QString address() const { return m_address; }
    QString identity() const { return m_identity; }
    InstrumentLink *link() const;
    CommandChannel *channel() const { return m_channel; }
    RunSession *runSession() const { return m_run; }
    StatusMonitor *statusMonitor() const { return m_status; }
    // What the connected instrument said `channel` (from 1) accepts; nothing when it did not say.
    std::optional<InstrumentLimits> instrumentLimits(int channel) const;

    bool isUploading() const { return m_uploading; }
    void cancelUpload();
    // Asks before an upload that would send only part of a sequence; without one it just does.
    void setPrompter(Prompter *prompter) { m_prompter = prompter; }

    static constexpr int connectTimeoutMs = 5000;
    static constexpr int pumpBatch = 256;

signals:
    void stateChanged(tarn::host::BenchController::State state, const QString &message);
    void traffic(bool sent, const QByteArray &line);
    void uploadRunning(bool running);
    void uploadProgress(int confirmed, int total, qint64 msecLeft);
    void uploadEnded(const tarn::host::UploadOutcome &outcome);

private:
    void schedulePump();
    void pump();
    void setState(State state, const QString &message);
    void linkFailed(const QString &reason);
    void linkOpened();
    void limitsRead();
    void showOutcome(const UploadOutcome &outcome);
    // The check before any step leaves: false when the upload is refused or the user declined.
    bool preflight(const tarn2::specific::orvo5000::programmer::UploadParam &param);
    void refuseUpload(const UploadOutcome &outcome);

    QPointer<tarn2::specific::orvo5000::programmer::DialogProgrammer> m_dialog;
    sim::InstrumentDescription m_description;
    CommandSet m_commands;
    std::unique_ptr<InstrumentLink> m_link;
    CommandChannel *m_channel;
    UploadSession *m_session;
    RunSession *m_run;
    LimitsProbe *m_probe;
    StatusMonitor *m_status;
    QTimer *m_connectTimer;
    State m_state = State::Disconnected;
    QString m_address;
    QString m_identity;
    bool m_uploading = false;
    bool m_nextWanted = false;
    bool m_pumpScheduled = false;
    bool m_pumping = false;
    int m_uploadMode = 0;
    Prompter *m_prompter = nullptr;
    int m_sequenceLength = 0;
};

} // namespace tarn::host

// The host's side of an upload: steps written ahead, errors checked in batches, then a read-back.
#pragma once

#include "commandset.h"
#include "uploadedsequence.h"

#include <instrumentdescription.h>
#include <records.h>

#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>

namespace tarn::host {

class CommandChannel;
class ListReader;

// How an upload ended, for a caller that must tell outcomes apart (a script's exit status).
enum class UploadEnd {
    Verified,
    NotConnected,
    BadRequest, // a channel the instrument does not have
    Refused,    // the instrument refused the settings or a step
    Unreadable, // an error reply that could not be read
    Mismatch,   // the read-back differs or could not be read
    TimedOut,   // no answer in time
    LinkLost,
    Cancelled,
};

struct UploadOutcome
{
    bool verified = false;
    QString message;
    int row = -1;  // the step to show the user, 0-based; -1 for none
    int held = -1; // steps the instrument holds, when known
    UploadEnd ending = UploadEnd::Refused;
};

// UploadSession turns the dialog's upload run into instrument commands. It never waits for a
// reply per step: up to `window` steps may be unconfirmed, and every `syncEvery` steps one error
// query confirms the steps before it, so the upload runs at the link's speed. When the dialog has
// handed out the last step the session reads the sequence back and compares it with what was sent,
// as the instrument stores it, rounded to its decimals. It asks for the next step and for the end
// of the run through signals, which the host delivers from the event loop. To an instrument that
// takes Lists as arrays the steps go in pieces of the description's size, each piece confirmed by
// one error query, and the read-back asks for the arrays.
class UploadSession final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(UploadSession)

public:
    // Enough steps in flight that a reply 2 ms late does not halve the rate over a LAN.
    static constexpr int window = 1024;
    static constexpr int syncEvery = 64;

    UploadSession(CommandChannel *channel,
                  const sim::InstrumentDescription &description,
                  const CommandSet &commands,
                  QObject *parent = nullptr);
    ~UploadSession() override;

    bool isActive() const { return m_phase != Phase::Idle; }

    // What the last upload asked for and sent, for a recorder that hears its end.
    const tarn2::specific::orvo5000::programmer::UploadParam &param() const { return m_param; }
    QString channelName() const { return m_channelName; }
    QDateTime began() const { return m_began; }
    const QList<tarn2::specific::orvo5000::programmer::ListData> &listSent() const
    {
        return m_listSent;
    }
    const QList<tarn2::specific::orvo5000::programmer::DelayerData> &delayerSent() const
    {
        return m_delayerSent;
    }

    // The dialog's run.
    void begin(const tarn2::specific::orvo5000::programmer::UploadParam &param);
    void step(int index, const tarn2::specific::orvo5000::programmer::ProgrammerData &data);
    void finish();
    void dialogError(const QString &error);

    // The user and the link.
    void cancel();
    void linkLost(const QString &reason);
    void replyTimedOut(const QByteArray &command);

signals:
    void nextWanted();
    void stopWanted();
    void progressed(int confirmed, int total, qint64 msecLeft);
    void ended(const tarn::host::UploadOutcome &outcome);
    // What the instrument holds after a read-back that matched, for running it.
    void verified(const tarn::host::UploadedSequence &sequence);

private:
    enum class Phase { Idle, Sending, Verifying, Ending };

    void sync(int upTo, int from = -1);
    void sendPiece();
    int windowSize() const;
    void refused(const QString &error, int from, int upTo);
    void verify(const QByteArray &reply);
    void
    verifyList(const std::optional<QList<tarn2::specific::orvo5000::programmer::ListData>> &held);
    template<class Step> void compare(const QList<Step> &held);
    bool sameAsStored(int index, const tarn2::specific::orvo5000::programmer::ListData &held) const;
    bool sameAsStored(int index,
                      const tarn2::specific::orvo5000::programmer::DelayerData &held) const;
    void end(UploadOutcome outcome, UploadEnd ending);
    QString stepText(int index) const;
    QString describe(const tarn2::specific::orvo5000::programmer::ListData &step) const;
    QString describe(const tarn2::specific::orvo5000::programmer::DelayerData &step) const;
    QString number(double value, int decimals) const;
    const char *key(const char *list, const char *delayer) const;

    CommandChannel *m_channel;
    sim::InstrumentDescription m_description;
    CommandSet m_commands;
    Phase m_phase = Phase::Idle;
    bool m_list = true;
    QString m_channelName;
    tarn2::specific::orvo5000::programmer::UploadParam m_param;
    int m_total = 0;
    int m_sent = 0;
    int m_confirmed = 0;
    int m_pieceStart = 0; // the first step not yet sent, when a List goes as arrays
    ListReader *m_reader;
    bool m_waitingForWindow = false;
    QList<tarn2::specific::orvo5000::programmer::ListData> m_listSent;
    QList<tarn2::specific::orvo5000::programmer::DelayerData> m_delayerSent;
    QElapsedTimer m_clock;
    QDateTime m_began;
};

} // namespace tarn::host

Q_DECLARE_METATYPE(tarn::host::UploadOutcome)

// Commands out, replies matched to the queries that asked for them, in order, with a time limit.
#pragma once

#include <QObject>
#include <QPointer>
#include <QQueue>

#include <functional>

class QTimer;

namespace tarn::host {

class InstrumentLink;

// CommandChannel keeps the queries in flight in the order they were sent, since an instrument
// answers in that order. When the instrument owes a reply and stays silent for the time limit (a
// long reply still arriving is not silence), or the link fails, every query in flight is dropped
// and the channel says why once. Every line both ways is also
// reported for the traffic panel.
class CommandChannel final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(CommandChannel)

public:
    using ReplyHandler = std::function<void(const QByteArray &)>;

    explicit CommandChannel(QObject *parent = nullptr);
    ~CommandChannel() override;

    // The channel does not own the link; a null link makes every send a no-op.
    void setLink(InstrumentLink *link);
    InstrumentLink *link() const;

    void send(const QByteArray &command);
    // `handler` runs only while `context` lives.
    void query(const QByteArray &command, QObject *context, ReplyHandler handler);
    int queriesInFlight() const { return m_pending.size(); }
    // Forgets the queries in flight; their replies, if they still come, are ignored.
    void forget();

    void setReplyTimeout(int msec);
    int replyTimeout() const { return m_timeoutMs; }

signals:
    void traffic(bool sent, const QByteArray &line);
    void replyTimedOut(const QByteArray &command);

private:
    void receive(const QByteArray &line);

    struct Pending
    {
        QByteArray command;
        QPointer<QObject> context;
        ReplyHandler handler;
    };

    QPointer<InstrumentLink> m_link;
    QQueue<Pending> m_pending;
    int m_ignore = 0; // replies still owed to queries that were forgotten
    QTimer *m_timer;
    int m_timeoutMs = 3000;
};

} // namespace tarn::host

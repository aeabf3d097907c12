// One client's socket as an instrument serves it: lines in until the client has said all it
// will, every reply out before the socket closes.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

class QSocketNotifier;
class QTimer;

namespace tarn::sim {

// ClientConnection owns a connected TCP socket, or the master side of a pseudo-terminal that
// stands in for a serial line or a USB instrument's device file. Unlike a QTcpSocket it treats the
// end of the client's input as a half-close: a client that sends its commands and shuts down its
// sending side still gets every reply, and the socket closes only once they have left. Reading can
// be paused, so that a client that writes faster than the supply answers is held back by the kernel
// rather than by memory here.
class ClientConnection final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ClientConnection)

public:
    explicit ClientConnection(qintptr descriptor, QObject *parent = nullptr);
    // A terminal (the master of a pseudo-terminal) rather than a socket, named `name`.
    ClientConnection(int terminal, const QString &name, QObject *parent = nullptr);
    ~ClientConnection() override;

    QString peer() const { return m_peer; }
    bool isOpen() const { return m_fd >= 0; }

    // Up to `size` bytes; 0 when none wait now. Once inputEnded(), none will come any more.
    qint64 read(char *data, qint64 size);
    bool inputEnded() const { return m_inputEnded; }
    void setReading(bool on);
    // Paces both directions as a serial line of `bytesPerSecond` would; 0 leaves them unpaced.
    void setPace(int bytesPerSecond);

    void write(const QByteArray &bytes);
    qint64 bytesToWrite() const { return m_out.size() - m_sent; }
    // Closes as soon as everything written has left.
    void closeWhenWritten();
    // Closes at once; what was not sent is lost.
    void abort();

signals:
    void readyRead();
    // Some of what was queued has left since the last time; never emitted from within write().
    void bytesWritten();
    // Emitted once, when the socket has closed for whatever reason.
    void closed();

private:
    void watch();
    void flush();
    void refill();
    void updateReading();

    int m_fd = -1;
    QString m_peer;
    QSocketNotifier *m_readNotifier = nullptr;
    QSocketNotifier *m_writeNotifier = nullptr;
    QByteArray m_out;
    qint64 m_sent = 0;
    bool m_inputEnded = false;
    bool m_closing = false;
    bool m_socket = true;
    bool m_reading = true;
    // Pacing: bytes each direction may still move now, topped up by the clock.
    int m_pace = 0;
    double m_readCredit = 0.0;
    double m_writeCredit = 0.0;
    qint64 m_lastRefill = 0;
    QTimer *m_paceTimer = nullptr;
};

} // namespace tarn::sim

// The one small interface every way of reaching an instrument implements.
#pragma once

#include <linebuffer.h>

#include <QObject>

namespace tarn::host {

// InstrumentLink carries command lines to an instrument and reply lines back, driven by the event
// loop: open() and write() return at once, and what happens later arrives as signals. A link
// reports failed() once, when it cannot be opened or when it breaks; after that it is closed.
class InstrumentLink : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(InstrumentLink)

public:
    explicit InstrumentLink(QObject *parent = nullptr);
    ~InstrumentLink() override;

    virtual void open() = 0;
    virtual void close() = 0;
    // Sends one command line; the terminator is added here.
    virtual void write(const QByteArray &line) = 0;
    virtual bool isOpen() const = 0;
    // How the user named the instrument: tcp://HOST:5025, serial:/dev/ttyUSB0, sim:.
    virtual QString address() const = 0;

    // The longest reply line a link accepts before it gives up on the instrument.
    void setReplyBound(int bytes)
    {
        m_lines = sim::LineBuffer(bytes);
        m_bound = bytes;
    }

signals:
    void opened();
    void lineReceived(const QByteArray &line);
    // Part of a reply line arrived: the instrument is answering, however slowly the line brings
    // a long reply (a read-back at 115200 baud takes seconds).
    void replyGrew();
    void failed(const QString &reason);

protected:
    // Subclasses call this when they start opening: a fresh line buffer, failures counted anew.
    void beginOpen();
    // Cuts received bytes into reply lines; a line over the bound fails the link.
    void receive(const QByteArray &bytes);
    void fail(const QString &reason);

private:
    sim::LineBuffer m_lines;
    int m_bound = sim::LineBuffer::defaultBound;
    bool m_failed = false;
};

} // namespace tarn::host

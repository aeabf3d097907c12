// A raw command socket to a LAN instrument.
#pragma once

#include "instrumentlink.h"

class QTcpSocket;

namespace tarn::host {

class TcpLink final : public InstrumentLink
{
    Q_OBJECT
    Q_DISABLE_COPY(TcpLink)

public:
    static constexpr quint16 defaultPort = 5025;

    TcpLink(const QString &host, quint16 port, QObject *parent = nullptr);
    ~TcpLink() override;

    void open() override;
    void close() override;
    void write(const QByteArray &line) override;
    bool isOpen() const override;
    QString address() const override;

private:
    QString m_host;
    quint16 m_port;
    QTcpSocket *m_socket;
    bool m_closing = false;
};

} // namespace tarn::host

// The LAN link: one TCP connection, lines out, lines back.
#include "tcplink.h"

#include <QTcpSocket>

namespace tarn::host {

TcpLink::TcpLink(const QString &host, quint16 port, QObject *parent)
    : InstrumentLink(parent)
    , m_host(host)
    , m_port(port)
    , m_socket(new QTcpSocket(this))
{
    connect(m_socket, &QTcpSocket::connected, this, [this] {
        // Command lines are small and the host waits on replies: no coalescing delay.
        m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        emit opened();
    });
    connect(m_socket, &QTcpSocket::readyRead, this, [this] { receive(m_socket->readAll()); });
    connect(m_socket, &QTcpSocket::errorOccurred, this, [this](QAbstractSocket::SocketError error) {
        if (m_closing)
            return;
        if (error == QAbstractSocket::RemoteHostClosedError)
            fail(tr("The instrument closed the connection"));
        else
            fail(m_socket->errorString());
    });
    connect(m_socket, &QTcpSocket::disconnected, this, [this] {
        if (!m_closing)
            fail(tr("The instrument closed the connection"));
    });
}

TcpLink::~TcpLink()
{
    m_closing = true;
    m_socket->abort();
}

void TcpLink::open()
{
    beginOpen();
    m_closing = false;
    m_socket->abort();
    m_socket->connectToHost(m_host, m_port);
}

void TcpLink::close()
{
    m_closing = true;
    m_socket->abort();
}

void TcpLink::write(const QByteArray &line)
{
    if (m_socket->state() == QAbstractSocket::ConnectedState)
        m_socket->write(line + '\n');
}

bool TcpLink::isOpen() const
{
    return m_socket->state() == QAbstractSocket::ConnectedState;
}

QString TcpLink::address() const
{
    return QStringLiteral("tcp://%1:%2").arg(m_host).arg(m_port);
}

} // namespace tarn::host

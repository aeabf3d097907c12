// The serial link: 8N1 at the chosen rate, lines out, lines back.
#include "seriallink.h"

#include <QSerialPort>
#include <QTimer>

namespace tarn::host {

SerialLink::SerialLink(const QString &device, int baud, QObject *parent)
    : InstrumentLink(parent)
    , m_device(device)
    , m_baud(baud)
    , m_port(new QSerialPort(this))
{
    connect(m_port, &QSerialPort::readyRead, this, [this] { receive(m_port->readAll()); });
    connect(m_port, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
        if (error == QSerialPort::NoError || error == QSerialPort::TimeoutError
            || !m_port->isOpen())
            return;
        // A line that is pulled shows as whichever of these the driver's errno maps to.
        if (error == QSerialPort::ResourceError || error == QSerialPort::ReadError
            || error == QSerialPort::WriteError || error == QSerialPort::UnknownError)
            fail(tr("The serial line %1 was dropped: was the adapter unplugged or the instrument "
                    "switched off?")
                     .arg(m_device));
        else
            fail(m_port->errorString());
    });
}

SerialLink::~SerialLink()
{
    m_port->close();
}

void SerialLink::open()
{
    beginOpen();
    m_port->setPortName(m_device);
    m_port->setBaudRate(m_baud);
    m_port->setDataBits(QSerialPort::Data8);
    m_port->setParity(QSerialPort::NoParity);
    m_port->setStopBits(QSerialPort::OneStop);
    m_port->setFlowControl(QSerialPort::NoFlowControl);
    // Opening a serial port does not wait for anything; report from the event loop anyway, so
    // that every link answers open() the same way.
    const bool ok = m_port->open(QIODevice::ReadWrite);
    // Replies a previous session left unread would be taken for answers to this one's queries.
    if (ok)
        m_port->clear();
    const QString reason = m_port->errorString();
    QTimer::singleShot(0, this, [this, ok, reason] {
        if (ok)
            emit opened();
        else
            fail(tr("Cannot open %1: %2").arg(m_device, reason));
    });
}

void SerialLink::close()
{
    m_port->close();
}

void SerialLink::write(const QByteArray &line)
{
    if (m_port->isOpen())
        m_port->write(line + '\n');
}

bool SerialLink::isOpen() const
{
    return m_port->isOpen();
}

QString SerialLink::address() const
{
    return QStringLiteral("serial:%1?baud=%2").arg(m_device).arg(m_baud);
}

} // namespace tarn::host

// A serial line to a USB-serial supply.
#pragma once

#include "instrumentlink.h"

class QSerialPort;

namespace tarn::host {

class SerialLink final : public InstrumentLink
{
    Q_OBJECT
    Q_DISABLE_COPY(SerialLink)

public:
    static constexpr int defaultBaud = 115200;

    SerialLink(const QString &device, int baud, QObject *parent = nullptr);
    ~SerialLink() override;

    void open() override;
    void close() override;
    void write(const QByteArray &line) override;
    bool isOpen() const override;
    QString address() const override;

private:
    QString m_device;
    int m_baud;
    QSerialPort *m_port;
};

} // namespace tarn::host

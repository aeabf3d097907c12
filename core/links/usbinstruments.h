// The USB instruments the kernel's test-and-measurement class driver has taken on.
#pragma once

#include <QString>
#include <QVector>

namespace tarn::host {

struct UsbInstrument
{
    QString device; // the character device, /dev/usbtmc0
    quint16 vendor = 0;
    quint16 product = 0;
    QString serialNumber;

    // USB0::0x1234::0x5678::SN42::INSTR
    QString resourceString() const;
};

// Where the system's /sys and /dev are: "/" unless TARN_SYSTEM_ROOT names a stand-in tree, as a
// test or a container does.
QString systemRoot();

// Each ROOT/sys/class/usbmisc/usbtmcN, read from the USB device above its interface, with its
// device file ROOT/dev/usbtmcN; in the order of the devices' names.
QVector<UsbInstrument> attachedUsbInstruments(const QString &root);

} // namespace tarn::host

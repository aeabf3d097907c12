// Tests of reading instrument addresses and resource strings, and of finding USB instruments in a
// stand-in sysfs tree.
#include "linkaddress.h"
#include "usbinstruments.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace tarn::host;

class TestLinkAddress : public QObject
{
    Q_OBJECT

private slots:
    void accepted_data();
    void accepted();
    void refused_data();
    void refused();
    void usbInstrumentsAreFoundInSysfs();
};

namespace {

// Where an address leads, in one comparable text.
QString where(const LinkAddress &a)
{
    switch (a.kind) {
    case LinkAddress::Kind::Tcp:
        return QStringLiteral("tcp %1 %2").arg(a.host).arg(a.port);
    case LinkAddress::Kind::Vxi11:
        return QStringLiteral("vxi11 %1 %2 %3").arg(a.host).arg(a.port).arg(a.device);
    case LinkAddress::Kind::Serial:
        return QStringLiteral("serial %1 %2").arg(a.device).arg(a.baud);
    case LinkAddress::Kind::Usbtmc:
        return a.device.isEmpty() ? QStringLiteral("usb %1 %2 %3")
                                        .arg(a.vendor, 0, 16)
                                        .arg(a.product, 0, 16)
                                        .arg(a.serialNumber)
                                  : QStringLiteral("usb %1").arg(a.device);
    case LinkAddress::Kind::Sim:
        break;
    }
    return QStringLiteral("sim %1").arg(a.speed);
}

void writeFile(const QString &path, const QByteArray &text)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

// One instrument as the driver shows it: the class entry points at the interface of a USB device.
void addUsbtmc(const QDir &root, const QString &name, const QByteArray &vendor, const QString &port)
{
    const QString device = QStringLiteral("sys/devices/usb1/") + port;
    QVERIFY(root.mkpath(device + QStringLiteral("/") + port + QStringLiteral(":1.0")));
    QVERIFY(root.mkpath(QStringLiteral("sys/class/usbmisc/") + name));
    QVERIFY(QFile::link(root.filePath(device + QStringLiteral("/") + port + QStringLiteral(":1.0")),
                        root.filePath(QStringLiteral("sys/class/usbmisc/%1/device").arg(name))));
    writeFile(root.filePath(device + QStringLiteral("/idVendor")), vendor + '\n');
    writeFile(root.filePath(device + QStringLiteral("/idProduct")), "5678\n");
    writeFile(root.filePath(device + QStringLiteral("/serial")), "SN-" + name.toUtf8() + '\n');
}

} // namespace

void TestLinkAddress::accepted_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("where");
    QTest::newRow("tcp, port left out") << "tcp://bench-psu.example"
                                        << "tcp bench-psu.example 5025";
    QTest::newRow("tcp with port") << " tcp://localhost:5555 "
                                   << "tcp localhost 5555";
    QTest::newRow("socket resource") << "TCPIP0::bench-psu.example::5025::SOCKET"
                                     << "tcp bench-psu.example 5025";
    QTest::newRow("socket resource, any case") << "tcpip1::bench-psu.example::4000::socket"
                                               << "tcp bench-psu.example 4000";
    QTest::newRow("vxi-11 resource") << "TCPIP0::bench-psu.example::INSTR"
                                     << "vxi11 bench-psu.example 0 inst0";
    QTest::newRow("vxi-11 url") << "vxi11://127.0.0.1:1024/gpib0,5"
                                << "vxi11 127.0.0.1 1024 gpib0,5";
    QTest::newRow("serial") << "serial:/dev/ttyUSB0"
                            << "serial /dev/ttyUSB0 115200";
    QTest::newRow("serial with baud") << "serial:/dev/ttyS1?baud=9600"
                                      << "serial /dev/ttyS1 9600";
    QTest::newRow("serial resource") << "ASRL/dev/ttyACM0::INSTR"
                                     << "serial /dev/ttyACM0 115200";
    QTest::newRow("usbtmc device") << "usbtmc:/dev/usbtmc2"
                                   << "usb /dev/usbtmc2";
    QTest::newRow("usb resource, hex") << "USB0::0x1234::0x5678::SN42::INSTR"
                                       << "usb 1234 5678 SN42";
    QTest::newRow("usb resource, decimal, interface") << "USB::4660::22136::A-1::0::INSTR"
                                                      << "usb 1234 5678 A-1";
    QTest::newRow("sim") << "sim:"
                         << "sim 1";
    QTest::newRow("sim with speed") << "sim:?speed=10"
                                    << "sim 10";
}

void TestLinkAddress::accepted()
{
    QFETCH(QString, address);
    QFETCH(QString, where);
    QString error;
    const auto parsed = parseLinkAddress(address, &error);
    QVERIFY2(parsed, qPrintable(error));
    QCOMPARE(::where(*parsed), where);
}

void TestLinkAddress::refused_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("error");
    QTest::newRow("unknown scheme")
        << "telnet://somewhere"
        << "telnet://somewhere is not an instrument address: use tcp://HOST[:PORT], "
           "vxi11://HOST[:PORT][/DEVICE], serial:DEVICE[?baud=N], usbtmc:DEVICE, sim:, or a "
           "resource string such as "
           "TCPIP0::HOST::5025::SOCKET, TCPIP0::HOST::inst0::INSTR, "
           "USB0::0x1234::0x5678::SERIAL::INSTR or "
           "ASRL/dev/ttyUSB0::INSTR";
    QTest::newRow("no resource class")
        << "TCPIP0::bench-psu.example::5025"
        << "TCPIP0::bench-psu.example::5025: a resource string ends in ::INSTR or ::SOCKET";
    QTest::newRow("port out of range") << "TCPIP0::bench-psu.example::70000::SOCKET"
                                       << "TCPIP0::bench-psu.example::70000::SOCKET: port "
                                          "\"70000\" is not a number from 1 to 65535";
    QTest::newRow("socket without port") << "TCPIP0::bench-psu.example::SOCKET"
                                         << "TCPIP0::bench-psu.example::SOCKET: a socket resource "
                                            "is TCPIP[board]::HOST::PORT::SOCKET";
    QTest::newRow("no host") << "TCPIP0::::5025::SOCKET"
                             << "TCPIP0::::5025::SOCKET names no host";
    QTest::newRow("vxi-11 device") << "TCPIP0::bench-psu.example::inst 0::INSTR"
                                   << "TCPIP0::bench-psu.example::inst 0::INSTR: device \"inst "
                                      "0\" is not a VXI-11 device name such as inst0";
    QTest::newRow("vxi-11 url") << "vxi11://bench-psu.example:111?lock"
                                << "vxi11://bench-psu.example:111?lock is not an address of the "
                                   "form vxi11://HOST[:PORT][/DEVICE]";
    QTest::newRow("vendor too wide")
        << "USB0::0x12345::0x5678::SN42::INSTR"
        << "USB0::0x12345::0x5678::SN42::INSTR: vendor \"0x12345\" is not a 16-bit number such "
           "as 0x1234";
    QTest::newRow("product not a number")
        << "USB0::0x1234::beef::SN42::INSTR"
        << "USB0::0x1234::beef::SN42::INSTR: product \"beef\" is not a 16-bit number such as "
           "0x5678";
    QTest::newRow("usb without serial")
        << "USB0::0x1234::0x5678::INSTR"
        << "USB0::0x1234::0x5678::INSTR: a USB resource is "
           "USB[board]::VENDOR::PRODUCT::SERIAL[::INTERFACE]::INSTR";
    QTest::newRow("usb interface") << "USB0::0x1234::0x5678::SN42::x::INSTR"
                                   << "USB0::0x1234::0x5678::SN42::x::INSTR: interface \"x\" is "
                                      "not a number";
    QTest::newRow("serial by number")
        << "ASRL3::INSTR"
        << "ASRL3::INSTR: name the serial port by its device file, as in ASRL/dev/ttyUSB0::INSTR";
    QTest::newRow("other bus")
        << "GPIB0::5::INSTR"
        << "GPIB0::5::INSTR: \"GPIB0\" is not a kind of resource this host reaches; it reaches "
           "TCPIP, USB and ASRL resources";
    QTest::newRow("usbtmc without path")
        << "usbtmc:usbtmc0"
        << "usbtmc:usbtmc0: give the device file, as in usbtmc:/dev/usbtmc0";
}

void TestLinkAddress::refused()
{
    QFETCH(QString, address);
    QFETCH(QString, error);
    QString message;
    QVERIFY(!parseLinkAddress(address, &message));
    QCOMPARE(message, error);
}

void TestLinkAddress::usbInstrumentsAreFoundInSysfs()
{
    QTemporaryDir dir;
    const QDir root(dir.path());
    addUsbtmc(root, QStringLiteral("usbtmc10"), "1234", QStringLiteral("1-3"));
    addUsbtmc(root, QStringLiteral("usbtmc2"), "0aad", QStringLiteral("1-1"));
    // Not an instrument, and an instrument whose identity cannot be read: both left out.
    addUsbtmc(root, QStringLiteral("hiddev0"), "1234", QStringLiteral("1-4"));
    addUsbtmc(root, QStringLiteral("usbtmc3"), "zz", QStringLiteral("1-5"));

    QStringList found;
    for (const UsbInstrument &instrument : attachedUsbInstruments(dir.path()))
        found << instrument.device.mid(dir.path().size()) + QLatin1Char(' ')
                     + instrument.resourceString();
    QCOMPARE(
        found,
        QStringList({QStringLiteral("/dev/usbtmc2 USB0::0x0AAD::0x5678::SN-usbtmc2::INSTR"),
                     QStringLiteral("/dev/usbtmc10 USB0::0x1234::0x5678::SN-usbtmc10::INSTR")}));
}

QTEST_GUILESS_MAIN(TestLinkAddress)
#include "tst_linkaddress.moc"

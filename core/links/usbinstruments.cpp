// Finding USB instruments through sysfs, as udev sees them, without asking the devices anything.
#include "usbinstruments.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace tarn::host {

namespace {

QString firstLine(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readLine(256)).trimmed();
}

} // namespace

QString UsbInstrument::resourceString() const
{
    const auto hex = [](quint16 value) {
        return QStringLiteral("%1").arg(value, 4, 16, QLatin1Char('0')).toUpper();
    };
    return QStringLiteral("USB0::0x%1::0x%2::%3::INSTR")
        .arg(hex(vendor), hex(product), serialNumber);
}

QString systemRoot()
{
    const QString root = qEnvironmentVariable("TARN_SYSTEM_ROOT");
    return root.isEmpty() ? QStringLiteral("/") : root;
}

QVector<UsbInstrument> attachedUsbInstruments(const QString &root)
{
    const QDir base(root);
    const QDir classDir(base.filePath(QStringLiteral("sys/class/usbmisc")));
    QStringList names = classDir.entryList({QStringLiteral("usbtmc*")},
                                           QDir::Dirs | QDir::NoDotAndDotDot | QDir::System);
    // usbtmc10 after usbtmc9.
    std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
        return a.size() != b.size() ? a.size() < b.size() : a < b;
    });
    QVector<UsbInstrument> found;
    for (const QString &name : qAsConst(names)) {
        // The class entry's "device" is the USB interface; the identity sits on its parent.
        const QString interface = QFileInfo(classDir.filePath(name + QStringLiteral("/device")))
                                      .canonicalFilePath();
        if (interface.isEmpty())
            continue;
        const QString usbDevice = QFileInfo(interface).path();
        bool vendorOk = false;
        bool productOk = false;
        UsbInstrument instrument;
        instrument.vendor = static_cast<quint16>(
            firstLine(usbDevice + QStringLiteral("/idVendor")).toUInt(&vendorOk, 16));
        instrument.product = static_cast<quint16>(
            firstLine(usbDevice + QStringLiteral("/idProduct")).toUInt(&productOk, 16));
        instrument.serialNumber = firstLine(usbDevice + QStringLiteral("/serial"));
        if (!vendorOk || !productOk)
            continue;
        instrument.device = QDir::cleanPath(base.filePath(QStringLiteral("dev/") + name));
        found.append(instrument);
    }
    return found;
}

} // namespace tarn::host

// Reading instrument addresses and resource strings, with a message for each way one can be wrong.
#include "linkaddress.h"

#include <QObject>
#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>

namespace tarn::host {

namespace {

constexpr quint16 defaultTcpPort = 5025;

std::optional<LinkAddress> refuse(QString *error, const QString &why)
{
    *error = why;
    return std::nullopt;
}

// A port as the user wrote it: 1..65535.
std::optional<quint16> portNumber(const QString &text)
{
    bool ok = false;
    const uint port = text.toUInt(&ok);
    if (!ok || port == 0 || port > 65535 || text.startsWith(QLatin1Char('+')))
        return std::nullopt;
    return static_cast<quint16>(port);
}

// A USB identity number as VISA tools print it, 0x1234, or in decimal.
std::optional<quint16> usbNumber(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^(0[xX][0-9A-Fa-f]{1,4}|[0-9]{1,5})$"));
    if (!form.match(text).hasMatch())
        return std::nullopt;
    bool ok = false;
    const uint value = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive)
                           ? text.mid(2).toUInt(&ok, 16)
                           : text.toUInt(&ok, 10);
    if (!ok || value > 0xFFFF)
        return std::nullopt;
    return static_cast<quint16>(value);
}

std::optional<LinkAddress> tcpUrl(const QString &text, QString *error)
{
    const QUrl url(text, QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty() || !url.path().isEmpty())
        return refuse(error,
                      QObject::tr("%1 is not an address of the form tcp://HOST[:PORT]").arg(text));
    const int port = url.port(defaultTcpPort);
    if (port <= 0 || port > 65535)
        return refuse(error, QObject::tr("%1 has no usable port").arg(text));
    LinkAddress address;
    address.kind = LinkAddress::Kind::Tcp;
    address.host = url.host();
    address.port = static_cast<quint16>(port);
    return address;
}

std::optional<LinkAddress> serialUrl(const QString &text, QString *error)
{
    const QString rest = text.mid(7);
    const int question = rest.indexOf(QLatin1Char('?'));
    LinkAddress address;
    address.kind = LinkAddress::Kind::Serial;
    address.device = rest.left(question);
    if (question >= 0) {
        const QUrlQuery query(rest.mid(question + 1));
        bool ok = false;
        address.baud = query.queryItemValue(QStringLiteral("baud")).toInt(&ok);
        if (!ok || address.baud <= 0 || query.queryItems().size() != 1)
            return refuse(error, QObject::tr("%1: the only option is ?baud=N").arg(text));
    }
    if (address.device.isEmpty())
        return refuse(error, QObject::tr("%1 names no serial device").arg(text));
    return address;
}

std::optional<LinkAddress> simUrl(const QString &text, QString *error)
{
    LinkAddress address;
    const QString rest = text.mid(4);
    if (!rest.isEmpty()) {
        const QUrlQuery query(rest.startsWith(QLatin1Char('?')) ? rest.mid(1) : rest);
        bool ok = false;
        address.speed = query.queryItemValue(QStringLiteral("speed")).toDouble(&ok);
        if (!ok || !(address.speed > 0.0) || query.queryItems().size() != 1)
            return refuse(error, QObject::tr("%1: the only option is ?speed=F").arg(text));
    }
    return address;
}

// A VXI-11 device name: a letter, then letters, digits, ',' or '_' (inst0, gpib0,5).
bool vxi11Device(const QString &name)
{
    static const QRegularExpression form(QStringLiteral("^[A-Za-z][A-Za-z0-9_,]{0,63}$"));
    return form.match(name).hasMatch();
}

std::optional<LinkAddress> vxi11Url(const QString &text, QString *error)
{
    const QUrl url(text, QUrl::StrictMode);
    const QString path = url.path();
    if (!url.isValid() || url.host().isEmpty() || !url.userInfo().isEmpty() || url.hasQuery()
        || url.hasFragment() || (!path.isEmpty() && !path.startsWith(QLatin1Char('/'))))
        return refuse(
            error,
            QObject::tr("%1 is not an address of the form vxi11://HOST[:PORT][/DEVICE]").arg(text));
    const int port = url.port(0);
    if (port < 0 || port > 65535 || (url.port() == 0))
        return refuse(error, QObject::tr("%1 has no usable port").arg(text));
    LinkAddress address;
    address.kind = LinkAddress::Kind::Vxi11;
    address.host = url.host();
    address.port = static_cast<quint16>(port);
    address.device = path.size() > 1 ? path.mid(1) : QStringLiteral("inst0");
    if (!vxi11Device(address.device))
        return refuse(error,
                      QObject::tr("%1: device \"%2\" is not a VXI-11 device name such as inst0")
                          .arg(text, address.device));
    return address;
}

// TCPIP[n]::HOST::PORT::SOCKET is a raw socket; TCPIP[n]::HOST[::DEVICE]::INSTR is VXI-11, whose
// port the host's portmapper gives.
std::optional<LinkAddress>
tcpipResource(const QString &text, const QStringList &fields, const QString &kind, QString *error)
{
    if (kind == QLatin1String("INSTR")) {
        if (fields.size() != 3 && fields.size() != 4)
            return refuse(
                error,
                QObject::tr("%1: a VXI-11 resource is TCPIP[board]::HOST[::DEVICE]::INSTR")
                    .arg(text));
        if (fields.at(1).isEmpty())
            return refuse(error, QObject::tr("%1 names no host").arg(text));
        LinkAddress address;
        address.kind = LinkAddress::Kind::Vxi11;
        address.host = fields.at(1);
        address.device = fields.size() == 4 ? fields.at(2) : QStringLiteral("inst0");
        if (!vxi11Device(address.device))
            return refuse(error,
                          QObject::tr("%1: device \"%2\" is not a VXI-11 device name such as inst0")
                              .arg(text, address.device));
        return address;
    }
    if (fields.size() != 4)
        return refuse(
            error,
            QObject::tr("%1: a socket resource is TCPIP[board]::HOST::PORT::SOCKET").arg(text));
    if (fields.at(1).isEmpty())
        return refuse(error, QObject::tr("%1 names no host").arg(text));
    const auto port = portNumber(fields.at(2));
    if (!port)
        return refuse(
            error,
            QObject::tr("%1: port \"%2\" is not a number from 1 to 65535").arg(text, fields.at(2)));
    LinkAddress address;
    address.kind = LinkAddress::Kind::Tcp;
    address.host = fields.at(1);
    address.port = *port;
    return address;
}

// USB[n]::VENDOR::PRODUCT::SERIAL[::INTERFACE]::INSTR
std::optional<LinkAddress>
usbResource(const QString &text, const QStringList &fields, QString *error)
{
    if (fields.size() != 5 && fields.size() != 6)
        return refuse(error,
                      QObject::tr("%1: a USB resource is "
                                  "USB[board]::VENDOR::PRODUCT::SERIAL[::INTERFACE]::INSTR")
                          .arg(text));
    LinkAddress address;
    address.kind = LinkAddress::Kind::Usbtmc;
    const auto vendor = usbNumber(fields.at(1));
    if (!vendor)
        return refuse(error,
                      QObject::tr("%1: vendor \"%2\" is not a 16-bit number such as 0x1234")
                          .arg(text, fields.at(1)));
    const auto product = usbNumber(fields.at(2));
    if (!product)
        return refuse(error,
                      QObject::tr("%1: product \"%2\" is not a 16-bit number such as 0x5678")
                          .arg(text, fields.at(2)));
    if (fields.at(3).isEmpty())
        return refuse(error, QObject::tr("%1 gives no serial number").arg(text));
    bool interfaceOk = true;
    if (fields.size() == 6)
        fields.at(4).toUInt(&interfaceOk);
    if (!interfaceOk)
        return refuse(error,
                      QObject::tr("%1: interface \"%2\" is not a number").arg(text, fields.at(4)));
    address.vendor = *vendor;
    address.product = *product;
    address.serialNumber = fields.at(3);
    return address;
}

std::optional<LinkAddress> resource(const QString &text, QString *error)
{
    const QStringList fields = text.split(QLatin1String("::"));
    const QString kind = fields.last().toUpper();
    if (kind != QLatin1String("INSTR") && kind != QLatin1String("SOCKET"))
        return refuse(error,
                      QObject::tr("%1: a resource string ends in ::INSTR or ::SOCKET").arg(text));

    const QString head = fields.first();
    if (head.startsWith(QLatin1String("ASRL"), Qt::CaseInsensitive)) {
        const QString device = head.mid(4);
        if (kind != QLatin1String("INSTR") || fields.size() != 2)
            return refuse(error,
                          QObject::tr("%1: a serial resource is ASRL/DEVICE::INSTR").arg(text));
        if (!device.startsWith(QLatin1Char('/')))
            return refuse(error,
                          QObject::tr("%1: name the serial port by its device file, as in "
                                      "ASRL/dev/ttyUSB0::INSTR")
                              .arg(text));
        LinkAddress address;
        address.kind = LinkAddress::Kind::Serial;
        address.device = device;
        return address;
    }

    static const QRegularExpression board(QStringLiteral("^([A-Za-z]+)([0-9]*)$"));
    const QRegularExpressionMatch match = board.match(head);
    const QString interfaceType = match.hasMatch() ? match.captured(1).toUpper() : QString();
    if (interfaceType == QLatin1String("TCPIP"))
        return tcpipResource(text, fields, kind, error);
    if (interfaceType == QLatin1String("USB")) {
        if (kind != QLatin1String("INSTR"))
            return refuse(error, QObject::tr("%1: a USB resource ends in ::INSTR").arg(text));
        return usbResource(text, fields, error);
    }
    return refuse(error,
                  QObject::tr("%1: \"%2\" is not a kind of resource this host reaches; it reaches "
                              "TCPIP, USB and ASRL resources")
                      .arg(text, head));
}

} // namespace

std::optional<LinkAddress> parseLinkAddress(const QString &address, QString *error)
{
    const QString text = address.trimmed();
    if (text.startsWith(QLatin1String("tcp://")))
        return tcpUrl(text, error);
    if (text.startsWith(QLatin1String("vxi11://")))
        return vxi11Url(text, error);
    if (text.startsWith(QLatin1String("serial:")))
        return serialUrl(text, error);
    if (text.startsWith(QLatin1String("usbtmc:"))) {
        LinkAddress usb;
        usb.kind = LinkAddress::Kind::Usbtmc;
        usb.device = text.mid(7);
        if (!usb.device.startsWith(QLatin1Char('/')))
            return refuse(
                error,
                QObject::tr("%1: give the device file, as in usbtmc:/dev/usbtmc0").arg(text));
        return usb;
    }
    if (text.startsWith(QLatin1String("sim:")))
        return simUrl(text, error);
    if (text.contains(QLatin1String("::")))
        return resource(text, error);
    return refuse(error,
                  QObject::tr("%1 is not an instrument address: use tcp://HOST[:PORT], "
                              "vxi11://HOST[:PORT][/DEVICE], serial:DEVICE[?baud=N], "
                              "usbtmc:DEVICE, sim:, or a resource string such as "
                              "TCPIP0::HOST::5025::SOCKET, TCPIP0::HOST::inst0::INSTR, "
                              "USB0::0x1234::0x5678::SERIAL::INSTR or ASRL/dev/ttyUSB0::INSTR")
                      .arg(text));
}

} // namespace tarn::host

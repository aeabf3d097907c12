// Turning addresses into links, and listing the instruments a user could pick on this machine.
#include "linkfactory.h"

#include "linkaddress.h"
#include "seriallink.h"
#include "simlink.h"
#include "tcplink.h"
#include "usbinstruments.h"
#include "usbtmclink.h"
#include "vxi11link.h"

#include <instrumentdescription.h>

#include <QSerialPortInfo>

namespace tarn::host {

std::unique_ptr<InstrumentLink>
createLink(const QString &address, const sim::InstrumentDescription &description, QString *error)
{
    const std::optional<LinkAddress> parsed = parseLinkAddress(address, error);
    if (!parsed)
        return {};
    switch (parsed->kind) {
    case LinkAddress::Kind::Tcp:
        return std::make_unique<TcpLink>(parsed->host, parsed->port);
    case LinkAddress::Kind::Serial:
        return std::make_unique<SerialLink>(parsed->device, parsed->baud);
    case LinkAddress::Kind::Usbtmc:
        return std::make_unique<UsbtmcLink>(*parsed);
    case LinkAddress::Kind::Vxi11:
        return std::make_unique<Vxi11Link>(*parsed);
    case LinkAddress::Kind::Sim:
        break;
    }
    return std::make_unique<SimLink>(description, parsed->speed);
}

QStringList attachedInstrumentAddresses()
{
    QStringList addresses;
    for (const UsbInstrument &instrument : attachedUsbInstruments(systemRoot()))
        addresses.append(instrument.resourceString());
    for (const QSerialPortInfo &port : QSerialPortInfo::availablePorts())
        addresses.append(QStringLiteral("ASRL%1::INSTR").arg(port.systemLocation()));
    return addresses;
}

} // namespace tarn::host

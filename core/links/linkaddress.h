// What an instrument address names, read from a URL-like address or a VISA-style resource string.
#pragma once

#include <QString>

#include <optional>

namespace tarn::host {

// LinkAddress is an address taken apart: which kind of link and where it leads. Nothing is
// opened or looked up while reading one, so a malformed address is told at once and an address
// of an instrument that is not there fails only when its link opens.
struct LinkAddress
{
    enum class Kind { Tcp, Serial, Usbtmc, Vxi11, Sim };

    Kind kind = Kind::Sim;
    QString host;       // Tcp, Vxi11
    quint16 port = 0;   // Tcp; Vxi11 when given, else the host's portmapper is asked
    QString device;     // Serial, Usbtmc given by its device file, Vxi11's device name
    int baud = 115200;  // Serial
    double speed = 1.0; // Sim
    // Usbtmc given by identity (device empty): found among the attached instruments on open.
    quint16 vendor = 0;
    quint16 product = 0;
    QString serialNumber;
};

// Reads tcp://HOST[:PORT], vxi11://HOST[:PORT][/DEVICE], serial:DEVICE[?baud=N], usbtmc:DEVICE,
// sim:[?speed=F] and the resource strings TCPIP[n]::HOST::PORT::SOCKET,
// TCPIP[n]::HOST[::DEVICE]::INSTR (VXI-11), USB[n]::VENDOR::PRODUCT::SERIAL[::INTERFACE]::INSTR and
// ASRL/DEVICE::INSTR. Nothing, with *error naming the part that is wrong, for anything else.
std::optional<LinkAddress> parseLinkAddress(const QString &address, QString *error);

} // namespace tarn::host

// Turns an instrument address as a user writes it into a link.
#pragma once

#include <QString>
#include <QStringList>

#include <memory>

namespace tarn::sim {
struct InstrumentDescription;
}

namespace tarn::host {

class InstrumentLink;

// Any address parseLinkAddress() reads: tcp://HOST[:PORT] (port 5025 when left out),
// serial:DEVICE[?baud=N], usbtmc:DEVICE, sim: or sim:?speed=F, or a resource string.
// Returns nothing, with *error telling why, when the address cannot be a link.
std::unique_ptr<InstrumentLink>
createLink(const QString &address, const sim::InstrumentDescription &description, QString *error);

// The instruments attached to this machine that a user may pick, as resource strings: each USB
// instrument the usbtmc driver holds, then each serial port.
QStringList attachedInstrumentAddresses();

} // namespace tarn::host

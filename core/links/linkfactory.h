// Turns an instrument address as a user writes it into a link.
#pragma once

#include <QString>

#include <memory>

namespace tarn::sim {
struct InstrumentDescription;
}

namespace tarn::host {

class InstrumentLink;

// tcp://HOST[:PORT] (port 5025 when left out), serial:DEVICE[?baud=N], sim: or sim:?speed=F.
// Returns nothing, with *error telling why, when the address cannot be a link.
std::unique_ptr<InstrumentLink>
createLink(const QString &address, const sim::InstrumentDescription &description, QString *error);

} // namespace tarn::host

// The limits of one channel of an instrument, from its description and from what it answers.
#pragma once

#include "instrumentdescription.h"

#include <steplimits.h>

#include <optional>

namespace tarn::host {

// What the connected instrument itself says one channel accepts: its ranges and the levels above
// which its output protection trips.
struct InstrumentLimits
{
    Range voltage;
    Range current;
    double overVoltage = 0.0; // V
    double overCurrent = 0.0; // A
};

// The limits of channel `channel` (0-based); a channel the description lacks accepts no voltage
// and no current. What the instrument answered replaces the description's ranges and adds its
// protection.
StepLimits stepLimitsFor(const sim::InstrumentDescription &description,
                         int channel,
                         const std::optional<InstrumentLimits> &instrument = std::nullopt);

} // namespace tarn::host

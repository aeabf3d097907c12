// The dialog's view of an instrument, made from its description.
#pragma once

#include <records.h>

namespace tarn::sim {
struct InstrumentDescription;
}

namespace tarn::host {

// Channels, ranges, decimals, time limits and the longest sequence, as the dialog's Option; the
// option's name is the model, so that template settings are kept per kind of instrument.
tarn2::specific::orvo5000::programmer::Option
optionFor(const sim::InstrumentDescription &description);

} // namespace tarn::host

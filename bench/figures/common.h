// The instrument every figure runs against, and the few helpers the figure files share.
#pragma once

#include "records.h"

#include <benchmark/benchmark.h>

namespace figures {

// Millisecond times, three decimals for volts and amperes, four 32 V / 3.2 A channels, and room
// for the longest template the module builds.
tarn2::specific::orvo5000::programmer::Option benchOption();

// Makes benchOption() the process-wide current option, as constructing a dialog would.
void useBenchOption();

// Keeps the compiler from dropping a result it sees unused.
template<typename T> void keep(const T &value)
{
    benchmark::DoNotOptimize(&value);
    benchmark::ClobberMemory();
}

} // namespace figures

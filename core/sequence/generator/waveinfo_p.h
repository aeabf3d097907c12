// Private part of the WaveInfo family and the 64-bit step counts behind count().
#pragma once

#include "waveinfo.h"

#include <cstdint>

namespace tarn2::specific::orvo5000 {

// The same four ints serve every kind of timing; a kind leaves the ones it has no use for at 0.
// Stair timing keeps its steps and the pulses their number in `count`, the sine its cycles.
class WaveInfoPrivate
{
public:
    WaveInfo *q_ptr = nullptr;
    int period = 0;
    int interval = 0;
    int width = 0;
    int count = 0;
};

namespace detail {

// The counts are exact in 64 bits for any int arguments (|P × C| < 2^62). A zero interval has no
// defined count and yields none.
inline std::int64_t sineStepCount(int period, int interval, int cycles)
{
    if (interval == 0)
        return 0;
    return (std::int64_t{period} * cycles + interval - 1) / interval;
}

inline std::int64_t pulseStepCount(int period, int width, int count)
{
    return width < period ? std::int64_t{count} + count : std::int64_t{count};
}

inline std::int64_t rampStepCount(int period, int interval)
{
    if (interval == 0)
        return 0;
    return (std::int64_t{period} + interval - 1) / interval;
}

inline std::int64_t stairStepCount(int period, int steps)
{
    return steps > period ? 0 : steps;
}

} // namespace detail

} // namespace tarn2::specific::orvo5000

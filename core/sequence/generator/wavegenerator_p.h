// Private part of WaveGenerator and the tick conversions that every generator shares.
#pragma once

#include "wavegenerator.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace tarn2::specific::orvo5000 {

class WaveGeneratorPrivate
{
public:
    WaveGeneratorPrivate() = default;
    WaveGeneratorPrivate(const WaveGeneratorPrivate &) = delete;
    WaveGeneratorPrivate &operator=(const WaveGeneratorPrivate &) = delete;
    virtual ~WaveGeneratorPrivate();

    WaveGenerator *q_ptr = nullptr;
};

namespace detail {

// Durations arrive as doubles and are kept as whole ticks in an int. A value beyond the int range
// saturates at the nearest end and NaN becomes 0, so a nonsensical template ends up as an empty or
// clamped wave rather than an undefined conversion.
inline int truncatedTicks(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= 2147483647.0)
        return std::numeric_limits<int>::max();
    if (value <= -2147483648.0)
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

// Round half up the way the sine, pulse and ramp waves always have: truncate(value + 0.5), which
// rounds negative halves toward zero.
inline int roundedTicks(double value)
{
    return truncatedTicks(value + 0.5);
}

// Step counts are worked out in 64 bits and only narrowed where an int is handed out.
inline int clampedCount(std::int64_t count)
{
    if (count > std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (count < std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    return static_cast<int>(count);
}

} // namespace detail

} // namespace tarn2::specific::orvo5000

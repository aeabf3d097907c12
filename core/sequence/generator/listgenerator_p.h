// Private part of ListGenerator: the owned timing object, and how many levels each wave yields.
#pragma once

#include "listgenerator.h"
#include "wavegenerator_p.h"
#include "waveinfo.h"
#include "waveinfo_p.h"

#include <algorithm>

namespace tarn2::specific::orvo5000 {

class ListGeneratorPrivate : public WaveGeneratorPrivate
{
public:
    explicit ListGeneratorPrivate(std::unique_ptr<WaveInfo> info);
    ~ListGeneratorPrivate() override;

    std::unique_ptr<WaveInfo> info;
};

namespace detail {

// The number of levels that generate() of each wave yields for the given tick values, worked out
// without producing them (the sequence builder refuses oversized templates with these). A zero
// period would divide by zero in the sine and the ramp, so those waves yield nothing then.
inline std::int64_t sineLevelCount(int period, int interval, int cycles)
{
    return period == 0 ? 0 : std::max<std::int64_t>(0, sineStepCount(period, interval, cycles));
}

inline std::int64_t pulseLevelCount(int period, int width, int count)
{
    return std::max<std::int64_t>(0, pulseStepCount(period, width, count));
}

inline std::int64_t rampLevelCount(int period, int interval)
{
    return period == 0 ? 0 : std::max<std::int64_t>(0, rampStepCount(period, interval));
}

// Stairs and exponentials yield their own number of steps, whatever the timing says.
inline std::int64_t stepsLevelCount(int steps)
{
    return std::max(0, steps);
}

} // namespace detail

} // namespace tarn2::specific::orvo5000

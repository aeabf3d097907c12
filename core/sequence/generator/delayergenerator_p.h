// Private part of the Delayer generators.
#pragma once

#include "delayergenerator.h"
#include "wavegenerator_p.h"

namespace tarn2::specific::orvo5000 {

// One record serves all three rules; each uses either the On/Off times or the base and step.
class DelayerGeneratorPrivate : public WaveGeneratorPrivate
{
public:
    int count = 0;
    int pattern = DelayerGenerator::Pattern10;
    double onTime = 0.0;
    double offTime = 0.0;
    double baseValue = 0.0;
    double step = 0.0;
};

namespace detail {

// A Decline is usable while its last step stays longer than zero. The count is taken as a double
// so that no count can overflow on the way.
inline bool declineIsValid(int count, double baseValue, double step)
{
    return (static_cast<double>(count) - 1.0) * step < baseValue;
}

} // namespace detail

} // namespace tarn2::specific::orvo5000

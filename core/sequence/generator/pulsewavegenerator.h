// The pulse List wave.
#pragma once

#include "listgenerator.h"

namespace tarn2::specific::orvo5000 {

// `count` pulses: level 1.0 for `width` ticks, then 0.0 for the rest of the period. A width that
// fills the period gives one step of 1.0 per pulse, each a whole period long. Ticks round half up.
class TARN2_SPECIFIC_EXPORT PulseWaveGenerator final : public ListGenerator
{
public:
    PulseWaveGenerator(double period, double width, int count);
    ~PulseWaveGenerator() override;

    std::vector<double> generate() const override;
};

} // namespace tarn2::specific::orvo5000

// The ramp (triangle and sawtooth) List wave.
#pragma once

#include "listgenerator.h"

namespace tarn2::specific::orvo5000 {

// One period sampled every interval: rising from 0 to 1 over `symmetry` of the period, then
// falling back. Symmetry is a fraction, clamped to 0..1 (NaN counts as 0); 0 gives a falling
// sawtooth, 1 a rising one. Ticks round half up.
class TARN2_SPECIFIC_EXPORT RampWaveGenerator final : public ListGenerator
{
public:
    RampWaveGenerator(double period, double interval, double symmetry);
    ~RampWaveGenerator() override;

    std::vector<double> generate() const override;
};

} // namespace tarn2::specific::orvo5000

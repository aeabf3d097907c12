// The sine List wave.
#pragma once

#include "listgenerator.h"

namespace tarn2::specific::orvo5000 {

// A sine sampled at the start of every interval over `cycles` periods, starting at level 0.5.
// Period and interval are ticks, rounded half up; the last step may be shorter than the interval.
class TARN2_SPECIFIC_EXPORT SineWaveGenerator final : public ListGenerator
{
public:
    SineWaveGenerator(double period, double interval, int cycles);
    ~SineWaveGenerator() override;

    std::vector<double> generate() const override;
};

} // namespace tarn2::specific::orvo5000

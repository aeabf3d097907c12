// The Exponent Rise and Exponent Fall List waves.
#pragma once

#include "listgenerator.h"

namespace tarn2::specific::orvo5000 {

// `groups` steps of one interval each following e^(−rate × i / groups): falling from 1 (Fall) or
// its complement rising from 0 (Rise); neither reaches its far end. The interval truncates to
// whole ticks.
class TARN2_SPECIFIC_EXPORT ExpWaveGenerator final : public ListGenerator
{
public:
    enum Mode : int { Rise = 0, Fall = 1 };

    ExpWaveGenerator(double interval, int rate, int groups, Mode mode);
    ~ExpWaveGenerator() override;

    std::vector<double> generate() const override;
};

} // namespace tarn2::specific::orvo5000

// The Stair Up Down List wave.
#pragma once

#include "listgenerator.h"

namespace tarn2::specific::orvo5000 {

// `steps` level steps climbing from 0 to 1 and back down over one period. An odd count peaks on
// its middle step and ends at 0; an even count holds 1 for one step and comes down in half-steps
// to 0. Fewer than three steps are all 0. The period truncates to whole ticks.
class TARN2_SPECIFIC_EXPORT StairUpDownWaveGenerator final : public ListGenerator
{
public:
    StairUpDownWaveGenerator(double period, int steps);
    ~StairUpDownWaveGenerator() override;

    std::vector<double> generate() const override;
};

} // namespace tarn2::specific::orvo5000

// The Stair Up and Stair Down List waves.
#pragma once

#include "listgenerator.h"

namespace tarn2::specific::orvo5000 {

// `steps` equal level steps from 0 to 1 (Up) or from 1 to 0 (Down) over one period; the first
// step is the start level and the last the end level. The period truncates to whole ticks. The
// levels follow `steps` even where the timing has none (more steps than ticks).
class TARN2_SPECIFIC_EXPORT StairWaveGenerator final : public ListGenerator
{
public:
    enum Direction : int { Up = 0, Down = 1 };

    StairWaveGenerator(double period, int steps, Direction direction);
    ~StairWaveGenerator() override;

    std::vector<double> generate() const override;
};

} // namespace tarn2::specific::orvo5000

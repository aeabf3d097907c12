// The Stair Up and Stair Down List waves.
#include "stairwavegenerator.h"
#include "listgenerator_p.h"

namespace tarn2::specific::orvo5000 {

namespace {
class StairWaveGeneratorPrivate final : public ListGeneratorPrivate
{
public:
    StairWaveGeneratorPrivate(double period, int steps, StairWaveGenerator::Direction direction)
        : ListGeneratorPrivate(std::make_unique<StairWaveInfo>(period, steps))
        , period(detail::truncatedTicks(period))
        , steps(steps)
        , direction(direction)
    {}

    int period;
    int steps;
    StairWaveGenerator::Direction direction;
};
} // namespace

StairWaveGenerator::StairWaveGenerator(double period, int steps, Direction direction)
    : ListGenerator(*new StairWaveGeneratorPrivate(period, steps, direction))
{}

StairWaveGenerator::~StairWaveGenerator() = default;

std::vector<double> StairWaveGenerator::generate() const
{
    const auto d = static_cast<const StairWaveGeneratorPrivate *>(d_ptr.get());
    const double start = d->direction == Down ? 1.0 : 0.0;
    const double end = d->direction == Down ? 0.0 : 1.0;
    if (d->steps < 1)
        return {};
    if (d->steps == 1)
        return {start};

    std::vector<double> levels;
    levels.reserve(static_cast<std::size_t>(d->steps));
    for (int i = 0; i < d->steps; ++i)
        levels.push_back(start + i * (end - start) / (d->steps - 1));
    return levels;
}

} // namespace tarn2::specific::orvo5000

// The Stair Up Down List wave.
#include "stairupdownwavegenerator.h"
#include "listgenerator_p.h"

namespace tarn2::specific::orvo5000 {

namespace {
class StairUpDownWaveGeneratorPrivate final : public ListGeneratorPrivate
{
public:
    StairUpDownWaveGeneratorPrivate(double period, int steps)
        : ListGeneratorPrivate(std::make_unique<StairWaveInfo>(period, steps))
        , period(detail::truncatedTicks(period))
        , steps(steps)
    {}

    int period;
    int steps;
};
} // namespace

StairUpDownWaveGenerator::StairUpDownWaveGenerator(double period, int steps)
    : ListGenerator(*new StairUpDownWaveGeneratorPrivate(period, steps))
{}

StairUpDownWaveGenerator::~StairUpDownWaveGenerator() = default;

std::vector<double> StairUpDownWaveGenerator::generate() const
{
    const auto d = static_cast<const StairUpDownWaveGeneratorPrivate *>(d_ptr.get());
    const int steps = d->steps;
    if (steps < 1)
        return {};
    if (steps < 3)
        return std::vector<double>(static_cast<std::size_t>(steps), 0.0);

    const int half = steps / 2;
    std::vector<double> levels;
    levels.reserve(static_cast<std::size_t>(steps));
    for (int i = 0; i < steps; ++i) {
        if (steps % 2 == 0) {
            if (i < half)
                levels.push_back(static_cast<double>(i) / (half - 1));
            else
                levels.push_back(1.0 - static_cast<double>(1 + i - half) / half);
        } else {
            if (i <= half)
                levels.push_back(static_cast<double>(i) / half);
            else
                levels.push_back(1.0 - static_cast<double>(i - half) / half);
        }
    }
    return levels;
}

} // namespace tarn2::specific::orvo5000

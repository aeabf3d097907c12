// The Exponent Rise and Exponent Fall List waves.
#include "expwavegenerator.h"
#include "listgenerator_p.h"

#include <cmath>

namespace tarn2::specific::orvo5000 {

namespace {
class ExpWaveGeneratorPrivate final : public ListGeneratorPrivate
{
public:
    ExpWaveGeneratorPrivate(double interval, int rate, int groups, ExpWaveGenerator::Mode mode)
        : ListGeneratorPrivate(std::make_unique<ExpWaveInfo>(interval, groups))
        , interval(detail::truncatedTicks(interval))
        , rate(rate)
        , groups(groups)
        , mode(mode)
    {}

    int interval;
    int rate;
    int groups;
    ExpWaveGenerator::Mode mode;
};
} // namespace

ExpWaveGenerator::ExpWaveGenerator(double interval, int rate, int groups, Mode mode)
    : ListGenerator(*new ExpWaveGeneratorPrivate(interval, rate, groups, mode))
{}

ExpWaveGenerator::~ExpWaveGenerator() = default;

std::vector<double> ExpWaveGenerator::generate() const
{
    const auto d = static_cast<const ExpWaveGeneratorPrivate *>(d_ptr.get());
    if (d->groups < 1)
        return {};

    std::vector<double> levels;
    levels.reserve(static_cast<std::size_t>(d->groups));
    for (int i = 0; i < d->groups; ++i) {
        const double e = std::exp(-static_cast<double>(d->rate) * i / d->groups);
        levels.push_back(d->mode == Fall ? e : 1.0 - e);
    }
    return levels;
}

} // namespace tarn2::specific::orvo5000

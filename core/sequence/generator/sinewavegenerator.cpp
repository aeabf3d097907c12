// The sine List wave.
#include "sinewavegenerator.h"
#include "listgenerator_p.h"

#include "algorithm.h"

#include <cmath>

namespace tarn2::specific::orvo5000 {

namespace {
class SineWaveGeneratorPrivate final : public ListGeneratorPrivate
{
public:
    SineWaveGeneratorPrivate(double period, double interval, int cycles)
        : ListGeneratorPrivate(std::make_unique<SineWaveInfo>(period, interval, cycles))
        , period(detail::roundedTicks(period))
        , interval(detail::roundedTicks(interval))
    {}

    int period;
    int interval;
};
} // namespace

SineWaveGenerator::SineWaveGenerator(double period, double interval, int cycles)
    : ListGenerator(*new SineWaveGeneratorPrivate(period, interval, cycles))
{}

SineWaveGenerator::~SineWaveGenerator() = default;

std::vector<double> SineWaveGenerator::generate() const
{
    const auto d = static_cast<const SineWaveGeneratorPrivate *>(d_ptr.get());
    const int n = count();
    if (n <= 0 || d->period == 0)
        return {};

    std::vector<double> levels;
    levels.reserve(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) {
        // The phase restarts every period, so each cycle samples the same points.
        const std::int64_t phase = (std::int64_t{d->interval} * i) % d->period;
        const double angle = static_cast<double>(phase) * 6.283185307179586 / d->period;
        levels.push_back(tarn::core::algorithm::normalize(std::sin(angle), -1.0, 1.0));
    }
    return levels;
}

} // namespace tarn2::specific::orvo5000

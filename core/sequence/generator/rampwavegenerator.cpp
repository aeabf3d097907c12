// The ramp List wave.
#include "rampwavegenerator.h"
#include "listgenerator_p.h"

namespace tarn2::specific::orvo5000 {

namespace {
double clampedSymmetry(double symmetry)
{
    if (!(symmetry > 0.0))
        return 0.0;
    if (!(symmetry < 1.0))
        return 1.0;
    return symmetry;
}

class RampWaveGeneratorPrivate final : public ListGeneratorPrivate
{
public:
    RampWaveGeneratorPrivate(double period, double interval, double symmetry)
        : ListGeneratorPrivate(std::make_unique<RampWaveInfo>(period, interval))
        , period(detail::roundedTicks(period))
        , interval(detail::roundedTicks(interval))
        , symmetry(clampedSymmetry(symmetry))
    {}

    int period;
    int interval;
    double symmetry;
};
} // namespace

RampWaveGenerator::RampWaveGenerator(double period, double interval, double symmetry)
    : ListGenerator(*new RampWaveGeneratorPrivate(period, interval, symmetry))
{}

RampWaveGenerator::~RampWaveGenerator() = default;

std::vector<double> RampWaveGenerator::generate() const
{
    const auto d = static_cast<const RampWaveGeneratorPrivate *>(d_ptr.get());
    const int n = count();
    if (n <= 0 || d->period == 0)
        return {};

    const double slope = static_cast<double>(d->interval) / d->period;
    const int peak = detail::roundedTicks(d->symmetry * d->period);
    const std::int64_t fall = std::int64_t{d->period} - peak;

    std::vector<double> levels;
    levels.reserve(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) {
        if (peak == 0) {
            levels.push_back(1.0 - slope * i);
        } else if (peak == 1) {
            // Tested on the peak in ticks rather than on the symmetry: a one-tick peak turns the
            // whole period into one rising ramp. Kept that way on purpose.
            levels.push_back(slope * i);
        } else {
            const std::int64_t t = std::int64_t{i} * d->interval;
            if (t <= peak)
                levels.push_back(static_cast<double>(t) / peak);
            else
                levels.push_back(fall == 0 ? 0.0 : 1.0 - static_cast<double>(t - peak) / fall);
        }
    }
    return levels;
}

} // namespace tarn2::specific::orvo5000

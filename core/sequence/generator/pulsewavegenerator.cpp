// The pulse List wave.
#include "pulsewavegenerator.h"
#include "listgenerator_p.h"

namespace tarn2::specific::orvo5000 {

namespace {
class PulseWaveGeneratorPrivate final : public ListGeneratorPrivate
{
public:
    PulseWaveGeneratorPrivate(double period, double width, int count)
        : ListGeneratorPrivate(std::make_unique<PulseWaveInfo>(period, width, count))
        , period(detail::roundedTicks(period))
        , width(detail::roundedTicks(width))
    {}

    int period;
    int width;
};
} // namespace

PulseWaveGenerator::PulseWaveGenerator(double period, double width, int count)
    : ListGenerator(*new PulseWaveGeneratorPrivate(period, width, count))
{}

PulseWaveGenerator::~PulseWaveGenerator() = default;

std::vector<double> PulseWaveGenerator::generate() const
{
    const auto d = static_cast<const PulseWaveGeneratorPrivate *>(d_ptr.get());
    const int n = count();
    if (n <= 0)
        return {};

    std::vector<double> levels(static_cast<std::size_t>(n), 1.0);
    if (d->width < d->period) {
        for (std::size_t i = 1; i < levels.size(); i += 2)
            levels[i] = 0.0;
    }
    return levels;
}

} // namespace tarn2::specific::orvo5000

// The Delayer generators.
#include "delayergenerator.h"
#include "delayergenerator_p.h"

#include <cmath>

namespace tarn2::specific::orvo5000 {

namespace {
DelayerGeneratorPrivate *delayerPrivate(const std::unique_ptr<WaveGeneratorPrivate> &d)
{
    return static_cast<DelayerGeneratorPrivate *>(d.get());
}
} // namespace

// --- DelayerGenerator

DelayerGenerator::DelayerGenerator(Pattern pattern, int count)
    : WaveGenerator(*new DelayerGeneratorPrivate)
{
    const auto d = delayerPrivate(d_ptr);
    d->pattern = pattern;
    d->count = count;
}

DelayerGenerator::~DelayerGenerator() = default;

std::vector<double> DelayerGenerator::generate() const
{
    const auto d = delayerPrivate(d_ptr);
    if (d->count < 1)
        return {};

    const double first = d->pattern == Pattern10 ? 1.0 : 0.0;
    const double second = std::abs(first) <= 0.000000000001 ? 1.0 : 0.0;
    std::vector<double> levels;
    levels.reserve(static_cast<std::size_t>(d->count));
    for (int i = 0; i < d->count; ++i)
        levels.push_back(i % 2 == 0 ? first : second);
    return levels;
}

// --- FixTimeGenerator

FixTimeGenerator::FixTimeGenerator(Pattern pattern, int count, double onTime, double offTime)
    : DelayerGenerator(pattern, count)
{
    const auto d = delayerPrivate(d_ptr);
    d->onTime = onTime;
    d->offTime = offTime;
}

FixTimeGenerator::~FixTimeGenerator() = default;

double FixTimeGenerator::time(int i) const
{
    const auto d = delayerPrivate(d_ptr);
    const bool firstState = i % 2 == 0;
    if (d->pattern == Pattern10)
        return firstState ? d->onTime : d->offTime;
    return firstState ? d->offTime : d->onTime;
}

bool FixTimeGenerator::isValid() const
{
    return true;
}

// --- IncreaseGenerator

IncreaseGenerator::IncreaseGenerator(Pattern pattern, int count, double baseValue, double step)
    : DelayerGenerator(pattern, count)
{
    const auto d = delayerPrivate(d_ptr);
    d->baseValue = baseValue;
    d->step = step;
}

IncreaseGenerator::~IncreaseGenerator() = default;

double IncreaseGenerator::time(int i) const
{
    const auto d = delayerPrivate(d_ptr);
    return d->baseValue + i * d->step;
}

bool IncreaseGenerator::isValid() const
{
    return true;
}

// --- DecreaseGenerator

DecreaseGenerator::DecreaseGenerator(Pattern pattern, int count, double baseValue, double step)
    : DelayerGenerator(pattern, count)
{
    const auto d = delayerPrivate(d_ptr);
    d->baseValue = baseValue;
    d->step = step;
}

DecreaseGenerator::~DecreaseGenerator() = default;

double DecreaseGenerator::time(int i) const
{
    const auto d = delayerPrivate(d_ptr);
    return d->baseValue - i * d->step;
}

bool DecreaseGenerator::isValid() const
{
    const auto d = delayerPrivate(d_ptr);
    return detail::declineIsValid(d->count, d->baseValue, d->step);
}

} // namespace tarn2::specific::orvo5000

// Timing of the List waves.
#include "waveinfo.h"
#include "wavegenerator_p.h"
#include "waveinfo_p.h"

namespace tarn2::specific::orvo5000 {

WaveInfo::WaveInfo()
    : d_ptr(new WaveInfoPrivate)
{
    d_ptr->q_ptr = this;
}

WaveInfo::~WaveInfo() = default;

// --- SineWaveInfo

SineWaveInfo::SineWaveInfo(double period, double interval, int cycles)
{
    d_ptr->period = detail::roundedTicks(period);
    d_ptr->interval = detail::roundedTicks(interval);
    d_ptr->count = cycles;
}

SineWaveInfo::~SineWaveInfo() = default;

int SineWaveInfo::count() const
{
    return detail::clampedCount(
        detail::sineStepCount(d_ptr->period, d_ptr->interval, d_ptr->count));
}

double SineWaveInfo::time(int i) const
{
    // Greater-or-equal, unlike the ramp: a step ending exactly on the span is the last one either
    // way, so both tests give the same lengths.
    const std::int64_t span = std::int64_t{d_ptr->period} * d_ptr->count;
    if ((std::int64_t{i} + 1) * d_ptr->interval >= span)
        return static_cast<double>(span - std::int64_t{i} * d_ptr->interval);
    return d_ptr->interval;
}

int SineWaveInfo::period() const
{
    return d_ptr->period;
}

void SineWaveInfo::setPeriod(int period)
{
    d_ptr->period = period;
}

double SineWaveInfo::interval() const
{
    return d_ptr->interval;
}

void SineWaveInfo::setInterval(double interval)
{
    d_ptr->interval = detail::truncatedTicks(interval);
}

int SineWaveInfo::cycles() const
{
    return d_ptr->count;
}

void SineWaveInfo::setCycles(double cycles)
{
    d_ptr->count = detail::truncatedTicks(cycles);
}

// --- PulseWaveInfo

PulseWaveInfo::PulseWaveInfo(double period, double width, int count)
{
    d_ptr->period = detail::roundedTicks(period);
    d_ptr->width = detail::roundedTicks(width);
    d_ptr->count = count;
}

PulseWaveInfo::~PulseWaveInfo() = default;

int PulseWaveInfo::count() const
{
    return detail::clampedCount(detail::pulseStepCount(d_ptr->period, d_ptr->width, d_ptr->count));
}

double PulseWaveInfo::time(int i) const
{
    if (d_ptr->width >= d_ptr->period)
        return d_ptr->period;
    if (i % 2 != 0)
        return static_cast<double>(std::int64_t{d_ptr->period} - d_ptr->width);
    return d_ptr->width;
}

// --- RampWaveInfo

RampWaveInfo::RampWaveInfo(double period, double interval)
{
    d_ptr->period = detail::roundedTicks(period);
    d_ptr->interval = detail::roundedTicks(interval);
}

RampWaveInfo::~RampWaveInfo() = default;

int RampWaveInfo::count() const
{
    return detail::clampedCount(detail::rampStepCount(d_ptr->period, d_ptr->interval));
}

double RampWaveInfo::time(int i) const
{
    if ((std::int64_t{i} + 1) * d_ptr->interval > d_ptr->period)
        return static_cast<double>(d_ptr->period - std::int64_t{i} * d_ptr->interval);
    return d_ptr->interval;
}

// --- StairWaveInfo

StairWaveInfo::StairWaveInfo(double period, int steps)
{
    d_ptr->period = detail::truncatedTicks(period);
    d_ptr->count = steps;
}

StairWaveInfo::~StairWaveInfo() = default;

int StairWaveInfo::count() const
{
    return detail::clampedCount(detail::stairStepCount(d_ptr->period, d_ptr->count));
}

double StairWaveInfo::time(int i) const
{
    const int steps = d_ptr->count;
    const double period = d_ptr->period;
    if (steps == 1)
        return period;
    if (steps == 0)
        return 0.0;
    // Each boundary is rounded on its own, so the lengths always add up to the whole period. The
    // rounding stays in doubles: identical to an int result, without an int to overflow.
    const auto boundary = [&](double index) {
        return std::trunc(index * period / steps + 0.5);
    };
    return boundary(static_cast<double>(i) + 1.0) - boundary(i);
}

// --- ExpWaveInfo

ExpWaveInfo::ExpWaveInfo(double interval, int groups)
{
    d_ptr->interval = detail::truncatedTicks(interval);
    d_ptr->count = groups;
}

ExpWaveInfo::~ExpWaveInfo() = default;

int ExpWaveInfo::count() const
{
    return d_ptr->count;
}

double ExpWaveInfo::time(int) const
{
    return d_ptr->interval;
}

} // namespace tarn2::specific::orvo5000

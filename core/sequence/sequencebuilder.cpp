// Turning a List or Delayer template into steps.
#include "sequencebuilder.h"

#include "generator/delayergenerator_p.h"
#include "generator/expwavegenerator.h"
#include "generator/listgenerator_p.h"
#include "generator/pulsewavegenerator.h"
#include "generator/rampwavegenerator.h"
#include "generator/sinewavegenerator.h"
#include "generator/stairupdownwavegenerator.h"
#include "generator/stairwavegenerator.h"
#include "helper.h"

#include "algorithm.h"

#include <QtGlobal>

#include <cmath>
#include <memory>

namespace tarn2::specific::orvo5000::programmer {

namespace {

// Seconds become ticks by multiplying with 10^timeDecimals; ticks become seconds by dividing by
// it again, never by multiplying with its inverse, so whole ticks come back as the decimals the
// user typed.
double tickScale()
{
    return std::pow(10.0, Helper::getInstance().option.timeDecimals);
}

std::unique_ptr<ListGenerator> makeListGenerator(const ListTemplateParam &param, double scale)
{
    const double periodTicks = param.period * scale;
    const double intervalTicks = param.interval * scale;
    const double widthTicks = param.width * scale;
    switch (param.type) {
    case ListSine:
        return std::make_unique<SineWaveGenerator>(periodTicks, intervalTicks, param.cycles);
    case ListPulse:
        return std::make_unique<PulseWaveGenerator>(periodTicks, widthTicks, param.pulseCount);
    case ListRamp:
        return std::make_unique<RampWaveGenerator>(
            periodTicks, intervalTicks, param.symmetry * 0.01);
    case ListStairUp:
        return std::make_unique<StairWaveGenerator>(
            periodTicks, param.steps, StairWaveGenerator::Up);
    case ListStairDown:
        return std::make_unique<StairWaveGenerator>(
            periodTicks, param.steps, StairWaveGenerator::Down);
    case ListStairUpDown:
        return std::make_unique<StairUpDownWaveGenerator>(periodTicks, param.steps);
    case ListExpRise:
        return std::make_unique<ExpWaveGenerator>(
            intervalTicks, param.expRate, param.expGroups, ExpWaveGenerator::Rise);
    case ListExpFall:
        return std::make_unique<ExpWaveGenerator>(
            intervalTicks, param.expRate, param.expGroups, ExpWaveGenerator::Fall);
    }
    return nullptr;
}

std::unique_ptr<DelayerGenerator> makeDelayerGenerator(const DelayerTemplateParam &param,
                                                       double scale)
{
    const auto pattern
        = param.pattern == 1 ? DelayerGenerator::Pattern01 : DelayerGenerator::Pattern10;
    switch (param.type) {
    case DelayerFixTime:
        return std::make_unique<FixTimeGenerator>(
            pattern, param.groups, param.onTime * scale, param.offTime * scale);
    case DelayerIncrease:
        return std::make_unique<IncreaseGenerator>(
            pattern, param.groups, param.incBaseValue * scale, param.incStep * scale);
    case DelayerDecline:
        return std::make_unique<DecreaseGenerator>(
            pattern, param.groups, param.decBaseValue * scale, param.decStep * scale);
    }
    return nullptr;
}

} // namespace

qint64 list_wave_step_count(const ListTemplateParam &param)
{
    // The same conversions as the generators' constructors: round half up for the sine, pulse
    // and ramp, and the level counts they would yield.
    const double scale = tickScale();
    const int period = detail::roundedTicks(param.period * scale);
    const int interval = detail::roundedTicks(param.interval * scale);
    const int width = detail::roundedTicks(param.width * scale);
    switch (param.type) {
    case ListSine:
        return detail::sineLevelCount(period, interval, param.cycles);
    case ListPulse:
        return detail::pulseLevelCount(period, width, param.pulseCount);
    case ListRamp:
        return detail::rampLevelCount(period, interval);
    case ListStairUp:
    case ListStairDown:
    case ListStairUpDown:
        return detail::stepsLevelCount(param.steps);
    case ListExpRise:
    case ListExpFall:
        return detail::stepsLevelCount(param.expGroups);
    }
    return 0;
}

qint64 delayer_wave_step_count(const DelayerTemplateParam &param)
{
    switch (param.type) {
    case DelayerFixTime:
    case DelayerIncrease:
        return qMax(0, param.groups);
    case DelayerDecline: {
        const double scale = tickScale();
        if (!detail::declineIsValid(
                param.groups, param.decBaseValue * scale, param.decStep * scale))
            return 0;
        return qMax(0, param.groups);
    }
    }
    return 0;
}

QList<ListData> make_list_wave(const ListTemplateParam &param)
{
    QList<ListData> list;
    if (list_wave_step_count(param) > kMaxTemplateSteps)
        return list;

    const double scale = tickScale();
    // Inverting swaps the ends of the range, which mirrors every waveform alike.
    double low = param.object == 0 ? param.voltageMin : param.currentMin;
    double high = param.object == 0 ? param.voltageMax : param.currentMax;
    if (param.inverted)
        std::swap(low, high);

    const std::unique_ptr<ListGenerator> generator = makeListGenerator(param, scale);
    if (!generator)
        return list;

    // 10^timeDecimals is worked out once: the same number every step would compute afresh.
    const std::vector<double> levels = generator->generate();
    const int count = static_cast<int>(levels.size());
    list.reserve(count);
    for (int i = 0; i < count; ++i) {
        const double value = tarn::core::algorithm::unnormalize(levels[i], low, high);
        list.append(ListData(value, 0.0, generator->time(i) / scale));
    }
    return list;
}

QList<DelayerData> make_delayer_wave(const DelayerTemplateParam &param)
{
    QList<DelayerData> list;
    if (delayer_wave_step_count(param) > kMaxTemplateSteps)
        return list;

    const double scale = tickScale();
    const std::unique_ptr<DelayerGenerator> generator = makeDelayerGenerator(param, scale);
    if (!generator || !generator->isValid())
        return list;

    const std::vector<double> levels = generator->generate();
    const int count = static_cast<int>(levels.size());
    list.reserve(count);
    for (int i = 0; i < count; ++i)
        list.append(DelayerData(qFuzzyCompare(levels[i], 1.0), generator->time(i) / scale));
    return list;
}

} // namespace tarn2::specific::orvo5000::programmer

// The simulated supply's checks, playback and load model.
#include "supplyengine.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <memory>

namespace tarn::sim {

namespace {

QString number(double value)
{
    return QString::number(value, 'g', 12);
}

double roundTo(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

SupplyEngine::Clock steadyClock()
{
    auto timer = std::make_shared<QElapsedTimer>();
    timer->start();
    return [timer] {
        return timer->nsecsElapsed();
    };
}

} // namespace

SupplyEngine::SupplyEngine(InstrumentDescription description, Clock clock)
    : m_description(std::move(description))
    , m_clock(clock ? std::move(clock) : steadyClock())
{
    m_tickNs = static_cast<qint64>(std::llround(std::pow(10.0, 9 - m_description.timeDecimals)));
    reset();
}

void SupplyEngine::setSpeed(double factor)
{
    if (std::isfinite(factor) && factor > 0.0)
        m_speed = factor;
}

void SupplyEngine::setLoad(double ohms)
{
    if (std::isfinite(ohms) && ohms > 0.0)
        m_load = ohms;
}

void SupplyEngine::reset()
{
    m_channels.clear();
    for (int i = 0; i < m_description.channels.size(); ++i)
        m_channels.append(makeChannel(i));
    m_selected = 0;
}

SupplyEngine::Channel SupplyEngine::makeChannel(int index) const
{
    Channel c;
    c.voltage = m_description.channels.at(index).voltage.min;
    c.current = m_description.channels.at(index).current.max;
    c.protection = {m_description.channels.at(index).voltage.max,
                    m_description.channels.at(index).current.max};
    return c;
}

bool SupplyEngine::selectChannel(int channel)
{
    if (channel < 0 || channel >= m_channels.size())
        return refuse(ScpiError::IllegalParameterValue,
                      QStringLiteral("no channel %1").arg(channel + 1));
    m_selected = channel;
    return true;
}

SupplyEngine::Channel *SupplyEngine::channelAt(int channel)
{
    if (channel < 0 || channel >= m_channels.size()) {
        refuse(ScpiError::IllegalParameterValue, QStringLiteral("no channel %1").arg(channel + 1));
        return nullptr;
    }
    // One instant per request, so that a run cannot end between two looks at it.
    m_now = m_clock();
    settle(channel);
    return &m_channels[channel];
}

bool SupplyEngine::refuse(ScpiError error, const QString &detail)
{
    m_errors.push(error, detail);
    return false;
}

QString SupplyEngine::modeName(SequenceMode mode) const
{
    return mode == SequenceMode::List ? QStringLiteral("list") : QStringLiteral("delayer");
}

bool SupplyEngine::setOutput(int channel, bool on)
{
    Channel *c = channelAt(channel);
    if (!c)
        return false;
    const bool running = c->runs[0].running || c->runs[1].running;
    if (on && running)
        return refuse(ScpiError::SettingsConflict, QStringLiteral("a sequence is running"));
    if (on && !checkNotTripped(*c, channel))
        return false;
    // Switching off is the way out of anything, so it also ends a run (without its end state).
    if (!on) {
        c->runs[0].running = false;
        c->runs[1].running = false;
    }
    c->output = on;
    watchProtection(channel);
    return true;
}

bool SupplyEngine::output(int channel)
{
    return effectiveOutput(channel).on;
}

bool SupplyEngine::setVoltage(int channel, double volts)
{
    return setSetpoint(channel, volts, true);
}

bool SupplyEngine::setCurrent(int channel, double amperes)
{
    return setSetpoint(channel, amperes, false);
}

bool SupplyEngine::setSetpoint(int channel, double value, bool voltage)
{
    Channel *c = channelAt(channel);
    if (!c)
        return false;
    // While the List plays, its steps are the set-points.
    if (c->runs[static_cast<int>(SequenceMode::List)].running)
        return refuse(ScpiError::SettingsConflict, QStringLiteral("the list is running"));
    double stored = 0.0;
    if (!checkChannelLevel(channel, voltage, value, voltage ? "voltage" : "current", &stored))
        return false;
    (voltage ? c->voltage : c->current) = stored;
    // A Delayer plays at the set-points, so a new one may bring a trip forward.
    watchProtection(channel);
    return true;
}

double SupplyEngine::voltageSetpoint(int channel) const
{
    return channelOrEmpty(channel).voltage;
}

double SupplyEngine::currentSetpoint(int channel) const
{
    return channelOrEmpty(channel).current;
}

SupplyEngine::Output SupplyEngine::effectiveOutput(int channel)
{
    const Channel *c = channelAt(channel);
    return c ? outputOf(*c) : Output{};
}

SupplyEngine::Output SupplyEngine::outputOf(const Channel &c) const
{
    const Run &list = c.runs[static_cast<int>(SequenceMode::List)];
    const Run &delayer = c.runs[static_cast<int>(SequenceMode::Delayer)];
    if (list.running) {
        const ListStep &step = c.list.at(position(list).step - 1);
        return {true, step.voltage, step.current};
    }
    if (delayer.running) {
        const DelayerStep &step = c.delayer.at(position(delayer).step - 1);
        return {step.on, c.voltage, c.current};
    }
    return {c.output, c.voltage, c.current};
}

// The output drives a resistor: it holds the voltage set-point while the load draws less than the
// current set-point, and the current set-point otherwise.
double SupplyEngine::measuredVoltage(int channel)
{
    const Output out = effectiveOutput(channel);
    if (!out.on)
        return 0.0;
    const double volts = out.voltage / m_load <= out.current ? out.voltage : out.current * m_load;
    return roundTo(volts, m_description.voltageDecimals);
}

double SupplyEngine::measuredCurrent(int channel)
{
    const Output out = effectiveOutput(channel);
    if (!out.on)
        return 0.0;
    const double amperes = std::min(out.voltage / m_load, out.current);
    return roundTo(amperes, m_description.currentDecimals);
}

double SupplyEngine::measuredPower(int channel)
{
    return measuredVoltage(channel) * measuredCurrent(channel);
}

bool SupplyEngine::exceedsProtection(const Channel &c,
                                     double volts,
                                     double amperes,
                                     Protection *which) const
{
    const double outVolts = volts / m_load <= amperes ? volts : amperes * m_load;
    const double outAmperes = std::min(volts / m_load, amperes);
    if (roundTo(outVolts, m_description.voltageDecimals)
        > c.protection[static_cast<int>(Protection::Voltage)]) {
        *which = Protection::Voltage;
        return true;
    }
    if (roundTo(outAmperes, m_description.currentDecimals)
        > c.protection[static_cast<int>(Protection::Current)]) {
        *which = Protection::Current;
        return true;
    }
    return false;
}

// The first instant, at `from` ticks into the run or later, at which a step of the running
// sequence would drive the output above a protection level; -1 when no step ever does. Steps
// repeat every cycle, so one pass over them from the step now playing decides it.
qint64
SupplyEngine::firstTrip(const Channel &c, SequenceMode mode, qint64 from, Protection *which) const
{
    const Run &r = c.runs[static_cast<int>(mode)];
    const int count = r.ends.size();
    const qint64 total = r.ends.last();
    const qint64 cycleStart = from - from % total;
    const int now = static_cast<int>(std::upper_bound(r.ends.cbegin(), r.ends.cend(), from % total)
                                     - r.ends.cbegin());
    for (int k = 0; k < count; ++k) {
        const int step = (now + k) % count;
        bool exceeds = false;
        if (mode == SequenceMode::List)
            exceeds = exceedsProtection(c, c.list.at(step).voltage, c.list.at(step).current, which);
        else
            exceeds = c.delayer.at(step).on && exceedsProtection(c, c.voltage, c.current, which);
        if (!exceeds)
            continue;
        if (k == 0)
            return from;
        return cycleStart + (now + k >= count ? total : 0) + (step > 0 ? r.ends.at(step - 1) : 0);
    }
    return -1;
}

// Called whenever the output, its set-points, a protection level or a run changes.
void SupplyEngine::watchProtection(int channel)
{
    Channel &c = m_channels[channel];
    for (SequenceMode mode : {SequenceMode::List, SequenceMode::Delayer}) {
        Run &r = c.runs[static_cast<int>(mode)];
        if (r.running)
            r.tripAt = firstTrip(c, mode, elapsedTicks(r), &r.tripKind);
    }
    checkSteadyOutput(channel);
    settle(channel);
}

void SupplyEngine::checkSteadyOutput(int channel)
{
    Channel &c = m_channels[channel];
    Protection which = Protection::Voltage;
    if (c.output && !c.runs[0].running && !c.runs[1].running
        && exceedsProtection(c, c.voltage, c.current, &which))
        trip(channel, which);
}

void SupplyEngine::trip(int channel, Protection which)
{
    Channel &c = m_channels[channel];
    c.runs[0].running = false;
    c.runs[1].running = false;
    c.output = false;
    c.tripped[static_cast<int>(which)] = true;
    refuse(ScpiError::DeviceSpecificError,
           QStringLiteral("%1 protection tripped on %2")
               .arg(which == Protection::Voltage ? QStringLiteral("over-voltage")
                                                 : QStringLiteral("over-current"),
                    m_description.channels.at(channel).name));
}

bool SupplyEngine::checkNotTripped(const Channel &c, int channel)
{
    if (!c.tripped[0] && !c.tripped[1])
        return true;
    return refuse(ScpiError::SettingsConflict,
                  QStringLiteral("protection tripped on %1; clear it with OUTP:PROT:CLE first")
                      .arg(m_description.channels.at(channel).name));
}

bool SupplyEngine::setProtectionLevel(int channel, Protection which, double level)
{
    Channel *c = channelAt(channel);
    if (!c)
        return false;
    const bool voltage = which == Protection::Voltage;
    double stored = 0.0;
    if (!checkChannelLevel(channel,
                           voltage,
                           level,
                           voltage ? "over-voltage protection" : "over-current protection",
                           &stored))
        return false;
    c->protection[static_cast<int>(which)] = stored;
    watchProtection(channel);
    return true;
}

double SupplyEngine::protectionLevel(int channel, Protection which) const
{
    return channelOrEmpty(channel).protection[static_cast<int>(which)];
}

bool SupplyEngine::protectionTripped(int channel, Protection which) const
{
    return channelOrEmpty(channel).tripped[static_cast<int>(which)];
}

bool SupplyEngine::clearProtection(int channel)
{
    Channel *c = channelAt(channel);
    if (!c)
        return false;
    c->tripped = {};
    return true;
}

void SupplyEngine::update()
{
    // Only a run changes with time; with none, the clock need not be read at all.
    const bool anyRunning
        = std::any_of(m_channels.cbegin(), m_channels.cend(), [](const Channel &c) {
              return c.runs[0].running || c.runs[1].running;
          });
    if (anyRunning)
        m_now = m_clock();
    quint16 operation = 0;
    quint16 questionable = 0;
    for (int i = 0; i < m_channels.size(); ++i) {
        if (anyRunning)
            settle(i);
        const Channel &c = m_channels.at(i);
        if (c.runs[static_cast<int>(SequenceMode::List)].running)
            operation |= StatusRegisters::ListRunning;
        if (c.runs[static_cast<int>(SequenceMode::Delayer)].running)
            operation |= StatusRegisters::DelayerRunning;
        const Output out = outputOf(c);
        if (out.on && out.voltage / m_load > out.current)
            operation |= StatusRegisters::ConstantCurrent;
        if (c.tripped[static_cast<int>(Protection::Voltage)])
            questionable |= StatusRegisters::OverVoltageTripped;
        if (c.tripped[static_cast<int>(Protection::Current)])
            questionable |= StatusRegisters::OverCurrentTripped;
    }
    m_status.operation.setCondition(operation);
    m_status.questionable.setCondition(questionable);
    m_status.raise(m_errors.takeRaisedEvents());
}

quint8 SupplyEngine::statusByte(bool messageAvailable)
{
    update();
    return m_status.statusByte(!m_errors.isEmpty(), messageAvailable);
}

void SupplyEngine::clearStatus()
{
    m_errors.clear();
    m_errors.takeRaisedEvents();
    m_status.clearEvents();
}

int SupplyEngine::selfTest() const
{
    qint64 now = 0;
    SupplyEngine scratch(m_description, [&now] { return now; });
    const ChannelDescription &range = m_description.channels.first();
    const double volts
        = roundTo((range.voltage.min + range.voltage.max) / 2, m_description.voltageDecimals);
    const double amperes = range.current.max;
    const double seconds = m_description.timeMin;
    const bool played = scratch.writeListStep(0, 1, volts, amperes, seconds)
                        && scratch.run(0, SequenceMode::List)
                        && scratch.playback(0, SequenceMode::List).step == 1 && scratch.output(0);
    now += static_cast<qint64>(std::ceil(seconds * 1e9)) + scratch.m_tickNs;
    const bool ended = !scratch.playback(0, SequenceMode::List).running && !scratch.output(0);
    return played && ended && scratch.errors().isEmpty() ? 0 : 1;
}

bool SupplyEngine::checkEditable(int channel, SequenceMode mode)
{
    Channel *c = channelAt(channel);
    if (!c)
        return false;
    if (c->runs[static_cast<int>(mode)].running)
        return refuse(ScpiError::SettingsConflict,
                      QStringLiteral("the %1 is running").arg(modeName(mode)));
    return true;
}

bool SupplyEngine::checkIndex(int count, int index)
{
    if (index == m_refusedStep && index > 0)
        return refuse(ScpiError::DataOutOfRange,
                      QStringLiteral("step %1 refused by fault injection").arg(index));
    if (index > m_description.maxCount)
        return refuse(ScpiError::TooMuchData,
                      QStringLiteral("step %1 is beyond the %2 steps a sequence holds")
                          .arg(index)
                          .arg(m_description.maxCount));
    if (index < 1 || index > count + 1)
        return refuse(
            ScpiError::DataOutOfRange,
            QStringLiteral("step %1 would leave a gap after step %2").arg(index).arg(count));
    return true;
}

bool SupplyEngine::checkLevel(
    double value, const Range &range, int decimals, const char *what, double *stored)
{
    const QString name = QLatin1String(what);
    if (!std::isfinite(value))
        return refuse(ScpiError::DataOutOfRange,
                      QStringLiteral("%1 is not a finite number").arg(name));
    const double rounded = roundTo(value, decimals);
    if (rounded < range.min || rounded > range.max)
        return refuse(ScpiError::DataOutOfRange,
                      QStringLiteral("%1 %2 is outside %3..%4")
                          .arg(name, number(value), number(range.min), number(range.max)));
    *stored = rounded;
    return true;
}

// A voltage or current level of the channel: within its range, stored at the instrument's decimals.
bool SupplyEngine::checkChannelLevel(
    int channel, bool voltage, double value, const char *what, double *stored)
{
    const ChannelDescription &ranges = m_description.channels.at(channel);
    return checkLevel(value,
                      voltage ? ranges.voltage : ranges.current,
                      voltage ? m_description.voltageDecimals : m_description.currentDecimals,
                      what,
                      stored);
}

bool SupplyEngine::checkTime(double seconds, qint64 *ticks)
{
    if (!std::isfinite(seconds))
        return refuse(ScpiError::DataOutOfRange, QStringLiteral("time is not a finite number"));
    if (seconds < m_description.timeMin * (1.0 - 1e-12)
        || seconds > m_description.timeMax * (1.0 + 1e-12))
        return refuse(ScpiError::DataOutOfRange,
                      QStringLiteral("time %1 is outside %2..%3")
                          .arg(number(seconds),
                               number(m_description.timeMin),
                               number(m_description.timeMax)));
    const double scaled = seconds * std::pow(10.0, m_description.timeDecimals);
    const double whole = std::round(scaled);
    if (std::abs(scaled - whole) > 1e-6 * std::max(1.0, std::abs(scaled) * 1e-6))
        return refuse(
            ScpiError::IllegalParameterValue,
            QStringLiteral("time %1 is not a multiple of %2 s")
                .arg(number(seconds), number(std::pow(10.0, -m_description.timeDecimals))));
    *ticks = static_cast<qint64>(whole);
    return true;
}

bool SupplyEngine::clearSequence(int channel, SequenceMode mode)
{
    if (!checkEditable(channel, mode))
        return false;
    Channel &c = m_channels[channel];
    if (mode == SequenceMode::List)
        c.list.clear();
    else
        c.delayer.clear();
    return true;
}

bool SupplyEngine::writeListStep(
    int channel, int index, double volts, double amperes, double seconds)
{
    if (!checkEditable(channel, SequenceMode::List))
        return false;
    Channel &c = m_channels[channel];
    const ChannelDescription &range = m_description.channels.at(channel);
    ListStep step;
    if (!checkIndex(c.list.size(), index)
        || !checkLevel(
            volts, range.voltage, m_description.voltageDecimals, "voltage", &step.voltage)
        || !checkLevel(
            amperes, range.current, m_description.currentDecimals, "current", &step.current)
        || !checkTime(seconds, &step.ticks))
        return false;
    if (index == m_alteredStep) {
        const double digit = std::pow(10.0, -m_description.currentDecimals);
        step.current = roundTo(step.current + digit <= range.current.max ? step.current + digit
                                                                         : step.current - digit,
                               m_description.currentDecimals);
    }
    if (index > c.list.size())
        c.list.append(step);
    else
        c.list[index - 1] = step;
    return true;
}

bool SupplyEngine::writeDelayerStep(int channel, int index, bool on, double seconds)
{
    if (!checkEditable(channel, SequenceMode::Delayer))
        return false;
    Channel &c = m_channels[channel];
    DelayerStep step;
    step.on = index == m_alteredStep ? !on : on;
    if (!checkIndex(c.delayer.size(), index) || !checkTime(seconds, &step.ticks))
        return false;
    if (index > c.delayer.size())
        c.delayer.append(step);
    else
        c.delayer[index - 1] = step;
    return true;
}

const SupplyEngine::Channel &SupplyEngine::channelOrEmpty(int channel) const
{
    static const Channel none;
    return channel >= 0 && channel < m_channels.size() ? m_channels.at(channel) : none;
}

const QVector<ListStep> &SupplyEngine::listSteps(int channel) const
{
    return channelOrEmpty(channel).list;
}

const QVector<DelayerStep> &SupplyEngine::delayerSteps(int channel) const
{
    return channelOrEmpty(channel).delayer;
}

int SupplyEngine::stepCount(int channel, SequenceMode mode) const
{
    return mode == SequenceMode::List ? listSteps(channel).size() : delayerSteps(channel).size();
}

bool SupplyEngine::setRepeat(int channel, SequenceMode mode, int count)
{
    if (!checkEditable(channel, mode))
        return false;
    if (count < 0 || count > maxRepeat)
        return refuse(ScpiError::DataOutOfRange,
                      QStringLiteral("repeat count %1 is outside 0..%2").arg(count).arg(maxRepeat));
    m_channels[channel].runs[static_cast<int>(mode)].repeat = count;
    return true;
}

int SupplyEngine::repeat(int channel, SequenceMode mode) const
{
    return channelOrEmpty(channel).runs[static_cast<int>(mode)].repeat;
}

bool SupplyEngine::setEndState(int channel, SequenceMode mode, EndState state)
{
    if (!checkEditable(channel, mode))
        return false;
    m_channels[channel].runs[static_cast<int>(mode)].end = state;
    return true;
}

EndState SupplyEngine::endState(int channel, SequenceMode mode) const
{
    return channelOrEmpty(channel).runs[static_cast<int>(mode)].end;
}

bool SupplyEngine::run(int channel, SequenceMode mode)
{
    Channel *c = channelAt(channel);
    if (!c)
        return false;
    const SequenceMode other
        = mode == SequenceMode::List ? SequenceMode::Delayer : SequenceMode::List;
    if (c->runs[static_cast<int>(other)].running)
        return refuse(ScpiError::SettingsConflict,
                      QStringLiteral("the %1 is running on %2")
                          .arg(modeName(other), m_description.channels.at(channel).name));
    if (stepCount(channel, mode) == 0)
        return refuse(ScpiError::SettingsConflict,
                      QStringLiteral("the %1 holds no steps").arg(modeName(mode)));
    if (!checkNotTripped(*c, channel))
        return false;
    Run &r = c->runs[static_cast<int>(mode)];
    r.ends.clear();
    qint64 sum = 0;
    if (mode == SequenceMode::List) {
        for (const ListStep &step : qAsConst(c->list))
            r.ends.append(sum += step.ticks);
    } else {
        for (const DelayerStep &step : qAsConst(c->delayer))
            r.ends.append(sum += step.ticks);
    }
    r.running = true;
    r.startNs = m_now;
    c->output = true;
    watchProtection(channel);
    return true;
}

bool SupplyEngine::stop(int channel, SequenceMode mode)
{
    Channel *c = channelAt(channel);
    if (!c)
        return false;
    if (c->runs[static_cast<int>(mode)].running)
        finish(*c, mode);
    return true;
}

qint64 SupplyEngine::elapsedTicks(const Run &run) const
{
    const double sequenceNs = static_cast<double>(m_now - run.startNs) * m_speed;
    return static_cast<qint64>(std::floor(sequenceNs / static_cast<double>(m_tickNs)));
}

void SupplyEngine::settle(int channel)
{
    Channel &c = m_channels[channel];
    for (SequenceMode mode : {SequenceMode::List, SequenceMode::Delayer}) {
        const Run &r = c.runs[static_cast<int>(mode)];
        if (!r.running)
            continue;
        const qint64 elapsed = elapsedTicks(r);
        const qint64 total = r.ends.last();
        // A trip inside the last cycle still comes before the end.
        if (r.tripAt >= 0 && r.tripAt <= elapsed
            && (r.repeat == 0 || r.tripAt / total < r.repeat)) {
            trip(channel, r.tripKind);
            return;
        }
        if (r.repeat > 0 && elapsed / total >= r.repeat) {
            finish(c, mode);
            checkSteadyOutput(channel);
        }
    }
}

void SupplyEngine::finish(Channel &c, SequenceMode mode)
{
    Run &r = c.runs[static_cast<int>(mode)];
    r.running = false;
    switch (r.end) {
    case EndState::Off:
        c.output = false;
        break;
    case EndState::On:
        c.output = true;
        break;
    case EndState::Last:
        if (mode == SequenceMode::List) {
            c.output = true;
            c.voltage = c.list.last().voltage;
            c.current = c.list.last().current;
        } else {
            c.output = c.delayer.last().on;
        }
        break;
    }
}

Playback SupplyEngine::playback(int channel, SequenceMode mode)
{
    const Channel *c = channelAt(channel);
    if (!c || !c->runs[static_cast<int>(mode)].running)
        return {};
    return position(c->runs[static_cast<int>(mode)]);
}

Playback SupplyEngine::position(const Run &r) const
{
    const qint64 elapsed = elapsedTicks(r);
    const qint64 total = r.ends.last();
    const qint64 within = elapsed % total;
    Playback p;
    p.running = true;
    p.step = static_cast<int>(std::upper_bound(r.ends.cbegin(), r.ends.cend(), within)
                              - r.ends.cbegin())
             + 1;
    p.cycle = elapsed / total + 1;
    p.elapsed = seconds(elapsed);
    return p;
}

double SupplyEngine::seconds(qint64 ticks) const
{
    return roundTo(static_cast<double>(ticks) / std::pow(10.0, m_description.timeDecimals),
                   m_description.timeDecimals);
}

} // namespace tarn::sim

// The command table of the simulated supply and the reading of its parameters.
#include "commandinterpreter.h"

#include "supplyengine.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarn::sim {

namespace {

// What a command handler returns: an empty answer when it did its work, nothing when it failed.
std::optional<QByteArray> done(bool ok)
{
    return ok ? std::optional<QByteArray>(QByteArray()) : std::nullopt;
}

QByteArray unquoted(const QByteArray &text)
{
    if (text.size() >= 2 && (text.startsWith('"') || text.startsWith('\''))
        && text.endsWith(text.at(0)))
        return text.mid(1, text.size() - 2);
    return text;
}

QByteArray endStateWord(EndState state)
{
    switch (state) {
    case EndState::Off:
        return "OFF";
    case EndState::On:
        return "ON";
    case EndState::Last:
        return "LAST";
    }
    return "OFF";
}

// The value MIN, MAX or DEF (in their short or long forms) stands for, if the word is one of them.
std::optional<double> boundWord(const QByteArray &argument, const CommandInterpreter::Bounds &b)
{
    const QByteArray word = argument.toUpper();
    if (word == "MIN" || word == "MINIMUM")
        return b.min;
    if (word == "MAX" || word == "MAXIMUM")
        return b.max;
    if (word == "DEF" || word == "DEFAULT")
        return b.def;
    return std::nullopt;
}

QByteArray fixed(double value, int decimals)
{
    return QByteArray::number(value, 'f', decimals);
}

} // namespace

CommandInterpreter::CommandInterpreter(SupplyEngine *engine)
    : m_engine(engine)
{
    // Commands are looked up in this order, so the busiest come first.
    addCommon();
    addChannel();
    addSequence(static_cast<int>(SequenceMode::List));
    addSequence(static_cast<int>(SequenceMode::Delayer));
    if (engine->description().listArrays.used())
        addListArrays();
    addStatus();
}

CommandInterpreter::~CommandInterpreter() = default;

void CommandInterpreter::add(
    const QByteArray &pattern, bool query, int minArguments, int maxArguments, Handler handler)
{
    m_entries.append({scpi::HeaderPattern(pattern.constData()),
                      query,
                      minArguments,
                      maxArguments,
                      std::move(handler)});
}

std::optional<QByteArray> CommandInterpreter::execute(const QByteArray &line)
{
    std::optional<QByteArray> reply;
    for (const QByteArray &command : scpi::splitMessage(line)) {
        m_replyWaiting = reply.has_value();
        const std::optional<QByteArray> answer = executeOne(command);
        m_engine->update();
        if (!answer)
            continue;
        if (reply)
            *reply += ';' + *answer;
        else
            reply = answer;
    }
    return reply;
}

std::optional<QByteArray> CommandInterpreter::executeOne(const QByteArray &text)
{
    ScpiError error = ScpiError::None;
    const std::optional<ScpiCommand> command = scpi::parseCommand(text, &error);
    if (!command) {
        m_engine->errors().push(error);
        return std::nullopt;
    }
    const QList<QByteArray> nodes = scpi::HeaderPattern::nodesOf(command->header);
    for (const Entry &entry : qAsConst(m_entries)) {
        if (entry.query != command->query || !entry.pattern.matches(nodes))
            continue;
        const int count = command->parameters.size();
        if (count < entry.minArguments) {
            m_engine->errors().push(ScpiError::MissingParameter);
            return std::nullopt;
        }
        if (count > entry.maxArguments) {
            m_engine->errors().push(ScpiError::ParameterNotAllowed);
            return std::nullopt;
        }
        const std::optional<QByteArray> answer = entry.handler(command->parameters);
        return entry.query ? answer : std::nullopt;
    }
    m_engine->errors().push(ScpiError::UndefinedHeader);
    return std::nullopt;
}

std::optional<double>
CommandInterpreter::number(const QByteArray &argument, char unit, const Bounds *bounds)
{
    if (bounds) {
        if (const std::optional<double> value = boundWord(argument, *bounds))
            return value;
    }
    const std::optional<double> value = scpi::parseNumber(argument, unit);
    if (!value)
        m_engine->errors().push(ScpiError::DataTypeError);
    return value;
}

std::optional<int> CommandInterpreter::integer(const QByteArray &argument, const Bounds *bounds)
{
    const std::optional<double> value = number(argument, 0, bounds);
    if (!value)
        return std::nullopt;
    if (!std::isfinite(*value) || *value != std::floor(*value)
        || std::abs(*value) > std::numeric_limits<int>::max()) {
        m_engine->errors().push(ScpiError::IllegalParameterValue,
                                QStringLiteral("expected a whole number"));
        return std::nullopt;
    }
    return static_cast<int>(*value);
}

std::optional<bool> CommandInterpreter::boolean(const QByteArray &argument)
{
    const QByteArray word = argument.toUpper();
    if (word == "ON" || word == "1")
        return true;
    if (word == "OFF" || word == "0")
        return false;
    m_engine->errors().push(ScpiError::IllegalParameterValue, QStringLiteral("expected ON or OFF"));
    return std::nullopt;
}

// A query's optional MIN, MAX or DEF: the value it names, or nothing (and an error) for any other
// word. Without a parameter the caller answers the present value.
std::optional<double> CommandInterpreter::boundQuery(const Arguments &arguments,
                                                     const Bounds &bounds)
{
    if (const std::optional<double> value = boundWord(arguments.at(0), bounds))
        return value;
    m_engine->errors().push(ScpiError::IllegalParameterValue,
                            QStringLiteral("expected MIN, MAX or DEF"));
    return std::nullopt;
}

CommandInterpreter::Bounds CommandInterpreter::voltageBounds() const
{
    const Range &r = m_engine->description().channels.at(m_engine->selectedChannel()).voltage;
    return {r.min, r.max, r.min};
}

CommandInterpreter::Bounds CommandInterpreter::currentBounds() const
{
    const Range &r = m_engine->description().channels.at(m_engine->selectedChannel()).current;
    return {r.min, r.max, r.max};
}

CommandInterpreter::Bounds CommandInterpreter::timeBounds() const
{
    const InstrumentDescription &d = m_engine->description();
    return {d.timeMin, d.timeMax, std::clamp(1.0, d.timeMin, d.timeMax)};
}

CommandInterpreter::Bounds CommandInterpreter::indexBounds() const
{
    return {1, static_cast<double>(m_engine->description().maxCount), 1};
}

QByteArray CommandInterpreter::volts(double value) const
{
    return QByteArray::number(value, 'f', m_engine->description().voltageDecimals);
}

QByteArray CommandInterpreter::amperes(double value) const
{
    return QByteArray::number(value, 'f', m_engine->description().currentDecimals);
}

QByteArray CommandInterpreter::seconds(double value) const
{
    return QByteArray::number(value, 'f', m_engine->description().timeDecimals);
}

void CommandInterpreter::addCommon()
{
    SupplyEngine *engine = m_engine;
    add("*IDN", true, 0, 0, [engine](const Arguments &) {
        return engine->description().identity().toUtf8();
    });
    add("*RST", false, 0, 0, [engine](const Arguments &) {
        engine->reset();
        return QByteArray();
    });
    add("*CLS", false, 0, 0, [engine](const Arguments &) {
        engine->clearStatus();
        return QByteArray();
    });
    // Commands complete as they are parsed, so the operation is always complete: *OPC sets its
    // bit at once and *WAI has nothing to wait for.
    add("*OPC", true, 0, 0, [](const Arguments &) { return QByteArray("1"); });
    add("*OPC", false, 0, 0, [engine](const Arguments &) {
        engine->status().raise(StatusRegisters::OperationComplete);
        return QByteArray();
    });
    add("*WAI", false, 0, 0, [](const Arguments &) { return QByteArray(); });
    add("*TST", true, 0, 0, [engine](const Arguments &) {
        return QByteArray::number(engine->selfTest());
    });
    add("SYSTem:VERSion", true, 0, 0, [](const Arguments &) { return QByteArray("1999.0"); });
    add("SYSTem:ERRor[:NEXT]", true, 0, 0, [engine](const Arguments &) {
        return ErrorQueue::format(engine->errors().pop()).toUtf8();
    });
    add("SYSTem:ERRor:COUNt", true, 0, 0, [engine](const Arguments &) {
        return QByteArray::number(engine->errors().size());
    });
}

void CommandInterpreter::addStatus()
{
    SupplyEngine *engine = m_engine;
    const Bounds byte{0, 255, 0};
    // A mask is a decimal number rounded to a whole one, as the standard has it; the bits in
    // `ignored` are kept 0 whatever is sent.
    auto addEnable
        = [this](const QByteArray &pattern, Bounds bounds, auto target, int ignored = 0) {
              add(pattern, false, 1, 1, [this, bounds, target, ignored](const Arguments &a) {
                  const std::optional<double> value = number(a.at(0), 0, &bounds);
                  if (!value)
                      return std::optional<QByteArray>();
                  const double mask = std::round(*value);
                  if (!(mask >= bounds.min && mask <= bounds.max)) {
                      m_engine->errors().push(ScpiError::DataOutOfRange,
                                              QStringLiteral("mask %1 is outside %2..%3")
                                                  .arg(*value)
                                                  .arg(bounds.min)
                                                  .arg(bounds.max));
                      return std::optional<QByteArray>();
                  }
                  target() = static_cast<std::remove_reference_t<decltype(target())>>(
                      static_cast<int>(mask) & ~ignored);
                  return std::optional<QByteArray>(QByteArray());
              });
              add(pattern, true, 0, 0, [target](const Arguments &) {
                  return QByteArray::number(target());
              });
          };
    addEnable("*ESE", byte, [engine]() -> quint8 & { return engine->status().eventEnable; });
    // The master summary cannot summarise itself: bit 6 of *SRE is ignored.
    addEnable(
        "*SRE",
        byte,
        [engine]() -> quint8 & { return engine->status().serviceRequestEnable; },
        StatusRegisters::MasterSummary);
    add("*ESR", true, 0, 0, [engine](const Arguments &) {
        engine->update();
        return QByteArray::number(engine->status().takeEvents());
    });
    add("*STB", true, 0, 0, [this, engine](const Arguments &) {
        return QByteArray::number(engine->statusByte(m_replyWaiting));
    });
    // A register takes 16 bits, and its bit 15 is always 0.
    const Bounds word{0, 65535, 0};
    for (const QByteArray &name : {QByteArray("OPERation"), QByteArray("QUEStionable")}) {
        const bool operation = name == "OPERation";
        auto reg = [engine, operation]() -> StatusRegister & {
            return operation ? engine->status().operation : engine->status().questionable;
        };
        add("STATus:" + name + "[:EVENt]", true, 0, 0, [engine, reg](const Arguments &) {
            engine->update();
            return QByteArray::number(reg().takeEvent());
        });
        add("STATus:" + name + ":CONDition", true, 0, 0, [engine, reg](const Arguments &) {
            engine->update();
            return QByteArray::number(reg().condition);
        });
        addEnable(
            "STATus:" + name + ":ENABle",
            word,
            [reg]() -> quint16 & { return reg().enable; },
            0x8000);
    }
    add("STATus:PRESet", false, 0, 0, [engine](const Arguments &) {
        engine->status().preset();
        return QByteArray();
    });
}

void CommandInterpreter::addLevel(const QByteArray &pattern,
                                  char unit,
                                  const std::function<Bounds()> &bounds,
                                  const std::function<double()> &get,
                                  const std::function<bool(double)> &set,
                                  int decimals)
{
    add(pattern, false, 1, 1, [this, unit, bounds, set](const Arguments &a) {
        const Bounds b = bounds();
        const std::optional<double> value = number(a.at(0), unit, &b);
        return done(value && set(*value));
    });
    add(pattern, true, 0, 1, [this, bounds, get, decimals](const Arguments &a) {
        if (a.isEmpty())
            return std::optional<QByteArray>(fixed(get(), decimals));
        const std::optional<double> value = boundQuery(a, bounds());
        return value ? std::optional<QByteArray>(fixed(*value, decimals)) : std::nullopt;
    });
}

void CommandInterpreter::addChannel()
{
    SupplyEngine *engine = m_engine;
    add("INSTrument[:SELect]",
        false,
        1,
        1,
        [engine](const Arguments &a) -> std::optional<QByteArray> {
            const QString name = QString::fromUtf8(unquoted(a.at(0)));
            const auto &channels = engine->description().channels;
            for (int i = 0; i < channels.size(); ++i) {
                if (channels.at(i).name.compare(name, Qt::CaseInsensitive) == 0) {
                    engine->selectChannel(i);
                    return QByteArray();
                }
            }
            engine->errors().push(ScpiError::IllegalParameterValue,
                                  QStringLiteral("no channel named %1").arg(name.left(32)));
            return std::nullopt;
        });
    add("INSTrument[:SELect]", true, 0, 0, [engine](const Arguments &) {
        return engine->description().channels.at(engine->selectedChannel()).name.toUtf8();
    });
    add("INSTrument:NSELect",
        false,
        1,
        1,
        [this, engine](const Arguments &a) -> std::optional<QByteArray> {
            const Bounds channels{1, static_cast<double>(engine->channelCount()), 1};
            const std::optional<int> n = integer(a.at(0), &channels);
            return done(n && engine->selectChannel(*n - 1));
        });
    add("INSTrument:NSELect", true, 0, 0, [engine](const Arguments &) {
        return QByteArray::number(engine->selectedChannel() + 1);
    });
    add("INSTrument:CATalog", true, 0, 0, [engine](const Arguments &) {
        QByteArrayList names;
        for (const ChannelDescription &c : engine->description().channels)
            names.append('"' + c.name.toUtf8() + '"');
        return names.join(',');
    });
    add("OUTPut[:STATe]",
        false,
        1,
        1,
        [this, engine](const Arguments &a) -> std::optional<QByteArray> {
            const std::optional<bool> on = boolean(a.at(0));
            return done(on && engine->setOutput(engine->selectedChannel(), *on));
        });
    add("OUTPut[:STATe]", true, 0, 0, [engine](const Arguments &) {
        return QByteArray(engine->output(engine->selectedChannel()) ? "1" : "0");
    });
    const int vDecimals = engine->description().voltageDecimals;
    const int cDecimals = engine->description().currentDecimals;
    auto channel = [engine] {
        return engine->selectedChannel();
    };
    addLevel(
        "[SOURce]:VOLTage[:LEVel]",
        'V',
        [this] { return voltageBounds(); },
        [engine, channel] { return engine->voltageSetpoint(channel()); },
        [engine, channel](double v) { return engine->setVoltage(channel(), v); },
        vDecimals);
    addLevel(
        "[SOURce]:CURRent[:LEVel]",
        'A',
        [this] { return currentBounds(); },
        [engine, channel] { return engine->currentSetpoint(channel()); },
        [engine, channel](double c) { return engine->setCurrent(channel(), c); },
        cDecimals);
    add("MEASure[:SCALar]:VOLTage[:DC]", true, 0, 0, [this, engine](const Arguments &) {
        return volts(engine->measuredVoltage(engine->selectedChannel()));
    });
    add("MEASure[:SCALar]:CURRent[:DC]", true, 0, 0, [this, engine](const Arguments &) {
        return amperes(engine->measuredCurrent(engine->selectedChannel()));
    });
    add("MEASure[:SCALar]:POWer[:DC]",
        true,
        0,
        0,
        [engine, vDecimals, cDecimals](const Arguments &) {
            return fixed(engine->measuredPower(engine->selectedChannel()),
                         std::max(vDecimals, cDecimals));
        });
    for (const Protection which : {Protection::Voltage, Protection::Current}) {
        const bool voltage = which == Protection::Voltage;
        const QByteArray node
            = voltage ? "[SOURce]:VOLTage:PROTection" : "[SOURce]:CURRent:PROTection";
        addLevel(
            node + "[:LEVel]",
            voltage ? 'V' : 'A',
            [this, voltage] {
                Bounds b = voltage ? voltageBounds() : currentBounds();
                b.def = b.max;
                return b;
            },
            [engine, channel, which] { return engine->protectionLevel(channel(), which); },
            [engine, channel, which](double level) {
                return engine->setProtectionLevel(channel(), which, level);
            },
            voltage ? vDecimals : cDecimals);
        add(node + ":TRIPped", true, 0, 0, [engine, channel, which](const Arguments &) {
            return QByteArray(engine->protectionTripped(channel(), which) ? "1" : "0");
        });
    }
    add("OUTPut:PROTection:CLEar", false, 0, 0, [engine, channel](const Arguments &) {
        return done(engine->clearProtection(channel()));
    });
}

void CommandInterpreter::addSequence(int modeIndex)
{
    SupplyEngine *engine = m_engine;
    const auto mode = static_cast<SequenceMode>(modeIndex);
    const bool list = mode == SequenceMode::List;
    auto pattern = [list](const char *node) {
        return QByteArray(list ? "LIST:" : "DELayer:") + node;
    };
    auto channel = [engine] {
        return engine->selectedChannel();
    };

    const bool arrays = list && engine->description().listArrays.used();
    add(pattern("CLEar"),
        false,
        0,
        0,
        [this, engine, mode, channel, arrays](const Arguments &) -> std::optional<QByteArray> {
            if (arrays && m_arrays.size() > channel() * 3)
                for (int quantity = 0; quantity < 3; ++quantity)
                    m_arrays[channel() * 3 + quantity].clear();
            return done(engine->clearSequence(channel(), mode));
        });
    // An instrument that takes Lists as arrays has no List step command.
    if (list && !arrays) {
        add(pattern("STEP"),
            false,
            4,
            4,
            [this, engine, channel](const Arguments &a) -> std::optional<QByteArray> {
                const Bounds indexes = indexBounds();
                const std::optional<int> index = integer(a.at(0), &indexes);
                if (!index)
                    return std::nullopt;
                const Bounds voltages = voltageBounds();
                const std::optional<double> v = number(a.at(1), 'V', &voltages);
                if (!v)
                    return std::nullopt;
                const Bounds currents = currentBounds();
                const std::optional<double> c = number(a.at(2), 'A', &currents);
                if (!c)
                    return std::nullopt;
                const Bounds times = timeBounds();
                const std::optional<double> t = number(a.at(3), 'S', &times);
                return done(t && engine->writeListStep(channel(), *index, *v, *c, *t));
            });
    } else if (!list) {
        add(pattern("STEP"),
            false,
            3,
            3,
            [this, engine, channel](const Arguments &a) -> std::optional<QByteArray> {
                const Bounds indexes = indexBounds();
                const std::optional<int> index = integer(a.at(0), &indexes);
                if (!index)
                    return std::nullopt;
                const std::optional<bool> on = boolean(a.at(1));
                if (!on)
                    return std::nullopt;
                const Bounds times = timeBounds();
                const std::optional<double> t = number(a.at(2), 'S', &times);
                return done(t && engine->writeDelayerStep(channel(), *index, *on, *t));
            });
    }
    auto stepText = [this, engine, list, channel](int i) {
        if (list) {
            const ListStep &s = engine->listSteps(channel()).at(i);
            return volts(s.voltage) + ',' + amperes(s.current) + ','
                   + seconds(engine->seconds(s.ticks));
        }
        const DelayerStep &s = engine->delayerSteps(channel()).at(i);
        return QByteArray(s.on ? "1," : "0,") + seconds(engine->seconds(s.ticks));
    };
    add(pattern("STEP"),
        true,
        1,
        1,
        [this, engine, mode, channel, stepText](const Arguments &a) -> std::optional<QByteArray> {
            const std::optional<int> index = integer(a.at(0));
            if (!index)
                return std::nullopt;
            if (*index < 1 || *index > engine->stepCount(channel(), mode)) {
                engine->errors().push(ScpiError::DataOutOfRange,
                                      QStringLiteral("no step %1").arg(*index));
                return std::nullopt;
            }
            return stepText(*index - 1);
        });
    // Nor does it read a List back in one line.
    if (!arrays)
        add(pattern("DATA"), true, 0, 0, [engine, mode, channel, stepText](const Arguments &) {
            const int count = engine->stepCount(channel(), mode);
            QByteArray all;
            all.reserve(count * 24);
            for (int i = 0; i < count; ++i) {
                if (i > 0)
                    all += ',';
                all += stepText(i);
            }
            return all;
        });
    add(pattern("COUNt"), true, 0, 0, [engine, mode, channel](const Arguments &) {
        return QByteArray::number(engine->stepCount(channel(), mode));
    });
    add(pattern("REPeat"),
        false,
        1,
        1,
        [this, engine, mode, channel](const Arguments &a) -> std::optional<QByteArray> {
            const QByteArray word = a.at(0).toUpper();
            const Bounds counts{1, SupplyEngine::maxRepeat, 1};
            std::optional<int> count;
            if (word == "INF" || word == "INFINITY")
                count = 0;
            else
                count = integer(a.at(0), &counts);
            return done(count && engine->setRepeat(channel(), mode, *count));
        });
    add(pattern("REPeat"), true, 0, 0, [engine, mode, channel](const Arguments &) {
        const int count = engine->repeat(channel(), mode);
        return count == 0 ? QByteArray("INF") : QByteArray::number(count);
    });
    add(pattern("END"),
        false,
        1,
        1,
        [engine, mode, channel](const Arguments &a) -> std::optional<QByteArray> {
            const QByteArray word = a.at(0).toUpper();
            std::optional<EndState> state;
            if (word == "OFF")
                state = EndState::Off;
            else if (word == "ON")
                state = EndState::On;
            else if (word == "LAST")
                state = EndState::Last;
            if (!state) {
                engine->errors().push(ScpiError::IllegalParameterValue,
                                      QStringLiteral("expected OFF, ON or LAST"));
                return std::nullopt;
            }
            return done(engine->setEndState(channel(), mode, *state));
        });
    add(pattern("END"), true, 0, 0, [engine, mode, channel](const Arguments &) {
        return endStateWord(engine->endState(channel(), mode));
    });
    add(pattern("RUN"),
        false,
        0,
        0,
        [engine, mode, channel](const Arguments &) -> std::optional<QByteArray> {
            return done(engine->run(channel(), mode));
        });
    add(pattern("STOP"),
        false,
        0,
        0,
        [engine, mode, channel](const Arguments &) -> std::optional<QByteArray> {
            return done(engine->stop(channel(), mode));
        });
    add(pattern("STATe"), true, 0, 0, [engine, mode, channel](const Arguments &) {
        return QByteArray(engine->playback(channel(), mode).running ? "RUN" : "STOP");
    });
    add(pattern("POSition"), true, 0, 0, [this, engine, mode, channel](const Arguments &) {
        const Playback p = engine->playback(channel(), mode);
        return QByteArray::number(p.step) + ',' + QByteArray::number(p.cycle) + ','
               + seconds(p.elapsed);
    });
}

namespace {

// The header of a description's word: what comes before its parameters, without a query's '?'.
QByteArray headerOf(const QString &word)
{
    QByteArray header = word.section(QLatin1Char(' '), 0, 0).toUtf8();
    if (header.endsWith('?'))
        header.chop(1);
    return header;
}

} // namespace

void CommandInterpreter::addListArrays()
{
    SupplyEngine *engine = m_engine;
    const ListArrays &words = engine->description().listArrays;
    const QString *write[3] = {&words.writeVoltage, &words.writeCurrent, &words.writeTime};
    const QString *append[3] = {&words.appendVoltage, &words.appendCurrent, &words.appendTime};
    const QString *read[3] = {&words.readVoltage, &words.readCurrent, &words.readTime};
    for (int quantity = 0; quantity < 3; ++quantity) {
        add(headerOf(*write[quantity]),
            false,
            1,
            words.maxValues,
            [this, quantity](const Arguments &a) { return done(writeArray(quantity, a, false)); });
        add(headerOf(*append[quantity]),
            false,
            1,
            words.maxValues,
            [this, quantity](const Arguments &a) { return done(writeArray(quantity, a, true)); });
        add(headerOf(*read[quantity]),
            true,
            2,
            2,
            [this, engine, quantity](const Arguments &a) -> std::optional<QByteArray> {
                const std::optional<int> first = integer(a.at(0));
                const std::optional<int> count = first ? integer(a.at(1)) : std::nullopt;
                if (!count)
                    return std::nullopt;
                const QVector<ListStep> &steps = engine->listSteps(engine->selectedChannel());
                const int most = engine->description().listArrays.maxValues;
                if (*first < 1 || *count < 1 || *count > most
                    || *first - 1 > steps.size() - *count) {
                    engine->errors().push(ScpiError::DataOutOfRange,
                                          QStringLiteral("no steps %1 to %2 (it holds %3; at most "
                                                         "%4 at once)")
                                              .arg(*first)
                                              .arg(*first + *count - 1)
                                              .arg(steps.size())
                                              .arg(most));
                    return std::nullopt;
                }
                QByteArray values;
                for (int i = *first - 1; i < *first - 1 + *count; ++i) {
                    if (!values.isEmpty())
                        values += ',';
                    const ListStep &s = steps.at(i);
                    values += quantity == 0   ? volts(s.voltage)
                              : quantity == 1 ? amperes(s.current)
                                              : seconds(engine->seconds(s.ticks));
                }
                return values;
            });
    }
}

bool CommandInterpreter::writeArray(int quantity, const Arguments &arguments, bool append)
{
    const int channel = m_engine->selectedChannel();
    if (m_arrays.size() < (channel + 1) * 3)
        m_arrays.resize((channel + 1) * 3);
    const Bounds bounds[3] = {voltageBounds(), currentBounds(), timeBounds()};
    const char units[3] = {'V', 'A', 'S'};
    QVector<double> values;
    values.reserve(arguments.size());
    // The command is taken or refused whole.
    for (const QByteArray &argument : arguments) {
        const std::optional<double> value = number(argument, units[quantity], &bounds[quantity]);
        if (!value)
            return false;
        values.append(*value);
    }
    QVector<double> &array = m_arrays[channel * 3 + quantity];
    if (array.size() + values.size() > m_engine->description().maxCount) {
        m_engine->errors().push(
            ScpiError::DataOutOfRange,
            QStringLiteral("more than %1 steps").arg(m_engine->description().maxCount));
        return false;
    }
    if (!append) {
        array.clear();
        if (!m_engine->clearSequence(channel, SequenceMode::List))
            return false;
    }
    const int before = array.size();
    array += values;
    // A replaced array has emptied the List; it holds again what all three arrays hold.
    const QVector<double> *all = &m_arrays[channel * 3];
    const int complete = static_cast<int>(std::min({all[0].size(), all[1].size(), all[2].size()}));
    for (int i = m_engine->stepCount(channel, SequenceMode::List); i < complete; ++i) {
        if (!m_engine->writeListStep(channel, i + 1, all[0].at(i), all[1].at(i), all[2].at(i))) {
            array.resize(before);
            return false;
        }
    }
    return true;
}

} // namespace tarn::sim

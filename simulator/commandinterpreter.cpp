// The command table of the simulated supply and the reading of its parameters.
#include "commandinterpreter.h"

#include "supplyengine.h"

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

} // namespace

CommandInterpreter::CommandInterpreter(SupplyEngine *engine)
    : m_engine(engine)
{
    addCommon();
    addChannel();
    addSequence(static_cast<int>(SequenceMode::List));
    addSequence(static_cast<int>(SequenceMode::Delayer));
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
        const std::optional<QByteArray> answer = executeOne(command);
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

std::optional<double> CommandInterpreter::number(const QByteArray &argument, char unit)
{
    const std::optional<double> value = scpi::parseNumber(argument, unit);
    if (!value)
        m_engine->errors().push(ScpiError::DataTypeError);
    return value;
}

std::optional<int> CommandInterpreter::integer(const QByteArray &argument)
{
    const std::optional<double> value = number(argument);
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
        engine->errors().clear();
        return QByteArray();
    });
    // Commands complete as they are parsed, so the operation is always complete.
    add("*OPC", true, 0, 0, [](const Arguments &) { return QByteArray("1"); });
    add("*OPC", false, 0, 0, [](const Arguments &) { return QByteArray(); });
    add("SYSTem:ERRor[:NEXT]", true, 0, 0, [engine](const Arguments &) {
        return ErrorQueue::format(engine->errors().pop()).toUtf8();
    });
    add("SYSTem:ERRor:COUNt", true, 0, 0, [engine](const Arguments &) {
        return QByteArray::number(engine->errors().size());
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
            const std::optional<int> n = integer(a.at(0));
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
    add("[SOURce]:VOLTage[:LEVel]",
        false,
        1,
        1,
        [this, engine](const Arguments &a) -> std::optional<QByteArray> {
            const std::optional<double> v = number(a.at(0), 'V');
            return done(v && engine->setVoltage(engine->selectedChannel(), *v));
        });
    add("[SOURce]:VOLTage[:LEVel]", true, 0, 0, [this, engine](const Arguments &) {
        return volts(engine->voltageSetpoint(engine->selectedChannel()));
    });
    add("[SOURce]:CURRent[:LEVel]",
        false,
        1,
        1,
        [this, engine](const Arguments &a) -> std::optional<QByteArray> {
            const std::optional<double> c = number(a.at(0), 'A');
            return done(c && engine->setCurrent(engine->selectedChannel(), *c));
        });
    add("[SOURce]:CURRent[:LEVel]", true, 0, 0, [this, engine](const Arguments &) {
        return amperes(engine->currentSetpoint(engine->selectedChannel()));
    });
    add("MEASure[:SCALar]:VOLTage[:DC]", true, 0, 0, [this, engine](const Arguments &) {
        return volts(engine->measuredVoltage(engine->selectedChannel()));
    });
    add("MEASure[:SCALar]:CURRent[:DC]", true, 0, 0, [this, engine](const Arguments &) {
        return amperes(engine->measuredCurrent(engine->selectedChannel()));
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

    add(pattern("CLEar"),
        false,
        0,
        0,
        [engine, mode, channel](const Arguments &) -> std::optional<QByteArray> {
            return done(engine->clearSequence(channel(), mode));
        });
    if (list) {
        add(pattern("STEP"),
            false,
            4,
            4,
            [this, engine, channel](const Arguments &a) -> std::optional<QByteArray> {
                const std::optional<int> index = integer(a.at(0));
                if (!index)
                    return std::nullopt;
                const std::optional<double> v = number(a.at(1), 'V');
                if (!v)
                    return std::nullopt;
                const std::optional<double> c = number(a.at(2), 'A');
                if (!c)
                    return std::nullopt;
                const std::optional<double> t = number(a.at(3), 'S');
                return done(t && engine->writeListStep(channel(), *index, *v, *c, *t));
            });
    } else {
        add(pattern("STEP"),
            false,
            3,
            3,
            [this, engine, channel](const Arguments &a) -> std::optional<QByteArray> {
                const std::optional<int> index = integer(a.at(0));
                if (!index)
                    return std::nullopt;
                const std::optional<bool> on = boolean(a.at(1));
                if (!on)
                    return std::nullopt;
                const std::optional<double> t = number(a.at(2), 'S');
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
            std::optional<int> count;
            if (word == "INF" || word == "INFINITY")
                count = 0;
            else
                count = integer(a.at(0));
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

} // namespace tarn::sim

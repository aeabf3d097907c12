// generate: a sequence file from one of the dialog's templates, with its parameters and limits.
#include "commandline.h"
#include "reporter.h"

#include <helper.h>
#include <instrumentoption.h>
#include <sequencebuilder.h>
#include <sequencefile.h>

#include <character.h>

namespace tarn::cli {

using namespace tarn2::specific::orvo5000::programmer;

namespace {

struct TemplateName
{
    const char *name;
    bool list;
    int type;
};

// The dialog's templates, by the names a shell user types.
const TemplateName templateNames[] = {
    {"sine", true, ListSine},
    {"pulse", true, ListPulse},
    {"ramp", true, ListRamp},
    {"stair-up", true, ListStairUp},
    {"stair-down", true, ListStairDown},
    {"stair-up-down", true, ListStairUpDown},
    {"exp-rise", true, ListExpRise},
    {"exp-fall", true, ListExpFall},
    {"fix-time", false, DelayerFixTime},
    {"increase", false, DelayerIncrease},
    {"decline", false, DelayerDecline},
};

// The dialog's editors take durations from 1 ms to an hour.
constexpr double shortest = 0.001;
constexpr double longest = 3600.0;

} // namespace

ExitStatus generate(const QStringList &arguments)
{
    QStringList names;
    for (const TemplateName &t : templateNames)
        names << QLatin1String(t.name);
    CommandLine line(
        QStringLiteral("generate"),
        QStringLiteral("TEMPLATE [options] -o FILE"),
        QStringLiteral("Writes the sequence file of one of the dialog's templates, with the same "
                       "parameters, defaults and limits; the dialog loads the file as it saves "
                       "its own.\nTemplates: %1.")
            .arg(names.join(QStringLiteral(", "))));
    QCommandLineParser &p = line.parser();
    const QCommandLineOption output({QStringLiteral("o"), QStringLiteral("output")},
                                    QStringLiteral("The file to write."),
                                    QStringLiteral("file"));
    const QCommandLineOption channel(QStringLiteral("channel"),
                                     QStringLiteral("The channel whose ranges bound the levels "
                                                    "(default 1)."),
                                     QStringLiteral("n"));
    const QCommandLineOption object(QStringLiteral("object"),
                                    QStringLiteral("List: the quantity the waveform drives, "
                                                   "voltage (default) or current."),
                                    QStringLiteral("quantity"));
    const QCommandLineOption minimum(QStringLiteral("minimum"),
                                     QStringLiteral("List: the driven quantity's lowest level."),
                                     QStringLiteral("value"));
    const QCommandLineOption maximum(QStringLiteral("maximum"),
                                     QStringLiteral("List: the driven quantity's highest level."),
                                     QStringLiteral("value"));
    const QCommandLineOption voltage(QStringLiteral("voltage"),
                                     QStringLiteral("List: the voltage while the current is "
                                                    "driven, in V."),
                                     QStringLiteral("V"));
    const QCommandLineOption current(QStringLiteral("current"),
                                     QStringLiteral("List: the current while the voltage is "
                                                    "driven, in A."),
                                     QStringLiteral("A"));
    const QCommandLineOption period(QStringLiteral("period"),
                                    QStringLiteral("List: the waveform's period, in s."),
                                    QStringLiteral("s"));
    const QCommandLineOption interval(QStringLiteral("interval"),
                                      QStringLiteral("List: the time of one step, in s."),
                                      QStringLiteral("s"));
    const QCommandLineOption waveCycles(QStringLiteral("wave-cycles"),
                                        QStringLiteral("Sine: periods in the template, 1 to 512."),
                                        QStringLiteral("n"));
    const QCommandLineOption inverted(QStringLiteral("inverted"),
                                      QStringLiteral("Sine, pulse, ramp: swap the lowest and the "
                                                     "highest level."));
    const QCommandLineOption width(QStringLiteral("width"),
                                   QStringLiteral("Pulse: the pulse's width, in s."),
                                   QStringLiteral("s"));
    const QCommandLineOption count(QStringLiteral("count"),
                                   QStringLiteral("Pulse: pulses in the template, 1 to 256."),
                                   QStringLiteral("n"));
    const QCommandLineOption symmetry(QStringLiteral("symmetry"),
                                      QStringLiteral("Ramp: the rising part of a period, 0 to "
                                                     "100 %."),
                                      QStringLiteral("percent"));
    const QCommandLineOption steps(QStringLiteral("steps"),
                                   QStringLiteral("Stairs: steps of a stair, 1 to 512."),
                                   QStringLiteral("n"));
    const QCommandLineOption expRate(QStringLiteral("exp-rate"),
                                     QStringLiteral("Exponentials: the rate, 0 to 10."),
                                     QStringLiteral("n"));
    const QCommandLineOption groups(QStringLiteral("groups"),
                                    QStringLiteral("Exponentials and Delayer rules: how many, 1 to "
                                                   "512."),
                                    QStringLiteral("n"));
    const QCommandLineOption pattern(QStringLiteral("pattern"),
                                     QStringLiteral("Delayer: on-first (default) or off-first."),
                                     QStringLiteral("order"));
    const QCommandLineOption onTime(QStringLiteral("on-time"),
                                    QStringLiteral("Fix time: how long the output is on, in s."),
                                    QStringLiteral("s"));
    const QCommandLineOption offTime(QStringLiteral("off-time"),
                                     QStringLiteral("Fix time: how long the output is off, in "
                                                    "s."),
                                     QStringLiteral("s"));
    const QCommandLineOption base(QStringLiteral("base"),
                                  QStringLiteral("Increase, decline: the first time, in s."),
                                  QStringLiteral("s"));
    const QCommandLineOption step(QStringLiteral("step"),
                                  QStringLiteral("Increase, decline: the change per step, in s."),
                                  QStringLiteral("s"));
    const QCommandLineOption repeat(QStringLiteral("repeat"),
                                    QStringLiteral("How often the instrument runs the sequence, "
                                                   "0 (endlessly) to 99999 (default 1)."),
                                    QStringLiteral("n"));
    const QCommandLineOption endState(QStringLiteral("end-state"),
                                      QStringLiteral("The output after the last step: off "
                                                     "(default), on (Delayer only) or last."),
                                      QStringLiteral("state"));
    p.addOptions({output,   channel,    object,   minimum, maximum, voltage,  current, period,
                  interval, waveCycles, inverted, width,   count,   symmetry, steps,   expRate,
                  groups,   pattern,    onTime,   offTime, base,    step,     repeat,  endState});
    p.addPositionalArgument(QStringLiteral("template"), QStringLiteral("The template's name."));
    if (const auto ended = line.parse(arguments))
        return *ended;

    const QStringList positional = p.positionalArguments();
    if (positional.size() != 1)
        return line.usage(QStringLiteral("name one template"));
    const TemplateName *chosen = nullptr;
    for (const TemplateName &t : templateNames) {
        if (positional.first() == QLatin1String(t.name))
            chosen = &t;
    }
    if (!chosen)
        return line.usage(QStringLiteral("\"%1\" is not a template; the templates are %2")
                              .arg(positional.first(), names.join(QStringLiteral(", "))));
    if (!p.isSet(output))
        return line.usage(QStringLiteral("say where to write the file with -o FILE"));

    // The generators and the file's numbers follow the instrument's decimals.
    const Option option = host::optionFor(line.description());
    Helper::getInstance().option = option;
    const std::optional<int> ch = line.channel(channel);
    const std::optional<int> cycles = line.integer(repeat, 1, 0, SequenceFile::maxCycles);
    if (!ch || !cycles)
        return Usage;
    const QString end = p.isSet(endState) ? p.value(endState) : QStringLiteral("off");
    const int endIndex = end == QLatin1String("off")    ? 0
                         : end == QLatin1String("on")   ? 1
                         : end == QLatin1String("last") ? 2
                                                        : -1;
    if (endIndex < 0 || (chosen->list && endIndex == 1))
        return line.usage(chosen->list
                              ? QStringLiteral("a List ends off or last, not \"%1\"").arg(end)
                              : QStringLiteral("the end state is off, on or last, not "
                                               "\"%1\"")
                                    .arg(end));

    QList<QString> lines;
    int made = 0;
    if (chosen->list) {
        ListTemplateParam t;
        resetListTemplateParam(t, static_cast<unsigned char>(chosen->type));
        const QString quantity = p.isSet(object) ? p.value(object) : QStringLiteral("voltage");
        if (quantity != QLatin1String("voltage") && quantity != QLatin1String("current"))
            return line.usage(
                QStringLiteral("--object is voltage or current, not \"%1\"").arg(quantity));
        t.object = quantity == QLatin1String("voltage") ? 0 : 1;
        const QPair<double, double> v = getVRangeOfChannel(*ch - 1);
        const QPair<double, double> c = getCRangeOfChannel(*ch - 1);
        const QPair<double, double> driven = t.object == 0 ? v : c;
        double &low = t.object == 0 ? t.voltageMin : t.currentMin;
        double &high = t.object == 0 ? t.voltageMax : t.currentMax;
        const auto lowValue = line.number(minimum, low, driven.first, driven.second);
        const auto highValue = line.number(maximum, high, driven.first, driven.second);
        const auto fixedVoltage = line.number(voltage, t.voltage, v.first, v.second);
        const auto fixedCurrent = line.number(current, t.current, c.first, c.second);
        const auto periodValue = line.number(period, t.period, shortest, longest);
        const auto intervalValue = line.number(interval, t.interval, shortest, longest);
        const auto widthValue = line.number(width, t.width, shortest, longest);
        const auto waveCyclesValue = line.integer(waveCycles, t.cycles, 1, 512);
        const auto countValue = line.integer(count, t.pulseCount, 1, 256);
        const auto symmetryValue = line.integer(symmetry, t.symmetry, 0, 100);
        const auto stepsValue = line.integer(steps, t.steps, 1, 512);
        const auto rateValue = line.integer(expRate, t.expRate, 0, 10);
        const auto groupsValue = line.integer(groups, t.expGroups, 1, 512);
        if (!lowValue || !highValue || !fixedVoltage || !fixedCurrent || !periodValue
            || !intervalValue || !widthValue || !waveCyclesValue || !countValue || !symmetryValue
            || !stepsValue || !rateValue || !groupsValue) {
            return Usage;
        }
        low = *lowValue;
        high = *highValue;
        t.voltage = *fixedVoltage;
        t.current = *fixedCurrent;
        t.period = *periodValue;
        t.interval = *intervalValue;
        t.width = *widthValue;
        t.cycles = *waveCyclesValue;
        t.pulseCount = *countValue;
        t.symmetry = *symmetryValue;
        t.steps = *stepsValue;
        t.expRate = *rateValue;
        t.expGroups = *groupsValue;
        t.inverted = p.isSet(inverted);

        const qint64 planned = list_wave_step_count(t);
        if (planned > option.maxCount)
            return line.usage(QStringLiteral("the template makes %1 steps; the instrument holds "
                                             "%2")
                                  .arg(planned)
                                  .arg(option.maxCount));
        QList<ListData> rows = make_list_wave(t);
        // As the dialog places them: the value on the driven quantity, the other one fixed.
        for (ListData &row : rows) {
            if (t.object == 0) {
                row.current = t.current;
            } else {
                row.current = row.voltage;
                row.voltage = t.voltage;
            }
        }
        made = rows.size();
        lines = SequenceFile::listLines(rows, *cycles, endIndex, option);
    } else {
        DelayerTemplateParam t;
        resetDelayerTemplateParam(t, static_cast<unsigned char>(chosen->type));
        const QString order = p.isSet(pattern) ? p.value(pattern) : QStringLiteral("on-first");
        if (order != QLatin1String("on-first") && order != QLatin1String("off-first"))
            return line.usage(
                QStringLiteral("--pattern is on-first or off-first, not \"%1\"").arg(order));
        t.pattern = order == QLatin1String("on-first") ? 10 : 1;
        const bool increase = chosen->type == DelayerIncrease;
        const auto groupsValue = line.integer(groups, t.groups, 1, 512);
        const auto onValue = line.number(onTime, t.onTime, shortest, longest);
        const auto offValue = line.number(offTime, t.offTime, shortest, longest);
        const auto baseValue
            = line.number(base, increase ? t.incBaseValue : t.decBaseValue, shortest, longest);
        const auto stepValue
            = line.number(step, increase ? t.incStep : t.decStep, shortest, longest);
        if (!groupsValue || !onValue || !offValue || !baseValue || !stepValue)
            return Usage;
        t.groups = *groupsValue;
        t.onTime = *onValue;
        t.offTime = *offValue;
        (increase ? t.incBaseValue : t.decBaseValue) = *baseValue;
        (increase ? t.incStep : t.decStep) = *stepValue;
        const QList<DelayerData> rows = make_delayer_wave(t);
        if (rows.isEmpty())
            return line.usage(QStringLiteral("a decline whose last time would not stay above 0 "
                                             "makes no steps"));
        if (rows.size() > option.maxCount)
            return line.usage(QStringLiteral("the template makes %1 steps; the instrument holds "
                                             "%2")
                                  .arg(rows.size())
                                  .arg(option.maxCount));
        made = rows.size();
        lines = SequenceFile::delayerLines(rows, *cycles, endIndex, option);
    }

    const QString path = p.value(output);
    if (!tarn2::util::character::Character::csvSave(path, lines)) {
        line.reporter().error(QStringLiteral("could not write %1").arg(path));
        return Failure;
    }
    line.reporter().result(true,
                           QStringLiteral("Wrote %1 steps to %2").arg(made).arg(path),
                           {{QStringLiteral("steps"), made}, {QStringLiteral("file"), path}});
    return Success;
}

} // namespace tarn::cli

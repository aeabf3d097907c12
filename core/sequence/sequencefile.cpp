// Writing and reading the lines of sequence files.
#include "sequencefile.h"

#include "stepcells.h"

#include <character.h>

#include <limits>

namespace tarn2::specific::orvo5000::programmer {

using tarn2::util::character::Character;

namespace {

const QString formatVersion = QStringLiteral("10");
const QChar separator = QLatin1Char(',');

QList<QString> headLinesOf(UploadMode mode, int cycles, int endStateIndex, int groups)
{
    return {SequenceFile::tag(mode) + separator + formatVersion,
            QStringLiteral("Cycles,")
                + (cycles == 0 ? QStringLiteral("Infinite") : QString::number(cycles)),
            QStringLiteral("End Status,") + SequenceFile::endStateName(endStateIndex),
            QStringLiteral("Groups,") + QString::number(groups)};
}

} // namespace

QString SequenceFile::tag(UploadMode mode)
{
    return mode == List ? QStringLiteral("LIST") : QStringLiteral("DELAYER");
}

QString SequenceFile::endStateName(int index)
{
    static const QString names[]
        = {QStringLiteral("Output Off"), QStringLiteral("Output On"), QStringLiteral("Last")};
    return index >= 0 && index < 3 ? names[index] : QString();
}

QList<QString> SequenceFile::listLines(const QList<ListData> &steps,
                                       int cycles,
                                       int endStateIndex,
                                       const Option &option)
{
    QList<QString> lines = headLinesOf(List, cycles, endStateIndex, steps.size());
    lines.reserve(steps.size() + headLines);
    lines.append(QStringLiteral("No.,Voltage(V),Current(A),Time(s)"));
    for (int i = 0; i < steps.size(); ++i) {
        const ListData &step = steps.at(i);
        lines.append(QStringLiteral("%1,%2,%3,%4")
                         .arg(QString::number(i),
                              stepcells::number(step.voltage, option.voltageDecimals),
                              stepcells::number(step.current, option.currentDecimals),
                              stepcells::number(step.time, option.timeDecimals)));
    }
    return lines;
}

QList<QString> SequenceFile::delayerLines(const QList<DelayerData> &steps,
                                          int cycles,
                                          int endStateIndex,
                                          const Option &option)
{
    QList<QString> lines = headLinesOf(Delayer, cycles, endStateIndex, steps.size());
    lines.reserve(steps.size() + headLines);
    lines.append(QStringLiteral("No.,State,Time(s)"));
    for (int i = 0; i < steps.size(); ++i) {
        const DelayerData &step = steps.at(i);
        lines.append(QStringLiteral("%1,%2,%3")
                         .arg(QString::number(i),
                              step.state ? QStringLiteral("On") : QStringLiteral("Off"),
                              stepcells::number(step.time, option.timeDecimals)));
    }
    return lines;
}

qint64 SequenceFile::sizeBound(int maxCount)
{
    return (qint64{1} << 20) + static_cast<qint64>(qMax(0, maxCount)) * 256;
}

QList<QString> SequenceFile::readLines(const QString &path, int maxCount)
{
    const int count = qMax(0, maxCount);
    const int lines = count > std::numeric_limits<int>::max() - headLines
                          ? std::numeric_limits<int>::max()
                          : headLines + count;
    return Character::csvLoad(path, lines, sizeBound(count));
}

bool SequenceFile::kindOf(const QString &firstLine, UploadMode *mode)
{
    const QStringRef tag = firstLine.leftRef(firstLine.indexOf(separator));
    if (tag == QLatin1String("LIST"))
        *mode = List;
    else if (tag == QLatin1String("DELAYER"))
        *mode = Delayer;
    else
        return false;
    return true;
}

SequenceFile::HeadProblem SequenceFile::readHead(
    const QList<QString> &lines, UploadMode mode, int maxCount, bool strictCycles, Head *head)
{
    if (lines.isEmpty())
        return HeadProblem::NotASequence;
    UploadMode kind = mode;
    if (kindOf(lines.at(0), &kind) && kind != mode)
        return HeadProblem::OtherKind;
    const QStringList first = lines.at(0).split(separator);
    if (first.size() < 2 || first.at(0) != tag(mode) || first.at(1) != formatVersion)
        return HeadProblem::NotASequence;
    if (lines.size() < headLines - 1)
        return HeadProblem::Truncated;

    const QStringList cycles = lines.at(1).split(separator);
    if (cycles.size() < 2 || cycles.at(0) != QLatin1String("Cycles"))
        return HeadProblem::NoCycles;
    head->cyclesText = cycles.at(1);
    if (head->cyclesText == QLatin1String("Infinite")) {
        head->cycles = 0;
        head->cyclesIsNumber = true;
    } else {
        head->cycles = head->cyclesText.toInt(&head->cyclesIsNumber);
    }
    if ((strictCycles && !head->cyclesIsNumber) || head->cycles < 0 || head->cycles > maxCycles)
        return HeadProblem::CyclesRange;

    const QStringList endState = lines.at(2).split(separator);
    if (endState.size() < 2 || endState.at(0) != QLatin1String("End Status"))
        return HeadProblem::NoEndState;
    head->endState = endState.at(1);
    if (head->endState != endStateName(0) && head->endState != endStateName(1)
        && head->endState != endStateName(2)) {
        return HeadProblem::UnknownEndState;
    }

    const QStringList groups = lines.at(3).split(separator);
    if (groups.size() < 2 || groups.at(0) != QLatin1String("Groups"))
        return HeadProblem::NoGroups;
    head->groupsText = groups.at(1);
    head->groups = head->groupsText.toInt(&head->groupsIsNumber);
    if (!head->groupsIsNumber)
        return HeadProblem::GroupsNotANumber;
    if (head->groups > maxCount)
        return HeadProblem::GroupsAboveMax;
    if (head->groups < 1)
        return HeadProblem::GroupsBelowOne;
    return HeadProblem::None;
}

int SequenceFile::lineOf(HeadProblem problem, const QList<QString> &lines)
{
    switch (problem) {
    case HeadProblem::None:
        return 0;
    case HeadProblem::OtherKind:
    case HeadProblem::NotASequence:
        return 1;
    case HeadProblem::Truncated:
        return lines.size() + 1;
    case HeadProblem::NoCycles:
    case HeadProblem::CyclesRange:
        return 2;
    case HeadProblem::NoEndState:
    case HeadProblem::UnknownEndState:
        return 3;
    case HeadProblem::NoGroups:
    case HeadProblem::GroupsNotANumber:
    case HeadProblem::GroupsAboveMax:
    case HeadProblem::GroupsBelowOne:
        return 4;
    }
    return 0;
}

bool SequenceFile::stepFields(
    const QString &line, int atLeast, int first, QStringRef *fields, int count)
{
    int begin = 0;
    int field = 0;
    while (field < atLeast) {
        const int comma = line.indexOf(separator, begin);
        const int end = comma < 0 ? line.size() : comma;
        if (field >= first && field < first + count)
            fields[field - first] = line.midRef(begin, end - begin);
        ++field;
        if (comma < 0)
            break;
        begin = comma + 1;
    }
    return field >= atLeast;
}

int SequenceFile::fieldCount(UploadMode mode)
{
    return mode == List ? 4 : 3;
}

} // namespace tarn2::specific::orvo5000::programmer

// The checks of a sequence file's head and steps, and of rows pasted from a spreadsheet.
#include "sequencereader.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include "sequencefile.h"
#include "steplimits.h"

#include <QObject>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {

const QChar comma = QLatin1Char(',');
QString nameOf(UploadMode mode)
{
    return mode == UploadMode::List ? QObject::tr("List") : QObject::tr("Delayer");
}

QString atLine(int line, const QString &reason)
{
    return QObject::tr("line %1: %2").arg(line).arg(reason);
}

std::optional<double> number(QString text, bool decimalComma)
{
    text = text.trimmed();
    if (decimalComma && !text.contains(QLatin1Char('.')))
        text.replace(comma, QLatin1Char('.'));
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok)
        return std::nullopt;
    return value;
}

std::optional<bool> state(const QString &text)
{
    const QString t = text.trimmed();
    if (t == QLatin1String("On") || t == QLatin1String("ON") || t == QLatin1String("on")
        || t == QLatin1String("1")) {
        return true;
    }
    if (t == QLatin1String("Off") || t == QLatin1String("OFF") || t == QLatin1String("off")
        || t == QLatin1String("0")) {
        return false;
    }
    return std::nullopt;
}

// One step from its value cells (the step number already taken off). Files are strict about the
// state's spelling, as the loader is; pasted rows take any of the usual ones.
QString readStep(const QStringList &cells,
                 UploadMode mode,
                 bool pasted,
                 const StepLimits &limits,
                 SequenceContent &content)
{
    if (mode == UploadMode::List) {
        const QString names[]
            = {QObject::tr("voltage"), QObject::tr("current"), QObject::tr("time")};
        double values[3] = {};
        for (int i = 0; i < 3; ++i) {
            const std::optional<double> value = number(cells.at(i), pasted);
            if (!value)
                return QObject::tr("the %1 \"%2\" is not a number").arg(names[i], cells.at(i));
            values[i] = *value;
        }
        const ListData step(values[0], values[1], values[2]);
        const QString problem = limits.problem(step);
        if (problem.isEmpty())
            content.list.append(step);
        return problem;
    }
    std::optional<bool> on;
    if (pasted)
        on = state(cells.at(0));
    else if (cells.at(0) == QLatin1String("On") || cells.at(0) == QLatin1String("Off"))
        on = cells.at(0) == QLatin1String("On");
    if (!on)
        return QObject::tr("the state \"%1\" is not On or Off").arg(cells.at(0));
    const std::optional<double> time = number(cells.at(1), pasted);
    if (!time)
        return QObject::tr("the time \"%1\" is not a number").arg(cells.at(1));
    const DelayerData step(*on, *time);
    const QString problem = limits.problem(step);
    if (problem.isEmpty())
        content.delayer.append(step);
    return problem;
}

ReadResult refused(const QString &error)
{
    ReadResult result;
    result.error = error;
    return result;
}

} // namespace

std::optional<UploadMode> SequenceReader::modeOf(const QList<QString> &lines)
{
    UploadMode mode = List;
    if (lines.isEmpty() || !SequenceFile::kindOf(lines.first(), &mode))
        return std::nullopt;
    return mode;
}

ReadResult
SequenceReader::readFile(const QList<QString> &lines, UploadMode mode, const StepLimits &limits)
{
    if (lines.isEmpty())
        return refused(QObject::tr("the file is empty or cannot be read"));

    SequenceFile::Head head;
    const SequenceFile::HeadProblem problem
        = SequenceFile::readHead(lines, mode, limits.maxCount, true, &head);
    const int problemLine = SequenceFile::lineOf(problem, lines);
    switch (problem) {
    case SequenceFile::HeadProblem::None:
        break;
    case SequenceFile::HeadProblem::OtherKind:
        return refused(atLine(problemLine,
                              QObject::tr("this is a %1 file, not a %2 file")
                                  .arg(nameOf(mode == List ? Delayer : List), nameOf(mode))));
    case SequenceFile::HeadProblem::NotASequence:
        return refused(
            atLine(problemLine,
                   QObject::tr("\"%1\" is not the head of a %2 file (%3,10)")
                       .arg(lines.at(0).left(40), nameOf(mode), SequenceFile::tag(mode))));
    case SequenceFile::HeadProblem::Truncated:
        return refused(
            QObject::tr("line %1: the file ends before its head is complete").arg(problemLine));
    case SequenceFile::HeadProblem::NoCycles:
        return refused(atLine(problemLine, QObject::tr("the repeat count (Cycles) is missing")));
    case SequenceFile::HeadProblem::CyclesRange:
        return refused(atLine(problemLine,
                              QObject::tr("the repeat count \"%1\" is not Infinite or a "
                                          "number from 0 to %2")
                                  .arg(head.cyclesText)
                                  .arg(SequenceFile::maxCycles)));
    case SequenceFile::HeadProblem::NoEndState:
        return refused(atLine(problemLine, QObject::tr("the end state (End Status) is missing")));
    case SequenceFile::HeadProblem::UnknownEndState:
        return refused(atLine(problemLine,
                              QObject::tr("the end state \"%1\" is not Output Off, Output On or "
                                          "Last")
                                  .arg(head.endState)));
    case SequenceFile::HeadProblem::NoGroups:
        return refused(atLine(problemLine, QObject::tr("the number of steps (Groups) is missing")));
    case SequenceFile::HeadProblem::GroupsNotANumber:
        return refused(
            atLine(problemLine, QObject::tr("Groups \"%1\" is not a number").arg(head.groupsText)));
    case SequenceFile::HeadProblem::GroupsAboveMax:
        return refused(atLine(problemLine,
                              QObject::tr("Groups %1 is above this instrument's %2")
                                  .arg(head.groups)
                                  .arg(limits.maxCount)));
    case SequenceFile::HeadProblem::GroupsBelowOne:
        return refused(atLine(problemLine, QObject::tr("Groups %1 is below 1").arg(head.groups)));
    }

    ReadResult result;
    SequenceContent &content = result.content;
    content.mode = mode;
    content.cycles = head.cycles;
    bool endsOn = false;
    if (head.endState == SequenceFile::endStateName(0)) {
        content.endState = QStringLiteral("OFF");
    } else if (head.endState == SequenceFile::endStateName(1)) {
        content.endState = QStringLiteral("ON");
        endsOn = mode == UploadMode::List;
    } else {
        // The List tab has no Last; its loader leaves the end state as it was, and so do we.
        content.endState = mode == UploadMode::List ? QString() : QStringLiteral("LAST");
    }

    const int fields = SequenceFile::fieldCount(mode);
    for (int i = SequenceFile::headLines; i < lines.size(); ++i) {
        const int line = i + 1;
        if (i - SequenceFile::headLines >= limits.maxCount)
            return refused(atLine(
                line, QObject::tr("more steps than this instrument's %1").arg(limits.maxCount)));
        QStringList cells = lines.at(i).split(comma);
        if (cells.size() < fields)
            return refused(atLine(
                line,
                QObject::tr("%1 fields where %2 are expected").arg(cells.size()).arg(fields)));
        cells.removeFirst();
        const QString problem = readStep(cells, mode, false, limits, content);
        if (!problem.isEmpty())
            return refused(atLine(line, problem));
    }
    if (content.size() == 0)
        return refused(atLine(SequenceFile::headLines + 1, QObject::tr("the file holds no steps")));

    if (endsOn) {
        result.refusedOnlyForEndState = true;
        result.error = atLine(3, QObject::tr("a List file cannot end in Output On"));
        return result;
    }
    result.ok = true;
    return result;
}

ReadResult
SequenceReader::readPasted(const QString &text, UploadMode mode, const StepLimits &limits)
{
    ReadResult result;
    result.content.mode = mode;
    const int values = mode == UploadMode::List ? 3 : 2;
    const QStringList rows = text.split(QLatin1Char('\n'));
    for (int i = 0; i < rows.size(); ++i) {
        QString row = rows.at(i);
        if (row.endsWith(QLatin1Char('\r')))
            row.chop(1);
        if (row.trimmed().isEmpty())
            continue;
        QStringList cells = row.split(QLatin1Char('\t'));
        if (cells.size() == values + 1)
            cells.removeFirst();
        if (cells.size() != values) {
            return refused(atLine(i + 1,
                                  QObject::tr("%1 cells where %2 are expected")
                                      .arg(row.split(QLatin1Char('\t')).size())
                                      .arg(values)));
        }
        // Column titles copied along with the values.
        if (result.content.size() == 0 && !number(cells.last(), true)
            && cells.last().contains(QLatin1String("Time"))) {
            continue;
        }
        const QString problem = readStep(cells, mode, true, limits, result.content);
        if (!problem.isEmpty())
            return refused(atLine(i + 1, problem));
    }
    if (result.content.size() == 0)
        return refused(QObject::tr("the clipboard holds no rows"));
    result.ok = true;
    return result;
}

std::optional<QList<QString>>
SequenceReader::readLines(const QString &path, int maxCount, QString *error)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        *error
            = QCoreApplication::translate("tarn::host::SequenceReader", "the file does not exist");
        return std::nullopt;
    }
    const qint64 bound = SequenceFile::sizeBound(maxCount);
    if (info.size() > bound) {
        *error = QCoreApplication::translate("tarn::host::SequenceReader",
                                             "the file holds %1 bytes, more than a sequence of "
                                             "%2 steps can take (%3 bytes)")
                     .arg(info.size())
                     .arg(maxCount)
                     .arg(bound);
        return std::nullopt;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = file.errorString();
        return std::nullopt;
    }
    file.close();
    // One line beyond the instrument's count, to tell a file with too many steps.
    return SequenceFile::readLines(path, maxCount + 1);
}

} // namespace tarn::host

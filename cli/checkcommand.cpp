// check: every step of a sequence file against what the instrument accepts.
#include "commandline.h"
#include "reporter.h"
#include "rig.h"

#include <channellimits.h>
#include <sequencereader.h>
#include <steplimits.h>

#include <limits>

namespace tarn::cli {

using namespace tarn2::specific::orvo5000::programmer;
using host::SequenceReader;
using host::StepLimits;

namespace {

// Limits that let every number through: the file is read for its form first, and then each step
// is weighed against the channel, so that every problem is told, not only the first.
StepLimits formOnly(int maxCount)
{
    constexpr double inf = std::numeric_limits<double>::infinity();
    StepLimits limits;
    limits.voltage = {-inf, inf};
    limits.current = {-inf, inf};
    limits.timeMin = -inf;
    limits.timeMax = inf;
    limits.maxCount = maxCount;
    return limits;
}

} // namespace

std::optional<host::SequenceContent> readSequence(CommandLine &line, const QString &path)
{
    QString error;
    const int maxCount = line.description().maxCount;
    const auto lines = SequenceReader::readLines(path, maxCount, &error);
    if (!lines) {
        line.reporter().result(false, QStringLiteral("%1: %2").arg(path, error));
        return std::nullopt;
    }
    const std::optional<UploadMode> mode = SequenceReader::modeOf(*lines);
    if (!mode) {
        line.reporter().result(
            false, QStringLiteral("%1: line 1: it is not a List or Delayer file").arg(path));
        return std::nullopt;
    }
    const host::ReadResult read = SequenceReader::readFile(*lines, *mode, formOnly(maxCount));
    // A List file ending in Output On is refused here too: a script has nobody to ask.
    if (!read.ok) {
        line.reporter().result(false, QStringLiteral("%1: %2").arg(path, read.error));
        return std::nullopt;
    }
    host::SequenceContent content = read.content;
    if (content.endState.isEmpty())
        content.endState = QStringLiteral("LAST"); // a List file's Last
    return content;
}

// Tells each step the limits refuse; the number refused.
int reportProblems(Reporter &reporter,
                   const host::SequenceContent &content,
                   const StepLimits &limits)
{
    int refused = 0;
    for (int i = 0; i < content.size(); ++i) {
        const QString problem = content.mode == List ? limits.problem(content.list.at(i))
                                                     : limits.problem(content.delayer.at(i));
        if (!problem.isEmpty()) {
            ++refused;
            reporter.problem(i, problem);
        }
    }
    return refused;
}

ExitStatus check(const QStringList &arguments)
{
    CommandLine line(QStringLiteral("check"),
                     QStringLiteral("FILE [--connect ADDRESS] [--channel N]"),
                     QStringLiteral("Checks every step of a sequence file against the instrument "
                                    "description or, with --connect, against the limits the "
                                    "instrument itself tells, and names each step it would "
                                    "refuse."));
    QCommandLineParser &p = line.parser();
    const QCommandLineOption connectTo(QStringLiteral("connect"),
                                       QStringLiteral("The instrument: tcp://HOST[:PORT], "
                                                      "serial:DEVICE[?baud=N] or sim:."),
                                       QStringLiteral("address"));
    const QCommandLineOption channel(QStringLiteral("channel"),
                                     QStringLiteral("The channel, from 1 (default 1)."),
                                     QStringLiteral("n"));
    p.addOptions({connectTo, channel});
    p.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The sequence file."));
    if (const auto ended = line.parse(arguments))
        return *ended;
    if (p.positionalArguments().size() != 1)
        return line.usage(QStringLiteral("name one sequence file"));
    const std::optional<int> ch = line.channel(channel);
    if (!ch)
        return Usage;

    const QString path = p.positionalArguments().first();
    const std::optional<host::SequenceContent> content = readSequence(line, path);
    if (!content)
        return BadFile;

    StepLimits limits = host::stepLimitsFor(line.description(), *ch - 1);
    std::unique_ptr<Rig> rig;
    if (p.isSet(connectTo)) {
        rig = std::make_unique<Rig>(line.description(), line.commands(), line.reporter());
        const ExitStatus connected = rig->connectTo(p.value(connectTo));
        if (connected != Success)
            return connected;
        limits = rig->connection().stepLimits(*ch);
    }
    const int refused = reportProblems(line.reporter(), *content, limits);
    if (refused > 0) {
        line.reporter().result(
            false,
            QStringLiteral("%1 of %2 steps cannot be sent to %3")
                .arg(refused)
                .arg(content->size())
                .arg(limits.channelName),
            {{QStringLiteral("refused"), refused}, {QStringLiteral("steps"), content->size()}});
        return BadFile;
    }
    line.reporter().result(
        true,
        QStringLiteral("All %1 steps fit %2").arg(content->size()).arg(limits.channelName),
        {{QStringLiteral("refused"), 0}, {QStringLiteral("steps"), content->size()}});
    return Success;
}

} // namespace tarn::cli

// identify, upload, run and stop: the subcommands that talk to an instrument.
#include "commandline.h"
#include "reporter.h"
#include "rig.h"

#include <history.h>
#include <statusmonitor.h>

#include <QEventLoop>
#include <QJsonArray>
#include <QTimer>

#include <cmath>

namespace tarn::cli {

using namespace tarn2::specific::orvo5000::programmer;

namespace {

QCommandLineOption connectOption()
{
    return {QStringLiteral("connect"),
            QStringLiteral("The instrument: tcp://HOST[:PORT], serial:DEVICE[?baud=N], "
                           "usbtmc:DEVICE, sim:, or a resource string such as "
                           "USB0::0x1234::0x5678::SN42::INSTR."),
            QStringLiteral("address")};
}

QCommandLineOption channelOption()
{
    return {QStringLiteral("channel"),
            QStringLiteral("The channel, from 1 (default 1)."),
            QStringLiteral("n")};
}

// The options of a run, shared by `run` and `upload --run`.
struct RunOptions
{
    QCommandLineOption seconds{QStringLiteral("for"),
                               QStringLiteral("Stop the run after this many seconds."),
                               QStringLiteral("seconds")};
    QCommandLineOption untilEnd{QStringLiteral("until-end"),
                                QStringLiteral("Run until the sequence ends (the default).")};
    QCommandLineOption trace{QStringLiteral("trace"),
                             QStringLiteral("Write what the output did to this CSV file."),
                             QStringLiteral("file")};

    void addTo(QCommandLineParser &parser) { parser.addOptions({seconds, untilEnd, trace}); }

    std::optional<double> duration(CommandLine &line)
    {
        if (line.parser().isSet(seconds) && line.parser().isSet(untilEnd)) {
            line.usage(QStringLiteral("--for and --until-end exclude each other"));
            return std::nullopt;
        }
        return line.number(seconds, 0.0, 0.001, 1.0e7);
    }
};

// Where uploads and runs are recorded: the history the setting names unless told otherwise.
struct HistoryOptions
{
    QCommandLineOption location{QStringLiteral("history"),
                                QStringLiteral("Record into this history file or "
                                               "postgresql://user@host/db (default: the setting, "
                                               "or the user's history file)."),
                                QStringLiteral("location")};
    QCommandLineOption off{QStringLiteral("no-history"),
                           QStringLiteral("Record nothing in the history.")};

    void addTo(QCommandLineParser &parser) { parser.addOptions({location, off}); }

    // A history that cannot be opened is told on stderr; the instrument's work goes on without.
    std::unique_ptr<history::History> open(CommandLine &line, Rig &rig)
    {
        if (line.parser().isSet(off))
            return nullptr;
        QString error;
        const auto where = history::HistoryLocation::parse(line.parser().value(location), &error);
        if (!where) {
            line.reporter().error(QStringLiteral("nothing is recorded: %1").arg(error));
            return nullptr;
        }
        auto opened = std::make_unique<history::History>(*where);
        const bool ok = opened->open();
        for (const QString &notice : opened->takeNotices())
            line.reporter().error(notice);
        if (!ok) {
            line.reporter().error(QStringLiteral("nothing is recorded: %1").arg(opened->error()));
            return nullptr;
        }
        rig.recordInto(opened.get());
        return opened;
    }
};

QString limitsText(const host::StepLimits &limits)
{
    QString text = QStringLiteral("%1: %2 to %3 V, %4 to %5 A")
                       .arg(limits.channelName)
                       .arg(limits.voltage.min)
                       .arg(limits.voltage.max)
                       .arg(limits.current.min)
                       .arg(limits.current.max);
    if (std::isfinite(limits.overVoltage))
        text += QStringLiteral(", protection at %1 V and %2 A")
                    .arg(limits.overVoltage)
                    .arg(limits.overCurrent);
    return text;
}

} // namespace

ExitStatus identify(const QStringList &arguments)
{
    CommandLine line(QStringLiteral("identify"),
                     QStringLiteral("--connect ADDRESS"),
                     QStringLiteral("Tells who the instrument is, what each of its channels "
                                    "accepts, and its status."));
    const QCommandLineOption connectTo = connectOption();
    line.parser().addOption(connectTo);
    if (const auto ended = line.parse(arguments))
        return *ended;
    if (!line.parser().isSet(connectTo))
        return line.usage(QStringLiteral("say which instrument with --connect ADDRESS"));

    Rig rig(line.description(), line.commands(), line.reporter());
    const ExitStatus connected = rig.connectTo(line.parser().value(connectTo));
    if (connected != Success)
        return connected;

    QJsonArray channels;
    for (int ch = 1; ch <= line.description().channels.size(); ++ch) {
        const host::StepLimits limits = rig.connection().stepLimits(ch);
        line.reporter().info(limitsText(limits));
        channels.append(QJsonObject{{QStringLiteral("name"), limits.channelName},
                                    {QStringLiteral("voltageMin"), limits.voltage.min},
                                    {QStringLiteral("voltageMax"), limits.voltage.max},
                                    {QStringLiteral("currentMin"), limits.current.min},
                                    {QStringLiteral("currentMax"), limits.current.max}});
    }

    // The status is read once a second from connecting on; the first reading is the one told.
    host::StatusMonitor *monitor = rig.connection().statusMonitor();
    QEventLoop loop;
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
    QObject::connect(monitor, &host::StatusMonitor::changed, &loop, &QEventLoop::quit);
    limit.start(3000);
    if (!monitor->status().known)
        loop.exec();
    const host::InstrumentStatus &status = monitor->status();
    QStringList trips;
    for (const host::ProtectionTrip &trip : status.trips) {
        trips << QStringLiteral("CH%1 %2")
                     .arg(trip.channel)
                     .arg(trip.overVoltage ? QStringLiteral("over-voltage")
                                           : QStringLiteral("over-current"));
    }
    const QString statusText
        = !status.known ? QStringLiteral("status unknown")
          : trips.isEmpty()
              ? QStringLiteral("%1 errors waiting, no protection tripped").arg(status.errors)
              : QStringLiteral("%1 errors waiting, tripped: %2")
                    .arg(status.errors)
                    .arg(trips.join(QStringLiteral(", ")));
    line.reporter().result(true,
                           QStringLiteral("%1; %2").arg(rig.connection().identity(), statusText),
                           {{QStringLiteral("identity"), rig.connection().identity()},
                            {QStringLiteral("channels"), channels},
                            {QStringLiteral("errors"), status.errors},
                            {QStringLiteral("trips"), QJsonArray::fromStringList(trips)}});
    return Success;
}

ExitStatus upload(const QStringList &arguments)
{
    CommandLine line(QStringLiteral("upload"),
                     QStringLiteral("FILE --connect ADDRESS [--channel N] [--run [--for SECONDS "
                                    "| --until-end] [--trace FILE]]"),
                     QStringLiteral("Uploads a sequence file, steps written ahead at the link's "
                                    "speed, then reads it back and compares every step; with "
                                    "--run, runs it once verified."));
    QCommandLineParser &p = line.parser();
    const QCommandLineOption connectTo = connectOption();
    const QCommandLineOption channel = channelOption();
    const QCommandLineOption runAfter(QStringLiteral("run"),
                                      QStringLiteral("Run the sequence once it is verified."));
    RunOptions runOptions;
    HistoryOptions historyOptions;
    p.addOptions({connectTo, channel, runAfter});
    runOptions.addTo(p);
    historyOptions.addTo(p);
    p.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The sequence file."));
    if (const auto ended = line.parse(arguments))
        return *ended;
    if (p.positionalArguments().size() != 1)
        return line.usage(QStringLiteral("name one sequence file"));
    if (!p.isSet(connectTo))
        return line.usage(QStringLiteral("say which instrument with --connect ADDRESS"));
    const std::optional<int> ch = line.channel(channel);
    const std::optional<double> seconds = runOptions.duration(line);
    if (!ch || !seconds)
        return Usage;

    const std::optional<host::SequenceContent> content
        = readSequence(line, p.positionalArguments().first());
    if (!content)
        return BadFile;
    Rig rig(line.description(), line.commands(), line.reporter());
    const std::unique_ptr<history::History> recorded = historyOptions.open(line, rig);
    const ExitStatus connected = rig.connectTo(p.value(connectTo));
    if (connected != Success)
        return connected;
    const host::StepLimits limits = rig.connection().stepLimits(*ch);
    const int refused = reportProblems(line.reporter(), *content, limits);
    if (refused > 0) {
        line.reporter().result(false,
                               QStringLiteral("Not uploaded: %1 of %2 steps cannot be sent to %3")
                                   .arg(refused)
                                   .arg(content->size())
                                   .arg(limits.channelName));
        return BadFile;
    }
    const ExitStatus uploaded = rig.upload(*content, *ch);
    if (uploaded != Success || !p.isSet(runAfter))
        return uploaded;
    return rig.run(*ch, content->mode == List, *seconds, p.value(runOptions.trace));
}

ExitStatus run(const QStringList &arguments)
{
    CommandLine line(QStringLiteral("run"),
                     QStringLiteral("--connect ADDRESS [--channel N] [--delayer] [--for SECONDS "
                                    "| --until-end] [--trace FILE]"),
                     QStringLiteral("Runs the sequence the channel holds and records what the "
                                    "output does; Ctrl-C stops it, leaving the output as its end "
                                    "state says."));
    QCommandLineParser &p = line.parser();
    const QCommandLineOption connectTo = connectOption();
    const QCommandLineOption channel = channelOption();
    const QCommandLineOption delayer(QStringLiteral("delayer"),
                                     QStringLiteral("Run the Delayer sequence, not the List."));
    RunOptions runOptions;
    HistoryOptions historyOptions;
    p.addOptions({connectTo, channel, delayer});
    runOptions.addTo(p);
    historyOptions.addTo(p);
    if (const auto ended = line.parse(arguments))
        return *ended;
    if (!p.isSet(connectTo))
        return line.usage(QStringLiteral("say which instrument with --connect ADDRESS"));
    const std::optional<int> ch = line.channel(channel);
    const std::optional<double> seconds = runOptions.duration(line);
    if (!ch || !seconds)
        return Usage;
    Rig rig(line.description(), line.commands(), line.reporter());
    const std::unique_ptr<history::History> recorded = historyOptions.open(line, rig);
    const ExitStatus connected = rig.connectTo(p.value(connectTo));
    if (connected != Success)
        return connected;
    return rig.run(*ch, !p.isSet(delayer), *seconds, p.value(runOptions.trace));
}

ExitStatus stop(const QStringList &arguments)
{
    CommandLine line(QStringLiteral("stop"),
                     QStringLiteral("--connect ADDRESS [--channel N]"),
                     QStringLiteral("Stops the List and Delayer sequences of a channel; the "
                                    "output is left as their end states say."));
    const QCommandLineOption connectTo = connectOption();
    const QCommandLineOption channel = channelOption();
    line.parser().addOptions({connectTo, channel});
    if (const auto ended = line.parse(arguments))
        return *ended;
    if (!line.parser().isSet(connectTo))
        return line.usage(QStringLiteral("say which instrument with --connect ADDRESS"));
    const std::optional<int> ch = line.channel(channel);
    if (!ch)
        return Usage;
    Rig rig(line.description(), line.commands(), line.reporter());
    const ExitStatus connected = rig.connectTo(line.parser().value(connectTo));
    if (connected != Success)
        return connected;
    return rig.stop(*ch);
}

} // namespace tarn::cli

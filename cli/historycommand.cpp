// history list, show and export: finding and reading back what was uploaded and run.
#include "commandline.h"
#include "reporter.h"

#include <history.h>
#include <historyexport.h>

#include <character.h>

#include <QJsonObject>
#include <QRegularExpression>

namespace tarn::cli {

using namespace tarn::history;

namespace {

QJsonObject fieldsOf(const HistoryRecord &r)
{
    return {
        {QStringLiteral("record"), r.name()},
        {QStringLiteral("kind"), r.kindName()},
        {QStringLiteral("uid"), r.uid},
        {QStringLiteral("station"), r.station},
        {QStringLiteral("started"), r.started.toString(Qt::ISODateWithMs)},
        {QStringLiteral("ended"),
         r.ended.isValid() ? r.ended.toString(Qt::ISODateWithMs) : QString()},
        {QStringLiteral("identity"), r.identity},
        {QStringLiteral("address"), r.address},
        {QStringLiteral("dialect"), r.dialect},
        {QStringLiteral("channel"), r.channel},
        {QStringLiteral("channelName"), r.channelName},
        {QStringLiteral("mode"),
         r.sequence.mode == tarn2::specific::orvo5000::programmer::List
             ? QStringLiteral("list")
             : QStringLiteral("delayer")},
        {QStringLiteral("cycles"), r.sequence.cycles},
        {QStringLiteral("endState"), r.sequence.endState},
        {QStringLiteral("steps"), r.stepCount},
        {QStringLiteral("outcome"), r.outcome},
        {QStringLiteral("message"), r.message},
        // The step by its number in the editor's "No." column, as every message names it.
        {QStringLiteral("step"), r.failedStep > 0 ? QJsonValue(r.failedStep - 1) : QJsonValue()},
        {QStringLiteral("upload"), r.uploadUid},
        {QStringLiteral("samples"), r.sampleCount}};
}

QString lineOf(const HistoryRecord &r)
{
    return QStringLiteral("%1  %2  %3  %4 %5 %6 steps  %7  %8  %9")
        .arg(r.name(), -6)
        .arg(r.started.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")))
        .arg(r.kindName(), -6)
        .arg(r.channelName.isEmpty() ? QStringLiteral("CH%1").arg(r.channel) : r.channelName)
        .arg(r.sequence.mode == tarn2::specific::orvo5000::programmer::List
                 ? QStringLiteral("List")
                 : QStringLiteral("Delayer"))
        .arg(r.stepCount)
        .arg(r.outcome, -9)
        .arg(r.station)
        .arg(r.message);
}

// A date, or a date and time, as a user types it: local time unless it says otherwise. A date
// alone given to --until includes that whole day.
std::optional<QDateTime> when(const QString &text, bool dayEnd)
{
    const QDate date = QDate::fromString(text, Qt::ISODate);
    if (date.isValid())
        return QDateTime(dayEnd ? date.addDays(1) : date, QTime(0, 0));
    const QDateTime time = QDateTime::fromString(text, Qt::ISODate);
    if (time.isValid())
        return time;
    return std::nullopt;
}

// The history to read: the server when one is chosen, otherwise the file; Connection or Failure
// told on stderr when it cannot be read.
struct Opened
{
    std::unique_ptr<History> history;
    HistoryStore *store = nullptr;
    ExitStatus status = Success;
};

Opened openForReading(CommandLine &line, const QCommandLineOption &location)
{
    Opened opened;
    QString error;
    const auto where = HistoryLocation::parse(line.parser().value(location), &error);
    if (!where) {
        opened.status = line.usage(error);
        return opened;
    }
    opened.history = std::make_unique<History>(*where);
    const bool ok = opened.history->open();
    for (const QString &notice : opened.history->takeNotices())
        line.reporter().error(notice);
    opened.store = ok ? opened.history->reader() : nullptr;
    if (!opened.store) {
        line.reporter().error(opened.history->error());
        opened.status = where->server && ok ? Connection : Failure;
    }
    return opened;
}

std::optional<qint64> recordId(CommandLine &line, QString *kind)
{
    const QStringList positional = line.parser().positionalArguments();
    static const QRegularExpression form(QStringLiteral("^([RrUu]?)([0-9]{1,18})$"));
    const QRegularExpressionMatch match = form.match(positional.value(0));
    if (positional.size() != 1 || !match.hasMatch()) {
        line.usage(QStringLiteral("name one record, such as R12 or U7"));
        return std::nullopt;
    }
    *kind = match.captured(1).toUpper();
    return match.captured(2).toLongLong();
}

std::optional<HistoryRecord>
findRecord(CommandLine &line, HistoryStore &store, bool full, ExitStatus *status)
{
    QString kind;
    const std::optional<qint64> id = recordId(line, &kind);
    if (!id) {
        *status = Usage;
        return std::nullopt;
    }
    std::optional<HistoryRecord> record = store.record(*id, full);
    if (!record || (kind == QLatin1String("R") && record->kind != HistoryRecord::Kind::Run)
        || (kind == QLatin1String("U") && record->kind != HistoryRecord::Kind::Upload)) {
        line.reporter().result(false,
                               QStringLiteral("the history has no record %1")
                                   .arg(line.parser().positionalArguments().first()));
        *status = Failure;
        return std::nullopt;
    }
    return record;
}

QCommandLineOption locationOption()
{
    return {QStringLiteral("history"),
            QStringLiteral("The history file or postgresql://user@host/db (default: the "
                           "setting, or the user's history file)."),
            QStringLiteral("location")};
}

ExitStatus list(const QStringList &arguments)
{
    CommandLine line(QStringLiteral("history list"),
                     QStringLiteral("[--identity TEXT] [--channel N] [--outcome WORD] [--kind "
                                    "run|upload] [--since DATE] [--until DATE] [--text TEXT] "
                                    "[--limit N]"),
                     QStringLiteral("Lists the recorded uploads and runs, newest first."));
    QCommandLineParser &p = line.parser();
    const QCommandLineOption location = locationOption();
    const QCommandLineOption instrument(QStringLiteral("identity"),
                                        QStringLiteral("Part of the instrument's identity or "
                                                       "address."),
                                        QStringLiteral("text"));
    const QCommandLineOption channel(
        QStringLiteral("channel"), QStringLiteral("The channel, from 1."), QStringLiteral("n"));
    const QCommandLineOption outcome(QStringLiteral("outcome"),
                                     QStringLiteral("verified, refused, mismatch, timed-out, "
                                                    "link-lost, cancelled, ended, failed, "
                                                    "cut-off, running."),
                                     QStringLiteral("word"));
    const QCommandLineOption kind(
        QStringLiteral("kind"), QStringLiteral("run or upload."), QStringLiteral("kind"));
    const QCommandLineOption since(QStringLiteral("since"),
                                   QStringLiteral("Started on or after this date (and time)."),
                                   QStringLiteral("date"));
    const QCommandLineOption until(QStringLiteral("until"),
                                   QStringLiteral("Started on or before this date, or before "
                                                  "this time."),
                                   QStringLiteral("date"));
    const QCommandLineOption text(QStringLiteral("text"),
                                  QStringLiteral("Part of the message, identity, address, "
                                                 "station or channel name."),
                                  QStringLiteral("text"));
    const QCommandLineOption limit(QStringLiteral("limit"),
                                   QStringLiteral("At most this many records (default 100)."),
                                   QStringLiteral("n"));
    p.addOptions({location, instrument, channel, outcome, kind, since, until, text, limit});
    if (const auto ended = line.parse(arguments))
        return *ended;
    HistoryFilter filter;
    filter.instrument = p.value(instrument);
    filter.outcome = p.value(outcome);
    filter.kind = p.value(kind);
    filter.text = p.value(text);
    const std::optional<int> ch = line.integer(channel, 0, 1, 64);
    const std::optional<int> most = line.integer(limit, 100, 1, 1000000);
    if (!ch || !most)
        return Usage;
    filter.channel = *ch;
    filter.limit = *most;
    if (!filter.kind.isEmpty() && filter.kind != QLatin1String("run")
        && filter.kind != QLatin1String("upload"))
        return line.usage(QStringLiteral("--kind is run or upload"));
    for (const auto &[option, target, dayEnd] : {std::make_tuple(&since, &filter.since, false),
                                                 std::make_tuple(&until, &filter.before, true)}) {
        if (!p.isSet(*option))
            continue;
        const std::optional<QDateTime> time = when(p.value(*option), dayEnd);
        if (!time)
            return line.usage(QStringLiteral("--%1 takes a date such as 2026-03-01 or "
                                             "2026-03-01T14:30, not \"%2\"")
                                  .arg(option->names().constFirst(), p.value(*option)));
        *target = *time;
    }
    Opened opened = openForReading(line, location);
    if (!opened.store)
        return opened.status;
    const QList<HistoryRecord> found = opened.store->list(filter);
    if (!opened.store->error().isEmpty() && found.isEmpty()) {
        line.reporter().error(opened.store->error());
        return Failure;
    }
    Reporter &reporter = line.reporter();
    for (const HistoryRecord &record : found) {
        QJsonObject fields = fieldsOf(record);
        reporter.record(lineOf(record), fields);
    }
    reporter.result(true,
                    QStringLiteral("%1 records").arg(found.size()),
                    {{QStringLiteral("records"), found.size()}});
    return Success;
}

ExitStatus show(const QStringList &arguments)
{
    CommandLine line(QStringLiteral("history show"),
                     QStringLiteral("RECORD"),
                     QStringLiteral("Tells everything the history holds of one upload or run."));
    const QCommandLineOption location = locationOption();
    line.parser().addOption(location);
    line.parser().addPositionalArgument(QStringLiteral("record"),
                                        QStringLiteral("R12 for a run, U7 for an upload."));
    if (const auto ended = line.parse(arguments))
        return *ended;
    QString kind;
    if (!recordId(line, &kind))
        return Usage;
    Opened opened = openForReading(line, location);
    if (!opened.store)
        return opened.status;
    ExitStatus status = Success;
    const std::optional<HistoryRecord> record = findRecord(line, *opened.store, true, &status);
    if (!record)
        return status;
    QJsonObject fields = fieldsOf(*record);
    if (!record->samples.isEmpty()) {
        fields.insert(QStringLiteral("lastSampleTime"), record->samples.constLast().time);
        const int lastStep = record->samples.constLast().step;
        fields.insert(QStringLiteral("lastStep"),
                      lastStep > 0 ? QJsonValue(lastStep - 1) : QJsonValue());
    }
    QString text = lineOf(*record);
    text += QStringLiteral("\n  instrument %1 at %2 (%3 commands)\n  started %4, ended %5\n  "
                           "%6, end state %7, %8 samples")
                .arg(record->identity, record->address, record->dialect)
                .arg(record->started.toLocalTime().toString(Qt::ISODateWithMs))
                .arg(record->ended.isValid()
                         ? record->ended.toLocalTime().toString(Qt::ISODateWithMs)
                         : QStringLiteral("-"))
                .arg(record->sequence.cycles == 0 ? QStringLiteral("repeated endlessly")
                     : record->sequence.cycles == 1
                         ? QStringLiteral("1 cycle")
                         : QStringLiteral("%1 cycles").arg(record->sequence.cycles))
                .arg(record->sequence.endState)
                .arg(record->sampleCount);
    line.reporter().result(true, text, fields);
    return Success;
}

ExitStatus exportRecord(const QStringList &arguments)
{
    CommandLine line(QStringLiteral("history export"),
                     QStringLiteral("RECORD [--sequence FILE] [--trace FILE]"),
                     QStringLiteral("Writes a record's sequence as a sequence file and a run's "
                                    "trace as CSV."));
    QCommandLineParser &p = line.parser();
    const QCommandLineOption location = locationOption();
    const QCommandLineOption sequence(QStringLiteral("sequence"),
                                      QStringLiteral("Write the sequence to this file."),
                                      QStringLiteral("file"));
    const QCommandLineOption trace(QStringLiteral("trace"),
                                   QStringLiteral("Write the run's trace to this CSV file."),
                                   QStringLiteral("file"));
    p.addOptions({location, sequence, trace});
    p.addPositionalArgument(QStringLiteral("record"),
                            QStringLiteral("R12 for a run, U7 for an upload."));
    if (const auto ended = line.parse(arguments))
        return *ended;
    QString kind;
    if (!recordId(line, &kind))
        return Usage;
    if (!p.isSet(sequence) && !p.isSet(trace))
        return line.usage(QStringLiteral("say what to write with --sequence FILE or --trace FILE"));
    Opened opened = openForReading(line, location);
    if (!opened.store)
        return opened.status;
    ExitStatus status = Success;
    const std::optional<HistoryRecord> record = findRecord(line, *opened.store, true, &status);
    if (!record)
        return status;
    if (p.isSet(trace) && record->kind != HistoryRecord::Kind::Run)
        return line.usage(QStringLiteral("an upload has no trace; name a run"));
    QJsonObject written;
    const auto write = [&](const QCommandLineOption &option, const QStringList &lines) {
        const QString path = p.value(option);
        if (!tarn2::util::character::Character::csvSave(path, lines)) {
            line.reporter().error(QStringLiteral("could not write %1").arg(path));
            return false;
        }
        written.insert(option.names().constFirst(), path);
        return true;
    };
    if (p.isSet(sequence) && !write(sequence, sequenceLines(*record, line.description())))
        return Failure;
    if (p.isSet(trace) && !write(trace, traceLines(*record, line.description())))
        return Failure;
    line.reporter().result(true, QStringLiteral("exported %1").arg(record->name()), written);
    return Success;
}

} // namespace

ExitStatus history(const QStringList &arguments)
{
    const QString action = arguments.value(1);
    const QStringList rest = QStringList{arguments.value(0)} + arguments.mid(2);
    if (action == QLatin1String("list"))
        return list(rest);
    if (action == QLatin1String("show"))
        return show(rest);
    if (action == QLatin1String("export"))
        return exportRecord(rest);
    std::fprintf(stderr,
                 "tarn_bench_cli history: say list, show or export\nUsage: tarn_bench_cli "
                 "history list|show|export [options]\n");
    return Usage;
}

} // namespace tarn::cli

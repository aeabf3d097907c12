// Parsing the shared options and the values of numeric ones.
#include "commandline.h"

#include "reporter.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <cstdio>

namespace tarn::cli {

CommandLine::CommandLine(const QString &name, const QString &synopsis, const QString &description)
    : m_name(name)
    , m_synopsis(synopsis)
    , m_json(QStringLiteral("json"), QStringLiteral("Print one JSON object per line."))
    , m_quiet(QStringList{QStringLiteral("q"), QStringLiteral("quiet")},
              QStringLiteral("Print only errors."))
    , m_instrument(QStringLiteral("instrument"),
                   QStringLiteral("The instrument description file (default: the built-in one)."),
                   QStringLiteral("file"))
    , m_help(QStringList{QStringLiteral("h"), QStringLiteral("help")},
             QStringLiteral("Show this help."))
    , m_description(sim::InstrumentDescription::builtIn())
{
    m_parser.setApplicationDescription(description);
    m_parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    m_parser.addOptions({m_json, m_quiet, m_instrument, m_help});
    m_parser.addVersionOption();
}

CommandLine::~CommandLine() = default;

ExitStatus CommandLine::usage(const QString &problem)
{
    std::fprintf(stderr,
                 "tarn_bench_cli %s: %s\nUsage: tarn_bench_cli %s %s\n",
                 qPrintable(m_name),
                 qPrintable(problem),
                 qPrintable(m_name),
                 qPrintable(m_synopsis));
    return Usage;
}

std::optional<ExitStatus> CommandLine::parse(const QStringList &arguments)
{
    if (!m_parser.parse(arguments))
        return usage(m_parser.errorText());
    if (m_parser.isSet(QStringLiteral("version"))) {
        std::printf("tarn_bench_cli %s\n", qPrintable(QCoreApplication::applicationVersion()));
        return Success;
    }
    if (m_parser.isSet(m_help)) {
        QString text = m_parser.helpText();
        // The parser knows the program, not the subcommand: name both in the first line.
        text.replace(QRegularExpression(QStringLiteral("^Usage: [^\n]*")),
                     QStringLiteral("Usage: tarn_bench_cli %1 %2").arg(m_name, m_synopsis));
        std::fputs(qPrintable(text), stdout);
        return Success;
    }
    m_reporter = std::make_unique<Reporter>(m_parser.isSet(m_json), m_parser.isSet(m_quiet));
    if (m_parser.isSet(m_instrument)) {
        QString error;
        const auto read
            = sim::InstrumentDescription::fromFile(m_parser.value(m_instrument), &error);
        if (!read)
            return usage(m_parser.value(m_instrument) + QStringLiteral(": ") + error);
        m_description = *read;
    }
    QString error;
    const std::optional<host::CommandSet> commands
        = host::CommandSet::fromOverrides(m_description.commands, &error);
    if (!commands)
        return usage(error);
    m_commands = *commands;
    return std::nullopt;
}

std::optional<int>
CommandLine::integer(const QCommandLineOption &option, int fallback, int min, int max)
{
    if (!m_parser.isSet(option))
        return fallback;
    bool ok = false;
    const int value = m_parser.value(option).toInt(&ok);
    if (!ok || value < min || value > max) {
        usage(QStringLiteral("--%1 takes a whole number from %2 to %3, not \"%4\"")
                  .arg(option.names().constLast())
                  .arg(min)
                  .arg(max)
                  .arg(m_parser.value(option)));
        return std::nullopt;
    }
    return value;
}

std::optional<double>
CommandLine::number(const QCommandLineOption &option, double fallback, double min, double max)
{
    if (!m_parser.isSet(option))
        return fallback;
    bool ok = false;
    const double value = m_parser.value(option).toDouble(&ok);
    if (!ok || !(value >= min && value <= max)) {
        usage(QStringLiteral("--%1 takes a number from %2 to %3, not \"%4\"")
                  .arg(option.names().constLast())
                  .arg(min)
                  .arg(max)
                  .arg(m_parser.value(option)));
        return std::nullopt;
    }
    return value;
}

std::optional<int> CommandLine::channel(const QCommandLineOption &option)
{
    return integer(option, 1, 1, qMax(1, m_description.channels.size()));
}

} // namespace tarn::cli

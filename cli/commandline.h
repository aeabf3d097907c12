// The options every subcommand shares, and what they give it to work with.
#pragma once

#include "exitstatus.h"

#include <commandset.h>
#include <instrumentdescription.h>
#include <sequencecontent.h>
#include <steplimits.h>

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QStringList>

#include <memory>
#include <optional>

namespace tarn::cli {

class Reporter;

// A subcommand's parser with the shared options (--json, -q, --instrument, --help) added, and,
// once parsed, the instrument description and command words they chose.
class CommandLine final
{
public:
    CommandLine(const QString &name, const QString &synopsis, const QString &description);
    ~CommandLine();

    QCommandLineParser &parser() { return m_parser; }
    // Parses the subcommand's arguments (its name first). Nothing when the work goes on; an exit
    // status when it ends here: --help (Success) or a usage error (Usage, told on stderr).
    std::optional<ExitStatus> parse(const QStringList &arguments);

    Reporter &reporter() { return *m_reporter; }
    const sim::InstrumentDescription &description() const { return m_description; }
    const host::CommandSet &commands() const { return m_commands; }

    // A whole number from `min` to `max`; Usage (told on stderr) otherwise.
    std::optional<int> integer(const QCommandLineOption &option, int fallback, int min, int max);
    std::optional<double>
    number(const QCommandLineOption &option, double fallback, double min, double max);
    // Channel 1 unless --channel says otherwise, checked against the description.
    std::optional<int> channel(const QCommandLineOption &option);
    ExitStatus usage(const QString &problem);

private:
    QString m_name;
    QString m_synopsis;
    QCommandLineParser m_parser;
    QCommandLineOption m_json;
    QCommandLineOption m_quiet;
    QCommandLineOption m_instrument;
    QCommandLineOption m_help;
    std::unique_ptr<Reporter> m_reporter;
    sim::InstrumentDescription m_description;
    host::CommandSet m_commands;
};

// A sequence file read for its form, each problem told; nothing when it cannot be used.
std::optional<host::SequenceContent> readSequence(CommandLine &line, const QString &path);
// Tells each step `limits` refuse, by its number from 1; returns how many.
int reportProblems(Reporter &reporter,
                   const host::SequenceContent &content,
                   const host::StepLimits &limits);

// The subcommands; each takes its arguments, its own name first.
ExitStatus generate(const QStringList &arguments);
ExitStatus check(const QStringList &arguments);
ExitStatus identify(const QStringList &arguments);
ExitStatus upload(const QStringList &arguments);
ExitStatus run(const QStringList &arguments);
ExitStatus stop(const QStringList &arguments);
ExitStatus history(const QStringList &arguments);

} // namespace tarn::cli

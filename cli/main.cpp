// tarn_bench_cli: generates, checks, uploads, verifies and runs sequences from the shell.
#include "commandline.h"
#include "rig.h"

#include <QCoreApplication>

#include <cstdio>
#include <map>

using namespace tarn::cli;

namespace {

const char *const overview = R"(Usage: tarn_bench_cli COMMAND [options]

Generates, checks, uploads, verifies and runs List and Delayer sequences of bench supplies.

Commands:
  generate TEMPLATE -o FILE   write a sequence file from one of the dialog's templates
  check FILE                  check every step against the instrument (--connect) or its description
  identify --connect ADDRESS  tell the instrument's identity, channel limits and status
  upload FILE --connect ADDRESS [--channel N] [--run]
                              upload, read back and compare every step; optionally run it
  run --connect ADDRESS [--channel N] [--for SECONDS | --until-end] [--trace FILE]
                              run what the channel holds and record the trace
  stop --connect ADDRESS [--channel N]
                              stop the channel's sequences
  history list [--channel N] [--outcome WORD] [--since DATE] [--text TEXT] ...
                              list the recorded uploads and runs, newest first
  history show RECORD         tell one record (R12 for a run, U7 for an upload)
  history export RECORD [--sequence FILE] [--trace FILE]
                              write a record's sequence file and a run's trace

Each command takes --help, --json (one JSON object per line on stdout), -q and
--instrument FILE (an instrument description). Addresses: tcp://HOST[:PORT],
vxi11://HOST[:PORT][/DEVICE], serial:DEVICE[?baud=N], usbtmc:DEVICE, sim:, or resource strings
TCPIP0::HOST::PORT::SOCKET, TCPIP0::HOST[::DEVICE]::INSTR (VXI-11),
USB0::VENDOR::PRODUCT::SERIAL::INSTR, ASRL/DEVICE::INSTR. Ctrl-C during an upload or a run stops
the instrument's sequence first. Uploads and runs are recorded in the history (--history FILE or
postgresql://user@host/db, --no-history).

Exit status:
  0    success
  1    any other failure
  2    usage: an unknown command or option, a missing or bad value
  3    the sequence file cannot be read, or has steps the instrument cannot take
  4    the connection was refused, could not be made, or was lost
  5    the instrument did not answer in time
  6    the instrument refused a setting, a step or the run
  7    the read-back differs from what was sent
  130  interrupted (Ctrl-C)
)";

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tarn_bench_cli"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TARN_VERSION));
    Rig::catchInterrupt();

    const QStringList arguments = QCoreApplication::arguments();
    const QString command = arguments.value(1);
    if (command == QLatin1String("--help") || command == QLatin1String("-h")
        || command == QLatin1String("help")) {
        std::fputs(overview, stdout);
        return Success;
    }
    if (command == QLatin1String("--version")) {
        std::printf("tarn_bench_cli %s\n", TARN_VERSION);
        return Success;
    }
    const std::map<QString, ExitStatus (*)(const QStringList &)> commands = {
        {QStringLiteral("generate"), &generate},
        {QStringLiteral("check"), &check},
        {QStringLiteral("identify"), &identify},
        {QStringLiteral("upload"), &upload},
        {QStringLiteral("run"), &run},
        {QStringLiteral("stop"), &stop},
        {QStringLiteral("history"), &history},
    };
    const auto found = commands.find(command);
    if (found == commands.end()) {
        std::fprintf(stderr,
                     command.isEmpty() ? "tarn_bench_cli: name a command\n%s"
                                       : "tarn_bench_cli: \"%s\" is not a command\n%s",
                     command.isEmpty() ? overview : qPrintable(command),
                     command.isEmpty() ? "" : overview);
        return Usage;
    }
    // The subcommand's parser sees its own name where a program's name would stand.
    return found->second(arguments.mid(1));
}

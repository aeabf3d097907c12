// The exit statuses of tarn_bench_cli, one per outcome a script must tell apart.
#pragma once

namespace tarn::cli {

// Also listed by `tarn_bench_cli --help` and in the README; the numbers never change meaning.
enum ExitStatus : int {
    Success = 0,
    Failure = 1,    // anything else: the instrument's reply could not be read, a file not written
    Usage = 2,      // an unknown subcommand or option, a missing or bad value
    BadFile = 3,    // a sequence file that cannot be read, or steps the instrument cannot take
    Connection = 4, // the connection was refused, could not be made, or was lost
    Timeout = 5,    // the instrument did not answer in time
    Refused = 6,    // the instrument refused a setting, a step or the run
    Mismatch = 7,   // the read-back differs from what was sent
    Interrupted = 130, // Ctrl-C: the instrument's sequence was stopped first
};

} // namespace tarn::cli

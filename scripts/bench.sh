#!/usr/bin/env bash
# Builds the optimised flavour and prints the table of performance figures, each measured next to
# its bare limit in the same run (they are not part of the test run). Arguments go to the
# benchmark program, for instance `scripts/bench.sh --benchmark_filter=edit`. Exits non-zero when a
# figure misses its goal.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" release "$root/build/release" bench_figures >/dev/null
export QT_QPA_PLATFORM=offscreen
exec "$root/build/release/bench/bench_figures" "$@"

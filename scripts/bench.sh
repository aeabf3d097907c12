#!/usr/bin/env bash
# Builds the optimised flavour and prints the table of performance figures, each measured next to
# its bare limit in the same run (they are not part of the test run), then the command-line
# upload against the scripts a user would otherwise write, and the upload at each link's speed. Arguments go to the benchmark program,
# for instance `scripts/bench.sh --benchmark_filter=edit`. Exits non-zero when a figure misses its
# goal.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" release "$root/build/release" bench_figures bench_hostupload tarn_bench_cli \
    tarn_supply_sim >/dev/null
export QT_QPA_PLATFORM=offscreen
status=0
"$root/build/release/bench/bench_figures" "$@" || status=$?
echo
/usr/bin/python3 "$root/bench/upload_vs_scripts.py" "$root/build/release/cli/tarn_bench_cli" \
    "$root/build/release/simulator/tarn_supply_sim" || status=$?
echo
/usr/bin/python3 "$root/bench/link_figures.py" "$root/build/release/cli/tarn_bench_cli" \
    "$root/build/release/simulator/tarn_supply_sim" "$root/simulator/instruments/array-supply.json" \
    "$root/build/release/bench/bench_hostupload" || status=$?
exit "$status"

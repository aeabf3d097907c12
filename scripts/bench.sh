#!/usr/bin/env bash
# Builds the project and runs every benchmark program once (they are not part of the test run).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" plain "$root/build/plain" >/dev/null
export QT_QPA_PLATFORM=offscreen
for bench in "$root"/build/plain/bench/bench_*; do
    [ -x "$bench" ] || continue
    echo "== $(basename "$bench")"
    "$bench" "$@"
done

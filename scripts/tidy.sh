#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over every source of the project, using the
# compile commands of the plain build (made if missing). Exits non-zero when any check fires.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
dir="$root/build/plain"
[ -f "$dir/compile_commands.json" ] || "$root/scripts/build.sh" plain "$dir" >/dev/null
cd "$root"
mapfile -t sources < <(git ls-files 'programmer/*.cpp' 'platform/*.cpp' 'simulator/*.cpp' 'host/*.cpp')
log=$(mktemp)
printf '%s\n' "${sources[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p "$dir" --quiet --extra-arg=-Wno-unknown-warning-option >"$log" 2>/dev/null || true
if grep -E 'warning:|error:' "$log"; then
    echo "tidy: $(grep -cE 'warning:|error:' "$log") findings" >&2
    rm -f "$log"
    exit 1
fi
rm -f "$log"
echo "tidy: no findings in ${#sources[@]} files"

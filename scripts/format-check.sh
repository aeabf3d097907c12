#!/usr/bin/env bash
# Fails when a C++ source or header of the project differs from what .clang-format makes of it.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
mapfile -t files < <(git ls-files '*.cpp' '*.h' | grep -v '^tests/fuzz/corpus/')
if ! clang-format --dry-run --Werror "${files[@]}" 2>/tmp/format-check.$$; then
    grep -E '^[^ ].*: error:' /tmp/format-check.$$ | cut -d: -f1 | sort -u | sed 's/^/not formatted: /'
    echo "format: run clang-format -i on the files above" >&2
    rm -f /tmp/format-check.$$
    exit 1
fi
rm -f /tmp/format-check.$$
echo "format: ${#files[@]} files as .clang-format wants them"

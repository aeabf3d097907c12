#!/usr/bin/env bash
# The test command: installs what is missing, then builds and runs the whole suite twice, once
# plainly and once under AddressSanitizer and UndefinedBehaviorSanitizer (halting on the first
# error). Exits non-zero when any build or test fails.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

"$root/scripts/setup.sh"

echo "== format"
"$root/scripts/format-check.sh"

export QT_QPA_PLATFORM=offscreen

echo "== plain build"
"$root/scripts/build.sh" plain "$root/build/plain"
(cd "$root/build/plain" && ctest --output-on-failure --timeout 600)

echo "== sanitized build (address, undefined)"
"$root/scripts/build.sh" asan "$root/build/asan"
export ASAN_OPTIONS="halt_on_error=1:abort_on_error=1:detect_leaks=1:strict_string_checks=1"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1"
export LSAN_OPTIONS="suppressions=$root/scripts/lsan.supp:print_suppressions=0"
(cd "$root/build/asan" && ctest --output-on-failure --timeout 900)

echo "== fuzz targets (clang, address, undefined): every corpus replayed, then a short run each"
"$root/scripts/fuzz.sh" --smoke 5

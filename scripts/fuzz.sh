#!/usr/bin/env bash
# Builds the libFuzzer targets with clang (address and undefined sanitizers on) and runs each one.
#   scripts/fuzz.sh [SECONDS]   fuzz every target for SECONDS (60 unless given), growing a
#                               working corpus in build/fuzz/corpus/<target>
#   scripts/fuzz.sh --smoke N   what the test command runs: replay every committed corpus file,
#                               then fuzz each target for N seconds from a scratch copy
#   scripts/fuzz.sh --runs N    fuzz every target for N executions instead of a time
# Inputs that crash are written to build/fuzz/crashes/<target>/; a fixed one belongs in
# tests/fuzz/corpus/<target>/ so that the replay keeps it.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
dir="$root/build/fuzz"
mode=fuzz
seconds=${1:-60}
limit=()
case "${1:-}" in
    --smoke) mode=smoke; seconds=${2:-5} ;;
    --runs) limit=(-runs="${2:-1000000}") ;;
esac
[ ${#limit[@]} -gt 0 ] || limit=(-max_total_time="$seconds")

"$root/scripts/setup.sh"
flags="-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1 -g"
CC=clang CXX=clang++ cmake -S "$root" -B "$dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_CXX_FLAGS="$flags" -DTARN_BUILD_FUZZERS=ON -DBUILD_TESTING=OFF \
    -DTARN_BUILD_BENCHMARKS=OFF >/dev/null
targets=(fuzz_listfile fuzz_delayerfile fuzz_templatestream fuzz_description fuzz_scpi fuzz_replies)
build_targets=()
for target in "${targets[@]}"; do build_targets+=(--target "$target"); done
cmake --build "$dir" -j"$(nproc)" "${build_targets[@]}"

export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS="halt_on_error=1:abort_on_error=1:detect_leaks=0:allocator_may_return_null=1"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1"
corpora="$root/tests/fuzz/corpus"
status=0
# Runs one fuzzer with its log kept aside; shows the lines that matter and keeps its exit status.
run() {
    local log
    log=$(mktemp)
    local rc=0
    "$@" >"$log" 2>&1 || rc=$?
    grep -E '^(Done [0-9]+ runs|stat::number_of_executed_units|stat::peak_rss_mb|#[0-9]+.*(DONE|cov:.*corp:[0-9]+/.*exec/s).*$|==[0-9]+==ERROR|SUMMARY)' "$log" | tail -n 6 || true
    [ "$rc" -eq 0 ] || tail -n 40 "$log"
    rm -f "$log"
    return "$rc"
}
for target in "${targets[@]}"; do
    binary="$dir/tests/fuzz/$target"
    seeds="$corpora/$target"
    crashes="$dir/crashes/$target"
    mkdir -p "$crashes"
    options=(-dict="$root/tests/fuzz/$target.dict" -max_len=65536 -rss_limit_mb=2048
             -artifact_prefix="$crashes/" -print_final_stats=1)
    if [ "$mode" = smoke ]; then
        echo "== $target: replaying $(ls "$seeds" | wc -l) corpus files"
        run "$binary" "${options[@]}" -runs=0 "$seeds" || status=1
        scratch=$(mktemp -d)
        cp "$seeds"/* "$scratch"/
        echo "== $target: fuzzing for $seconds s"
        run "$binary" "${options[@]}" -max_total_time="$seconds" "$scratch" || status=1
        rm -rf "$scratch"
    else
        work="$dir/corpus/$target"
        mkdir -p "$work"
        echo "== $target: fuzzing (${limit[*]})"
        run "$binary" "${options[@]}" "${limit[@]}" "$work" "$seeds" || status=1
    fi
done
exit $status

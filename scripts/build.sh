#!/usr/bin/env bash
# Configures and builds one flavour of the project:
#   scripts/build.sh [plain|asan|release] [build-dir] [target...]
# Without targets it builds everything. "release" is the optimised build the benchmark figures are
# measured on.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
flavour=${1:-plain}
dir=${2:-$root/build/$flavour}
shift $(( $# < 2 ? $# : 2 ))

flags="-Werror"
if [ "$flavour" = asan ]; then
    flags="$flags -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1"
fi

type=RelWithDebInfo
[ "$flavour" = release ] && type=Release

cmake -S "$root" -B "$dir" -DCMAKE_BUILD_TYPE=$type -DCMAKE_CXX_FLAGS="$flags" \
    -DCMAKE_EXPORT_COMPILE_COMMANDS=ON >/dev/null
targets=()
for target in "$@"; do
    targets+=(--target "$target")
done
cmake --build "$dir" -j"$(nproc)" "${targets[@]}"

#!/usr/bin/env bash
# Configures and builds one flavour of the project: scripts/build.sh [plain|asan|release] [build-dir].
# "release" is the optimised build the benchmark figures are measured on.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
flavour=${1:-plain}
dir=${2:-$root/build/$flavour}

flags="-Werror"
if [ "$flavour" = asan ]; then
    flags="$flags -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1"
fi

type=RelWithDebInfo
[ "$flavour" = release ] && type=Release

cmake -S "$root" -B "$dir" -DCMAKE_BUILD_TYPE=$type -DCMAKE_CXX_FLAGS="$flags" \
    -DCMAKE_EXPORT_COMPILE_COMMANDS=ON >/dev/null
cmake --build "$dir" -j"$(nproc)" ${BUILD_TARGET:+--target "$BUILD_TARGET"}

#!/usr/bin/env bash
# Builds the Debian package (libraries, headers and CMake package, the bench host with its desktop
# entry and icon, the command-line tool, the simulated supply, the catalogues) in build/package and
# prints its path.
#   scripts/package.sh            then: sudo apt-get install ./build/package/tarn-bench-programmer_*.deb
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
dir="$root/build/package"
"$root/scripts/setup.sh"
cmake -S "$root" -B "$dir" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr \
    -DBUILD_TESTING=OFF >/dev/null
cmake --build "$dir" -j"$(nproc)"
(cd "$dir" && cpack -G DEB >/dev/null)
ls "$dir"/*.deb

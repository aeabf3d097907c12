#!/usr/bin/env bash
# Rebuilds the icon painter in a temporary directory and redraws resources/images/*.png.
# Usage: resources/draw-icons.sh [contact-sheet.png]
# The optional contact sheet shows every icon at 16, 24, 32 and 64 px; it is for looking at, not
# for committing.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(mktemp -d)
trap 'rm -rf "$build"' EXIT

cmake -S "$here/iconpainter" -B "$build" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" -j2 >/dev/null

args=()
if [[ $# -ge 1 ]]; then
    args=(--sheet "$(realpath -m "$1")")
fi
"$build/iconpainter" "${args[@]}" "$here/images"

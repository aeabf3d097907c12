#!/usr/bin/env bash
# The main job: installs what is missing, builds, and opens the programmer dialog in the reference
# host with its simulated four-channel instrument. Arguments go to the host, for instance
# `scripts/run.sh --screenshot list.png`.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

"$root/scripts/setup.sh"
"$root/scripts/build.sh" plain "$root/build/plain" >/dev/null

host="$root/build/plain/host/tarn_bench_host"
for arg in "$@"; do
    if [ "$arg" = "--screenshot" ]; then
        exec env QT_QPA_PLATFORM=offscreen "$host" "$@"
    fi
done
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    echo "No display found. Run it in a virtual one:  xvfb-run -a -s '-screen 0 1920x1080x24' scripts/run.sh" >&2
    echo "or render the dialog to a file:            scripts/run.sh --screenshot dialog.png" >&2
    exit 2
fi
exec "$host" "$@"

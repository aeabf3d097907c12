#!/usr/bin/env bash
# The main job: installs what is missing, builds the bench host and opens it on the simulated supply
# (or the instrument given with --connect). Without a display it runs the headless demo instead:
# upload, verify, screenshot. Arguments go to the host, for instance `scripts/run.sh --connect
# tcp://HOST:5025` or `scripts/run.sh --screenshot list.png`.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
host="$root/build/plain/host/tarn_bench_host"

headless=
for arg in "$@"; do
    case "$arg" in
        --screenshot|--demo) headless=given ;;
    esac
done
if [ -z "$headless" ] && [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    echo "run: no display found, so the window cannot open here; running the headless demo instead"
    echo "run: (for the window, use a display or: xvfb-run -a -s '-screen 0 1920x1080x24' scripts/run.sh)"
    headless=demo
fi

echo "run: checking the Debian packages the build needs"
"$root/scripts/setup.sh"
echo "run: building tarn_bench_host in build/plain (the first build takes a few minutes)"
"$root/scripts/build.sh" plain "$root/build/plain" tarn_bench_host tarn_supply_sim | grep --line-buffered -E '^\[ *[0-9]+%\] (Building|Linking)' || true
[ -x "$host" ] || { echo "run: the build failed; run scripts/build.sh plain for the whole log" >&2; exit 1; }

case "$headless" in
    demo)
        mkdir -p "$root/build/demo"
        echo "run: uploading the default Sine to the simulated supply and verifying it"
        exec env QT_QPA_PLATFORM=offscreen "$host" --demo "$root/build/demo/demo.png" "$@"
        ;;
    given)
        exec env QT_QPA_PLATFORM=offscreen "$host" "$@"
        ;;
esac
echo "run: starting tarn_bench_host"
exec "$host" "$@"

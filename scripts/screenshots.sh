#!/usr/bin/env bash
# Renders the pictures under docs/screenshots/: the List tab, the Delayer tab and a run, at
# 1280x800 and 1920x1080, in English and German. Each is drawn offscreen with settings of its own,
# so stored templates do not change them; the run is the headless demo's, against the simulated
# supply. Run it after changing what the window shows, and look at the pictures.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/build.sh" plain "$root/build/plain" tarn_bench_host >/dev/null
host="$root/build/plain/host/tarn_bench_host"
out="$root/docs/screenshots"
mkdir -p "$out"
config=$(mktemp -d)
export XDG_RUNTIME_DIR="$config"
trap 'rm -rf "$config"' EXIT

for lang in en de; do
    for size in 1280x800 1920x1080; do
        for tab in list delayer; do
            XDG_CONFIG_HOME="$config" QT_QPA_PLATFORM=offscreen \
                "$host" --lang "$lang" --size "$size" --tab "$tab" \
                --screenshot "$out/$tab-$size-$lang.png"
        done
        XDG_CONFIG_HOME="$config" QT_QPA_PLATFORM=offscreen \
            "$host" --lang "$lang" --size "$size" --demo "$out/run-$size-$lang.png" >/dev/null
        rm -f "$out/run-$size-$lang-trace.csv" "$out/run-$size-$lang-plot.png"
        echo "screenshots: $lang $size"
    done
done
echo "screenshots: written to ${out#$root/}"

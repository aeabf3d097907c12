#!/usr/bin/python3
"""The upload at the link's speed: a 2048-step `tarn_bench_cli upload` with its read-back, timed
from the tool's "connected" line to its result, against tarn_supply_sim
  (a) over loopback TCP with 2 ms on every reply, against the same without latency: at least half
      the rate;
  (b) the whole command through the supply's pseudo-terminal paced at 115200 baud, in each List
      dialect, against the time its bytes need on the wire (the supply counts them, ten bit times
      each; both directions are added, since the read-back follows the upload): within 10 %;
  (c) the same upload over loopback TCP from the bench window shown on an X server (xvfb-run),
      against the sessions alone without any widget: within 3x (bench_hostupload's figures).
Each figure is the median of several runs.

Usage: link_figures.py PATH/TO/tarn_bench_cli PATH/TO/tarn_supply_sim PATH/TO/array-supply.json
                       PATH/TO/bench_hostupload
Exits 1 when a figure misses its goal.
"""
import json
import os
import re
import statistics
import subprocess
import sys
import tempfile
import time

cli, supply_program, arrays, host_bench = sys.argv[1:5]
STEPS = 2048
BAUD = 115200
missed = []


def upload(work, supply_options, address_of, tool_options=(), whole=False):
    """Seconds from connected to verified (or of the whole command, when `whole`), and the
    supply's byte counts for the whole command."""
    supply = subprocess.Popen([supply_program, *supply_options], stdout=subprocess.PIPE,
                              text=True)
    ready = supply.stdout.readline()
    started = time.perf_counter()
    tool = subprocess.Popen([cli, "upload", "long.csv", "--connect", address_of(ready), "--json",
                             *tool_options], cwd=work, stdout=subprocess.PIPE, text=True)
    connected = None
    for line in tool.stdout:
        kind = json.loads(line)["type"]
        if kind == "info" and connected is None:
            connected = time.perf_counter()
        if kind == "result":
            seconds = time.perf_counter() - connected
            ok = json.loads(line)["ok"]
    tool.wait()
    if whole:
        seconds = time.perf_counter() - started
    supply.terminate()
    counts = re.search(r"after (\d+) bytes in, (\d+) bytes out", supply.stdout.read())
    supply.wait()
    if not ok:
        sys.exit("the upload was not verified")
    return seconds, int(counts.group(1)), int(counts.group(2))


def median(runs, measure):
    results = [measure() for _ in range(runs)]
    return statistics.median(r[0] for r in results), results[0][1], results[0][2]


def row(name, value, goal, met):
    print(f"{name:<58} {value:>22} {goal:>24}  {'ok' if met else 'MISSED'}")
    if not met:
        missed.append(name)


with tempfile.TemporaryDirectory() as work:
    with open(os.path.join(work, "long.csv"), "w") as f:
        f.write(f"LIST,10\nCycles,1\nEnd Status,Output Off\nGroups,{STEPS}\n"
                "No.,Voltage(V),Current(A),Time(s)\n")
        for i in range(STEPS):
            f.write(f"{i},{1 + (i % 100) / 10:.3f},1.500,0.500\n")
    tcp = lambda ready: "tcp://" + re.search(r"(127\.0\.0\.1:\d+)$", ready.strip()).group(1)
    listen = ["--listen", "127.0.0.1:0"]

    print(f"{'figure':<58} {'measured':>22} {'goal':>24}")
    bare, _, _ = median(5, lambda: upload(work, listen, tcp))
    slow, _, _ = median(5, lambda: upload(work, listen + ["--latency", "2"], tcp))
    row("(a) TCP, no latency: 2048 steps uploaded and verified", f"{STEPS / bare:,.0f} steps/s",
        "", True)
    row("(a) TCP, 2 ms on every reply", f"{STEPS / slow:,.0f} steps/s",
        f">= {STEPS / bare / 2:,.0f} steps/s", STEPS / slow >= STEPS / bare / 2)

    pty = os.path.join(work, "supply-tty")
    paced = ["--pty", pty, "--baud", str(BAUD)]
    for dialect, options in (("LIST:STEP", ()), ("arrays", ("--instrument", arrays))):
        seconds, bytes_in, bytes_out = median(
            3, lambda: upload(work, paced + list(options), lambda _: f"serial:{pty}", options,
                              whole=True))
        wire = (bytes_in + bytes_out) * 10 / BAUD
        row(f"(b) 115200 baud, {dialect}: {bytes_in / STEPS:.1f} bytes/step out, "
            f"{bytes_out / STEPS:.1f} back", f"{seconds:.2f} s", f"<= {wire * 1.1:.2f} s "
            f"(wire {wire:.2f} s)", seconds <= wire * 1.1)

# (c) Google Benchmark's own figures, the median of its repetitions.
command = [host_bench, "--benchmark_filter=Window", "--benchmark_repetitions=3",
           "--benchmark_format=json"]
environment = dict(os.environ)
if subprocess.run(["which", "xvfb-run"], capture_output=True).returncode == 0:
    command = ["xvfb-run", "-a", *command]
    environment["QT_QPA_PLATFORM"] = "xcb"
report = json.loads(subprocess.run(command, capture_output=True, text=True, env=environment,
                                   timeout=600).stdout)
medians = {b["run_name"].split("/")[0]: b["real_time"] for b in report["benchmarks"]
           if b.get("aggregate_name") == "median"}
shown = medians["BM_UploadInShownWindow"]
bare = medians["BM_UploadWithoutWindow"]
row("(c) TCP, without a window: 2048 steps uploaded and verified", f"{bare:.1f} ms", "", True)
row("(c) TCP, from the shown window", f"{shown:.1f} ms ({shown / bare:.1f}x)",
    f"<= {3 * bare:.1f} ms (3x)", shown <= 3 * bare)

sys.exit(1 if missed else 0)

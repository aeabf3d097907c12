#!/usr/bin/python3
"""Times a whole `tarn_bench_cli upload` of a 2048-step file, with its read-back, against the two
scripts a test engineer would otherwise write on the VISA library's pure-Python backend: one that
confirms each step with *OPC?, and one that writes blind. All three talk to tarn_supply_sim over
loopback TCP in the same run; each figure is the median of several runs.

Usage: upload_vs_scripts.py PATH/TO/tarn_bench_cli PATH/TO/tarn_supply_sim
Exits 1 when the tool is not at least 5x faster than the confirming script, or slower than 3x the
blind one.
"""
import re
import statistics
import subprocess
import sys
import tempfile
import time

import pyvisa

cli, supply_program = sys.argv[1:3]
STEPS = 2048
RUNS = 5


def start_supply():
    supply = subprocess.Popen([supply_program, "--listen", "127.0.0.1:0"],
                              stdout=subprocess.PIPE, text=True)
    port = int(re.search(r":(\d+)$", supply.stdout.readline().strip()).group(1))
    return supply, port


def visa_upload(port, confirm):
    manager = pyvisa.ResourceManager("@py")
    inst = manager.open_resource(f"TCPIP0::127.0.0.1::{port}::SOCKET")
    inst.read_termination = inst.write_termination = "\n"
    inst.timeout = 10000
    started = time.perf_counter()
    inst.write("INST:NSEL 1;LIST:CLE;LIST:REP 1;LIST:END OFF")
    for i in range(STEPS):
        inst.write(f"LIST:STEP {i + 1},{1 + (i % 100) / 10},1.5,0.5")
        if confirm:
            inst.query("*OPC?")
    inst.query("*OPC?")
    elapsed = time.perf_counter() - started
    inst.close()
    manager.close()
    return elapsed


def median_ms(measure):
    return statistics.median(measure() for _ in range(RUNS)) * 1000.0


with tempfile.TemporaryDirectory() as work:
    path = f"{work}/long.csv"
    with open(path, "w") as f:
        f.write(f"LIST,10\nCycles,1\nEnd Status,Output Off\nGroups,{STEPS}\n"
                "No.,Voltage(V),Current(A),Time(s)\n")
        for i in range(STEPS):
            f.write(f"{i},{1 + (i % 100) / 10:.3f},1.500,0.500\n")
    supply, port = start_supply()
    try:
        def tool():
            started = time.perf_counter()
            done = subprocess.run([cli, "upload", path, "--connect", f"tcp://127.0.0.1:{port}",
                                   "-q"])
            if done.returncode != 0:
                sys.exit(f"the upload failed with status {done.returncode}")
            return time.perf_counter() - started

        tool_ms = median_ms(tool)
        confirmed_ms = median_ms(lambda: visa_upload(port, True))
        blind_ms = median_ms(lambda: visa_upload(port, False))
    finally:
        supply.kill()
        supply.wait()

print(f"| upload of {STEPS} steps over loopback TCP | time | goal | met |")
print("|---|---|---|---|")
met_confirmed = tool_ms * 5 <= confirmed_ms
met_blind = tool_ms <= blind_ms * 3
print(f"| tarn_bench_cli upload, process start to exit, read-back included | {tool_ms:.0f} ms | "
      f"<= 1/5 of the confirming script, <= 3x the blind one | "
      f"{'yes' if met_confirmed and met_blind else 'no'} |")
print(f"| script confirming each step with *OPC? | {confirmed_ms:.0f} ms | | |")
print(f"| script writing blind, checking nothing | {blind_ms:.0f} ms | | |")
sys.exit(0 if met_confirmed and met_blind else 1)

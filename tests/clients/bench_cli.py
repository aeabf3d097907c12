#!/usr/bin/python3
"""Drives tarn_bench_cli as a rig's script would, against tarn_supply_sim on a free loopback port:
every exit status provoked for real, the JSON lines read as JSON, Ctrl-C in the middle of a run,
and the README's rig example run as written.

Usage: bench_cli.py PATH/TO/tarn_bench_cli PATH/TO/tarn_supply_sim PATH/TO/README.md
"""
import json
import os
import re
import signal
import socket
import subprocess
import sys
import tempfile
import time

cli, supply_program, readme = sys.argv[1:4]
# What the tool records goes into a history of this test's own, not the user's.
history_home = tempfile.TemporaryDirectory()
os.environ["XDG_DATA_HOME"] = history_home.name
failures = []
passed = 0


def check(name, actual, expected):
    global passed
    if actual == expected:
        passed += 1
    else:
        failures.append(name)
        print(f"FAIL {name}: got {actual!r}, expected {expected!r}")


def start_supply(*faults):
    supply = subprocess.Popen([supply_program, "--listen", "127.0.0.1:0", *faults],
                              stdout=subprocess.PIPE, text=True)
    match = re.search(r"127\.0\.0\.1:(\d+)$", supply.stdout.readline().strip())
    if not match:
        supply.kill()
        sys.exit("the supply did not start")
    return supply, f"tcp://127.0.0.1:{match.group(1)}"


def tool(*arguments, cwd):
    return subprocess.run([cli, *arguments], cwd=cwd, capture_output=True, text=True, timeout=60)


def closed_port():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


def ask(address, line):
    host, port = address[len("tcp://"):].split(":")
    with socket.create_connection((host, int(port)), timeout=5) as s:
        s.sendall(line.encode() + b"\n")
        return s.makefile().readline().strip()


with tempfile.TemporaryDirectory() as work:
    check("generate", tool("generate", "sine", "-o", "sine.csv", cwd=work).returncode, 0)
    with open(os.path.join(work, "high.csv"), "w") as f:
        f.write("LIST,10\nCycles,1\nEnd Status,Output Off\nGroups,3\n"
                "No.,Voltage(V),Current(A),Time(s)\n0,1,1,1\n1,99,1,1\n2,2,9,1\n")
    with open(os.path.join(work, "ends-on.csv"), "w") as f:
        f.write("LIST,10\nCycles,1\nEnd Status,Output On\nGroups,1\n"
                "No.,Voltage(V),Current(A),Time(s)\n0,1,1,1\n")

    # Each outcome a script must tell apart, each with its own status.
    statuses = [
        ("unknown command", [], ["frobnicate"], 2),
        ("bad value", [], ["generate", "sine", "--steps", "0", "-o", "x.csv"], 2),
        ("file not written", [], ["generate", "ramp", "-o", "no/such/folder/r.csv"], 1),
        ("unreadable file", [], ["check", "missing.csv"], 3),
        ("steps out of range", [], ["check", "high.csv"], 3),
        ("a List ending on", [], ["check", "ends-on.csv"], 3),
        ("verified", [], ["upload", "sine.csv"], 0),
        ("refused step", ["--refuse-step", "3"], ["upload", "sine.csv"], 6),
        ("read-back differs", ["--alter-step", "2"], ["upload", "sine.csv"], 7),
        ("connection lost", ["--drop-after", "12"], ["upload", "sine.csv"], 4),
        ("instrument silent", ["--silent-after", "12"], ["upload", "sine.csv"], 5),
    ]
    for name, faults, arguments, expected in statuses:
        supply, address = start_supply(*faults) if arguments[0] == "upload" else (None, None)
        if supply:
            arguments = arguments + ["--connect", address]
        check(name, tool(*arguments, cwd=work).returncode, expected)
        if supply:
            supply.kill()
            supply.wait()
    check("connection refused",
          tool("identify", "--connect", f"tcp://127.0.0.1:{closed_port()}", cwd=work).returncode,
          4)

    # Every step the instrument cannot take is named, as JSON a rig reads.
    checked = tool("check", "high.csv", "--json", cwd=work)
    lines = [json.loads(line) for line in checked.stdout.splitlines()]
    check("problems by step", [(l["type"], l.get("step")) for l in lines],
          [("problem", 1), ("problem", 2), ("result", None)])
    check("result says how many", (lines[-1]["ok"], lines[-1]["refused"]), (False, 2))

    supply, address = start_supply("--speed", "10")
    uploaded = tool("upload", "sine.csv", "--connect", address, "--json", cwd=work)
    lines = [json.loads(line) for line in uploaded.stdout.splitlines()]
    check("upload JSON kinds", {l["type"] for l in lines}, {"info", "progress", "result"})
    check("upload result", (lines[-1]["ok"], lines[-1]["held"]), (True, 30))
    check("progress reaches the end", [l["done"] for l in lines if l["type"] == "progress"][-1],
          30)

    # Ctrl-C stops the run the instrument is playing, then the tool ends as interrupted.
    running = subprocess.Popen([cli, "run", "--connect", address, "--until-end", "--json"],
                               cwd=work, stdout=subprocess.PIPE, text=True)
    first = json.loads(running.stdout.readline())
    check("connected before the run", first["type"], "info")
    time.sleep(1.0)
    running.send_signal(signal.SIGINT)
    rest = running.stdout.read()
    check("interrupted", running.wait(timeout=30), 130)
    check("the run was stopped", json.loads(rest.splitlines()[-1])["message"],
          "Stopped; the output is as the end state leaves it")
    check("the instrument stopped too", ask(address, "LIST:STAT?"), "STOP")
    supply.kill()
    supply.wait()

# The README's rig example, as written, in a folder of its own.
with open(readme) as f:
    example = re.search(r"<!-- rig example -->\n```sh\n(.*?)```", f.read(), re.S).group(1)
with tempfile.TemporaryDirectory() as work:
    environment = dict(os.environ, PATH=os.path.dirname(cli) + os.pathsep + os.environ["PATH"])
    ran = subprocess.run(["bash", "-e", "-c", example], cwd=work, env=environment,
                         capture_output=True, text=True, timeout=120)
    check("README example", ran.returncode, 0)
    check("README example verifies", "Verified 16 steps on CH1" in ran.stdout, True)
    check("README example traces", os.path.getsize(os.path.join(work, "trace.csv")) > 100, True)

print(f"{passed} passed, {len(failures)} failed")
sys.exit(1 if failures else 0)

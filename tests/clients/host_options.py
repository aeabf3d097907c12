#!/usr/bin/python3
"""Runs tarn_bench_host from a terminal that has no display, as a user on a server would: --help
and --version answer, --demo draws offscreen by itself, and every bad option value is refused with
its value named and a non-zero status.

Usage: host_options.py PATH/TO/tarn_bench_host
"""
import os
import subprocess
import sys
import tempfile

host = os.path.abspath(sys.argv[1])
failures = []
passed = 0
# A display that is not there, and no platform chosen: what a terminal over ssh has.
environment = {k: v for k, v in os.environ.items() if k not in ("QT_QPA_PLATFORM", "WAYLAND_DISPLAY")}
environment["DISPLAY"] = ":97"


def check(name, actual, expected):
    global passed
    if actual == expected:
        passed += 1
    else:
        failures.append(name)
        print(f"FAIL {name}: got {actual!r}, expected {expected!r}")


def run(*arguments, cwd=None):
    return subprocess.run([host, *arguments], capture_output=True, text=True, env=environment,
                          cwd=cwd, timeout=90)


helped = run("--help")
check("--help exits 0", helped.returncode, 0)
check("--help describes --demo", "--demo <file>" in helped.stdout, True)
versioned = run("--version")
check("--version exits 0", versioned.returncode, 0)
check("--version names the version", versioned.stdout.strip().split()[-1].count("."), 2)

with tempfile.TemporaryDirectory() as work:
    for name, arguments, named in [
            ("unknown tab", ["--tab", "foo"], "--tab foo"),
            ("size without height", ["--size", "10x"], "--size 10x"),
            ("size below the window's minimum", ["--size", "10x10", "--screenshot", "x.png"],
             "--size 10x10"),
            ("missing file", ["no-such.csv"], "no-such.csv"),
            ("unknown language", ["--lang", "xx"], "--lang xx")]:
        refused = run(*arguments, cwd=work)
        check(f"{name}: status", refused.returncode, 2)
        check(f"{name}: names the value", named in refused.stderr, True)
    check("nothing was drawn for a refused size", os.path.exists(os.path.join(work, "x.png")),
          False)

    demo = run("--demo", os.path.join(work, "demo.png"), cwd=work)
    check("--demo runs without a display", demo.returncode, 0)
    check("--demo writes its picture", os.path.getsize(os.path.join(work, "demo.png")) > 0, True)

print(f"{passed} passed, {len(failures)} failed")
sys.exit(1 if failures else 0)

#!/usr/bin/python3
"""A line of stations sharing one history: starts a real PostgreSQL server of its own in a temporary
directory on a free loopback port, records an upload and a run into it through tarn_bench_cli,
stops the server in the middle of the work, and sees the queued records reach it once it is back.
Exits 77 (skipped, with the reason) where no server can be started here.

Usage: history_server.py PATH/TO/tarn_bench_cli PATH/TO/tarn_supply_sim
"""
import glob
import json
import os
import re
import shutil
import socket
import subprocess
import sys
import tempfile

cli, supply_program = sys.argv[1:3]
failures = []
passed = 0
SKIP = 77


def check(name, actual, expected):
    global passed
    if actual == expected:
        passed += 1
    else:
        failures.append(name)
        print(f"FAIL {name}: got {actual!r}, expected {expected!r}")


def skip(reason):
    print(f"SKIP: {reason}")
    sys.exit(SKIP)


def server_program(name):
    found = sorted(glob.glob(f"/usr/lib/postgresql/*/bin/{name}"))
    return found[-1] if found else shutil.which(name)


def free_port():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


initdb, pg_ctl = server_program("initdb"), server_program("pg_ctl")
if not initdb or not pg_ctl:
    skip("PostgreSQL's server programs are not installed (Debian package postgresql)")
if not os.path.exists("/usr/lib/x86_64-linux-gnu/qt5/plugins/sqldrivers/libqsqlpsql.so") \
        and not glob.glob("/usr/lib/*/qt5/plugins/sqldrivers/libqsqlpsql.so"):
    skip("Qt's PostgreSQL driver is not installed (Debian package libqt5sql5-psql)")

# The server refuses to run as root: as root, it runs as nobody.
as_server = []
if os.geteuid() == 0:
    runuser = shutil.which("runuser")
    if not runuser:
        skip("running as root without runuser, so the server cannot run as another user")
    as_server = [runuser, "-u", "nobody", "--"]

with tempfile.TemporaryDirectory() as work:
    server_dir = os.path.join(work, "server")
    os.mkdir(server_dir)
    if as_server:
        os.chmod(work, 0o755)
        shutil.chown(server_dir, "nobody")
    data = os.path.join(server_dir, "data")
    port = free_port()

    def server(*arguments):
        return subprocess.run(as_server + list(arguments), capture_output=True, text=True,
                              timeout=120, cwd=server_dir)

    made = server(initdb, "-D", data, "-U", "bench", "--auth=trust", "-E", "UTF8", "--no-sync")
    if made.returncode != 0:
        skip(f"initdb failed: {made.stderr.strip()[:300]}")
    options = f"-h 127.0.0.1 -p {port} -k {server_dir} -c fsync=off"

    def start():
        return server(pg_ctl, "-D", data, "-o", options, "-l",
                      os.path.join(server_dir, "log"), "-w", "-t", "60", "start").returncode

    def stop():
        server(pg_ctl, "-D", data, "-m", "fast", "-w", "-t", "60", "stop")

    if start() != 0:
        skip("the PostgreSQL server did not start on 127.0.0.1")
    try:
        created = subprocess.run(["psql", "-h", "127.0.0.1", "-p", str(port), "-U", "bench",
                                  "-d", "postgres", "-c", "CREATE DATABASE line"],
                                 capture_output=True, text=True, timeout=60)
        check("database created", created.returncode, 0)

        os.environ["XDG_DATA_HOME"] = os.path.join(work, "data")
        os.environ["XDG_CONFIG_HOME"] = os.path.join(work, "config")
        settings_dir = os.path.join(work, "config", "Tarn")
        os.makedirs(settings_dir)
        url = f"postgresql://bench@127.0.0.1:{port}/line"
        # The station's name and the shared history, as the window's settings hold them.
        with open(os.path.join(settings_dir, "Bench Host.conf"), "w") as f:
            f.write(f"[history]\nstation=station-7\nlocation={url}\n")

        def tool(*arguments):
            return subprocess.run([cli, *arguments], cwd=work, capture_output=True, text=True,
                                  timeout=120)

        def records(*options):
            listed = tool("history", "list", "--json", *options)
            lines = [json.loads(line) for line in listed.stdout.splitlines()]
            return listed.returncode, [l for l in lines if l["type"] == "record"]

        tool("generate", "sine", "-o", "sine.csv")
        supply = subprocess.Popen([supply_program, "--listen", "127.0.0.1:0", "--speed", "20"],
                                  stdout=subprocess.PIPE, text=True)
        address = "tcp://127.0.0.1:" + re.search(r":(\d+)$",
                                                 supply.stdout.readline().strip()).group(1)
        try:
            ran = tool("upload", "sine.csv", "--connect", address, "--run", "--until-end")
            check("recorded on the server", ran.returncode, 0)
            status, found = records()
            check("listed from the server", (status, [(r["kind"], r["outcome"], r["station"])
                                                      for r in found]),
                  (0, [("run", "ended", "station-7"), ("upload", "verified", "station-7")]))
            check("a run's samples on the server", found[0]["samples"] > 5, True)
            check("show from the server", tool("history", "show", found[0]["record"]).returncode,
                  0)
            check("export from the server",
                  tool("history", "export", found[0]["record"], "--trace", "t.csv").returncode, 0)
            with open(os.path.join(work, "t.csv")) as f:
                check("the whole trace", len(f.read().splitlines()), found[0]["samples"] + 1)
            # Text that looks like SQL is looked for, never run.
            status, quoted = records("--text", "x' OR '1'='1")
            check("a quote in a search", (status, quoted), (0, []))

            # The server goes away in the middle of the work: nothing is lost.
            stop()
            away = tool("upload", "sine.csv", "--connect", address, "--channel", "2", "--run",
                        "--until-end")
            check("the work goes on without the server", away.returncode, 0)
            check("told that records wait", "2 record(s) wait in" in away.stderr, True)
            check("listing needs the server", tool("history", "list").returncode, 4)
            local = os.path.join(work, "data", "tarn_bench", "history.sqlite")
            status, queued = records("--history", local)
            check("waiting in the local file", [(r["channel"], r["kind"]) for r in queued[:2]],
                  [(2, "run"), (2, "upload")])

            check("server back", start(), 0)
            status, everything = records()
            check("sent once the server is back",
                  (status, sorted((r["channel"], r["kind"]) for r in everything)),
                  (0, [(1, "run"), (1, "upload"), (2, "run"), (2, "upload")]))
            status, again = records()
            check("sent only once", len(again), 4)
            for name in ("Bench Host.conf",):
                with open(os.path.join(settings_dir, name)) as f:
                    check("no password in the settings", "password" in f.read().lower(), False)
        finally:
            supply.kill()
            supply.wait()
    finally:
        stop()

print(f"{passed} passed, {len(failures)} failed")
sys.exit(1 if failures else 0)

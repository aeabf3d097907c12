#!/usr/bin/python3
"""Drives tarn_bench_cli over every kind of link against tarn_supply_sim, in both List dialects:
a raw socket on a free loopback port (by URL and by resource string), the VXI-11 core channel on
another (by URL with its port: the portmapper is not started here), a serial line on the
supply's pseudo-terminal (by device and by ASRL resource), and the USBTMC link on the same
pseudo-terminal standing in for /dev/usbtmcN (by device and by USB resource, found in a stand-in
sysfs tree). Each uploads, verifies and runs; then the faults a bench meets: a dropped line, a
silent instrument, a vanished USB device or VXI-11 server, a paced line whose read-back takes longer than the reply
limit, a refused piece of arrays and malformed resource strings.

Usage: links_cli.py PATH/TO/tarn_bench_cli PATH/TO/tarn_supply_sim PATH/TO/array-supply.json
"""
import os
import re
import subprocess
import sys
import tempfile
import time

cli, supply_program, arrays = sys.argv[1:4]
failures = []
passed = 0


def check(name, actual, expected):
    global passed
    if actual == expected:
        passed += 1
    else:
        failures.append(name)
        print(f"FAIL {name}: got {actual!r}, expected {expected!r}")


class Supply:
    """One tarn_supply_sim on a free loopback port (its VXI-11 core channel when `vxi11`), or on a
    pseudo-terminal linked at `pty`."""

    def __init__(self, *options, pty=None, vxi11=False):
        where = ["--pty", pty] if pty else ["--vxi11" if vxi11 else "--listen", "127.0.0.1:0"]
        self.process = subprocess.Popen([supply_program, *where, "--speed", "20", *options],
                                        stdout=subprocess.PIPE, text=True)
        ready = self.process.stdout.readline().strip()
        match = re.search(r"127\.0\.0\.1:(\d+)$", ready)
        self.port = match.group(1) if match else None
        if "ready on" not in ready:
            self.process.kill()
            sys.exit(f"the supply did not start: {ready!r}")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()


def tool(*arguments, cwd, env=None):
    return subprocess.run([cli, *arguments], cwd=cwd, env=env, capture_output=True, text=True,
                          timeout=90)


def fake_sysfs(root, device, serial):
    """A usbtmc class entry pointing at the interface of a USB device, and its device file."""
    interface = os.path.join(root, "sys/devices/usb1/1-1/1-1:1.0")
    os.makedirs(interface)
    os.makedirs(os.path.join(root, "sys/class/usbmisc/usbtmc0"))
    os.symlink(interface, os.path.join(root, "sys/class/usbmisc/usbtmc0/device"))
    for name, value in (("idVendor", "1ab2"), ("idProduct", "5678"), ("serial", serial)):
        with open(os.path.join(root, "sys/devices/usb1/1-1", name), "w") as f:
            f.write(value + "\n")
    os.makedirs(os.path.join(root, "dev"))
    os.symlink(device, os.path.join(root, "dev/usbtmc0"))


with tempfile.TemporaryDirectory() as work:
    pty = os.path.join(work, "supply-tty")
    root = os.path.join(work, "root")
    fake_sysfs(root, pty, "SN42")
    usb_env = dict(os.environ, TARN_SYSTEM_ROOT=root)
    check("generate", tool("generate", "sine", "-o", "sine.csv", cwd=work).returncode, 0)
    check("generate long", tool("generate", "sine", "--period", "20.48", "--interval", "0.01",
                                "-o", "long.csv", cwd=work).returncode, 0)

    # Every kind of address, in both dialects: upload with read-back, then a run of what the
    # instrument holds, read back afresh by the run.
    addresses = [
        ("tcp", lambda s: f"tcp://127.0.0.1:{s.port}", "socket"),
        ("socket resource", lambda s: f"TCPIP0::127.0.0.1::{s.port}::SOCKET", "socket"),
        ("vxi11", lambda s: f"vxi11://127.0.0.1:{s.port}/inst0", "vxi11"),
        ("serial", lambda s: f"serial:{pty}", "pty"),
        ("serial resource", lambda s: f"ASRL{pty}::INSTR", "pty"),
        ("usbtmc", lambda s: f"usbtmc:{pty}", "pty"),
        ("usb resource", lambda s: "USB0::0x1AB2::0x5678::SN42::INSTR", "pty"),
    ]
    for dialect, description in (("steps", []), ("arrays", ["--instrument", arrays])):
        for kind, address, served in addresses:
            with Supply(*description, pty=pty if served == "pty" else None,
                        vxi11=served == "vxi11") as supply:
                name = f"{kind}, {dialect}"
                env = usb_env if kind == "usb resource" else None
                uploaded = tool("upload", "sine.csv", "--connect", address(supply), *description,
                                cwd=work, env=env)
                check(f"{name}: upload", (uploaded.returncode, uploaded.stdout.splitlines()[-1:]),
                      (0, ["Verified 30 steps on CH1"]))
                ran = tool("run", "--connect", address(supply), "--until-end", *description,
                           cwd=work, env=env)
                check(f"{name}: run", (ran.returncode, ran.stdout.splitlines()[-1:]),
                      (0, ["The sequence ended after 1 cycle"]))

    # Each dialect's words are the only ones its supply takes.
    with Supply("--instrument", arrays, pty=pty):
        check("step words to an array supply",
              tool("upload", "sine.csv", "--connect", f"serial:{pty}", cwd=work).stderr.strip(),
              "tarn_bench_cli: The instrument refused a step: -113, Undefined header")
    with Supply("--instrument", arrays, "--refuse-step", "150", pty=pty):
        refused = tool("upload", "long.csv", "--connect", f"usbtmc:{pty}", "--instrument", arrays,
                       cwd=work)
        check("a refused piece of arrays", (refused.returncode, refused.stderr.strip()),
              (6, "tarn_bench_cli: Steps 101 to 200 were refused by the instrument: -222, Data out "
                  "of range;step 150 refused by fault injection (it holds 149 of 2048 steps)"))

    # Faults on the lines that are not sockets.
    lost = "tarn_bench_cli: The connection was lost during the upload ({}): 0 of 30 steps were " \
           "confirmed"
    silent = "tarn_bench_cli: The instrument did not answer SYST:ERR? within 3000 ms: 0 of 30 " \
             "steps were confirmed"
    faults = [
        ("VXI-11 server gone", "vxi11", "--drop-after", 4,
         lost.format("The VXI-11 instrument 127.0.0.1 closed the connection: was it switched "
                     "off?")),
        ("silent VXI-11 instrument", "vxi11", "--silent-after", 5, silent),
        ("dropped serial line", f"serial:{pty}", "--drop-after", 4,
         lost.format(f"The serial line {pty} was dropped: was the adapter unplugged or the "
                     "instrument switched off?")),
        ("vanished USB device", f"usbtmc:{pty}", "--drop-after", 4,
         lost.format(f"The USB instrument {pty} is gone: it was unplugged or switched off")),
        ("silent serial line", f"serial:{pty}", "--silent-after", 5, silent),
        ("silent USB device", f"usbtmc:{pty}", "--silent-after", 5, silent),
    ]
    for name, address, fault, status, message in faults:
        with Supply(fault, "12", pty=None if address == "vxi11" else pty,
                    vxi11=address == "vxi11") as supply:
            if address == "vxi11":
                address = f"vxi11://127.0.0.1:{supply.port}"
            started = time.monotonic()
            ended = tool("upload", "sine.csv", "--connect", address, cwd=work)
            check(name, (ended.returncode, ended.stderr.strip()), (status, message))
            # The USB and VXI-11 links' threads wait no longer than their own reply limit.
            check(f"{name} ends in time", time.monotonic() - started < 12, True)

    # At 115200 baud the read-back of 2048 steps takes longer than the reply limit; it is not
    # silence while it arrives.
    with Supply("--baud", "115200", pty=pty):
        paced = tool("upload", "long.csv", "--connect", f"serial:{pty}", cwd=work)
        check("paced read-back", (paced.returncode, paced.stdout.splitlines()[-1:]),
              (0, ["Verified 2048 steps on CH1"]))

    # Addresses that cannot be used are told before anything is opened, or when the instrument
    # is not there.
    missing = tool("identify", "--connect", "USB0::0x1AB2::0x5678::SN43::INSTR", cwd=work,
                   env=usb_env)
    check("USB instrument not attached", (missing.returncode, missing.stderr.strip()),
          (4, "tarn_bench_cli: Could not connect to USB0::0x1AB2::0x5678::SN43::INSTR: no such "
              "USB instrument is attached, or the usbtmc driver has not taken it on"))
    malformed = tool("identify", "--connect", "USB0::0x1AB2::5678X::SN42::INSTR", cwd=work)
    check("malformed resource", (malformed.returncode, malformed.stderr.strip()),
          (2, "tarn_bench_cli: USB0::0x1AB2::5678X::SN42::INSTR: product \"5678X\" is not a "
              "16-bit number such as 0x5678"))

    malformed = tool("identify", "--connect", "vxi11://127.0.0.1:0/inst0", cwd=work)
    check("malformed VXI-11 address", (malformed.returncode, malformed.stderr.strip()),
          (2, "tarn_bench_cli: vxi11://127.0.0.1:0/inst0 has no usable port"))

print(f"{passed} passed, {len(failures)} failed")
sys.exit(1 if failures else 0)

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
import socket
import struct
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


def rpc_call(connection, program, version, procedure, arguments, rpc_version=2):
    """One ONC RPC call on `connection` and the words of its reply after the xid, or None when the
    server closed the connection."""
    record = struct.pack(">6I4I", 7, 0, rpc_version, program, version, procedure, 0, 0, 0, 0)
    connection.sendall(struct.pack(">I", 0x80000000 | len(record) + len(arguments)) + record
                       + arguments)
    header = connection.recv(4, socket.MSG_WAITALL)
    if len(header) < 4:
        return None
    body = connection.recv(struct.unpack(">I", header)[0] & 0x7FFFFFFF, socket.MSG_WAITALL)
    return list(struct.unpack(f">{len(body) // 4}I", body[:len(body) // 4 * 4]))[1:]


def tool(*arguments, cwd, env=None):
    return subprocess.run([cli, *arguments], cwd=cwd, env=env, capture_output=True, text=True,
                          timeout=90)


def fake_sysfs(root, device, serial):
    """A usbtmc class entry pointing at the interface of a USB device, and its device file."""
    interface = os.path.join(root, "sys/devices/usb1/1-1/1-1:1.0")
    os.makedirs(interface)
    os.makedirs(os.path.join(root, "sys/class/usbmisc/usbtmc0"))
    os.symlink(interface, os.path.join(root, "sys/class/usbmisc/usbtmc0/device"))
    for name, value in (("idVendor", "1234"), ("idProduct", "5678"), ("serial", serial)):
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
        ("usb resource", lambda s: "USB0::0x1234::0x5678::SN42::INSTR", "pty"),
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
    missing = tool("identify", "--connect", "USB0::0x1234::0x5678::SN43::INSTR", cwd=work,
                   env=usb_env)
    check("USB instrument not attached", (missing.returncode, missing.stderr.strip()),
          (4, "tarn_bench_cli: Could not connect to USB0::0x1234::0x5678::SN43::INSTR: no such "
              "USB instrument is attached, or the usbtmc driver has not taken it on"))
    malformed = tool("identify", "--connect", "USB0::0x1234::5678X::SN42::INSTR", cwd=work)
    check("malformed resource", (malformed.returncode, malformed.stderr.strip()),
          (2, "tarn_bench_cli: USB0::0x1234::5678X::SN42::INSTR: product \"5678X\" is not a "
              "16-bit number such as 0x5678"))

    # The core channel refuses what it cannot serve with the RPC's answers and the instrument's
    # error numbers, and cuts a connection whose records break their bound; it stays up.
    core = 0x0607AF
    inst0 = struct.pack(">3I", 1, 0, 0) + struct.pack(">I", 5) + b"inst0\0\0\0"
    with Supply(vxi11=True) as supply:
        with socket.create_connection(("127.0.0.1", int(supply.port)), timeout=10) as c:
            accepted = [1, 0, 0, 0]  # a reply, accepted, no verifier
            check("VXI-11 create_link", rpc_call(c, core, 1, 10, inst0),
                  accepted + [0, 0, 1, 0, 16384])
            check("VXI-11 other program", rpc_call(c, 100000, 2, 3, b""), accepted + [1])
            check("VXI-11 other version", rpc_call(c, core, 2, 10, inst0), accepted + [2, 1, 1])
            check("VXI-11 other procedure", rpc_call(c, core, 1, 15, b""), accepted + [3])
            check("VXI-11 short arguments", rpc_call(c, core, 1, 11, struct.pack(">2I", 1, 0)),
                  accepted + [4])
            check("VXI-11 other RPC version", rpc_call(c, core, 1, 10, inst0, rpc_version=3),
                  [1, 1, 0, 2, 2])
            check("VXI-11 other device",
                  rpc_call(c, core, 1, 10, inst0.replace(b"inst0", b"inst9")),
                  accepted + [0, 3, 0, 0, 16384])
            check("VXI-11 read on no link",
                  rpc_call(c, core, 1, 12, struct.pack(">6I", 9, 64, 0, 0, 0, 0)),
                  accepted + [0, 4, 0, 0])
            c.sendall(struct.pack(">I", 0x80000000 | 1 << 30))
            check("VXI-11 oversized record", c.recv(4), b"")
        check("VXI-11 serves on", tool("identify", "--connect", f"vxi11://127.0.0.1:{supply.port}",
                                       cwd=work).returncode, 0)

    malformed = tool("identify", "--connect", "vxi11://127.0.0.1:0/inst0", cwd=work)
    check("malformed VXI-11 address", (malformed.returncode, malformed.stderr.strip()),
          (2, "tarn_bench_cli: vxi11://127.0.0.1:0/inst0 has no usable port"))

print(f"{passed} passed, {len(failures)} failed")
sys.exit(1 if failures else 0)

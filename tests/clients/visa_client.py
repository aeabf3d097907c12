#!/usr/bin/python3
"""Drives the simulated supply through the VISA library's pure-Python backend, as a user's own
script would: the standard common commands and status model, MIN/MAX/DEF, a protection trip
during a run, a hundred reconnects in a row, a half-closing client and a second concurrent one.

Usage: visa_client.py PATH/TO/tarn_supply_sim
"""
import re
import socket
import subprocess
import sys
import time

import pyvisa

TIMEOUT_MS = 5000
failures = []
passed = 0


def check(name, actual, expected):
    global passed
    if actual == expected:
        passed += 1
    else:
        failures.append(name)
        print(f"FAIL {name}: got {actual!r}, expected {expected!r}")


def start_supply(program):
    supply = subprocess.Popen([program, "--listen", "127.0.0.1:0", "--speed", "10"],
                              stdout=subprocess.PIPE, text=True)
    ready = supply.stdout.readline()
    match = re.search(r"127\.0\.0\.1:(\d+)$", ready.strip())
    if not match:
        supply.kill()
        sys.exit(f"the supply did not start: {ready!r}")
    return supply, int(match.group(1))


def open_instrument(manager, port):
    instrument = manager.open_resource(f"TCPIP0::127.0.0.1::{port}::SOCKET")
    instrument.read_termination = "\n"
    instrument.write_termination = "\n"
    instrument.timeout = TIMEOUT_MS
    return instrument


def common_commands(inst):
    check("*IDN?", inst.query("*IDN?"), "Tarn,Simulated Supply,SIM-000001,1.0.0")
    check("power-on event", inst.query("*ESR?"), "128")
    check("*ESR? clears", inst.query("*ESR?"), "0")
    inst.write("*RST")
    inst.write("*CLS")
    check("*TST?", inst.query("*TST?"), "0")
    check("*OPC?", inst.query("*OPC?"), "1")
    inst.write("*WAI")
    inst.write("*OPC")
    check("*OPC sets its bit", inst.query("*ESR?"), "1")
    inst.write("*ESE 60")
    check("*ESE?", inst.query("*ESE?"), "60")
    inst.write("*SRE 48")
    check("*SRE?", inst.query("*SRE?"), "48")
    check("SYST:VERS?", inst.query("SYST:VERS?"), "1999.0")


def error_classes(inst):
    # Each error sets the event bit of its class; *ESE 60 enables all four.
    cases = [
        ("command error", "BOGUS:HEADER", 32, "-113"),
        ("execution error", "VOLT 99", 16, "-222"),
        ("device-dependent error", "VOLT 5;VOLT:PROT 4;OUTP ON", 8, "-300"),
    ]
    for name, command, bit, code in cases:
        inst.write("*CLS;*RST")
        check(f"{name}: status byte before", inst.query("*STB?"), "0")
        inst.write(command)
        # error queue not empty (4), event summary (32), and the master summary (64) from *SRE 48
        check(f"{name}: status byte", int(inst.query("*STB?")), 4 | 32 | 64)
        check(f"{name}: event bit", int(inst.query("*ESR?")), bit)
        check(f"{name}: error", inst.query("SYST:ERR?").split(",")[0], code)
        check(f"{name}: queue empty", inst.query("SYST:ERR?"), '0,"No error"')
    inst.write("*CLS;*RST;*SRE 0")


def limits(inst):
    inst.write("INST CH1")
    check("VOLT? MAX", inst.query("VOLT? MAX"), "32.000")
    check("VOLT? MIN", inst.query("VOLT? MIN"), "0.000")
    check("CURR? DEF", inst.query("CURR? DEF"), "3.200")
    inst.write("VOLT MAX;CURR MIN")
    check("VOLT MAX", inst.query("VOLT?;CURR?"), "32.000;0.000")
    inst.write("INST SERIES")
    check("series VOLT? MAX", inst.query("VOLT? MAX"), "64.000")
    check("VOLT:PROT? DEF", inst.query("VOLT:PROT? DEF"), "64.000")
    inst.write("*RST")
    check("no errors", inst.query("SYST:ERR:COUN?"), "0")


def protection_during_a_run(inst):
    inst.write("*RST;*CLS;INST CH2;VOLT:PROT 6;LIST:REP 0;LIST:END ON")
    inst.write("LIST:STEP 1,5,1,0.5;LIST:STEP 2,8,1,0.5")
    check("run starts", inst.query("LIST:RUN;LIST:STAT?;OUTP?"), "RUN;1")
    # Step 2 starts 0.05 s later at ten times the speed; wait for the trip, bounded.
    deadline = time.monotonic() + 5
    state = "RUN"
    while state == "RUN" and time.monotonic() < deadline:
        time.sleep(0.02)
        state = inst.query("LIST:STAT?")
    check("the trip ends the run", state, "STOP")
    check("output off, no end state", inst.query("OUTP?;MEAS:VOLT?"), "0;0.000")
    check("tripped", inst.query("VOLT:PROT:TRIP?;CURR:PROT:TRIP?"), "1;0")
    check("questionable condition", inst.query("STAT:QUES:COND?"), "1")
    check("trip error", inst.query("SYST:ERR?"),
          '-300,"Device-specific error;over-voltage protection tripped on CH2"')
    inst.write("OUTP ON")
    check("output refused while tripped", inst.query("SYST:ERR?").split(",")[0], "-221")
    inst.write("OUTP:PROT:CLE;VOLT:PROT MAX")
    check("cleared", inst.query("VOLT:PROT:TRIP?;STAT:QUES:COND?"), "0;0")
    check("power", inst.query("VOLT 5;CURR 1;OUTP ON;MEAS:POW?"), "2.500")
    inst.write("*RST")


def reconnects(manager, port):
    answered = 0
    for _ in range(100):
        inst = open_instrument(manager, port)
        try:
            if inst.query("*IDN?").startswith("Tarn,"):
                answered += 1
        except pyvisa.errors.VisaIOError:
            pass
        finally:
            inst.close()
    check("a hundred reconnects in a row", answered, 100)


def half_close(port):
    with socket.create_connection(("127.0.0.1", port), timeout=TIMEOUT_MS / 1000) as s:
        s.sendall(b"*IDN?\nLIST:STEP 1,1,1,1\nLIST:COUN?;*OPC?\n")
        s.shutdown(socket.SHUT_WR)
        received = b""
        deadline = time.monotonic() + TIMEOUT_MS / 1000
        while time.monotonic() < deadline:
            chunk = s.recv(4096)
            if not chunk:
                break
            received += chunk
    check("half-closing client gets every reply",
          received, b"Tarn,Simulated Supply,SIM-000001,1.0.0\n1;1\n")


def second_client(manager, port):
    first = open_instrument(manager, port)
    try:
        first.write("INST CH3")
        with socket.create_connection(("127.0.0.1", port), timeout=TIMEOUT_MS / 1000) as s:
            line = s.makefile("rb").readline()
        check("a second concurrent client is refused", line,
              b"ERROR: the supply is in use by another client; try again later\n")
        check("the first is not disturbed", first.query("INST?;SYST:ERR?"), 'CH3;0,"No error"')
    finally:
        first.close()


def main():
    supply, port = start_supply(sys.argv[1])
    manager = pyvisa.ResourceManager("@py")
    try:
        inst = open_instrument(manager, port)
        for part in (common_commands, error_classes, limits, protection_during_a_run):
            part(inst)
        inst.close()
        reconnects(manager, port)
        half_close(port)
        second_client(manager, port)
    finally:
        manager.close()
        supply.terminate()
        supply.wait(timeout=10)
    print(f"visa_client: {passed} passed, {len(failures)} failed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/python3
"""Draws one small step plot per template, with the template's default parameters, for the
README's guide: docs/templates/<template>.svg. The steps come from tarn_bench_cli generate, so the
pictures show exactly what the dialog makes.

Usage: scripts/template-plots.py [PATH/TO/tarn_bench_cli]   (default: build/plain/cli/tarn_bench_cli)
"""
import os
import subprocess
import sys
import tempfile

root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
cli = sys.argv[1] if len(sys.argv) > 1 else os.path.join(root, "build/plain/cli/tarn_bench_cli")
templates = ["sine", "pulse", "ramp", "stair-up", "stair-down", "stair-up-down", "exp-rise",
             "exp-fall", "fix-time", "increase", "decline"]
# The defaults, except where they make too few steps to show the shape.
options = {"pulse": ["--count", "3"], "increase": ["--groups", "8"],
           "decline": ["--groups", "8", "--base", "8", "--step", "1"]}
width, height, margin = 240, 80, 6


def steps_of(path):
    """(level, seconds) per step; the Delayer's On/Off as 1/0."""
    steps = []
    with open(path) as lines:
        rows = [line.strip().split(",") for line in lines]
    start = next(i for i, row in enumerate(rows) if row[0] == "No.") + 1
    for row in rows[start:]:
        if len(row) == 4:
            steps.append((float(row[1]), float(row[3])))
        elif len(row) == 3:
            steps.append((1.0 if row[1].lower() == "on" else 0.0, float(row[2])))
    return steps


def svg(steps, delayer):
    total = sum(t for _, t in steps) or 1.0
    top = 1.0 if delayer else max(level for level, _ in steps) or 1.0
    x_of = lambda t: margin + (width - 2 * margin) * t / total
    y_of = lambda v: height - margin - (height - 2 * margin) * v / top
    points, at = [], 0.0
    for level, seconds in steps:
        points += [(x_of(at), y_of(level)), (x_of(at + seconds), y_of(level))]
        at += seconds
    path = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
            f'viewBox="0 0 {width} {height}">\n'
            f'<rect width="{width}" height="{height}" fill="#ffffff" stroke="#c0c0c0"/>\n'
            f'<polyline points="{path}" fill="none" stroke="#0000ff" stroke-width="1.5"/>\n'
            f'</svg>\n')


with tempfile.TemporaryDirectory() as work:
    for name in templates:
        csv = os.path.join(work, name + ".csv")
        subprocess.run([cli, "generate", name, *options.get(name, []), "-q", "-o", csv], check=True)
        target = os.path.join(root, "docs", "templates", name + ".svg")
        with open(target, "w") as out:
            out.write(svg(steps_of(csv), name in ("fix-time", "increase", "decline")))
        print(f"wrote {os.path.relpath(target, root)}")

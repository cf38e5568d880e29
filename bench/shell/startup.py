#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""How much the program's start takes, against a bare window of the toolkit.

startup.py [--runs N] [--offscreen] [FOLDER_OF_EXECUTABLES]

Runs both in turns, after one run of each to fill the caches, on a virtual display of its own (or
without any display), and prints the medians and their ratios. The folder is build/dev/bin.
"""

import argparse
import os
import pathlib
import statistics
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
GOALS = {"processor": 1.6, "pss": 1.4, "rss": 1.4}


def measured(executable):
    """What one start took: {"processor": milliseconds, "pss": kB, "rss": kB}."""
    output = subprocess.run(
        [executable], check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, timeout=60
    ).stdout
    return {name: float(value) for name, value, _ in map(str.split, output.splitlines())}


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--runs", type=int, default=20)
    parser.add_argument("--offscreen", action="store_true")
    parser.add_argument("--here", action="store_true", help="on the display that there is")
    parser.add_argument("folder", nargs="?", type=pathlib.Path, default=ROOT / "build/dev/bin")
    arguments = parser.parse_args()
    if arguments.offscreen:
        os.environ["QT_QPA_PLATFORM"] = "offscreen"
    elif not arguments.here:
        display = ROOT / "tests/program/on_virtual_display"
        os.execv(display, [str(display), __file__, "--here", *sys.argv[1:]])
    # The display is made for tests, where assistive technology looks on.
    os.environ.pop("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", None)

    program = arguments.folder.resolve() / "startup_program"
    bare = arguments.folder.resolve() / "startup_bare"
    runs = [(measured(program), measured(bare)) for _ in range(arguments.runs + 1)][1:]
    print(f"{'':12} {'program':>10} {'bare':>10} {'ratio':>6}   medians of {arguments.runs} runs")
    for name, unit in (("processor", "ms"), ("pss", "kB"), ("rss", "kB")):
        ours = statistics.median(run[0][name] for run in runs)
        theirs = statistics.median(run[1][name] for run in runs)
        ratio = f"{ours / theirs:6.2f}   goal: at most {GOALS[name]}"
        print(f"{name:9} {unit:2} {ours:10.1f} {theirs:10.1f} {ratio}")


if __name__ == "__main__":
    main()

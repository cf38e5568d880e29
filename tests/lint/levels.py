#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""levels.py BUILD_FOLDER: fails where a source of the program with a level of optimisation of its own reads a
precompiled header. Under gcc it would be compiled at the level that the header was made with.
"""

import json
import pathlib
import re
import sys

SOURCES = pathlib.Path(__file__).resolve().parents[2] / "src"


def levels_of(command):
    return set(re.findall(r" -(O\w+)", command))


def main(folder):
    commands = json.loads((pathlib.Path(folder) / "compile_commands.json").read_text())
    own = [
        it
        for it in commands
        if SOURCES in pathlib.Path(it["file"]).parents and len(levels_of(it["command"])) > 1
    ]
    if not own:
        print("No source has a level of its own: nothing was looked at.")
        return 1
    faults = [it["file"] for it in own if "cmake_pch" in it["command"]]
    for file in faults:
        print(f"{file}: reads a precompiled header; set SKIP_PRECOMPILE_HEADERS")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))

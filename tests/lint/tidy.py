#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs clang-tidy over every source of a built tree of clang, and remembers what passed.

    tidy.py BUILD [JOBS]

Each entry of BUILD/compile_commands.json is a unit, most of them the joined sources of one target. Qt's
headers take longer than the project's sources, so many units are looked at as one, and where that has
a complaint, the halves of them. A unit that passed is remembered by what the compiler read for it, as
ninja noted: command, checks and the text of every file of the project.
"""

import concurrent.futures
import hashlib
import json
import math
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
SOURCE = re.compile(r"^(src|tests|bench|packaging)/.*\.cpp$")
JOINED = re.compile(r'^#include "(.*\.cpp)"$', re.MULTILINE)
UNITS_AT_ONCE = 6
ALONE = re.compile(r'^(int main\(|extern "C")', re.MULTILINE)
TESTS_MAIN = "tests/support/gui_main.cpp"  # of every test with widgets
GENERATED = ("mocs_compilation.cpp", "/.rcc/", "_headers.dir/")


def noted_dependencies(build):
    """For each object, the files of the project that the compiler read for it."""
    log = subprocess.run(
        ["ninja", "-C", str(build), "-t", "deps"], capture_output=True, text=True, check=True
    ).stdout
    noted, current = {}, []
    for line in log.splitlines():
        if line.startswith("    "):
            path = os.path.normpath(os.path.join(build, line.strip()))
            if path.startswith(f"{ROOT}/"):
                current.append(pathlib.Path(path))
        elif ": #deps" in line:
            current = noted.setdefault(line.split(": #deps")[0], [])
    return noted


def sources_of(file):
    """The sources of the project that a compiled file stands for."""
    joined = JOINED.findall(file.read_text()) if file.suffix == ".cxx" else [str(file)]
    return [os.path.relpath(name, ROOT) for name in joined]


def checks_for(source):
    """The .clang-tidy that holds for a source: the nearest one above it."""
    return next(
        folder / ".clang-tidy"
        for folder in (ROOT / source).parents
        if (folder / ".clang-tidy").is_file()
    )


def digest(command, files):
    total = hashlib.sha256(command.encode())
    for path in sorted(files):
        total.update(f"{path}\n".encode() + (path.read_bytes() if path.is_file() else b""))
    return total.hexdigest()


def options_of(command):
    """What a compile command says of how the source is read: no warnings, which the build looks for."""
    options = shlex.split(command)[1:]
    for i, option in enumerate(options):
        if option == "-isystem":
            yield f"-isystem{options[i + 1]}"
        elif re.match("-[DIO]|-std=|-fPIC|-fsanitize=", option):
            yield option


class Unit:
    """One compiled file: what it stands for, and what it is remembered by."""

    def __init__(self, entry, dependencies):
        self.file = pathlib.Path(entry["file"])
        self.sources = sources_of(self.file)
        self.checks = checks_for(self.sources[0])
        self.options = list(options_of(entry["command"]))
        files = set(dependencies) | {self.file, self.checks}
        self.digest = digest(entry["command"], files)
        texts = [(ROOT / source).read_text() for source in self.sources if source != TESTS_MAIN]
        self.size = sum(map(len, texts))
        # A program of its own, or stand-ins for the C library's functions.
        self.is_alone = any(ALONE.search(text) for text in texts)


def complaints(units):
    """What clang-tidy says about units with the same checks, read as one; nothing where they pass."""
    options = list(dict.fromkeys(option for unit in units for option in unit.options))
    with tempfile.NamedTemporaryFile("w", suffix=".cpp") as joined:
        for source in dict.fromkeys(source for unit in units for source in unit.sources):
            joined.write(f'#include "{ROOT / source}"\n')
        joined.flush()
        run = subprocess.run(
            ["clang-tidy", "--quiet", f"--config-file={units[0].checks}", joined.name, "--"] + options,
            capture_output=True, text=True,
        )
    return (run.stdout or run.stderr) if run.returncode else run.stdout


def shares(units, jobs):
    """Units with the same checks, dealt out so that each share has about as much to look at. The more
    units, the more local names that two of them have; so few that most shares have none."""
    by_checks = {}
    for unit in units:
        if unit.is_alone:
            yield [unit]
        else:
            by_checks.setdefault(unit.checks, []).append(unit)
    for alike in by_checks.values():
        dealt = [[] for _ in range(max(jobs, math.ceil(len(alike) / UNITS_AT_ONCE)))]
        for unit in sorted(alike, key=lambda unit: -unit.size):
            min(dealt, key=lambda share: sum(unit.size for unit in share)).append(unit)
        yield from filter(None, dealt)


def look_at(share):
    """The units that pass, and what is said about the others."""
    said = complaints(share)
    if not said:
        return share, ""
    if len(share) == 1:
        return [], said
    half = len(share) // 2
    (passing, said), (more_passing, more_said) = look_at(share[:half]), look_at(share[half:])
    return passing + more_passing, said + more_said


def units(build):
    noted = noted_dependencies(build)
    for entry in json.loads((build / "compile_commands.json").read_text()):
        if any(part in entry["file"] for part in GENERATED):
            continue
        output = re.search(r" -o (\S+)", entry["command"]).group(1)
        if output not in noted:
            sys.exit(f"{output} is not built: build first")
        yield Unit(entry, noted.get(output, []))


def forgotten(looked_at):
    """The sources of the tree that no target compiles, so that nothing has looked at them."""
    tracked = {
        os.path.relpath(path, ROOT)
        for top in ("src", "tests", "bench", "packaging")
        for path in (ROOT / top).rglob("*.cpp")
    }
    return sorted(tracked - looked_at)


def main(build, jobs):
    memory = build / "tidy.passed"
    passed = set(memory.read_text().split()) if memory.is_file() else set()
    every = list(units(build))
    left = [unit for unit in every if unit.digest not in passed]
    failed = False
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        for passing, said in pool.map(look_at, shares(left, jobs)):
            passed |= {unit.digest for unit in passing}
            failed |= bool(said)
            print(said, end="")
    memory.write_text("\n".join(sorted(passed & {unit.digest for unit in every})))
    missed = forgotten({source for unit in every for source in unit.sources})
    for source in missed:
        print(f"{source}: compiled by no target, so clang-tidy does not see it")
    print(f"clang-tidy: {len(left)} of {len(every)} looked at")
    return 1 if failed or missed else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve(), int((sys.argv + ["2"])[2])))

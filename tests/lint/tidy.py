#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs clang-tidy over every source of a built tree of clang, and remembers what passed.

    tidy.py BUILD [JOBS]

Each entry of BUILD/compile_commands.json is a unit, most of them the joined sources of one target. Qt's
headers take longer than the project's sources, so many units are looked at as one, and where that has a
complaint, those that it names are looked at alone. A unit that passed is remembered by what the compiler
read for it, as ninja noted: command, checks and the text of every file of the project.
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
UNITS_AT_ONCE = 30
# What a program has one of; where several are looked at as one, all but the first get another name.
ONLY_ONE = re.compile(
    r'^(?:extern "C" )?(?:int|const char\*) (main|LLVMFuzzerTestOneInput|__lsan_default_suppressions)\(',
    re.MULTILINE,
)
# For functions of the C library, and for those that give memory.
STAND_INS = re.compile(r'^(extern "C" (\{|int (?!LLVM))|void\* operator new)', re.MULTILINE)
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
        self.digest = digest(" ".join(self.options), files)
        texts = [(ROOT / source).read_text() for source in self.sources if source != TESTS_MAIN]
        self.size = sum(map(len, texts))
        self.is_program = any(ONLY_ONE.search(text) for text in texts)
        self.is_alone = any(STAND_INS.search(text) for text in texts)


def includes(units):
    """The sources of units as one text, each of them once."""
    taken = []
    for source in dict.fromkeys(source for unit in units for source in unit.sources):
        names = ONLY_ONE.findall((ROOT / source).read_text())
        renamed = [name for name in names if name in taken]
        taken += names
        yield from (f"#define {name} {name}_{len(taken)}\n" for name in renamed)
        yield f'#include "{ROOT / source}"\n'
        yield from (f"#undef {name}\n" for name in renamed)


def complaints(units):
    """What clang-tidy says about units with the same checks, read as one; nothing where they pass."""
    options = list(dict.fromkeys(option for unit in units for option in unit.options))
    with tempfile.NamedTemporaryFile("w", suffix=".cpp") as joined:
        joined.write("".join(includes(units)))
        joined.flush()
        run = subprocess.run(
            ["clang-tidy", "--quiet", f"--config-file={units[0].checks}", joined.name, "--"] + options,
            capture_output=True, text=True,
        )
    return (run.stdout or run.stderr) if run.returncode else run.stdout


def shares(units, jobs):
    """Units with the same checks, dealt out so that each share has about as much to look at, the larger
    shares first. The more units, the more local names that two of them have: so few that none do."""
    shares, by_checks = [], {}
    for unit in units:
        if unit.is_alone:
            shares.append([unit])
        else:
            by_checks.setdefault(unit.checks.read_text(), []).append(unit)
    for alike in by_checks.values():
        dealt = [[] for _ in range(max(jobs, math.ceil(len(alike) / UNITS_AT_ONCE)))]
        for unit in sorted(alike, key=lambda unit: (not unit.is_program, -unit.size)):
            min(dealt, key=size).append(unit)
        shares += filter(None, dealt)
    return sorted(shares, key=size, reverse=True)


def size(share):
    return sum(unit.size for unit in share)


def look_at(share):
    """The units that pass, and what is said about the others."""
    said = complaints(share)
    if not said:
        return share, ""
    if len(share) == 1:
        return [], said
    named = [unit for unit in share if any(str(ROOT / source) in said for source in unit.sources)]
    parts = [[unit for unit in share if unit not in named], *([unit] for unit in named)]
    if len(named) in (0, len(share)):
        parts = [share[: len(share) // 2], share[len(share) // 2 :]]
    looked_at = [look_at(part) for part in parts]
    return [unit for passing, _ in looked_at for unit in passing], "".join(said for _, said in looked_at)


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
    left = {unit.digest: unit for unit in every if unit.digest not in passed}.values()
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

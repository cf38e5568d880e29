#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs clang-tidy over every source of a built tree of clang, and remembers what passed.

    tidy.py BUILD [JOBS]

Each entry of BUILD/compile_commands.json is looked at, most of them the joined sources of one target,
so that Qt's headers are walked through once per target. What passed is remembered by what the compiler
read for it, as ninja noted: command, checks and the text of every file of the project.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SOURCE = re.compile(r"^(src|tests|bench|packaging)/.*\.cpp$")
JOINED = re.compile(r'^#include "(.*\.cpp)"$', re.MULTILINE)
GENERATED = ("mocs_compilation.cpp", "/.rcc/")


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


class Unit:
    """One compiled file: what it stands for, and what it is remembered by."""

    def __init__(self, entry, dependencies):
        self.file = pathlib.Path(entry["file"])
        self.sources = sources_of(self.file)
        self.checks = checks_for(self.sources[0])
        self.files = set(dependencies) | {self.file, self.checks}
        self.digest = digest(entry["command"], self.files)
        self.size = sum(path.stat().st_size for path in self.files if path.is_file())

    def complaints(self, build):
        """What clang-tidy says about it; nothing where it passes."""
        run = subprocess.run(
            ["clang-tidy", "-p", build, "--quiet", f"--config-file={self.checks}", self.file],
            capture_output=True, text=True,
        )
        return (run.stdout or run.stderr) if run.returncode else run.stdout


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
    left = sorted((unit for unit in every if unit.digest not in passed), key=lambda u: -u.size)
    failed = False
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        for unit, said in zip(left, pool.map(lambda unit: unit.complaints(build), left)):
            if said:
                failed = True
                print(said)
            else:
                passed.add(unit.digest)
    memory.write_text("\n".join(sorted(passed & {unit.digest for unit in every})))
    missed = forgotten({source for unit in every for source in unit.sources})
    for source in missed:
        print(f"{source}: compiled by no target, so clang-tidy does not see it")
    print(f"clang-tidy: {len(left)} of {len(every)} looked at")
    return 1 if failed or missed else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve(), int((sys.argv + ["2"])[2])))

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs a test, unless it is remembered that just this test has passed.

    remembered.py MEMORY PROGRAM [ARGUMENT...]

Only where the environment says CL_REMEMBER=1, as ./test does; otherwise the test runs. MEMORY is the
file that keeps what passed last: the command, the locale, every file that it names, the libraries that
the programs among them are linked with, and every file of the project that is data of tests: not the
sources, so that a script that reads them as texts is not to be remembered.
"""

import hashlib
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
DATA = ("docs", "ejemplos", "packaging", "src", "tests")
COMPILED = (".cpp", ".h")  # are in the programs
ENVIRONMENT = ("LC_ALL", "QT_QPA_PLATFORM")


def data_files():
    for top in DATA:
        for folder, folders, names in os.walk(ROOT / top):
            folders[:] = sorted(name for name in folders if name != "__pycache__")
            for name in sorted(names):
                if not name.endswith(COMPILED):
                    yield pathlib.Path(folder, name)


def libraries(file):
    """Of a program: where they are, how large and how old. A package that is upgraded changes them."""
    with file.open("rb") as beginning:
        if beginning.read(4) != b"\x7fELF":
            return
    linked = subprocess.run(["ldd", file], capture_output=True, text=True, check=False).stdout
    for word in linked.split():
        if word.startswith("/"):
            status = os.stat(word)
            yield f"{word} {status.st_size} {status.st_mtime_ns}"


def digest(command):
    total = hashlib.sha256(repr(command).encode())
    total.update(repr([os.environ.get(name) for name in ENVIRONMENT]).encode())
    words = [word for part in command for word in re.split("[=;:]", part)]
    named = [pathlib.Path(word) for word in words if os.path.isfile(word)]
    for path in [*named, *data_files()]:
        total.update(f"{path}\n".encode() + path.read_bytes())
    for path in named:
        total.update("\n".join(libraries(path)).encode())
    return total.hexdigest()


def main(memory, command):
    if os.environ.get("CL_REMEMBER") != "1":
        return subprocess.run(command, check=False).returncode
    now = digest(command)
    if memory.is_file() and memory.read_text() == now:
        print("Has passed before, and nothing that it depends on has changed.")
        return 0
    memory.unlink(missing_ok=True)
    result = subprocess.run(command, check=False).returncode
    if result == 0:
        memory.write_text(now)
    return result


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]), sys.argv[2:]))

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Kills a program at random moments of its saves: the file is one of the contents that it saved,
whole, and not older than the last one that it confirmed; what it left behind goes with the next save.

    kills.py [--corto] [SAVING_LOOP]

SAVING_LOOP is the program of saving_loop.cpp, by default that of build/dev.
"""

import os
import pathlib
import random
import re
import signal
import subprocess
import sys
import tempfile
import time
from dataclasses import dataclass

from section import TEXT, table

LOOP = pathlib.Path("build/dev/bin/saving_loop")
# As large as a square, as a long report, and as a bitmap.
SIZES = (400, 20_000, 2_000_000)
LONGEST_WAIT = 0.06  # from the first confirmed save on, in seconds: several saves
STRAY = re.compile(r"\.cuadrado-latino-[0-9a-f]{16}-\d+-\d+")


@dataclass
class Figures:
    kills: int = 0
    old: int = 0  # the file holds the contents that were confirmed last
    new: int = 0  # or those of the save that was cut short
    strays: int = 0


def contents(number, size):
    return f"{number} {size}\n".encode() + str(number % 10).encode() * size


class Loop:
    """The saving program, killed after a random time."""

    def __init__(self, program, file, size, kind):
        self.process = subprocess.Popen(
            [program, file, str(size), *kind],
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            bufsize=0,  # what is read ahead by readline() communicate() would not see
        )

    def run_and_kill(self, wait):
        """Lets it save for a while. Returns the number of the save that it confirmed last."""
        first = self.process.stdout.readline()
        time.sleep(wait)
        self.process.kill()
        rest, error = self.process.communicate()
        if error or self.process.returncode != -signal.SIGKILL:
            sys.exit(f"saving_loop ended with {self.process.returncode}: {error.decode()}")
        numbers = (first + rest).decode().splitlines(keepends=True)
        return int([line for line in numbers if line.endswith("\n")][-1])


def strays(folder, file):
    found = [name for name in os.listdir(folder) if name != file.name]
    foreign = [name for name in found if not STRAY.fullmatch(name)]
    if foreign:
        sys.exit(f"files that nobody can know: {foreign}")
    return found


def kill_once(program, file, size, kind, figures):
    """One kill in the middle of a save, and the save after it."""
    confirmed = Loop(program, file, size, kind).run_and_kill(random.uniform(0, LONGEST_WAIT))
    found = file.read_bytes()
    figures.kills += 1
    if found == contents(confirmed, size):
        figures.old += 1
    elif found == contents(confirmed + 1, size):
        figures.new += 1
    else:
        sys.exit(f"{file}: neither save {confirmed} nor the next one: {found[:80]!r}")
    left = strays(file.parent, file)
    if len(left) > 1:
        sys.exit(f"more than one stray: {left}")
    figures.strays += len(left)


def kill_often(program, size, kind, times):
    figures = Figures()
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder) / "cuadrado.asc"
        for _ in range(times):
            kill_once(program, file, size, kind, figures)
        # Each start has swept up what the one before had left; one more save for the last.
        loop = Loop(program, file, size, kind)
        loop.process.stdout.readline()
        loop.process.kill()
        loop.process.communicate()
        after = strays(folder, file)
        if after:
            left_by = {name.rsplit("-", 2)[1] for name in after}
            if left_by != {str(loop.process.pid)}:
                sys.exit(f"not swept up: {after}")
    return figures


def body(rows):
    total = sum(figures.kills for *_, figures in rows)
    text = (
        f"Un programa que guarda una y otra vez con el mismo código que las ventanas, cada vez con otro "
        f"contenido, se mató (SIGKILL) {total} veces en un momento al azar. Cada vez se leyó el archivo: "
        "siempre estaba entero, y era el último que el programa dio por guardado o el que estaba guardando. "
        "Lo que quedó a medio hacer, con un nombre que dice de quién es, se borró al guardar otra vez "
        "con el mismo nombre. La mitad de las muertes, en un sistema de archivos que da archivos sin nombre "
        "(O_TMPFILE); la otra mitad, como si no los diera."
    )
    columns = [
        "archivos sin nombre", "bytes", "muertes", "quedó el último dado por guardado", "quedó el que se guardaba",
        "restos, borrados después", "archivos dañados",
    ]  # fmt: skip
    named = (
        ["no" if kind else "sí", size, figures.kills, figures.old, figures.new, figures.strays, 0]
        for kind, size, figures in rows
    )
    return f"{text}\n\n{table(dict.fromkeys(columns, TEXT), named)}"


def main(arguments):
    short = "--corto" in arguments
    programs = [argument for argument in arguments if not argument.startswith("--")]
    program = pathlib.Path(programs[0] if programs else LOOP).resolve()
    rows = []
    for kind in ((), ("--named",)):
        for size in SIZES:
            times = 7 if short else 84
            rows.append((kind, size, kill_often(program, size, kind, times)))
            print(f"kills: {kind} {size} {rows[-1][2]}", file=sys.stderr, flush=True)
    print(body(rows))


if __name__ == "__main__":
    main(sys.argv[1:])

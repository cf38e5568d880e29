#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Lets the monkey at the frame and tells what was lost, if anything, as a script as short as can be.

    monkey.py                     five seeds, ten minutes each, two at a time, for the record
    monkey.py --corto PROGRAM     one seed, for `./test`

CL_MONKEY_SECONDS and CL_MONKEY_SEEDS (numbers with blanks between them) say otherwise. A walk is a list of
numbers, one for each step; a failed one is run again with ever fewer of them, as long as it fails alike.
"""

import concurrent.futures
import dataclasses
import math
import os
import pathlib
import re
import signal
import subprocess
import sys
import time

from section import NUMBER, ROOT, spanish, table

PROGRAM = ROOT / "build" / "asan" / "bin" / "monkey"
LOGS = ROOT / "build" / "monkey"
SEEDS = "1 2 3 4 5"
SECONDS = 600
SHORT_SEED = "20240611"
SHORT_SECONDS = 30
LEAST_RATE = 1000 / 600  # steps in a second, on whatever machine; in the short form a tenth of them
SHRINKING_SECONDS = 900
SHORT_SHRINKING_SECONDS = 90


@dataclasses.dataclass
class Walk:
    """What became of a run of the program."""

    steps: list[int]  # The numbers of those that were possible.
    told: list[str]  # What each did.
    kind: str  # Of what went wrong, without what differs from run to run; empty where nothing did.
    problem: str
    said: str  # All that the program said.


def kind_of(line: str) -> str:
    """«editor 12: shows 5 instead of 7» and «editor 3: shows 1 instead of 2» are one mistake."""
    return re.sub(r"\d[\d.e+-]*|/\S*|«[^»]*»", "#", line)[:90]


def how_it_ended(status: int, begun: int | None) -> str:
    """Where the program said nothing: it may also be the system that ended it, for want of memory."""
    way = f"was killed by {signal.Signals(-status).name}" if status < 0 else f"ended with {status}"
    return f"{way} {'between two steps' if begun is None else 'within a step'}"


def run(program: pathlib.Path, arguments: list[str], numbers: list[int] | None = None) -> Walk:
    environment = {
        **os.environ,
        "QT_QPA_PLATFORM": "offscreen",
        "ASAN_OPTIONS": "detect_leaks=0",
        "UBSAN_OPTIONS": "print_stacktrace=1:halt_on_error=1",
    }
    done = subprocess.run(
        [program, *arguments],
        input="\n".join(map(str, numbers or [])), capture_output=True, text=True, errors="replace",
        env=environment, check=False,
    )
    steps, told, wrong, beside = [], [], [], []  # beside: what is said by others, such as GoogleTest
    begun = None
    for line in done.stdout.splitlines():
        word, _, rest = line.partition(" ")
        if word == "STEP":
            begun = int(rest)
        elif word == "DONE":
            number, _, text = rest.partition(" ")
            steps.append(int(number))
            told.append(text)
            begun = None
        elif word == "WRONG":
            wrong.append(rest)
        elif told and line.startswith(" "):
            told[-1] += "\n" + line
        else:
            beside.append(line)
    if done.returncode not in (0, 1) and begun is not None:  # it ended within a step
        steps.append(begun)
        told.append("(here the program ended)")
    if done.returncode != 0 and not wrong:
        reports = [line for line in done.stderr.splitlines() if "ERROR: " in line or "runtime error" in line]
        wrong = [(reports or [how_it_ended(done.returncode, begun)])[0]]
    said = beside[-40:] + done.stderr.splitlines()[-40:]
    problem = "\n".join(wrong + (said if done.returncode != 0 else []))
    return Walk(steps, told, kind_of(wrong[0]) if wrong else "", problem, done.stdout + done.stderr)


def shrink(program: pathlib.Path, walk: Walk, seconds: float) -> Walk:
    """The same failure with as few steps as can be found in that time: first the last ones alone, then
    with one part after the other left out."""
    end = time.monotonic() + seconds
    best = walk

    def fails(numbers: list[int]) -> bool:
        nonlocal best
        if time.monotonic() > end:
            return False
        tried = run(program, ["-"], numbers)
        if tried.kind != walk.kind:
            return False
        print(f"   {len(tried.steps)} steps", file=sys.stderr, flush=True)
        best = tried
        return True

    last = 16
    while last < len(walk.steps) and not fails(walk.steps[-last:]):
        last *= 4
    size = max(1, len(best.steps) // 2)
    while time.monotonic() < end:
        place = 0
        found = False
        while place < len(best.steps):
            if fails(best.steps[:place] + best.steps[place + size:]):
                found = True
            else:
                place += size
        if size == 1 and not found:
            break
        size = max(1, size // 2)
    return best


def report(seed: str, walk: Walk, shortest: Walk) -> str:
    again = "no shorter walk failed alike" if shortest is walk else f"{len(shortest.steps)} steps do it"
    log = LOGS / f"seed-{seed}.txt"
    log.parent.mkdir(parents=True, exist_ok=True)
    log.write_text(walk.said)
    lines = [f"Seed {seed}, {len(walk.steps)} steps: {walk.kind}", f"All is in {log}; {again}:"]
    lines += [f"  {place}. {told}" for place, told in enumerate(shortest.told, 1)]
    lines += ["Again: echo " + " ".join(map(str, shortest.steps)) + " | QT_QPA_PLATFORM=offscreen monkey -"]
    return "\n".join([*lines, shortest.problem])


def main(arguments: list[str]) -> int:
    is_short = arguments[:1] == ["--corto"]
    program = pathlib.Path(arguments[1]) if is_short else PROGRAM
    seeds = os.environ.get("CL_MONKEY_SEEDS", SHORT_SEED if is_short else SEEDS).split()
    seconds = int(os.environ.get("CL_MONKEY_SECONDS", SHORT_SECONDS if is_short else SECONDS))

    least = math.ceil(seconds * LEAST_RATE / (10 if is_short else 1))

    def look(seed: str) -> Walk:
        walk = run(program, [seed, str(seconds)])
        print(f"   seed {seed}: {len(walk.steps)} steps {walk.kind}", file=sys.stderr, flush=True)
        if walk.kind:
            shortest = shrink(program, walk, SHORT_SHRINKING_SECONDS if is_short else SHRINKING_SECONDS)
            print(report(seed, walk, shortest), file=sys.stderr, flush=True)
        elif len(walk.steps) < least:
            walk.kind = f"{len(walk.steps)} steps, fewer than {least}"
            print(f"Seed {seed}: {walk.kind}\n{walk.said[-4000:]}", file=sys.stderr, flush=True)
        return walk

    with concurrent.futures.ThreadPoolExecutor(max_workers=2) as two:
        walks = dict(zip(seeds, two.map(look, seeds)))
    if any(walk.kind for walk in walks.values()):
        return 1
    if is_short:
        return 0
    minutes = spanish(f"{seconds / 60:g}")
    print(
        "Un programa que hace de usuario sin juicio maneja la ventana principal verdadera: escribe, pega, borra, "
        "deshace, guarda, carga, analiza, grafica, abre hasta 50 ventanas y las cierra, por teclado y con el ratón, "
        "y contesta al azar lo que se le pregunta; da nombres nuevos, tomados, protegidos o sin carpeta, a veces con "
        "el disco lleno, y otro programa cambia sus archivos. Una cuenta aparte sabe qué observaciones existen. Tras "
        "cada paso, cada ventana muestra las suyas, cada archivo tiene lo último que se guardó en él, ninguna ventana "
        "con cambios se cerró sin que se contestara que no se guardan, y deshacer devuelve lo que había. Corre con "
        "los comprobadores de memoria y de comportamiento indefinido; un paso que gasta más de 2 s de procesador, "
        "o que no termina, es una falla."
    )
    columns = dict.fromkeys(["Semilla", "Minutos", "Pasos", "Fallas"], NUMBER)
    print("\n" + table(columns, ([seed, minutes, len(walk.steps), 0] for seed, walk in walks.items())))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

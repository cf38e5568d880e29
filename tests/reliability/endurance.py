#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A thousand days of work in one process, and what each leaves behind: memory, windows, open files.

    endurance.py                      a thousand cycles, for the record
    endurance.py --corto PROGRAM      sixty, for `./test`

CL_ENDURANCE_CYCLES says otherwise.
"""

import dataclasses
import os
import pathlib
import subprocess
import sys

from section import NUMBER, ROOT, decimal, table

PROGRAM = ROOT / "build" / "dev" / "bin" / "endurance"
CYCLES = 1000
SHORT_CYCLES = 60
WARMING = 100  # cycles until everything that is kept for good has been made
SHORT_WARMING = 20
MOST_GROWTH = 1_000_000  # bytes on the heap, in a hundred cycles; in the short form in all
PER = 100


@dataclasses.dataclass
class Left:
    """What there is after a cycle: bytes on the heap, kB of memory that no file gives, counts."""

    cycle: int
    heap: int
    own: int
    widgets: int
    windows: int
    files: int


def run(program: pathlib.Path, cycles: int) -> tuple[list[Left], int]:
    """What was left after each cycle, and the bytes that a step costs that can be undone."""
    done = subprocess.run(
        [program, str(cycles)], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, check=False,
        env={**os.environ, "QT_QPA_PLATFORM": "offscreen"},
    )
    if done.returncode != 0:
        sys.exit(f"terminó con {done.returncode}:\n{done.stdout[-2000:]}{done.stderr[-2000:]}")
    lines = done.stdout.splitlines()
    left = [Left(*map(int, line.split())) for line in lines if line[:1].isdigit()]
    return left, int(lines[-1].removeprefix("step "))


def problems(left: list[Left], warming: int) -> list[str]:
    found = [] if all(one.own for one in left) else ["el sistema no dice la memoria del proceso"]
    for name, what in (("ventanas y controles", "widgets"), ("ventanas", "windows"), ("archivos abiertos", "files")):
        counts = sorted({getattr(one, what) for one in left})
        if len(counts) > 1:
            found.append(f"quedan {name}: entre {counts[0]} y {counts[-1]}")
    warm = left[warming - 1:]
    for before, after in zip(warm[::PER], warm[PER::PER] or warm[-1:]):
        if after.heap - before.heap > MOST_GROWTH:
            found.append(f"memoria: {before.heap} bytes tras el ciclo {before.cycle}, {after.heap} tras el {after.cycle}")
    return found


def figures(left: list[Left], warming: int) -> str:
    chosen = [one for one in left if one.cycle in (1, 10) or one.cycle % warming == 0]
    columns = ["Ciclo", "Memoria pedida, MB", "Memoria del proceso, MB", "Ventanas y controles", "Archivos abiertos"]
    rows = (
        [one.cycle, decimal(one.heap / 1e6, 3), decimal(one.own * 1024 / 1e6, 1), one.widgets, one.files]
        for one in chosen
    )
    return table(dict.fromkeys(columns, NUMBER), rows)


def main(arguments: list[str]) -> int:
    is_short = arguments[:1] == ["--corto"]
    program = pathlib.Path(arguments[1]) if is_short else PROGRAM
    cycles = int(os.environ.get("CL_ENDURANCE_CYCLES", SHORT_CYCLES if is_short else CYCLES))
    warming = min(SHORT_WARMING if is_short else WARMING, max(1, cycles // 3))
    left, step = run(program, cycles)
    if len(left) != cycles:
        sys.exit(f"hubo {len(left)} ciclos de {cycles}")
    found = problems(left, warming)
    if found:
        sys.exit("\n".join(found))
    if is_short:
        return 0
    grown = (left[-1].heap - left[warming - 1].heap) * PER / max(1, cycles - warming)
    print(
        f"En un solo proceso, {cycles} veces: abrir un cuadrado, corregir una observación, deshacer y rehacer, guardar "
        "y analizar con las cinco pruebas, ver una distribución exacta, correr un estudio de potencia y cerrarlo todo. "
        "Tras cada ciclo se cuenta lo que queda: la memoria pedida y sin devolver, la del proceso según el sistema (la "
        "anónima y la que está en el disco de intercambio, sin lo leído de archivos y bibliotecas), las ventanas con "
        "sus controles y los archivos abiertos. Los dos últimos números fueron los mismos "
        f"tras todos los ciclos. Desde el ciclo {warming} la memoria pedida cambió {decimal(grown / 1e3, 1)} kB por cada "
        "100 ciclos; el límite es 1 MB."
    )
    print(f"\n{figures(left, warming)}")
    print(
        "\nDentro de una ventana, cada paso que se puede deshacer ocupa memoria hasta que ella se cierra; no hay límite "
        f"de pasos. Corregir mil veces una observación ocupó {step} bytes por vez."
    )
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

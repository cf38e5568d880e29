#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""How long the windows take for files of all shapes: each step is to take two seconds of processor
time at most, but for moving the largest files.

    sizes.py [--corto [PROGRAM]]

PROGRAM is square_sizes, from build/dev without it. The short form takes few shapes, and a limit that
only what grows with the square of the size can reach.
"""

import os
import pathlib
import subprocess
import sys

from section import ROOT, TEXT, spanish, table

SHAPES = [
    (1, 1), (500, 500), (1000, 1000), (4000, 1), (20000, 1), (1, 20000), (100_000, 1), (4000, 4000),
    (16_000_000, 1),
]  # fmt: skip
EDITED_SHAPES = [(6, 6), (500, 500), (1000, 1000), (4000, 1), (4000, 4000)]
ANALYSIS_STEPS = ["abrir", "F", "Zimmerman", "Bennett", "C", "M"]
EDITOR_STEPS = ["cargar", "escribir", "pegar una fila", "deshacer", "guardar"]
SHORT_SHAPES = [(1500, 1), (1, 1500), (4001, 1)]
LIMIT = 2.0
SHORT_LIMIT = 10.0  # for the machine may be busy, and the form not optimised
LARGEST = 16_000_000  # cells: 272 MB of text, which no two seconds read into two tables, or write
LARGEST_LIMIT = 10.0


def steps(program, shape, *mode):
    run = subprocess.run(
        [program, *map(str, shape), *mode], capture_output=True,
        env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}, text=True, check=False,
    )
    taken = [line.split("\t", 2) for line in run.stdout.splitlines() if "\t" in line]
    names = [name for name, *_ in taken]
    if run.returncode != 0 or names != (EDITOR_STEPS if mode else ANALYSIS_STEPS):
        sys.exit(f"{shape}: {names}, y terminó con {run.returncode}: {run.stderr}{run.stdout}")
    return taken


def limit_of(shape, step, usual):
    moves_a_file = step in ("abrir", "cargar", "guardar")
    return LARGEST_LIMIT if moves_a_file and shape[0] * shape[1] == LARGEST else usual


def measured(program, shapes, limit, *mode):
    """The rows of a table, and what took longer than it may."""
    names, rows, late = [], [], []
    for shape in shapes:
        taken = steps(program, shape, *mode)
        names = [name for name, *_ in taken]
        cells = [
            spanish(seconds) + (" (una línea)" if "No se analizan" in told else "")
            for _, seconds, told in taken
        ]
        rows.append([f"{shape[0]} × {shape[1]}", *cells])
        print(" ".join(rows[-1]), file=sys.stderr, flush=True)
        late += [
            f"{shape}: {name} {seconds} s" for name, seconds, _ in taken
            if float(seconds) > limit_of(shape, name, limit)
        ]
    return table(dict.fromkeys(["columnas × filas", *names], TEXT), rows), late


def main(arguments):
    short = arguments[:1] == ["--corto"]
    program = pathlib.Path(*arguments[1:2] or [ROOT / "build/dev/bin/square_sizes"])
    if short:
        _, late = measured(program, SHORT_SHAPES, SHORT_LIMIT)
        _, late_edits = measured(program, SHORT_SHAPES[:1], SHORT_LIMIT, "editor")
    else:
        analysed, late = measured(program, SHAPES, LIMIT)
        edited, late_edits = measured(program, EDITED_SHAPES, LIMIT, "editor")
        print(
            "Se abrió un archivo de cada forma en una ventana de análisis y se corrieron las cinco pruebas; "
            "después, en el editor, se cargó, se escribió en la última celda de la primera fila, se pegó una fila "
            "entera, se deshizo y se guardó. Las cifras son segundos de procesador, con lo que la ventana pinta. "
            "Cada paso ha de tardar dos segundos como mucho; solo abrir, cargar y guardar 16 millones de "
            "observaciones, que son 272 MB de texto, pueden tardar diez. «Una línea» quiere decir que el orden pasa "
            "de 4000 y el reporte lo dice."
        )
        print(f"\n{analysed}\n\n{edited}")
    if late or late_edits:
        sys.exit("más de lo que puede tardar: " + "; ".join(late + late_edits))


if __name__ == "__main__":
    main(sys.argv[1:])

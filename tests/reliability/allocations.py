#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Lets every allocation of pieces of the program's work fail, one after the other.

    allocations.py [--corto [PROGRAM]]

PROGRAM is failing_allocations, from build/dev without it. The short form takes a few of them.
"""

import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SHORT_STRIDE = 149
NAMES = {
    "read": "leer un cuadrado",
    "write": "guardar un cuadrado",
    "paste": "pegar y deshacer",
    "load": "cargar en el editor",
    "draw": "disponer y pintar una gráfica",
    "F": "reporte de F",
    "Zimmerman": "reporte de Zimmerman",
    "Bennett": "reporte de Bennett",
    "C": "reporte de C",
    "M": "reporte de M",
    "power": "estudio de potencia",
}
WAYS = {"one": "esa", "all": "esa y las que siguen"}
COLUMNS = [
    "trabajo", "fallan", "peticiones", "probadas", "sin efecto", "avisado", "interrumpido",
    "dibujo incompleto", "fin ordenado", "fin en una biblioteca", "caída", "daño",
]  # fmt: skip


CRASH = re.compile(r"(\w+): allocation \d+ \((\w+)\): crashed at (0x[0-9a-f]+)")
TOOLKIT = "/qt6/"
IN_A_LIBRARY, CRASHED, DAMAGED = 9, 10, 11  # columns of a row


def is_of_the_toolkit(program, place):
    """Whether an instruction stands in a header of the toolkit, compiled into the program."""
    line = subprocess.run(["addr2line", "-e", program, place], capture_output=True, text=True, check=True)
    return TOOLKIT in line.stdout


def outcomes(program, *arguments):
    """The rows of the program. What the toolkit's own code does without memory in the program counts as
    done in a library.
    """
    run = subprocess.run(
        [program, *map(str, arguments)], capture_output=True,
        env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}, text=True, check=False,
    )
    rows = {(row[0], row[1]): row for row in (line.split("\t") for line in run.stdout.splitlines())}
    if len(rows) != len(NAMES) * len(WAYS):
        sys.exit(f"faltan trabajos\n{run.stderr}")
    counts = {key: [int(count) for count in row[2:]] for key, row in rows.items()}
    for name, way, place in CRASH.findall(run.stderr):
        if is_of_the_toolkit(program, place):
            counts[name, way][CRASHED - 2] -= 1
            counts[name, way][IN_A_LIBRARY - 2] += 1
    if any(count[CRASHED - 2] or count[DAMAGED - 2] for count in counts.values()):
        sys.exit(f"hubo daño\n{run.stderr}")
    return [[*key, *count] for key, count in counts.items()]


def main(arguments):
    program = pathlib.Path(*arguments[1:2] or [ROOT / "build/dev/bin/failing_allocations"])
    if arguments[:1] == ["--corto"]:
        outcomes(program, SHORT_STRIDE)
        return
    rows = outcomes(program)
    tried = sum(row[3] for row in rows)
    print(
        f"En cada trabajo falló, una por una, cada petición de memoria que hace ({tried} procesos en total): primero "
        "solo esa, después esa y todas las que siguen. «Avisado» es el mensaje que dice que no hay memoria; "
        "«interrumpido», que el trabajo se abandona y todo queda como estaba o se puede rehacer; «fin ordenado», "
        "que el programa termina; «fin en una biblioteca», que lo termina el código de una biblioteca que no mira "
        "si le dieron la memoria. Después de cada fallo se miró que el archivo fuera el de antes o el nuevo, entero; que "
        "la tabla tuviera los datos de antes o los nuevos, y se pudiera deshacer; y que el trabajo, repetido con "
        "memoria, saliera bien. De caídas en el código propio y de daños no hubo ninguno."
    )
    print("\n| " + " | ".join(COLUMNS) + " |\n" + "|---" * len(COLUMNS) + "|")
    for row in rows:
        print("| " + " | ".join([NAMES[row[0]], WAYS[row[1]], *map(str, row[2:])]) + " |")


if __name__ == "__main__":
    main(sys.argv[1:])

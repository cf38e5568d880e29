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

from section import ROOT, TEXT, table

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
    "dibujo incompleto", "fin ordenado", "caída en una biblioteca", "caída en el programa", "daño",
]  # fmt: skip


CRASH = re.compile(r"(\w+): allocation \d+ \((\w+)\): crashed at (0x[0-9a-f]+)")
TOOLKIT = "/qt6/"
IN_A_LIBRARY, CRASHED, DAMAGED = 9, 10, 11  # columns of a row


def is_of_the_toolkit(program, place):
    """Whether an instruction stands in a header of the toolkit, compiled into the program."""
    line = subprocess.run(["addr2line", "-e", program, place], capture_output=True, text=True, check=True)
    return TOOLKIT in line.stdout


def outcomes(program, *arguments):
    """The rows of the program. A crash in the toolkit's own code, compiled into the program, counts as one in
    a library.
    """
    run = subprocess.run(
        [program, *map(str, arguments)], capture_output=True,
        env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}, text=True, check=False,
    )
    rows = {(row[0], row[1]): row for row in (line.split("\t") for line in run.stdout.splitlines())}
    if len(rows) != len(NAMES) * len(WAYS):
        sys.exit(f"faltan trabajos\n{run.stderr}")
    if any(int(row[3]) == 0 or sum(map(int, row[4:])) != int(row[3]) for row in rows.values()):
        sys.exit(f"no todas tienen un final\n{run.stdout}")
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
    if left := [row[:2] for row in rows if row[2] != row[3]]:
        sys.exit(f"no se probaron todas: {left}")
    tried = sum(row[3] for row in rows)
    print(
        f"En cada trabajo falló, una por una, cada petición de memoria que hace ({tried} procesos en total): primero "
        "solo esa, después esa y todas las que siguen. «Avisado» es el mensaje que dice que no hay memoria; "
        "«interrumpido», que el trabajo se abandona y todo queda como estaba o se puede rehacer; «fin ordenado», "
        "que la biblioteca de C++ termina el programa (std::terminate); "
        "«caída en una biblioteca», que el sistema para el programa por lo que hace con la memoria el código de una "
        "biblioteca, o la parte de Qt que se compila dentro del programa: se mira de quién es la instrucción, o la "
        "llamada a la biblioteca de C en que se paró, y no quién llamó a su vez a ese código. "
        "Después de cada proceso, también de los que terminaron así, se miró que el archivo fuera el de antes o el "
        "nuevo, entero. En los que siguieron se miró además que la tabla tuviera los datos de antes o los nuevos, y "
        "se pudiera deshacer; y que el trabajo, repetido con memoria, saliera bien. Caídas en el "
        "código propio, otros finales y daños no hubo ninguno."
    )
    named = [[NAMES[row[0]], WAYS[row[1]], *row[2:]] for row in rows]
    print("\n" + table(dict.fromkeys(COLUMNS, TEXT), named))


if __name__ == "__main__":
    main(sys.argv[1:])

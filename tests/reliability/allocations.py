#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Lets every allocation of pieces of the program's work fail, one after the other.

    allocations.py [--corto [PROGRAM]]

PROGRAM is failing_allocations, from build/dev without it. The short form takes a few of them.
"""

import os
import pathlib
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


def outcomes(program, *arguments):
    """The rows of the program, which says on stderr what was damaged."""
    run = subprocess.run(
        [program, *map(str, arguments)], stdout=subprocess.PIPE,
        env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}, text=True, check=False,
    )
    rows = [line.split("\t") for line in run.stdout.splitlines()]
    if run.returncode != 0:
        sys.exit("hubo daño, o no se pudo probar")
    if len(rows) != len(NAMES) * len(WAYS):
        sys.exit("faltan trabajos")
    return rows


def main(arguments):
    program = pathlib.Path(*arguments[1:2] or [ROOT / "build/dev/bin/failing_allocations"])
    if arguments[:1] == ["--corto"]:
        outcomes(program, SHORT_STRIDE)
        return
    rows = outcomes(program)
    tried = sum(int(row[3]) for row in rows)
    print(
        f"En cada trabajo falló, una por una, cada petición de memoria que hace ({tried} procesos en total): primero "
        "solo esa, después esa y todas las que siguen. «Avisado» es el mensaje que dice que no hay memoria; "
        "«interrumpido», que el trabajo se abandona y todo queda como estaba o se puede rehacer; «fin ordenado», "
        "que el programa termina; «fin en una biblioteca», que lo termina una biblioteca que no mira si le "
        "dieron la memoria. Después de cada fallo se miró que el archivo fuera el de antes o el nuevo, entero; que "
        "la tabla tuviera los datos de antes o los nuevos, y se pudiera deshacer; y que el trabajo, repetido con "
        "memoria, saliera bien. De caídas en el código propio y de daños no hubo ninguno."
    )
    print("\n| " + " | ".join(COLUMNS) + " |\n" + "|---" * len(COLUMNS) + "|")
    for row in rows:
        print("| " + " | ".join([NAMES[row[0]], WAYS[row[1]], *row[2:]]) + " |")


if __name__ == "__main__":
    main(sys.argv[1:])

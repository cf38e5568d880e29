#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes each call of the operating system fail with which the program saves its seven files.

    failures.py [--corto]

The work is done by test_reliability_failing_saves, in build/dev; here it becomes a section.
"""

import os
import pathlib
import subprocess
import sys

PROGRAM = pathlib.Path("build/dev/bin/test_reliability_failing_saves")
UNNAMED = {"unnamed": "sí", "named": "no"}
LIMITS = {"full": "disco lleno", "limit": "límite de tamaño"}


def figures(short):
    """The lines of figures that the program writes: the first word, and the rest."""
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    if not short:
        environment["CL_LARGO"] = "1"
    run = subprocess.run([PROGRAM], env=environment, stdout=subprocess.PIPE, text=True, check=False)
    if run.returncode != 0:
        print(run.stdout, file=sys.stderr)
        sys.exit("failures: a file was lost, or its user was not told; see above")
    lines = [line.split("\t") for line in run.stdout.splitlines()]
    return {
        kind: [line[1:] for line in lines if line[0] == kind] for kind in ("FIGURES", "ROOM")
    }


def calls_table(rows):
    yield (
        "| archivo | archivos sin nombre | corridas | guardado | no guardado, y dicho "
        "| escrito sin que el disco confirme la carpeta, y dicho | guardado sin algo del anterior, y dicho "
        "| restos que no se podían borrar | hallazgos |"
    )
    yield "|---|---|---|---|---|---|---|---|---|"
    for kind, file, runs, saved, refused, unconfirmed, not_kept, strays in rows:
        counts = " | ".join((runs, saved, refused, unconfirmed, not_kept, strays))
        yield f"| `{file}` | {UNNAMED[kind]} | {counts} | 0 |"


def room_table(rows):
    yield "| archivo | falta | corridas | guardado, porque cabía | no guardado, y dicho | hallazgos |"
    yield "|---|---|---|---|---|---|"
    for kind, file, runs, saved in rows:
        yield f"| `{file}` | {LIMITS[kind]} | {runs} | {saved} | {int(runs) - int(saved)} | 0 |"


def body(found):
    runs = sum(int(row[2]) for rows in found.values() for row in rows)
    yield (
        f"Las ventanas del programa guardaron sus siete archivos {runs} veces, con un archivo anterior y sin "
        "él, mientras fallaba una llamada al sistema: en la primera corrida la primera, en la segunda la "
        "segunda, y así hasta una corrida en la que ninguna falló. Fallaron abrir, mirar, bloquear, cambiar "
        "dueño, permisos y atributos, escribir, sincronizar, cerrar, enlazar, renombrar y borrar, con «sin "
        "espacio», «error de disco», «cuota agotada» e «interrumpida»: una vez, desde entonces siempre esa "
        "llamada, o desde entonces todas; y escribir, además, a medias. Se comprobó cada vez que el archivo "
        "era el anterior o el nuevo, entero; que el usuario supo cuál, y qué no se conservó del anterior "
        "(dueño, grupo, permisos, atributos); que la ventana quedó como estaba; y que no quedó ningún archivo "
        "de más, salvo donde también fallaba borrarlo: ese se fue al guardar otra vez."
    )
    yield ""
    yield from calls_table(found["FIGURES"])
    yield ""
    yield (
        "Y con un disco casi lleno de verdad, y con un límite al tamaño de los archivos, dejando sitio para "
        "nada, un byte, un bloque, medio archivo, todo menos un byte o un bloque, todo, y algo más:"
    )
    yield ""
    yield from room_table(found["ROOM"])


def main(arguments):
    print("\n".join(body(figures("--corto" in arguments))))


if __name__ == "__main__":
    main(sys.argv[1:])

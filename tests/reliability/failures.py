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

from section import AS_ROOT, TEXT, table

PROGRAM = pathlib.Path("build/dev/bin/test_reliability_failing_saves")
FILES = {
    "cuadrado.asc", "reporte.txt", "puntual.bmp", "acumulada.bmp", "datos.txt", "potencia.bmp", "potencia.txt",
}  # fmt: skip
UNNAMED = {"unnamed": "sí", "named": "no"}
LIMITS = {"full": "disco lleno", "limit": "límite de tamaño"}
# The calls that the section names; a file that has a name from the start is not linked to one.
CALLS = {
    "openat", "fstatat", "flock", "fchown", "fchmod", "fsetxattr", "write", "fsync", "close", "unlinkat",
}  # fmt: skip
NAMING_CALLS = {"unnamed": {"linkat", "renameat2"}, "named": {"renameat2"}}


def output(short):
    """What the program writes, once it has found nothing."""
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    if not short:
        environment["CL_LARGO"] = "1"
    run = subprocess.run([AS_ROOT, PROGRAM], env=environment, stdout=subprocess.PIPE, text=True, check=False)
    if run.returncode != 0:
        print(run.stdout, file=sys.stderr)
        sys.exit("failures: a file was lost, or its user was not told; see above")
    return run.stdout


def figures(text):
    """The lines of figures by their first word; the end of the section where a row is missing."""
    lines = [line.split("\t") for line in text.splitlines()]
    found = {word: [line[1:] for line in lines if line[0] == word] for word in ("FIGURES", "ROOM", "CALLS")}
    for word, kinds in (("FIGURES", UNNAMED), ("ROOM", LIMITS)):
        wanted = sorted((kind, file) for kind in kinds for file in FILES)
        there = sorted((row[0], row[1]) for row in found[word])
        if there != wanted:
            sys.exit(f"failures: rows of {word}: {there} instead of {wanted}")
    failed = {kind: set(calls) for kind, *calls in found["CALLS"]}
    for kind in UNNAMED:
        if missing := (CALLS | NAMING_CALLS[kind]) - failed.get(kind, set()):
            sys.exit(f"failures: never failed ({kind}): {sorted(missing)}")
    return found


def calls_table(rows):
    columns = [
        "archivo", "archivos sin nombre", "corridas", "guardado", "no guardado, y dicho",
        "escrito sin que el disco confirme la carpeta, y dicho", "guardado sin algo del anterior, y dicho",
        "restos que no se podían borrar", "hallazgos",
    ]  # fmt: skip
    named = ([f"`{file}`", UNNAMED[kind], *counts, 0] for kind, file, *counts in rows)
    return table(dict.fromkeys(columns, TEXT), named)


def room_table(rows):
    columns = ["archivo", "falta", "corridas", "guardado, porque cabía", "no guardado, y dicho", "hallazgos"]
    named = (
        [f"`{file}`", LIMITS[kind], runs, saved, int(runs) - int(saved), 0] for kind, file, runs, saved in rows
    )
    return table(dict.fromkeys(columns, TEXT), named)


def total(rows):
    return sum(int(row[2]) for row in rows)


def body(found):
    yield (
        f"Las ventanas del programa guardaron sus siete archivos {total(found['FIGURES'])} veces, con un archivo "
        "anterior y sin él, mientras fallaba una llamada al sistema: en la primera corrida la primera, en la "
        "segunda la segunda, y así hasta una corrida en la que ninguna falló. Fallaron abrir, mirar, bloquear, "
        "cambiar dueño, permisos y atributos, escribir, sincronizar, cerrar, enlazar, renombrar y borrar, con «sin "
        "espacio», «error de disco», «cuota agotada» e «interrumpida»: una vez, desde entonces siempre esa "
        "llamada, o desde entonces todas; y escribir, además, a medias. Se comprobó cada vez que el archivo "
        "era el anterior o el nuevo, entero; que el usuario supo cuál; que se le dijo que algo no se conservó del "
        "anterior (dueño, grupo, permisos o un atributo) cuando así fue, y solo entonces; que la ventana de lo que "
        "no se pudo guardar quedó como estaba; y que no quedó ningún archivo de más, salvo donde también fallaba "
        "borrarlo: ese se fue al guardar otra vez."
    )
    yield ""
    yield calls_table(found["FIGURES"])
    yield ""
    room = total(found["ROOM"])
    yield f"Y {room} veces con un disco casi lleno de verdad, o con un límite al tamaño de los archivos,"
    yield (
        "dejando sitio para nada, un byte, un bloque, medio archivo, todo menos un byte o un bloque, todo, y "
        "algo más:"
    )
    yield ""
    yield room_table(found["ROOM"])


def main(arguments):
    print("\n".join(body(figures(output("--corto" in arguments)))))


if __name__ == "__main__":
    main(sys.argv[1:])

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes docs/fiabilidad.md, or those of its sections that are named.

    record.py [SECTION...]

A section is a script of its own beside this one, run from the project's root: it prints the body of its
section in Spanish, and fails where it found something. A section that is not made again stays as it was,
with its date.
"""

import datetime
import pathlib
import re
import subprocess
import sys
import time

from section import ROOT

RECORD = ROOT / "docs" / "fiabilidad.md"
SECTIONS = {
    "fuzzing": "Entradas al azar",
    "failures": "Cada llamada al sistema que falla",
    "allocations": "Cada petición de memoria que falla",
    "kills": "Muerto mientras guarda",
    "monkey": "Un mono con memoria",
    "endurance": "Mil jornadas seguidas",
    "endings": "El final que nadie eligió",
    "places": "Idiomas y lugares",
    "sizes": "Archivos anchos",
    "coverage": "Líneas y ramas que corren las pruebas",
    "mutants": "Cien errores sembrados",
    "memcheck": "Memoria sin definir",
}
INTRODUCTION = """# Fiabilidad

Qué aguanta Cuadrado Latino, con cifras. Este documento lo escribe `./test --largo`, que instala lo que
falta, compila y corre cada sección; `./test --largo` con los nombres de algunas rehace solo esas, y cada una dice
cuándo se hizo y con qué estado del código. `./test` corre una forma breve de casi todas.
"""


def heading(section):
    return f"## {SECTIONS[section]}"


def present_sections():
    """The text of each section that the document has, by its heading."""
    if not RECORD.is_file():
        return {}
    parts = re.split(r"^(?=## )", RECORD.read_text(), flags=re.MULTILINE)[1:]
    return {part.splitlines()[0]: part.strip() for part in parts}


def git(*arguments):
    run = subprocess.run(["git", "-C", ROOT, *arguments], capture_output=True, text=True, check=True)
    return run.stdout.strip()


def commit():
    changed = git("status", "--porcelain", "--", ".", f":!{RECORD.relative_to(ROOT)}")
    return git("rev-parse", "--short", "HEAD") + (" con cambios" if changed else "")


def made_again(section):
    """Its text; None where it found something."""
    print(f"== {SECTIONS[section]} ({section})", file=sys.stderr, flush=True)
    began = time.monotonic()
    code = commit()
    script = pathlib.Path(__file__).with_name(f"{section}.py")
    run = subprocess.run(["python3", script], cwd=ROOT, stdout=subprocess.PIPE, text=True, check=False)
    minutes = max(1, round((time.monotonic() - began) / 60))
    if run.returncode != 0:
        return None
    return (
        f"{heading(section)}\n\n{datetime.date.today()}, código {code}, "
        f"`./test --largo {section}`, {minutes} min.\n\n{run.stdout.strip()}"
    )


def write(sections):
    present = [sections[heading(name)] for name in SECTIONS if heading(name) in sections]
    RECORD.write_text("\n\n".join([INTRODUCTION.strip(), *present]) + "\n")


def main(names):
    unknown = [name for name in names if name not in SECTIONS]
    if unknown:
        sys.exit(f"no hay sección {', '.join(unknown)}; hay {', '.join(SECTIONS)}")
    failed = []
    for name in names or SECTIONS:
        if section := made_again(name):
            write({**present_sections(), heading(name): section})
        else:
            failed.append(name)
            print(f"{name}: se encontró algo", file=sys.stderr, flush=True)
    if failed:
        sys.exit(f"secciones que encontraron algo, y quedan como estaban: {', '.join(failed)}")


if __name__ == "__main__":
    main(sys.argv[1:])

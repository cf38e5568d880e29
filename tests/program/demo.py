#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Shows the program's main path where there is no screen to show it on.

demo.py EXECUTABLE: loads the sample experiment, analyses it, exports the report and prints it. Every
step is a real key press or click, but that names of files are put into the file dialog through the
accessibility bus; the pictures stay in capturas/.
"""

import pathlib
import shutil
import sys
import os

from stranger import Program, screenshot, wait_for

ROOT = pathlib.Path(__file__).resolve().parents[2]
PICTURES = ROOT / "capturas"


def step(number, text):
    print(f"   {number}. {text}", flush=True)


def show_main_path(program, folder):
    data = folder / "propelente.asc"
    report = folder / "reporte.txt"
    shutil.copy(ROOT / "ejemplos" / "propelente.asc", data)

    step(1, "El programa arranca con un editor vacío")
    program.find("label", "DATOS")
    screenshot(PICTURES / "1-inicio.png")

    step(2, "Ctrl+A: abrir ejemplos/propelente.asc")
    program.press("ctrl+a")
    program.answer_file_dialog(data)
    program.find("table cell", "38.000")
    screenshot(PICTURES / "2-editor.png")

    step(3, "Menú Editor, «Guardar y Analizar...»")
    program.choose("Editor", "Guardar y Analizar...")
    program.find("label", "DATOS A ANALIZAR")

    step(4, "Botón «Analizar»")
    program.click(program.find("push button", "Analizar"))
    wait_for("the report", lambda: "TOTAL" in program.text(program.find("text", "Reporte")))
    screenshot(PICTURES / "3-analisis.png")

    step(5, "Ctrl+E: exportar el reporte")
    program.press("ctrl+e")
    program.answer_file_dialog(report)
    wait_for("the exported report", report.is_file)

    step(6, "Salir; el editor vacío del arranque pregunta si se guarda: No")
    program.press("alt+F4")
    program.click(program.find("push button", "No"))
    status = program.wait_for_end()
    print(f"\n== Reporte exportado ({report.stat().st_size} bytes):\n")
    print(report.read_bytes().decode("utf-8"))
    return status


def main(executable):
    PICTURES.mkdir(exist_ok=True)
    program = Program(executable, LC_ALL="C.UTF-8")
    try:
        status = show_main_path(program, pathlib.Path(os.environ["CL_SCRATCH"]))
    except Exception:
        screenshot(PICTURES / "fallo.png")
        raise
    finally:
        program.kill()
    print(f"== Capturas de pantalla en {PICTURES}")
    return status


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve()))

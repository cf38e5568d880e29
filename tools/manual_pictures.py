#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Takes the manual's pictures anew, from the running program on a virtual display.

manual_pictures.py EXECUTABLE [FOLDER] : writes FOLDER/*.png (docs/manual/imagenes). The files that
show in the pictures lie in a folder that is nobody's, which is gone afterwards.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
PROGRAM_TESTS = ROOT / "tests" / "program"
sys.path.insert(0, str(PROGRAM_TESTS))
from pictures import DESKTOP, desktop_settings  # noqa: E402

SCREEN = "980x660"  # a propellant square shows whole, letters stay legible on a page
FILES = pathlib.Path("/tmp/experimentos")
KEY_OF_THE_FIELD = (
    "Tratamientos: 1 = C, 2 = A, 3 = D, 4 = B. Se reordenaron las filas y las columnas."
)


def field_square():
    """The harvested square of the chapter on the field, as a spreadsheet would copy it."""
    chapter = (ROOT / "docs" / "manual" / "del-campo-al-programa.md").read_text("utf-8")
    rows = [line for line in chapter.splitlines() if line.startswith("| Franja")]
    harvest = [line for line in rows if line.startswith("| Franja |") or "," in line][:5]
    cells = [[cell.strip() for cell in line.strip("|").split("|")] for line in harvest]
    return "".join("\t".join(line) + "\n" for line in cells)


class Album:
    def __init__(self, folder):
        self.folder = folder

    def take(self, name):
        from stranger import screenshot

        time.sleep(0.5)  # for what moves or blinks
        screenshot(self.folder / f"{name}.png")
        self.shrink(self.folder / f"{name}.png", name)

    def shrink(self, picture, name):
        """Few colours and no dates: small, and the same bytes from the same screen."""
        options = ["-strip", "+dither", "-colors", "200", "-define", "png:exclude-chunks=date,time"]
        subprocess.run(["convert", picture, *options, f"PNG8:{self.folder / name}.png"], check=True)


def maximise(program):
    program.press("alt+minus", "x")


def show_editor(program, album):
    from by_keyboard import type_propellant

    program.find("label", "DATOS")
    album.take("inicio")
    program.press("ctrl+Tab")
    type_propellant(program)
    program.press("ctrl+Home")
    album.take("editor")
    program.press("shift+F10")
    album.take("menu-de-la-tabla")
    program.press("Escape")


def analyse_propellant(program, album):
    from by_keyboard import REPORT_IS_COMPLETE

    program.press("alt+d", "a")
    program.answer_file_dialog(FILES / "propelente.asc")
    program.find("label", "DATOS A ANALIZAR")
    program.press("F9")
    program.find("label", REPORT_IS_COMPLETE)
    album.take("analisis")
    program.press("ctrl+F4")
    program.wait_until_gone("label", "DATOS A ANALIZAR")


def extract_field_square(program, album):
    copy = subprocess.Popen(
        ["xclip", "-selection", "clipboard", "-quiet"], stdin=subprocess.PIPE, text=True
    )
    copy.stdin.write(field_square())
    copy.stdin.close()
    time.sleep(0.5)
    program.press("ctrl+n")
    program.wait_for_focus("table «Datos»")
    program.press("shift+F10", "Up", "Return")
    program.find("label", KEY_OF_THE_FIELD)
    maximise(program)
    album.take("extraer")
    copy.kill()
    program.press("F2")
    program.answer_file_dialog(FILES / "variedades.asc")
    program.find("frame", f"Editor - {FILES / 'variedades.asc'}")
    program.press("ctrl+F4")
    program.wait_until_gone("label", "DATOS")


def show_exact_distribution(program, album):
    from by_keyboard import open_analysis, open_graph_of_c
    from stranger import xdotool

    shutil.copy(ROOT / "ejemplos" / "orden3.asc", FILES)
    open_analysis(program, FILES / "orden3.asc")
    open_graph_of_c(program)
    album.take("distribucion")
    program.press("ctrl+F4")
    program.wait_until_gone("chart", "Gráfica")
    album.take("analisis-c")
    program.press("ctrl+F4")
    program.wait_until_gone("label", "DATOS A ANALIZAR")
    xdotool("mousemove", 1, 1)


def study_power(program, album):
    from by_keyboard import finish_study, open_power, save, walk

    open_power(program)
    maximise(program)
    walk(program, "Tab", "spin button «Tamaño del cuadrado»")
    program.press("Up", "Up", "F9")
    finish_study(program)
    time.sleep(1)
    album.take("potencia")
    program.press("Down")  # of order 4 the four curves differ
    walk(program, "Tab", "spin button «Número de pruebas»")
    program.press(*["Up"] * 40, "F9")
    finish_study(program)
    time.sleep(2)
    save(program, FILES / "curvas.bmp", "alt+p", "g")
    album.shrink(FILES / "curvas.bmp", "potencia-diapositiva")
    program.press("ctrl+F4")


def show_manual(program, album):
    program.press("ctrl+n")
    program.wait_for_focus("table «Datos»")
    program.press("F1")
    program.find("label", "El editor")
    album.take("ayuda")
    program.press("Escape")


def take_pictures(executable, folder):
    from stranger import Program, screenshot

    configuration = pathlib.Path(os.environ["CL_SCRATCH"])
    (configuration / "kdeglobals").write_text(desktop_settings("claro", 9), encoding="utf-8")
    program = Program(
        executable, LC_ALL="es_ES.UTF-8", XDG_CONFIG_HOME=str(configuration), **DESKTOP
    )
    album = Album(folder)
    try:
        for show in (
            show_editor,
            analyse_propellant,
            extract_field_square,
            show_exact_distribution,
            study_power,
            show_manual,
        ):
            show(program, album)
    except Exception:
        screenshot(FILES.parent / "fallo.png")
        raise
    finally:
        program.kill()


def main(executable, folder=ROOT / "docs" / "manual" / "imagenes"):
    FILES.mkdir()  # fails where somebody has one already
    try:
        command = [PROGRAM_TESTS / "on_virtual_display", __file__, "--here"]
        arguments = [pathlib.Path(executable).resolve(), pathlib.Path(folder).resolve()]
        environment = {**os.environ, "CL_SCREEN": SCREEN}
        subprocess.run([*command, *arguments], env=environment, check=True)
    finally:
        shutil.rmtree(FILES)


if __name__ == "__main__":
    if sys.argv[1] == "--here":
        take_pictures(pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3]))
    else:
        main(*sys.argv[1:])

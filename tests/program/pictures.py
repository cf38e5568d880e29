#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Pictures of every window, to be looked at: on every screen, theme and font that matters.

pictures.py EXECUTABLE FOLDER [PATTERN] : writes FOLDER/SCREEN-SCALE-THEME-FONT/NN-window.png; with a
pattern only the settings whose name matches it. A screen's size is given in points: at scale 2 the
display has twice as many pixels each way.
"""

import fnmatch
import itertools
import os
import pathlib
import shutil
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
SAMPLES = HERE.parents[1] / "ejemplos"

SCREENS = {"1280x800": (1280, 800), "1920x1080": (1920, 1080)}
SCALES = (1, 2)
FONTS = {"normal": 10, "grande": 15}  # points

# Qt reads colours and fonts from the settings of this desktop.
DESKTOP = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5"}
PALETTES = {  # ground and text of windows, ground of lists and edits, ground of chosen things
    "claro": ("239,240,241", "35,38,41", "255,255,255", "61,174,233"),
    "oscuro": ("49,54,59", "239,240,241", "35,38,41", "61,174,233"),
}


def desktop_settings(theme, points):
    ground, text, view, chosen = PALETTES[theme]
    settings = f"[General]\nfont=DejaVu Sans,{points},-1,5,50,0,0,0,0,0\n"
    for group, background in (
        ("Window", ground),
        ("View", view),
        ("Button", ground),
        ("Selection", chosen),
        ("Tooltip", ground),
    ):
        settings += f"[Colors:{group}]\nBackgroundNormal={background}\nForegroundNormal={text}\n"
    return settings


class Album:
    """The pictures of one run of the program, numbered in the order of taking."""

    def __init__(self, folder):
        self.folder = folder
        self.count = 0

    def take(self, name):
        from stranger import screenshot

        time.sleep(0.4)  # for what moves or blinks
        self.count += 1
        screenshot(self.folder / f"{self.count:02}-{name}.png")


def show_editor(program, album):
    program.find("label", "DATOS")
    album.take("inicio")
    program.press("ctrl+a")
    program.find("push button", "Cancelar")
    album.take("abrir")
    program.answer_file_dialog(SAMPLES / "propelente.asc")
    program.find("table cell", "38,000")
    album.take("editor-dos")
    program.press("shift+F10")
    album.take("menu-de-celdas")
    program.press("Escape", "alt+d", "Down")
    album.take("menu-del-editor")
    program.press("Escape", "Escape", "shift+F4")  # out of the menu, out of the bar
    album.take("cascada")
    program.press("ctrl+F4")
    program.type("7,5")
    program.press("Return", "ctrl+F4")
    program.find("label", "Desea guardar los cambios?")
    album.take("pregunta")
    program.press("alt+n")
    program.wait_until_gone("label", "Desea guardar los cambios?")


def show_analysis(program, album):
    program.press("alt+a", "n", "d")
    program.answer_file_dialog(SAMPLES / "LEEME.md")
    program.find("push button", "Aceptar")
    album.take("error")
    program.press("Return")
    program.wait_until_gone("push button", "Aceptar")
    program.press("alt+a", "n", "d")
    program.answer_file_dialog(SAMPLES / "propelente.asc")
    program.find("label", "DATOS A ANALIZAR")
    album.take("analisis-sin-generar")
    program.press("F9")
    album.take("analisis-f")
    program.press("ctrl+F4", "alt+a", "n", "d")
    program.answer_file_dialog(SAMPLES / "orden3.asc")
    program.click(program.find("radio button", "Secuencias"))
    program.press("F9")
    album.take("analisis-c")
    program.press("ctrl+e")
    program.find("push button", "Cancelar")
    album.take("exportar")
    program.press("Escape")
    program.wait_until_gone("push button", "Cancelar")
    program.click(program.find("push button", "Ver exacta..."))
    program.find("chart")
    album.take("distribucion")
    program.choose("Ventana", "Cascada")
    album.take("cascada-con-grafica")


def show_power(program, album):
    program.press("alt+a", "n", "c")
    program.find("push button", "Calcular")
    album.take("potencia-vacia")
    program.press("F9")
    program.find("label", "Listo.")
    album.take("potencia")
    program.press("shift+F5")
    album.take("mosaico")
    program.press("alt+v")
    album.take("menu-de-ventanas")
    program.press("Escape", "Escape", "alt+y", "Return")
    program.find("push button", "Aceptar")
    album.take("acerca")
    program.press("Return")
    program.wait_until_gone("push button", "Aceptar")


def show_manual(program, album):
    program.press("F1")
    program.find("label", "La ventana de potencia")
    album.take("manual")
    program.press("ctrl+f")
    program.type("empates")
    album.take("manual-buscar")


def take_pictures(executable, folder, environment):
    from stranger import Program, screenshot

    program = Program(executable, LC_ALL="es_ES.UTF-8", **environment)
    album = Album(folder)
    try:
        show_editor(program, album)
        show_analysis(program, album)
        show_power(program, album)
        show_manual(program, album)
    except Exception:
        screenshot(folder / "fallo.png")
        raise
    finally:
        program.kill()


def run_setting(executable, folder, screen, scale, theme, font):
    """One run of the program on a display of its own, in a process of its own."""
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    width, height = (side * scale for side in SCREENS[screen])
    settings = desktop_settings(theme, FONTS[font])
    command = [HERE / "on_virtual_display", __file__, "--here", executable, folder, settings, str(scale)]
    environment = {**os.environ, "CL_SCREEN": f"{width}x{height}"}
    subprocess.run(command, env=environment, check=True)


def here(executable, folder, settings, scale):
    configuration = pathlib.Path(os.environ["CL_SCRATCH"])
    (configuration / "kdeglobals").write_text(settings, encoding="utf-8")
    environment = {**DESKTOP, "XDG_CONFIG_HOME": str(configuration), "QT_SCALE_FACTOR": scale}
    take_pictures(executable, pathlib.Path(folder), environment)


def main(executable, folder, pattern="*"):
    executable = pathlib.Path(executable).resolve()
    for setting in itertools.product(SCREENS, SCALES, PALETTES, FONTS):
        name = "-".join(map(str, setting))
        if fnmatch.fnmatch(name, pattern):
            print(f"== {name}", flush=True)
            run_setting(executable, pathlib.Path(folder).resolve() / name, *setting)


if __name__ == "__main__":
    if sys.argv[1] == "--here":
        here(*sys.argv[2:])
    else:
        main(*sys.argv[1:])

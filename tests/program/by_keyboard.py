# SPDX-License-Identifier: GPL-3.0-or-later
"""Ways through the program by keyboard that several scripts take."""

import pathlib
import subprocess

from stranger import wait_for

ROOT = pathlib.Path(__file__).resolve().parents[2]
SAMPLES = ROOT / "ejemplos"
ORDER_3 = SAMPLES / "orden3.asc"

# Montgomery, Design and Analysis of Experiments: row after row of propelente.asc.
PROPELLANT = (
    24, 20, 19, 24, 24,
    17, 24, 30, 27, 36,
    18, 38, 26, 27, 21,
    26, 31, 26, 23, 22,
    22, 30, 20, 29, 31,
)  # fmt: skip

REPORT_IS_COMPLETE = "Análisis completo. Puede realizar otro o guardar los resultados."
LEVEL = "scroll bar «Nivel de significancia, en porcentaje»"


def walk(program, key, *controls):
    """Presses a key again and again, and the focus goes from control to control."""
    for control in controls:
        program.press(key)
        program.wait_for_focus(control)


def open_editor(program, path=ORDER_3):
    program.press("ctrl+a")
    program.answer_file_dialog(path)
    program.find("frame", f"Editor - {path}")
    program.wait_for_focus("table «Datos»")


def type_propellant(program):
    """Into the empty editor of a new frame, names of rows and columns first."""
    walk(program, "shift+Tab", "text «Nombre de columnas»", "text «Nombre de filas»")
    walk(program, "shift+Tab", "spin button «Número de tratamientos»")
    program.press("Up", "Up", "Tab")
    program.type("Lote")
    program.press("Tab")
    program.type("Operador")
    walk(program, "Tab", "table «Datos»")
    for value in PROPELLANT:
        program.type(str(value))
        program.press("Return")
    program.wait_for_focus("table «Datos»", f"table cell «{PROPELLANT[-1]},000»")


def open_analysis(program, path=ORDER_3):
    program.press("alt+a", "n", "d")
    program.answer_file_dialog(path)
    program.wait_for_focus("radio button «Clásico»")


def open_graph_of_c(program):
    """From an analysis of order 3 that was just opened."""
    walk(program, "Down", "radio button «Rangos»", "radio button «Secuencias»")
    program.press("F9")
    program.find("label", REPORT_IS_COMPLETE)
    walk(program, "Tab", "radio button «Prueba C (Exacta -> Normal)»", LEVEL, "text «Reporte»")
    walk(program, "Tab", "push button «Analizar»", "push button «Ver exacta...»")
    program.press("space")
    program.wait_for_focus("chart «Gráfica»")


def open_power(program):
    program.press("alt+a", "n", "c")
    program.wait_for_focus("push button «Calcular»")


def finish_study(program):
    """Waits for the end of the power study that runs; gives its log."""
    log = program.find("text", "Reporte de los cálculos")
    wait_for("the end of the study", lambda: "dif = 1 :" in program.text(log))
    return program.text(log)


def leave_menu(program, control):
    """Out of a menu, and out of the bar: on a loaded machine the toolkit takes one Escape more at times."""

    def is_back():
        program.press("Escape")
        return program.focused() == control

    wait_for(f"the focus at {control}", is_back)


def save(program, path, *keys):
    """What a command writes to a file; the focus is back where it was."""
    before = program.focused()
    program.press(*keys)
    program.answer_file_dialog(path)
    program.wait_for_focus(before)
    return path.read_bytes()


def clipboard(target="UTF8_STRING"):
    command = ["xclip", "-selection", "clipboard", "-target", target, "-out"]
    return subprocess.run(command, capture_output=True, check=False).stdout

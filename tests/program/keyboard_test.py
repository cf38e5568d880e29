#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The program without a mouse: Tab comes to every control, keys answer every question.

keyboard_test.py EXECUTABLE, below on_virtual_display.
"""

import os

import pyatspi

from by_keyboard import LEVEL, ORDER_3, SAMPLES, open_analysis, open_editor, open_power, walk
from driven import ProgramTest, main
from stranger import role_of

CELLS_OF_ORDER_3 = (
    "12,500", "14,100", "11,800",
    "15,200", "12,900", "13,400",
    "11,600", "13,700", "16,300",
)  # fmt: skip
TAKES_FOCUS = {pyatspi.STATE_SHOWING, pyatspi.STATE_ENABLED, pyatspi.STATE_FOCUSABLE}


def cells(*texts):
    return [f"table cell «{text}»" for text in texts]


class Keyboard(ProgramTest):
    def setUp(self):
        self.program = self.start()

    def check_reachable(self, window, reached, *otherwise):
        """What takes the keyboard in the window is what was reached, and what is otherwise."""
        found = set()
        for control in self.program.controls(window):
            if not TAKES_FOCUS.issubset(control.getState().getStates()):
                continue
            # The edit inside of a spin button is the spin button.
            if role_of(control.parent) != "spin button":
                found.add(f"{role_of(control)} «{control.name}»")
        self.assertEqual(found, {f"frame «{window.name}»", *reached, *otherwise})

    def test_tab_in_the_editor(self):
        open_editor(self.program)
        options = (
            "spin button «Número de tratamientos»",
            "text «Nombre de filas»",
            "text «Nombre de columnas»",
        )
        treatments = "table «Referencia: tratamientos»"
        walk(self.program, "Tab", *cells(*CELLS_OF_ORDER_3[1:]), treatments, *options, "table «Datos»")
        # The cursor is in the last cell still.
        walk(self.program, "Tab", treatments)
        walk(self.program, "shift+Tab", "table «Datos»", *cells(*CELLS_OF_ORDER_3[-2::-1]))
        walk(self.program, "shift+Tab", *reversed(options), treatments)
        window = self.program.find("frame", f"Editor - {ORDER_3}")
        reached = ["table «Datos»", treatments, *options, *cells(*CELLS_OF_ORDER_3)]
        self.check_reachable(window, reached, *cells("1", "2", "3"))  # only to look at

    def test_tab_in_the_analysis(self):
        open_analysis(self.program)
        options = (
            "radio button «Clásico»",
            "radio button «Prueba F»",
            LEVEL,
            "text «Reporte»",
        )
        run = "push button «Analizar»"
        data = ("table «Datos a analizar»", *cells(*CELLS_OF_ORDER_3[1:]))
        walk(self.program, "Tab", *options[1:], run, *data, *options)
        walk(self.program, "shift+Tab", *options[-2::-1], "table «Datos a analizar»")
        walk(self.program, "shift+Tab", *cells(*CELLS_OF_ORDER_3[-2::-1]), run, "text «Reporte»")
        window = self.program.find("frame", f"Análisis - {ORDER_3}")
        reached = [run, *data, *cells("12,500"), *options]
        by_arrows = ("radio button «Rangos»", "radio button «Secuencias»")
        self.check_reachable(window, reached, *by_arrows)

    def test_tab_in_the_power_window(self):
        open_power(self.program)
        controls = (
            "push button «Calcular»",
            "spin button «Tamaño del cuadrado»",
            "spin button «Número de pruebas»",
            "push button «Nivel de Significancia 95%»",
            "push button «Distribución Uniforme»",
            "chart «Potencias»",
            "text «Reporte de los cálculos»",
        )
        walk(self.program, "Tab", *controls[1:], controls[0])
        walk(self.program, "shift+Tab", *reversed(controls))
        self.check_reachable(self.program.find("frame", "Potencia"), controls)

    def test_tab_in_a_file_dialog(self):
        self.program.press("F2")
        self.program.wait_for_focus("text «Nombre de archivo:»")
        self.program.type("zzz")  # a name that none in the folder completes
        places = f"combo box «{os.getcwd()}»"
        controls = (
            "combo box «ASCII (*.asc)»",
            "push button «Guardar»",
            "push button «Cancelar»",
            places,
            "push button «Carpeta superior»",
            "push button «Crear nueva carpeta»",
            "push button «Vista de lista»",
            "push button «Vista detallada»",
            "list «Barra lateral»",
            "tree «Archivos»",
            "text «Nombre de archivo:»",
        )
        walk(self.program, "Tab", *controls)
        walk(self.program, "shift+Tab", *controls[-2::-1])

    def test_tool_bar_where_no_window_takes_the_keyboard(self):
        self.program.press("ctrl+F4", "alt+n")
        self.program.wait_until_gone("table")
        for name in "Nuevo Editor", "Nuevo Análisis", "Nueva Potencia":
            while self.program.focused() != f"push button «{name}»":
                self.program.press("Tab")
        self.program.press("space")
        self.program.wait_for_focus("push button «Calcular»")

    def test_about_box(self):
        for key in "Escape", "Return", "space":
            self.program.press("alt+y", "Return")
            self.program.wait_for_focus("push button «Aceptar»")
            self.program.press(key)
            self.program.wait_until_gone("dialog", "Acerca de")
            self.program.wait_for_focus("table «Datos»")

    def test_questions_and_errors(self):
        program = self.program
        for keys in ("alt+n",), ("Tab", "space"), ("Tab", "Return"):
            program.press("ctrl+F4")
            program.find("label", "Desea guardar los cambios?")
            program.wait_for_focus("push button «Sí»")
            program.press(*keys)
            program.wait_until_gone("label", "Desea guardar los cambios?")
            program.press("ctrl+n")
            program.wait_for_focus("table «Datos»")
        program.press("ctrl+F4")
        program.wait_for_focus("push button «Sí»")
        program.press("alt+s")
        program.find("dialog", "Guardar Archivo")
        program.press("Escape")
        program.wait_for_focus("table «Datos»")
        for key in "Return", "Escape", "space":
            program.press("F3")
            program.answer_file_dialog(SAMPLES / "LEEME.md")
            program.wait_for_focus("push button «Aceptar»")
            program.press(key)
            program.wait_until_gone("alert")
            program.wait_for_focus("table «Datos»")


if __name__ == "__main__":
    main()

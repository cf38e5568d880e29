#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The merged menu bar of the running program: every menu of every kind of window, every tip.

menus_test.py EXECUTABLE, below on_virtual_display.
"""

import pathlib
import sys
import unittest

from stranger import Program, wait_for

SAMPLES = pathlib.Path(__file__).resolve().parents[2] / "ejemplos"
OF_THE_FRAME = {"Archivo": 3, "Ventana": 2, "Ayuda": 1}  # entries, the list of windows left out
OF_THE_CHILDREN = {"Editor": 3, "Análisis": 1, "Gráfica": 5, "Potencia": 2}
LASTING = {
    "Editor": "Puede manejar archivos de datos para el análisis aquí. Para analizar los datos actuales "
    "use la opción 'Guardar y Analizar'",
    "Análisis": "Análisis completo. Puede realizar otro o guardar los resultados.",
    "Gráfica": "Arrastre sobre una gráfica para ampliarla; Esc regresa un paso y doble clic muestra todo.",
    "Potencia": "Listo.",
}


class Menus(unittest.TestCase):
    executable = None

    def open_editor(self, program):
        program.find("frame", "Editor")

    def open_analysis(self, program):
        program.click(program.find("push button", "Nuevo Análisis"))
        program.answer_file_dialog(SAMPLES / "orden3.asc")
        program.click(program.find("radio button", "Secuencias"))
        program.click(program.find("push button", "Analizar"))

    def open_graph(self, program):
        self.open_analysis(program)
        program.find("label", LASTING["Análisis"])
        program.click(program.find("push button", "Ver exacta..."))
        program.find("chart")

    def open_power(self, program):
        program.click(program.find("push button", "Nueva Potencia"))
        program.find("push button", "Calcular")

    def bar(self, program):
        (bar,) = program.look("menu bar")
        return [bar.getChildAtIndex(i).name for i in range(bar.childCount)]

    def tips(self, program, menu, entries):
        """The tips of a menu's first entries, walked down by key."""
        before = {label.name for label in program.look("label")}
        program.click(program.find("menu item", menu))
        found = []
        for _ in range(entries):
            program.press("Down")
            tip = wait_for(
                f"a tip in the menu {menu}",
                lambda: {label.name for label in program.look("label")} - before - set(found[-1:]),
            )
            found += tip
        program.press("Escape", "Escape")
        return found

    def check_window(self, child, opened):
        program = Program(self.executable, LC_ALL="es_ES.UTF-8")
        self.addCleanup(program.kill)
        opened(program)
        program.find("label", LASTING[child])
        self.assertEqual(self.bar(program), ["Archivo", child, "Ventana", "Ayuda"])
        menus = {**OF_THE_FRAME, child: OF_THE_CHILDREN[child]}
        for menu, entries in menus.items():
            tips = self.tips(program, menu, entries)
            self.assertEqual(len(set(tips)), entries, tips)
            program.find("label", LASTING[child])  # has come back

    def test_editor(self):
        self.check_window("Editor", self.open_editor)

    def test_analysis(self):
        self.check_window("Análisis", self.open_analysis)

    def test_graph(self):
        self.check_window("Gráfica", self.open_graph)

    def test_power(self):
        self.check_window("Potencia", self.open_power)


if __name__ == "__main__":
    Menus.executable = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2, warnings="ignore")

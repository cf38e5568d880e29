#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The program without a mouse: whole pieces of work, from the data to the saved files.

keyboard_work_test.py EXECUTABLE, below on_virtual_display.
"""

import os
import pathlib

from by_keyboard import (
    PROPELLANT,
    LEVEL,
    ROOT,
    SAMPLES,
    clipboard,
    finish_study,
    open_analysis,
    open_graph_of_c,
    open_power,
    save,
    type_propellant,
    walk,
)
from driven import ProgramTest, main
from stranger import wait_for

GOLDEN = ROOT / "tests" / "stats" / "data"
SCRATCH = pathlib.Path(os.environ["CL_SCRATCH"])


class Work(ProgramTest):
    def setUp(self):
        self.program = self.start()

    def test_from_a_typed_square_to_its_report(self):
        program = self.program
        type_propellant(program)
        data = SCRATCH / "propelente.asc"
        square = save(self.program, data, "F2").decode("utf-8").split("\r\n")
        sample = (SAMPLES / "propelente.asc").read_bytes().decode("utf-8").split("\r\n")
        self.assertEqual(square[1:], sample[1:])

        program.wait_for_focus("table «Datos»", f"table cell «{PROPELLANT[-1]},000»")
        self.assertEqual(program.status(), f"Guardado: {data}")
        program.press("ctrl+c")
        wait_for("the copy", lambda: program.status() == "Copiado")
        self.assertEqual(clipboard().decode("utf-8"), str(PROPELLANT[-1]))
        program.press("alt+d", "a")
        program.wait_for_focus("radio button «Clásico»")
        program.press("F9")
        self.wait_for_report("TOTAL")
        report = save(self.program, SCRATCH / "reporte.txt", "ctrl+e").decode("utf-8")
        golden = (GOLDEN / "f_propelente_95_coma.txt").read_text("utf-8")
        self.assertEqual(report.replace("\r\n", "\n"), golden)

    def wait_for_report(self, text):
        report = self.program.find("text", "Reporte")
        return wait_for("the report", lambda: text in (shown := self.program.text(report)) and shown)

    def test_approach_test_and_level_by_arrows(self):
        program = self.program
        open_analysis(self.program)
        program.press("Down")  # the ranks offer their second test first
        walk(self.program, "Tab", "radio button «Bennett (Chi-2)»")
        walk(self.program, "Up", "radio button «Zimmerman (F)»")
        walk(self.program, "Tab", LEVEL)
        program.press(*["Left"] * 5)
        program.find("label", "Nivel de Significancia: 90%")
        program.press("Right")
        program.find("label", "Nivel de Significancia: 91%")
        program.press("Home")
        program.find("label", "Nivel de Significancia: 1%")
        program.press("F9")
        self.assertIn("alpha = 0,99", self.wait_for_report("Zimmerman"))
        # What stands in the report can be taken along.
        walk(self.program, "Tab", "text «Reporte»")
        program.press("ctrl+Home", "ctrl+shift+End", "ctrl+c")
        report = program.text(program.find("text", "Reporte"))
        wait_for("the copy", lambda: clipboard().decode("utf-8") == report)
        self.assertEqual(program.status(), "Copiado")

    def test_graph_of_an_exact_distribution(self):
        program = self.program
        open_analysis(self.program)
        open_graph_of_c(self.program)
        self.assertEqual(save(self.program, SCRATCH / "puntual.bmp", "alt+g", "g")[:2], b"BM")
        self.assertEqual(save(self.program, SCRATCH / "acumulada.bmp", "alt+g", "a")[:2], b"BM")
        self.assertIn(b"F(x)", save(self.program, SCRATCH / "datos.txt", "F2"))
        for name in "Gráfica", "Distrib. Acumulada":
            chart = program.find("chart", name)
            whole = chart.description
            for zoom in "plus", "Left":
                before = chart.description
                program.press(zoom)
                wait_for("another view", lambda: chart.description != before)
            program.press("Escape", "Escape")
            wait_for("the whole chart", lambda: chart.description == whole)
            program.press("Tab")

    def test_power_study(self):
        program = self.program
        open_power(self.program)
        walk(self.program, "Tab", "spin button «Tamaño del cuadrado»", "spin button «Número de pruebas»")
        program.press(*["Down"] * 5)
        for button, entry, chosen in (
            ("Nivel de Significancia 95%", "90%", "Nivel de Significancia 90%"),
            ("Distribución Uniforme", "Exponencial", "Distribución Exponencial"),
        ):
            walk(self.program, "Tab", f"push button «{button}»")
            program.press("space")
            program.find("popup menu")
            while program.focused() != f"menu item «{entry}»":
                program.press("Down")
            program.press("Return")
            program.wait_for_focus(f"push button «{chosen}»")
        program.press("F9")
        finish_study(program)
        report = save(self.program, SCRATCH / "potencia.txt", "alt+p", "r").decode("utf-8").split("\r\n")
        self.assertIn("(Cuadrado tamaño 3), 500 pruebas...", report[1])
        self.assertEqual(report[2], "Datos provenientes de Distribución Exponencial")
        self.assertEqual(save(self.program, SCRATCH / "potencia.bmp", "alt+p", "g")[:2], b"BM")


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The power study in the real program: the first study after a start, its graph and its report.

power_test.py EXECUTABLE, below on_virtual_display.
"""

import os
import pathlib
import sys
import unittest

from stranger import Program, wait_for

SCRATCH = pathlib.Path(os.environ["CL_SCRATCH"])


class Power(unittest.TestCase):
    executable = None

    def study(self, folder):
        """The report of the first study after a start, with the settings as they are."""
        folder.mkdir()
        program = Program(self.executable, LC_ALL="es_ES.UTF-8")
        self.addCleanup(program.kill)
        program.click(program.find("push button", "Nueva Potencia"))
        program.click(program.find("push button", "Calcular"))
        wait_for("the end of the study", lambda: program.look("label", "Listo."))

        program.choose("Potencia", "Guardar Reporte...")
        program.answer_file_dialog(folder / "reporte.txt")
        wait_for("the report", (folder / "reporte.txt").is_file)
        program.choose("Potencia", "Guardar Grafica...")
        program.answer_file_dialog(folder / "grafica.bmp")
        wait_for("the graph", (folder / "grafica.bmp").is_file)
        self.assertEqual((folder / "grafica.bmp").read_bytes()[:2], b"BM")
        return (folder / "reporte.txt").read_bytes()

    def test_first_study_after_a_start_is_always_the_same(self):
        first = self.study(SCRATCH / "uno")
        self.assertEqual(first, self.study(SCRATCH / "dos"))
        lines = first.decode("utf-8").split("\r\n")
        self.assertEqual(lines[0], "")
        self.assertEqual(
            lines[1], "Iniciado análisis de potencia (Cuadrado tamaño 3), 1000 pruebas..."
        )
        differences = [line for line in lines if line.startswith("Potencias con dif = ")]
        self.assertEqual(len(differences), 21)
        self.assertEqual(differences[1], "Potencias con dif = 0,05 : ")


if __name__ == "__main__":
    Power.executable = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2, warnings="ignore")

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A tour of the running program by mouse: the reports of the five tests as they stand on the screen,
the exact distributions as they are drawn, and what becomes of unsaved data.

tour_test.py EXECUTABLE, below on_virtual_display.
"""

import os
import pathlib
import re
import shutil
import sys

from by_keyboard import LEVEL, ORDER_3, REPORT_IS_COMPLETE, ROOT, SAMPLES, walk
from driven import ProgramTest, main
from stranger import wait_for, xdotool

GOLDEN = ROOT / "tests" / "stats" / "data"
SCRATCH = pathlib.Path(os.environ["CL_SCRATCH"])

sys.path.insert(0, str(GOLDEN))
from check_numbers import SQUARES  # noqa: E402  the squares of the golden reports

# By approach and caption; test C, which draws random numbers, as the first of a fresh program.
TESTS = {
    "c": ("Secuencias", "Prueba C (Exacta -> Normal)"),
    "m": ("Secuencias", "Prueba M (Exacta -> F)"),
    "f": ("Clásico", "Prueba F"),
    "zimmerman": ("Rangos", "Zimmerman (F)"),
    "bennett": ("Rangos", "Bennett (Chi-2)"),
}
QUESTION = "Desea guardar los cambios?"


def golden_report(test, square, level):
    """The report of a test at a level, one of several in its file."""
    text = (GOLDEN / f"{test}_{square}.txt").read_text("utf-8")
    sections = re.split(r"^\[(\d+) %\]\n", text, flags=re.MULTILINE)[1:]
    return dict(zip(sections[::2], sections[1::2]))[str(level)]


def write_square(path, rows):
    """A square file; its observations as short as they can be read back."""
    n = len(rows)
    names = "".join(f'\t"Col {i}"' for i in range(1, n + 1))
    lines = ["Cuadrado de prueba", str(n), str(n), "FALSE TRUE TRUE", names]
    for i, row in enumerate(rows, start=1):
        lines.append(f'"Fila {i}"\t' + "\t".join(map(repr, row)))
    path.write_bytes("".join(line + "\r\n" for line in lines).encode())


class Tour(ProgramTest):
    def open_analysis(self, program, path):
        program.click(program.find("push button", "Nuevo Análisis"))
        program.answer_file_dialog(path)
        program.find("frame", f"Análisis - {path}")
        program.wait_for_focus("radio button «Clásico»")

    def analyse(self, program, test):
        """The report as it stands on the screen."""
        for choice in TESTS[test]:
            program.click(program.find("radio button", choice))
        before = program.text(program.find("text", "Reporte"))
        program.click(program.find("push button", "Analizar"))
        program.find("label", REPORT_IS_COMPLETE)
        report = program.find("text", "Reporte")
        return wait_for("the report", lambda: (text := program.text(report)) != before and text)

    # Reports

    def check_reports(self, square, path):
        program = self.start("C.UTF-8")
        self.open_analysis(program, path)
        for test in TESTS:
            with self.subTest(test=test):
                report = self.analyse(program, test)
                self.assertEqual(report + "\n", golden_report(test, square, 95))
        return program

    def made_up(self, square):
        path = SCRATCH / f"{square}.asc"
        write_square(path, SQUARES[square])
        return path

    def test_reports_of_the_sample_of_order_5(self):
        self.check_reports("orden5_empates", SAMPLES / "propelente.asc")

    def test_reports_of_orders_4_and_6(self):
        for square in "orden4_distintos", "orden6_empates":
            self.check_reports(square, self.made_up(square)).kill()

    def test_reports_of_order_3_at_every_level(self):
        program = self.check_reports("orden3_distintos", self.made_up("orden3_distintos"))
        for level in 1, 50, 90, 99:
            self.set_level(program, level)
            for test in TESTS:
                with self.subTest(test=test, level=level):
                    report = self.analyse(program, test)
                    self.assertEqual(report + "\n", golden_report(test, "orden3_distintos", level))

    def set_level(self, program, level):
        """From the test that was chosen on, by keys."""
        walk(program, "Tab", LEVEL)
        end, key, steps = ("Home", "Right", level - 1) if level <= 50 else ("End", "Left", 99 - level)
        program.press(end)
        if steps:
            xdotool("key", "--repeat", steps, "--delay", 10, key)
        program.find("label", f"Nivel de Significancia: {level}%")

    # Exact distributions

    def check_graph(self, test, title):
        """What the charts tell is what the table says."""
        program = self.start()
        self.open_analysis(program, ORDER_3)
        self.analyse(program, test)
        program.click(program.find("push button", "Ver exacta..."))
        program.find("frame", title)
        table = SCRATCH / f"{test}.txt"
        program.choose("Gráfica", "Guardar Datos...")
        program.answer_file_dialog(table)
        lines = wait_for("the table", lambda: table.is_file() and table.read_text("utf-8"))
        rows = [line.split() for line in lines.splitlines()[2:]]
        self.assertEqual(lines.splitlines()[0], title)
        for name, column in ("Gráfica", 1), ("Distrib. Acumulada", 2):
            drawn = program.find("chart", name).description.splitlines()[1:]
            self.assertEqual(drawn, [f"{row[0]}; {row[column]}" for row in rows])

    def test_graph_of_c(self):
        self.check_graph("c", "Distribución exacta de C para cuadrados de 3x3")

    def test_graph_of_m(self):
        self.check_graph("m", "Distribución exacta de M para cuadrados de 3x3")

    # Unsaved data

    def change_and_close(self, program, answer):
        program.press("ctrl+Home")
        program.type("7,5")
        program.press("Return", "ctrl+F4")
        program.find("label", QUESTION)
        program.click(program.find("push button", answer))
        program.wait_until_gone("label", QUESTION)

    def test_unsaved_data_without_a_file(self):
        program = self.start()
        self.change_and_close(program, "Sí")
        path = SCRATCH / "nuevo.asc"
        program.answer_file_dialog(path)
        program.wait_until_gone("frame", "Editor")
        self.assertIn(b" 7.5000000E+0000", path.read_bytes())
        program.find("label", "Listo")

    def test_unsaved_data_of_a_known_file(self):
        path = SCRATCH / "conocido.asc"
        shutil.copy(ORDER_3, path)
        before = path.read_bytes()
        program = self.start()
        for answer in "No", "Sí":
            self.assertEqual(path.read_bytes(), before)
            program.press("ctrl+a")
            program.answer_file_dialog(path)
            program.find("frame", f"Editor - {path}")
            program.wait_for_focus("table «Datos»")
            self.change_and_close(program, answer)
            program.wait_until_gone("frame", f"Editor - {path}")
            self.assertFalse(program.look("dialog"))
        self.assertEqual(path.read_bytes(), before.replace(b" 1.2500000E+0001", b" 7.5000000E+0000"))

    def test_saved_data_are_not_asked_about(self):
        program = self.start()
        program.press("ctrl+a")
        program.answer_file_dialog(ORDER_3)
        program.find("frame", f"Editor - {ORDER_3}")
        program.press("ctrl+F4")
        program.wait_until_gone("frame", f"Editor - {ORDER_3}")
        self.assertFalse(program.look("label", QUESTION))

    def test_every_unsaved_editor_is_asked_about_when_the_program_ends(self):
        program = self.start()
        program.press("ctrl+n")
        wait_for("two editors", lambda: len(program.look("frame", "Editor")) == 2)
        program.press("alt+F4")
        first = program.find("label", QUESTION)
        program.click(program.find("push button", "No"))
        wait_for("the next question", lambda: program.look("label", QUESTION) not in ([], [first]))
        self.assertEqual(len(program.look("frame", "Editor")), 2)  # both are still there
        program.click(program.find("push button", "Sí"))
        path = SCRATCH / "ultimo.asc"
        program.answer_file_dialog(path)
        self.assertEqual(program.wait_for_end(), 0)
        self.assertIn(b"3\t;nr. of columns", path.read_bytes())


if __name__ == "__main__":
    main()

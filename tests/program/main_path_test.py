#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The real program on a real display: from a typed square to its exported report.

main_path_test.py EXECUTABLE, below on_virtual_display.
"""

import os
import pathlib

from by_keyboard import PROPELLANT
from driven import ProgramTest, main
from stranger import wait_for

ROOT = pathlib.Path(__file__).resolve().parents[2]
GOLDEN = ROOT / "tests" / "stats" / "data" / "f_propelente_95.txt"
GOLDEN_WITH_COMMA = ROOT / "tests" / "stats" / "data" / "f_propelente_95_coma.txt"
SCRATCH = pathlib.Path(os.environ["CL_SCRATCH"])


def lines(path):
    return path.read_bytes().split(b"\r\n")


def files_below(folder):
    return sorted(str(path) for path in pathlib.Path(folder).rglob("*") if path.is_file())


class MainPath(ProgramTest):
    def run_program(self, locale):
        return self.start(f"{locale}.UTF-8")

    def type_propellant(self, program):
        """Order 5 by the keys of the arrows, then the numbers, Enter after each."""
        spinner = program.find("spin button", "Número de tratamientos")
        program.click(spinner)
        program.press("Up", "Up")
        program.click(program.find("table cell", "0.000" if program.point else "0,000"))
        for value in PROPELLANT:
            program.type(str(value))
            program.press("Return")

    def main_path(self, locale):
        folder = SCRATCH / locale
        folder.mkdir()
        data, report = folder / "propelente.asc", folder / "reporte.txt"
        program = self.run_program(locale)
        program.point = locale in ("C", "es_MX")
        self.type_propellant(program)
        program.press("F2")
        program.type_into_file_dialog(data)
        wait_for("the saved square", data.is_file)
        program.find("frame", f"Editor - {data}")

        program.choose("Editor", "Guardar y Analizar...")
        program.click(program.find("push button", "Analizar"))
        wait_for("the report", lambda: "TOTAL" in program.text(program.find("text", "Reporte")))
        program.press("ctrl+e")
        program.type_into_file_dialog(report)
        wait_for("the exported report", report.is_file)
        program.press("alt+F4")
        self.assertEqual(program.wait_for_end(), 0)
        return data, report

    def test_same_square_file_in_every_locale_and_the_users_sign_in_the_report(self):
        squares = {}
        for locale in ("C", "es_ES", "es_MX", "de_DE"):
            with self.subTest(locale=locale):
                data, report = self.main_path(locale)
                squares[locale] = lines(data)[1:]  # the first line names the file's own folder
                golden = GOLDEN if locale in ("C", "es_MX") else GOLDEN_WITH_COMMA
                self.assertEqual(lines(report), golden.read_bytes().split(b"\n"))
        self.assertEqual(len(squares), 4)
        for locale, square in squares.items():
            self.assertEqual(square, squares["C"], locale)

    def test_a_session_leaves_only_the_files_that_were_named(self):
        before = files_below(os.environ["HOME"])
        folder = SCRATCH / "sesion"
        folder.mkdir()
        program = self.run_program("es_ES")
        program.point = False
        program.press("F2")
        program.type_into_file_dialog(folder / "uno.asc")
        wait_for("the saved square", (folder / "uno.asc").is_file)
        program.press("alt+F4")
        self.assertEqual(program.wait_for_end(), 0)
        self.assertEqual(files_below(os.environ["HOME"]), before)
        self.assertEqual(files_below(folder), [str(folder / "uno.asc")])


if __name__ == "__main__":
    main()

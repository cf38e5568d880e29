#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The exact distributions in the real program: from a square of order 3 to graphs, pictures, table.

graph_test.py EXECUTABLE, below on_virtual_display.
"""

import os
import pathlib

from by_keyboard import clipboard
from driven import ProgramTest, main
from stranger import box_of, wait_for, xdotool

ROOT = pathlib.Path(__file__).resolve().parents[2]
SCRATCH = pathlib.Path(os.environ["CL_SCRATCH"])
SEQUENCE_TESTS = {
    "c": ("Prueba C (Exacta -> Normal)", 86),
    "m": ("Prueba M (Exacta -> F)", 112),
}


def png_size(data):
    """Width and height from a PNG's header."""
    return int.from_bytes(data[16:20], "big"), int.from_bytes(data[20:24], "big")


def bmp_size(data):
    return int.from_bytes(data[18:22], "little"), abs(
        int.from_bytes(data[22:26], "little", signed=True)
    )


class Graphs(ProgramTest):
    def open_graph(self, statistic):
        program = self.start()
        program.click(program.find("push button", "Nuevo Análisis"))
        program.answer_file_dialog(ROOT / "ejemplos" / "orden3.asc")
        program.find("label", "DATOS A ANALIZAR")
        program.click(program.find("radio button", "Secuencias"))
        program.click(program.find("radio button", SEQUENCE_TESTS[statistic][0]))
        program.click(program.find("push button", "Analizar"))
        wait_for("the report", lambda: "hipótesis" in program.text(program.find("text", "Reporte")))
        program.click(program.find("push button", "Ver exacta..."))
        wait_for("two charts", lambda: len(program.look("chart")) == 2)
        return program

    def charts(self, program):
        """The upper and the lower chart."""
        return sorted(program.look("chart"), key=lambda chart: box_of(chart).y)

    def save(self, program, entry, path):
        program.choose("Gráfica", entry)
        program.answer_file_dialog(path)
        wait_for(f"the file {path.name}", path.is_file)
        return path.read_bytes()

    def copy(self, program, entry):
        before = clipboard("image/png")
        program.choose("Gráfica", entry)
        return wait_for(
            "the copied chart",
            lambda: (picture := clipboard("image/png")) and picture != before and picture,
        )

    def check_statistic(self, statistic):
        program = self.open_graph(statistic)
        upper, lower = map(box_of, self.charts(program))
        folder = SCRATCH / statistic
        folder.mkdir()

        picture = self.save(program, "Guardar Gráfica...", folder / "puntual.bmp")
        self.assertEqual(bmp_size(picture), (upper.width, upper.height))
        picture = self.save(program, "Guarda Gráfica Acumulada...", folder / "acumulada.bmp")
        self.assertEqual(bmp_size(picture), (lower.width, lower.height))
        self.assertEqual(png_size(self.copy(program, "Copiar Gráfica")), (upper.width, upper.height))
        self.assertEqual(png_size(self.copy(program, "Copiar Acumulada")), (lower.width, lower.height))
        self.assertEqual(program.status(), "Copiado")

        table = self.save(program, "Guardar Datos...", folder / "datos.txt").split(b"\r\n")
        self.assertEqual(len(table), SEQUENCE_TESTS[statistic][1] + 3)  # title, header, end
        self.assertEqual(table[-1], b"")
        self.assertEqual(table[-2][46:], b"1".rjust(23))
        self.zoom_and_return(program, upper)

    def zoom_and_return(self, program, place):
        chart = self.charts(program)[0]
        whole = self.picture(program)
        xdotool("mousemove", place.x + place.width // 3, place.y + place.height // 3)
        xdotool("mousedown", 1)
        xdotool("mousemove", "--sync", place.x + place.width // 2, place.y + place.height // 2)
        xdotool("mouseup", 1)
        wait_for("the zoomed chart", lambda: self.picture(program) != whole)
        program.press("Escape")
        wait_for("the whole chart", lambda: self.picture(program) == whole)
        self.assertTrue(chart.name)

    def picture(self, program):
        """The upper chart as the clipboard gets it."""
        program.choose("Gráfica", "Copiar Gráfica")
        return clipboard("image/png")

    def test_distribution_of_c(self):
        self.check_statistic("c")

    def test_distribution_of_m(self):
        self.check_statistic("m")


if __name__ == "__main__":
    main()

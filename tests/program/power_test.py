#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The power study in the real program: its settings by mouse and by keyboard, its graph and report.

power_test.py EXECUTABLE, below on_virtual_display.
"""

import os
import pathlib
import subprocess

from driven import ProgramTest, main
from stranger import box_of, output, wait_for, xdotool

SCRATCH = pathlib.Path(os.environ["CL_SCRATCH"])
LOGS = pathlib.Path(__file__).resolve().parents[1] / "power" / "data"
LINES_OF_A_STUDY = 5 + 21 * 6


def picture(control):
    """The pixels where the control stands on the display."""
    box = box_of(control)
    part = f"{box.width}x{box.height}+{box.x}+{box.y}"
    command = ["import", "-window", "root", "-crop", part, "-depth", "8", "rgb:-"]
    return subprocess.run(command, capture_output=True, check=True).stdout


class Power(ProgramTest):
    def start(self, locale="es_ES.UTF-8"):
        """The program with a power window."""
        program = super().start(locale)
        program.click(program.find("push button", "Nueva Potencia"))
        program.find("push button", "Calcular")
        return program

    def log(self, program, window=None):
        return program.text(program.find("text", "Reporte de los cálculos", window)).split("\n")

    def calculate(self, program, window=None):
        """Runs a study by its button; gives what it has appended to the window's log."""
        before = self.log(program, window)
        program.click(program.find("push button", "Calcular", window))
        return self.appended(program, before, window)

    def appended(self, program, before, window=None):
        end = len(before) + LINES_OF_A_STUDY
        wait_for("the end of the study", lambda: len(self.log(program, window)) == end)
        log = self.log(program, window)
        self.assertEqual(log[: len(before)], before)
        return log[len(before) :]

    def choose(self, program, caption, entry, chosen, window=None):
        """A setting from the pop-up of the button with that caption, by mouse."""
        program.click(program.find("push button", caption, window))
        program.click(program.find("menu item", entry))
        program.find("push button", chosen, window)

    def click_arrow(self, program, name, up, times=1):
        box = box_of(program.find("spin button", name))
        y = box.y + box.height * (1 if up else 3) // 4
        program.click_at(box.x + box.width - 8, y, times)

    def save(self, program, entry, path):
        program.choose("Potencia", entry)
        program.answer_file_dialog(path)
        wait_for(f"the file {path.name}", path.is_file)
        return path.read_bytes()

    def study(self, folder):
        """The report of the first study after a start, with the settings as they are."""
        folder.mkdir()
        program = self.start()
        self.calculate(program)
        report = self.save(program, "Guardar Reporte...", folder / "reporte.txt")
        graph = self.save(program, "Guardar Grafica...", folder / "grafica.bmp")
        self.assertEqual(graph[:2], b"BM")
        return report

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

    def check_log(self, lines, name):
        self.assertEqual("".join(line + "\n" for line in lines), (LOGS / name).read_text("utf-8"))

    def test_settings_by_mouse(self):
        program = self.start("C.UTF-8")
        self.click_arrow(program, "Tamaño del cuadrado", up=True)
        self.click_arrow(program, "Número de pruebas", up=False, times=5)
        self.choose(program, "Nivel de Significancia 95%", "90%", "Nivel de Significancia 90%")
        self.choose(program, "Distribución Uniforme", "Exponencial", "Distribución Exponencial")
        self.check_log(self.calculate(program), "4_500_90_exponencial.txt")

    def test_settings_by_keyboard(self):
        program = self.start("C.UTF-8")
        before = self.log(program)
        program.press("Tab", "Up", "Up", "Up")  # from "Calcular" to the order
        program.press("Tab", "Down", "Down", "Down", "Down", "Down")
        program.press("Tab", "space")
        program.find("menu item", "99%")
        program.press("Down", "Down", "Down", "Down", "Return")
        program.find("push button", "Nivel de Significancia 99%")
        program.press("Tab", "space")
        program.find("menu item", "Triangular")
        program.press("Down", "Down", "Down", "Return")
        program.find("push button", "Distribución Triangular [0,1]")
        program.press("F9")
        self.check_log(self.appended(program, before), "6_500_99_triangular.txt")

    def test_popups_move_with_the_frame(self):
        program = self.start()
        title = box_of(program.find("frame"))
        xdotool("mousemove", title.x + title.width // 2, title.y - 8)
        xdotool("click", "--repeat", 2, "--delay", 50, 1)  # no longer maximised
        window = output("xdotool", "getactivewindow").strip()
        xdotool("windowsize", window, 900, 600)

        def button_and_entry(corner):
            xdotool("windowmove", window, *corner)
            wait_for("the moved frame", lambda: box_of(program.find("frame")).x == corner[0])
            button = box_of(program.find("push button", "Nivel de Significancia 95%"))
            program.click(program.find("push button", "Nivel de Significancia 95%"))
            entry = box_of(program.find("menu item", "90%"))
            program.press("Escape")
            program.wait_until_gone("menu item", "90%")
            return button, entry

        button, entry = button_and_entry((0, 0))
        moved_button, moved_entry = button_and_entry((200, 90))
        self.assertNotEqual(moved_button.y, button.y)
        self.assertEqual(moved_entry.x - entry.x, moved_button.x - button.x)
        self.assertEqual(moved_entry.y - entry.y, moved_button.y - button.y)

    def test_two_windows_side_by_side(self):
        program = self.start()
        program.click(program.find("push button", "Nueva Potencia"))
        wait_for("two windows", lambda: len(program.look("frame", "Potencia")) == 2)
        program.press("shift+F5")

        def side_by_side():
            frames = sorted(program.look("frame", "Potencia"), key=lambda frame: box_of(frame).x)
            if len(frames) < 2 or box_of(frames[0]).x + box_of(frames[0]).width > box_of(frames[1]).x:
                return None
            return frames

        left, right = wait_for("the tiles", side_by_side)
        end = box_of(right).x + box_of(right).width
        self.assertLessEqual(end, box_of(program.find("frame")).width, "no scrolling")
        captions = ("Distribución Uniforme", "Exponencial", "Distribución Exponencial")
        self.choose(program, *captions, left)
        of_left = self.calculate(program, left)
        chart_of_left = picture(program.find("chart", "Potencias", left))
        of_right = self.calculate(program, right)
        chart_of_right = picture(program.find("chart", "Potencias", right))
        self.assertEqual(of_left[1], "Datos provenientes de Distribución Exponencial")
        self.assertEqual(of_right[1], "Datos provenientes de Distribución Uniforme")
        self.assertNotEqual(of_left[5:], of_right[5:])

        again = self.calculate(program, right)
        self.assertEqual(again[:5], of_right[:5])
        self.assertNotEqual(again[5:], of_right[5:], "the generator goes on")
        self.assertEqual(self.log(program, left), ["", *of_left])
        self.assertEqual(picture(program.find("chart", "Potencias", left)), chart_of_left)
        self.assertNotEqual(picture(program.find("chart", "Potencias", right)), chart_of_right)


if __name__ == "__main__":
    main()

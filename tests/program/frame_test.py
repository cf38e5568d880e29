#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The frame of the real program under a window manager: activation, tiling, unsaved data.

frame_test.py EXECUTABLE, below on_virtual_display.
"""

import pathlib
import subprocess

import pyatspi

from driven import ProgramTest, main
from stranger import box_of, is_active, wait_for

ROOT = pathlib.Path(__file__).resolve().parents[2]


def overlap(a, b):
    return (
        a.x < b.x + b.width
        and b.x < a.x + a.width
        and a.y < b.y + b.height
        and b.y < a.y + a.height
    )


class Frame(ProgramTest):
    def start(self, **how):
        program = super().start(**how)
        program.find("frame", "Editor")
        return program

    def editors(self, program, count):
        return wait_for(
            f"{count} editors",
            lambda: len(program.look("frame", "Editor")) == count and program.look("frame", "Editor"),
        )

    def are_tiled(self, program):
        first, second = map(box_of, self.editors(program, 2))
        return not overlap(first, second)

    def two_cascaded_editors(self):
        program = self.start()
        program.press("ctrl+n")
        self.editors(program, 2)
        program.press("shift+F4")
        wait_for("the cascade", lambda: not self.are_tiled(program))
        return program

    def test_an_own_dialog_that_closes_does_not_tile(self):
        program = self.two_cascaded_editors()
        before = [box_of(editor) for editor in self.editors(program, 2)]
        program.press("F3")
        program.find("push button", "Cancelar")
        program.press("Escape")
        program.wait_until_gone("push button", "Cancelar")
        program.press("Right")  # the frame has the focus again and works
        self.assertEqual([box_of(editor) for editor in self.editors(program, 2)], before)

    def test_coming_back_from_another_program_tiles(self):
        program = self.two_cascaded_editors()
        other = self.start()
        wait_for("the other's focus", lambda: other.look("frame", "Cuadrado Latino"))
        self.assertFalse(self.are_tiled(program))
        program.press("alt+Tab")
        wait_for("the tiles", lambda: self.are_tiled(program))

    def test_the_click_that_comes_back_falls_on_what_was_seen(self):
        program = self.start()
        program.click(program.find("push button", "Nuevo Análisis"))
        program.answer_file_dialog(ROOT / "ejemplos" / "orden3.asc")
        program.wait_for_focus("radio button «Clásico»")
        for _ in range(3):
            wait_for("the analysis over the editor", lambda: "[Análisis" in program.caption())
            other = subprocess.Popen(["xmessage", "-geometry", "+300+600", "Otro programa"])
            self.addCleanup(other.kill)
            wait_for("the other's focus", lambda: not is_active(program.find("frame")))
            choice = program.find("radio button", "Secuencias")
            program.click(choice)
            wait_for("the choice", lambda: choice.getState().contains(pyatspi.STATE_CHECKED))
            wait_for("the tiles", lambda: "[" not in program.caption())
            other.kill()
            program.click(program.find("radio button", "Clásico"))
            program.press("alt+minus", "x")  # maximised again

    def test_unsaved_data_keep_the_frame_open_until_they_are_answered_for(self):
        program = self.start()
        program.type("7,5")
        program.press("Return", "alt+F4")
        self.assertTrue(program.find("label", "Desea guardar los cambios?"))
        program.press("Escape")  # no way past the question
        program.click(program.find("push button", "Sí"))
        program.find("push button", "Cancelar")
        program.press("Escape")  # a cancelled dialog changes nothing
        program.wait_until_gone("push button", "Cancelar")
        program.find("table cell", "7,500")
        program.press("alt+F4")
        program.click(program.find("push button", "No"))
        self.assertEqual(program.wait_for_end(), 0)

    def test_the_key_of_a_command_commits_the_open_cell(self):
        program = self.start()
        program.click(program.find("push button", "Nuevo Análisis"))
        program.answer_file_dialog(ROOT / "ejemplos" / "orden3.asc")
        program.wait_for_focus("radio button «Clásico»")
        program.click(program.find("table cell", "12,500"))
        program.type("99")
        program.press("ctrl+e")
        program.find("push button", "Cancelar")
        program.press("Escape")
        program.find("table cell", "99,000")

    def test_on_a_magnified_screen_the_file_dialog_stays_on_it(self):
        program = super().start(QT_SCALE_FACTOR="3")
        program.press("F2")
        program.find("dialog", "Guardar Archivo")
        x, y, width, height = box_of(program.find("push button", "Cancelar"))
        self.assertLessEqual(3 * (x + width), 1280)
        self.assertLessEqual(3 * (y + height), 800)
        name = box_of(program.find("table column header", "Nombre"))
        self.assertGreater(name.width, 90)

    def test_a_scale_below_one_is_no_scale(self):
        program = self.start(QT_SCALE_FACTOR="0.5")
        self.assertLessEqual(box_of(program.find("frame", "Cuadrado Latino")).width, 1280)

    def test_dialogs_speak_spanish(self):
        program = self.start()
        program.press("F3")
        for name in ("Abrir", "Cancelar"):
            program.find("push button", name)
        program.press("Escape")


if __name__ == "__main__":
    main()

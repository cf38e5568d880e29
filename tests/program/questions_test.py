#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the running program asks, and what stands behind: nothing is closed under a question, and
each question can be seen and answered.

questions_test.py EXECUTABLE FAULTY_DISK, below on_virtual_display.
"""

import errno
import shutil

from by_keyboard import REPORT_IS_COMPLETE, SAMPLES
from driven import DiskTest, main
from stranger import NotFound, wait_for

QUESTION = "Desea guardar los cambios?"


class Questions(DiskTest):
    def changed_editor(self, program, name, value):
        """Opens a copy of a sample in an editor of its own and changes its first number."""
        path = self.folder / name
        shutil.copy(SAMPLES / "orden3.asc", path)
        program.press("ctrl+a")
        program.answer_file_dialog(path)
        program.find("frame", f"Editor - {path}")
        program.wait_for_focus("table «Datos»")
        program.type(value)
        program.press("Return")
        return f"Editor - {path}"

    def three_editors_and_an_analysis(self, program):
        """The names of the editors; none is saved, and the analysis is maximised over them."""
        program.press("ctrl+w")  # the one of the start
        program.click(program.find("push button", "No"))
        editors = [self.changed_editor(program, f"{i}.asc", str(i)) for i in (1, 2, 3)]
        program.click(program.find("push button", "Nuevo Análisis"))
        program.answer_file_dialog(SAMPLES / "propelente.asc")
        program.click(program.find("push button", "Analizar"))
        program.find("label", REPORT_IS_COMPLETE)
        return editors

    @staticmethod
    def in_front(program):
        """The name of the child that is maximised over the others."""
        in_brackets = lambda: program.caption().partition("[")[2].rstrip("]")  # noqa: E731
        return wait_for("a child in front", in_brackets)

    def assert_alive(self, program):
        self.assertIsNone(program.process.poll(), "the program has ended")

    # What stands behind

    def test_leaving_from_afar_closes_nothing_under_a_question(self):
        for keys, name in (("F2", "Guardar Archivo"), ("F3", "Abrir Archivo")):
            with self.subTest(question=name):
                program = self.start()
                program.press(keys)
                program.find("dialog", name)
                program.trigger("Salir")
                program.trigger("Guardar...")
                with self.assertRaises(NotFound):
                    wait_for("a second question", lambda: program.look("alert"), 1.0)
                program.press("Escape")
                program.wait_until_gone("dialog", name)
                self.assert_alive(program)
                self.assertEqual(program.windows(), ["Editor"])
                program.wait_for_focus("table «Datos»")
                program.kill()

    # The hidden question

    def test_the_about_box_steps_aside_for_a_question(self):
        program = self.start()
        program.choose("Ayuda", "Acerca de...")
        program.find("dialog", "Acerca de")
        program.choose("Archivo", "Salir")
        program.click(program.find("push button", "Sí"))
        program.click(program.find("push button", "Cancelar"))
        program.find("dialog", "Acerca de")  # back again
        program.click(program.find("push button", "Aceptar"))
        program.wait_until_gone("dialog", "Acerca de")
        program.choose("Archivo", "Salir")
        program.click(program.find("push button", "No"))
        self.assertEqual(program.wait_for_end(), 0)

    # Leaving

    def test_leaving_asks_in_view_and_gives_up_whole(self):
        program = self.start()
        editors = self.three_editors_and_an_analysis(program)
        before = program.windows()
        report = program.text(program.find("text", "Reporte"))

        program.press("alt+F4")
        program.find("label", QUESTION)
        first = self.in_front(program)
        self.assertIn(first, editors)
        program.click(program.find("push button", "No"))
        wait_for("the next editor", lambda: self.in_front(program) != first)
        self.assertIn(self.in_front(program), editors)
        shutil.rmtree(self.folder)  # its file cannot be written any more
        program.click(program.find("push button", "Sí"))
        program.click(program.find("push button", "Aceptar"))  # the error box
        program.click(program.find("push button", "Cancelar"))  # no other name
        program.wait_until_gone("push button", "Cancelar")

        with self.assertRaises(NotFound):
            wait_for("a third question", lambda: program.look("alert"), 1.0)
        self.assertEqual(program.windows(), before)
        self.assertEqual(self.in_front(program), f"Análisis - {SAMPLES / 'propelente.asc'}")
        self.assertEqual(program.text(program.find("text", "Reporte")), report)

        program.press("alt+F4")
        asked = set()
        for _ in editors:
            program.find("label", QUESTION)
            wait_for("the next editor", lambda: self.in_front(program) not in asked)
            asked.add(self.in_front(program))
            program.click(program.find("push button", "No"))
        self.assertEqual(asked, set(editors))
        self.assertEqual(program.wait_for_end(), 0)

    # An editor goes only when its analysis stands

    def test_an_editor_stays_when_its_file_cannot_be_analysed(self):
        program = self.start()
        editor = self.changed_editor(program, "a.asc", "7")
        self.faults.write_text(f"read-open {errno.EACCES}\n")
        program.choose("Editor", "Guardar y Analizar...")
        program.click(program.find("push button", "Aceptar"))
        program.wait_until_gone("push button", "Aceptar")
        self.assertIn(editor, program.windows())
        program.find("table cell", "7,000")
        self.assertIn(b"\t 7.0000000E+0000\t", (self.folder / "a.asc").read_bytes())

        self.faults.write_text("")
        program.choose("Editor", "Guardar y Analizar...")
        program.find("frame", "Análisis")
        self.assertNotIn(editor, program.windows())


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Saving with the running program where it is not easy: folders that are gone, disks that fail. What
counts as saved is on the disk, and what cannot be saved finds another place.

saves_test.py EXECUTABLE FAULTY_DISK, below on_virtual_display.
"""

import errno
import shutil
import subprocess

from by_keyboard import SAMPLES, finish_study, open_analysis, open_editor, open_graph_of_c, open_power
from driven import DiskTest, main
from stranger import wait_for


class Saves(DiskTest):
    def file_name(self, program):
        """What stands in the file dialog that is open."""
        program.wait_for_focus("text «Nombre de archivo:»")
        return program.text(program.focus)

    def tell_error(self, program, reason):
        """Reads an error box that gives this reason, and confirms it."""
        box = program.find("alert")
        self.assertIn(reason, " ".join(label.name for label in program.look("label", inside=box)))
        program.confirm_alert()

    # No dead end

    def test_what_cannot_be_saved_where_it_was_finds_another_place(self):
        ways = {
            "save": lambda program: program.press("F2"),
            "save and analyse": lambda program: program.choose("Editor", "Guardar y Analizar..."),
            "close": lambda program: (
                program.press("ctrl+w"), program.click(program.find("push button", "Sí"))
            ),
        }
        for way, act in ways.items():
            with self.subTest(way=way):
                stick = self.folder / "memoria"
                stick.mkdir()
                square = stick / "a.asc"
                shutil.copy(SAMPLES / "orden3.asc", square)
                program = self.start()
                open_editor(program, square)
                program.type("7")
                program.press("Return")
                shutil.rmtree(stick)
                act(program)
                self.tell_error(program, "La carpeta no existe.")
                self.assertEqual(self.file_name(program), str(square))
                found = self.folder / f"{way}.asc"
                program.answer_file_dialog(found)
                wait_for("the file", found.is_file)
                self.assertIn(b"\t 7.0000000E+0000\t", found.read_bytes())
                program.kill()

    def test_a_name_in_no_folder_comes_back_as_it_was_typed(self):
        program = self.start()
        program.press("F2")
        nowhere = self.folder / "no" / "existe" / "parcela.asc"
        program.answer_file_dialog(nowhere)
        self.tell_error(program, f"La carpeta «{nowhere.parent}» no existe.")
        self.assertEqual(self.file_name(program), str(nowhere))
        program.answer_file_dialog(self.folder / "parcela.asc")
        wait_for("the file", (self.folder / "parcela.asc").is_file)

    def test_a_name_that_is_too_long_is_told_of(self):
        program = self.start()
        program.press("F2")
        program.wait_for_focus("text «Nombre de archivo:»")
        long = subprocess.Popen(["xclip", "-selection", "clipboard"], stdin=subprocess.PIPE)
        long.communicate(b"a" * 300)
        program.press("ctrl+v")
        wait_for("the name", lambda: program.text(program.focus) == "a" * 300)
        program.press("Return")
        self.tell_error(program, "El nombre del archivo es demasiado largo.")
        self.assertEqual(self.file_name(program), "a" * 300)
        program.answer_file_dialog(self.folder / "parcela.asc")
        wait_for("the file", (self.folder / "parcela.asc").is_file)

    def test_blanks_at_the_end_of_a_name_are_not_saved(self):
        program = self.start()
        program.press("F2")
        program.answer_file_dialog(f"{self.folder / 'datos.asc'} ")
        program.find("frame", f"Editor - {self.folder / 'datos.asc'}")
        self.assertTrue((self.folder / "datos.asc").is_file())

    def test_a_file_is_opened_by_its_name_without_suffix(self):
        for name in ("parcela", "parcela.asc"):  # the second may be meant, but was not typed
            shutil.copy(SAMPLES / "orden3.asc", self.folder / name)
            program = self.start()
            open_editor(program, self.folder / "parcela")
            program.kill()

    def test_an_unchanged_file_is_analysed_without_being_written(self):
        square = self.folder / "muestra.asc"
        shutil.copy(SAMPLES / "orden3.asc", square)
        bytes_before = square.read_bytes()
        program = self.start()
        open_editor(program, square)
        self.faults.write_text(f"write-open {errno.EACCES}\n")
        program.press("F2")
        program.choose("Editor", "Guardar y Analizar...")
        program.find("frame", "Análisis")
        self.assertEqual(program.look("alert"), [])
        self.assertEqual(square.read_bytes(), bytes_before)

    # Saved means saved

    def seven_saves(self, program):
        """Each of the files that the program writes: its name, and how its saving is begun. The
        windows are opened on the way.
        """
        yield "cuadrado.asc", lambda: program.press("F2")
        open_analysis(program)
        program.press("F9")
        yield "reporte.txt", lambda: program.press("ctrl+e")
        open_graph_of_c(program)
        yield "puntual.bmp", lambda: program.choose("Gráfica", "Guardar Gráfica...")
        yield "acumulada.bmp", lambda: program.choose("Gráfica", "Guarda Gráfica Acumulada...")
        yield "datos.txt", lambda: program.press("F2")
        open_power(program)
        program.press("F9")
        finish_study(program)
        yield "potencia.bmp", lambda: program.choose("Potencia", "Guardar Grafica...")
        yield "potencia.txt", lambda: program.choose("Potencia", "Guardar Reporte...")

    def check_all_seven(self, fail, mend, reason):
        """Every save tells of the failure and leaves nothing behind, and comes to its end in the
        dialog that follows, once the disk is sound again.
        """
        program = self.start()
        names = ["faltas"]
        for name, begin in self.seven_saves(program):
            with self.subTest(file=name):
                path = self.folder / name
                before = program.focused()
                fail(program)
                begin()
                program.answer_file_dialog(path)
                self.tell_error(program, reason)
                self.assertIsNone(program.process.poll())
                self.assertEqual(sorted(file.name for file in self.folder.iterdir()), sorted(names))
                mend(program)
                program.wait_for_focus("text «Nombre de archivo:»")
                program.press("Return")
                program.wait_for_focus(before)
                self.assertTrue(path.is_file())
                names.append(name)
        self.assertEqual(len(names), 8)

    def check_fault(self, call, error, reason):
        self.check_all_seven(
            lambda program: self.faults.write_text(f"{call} {error}\n"),
            lambda program: self.faults.write_text(""),
            reason,
        )

    def test_a_disk_that_does_not_synchronise_has_saved_nothing(self):
        self.check_fault("fsync", errno.EIO, "El disco dio un error al escribir")

    def test_a_disk_that_is_full_as_the_file_is_closed_has_saved_nothing(self):
        self.check_fault("close", errno.ENOSPC, "No queda espacio en el disco.")

    def test_a_limit_of_file_sizes_is_an_error_like_any_other(self):
        def limit(bytes_):
            return lambda program: subprocess.run(
                ["prlimit", "--pid", str(program.process.pid), f"--fsize={bytes_}:unlimited"],
                check=True,
            )

        self.check_all_seven(limit(20), limit("unlimited"), "No se pudo guardar el archivo")


if __name__ == "__main__":
    main()

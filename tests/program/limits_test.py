#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Input without measure in the running program: clipboards of many megabytes, files that tell no
size. Each is answered soon, in little memory, with the limit.

limits_test.py EXECUTABLE, below on_virtual_display. It measures the time until the message stands on
the screen, and what the program's memory grew by, in multiples of the input's size.
"""

import os
import pathlib
import subprocess
import time

from driven import ProgramTest, main

SCRATCH = pathlib.Path(os.environ["CL_SCRATCH"])
MEGABYTE = 1 << 20


class Limits(ProgramTest):
    def start(self):
        program = super().start()
        program.find("frame", "Editor")
        return program

    def peak(self, program):
        """The most memory that the program ever had, in bytes."""
        status = pathlib.Path(f"/proc/{program.process.pid}/status").read_text()
        return int(status.partition("VmHWM:")[2].split()[0]) * 1024

    def set_clipboard(self, path):
        owner = subprocess.Popen(
            ["xclip", "-selection", "clipboard", "-quiet", "-in", str(path)],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        )
        self.addCleanup(owner.kill)
        time.sleep(0.5)

    def file_of(self, name, text):
        path = SCRATCH / name
        path.write_text(text)
        return path

    def message(self, program):
        """The text of the error box that is open."""
        box = program.find("alert")
        return " ".join(label.name for label in program.look("label", inside=box))

    def check_clipboard(self, path, begin, expected):
        program = self.start()
        self.set_clipboard(path)
        before = self.peak(program)
        started = time.monotonic()
        begin(program)
        self.assertIn(expected, self.message(program))
        taken = time.monotonic() - started
        growth = (self.peak(program) - before) / path.stat().st_size
        print(f"{path.name}: {taken:.2f} s, {growth:.1f} bytes for each of the input's")
        self.assertLess(growth, 8.0)
        program.confirm_alert()
        program.kill()

    def paste(self, program):
        program.press("ctrl+v")

    def extract(self, program):
        program.press("shift+F10", "Up", "Return")

    def test_a_list_of_labels_that_never_repeat_is_not_extracted(self):
        lines = "".join(f"r{i}\tc{i}\tt{i}\t5\n" for i in range(300_000))
        path = self.file_of("etiquetas de 6 MB", lines)
        self.check_clipboard(path, self.extract, "De un experimento se leen hasta 1000000.")

    def test_a_clipboard_of_100_megabytes_is_not_pasted(self):
        many = self.file_of("filas de 100 MB", "12,5\t7\t8\n" * 10_000_000)
        self.check_clipboard(many, self.paste, "ocupan 3 columnas y 10000000 filas")
        one = self.file_of("un campo de 100 MB", "7" * 100 * MEGABYTE)
        self.check_clipboard(one, self.paste, "es demasiado grande")

    def test_a_file_without_a_size_is_not_read_for_ever(self):
        program = self.start()
        for name, target in (("paginas", "/proc/self/pagemap"), ("nucleo", "/proc/kmsg")):
            link = SCRATCH / f"{name}.asc"
            link.symlink_to(target)
            before = self.peak(program)
            program.press("ctrl+a")
            started = time.monotonic()
            program.answer_file_dialog(link)
            message = self.message(program)
            taken = time.monotonic() - started
            grown = self.peak(program) - before
            print(f"{target}: {taken:.2f} s, {grown / MEGABYTE:.0f} MB; «{message}»")
            self.assertTrue("más de 1 MiB" in message or "no es un archivo ASCII" in message)
            self.assertLess(grown, 40 * MEGABYTE)  # the file dialog included
            program.press("Return")
            program.wait_until_gone("alert")


if __name__ == "__main__":
    main()

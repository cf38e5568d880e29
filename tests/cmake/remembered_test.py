#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A test that passed is run again when something that it depends on has changed, and only then."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

REMEMBERED = pathlib.Path(__file__).with_name("remembered.py")


class Remembered(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.program = self.folder / "program"
        self.write("")

    def write(self, more):
        """A program that counts its runs and passes while there is no file `broken`."""
        self.program.write_text(
            f'#!/bin/sh\n{more}\necho run >>"{self.folder}/runs"\n[ ! -e "{self.folder}/broken" ]\n'
        )
        self.program.chmod(0o755)

    def run_test(self, *arguments, remember="1", locale="C.UTF-8"):
        """Whether it passed, and how often the program has run by now."""
        environment = {**os.environ, "CL_REMEMBER": remember, "LC_ALL": locale}
        command = [sys.executable, REMEMBERED, self.folder / "memory", self.program, *arguments]
        passed = subprocess.run(command, env=environment, stdout=subprocess.DEVNULL).returncode == 0
        runs = self.folder / "runs"
        return passed, len(runs.read_text().split()) if runs.exists() else 0

    def test_what_passed_is_not_repeated(self):
        self.assertEqual(self.run_test(), (True, 1))
        self.assertEqual(self.run_test(), (True, 1))
        self.assertEqual(self.run_test(remember="0"), (True, 2))

    def test_what_failed_is(self):
        (self.folder / "broken").touch()
        self.assertEqual(self.run_test(), (False, 1))
        self.assertEqual(self.run_test(), (False, 2))
        (self.folder / "broken").unlink()
        self.assertEqual(self.run_test(), (True, 3))

    def test_a_failure_is_not_hidden_by_a_pass_before_it(self):
        self.assertEqual(self.run_test(), (True, 1))
        (self.folder / "broken").touch()
        self.assertEqual(self.run_test("changed"), (False, 2))
        self.assertEqual(self.run_test(), (False, 3))

    def test_what_it_depends_on(self):
        data = self.folder / "data"
        data.write_text("1")
        self.assertEqual(self.run_test(data), (True, 1))
        self.assertEqual(self.run_test(data), (True, 1))
        data.write_text("2")
        self.assertEqual(self.run_test(data), (True, 2))
        self.write("# another program")
        self.assertEqual(self.run_test(data), (True, 3))
        self.assertEqual(self.run_test(data, locale="es_ES.UTF-8"), (True, 4))
        self.assertEqual(self.run_test(data, locale="es_ES.UTF-8"), (True, 4))

    def test_a_file_may_stand_within_a_word(self):
        data = self.folder / "data"
        for text in "12":
            data.write_text(text)
            self.assertEqual(self.run_test(f"--style=file:{data}"), (True, int(text)))
        self.assertEqual(self.run_test(f"--style=file:{data}"), (True, 2))

    def test_another_library_is_another_program(self):
        library = self.folder / "library.so"
        compiled = self.folder / "compiled"
        build = ["cc", "-x", "c", "-"]
        subprocess.run([*build, "-shared", "-o", library], input=b"int is() { return 0; }", check=True)
        subprocess.run(
            [*build, "-o", compiled, "-x", "none", library],
            input=b"int is(void); int main(void) { return is(); }",
            check=True,
        )
        self.assertEqual(self.run_test(compiled), (True, 1))
        os.utime(library, (0, 0))
        self.assertEqual(self.run_test(compiled), (True, 2))
        self.assertEqual(self.run_test(compiled), (True, 2))


if __name__ == "__main__":
    unittest.main()

# SPDX-License-Identifier: GPL-3.0-or-later
"""What the scripts begin and end with that drive the program."""

import os
import pathlib
import sys
import unittest

from stranger import Program


class ProgramTest(unittest.TestCase):
    """Each start is a process of its own, which ends with the test at the latest."""

    executable = None

    def start(self, locale="es_ES.UTF-8", **how):
        program = Program(self.executable, LC_ALL=locale, **how)
        self.addCleanup(program.kill)
        return program


class DiskTest(ProgramTest):
    """Each test has a folder of its own, and a disk with the faults that stand in its file `faults`
    (faulty_disk.cpp says how)."""

    faulty_disk = None

    def setUp(self):
        self.folder = pathlib.Path(os.environ["CL_SCRATCH"]) / self.id().rpartition(".")[2]
        self.folder.mkdir()
        self.faults = self.folder / "faltas"
        self.faults.write_text("")

    def start(self):
        program = super().start(LD_PRELOAD=str(self.faulty_disk), CL_FAULTS=str(self.faults))
        program.find("frame", "Editor")
        return program


def main():
    """The arguments are the executable, for a DiskTest also the library faulty_disk, and unittest's."""
    ProgramTest.executable = pathlib.Path(sys.argv.pop(1)).resolve()
    if sys.argv[1:] and sys.argv[1].endswith(".so"):
        DiskTest.faulty_disk = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2, warnings="ignore")

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The installed program in its own root: from a sample to an exported report, and the manual.

drive_installed.py ROOT, below on_virtual_display, whose folder in /tmp both roots see.
"""

import os
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "program"))
from stranger import Program, screenshot, wait_for  # noqa: E402

SAMPLE = "/usr/share/doc/cuadrado-latino/ejemplos/propelente.asc"
GOLDEN = HERE.parent / "stats" / "data" / "f_propelente_95.txt"


def drive(program, report):
    program.find("label", "DATOS")
    program.press("alt+a", "n", "d")
    program.answer_file_dialog(SAMPLE)
    program.find("label", "DATOS A ANALIZAR")
    program.press("F9")
    wait_for("the report", lambda: "TOTAL" in program.text(program.find("text", "Reporte")))
    program.press("F1")
    program.find("label", "El análisis")
    program.press("Escape")
    program.wait_until_gone("label", "El análisis")
    program.press("ctrl+e")
    program.answer_file_dialog(report)
    wait_for("the exported report", report.is_file)
    program.press("alt+F4")
    program.click(program.find("push button", "No"))  # to the empty editor's question
    return program.wait_for_end()


def main(root):
    scratch = pathlib.Path(os.environ["CL_SCRATCH"])
    report = scratch / "reporte.txt"
    home = sorted(pathlib.Path(os.environ["HOME"]).rglob("*"))
    program = Program("/usr/bin/cuadrado-latino", under=("chroot", root), LC_ALL="C.UTF-8")
    try:
        status = drive(program, report)
    except Exception:
        screenshot("/tmp/fresh_root.png")
        raise
    finally:
        program.kill()
    same = report.read_bytes().replace(b"\r\n", b"\n") == GOLDEN.read_bytes()
    untouched = sorted(pathlib.Path(os.environ["HOME"]).rglob("*")) == home
    print(f"ended with {status}; report as expected: {same}; home untouched: {untouched}")
    return 0 if status == 0 and same and untouched else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))

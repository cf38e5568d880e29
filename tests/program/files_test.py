#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a whole session leaves behind: the files that the user named, and nothing else.

files_test.py EXECUTABLE, below on_virtual_display. The program runs under strace, which writes down
every call that could make or change a file, and every socket.
"""

import os
import pathlib
import re
import shutil

from by_keyboard import REPORT_IS_COMPLETE, finish_study
from driven import ProgramTest, main
from stranger import wait_for

ROOT = pathlib.Path(__file__).resolve().parents[2]
SCRATCH = pathlib.Path(os.environ["CL_SCRATCH"])
HOME = pathlib.Path(os.environ["HOME"])
CALLS = (
    "open,openat,openat2,creat,rename,renameat,renameat2,unlink,unlinkat,mkdir,mkdirat,rmdir,link,linkat,"
    "symlink,symlinkat,truncate,chmod,fchmodat,mknod,mknodat,socket"
)

CALL = re.compile(r"^(?:\d+ +)?(\w+)\((.*)\) += (-?\d+)")
# A name, and the folder that it is told from, as strace shows descriptors.
NAME = re.compile(r'(?:(?:\d+|AT_FDCWD)<([^>]*)>, )?"((?:[^"\\]|\\.)*)"')
FOR_WRITING = re.compile(r"O_WRONLY|O_RDWR|O_CREAT|O_TRUNC|O_TMPFILE")

# The desktop's own machinery, written to by its libraries: no file of the user's and none that stays.
MACHINERY = re.compile(r"^(/dev/(null|shm/|dri/)|/proc/self/|/memfd:)")


def calls(trace):
    """(call, arguments, result) of every completed call of a trace."""
    for line in trace.read_text(errors="replace").splitlines():
        if match := CALL.match(line):
            yield match[1], match[2], int(match[3])


def names(arguments):
    return [os.path.normpath(os.path.join(folder, name)) for folder, name in NAME.findall(arguments)]


def changes_files(call, arguments):
    return not call.startswith("open") or FOR_WRITING.search(arguments) is not None


class Files(ProgramTest):
    def whole_session(self, program, folder):
        """Opens, saves, analyses, exports, draws, studies. @return the files that were named."""
        square = folder / "propelente.asc"
        shutil.copy(ROOT / "ejemplos" / "propelente.asc", square)
        named = [square]

        def save_as(name):
            program.answer_file_dialog(folder / name)
            wait_for(f"the file {name}", (folder / name).is_file)
            named.append(folder / name)

        program.press("ctrl+a")
        program.answer_file_dialog(square)
        program.find("frame", f"Editor - {square}")
        program.choose("Editor", "Guardar y Analizar...")
        program.click(program.find("push button", "Analizar"))
        program.press("ctrl+e")
        save_as("reporte.txt")
        program.press("ctrl+F4")

        program.click(program.find("push button", "Nuevo Análisis"))
        program.answer_file_dialog(ROOT / "ejemplos" / "orden3.asc")
        program.find("frame", f"Análisis - {ROOT / 'ejemplos' / 'orden3.asc'}")
        program.click(program.find("radio button", "Secuencias"))
        program.click(program.find("push button", "Analizar"))
        program.find("label", REPORT_IS_COMPLETE)
        program.click(program.find("push button", "Ver exacta..."))
        program.find("chart")
        program.choose("Gráfica", "Guardar Gráfica...")
        save_as("grafica.bmp")
        program.choose("Gráfica", "Copiar Gráfica")
        program.press("F2")
        save_as("datos.txt")

        program.click(program.find("push button", "Nueva Potencia"))
        program.click(program.find("push button", "Calcular"))
        finish_study(program)
        program.choose("Potencia", "Guardar Reporte...")
        save_as("potencia.txt")
        program.choose("Ayuda", "Acerca de...")
        program.click(program.find("push button", "Aceptar"))
        program.wait_until_gone("dialog", "Acerca de")
        program.press("alt+F4")
        program.click(program.find("push button", "No"))
        self.assertEqual(program.wait_for_end(), 0)
        return named

    def stray_writes(self, trace, named):
        """The calls that touched what nobody named. A file is written without a name in its folder, is
        given a hidden one there that says whose it is, and is then renamed onto the named file.
        """
        folders = {str(file.parent) for file in named}
        hidden = [re.escape(folder) + r"/\.cuadrado-latino-\w+-\d+-\d+" for folder in folders]
        own = re.compile("|".join([re.escape(str(file)) for file in named] + hidden))
        for call, arguments, result in calls(trace):
            if call == "socket" or result < 0 or not changes_files(call, arguments):
                continue
            for name in names(arguments):
                nameless = "O_TMPFILE" in arguments and name in folders
                if not nameless and not own.fullmatch(name) and not MACHINERY.match(name):
                    yield f"{call}({arguments})"

    def test_only_named_files_are_written_and_no_network_is_asked(self):
        folder = SCRATCH / "sesion"
        folder.mkdir()
        trace = SCRATCH / "llamadas.txt"
        tracer = ["strace", "-D", "-f", "--seccomp-bpf", "-qq", "-y", "-e", f"trace={CALLS}", "-s", "400", "-o", str(trace)]
        program = self.start(under=tracer)
        named = self.whole_session(program, folder)

        self.assertEqual(list(self.stray_writes(trace, named)), [])
        self.assertEqual(sorted(folder.iterdir()), sorted(named))
        self.assertEqual(list(HOME.rglob("*")), [])

        made = list(calls(trace))
        for file in named[1:]:
            self.assertTrue(any(str(file) in names(arguments) for _, arguments, _ in made), file)
        families = {arguments.split(",")[0] for call, arguments, _ in made if call == "socket"}
        self.assertEqual(families, {"AF_UNIX"})


if __name__ == "__main__":
    main()

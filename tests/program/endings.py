# SPDX-License-Identifier: GPL-3.0-or-later
"""The ends that nobody chose in the program, and the states that they find it in, for the scripts that
bring the two together.
"""

import os
import pathlib
import shutil
import subprocess
import tempfile

from by_keyboard import ORDER_3, REPORT_IS_COMPLETE, SAMPLES, open_power, walk
from stranger import Program, wait_for, xdotool

QUESTION = "Desea guardar los cambios?"
NOT_SAVED = "lo que no estaba guardado se perdió, y los archivos quedan como estaban"


class OwnDisplay:
    """A display for one program, beside that of the script, that can be taken away from it."""

    def __init__(self):
        self._script_display = os.environ["DISPLAY"]
        reads, writes = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writes), "-screen", "0", "1280x800x24", "-noreset"],
            pass_fds=[writes], stderr=subprocess.DEVNULL,
        )
        os.close(writes)
        with os.fdopen(reads) as number:
            os.environ["DISPLAY"] = f":{number.readline().strip()}"
        quiet = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        self._manager = subprocess.Popen(["openbox"], **quiet)
        managed = ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"]
        wait_for("a window manager", lambda: b"#" in subprocess.check_output(managed))

    def take_away(self):
        self._server.kill()
        self._server.wait()

    def close(self):
        self.take_away()
        self._manager.wait()
        os.environ["DISPLAY"] = self._script_display


class Life:
    """One life of the program in a folder of its own, with one editor of a changed file or none."""

    def __init__(self, executable, under=(), **environment):
        self.folder = pathlib.Path(tempfile.mkdtemp(dir=os.environ["CL_SCRATCH"]))
        self.complaints = self.folder.with_suffix(".errores")
        # Below nohup, or in the background, it would be born deaf to what the scripts send it.
        hearing = ("env", "--default-signal=HUP,INT,TERM")
        redirected = (*hearing, "sh", "-c", 'exec "$0" "$@" 2>>"$ERRORS"')
        self.program = Program(
            executable, (*redirected, *under), LC_ALL="es_ES.UTF-8", ERRORS=str(self.complaints),
            **environment,
        )
        self.program.find("frame", "Editor")

    def kill(self):
        self.program.kill()

    # States

    def no_windows(self):
        self.program.press("ctrl+w")
        self.program.click(self.program.find("push button", "No"))
        wait_for("no windows", lambda: not self.program.windows())

    def new_editor(self):
        self.program.wait_for_focus("table «Datos»")
        self.program.type("7")
        self.program.press("Return")

    def editor_of_a_file(self, name="parcela.asc"):
        path = self.folder / name
        shutil.copy(ORDER_3, path)
        self.program.press("ctrl+a")
        self.program.answer_file_dialog(path)
        self.program.find("frame", f"Editor - {path}")
        self.new_editor()

    def three_editors(self):
        self.new_editor()
        self.editor_of_a_file("uno.asc")
        self.editor_of_a_file("dos.asc")

    def open_question(self):
        self.new_editor()
        self.program.press("ctrl+w")
        self.program.find("label", QUESTION)

    def open_file_dialog(self):
        self.new_editor()
        self.program.press("F2")
        self.program.wait_for_focus("text «Nombre de archivo:»")

    def open_menu(self):
        self.new_editor()
        self.program.click(self.program.find("menu item", "Archivo"))
        self.program.find("menu item", "Salir")

    def maximised_analysis(self):
        self.new_editor()
        self.program.click(self.program.find("push button", "Nuevo Análisis"))
        self.program.answer_file_dialog(SAMPLES / "propelente.asc")
        self.program.wait_for_focus("radio button «Clásico»")
        self.program.press("F9")
        self.program.find("label", REPORT_IS_COMPLETE)

    def running_study(self):
        """The longest that there is, which takes a moment; its key is not waited for."""
        self.new_editor()
        open_power(self.program)
        walk(self.program, "Tab", "spin button «Tamaño del cuadrado»")
        self.program.press("Up", "Up", "Up", "Tab", "ctrl+a")
        self.program.type("4900")
        self.program.press("Up")
        before = self.processor_time()
        xdotool("key", "F9")
        wait_for("the study", lambda: self.processor_time() > before)

    def processor_time(self):
        """Seconds that the program has computed, of its own accord."""
        fields = pathlib.Path(f"/proc/{self.program.process.pid}/stat").read_text().rpartition(")")[2]
        return int(fields.split()[11]) / os.sysconf("SC_CLK_TCK")

    # What there is to see

    def signal(self, number):
        os.kill(self.program.process.pid, number)

    def is_asking(self):
        look = self.program.look
        return any(look("label", QUESTION, inside=box) for box in look("alert"))

    def answer(self, button):
        self.program.click(self.program.find("push button", button))

    def files(self):
        """The files of its folder and their bytes."""
        return {path.name: path.read_bytes() for path in self.folder.iterdir()}

    def told(self):
        """What it has said on its standard error."""
        return self.complaints.read_text("utf-8")

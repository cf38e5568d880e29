#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The end that nobody chose: every signal, the session's end and a display that goes, in every state of
the program, with every answer.

    endings.py

Prints its section of docs/fiabilidad.md. Its short form is the test program.endings.
"""

import concurrent.futures
import dataclasses
import json
import signal
import subprocess
import sys
import time

from section import ROOT, TEXT, TYPED, say, table

EXECUTABLE = ROOT / "build" / "dev" / "bin" / "cuadrado-latino"
DRIVERS = ROOT / "tests" / "program"


@dataclasses.dataclass(frozen=True)
class State:
    """What the program is doing when its end comes. A file has its name already and is saved at once: with
    the answer that cancels, what is cancelled is the name of the editor behind it."""

    brought_about: str  # by this method of Life
    editors: int = 1
    typed_in: int = 1
    saved_before_cancel: int = 0
    questions_to_cancel: int = 1


STATES = {
    "ninguna ventana abierta": State("no_windows", editors=0, typed_in=0),
    "un editor nuevo": State("new_editor"),
    "un editor de un archivo y uno nuevo": State("editor_of_a_file", editors=2, saved_before_cancel=1),
    "tres editores": State("three_editors", editors=3, typed_in=3, saved_before_cancel=2),
    "«Desea guardar los cambios?» abierta": State("open_question", questions_to_cancel=2),
    "diálogo de archivos abierto": State("open_file_dialog"),
    "menú abierto": State("open_menu"),
    "estudio de potencia en marcha": State("running_study"),
    "análisis maximizado sobre el editor": State("maximised_analysis"),
}
ASKING = ("open_question", "open_file_dialog")
ON_DISPLAY = "--on-display"
AT_A_TIME = 3
SIGNALS = (signal.SIGTERM, signal.SIGINT, signal.SIGHUP)
ANSWERS = ("guardar", "descartar", "cancelar")
FIRST_QUESTION, NO_MORE_QUESTION = 15.0, 3.0  # seconds to wait for one
MORE_THAN_ONE_CALL = 1.2


class Cell:
    """One life of the program, from a state to its end or to its going on."""

    def __init__(self, state, **environment):
        from endings import Life  # of the drivers, which need a display and a bus

        self.state = state
        self.faults = []
        self.life = Life(EXECUTABLE, **environment)
        self.dialogs = {"question": 0, "file": 0}  # that were answered
        getattr(self.life, state.brought_about)()
        self.before = self.life.files()

    def must(self, holds, what):
        if not holds:
            self.faults.append(what)

    def status(self):
        return self.life.program.process.poll()

    def dialog(self):
        """What is asked: the question, a file name, or nothing while the program goes on."""
        if self.life.is_asking():
            return "question"
        if self.life.program.look("text", "Nombre de archivo:"):
            return "file"
        return None

    def wait_for_dialog(self, patience):
        end = time.monotonic() + patience
        while time.monotonic() < end and self.status() is None:
            if dialog := self.dialog():
                return dialog
            time.sleep(0.05)
        return None

    def answer(self, answer):
        """Until nothing is asked any more."""
        number = 0
        patience = FIRST_QUESTION
        while dialog := self.wait_for_dialog(patience):
            patience = NO_MORE_QUESTION
            self.dialogs[dialog] += 1
            if dialog == "question":
                self.life.answer("No" if answer == "descartar" else "Sí")
            elif answer == "guardar":
                number += 1
                self.life.program.answer_file_dialog(self.life.folder / f"guardado{number}.asc")
            else:
                self.life.answer("Cancelar")
            time.sleep(0.3)  # until that dialog has gone

    def must_have_asked(self, answer):
        if answer == "cancelar":
            asked = self.dialogs["question"] >= self.state.questions_to_cancel
        elif self.state.editors == 0:
            asked = not any(self.dialogs.values())
        else:  # each editor at least by its question or by the dialog that was open
            asked = sum(self.dialogs.values()) >= self.state.editors
        self.must(asked, f"{answer}: dialogs answered: {self.dialogs}")

    def must_have_saved(self, answer, after):
        """What the answer saves, whole, and nothing else. @return how many files were written"""
        files, typed_in = {
            "guardar": (self.state.editors, self.state.typed_in),
            "descartar": (0, 0),
            "cancelar": (self.state.saved_before_cancel, self.state.saved_before_cancel),
        }[answer]
        written = [name for name in after if after[name] != self.before.get(name)]
        whole = [name for name in written if after[name].endswith(b"\r\n")]
        changed = [name for name in written if TYPED in after[name]]
        self.must(len(written) == files, f"{answer}: written {sorted(written)} instead of {files}")
        self.must(whole == written, "a file that was written half")
        self.must(len(changed) == typed_in, f"{answer}: what was typed is in {sorted(changed)}")
        self.must(set(self.before) <= set(after), "a file that has gone")
        return len(written)

    def outcome(self, answer):
        """What is seen in the end, once it was compared with what should be."""
        after = self.life.files()
        self.must_have_asked(answer)
        written = self.must_have_saved(answer, after)
        stray = [name for name in after if not name.endswith(".asc")]
        self.must(not stray, f"strays: {stray}")
        if answer == "cancelar":
            self.must(self.status() is None, f"ended with {self.status()} although cancelled")
            end = "sigue"
        else:
            self.must(self.status() == 0, f"{answer}: ended with {self.status()}")
            end = "0"
        return {0: end, 1: f"1 guardado, {end}"}.get(written, f"{written} guardados, {end}")

    def told_of_the_loss(self):
        from endings import NOT_SAVED

        return NOT_SAVED in self.life.told()


def by_signal(state, number, answer):
    cell = Cell(state)
    try:
        cell.life.signal(number)
        if answer == "segunda señal":
            if state.brought_about == "running_study":
                cell.must(cell.wait_for_dialog(FIRST_QUESTION), "no question after the study")
            time.sleep(MORE_THAN_ONE_CALL)
            second = signal.SIGTERM if number == signal.SIGHUP else number
            cell.life.signal(second)
            status = cell.life.program.wait_for_end()
            cell.must(status == 128 + second, f"the second signal: {status}")
            cell.must(cell.told_of_the_loss(), "nothing on the standard error")
            cell.must(cell.life.files() == cell.before, "files changed")
            return str(status), cell.faults
        cell.answer(answer)
        if answer != "cancelar":
            cell.life.program.wait_for_end()
        return cell.outcome(answer), cell.faults
    finally:
        cell.life.kill()


def by_session(state, answer):
    from session_manager import SessionManager

    session = SessionManager()
    cell = Cell(state, SESSION_MANAGER=session.address)
    try:
        cell.must(session.told() == "registered", "no session")
        session.order("end")
        if state.brought_about in ASKING:
            told = session.told()
            cell.must(told == "cancelled", f"an open question: {told}")
            cell.must(cell.status() is None, f"ended with {cell.status()} although it asks")
            cell.must(cell.dialog() is not None, "the question has gone")
            cell.must(cell.life.files() == cell.before, "files changed")
            return "la sesión sigue", cell.faults
        cell.answer(answer)
        told = session.told()
        cell.must(told == ("cancelled" if answer == "cancelar" else "saved"), f"told: {told}")
        if answer != "cancelar":
            cell.life.program.wait_for_end()
        return cell.outcome(answer), cell.faults
    finally:
        cell.life.kill()
        session.stop()


def without_display(state):
    from endings import OwnDisplay

    display = OwnDisplay()
    cell = None
    try:
        cell = Cell(state)
        display.take_away()
        status = cell.life.program.wait_for_end()
        cell.must(status == 1, f"without a display: {status}")
        cell.must(cell.told_of_the_loss(), "nothing on the standard error")
        cell.must(cell.life.files() == cell.before, "files changed")
        return str(status), cell.faults
    finally:
        if cell:
            cell.life.kill()
        display.close()


class Lives:
    def __init__(self):
        self.count = 0
        self.faults = []

    def cell(self, end, *arguments):
        words = [getattr(argument, "brought_about", argument) for argument in arguments]
        say(" ".join(map(str, [end.__name__, *words])))
        self.count += 1
        try:
            seen, faults = end(*arguments)
        except (AssertionError, subprocess.TimeoutExpired) as error:
            seen, faults = "¿?", [str(error)]
        found = [f"{' '.join(map(str, words))}: {fault}" for fault in faults]
        for fault in found:
            say(f"FOUND {fault}")
        self.faults += found
        return seen

    def row(self, caption, state):
        """With no window open there is nothing to answer."""
        nothing_asked = state.editors == 0
        cells = []
        for answer in ANSWERS[:1] if nothing_asked else (*ANSWERS, "segunda señal"):
            seen = [self.cell(by_signal, state, number, answer) for number in SIGNALS]
            cells.append(seen[0] if len(set(seen)) == 1 else " · ".join(seen))
        sessions = ANSWERS[:1] if nothing_asked or state.brought_about in ASKING else ANSWERS
        seen = [self.cell(by_session, state, answer) for answer in sessions]
        if nothing_asked:
            cells += ["—", "—", "—"]
        cells += [" / ".join(seen), self.cell(without_display, state)]
        return [caption, *cells]


def drive(caption):
    """One row, on a display of its own: the lives of a state wait more than they compute."""
    sys.path.insert(0, str(DRIVERS))
    lives = Lives()
    row = lives.row(caption, STATES[caption])
    json.dump({"row": row, "lives": lives.count, "faults": lives.faults}, sys.stdout)


def driven(caption):
    command = [DRIVERS / "on_virtual_display", __file__, ON_DISPLAY, caption]
    run = subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, check=True)
    return json.loads(run.stdout.splitlines()[-1])


def main():
    with concurrent.futures.ThreadPoolExecutor(AT_A_TIME) as pool:
        results = list(pool.map(driven, STATES))
    names = ", ".join(number.name for number in SIGNALS)
    lives = sum(result["lives"] for result in results)
    print(f"""\
Se llevó el programa, con teclas y ratón de verdad sobre una pantalla virtual, a cada uno de {len(STATES)} estados, y ahí
le llegó un final que nadie eligió en él: cada una de las señales {names}; el fin de la sesión
del escritorio, pedido por un administrador de sesiones; o la pérdida de la pantalla. Se respondió a lo que
preguntara, o no se respondió y se repitió la señal. Cada una de las {lives} vidas empezó de nuevo.

En cada casilla, lo que se vio: cuántos archivos quedaron guardados y el estado de salida, o «sigue» donde el
programa siguió como si nada; donde las tres señales no dieron lo mismo, las tres. Un estado por señal va de 128
en adelante: 143 es SIGTERM, 130 es SIGINT; tras SIGHUP la segunda fue SIGTERM. El fin de la sesión, con las
respuestas guardar / descartar / cancelar. Cancelar es responder que sí y no dar el nombre; un editor que ya tiene
archivo se guarda en él antes. Se comprobó además que se preguntara por cada editor, que se guardara en cada
archivo lo que debía, entero, y ningún otro cambiara, que no quedaran archivos sueltos, y que quien terminó sin
preguntar lo dijera.
""")
    columns = ["estado", *ANSWERS, "segunda señal", "fin de la sesión", "sin pantalla"]
    print(table(dict.fromkeys(columns, TEXT), (result["row"] for result in results)))
    if faults := [fault for result in results for fault in result["faults"]]:
        sys.exit("\n".join(faults))


if __name__ == "__main__":
    if sys.argv[1:2] == [ON_DISPLAY]:
        drive(sys.argv[2])
    else:
        main()

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Keys pressed faster than the program answers: whatever it asks, it outlives them.

bursts_test.py EXECUTABLE, below on_virtual_display. Pairs of keys that ask, leave, confirm and cancel
(every pair from 512 bursts on), and longer runs of them, 1 to 80 milliseconds apart, in every kind of window. After each
burst every question that is open can be answered, and the program is there, or has ended as it was
told to. CL_BURSTS (default 64) says how many, CL_SEED (default 1) which.
"""

import itertools
import os
import pathlib
import random
import shutil
import subprocess
import time

from driven import ProgramTest, main
from stranger import PATIENCE, NotFound, output, wait_for, xdotool

ROOT = pathlib.Path(__file__).resolve().parents[2]
SCRATCH = pathlib.Path(os.environ["CL_SCRATCH"])
BURSTS = int(os.environ.get("CL_BURSTS", 64))
SEED = int(os.environ.get("CL_SEED", 1))

KEYS = ("F2", "F3", "ctrl+e", "ctrl+w", "ctrl+F4", "alt+F4", "Return", "Escape")
MORE = ("ctrl+n", "ctrl+a", "F9", "Tab", "ctrl+v", "period", "shift+F5", "alt+minus")
PAUSES = (1, 5, 20, 80)  # milliseconds
BURSTS_A_LIFE = 8  # of the program, before it is started afresh
FRAME = "Cuadrado Latino"

# Accessibility costs each key a detour, which most users' keys do not take.
ENVIRONMENT = {
    **os.environ,
    "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "0",
    "LC_ALL": "es_ES.UTF-8",
    "ASAN_OPTIONS": "detect_leaks=0",
}


def bursts(count, seed):
    """Keys with the pauses before them: the pairs first, then longer runs, in a seeded order."""
    source = random.Random(seed)
    pairs = [
        ((0, first), (pause, second))
        for first, second in itertools.product(KEYS, repeat=2)
        for pause in PAUSES
    ]
    source.shuffle(pairs)
    for i in range(count):
        if i % 2 == 0:
            yield pairs[i // 2 % len(pairs)]
        else:
            yield tuple(
                (source.choice(PAUSES), source.choice(KEYS if source.random() < 0.75 else MORE))
                for _ in range(source.randint(3, 8))
            )


class Life:
    """The program from a start to its end, with keys for hands and window titles for eyes."""

    def __init__(self, executable, folder):
        self.errors = SCRATCH / "errores.txt"
        with self.errors.open("w") as errors:
            self.process = subprocess.Popen(
                [str(executable)], env=ENVIRONMENT, cwd=folder, stderr=errors
            )
        wait_for("the frame", self.is_at_rest, 2 * PATIENCE)

    def windows(self):
        """The titles of the program's windows on the display."""
        found = output("xdotool", "search", "--onlyvisible", "--pid", self.process.pid).split()
        return [output("xdotool", "getwindowname", window).strip() for window in found]

    def has_ended(self):
        return self.process.poll() is not None

    def active(self):
        return output("xdotool", "getactivewindow", "getwindowname").strip()

    def is_at_rest(self):
        """Whether the frame is there, active, and nothing over it."""
        names = self.windows()
        return len(names) == 1 and names[0].startswith(FRAME) and self.active().startswith(FRAME)

    def press(self, *keys):
        for key in keys:
            xdotool("key", key)
            time.sleep(0.03)

    def open_file(self, path, *keys):
        # A dialog of the burst may come only now, and a list of completions takes keys while it is
        # filled: then it is done again.
        for _ in range(3):
            self.press(*keys)
            try:
                wait_for(
                    "the dialog",
                    lambda: self.has_ended() or self.active() == "Abrir Archivo",
                    PATIENCE / 3,
                )
                if self.has_ended():
                    return
                time.sleep(0.2)
                xdotool("type", "--delay", 12, str(path))
                self.press("Return")
                wait_for("the file", lambda: self.has_ended() or self.is_at_rest(), PATIENCE / 3)
                return
            except NotFound:
                self.answer_everything()
        raise NotFound(f"{path} could not be opened")

    def burst(self, keys):
        command = []
        for pause, key in keys:
            command += ["sleep", pause / 1000, "key", "--delay", 0, key]
        xdotool(*command)

    def answer_everything(self):
        """Cancels dialogs, confirms boxes and gives up data until nothing is asked any more."""
        time.sleep(0.1)  # a dialog may be on its way
        end = time.monotonic() + 2 * PATIENCE
        while not self.has_ended() and not self.is_at_rest():
            if time.monotonic() > end:
                raise AssertionError(f"no answer is taken: {self.windows()}, in front {self.active()}")
            self.press("Escape")  # of a question: ignored
            if not self.has_ended() and self.active() == "Editor":
                self.press("alt+n")

    def end(self):
        if not self.has_ended():
            self.process.kill()
        self.process.wait()


def editor(life, folder):
    life.press("7", "Return")


def editor_of_a_file(life, folder):
    life.open_file(folder / "orden3.asc", "alt+a", "e", "a")
    life.press("7", "Return")


def refused_cell(life, folder):
    life.press("1", "period", "period", "2")


def analysis(life, folder):
    life.open_file(folder / "orden3.asc", "alt+a", "n", "d")
    life.press("F9")


def graph(life, folder):
    analysis(life, folder)
    life.press("Down", "Down", "F9")
    life.press("Tab", "Tab", "Tab", "Tab", "Tab", "space")


def power(life, folder):
    life.press("alt+a", "n", "c")


def three_editors(life, folder):
    life.press("7", "Return", "ctrl+n", "8", "Return", "ctrl+n", "9", "Return")


ROOMS = (editor, editor_of_a_file, refused_cell, analysis, graph, power, three_editors)


class Bursts(ProgramTest):
    def test_no_burst_of_keys_ends_or_blocks_the_program(self):
        folder = SCRATCH / "cuadrados"
        folder.mkdir()
        shutil.copy(ROOT / "ejemplos" / "orden3.asc", folder)
        ends = 0
        rooms = itertools.cycle(ROOMS)
        waiting = list(bursts(BURSTS, SEED))
        while waiting:
            room = next(rooms)
            life = Life(self.executable, folder)
            self.addCleanup(life.end)
            told = "its start"
            for _ in range(min(BURSTS_A_LIFE, len(waiting))):
                try:
                    life.press("Escape")  # of a cell that is open
                    room(life, folder)
                    keys = waiting.pop()
                    told = f"{' '.join(f'{pause}ms {key}' for pause, key in keys)} in {room.__name__}"
                    life.burst(keys)
                    life.answer_everything()
                except AssertionError as problem:
                    # One that was told to end may have been there a moment ago.
                    if not life.has_ended():
                        self.fail(f"{problem} in {life.windows()}, after {told}")
                if life.has_ended():
                    self.assertEqual(
                        life.process.returncode, 0, f"{told}\n{life.errors.read_text()[:4000]}"
                    )
                    ends += 1
                    break
            life.end()
        print(f"{BURSTS} bursts, {ends} of them told the program to end")


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Languages and places: the tests under other locales, and a short day of the program where something that
programs lean on is missing.

    places.py [--corto [EXECUTABLE]]

Prints its section of docs/fiabilidad.md; the short form visits the cheapest places only. The executable is
that of build/dev; a test that names it is not remembered once it has changed.
"""

import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from section import NUMBER, ROOT, TEXT, TYPED, say, table

BUILD = ROOT / "build" / "dev"
EXECUTABLE = BUILD / "bin" / "cuadrado-latino"
DRIVERS = ROOT / "tests" / "program"
ON_DISPLAY = "--on-display"

LOCALES = ("C", "es_ES", "es_MX", "de_DE", "tr_TR")
STRANGER_ID = 65534  # nobody


def as_stranger():
    """A command that starts a program as a user without a home of his own."""
    ids = [f"--reuid={STRANGER_ID}", f"--regid={STRANGER_ID}", "--clear-groups"]
    return ["setpriv", *ids] if os.getuid() == 0 else []


class Place:
    """Where the program lives a short day: variables that are set or, with None, missing."""

    def __init__(self, caption, stranger=False, folder=None, **variables):
        self.caption = caption
        self.stranger = stranger
        self.folder = folder  # the current one
        self.variables = variables

    def command(self):
        missing = [name for name, value in self.variables.items() if value is None]
        unset = [argument for name in missing for argument in ("-u", name)]
        # In the background or below nohup it would be born deaf to the signal that ends its day.
        return ["env", "--default-signal=TERM", *unset, *(as_stranger() if self.stranger else []), EXECUTABLE]

    def environment(self):
        given = {name: value for name, value in self.variables.items() if value is not None}
        return {**os.environ, "LC_ALL": "es_ES.UTF-8", **given}


def must_be_closed(folder):
    """Root may do everything, and so may those whom the system treats like him."""
    if subprocess.run([*as_stranger(), "test", "-w", folder], check=False).returncode == 0:
        sys.exit(f"places: whoever has no permission may write into {folder}")


def quick_places():
    return [
        Place("sin HOME", HOME=None),
        Place("sin bus de mensajes ni XDG_RUNTIME_DIR", DBUS_SESSION_BUS_ADDRESS=None,
              XDG_RUNTIME_DIR=None),
        Place("LC_ALL=POSIX, sin UTF-8", LC_ALL="POSIX"),
    ]  # fmt: skip


def places(scratch):
    read_only = scratch / "solo lectura"
    read_only.mkdir(mode=0o555)
    closed = scratch / "casa cerrada"
    closed.mkdir(mode=0)
    for folder in (read_only, closed):
        must_be_closed(folder)
    undecodable = os.path.join(os.fsencode(scratch), b"datos\xf1")
    os.mkdir(undecodable)
    return [
        *quick_places(),
        *(Place(f"{name}.UTF-8", LC_ALL=f"{name}.UTF-8") for name in LOCALES),
        Place("sin ninguna variable de idioma", LC_ALL=None, LANG=None),
        Place("un idioma que el sistema no tiene", LC_ALL="xx_YY.UTF-8"),
        Place("HOME que no existe", HOME="/no/hay"),
        Place("un usuario sin permiso sobre su HOME", stranger=True, HOME=str(closed)),
        Place("carpeta actual de solo lectura", stranger=True, folder=read_only),
        Place("carpeta actual cuyo nombre no es UTF-8", folder=undecodable),
        Place("bus de mensajes que no responde", DBUS_SESSION_BUS_ADDRESS="unix:path=/no/hay"),
        Place("escala 0,5", QT_SCALE_FACTOR="0.5"),
        Place("escala 3", QT_SCALE_FACTOR="3"),
    ]


class Day:
    """Types a number, saves, closes with a signal. The accessibility bus may be missing: titles of windows
    and the file on the disk are what is looked at."""

    def __init__(self, place, scratch):
        from stranger import output, wait_for, xdotool  # of the drivers, which need a display

        self._output, self._wait_for, self._xdotool = output, wait_for, xdotool
        self._folder = pathlib.Path(tempfile.mkdtemp(dir=scratch))
        self._folder.chmod(0o777)
        self._process = subprocess.Popen(
            place.command(), env=place.environment(), cwd=place.folder or self._folder,
            stderr=subprocess.PIPE, text=True,
        )

    def _titles(self):
        windows = self._output("xdotool", "search", "--onlyvisible", "--pid", self._process.pid)
        return [self._output("xdotool", "getwindowname", window).strip() for window in windows.split()]

    def _wait_for_title(self, title):
        self._wait_for(f"the window {title}", lambda: title in self._titles())
        time.sleep(1.0)  # until it has the keys

    def live(self):
        """What is wrong in the end; nothing where nothing is."""
        path = self._folder / "parcela.asc"
        try:
            self._wait_for_title("Cuadrado Latino")
            self._xdotool("key", "--delay", 100, "7", "Return", "F2")
            self._wait_for_title("Guardar Archivo")
            self._xdotool("type", "--delay", 20, path)
            self._xdotool("key", "Return")
            self._wait_for("the file", lambda: path.is_file() and TYPED in path.read_bytes())
            self._process.send_signal(signal.SIGTERM)
            status = self._process.wait(timeout=15)
            strays = [file.name for file in self._folder.iterdir() if file != path]
            if status != 0 or strays:
                return f"status {status}, strays {strays}"
            return None
        except (AssertionError, subprocess.TimeoutExpired) as error:
            return str(error)
        finally:
            self._process.kill()
            self._process.communicate()


def undecodable_names(scratch):
    """A relative name in a folder whose name the program cannot say leads into that very folder, and to no
    other file. @return what is wrong"""
    from stranger import output, wait_for, xdotool

    folder = os.path.join(os.fsencode(scratch), b"lote\xf1")
    os.mkdir(folder)
    alien = os.path.join(folder, b"viejo\xf1.asc")
    shutil.copy(ROOT / "ejemplos" / "orden3.asc", alien)
    before, content = everything_below(scratch), contents(alien)
    program = subprocess.Popen([EXECUTABLE], cwd=folder, stderr=subprocess.DEVNULL)
    shows = lambda title: output("xdotool", "search", "--onlyvisible", "--name", title)  # noqa: E731
    try:
        wait_for("the program", lambda: shows("^Cuadrado Latino$"))
        time.sleep(1.0)
        xdotool("key", "--delay", 100, "7", "Return", "F2")
        wait_for("the dialog", lambda: shows("^Guardar Archivo$"))
        time.sleep(1.0)
        xdotool("type", "--delay", 20, "nuevo.asc")
        xdotool("key", "Return")
        saved = os.path.join(folder, b"nuevo.asc")
        wait_for("the file", lambda: os.path.isfile(saved) and TYPED in contents(saved))
        if everything_below(scratch) != before | {saved}:
            return "another file was written, or has gone"
        return None if contents(alien) == content else "the other file was written"
    except AssertionError as error:
        return str(error)
    finally:
        program.kill()
        program.wait()


def contents(path):
    with open(path, "rb") as file:
        return file.read()


def everything_below(folder):
    return {
        os.path.join(root, name)
        for root, _, names in os.walk(os.fsencode(folder))
        for name in names
    }


def visit(short):
    sys.path.insert(0, str(DRIVERS))
    scratch = pathlib.Path(os.environ["CL_SCRATCH"])
    for folder in (scratch, scratch.parent):
        folder.chmod(0o755)
    rows, faults = [], []
    for place in quick_places() if short else places(scratch):
        say(place.caption)
        if fault := Day(place, scratch).live():
            faults.append(f"{place.caption}: {fault}")
        rows.append([place.caption, "¡no!" if fault else "sí"])
    if fault := undecodable_names(scratch):
        faults.append(f"undecodable names: {fault}")
    print(table({"lugar": TEXT, "guarda y termina": TEXT}, rows))
    if faults:
        sys.exit("\n".join(faults))


def must_have_locales():
    """A locale that the system has not is silently that of C."""
    listed = subprocess.run(["locale", "-a"], capture_output=True, text=True, check=True).stdout.lower()
    there = {name.replace("utf-8", "utf8") for name in listed.split()}
    if missing := [name for name in LOCALES if f"{name}.utf8".lower() not in there]:
        sys.exit(f"places: the system has no {', '.join(missing)}.UTF-8")


def tests_under(locale):
    """How many tests ran, and which did not pass."""
    say(f"tests under {locale}")
    environment = {**os.environ, "LC_ALL": f"{locale}.UTF-8"}
    environment.pop("CL_REMEMBER", None)
    command = ["ctest", "-j", str(os.cpu_count()), "-E", "^(program|reliability|packaging)", "-LE", "lint"]
    run = subprocess.run(
        command, cwd=BUILD, env=environment, capture_output=True, text=True, check=False
    )
    failed = re.findall(r"\d+ - (\S+) \(", run.stdout)
    total = int((re.findall(r"tests failed out of (\d+)", run.stdout) or ["0"])[0])
    if total == 0 or (run.returncode != 0 and not failed):
        sys.exit(f"places: ctest under {locale} ended with {run.returncode}:\n{run.stdout[-2000:]}{run.stderr}")
    return total, failed


def main(short):
    must_have_locales()
    visited = subprocess.run(
        [DRIVERS / "on_virtual_display", __file__, ON_DISPLAY, *(["--corto"] if short else [])],
        cwd=ROOT, stdout=subprocess.PIPE, text=True, check=False,
    )
    if short:
        sys.exit(visited.returncode)
    suites = {locale: tests_under(locale) for locale in LOCALES}
    print("""\
Las pruebas que no manejan el programa se corrieron bajo cada idioma, que cambia el signo decimal, el de los miles
y, en turco, la mayúscula de la i:
""")
    columns = {"idioma": TEXT, "pruebas": NUMBER, "fallaron": TEXT}
    rows = (
        [f"{locale}.UTF-8", total, ", ".join(failed) or "ninguna"]
        for locale, (total, failed) in suites.items()
    )
    print(table(columns, rows))
    print("""
El programa mismo vivió un día corto en cada lugar: se escribió un dato, se guardó en un archivo, se miró el archivo y
se terminó con SIGTERM, que sin nada por guardar da el estado 0.
""")
    print(visited.stdout.strip())
    print("""
En una carpeta cuyo nombre no es UTF-8, un nombre sin carpeta se guardó en ella, y alrededor ningún otro archivo
apareció ni se fue; el que ya estaba en ella, con un nombre que tampoco es UTF-8, quedó como estaba.""")
    bad = [f"{locale}: {failed}" for locale, (_, failed) in suites.items() if failed]
    if visited.returncode != 0 or bad:
        sys.exit("\n".join(bad) or "places: see above")


if __name__ == "__main__":
    if ON_DISPLAY in sys.argv:
        visit("--corto" in sys.argv)
    else:
        main("--corto" in sys.argv)

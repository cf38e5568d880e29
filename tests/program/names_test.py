#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the program is called by those who cannot see it: every control of every window, dialog and
menu has a name and a role, and the names are Spanish.

names_test.py EXECUTABLE, below on_virtual_display.
"""

import os
import re
import time
import unittest

import pyatspi
from gi.repository import Atspi

from by_keyboard import (
    REPORT_IS_COMPLETE,
    SAMPLES,
    finish_study,
    leave_menu,
    open_analysis,
    open_editor,
    open_power,
)
from driven import ProgramTest, main
from stranger import PATIENCE, Gone, box_of, is_showing, role_of, wait_for, xdotool

# The texts that the product has in English.
OWN_ENGLISH = {
    "Mark as type A", "Mark as type B", "Unmark type A", "Unmark type B", "Unmark All",
    "Clear", "Copy", "Paste", "Range", "Column", "Row", "All",
    "Enable Editing", "Disable Editing", "Extract from Clpbrd",
    "Edit Identifier", "Change Precision", "Comment:",
}  # fmt: skip

ENGLISH = re.compile(
    r"\b(all|apply|back|button|cancel|cell|chart|clear|close|column|computer|copy|create|cut|data"
    r"|date|delete|details?|directory|discard|drive|edit|exit|file|files|folder|forward|grip|help"
    r"|icon|list|look|maximi[sz]e|menu bar|minimi[sz]e|modified|move|name|new|ok|open|page|parent"
    r"|paste|picture|print|question|redo|rename|report|reset|restore|retry|row|save|scroll|search"
    r"|select|show|sidebar|size|splitter|stay|step|table|tab|test|toolbar|top|type|undo|up|view"
    r"|window|yes|zoom)\b",
    re.IGNORECASE,
)

# What the toolkit has in a text between the cells of a table, and at its end.
TABLE_PARTS = re.compile("[\ufdd0\ufdd1]")

# What the toolkit calls a control that it has no better word for.
NO_ROLE = {"", "invalid", "unknown", "extended", "redundant object"}

OPERABLE = {
    "button", "chart", "check box", "combo box", "list", "list item", "menu item", "push button",
    "label", "radio button", "scroll bar", "spin button", "table", "table cell", "text", "tree",
}  # fmt: skip

# For the bus, what does not answer in time is defunct and has no name, as what is gone. Where all
# answers together took less than the patience with each, none was waited for in vain.
Atspi.set_timeout(round(1000 * PATIENCE), round(1000 * PATIENCE))


def role(control):
    """The role of a control; of none, no role."""
    return "" if control is None else role_of(control)


def children(control):
    return [control.getChildAtIndex(i) for i in range(control.childCount)]


def may_be_nameless(control, own_role, focusable):
    """What is no control, although it shows on the bus."""
    parent = role(control.parent)
    if focusable:
        # The size of a folder in a list of files: an empty cell.
        return own_role == "table cell" and parent == "tree"
    return (
        # A widget that only lays out others, a page behind its scroll bars, a gap in a tool bar.
        own_role == "filler"
        # A line in a menu.
        or own_role == "separator"
        # A table's corner, which the toolkit shows without a place on the screen; Ctrl and the
        # cursor keys select what it selects.
        or (own_role == "panel" and parent == "table")
        # The row of a dialog's buttons.
        or (own_role == "panel" and set(map(role, children(control))) == {"push button"})
        # The frame around the files of a file dialog, and the pile of the two ways to list them.
        or (own_role == "frame" and parent == "split pane")
        or (own_role == "layered pane" and parent == "frame" and not control.parent.name)
    )


def may_have_no_role(control):
    """The toolkit has no word on this bus for what is only to be dragged."""
    return role(control.parent) == "split pane" or control.name == "Tamaño de la ventana"


def may_be_operated(control, own_role):
    """What takes the keyboard must be of a kind that assistive technology can work with."""
    return (
        own_role in OPERABLE
        # A child window takes the keyboard on behalf of what is in it.
        or own_role == "frame"
        # The edit inside of a spin button, for which the spin button speaks.
        or (own_role == "filler" and role(control.parent) == "spin button")
    )


def english_words(text):
    return [] if text in OWN_ENGLISH else ENGLISH.findall(text)


def fault_of(control, name, own_role, states):
    """What is handed over was asked of the bus once."""
    focusable = states.contains(pyatspi.STATE_FOCUSABLE)
    if not name and not may_be_nameless(control, own_role, focusable):
        return "no name"
    if own_role in NO_ROLE and not may_have_no_role(control):
        return "no role"
    if focusable and not may_be_operated(control, own_role):
        return "takes the keyboard, but who knows how to work it?"
    words = english_words(name) + english_words(control.description)
    return f"English: {', '.join(words)}" if words else None


def described(control, name, own_role):
    """With all that it is in, as far as the bus tells: it may have gone by now."""
    path = [f"{own_role} «{name}»"]
    try:
        path[0] += f" ({control.description})"
        while (control := control.parent) is not None and role(control) != "application":
            path.append(f"{role(control)} «{control.name}»")
    except Gone as error:
        path.append(str(error))
    return " in ".join(path)


class Invented:
    """A control that the program does not have."""

    def __init__(self, own_role, name, description="", parent=None):
        self.own_role = own_role
        self.name = name
        self.description = description
        self.parent = parent
        self.childCount = 0

    def getRoleName(self):
        return self.own_role

    def fault(self, *states):
        return fault_of(self, self.name, self.own_role, pyatspi.StateSet(*states))


class Faults(unittest.TestCase):
    """What is found to be a fault, and what is not."""

    def test_no_name(self):
        self.assertEqual(Invented("push button", "").fault(), "no name")
        self.assertIsNone(Invented("filler", "").fault())
        self.assertEqual(Invented("filler", "").fault(pyatspi.STATE_FOCUSABLE), "no name")

    def test_no_role(self):
        self.assertEqual(Invented("unknown", "Divisor").fault(), "no role")
        self.assertEqual(Invented("", "Divisor").fault(), "no role")
        divided = Invented("split pane", "Datos y tratamientos")
        self.assertIsNone(Invented("unknown", "Divisor", parent=divided).fault())

    def test_no_way_to_operate_it(self):
        options = Invented("panel", "Opciones")
        self.assertIsNone(options.fault())
        self.assertRegex(options.fault(pyatspi.STATE_FOCUSABLE), "^takes the keyboard")

    def test_english(self):
        self.assertEqual(Invented("push button", "Cancel").fault(), "English: Cancel")
        told = Invented("push button", "Cerrar", "Close the window")
        self.assertEqual(told.fault(), "English: Close, window")
        self.assertIsNone(Invented("menu item", "Copy").fault())
        self.assertIsNone(Invented("push button", "Cerrar", "Cierra la ventana").fault())


class Names(ProgramTest):
    def setUp(self):
        self.program = self.start()
        self.program.find("label", "DATOS")

    def check(self, window, *expected):
        """Judges once the expected controls are found."""
        for control in expected:
            self.program.find(*control)
        self.judge(window, *expected)

    def judge(self, window, *expected):
        """Everything that is showing, the expected controls (role, name) among it."""
        judged, faults = set(), []
        begin = time.monotonic()
        for control, own_role, states in self.showing():
            try:
                name = control.name
                if not is_showing(control):  # what is gone has an empty name
                    continue
                fault = fault_of(control, name, own_role, states)
            except Gone:
                if is_showing(control):
                    raise
                continue
            judged.add((own_role, name))
            if fault:
                faults.append(f"{fault}: {described(control, name, own_role)}")
        duration = time.monotonic() - begin
        with self.subTest(window=window):
            self.assertFalse(faults, "\n" + "\n".join(faults))
            self.assertLessEqual(set(expected), judged)
            self.assertLess(duration, PATIENCE)

    def showing(self):
        yield from self.program.showing()
        # The edit in an open cell hangs on nothing that can be walked to: it announces itself.
        focus = self.program.focus
        yield focus, role(focus), focus.getState()

    def analyse(self, approach, test):
        self.program.click(self.program.find("radio button", approach))
        self.program.click(self.program.find("radio button", test))
        self.program.press("F9")
        self.program.find("label", REPORT_IS_COMPLETE)

    def test_editor(self):
        program = self.program
        self.check("empty editor", ("table", "Datos"))
        open_editor(program)
        self.check("loaded editor", ("table cell", "12,500"))
        program.type("7")
        program.wait_for_focus("text «Dato de la fila Fila 1, columna Columna 1»")
        self.judge("open cell", ("text", "Dato de la fila Fila 1, columna Columna 1"))

    def test_menus_of_the_table(self):
        program = self.program
        program.press("shift+F10")
        self.check("menu of the cells", ("menu item", "Mark as type A"))
        program.press(*["Down"] * 6, "Right")
        self.check("cells to clear", ("menu item", "Range"))
        program.press("Escape", "Down", "Right")
        self.check("cells to copy", ("menu item", "Range"))
        leave_menu(program, "table «Datos»")
        program.press("ctrl+shift+F10")
        self.check("menu of the headers", ("menu item", "Edit Identifier"))
        program.press("Down", "Return")
        self.check("identifier", ("dialog", "Identificador"))
        program.press("Escape")
        program.wait_for_focus("table «Datos»")
        program.press("ctrl+shift+F10", "Down", "Down", "Return")
        self.check("precision", ("dialog", "Precisión"))

    def test_menus_of_the_bar(self):
        program = self.program
        program.press("alt+a", "Right")
        self.check("Archivo, Nuevo", ("menu item", "Análisis de Datos..."))
        program.press("Left", "Down", "Right")
        self.check("Archivo, Editor", ("menu item", "Nuevo Archivo"))
        for key, entry in (("alt+d", "Cargar..."), ("alt+v", "1 Editor"), ("alt+y", "Acerca de...")):
            program.press("Escape", "Escape", "Escape", key)
            self.check(key, ("menu item", entry))

    def test_menu_of_a_window(self):
        program = self.program
        program.press("alt+minus")
        self.check("a window's own menu", ("popup menu", "Menú de la ventana"))
        program.press("Escape")
        open_analysis(self.program)
        program.press("alt+minus")
        self.check("a maximised window's", ("popup menu", "Menú de la ventana"))

    def test_menus_of_texts(self):
        program = self.program
        xdotool("mousemove", *self.middle(program.find("text", "Nombre de filas")), "click", 3)
        self.check("menu of a line", ("popup menu", "Menú"), ("menu item", "Pegar\tCtrl+V"))
        program.press("Escape")
        open_analysis(self.program)
        xdotool("mousemove", *self.middle(program.find("text", "Reporte")), "click", 3)
        self.check("menu of the report", ("popup menu", "Menú"), ("menu item", "Copiar\tCtrl+C"))

    @staticmethod
    def middle(control):
        box = box_of(control)
        return box.x + box.width // 2, box.y + box.height // 2

    def test_dialogs(self):
        program = self.program
        program.press("ctrl+a")
        self.check("open", ("dialog", "Abrir Archivo"), ("push button", "Abrir"))
        program.press("Escape")
        program.wait_for_focus("table «Datos»")
        program.press("F2")
        self.check("save", ("dialog", "Guardar Archivo"), ("push button", "Guardar"))
        program.press("Escape")
        program.wait_for_focus("table «Datos»")
        program.press("F3")
        self.check("load", ("dialog", "Abrir Archivo"))
        program.answer_file_dialog(SAMPLES / "LEEME.md")
        self.check("bad file", ("alert", "Abrir Archivo"), ("image", "Error"))
        program.press("Return")
        program.wait_until_gone("alert")
        program.wait_for_focus("table «Datos»")
        program.type("7,5,1")
        program.press("Return")
        self.check("bad number", ("alert", "Dato no válido"), ("image", "Error"))
        program.press("Return", "Escape", "ctrl+F4")
        self.check("question", ("label", "Desea guardar los cambios?"), ("image", "Pregunta"))

    def test_analysis(self):
        open_analysis(self.program)
        self.check("no report yet", ("text", "Reporte"))
        for approach, test in (
            ("Clásico", "Prueba F"),
            ("Rangos", "Zimmerman (F)"),
            ("Rangos", "Bennett (Chi-2)"),
            ("Secuencias", "Prueba C (Exacta -> Normal)"),
            ("Secuencias", "Prueba M (Exacta -> F)"),
        ):
            self.analyse(approach, test)
            self.check(test, ("radio button", test), ("label", REPORT_IS_COMPLETE))
        self.program.press("ctrl+e")
        self.check("export", ("dialog", "Exportar"))

    def test_manual(self):
        program = self.program
        told = []
        program.listen("object:text-changed:insert", lambda event: told.append(event.any_data))
        program.press("F1")
        self.check("manual", ("frame", "Manual"), ("label", "El editor"))
        chapter = program.text(program.find("label", "El editor"))
        self.assertIn("Una celda sin escribir vale 0", chapter)

        def is_told():
            program.hear()
            return TABLE_PARTS.sub("\n", chapter) in told

        wait_for("the text of the chapter, told", is_told)
        program.press("ctrl+f")
        self.check("search", ("text", "Texto que se busca"))
        program.type("xyzzy")
        self.check("vain search", ("label", "No se encontró en el manual."))

    def test_graphs(self):
        open_analysis(self.program)
        for letter, test in ("C", "Prueba C (Exacta -> Normal)"), ("M", "Prueba M (Exacta -> F)"):
            self.analyse("Secuencias", test)
            self.program.click(self.program.find("push button", "Ver exacta..."))
            self.check(
                f"graph of {letter}",
                ("frame", f"Distribución exacta de {letter} para cuadrados de 3x3"),
                ("chart", "Gráfica"),
                ("chart", "Distrib. Acumulada"),
            )
            self.program.wait_for_focus("chart «Gráfica»")
            self.program.press("alt+g")
            self.check("Gráfica", ("menu item", "Copiar Acumulada"))
            leave_menu(self.program, "chart «Gráfica»")
            self.program.press("ctrl+F4")
            self.program.wait_until_gone("chart")

    def test_power(self):
        program = self.program
        open_power(program)
        self.check("no study yet", ("push button", "Calcular"))
        program.press("alt+p")
        self.check("Potencia", ("menu item", "Guardar Reporte..."))
        leave_menu(program, "push button «Calcular»")
        program.press("F9")
        finish_study(program)
        self.check("after a study", ("label", "Listo."))
        for button, entry in (
            ("Nivel de Significancia 95%", "90%"),
            ("Distribución Uniforme", "Triangular"),
        ):
            program.click(program.find("push button", button))
            self.check(button, ("menu item", entry))
            program.press("Escape")

    def test_about(self):
        self.program.press("alt+y", "Return")
        self.check("About", ("dialog", "Acerca de"), ("push button", "Aceptar"))

    def test_small_frame(self):
        """A frame that has no room for all of its buttons."""
        program = self.program
        open_power(program)
        program.press("shift+F4")
        frame = program.find("frame", "Cuadrado Latino")
        box = box_of(frame)
        xdotool("mousemove", box.width // 2, box.y // 2, "click", "--repeat", 2, "--delay", 60, 1)
        wait_for("a smaller frame", lambda: box_of(frame).width < box.width)
        window = os.popen("xdotool search --onlyvisible --name 'Cuadrado Latino'").read().split()[0]
        xdotool("windowsize", window, 300, 300)
        wait_for("a small frame", lambda: box_of(frame).width < 500)
        self.check("small frame", ("check box", "Más botones"))


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The program without a mouse: every menu by its letters, every window by keys.

keyboard_menus_test.py EXECUTABLE, below on_virtual_display.
"""

from by_keyboard import ORDER_3, clipboard, open_analysis, open_graph_of_c, open_power
from driven import ProgramTest, main
from stranger import box_of, wait_for


class Menus(ProgramTest):
    def setUp(self):
        self.program = self.start()

    def dialog(self, caption, *keys):
        """Keys that bring a dialog up; Escape closes it, and the focus is where it was."""
        before = self.program.focused()
        self.program.press(*keys)
        self.program.find("dialog", caption)
        self.program.press("Escape")
        self.program.wait_until_gone("dialog", caption)
        self.program.wait_for_focus(before)

    def test_menus_of_frame_and_editor(self):
        self.dialog("Abrir Archivo", "alt+a", "n", "d")
        self.dialog("Abrir Archivo", "alt+a", "e", "a")
        self.dialog("Abrir Archivo", "alt+d", "c")
        self.dialog("Guardar Archivo", "alt+d", "g")
        self.dialog("Guardar Archivo", "alt+d", "a")
        self.dialog("Abrir Archivo", "ctrl+a")
        self.dialog("Abrir Archivo", "F3")
        self.dialog("Guardar Archivo", "F2")
        self.program.press("alt+a", "e", "n")
        wait_for("two editors", lambda: len(self.program.look("frame", "Editor")) == 2)
        self.program.press("ctrl+n")
        wait_for("three editors", lambda: len(self.program.look("frame", "Editor")) == 3)
        for key in "c", "m":
            before = self.places()
            self.program.press("alt+v", key)
            wait_for("other places", lambda: self.places() != before)
        self.program.press("alt+a", "Up", "Return")  # "Salir", the last one
        self.program.find("label", "Desea guardar los cambios?")

    def places(self):
        return list(map(box_of, self.program.look("frame", "Editor")))

    def test_menus_of_analysis_graph_and_power(self):
        open_analysis(self.program)
        self.dialog("Exportar", "alt+l", "e")
        self.dialog("Exportar", "ctrl+e")
        open_graph_of_c(self.program)
        self.dialog("Guardar Gráfica", "alt+g", "g")
        self.dialog("Guardar Gráfica Acumulada", "alt+g", "a")
        self.dialog("Guardar Datos", "alt+g", "d")
        self.dialog("Guardar Datos", "F2")
        self.copy("c")
        self.copy("l")
        open_power(self.program)
        self.dialog("Guardar Gráfica de Potencia", "alt+p", "g")
        self.dialog("Guardar Reporte", "alt+p", "r")

    def copy(self, letter):
        before = clipboard("image/png")
        self.program.press("alt+g", letter)
        wait_for("the picture", lambda: clipboard("image/png") not in (b"", before))

    def test_moving_between_windows(self):
        program = self.program
        open_analysis(self.program)
        open_graph_of_c(self.program)
        graph = "Distribución exacta de C para cuadrados de 3x3"
        open_power(self.program)
        analysis = f"Análisis - {ORDER_3}"
        for key, window in (
            ("ctrl+Tab", "Editor"),  # around the end of the list of windows
            ("ctrl+Tab", analysis),
            ("ctrl+shift+Tab", "Editor"),
            ("ctrl+shift+Tab", "Potencia"),
        ):
            program.press(key)
            self.wait_for_window(window)
        for number, window in enumerate(("Editor", analysis, graph, "Potencia"), start=1):
            program.press("alt+v", str(number))
            self.wait_for_window(window)
        program.press("ctrl+F4")
        self.wait_for_window(graph)
        program.press("ctrl+w")
        self.wait_for_window(analysis)
        program.press("ctrl+F4")
        self.wait_for_window("Editor")

    def wait_for_window(self, name):
        """The window that is active, which is the one that the focus is in."""

        def windows():
            """Those around the focus."""
            self.program.focused()
            control = self.program.focus
            while control is not None:
                yield control.name
                control = control.parent

        wait_for(f"the window {name}", lambda: name in windows())

    def test_menu_of_a_window(self):
        program = self.program
        open_analysis(self.program)
        analysis = program.find("frame", f"Análisis - {ORDER_3}")
        width = box_of(analysis).width
        self.choose_in_window_menu("Restaurar")
        wait_for("the usual size", lambda: box_of(analysis).width < width)
        place = box_of(analysis).x
        self.choose_in_window_menu("Mover")
        program.press("Right", "Right", "Right", "Return")
        wait_for("the other place", lambda: box_of(analysis).x > place)
        self.choose_in_window_menu("Maximizar")
        wait_for("the whole size", lambda: box_of(analysis).width == width)
        self.choose_in_window_menu("Cerrar")
        program.wait_until_gone("label", "DATOS A ANALIZAR")

    def choose_in_window_menu(self, entry):
        self.program.press("alt+minus")
        self.program.find("popup menu", "Menú de la ventana")
        for _ in range(10):
            self.program.press("Down")
            if self.program.focused().startswith(f"menu item «{entry}"):
                break
        self.program.press("Return")


if __name__ == "__main__":
    main()

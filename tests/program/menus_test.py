#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The menus of the running program: every entry of the merged bar of every kind of window, of the
tables and of the power window's buttons, and what the status line tells of each.

menus_test.py EXECUTABLE, below on_virtual_display.
"""


from by_keyboard import ORDER_3, leave_menu, open_analysis, open_graph_of_c, open_power
from driven import ProgramTest, main
from stranger import wait_for

# An entry and its tip, in their order; with a submenu, the tip and the submenu.
FILE = {
    "Nuevo": (
        "Abre un análisis o un estudio de potencia",
        {
            "Análisis de Datos...": "Analiza un cuadrado guardado en un archivo",
            "Cálculo de Potencia...": "Estima por simulación la potencia de las cuatro pruebas no "
            "paramétricas",
        },
    ),
    "Editor": (
        "Abre un editor, vacío o con un archivo",
        {
            "Nuevo Archivo": "Abre un editor vacío de orden 3",
            "Abrir Archivo...": "Abre en un editor nuevo un cuadrado guardado",
        },
    ),
    "Salir": "Cierra todas las ventanas y termina el programa",
}
HELP = {"Acerca de...": "Dice qué es este programa y quién lo hizo"}
OF_THE_CHILDREN = {
    "Editor": {
        "Cargar...": "Trae a este editor un cuadrado guardado",
        "Guardar...": "Guarda el cuadrado en su archivo",
        "Guardar y Analizar...": "Guarda el cuadrado y abre su análisis en lugar del editor",
    },
    "Análisis": {"Exportar...": "Guarda el reporte como texto"},
    "Gráfica": {
        "Guardar Gráfica...": "Guarda la gráfica de arriba como mapa de bits",
        "Guarda Gráfica Acumulada...": "Guarda la gráfica de abajo, la acumulada, como mapa de bits",
        "Guardar Datos...": "Guarda como texto la tabla de la distribución",
        "Copiar Gráfica": "Copia la gráfica de arriba al portapapeles",
        "Copiar Acumulada": "Copia la gráfica de abajo, la acumulada, al portapapeles",
    },
    "Potencia": {
        "Guardar Grafica...": "Guarda la gráfica como mapa de bits",
        "Guardar Reporte...": "Guarda como texto el reporte de los cálculos",
    },
}
LASTING = {
    "Editor": "Puede manejar archivos de datos para el análisis aquí. Para analizar los datos actuales "
    "use la opción 'Guardar y Analizar'",
    "Análisis": "Seleccione las opciones deseadas y haga click en 'Analizar'",
    "Gráfica": "Arrastre sobre una gráfica para ampliarla; Esc regresa un paso y doble clic muestra todo.",
    "Potencia": "Listo.",
}


def scopes(verb):
    return {
        "Range": f"{verb} las celdas elegidas",
        "Column": f"{verb} la columna del cursor",
        "Row": f"{verb} la fila del cursor",
        "All": f"{verb} toda la tabla",
    }


OF_THE_CELLS = {
    "Mark as type A": "Marca las celdas con el tipo A",
    "Mark as type B": "Marca las celdas con el tipo B",
    "Unmark type A": "Quita de las celdas la marca A",
    "Unmark type B": "Quita de las celdas la marca B",
    "Unmark All": "Quita todas las marcas de la tabla",
    "Clear": ("Pone en cero las celdas", scopes("Pone en cero")),
    "Copy": ("Copia las celdas al portapapeles", scopes("Copia")),
    "Paste": "Pega los números del portapapeles desde la celda del cursor",
    "Disable Editing": "Permite o impide cambiar las celdas",
    "Extract from Clpbrd": "Trae del portapapeles un experimento entero: filas, columnas y "
    "tratamientos",
}
OF_THE_HEADERS = {
    "Edit Identifier": "Cambia el comentario de la tabla",
    "Change Precision": "Cambia los decimales que muestra la columna",
}


class Menus(ProgramTest):
    def setUp(self):
        self.program = self.start()

    def wait_for_status(self, text):
        wait_for(f"the status {text}", lambda: self.program.status() == text)

    def walk_down(self, entries, is_submenu=False):
        """Through an open menu, where nothing is chosen yet (in a submenu the first entry is)."""
        for number, (entry, tip) in enumerate(entries.items()):
            if number > 0 or not is_submenu:
                self.program.press("Down")
            self.program.wait_for_focus(f"menu item «{entry}»")
            submenu = {}
            if isinstance(tip, tuple):
                tip, submenu = tip
            self.wait_for_status(tip)
            if submenu:
                self.program.press("Right")
                self.walk_down(submenu, is_submenu=True)
                self.program.press("Left")  # the toolkit does not announce that
        self.program.press("Down")  # after the last one the first comes again
        self.program.wait_for_focus(f"menu item «{next(iter(entries))}»")

    def walk_bar(self, child, *windows):
        """Every menu of the bar, by mouse and down by key; the child's text comes back each time."""
        arrange = {
            "Cascada": "Apila las ventanas y deja ver el título de cada una",
            "Mosaico": "Reparte las ventanas sin que se tapen",
        }
        listed = {f"{i} {window}": "Pasa a esta ventana" for i, window in enumerate(windows, start=1)}
        menus = {
            "Archivo": FILE,
            child: OF_THE_CHILDREN[child],
            "Ventana": arrange | listed,
            "Ayuda": HELP,
        }
        before = self.program.focused()
        bar = self.program.find("menu bar")
        self.assertEqual([bar.getChildAtIndex(i).name for i in range(bar.childCount)], [*menus])
        self.wait_for_status(LASTING[child])
        for menu, entries in menus.items():
            self.program.click(self.program.find("menu item", menu, inside=bar))
            self.program.wait_for_focus(f"menu item «{menu}»")
            self.walk_down(entries)
            leave_menu(self.program, before)
            self.wait_for_status(LASTING[child])

    def test_bar_of_the_editor(self):
        self.walk_bar("Editor", "Editor")

    def test_bar_of_the_analysis(self):
        open_analysis(self.program)
        self.walk_bar("Análisis", "Editor", f"Análisis - {ORDER_3}")

    def test_bar_of_the_graph(self):
        open_analysis(self.program)
        open_graph_of_c(self.program)
        graph = "Distribución exacta de C para cuadrados de 3x3"
        self.walk_bar("Gráfica", "Editor", f"Análisis - {ORDER_3}", graph)

    def test_bar_of_the_power_window(self):
        open_power(self.program)
        self.walk_bar("Potencia", "Editor", "Potencia")

    def test_menus_of_a_table(self):
        for key, entries in ("shift+F10", OF_THE_CELLS), ("ctrl+shift+F10", OF_THE_HEADERS):
            self.program.press(key)
            self.program.find("popup menu")
            self.walk_down(entries)
            self.program.press("Escape")
            self.wait_for_status(LASTING["Editor"])

    def test_pop_ups_of_the_power_window(self):
        open_power(self.program)
        levels = ("90%", "95%", "98%", "99%")
        kinds = ("Uniforme", "Exponencial", "Triangular")
        for button, topic, entries in (
            ("Nivel de Significancia 95%", "Nivel de significancia", levels),
            ("Distribución Uniforme", "Distribución de los errores", kinds),
        ):
            self.program.click(self.program.find("push button", button))
            self.program.find("popup menu", topic)
            self.walk_down({entry: f"{topic}: {entry}" for entry in entries})
            self.program.press("Escape")
            self.wait_for_status(LASTING["Potencia"])


if __name__ == "__main__":
    main()

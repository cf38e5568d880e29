#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The manual against the program and the validation: every menu, control, key and message that it
quotes exists, every message, menu and key of the program is told of, its figures are the measured
ones, and its links and pictures lead somewhere.

In the manual what shows on the screen or on the keyboard is bold, and what the program says stands
between angular quotation marks.
"""

import decimal
import pathlib
import re
import unittest

import program_texts
from program_texts import CHANGING, ROOT

MANUAL = ROOT / "docs" / "manual"
CHAPTERS = sorted(MANUAL.glob("*.md"))
README = ROOT / "README.md"

# Keys of the toolkit's own controls, which the sources do not name.
CONTROL_KEYS = {
    "Alt", "Mayúsculas", "Ctrl+C", "Tab", "Mayúsculas+Tab", "Intro", "Mayúsculas+Intro", "Esc",
    "Arriba", "Abajo", "Izquierda", "Derecha", "Inicio", "Fin", "Ctrl+F4", "Ctrl+W",
}  # fmt: skip

# Said only to those who bring about what a user cannot.
NOT_FOR_USERS = {
    "RChart: Cannot use foreign data. Other RCharts are using my own data.",
}


def prose(path):
    """A chapter without its blocks and spans of code."""
    text = re.sub(r"^```.*?^```$", "", path.read_text("utf-8"), flags=re.MULTILINE | re.DOTALL)
    return re.sub(r"`[^`\n]*`", "", text)


def bold(text):
    return re.findall(r"\*\*(.+?)\*\*", text)


def quotes(text):
    """The outermost «quotations», which may hold others."""
    depth, start = 0, 0
    for place, character in enumerate(text):
        if character == "«":
            depth += 1
            start = place + 1 if depth == 1 else start
        elif character == "»" and depth > 0:
            depth -= 1
            if depth == 0:
                yield " ".join(text[start:place].split())


def slug(heading):
    words = re.sub(r"[^\w\s-]", "", heading.strip().lower())
    return re.sub(r"\s+", "-", words)


def headings(path):
    text = re.sub(r"^```.*?^```$", "", path.read_text("utf-8"), flags=re.MULTILINE | re.DOTALL)
    return [line.lstrip("#").strip() for line in text.splitlines() if line.startswith("#")]


def tables(path):
    """Rows of cells, one list per table, headers included."""
    table = []
    for line in [*path.read_text("utf-8").splitlines(), ""]:
        if line.startswith("|"):
            table.append([cell.strip() for cell in line.strip("|").split("|")])
        elif table:
            yield [row for row in table if not all(re.fullmatch(r":?-+:?", cell) for cell in row)]
            table = []


def number(text):
    return decimal.Decimal(text.replace(",", ".").replace("−", "-"))


def everything():
    return "\n".join(path.read_text("utf-8") for path in CHAPTERS)


class QuotedTexts(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.texts = program_texts.Texts()
        cls.keys = program_texts.keys() | CONTROL_KEYS

    def is_on_screen(self, text):
        return any(
            self.texts.holds(candidate)
            for candidate in (text, text + "...", text + ":", text + f": {CHANGING}%")
        ) or re.fullmatch(r"(Nivel de Significancia )?\d+%", text)

    def test_what_is_bold_is_a_key_or_shows_in_the_program(self):
        for path in (*CHAPTERS, README):
            for text in bold(prose(path)):
                with self.subTest(chapter=path.name, text=text):
                    self.assertTrue(text in self.keys or self.is_on_screen(text))

    def test_what_is_quoted_is_said_by_the_program(self):
        for path in (*CHAPTERS, README):
            if path.name == "bibliografia.md":  # there they are titles of papers
                continue
            for quote in quotes(prose(path)):
                with self.subTest(chapter=path.name, quote=quote):
                    self.assertTrue(self.texts.holds(quote) or self.texts.shows_word(quote))

    def test_a_text_that_the_program_lacks_is_noticed(self):
        for text in "Guardar como...", "Guardar y Analizarlo", "No queda sitio en el disco.":
            self.assertFalse(self.is_on_screen(text), text)
        self.assertFalse(self.texts.holds("El archivo «…» cambió ayer. ¿Desea reemplazarlo?"))
        self.assertNotIn("Ctrl+S", self.keys)


class ToldTexts(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.quotes = [quote for path in CHAPTERS for quote in quotes(prose(path))]
        cls.bold = {text for path in CHAPTERS for text in bold(prose(path))}
        blocks = re.findall(r"^```.*?^```$", everything(), re.MULTILINE | re.DOTALL)
        cls.reports = " ".join(" ".join(blocks).split())

    def test_every_message_of_the_program_is_told(self):
        told = [*self.quotes, self.reports]
        for message in sorted(program_texts.messages() - NOT_FOR_USERS):
            with self.subTest(message=message):
                self.assertTrue(any(message in text for text in told))

    def test_every_menu_entry_of_the_program_is_told(self):
        for entry in sorted(program_texts.menu_entries()):
            with self.subTest(entry=entry):
                self.assertTrue(entry in self.bold or entry in self.quotes or entry in self.reports)

    def test_every_key_of_the_program_is_in_the_chapter_of_keys(self):
        told = set(bold(prose(MANUAL / "teclas.md")))
        self.assertEqual(program_texts.keys() - told, set())

    def test_the_sources_are_read(self):
        self.assertIn("Desea guardar los cambios?", program_texts.messages())
        self.assertIn("Guardar y Analizar...", program_texts.menu_entries())
        for entry in "Extract from Clpbrd", "Paste", "Clear", "Range", "Change Precision":
            self.assertIn(entry, program_texts.menu_entries())
        for key in "F1", "Ctrl+E", "Mayúsculas+F5", "Ctrl+Z", "Alt+−", "F9":
            self.assertIn(key, program_texts.keys())


class Figures(unittest.TestCase):
    """The shares of rejected noise are those of the validation, rounded to one decimal."""

    def test_rejected_noise(self):
        measured = {}
        for table in tables(ROOT / "docs" / "validacion.md"):
            if table[0][:3] == ["en", "prueba", "orden"]:
                for where, test, order, *shares in table[1:]:
                    measured[where, test, order] = [number(share.split()[0]) for share in shares]
        self.assertEqual(len(measured), 52)

        compared = 0
        for table in tables(MANUAL / "antes-de-creer.md"):
            heading = re.fullmatch(r"prueba en (el|la) (análisis|potencia)", table[0][0])
            if not heading:
                continue
            for test, order, *shares in table[1:]:
                with self.subTest(where=heading[2], test=test, order=order):
                    for told, share in zip(shares, measured[heading[2], test, order], strict=True):
                        tenths = share.quantize(decimal.Decimal("0.1"), decimal.ROUND_HALF_UP)
                        self.assertEqual(number(told), tenths)
                    compared += 1
        self.assertEqual(compared, 36 + 12)

    def test_quoted_shares_of_the_text(self):
        validation = (ROOT / "docs" / "validacion.md").read_text("utf-8")
        chapter = (MANUAL / "antes-de-creer.md").read_text("utf-8")
        for said, measured in (
            ("fue de 81,4 a 98,3", "fue de 81,4 a 98,3"),
            ("rechaza 0,25 % del puro ruido", "| potencia | M | 4 | 0,25"),
            ("orden 3 y de 3,4 a 3,8 %", "| análisis | Bennett | 6 | 8,86 ± 0,09 | 3,84"),
            ("de la pedida en 1E-8", "menos de 1E-8 de la pedida"),
        ):
            with self.subTest(said=said):
                self.assertIn(said, chapter)
                self.assertIn(measured, validation)


class Links(unittest.TestCase):
    def targets(self, path):
        return re.findall(r"!?\[[^\]]*\]\(([^)]+)\)", path.read_text("utf-8"))

    def test_every_link_leads_to_a_chapter_and_a_heading_of_it(self):
        for path in CHAPTERS:
            for target in self.targets(path):
                name, _, anchor = target.partition("#")
                with self.subTest(chapter=path.name, target=target):
                    self.assertTrue((MANUAL / name).is_file())
                    if anchor:
                        self.assertIn(anchor, map(slug, headings(MANUAL / name)))

    def test_every_chapter_is_in_the_index_and_every_picture_in_a_chapter(self):
        index = self.targets(MANUAL / "indice.md")
        self.assertEqual(sorted({*index, "indice.md"}), [path.name for path in CHAPTERS])
        shown = {target for path in CHAPTERS for target in self.targets(path)}
        pictures = sorted((MANUAL / "imagenes").glob("*.png"))
        self.assertTrue(pictures)
        for picture in pictures:
            self.assertIn(f"imagenes/{picture.name}", shown)

    def test_every_chapter_has_one_title_and_headings_that_differ(self):
        for path in CHAPTERS:
            with self.subTest(chapter=path.name):
                self.assertEqual(path.read_text("utf-8").count("\n# "), 0)
                self.assertTrue(path.read_text("utf-8").startswith("# "))
                slugs = [slug(heading) for heading in headings(path)]
                self.assertEqual(len(slugs), len(set(slugs)))


if __name__ == "__main__":
    unittest.main(verbosity=2)

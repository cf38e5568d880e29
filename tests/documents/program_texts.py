# SPDX-License-Identifier: GPL-3.0-or-later
"""The texts and keys that stand in the program's sources, as the manual quotes them."""

import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
CHANGING = "…"  # what the manual writes where a text has a part that changes

_COMMENT = re.compile(r'("(?:[^"\\\n]|\\.)*")|//[^\n]*|/\*.*?\*/', re.DOTALL)
_PIECE = r'"(?:[^"\\\n]|\\.)*"'
_LITERAL = re.compile(rf"{_PIECE}(?:\s*{_PIECE})*")
_ESCAPE = re.compile(r"\\(.)")


def sources():
    """Every source of the program with its code, comments and includes taken out."""
    for path in sorted((ROOT / "src").rglob("*")):
        if path.suffix in (".cpp", ".h"):
            code = _COMMENT.sub(lambda match: match.group(1) or " ", path.read_text("utf-8"))
            yield path, re.sub(r"^\s*#.*$", "", code, flags=re.MULTILINE)


def _text_of(literal):
    joined = "".join(piece[1:-1] for piece in re.findall(_PIECE, literal))
    return _ESCAPE.sub(lambda match: {"n": "\n"}.get(match.group(1), match.group(1)), joined)


def literals(code):
    return [_text_of(literal) for literal in _LITERAL.findall(code)]


def as_quoted(text):
    """A text of the program in the form in which the manual quotes it."""
    text = text.replace("%%", "\0")
    text = re.sub(r"%[1-9]", CHANGING, text).replace("\0", "%")
    text = re.sub(r"&(?=\S)", "", text)  # the underlined letter of a menu
    return " ".join(text.split())


class Texts:
    """What the program can show."""

    def __init__(self):
        self.whole = set()
        for _, code in sources():
            self.whole |= {as_quoted(text) for text in literals(code)}
        self.whole.discard("")
        self.pieces = {
            piece.strip(" ,")
            for text in self.whole
            for piece in text.split(CHANGING)
            if len(piece.strip(" ,")) > 1
        }

    def holds(self, quote):
        """Whether the program has this text, whole or put together of its texts in a row."""
        quote = " ".join(quote.split())
        if quote in self.whole:
            return True
        return all(self._is_made_of_pieces(part.strip(" ,")) for part in quote.split(CHANGING))

    def _is_made_of_pieces(self, part):
        if len(part) < 2 or part in self.pieces:
            return True
        return any(
            part.startswith(piece) and self._is_made_of_pieces(part[len(piece) :].strip())
            for piece in self.pieces
            if len(piece) > 3
        )

    def shows_word(self, word):
        """Whether a word of a longer text, such as a heading of a report, is this one."""
        word = re.compile(rf"(?<!\w){re.escape(word)}(?!\w)")
        return any(word.search(text) for text in self.whole)


def messages():
    """The sentences that the program says: whole texts that end as a sentence does."""
    found = set()
    for _, code in sources():
        for text in map(as_quoted, literals(code)):
            if re.search(r"\w.*\s.*[.?]$", text) and not text.endswith("..."):
                found.add(text.removeprefix(CHANGING).strip())
    return found


def menu_entries():
    """Menus and their entries, and the buttons that open or do something."""
    found = set()
    for path, code in sources():
        for text in literals(code):
            mnemonic = re.search(r"(^|\S)&\w", text) and not re.search(r"\s&\s", text)
            if mnemonic or (text.endswith("...") and "\n" not in text and len(text) < 40):
                found.add(as_quoted(text))
        if path.name == "ContextMenus.cpp":
            where = r"(?:\badd\w*\((?:\w+,)?|setText\(|[?:{])"
            entry = where + r'\s*QStringLiteral\("([^"]+)"\)'
            found |= set(re.findall(entry, code))
    # The entry with this text is relabelled each time before it shows.
    return found - {"Edit on/Off"}


_MODIFIERS = {"CTRL": "Ctrl", "ALT": "Alt", "SHIFT": "Mayúsculas"}
_KEY_NAMES = {
    "Minus": "−", "Plus": "+", "Tab": "Tab", "Backtab": "Mayúsculas+Tab", "Return": "Intro",
    "Enter": "Intro", "Escape": "Esc", "Home": "Inicio", "End": "Fin", "Left": "Izquierda",
    "Right": "Derecha", "Up": "Arriba", "Down": "Abajo",
}  # fmt: skip
_STANDARD = {
    "Undo": "Ctrl+Z", "Redo": "Ctrl+Mayúsculas+Z", "Copy": "Ctrl+C", "Paste": "Ctrl+V",
    "Delete": "Supr", "Find": "Ctrl+F", "Back": "Alt+Izquierda", "Forward": "Alt+Derecha",
}  # fmt: skip
# The one key that the sources ask for with its modifiers apart.
_APART = {"F10": {"Mayúsculas+F10", "Ctrl+Mayúsculas+F10"}}


def keys():
    """Every key that the program itself acts upon, as the manual names it."""
    found = set()
    chord = re.compile(r"((?:Qt::(?:CTRL|ALT|SHIFT)\s*\|\s*)*)Qt::Key_(\w+)")
    for _, code in sources():
        for modifiers, key in chord.findall(code):
            if key in _APART:
                found |= _APART[key]
                continue
            held = [_MODIFIERS[name] for name in re.findall(r"CTRL|ALT|SHIFT", modifiers)]
            found.add("+".join([*held, _KEY_NAMES.get(key, key)]))
        for name, key in _STANDARD.items():
            if f"QKeySequence::{name}" in code:
                found.add(key)
    return found

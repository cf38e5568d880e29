# SPDX-License-Identifier: GPL-3.0-or-later
"""The single mistakes that tests/reliability/mutants.py plants in sources, and the list of those that
change nothing.

A mistake is found in the text of a source as clang-format leaves it: binary operators stand between
blanks, so that brackets of templates are no comparisons; comments, texts, preprocessor lines and static
assertions are blanked out before anything is looked for.
"""

import dataclasses
import pathlib
import re
from collections.abc import Iterator

from section import blocks_of

SWAPS = {
    "comparación": {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="},
    "aritmética": {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*",
                   "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*="},
    "lógica": {"&&": "||", "||": "&&"},
}
UNSEEN = re.compile(
    r"""//[^\n]*|/\*.*?\*/            # comments
      | "(?:\\.|[^"\\\n])*"           # texts
      | (?<![0-9A-Fa-f])u?'(?:\\.|[^'\\\n])+'    # characters, but no separators of digits
      | ^[ \t]*\#(?:\\\n|[^\n])*      # what the preprocessor reads
      | \bstatic_assert\b[^;]*;
    """,
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)
CONSTANT = re.compile(r"(?<![\w.'])(\d+\.\d*(?:[eE][+-]?\d+)?|\d+(?:[eE][+-]?\d+)?)(?![\w.'])")
CONDITION = re.compile(r"\b(?:if|while) \(")
LOOP = re.compile(r"\b(?:for|while) \(|\bdo \{")
RETURN = re.compile(r"\breturn ([^;{}]+);")
# An assignment, a call or a step, whose left side is one word; so no declaration.
STATEMENT = re.compile(
    r"^[ \t]*([\w.\->\[\]()*]+ [-+*/]?= [^;]*;|(?:\+\+|--)[\w.\->\[\]()]+;|[\w.:\->]+\([^;{}]*\);"
    r"|break;|continue;)$",
    re.MULTILINE,
)
WORDS_OF_DECLARATIONS = ("return", "using", "template", "explicit", "throw", "case", "default")


@dataclasses.dataclass(frozen=True)
class Mutant:
    """One mistake: what of a file is replaced by what, and how it is shown and listed."""

    file: str
    kind: str
    start: int
    end: int
    text: str
    before: str
    after: str

    @property
    def key(self) -> tuple[str, str, str]:
        return self.file, self.before, self.after

    def applied_to(self, source: str) -> str:
        return source[: self.start] + self.text + source[self.end :]


def code_of(source: str) -> str:
    """The source with everything that is no code blanked out, each character in its place."""
    return UNSEEN.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), source)


def closing(code: str, opening: int) -> int:
    """The place of the bracket that closes the one at `opening`."""
    brackets = {"(": ")", "{": "}"}
    left, depth = code[opening], 0
    for place in range(opening, len(code)):
        depth += (code[place] == left) - (code[place] == brackets[left])
        if depth == 0:
            return place
    raise ValueError(f"nothing closes {code[opening:opening + 40]!r}")


def swaps(code: str) -> Iterator[tuple[str, int, int, str]]:
    for kind, pairs in SWAPS.items():
        for operator, other in pairs.items():
            for match in re.finditer(rf"(?<= ){re.escape(operator)}(?=\s)", code):
                yield kind, match.start(), match.end(), other
    for match in re.finditer(r"\+\+|--", code):
        yield "aritmética", match.start(), match.end(), "--" if match.group() == "++" else "++"


def constants(code: str) -> Iterator[tuple[str, int, int, str]]:
    for match in CONSTANT.finditer(code):
        if not re.search(r"(?:<|, )$", code[: match.start()]) or not code[match.end() :].startswith(">"):
            number = match.group()
            for step in (1, -1):
                text = str(int(number) + step) if number.isdigit() else f"({number} {step:+})"
                yield "constante", match.start(), match.end(), text


def conditions(code: str) -> Iterator[tuple[str, int, int, str]]:
    for match in CONDITION.finditer(code):
        end = closing(code, match.end() - 1)
        inner = code[match.end() : end]
        if ";" not in inner and " = " not in inner:
            yield "condición negada", match.end(), end, "!({})"


def dropped_statements(code: str) -> Iterator[tuple[str, int, int, str]]:
    for match in STATEMENT.finditer(code):
        before = code[: match.start()].rstrip()
        starts = not before or before[-1] in ";{}):" or before.endswith("else")
        first_word = re.match(r"\w*", match.group(1)).group()
        if starts and first_word not in WORDS_OF_DECLARATIONS:
            yield "sentencia quitada", match.start(1), match.end(1), ";"


def returned_values(code: str) -> Iterator[tuple[str, int, int, str]]:
    for match in RETURN.finditer(code):
        others = {"true": ("false",), "false": ("true",)}.get(match.group(1), ("{{}}", "({}) + 1"))
        for other in others:
            yield "valor devuelto", match.start(1), match.end(1), other


def early_breaks(code: str) -> Iterator[tuple[str, int, int, str]]:
    for match in LOOP.finditer(code):
        body = body_of(code, match)
        if body is not None:
            end = closing(code, body)
            yield "bucle cortado", end, end, "break; "


def body_of(code: str, loop: re.Match[str]) -> int | None:
    """Where the block of a loop opens; None where it is a single statement."""
    if loop.group().endswith("{"):
        return loop.end() - 1
    block = re.compile(r"\s*\{").match(code, closing(code, loop.end() - 1) + 1)
    return block.end() - 1 if block else None


KINDS = (swaps, constants, conditions, dropped_statements, returned_values, early_breaks)


def line_with(source: str, start: int, end: int) -> str:
    first = source.rfind("\n", 0, start) + 1
    last = source.find("\n", end)
    return " ".join(source[first : len(source) if last < 0 else last].split())


def shown(source: str, code: str, kind: str, start: int, end: int, text: str) -> tuple[str, str]:
    """The lines that a mistake stands in without and with it; those of a loop by its head."""
    if kind == "bucle cortado":
        bodies = ((loop, body_of(code, loop)) for loop in LOOP.finditer(code))
        head = next(loop for loop, body in bodies if body is not None and closing(code, body) == start)
        line = line_with(source, head.start(), head.start())
        return line, line + " ... break; }"
    before = line_with(source, start, end)
    first = source.rfind("\n", 0, start) + 1
    last = source.find("\n", end)
    after = source[first:start] + text + source[end : len(source) if last < 0 else last]
    return before, " ".join(after.split())


def mutants_of(file: str, source: str) -> list[Mutant]:
    """All mistakes that can be planted in a source."""
    code = code_of(source)
    found = []
    for kind_of in KINDS:
        for kind, start, end, text in kind_of(code):
            filled = text.format(source[start:end]) if "{" in text else text
            before, after = shown(source, code, kind, start, end, filled)
            found.append(Mutant(file, kind, start, end, filled, before, after))
    return sorted(found, key=lambda mutant: (mutant.start, mutant.kind, mutant.text))


def listed(path: pathlib.Path) -> dict[tuple[str, str, str], str]:
    """The reasons of a list of mistakes that change nothing: blocks of the file, the line without the
    mistake behind "- ", with it behind "+ ", and the reason, parted by empty lines."""
    reasons = {}
    for block in blocks_of(path):
        file, before, after, *reason = block.splitlines()
        if not (before.startswith("- ") and after.startswith("+ ") and reason):
            raise ValueError(f"{path.name}: an entry without its lines or its reason:\n{block}")
        reasons[file, before[2:], after[2:]] = " ".join(reason)
    return reasons

# SPDX-License-Identifier: GPL-3.0-or-later
"""What the scripts of the sections of docs/fiabilidad.md write and look for alike."""

import dataclasses
import json
import os
import pathlib
import re
import subprocess
import sys
from collections.abc import Iterable, Iterator

ROOT = pathlib.Path(__file__).resolve().parents[2]
TYPED = b" 7.0000000E+0000"  # in a file, what the drivers of the program type into a cell
TEXT, NUMBER = "---", "---:"  # columns of a table
AS_ROOT = ROOT / "tests" / "cmake" / "as_root"


def say(text: str) -> None:
    """Progress, and what was found: beside the section."""
    print(text, file=sys.stderr, flush=True)


def spanish(number: str) -> str:
    """A number as Spanish writes it."""
    return number.replace(".", ",")


def decimal(number: float, digits: int) -> str:
    return spanish(f"{number:.{digits}f}")


def row(cells: Iterable[object]) -> str:
    return f"| {' | '.join(map(str, cells))} |"


def table(columns: dict[str, str], rows: Iterable[Iterable[object]]) -> str:
    """The columns are given by their names, each with its kind."""
    return "\n".join([row(columns), f"|{'|'.join(columns.values())}|", *map(row, rows)])


def blocks_of(path: pathlib.Path) -> Iterator[str]:
    """What stands between the empty lines of a list, without its comments."""
    text = re.sub(r"^#.*\n", "", path.read_text(), flags=re.MULTILINE)
    return filter(None, (block.strip() for block in text.split("\n\n")))


WORDS_OF_MEMORY = 3  # python3 remembered.py MEMORY, before what is remembered


@dataclasses.dataclass(frozen=True)
class UnitTest:
    """A program of unit tests as ctest runs it."""

    name: str
    launcher: list[str]  # that starts the program, such as AS_ROOT; mostly none
    program: pathlib.Path
    own_environment: dict[str, str]

    @property
    def environment(self) -> dict[str, str]:
        return {**os.environ, "LC_ALL": "es_ES.UTF-8", **self.own_environment}


def unit_tests(build: pathlib.Path) -> list[UnitTest]:
    """Those that this build has, built or not."""
    listing = subprocess.run(
        ["ctest", "-L", "^unit$", "--show-only=json-v1"], cwd=build, check=True, capture_output=True
    ).stdout
    return [
        UnitTest(
            test["name"],
            test["command"][WORDS_OF_MEMORY:-1],
            pathlib.Path(test["command"][-1]),
            dict(word.split("=", 1) for property in test["properties"]
                 if property["name"] == "ENVIRONMENT" for word in property["value"]),
        )
        for test in json.loads(listing)["tests"]
    ]  # fmt: skip

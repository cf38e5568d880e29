#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Which lines and branches of each layer the unit tests run.

Builds the preset `coverage`, runs its unit tests and prints a table of the layers. The layers of numbers
and files must have every branch taken both ways, but for those that are listed in unreachable.txt with
the reason why no test can; an entry whose branch is taken meanwhile fails too. Every other layer must
have most of its lines run.

A branch is a condition, or a part of one, in the source: instances of a template count as one.
"""

import collections
import concurrent.futures
import dataclasses
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

from section import NUMBER, ROOT, TEXT, UnitTest, blocks_of, decimal, say, table, unit_tests

BUILD = ROOT / "build" / "coverage"
PROFILES = BUILD / "profiles"
UNREACHABLE = pathlib.Path(__file__).with_name("unreachable.txt")
WHOLE = ("base", "record", "square/file", "stats/numbers", "stats/words")
LEAST_LINES = 90.0
# The unit tests have programs of their own; the one of the users runs in all of tests/program.
NOT_IN_UNIT_TESTS = {"src/shell/main.cpp"}
ROW = re.compile(r"^\| `([\w/]+)` \|", re.MULTILINE)


@dataclasses.dataclass(frozen=True)
class Missing:
    """One way of a branch that no test takes."""

    file: str
    line: int
    condition: str
    way: str

    @property
    def key(self) -> tuple[str, str, str]:
        return self.file, self.condition, self.way


@dataclasses.dataclass
class Layer:
    lines: int = 0
    lines_run: int = 0
    branches: int = 0
    missing: list[Missing] = dataclasses.field(default_factory=list)

    @property
    def lines_share(self) -> float:
        return 100.0 * self.lines_run / self.lines if self.lines else 100.0

    @property
    def branches_share(self) -> float:
        return 100.0 * (1 - len(self.missing) / self.branches) if self.branches else 100.0


def build_and_run() -> list[pathlib.Path]:
    """Builds the unit tests, runs them, and gives their programs."""
    say("== Se compilan las pruebas con cuenta de ramas")
    script = "source tools/packages.sh && configure_and_build coverage unit_tests"
    subprocess.run(["bash", "-c", script], cwd=ROOT, check=True, stdout=sys.stderr)
    tests = unit_tests(BUILD)
    shutil.rmtree(PROFILES, ignore_errors=True)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        passed = list(pool.map(passes, tests))
    failed = [test.name for test, well in zip(tests, passed) if not well]
    if failed:
        sys.exit(f"no pasan: {', '.join(failed)}")
    return [test.program for test in tests]


def passes(test: UnitTest) -> bool:
    """Runs a test, without the limit of time that it has as an ordinary one."""
    say(f"== Se corre {test.name}")
    environment = {**test.environment, "LLVM_PROFILE_FILE": f"{PROFILES}/{test.name}.%p.profraw"}
    run = subprocess.run([*test.launcher, test.program, "--gtest_brief=1"], cwd=BUILD,
                         env=environment, stdout=sys.stderr, check=False)
    return run.returncode == 0


def exported(programs: list[pathlib.Path]) -> list[dict]:
    """What LLVM counted in each file of the sources."""
    merged = BUILD / "all.profdata"
    profiles = sorted(PROFILES.glob("*.profraw"))
    subprocess.run(["llvm-profdata-14", "merge", "-sparse", "-o", merged, *profiles], check=True)
    objects = [word for program in programs[1:] for word in ("-object", program)]
    text = subprocess.run(
        ["llvm-cov-14", "export", "-format=text", f"-instr-profile={merged}",
         programs[0], *objects, ROOT / "src"],
        check=True, capture_output=True).stdout
    return json.loads(text)["data"][0]["files"]


def text_between(lines: list[str], start: tuple[int, int], end: tuple[int, int]) -> str:
    """The source from one place to another, both counted from 1, on one line."""
    part = lines[start[0] - 1 : end[0]]
    part[-1] = part[-1][: end[1] - 1]
    part[0] = part[0][start[1] - 1 :]
    return " ".join(" ".join(part).split())


def missing_in(file: str, branches: list[list[int]]) -> tuple[int, list[Missing]]:
    """The ways of a file's branches, and those that nothing takes."""
    lines = (ROOT / file).read_text().splitlines()
    ways: dict[tuple[int, ...], list[int]] = collections.defaultdict(lambda: [0, 0])
    for *place, taken, not_taken, _, _, _ in branches:
        ways[tuple(place)][0] += taken
        ways[tuple(place)][1] += not_taken
    missing, count = [], 0
    for place, taken in sorted(ways.items()):
        condition = text_between(lines, place[:2], place[2:])
        if condition == "true":  # decided by the compiler
            continue
        count += 2
        for way, times in zip(("verdadero", "falso"), taken):
            if times == 0:
                missing.append(Missing(file, place[0], condition, way))
    return count, missing


def layer_names() -> list[str]:
    return ROW.findall((ROOT / "docs" / "architecture.md").read_text())


def layers_of(files: list[dict]) -> dict[str, Layer]:
    layers = {name: Layer() for name in layer_names()}
    for entry in files:
        file = pathlib.Path(entry["filename"]).relative_to(ROOT)
        layer = layers[str(file.parent.relative_to("src"))]
        layer.lines += entry["summary"]["lines"]["count"]
        layer.lines_run += entry["summary"]["lines"]["covered"]
        count, missing = missing_in(str(file), entry["branches"])
        layer.branches += count
        layer.missing += missing
    return layers


def never_linked(files: list[dict]) -> list[str]:
    seen = {str(pathlib.Path(entry["filename"]).relative_to(ROOT)) for entry in files}
    sources = {str(path.relative_to(ROOT)) for path in (ROOT / "src").rglob("*.cpp")}
    return sorted(sources - seen - NOT_IN_UNIT_TESTS)


def listed(path: pathlib.Path) -> dict[tuple[str, str, str], str]:
    """The reasons of a list of branches: blocks of the file, the condition, the way that is not taken and
    the reason, a line each, parted by empty lines."""
    reasons = {}
    for block in blocks_of(path):
        file, condition, way, *reason = block.splitlines()
        if way not in ("verdadero", "falso") or not reason:
            raise ValueError(f"{path.name}: an entry without its way or its reason:\n{block}")
        reasons[file, condition, way] = " ".join(reason)
    return reasons


def complaints(layers: dict[str, Layer], reasons: dict[tuple[str, str, str], str]) -> list[str]:
    found = []
    for name, layer in layers.items():
        if name not in WHOLE:
            if layer.lines_share < LEAST_LINES:
                found.append(f"{name}: las pruebas corren el {layer.lines_share:.1f} % de las líneas")
            continue
        found += [f"{branch.file}:{branch.line}: `{branch.condition}` nunca es {branch.way}"
                  for branch in layer.missing if branch.key not in reasons]
    missing = {branch.key for name in WHOLE for branch in layers[name].missing}
    found += [f"{UNREACHABLE.name}: ya se alcanza, o ya no está: {key}" for key in reasons
              if key not in missing]
    return found


def figures(layers: dict[str, Layer]) -> str:
    columns = {"Capa": TEXT, **dict.fromkeys(["Líneas", "Corridas", "Ramas", "Tomadas", "Sin tomar"], NUMBER)}
    return table(columns, (
        [f"`{name}`", layer.lines, percent(layer.lines_share), layer.branches, percent(layer.branches_share),
         len(layer.missing)]
        for name, layer in layers.items()
    ))


def percent(share: float) -> str:
    return f"{decimal(share, 1)} %"


def main() -> int:
    files = exported(build_and_run())
    layers = layers_of(files)
    reasons = listed(UNREACHABLE)
    found = complaints(layers, reasons) + [f"{name}: ninguna prueba lo enlaza"
                                           for name in never_linked(files)]
    print(INTRODUCTION.format(table=figures(layers)))
    for (file, condition, way), reason in reasons.items():
        print(f"- `{file}`: `{condition}` nunca es {way}. {reason}")
    for complaint in found:
        say(complaint)
    return 1 if found else 0


INTRODUCTION = """\
Las pruebas de las capas, compiladas con la cuenta de líneas y ramas de clang, corren una vez cada una. Una rama es
una condición, o parte de una, como está escrita: está tomada cuando unas pruebas la encontraron verdadera y otras
falsa, así que cuenta dos veces. De los cálculos, los números y los archivos (`base`, `record`, `square/file`, `stats`)
se exigen todas las ramas que pueden alcanzarse; de las demás capas, el 90 % de las líneas. `main.cpp` no está aquí: lo
corren las pruebas que manejan el programa, todas ellas.

{table}

Ramas de aquellas capas que ninguna prueba toma, cada una con su motivo:
"""

if __name__ == "__main__":
    sys.exit(main())

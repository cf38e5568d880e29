#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The unit tests of build/dev under valgrind's memcheck: memory that is read before it is written, used
after it was given back, or lost.

    memcheck.py [TEST...]

TEST is a name of ctest's; without any, all of them. Two run at a time. What memcheck and a test with errors
said is kept in build/memcheck.
"""

import concurrent.futures
import dataclasses
import os
import re
import subprocess
import sys
import time

from section import NUMBER, ROOT, TEXT, UnitTest, decimal, say, table, unit_tests

LOGS = ROOT / "build" / "memcheck"
SUPPRESSIONS = ROOT / "tests" / "reliability" / "memcheck.supp"
AT_ONCE = 2
FOUND = 99

# Single cases, by the test that they belong to, with the reason: those that take minutes under memcheck,
MANY_SQUARES = "Repite con miles de cuadrados, durante minutos, lo que otros casos hacen con unos cuantos."
LEFT_OUT: dict[str, dict[str, str]] = {
    "stats.numbers": {
        f"Orders/{test}OfOrder.PropertiesOnRandomSquares/{place}": MANY_SQUARES  # of the orders from 4 on
        for test in ("Sequences", "Zimmerman") for place in (1, 2, 3)
    },
    "stats.words": {"FTest.EveryNumberIsTheExactOneRoundedOnce": MANY_SQUARES},
}
# and those that fail under it and nowhere else, because it computes numbers of 80 bits with 64.
FAIL_UNDER_VALGRIND: dict[str, dict[str, str]] = {
    "chart.scale": {
        "AxisRange.FarFromZeroTheBoundsStillDiffer":
            "Los límites más próximos que se admiten ahí son iguales con 64 bits.",
        "AxisRange.KeepsTenBillionthsAtAMillion": "Una diezmilmillonésima junto a un millón no cabe en 64 bits.",
        "AxisScale.NarrowRangeFarFromZeroLosesNoPixels": "Una diezmilmillonésima junto a un millón no cabe en 64 bits.",
        "ChartViewTest.AViewOfTheLeastWidthIsGoneBackToToItsLastDigit":
            "El redondeo del que trata, el de la última cifra de 80 bits, no se da con 64.",
        "LinearTicks.TenBillionthsAtAMillionHaveTicks": "Una diezmilmillonésima junto a un millón no cabe en 64 bits.",
        "TickStep.IsTheLargestRoundStepWithEnoughIntervals":
            "El paso se compara con más cifras que las que 64 bits guardan en la cuenta.",
    },
    "chart.control": {
        "RChart.FitContainsTheDataAtTheEndsOfTheDoubles":
            "El rango alrededor de un dato tan grande es más estrecho que lo que 64 bits distinguen.",
        "RChart.ZoomedToTheLastDigitsItStillHasTicksAndLabels":
            "Las marcas distan menos de lo que 64 bits distinguen.",
        "RandomCalls.NeitherCrashNorHangNorBreakTheRanges":
            "Con 64 bits un rango de unas últimas cifras queda vacío.",
    },
}  # fmt: skip


@dataclasses.dataclass
class Result:
    test: str
    cases: int
    failed: set[str]
    errors: int
    minutes: float
    ended: bool  # It ran to its end.

    @property
    def failed_unexpectedly(self) -> set[str]:
        return self.failed - FAIL_UNDER_VALGRIND.get(self.test, {}).keys()

    @property
    def is_sound(self) -> bool:
        return self.ended and self.cases > 0 and self.errors == 0 and not self.failed_unexpectedly


def number(pattern: str, text: str) -> int:
    found = re.findall(pattern, text)
    return int(found[-1].replace(",", "")) if found else 0


def cases_of(test: UnitTest) -> set[str]:
    listing = subprocess.run([test.program, "--gtest_list_tests"], env=test.environment, check=True,
                             capture_output=True, text=True).stdout
    cases, suite = set(), ""
    for line in listing.splitlines():
        name = line.partition("#")[0].strip()
        if line.startswith("  "):
            cases.add(suite + name)
        else:
            suite = name
    return cases


def run(test: UnitTest) -> Result:
    log = LOGS / f"{test.name}.log"
    command = [
        *test.launcher,
        "valgrind", f"--error-exitcode={FOUND}", "--leak-check=full", "--show-leak-kinds=definite",
        "--errors-for-leak-kinds=definite", "--num-callers=30", "--child-silent-after-fork=yes",
        "--error-limit=no", "--soname-synonyms=somalloc=nouserintercepts",  # tests have their own operator new
        f"--suppressions={SUPPRESSIONS}", f"--log-file={log}", test.program,
        f"--gtest_filter=*-{':'.join(LEFT_OUT.get(test.name, {}))}",
    ]  # fmt: skip
    # What expressions are compiled to as the program runs reads whole words across the end of a text.
    environment = {**test.environment, "QT_ENABLE_REGEXP_JIT": "0"}
    say(test.name)
    said = log.with_suffix(".out")
    with said.open("w") as output:
        process = subprocess.Popen(command, stdout=output, stderr=output, env=environment)
        _, status, used = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
    output, told = said.read_text(errors="replace"), log.read_text(errors="replace")
    cases = number(r"\[==========\] ([\d]+) tests? from .* ran", output)
    result = Result(
        test.name,
        cases,
        set(re.findall(r"^\[  FAILED  \] (\S+\.\S+?)(?:,| \(|$)", output, re.MULTILINE)),
        number(r"ERROR SUMMARY: ([\d,]+) errors", told),
        (used.ru_utime + used.ru_stime) / 60,
        cases > 0 and "ERROR SUMMARY" in told and process.returncode in (0, 1, FOUND),
    )
    if result.is_sound:
        log.unlink()
        said.unlink()
    return result


def figures(result: Result) -> list[object]:
    return [f"`{result.test}`", result.cases, len(result.failed), result.errors, decimal(result.minutes, 1)]


def listed(cases: dict[str, dict[str, str]], results: list[Result]) -> list[str]:
    return [
        f"- `{result.test}`: `{case}`. {why}"
        for result in results
        for case, why in cases.get(result.test, {}).items()
    ]


def body(results: list[Result], clock_minutes: float) -> str:
    version = subprocess.run(
        ["valgrind", "--version"], capture_output=True, text=True, check=True
    ).stdout.strip()
    suppressed = len(re.findall(r"^\{", SUPPRESSIONS.read_text(), re.MULTILINE))
    paragraphs = [
        f"""Los {len(results)} programas de pruebas de `build/dev` (gcc, optimizado) corrieron bajo {version}, que vigila cada
lectura de memoria sin definir, cada acceso fuera de lugar o a lo devuelto, y cada bloque perdido sin remedio. Las
expresiones regulares se interpretaron en vez de compilarse al vuelo. Tomó {clock_minutes:.0f} minutos de reloj."""
    ]
    if suppressed:
        paragraphs[0] += f"""
Lo que es de las bibliotecas, y no del programa, está en `tests/reliability/memcheck.supp`, con su razón: {suppressed}
{"entrada" if suppressed == 1 else "entradas"}."""
    if left_out := listed(LEFT_OUT, results):
        paragraphs.append("\n".join(["No se corrieron:", "", *left_out]))
    expected = {
        result.test: {case: why for case, why in FAIL_UNDER_VALGRIND.get(result.test, {}).items()
                      if case in result.failed}
        for result in results
    }  # fmt: skip
    if failed := listed(expected, results):
        paragraphs.append("\n".join([
            "No pasan ahí, aunque no es la memoria: valgrind calcula con 64 bits los números de 80 de la gráfica:", "",
            *failed,
        ]))
    columns = {"Prueba": TEXT, "Casos": NUMBER, "No pasan": NUMBER, "Errores de memoria": NUMBER,
               "Minutos de procesador": NUMBER}
    paragraphs.append(table(columns, map(figures, results)))
    return "\n\n".join(paragraphs)


def complaints(results: list[Result]) -> list[str]:
    found = []
    for result in results:
        logs = f"vea {LOGS.relative_to(ROOT)}/{result.test}.log y .out"
        if not result.ended:
            found.append(f"{result.test}: no llegó a su fin; {logs}")
        if result.errors:
            found.append(f"{result.test}: {result.errors} errores de memoria; {logs}")
        if result.failed_unexpectedly:
            found.append(f"{result.test}: no pasan {sorted(result.failed_unexpectedly)}; {logs}")
    return found


def stale(tests: list[UnitTest]) -> list[str]:
    """Entries of the lists above that name nothing any more."""
    found = []
    for test in tests:
        named = {**LEFT_OUT.get(test.name, {}), **FAIL_UNDER_VALGRIND.get(test.name, {})}
        if named:
            found += [f"{test.name}: no hay {case}" for case in named.keys() - cases_of(test)]
    return found


def main(arguments: list[str]) -> int:
    tests = unit_tests(ROOT / "build" / "dev")
    names = {test.name for test in tests}
    if unknown := {*arguments, *LEFT_OUT, *FAIL_UNDER_VALGRIND} - names:
        sys.exit(f"no hay prueba {', '.join(sorted(unknown))}")
    chosen = [test for test in tests if not arguments or test.name in arguments]
    if found := stale(chosen):
        sys.exit("\n".join(found))
    LOGS.mkdir(parents=True, exist_ok=True)
    began = time.monotonic()
    with concurrent.futures.ThreadPoolExecutor(AT_ONCE) as pool:
        results = list(pool.map(run, chosen))
    print(body(results, (time.monotonic() - began) / 60))
    found = complaints(results)
    for complaint in found:
        say(complaint)
    return 0 if results and not found else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Random inputs for what reads foreign data and for the chart, by libFuzzer under the sanitizers.

    fuzzing.py [--corto] [PROGRAM...]

PROGRAM is one of those that tests/fuzz builds; without any, all of build/asan. Each has an hour, or the
seconds of CL_FUZZ_SECONDS; --corto 20 seconds. They run at the same time, each from a copy of its inputs in
tests/fuzz/corpus and a seed of its own. An input that fails is kept in build/fuzzing.
"""

import concurrent.futures
import dataclasses
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

from section import NUMBER, ROOT, TEXT, decimal, table

PROGRAMS = ROOT / "build" / "asan" / "bin"
PREFIX = "fuzz_"
CORPUS = ROOT / "tests" / "fuzz" / "corpus"
FINDINGS = ROOT / "build" / "fuzzing"

# What each target is given and the longest input, in bytes.
TARGETS = {
    "square_file": ("archivo del cuadrado", 4096),
    "typed_number": ("número escrito", 2500),
    "clipboard": ("portapapeles", 4096),
    "chart": ("gráfica", 1024),
}
# What the log says of a run that came to its end: executions, kept inputs, edges of the code's graph of
# jumps, the slowest input in seconds, the most memory in megabytes.
FIGURES = (
    r"^stat::number_of_executed_units: +(\d+)",
    r"DONE .*corp: (\d+)/",
    r"DONE +cov: (\d+)",
    r"^slowest_input_seconds: ([\d.]+)",
    r"^stat::peak_rss_mb: +(\d+)",
)
COLUMNS = {
    "Entrada": TEXT, "Ejecuciones": NUMBER, "Minutos de reloj": NUMBER, "Minutos de procesador": NUMBER,
    "Entradas guardadas": NUMBER, "Aristas recorridas": NUMBER, "La más lenta, s": NUMBER, "Memoria, MB": NUMBER,
}  # fmt: skip
AT_ONCE = 4
MOST_MEGABYTES = 512
# By the clock, so that it only ends what hangs: a target itself fails on a second of the processor.
HANGS = 120


@dataclasses.dataclass
class Result:
    target: str
    found: bool
    log: str
    minutes: float
    processor_minutes: float

    def figure(self, pattern):
        """What the last line that fits says; nothing where none does."""
        return (re.findall(pattern, self.log, re.MULTILINE) or [""])[-1]

    def figures(self):
        return [self.figure(pattern) for pattern in FIGURES]

    def failed(self):
        """A finding, or a run that did not say what it did."""
        return self.found or not all(self.figures()) or int(self.figures()[0]) == 0


def run(program, seconds, seed, folder):
    """One run of a target; its log is beside its inputs."""
    target = program.name.removeprefix(PREFIX)
    inputs = folder / target
    shutil.copytree(CORPUS / target, inputs)
    kept = FINDINGS / target
    shutil.rmtree(kept, ignore_errors=True)
    kept.mkdir(parents=True)
    # Leaks are looked for once, at the end: after each input it takes as long as all else.
    command = [
        program, f"-max_total_time={seconds}", f"-max_len={TARGETS[target][1]}",
        f"-seed={seed}", f"-rss_limit_mb={MOST_MEGABYTES}", f"-timeout={HANGS}",
        "-print_final_stats=1", "-detect_leaks=0", f"-artifact_prefix={kept}/", inputs,
    ]
    # Freed memory that the sanitizer holds back to catch later uses of it counts as used.
    environment = {**os.environ, "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen",
                   "ASAN_OPTIONS": "quarantine_size_mb=64"}
    print(f"{target}: {seconds} s, -seed={seed}", file=sys.stderr, flush=True)
    began = time.monotonic()
    log = folder / f"{target}.log"
    with log.open("w") as output:
        process = subprocess.Popen(command, stdout=output, stderr=output, env=environment)
        _, status, used = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
    minutes = (time.monotonic() - began) / 60
    text = log.read_text(errors="replace")
    (kept / "log.txt").write_text(text)
    return Result(target, process.returncode != 0, text, minutes,
                  (used.ru_utime + used.ru_stime) / 60)


def row(result):
    executions, kept, edges, slowest, megabytes = result.figures()
    return [
        TARGETS[result.target][0],
        executions,
        decimal(result.minutes, 1),
        decimal(result.processor_minutes, 1),
        kept,
        edges,
        decimal(float(slowest), 3),
        megabytes,
    ]


def body(results, seconds):
    length = f"{seconds // 60} minutos" if seconds >= 120 else f"{seconds} segundos"
    return f"""Cada programa de `tests/fuzz` recibió durante {length} entradas hechas al azar con libFuzzer, que guarda las
que recorren caminos nuevos y las vuelve a cambiar, con AddressSanitizer y UndefinedBehaviorSanitizer atentos a
cada acceso a memoria y a cada cuenta sin resultado definido. Además de no caerse, cada entrada debe cumplir
lo prometido: lo que se guarda vuelve igual, un número se lee igual en todo país, un experimento conserva
cada observación con su fila, su columna y su tratamiento, lo que se rechaza tiene su motivo y la gráfica
conserva rangos, marcas y letreros que se pueden dibujar. Ninguna entrada falló, ni tardó más de 1 s de
procesador, ni ocupó más de {MOST_MEGABYTES} MB.

""" + table(COLUMNS, map(row, results))


def main(arguments):
    short = "--corto" in arguments
    named = [pathlib.Path(name) for name in arguments if name != "--corto"]
    programs = named or [PROGRAMS / f"{PREFIX}{target}" for target in TARGETS]
    seconds = 20 if short else int(os.environ.get("CL_FUZZ_SECONDS", "3600"))
    with tempfile.TemporaryDirectory() as folder:
        with concurrent.futures.ThreadPoolExecutor(AT_ONCE) as pool:
            results = list(pool.map(
                lambda one: run(one, seconds, random.randrange(1, 2**31), pathlib.Path(folder)),
                programs,
            ))
    failed = [result for result in results if result.failed()]
    for result in failed:
        said = result.figure(r"^(?:Does not hold: .*|.*SUMMARY: .*)$") or "no llegó a su fin"
        print(f"{result.target}: {said}; véase {FINDINGS / result.target}", file=sys.stderr)
    if failed:
        return 1
    print(body(results, seconds))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

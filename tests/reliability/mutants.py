#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Plants single mistakes in the layers of numbers and files, and fails on one that no test notices.

    mutants.py [SEED...] [--keep]

For each seed a hundred mistakes of tests/reliability/mutations.py are drawn, each kind as often as the
others. Each is planted in a copy of the tree under build/mutants, built and run against the unit tests
that know these layers without a window. A mistake that does not compile is replaced by the next one.
Those that change nothing are listed, with the reason, in equivalent_mutants.txt; those of which the
compiler makes the very same programs are not looked at any further.

At the start and after every fifty mistakes the tests run without any, and fail the section where they
do not pass: tests that fail anyway would notice everything.

The draw depends on the seed and the lines alone: a line that changes changes no other mistake. What
was found stays in build/mutants while neither sources nor tests change, so that a run that was stopped
goes on where it was, less the mistakes after which the tests did not run without any; with --keep also
when sources or tests did change, to work on those that are left.
"""

import collections
import concurrent.futures
import hashlib
import json
import os
import pathlib
import queue
import re
import resource
import shutil
import signal
import subprocess
import sys
import threading
import time
from collections.abc import Callable, Sequence

import mutations
from mutations import Mutant
from section import AS_ROOT, ROOT, row as table_row

TREE = ROOT / "build" / "mutants"
EQUIVALENTS = pathlib.Path(__file__).with_name("equivalent_mutants.txt")
LAYERS = ("src/base", "src/record", "src/square/file", "src/stats")
COPIED = ("CMakeLists.txt", "cmake", "src", "tests", "bench", "packaging", "docs", "ejemplos")
# Those of a layer's own folder first; then those of the layers that use it.
PROGRAMS = (
    "base.field_lines", "base.file_text", "base.foreign_marks", "base.number_text", "base.safe_file",
    "base.short_text", "base.table_text", "record", "square.file", "stats.numbers", "stats.words",
    "experiment", "power.study",
)
SEEDS = (1,)
DRAWN = 100
WORKERS = 2
BETWEEN_CHECKS = 50
SLOWEST = 900  # seconds for a program of tests that waits without computing
MEMORY = 6 << 30
CONFIGURATION = (
    "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_COMPILER=g++",
    "-DCMAKE_CXX_FLAGS_DEBUG=-O1 -D_GLIBCXX_ASSERTIONS", "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld",
)

KILLED, SAME, SURVIVED, BROKEN = "muerto", "el mismo programa", "vivo", "no compila"


def say(text: str) -> None:
    print(f"{time.strftime('%H:%M:%S')} {text}", file=sys.stderr, flush=True)


def target(program: str) -> str:
    return "test_" + program.replace(".", "_")


class Workshop:
    """A copy of the tree with a build of its own, where one mistake at a time is planted."""

    def __init__(self, number: int):
        self.source = TREE / str(number) / "source"
        self.build = TREE / str(number) / "build"
        self.scratch = TREE / str(number) / "scratch"
        self.programs: dict[str, str] = {}  # their digests without a mistake
        self.seconds: dict[str, float] = {}  # of the processor, without a mistake

    def prepare(self) -> None:
        """Builds and tests the tree without a mistake, once."""
        if self.programs:
            return
        self.scratch.mkdir(parents=True, exist_ok=True)
        say(f"se prepara {self.build.relative_to(ROOT)}")
        for name in COPIED:
            update(ROOT / name, self.source / name)
        subprocess.run(["cmake", "-S", self.source, "-B", self.build, *CONFIGURATION],
                       check=True, stdout=subprocess.DEVNULL)
        if not self.compiles():
            sys.exit(f"{self.build}: no compila sin ningún error sembrado")
        self.programs = {program: self.digest(program) for program in PROGRAMS}
        self.must_pass()

    def check(self) -> None:
        """Whether all is again as it was before the mistakes."""
        if not self.compiles():
            sys.exit(f"{self.build}: ya no compila sin ningún error sembrado")
        for program in PROGRAMS:
            if self.digest(program) != self.programs[program]:
                sys.exit(f"{program}: ya no es el mismo programa sin ningún error sembrado")
        self.must_pass()

    def must_pass(self) -> None:
        say(f"se prueba {self.build.relative_to(ROOT)} sin ningún error sembrado")
        for program in PROGRAMS:
            if failure := self.failure_of(program):
                sys.exit(f"{program}: falla sin ningún error sembrado: {failure}")

    def compiles(self, programs: Sequence[str] = PROGRAMS) -> bool:
        built = subprocess.run(["ninja", "-C", self.build, "-j1", *map(target, programs)],
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)
        return built.returncode == 0

    def digest(self, program: str) -> str:
        return hashlib.sha256((self.build / "bin" / target(program)).read_bytes()).hexdigest()

    def failure_of(self, program: str) -> str:
        """What a program of tests noticed; empty where it passes."""
        limit = 10 + int(5 * self.seconds[program]) if program in self.seconds else SLOWEST

        def limited() -> None:
            resource.setrlimit(resource.RLIMIT_CPU, (limit, limit + 5))
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        environment = dict(os.environ, LC_ALL="es_ES.UTF-8", QT_QPA_PLATFORM="offscreen")
        run = subprocess.Popen(
            [AS_ROOT, self.build / "bin" / target(program), "--gtest_fail_fast", "--gtest_brief=1"],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, cwd=self.scratch, env=environment,
            preexec_fn=limited, start_new_session=True,
        )
        patience = threading.Timer(SLOWEST, os.killpg, (run.pid, signal.SIGKILL))
        patience.start()
        with run.stdout:
            output = run.stdout.read().decode(errors="replace")
        _, status, usage = os.wait4(run.pid, 0)
        patience.cancel()
        run.returncode = os.waitstatus_to_exitcode(status)
        self.seconds.setdefault(program, usage.ru_utime + usage.ru_stime)
        if run.returncode == 0:
            return ""
        if run.returncode in (-signal.SIGXCPU, -signal.SIGKILL):
            return f"{program} no termina"
        failed = re.search(r"\[  FAILED  \] ([\w.]+/?\w*)", output)
        return f"{program} {failed.group(1) if failed else 'se cae'}"

    def verdict(self, mutant: Mutant) -> tuple[str, str]:
        """What became of a mistake, and what noticed it."""
        path = self.source / mutant.file
        original = path.read_text()
        path.write_text(mutant.applied_to(original))
        try:
            changed = False
            for programs in in_order(mutant):
                if not self.compiles(programs):
                    return BROKEN, ""
                for program in programs:
                    if self.digest(program) != self.programs[program]:
                        changed = True
                        failure = self.failure_of(program)
                        if failure:
                            return KILLED, failure
            return (SURVIVED if changed else SAME), ""
        finally:
            path.write_text(original)


def in_order(mutant: Mutant) -> list[list[str]]:
    """The programs of tests in three groups: that of the very file, those of its layer, the others."""
    path = pathlib.Path(mutant.file)
    layer = ".".join(path.parent.parts[1:])
    own = layer + "." + re.sub(r"(?<=[a-z])(?=[A-Z])", "_", path.stem).lower()
    groups: list[list[str]] = [[], [], []]
    for program in PROGRAMS:
        groups[0 if program == own else 1 if program.startswith(layer) else 2].append(program)
    return [group for group in groups if group]


def update(source: pathlib.Path, copy: pathlib.Path) -> None:
    """Makes the copy the same; files that are the same already keep their age."""
    if source.is_file():
        if not copy.is_file() or copy.read_bytes() != source.read_bytes():
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, copy)
        return
    copy.mkdir(parents=True, exist_ok=True)
    names = {path.name for path in source.iterdir() if path.name != "__pycache__"}
    for name in names:
        update(source / name, copy / name)
    for path in copy.iterdir():
        if path.name not in names:
            shutil.rmtree(path) if path.is_dir() else path.unlink()


def state() -> str:
    """A digest of everything that a verdict depends on."""
    total = hashlib.sha256()
    for name in ("src", "tests", "cmake"):
        for path in sorted((ROOT / name).rglob("*")):
            if path.is_file() and path.suffix in (".cpp", ".h", ".txt", ".cmake"):
                if path != EQUIVALENTS:
                    total.update(f"{path}\n".encode() + path.read_bytes())
    return total.hexdigest()


def drawn(seed: int) -> list[Mutant]:
    """All mistakes in the order of the draw, the kinds in turn."""
    kinds = collections.defaultdict(list)
    for layer in LAYERS:
        for path in sorted((ROOT / layer).rglob("*")):
            if path.suffix in (".cpp", ".h"):
                for mutant in mutations.mutants_of(str(path.relative_to(ROOT)), path.read_text()):
                    kinds[mutant.kind].append(mutant)

    def lot(mutant: Mutant) -> bytes:
        return hashlib.sha256(repr((seed, mutant.kind, *mutant.key)).encode()).digest()

    for mutants in kinds.values():
        mutants.sort(key=lot)
    turns = max(map(len, kinds.values()))
    return [mutants[turn] for turn in range(turns) for _, mutants in sorted(kinds.items())
            if turn < len(mutants)]


class Findings:
    """What became of the mistakes of a seed, kept in a file."""

    def __init__(self, seed: int, now: str, keep: bool):
        self.path = TREE / f"seed-{seed}.json"
        found = json.loads(self.path.read_text()) if self.path.is_file() else {}
        same = found.get("state") == now
        self.verdicts = {
            tuple(entry[0]): tuple(entry[1])
            for entry in found.get("verdicts", [])
            if same or (keep and entry[1][0] != SURVIVED)
        }
        self.state = now

    def of(self, mutant: Mutant) -> tuple[str, str] | None:
        return self.verdicts.get((*mutant.key, mutant.start))

    def add(self, mutant: Mutant, verdict: tuple[str, str]) -> None:
        self.verdicts[(*mutant.key, mutant.start)] = verdict

    def save(self) -> None:
        text = json.dumps({"state": self.state, "verdicts": list(self.verdicts.items())})
        self.path.write_text(text)


class Yard:
    """All the workshops, which judge at the same time."""

    def __init__(self) -> None:
        self.workshops = [Workshop(number) for number in range(1, WORKERS + 1)]
        self.free: queue.Queue[Workshop] = queue.Queue()
        for workshop in self.workshops:
            self.free.put(workshop)

    def each(self, work: Callable[[Workshop], None]) -> None:
        with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
            list(pool.map(work, self.workshops))

    def judge(self, mutant: Mutant) -> tuple[Mutant, tuple[str, str]]:
        workshop = self.free.get()
        try:
            return mutant, workshop.verdict(mutant)
        finally:
            self.free.put(workshop)

    def judge_all(self, mutants: list[Mutant], findings: Findings) -> None:
        """What was found counts once the tests have passed without a mistake before and after."""
        if not mutants:
            return
        self.each(Workshop.prepare)
        with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
            for judged in concurrent.futures.as_completed([pool.submit(self.judge, m) for m in mutants]):
                mutant, verdict = judged.result()
                findings.add(mutant, verdict)
                say(f"{verdict[0]}: {mutant.file} ({mutant.kind}; {verdict[1]})\n"
                    f"    - {mutant.before}\n    + {mutant.after}")
        self.each(Workshop.check)
        findings.save()


def tried(seed: int, yard: Yard, findings: Findings) -> list[Mutant]:
    """The mistakes of a seed that compile, each with its verdict among the findings."""
    order = iter(drawn(seed))
    chosen: list[Mutant] = []
    while len(chosen) < DRAWN:
        batch = [next(order) for _ in range(DRAWN - len(chosen))]
        new = sorted((mutant for mutant in batch if not findings.of(mutant)), key=lambda m: m.file)
        for start in range(0, len(new), BETWEEN_CHECKS):
            yard.judge_all(new[start : start + BETWEEN_CHECKS], findings)
        chosen += [mutant for mutant in batch if findings.of(mutant)[0] != BROKEN]
    return chosen


def section_of(seed: int, mutants: list[Mutant], findings: Findings, reasons) -> tuple[str, int]:
    """A row of figures, the reasons of those that change nothing, and how many are left."""
    verdicts = collections.Counter()
    killers = collections.Counter()
    lines = []
    for mutant in mutants:
        verdict, by = findings.of(mutant)
        if verdict == SURVIVED and mutant.key in reasons:
            verdicts["igual"] += 1
            lines.append(f"- `{mutant.file}`: `{mutant.after}`. {reasons[mutant.key]}")
            continue
        verdicts[verdict] += 1
        if verdict == KILLED:
            killers[by.split()[0]] += 1
        if verdict == KILLED and mutant.key in reasons:
            say(f"se da por igual, y {by} lo nota: {mutant.file}: {mutant.after}")
        if verdict == SURVIVED:
            print(f"vivo: {mutant.file} ({mutant.kind})\n    - {mutant.before}\n    + {mutant.after}",
                  file=sys.stderr)
    broken = sum(1 for verdict in findings.verdicts.values() if verdict[0] == BROKEN)
    row = table_row([seed, len(mutants), broken, verdicts[KILLED], verdicts[SAME], verdicts["igual"],
                     verdicts[SURVIVED]])
    killed_by = ", ".join(f"{name} {count}" for name, count in killers.most_common())
    return "\n".join([row, killed_by, *lines]), verdicts[SURVIVED]


def main(arguments: list[str]) -> int:
    seeds = [int(word) for word in arguments if word.isdigit()] or list(SEEDS)
    TREE.mkdir(parents=True, exist_ok=True)
    os.nice(10)
    now = state()
    reasons = mutations.listed(EQUIVALENTS)
    yard = Yard()
    rows, details, left = [], [], 0
    for seed in seeds:
        findings = Findings(seed, now, "--keep" in arguments)
        mutants = tried(seed, yard, findings)
        text, alive = section_of(seed, mutants, findings, reasons)
        row, killed_by, *lines = text.split("\n")
        rows.append(row)
        details += [f"Semilla {seed}: notaron los errores {killed_by}.", "", *lines, ""]
        left += alive
    print(INTRODUCTION + "\n".join(rows) + "\n\n" + "\n".join(details))
    return 1 if left else 0


INTRODUCTION = """\
De todos los errores de un solo lugar que pueden sembrarse en los cálculos, los números y los archivos (`src/stats`,
`src/base`, `src/record`, `src/square/file`) se sortean cien por semilla, tantos de cada clase: una comparación por su
vecina o su contraria, una operación por otra, una constante con uno más o uno menos, «y» por «o», una condición
negada, una sentencia quitada, otro valor devuelto, un bucle que da una sola vuelta. Cada uno se siembra solo en una
copia del código, que se compila y corre las pruebas de esas capas y de las que las usan sin ventanas; el que no compila
se cambia por el siguiente del sorteo. «Mismo programa»: el compilador hace con el error, byte por byte, los mismos
programas de prueba. «Sin efecto»: nada de lo que cambia puede verse, por el motivo que se da abajo. «Vivos»: los que
ninguna prueba notó, que deben ser 0. Sin ningún error sembrado las mismas pruebas corrieron al comienzo y cada
cincuenta errores, y pasaron siempre.

| Semilla | Errores | No compilaban | Notados | Mismo programa | Sin efecto | Vivos |
|---:|---:|---:|---:|---:|---:|---:|
"""

if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

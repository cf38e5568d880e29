#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks every number of the golden reports against computations of its own.

Statistics and exact probabilities in fractions, straight from their definitions; the simulated
squares of test C with a generator of its own; critical values by putting them into distribution
functions obtained by numerical integration. Standard library only. Prints one line per file; the
exit code is 1 if a number is wrong.
"""
import itertools
import math
import pathlib
import re
import sys
from fractions import Fraction
from functools import lru_cache

SQUARES = {
    "orden3_distintos": [[12.5, 14, 9.75], [11, 10.2, 16.1], [8.3, 12, 13]],
    "orden3_empates": [[4, 5, 4], [6, 4, 5], [5, 7, 4]],
    "orden4_distintos": [
        [2.5, 7.1, 3.3, 9.8], [6.4, 1.9, 8.2, 5.5], [4.7, 9.1, 7.6, 2.2], [8.8, 3.9, 5.1, 6.6],
    ],
    "orden4_empates": [[10, 14, 7, 8], [10, 10, 12, 14], [5, 10, 11, 9], [7, 18, 11, 8]],
    "orden5_distintos": [
        [31.2, 18.4, 22.7, 40.1, 35.9], [17.3, 25.6, 38.8, 29.4, 12.1],
        [28.2, 33.5, 19.9, 15.7, 26.3], [36.4, 21.8, 14.6, 24.9, 30.7],
        [20.3, 11.5, 27.1, 34.2, 16.8],
    ],
    "orden5_empates": [
        [24, 20, 19, 24, 24], [17, 24, 30, 27, 36], [18, 38, 26, 27, 21],
        [26, 31, 26, 23, 22], [22, 30, 20, 29, 31],
    ],
    "orden6_distintos": [
        [29 * (6 * r + c) % 37 / 4 for c in range(1, 7)] for r in range(6)
    ],
    "orden6_empates": [[(5 * c + 3 * r * r) % 7 for c in range(1, 7)] for r in range(1, 7)],
}


def treatment(r, c, n):
    return (r + c) % n  # rows and columns from 0


def cells(square):
    n = len(square)
    return [(r, c) for c in range(n) for r in range(n)]  # columns outside


def group_sums(square, key):
    n = len(square)
    sums = [Fraction(0)] * n
    for r, c in cells(square):
        sums[key(r, c)] += Fraction(square[r][c])
    return sums


def anova(square):
    n = len(square)
    total = sum(Fraction(x) for row in square for x in row)
    correction = total**2 / (n * n)

    def between(key):
        return sum(s * s for s in group_sums(square, key)) / n - correction

    rows = between(lambda r, c: r)
    columns = between(lambda r, c: c)
    treatments = between(lambda r, c: treatment(r, c, n))
    everything = sum(Fraction(x) ** 2 for row in square for x in row) - correction
    return rows, columns, treatments, everything - rows - columns - treatments, everything


def zimmerman(square):
    n = len(square)
    ranks = [
        [
            sum(square[r][k] <= square[r][c] for k in range(n))
            + sum(square[k][c] <= square[r][c] for k in range(n))
            for c in range(n)
        ]
        for r in range(n)
    ]
    mean = Fraction(sum(map(sum, ranks)), n * n)
    sums = group_sums(ranks, lambda r, c: treatment(r, c, n))
    t = sum((s / n - mean) ** 2 for s in sums) / sum((x - mean) ** 2 for row in ranks for x in row)
    return t, Fraction(n - 1, n + 1) * n * t / (1 - t)


def bennett(square):
    n = len(square)
    everything = [x for row in square for x in row]
    ranks = [[sum(y <= x for y in everything) for x in row] for row in square]
    s = sum(k * k for k in group_sums(ranks, lambda r, c: treatment(r, c, n)))
    cells_ = n * n
    return s / n * 12 / (cells_ * (cells_ + 1)) - 3 * (cells_ + 1)


def sorted_labels(square):
    n = len(square)
    pairs = [(square[r][c], treatment(r, c, n)) for r, c in cells(square)]
    return [label for _, label in sorted(pairs, key=lambda pair: pair[0])]  # stable


def run_indices(labels):
    runs = [1]
    for before, label in itertools.pairwise(labels):
        runs.append(runs[-1] + (label != before))
    return runs


def label_means(labels, runs, n):
    return [Fraction(sum(r for r, l in zip(runs, labels) if l == t), n) for t in range(n)]


def statistic_c(labels, n):
    runs = run_indices(labels)
    count = runs[-1]
    means = label_means(labels, runs, n)
    return sum((m - Fraction(count + 1, 2)) ** 2 for m in means) / (count * (count + 1))


def statistic_m(labels, n):
    runs = run_indices(labels)
    mean = Fraction(sum(runs), n * n)
    between = sum((m - mean) ** 2 for m in label_means(labels, runs, n))
    q = between / sum((r - mean) ** 2 for r in runs)
    return n * q / (1 - q)


@lru_cache(maxsize=None)
def exact_values(statistic):
    arrangements = []
    for ones in itertools.combinations(range(9), 3):
        rest = [k for k in range(9) if k not in ones]
        for twos in itertools.combinations(rest, 3):
            arrangements.append([0 if k in ones else 1 if k in twos else 2 for k in range(9)])
    assert len(arrangements) == 1680
    return [statistic(labels, 3) for labels in arrangements]


def cumulative(statistic, value):
    return Fraction(sum(v <= value for v in exact_values(statistic)), 1680)


@lru_cache(maxsize=None)
def simulated(n):
    state = 1
    values = []
    for _ in range(5000):
        square = [[0] * n for _ in range(n)]
        for r, c in itertools.product(range(n), repeat=2):  # row by row
            state = (state * 1103515245 + 12345) % 2**32
            square[r][c] = state // 65536 % 32768
        values.append(float(statistic_c(sorted_labels(square), n)))
    mean = math.fsum(values) / 5000
    variance = math.fsum((v - mean) ** 2 for v in values) / 4999
    return mean, variance


def integral(density, end, panels=20000):
    """Over 0..end, with x = u^4, which takes the poles at 0 away; Simpson's rule."""
    top = end**0.25
    h = top / panels

    def f(u):
        return 0.0 if u == 0 else density(u**4) * 4 * u**3

    inner = sum((4 if k % 2 else 2) * f(k * h) for k in range(1, panels))
    return (f(0) + inner + f(top)) * h / 3


@lru_cache(maxsize=None)
def f_cdf(x, df1, df2):
    a, b = df1 / 2, df2 / 2
    log_beta = math.lgamma(a) + math.lgamma(b) - math.lgamma(a + b)
    scale = df1 / df2
    return integral(
        lambda t: math.exp(
            a * math.log(scale) + (a - 1) * math.log(t) - (a + b) * math.log1p(scale * t) - log_beta
        ),
        x,
    )


@lru_cache(maxsize=None)
def chi_square_cdf(x, df):
    a = df / 2
    return integral(
        lambda t: math.exp((a - 1) * math.log(t) - t / 2 - a * math.log(2) - math.lgamma(a)), x
    )


def f_point_is(x, p, df1, df2):
    """The program's rule below one half: the reciprocal of the point of 1 - p."""
    if p < 0.5:
        x, p = 1 / x, 1 - p
    return abs(f_cdf(x, df1, df2) - p) < 1.3e-8  # the bisection stops at 1e-8


def normal_cdf(z):
    return math.erfc(-z / math.sqrt(2)) / 2


class Report:
    def __init__(self, level, lines):
        self.p = level / 100
        self.lines = lines
        self.problems = []

    def number_after(self, text):
        for line in self.lines:
            if line.startswith(text):
                return float(line[len(text):].split()[0])
        self.problems.append(f"no line starts with '{text}'")
        return math.nan

    def expect(self, what, good):
        if not good:
            self.problems.append(what)

    def same(self, text, expected, tolerance=1e-14):
        got = self.number_after(text)
        self.expect(f"{text}{got}, not {float(expected)}",
                    abs(got - float(expected)) <= tolerance * max(1, abs(float(expected))))
        return got

    def decision(self, rejected):
        self.expect("decision", ("rechaza" in self.lines[-1]) == rejected)


def check_f(report, square):
    n = len(square)
    squares = anova(square)
    degrees = [n - 1] * 3 + [(n - 1) * (n - 2), n * n - 1]
    labels = ["Filas", "Columnas", "Tratamientos", "Error", " TOTAL"]
    error_mean = squares[3] / degrees[3]
    for k, label in enumerate(labels):
        line = next(line for line in report.lines if line.startswith(label))
        numbers = [float(x) for x in re.findall(r"[-\d.]+", line[16:])]
        expected = [degrees[k], squares[k]]
        if k < 4:
            expected.append(squares[k] / degrees[k])
        if k < 3:
            f = squares[k] / degrees[k] / error_mean
            expected.append(f)
            critical = numbers.pop()
            x = critical
            probability = report.p
            if probability < 0.5:
                x, probability = 1 / critical, 1 - probability
            # Printed with two decimals, so only a bracket can be checked.
            if report.p >= 0.5:
                report.expect(f"critical value {critical}",
                              f_cdf(x - 0.005, n - 1, degrees[3]) <= probability + 1e-8
                              and f_cdf(x + 0.005, n - 1, degrees[3]) >= probability - 1e-8)
            if abs(f - critical) > 0.005:
                report.expect(f"mark of {label}", line.endswith(" *") == (f > critical))
        report.expect(f"{label}: {numbers}, not {[float(x) for x in expected]}",
                      len(numbers) == len(expected) and
                      all(abs(a - float(b)) <= 0.005 + 1e-12 for a, b in zip(numbers, expected)))


def check_zimmerman(report, square):
    n = len(square)
    t, z = zimmerman(square)
    report.same("Valor T = ", t)
    report.same("Estadística Z = ", z)
    critical = report.number_after(f"Valor Crítico F({n - 1},{n * (n - 1)}) = ")
    report.expect(f"critical value {critical}", f_point_is(critical, report.p, n - 1, n * (n - 1)))
    report.decision(float(z) >= critical)


def check_bennett(report, square):
    n = len(square)
    b = report.same("Estadística de prueba B= ", bennett(square))
    critical = report.number_after(f"Valor Crítico Chi2({n - 1} grados de libertad) = ")
    report.expect(f"critical value {critical}",
                  abs(chi_square_cdf(critical, n - 1) - report.p) < 1.3e-8)
    report.decision(b >= critical)


def check_exact(report, name, statistic, value):
    probability = cumulative(statistic, value)
    report.same(f"El valor de la distribución acumulada para {name} es ", probability)
    report.decision(probability > Fraction(round(report.p * 100), 100))


def check_c(report, square):
    n = len(square)
    value = statistic_c(sorted_labels(square), n)
    report.same("C = ", value)
    if n == 3:
        check_exact(report, "C", statistic_c, value)
        return
    mean, variance = simulated(n)
    report.same("mediante una Normal con media = ", mean, 1e-13)
    line = next(line for line in report.lines if "desviación" in line)
    deviation = float(line.rsplit(" = ", 1)[1])
    report.expect("deviation", abs(deviation - math.sqrt(variance)) < 1e-13)
    z = (float(value) - mean) / variance
    report.same("El valor normalizado de C es ", z, 1e-11)
    phi = report.same("La distribución acumulada para C = ", normal_cdf(z), 3e-9)
    report.decision(phi > report.p)


def check_m(report, square):
    n = len(square)
    value = statistic_m(sorted_labels(square), n)
    report.same("M = ", value)
    if n == 3:
        check_exact(report, "M", statistic_m, value)
        return
    critical = report.number_after("El valor crítico es = ")
    report.expect(f"critical value {critical}", f_point_is(critical, report.p, n - 1, n * (n - 1)))
    report.decision(float(value) >= critical)


CHECKS = {"f": check_f, "zimmerman": check_zimmerman, "bennett": check_bennett,
          "c": check_c, "m": check_m}


def reports_of(text):
    parts = re.split(r"^\[(\d+) %\]\n", text, flags=re.M)[1:]
    for level, body in zip(parts[::2], parts[1::2]):
        yield Report(int(level), body.splitlines())


def main():
    folder = pathlib.Path(__file__).parent
    wrong = 0
    for test, check in CHECKS.items():
        for name, square in SQUARES.items():
            problems = []
            levels = []
            for report in reports_of((folder / f"{test}_{name}.txt").read_text("utf-8")):
                check(report, square)
                levels.append(round(report.p * 100))
                problems += [f"  {levels[-1]} %: {problem}" for problem in report.problems]
            if levels != [1, 50, 90, 95, 99]:
                problems.append(f"  levels {levels}")
            wrong += bool(problems)
            print(f"{test}_{name}: {'wrong' if problems else 'right'}")
            print(*problems, sep="\n", end="\n" if problems else "")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of what plants mistakes and of the lists that the record reads."""

import pathlib
import tempfile
import unittest

import coverage
import mutants
import mutations

SOURCE = """\
// a < b && c
#include "a/b.h"
static_assert(1 < 2);
int f(std::array<char, 32> a, int b)
{
    const char* text = "1 < 2";
    int c = a[0];
    for (int i = 0; i < b; ++i) {
        if (a[i] == 'x' && b > 1)
            c += 2;
    }
    g(c);
    return c;
}
"""


def lines(kind):
    """The lines with a mistake of a kind, as they are in SOURCE without it."""
    return [mutant.after for mutant in mutations.mutants_of("f.cpp", SOURCE) if mutant.kind == kind]


class Mutations(unittest.TestCase):
    def test_only_code_is_looked_at(self):
        for mutant in mutations.mutants_of("f.cpp", SOURCE):
            self.assertNotIn(mutant.before.split()[0], ("//", "#include", "static_assert(1", "const"))

    def test_each_kind(self):
        self.assertEqual(lines("comparación"), [
            "for (int i = 0; i <= b; ++i) {", "if (a[i] != 'x' && b > 1)", "if (a[i] == 'x' && b >= 1)"])
        self.assertEqual(lines("lógica"), ["if (a[i] == 'x' || b > 1)"])
        self.assertEqual(lines("aritmética"), ["for (int i = 0; i < b; --i) {", "c -= 2;"])
        self.assertEqual(lines("condición negada"), ["if (!(a[i] == 'x' && b > 1))"])
        self.assertEqual(lines("bucle cortado"), ["for (int i = 0; i < b; ++i) { ... break; }"])
        self.assertEqual(lines("sentencia quitada"), [";", ";"])
        self.assertEqual(lines("valor devuelto"), ["return (c) + 1;", "return {};"])
        self.assertIn("if (a[i] == 'x' && b > 0)", lines("constante"))
        self.assertIn("c += 3;", lines("constante"))

    def test_a_mistake_is_the_only_difference(self):
        for mutant in mutations.mutants_of("f.cpp", SOURCE):
            changed = mutant.applied_to(SOURCE)
            self.assertNotEqual(changed, SOURCE)
            self.assertEqual(changed[: mutant.start], SOURCE[: mutant.start])
            self.assertTrue(changed.endswith(SOURCE[mutant.end :]))

    def test_the_draw_is_the_same_every_time_and_another_for_another_seed(self):
        first = mutants.drawn(1)
        self.assertEqual(first, mutants.drawn(1))
        self.assertNotEqual(first[:100], mutants.drawn(2)[:100])
        self.assertEqual(len(first), len(set(first)))


class Lists(unittest.TestCase):
    def read(self, reader, text):
        with tempfile.NamedTemporaryFile("w", suffix=".txt") as file:
            file.write(text)
            file.flush()
            return reader(pathlib.Path(file.name))

    def test_mistakes_that_change_nothing(self):
        text = "# heading\n\nsrc/a.cpp\n- b;\n+ ;\nIt is said\ntwice.\n\nsrc/c.cpp\n- d\n+ e\nf\n"
        self.assertEqual(self.read(mutations.listed, text), {
            ("src/a.cpp", "b;", ";"): "It is said twice.", ("src/c.cpp", "d", "e"): "f"})
        with self.assertRaises(ValueError):
            self.read(mutations.listed, "src/a.cpp\n- b;\n+ ;\n")

    def test_branches_that_are_not_taken(self):
        self.assertEqual(self.read(coverage.listed, "src/a.cpp\nb > 0\nfalso\nWhy.\n"),
                         {("src/a.cpp", "b > 0", "falso"): "Why."})
        with self.assertRaises(ValueError):
            self.read(coverage.listed, "src/a.cpp\nb > 0\nWhy.\n")

    def test_an_entry_that_is_taken_is_complained_of_as_is_a_branch_without_one(self):
        layers = {name: coverage.Layer(10, 10, 2) for name in coverage.layer_names()}
        missing = coverage.Missing("src/base/a.cpp", 7, "b > 0", "falso")
        layers["base"].missing.append(missing)
        self.assertEqual(coverage.complaints(layers, {missing.key: "Why."}), [])
        self.assertEqual(coverage.complaints(layers, {}), ["src/base/a.cpp:7: `b > 0` nunca es falso"])
        layers["base"].missing.clear()
        self.assertEqual(len(coverage.complaints(layers, {missing.key: "Why."})), 1)
        layers["window"].lines_run = 8
        self.assertEqual(coverage.complaints(layers, {}), ["window: las pruebas corren el 80.0 % de las líneas"])

    def test_the_lists_of_the_project_can_be_read(self):
        self.assertTrue(coverage.listed(coverage.UNREACHABLE))
        self.assertTrue(mutations.listed(mutants.EQUIVALENTS))


if __name__ == "__main__":
    unittest.main()

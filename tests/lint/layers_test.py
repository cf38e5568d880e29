#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The layer check finds what it is there to find."""

import pathlib
import tempfile
import unittest

from layers import HALVES, LAYERS, against_the_half, against_the_layers, circles, files_of_half


def upwards(layer, *headers):
    return list(against_the_layers(layer, "a file", text(headers)))


def unseen(layer, target, *headers):
    return list(against_the_half(layer, target, "a file", text(headers)))


def text(headers):
    return "\n".join(f"#include {header}" for header in headers)


class Layers(unittest.TestCase):
    def test_downwards_is_fine(self):
        self.assertEqual(upwards("grid", '"base/NumberText.h"', '"grid/A.h"', "<QWidget>"), [])

    def test_upwards_is_found(self):
        self.assertEqual(len(upwards("grid", '"square/SquareData.h"')), 1)
        self.assertEqual(len(upwards("square", '"analysis/Frmanalisis.h"')), 1)

    def test_only_the_shell_knows_the_editor(self):
        self.assertEqual(len(upwards("analysis", '"square/Formeditor.h"')), 1)
        self.assertEqual(upwards("shell", '"square/Formeditor.h"'), [])

    def test_numeric_half_of_stats_sees_no_qt_and_no_layer(self):
        self.assertEqual(len(unseen("stats", "stats", "<QString>", '"base/NumberText.h"')), 2)
        self.assertEqual(unseen("stats", "stats", "<vector>", '"stats/MATRIX.h"'), [])

    def test_half_without_a_window_sees_qt_core(self):
        self.assertEqual(unseen("stats", "estad", "<QStringList>", '"base/NumberText.h"'), [])
        self.assertEqual(len(unseen("square", "squarefile", "<QWidget>", '"grid/NTabEd.h"')), 2)

    def test_half_is_its_sources_and_the_headers_that_they_reach(self):
        with tempfile.TemporaryDirectory() as folder:
            layer = pathlib.Path(folder) / "stats"
            layer.mkdir()
            (layer / "CMakeLists.txt").write_text("add_layer(stats A.cpp)\nadd_layer(estad C.cpp)")
            (layer / "A.cpp").write_text('#include "stats/A.h"')
            (layer / "A.h").write_text('#include "stats/B.h"')
            (layer / "B.h").write_text("")
            (layer / "C.cpp").write_text('#include "stats/A.h"')
            reached = files_of_half(pathlib.Path(folder), "stats", "stats")
            self.assertEqual([path.name for path in reached], ["A.cpp", "A.h", "B.h"])

    def test_circles_are_found(self):
        self.assertEqual(circles({"a/A.h": {"a/B.h"}, "a/B.h": {"a/C.h"}, "a/C.h": set()}), [])
        graph = {"a/A.h": {"a/B.h"}, "a/B.h": {"a/C.h"}, "a/C.h": {"a/A.h"}}
        self.assertEqual(len(circles(graph)), 1)

    def test_no_circles_between_layers(self):
        for layer, below in LAYERS.items():
            for other in below:
                self.assertNotIn(layer, LAYERS[other], f"{layer} and {other} know each other")

    def test_halves_stay_within_their_layer(self):
        for (layer, _), (_, layers) in HALVES.items():
            self.assertLessEqual(layers, LAYERS[layer])


if __name__ == "__main__":
    unittest.main()

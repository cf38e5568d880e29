#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The layer check finds what it is there to find."""

import unittest

from layers import LAYERS, circles, complaints


def found(layer, name, *includes, is_test=False):
    text = "\n".join(f"#include {include}" for include in includes)
    return list(complaints(layer, name, text, is_test))


class Layers(unittest.TestCase):
    def test_downwards_is_fine(self):
        self.assertEqual(found("grid", "src/grid/A.cpp", '"base/NumberText.h"', "<QWidget>"), [])

    def test_upwards_is_found(self):
        self.assertEqual(len(found("grid", "src/grid/A.cpp", '"square/SquareData.h"')), 1)
        self.assertEqual(len(found("square", "tests/square/A.cpp", '"analysis/A.h"', is_test=True)), 1)

    def test_numeric_half_of_stats_sees_no_qt_and_no_layer(self):
        self.assertEqual(len(found("stats", "src/stats/STATIS.cpp", "<QString>")), 1)
        self.assertEqual(len(found("stats", "src/stats/STATIS.h", '"base/NumberText.h"')), 1)
        self.assertEqual(found("stats", "src/stats/Estad.cpp", "<QString>", '"base/NumberText.h"'), [])

    def test_file_codec_sees_no_window(self):
        self.assertEqual(len(found("square", "src/square/SquareFile.cpp", "<QWidget>")), 1)

    def test_analysis_does_not_know_the_editor(self):
        self.assertEqual(len(found("analysis", "src/analysis/A.cpp", '"square/Formeditor.h"')), 1)

    def test_circles_between_units_are_found(self):
        self.assertEqual(circles({"a/A": {"a/B"}, "a/B": {"a/C"}, "a/C": set()}), [])
        self.assertEqual(len(circles({"a/A": {"a/B"}, "a/B": {"a/C"}, "a/C": {"a/A"}})), 1)

    def test_no_circles_between_layers(self):
        for layer, below in LAYERS.items():
            for other in below:
                self.assertNotIn(layer, LAYERS[other], f"{layer} and {other} know each other")


if __name__ == "__main__":
    unittest.main()

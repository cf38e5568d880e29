#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The layer check finds what it is there to find."""

import pathlib
import tempfile
import unittest

from layers import (
    FOLDERS,
    folders_of,
    against_the_folder,
    against_the_modules,
    circles,
    complaints,
    folder_of,
    may_include,
    units_of,
)


def text(headers):
    return "\n".join(f"#include {header}" for header in headers)


def upwards(folder, *headers):
    return list(against_the_folder(folder, "a file", text(headers)))


def unseen(folder, *headers):
    return list(against_the_modules(folder, "a file", text(headers)))


class Folders(unittest.TestCase):
    def test_half_of_a_layer_is_a_folder(self):
        self.assertEqual(folder_of("grid/model/TableModel.h"), "grid/model")
        self.assertEqual(folder_of("base/NumberText.h"), "base")
        self.assertEqual(folder_of("shell/walk/FrameWalk.h"), "shell")
        self.assertIsNone(folder_of("support/Text.h"))
        self.assertIsNone(folder_of("grid/Loose.h"))

    def test_downwards_is_fine(self):
        self.assertEqual(
            upwards("grid/view", '"base/A.h"', '"grid/model/A.h"', '"grid/view/A.h"', "<QWidget>"),
            [],
        )

    def test_upwards_is_found(self):
        self.assertEqual(len(upwards("grid/view", '"square/file/SquareFile.h"')), 1)
        self.assertEqual(len(upwards("square/editor", '"analysis/Frmanalisis.h"')), 1)

    def test_half_above_is_found(self):
        self.assertEqual(len(upwards("grid/model", '"grid/view/NTabEd.h"')), 1)
        self.assertEqual(len(upwards("chart/scale", '"chart/drawing/MarkShapes.h"')), 1)

    def test_layer_stands_for_its_folders(self):
        self.assertEqual(upwards("analysis", '"grid/model/A.h"', '"grid/view/A.h"'), [])

    def test_only_the_shell_knows_the_editor(self):
        self.assertEqual(len(upwards("analysis", '"square/editor/Formeditor.h"')), 1)
        self.assertEqual(upwards("shell", '"square/editor/Formeditor.h"'), [])

    def test_no_folders_know_each_other(self):
        for one in FOLDERS:
            for other in FOLDERS:
                if one != other:
                    self.assertFalse(may_include(one, other) and may_include(other, one))


class Table(unittest.TestCase):
    def test_a_row_says_what_a_folder_may_include(self):
        rows = "| folder | may include | holds |\n|---|---|---|\n| `a/b` | `c`, `d/e`, Qt Gui | all |\n"
        self.assertEqual(folders_of(rows), {"a/b": (("QtCore", "QtGui"), {"c", "d/e"})})

    def test_what_is_not_named_is_not_seen(self):
        self.assertEqual(folders_of("| `a` | Boost | numbers |"), {"a": ((), set())})


class Modules(unittest.TestCase):
    def test_numbers_see_no_qt(self):
        self.assertEqual(len(unseen("stats/numbers", "<QString>", "<QtGlobal>")), 2)
        self.assertEqual(unseen("stats/numbers", "<vector>", "<boost/rational.hpp>"), [])

    def test_core_and_gui_end_where_the_next_module_begins(self):
        self.assertEqual(unseen("base", "<QStringList>"), [])
        self.assertEqual(len(unseen("base", "<QColor>")), 1)
        self.assertEqual(unseen("grid/model", "<QStringList>", "<QColor>"), [])
        self.assertEqual(len(unseen("grid/model", "<QWidget>")), 1)
        self.assertEqual(unseen("window", "<QWidget>", "<QtWidgets/QLabel>"), [])


class Units(unittest.TestCase):
    def test_source_belongs_to_the_header_of_its_name(self):
        graph, homeless = units_of({"a/A.h": "", "a/A.cpp": '#include "a/B.h"', "a/B.h": ""})
        self.assertEqual((graph, homeless), ({"a/A": {"a/B"}, "a/B": set()}, []))

    def test_second_source_names_its_header(self):
        second = "// SPDX-License-Identifier: X\n// The second file of A: the keys.\n"
        graph, homeless = units_of({"a/A.h": "", "a/AKeys.cpp": second + '#include "a/B.h"'})
        self.assertEqual((graph, homeless), ({"a/A": {"a/B"}}, []))

    def test_source_without_a_header_is_found(self):
        for opening in ("", "// The keys.\n", "// The second file of Gone: the keys.\n"):
            self.assertEqual(units_of({"a/A.h": "", "a/AKeys.cpp": opening})[1], ["a/AKeys.cpp"])

    def test_main_needs_no_header(self):
        self.assertEqual(units_of({"shell/main.cpp": ""})[1], [])

    def test_circles_are_found(self):
        self.assertEqual(circles({"a/A": {"a/B"}, "a/B": {"a/C"}, "a/C": set()}), [])
        self.assertEqual(len(circles({"a/A": {"a/B"}, "a/B": {"a/C"}, "a/C": {"a/A"}})), 1)

    def test_circle_through_a_source_is_found(self):
        graph, _ = units_of(
            {"a/A.h": "", "a/A.cpp": '#include "a/B.h"', "a/B.h": '#include "a/A.h"'}
        )
        self.assertEqual(len(circles(graph)), 1)


class Tree(unittest.TestCase):
    def complaints_of(self, files):
        with tempfile.TemporaryDirectory() as root:
            for name, content in files.items():
                path = pathlib.Path(root) / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(content)
            return list(complaints(pathlib.Path(root)))

    def test_good_tree_passes(self):
        self.assertEqual(
            self.complaints_of(
                {
                    "src/base/A.h": "#include <QString>",
                    "src/base/A.cpp": '#include "base/A.h"',
                    "tests/base/A_test.cpp": '#include "support/Text.h"\n#include <QApplication>',
                }
            ),
            [],
        )

    def test_each_fault_is_told_once(self):
        for name, content in {
            "src/loose/A.h": "",
            "src/grid/A.h": "",
            "src/base/B.h": '#include "shell/Principal.h"',
            "src/base/C.h": "#include <QWidget>",
            "src/base/D.cpp": "",
            "tests/base/E_test.cpp": '#include "window/Command.h"',
        }.items():
            self.assertEqual(len(self.complaints_of({"src/base/A.h": "", name: content})), 1, name)


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fails on an include that runs against the layers of docs/architecture.md, and on circles.

A folder under src/ is a layer. Its files may include their own layer, the layers named for it
below, and the Qt modules named for it. A test folder may include what its layer may.
"""

import pathlib
import re
import sys

LAYERS = {
    "base": set(),
    "stats": {"base"},
    "window": set(),
    "grid": {"base", "window"},
    "square": {"base", "grid", "window"},
    "chart": {"base", "window"},
    "power": {"base", "stats", "chart", "window"},
    "analysis": {"base", "stats", "grid", "square", "chart", "window"},
    "shell": {"base", "stats", "grid", "square", "chart", "power", "analysis", "window"},
}

# Halves without a window: file stems that see no Qt at all, and that see Qt Core only.
QT_CORE = {"base"}
QT_FREE_EXCEPT = {"stats": ("Estad",)}  # the report half words results with Qt Core
CORE_ONLY_STEMS = {
    "square": (
        "SquareData",
        "SquareFileReading",
        "SquareFileWriting",
        "SquareFile",
        "NameScanner",
        "TextReader",
        "LoadedSquare",
    )
}
FORBIDDEN = {("analysis", "square/Formeditor.h"): "the analysis window does not know the editor"}

WIDGET_CLASSES = re.compile(
    r"^Q(Widget|Application|Action|Menu|Dialog|MessageBox|FileDialog|InputDialog|Label|Painter|"
    r"TableView|MainWindow|Mdi\w+|Clipboard|GuiApplication|Push\w+|Tool\w+|Spin\w+|Line\w+|Undo\w+)$"
)
INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]', re.MULTILINE)


def complaints(layer: str, name: str, text: str, is_test: bool = False):
    """What is wrong with the includes of one file of a layer."""
    stem = pathlib.PurePath(name).stem
    allowed = LAYERS[layer] | {layer}
    for kind, target in INCLUDE.findall(text):
        head = target.split("/")[0]
        if kind == '"' and head in LAYERS:
            if head not in allowed:
                yield f"{name}: layer {layer} may not include {target}"
            elif (layer, target) in FORBIDDEN and not is_test:
                yield f"{name}: {FORBIDDEN[layer, target]}"
        if kind == "<" and re.match(r"^Q[A-Z]", head) and not is_test:
            if layer == "stats" and not stem.startswith(QT_FREE_EXCEPT["stats"]):
                yield f"{name}: the numeric half of stats sees no Qt ({target})"
            core_only = (
                layer in QT_CORE or layer == "stats" or stem in CORE_ONLY_STEMS.get(layer, ())
            )
            if core_only and WIDGET_CLASSES.match(head):
                yield f"{name}: only Qt Core is seen here ({target})"
        if kind == '"' and layer == "stats" and head == "base" and not is_test:
            if not stem.startswith(QT_FREE_EXCEPT["stats"]):
                yield f"{name}: the numeric half of stats knows no other layer ({target})"


def circles(includes):
    """The circles among units (a header and its source) that include each other's headers."""
    found, done = [], set()

    def walk(unit, trail):
        if unit in trail:
            found.append(" -> ".join(trail[trail.index(unit) :] + [unit]))
        elif unit not in done:
            for other in sorted(includes.get(unit, ())):
                walk(other, trail + [unit])
            done.add(unit)

    for unit in sorted(includes):
        walk(unit, [])
    return found


def units(source: pathlib.Path):
    """For each unit under src/, the other units of the project that it includes."""
    result = {}
    for path in files(source):
        unit = str(path.relative_to(source).with_suffix(""))
        for kind, target in INCLUDE.findall(path.read_text()):
            other = target.removesuffix(".h")
            if kind == '"' and other != unit:
                result.setdefault(unit, set()).add(other)
    return result


def files(folder: pathlib.Path):
    return sorted(path for path in folder.rglob("*") if path.suffix in (".h", ".cpp"))


def main(root: pathlib.Path) -> int:
    found = []
    for folder in sorted((root / "src").iterdir()):
        if not folder.is_dir():
            continue
        if folder.name not in LAYERS:
            found.append(f"src/{folder.name}: a folder that is no layer")
            continue
        for tests in (False, True):
            top = root / ("tests" if tests else "src") / folder.name
            for path in files(top) if top.is_dir() else []:
                name = str(path.relative_to(root))
                found += complaints(folder.name, name, path.read_text(), tests)
    found += [f"a circle: {circle}" for circle in circles(units(root / "src"))]
    print("\n".join(found) or "every include runs down the layers")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))

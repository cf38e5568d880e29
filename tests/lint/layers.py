#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fails on an include that runs against the layers of docs/architecture.md, and on circles.

A folder under src/ is a layer. Its files may include their own layer and the layers named for it
below; a test folder may include what its layer may. The targets named below are the halves without a
window: their files, and what these include of their own layer, see less.
"""

import glob
import os
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
    "manual": {"window"},
    "shell": {"base", "stats", "grid", "square", "chart", "power", "analysis", "manual", "window"},
}

# (layer, target): what its files may include beside their own layer.
NOTHING, QT_CORE = "the C++ library and Boost", "Qt Core"
HALVES = {
    ("base", "base"): (QT_CORE, set()),
    ("stats", "stats"): (NOTHING, set()),
    ("stats", "estad"): (QT_CORE, {"base"}),
    ("square", "squarefile"): (QT_CORE, {"base"}),
    ("chart", "chartscale"): (QT_CORE, {"base"}),
    ("power", "powerstudy"): (QT_CORE, {"base", "stats"}),
}

EDITOR = "square/Formeditor.h"  # known to the shell alone

INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]', re.MULTILINE)
CORE_HEADERS = {
    os.path.basename(path) for path in glob.glob("/usr/include/*/qt6/QtCore/*")
}


def includes(text, kind):
    return [target for found, target in INCLUDE.findall(text) if found == kind]


def is_qt(header):
    return re.match(r"^Q([A-Z]|t[A-Z])", header) is not None


def against_the_layers(layer, name, text):
    """The includes of one file that run upwards."""
    for target in includes(text, '"'):
        head = target.split("/")[0]
        if head in LAYERS and head != layer and head not in LAYERS[layer]:
            yield f"{name}: layer {layer} may not include {target}"
        elif target == EDITOR and layer not in ("square", "shell"):
            yield f"{name}: only the shell knows the editor"


def against_the_half(layer, target, name, text):
    """The includes of one file of a half that it may not see."""
    qt, layers = HALVES[layer, target]
    for header in includes(text, "<"):
        if is_qt(header) and (qt == NOTHING or header not in CORE_HEADERS):
            yield f"{name}: {target} sees {qt} only, not {header}"
    for header in includes(text, '"'):
        head = header.split("/")[0]
        if head in LAYERS and head != layer and head not in layers:
            yield f"{name}: {target} may not include {header}"


def files(folder):
    return sorted(path for path in folder.rglob("*") if path.suffix in (".h", ".cpp"))


def sources_of(cmake, target):
    """The sources that a layer's CMakeLists.txt lists for a target."""
    found = re.search(rf"add_(?:qt_)?layer\(\s*{target}\s+([^)]*)\)", cmake)
    return found.group(1).split() if found else []


def files_of_half(source, layer, target):
    """The sources of a half and all headers of the layer that they reach."""
    cmake = (source / layer / "CMakeLists.txt").read_text()
    waiting = [source / layer / name for name in sources_of(cmake, target)]
    reached = set()
    while waiting:
        path = waiting.pop()
        if path not in reached and path.is_file():
            reached.add(path)
            waiting += [
                source / header
                for header in includes(path.read_text(), '"')
                if header.startswith(layer + "/")
            ]
    return sorted(reached)


def circles(graph):
    """The circles among units (a header and its sources) that include each other's headers."""
    found, done = [], set()

    def walk(unit, trail):
        if unit in trail:
            found.append(" -> ".join(trail[trail.index(unit) :] + [unit]))
        elif unit not in done:
            for other in sorted(graph.get(unit, ())):
                walk(other, trail + [unit])
            done.add(unit)

    for unit in sorted(graph):
        walk(unit, [])
    return found


def headers_graph(source):
    """For each header under src/, the headers of the project that it includes."""
    return {
        str(path.relative_to(source)): set(includes(path.read_text(), '"'))
        for path in files(source)
        if path.suffix == ".h"
    }


def complaints(root):
    source = root / "src"
    for folder in sorted(path for path in source.iterdir() if path.is_dir()):
        layer = folder.name
        if layer not in LAYERS:
            yield f"src/{layer}: a folder that is no layer"
            continue
        for top in (folder, root / "tests" / layer):
            for path in files(top) if top.is_dir() else []:
                yield from against_the_layers(
                    layer, str(path.relative_to(root)), path.read_text()
                )
    for layer, target in HALVES:
        for path in files_of_half(source, layer, target):
            yield from against_the_half(
                layer, target, str(path.relative_to(root)), path.read_text()
            )
    for circle in circles(headers_graph(source)):
        yield f"a circle: {circle}"


def main(root):
    found = list(complaints(root))
    print("\n".join(found) or "every include runs down the layers")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))

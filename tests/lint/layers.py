#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fails on an include that runs against the layers of docs/architecture.md, and on circles.

What a file may include is read from its folder. A test may include what the sources may that it tests,
and the headers of the tests; which parts of Qt it takes is its own affair.

A unit is a header and its sources: the `.cpp` of its name, and those that open with a comment

    // The second file of Header: what of it is written here

which every other `.cpp` but main.cpp must have. No units include each other in a circle.
"""

import functools
import pathlib
import re
import sys

ARCHITECTURE = pathlib.Path(__file__).parents[2] / "docs/architecture.md"
ROW = re.compile(r"^\| `([\w/]+)` \| ([^|]+) \|", re.MULTILINE)
MODULES = {
    "Qt Core": ("QtCore",),
    "Qt Gui": ("QtCore", "QtGui"),
    "Qt Widgets": ("QtCore", "QtGui", "QtWidgets"),
}


def folders_of(document):
    """The table of layers in a document, from the bottom up: by folder the modules of Qt that it sees
    and the folders beside its own. The name of a layer stands for all its folders."""
    table = {}
    for folder, allowed in ROW.findall(document):
        modules = next((seen for name, seen in MODULES.items() if name in allowed), ())
        table[folder] = (modules, set(re.findall(r"`([\w/]+)`", allowed)))
    return table


FOLDERS = folders_of(ARCHITECTURE.read_text())

INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]', re.MULTILINE)
QT_CLASS = re.compile(r"^Q(?:[A-Z]|t[A-Z])")
PART = re.compile(r"\A(?:// SPDX[^\n]*\n)?// The (?:second|third|fourth) file of (\w+): ")


def includes(text, kind):
    return [target for found, target in INCLUDE.findall(text) if found == kind]


def folder_of(path):
    """The folder of the table that a path under src/ or tests/ lies in; None where it is none."""
    parts = path.split("/")
    return next((name for name in ("/".join(parts[:2]), parts[0]) if name in FOLDERS), None)


def may_include(folder, target):
    allowed = FOLDERS[folder][1] | {folder}
    return target in allowed or target.split("/")[0] in allowed


def against_the_folder(folder, name, text):
    """The project's headers that a file of a folder may not include."""
    for header in includes(text, '"'):
        target = folder_of(header)
        if target and not may_include(folder, target):
            yield f"{name}: {folder} may not include {header}"


@functools.cache
def qt_headers(module):
    return {path.name for path in pathlib.Path("/usr/include").glob(f"*/qt6/{module}/*")}


def against_the_modules(folder, name, text):
    """The headers of Qt that a file of a folder does not see."""
    modules = FOLDERS[folder][0]
    seen = set().union(*map(qt_headers, modules))
    for header in includes(text, "<"):
        if QT_CLASS.match(header) and header.split("/")[-1] not in seen:
            yield f"{name}: {folder} sees {' and '.join(modules) or 'no Qt'}, not {header}"


def unit_of(path, text, headers):
    """The unit that a file under src/ belongs to, named as its header without the ending; None for a
    source whose header is not known."""
    stem = str(path.with_suffix(""))
    if path.suffix == ".h" or f"{stem}.h" in headers or path.name == "main.cpp":
        return stem
    of = PART.match(text)
    header = str(path.with_name(f"{of.group(1)}.h")) if of else ""
    return header.removesuffix(".h") if header in headers else None


def units_of(texts):
    """(the units that each unit includes, the sources without a header)

    `texts` holds the text of every file under src/ by its path from there."""
    headers = {name for name in texts if name.endswith(".h")}
    graph, homeless = {}, []
    for name, text in sorted(texts.items()):
        unit = unit_of(pathlib.PurePath(name), text, headers)
        if unit is None:
            homeless.append(name)
        else:
            others = {header.removesuffix(".h") for header in includes(text, '"')}
            graph.setdefault(unit, set()).update(others - {unit})
    return graph, homeless


def circles(graph):
    """The circles among units that include each other's headers."""
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


def texts_under(top):
    return {
        path.relative_to(top).as_posix(): path.read_text()
        for path in sorted(top.rglob("*"))
        if path.suffix in (".h", ".cpp")
    }


def complaints(root):
    sources, tests = texts_under(root / "src"), texts_under(root / "tests")
    for name, text in sources.items():
        folder = folder_of(name)
        if folder is None:
            yield f"src/{name}: lies in a folder that is no layer"
        else:
            yield from against_the_folder(folder, f"src/{name}", text)
            yield from against_the_modules(folder, f"src/{name}", text)
    for name, text in tests.items():
        if folder := folder_of(name):
            yield from against_the_folder(folder, f"tests/{name}", text)
    graph, homeless = units_of(sources)
    for name in homeless:
        yield f"src/{name}: no header of its name, and no first line '// The second file of Header: ...'"
    for circle in circles(graph):
        yield f"a circle: {circle}"


def main(root):
    found = list(complaints(root))
    print("\n".join(found) or "every include runs down the layers")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))

#!/usr/bin/env python3
"""Checks the floors: a file includes what is on its own floor or below, in no loop, and no library a window above it;
what differs between systems is in the folders that stand in for them."""

import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
# What is in a folder of a folder is on the floor of the nearest one named here.
FLOOR_OF_FOLDER = {
    "resources": 0, "runtime": 0,
    "storage": 1, "grid/cells": 1,
    "document": 2, "desktop": 2,
    "grid/editors": 3, "help": 3, "check": 3,
    "grid": 4,
    "print": 5, "app/services": 5,
    "dialogs": 6, "tool": 6,
    "dialogs/print": 7,
    "editor": 8,
    "app": 9, "tool/print": 9,
}
# What a folder may use beside itself where its floor alone would allow more
ONLY = {
    "resources": (),
    "runtime": ("resources/OwnTexts",),
    "storage": ("runtime/", "resources/OwnTexts"),
    "grid/cells": ("runtime/",),
    "document": ("runtime/", "storage/", "resources/OwnTexts", "resources/Texts"),
    "check": ("runtime/", "storage/", "document/", "resources/OwnTexts"),
    "tool": ("check/", "document/", "storage/", "runtime/", "resources/", "app/services/"),
    "desktop": ("runtime/", "resources/"),
    "help": ("desktop/", "runtime/"),
    "grid/editors": ("grid/cells/", "desktop/", "runtime/"),
    "grid": ("grid/", "desktop/", "runtime/"),
    "print": ("grid/", "desktop/", "runtime/"),
}
# The modules of Qt that a library may include
MODULES_OF_LIBRARY = {"tabrix_core": ("QtCore",), "tabrix_tool_parts": ("QtCore",), "tabrix_xlsx": ("QtCore",),
                      "tabrix_cells": ("QtCore", "QtGui")}
# The units of document/ that may know the global tables; whatever is below this rim works on values.
RIM = ("DocumentTables", "CollectPrRecords", "PrFileReader", "PrFileWriter", "TableTexts")
# Where code may be for one system only
STANDS_IN = ("runtime/", "desktop/", "tests/support/")
PLATFORM = re.compile(r"^\s*#\s*(?:if|elif|ifdef|ifndef)\b.*\b(Q_OS_\w+|_WIN32|_WIN64|WIN32|__linux__|__unix__|__APPLE__)",
                      re.MULTILINE)
INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)
SOURCES = re.compile(r"target_sources\((\w+) PRIVATE([^)]*)\)")


def unit(path):
    """A source file and its header count as one."""
    return str(Path(path).with_suffix(""))


def folder(path):
    """The nearest folder that has a floor, or nothing."""
    return next((str(parent) for parent in Path(path).parents if str(parent) in FLOOR_OF_FOLDER), None)


def is_barred(path, target):
    """Whether the file's folder is held to less than its floor allows."""
    own = folder(path)
    return own in ONLY and folder(target) != own and not target.startswith(ONLY[own] or ("-",))


def is_below_rim(path):
    return folder(path) in ("runtime", "storage", "document") and Path(path).stem not in RIM


def library_of_sources(listed):
    """The library that each source file is compiled into."""
    result = {}
    for name in (name for name in listed if name.endswith("/CMakeLists.txt")):
        for library, sources in SOURCES.findall((ROOT / name).read_text(encoding="utf-8")):
            result.update({str(Path(name).parent / source): library for source in sources.split()})
    return result


def qt_headers():
    query = subprocess.run(["qmake6", "-query", "QT_INSTALL_HEADERS"], capture_output=True, text=True, check=True)
    modules = {module for allowed in MODULES_OF_LIBRARY.values() for module in allowed}
    return {module: {header.name for header in (Path(query.stdout.strip()) / module).iterdir()} for module in modules}


def is_of_modules(system, modules, headers):
    module, _, header = system.rpartition("/")
    return any(header in headers[allowed] and module in ("", allowed) for allowed in modules)


def include_faults(name, text, library, headers):
    for own, system in INCLUDE.findall(text):
        if own and folder(own):
            if FLOOR_OF_FOLDER[folder(own)] > FLOOR_OF_FOLDER[folder(name)]:
                yield f"{name}: {own} is on a higher floor"
            if is_barred(name, own):
                yield f"{name}: may not use {own}"
            if own == "document/DocumentTables.h" and is_below_rim(name):
                yield f"{name}: may not know the tables"
        elif library in MODULES_OF_LIBRARY and system.startswith("Q"):
            if not is_of_modules(system, MODULES_OF_LIBRARY[library], headers):
                yield f"{name}: {library} may not use <{system}>"


def platform_faults():
    listed = subprocess.run(["git", "ls-files", "*.h", "*.cpp"], cwd=ROOT, capture_output=True, text=True,
                            check=True).stdout.split()
    for name in (name for name in listed if not name.startswith(STANDS_IN)):
        for platform in PLATFORM.findall((ROOT / name).read_text(encoding="utf-8")):
            yield f"{name}: asks for {platform}, which only {', '.join(STANDS_IN)} may"


def find_loop(graph):
    """The units of one include loop, or nothing."""
    closed = set()

    def visit(node, trail):
        if node in trail:
            return trail[trail.index(node):] + [node]
        if node in closed:
            return None
        for target in sorted(graph.get(node, ())):
            loop = visit(target, trail + [node])
            if loop:
                return loop
        closed.add(node)
        return None

    return next((loop for start in sorted(graph) if (loop := visit(start, []))), None)


def main():
    listed = subprocess.run(["git", "ls-files", *(f"{name}/*" for name in FLOOR_OF_FOLDER)], cwd=ROOT,
                            capture_output=True, text=True, check=True).stdout.split("\n")
    sources = {name: (ROOT / name).read_text(encoding="utf-8") for name in listed if name.endswith((".h", ".cpp"))}
    libraries = library_of_sources(listed)
    headers = qt_headers()
    faults = [fault for name, text in sources.items()
              for fault in include_faults(name, text, libraries.get(name), headers)]
    faults += [f"{name}: in no CMakeLists.txt" for name in sources if name not in libraries and Path(name).stem != "main"]
    faults += platform_faults()
    graph = {}
    for name, text in sources.items():
        targets = {unit(own) for own, _ in INCLUDE.findall(text) if own} - {unit(name)}
        graph.setdefault(unit(name), set()).update(targets)
    loop = find_loop(graph)
    if loop:
        faults.append("include loop: " + " -> ".join(loop))
    print("\n".join(faults) if faults else f"floors: {len(sources)} files as they should be")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

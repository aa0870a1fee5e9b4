#!/usr/bin/env python3
"""Checks the floors: a file includes what stands on its own floor or below, in no loop, and the core no widget."""

import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
FLOOR_OF_FOLDER = {"resources": 0, "runtime": 0, "document": 1, "platform": 2, "dialogs": 3, "editor": 4, "app": 5}
# Files of app/ that stand lower than the frame
FLOOR_OF_APP_FILE = {"IniFile": 0, "Language": 2, "Messages": 2, "Settings": 2, "Common": 2}
# Files of app/ that the core library holds
CORE_APP_FILES = ("IniFile", "Language", "Messages", "Settings")
# What a folder may use beside itself where the floor alone would allow more
ONLY = {"resources": (), "runtime": (), "document": ("runtime/", "app/IniFile", "resources/OwnTexts"), "platform": ("runtime/", "resources/")}
# The rooms of document/ that may know the global tables; whatever lies below this rim works on values.
RIM = ("DocumentTables", "CollectPrRecords", "PrFileReader", "PrFileWriter", "TableTexts")
INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


def room(path):
    """A source file and its header count as one."""
    return str(Path(path).with_suffix(""))


def floor(path):
    folder, name = Path(path).parts[0], Path(path).stem
    return FLOOR_OF_APP_FILE.get(name, 5) if folder == "app" else FLOOR_OF_FOLDER[folder]


def is_core(path):
    folder, name = Path(path).parts[0], Path(path).stem
    return folder in ("runtime", "document", "resources") or (folder == "app" and name in CORE_APP_FILES)


def is_barred(path, target):
    """Whether the file's folder is held to less than its floor allows."""
    folder = Path(path).parts[0]
    return folder in ONLY and folder != Path(target).parts[0] and not target.startswith(ONLY[folder] or ("-",))


def is_below_rim(path):
    return Path(path).parts[0] in ("runtime", "document") and Path(path).stem not in RIM


def qt_core_headers():
    query = subprocess.run(["qmake6", "-query", "QT_INSTALL_HEADERS"], capture_output=True, text=True, check=True)
    return {header.name for header in (Path(query.stdout.strip()) / "QtCore").iterdir()}


def include_faults(name, text, core_headers):
    for own, system in INCLUDE.findall(text):
        if own and Path(own).parts[0] in FLOOR_OF_FOLDER:
            if floor(own) > floor(name):
                yield f"{name}: {own} stands on a higher floor"
            if is_barred(name, own):
                yield f"{name}: may not use {own}"
            if own == "document/DocumentTables.h" and is_below_rim(name):
                yield f"{name}: may not know the tables"
        elif is_core(name) and system.startswith("Q"):
            module, _, header = system.rpartition("/")
            if header not in core_headers or module not in ("", "QtCore"):
                yield f"{name}: <{system}> is not of Qt Core"


def find_loop(graph):
    """The rooms of one include loop, or nothing."""
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
    listed = subprocess.run(["git", "ls-files", *(f"{folder}/*" for folder in FLOOR_OF_FOLDER)], cwd=ROOT,
                            capture_output=True, text=True, check=True).stdout.split("\n")
    sources = {name: (ROOT / name).read_text(encoding="utf-8") for name in listed if name.endswith((".h", ".cpp"))}
    core_headers = qt_core_headers()
    faults = [fault for name, text in sources.items() for fault in include_faults(name, text, core_headers)]
    graph = {}
    for name, text in sources.items():
        targets = {room(own) for own, _ in INCLUDE.findall(text) if own} - {room(name)}
        graph.setdefault(room(name), set()).update(targets)
    loop = find_loop(graph)
    if loop:
        faults.append("include loop: " + " -> ".join(loop))
    print("\n".join(faults) if faults else f"floors: {len(sources)} files as they should be")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

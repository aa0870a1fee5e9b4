#!/usr/bin/env python3
"""Checks docs/reliability.md: each test that a promise names is there."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PAGE = ROOT / "docs/reliability.md"
TEST = re.compile(r"^TEST(?:_[FP])?\((\w+),\s*(\w+)\)", re.MULTILINE)
PROGRAM = re.compile(r"(?:add_executable|tabrix_(?:core|display|widget|document|dialog)_test)\((\w+)")
NAME = re.compile(r"`([^`]+)`")


def read_all(pattern):
    return {path: path.read_text(encoding="utf-8") for path in sorted(ROOT.glob(pattern))}


class Tests:
    """What the sources and build files define."""

    def __init__(self):
        self.sources = read_all("tests/**/*.cpp") | read_all("fuzz/*.cpp")
        self.programs = {name for text in read_all("tests/**/CMakeLists.txt").values() for name in PROGRAM.findall(text)}
        self.suites = {}
        for path, text in self.sources.items():
            for suite, name in TEST.findall(text):
                self.suites.setdefault(suite, {}).setdefault(name, path)

    def has_case(self, suite, beginning):
        """A test by the beginning of its name, or one of a suite's named parameters."""
        tests = self.suites.get(suite, {})
        sources = [self.sources[path] for path in set(tests.values())]
        return any(name.startswith(beginning) for name in tests) or any(f'"{beginning}"' in text for text in sources)

    def has_file(self, name):
        return any(str(path).endswith("/" + name) for path in self.sources)


def faults_of_cell(cell, tests):
    suite = ""
    for name in NAME.findall(cell):
        beginning = name.removesuffix("...")
        if name.endswith(".cpp"):
            found = tests.has_file(name)
        elif name.endswith("_test"):
            found = name in tests.programs
        elif name in tests.suites:
            suite, found = name, True
        else:
            own_suite, dot, rest = beginning.partition(".")
            suite, beginning = (own_suite, rest) if dot else (suite, beginning)
            found = tests.has_case(suite, beginning)
        if not found:
            yield f"no test is called {name}"


def main():
    tests = Tests()
    faults = []
    for number, line in enumerate(PAGE.read_text(encoding="utf-8").splitlines(), 1):
        cells = line.strip("|").split(" | ")
        if line.startswith("| ") and len(cells) == 2 and cells[0].strip() != "promise":
            if not NAME.search(cells[1]) and cells[1].strip() not in ("the same", "the same, read by the test's own code"):
                faults.append(f"{number}: a promise without a test")
            faults += [f"{number}: {fault}" for fault in faults_of_cell(cells[1], tests)]
    for fault in faults:
        print(f"docs/reliability.md:{fault}")
    return 1 if faults else 0


sys.exit(main())

#!/usr/bin/env python3
"""check-counts.py [--keep] [BUILD]: fails when what users wait for takes over 3 % more instructions than bench/counts.txt.

Needs a built folder, by default that of the release build. --keep writes its figures there instead, after a change that is
worth them or that saves some.
"""
import pathlib
import subprocess
import sys

TOLERANCE = 0.03
CHANCE = 50_000  # instructions that depend on where memory happens to be
root = pathlib.Path(__file__).resolve().parent.parent
kept_file = root / "bench/counts.txt"


def by_name(lines):
    return {name: int(number) for number, name in (line.split("\t") for line in lines.splitlines())}


arguments = [argument for argument in sys.argv[1:] if argument != "--keep"]
printed = subprocess.run([root / "scripts/counts.sh", *arguments], stdout=subprocess.PIPE, text=True, check=True).stdout
if "--keep" in sys.argv:
    kept_file.write_text(printed)
    sys.exit()

counted = by_name(printed)
kept = by_name(kept_file.read_text())
if counted.keys() != kept.keys():
    sys.exit("bench/counts.txt does not have the same rows: " + ", ".join(sorted(counted.keys() ^ kept.keys())))
grown = []
for name, number in counted.items():
    growth = number / kept[name] - 1
    print(f"{number:>12,} {growth:+7.1%}  {name}")
    if growth > TOLERANCE and number - kept[name] > CHANCE:
        grown.append(name)
if grown:
    sys.exit(f"Slower than bench/counts.txt by more than {TOLERANCE:.0%}: " + ", ".join(grown)
             + "\nIf the change is worth it, or only a library has changed: scripts/check-counts.py --keep")

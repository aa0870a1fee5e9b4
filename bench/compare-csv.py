"""compare-csv.py OLD NEW: compares two CSV files by the first column, as scripts for such files do."""

import csv
import sys


def rows_by_number(name):
    with open(name, encoding="utf-8", newline="") as file:
        reader = csv.DictReader(file)
        return {row["number"]: row for row in reader}


def main():
    old, new = (rows_by_number(name) for name in sys.argv[1:3])
    for number in old.keys() | new.keys():
        before, after = old.get(number), new.get(number)
        if before is None or after is None:
            print(number, "added" if before is None else "removed")
        elif before != after:
            for field, value in before.items():
                if value != after[field]:
                    print(number, field, value, "->", after[field])


if __name__ == "__main__":
    main()

"""usage: report.py FOLDER LINES REASONS

Prints lines and branches by room out of gcovr's LINES, then the files with less than ENOUGH of their branches, each
with its reason out of REASONS. Status 1 when one has none, when a reason is not needed any more, or when all files
together have less than ALTOGETHER.

A condition that is written in a line has two branches. What the compiler adds to these serves exceptions, most of
all the destruction of what has been made before one, and does not count; the last column has it all the same. FOLDER
holds the sources.
"""

import collections
import json
import os
import re
import sys

ENOUGH = 85.0
ALTOGETHER = 92.0

CONDITION = re.compile(r"\b(?:if|while|for|case|do)\b|\?|&&|\|\|")
NOT_CODE = re.compile(r'"(\\.|[^"\\])*"|//.*')


def branches_of(line, text):
    """Taken ones, ones that are written, and both as the compiler makes them."""
    made = [branch for branch in line["branches"] if not branch.get("throw")]
    taken = sum(branch["count"] > 0 for branch in made)
    code = NOT_CODE.sub("", text)
    written = len(made) if "switch" in code else min(len(made), 2 * len(CONDITION.findall(code)))
    return min(taken, written), written, taken, len(made)


def figures_of(file, folder):
    """Lines run, lines, and the branches as above."""
    figures = [0] * 6
    with open(os.path.join(folder, file["file"]), encoding="utf-8") as source:
        texts = source.read().splitlines()
    for line in file["lines"]:
        if line.get("gcovr/noncode"):
            continue
        text = texts[line["line_number"] - 1]
        for i, figure in enumerate((line["count"] > 0, 1, *branches_of(line, text))):
            figures[i] += figure
    return figures


def share(part, whole):
    return 100.0 * part / whole if whole else 100.0


def print_row(name, rows):
    sums = [sum(column) for column in zip(*rows)]
    print("%-12s %3d files  lines %5d/%5d %5.1f%%  branches %4d/%4d %5.1f%%  with the compiler's %5.1f%%" % (
        name, len(rows), *sums[:2], share(*sums[:2]), *sums[2:4], share(*sums[2:4]), share(*sums[4:])))
    return share(*sums[2:4])


def main():
    folder, lines, reasons_file = sys.argv[1:]
    with open(lines, encoding="utf-8") as source:
        files = {file["file"]: figures_of(file, folder) for file in json.load(source)["files"]}
    with open(reasons_file, encoding="utf-8") as source:
        reasons = dict(line.rstrip("\n").split(" ", 1) for line in source if line.strip() and line[0] != "#")

    rooms = collections.defaultdict(list)
    for name, figures in files.items():
        rooms[os.path.dirname(name)].append(figures)
    for room in sorted(rooms):
        print_row(room.removeprefix("driver/"), rooms[room])
    passed = print_row("all", list(files.values())) >= ALTOGETHER

    print()
    low = {name: figures for name, figures in files.items() if share(*figures[2:4]) < ENOUGH}
    for name in sorted(low, key=lambda name: low[name][2] - low[name][3]):
        _, _, taken, written, _, _ = low[name]
        print("%5.1f%% (%d/%d) %s: %s" % (
            share(taken, written), taken, written, name, reasons.get(name, "NO REASON GIVEN")))
        passed = passed and name in reasons
    for name in sorted(set(reasons) - set(low)):
        print("%s: the reason is not needed any more" % name)
        passed = False
    return 0 if passed else 1


sys.exit(main())

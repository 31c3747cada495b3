#!/usr/bin/env python3
"""Fails when docs/quirks.md names a test that the sources of the tests do not hold.

    check_quirks.py REPOSITORY
"""

import pathlib
import re
import sys

TEST = re.compile(r"^TEST(?:_F|_P)?\(\s*(\w+)\s*,\s*(\w+)\s*\)", re.MULTILINE)
NAME = re.compile(r"`(\w+\.\w+)`")
HEAD = ["What", "What a host or a reader of the file sees of it", "Held by"]


def tests_in(folder):
    names = set()
    for path in sorted(folder.rglob("*.cpp")):
        for suite, name in TEST.findall(path.read_text(encoding="utf-8")):
            names.add(suite + "." + name)
    return names


def rows_in(document):
    """Line number and cells of each row, heads and rulers left out."""
    for number, line in enumerate(document.read_text(encoding="utf-8").splitlines(), 1):
        if not line.startswith("|"):
            continue
        cells = [cell.strip() for cell in line.strip().strip("|").split("|")]
        if cells != HEAD and not all(re.fullmatch("-+", cell) for cell in cells):
            yield number, cells


def faults_of(cells, tests, seen):
    if len(cells) != len(HEAD) or not all(cells):
        return ["a row has three cells: what, what a host sees of it, held by"]
    faults = []
    if cells[0] in seen:
        faults.append("this quirk stands twice")
    seen.add(cells[0])
    names = NAME.findall(cells[2])
    if not names or NAME.sub("", cells[2]).strip(" ,"):
        faults.append("the last cell names tests and nothing else: `Suite.Name`, `Suite.Name`")
    faults += ["no test " + name for name in names if name not in tests]
    return faults


def main():
    repository = pathlib.Path(sys.argv[1])
    tests = tests_in(repository / "tests")
    rows = list(rows_in(repository / "docs" / "quirks.md"))
    seen = set()
    faults = ["docs/quirks.md:%d: %s" % (number, fault)
              for number, cells in rows for fault in faults_of(cells, tests, seen)]
    if not tests or not rows:
        faults.append("no tests or no quirks found")
    print("\n".join(faults) or "%d quirks, each held by a test" % len(rows))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Checks who includes whom.

Usage: check_includes.py ROOT

Reads the #include lines of the project at ROOT and compares them with the rules in this file. Each
wrong one is printed as FILE:LINE with the rule that it breaks, and the exit status is 1.
"""

import argparse
import re
import sys
from dataclasses import dataclass
from pathlib import Path, PurePosixPath

# ---- The rules ----------------------------------------------------------------------------------

# Folder: the folders and single headers of the project that its files may include, besides their
# own folder's. Each of these edges must exist. tests/ may include anything and is not listed, but
# for the folders that stand here.
FACE = "include/zorbi2"
RESULT_READER = "quenta/CQuentaResultReader_Manipulator.h"
MAY_INCLUDE = {
    FACE: [],
    "platform": [],
    "quenta": [],
    "results": [FACE, "platform", RESULT_READER],
    "items": [FACE],
    "cmi": [FACE, "platform"],
    "engine": [FACE, "platform", "results", "items", "cmi"],
    "host": ["host/system", "host/console", "host/commands"],
    "host/problems": [],
    "host/system": ["host/problems"],
    "host/console": ["host/problems", "host/system"],
    "host/control_files": [FACE, "host/problems"],
    "host/recipes": [FACE, "host/problems", "host/system", "host/control_files"],
    "host/handover": [FACE, "host/problems", "host/system", "host/recipes", "host/control_files"],
    "host/commands": [FACE, "host/problems", "host/system", "host/console", "host/recipes",
                      "host/control_files", "host/handover"],
    "examples": [FACE],
    "tests/fuzz": [FACE, "platform", "results", "tests/support"],
    "bench": [FACE, "platform"],
}

# Where includes without a folder of their own start, besides the including file's folder.
INCLUDE_PATHS = ["include", "host", "."]

# Libraries by the folders that may include them.
LIBRARIES = {
    "host/commands": ["CLI/CLI.hpp", "kainjow/mustache.hpp"],
    "host/console": ["nlohmann/json.hpp"],
    "host/recipes": ["toml++/toml.h"],
    "bench": ["benchmark/benchmark.h", "malloc.h", "sys/stat.h", "unistd.h",
              "valgrind/callgrind.h"],
}

# The only files that may include headers of the operating system: those that end in its name.
SYSTEM_SOURCES = re.compile(r"(platform|host/system)/\w+(Posix|Windows)\.cpp")

STANDARD_HEADERS = set("""
    algorithm any array atomic barrier bit bitset charconv chrono codecvt compare complex concepts
    condition_variable coroutine deque exception execution filesystem format forward_list fstream
    functional future initializer_list iomanip ios iosfwd iostream istream iterator latch limits
    list locale map memory memory_resource mutex new numbers numeric optional ostream queue random
    ranges ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream
    stack stdexcept stop_token streambuf string string_view strstream syncstream system_error
    thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility valarray
    variant vector version
""".split())
C_HEADERS = set("""
    cassert cctype cerrno cfenv cfloat cinttypes climits clocale cmath csetjmp csignal cstdarg
    cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype
""".split())
STANDARD_HEADERS |= C_HEADERS | {f"{name[1:]}.h" for name in C_HEADERS}

# ---- The check ----------------------------------------------------------------------------------

SOURCE_SUFFIXES = {".h", ".hpp", ".hh", ".hxx", ".inl", ".c", ".cc", ".cpp", ".cxx"}
INCLUDE = re.compile(r"\s*#\s*include\s*(?:<(?P<angle>[^>]+)>|\"(?P<quoted>[^\"]+)\")?")


@dataclass(frozen=True)
class Include:
    file: str  # path of the including file from the root
    line: int
    name: str  # as written; empty when it is neither <...> nor "..."
    in_angles: bool
    target: str | None  # path of the included file from the root, if it is the project's


@dataclass(frozen=True)
class Fault:
    file: str
    line: int
    rule: str

    def __str__(self):
        return f"{self.file}:{self.line}: {self.rule}"


def folder_of(path):
    """The folder of the rules that a file belongs to: the longest that its path starts with."""
    folders = [folder for folder in MAY_INCLUDE if path.startswith(folder + "/")]
    return max(folders, key=len, default=path.split("/")[0])


def source_files(root):
    for path in sorted({path for folder in MAY_INCLUDE for path in (root / folder).rglob("*")}):
        if path.suffix in SOURCE_SUFFIXES and path.is_file():
            yield path.relative_to(root).as_posix()


def find_target(root, file, name):
    """Looks where the compiler looks. A header may be one that the build makes from its template,
    NAME.in."""
    for place in [PurePosixPath(file).parent, *map(PurePosixPath, INCLUDE_PATHS)]:
        for ending in ["", ".in"]:
            path = (root / place / (name + ending)).resolve()
            if path.is_file() and path.is_relative_to(root):
                return path.relative_to(root).as_posix()
    return None


def read_includes(root):
    for file in source_files(root):
        text = (root / file).read_text(encoding="utf-8", errors="replace")
        for number, line in enumerate(text.splitlines(), start=1):
            if match := INCLUDE.match(line):
                name = match["angle"] or match["quoted"] or ""
                target = find_target(root, file, name) if name else None
                yield Include(file, number, name, match["angle"] is not None, target)


def edge_of(include):
    """The entry of the including folder's row that permits an include, if one does."""
    for entry in MAY_INCLUDE[folder_of(include.file)]:
        has_no_row = entry not in MAY_INCLUDE and include.target.startswith(entry + "/")
        if include.target == entry or folder_of(include.target) == entry or has_no_row:
            return entry
    return None


def check_outside_header(include):
    if not include.in_angles:
        return f'there is no "{include.name}"'
    libraries = [name for folder, names in LIBRARIES.items()
                 if include.file.startswith(folder + "/") for name in names]
    if include.name in STANDARD_HEADERS | set(libraries) or SYSTEM_SOURCES.fullmatch(str(include.file)):
        return None
    return f"<{include.name}> is no standard header, and this file may have no other"


def check_include(include):
    if not include.name:
        return "neither <...> nor \"...\", which cannot be checked"
    if include.target is None:
        return check_outside_header(include)
    folder = folder_of(include.file)
    if folder_of(include.target) == folder or edge_of(include):
        return None
    return f"{folder}/ may not include {include.target}"


def check_edges(includes):
    """Names the permissions that nothing uses."""
    used = {(folder_of(include.file), edge_of(include)) for include in includes}
    return [Fault("MAY_INCLUDE", 0, f"no file in {folder}/ includes {entry}")
            for folder, row in MAY_INCLUDE.items() for entry in row if (folder, entry) not in used]


def find_circle(edges):
    """A way from a node back to itself, as a list of nodes; None when there is none."""
    done = set()

    def walk(node, way):
        if node in way:
            return way[way.index(node):] + [node]
        if node in done:
            return None
        for following in sorted(edges.get(node, ())):
            if circle := walk(following, way + [node]):
                return circle
        done.add(node)
        return None

    for node in sorted(edges):
        if circle := walk(node, []):
            return circle
    return None


def check_circles(includes, name_of, kind):
    """Names the include that closes a circle between folders or files."""
    edges = {}
    for include in includes:
        start, end = name_of(include.file), name_of(include.target)
        if start != end or kind == "files":
            edges.setdefault(start, set()).add(end)
    circle = find_circle(edges)
    if circle is None:
        return []
    closing = next(include for include in includes
                   if name_of(include.file) == circle[-2] and name_of(include.target) == circle[-1])
    return [Fault(closing.file, closing.line, f"circle of {kind}: {' -> '.join(circle)}")]


def check_tree(root):
    root = root.resolve()
    includes = list(read_includes(root))
    faults = [Fault(include.file, include.line, rule)
              for include in includes if (rule := check_include(include))]
    inside = [include for include in includes if include.target]
    faults += check_circles(inside, folder_of, "folders")
    faults += check_circles(inside, str, "files")
    faults += check_edges(inside)
    return faults


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("root", type=Path, help="top folder of the project")
    root = parser.parse_args().root.resolve()
    count = len(list(source_files(root)))
    if count == 0:
        print(f"no source files below {root}", file=sys.stderr)
        return 2
    faults = check_tree(root)
    for fault in faults:
        print(fault)
    print(f"{count} files, {len(faults)} wrong includes")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

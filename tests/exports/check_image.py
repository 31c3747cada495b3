#!/usr/bin/env python3
"""Reads from a library or program itself what it promises linker and loader: the names that it
exports, the libraries that it needs, and the protections that it is built with.

    check_image.py FILE [--exports LIST ...] [--libraries PATTERN ...] [--optimized] [--guarded]

Without LIST it may export nothing. FILE is for ELF (read by readelf) or for Windows.
"""
import argparse
import fnmatch
import pathlib
import re
import struct
import subprocess
import sys

ENDBR64 = b"\xf3\x0f\x1e\xfa"


class Elf:
    def __init__(self, path):
        self.data = path.read_bytes()
        self.text = subprocess.run(
            ["readelf", "--wide", "--file-header", "--segments", "--dynamic", "--dyn-syms", path],
            check=True, capture_output=True, text=True, errors="replace").stdout
        # Value, type and index of the section, name; another library's data that was copied
        # has its version at the name. A sanitizer's variables are its own.
        rows = re.findall(r"^ +\d+: ([0-9a-f]+) +\d+ (\w+) +\w+ +\w+ +(\w+) (\S+)", self.text, re.M)
        self.wanted = {name.split("@")[0] for _, _, section, name in rows if section == "UND"}
        self.exported = {name: (int(value, 16), kind) for value, kind, section, name in rows
                         if section != "UND" and "@" not in name
                         and not name.startswith(("__asan_", "__ubsan_"))}
        self.exports = set(self.exported)
        self.libraries = re.findall(r"\(NEEDED\).*\[(.*)\]", self.text)

    def segment(self, kind):
        found = re.search(rf"^ +{kind} .* 0x[0-9a-f]+ ([RWE ]{{3}}) 0x", self.text, re.M)
        return found.group(1) if found else None

    def offset(self, address):
        for start, virtual, size in re.findall(
                r"^ +LOAD +0x(\w+) 0x(\w+) 0x\w+ 0x(\w+)", self.text, re.M):
            if int(virtual, 16) <= address < int(virtual, 16) + int(size, 16):
                return int(start, 16) + address - int(virtual, 16)
        raise ValueError(f"no segment holds {address:x}")

    def starts_of_functions(self):
        starts = (self.offset(value) for value, kind in self.exported.values() if kind == "FUNC")
        return [self.data[start:start + len(ENDBR64)] for start in starts]

    def protections(self, _):
        x86 = "X86-64" in self.text
        return [
            ("any address in memory", re.search(r"Type: +DYN ", self.text)),
            ("no stack that can be executed", self.segment("GNU_STACK") == "RW "),
            ("relocated data read-only", self.segment("GNU_RELRO")),
            ("all functions bound at the start", re.search(r"\(FLAGS_1\).*\bNOW\b", self.text)),
            ("stack protector", "__stack_chk_fail" in self.wanted),
            ("targets of indirect calls marked",
             not x86 or all(start == ENDBR64 for start in self.starts_of_functions())),
        ]

    def checks_sizes(self):
        return any(re.fullmatch(r"__\w+_chk", name) for name in self.wanted)


class Windows:
    def __init__(self, path):
        self.data = path.read_bytes()
        header = self.number("<I", 0x3C)
        optional = header + 24
        if self.data[header:header + 4] != b"PE\0\0" or self.number("<H", optional) != 0x20B:
            raise ValueError("not a 64-bit program or library")
        self.is_of_gnu_linker = self.number("<B", optional + 2) == 2
        self.promises = self.number("<H", optional + 70)
        section = optional + self.number("<H", header + 20)
        self.sections = [struct.unpack_from("<4I", self.data, section + 40 * index + 8)
                         for index in range(self.number("<H", header + 6))]
        exports, imports = (self.number("<I", optional + 112 + 8 * index) for index in (0, 1))
        self.exports = set(self.read_exports(exports)) if exports else set()
        self.libraries = list(self.read_imports(imports)) if imports else []

    def number(self, kind, offset):
        return struct.unpack_from(kind, self.data, offset)[0]

    def offset(self, address):
        for size, virtual, raw_size, start in self.sections:
            if virtual <= address < virtual + max(size, raw_size):
                return start + address - virtual
        raise ValueError(f"no section holds {address:x}")

    def text_at(self, address):
        start = self.offset(address)
        return self.data[start:self.data.index(b"\0", start)].decode("ascii")

    def read_exports(self, address):
        table = self.offset(address)
        names = self.offset(self.number("<I", table + 32))
        for index in range(self.number("<I", table + 24)):
            yield self.text_at(self.number("<I", names + 4 * index))

    def read_imports(self, address):
        row = self.offset(address)
        while self.number("<I", row + 12):
            yield self.text_at(self.number("<I", row + 12))
            row += 20

    def protections(self, guarded):
        # Of the stack protectors, only that of GCC is in the file itself.
        return [
            ("any address in memory", self.promises & 0x40),
            ("high addresses", self.promises & 0x20),
            ("no data that can be executed", self.promises & 0x100),
            ("control-flow guard", self.promises & 0x4000 or not guarded),
            ("stack protector", b"*** stack smashing detected ***" in self.data
             or not self.is_of_gnu_linker),
        ]

    def checks_sizes(self):
        # The names are those for debuggers, which are still in it where it is built.
        return re.search(rb"\0__(?!stack)\w+_chk\0", self.data)


def read_image(path):
    return Elf(path) if path.read_bytes()[:4] == b"\x7fELF" else Windows(path)


def names_in(lists):
    return {line for path in lists for line in pathlib.Path(path).read_text().split()}


def faults_of(image, expected, libraries, optimized, guarded):
    yield from (f"missing:    {name}" for name in sorted(expected - image.exports))
    yield from (f"unexpected: {name}" for name in sorted(image.exports - expected))
    for library in image.libraries:
        if not any(fnmatch.fnmatchcase(library.lower(), allowed.lower()) for allowed in libraries):
            yield f"needs {library}"
    if not image.libraries and libraries:
        yield "no import table was found"
    yield from (f"built without: {name}" for name, held in image.protections(guarded) if not held)
    if optimized and not image.checks_sizes():
        yield "built without: checked sizes in functions of the C library"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("file", type=pathlib.Path)
    parser.add_argument("--exports", nargs="*", default=[])
    parser.add_argument("--libraries", nargs="*", default=["*"])
    parser.add_argument("--optimized", action="store_true", help="checks of sizes are in it")
    parser.add_argument("--guarded", action="store_true", help="Visual Studio's control-flow guard is in it")
    wanted = parser.parse_args()
    image = read_image(wanted.file)
    faults = list(faults_of(image, names_in(wanted.exports), wanted.libraries, wanted.optimized,
                            wanted.guarded))
    for fault in faults:
        print(f"{wanted.file.name}: {fault}")
    if not faults:
        print(f"{len(image.exports)} exported names, as listed; needs {', '.join(image.libraries)}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

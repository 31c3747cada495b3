#!/usr/bin/env python3
"""Compares the names that objects for Microsoft's linker ask to be exported with the committed
lists, and finds objects that should ask for none.

    check_directives.py FOLDER

FOLDER is that of a build; llvm-readobj reads the objects.
"""
import pathlib
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).parent

# Objects, and the lists of the libraries that they make.
EXPORTING = {
    "CZorbI2EngineManager.cpp.obj": "ZorbI2Engine.msvc.exports",
    "CQuentaResultReader_Manipulator.cpp.obj": "QuentaResultEngine.msvc.exports",
}


def exports_of(objects):
    """The exported names of each object: what the linker will read."""
    printed = subprocess.run(["llvm-readobj", "--coff-directives", *objects], check=True,
                             capture_output=True, text=True).stdout
    names = {}
    for part in printed.split("\nFile: ")[1:]:
        names[pathlib.Path(part.splitlines()[0])] = set(re.findall(r'/EXPORT:"?([^", ]+)', part))
    return names


def faults_of(names):
    met = {path.name for path in names}
    yield from (f"{name} was not built" for name in EXPORTING if name not in met)
    for path, exported in sorted(names.items()):
        expected = set()
        if path.name in EXPORTING:
            expected = set((HERE / EXPORTING[path.name]).read_text().split())
        yield from (f"{path.name}: missing:    {name}" for name in sorted(expected - exported))
        yield from (f"{path.name}: unexpected: {name}" for name in sorted(exported - expected))


def main():
    names = exports_of(sorted(pathlib.Path(sys.argv[1]).rglob("*.obj")))
    faults = list(faults_of(names))
    for fault in faults:
        print(fault)
    if not faults:
        print(f"{len(names)} objects export {sum(map(len, names.values()))} names, as listed")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

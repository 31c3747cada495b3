#!/usr/bin/env python3
"""check_image.py names every fault of libraries that are built without any protection."""
import pathlib
import shutil
import subprocess
import tempfile
import unittest

import check_image

SOURCE = """
#include <string.h>
#ifdef _WIN32
__declspec(dllexport)
#endif
int Shown(const char* text) { char copy[40]; strcpy(copy, text); return (int)strlen(copy); }
"""

BARE = ["-O0", "-fno-stack-protector", "-fcf-protection=none", "-U_FORTIFY_SOURCE"]
PROTECTED = ["-O2", "-fstack-protector-strong", "-fcf-protection", "-D_FORTIFY_SOURCE=2"]


class CheckImage(unittest.TestCase):
    compiler = "cc"
    bare = BARE + ["-fPIC", "-Wl,-z,norelro,-z,lazy,-z,execstack"]
    protected = PROTECTED + ["-fPIC", "-Wl,-z,relro,-z,now"]
    weak = ["no stack that can be executed", "relocated data read-only",
            "all functions bound at the start", "stack protector",
            "targets of indirect calls marked",
            "checked sizes in functions of the C library"]

    def faults(self, options, expected={"Shown"}, libraries=("*",)):
        if shutil.which(self.compiler) is None:
            self.skipTest(f"no {self.compiler} here")
        with tempfile.TemporaryDirectory() as folder:
            library = pathlib.Path(folder, "shown.dll")
            subprocess.run([self.compiler, "-shared", *options, "-x", "c", "-", "-o", library],
                           input=SOURCE, text=True, check=True)
            return list(check_image.faults_of(check_image.read_image(library), set(expected),
                                              libraries, optimized=True, guarded=False))

    def test_protected_library_has_no_faults(self):
        self.assertEqual(self.faults(self.protected), [])

    def test_every_missing_protection_is_named(self):
        self.assertEqual(self.faults(self.bare), [f"built without: {name}" for name in self.weak])

    def test_names_are_compared_both_ways(self):
        self.assertEqual(self.faults(self.protected, {"Hidden"}),
                         ["missing:    Hidden", "unexpected: Shown"])

    def test_other_libraries_are_named(self):
        self.assertRegex(self.faults(self.protected, libraries=("other",))[0], "^needs ")


class CheckWindowsImage(CheckImage):
    compiler = "x86_64-w64-mingw32-gcc-posix"
    bare = BARE + ["-Wl,--disable-dynamicbase,--disable-high-entropy-va,--disable-nxcompat"]
    protected = PROTECTED + ["-static", "-Wl,--dynamicbase,--high-entropy-va,--nxcompat"]
    weak = ["any address in memory", "high addresses", "no data that can be executed",
            "stack protector", "checked sizes in functions of the C library"]


if __name__ == "__main__":
    unittest.main()

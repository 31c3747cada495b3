"""Another result reader in the place of the bundled one."""

import os
import unittest

from program import ON_WINDOWS, ProgramTest

FOLDER = os.environ.get("ZORBI2_THROWING_READER", "")


@unittest.skipUnless(FOLDER and not ON_WINDOWS, "needs a library that the loader finds first")
class ReplacedReader(ProgramTest):
    def test_what_it_throws_arrives(self):
        self.make_run()
        self.make_recipe()
        (self.folder / "scratch").mkdir()
        before = sorted(self.folder.rglob("*"))
        for thrown, reason in (
                ({}, "out of memory"),
                ({"ZORBI2_THROW_NUMBER": "1"}, "unknown error in the result reader")):
            with self.subTest(reason):
                done = self.run_program("write", "cover.toml", environment={
                    "LD_LIBRARY_PATH": FOLDER, "TMPDIR": str(self.folder / "scratch"), **thrown})
                self.check(done, 3, stdout="", stderr=f"zorbi2: {reason}\n")
                self.assertEqual(sorted(self.folder.rglob("*")), before)


if __name__ == "__main__":
    unittest.main()

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
        before = self.files()
        done = self.run_program("write", "cover.toml", environment={"LD_LIBRARY_PATH": FOLDER})
        self.check(done, 3, stdout="", stderr="zorbi2: out of memory\n")
        self.assertEqual(self.files(), before)


if __name__ == "__main__":
    unittest.main()

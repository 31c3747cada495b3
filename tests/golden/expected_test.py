#!/usr/bin/env python3
"""Checks that expected.py finds the faults it is there for.

    expected_test.py PASSES_FILE
"""

import contextlib
import io
import pathlib
import shutil
import sys
import tempfile
import unittest

import expected

HERE = pathlib.Path(__file__).parent
PASSES = pathlib.Path(sys.argv.pop())


class ChangedGoldens(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        for golden in HERE.glob("*.cmi"):
            shutil.copy(golden, self.folder)

    def run_on_folder(self):
        sys.argv = ["expected.py", "--passes", str(PASSES), "--goldens", str(self.folder)]
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            status = expected.main()
        return status, output.getvalue()

    def test_unchanged_files_are_as_expected(self):
        self.assertEqual(self.run_on_folder()[0], 0)

    def test_every_single_changed_byte_is_found(self):
        golden = self.folder / "AnsysOriginal.cmi"
        content = golden.read_bytes()
        for position in range(0, len(content), 97):
            changed = bytearray(content)
            changed[position] ^= 1
            golden.write_bytes(changed)
            status, output = self.run_on_folder()
            self.assertEqual(status, 1)
            self.assertIn("AnsysOriginal", output)

    def test_a_cut_file_is_found(self):
        golden = self.folder / "AnsysOriginal.cmi"
        golden.write_bytes(golden.read_bytes()[:-1])
        self.assertEqual(self.run_on_folder()[0], 1)

    def test_a_missing_file_is_found(self):
        (self.folder / "AnsysOriginal.cmi").unlink()
        status, output = self.run_on_folder()
        self.assertEqual(status, 1)
        self.assertIn("no file", output)

    def test_a_file_without_a_pass_is_found(self):
        (self.folder / "Other.cmi").write_bytes(b"")
        status, output = self.run_on_folder()
        self.assertEqual(status, 1)
        self.assertIn("no such pass", output)


if __name__ == "__main__":
    unittest.main()

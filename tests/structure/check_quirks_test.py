#!/usr/bin/env python3
"""Checks that check_quirks.py finds the faults it is there for."""

import contextlib
import io
import pathlib
import shutil
import sys
import tempfile
import unittest

import check_quirks

HEAD = "| What | What a host or a reader of the file sees of it | Held by |\n|---|---|---|\n"


class Quirks(unittest.TestCase):
    def setUp(self):
        self.repository = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.repository)
        for folder in ("docs", "tests/cmi"):
            (self.repository / folder).mkdir(parents=True)
        self.write_tests("TEST(Suite, One) {}\nTEST_F(Suite, Two) {}\nTEST_P(\n    Suite, Three) {}\n")

    def write_tests(self, text):
        (self.repository / "tests/cmi/SuiteTest.cpp").write_text(text)

    def faults(self, rows):
        (self.repository / "docs/quirks.md").write_text("# Quirks\n\n" + rows)
        sys.argv = ["check_quirks.py", str(self.repository)]
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            status = check_quirks.main()
        return output.getvalue() if status else ""

    def test_rows_held_by_tests_pass(self):
        self.assertEqual(
            self.faults(HEAD + "| a | b | `Suite.One`, `Suite.Two` |\n| c | d | `Suite.Three` |\n"), "")

    def test_a_name_without_a_test_fails(self):
        self.assertIn("quirks.md:5: no test Suite.Four", self.faults(HEAD + "| a | b | `Suite.Four` |\n"))

    def test_a_test_that_only_a_comment_names_fails(self):
        self.write_tests("// TEST(Suite, One)\n")
        self.assertIn("no test", self.faults(HEAD + "| a | b | `Suite.One` |\n"))

    def test_a_row_without_a_test_fails(self):
        self.assertTrue(self.faults(HEAD + "| a | b | |\n"))
        self.assertTrue(self.faults(HEAD + "| a | b | by eye |\n"))

    def test_a_row_without_a_consequence_fails(self):
        self.assertTrue(self.faults(HEAD + "| a | | `Suite.One` |\n"))
        self.assertTrue(self.faults(HEAD + "| a | `Suite.One` |\n"))

    def test_a_quirk_that_stands_twice_fails(self):
        row = "| a | b | `Suite.One` |\n"
        self.assertIn("twice", self.faults(HEAD + row + row))

    def test_a_document_without_quirks_fails(self):
        self.assertTrue(self.faults(HEAD))


if __name__ == "__main__":
    unittest.main()

"""The example project gives the control file that stands beside it."""

import unittest

from program import EXAMPLE, ProgramTest, as_on_disk, copy_example, own_path


class Example(ProgramTest):
    def setUp(self):
        super().setUp()
        copy_example(self.folder / "cover")
        self.expected = as_on_disk((EXAMPLE / "expected" / "Cover02.cmi").read_bytes())

    def test_the_written_file_is_the_expected_one(self):
        done = self.run_program("write", "cover/cover.toml")
        written = self.folder / "cover" / "Cover02.cmi"
        self.check(done, 0, f"new      {own_path(written)}\n")
        self.assertEqual(written.read_bytes(), self.expected)

    def test_a_dry_run_prints_the_file_and_writes_nothing(self):
        before = self.files()
        done = self.run_program("write", "cover/cover.toml", "--dry-run")
        self.check(done, 0)
        self.assertEqual(done.output, self.expected)
        self.assertEqual(self.files(), before)

    def test_the_expected_file_passes_the_check(self):
        done = self.run_program("check", "cover/expected/Cover02.cmi")
        self.check(done, 0, "cover/expected/Cover02.cmi: no errors\n")


if __name__ == "__main__":
    unittest.main()

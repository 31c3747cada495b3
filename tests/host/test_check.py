"""The command "check", as a user calls it. What it finds in a file is tested beside its sources."""

import shutil
import unittest

from program import EXAMPLE, EXPECTED, ProgramTest

GOOD = "good.cmi"


class Check(ProgramTest):
    def setUp(self):
        super().setUp()
        shutil.copy(EXAMPLE / "expected" / "Cover02.cmi", self.folder / GOOD)

    def damage(self, old, new, name="bad.cmi"):
        text = (self.folder / GOOD).read_text(encoding="utf-8")
        self.assertIn(old, text)
        (self.folder / name).write_text(text.replace(old, new, 1), encoding="utf-8")
        return name

    def test_good_files(self):
        self.check(self.run_program("check", GOOD), 0, "good.cmi: no faults\n")
        self.check(self.run_program("check", GOOD, "--quiet"), 0, "")

    def test_a_file_with_line_ends_of_windows(self):
        text = (self.folder / GOOD).read_bytes().replace(b"\n", b"\r\n")
        (self.folder / "crlf.cmi").write_bytes(text)
        self.check(self.run_program("check", "crlf.cmi"), 0, "crlf.cmi: no faults\n")

    def test_a_fault_is_told_with_file_and_line(self):
        name = self.damage("SegmentY = 80", "SegmentY = 101")
        done = self.run_program("check", name)
        self.check(done, 1, None, None)
        self.assertRegex(done.stderr, r"\Abad\.cmi:41: .*101.*\n\Z")

    def test_all_files_are_checked_and_the_gravest_decides(self):
        name = self.damage("[\\HEADER]", "[/HEADER]")
        done = self.run_program("check", "none.cmi", name, GOOD)
        self.check(done, 3, None, None)
        self.assertIn("none.cmi: cannot be read: No such file or directory\n", done.stderr)
        self.assertRegex(done.stderr, r"bad\.cmi:38: ")
        self.assertIn("good.cmi: no faults\n", done.stdout)

    def test_what_the_file_asks_for_in_words(self):
        done = self.run_program("check", "--show", GOOD)
        self.check(done, 0, (EXPECTED / "check_show.txt").read_text(encoding="utf-8"))


if __name__ == "__main__":
    unittest.main()

"""The program in docs/host-guide.md is the one in examples/guide_host, and does what it says."""

import os
import re
import resource
import signal
import subprocess
import unittest

from document import fenced_blocks, text_of, transcript
from program import EXAMPLE, ProgramTest

HOST = os.environ["ZORBI2_GUIDE_HOST"]
GUIDE = text_of("docs/host-guide.md")
SOURCE = text_of("examples/guide_host/main.cpp")

def pieces(text):
    """The program's lines without head comment, headings and empty lines, sorted by paragraph."""
    text = text[text.index("#include"):]
    paragraphs = re.split(r"\n\n+|^// ---- .*$", text, flags=re.M)
    return sorted(part.strip("\n") for part in paragraphs if part.strip("\n"))


class HostGuide(ProgramTest):
    def setUp(self):
        super().setUp()
        self.out = self.folder / "out"
        self.out.mkdir()

    def hand_over(self, prepare=None, out="out"):
        return subprocess.run([HOST, EXAMPLE / "Run02", out], cwd=self.folder, check=False,
                              text=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              preexec_fn=prepare,
                              # Counts of lines that ran are not for files cut off like these.
                              env={**os.environ, "GCOV_PREFIX": str(self.folder / "counts")})

    def names(self):
        return sorted(path.name for path in self.out.iterdir())

    def test_the_guide_shows_the_whole_program(self):
        blocks = fenced_blocks(GUIDE, "cpp")
        for block in blocks:
            self.assertIn(block, SOURCE)
        self.assertEqual(pieces("\n".join(blocks)), pieces(SOURCE))

    def test_it_prints_what_the_guide_shows(self):
        (command, printed), = transcript(GUIDE)
        self.assertEqual(command, "guide_host examples/cover/Run02 .")
        done = self.hand_over()
        self.assertEqual((done.returncode, done.stdout), (0, printed))
        self.assertTrue(done.stderr.startswith("@@@ I2Engine Fiber Orientation Results SOLID\n"))

    def test_it_writes_the_control_file_and_replaces_an_old_one(self):
        (self.out / "Cover02.cmi").write_text("old")
        self.assertEqual(self.hand_over().returncode, 0)
        self.assertEqual(self.names(), ["Cover02.cmi"])
        self.assertEqual((self.out / "Cover02.cmi").read_text(),
                         text_of("tests/library/GuideHost.cmi"))
        checked = self.run_program("check", "out/Cover02.cmi")
        self.assertEqual(checked.returncode, 0, checked.stderr)

    @unittest.skipIf(os.environ.get("ZORBI2_SANITIZED"), "sanitizers need handles of their own")
    def test_without_handles_the_old_file_stays_and_the_host_knows(self):
        (self.out / "Cover02.cmi").write_text("old")
        # The shot file takes the last handle, and keeps it.
        done = self.hand_over(lambda: resource.setrlimit(resource.RLIMIT_NOFILE, (4, 4)))
        self.assertEqual(done.returncode, 1)
        self.assertIn("out/Cover02.new: Too many open files\n", done.stderr)
        self.assertEqual(self.names(), ["Cover02.cmi"])
        self.assertEqual((self.out / "Cover02.cmi").read_text(), "old")

    def test_a_file_that_is_cut_off_does_not_replace_the_old_one(self):
        def only_a_few_bytes():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000))
        (self.out / "Cover02.cmi").write_text("old")
        done = self.hand_over(only_a_few_bytes)
        self.assertEqual(done.returncode, 1)
        self.assertIn("out/Cover02.new: not written\n", done.stderr)
        self.assertEqual(self.names(), ["Cover02.cmi"])
        self.assertEqual((self.out / "Cover02.cmi").read_text(), "old")

    def test_a_folder_that_there_is_not_is_told(self):
        done = self.hand_over(out="nowhere")
        self.assertEqual(done.returncode, 1)
        self.assertIn("nowhere/Cover02.new: No such file or directory\n", done.stderr)

    def test_an_empty_folder_is_an_exception(self):
        done = self.hand_over(out="")
        self.assertEqual(done.returncode, 1)
        self.assertIn("invalid string position\n", done.stderr)


if __name__ == "__main__":
    unittest.main()

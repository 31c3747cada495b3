#!/usr/bin/env python3
"""Checks that check_branches.py finds the faults it is there for."""

import contextlib
import io
import json
import pathlib
import shutil
import sys
import tempfile
import unittest

import check_branches

LINE = "if (isReady && mayStart) {"


class Branches(unittest.TestCase):
    def setUp(self):
        self.repository = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.repository)
        (self.repository / "engine").mkdir()
        (self.repository / "engine/Start.cpp").write_text("// Start\n    " + LINE + "\n    }\n")
        self.addCleanup(setattr, check_branches, "NEVER_TAKEN", check_branches.NEVER_TAKEN)
        check_branches.NEVER_TAKEN = []

    def result(self, *counts):
        """Exit code and output for a second line whose branches were taken so often."""
        lines = [{"line_number": 1, "branches": []},
                 {"line_number": 2, "branches": [{"count": count} for count in counts]}]
        coverage = self.repository / "coverage.json"
        coverage.write_text(json.dumps({"files": [{"file": "engine/Start.cpp", "lines": lines}]}))
        sys.argv = ["check_branches.py", str(self.repository), str(coverage)]
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            status = check_branches.main()
        return status, output.getvalue()

    def expect(self, count, line=LINE):
        check_branches.NEVER_TAKEN = [("engine/Start.cpp", line, count, "why")]

    def test_all_taken(self):
        self.assertEqual(self.result(1, 2, 3),
                         (0, "3 of 3 branches taken, and 0 that only the compiler could take\n"))

    def test_one_not_taken(self):
        self.assertEqual(self.result(1, 0, 3),
                         (1, "engine/Start.cpp:2: 1 of 3 branches never taken, 0 expected: " + LINE + "\n"))

    def test_known_ones_do_not_count(self):
        self.expect(2)
        self.assertEqual(self.result(0, 5, 0),
                         (0, "1 of 1 branches taken, and 2 that only the compiler could take\n"))

    def test_one_more_than_known(self):
        self.expect(1)
        self.assertIn("2 of 3 branches never taken, 1 expected", self.result(0, 5, 0)[1])

    def test_a_known_one_that_is_taken(self):
        self.expect(1)
        self.assertIn("0 of 2 branches never taken, 1 expected", self.result(4, 5)[1])

    def test_a_known_line_that_is_gone(self):
        self.expect(1, "if (wasReady) {")
        self.assertEqual(self.result(1, 1)[0], 1)

    def test_nothing_counted(self):
        self.assertEqual(self.result(), (1, "no branches counted\n"))


if __name__ == "__main__":
    unittest.main()

"""Memory that runs out: one allocation after the other fails."""

import os
import unittest

from program import ProgramTest

LIBRARY = os.environ.get("ZORBI2_FAILING_MEMORY", "")
BEYOND = 1000000  # more allocations than a run makes


@unittest.skipUnless(LIBRARY, "needs a library that the loader puts in front")
class Memory(ProgramTest):
    def setUp(self):
        super().setUp()
        self.make_run()
        self.make_recipe()
        if self.failing(BEYOND).returncode != 0 or self.failing(1).returncode == 0:
            self.skipTest("this build has an allocator of its own")

    def failing(self, number, command="write"):
        (self.folder / "Cover02.cmi").unlink(missing_ok=True)
        return self.run_program(command, "cover.toml", environment={
            "LD_PRELOAD": LIBRARY, "ZORBI2_FAIL_AT": str(number), "TMPDIR": "/tmp"})

    def test_a_failed_allocation_is_one_line_and_no_wrong_file(self):
        self.failing(BEYOND)
        text = (self.folder / "Cover02.cmi").read_bytes()
        with_file, without = self.files(), [f for f in self.files() if f != "Cover02.cmi"]
        codes = []
        for number in range(1, 12000, 11):
            done = self.failing(number)
            if done.returncode < 0 and set(codes) <= {done.returncode}:
                codes.append(done.returncode)  # before main(), nobody can catch anything
                continue
            codes.append(done.returncode)
            with self.subTest(number):
                # 1, 2: a function of a library took it for another failure.
                self.assertIn(done.returncode, (0, 1, 2, 3), done.stderr)
                if done.returncode == 3:
                    self.assertRegex(done.stderr, r"\A(zorbi2|cover.toml): .*out of memory\n\Z")
                if done.returncode == 0 or "Cover02.cmi" in self.files():  # whole, then
                    self.assertEqual((self.folder / "Cover02.cmi").read_bytes(), text)
                    self.assertEqual(self.files(), with_file)
                else:
                    self.assertEqual(self.files(), without)
        self.assertGreater(codes.count(3), 100)
        self.assertEqual(codes[-1], 0)


if __name__ == "__main__":
    unittest.main()

"""Memory that runs out: allocations fail, once or from then on."""

import os
import re
import shutil
import unittest

from program import ON_WINDOWS, PROJECT, TARGET, ProgramTest

LIBRARY = os.environ.get("ZORBI2_FAILING_MEMORY", "")
# Every so many of a command's allocations fail: 1 tries all of them, which takes half an hour. Left
# to itself, the test tries TRIES of each command.
STEP = int(os.environ.get("ZORBI2_MEMORY_STEP", "0"))
TRIES = 60
BEYOND = 1000000  # more allocations than a run makes
FILE = "Cover02.cmi"
PAGE = "page.html"
REASON = ("(out of memory|.*Cannot allocate memory|the engine wrote nothing|"
          ".*Cover02.cmx: the engine could not read all of it)")


@unittest.skipUnless(LIBRARY and not ON_WINDOWS, "needs a library that the loader puts in front")
class Memory(ProgramTest):
    def setUp(self):
        super().setUp()
        (self.make_run() / "Cover02.cmx").write_text(
            "<SOLID_MCM>\nFlagPrevShot = 1\nValueShotRunID = 1\n</SOLID_MCM>\n")
        self.make_run("Cover01", "Run01")
        self.make_recipe(PROJECT + "inserted_part = true\n" + TARGET)
        self.scratch = self.folder.with_name(self.folder.name + " scratch")
        self.scratch.mkdir()
        self.addCleanup(shutil.rmtree, self.scratch)
        self.counted = self.folder.with_name(self.folder.name + " count")
        self.addCleanup(self.counted.unlink, missing_ok=True)
        if self.failing(BEYOND, "schema").returncode != 0 or \
                self.failing(1, "schema").returncode == 0:
            self.skipTest("this build has an allocator of its own")

    def failing(self, number, *command, further=False):
        environment = {"LD_PRELOAD": LIBRARY, "TMPDIR": str(self.scratch), "ZORBI2_FAIL_AT": str(number),
                       "ZORBI2_COUNT_FILE": str(self.counted)}
        if further:
            environment["ZORBI2_FAIL_ON"] = "1"
        return self.run_program(*command, environment=environment)

    def contents(self):
        return {name: (self.folder / name).read_bytes() for name in self.files()}

    def fail_each(self, *command, makes=None):
        """A command that makes a file, or none."""
        before = self.contents()
        whole = self.failing(BEYOND, *command)
        self.assertEqual(whole.returncode, 0, whole.stderr)
        after = self.contents()
        self.assertEqual(set(after) - set(before), {makes} if makes else set())
        allocations = int(self.counted.read_text(encoding="ascii"))
        step = STEP or allocations // TRIES + 1
        for further in (False, True):
            codes = []
            for number in range(1, allocations + 1, step):
                if makes:
                    (self.folder / makes).unlink(missing_ok=True)
                done = self.failing(number, *command, further=further)
                codes.append(done.returncode)
                with self.subTest(command, number=number, further=further):
                    self.check_failed(done, whole, before, after)
            self.assertGreater(codes.count(3), 0.9 * len(codes))  # a few can be done without
        print(f"{command[0]}: {len(codes)} of {allocations} allocations failed, once and for good")

    def check_failed(self, done, whole, before, after):
        self.assertEqual(os.listdir(self.scratch), [])
        self.assertIn(done.returncode, (0, 3), done.stderr)
        there = self.contents()
        if done.returncode == 0:
            self.assertEqual((done.stdout, done.stderr), (whole.stdout, ""))
            self.assertEqual(there, after)
        else:
            in_document = "--json" in done.args and re.search(f'"{REASON}"', done.stdout)
            if not in_document:
                self.assertRegex(done.stderr, rf"\A(\S*: )+.*{REASON}\n\Z")
            if PAGE in there and b"</html>" in there[PAGE]:  # it may show a recipe that failed
                there[PAGE] = after[PAGE]
            self.assertIn(there, (before, after))

    def test_write(self):
        self.fail_each("write", "cover.toml", makes=FILE)

    def test_init(self):
        self.fail_each("init", "Run02", "-o", "new.toml", makes="new.toml")

    def test_items(self):
        self.fail_each("items", "cover.toml")
        self.fail_each("items", "--json", "--matrix", "cover.toml")

    def test_check(self):
        self.assertEqual(self.run_program("write", "cover.toml").returncode, 0)
        self.fail_each("check", "--show", "--against", "cover.toml", FILE)

    def test_report(self):
        self.fail_each("report", "cover.toml", "-o", PAGE, makes=PAGE)

    def test_schema(self):
        self.fail_each("schema")

    def test_complete(self):
        self.fail_each("complete", "items", "--solver", "")

    def test_help(self):
        self.fail_each("--help")
        self.fail_each("write", "--help")


if __name__ == "__main__":
    unittest.main()

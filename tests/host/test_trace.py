"""The engine's trace lines on standard error."""

import shutil
import unittest

from program import ON_WINDOWS, PROJECT, TARGET, ProgramTest, copy_example, own_path


class Trace(ProgramTest):
    def setUp(self):
        super().setUp()
        copy_example(self.folder)

    def lines(self, folder):
        return ["@@@ I2Engine Fiber Orientation Results SOLID",
                "@@@ I2Engine Fiber Orientation Results SOLID",
                "@@@ Engine read cmx file",
                own_path(self.folder / folder) + "\\Cover02.cmx",
                "@@@ I2Engine .cmx file FlagPrevShot=1",
                "@@@ ZorbI2Engine GetThermalStressResults OstraMesh = false"]

    def test_the_lines_of_one_engine_come_in_order(self):
        for arguments in (["write", "cover.toml"], ["items", "cover.toml", "--quiet"],
                          ["write", "--dry-run", "cover.toml"], ["items", "cover.toml", "--json"]):
            with self.subTest(arguments):
                done = self.run_program(*arguments, "--trace")
                self.check(done, 0, None, None)
                self.assertEqual(done.stderr.splitlines(), self.lines("Run02"))

    def test_without_the_option_there_are_none(self):
        self.check(self.run_program("write", "cover.toml"), 0)

    def test_paths_keep_their_characters(self):
        shutil.copytree(self.folder / "Run02", self.folder / "Gehäuse" / "Run02")
        recipe = PROJECT.replace("Run02", "Gehäuse/Run02") + "[target]\nsolver=0\nmesh=0\n"
        done = self.run_program("write", self.make_recipe(recipe), "--trace",
                                environment={"LC_ALL": "C"})
        self.check(done, 0, None, None)
        self.assertIn(own_path(self.folder / "Gehäuse" / "Run02") + "\\Cover02.cmx",
                      done.stderr.splitlines())

    @unittest.skipIf(ON_WINDOWS, "Windows has no such file names")
    def test_what_a_terminal_would_obey_is_shown_in_digits(self):
        folder = self.folder / "a\nb\x1bc\u009bd"
        copy_example(folder)
        done = self.run_program("write", "cover.toml", "--trace", cwd=folder)
        self.check(done, 0, None, None)
        self.assertIn(str(self.folder / r"a\nb\x1bc\xc2\x9bd" / "Run02") + r"\Cover02.cmx",
                      done.stderr.splitlines())

    def test_each_engine_of_a_batch_traces(self):
        self.make_recipe(PROJECT + TARGET + '[control_file]\nname = "b"\n', "b.toml")
        done = self.run_program("write", "cover.toml", "b.toml", "--trace")
        self.check(done, 0, None, None)
        self.assertEqual(done.stderr.splitlines(), self.lines("Run02") * 2)


if __name__ == "__main__":
    unittest.main()

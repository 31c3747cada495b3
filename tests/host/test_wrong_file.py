"""An engine that writes something else than what was asked for: no line of it is believed."""

import os
import re
import unittest

from program import EXAMPLE, ON_WINDOWS, PROJECT, ProgramTest

LIBRARY = os.environ.get("ZORBI2_WRONG_TEXT", "")
ANNEALED = ('type = 3\n[target]\nsolver = "ABAQUS"\nmesh = "deformed"\nannealing = true\n'
            "[output]\nfolder = 'D:\\Handover'\n")


def other(line):
    """The line with another value: each number one more or less, each text one character longer."""
    key, value = line.split(" = ", 1) if " = " in line else ("", line)
    number = re.match(r"[0-9.]+", value.strip())
    if number is None:
        return line + "x"
    changed = "0" if number[0] == "1" else "1" if number[0] == "0" else "2.000" \
        if "." in number[0] else str(int(number[0]) + 1)
    return key + " = " * bool(key) + value.replace(number[0], changed, 1)


@unittest.skipUnless(LIBRARY and not ON_WINDOWS, "needs a library that the loader puts in front")
class WrongFile(ProgramTest):
    def setUp(self):
        super().setUp()
        if self.run_program("--version", environment={"LD_PRELOAD": LIBRARY}).returncode != 0:
            self.skipTest("this build takes no library in front")

    def write(self, recipe, line="no such text", instead=""):
        return self.run_program("write", recipe, environment={
            "LD_PRELOAD": LIBRARY, "ZORBI2_WRONG_FROM": line + "\n", "ZORBI2_WRONG_TO": instead})

    def check_each_line(self, recipe, file):
        done = self.write(recipe)
        self.assertEqual(done.returncode, 0, done.stderr)
        right = file.read_text(encoding="utf-8")
        for line in right.splitlines():
            for instead in (other(line) + "\n", "", line + "\n" + line + "\n"):
                with self.subTest(line, instead=instead):
                    done = self.write(recipe, line, instead)
                    self.assertEqual(done.returncode, 3)
                    self.assertIn(f"{file}: cannot be written: not what was asked for: ",
                                  done.stderr)
                    self.assertEqual(file.read_text(encoding="utf-8"), right)

    def test_what_differs_is_told(self):
        self.make_run()
        self.make_recipe(PROJECT + 'type = 0\n[target]\nsolver = "ANSYS"\nmesh = "original"\n')
        runner = "IsRunnerOutput =                {}   (0:off,1:on)"
        last = "DigimatTemperatureOutput =\t0   (0:off,1:on)"
        more = "IsAnnealingstressOutput =\t0   (0:off,1:on)"
        rows = (
            (runner.format(0), runner.format(1) + "\n", 'IsRunnerOutput is "1", but should be "0"'),
            (runner.format(0), "", 'IsRunnerOutput is missing, but should be "0"'),
            (last, f"{last}\n{more}\n", "IsAnnealingstressOutput is there, but should not be"))
        for line, instead, told in rows:
            done = self.write("cover.toml", line, instead)
            self.check(done, 3, "", f"cover.toml: {self.folder / 'Cover02.cmi'}: cannot be "
                                    f"written: not what was asked for: {told}\n")

    def test_every_line_of_the_example(self):
        recipe = (EXAMPLE / "cover.toml").read_text(encoding="utf-8")
        recipe = recipe.replace('"Run02"', f"'{EXAMPLE / 'Run02'}'")
        self.make_recipe(recipe)
        self.check_each_line("cover.toml", self.folder / "Cover02.cmi")

    def test_every_line_of_an_annealed_project(self):
        self.make_run()
        self.make_recipe(PROJECT + ANNEALED)
        self.check_each_line("cover.toml", self.folder / "Cover02.cmi")


if __name__ == "__main__":
    unittest.main()

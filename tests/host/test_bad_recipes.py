"""Recipes that cannot be carried out: each with its messages, all at once, and nothing written."""

import pathlib
import re
import unittest

from program import ProgramTest, own_path

TABLE = pathlib.Path(__file__).resolve().parent / "bad_recipes.txt"


class Case:
    """One entry of the table."""

    def __init__(self, name, base):
        self.name = name
        self.lines = list(base)
        self.code = 2
        self.messages = []
        self.place = len(self.lines)

    def read(self, line):
        if line == "- *":
            self.lines, self.place = [], 0
        elif line.startswith("- "):
            self.place = self.lines.index(line[2:])
            del self.lines[self.place]
        elif line.startswith("+ "):
            self.lines.insert(self.place, line[2:])
            self.place += 1
        elif line.startswith("exit "):
            self.code = int(line[5:])
        elif line:
            self.messages.append(line)


def read_table():
    introduction, *entries = TABLE.read_text(encoding="utf-8").split("\n== ")
    base = [line[4:] for line in introduction.splitlines() if line.startswith("    ")]
    cases = []
    for entry in entries:
        name, *lines = entry.splitlines()
        cases.append(Case(name, base))
        for line in lines:
            cases[-1].read(line)
    return cases


class BadRecipes(ProgramTest):
    def test_every_bad_recipe_gets_its_messages(self):
        cases = read_table()
        self.assertGreaterEqual(len(cases), 60)
        self.make_run()
        for case in cases:
            with self.subTest(case.name):
                self.make_recipe("\n".join(case.lines) + "\n", "recipe.toml")
                before = self.files()
                done = self.run_program("write", "recipe.toml")
                expected = "".join(f"recipe.toml:{message}\n" for message in case.messages)
                expected = re.sub(r"FOLDER/([\w/.]*\w)",
                                  lambda match: own_path(self.folder / match[1]), expected)
                self.check(done, case.code, "", expected)
                self.assertEqual(self.files(), before)

    def test_the_base_of_the_table_is_a_good_recipe(self):
        self.make_run()
        introduction = TABLE.read_text(encoding="utf-8").split("\n== ")[0]
        base = [line[4:] for line in introduction.splitlines() if line.startswith("    ")]
        self.make_recipe("\n".join(base) + "\n", "recipe.toml")
        self.check(self.run_program("write", "recipe.toml"), 0)


if __name__ == "__main__":
    unittest.main()

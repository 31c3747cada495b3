"""The screens in docs/zorbi2.md are those of the program."""

import re
import shutil
import unittest

from document import text_of, transcript
from program import EXAMPLE, ProgramTest

SCREENS = dict(transcript(text_of("docs/zorbi2.md")))
PLAIN = """[project]
name = "Cover"
run = 2
folder = "Run02"
fiber_results = true
[target]
solver = "ANSYS"
"""


class Screens(ProgramTest):
    def setUp(self):
        super().setUp()
        shutil.copytree(EXAMPLE, self.folder, dirs_exist_ok=True)
        shutil.copy(EXAMPLE / "expected" / "Cover02.cmi", self.folder)
        self.make_recipe(PLAIN, "plain.toml")

    def check_screen(self, command, columns):
        text = self.on_terminal(*command.split()[1:], columns=columns)
        text = re.sub("\033\\[\\d+m", "", text).replace(str(self.folder), "/runs/cover")
        self.assertEqual(text, SCREENS[command])

    def test_every_screen(self):
        columns = {"zorbi2 items plain.toml --mesh deformed": 80,
                   "zorbi2 items cover.toml --matrix": 200,
                   "zorbi2 check --show Cover02.cmi": 80}
        self.assertEqual(set(SCREENS), set(columns))
        for command, width in columns.items():
            with self.subTest(command):
                self.check_screen(command, width)


if __name__ == "__main__":
    unittest.main()

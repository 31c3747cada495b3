"""docs/items.svg is what scripts/terminal-picture draws today."""

import subprocess
import sys
import unittest
import xml.etree.ElementTree

from document import ROOT, text_of
from program import PROGRAM


class TerminalPicture(unittest.TestCase):
    maxDiff = None

    def test_the_picture_is_that_of_the_program(self):
        drawn = subprocess.run([sys.executable, ROOT / "scripts" / "terminal-picture", PROGRAM],
                               check=True, text=True, stdout=subprocess.PIPE).stdout
        self.assertEqual(drawn, text_of("docs/items.svg"),
                         "renew it: scripts/terminal-picture PROGRAM > docs/items.svg")

    def test_the_picture_shows_colors_and_the_readme_shows_the_picture(self):
        picture = xml.etree.ElementTree.fromstring(text_of("docs/items.svg"))
        styles = {span.get("class") for span in picture.iter("{http://www.w3.org/2000/svg}tspan")}
        self.assertEqual(styles, {"prompt", "bold", "faint", "bad"})
        self.assertIn("(docs/items.svg)", text_of("README.md"))


if __name__ == "__main__":
    unittest.main()

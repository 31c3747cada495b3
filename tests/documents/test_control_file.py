"""docs/control-file.md describes the lines that the engine writes, all of them and no others."""

import os
import re
import subprocess
import unittest

from document import ROOT, fenced_blocks, indented_blocks, table_rows, text_of
from program import EXAMPLE, ProgramTest

DOCUMENT = text_of("docs/control-file.md")
TOKEN = re.compile(r'"[^"]*"|[\w-]+|[][{}()|]')
CONVERSIONS = {"number": "%d", "decimal": "%.3f", "text": "%s", "keyword": "%s", "tab": "\t"}
PATTERNS = {"number": r"-?\d+", "decimal": r"-?\d+\.\d{3}", "text": r"[^\0\r\n]*",
            "keyword": r"[A-Z]*", "tab": "\t", "eol": "\n", "[": "(?:", "{": "(?:", "(": "(?:",
            "]": ")?", "}": ")*", ")": ")", "|": "|"}
RULES = """keyword = one of the table below, or nothing
number  = [ "-" ] digit { digit }
decimal = [ "-" ] digit { digit } "." digit digit digit
text    = { any byte but NUL, CR and LF }
eol     = LF, on Windows CR LF
"""  # the same in words


def facts(name):
    printed = subprocess.run([os.environ["ZORBI2_DOCUMENT_FACTS"], name], check=True, text=True,
                             stdout=subprocess.PIPE).stdout
    return [line.split("|") for line in printed.splitlines()]


def grammar():
    block, = (block for block in indented_blocks(DOCUMENT) if block.startswith("file ="))
    return block


def grammar_lines():
    """What stands for one line of the file each."""
    return [line for line in grammar().splitlines() if line.startswith(" ")]


def as_format(line):
    """A grammar's line as text and presence of the engine's table."""
    line = line.strip().replace('( text | " " )', "text")
    presence = {"[": "annealed", "{": "offered"}.get(line[0], "always")
    tokens = [token for token in TOKEN.findall(line) if token not in ("eol", "[", "]", "{", "}")]
    return "".join(CONVERSIONS.get(token, token.strip('"')) for token in tokens), presence


def as_pattern(line):
    return "".join(PATTERNS.get(token) or re.escape(token.strip('"'))
                   for token in TOKEN.findall(line))


def key_of(text):
    """What identifies a line, and its range."""
    if text.startswith("["):
        return "[<keyword>]", ""
    found = re.search(r"\(.*\)", text)
    return text.split("=")[0].strip(), found[0] if found else ""


class ControlFileDocument(ProgramTest):
    def test_the_grammar_has_the_lines_of_the_format(self):
        self.assertEqual([as_format(line) for line in grammar_lines()],
                         [(text, presence) for text, presence, _ in facts("lines")])

    def test_the_parts_come_in_the_order_of_the_first_rule(self):
        first, *_ = grammar().splitlines()
        parts = re.findall(r"^([\w-]+) =$", grammar(), flags=re.M)
        self.assertEqual(first.removeprefix("file = ").split(), parts)
        self.assertTrue(grammar().endswith("\n\n" + RULES))

    def test_the_grammar_holds_for_files_of_the_engine(self):
        pattern = re.compile("".join(map(as_pattern, grammar_lines())))
        files = sorted((ROOT / "tests" / "golden").glob("*.cmi"))
        self.assertGreater(len(files), 50)
        for file in files:
            text = file.read_bytes().decode("latin-1")
            with self.subTest(file.name):
                self.assertTrue(pattern.fullmatch(text))
                self.assertFalse(pattern.fullmatch(text.replace("Z", "z", 1)))

    def test_the_table_has_each_key_with_its_range(self):
        listed = []
        for cells in table_rows(DOCUMENT, "| key | what it says |"):
            if section := re.fullmatch(r"\*\*`(.*)`\*\*", cells[0]):
                listed.append(section[1])
            else:
                self.assertTrue(cells[1] and cells[3], cells)
                listed.append((cells[0].strip("`"), cells[2].strip("`")))
        expected = []
        for text, _, _ in facts("lines"):
            if re.match(r"\[[A-Z ]+\]$", text) and text != "[HEADER]":
                expected.append(text)
            elif "=" in text or text == "[%s] ":
                expected.append(key_of(text))
        self.assertEqual(listed, expected)

    def test_item_lines_name_their_items(self):
        names = {int(cells[column]): cells[column + 1]
                 for cells in table_rows(text_of("docs/zorbi2.md"), "| id | short name |")
                 for column in (0, 2)}
        sources = {cells[0].strip("`"): cells[3]
                   for cells in table_rows(DOCUMENT, "| key | what it says |")}
        for text, presence, item in facts("lines"):
            if presence == "offered":
                self.assertTrue(sources[key_of(text)[0]].startswith(names[int(item)] + ":"), text)

    def test_solvers_have_their_keywords(self):
        listed = [[cells[0], cells[1].strip("`")]
                  for cells in table_rows(DOCUMENT, "| number | keyword |")]
        self.assertEqual(listed, facts("solvers"))

    def written(self, choice):
        """What the example's recipe asks for with another choice, by section and key."""
        recipe = (EXAMPLE / "cover.toml").read_text(encoding="utf-8")
        recipe = re.sub("^require = .*$", "", recipe, flags=re.M)
        recipe = recipe.replace('"Run02"', f"'{EXAMPLE / 'Run02'}'")
        done = self.run_program("write", self.make_recipe(recipe), "--dry-run", "--set", choice)
        self.assertEqual(done.returncode, 0, done.stderr)
        found, section = {}, ""
        for line in done.stdout.splitlines():
            if line.startswith("["):
                section = line.strip()
            elif "=" in line:
                key, value = line.split("=")
                found[section, key.strip()] = value.split("(")[0].strip()
        return found

    def test_levels_become_the_listed_numbers(self):
        rows = table_rows(DOCUMENT, "| option | level |")
        self.assertEqual([cells[0] for cells in rows], [str(key) for key in range(7)])
        for option, _, theta, strengths, factor in rows:
            with self.subTest(option):
                self.assertEqual(self.written(f"density={option}")
                                 ["[DENSITY REDUCTION]", "DensityReduction"], factor)
                if not theta:
                    continue
                expected = [theta] * 3 + strengths.split(", ")
                for item, section in (("fiber-orientation", "[MATERIAL REDUCTION]"),
                                      ("insert-fiber-material", "[PARTINSERT MATERIAL REDUCTION]")):
                    values = self.written(f"{item}={option}")
                    self.assertEqual([values[section, key] for key in (
                        "FiberThetaXSegment", "FiberThetaYSegment", "FiberThetaZSegment",
                        "FiberStrengthXSegment", "FiberStrengthYSegment")], expected)

    def test_the_example_is_the_examples_file(self):
        block, = fenced_blocks(DOCUMENT, "text")
        self.assertEqual(block, (EXAMPLE / "expected" / "Cover02.cmi").read_text(encoding="utf-8"))


if __name__ == "__main__":
    unittest.main()

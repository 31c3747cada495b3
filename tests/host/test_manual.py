"""Manual, man page and program say the same."""

import json
import re
import tomllib
import unittest

from program import ROOT, ProgramTest


class Manual(ProgramTest):
    def setUp(self):
        super().setUp()
        self.manual = (ROOT / "docs" / "zorbi2.md").read_text(encoding="utf-8")
        self.man_page = (ROOT / "docs" / "zorbi2.1").read_text(encoding="utf-8")
        self.man_page = self.man_page.replace("\\-", "-")

    def options(self):
        """All long options that the program's help names."""
        texts = [self.run_program(*command, "--help").stdout
                 for command in ([], *([name] for name in self.commands()))]
        return sorted(set(re.findall(r"--[a-z][a-z-]*", "\n".join(texts))))

    def test_every_option_is_in_the_man_page_and_the_manual(self):
        options = self.options()
        self.assertIn("--matrix", options)
        for option in options:
            self.assertIn(option, self.man_page)
            if option not in ("--help", "--version", "--output"):
                self.assertIn(option, self.manual)

    def test_the_man_page_names_no_option_that_there_is_not(self):
        self.assertEqual(sorted(set(re.findall(r"--[a-z][a-z-]*", self.man_page))),
                         self.options())

    def test_the_manual_lists_the_keys_of_a_new_recipe(self):
        self.make_run()
        self.run_program("init", "Run02")
        text = (self.folder / "Cover02.toml").read_text(encoding="utf-8")
        text = re.sub(r"^# (?=angles|reduction_rates|digimat_angle)", "", text, flags=re.M)
        recipe = tomllib.loads(text)
        keys = {("", "require")} | {(section, key) for section, table in recipe.items()
                                    if isinstance(table, dict) for key in table}
        listed, section = set(), ""
        table = self.manual[self.manual.index("| key | value | default |"):]
        for row in table[:table.index("\n\n")].splitlines():
            if heading := re.match(r"\| \*\*`\[(\w+)\]`\*\*", row):
                section = heading[1]
            elif key := re.match(r"\| `(\w+)` \|", row):
                listed.add((section, key[1]))
        self.assertEqual(listed, keys)

    def test_the_manual_lists_the_short_names(self):
        listed = {int(number): name
                  for number, name in re.findall(r"\| (\d+) \| `([a-z-]+)` ", self.manual)}
        self.make_run()
        self.make_recipe()
        matrix = self.run_program("items", "cover.toml", "--matrix").stdout
        names = {int(number): name
                 for number, name in re.findall(r"^ *(\d+) ([a-z-]+) ", matrix, flags=re.M)}
        self.assertIn("runner", names.values())
        self.assertEqual(listed, names)

    # ---- Which files matter -------------------------------------------------------------------

    def available(self, name, analysis, files, facts):
        """Whether an item is available, or None when it is offered nowhere."""
        for path in (self.folder / "Run02").glob("*"):
            path.unlink()
        self.make_run(files=files)
        project_type = {"annealing-stress": 3, "digimat-mucell": 9}.get(name, 0)
        target = {"annealing-stress": 'mesh = "deformed"\nannealing = true\n'}.get(name, "")
        self.make_recipe('[project]\nname = "Cover"\nrun = 2\nfolder = "Run02"\nempty_run = true\n'
                         f'analysis = "{analysis}"\ntype = {project_type}\n' +
                         "".join(f"{fact} = true\n" for fact in facts) +
                         "[target]\n" + target)
        done = self.run_program("items", "cover.toml", "--matrix", "--json")
        self.assertEqual(done.returncode, 0)
        answers = {column["available"][name] for column in json.loads(done.stdout)["matrix"]
                   if name in column["available"]}
        self.assertLessEqual(len(answers), 1)
        return answers.pop() if answers else None

    def test_the_manual_tells_which_files_matter(self):
        start = self.manual.index("| item | solid project |")
        table = self.manual[start:].split("\n\n")[0].splitlines()[2:]
        listed = []
        for row in table:
            cells = row.strip("| ").split(" | ")
            name, solid, shell, needs = (re.findall(r"`([\w.-]+)`", cell) for cell in cells)
            for analysis, endings in (("solid", solid), ("shell", shell)):
                is_offered = analysis == "solid" or cells[2] != "—"
                facts = needs
                if (name, analysis) == (["digimat-export"], "shell"):
                    facts = ["fiber_results"]
                cases = [([ending], facts, True) for ending in endings] or [([], facts, True)]
                cases += [([], facts, False)] if endings else []
                cases += [(endings, [], False)] if facts else []
                for files, has, expected in cases:
                    with self.subTest((name, analysis, files, has)):
                        answer = self.available(name[0], analysis, files, has)
                        self.assertEqual(answer, expected if is_offered else None)
            listed.append(name[0])
        matrix = self.run_program("items", "cover.toml", "--matrix").stdout
        names = set(re.findall(r"^ *\d+ ([a-z-]+) ", matrix, flags=re.M))
        self.assertEqual(set(listed), names - {"insert-fiber-material"})

    def test_the_manuals_exit_codes_are_those_of_the_help(self):
        text = self.run_program("--help").stdout
        codes = re.findall(r"^  (\d)  ", text, flags=re.M)
        self.assertIn("3", codes)
        for code in codes:
            self.assertIn(f"| {code} | ", self.manual)


if __name__ == "__main__":
    unittest.main()

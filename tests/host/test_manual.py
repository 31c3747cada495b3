"""Manual, man pages and program say the same."""

import itertools
import json
import re
import shutil
import subprocess
import tomllib
import unittest

from program import ROOT, ProgramTest


MAN_PAGES = ROOT / "docs" / "man"


def options_in(text):
    return sorted(set(re.findall(r"--[a-z][a-z-]*", text)))


class Manual(ProgramTest):
    def setUp(self):
        super().setUp()
        self.manual = (ROOT / "docs" / "zorbi2.md").read_text(encoding="utf-8")

    def man_page(self, name):
        return (MAN_PAGES / f"{name}.1").read_text(encoding="utf-8").replace("\\-", "-")

    def help_of(self, *command):
        """The help of a command without its reference to that of the program."""
        text = self.run_program(*command, "--help").stdout
        return text if not command else re.sub("^For --json, .*$", "", text, flags=re.M)

    def test_every_option_is_in_the_manual(self):
        for command in ([], *([name] for name in self.commands())):
            for option in options_in(self.help_of(*command)):
                if option not in ("--help", "--version", "--output"):
                    self.assertIn(option, self.manual)

    def test_each_command_has_its_man_page(self):
        self.assertIn("write", self.commands())
        self.assertEqual(sorted(path.name for path in MAN_PAGES.iterdir()),
                         sorted(["zorbi2.1", *(f"zorbi2-{name}.1" for name in self.commands())]))
        for name in self.commands():
            purpose = self.help_of(name).splitlines()[0]
            entry = f".TP\n.BR zorbi2-{name} (1)\n{purpose}.\n"
            self.assertIn(entry, self.man_page("zorbi2"))
            self.assertIn(f"zorbi2-{name} - {purpose[0].lower()}{purpose[1:]}\n",
                          self.man_page(f"zorbi2-{name}"))

    def test_man_pages_explain_the_options_that_there_are(self):
        for command in ([], *([name] for name in self.commands())):
            with self.subTest(command):
                page = self.man_page("-".join(["zorbi2", *command]))
                start = page.index(".SH OPTIONS")
                explained = re.findall(r"^\.TP\n\.B[IR]? (.*)$",
                                       page[start:page.index(".SH", start + 1)], flags=re.M)
                in_help = re.findall(r"^  (-\S+)", self.help_of(*command), flags=re.M)
                self.assertEqual(options_in("\n".join(explained)), options_in("\n".join(in_help)))

    def test_man_pages_name_no_option_that_there_is_not(self):
        of_program = set(options_in(self.help_of()))
        of_all = of_program.union(*(options_in(self.help_of(name)) for name in self.commands()))
        self.assertLessEqual(set(options_in(self.man_page("zorbi2"))), of_all)
        for name in self.commands():
            self.assertLessEqual(set(options_in(self.man_page(f"zorbi2-{name}"))),
                                 of_program | set(options_in(self.help_of(name))))

    def test_man_pages_have_the_example_of_the_help(self):
        for name in self.commands():
            example = self.help_of(name).split("Example:\n")[1].strip()
            self.assertIn(f".EX\n{example}\n", self.man_page(f"zorbi2-{name}"))

    def test_man_pages_are_well_formed(self):
        tools = [tool for tool in (["mandoc", "-T", "lint", "-W", "warning"],
                                   ["groff", "-ww", "-man", "-z", "-T", "utf8"])
                 if shutil.which(tool[0])]
        if not tools:
            self.skipTest("needs mandoc or groff")
        for tool, page in itertools.product(tools, sorted(MAN_PAGES.iterdir())):
            done = subprocess.run([*tool, page], check=False, text=True,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            self.assertEqual((done.returncode, done.stdout), (0, ""))

    def rows_of_keys(self):
        """What the manual's table says of each key: what its value is, and its default."""
        rows, section = {}, ""
        table = self.manual[self.manual.index("| key | value | default |"):]
        for row in table[:table.index("\n\n")].splitlines():
            if heading := re.match(r"\| \*\*`\[(\w+)\]`\*\*", row):
                section = heading[1]
            elif key := re.match(r"\| `(\w+)` \| (.+) \| (.+) \|$", row):
                rows[section, key[1]] = key[2], key[3]
        return rows

    def new_recipe(self, files=None):
        """Of "init", with the lines that it gives as comments."""
        self.make_run(files=files)
        self.run_program("init", "Run02")
        text = (self.folder / "Cover02.toml").read_text(encoding="utf-8")
        return re.sub(r"^# (?=angles|reduction_rates|digimat_angle)", "", text, flags=re.M)

    def test_the_manual_lists_the_keys_of_a_new_recipe(self):
        recipe = tomllib.loads(self.new_recipe())
        keys = {("", "require")} | {(section, key) for section, table in recipe.items()
                                    if isinstance(table, dict) for key in table}
        self.assertEqual(set(self.rows_of_keys()), keys)

    def test_the_manuals_defaults_are_those_of_a_new_recipe(self):
        recipe, compared = tomllib.loads(self.new_recipe([".k5f"])), 0
        for (section, key), (_, default) in self.rows_of_keys().items():
            try:
                value = tomllib.loads("value = " + default.strip("`"))["value"]
            except tomllib.TOMLDecodeError:  # in words
                continue
            self.assertEqual(recipe[section][key], value, key)
            compared += 1
        self.assertGreater(compared, 12)

    def test_a_new_recipe_says_what_holds_without_it(self):
        text = self.new_recipe([".k5f"])
        recipe = tomllib.loads(text)
        needed = "".join(f"{section}.{key} = {json.dumps(recipe[section][key])}\n"
                         for section, key in (("project", "name"), ("project", "run"),
                                              ("project", "folder"), ("target", "solver"),
                                              ("target", "mesh")))
        self.make_recipe(text, "whole.toml")
        self.make_recipe(needed, "short.toml")
        whole, short = (self.run_program("write", "--dry-run", name).stdout
                        for name in ("whole.toml", "short.toml"))
        self.assertIn("WeldlineAngle", whole)
        self.assertEqual(whole, short)

    def test_the_manuals_ranges_are_those_of_the_schema(self):
        sections = json.loads(self.run_program("schema").stdout)["properties"]
        for (section, key), (value, _) in self.rows_of_keys().items():
            form = sections.get(section, {}).get("properties", {}).get(key, {})
            highest = form.get("items", form).get("maximum", 2**31 - 1)
            if highest < 2**31 - 1:
                self.assertIn(f"{form.get('items', form)['minimum']} to {highest}", value)

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

    def test_the_manuals_exit_codes_are_those_of_the_help(self):
        text = self.run_program("--help").stdout
        codes = re.findall(r"^  (\d)  ", text, flags=re.M)
        self.assertIn("3", codes)
        for code in codes:
            self.assertIn(f"| {code} | ", self.manual)
            self.assertIn(f".TP\n.B {code}\n", self.man_page("zorbi2"))


if __name__ == "__main__":
    unittest.main()

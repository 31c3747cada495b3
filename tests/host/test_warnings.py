"""What is odd but can be meant: a warning, in text and JSON, and with --strict an error."""

import json
import unittest

from program import ON_WINDOWS, PROJECT, TARGET, ProgramTest, own_path

FILE = "Cover02.cmi"
NOTHING_ON = "no item is on: nothing is handed over"
NO_RESULTS = "the results of every item are missing"


class Warnings(ProgramTest):
    def warned(self, place, text, recipe, code, is_shown=True):
        """Writes with a warning, and does not write with --strict, which exits with `code`."""
        self.make_recipe(recipe)
        place = f"cover.toml{place}"
        self.check(self.run_program("write", "cover.toml", "--strict"), code, "", f"{place}: {text}\n")
        self.assertNotIn(FILE, self.files())
        done = self.run_program("items", "cover.toml", "--strict")
        if is_shown:
            self.check(done, code, None, f"{place}: {text}\n")
        else:
            self.check(done, 0)
        done = self.run_program("write", "cover.toml", "--json")
        self.check(done, 0)
        problems = json.loads(done.stdout)["problems"]
        self.assertEqual([(problem["severity"], problem["message"]) for problem in problems],
                         [("warning", text)])
        self.check(self.run_program("write", "cover.toml", "--quiet"), 0, "",
                   f"{place}: warning: {text}\n")
        self.assertIn(FILE, self.files())

    def test_no_item_on(self):
        self.make_run()
        self.warned("", NOTHING_ON, PROJECT + TARGET.replace("ANSYS", "NENASTRAN") +
                    "[choices]\nfiber-orientation = 5\n", 1)

    def test_no_results(self):
        self.make_run(files=[".cmx"])
        self.warned(":4:10", "project.folder: " + NO_RESULTS, PROJECT + TARGET, 1)

    def test_one_result_is_enough(self):
        self.make_run(files=[".k5f"])
        self.make_recipe()
        self.check(self.run_program("write", "cover.toml"), 0)

    @unittest.skipIf(ON_WINDOWS, "names are the same there, whatever their case")
    def test_names_that_differ_only_in_case(self):
        for file, wanted in (("cover02.k5o", "Cover02.k5o"), ("COVER02.K5F", "Cover02.k5f"),
                             ("Cover02.K5F", "Cover02.k5f"), ("Cover02.RSF", "Cover02.rsf"),
                             ("Cover02_MEDI.CRP", "Cover02_medi.crp"),
                             ("Cover02.K5S", "Cover02.k5s"), ("cover02.CMX", "Cover02.cmx")):
            with self.subTest(file):
                folder = self.make_run(files=[".k5p"])
                (folder / file).write_text("")
                self.warned(":4:10", f'project.folder: "{file}" is ignored: its name differs only '
                            f'in case from "{wanted}"', PROJECT + TARGET, 1)
                (folder / file).unlink()
                (self.folder / FILE).unlink()

    def test_names_that_are_right_or_of_something_else(self):
        folder = self.make_run()
        for file in ("Cover02.k5f", "Cover02.STL", "COVER021.k5f", "COVER03.k5f", "LID02.k5f"):
            (folder / file).write_text("")
        self.make_recipe()
        self.check(self.run_program("write", "cover.toml"), 0)

    def test_an_output_folder_that_does_not_exist(self):
        self.make_run()
        path = own_path(self.folder / "none")
        self.warned(":10:10", f"output.folder: {path}: no such folder on this machine",
                    PROJECT + TARGET + '[output]\nfolder = "none"\n', 3, is_shown=False)

    def test_an_output_folder_of_another_machine(self):
        self.make_run()
        for path in ("D:/none", "\\\\server\\none"):
            self.make_recipe(PROJECT + TARGET + f"[output]\nfolder = '{path}'\n")
            self.check(self.run_program("write", "cover.toml"), 0)


if __name__ == "__main__":
    unittest.main()

"""The command "items": the dialog, the solvers and the matrix, against committed files."""

import shutil
import unittest

from program import EXAMPLE, EXPECTED, ON_WINDOWS, PROJECT, TARGET, ProgramTest, own_path


class Items(ProgramTest):
    def setUp(self):
        super().setUp()
        shutil.copytree(EXAMPLE, self.folder, dirs_exist_ok=True)

    def assert_like(self, text, name):
        """Compares with a committed file, in which FOLDER stands for the folder of the test."""
        expected = (EXPECTED / name).read_text(encoding="utf-8")
        self.assertEqual(text.replace(own_path(self.folder), "FOLDER").replace("\\Run", "/Run"),
                         expected)

    def make_bare_run(self):
        self.make_run(name="Lid07", folder="Run07", files=[])
        return self.make_recipe('[project]\nname = "Lid"\nrun = 7\nfolder = "Run07"\n'
                                'empty_run = true\n' + TARGET)

    def test_the_dialog_of_the_example(self):
        done = self.run_program("items", "cover.toml")
        self.check(done, 0)
        self.assert_like(done.stdout, "items_cover.txt")

    def test_the_dialog_of_a_run_without_results_tells_every_reason(self):
        done = self.run_program("items", self.make_bare_run())
        self.check(done, 0)
        self.assert_like(done.stdout, "items_without_results.txt")

    def test_the_dialog_follows_the_command_line(self):
        recipe = self.make_recipe(PROJECT + "type = 3\n" + TARGET)
        done = self.run_program("items", recipe, "--solver", "LSDYNA", "--mesh", "deformed",
                                "--set", "micro-mechanics=0")
        self.check(done, 0)
        self.assert_like(done.stdout, "items_lsdyna_deformed.txt")

    def test_the_solvers_of_a_solid_project(self):
        done = self.run_program("items", "--solvers", "cover.toml")
        self.check(done, 0)
        self.assert_like(done.stdout, "solvers_solid.txt")

    def test_solvers_and_matrix_need_no_target(self):
        recipe = self.make_recipe(PROJECT)
        done = self.run_program("items", "--solvers", recipe)
        self.check(done, 0)
        self.assert_like(done.stdout, "solvers_solid.txt")
        done = self.run_program("items", "--matrix", recipe)
        self.check(done, 0)
        self.assertIn("fiber-orientation", done.stdout)
        recipe = self.make_recipe(PROJECT + "type = 3\n[target]\nannealing = true\n")
        self.check(self.run_program("items", "--matrix", recipe), 0)

    def test_the_solvers_without_a_recipe_are_those_of_a_solid_project(self):
        done = self.run_program("items", "--solvers")
        self.check(done, 0)
        self.assert_like(done.stdout, "solvers_solid.txt")

    def test_only_the_solvers_can_do_without_a_recipe(self):
        for options in ([], ["--matrix"]):
            self.check(self.run_program("items", *options), 2, "", "zorbi2: RECIPE is required\n"
                       "for usage, run zorbi2 items --help\n")

    def test_the_solvers_of_a_shell_project(self):
        recipe = self.make_recipe(PROJECT + 'analysis = "shell"\n' + TARGET)
        done = self.run_program("items", "--solvers", recipe)
        self.check(done, 0)
        self.assert_like(done.stdout, "solvers_shell.txt")

    def test_the_solvers_show_even_when_the_recipes_own_is_not_offered(self):
        recipe = self.make_recipe(PROJECT + 'analysis = "shell"\n' +
                                  TARGET.replace("ANSYS", "Workbench"))
        self.check(self.run_program("items", "--solvers", recipe), 0)

    def test_the_matrix_of_the_example(self):
        done = self.run_program("items", "--matrix", "cover.toml")
        self.check(done, 0)
        self.assert_like(done.stdout, "matrix_cover.txt")

    def test_the_matrix_of_a_shell_project_without_results(self):
        recipe = self.make_bare_run()
        path = self.folder / recipe
        path.write_text(path.read_text().replace("run = 7", 'run = 7\nanalysis = "shell"'))
        done = self.run_program("items", "--matrix", recipe)
        self.check(done, 0)
        self.assert_like(done.stdout, "matrix_shell_without_results.txt")

    def test_refused_choices_are_told_below_the_dialog(self):
        recipe = self.make_recipe(PROJECT + TARGET + "[choices]\nrunner = 1\nthermal-stress = 1\n")
        done = self.run_program("items", recipe)
        self.check(done, 1, None, "cover.toml:10:10: choices.runner: results missing: No runners\n")
        self.assertIn("[x] Thermal stress output", done.stdout)

    def test_a_target_that_is_not_offered_has_no_dialog(self):
        recipe = self.make_recipe(PROJECT + TARGET.replace("ANSYS", "Workbench"))
        self.check(self.run_program("items", recipe), 1, "", 'cover.toml:8:8: target.mesh: '
                   '"original" is not offered for Workbench in this project; offered: Mapped\n')

    def test_a_bad_recipe_has_no_dialog(self):
        self.check(self.run_program("items", self.make_recipe(PROJECT)), 2, "",
                   "cover.toml:1:1: target.solver: missing: the structural solver\n"
                   "cover.toml:1:1: target.mesh: missing: the mesh kind\n")
        self.check(self.run_program("items", "none.toml"), 3, "",
                   "none.toml: cannot be read: No such file or directory\n")

    def test_items_writes_nothing(self):
        before = self.files()
        for arguments in ([], ["--matrix"], ["--solvers"]):
            self.run_program("items", "cover.toml", *arguments)
        self.assertEqual(self.files(), before)

    # ---- On a terminal ------------------------------------------------------------------------

    @unittest.skipIf(ON_WINDOWS, "terminals are POSIX's")
    def test_a_wide_terminal_is_used(self):
        for name, options in (("items_cover_wide.txt", []), ("matrix_cover_wide.txt", ["--matrix"])):
            self.assert_like(self.on_terminal("items", "cover.toml", *options, columns=200,
                                              environment={"NO_COLOR": "1"}), name)

    @unittest.skipIf(ON_WINDOWS, "terminals are POSIX's")
    def test_no_line_of_the_dialog_but_the_folder_is_wider_than_the_terminal(self):
        for columns in (80, 100, 132):
            for arguments in ([], ["--matrix"], ["--solvers"]):
                text = self.on_terminal("items", "cover.toml", *arguments, columns=columns,
                                        environment={"NO_COLOR": "1"})
                for line in text.splitlines():
                    if not line.startswith("/"):
                        self.assertLessEqual(len(line), columns, line)


if __name__ == "__main__":
    unittest.main()

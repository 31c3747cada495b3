"""Recipes from standard input, and recipes that contradict themselves, as far as the table of bad
recipes does not hold them."""

import os
import unittest

from program import ON_WINDOWS, PROJECT, TARGET, ProgramTest, own_path

MAPPED = TARGET.replace("original", "mapped")
CONTROL = '[control_file]\nfolder = "out"\n'


class Contradictions(ProgramTest):
    def setUp(self):
        super().setUp()
        self.make_run()

    def write(self, recipe, *arguments, code=0, stderr=""):
        self.make_recipe(recipe)
        self.check(self.run_program("write", "cover.toml", *arguments), code, None, stderr)

    # ---- Annealing ----------------------------------------------------------------------------

    def test_annealing_is_for_every_solver_with_a_deformed_mesh(self):
        for solver in ("ANSYS", "MSCNASTRAN", "NENASTRAN", "MARC"):
            self.write(PROJECT + "type = 3\n" + TARGET.replace("original", "deformed")
                       .replace("ANSYS", solver) + "annealing = true\n")

    def test_the_command_line_can_bring_the_contradiction(self):
        self.write(PROJECT + "type = 3\n" + TARGET.replace("original", "deformed") +
                   "annealing = true\n", "--mesh", "original", code=2,
                   stderr='cover.toml:10:13: target.annealing: true needs the mesh kind "deformed", '
                   'not "original"\n')

    def test_annealing_that_is_off_contradicts_nothing(self):
        self.write(PROJECT + TARGET + "annealing = false\n")

    # ---- Paths --------------------------------------------------------------------------------

    def test_a_mapped_mesh_need_not_exist_where_it_is_not_needed(self):
        self.write(PROJECT + TARGET + 'mapped_mesh = "none.cdb"\n')
        self.make_recipe(PROJECT + MAPPED + 'mapped_mesh = "none.cdb"\n')
        self.check(self.run_program("items", "cover.toml"), 0)

    def test_a_mapped_mesh_of_another_machine_need_not_exist(self):
        for path in ("D:/none.cdb", "\\\\server\\none.cdb"):
            self.write(PROJECT + MAPPED + f"mapped_mesh = '{path}'\n")

    def test_a_mapped_mesh_that_exists(self):
        (self.folder / "cover.cdb").write_text("")
        self.write(PROJECT + MAPPED + 'mapped_mesh = "cover.cdb"\n')

    def test_home_is_not_expanded_on_the_command_line_either(self):
        self.write(PROJECT + TARGET, "--out=~/out", code=2,
                   stderr='cover.toml: command line: control_file.folder: "~/out" starts with "~", '
                   "which is not expanded; write out the full path\n")

    # ---- Numbers ------------------------------------------------------------------------------

    def test_numbers_with_three_decimals_are_kept(self):
        self.write(PROJECT + TARGET + "[weld_lines]\nangles = [0, 0.001, 179.999]\n"
                   "reduction_rates = [0.125, 1e-3, 1]\ndigimat_angle = 134.500\n")
        text = (self.folder / "Cover02.cmi").read_text()
        for line in ("WeldlineAngle2 = 0.000", "WeldlineAngle3 = 0.001", "WeldlineAngle4 = 179.999",
                     "ReductionRate2 = 0.001"):
            self.assertIn(line + "\n", text)

    # ---- Required items -----------------------------------------------------------------------

    def test_items_tells_what_is_required_as_write_does(self):
        self.make_recipe('require = ["flow-stress", "runner"]\n' + PROJECT + TARGET)
        message = ('cover.toml:1:12: require: flow-stress would not be on: the choice is "off"\n'
                   "cover.toml:1:27: require: runner would not be on: results missing: "
                   "No runners\n")
        self.check(self.run_program("items", "cover.toml"), 1, None, message)
        self.check(self.run_program("write", "cover.toml"), 1, "", message)

    # ---- Standard input -----------------------------------------------------------------------

    def from_input(self, text, *arguments, **others):
        """The finished process of a recipe that comes from a file as standard input."""
        source = self.folder / "input"
        source.write_bytes(text.encode())
        with source.open("rb") as stream:
            return self.run_program(*arguments, stdin=stream, **others)

    def test_a_recipe_from_standard_input_starts_at_the_current_folder(self):
        (self.folder / "out").mkdir()
        done = self.from_input(PROJECT + TARGET + CONTROL, "write", "-")
        path = self.folder / "out" / "Cover02.cmi"
        self.check(done, 0, f"new      {own_path(path)}\n")
        self.assertIn("OutFolder = " + own_path(self.folder / "out"), path.read_text())

    def test_a_recipe_from_standard_input_is_shown(self):
        done = self.from_input(PROJECT + TARGET, "items", "-", "--mesh", "deformed")
        self.check(done, 0)
        self.assertIn("deformed mesh", done.stdout)

    def test_messages_name_standard_input_by_its_sign(self):
        self.check(self.from_input(PROJECT.replace("2\n", '"2"\n') + TARGET, "write", "-"), 2, "",
                   '-:3:7: project.run: "2" is not a whole number from 0 to 2147483647\n')

    @unittest.skipIf(ON_WINDOWS, "a folder can be opened only on POSIX")
    def test_standard_input_that_cannot_be_read(self):
        stream = os.open(self.folder, os.O_RDONLY)
        done = self.run_program("write", "-", stdin=stream)
        os.close(stream)
        self.check(done, 3, "", "-: cannot be read: Is a directory\n")


if __name__ == "__main__":
    unittest.main()

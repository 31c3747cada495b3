"""What is asked for and what the engine writes agree, whatever a recipe chooses."""

import itertools
import unittest

from program import PROJECT, ProgramTest

SOLVERS = ["ANSYS", "ABAQUS", "MSCNASTRAN", "NENASTRAN", "LSDYNA", "MARC", "NXNASTRAN", "RADIOSS",
           "WORKBENCH"]
FACTS = "runners = true\nmoldbase = true\ninserted_part = true\nmeeting_angles = true\n"
# Which of these a recipe may say, by what of the project and the target goes with it.
DEFORMED, MAPPED, SHELL = "deformed", "mapped", "3d-mapping-to-shell"


class AskedFor(ProgramTest):
    def setUp(self):
        super().setUp()
        self.make_run(files=[".o2w", ".k5o", ".k5f", ".k5p", ".k5c", ".k5w", ".k5s", ".rsf", ".rso",
                             ".rsp", ".rsc", "_vox.k5o", "_medi.crp"])
        self.number = 0

    def recipe(self, solver, mesh, project="", target="", choices=""):
        self.number += 1
        text = (f'{PROJECT}{FACTS}{project}[target]\nsolver = "{solver}"\nmesh = "{mesh}"\n{target}'
                f'[control_file]\nname = "r{self.number}-"\n[choices]\n{choices}')
        if mesh in (MAPPED, SHELL):
            text = text.replace("[control_file]", "mapped_mesh = 'D:\\x.cdb'\n[control_file]")
        return self.make_recipe(text, f"r{self.number}.toml")

    def written(self, recipes):
        done = self.run_program("write", "--quiet", *recipes)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(len(list(self.folder.glob("*.cmi"))), len(recipes))

    def test_every_solver_mesh_kind_and_project(self):
        recipes = []
        for solver in SOLVERS:
            meshes = ["original", DEFORMED, MAPPED] + [SHELL] * (solver == "LSDYNA")
            for mesh, kind in itertools.product(meshes, (0, 3, 9)):
                if solver != "WORKBENCH" or mesh == MAPPED:
                    recipes.append(self.recipe(solver, mesh, f"type = {kind}\n"))
                if solver != "WORKBENCH" and mesh in ("original", DEFORMED, MAPPED):
                    recipes.append(self.recipe(solver, mesh, f"type = {kind}\nvoxel_mesh = true\n")
                                   if mesh == MAPPED else
                                   self.recipe(solver, mesh, f"type = {kind}\nview_edit = true\n"))
            if solver != "WORKBENCH":
                recipes.append(self.recipe(solver, DEFORMED, "type = 3\n", "annealing = true\n"))
        self.assertGreater(len(recipes), 150)
        self.written(recipes)

    def test_every_option_of_every_item(self):
        choices = [(0, range(6)), (1, range(2)), (11, range(2)), (13, range(7)), (15, range(3))]
        choices += [(item, (0, 1)) for item in (2, 3, 4, 5, 6, 7, 8, 9, 10, 14, 16, 18, 19, 20)]
        self.written([self.recipe("ANSYS", "original", "", "", f"{item} = {value}\n")
                      for item, values in choices for value in values])

    def test_a_shell_project(self):
        self.written([self.recipe(solver, mesh, 'analysis = "shell"\n')
                      for solver in SOLVERS[:4] for mesh in ("original", DEFORMED)])


if __name__ == "__main__":
    unittest.main()

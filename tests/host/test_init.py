"""The command "init": a recipe from the names of a run folder's files."""

import tomllib
import unittest

from program import EXAMPLE, EXPECTED, ProgramTest, own_path


class Init(ProgramTest):
    def init(self, folder="Run02", code=0, stderr="", options=(), recipe="Cover02.toml"):
        """The recipe that comes out, as text."""
        done = self.run_program("init", folder, *options)
        self.check(done, code, None, stderr)
        path = self.folder / recipe
        return path.read_text(encoding="utf-8") if path.exists() else None

    def project(self, *files, folder="Run02", recipe="Cover02.toml"):
        """The section [project] for a folder with these files."""
        path = self.folder / folder
        path.mkdir(parents=True, exist_ok=True)
        for file in files:
            (path / file).write_text("1004\n")
        return tomllib.loads(self.init(folder, recipe=recipe, options=["--force"]))["project"]

    def test_the_recipe_of_the_example_run(self):
        path = self.folder / "Run02"
        path.mkdir()
        for file in (EXAMPLE / "Run02").iterdir():
            (path / file.name).write_bytes(file.read_bytes())
        # The first line has the path of the installed schema.
        self.assertEqual(self.init().split("\n", 1)[1],
                         (EXPECTED / "init_cover.toml").read_text(encoding="utf-8"))

    def test_the_recipe_can_be_written_as_it_stands(self):
        self.make_run()
        self.init()
        self.check(self.run_program("items", "Cover02.toml"), 0)
        self.check(self.run_program("write", "Cover02.toml"), 0)
        self.assertIn("Cover02.cmi", self.files())

    def test_name_and_run_come_from_the_files(self):
        for folder, file, name, run in (
                ("Run03", "Cover03.o2w", "Cover", 3), ("Run12", "Lid12.k5f", "Lid", 12),
                ("Run123", "Lid123.k5f", "Lid", 123), ("job", "Lid04.k5f", "Lid", 4),
                ("Run05", "Part205.k5f", "Part2", 5), ("2024", "Lid06.k5f", "Lid", 6),
                ("Run07", "Lid07_medi.crp", "Lid", 7), ("Run08", "A.B08.k5f", "A.B", 8)):
            tag = f"{run:02d}"
            project = self.project(file, folder=f"{name}/{folder}", recipe=f"{name}{tag}.toml")
            self.assertEqual((project["name"], project["run"]), (name, run))
            self.assertEqual(project["folder"], f"{name}/{folder}")

    def test_the_run_with_most_files_counts(self):
        project = self.project("Lid02.k5f", "Cover02.k5f", "Cover02.k5o", "notes.txt")
        self.assertEqual(project["name"], "Cover")

    def test_results_tell_what_the_project_has(self):
        project = self.project("Cover02.k5f")
        self.assertEqual((project["analysis"], project["fiber_results"], project["voxel_mesh"],
                          project["inserted_part"]), ("solid", False, False, False))
        self.assertTrue(self.project("Cover02.o2w")["fiber_results"])
        self.assertTrue(self.project("Cover02.cmx")["inserted_part"])
        shell = self.project("Lid02.rso", "Lid02.rsp", folder="Lid/Run02", recipe="Lid02.toml")
        self.assertEqual((shell["analysis"], shell["fiber_results"]), ("shell", True))

    def test_voxel_results_need_a_mapped_mesh(self):
        self.assertTrue(self.project("Cover02_vox.k5o")["voxel_mesh"])
        self.check(self.run_program("write", "Cover02.toml"), 2, "", None)
        recipe = tomllib.loads((self.folder / "Cover02.toml").read_text())
        self.assertEqual(recipe["target"]["mesh"], "mapped")

    def test_the_recipe_goes_where_it_is_told_and_finds_the_run_from_there(self):
        self.make_run()
        (self.folder / "recipes").mkdir()
        self.init(options=["-o", "recipes/mine.toml"])
        text = (self.folder / "recipes" / "mine.toml").read_text()
        self.assertEqual(tomllib.loads(text)["project"]["folder"], "../Run02")
        self.check(self.run_program("write", "recipes/mine.toml"), 0)

    def test_a_run_beside_the_recipe_and_a_folder_with_a_separator_at_the_end(self):
        path = self.make_run()
        self.check(self.run_program("init", ".", cwd=path), 0)
        recipe = tomllib.loads((path / "Cover02.toml").read_text())
        self.assertEqual(recipe["project"]["folder"], ".")
        self.assertEqual(tomllib.loads(self.init("Run02/"))["project"]["folder"], "Run02")

    def test_a_long_folder_stands_whole_in_the_recipe(self):
        folder = "a" * 90 + "/" + "b" * 80 + "/Run02"
        self.make_run(folder=folder)
        self.assertEqual(tomllib.loads(self.init(folder))["project"]["folder"], folder)
        self.check(self.run_program("write", "Cover02.toml"), 0)

    def test_nothing_is_overwritten_without_force(self):
        self.make_run()
        self.make_recipe("mine", "Cover02.toml")
        path = own_path(self.folder / "Cover02.toml")
        self.init(code=3, stderr=f"{path}: already exists; --force replaces it\n")
        self.assertEqual((self.folder / "Cover02.toml").read_text(), "mine")
        self.assertIn("[project]", self.init(options=["--force"]))

    def test_the_result_is_told(self):
        self.make_run()
        done = self.run_program("init", "Run02")
        path = own_path(self.folder / "Cover02.toml")
        self.check(done, 0, f"wrote    {path} for Cover, run 2\n")
        self.check(self.run_program("init", "Run02", "--force", "--quiet"), 0, "")

    def test_folders_without_a_run_are_refused(self):
        (self.folder / "empty").mkdir()
        (self.folder / "other").mkdir()
        (self.folder / "other" / "notes.txt").write_text("")
        for folder in ("empty", "other"):
            path = own_path(self.folder / folder)
            self.init(folder, 3, f"{path}: no file is named after a project and a run, "
                      "as Cover02.k5o is\n")
        path = own_path(self.folder / "none")
        self.init("none", 3, f"zorbi2: {path}: No such file or directory\n")
        self.assertEqual(self.files(), ["other/notes.txt"])

    def test_a_recipe_that_cannot_be_written(self):
        self.make_run()
        path = own_path(self.folder / "none" / "x.toml")
        self.init(code=3, options=["-o", "none/x.toml"],
                  stderr=f"{path}: cannot be written: No such file or directory\n")

    def test_names_with_odd_characters_are_quoted(self):
        self.make_run(name="Füße's {run} 02", folder="Gehäuse/Run02", files=[".k5f"])
        text = self.init("Gehäuse/Run02", recipe="Füße's {run} 02.toml")
        project = tomllib.loads(text)["project"]
        self.assertEqual((project["name"], project["folder"]), ("Füße's {run} ", "Gehäuse/Run02"))


if __name__ == "__main__":
    unittest.main()

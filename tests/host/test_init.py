"""The command "init": a recipe from the names of a run folder's files."""

import json
import os
import re
import tomllib
import unittest

from program import EXAMPLE, EXPECTED, ON_WINDOWS, ROOT, ProgramTest, own_path


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
                ("Run123", "Lid123.k5f", "Lid", 123), ("Run00", "Lid00.k5f", "Lid", 0), ("job", "Lid04.k5f", "Lid", 4),
                ("Run05", "Part205.k5f", "Part2", 5), ("2024", "Lid06.k5f", "Lid", 6),
                ("Run07", "Lid07_medi.crp", "Lid", 7), ("Run08", "A.B08.k5f", "A.B", 8)):
            tag = f"{run:02d}"
            project = self.project(file, folder=f"{name}/{folder}", recipe=f"{name}{tag}.toml")
            self.assertEqual((project["name"], project["run"]), (name, run))
            self.assertEqual(project["folder"], f"{name}/{folder}")

    def test_only_result_files_tell_of_a_run(self):
        project = self.project("Cover02.k5f", "Lid02.txt", "notes07.pdf", "Cover03", "02.k5f",
                               "Lid2.k5f", "Lid02_old.k5f", "Cover02.K5F.bak")
        self.assertEqual((project["name"], project["run"]), ("Cover", 2))

    def test_every_file_that_the_engine_looks_for_tells_of_a_run(self):
        sources = [path.read_text() for path in (ROOT / "results").glob("*.cpp")]
        looked_for = set(re.findall(r'"(\.[a-z0-9]{3})"', "".join(sources))) - {".crp"}
        self.assertIn(".k5s", looked_for)
        for ending in sorted(looked_for | {"_medi.crp", "_vox.k5o"}):
            folder = f"run of {ending}"
            project = self.project("Cover02" + ending, folder=folder)
            self.assertEqual((project["name"], project["run"]), ("Cover", 2), ending)

    def test_of_several_runs_none_is_guessed(self):
        path = self.make_run()
        for name in ("Cover11", "Lid02", "Lid03"):
            self.make_run(name, files=[".k5f"])
        runs = "Cover, run 2; Cover, run 11; Lid, run 2; Lid, run 3"
        folder = own_path(path)
        self.init(code=2, stderr=f"{folder}: several runs: {runs}; "
                  "choose one with --name, --run or both\n")
        self.init(code=2, options=["--run", "2"], stderr=f"{folder}: several runs: Cover, run 2; "
                  "Lid, run 2; choose one with --name, --run or both\n")
        self.init(code=3, options=["--name", "Cover", "--run", "3"],
                  stderr=f"{folder}: no such run; runs found: {runs}\n")
        self.assertFalse([name for name in self.files() if name.endswith(".toml")])
        for options, name, run in ((["--name", "Lid", "--run", "3"], "Lid", 3),
                                   (["--run", "11"], "Cover", 11)):
            recipe = tomllib.loads(self.init(options=options, recipe=f"{name}{run:02d}.toml"))
            self.assertEqual((recipe["project"]["name"], recipe["project"]["run"]), (name, run))

    def test_digits_that_can_be_read_in_two_ways_are_not_guessed_either(self):
        self.make_run("Lid123", folder="job", files=[".k5f", ".k5o"])
        self.init("job", 2, f"{own_path(self.folder / 'job')}: several runs: Lid, run 123; "
                  "Lid1, run 23; choose one with --name, --run or both\n")
        recipe = tomllib.loads(self.init("job", options=["--run", "23"], recipe="Lid123.toml"))
        self.assertEqual(recipe["project"]["name"], "Lid1")

    def test_a_long_list_of_runs_is_cut(self):
        for number in range(12):
            self.make_run(f"Lid{number:02d}", folder="job", files=[".k5f"])
        done = self.run_program("init", "job")
        self.assertIn("Lid, run 9; 2 more; choose", done.stderr)

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

    def test_standard_output_is_no_file(self):
        self.make_run()
        reason = "zorbi2: -o needs the name of a file; standard output is none (./- is a file)\n"
        for command in (["init", "Run02"], ["init", "--all", "Run02"], ["report", "c.toml"]):
            self.make_recipe(name="c.toml")
            self.check(self.run_program(*command, "-o", "-"), 2, "", reason)
        self.check(self.run_program("init", "Run02", "-o", "./-"), 0)

    def test_nothing_is_overwritten_without_force(self):
        self.make_run()
        self.make_recipe("mine", "Cover02.toml")
        path = own_path(self.folder / "Cover02.toml")
        self.init(code=3, stderr=f"{path}: already exists; use --force to replace it\n")
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
            self.init(folder, 3, f"{path}: no result files found; they have names like "
                      "Cover02.k5o (project and run number); for folders "
                      "below this one, use --all\n")
        path = own_path(self.folder / "none")
        self.init("none", 3, f"zorbi2: {path}: No such file or directory\n")
        self.assertEqual(self.files(), ["other/notes.txt"])

    def test_a_recipe_that_cannot_be_written(self):
        self.make_run()
        path = own_path(self.folder / "none" / "x.toml")
        self.init(code=3, options=["-o", "none/x.toml"],
                  stderr=f"{path}: cannot be written: its folder does not exist, and is not "
                         "created\n")

    def test_a_folder_in_the_place_of_the_recipe(self):
        self.make_run()
        (self.folder / "Cover02.toml").mkdir()
        for options in ([], ["--force"], ["-o", "."], ["-o", ".", "--force"]):
            path = self.folder if "." in options else self.folder / "Cover02.toml"
            done = self.run_program("init", "Run02", *options)
            self.check(done, 3, "", f"{own_path(path)}: is a folder, not a recipe\n")

    @unittest.skipIf(ON_WINDOWS, "Windows keeps a current folder")
    def test_a_current_folder_that_was_deleted(self):
        self.make_run()
        gone = self.folder / "gone"
        gone.mkdir()
        done = self.run_program("init", self.folder / "Run02", cwd=gone,
                                preexec_fn=lambda: os.rmdir(gone))
        self.check(done, 3, "", "zorbi2: the current folder cannot be used: No such file or "
                   "directory\n")

    @unittest.skipIf(ON_WINDOWS, "Windows has no such file names")
    def test_names_that_a_recipe_cannot_hold_are_refused(self):
        for folder, run, reason in (
                (b"Geh\xe4use", b"Lid02.k5f",
                 r'"Geh\xe4use" is not valid UTF-8, so a recipe cannot contain it'),
                (b"fine", b"L\xe4d02.k5f",
                 r'"L\xe4d" is not valid UTF-8, so a recipe cannot contain it'),
                (b"odd", b"a:b02.k5f", '"a:b" is not a valid part of a file name: no leading dot '
                 'and none of / \\ : * ? " < > |'),
                (b"hidden", b".b02.k5f", '".b" is not a valid part of a file name: no leading dot '
                 'and none of / \\ : * ? " < > |'),
                (b"a\nb", b"Lid02.k5f",
                 r'"a\nb" contains control characters, which are not allowed in a recipe')):
            path = os.fsencode(self.folder) + b"/" + folder
            os.mkdir(path)
            with open(path + b"/" + run, "w", encoding="ascii"):
                pass
            done = self.run_program("init", os.fsdecode(folder))
            self.check(done, 3, "", f"zorbi2: {reason}\n")
        self.assertFalse(list(self.folder.glob("*.toml")))

    # ---- All runs below a folder --------------------------------------------------------------

    def test_all_runs_below_a_folder_get_a_recipe(self):
        self.make_run(folder="root/Run02")
        self.make_run("Lid03", folder="root/deep/er/Run03", files=[".rso"])
        (self.folder / "root" / "notes").mkdir()
        (self.folder / "recipes").mkdir()
        done = self.run_program("init", "--all", "root", "-o", "recipes")
        files = [own_path(self.folder / "recipes" / name) for name in ("Cover02.toml", "Lid03.toml")]
        self.check(done, 0, f"wrote    {files[0]} for Cover, run 2\n"
                   f"wrote    {files[1]} for Lid, run 3\n2 written, 0 failed\n")
        recipe = tomllib.loads((self.folder / "recipes" / "Lid03.toml").read_text())["project"]
        self.assertEqual((recipe["folder"], recipe["analysis"]), ("../root/deep/er/Run03", "shell"))
        self.check(self.run_program("write", "recipes/Cover02.toml", "recipes/Lid03.toml"), 0)

    def test_folders_of_the_same_run_get_recipes_of_their_own(self):
        self.make_run(folder="root/first/Run02")
        self.make_run(folder="root/second/Run02")
        self.make_run("Lid03", folder="root/Run03")
        self.make_run("Lid04", folder="root")
        self.make_run("Lid04", folder="root/deep")
        self.check(self.run_program("init", "--all", "root"), 0)
        names = [path.name for path in sorted(self.folder.glob("*.toml"))]
        self.assertEqual(names, ["Lid03.toml", "Lid04.toml", "deep-Lid04.toml",
                                 "first-Run02-Cover02.toml", "second-Run02-Cover02.toml"])
        recipe = tomllib.loads((self.folder / names[3]).read_text())
        self.assertEqual(recipe["project"]["folder"], "root/first/Run02")

    def test_two_recipes_of_all_never_share_a_file(self):
        for folder in ("root/a/b", "root/a-b"):
            self.make_run("Lid02", folder=folder, files=[".k5f"])
        for options in ([], ["--force"]):
            done = self.run_program("init", "--all", "root", *options)
            path = own_path(self.folder / "a-b-Lid02.toml")
            self.check(done, 3, None, f"{path}: already written for another run, so it was not "
                       f"written for {own_path(self.folder / 'root' / 'a-b')}\n")
            (self.folder / "a-b-Lid02.toml").unlink()

    def test_what_fails_of_all_stops_no_other(self):
        self.make_run(folder="root/Run02")
        self.make_run("Lid03", folder="root/Run03")
        self.make_run("Lid04", folder="root/both", files=[".k5f"])
        self.make_run("Lid05", folder="root/both", files=[".k5f"])
        (self.folder / "Cover02.toml").write_text("mine")
        done = self.run_program("init", "--all", "root", "--json")
        document = json.loads(done.stdout)
        self.assertEqual(done.returncode, 3)
        self.assertEqual([(entry["project"], entry["run"]) for entry in document["recipes"]],
                         [("Lid", 3)])
        self.assertEqual(
            [(problem["file"], problem["message"]) for problem in document["problems"]],
            [(own_path(self.folder / "root" / "both"),
              "several runs: Lid, run 4; Lid, run 5; choose one with --name, --run or both"),
             (own_path(self.folder / "Cover02.toml"), "already exists; use --force to replace it")])
        self.assertEqual((self.folder / "Cover02.toml").read_text(), "mine")
        done = self.run_program("init", "--all", "root", "--run", "4")
        self.assertTrue(done.stdout.endswith("1 written, 0 failed\n"))
        self.check(done, 0)

    def test_all_of_nothing_is_an_error(self):
        (self.folder / "root" / "notes").mkdir(parents=True)
        self.check(self.run_program("init", "--all", "root"), 3, "",
                   f"{own_path(self.folder / 'root')}: no matching run in this folder or below "
                   "it\n")
        self.check(self.run_program("init", "--all", "root", "-o", "none"), 3, "",
                   f"zorbi2: {own_path(self.folder / 'none')}: No such file or directory\n")

    @unittest.skipIf(ON_WINDOWS, "links are POSIX's")
    def test_links_lead_all_into_no_circle(self):
        self.make_run(folder="root/Run02")
        (self.folder / "root" / "again").symlink_to("..")
        self.assertTrue(self.run_program("init", "--all", "root").stdout.endswith(
            "1 written, 0 failed\n"))

    @unittest.skipIf(ON_WINDOWS, "links are POSIX's")
    def test_a_recipe_behind_a_link_finds_the_run(self):
        self.make_run()
        (self.folder / "far" / "inner").mkdir(parents=True)
        (self.folder / "near").symlink_to("far/inner")
        self.check(self.run_program("init", "Run02", "-o", "near/Cover02.toml"), 0)
        self.check(self.run_program("write", "near/Cover02.toml"), 0)
        self.check(self.run_program("write", "far/inner/Cover02.toml"), 0)
        self.assertTrue((self.folder / "far" / "inner" / "Cover02.cmi").exists())

    @unittest.skipIf(ON_WINDOWS, "Windows has no such file names")
    def test_a_name_with_a_backslash_leads_nowhere(self):
        run = self.make_run(name="..\\..\\evil02", files=[".k5f"])
        self.check(self.run_program("init", "Run02"), 3, "",
                   f"{own_path(run)}: no result files found; they have names like "
                   "Cover02.k5o (project and run number); for folders "
                   "below this one, use --all\n")
        self.make_run(folder="root/a\\b")
        self.check(self.run_program("init", "--all", "root"), 3, "0 written, 1 failed\n",
                   'zorbi2: "root/a\\b" contains a backslash, which a recipe would take for a separator\n')

    @unittest.skipIf(ON_WINDOWS, "modes are POSIX's")
    def test_results_that_cannot_be_reached_are_not_missing(self):
        run = self.make_run(folder="root/Run02")
        run.chmod(0o744)
        self.as_another_user()
        self.check(self.run_program("init", run, **self.as_nobody()), 3, "",
                   f"zorbi2: project.folder: {own_path(run)}: Cover02_medi.crp: Permission denied\n")
        done = self.run_program("init", "--all", "root", **self.as_nobody())
        self.check(done, 3, "0 written, 1 failed\n", None)
        self.assertTrue(done.stderr.endswith(": Permission denied\n"), done.stderr)

    @unittest.skipIf(ON_WINDOWS, "modes are POSIX's")
    def test_a_folder_that_cannot_be_listed_is_an_error(self):
        run = self.make_run(folder="root/Run02")
        run.chmod(0o711)
        self.as_another_user()
        reason = f"zorbi2: {own_path(run)}: Permission denied\n"
        self.check(self.run_program("init", run, **self.as_nobody()), 3, "", reason)
        self.check(self.run_program("init", "--all", "root", **self.as_nobody()), 3,
                   "0 written, 1 failed\n", reason)

    @unittest.skipIf(ON_WINDOWS, "pipes are POSIX's")
    def test_what_is_no_file_is_not_told_to_exist_already(self):
        self.make_run()
        os.mkfifo(self.folder / "pipe")
        for force in ([], ["--force"]):
            self.check(self.run_program("init", "Run02", "-o", "pipe", *force), 3, "",
                       f"{own_path(self.folder / 'pipe')}: cannot be written: it is a pipe or a "
                       "device, not a regular file\n")

    @unittest.skipIf(ON_WINDOWS, "Windows has no such file names")
    def test_folders_are_taken_for_none_of_home_or_another_machine(self):
        for folder in ("~run", "c:"):
            self.make_run(folder=folder)
            self.check(self.run_program("init", folder, "--force"), 0)
            self.check(self.run_program("write", "--check", "Cover02.toml"), 1)

    def test_names_with_odd_characters_are_quoted(self):
        self.make_run(name="Füße's {run} 02", folder="Gehäuse/Run02", files=[".k5f"])
        text = self.init("Gehäuse/Run02", recipe="Füße's {run} 02.toml")
        project = tomllib.loads(text)["project"]
        self.assertEqual((project["name"], project["folder"]), ("Füße's {run} ", "Gehäuse/Run02"))


if __name__ == "__main__":
    unittest.main()

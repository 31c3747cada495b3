"""The run that a recipe names must lie in its folder."""

import os
import pathlib
import unittest

from program import ON_WINDOWS, PROGRAM, PROJECT, TARGET, ProgramTest, own_path


class RunFolder(ProgramTest):
    def refused(self, reason, project=PROJECT, **others):
        """By every command that works on a run; nothing is written."""
        self.make_recipe(project + TARGET)
        before = self.files()
        for command in (["items"], ["items", "--matrix"], ["write"], ["write", "--dry-run"]):
            done = self.run_program(*command, "cover.toml", **others)
            self.check(done, 3, "", "cover.toml:4:10: project.folder: "
                       f"{own_path(self.folder / 'Run02')}{reason}\n")
        self.assertEqual(self.files(), before)

    def no_file(self, base, runs):
        return (f" has no result file of {base}; runs found: {runs}; "
                "set project.empty_run = true if the run is empty on purpose")

    def test_a_wrong_number_or_name(self):
        self.make_run(files=[".k5f"])
        self.make_run("Lid11", files=[".rso"])
        runs = "Cover, run 2; Lid, run 11"
        self.refused(self.no_file("Cover03", runs), PROJECT.replace("run = 2", "run = 3"))
        self.refused(self.no_file("Cover123", runs), PROJECT.replace("run = 2", "run = 123"))
        self.refused(self.no_file("Covr02", runs), PROJECT.replace("Cover", "Covr"))

    def test_a_folder_without_a_run(self):
        path = self.make_run(files=[])
        (path / "Cover02.txt").write_text("")
        self.refused(self.no_file("Cover02", "none"))

    def test_one_file_of_the_run_is_enough(self):
        for ending in (".k5f", "_medi.crp", "_vox.k5o", ".cmx"):
            path = self.make_run(files=[ending])
            self.make_recipe()
            self.assertEqual(self.run_program("items", "cover.toml").returncode, 0)
            (path / ("Cover02" + ending)).unlink()

    def test_an_empty_run_can_be_meant(self):
        self.make_run(files=[])
        self.make_recipe(PROJECT + "empty_run = true\n" + TARGET)
        self.check(self.run_program("items", "cover.toml"), 0)
        self.check(self.run_program("write", "cover.toml"), 0)

    def test_a_folder_that_is_no_folder(self):
        self.refused(": No such file or directory")
        self.make_recipe("", "Run02")
        self.refused(": not a folder")

    @unittest.skipIf(ON_WINDOWS, "permissions are POSIX's")
    def test_a_folder_that_cannot_be_listed(self):
        if os.geteuid() == 0 and not all(path.stat().st_mode & 1 for path in
                                         pathlib.Path(PROGRAM).resolve().parents):
            self.skipTest("only the system's administrator can start the program")
        nobody = self.as_nobody()
        self.folder.chmod(0o755)
        path = self.make_run()
        path.chmod(0o311)
        self.refused(": Permission denied", **nobody)
        path.chmod(0o744)
        self.refused(": Cover02_medi.crp: Permission denied", **nobody)
        path.chmod(0o755)

    @unittest.skipIf(ON_WINDOWS, "permissions are POSIX's")
    def test_an_earlier_run_that_cannot_be_entered(self):
        self.as_another_user()
        path = self.make_run("Cover01", "Run01")
        run = self.make_run()
        self.make_recipe(PROJECT + "inserted_part = true\n" + TARGET)
        path.chmod(0)
        self.check(self.run_program("write", "cover.toml", **self.as_nobody()), 0)
        (run / "Cover02.cmx").write_text("<SOLID_MCM>\n</SOLID_MCM>\n")
        done = self.run_program("write", "cover.toml", **self.as_nobody())
        warning = (f"cover.toml:4:10: warning: project.folder: {path / 'Cover01.k5o'}: Permission "
                   "denied; if it belongs to an earlier shot, it counts as missing\n")
        self.check(done, 0, stderr=warning)
        done = self.run_program("write", "cover.toml", "--strict", **self.as_nobody())
        self.check(done, 3, "", warning.replace("warning: ", ""))
        self.make_recipe(PROJECT + TARGET)
        self.check(self.run_program("write", "cover.toml", **self.as_nobody()), 0)
        path.chmod(0o755)

    @unittest.skipIf(ON_WINDOWS, "permissions are POSIX's")
    def test_earlier_runs_are_where_the_engine_looks_for_them(self):
        self.as_another_user()
        for folder, closed in (("MyRun02", "MyRun01"), ("Run02/results", "Run01"),
                               ("other", "other/Run01")):
            self.make_recipe(PROJECT.replace("Run02", folder) + "inserted_part = true\n" + TARGET)
            (self.make_run(folder=folder) / "Cover02.cmx").write_text("<SOLID_MCM>\n</SOLID_MCM>\n")
            path = self.make_run("Cover01", closed)
            path.chmod(0)
            other = self.make_run("Cover01", closed.replace("01", "archive"))
            other.chmod(0)
            done = self.run_program("write", "cover.toml", **self.as_nobody())
            self.check(done, 0, stderr=None)
            self.assertIn(f"{path / 'Cover01.k5o'}: Permission denied", done.stderr)
            self.assertEqual(done.stderr.count("\n"), 1)
            path.chmod(0o755)


if __name__ == "__main__":
    unittest.main()

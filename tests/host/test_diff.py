"""What "write" shows of the changes that it would make, and makes none."""

import json
import subprocess
import tempfile
import unittest

from program import ON_WINDOWS, PROJECT, TARGET, ProgramTest, own_path

FILE = "Cover02.cmi"


class Diff(ProgramTest):
    def setUp(self):
        super().setUp()
        self.make_run()
        self.make_recipe()
        self.file = self.folder / FILE

    def write(self, *arguments, code=0, stdout=None):
        """Writes, and gives back what was printed, with the file's path as FILE."""
        done = self.run_program("write", "cover.toml", *arguments)
        self.check(done, code)
        printed = done.stdout.replace(own_path(self.file), "FILE")
        if stdout is not None:
            self.assertEqual(printed, stdout)
        return printed

    def lines_of(self, text, marks):
        return [line for line in text.splitlines()
                if line[:1] in marks and line[:3] not in ("---", "+++")]

    def test_a_changed_line_is_shown_among_three_others(self):
        self.write()
        before = self.file.read_bytes()
        self.write("--diff", "--set", "flow-stress=on", stdout=(
            "--- FILE\t\n"
            "+++ FILE\t\n"
            "@@ -17,7 +17,7 @@\n"
            " IsDoMaterialReduction =         1   (0:off,1:on)\n"
            " IsRunnerOutput =                0   (0:off,1:on)\n"
            " IsMoldbaseOutput =              0   (0:off,1:on)\n"
            "-IsFlowResidualstressOutput =    0   (0:off,1:on)\n"
            "+IsFlowResidualstressOutput =    1   (0:off,1:on)\n"
            " IsThermalResidualstressOutput = 0   (0:off,1:on)\n"
            " IsInitialstrainOutput =         0   (0:off,1:on)\n"
            " IsFlowPressureOutput =          0   (0:off,1:on)\n"))
        self.assertEqual(self.file.read_bytes(), before)

    def test_a_file_that_is_not_there_is_all_new(self):
        text = self.write("--diff")
        self.assertTrue(text.startswith("--- /dev/null\n+++ FILE\t\n@@ -0,0 +1,"), text)
        self.assertEqual(self.lines_of(text, "- "), [])
        self.assertNotIn(FILE, self.files())
        self.write()
        self.assertEqual([line[1:] for line in self.lines_of(text, "+")],
                         self.file.read_text(encoding="utf-8").splitlines())

    def test_an_unchanged_file_has_no_difference(self):
        self.write()
        self.write("--diff", stdout="unchanged FILE\n")
        self.write("--diff", "--quiet", stdout="")

    def test_lines_that_come_and_go_have_their_own_parts(self):
        self.write()
        lines = self.file.read_bytes().splitlines(keepends=True)
        self.file.write_bytes(b"".join(lines[:5] + [b"more\n"] + lines[5:-1] + [b"end"]))
        text = self.write("--diff")
        self.assertEqual(self.lines_of(text, "-+"), ["-more", "-end", "+[\\REDUCTION RATE]"])
        self.assertIn("-end\n\\ No newline at end of file\n", text)
        self.assertEqual([line for line in text.splitlines() if line.startswith("@@")], [
            "@@ -3,7 +3,6 @@", f"@@ -{len(lines) - 2},4 +{len(lines) - 3},4 @@"])

    def test_parts_that_touch_are_one(self):
        self.write()
        lines = self.file.read_bytes().splitlines(keepends=True)
        for between, parts in ((6, ["@@ -3,14 +3,12 @@"]),
                               (7, ["@@ -3,7 +3,6 @@", "@@ -11,7 +10,6 @@"])):
            self.file.write_bytes(b"".join(lines[:5] + [b"more\n"] + lines[5:5 + between] +
                                           [b"and more\n"] + lines[5 + between:]))
            self.assertEqual([line for line in self.write("--diff").splitlines()
                              if line.startswith("@@")], parts)

    def test_of_a_file_that_lacks_its_first_line_nothing_else_changes(self):
        self.write()
        self.file.write_bytes(self.file.read_bytes().split(b"\n", 1)[1])
        self.assertEqual(self.lines_of(self.write("--diff", "--force"), "-+"),
                         ["+I2-Output Control Parameter File"])

    @unittest.skipIf(ON_WINDOWS, "patch is a program of POSIX")
    def test_patch_makes_the_new_file_of_it(self):
        self.write()
        options = ["--set", "flow-stress=on", "--set", "density=5", "--solver", "ABAQUS"]
        with tempfile.NamedTemporaryFile("w", suffix=".diff") as difference:
            difference.write(self.run_program("write", "cover.toml", "--diff", *options).stdout)
            difference.flush()
            patched = self.folder / "patched"
            subprocess.run(["patch", "-o", patched, self.file, difference.name], check=True,
                           stdout=subprocess.DEVNULL)
        self.write(*options)
        self.assertEqual(patched.read_bytes(), self.file.read_bytes())

    def test_control_characters_of_an_old_file_do_not_reach_the_terminal(self):
        self.file.write_bytes(b"I2-Output Control Parameter File\n\x1b[31m\x07red\n")
        self.assertIn("-\\x1b[31m\\x07red\n", self.write("--diff"))

    def test_of_an_old_file_no_more_than_256_kib_are_compared(self):
        title = b"I2-Output Control Parameter File\n"  # 33 bytes
        self.file.write_bytes(title + (b"y" * 99 + b"\n") * 3000)
        removed = [line for line in self.lines_of(self.write("--diff"), "-") if line[1] == "y"]
        self.assertEqual((len(removed), removed[-2:]), (2622, ["-" + "y" * 99, "-" + "y" * 11]))

    def test_check_ends_with_1_when_anything_would_change(self):
        self.write("--check", code=1, stdout="new      FILE\n")
        self.assertNotIn(FILE, self.files())
        self.write()
        self.write("--check", code=0, stdout="unchanged FILE\n")
        before = self.file.read_bytes()
        self.write("--check", "--set", "flow-stress=on", code=1, stdout="changed  FILE\n")
        self.write("--check", "--quiet", "--set", "flow-stress=on", code=1, stdout="")
        text = self.write("--check", "--diff", "--set", "flow-stress=on", code=1)
        self.assertEqual(len(self.lines_of(text, "-+")), 2)
        self.assertEqual(self.file.read_bytes(), before)

    def test_what_no_clobber_keeps_would_not_change(self):
        self.file.write_text("note")
        self.write("--check", "--no-clobber", code=0, stdout="kept     FILE\n")

    def test_check_of_several_lists_which(self):
        self.write()
        self.make_recipe(PROJECT.replace("run = 2", "run = 3\nempty_run = true") + TARGET,
                         "new.toml")
        done = self.run_program("write", "--check", "cover.toml", "new.toml")
        self.check(done, 1, f"unchanged {own_path(self.file)}\n"
                   f"new      {own_path(self.folder / 'Cover03.cmi')}\n2 compared, 0 failed\n")

    def test_a_graver_error_decides_the_exit_code(self):
        done = self.run_program("write", "--check", "cover.toml", "none.toml")
        self.assertEqual(done.returncode, 3)

    def test_json_says_what_would_change(self):
        self.write()
        for options, change, status, code in (
                ([], "unchanged", "written", 0), (["--check"], "unchanged", "compared", 0),
                (["--check", "--set", "flow-stress=on"], "changed", "compared", 1),
                (["--dry-run", "--set", "flow-stress=on"], "changed", "shown", 0),
                (["--no-clobber", "--set", "flow-stress=on"], "kept", "written", 0),
                (["--set", "flow-stress=on"], "changed", "written", 0)):
            with self.subTest(options):
                done = self.run_program("write", "cover.toml", "--json", *options)
                self.check(done, code)
                entry = json.loads(done.stdout)["recipes"][0]
                self.assertEqual((entry["status"], entry["change"]), (status, change))
        done = self.run_program("write", "cover.toml", "--json", "--diff")
        self.assertIn("-IsFlowResidualstressOutput =    1",
                      json.loads(done.stdout)["recipes"][0]["diff"])

    def test_options_that_contradict_each_other_are_refused(self):
        for options in (["--dry-run", "--diff"], ["--dry-run", "--check"],
                        ["--no-clobber", "--force"]):
            done = self.run_program("write", "cover.toml", *options)
            self.check(done, 2, "", None)


if __name__ == "__main__":
    unittest.main()

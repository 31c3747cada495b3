"""The command "check", as a user calls it. What it finds in a file is tested beside its sources."""

import json
import os
import shutil
import unittest

from program import EXAMPLE, EXPECTED, ON_WINDOWS, ROOT, ProgramTest

GOLDEN = ROOT / "tests" / "golden"
GOOD = "good.cmi"
END_OF_HEADER = "[\\HEADER]"


class Check(ProgramTest):
    def setUp(self):
        super().setUp()
        shutil.copy(EXAMPLE / "expected" / "Cover02.cmi", self.folder / GOOD)

    def damage(self, *changes, name="bad.cmi"):
        """The good file with texts in the place of others."""
        text = (self.folder / GOOD).read_bytes().decode("utf-8")
        for old, new in changes:
            self.assertEqual(text.count(old), 1, old)
            text = text.replace(old, new)
        # Control files are in the character set of the system.
        (self.folder / name).write_bytes(text.encode("cp1252" if ON_WINDOWS else "utf-8"))
        return name

    def line(self, key):
        """The number of the good file's line that starts with a key."""
        lines = (self.folder / GOOD).read_text(encoding="utf-8").splitlines()
        return next(number for number, line in enumerate(lines, 1) if line.startswith(key))

    def words(self, *changes):
        """What a changed file asks for, by label."""
        done = self.run_program("check", "--show", self.damage(*changes))
        self.check(done, 0, stderr=None)
        lines = done.stdout.replace("\n" + " " * 21, " ").splitlines()[1:]
        return dict(line.strip().split(":", 1) for line in lines)

    def test_good_files(self):
        self.check(self.run_program("check", GOOD), 0, "good.cmi: no errors\n")
        self.check(self.run_program("check", GOOD, "--quiet"), 0, "")

    def test_a_file_with_line_ends_of_windows(self):
        text = (self.folder / GOOD).read_bytes().replace(b"\n", b"\r\n")
        (self.folder / "crlf.cmi").write_bytes(text)
        self.check(self.run_program("check", "crlf.cmi"), 0, "crlf.cmi: no errors\n")

    def test_a_fault_is_told_with_file_and_line(self):
        name = self.damage(("SegmentY = 80", "SegmentY = 101"), ("[\\HEADER]", "[/HEADER]"))
        self.check(self.run_program("check", name), 1, "",
                   f'bad.cmi:{self.line(END_OF_HEADER)}: expected "[\\HEADER]", '
                   'found "[/HEADER]"\n'
                   f'bad.cmi:{self.line("SegmentY")}: "SegmentY" is 101; allowed: 1~100\n')

    def test_an_empty_file_is_a_fault_and_no_trouble(self):
        (self.folder / "empty.cmi").write_bytes(b"")
        self.check(self.run_program("check", "empty.cmi"), 1, "",
                   "empty.cmi:1: not a control parameter file: expected "
                   '"I2-Output Control Parameter File", found ""\n')

    def test_files_that_cannot_be_read(self):
        (self.folder / "endless.cmi").write_bytes(b"\n" * 300_000)
        self.check(self.run_program("check", "none.cmi", ".", "endless.cmi"), 3,
                   "0 of 3 files without errors\n",
                   "none.cmi: cannot be read: No such file or directory\n"
                   ".: cannot be read: Is a directory\n"
                   "endless.cmi: cannot be read: File too large\n")

    @unittest.skipIf(ON_WINDOWS, "Windows has no such file")
    def test_a_file_without_an_end(self):
        self.check(self.run_program("check", "/dev/zero"), 3, "",
                   "/dev/zero: cannot be read: it is a pipe or a device, not a regular file\n")

    def test_all_files_are_checked_and_the_gravest_decides(self):
        name = self.damage(("[\\HEADER]", "[/HEADER]"))
        done = self.run_program("check", "none.cmi", name, GOOD)
        self.check(done, 3, "good.cmi: no errors\n1 of 3 files without errors\n", None)
        self.assertEqual(len(done.stderr.splitlines()), 2)
        done = self.run_program("check", "--quiet", name, GOOD)
        self.check(done, 1, "", None)
        self.assertIn(f"bad.cmi:{self.line(END_OF_HEADER)}: ", done.stderr)

    def test_what_the_file_asks_for_in_words(self):
        done = self.run_program("check", "--show", GOOD)
        self.check(done, 0, (EXPECTED / "check_show.txt").read_text(encoding="utf-8"))
        done = self.run_program("check", "--show", "--quiet", GOOD)
        self.check(done, 0, (EXPECTED / "check_show.txt").read_text(encoding="utf-8"))
        done = self.run_program("check", "--show", self.damage(("[HEADER]", "[HEADER")))
        self.check(done, 1, "", None)

    def test_words_for_a_mapped_mesh(self):
        words = self.words(("MapFile =  ", "MapFile = D:\\mesh ü.inp"),
                           ("IsOriginalMesh = 1", "IsOriginalMesh = 0"),
                           ("IsMappedMesh = 0", "IsMappedMesh = 1"),
                           ("QuadraticElement = 1", "QuadraticElement = 0"),
                           ("ProjectType = 0", "ProjectType = 9"))
        self.assertEqual(words["Mesh"].strip(), "mapped, linear elements")
        self.assertEqual(words["Mapped mesh"].strip(), '"D:\\mesh ü.inp"')
        self.assertEqual(words["Project"].strip(), "solid, type 9")

    def golden_words(self, name):
        """What a file of the engine's own tests asks for, by label."""
        done = self.run_program("check", "--show", "--json", GOLDEN / name)
        self.check(done, 0)
        return json.loads(done.stdout)["files"][0]["asks"]

    def test_words_for_other_projects(self):
        self.assertEqual(self.golden_words("ShellAnsys.cmi")["Project"], "shell, type 0")
        self.assertEqual(self.golden_words("NeitherSolidNorShell.cmi")["Project"],
                         "solver type 2, type 0")

    def test_words_for_annealing(self):
        words = self.golden_words("AnsysAnnealed.cmi")
        self.assertEqual(words["Mesh"], "deformed after annealing, linear elements")
        self.assertEqual(words["Annealing"], "on")
        self.assertIn("annealing-stress", words["Items on"])
        self.assertEqual(words["Project"], "solid, type 3")

    def test_words_for_what_no_dialog_offers(self):
        words = self.golden_words("WorkbenchUnlistedMesh.cmi")
        self.assertEqual(words["Mesh"], "none, linear elements")
        words = self.golden_words("LevelsBeyondTheOptions.cmi")
        self.assertEqual(words["Micro mechanics"], "model 9")
        self.assertEqual(words["Density reduction"], "factor 0")

    def test_words_for_other_meshes(self):
        words = self.words(("IsOriginalMesh = 1", "IsOriginalMesh = 0"),
                           ("Is3DMappingShell = 0", "Is3DMappingShell = 1"))
        self.assertEqual(words["Mesh"].strip(), "3d-mapping-to-shell, quadratic elements")
        flag = "IsViewEditModelMapping = 0 (0:off,1:on)\n"
        words = self.words(("IsOriginalMesh = 1", "IsOriginalMesh = 0"),
                           ("ProjectType = 0", "ProjectType = 3"),
                           (flag, flag + "IsAnnealingDeformedMesh = 1 (0:off,1:on)\n"))
        self.assertEqual(words["Mesh"].strip(), "deformed after annealing, quadratic elements")

    def test_every_golden_file_is_without_an_error(self):
        files = sorted(GOLDEN.glob("*.cmi"))
        done = self.run_program("check", "--json", *files)
        self.check(done, 0)
        document = json.loads(done.stdout)
        self.assertEqual([entry["ok"] for entry in document["files"]], [True] * len(files))
        self.assertEqual({problem["severity"] for problem in document["problems"]}, {"warning"})

    def test_what_does_not_fit_is_told(self):
        runner = "IsRunnerOutput =                1   (0:off,1:on)\n"
        name = self.damage((runner, ""))
        warning = (f'bad.cmi:{self.line("IsRunnerOutput")}: {{}}"IsRunnerOutput" has no line, but '
                   'the item is offered for ANSYS with mesh kind "original" in a solid project of '
                   'type 0\n')
        self.check(self.run_program("check", name), 0, "bad.cmi: no errors, 1 warning\n",
                   warning.format("warning: "))
        self.check(self.run_program("check", "--strict", name), 1, "", warning.format(""))
        last = "IsDoDensityReduction"
        name = self.damage((last, f"IsAnnealingstressOutput =\t0   (0:off,1:on)\n{last}"))
        self.check(self.run_program("check", name), 1, "",
                   f'bad.cmi:{self.line(last)}: "IsAnnealingstressOutput" has a line, but the item '
                   'is never offered in a solid project of type 0\n')

    def test_an_item_that_only_annealing_offers_is_a_warning(self):
        last = "IsDoDensityReduction"
        name = self.damage((last, f"IsAnnealingstressOutput =\t0   (0:off,1:on)\n{last}"),
                           ("ProjectType = 0", "ProjectType = 3"))
        done = self.run_program("check", name)
        self.check(done, 0, "bad.cmi: no errors, 1 warning\n",
                   f'bad.cmi:{self.line(last)}: warning: "IsAnnealingstressOutput" has a line, but '
                   'the item is not offered for ANSYS with mesh kind "original" in a solid project '
                   'of type 3\n')

    def test_a_file_from_standard_input(self):
        text = (self.folder / GOOD).read_bytes()
        done = self.run_program("check", "-", input=text)
        self.check(done, 0, "-: no errors\n")
        done = self.run_program("check", "-", input=text.replace(b"[HEADER]", b"[HEADER"))
        self.check(done, 1, "", '-:3: expected "[HEADER]", found "[HEADER"\n')

    def test_standard_input_is_read_once(self):
        text = (self.folder / GOOD).read_bytes()
        done = self.run_program("check", "-", "-", input=text)
        self.check(done, 2, "-: no errors\n1 of 2 files without errors\n",
                   "-: standard input can be read only once\n")

    def test_standard_input_that_has_no_end(self):
        done = self.run_program("check", "-", input=b"\n" * 300_000)
        self.check(done, 3, "", "-: cannot be read: File too large\n")

    def test_a_file_against_its_recipe(self):
        self.make_run()
        self.make_recipe()
        self.check(self.run_program("write", "cover.toml"), 0, None)
        written = self.folder / "Cover02.cmi"
        self.check(self.run_program("check", "--against", "cover.toml", written), 0, None)
        text = written.read_bytes().replace(b"\r\n", b"\n")
        lines = text.decode("ascii", "replace").splitlines()
        runner, segment = (next(i for i, line in enumerate(lines, 1) if line.startswith(key))
                           for key in ("IsRunnerOutput", "SegmentY"))
        old = lines[runner - 1]
        text = text.replace(b"SegmentY = 80", b"SegmentY = 79").replace(old.encode() + b"\n", b"")
        (self.folder / "other.cmi").write_bytes(text + b"# mine\n")
        done = self.run_program("check", "--against", "cover.toml", "other.cmi")
        self.check(done, 1, "", None)
        told = [line for line in done.stderr.splitlines() if "recipe" in line]
        self.assertEqual(told, [
            f'other.cmi:{runner}: the recipe writes "{old}" before this line',
            f'other.cmi:{segment - 1}: the recipe writes "SegmentY = 80 (1~100)", not '
            '"SegmentY = 79 (1~100)"',
            f'other.cmi:{len(lines)}: the recipe does not write "# mine"'])

    def test_line_ends_are_no_difference(self):
        self.make_run()
        self.make_recipe()
        self.check(self.run_program("write", "cover.toml"), 0, None)
        text = (self.folder / "Cover02.cmi").read_bytes().replace(b"\r\n", b"\n")
        for name, end in (("lf.cmi", b"\n"), ("crlf.cmi", b"\r\n")):
            (self.folder / name).write_bytes(text.replace(b"\n", end))
            self.check(self.run_program("check", "--against", "cover.toml", name), 0,
                       f"{name}: no errors\n", None)

    def test_a_recipe_that_cannot_be_written_is_told(self):
        done = self.run_program("check", "--against", "none.toml", GOOD)
        self.check(done, 3, "", None)
        self.assertTrue(done.stderr.startswith("none.toml: "), done.stderr)

    def test_nothing_is_left_behind(self):
        self.run_program("check", GOOD)
        self.assertEqual(self.files(), [GOOD])

    def test_paths_are_never_broken(self):
        path = "D:\\" + "a  long folder " * 40 + "\\Cover"
        name = self.damage(("D:\\Handover\\Cover", path))
        self.assertIn(f'"{path}"\n', self.run_program("check", "--show", name).stdout)

    def test_words_for_what_is_off(self):
        on = "   (0:off,1:on)"
        words = self.words(("IDCompositeModel = 2", "IDCompositeModel = -2"),
                           ("IsDoMaterialReduction =         1" + on,
                            "IsDoMaterialReduction =         0" + on),
                           ("IsDoDensityReduction =          1" + on,
                            "IsDoDensityReduction =          0" + on),
                           ("[ANSYS] ", "[] "), ("[ANSYS_EOF]", "[_EOF]"))
        self.assertEqual(words["Solver"].strip(), "none")
        self.assertEqual(words["Micro mechanics"].strip(), "results missing")
        self.assertEqual(words["Fiber reduction"].strip(), "off")
        self.assertEqual(words["Density reduction"].strip(), "off")
        self.assertTrue(words["Items off"].strip().startswith("fiber-orientation, "))

    def test_json(self):
        name = self.damage(("SegmentY = 80", "SegmentY = 101"))
        done = self.run_program("check", GOOD, name, "none.cmi", "--json")
        self.check(done, 3)
        document = json.loads(done.stdout)
        self.assertEqual([(entry["file"], entry["ok"]) for entry in document["files"]],
                         [(GOOD, True), (name, False), ("none.cmi", False)])
        self.assertEqual([entry["asks"] for entry in document["files"][1:]], [None, None])
        self.assertEqual(document["problems"], [
            {"file": name, "line": self.line("SegmentY"), "column": 0, "severity": "error",
             "exitCode": 1, "message": '"SegmentY" is 101; allowed: 1~100'},
            {"file": "none.cmi", "line": 0, "column": 0, "severity": "error",
             "exitCode": 3, "message": "cannot be read: No such file or directory"}])
        asks = document["files"][0]["asks"]
        self.assertEqual(asks["Solver"], "ANSYS")
        self.assertEqual(asks["Output folder"], '"D:\\Handover\\Cover"')
        self.assertEqual(asks["Items off"], "cooling-temperature, digimat-weldline, digimat-stress, "
                         "digimat-temperature")
        self.assertEqual(list(asks), list(self.words()))

    @unittest.skipIf(ON_WINDOWS, "Windows takes every byte for a character of its code page")
    def test_json_replaces_bytes_that_are_no_text(self):
        text = (self.folder / GOOD).read_bytes().replace(b"D:\\Handover", b"D:\\B\xFCro")
        name = os.fsdecode(b"B\xFCro.cmi")
        (self.folder / name).write_bytes(text)
        done = self.run_program("check", name, "--json")
        self.check(done, 0)
        file = json.loads(done.stdout)["files"][0]
        self.assertEqual(file["file"], "B\ufffdro.cmi")
        self.assertEqual(file["asks"]["Output folder"], r'"D:\B\xfcro\Cover"')

    @unittest.skipIf(ON_WINDOWS, "Windows has no such file names")
    def test_a_terminal_gets_nothing_to_obey(self):
        text = (self.folder / GOOD).read_text().replace("Handover", "Hand\u009bover")
        for name in ("a\u009b31m.cmi", "a\u202eimc.cmi", "a\n.cmi"):
            (self.folder / name).write_text(text)
        done = self.run_program("check", "--show", "a\u009b31m.cmi", "a\u202eimc.cmi", "a\n.cmi")
        self.check(done, 0)
        self.assertIn("a\\xc2\\x9b31m.cmi: no errors\n", done.stdout)
        self.assertIn("a\\xe2\\x80\\xaeimc.cmi: no errors\n", done.stdout)
        self.assertIn("a\\n.cmi: no errors\n", done.stdout)
        self.assertIn(r'"D:\Hand\xc2\x9bover', done.stdout)
        self.assertTrue(all(letter.isprintable() for letter in done.stdout.replace("\n", "")))


if __name__ == "__main__":
    unittest.main()

"""The command "write": what recipe and command line say, and what stands in the file then."""

import os
import unittest

from program import ON_WINDOWS, PROJECT, TARGET, ProgramTest, own_path

FILE = "Cover02.cmi"
OLD = "I2-Output Control Parameter File\nold\n"


class Write(ProgramTest):
    def setUp(self):
        super().setUp()
        self.make_run()

    def write(self, *arguments, recipe=PROJECT + TARGET, code=0, stderr=""):
        """Writes with a recipe and gives back the lines of the file."""
        self.make_recipe(recipe)
        self.check(self.run_program("write", "cover.toml", *arguments), code, None, stderr)
        path = self.folder / FILE
        return path.read_text(encoding="utf-8").splitlines() if path.exists() else None

    # ---- Where the file goes ------------------------------------------------------------------

    def test_the_file_goes_beside_the_recipe_and_so_does_the_output(self):
        lines = self.write()
        self.assertEqual(lines[3], "OutFolder = " + own_path(self.folder))

    def test_the_recipe_tells_folder_name_and_extension(self):
        (self.folder / "handover").mkdir()
        self.make_recipe(PROJECT + TARGET + '[control_file]\nfolder = "handover"\n'
                         'name = "Lid"\nextension = "txt"\n')
        done = self.run_program("write", "cover.toml")
        path = self.folder / "handover" / "Lid02.txt"
        self.check(done, 0, f"new      {own_path(path)}\n")
        lines = path.read_text(encoding="utf-8").splitlines()
        self.assertEqual(lines[3], "OutFolder = " + own_path(self.folder / "handover"))

    def test_run_numbers_have_two_digits_and_more_when_they_need_them(self):
        for number, name in ((0, "Cover00.cmi"), (9, "Cover09.cmi"), (10, "Cover10.cmi"),
                             (123, "Cover123.cmi")):
            self.make_run(name.removesuffix(".cmi"))
            self.make_recipe(PROJECT.replace("run = 2", f"run = {number}") + TARGET)
            self.check(self.run_program("write", "cover.toml"), 0)
            self.assertIn(name, self.files())

    def test_out_on_the_command_line_starts_at_the_current_folder(self):
        (self.folder / "recipes").mkdir()
        (self.folder / "files").mkdir()
        self.make_recipe(PROJECT.replace("Run02", "../Run02") + TARGET +
                         '[control_file]\nfolder = "elsewhere"\n', "recipes/cover.toml")
        self.check(self.run_program("write", "recipes/cover.toml", "--out", "files"), 0)
        self.assertIn("files/" + FILE, self.files())

    def test_paths_of_a_recipe_start_at_its_folder_wherever_the_call_comes_from(self):
        (self.folder / "elsewhere").mkdir()
        self.make_recipe()
        self.check(self.run_program("write", self.folder / "cover.toml",
                                    cwd=self.folder / "elsewhere"), 0)
        self.assertIn(FILE, self.files())

    def test_a_path_with_a_drive_or_two_backslashes_stays_as_it_is(self):
        for path in ("D:\\Handover\\Cover", "D:/Handover/Cover", "\\\\server\\runs\\Cover\\"):
            lines = self.write(recipe=PROJECT + TARGET + f"[output]\nfolder = '{path}'\n")
            self.assertEqual(lines[3], "OutFolder = " + path)

    def test_separators_of_either_system_are_understood(self):
        (self.folder / "a" / "b").mkdir(parents=True)
        for folder in ("a/b", "a\\b", "a/b/"):
            self.make_recipe(PROJECT + TARGET + f"[control_file]\nfolder = '{folder}'\n")
            self.check(self.run_program("write", "cover.toml"), 0)
            (self.folder / "a" / "b" / FILE).unlink()

    def test_nothing_but_the_file_is_left_behind(self):
        before = self.files() + ["cover.toml"]
        self.write()
        self.assertEqual(self.files(), sorted(before + [FILE]))

    def test_the_debug_files_of_the_engine_do_not_land_in_the_current_folder(self):
        for path in (self.folder / "Run02").glob("*.k5w"):
            path.unlink()
        self.write()
        self.assertNotIn("ThermalTest.txt", self.files())

    def test_an_old_file_is_replaced(self):
        (self.folder / FILE).write_text(OLD)
        self.assertEqual(self.write()[0], "I2-Output Control Parameter File")

    # ---- The project --------------------------------------------------------------------------

    def test_the_facts_of_the_project_reach_the_engine(self):
        facts = PROJECT + "type = 6\nrunners = true\nmoldbase = true\ninserted_part = true\n" \
            "meeting_angles = true\nview_edit = true\n"
        lines = self.write(recipe=facts + TARGET + '[choices]\nrunner = 1\nmoldbase-mesh = "on"\n'
                           'insert-pressure = "on"\nweld-line = "on"\n')
        for line in ("ProjectType = 6", "IsRunnerOutput =                1   (0:off,1:on)",
                     "IsMoldbaseOutput =              1   (0:off,1:on)",
                     "IsFlowPressureOutput =          1   (0:off,1:on)",
                     "IsWeldlineOutput =              1   (0:off,1:on)",
                     "IsViewEditModelMapping = 1 (0:off,1:on)",
                     "IsDoMaterialReduction =         1   (0:off,1:on)"):
            self.assertIn(line, lines)

    def test_a_shell_project_hands_over_its_own_results(self):
        self.make_run(files=[".rso", ".rsp"])
        recipe = PROJECT + 'analysis = "shell"\n' + TARGET.replace("ANSYS", "ABAQUS")
        lines = self.write(recipe=recipe + '[choices]\ninitial-strain = "on"\n')
        self.assertIn("SolverType = 1", lines)
        self.assertIn("IsInitialstrainOutput =         1   (0:off,1:on)", lines)

    def test_a_voxel_project_hands_over_a_mapped_mesh(self):
        self.make_run(files=["_vox.k5o"])
        recipe = PROJECT + "voxel_mesh = true\n" + TARGET.replace("original", "mapped")
        lines = self.write(recipe=recipe + "mapped_mesh = 'D:\\Meshes\\cover.cdb'\n")
        self.assertIn("MapFile = D:\\Meshes\\cover.cdb", lines)
        self.assertIn("IsMappedMesh = 1 (0:off,1:on)", lines)

    # ---- The target ---------------------------------------------------------------------------

    def test_a_solver_goes_by_number_keyword_or_name_in_any_case(self):
        for name in ("2", '"2"', '"MSCNASTRAN"', '"MSC-Nastran"', '"msc-nastran"',
                     '"MSC Nastran"'):
            lines = self.write(recipe=PROJECT + TARGET.replace('"ANSYS"', name))
            self.assertIn("[MSCNASTRAN] ", lines)

    def test_a_mesh_kind_goes_by_name_or_label(self):
        for name in ("3d-mapping-to-shell", "3D mapping to shell"):
            self.make_recipe("", "shell.key")
            recipe = PROJECT + TARGET.replace("ANSYS", "LS-Dyna").replace("original", name)
            lines = self.write(recipe=recipe + 'mapped_mesh = "shell.key"\n'
                               "[choices]\ninitial-strain = 1\n")
            self.assertIn("Is3DMappingShell = 1 (0:off,1:on)", lines)
            self.assertIn("MapFile = " + own_path(self.folder / "shell.key"), lines)

    def test_quadratic_elements_and_annealing_reach_the_file(self):
        recipe = PROJECT + "type = 3\n" + TARGET.replace("original", "deformed")
        lines = self.write(recipe=recipe + "quadratic_elements = true\nannealing = true\n")
        self.assertIn("QuadraticElement = 1 (0:off,1:on)", lines)
        self.assertIn("IsAnnealingDeformedMesh = 1 (0:off,1:on)", lines)
        self.assertIn("IsDeformedMesh = 0 (0:off,1:on)", lines)

    # ---- Choices ------------------------------------------------------------------------------

    def test_an_item_goes_by_id_short_name_or_title(self):
        for name in ("4", '"4"', "thermal-stress", '"Thermal stress output"',
                     '"thermal STRESS output"'):
            lines = self.write(recipe=PROJECT + TARGET + f'[choices]\n{name} = "on"\n')
            self.assertIn("IsThermalResidualstressOutput = 1   (0:off,1:on)", lines)

    def test_an_option_goes_by_key_or_label(self):
        for value in ("5", '"5"', '"Density reduction-Max"', '"density reduction-max"'):
            lines = self.write(recipe=PROJECT + TARGET + f"[choices]\ndensity = {value}\n")
            self.assertIn("DensityReduction = 10 (2~10)", lines)

    def test_a_switch_goes_by_words_or_flags(self):
        for value, number in (('"on"', 1), ("true", 1), ('"true"', 1), ('"ON"', 1), ("1", 1),
                              ('"off"', 0), ("false", 0)):
            lines = self.write(recipe=PROJECT + TARGET + f"[choices]\nflow-stress = {value}\n")
            self.assertIn(f"IsFlowResidualstressOutput =    {number}   (0:off,1:on)", lines)

    def test_without_choices_the_engines_own_defaults_stand(self):
        lines = self.write()
        for line in ("IDCompositeModel = 2", "IsDoMaterialReduction =         1   (0:off,1:on)",
                     "FiberThetaXSegment = 15 (1~30)", "DensityReduction = 0 (2~10)",
                     "WeldlineAngle2 = 30.000", "WeldlineAngle = 135.000",
                     "ReductionRate3 = 0.950"):
            self.assertIn(line, lines)

    def test_weld_line_data_may_be_given_in_part(self):
        lines = self.write(recipe=PROJECT + TARGET + "[weld_lines]\nreduction_rates = [0, 0.5, 1]\n"
                           "digimat_angle = 90\n")
        for line in ("WeldlineAngle1 = 0.000", "WeldlineAngle2 = 30.000",
                     "WeldlineAngle = 90.000", "ReductionRate1 = 0.000", "ReductionRate2 = 0.500",
                     "ReductionRate3 = 1.000"):
            self.assertIn(line, lines)

    def test_a_zero_has_no_sign(self):
        lines = self.write(recipe=PROJECT + TARGET + "[weld_lines]\nangles = [-0.0, 60, 90]\n"
                           "reduction_rates = [-0.0, 0.5, 1]\ndigimat_angle = -0.0\n")
        for line in ("WeldlineAngle2 = 0.000", "WeldlineAngle = 0.000", "ReductionRate1 = 0.000"):
            self.assertIn(line, lines)

    # ---- The command line beats the recipe ----------------------------------------------------

    def test_solver_and_mesh_of_the_command_line_beat_the_recipe(self):
        lines = self.write("--solver", "radioss", "--mesh", "deformed")
        self.assertIn("[RADIOSS] ", lines)
        self.assertIn("IsDeformedMesh = 1 (0:off,1:on)", lines)

    def test_a_recipe_without_target_is_whole_with_the_command_line(self):
        lines = self.write("--solver", "MARC", "--mesh", "original", recipe=PROJECT)
        self.assertIn("[MARC] ", lines)

    def test_choices_of_the_command_line_beat_the_recipe_under_any_name(self):
        recipe = PROJECT + TARGET + '[choices]\n"Density output" = 1\nthermal-stress = "on"\n'
        lines = self.write("--set", "13=Density reduction-High", "--set", "thermal-stress=off",
                           recipe=recipe)
        self.assertIn("DensityReduction = 8 (2~10)", lines)
        self.assertIn("IsThermalResidualstressOutput = 0   (0:off,1:on)", lines)

    def test_a_choice_of_the_command_line_that_the_recipe_must_not_have_heals_it(self):
        recipe = PROJECT + TARGET + '[choices]\ndensity = "none"\n'
        lines = self.write("--set", "density=6", recipe=recipe)
        self.assertIn("DensityReduction = 0 (2~10)", lines)

    def test_the_last_of_two_equal_choices_counts(self):
        lines = self.write("--set", "density=1", "--set", "13=2")
        self.assertIn("DensityReduction = 4 (2~10)", lines)

    def test_faults_of_the_command_line_are_told_without_a_line(self):
        self.write("--solver", "ANSIS", "--set", "foo=1", "--set", "bar", code=2, stderr=(
            'cover.toml: command line: target.solver: "ANSIS" is not one of: ANSYS, ABAQUS, '
            "MSC-Nastran, NE-Nastran, LS-Dyna, MARC, NX-Nastran, Radioss, Workbench, MSCNASTRAN, "
            "NENASTRAN, LSDYNA, NXNASTRAN\n"
            'cover.toml: --set foo=1: unknown item "foo"; closest matches: runner, density, '
            "flow-stress\n"
            "cover.toml: --set bar: must have the form ITEM=CHOICE\n"))

    def test_choices_of_the_command_line_may_follow_each_other(self):
        expected = self.write("--set", "density=4", "--set", "thermal-stress=on",
                              "--set", "fiber-orientation=2")
        self.assertIn("DensityReduction = 8 (2~10)", expected)
        for arguments in (["--set", "density=4", "thermal-stress=on", "fiber-orientation=2"],
                          ["--set=density=4", "4=on", "--set", "0=2", "--mesh=original"]):
            self.assertEqual(self.write(*arguments), expected)
        done = self.run_program("write", "--set", "density=4", "4=on", "0=2", "cover.toml")
        self.check(done, 0)

    def test_a_refused_choice_of_the_command_line_carries_the_engines_reason(self):
        self.write("--set", "runner=1", code=1,
                   stderr="cover.toml: --set runner=1: results missing: No runners\n")

    # ---- Required items -----------------------------------------------------------------------

    def test_required_items_that_come_out_let_the_file_pass(self):
        lines = self.write("--set", "flow-stress=on",
                           recipe='require = ["flow-stress", 0]\n' + PROJECT + TARGET)
        self.assertIsNotNone(lines)

    def test_a_required_item_that_does_not_come_out_leaves_the_old_file(self):
        (self.folder / FILE).write_text(OLD)
        lines = self.write(recipe='require = ["flow-stress"]\n' + PROJECT + TARGET, code=1,
                           stderr="cover.toml:1:12: require: flow-stress would not be on: "
                           "the choice is \"off\"\n")
        self.assertEqual(lines, OLD.splitlines())
        self.assertEqual([name for name in self.files() if "cmi" in name], [FILE])

    # ---- Forms of recipes ---------------------------------------------------------------------

    def test_recipes_with_byte_order_mark_and_other_line_ends_read_well(self):
        text = PROJECT + TARGET
        for recipe in (b"\xef\xbb\xbf" + text.encode(), text.replace("\n", "\r\n").encode(),
                       b"\xef\xbb\xbf" + text.replace("\n", "\r\n").encode(),
                       text.rstrip("\n").encode()):
            self.write(recipe=recipe)
            (self.folder / FILE).unlink()

    def test_characters_beyond_ascii_are_kept_in_names_and_folders(self):
        (self.folder / "Gehäuse").mkdir()
        self.make_run(name="Füße02", folder="Gehäuse/Run02")
        self.make_recipe('[project]\nname = "Füße"\nrun = 2\nfolder = "Gehäuse/Run02"\n'
                         "fiber_results = true\n" + TARGET +
                         '[control_file]\nfolder = "Gehäuse"\n', "Füße.toml")
        done = self.run_program("write", "Füße.toml", "--set", "thermal-stress=on")
        path = self.folder / "Gehäuse" / "Füße02.cmi"
        self.check(done, 0, f"new      {own_path(path)}\n")
        encoding = "cp1252" if ON_WINDOWS else "utf-8"
        self.assertIn("Gehäuse", path.read_bytes().decode(encoding).splitlines()[3])

    def test_a_byte_of_a_character_is_no_control_character(self):
        self.make_run(name="À02")  # bytes c3 80
        self.make_recipe(PROJECT.replace("Cover", "À") + TARGET)
        self.check(self.run_program("write", "cover.toml"), 0,
                   f"new      {own_path(self.folder / 'À02.cmi')}\n")

    @unittest.skipUnless(ON_WINDOWS, "only Windows has a code page without some characters")
    def test_characters_outside_the_code_page_are_refused(self):
        self.write(recipe=PROJECT + TARGET + '[output]\nfolder = "D:/漢字"\n', code=3,
                   stderr='cover.toml: "D:/漢字" contains characters that are not in the '
                   "system code page\n")

    @unittest.skipIf(ON_WINDOWS, "POSIX paths are bytes of any kind")
    def test_characters_of_any_script_are_kept(self):
        lines = self.write(recipe=PROJECT + TARGET + '[output]\nfolder = "D:/漢字"\n')
        self.assertEqual(lines[3], "OutFolder = D:/漢字")

    @unittest.skipIf(ON_WINDOWS, "locales are named otherwise")
    def test_a_locale_with_decimal_comma_changes_nothing(self):
        usual = self.write()
        os.remove(self.folder / FILE)
        self.make_recipe()
        self.run_program("write", "cover.toml", environment={"LC_ALL": "de_DE.UTF-8"})
        path = self.folder / FILE
        self.assertEqual(path.read_text(encoding="utf-8").splitlines(), usual)

    # ---- Dry runs and quiet runs --------------------------------------------------------------

    def test_a_dry_run_of_several_tells_which_file_is_which(self):
        self.make_run("Cover03")
        self.make_recipe(name="one.toml")
        self.make_recipe(PROJECT.replace("run = 2", "run = 3") + TARGET, "two.toml")
        done = self.run_program("write", "--dry-run", "one.toml", "two.toml")
        self.check(done, 0)
        heads = [line for line in done.stdout.splitlines() if line.startswith("==>")]
        self.assertEqual(heads, [f"==> {own_path(self.folder / name)} <=="
                                 for name in ("Cover02.cmi", "Cover03.cmi")])
        self.assertTrue(done.stdout.endswith("2 shown, 0 failed\n"))

    def test_a_dry_run_refuses_what_the_real_one_would_refuse(self):
        self.make_recipe(PROJECT + TARGET + '[control_file]\nfolder = "missing"\n')
        path = own_path(self.folder / "missing" / FILE)
        for option in ("--dry-run", "--diff", "--check", "--quiet"):
            self.check(self.run_program("write", option, "cover.toml"), 3, "",
                       f"cover.toml: {path}: cannot be written: its folder does not exist, "
                       "and is not created\n")

    @unittest.skipIf(ON_WINDOWS, "the variable is POSIX's")
    def test_a_temporary_folder_may_be_given_by_a_relative_path(self):
        (self.folder / "tmp").mkdir()
        self.make_recipe()
        for arguments in (["--dry-run"], []):
            self.check(self.run_program("write", "cover.toml", *arguments,
                                        environment={"TMPDIR": "tmp"}), 0)
        self.assertEqual(list((self.folder / "tmp").iterdir()), [])

    def test_a_dry_run_fails_like_a_real_one(self):
        self.make_recipe('require = ["flow-stress"]\n' + PROJECT + TARGET)
        self.check(self.run_program("write", "--dry-run", "cover.toml"), 1, "",
                   'cover.toml:1:12: require: flow-stress would not be on: the choice is "off"\n')

    def test_quiet_prints_nothing_when_all_is_well(self):
        self.make_recipe()
        self.check(self.run_program("write", "--quiet", "cover.toml"), 0, "")
        self.check(self.run_program("--quiet", "write", "cover.toml", "cover.toml"), 2, "", None)


if __name__ == "__main__":
    unittest.main()

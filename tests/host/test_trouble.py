"""Files, folders and streams that cannot be used. The tests may run as root, so nothing here rests
on permissions alone."""

import os
import unittest

from program import ON_WINDOWS, PROJECT, TARGET, ProgramTest, own_path

if os.name == "posix":
    import resource

OLD = "I2-Output Control Parameter File\nold\n"

NOT_ON_WINDOWS = unittest.skipIf(ON_WINDOWS, "devices, limits and descriptors are POSIX's")


class Trouble(ProgramTest):
    def setUp(self):
        super().setUp()
        self.make_run()
        self.make_recipe()

    def file(self, name="Cover02.cmi"):
        return own_path(self.folder / name)

    def refused(self, recipe, message, *arguments, **others):
        """Writes with trouble; nothing may change."""
        self.make_recipe(recipe)
        before = self.files()
        done = self.run_program("write", "cover.toml", *arguments, **others)
        self.check(done, 3, "", message)
        self.assertEqual(self.files(), before)

    def test_a_recipe_that_does_not_exist(self):
        self.check(self.run_program("write", "none.toml"), 3, "",
                   "none.toml: cannot be read: No such file or directory\n")

    def test_a_recipe_that_is_a_folder(self):
        self.check(self.run_program("write", "Run02"), 3, "",
                   "Run02: cannot be read: Is a directory\n")

    def test_a_control_file_in_the_place_of_a_recipe(self):
        for end in ("\n", "\r\n"):
            self.make_recipe(f"I2-Output Control Parameter File{end}FileVersion = 9064{end}", "a.cmi")
            self.check(self.run_program("write", "a.cmi"), 2, "",
                       "a.cmi: is a control file, not a recipe\n")

    def test_a_recipe_of_more_than_256_kib(self):
        largest = 1 << 18
        text = (PROJECT + TARGET + "#").encode()
        self.make_recipe(text.ljust(largest, b"x"))
        self.check(self.run_program("write", "cover.toml"), 0)
        for size in (largest + 1, largest + 4096):
            self.make_recipe(text.ljust(size, b"x"))
            self.check(self.run_program("write", "cover.toml"), 3, "",
                       "cover.toml: cannot be read: File too large\n")

    def test_a_key_of_very_many_parts(self):
        for text in ("a" + ".a" * 130_000 + "=1", "[a" + ".a" * 130_000 + "]"):
            self.make_recipe(text)
            done = self.run_program("write", "cover.toml")
            self.assertEqual((done.returncode, done.stderr.split(": ")[1]),
                             (2, "a key has too many parts\n"))

    @NOT_ON_WINDOWS
    def test_a_word_that_looks_like_a_path_of_windows_is_a_file_name(self):
        self.make_recipe(PROJECT + TARGET, "c:cover.toml")
        self.check(self.run_program("write", "c:cover.toml"), 0)
        os.rename(self.folder / "Cover02.cmi", self.folder / "c:Cover02.cmi")
        self.check(self.run_program("check", "c:Cover02.cmi"), 0)
        self.check(self.run_program("init", "Run02", "-o", "c:new.toml"), 0)
        self.check(self.run_program("report", "c:new.toml", "-o", "c:page.html"), 0)
        self.assertIn("c:page.html", self.files())

    @NOT_ON_WINDOWS
    def test_a_current_folder_with_a_backslash(self):
        folder = self.folder / "a\\b"
        folder.mkdir()
        self.check(self.run_program("write", self.folder / "cover.toml", cwd=folder), 3, "",
                   "zorbi2: the current folder cannot be used: a backslash in its name would be "
                   "taken for a separator\n")

    def test_a_folder_for_the_file_that_does_not_exist(self):
        self.refused(PROJECT + TARGET + '[control_file]\nfolder = "none"\n',
                     f"cover.toml: {self.file('none/Cover02.cmi')}: cannot be written: "
                     "its folder does not exist, and is not created\n")

    @NOT_ON_WINDOWS
    def test_a_folder_for_the_file_that_is_a_file(self):
        self.refused(PROJECT + TARGET + '[control_file]\nfolder = "cover.toml"\n',
                     f"cover.toml: {self.file('cover.toml/Cover02.cmi')}: cannot be written: "
                     "Not a directory\n")

    @NOT_ON_WINDOWS
    @NOT_ON_WINDOWS
    def test_a_name_that_is_too_long(self):
        name = "x" * 300
        self.refused(PROJECT + TARGET + f'[control_file]\nname = "{name}"\n',
                     f"cover.toml: {self.file(name + '02.cmi')}: cannot be written: "
                     "File name too long\n")

    @NOT_ON_WINDOWS
    def test_a_file_that_may_not_become_as_large_leaves_the_old_one(self):
        (self.folder / "Cover02.cmi").write_text(OLD)
        self.refused(PROJECT + TARGET,
                     f"cover.toml: {self.file()}: cannot be written: in the temporary "
                     "folder: File too large\n",
                     preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (500, 500)))
        self.assertEqual((self.folder / "Cover02.cmi").read_text(), OLD)

    @NOT_ON_WINDOWS
    def test_a_folder_of_the_system_that_takes_no_files(self):
        self.make_recipe(PROJECT + TARGET + '[control_file]\nfolder = "/proc/self"\n')
        done = self.run_program("write", "cover.toml")
        self.check(done, 3, "", None)  # which reason, depends on system and user
        self.assertRegex(done.stderr, "^cover.toml: /proc/self/Cover02.cmi: cannot be written: "
                         "[A-Z][a-z ]+\n$")

    @NOT_ON_WINDOWS
    def test_a_temporary_folder_that_does_not_exist(self):
        done = self.run_program("write", "cover.toml", environment={"TMPDIR": "/nowhere"})
        self.check(done, 3, "", "zorbi2: cannot create a temporary folder: No such file or directory\n")

    @unittest.skipIf(ON_WINDOWS or os.geteuid() != 0, "root gives the folder away")
    def test_a_temporary_folder_that_takes_no_folder(self):
        done = self.run_program("write", "cover.toml", environment={"TMPDIR": "/proc/self"})
        self.assertRegex(done.stderr, "^zorbi2: cannot create a temporary folder in /proc/self: "
                         "[A-Z][a-z ]+\n$")
        self.assertEqual(done.returncode, 3)

    # ---- Standard streams ---------------------------------------------------------------------

    @NOT_ON_WINDOWS
    def test_a_closed_standard_input_cannot_be_read(self):
        done = self.run_program("write", "-", preexec_fn=lambda: os.close(0))
        self.check(done, 3, "", "-: cannot be read: Bad file descriptor\n")

    @NOT_ON_WINDOWS
    def test_a_full_standard_output_is_an_error(self):
        for arguments in (["--help"], ["--version"], ["items", "cover.toml"],
                          ["write", "cover.toml", "--dry-run"], ["write", "cover.toml"],
                          ["write", "--json", "cover.toml"], ["init", "Run02", "--force"],
                          ["items", "cover.toml", "--matrix"], ["check", "Cover02.cmi"]):
            with self.subTest(arguments), open("/dev/full", "w") as full:
                done = self.run_program(*arguments, stdout=full)
                self.check(done, 3, None, "zorbi2: cannot write to standard output: "
                           "No space left on device\n")

    @NOT_ON_WINDOWS
    def test_a_closed_standard_output_is_an_error(self):
        for arguments in (["--help"], ["items", "cover.toml"], ["write", "cover.toml"]):
            with self.subTest(arguments):
                done = self.run_program(*arguments, preexec_fn=lambda: os.close(1))
                self.check(done, 3, None, "zorbi2: cannot write to standard output: "
                           "Bad file descriptor\n")
        text = (self.folder / "Cover02.cmi").read_text()
        self.assertTrue(text.startswith("I2-Output Control Parameter File\n"))
        self.assertTrue(text.endswith("[\\REDUCTION RATE]\n"))

    @NOT_ON_WINDOWS
    def test_all_streams_closed_do_no_harm_to_the_file(self):
        def close_all():
            for stream in (0, 1, 2):
                os.close(stream)

        done = self.run_program("write", "cover.toml", "--quiet", preexec_fn=close_all)
        self.assertEqual(done.returncode, 0)
        self.assertTrue((self.folder / "Cover02.cmi").read_text().endswith("[\\REDUCTION RATE]\n"))

    @NOT_ON_WINDOWS
    def test_a_reader_that_goes_away_changes_nothing(self):
        for arguments, code in ((["--help"], 0), (["items", "cover.toml"], 0),
                                (["items", "cover.toml", "--json"], 0), (["check", "none.cmi"], 3),
                                (["write", "cover.toml"], 0)):
            reader, writer = os.pipe()
            os.close(reader)
            done = self.run_program(*arguments, stdout=writer)
            os.close(writer)
            missing = "none.cmi: cannot be read: No such file or directory\n"
            self.check(done, code, None, missing if code else "")
        self.assertIn("Cover02.cmi", self.files())

    # ---- Color -------------------------------------------------------------------------------

    @NOT_ON_WINDOWS
    def test_color_is_for_terminals_and_never_with_no_color(self):
        self.assertNotIn("\x1b", self.run_program("items", "cover.toml").stdout)
        for environment, escapes in (({}, True), ({"NO_COLOR": ""}, True),
                                     ({"NO_COLOR": "1"}, False), ({"TERM": "dumb"}, False)):
            text = self.on_terminal("items", "cover.toml", environment=environment)
            self.assertEqual("\x1b[1m" in text, escapes, environment)
            self.assertEqual("\x1b" in text, escapes, environment)

    @NOT_ON_WINDOWS
    def test_a_dumb_terminal_gets_no_cursor_codes_but_lines_of_its_width(self):
        text = self.on_terminal("write", "cover.toml", "cover.toml", columns=60,
                                environment={"TERM": "dumb"}, code=2)
        self.assertEqual(text, "0 written, 2 failed\n")
        text = self.on_terminal("items", "cover.toml", columns=132, environment={"TERM": "dumb"})
        self.assertGreater(max(map(len, text.splitlines()[2:])), 80)

    @NOT_ON_WINDOWS
    def test_failures_on_a_terminal_are_in_color_and_broken_between_words(self):
        name = "a recipe  of two spaces.toml"
        line = f"{name}: cannot be read: No such file or directory"
        red = ("\x1b[31ma recipe  of two spaces.toml: cannot be\n"
               "    read: No such file or directory\x1b[0m\n")
        for environment, expected in (({}, red), ({"NO_COLOR": "1"}, red[5:].replace("\x1b[0m", "")),
                                      ({"TERM": "dumb"}, line + "\n")):
            self.assertEqual(self.on_terminal("write", name, columns=40, stream="stderr", code=3,
                                              environment=environment), expected)
        self.assertEqual(self.on_terminal("wirte", columns=40, stream="stderr", code=2), (
            "\x1b[31mzorbi2: unexpected: wirte; closest\n    matches: write, init, items\x1b[0m\n"
            "for usage, run zorbi2 --help\n"))


if __name__ == "__main__":
    unittest.main()

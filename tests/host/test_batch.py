"""Many recipes in one call."""

import os
import subprocess
import sys
import time
import unittest

from program import ON_WINDOWS, PROGRAM, PROJECT, TARGET, ProgramTest, all_from, own_path

if os.name == "posix":
    import pty
    import resource

# Thousands of recipes once in a run of all tests: where the program is as shipped.
RELEASED = os.environ.get("ZORBI2_BUILD_TYPE") == "Release"
# 5,000 recipes take 47 MB, most of it for the files left open; an engine that stays for each recipe
# takes far more.
MOST_MEGABYTES = 54

SHOT_FILE = "<SOLID_MCM>\nFlagPrevShot = 1\nValueShotRunID = 1\n</SOLID_MCM>\n"


def limit(which, soft, hard=None):
    """Lowers a limit in the program's process."""
    return lambda: resource.setrlimit(which, (soft, soft if hard is None else hard))


class Batch(ProgramTest):
    def setUp(self):
        super().setUp()
        for number in range(3):
            self.make_run(f"Cover0{number}")

    def make_recipes(self, count, name="r{}.toml"):
        names = [name.format(number) for number in range(count)]
        for number, recipe in enumerate(names):
            self.make_run(f"Cover{number:02d}", files=[".k5f"])
            self.make_recipe(PROJECT.replace("run = 2", f"run = {number}") + TARGET, recipe)
        return names

    def test_each_recipe_gets_a_line_and_all_get_a_summary(self):
        done = self.run_program("write", *self.make_recipes(3))
        lines = [f"new      {own_path(self.folder / name)}\n"
                 for name in ("Cover00.cmi", "Cover01.cmi", "Cover02.cmi")]
        self.check(done, 0, "".join(lines) + "3 written, 0 failed\n")

    def test_one_that_fails_stops_no_other_and_the_gravest_decides_the_exit_code(self):
        names = self.make_recipes(3)
        self.make_run("Cover07")
        self.make_recipe(PROJECT.replace("run = 2", "run = 7") + TARGET +
                         '[choices]\nrunner = 1\n', names[0])
        self.make_recipe("[project]\n", names[1])
        done = self.run_program("write", names[0], "missing.toml", names[1], names[2])
        self.check(done, 3, (
            f"new      {own_path(self.folder / 'Cover02.cmi')}\n"
            "1 written, 3 failed\n"), (
            "r0.toml:10:10: choices.runner: results missing: No runners\n"
            "missing.toml: cannot be read: No such file or directory\n"
            "r1.toml:1:1: project.name: missing: the base name of the run's files\n"
            "r1.toml:1:1: project.run: missing: the number of the run\n"
            "r1.toml:1:1: project.folder: missing: the folder of the run's files\n"
            "r1.toml:1:1: target.solver: missing: the structural solver\n"
            "r1.toml:1:1: target.mesh: missing: the mesh kind\n"))

    def test_recipes_of_the_same_file_are_refused_before_anything_is_written(self):
        self.make_recipes(3)
        (self.folder / "r0.toml").write_text(PROJECT + TARGET)
        done = self.run_program("write", "r0.toml", "r1.toml", "r2.toml")
        path = own_path(self.folder / "Cover02.cmi")
        self.check(done, 2, None, f"r0.toml: {path}: r2.toml would write this file too\n"
                   f"r2.toml: {path}: r0.toml would write this file too\n")
        self.assertIn("Cover01.cmi", self.files())
        self.assertNotIn("Cover02.cmi", self.files())

    def test_each_of_many_recipes_of_the_same_file_is_refused_once(self):
        for name in ("a.toml", "b.toml", "c.toml"):
            self.make_recipe(PROJECT + TARGET, name)
        done = self.run_program("write", "a.toml", "b.toml", "c.toml")
        path = own_path(self.folder / "Cover02.cmi")
        self.check(done, 2, None, f"a.toml: {path}: b.toml would write this file too\n"
                   f"b.toml: {path}: a.toml would write this file too\n"
                   f"c.toml: {path}: a.toml would write this file too\n")

    def test_the_same_file_is_known_under_two_paths(self):
        (self.folder / "one").mkdir()
        self.make_recipe(PROJECT + TARGET + '[control_file]\nfolder = "one"\n', "a.toml")
        self.make_recipe(PROJECT + TARGET + '[control_file]\nfolder = "one/../one/"\n', "b.toml")
        self.assertEqual(self.run_program("write", "a.toml", "b.toml").returncode, 2)
        if ON_WINDOWS:
            self.make_recipe(PROJECT + TARGET + '[control_file]\nfolder = "ONE"\n', "b.toml")
        else:
            (self.folder / "two").symlink_to("one")
            self.make_recipe(PROJECT + TARGET + '[control_file]\nfolder = "two"\n', "b.toml")
        self.assertEqual(self.run_program("write", "a.toml", "b.toml").returncode, 2)
        self.assertFalse([name for name in self.files() if name.endswith(".cmi")])

    def test_out_can_bring_two_files_together(self):
        (self.folder / "out").mkdir()
        self.make_recipes(1, "x.toml")
        self.make_recipes(1, "y.toml")
        self.assertEqual(self.run_program("write", "--out", "out", "x.toml", "y.toml").returncode,
                         2)

    @unittest.skipIf(ON_WINDOWS, "limits are POSIX's")
    def test_too_many_recipes_for_the_open_files_are_refused_before_the_first_write(self):
        done = self.run_program("write", *self.make_recipes(40),
                                preexec_fn=limit(resource.RLIMIT_NOFILE, 50))
        self.check(done, 3, "", "zorbi2: 40 recipes are too many for one command: each keeps a "
                   "file open, and at most 34 are possible; nothing was written\n")
        self.assertFalse([name for name in self.files() if name.endswith(".cmi")])

    @unittest.skipIf(ON_WINDOWS, "limits are POSIX's")
    def test_where_hardly_a_file_can_be_opened_a_single_recipe_is_refused(self):
        names = self.make_recipes(1)
        done = self.run_program("write", *names, preexec_fn=limit(resource.RLIMIT_NOFILE, 16))
        self.check(done, 3, "", "zorbi2: a single recipe is too many for one command: each keeps a "
                   "file open, and at most 0 are possible; nothing was written\n")
        self.check(self.run_program("write", *names, preexec_fn=limit(resource.RLIMIT_NOFILE, 17)),
                   0)

    @unittest.skipIf(ON_WINDOWS, "limits are POSIX's")
    def test_files_that_the_process_is_born_with_count(self):
        names = self.make_recipes(14)
        inherited = [os.open("/dev/null", os.O_RDONLY) for _ in range(20)]
        done = self.run_program("write", *names, pass_fds=inherited,
                                preexec_fn=limit(resource.RLIMIT_NOFILE, 50))
        self.assertEqual(done.returncode, 0, done.stderr)
        done = self.run_program("write", *names, "none.toml", pass_fds=inherited,
                                preexec_fn=limit(resource.RLIMIT_NOFILE, 50))
        for descriptor in inherited:
            os.close(descriptor)
        self.check(done, 3, "", "zorbi2: 15 recipes are too many for one command: each keeps a "
                   "file open, and at most 14 are possible; nothing was written\n")

    @unittest.skipIf(ON_WINDOWS, "terminals are POSIX's")
    def test_a_terminal_gets_one_line_of_progress(self):
        names = self.make_recipes(3)
        master, slave = pty.openpty()
        done = subprocess.run([PROGRAM, "write", *names], cwd=self.folder, stdout=slave,
                              stderr=subprocess.PIPE, check=False,
                              env={**os.environ, "TERM": "xterm"})
        os.close(slave)
        text = all_from(master).decode()
        self.assertEqual(done.returncode, 0)
        self.assertEqual(text, "\r[1/3]\r[2/3]\r[3/3]"
                               "\r\x1b[K3 written, 0 failed\r\n")

    @unittest.skipIf(ON_WINDOWS, "limits are POSIX's; the Windows runtime keeps 8,192 files open")
    def test_more_recipes_than_the_usual_limit_of_open_files_pass(self):
        count, usual_limit = (5000, 1024) if RELEASED else (200, 64)
        (self.folder / "Run02" / "Cover02.cmx").write_text(SHOT_FILE)
        names = [self.make_recipe(f'{PROJECT}{TARGET}[control_file]\nname = "part{number}"\n',
                                  f"r{number}.toml") for number in range(count)]
        hard = resource.getrlimit(resource.RLIMIT_NOFILE)[1]
        if hard != resource.RLIM_INFINITY and hard < count + 100:
            self.fail(f"this machine lets a process open {hard} files only")
        start = time.monotonic()
        done = self.run_program("write", *names,
                                preexec_fn=limit(resource.RLIMIT_NOFILE, usual_limit, hard))
        seconds = time.monotonic() - start
        # The largest of all programs that the test started, which is this one.
        megabytes = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss / 1024
        self.check(done, 0)
        self.assertTrue(done.stdout.endswith(f"{count} written, 0 failed\n"))
        self.assertEqual(len(list(self.folder.glob("*.cmi"))), count)
        print(f"{count} recipes: {seconds:.1f} s, at most {megabytes:.0f} MB", file=sys.stderr)
        if RELEASED:
            self.assertLess(megabytes, MOST_MEGABYTES)


if __name__ == "__main__":
    unittest.main()

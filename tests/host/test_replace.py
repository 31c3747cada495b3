"""What stands where a control file is to be written: what is replaced, what is refused, and what
stays of the old file."""

import os
import pathlib
import stat
import struct
import subprocess
import tempfile
import unittest

from program import EMULATOR, ON_WINDOWS, PROGRAM, PROJECT, TARGET, ProgramTest, own_path

FILE = "Cover02.cmi"
FIRST_LINE = "I2-Output Control Parameter File\n"
OLD = FIRST_LINE + "old\n"
LONG_AGO = 1_000_000_000
ONLY_ROOT = unittest.skipIf(ON_WINDOWS or os.geteuid() != 0, "only root gives files away")
NAMED_LIKE_A_RUN = "is named like a file of a run, so it is not replaced; choose another name"
NOT_ON_WINDOWS = unittest.skipIf(ON_WINDOWS, "links, modes and pipes are POSIX's")


class Replace(ProgramTest):
    def setUp(self):
        super().setUp()
        self.make_run()
        self.make_recipe()
        self.file = self.folder / FILE

    def write(self, *arguments, word="changed", code=0, **others):
        """Writes, and looks whether the file is whole then."""
        done = self.run_program("write", "cover.toml", *arguments, **others)
        self.check(done, code, f"{word:8} {own_path(self.file)}\n")
        self.assert_whole()

    def assert_whole(self):
        text = self.file.read_text(encoding="utf-8")
        self.assertTrue(text.startswith(FIRST_LINE + "FileVersion"), text)
        self.assertTrue(text.endswith("[\\REDUCTION RATE]\n"), text)

    def refused(self, reason, *arguments, recipe=None, file=None, **others):
        """Nothing may change, and every way to write says the same."""
        if recipe is not None:
            self.make_recipe(recipe)
        contents = {name: (self.folder / name).read_bytes() for name in self.files()}
        for option in ([], ["--dry-run"], ["--diff"], ["--check"]):
            done = self.run_program("write", "cover.toml", *arguments, *option, **others)
            self.check(done, 3, "", f"cover.toml: {own_path(file or self.file)}: {reason}\n")
            self.assertEqual({name: (self.folder / name).read_bytes() for name in self.files()},
                             contents)

    # ---- What is replaced ---------------------------------------------------------------------

    def test_a_new_file_a_changed_one_and_an_unchanged_one_are_told_apart(self):
        self.write(word="new")
        self.write(word="unchanged")
        self.write("--set", "flow-stress=on", word="changed")
        self.write(word="changed")

    def test_an_unchanged_file_keeps_its_time(self):
        self.write(word="new")
        os.utime(self.file, (LONG_AGO, LONG_AGO))
        self.write(word="unchanged")
        self.assertEqual(self.file.stat().st_mtime, LONG_AGO)
        self.write("--set", "flow-stress=on", word="changed")
        self.assertNotEqual(self.file.stat().st_mtime, LONG_AGO)

    def test_a_control_file_is_known_by_its_first_line(self):
        for old in (b"I2-Output Control Parameter File\n",
                    b"I2-Output Control Parameter File\r\nold"):
            self.file.write_bytes(old)
            self.write()

    def test_an_empty_file_is_replaced(self):
        self.file.write_bytes(b"")
        self.write()

    def test_another_file_is_refused_unless_forced(self):
        for other in ("note\n", "I2-Output Control Parameter File", "x" * 300000,
                      "I2-Output Control Parameter File 2\n"):
            self.file.write_text(other)
            self.refused("is not a control parameter file; use --force to replace it")
            self.write("--force")

    def test_what_the_call_reads_is_never_replaced(self):
        reads = "is an input of this command (a recipe or a mapped mesh), so it is not replaced"
        self.make_recipe(name="other00.toml")
        recipe = PROJECT.replace("run = 2", "run = 0\nempty_run = true") + TARGET
        recipe += '[control_file]\nname = "other"\nextension = "toml"\n'
        self.make_recipe(recipe)
        self.check(self.run_program("write", "cover.toml"), 3, "",
                   f"cover.toml: {own_path(self.folder / 'other00.toml')}: is not a control "
                   "parameter file; use --force to replace it\n")
        done = self.run_program("write", "cover.toml", "other00.toml", "--force")
        self.check(done, 3, None, f"cover.toml: {own_path(self.folder / 'other00.toml')}: {reads}\n")
        (self.folder / "mesh02.cdb").write_text(OLD)
        target = TARGET.replace("original", "mapped") + 'mapped_mesh = "mesh02.cdb"\n'
        self.refused(reads, "--force", file=self.folder / "mesh02.cdb",
                     recipe=PROJECT + target + '[control_file]\nname = "mesh"\nextension = "cdb"\n')

    def test_a_file_of_the_run_is_never_replaced(self):
        (self.folder / "Run02" / "Cover02.k5f").write_text("results")
        for ending in ("k5f", "k5p"):  # k5p is empty
            self.refused(NAMED_LIKE_A_RUN, "--force",
                         recipe=f'{PROJECT}{TARGET}[control_file]\nfolder = "Run02"\n'
                                f'extension = "{ending}"\n',
                         file=self.folder / "Run02" / f"Cover02.{ending}")

    def test_results_of_another_run_are_never_replaced(self):
        other = self.folder / "other"
        other.mkdir()
        (other / "Lid02.k5o").write_text("results")
        self.refused(NAMED_LIKE_A_RUN, "--force",
                     recipe=f'{PROJECT}{TARGET}[control_file]\nfolder = "other"\nname = "Lid"\n'
                            'extension = "k5o"\n', file=other / "Lid02.k5o")
        self.assertEqual((other / "Lid02.k5o").read_text(), "results")

    def test_a_control_file_may_stand_with_the_run(self):
        self.make_recipe(PROJECT + TARGET + '[control_file]\nfolder = "Run02"\n')
        self.file = self.folder / "Run02" / FILE
        self.write(word="new")
        self.write("--set", "flow-stress=on")

    def test_a_folder_there_is_refused_even_when_forced(self):
        self.file.mkdir()
        self.refused("cannot be written: Is a directory", "--force")

    @NOT_ON_WINDOWS
    def test_a_pipe_there_is_refused_even_when_forced(self):
        os.mkfifo(self.file)
        self.refused("cannot be written: it is a pipe or a device, not a regular file", "--force",
                     timeout=20)

    def test_no_clobber_keeps_every_existing_file(self):
        for old in (OLD, "note\n", ""):
            self.file.write_text(old)
            done = self.run_program("write", "cover.toml", "--no-clobber")
            self.check(done, 0, f"kept     {own_path(self.file)}\n")
            self.assertEqual(self.file.read_text(), old)
        self.file.unlink()
        self.write("--no-clobber", word="new")

    @NOT_ON_WINDOWS
    def test_no_clobber_keeps_what_cannot_be_read_or_written(self):
        self.file.write_text(OLD)
        self.as_another_user()
        for mode in (0o444, 0):
            self.file.chmod(mode)
            done = self.run_program("write", "cover.toml", "--no-clobber", **self.as_nobody())
            self.check(done, 0, f"kept     {self.file}\n")

    def test_no_new_file_is_taken_for_a_result(self):
        reason = "would be taken for a result file of a run; choose another name\n"
        self.make_recipe(PROJECT + TARGET + '[control_file]\nfolder = "Run02"\nextension = "rsg"\n')
        file = own_path(self.folder / "Run02" / "Cover02.rsg")
        self.check(self.run_program("write", "cover.toml", "--force"), 3, "",
                   f"cover.toml: {file}: {reason}")
        for command in (["init", "Run02", "-o"], ["report", "cover.toml", "-o"]):
            done = self.run_program(*command, "Run02/Cover02.rsg")
            self.assertEqual(done.returncode, 3)
            self.assertTrue(done.stderr.endswith(f"Cover02.rsg: {reason}"), done.stderr)
        self.assertFalse((self.folder / "Run02" / "Cover02.rsg").exists())

    # ---- What stays of the old file -----------------------------------------------------------

    @NOT_ON_WINDOWS
    def test_a_link_is_written_through(self):
        (self.folder / "elsewhere").mkdir()
        there = self.folder / "elsewhere" / "lid.cmi"
        there.write_text(OLD)
        (self.folder / "second").symlink_to("elsewhere/lid.cmi")
        self.file.symlink_to("second")
        self.write()
        self.assertTrue(self.file.is_symlink())
        self.assertNotEqual(there.read_text(), OLD)
        self.write(word="unchanged")
        self.assertEqual(os.listdir(there.parent), ["lid.cmi"])

    @NOT_ON_WINDOWS
    def test_a_link_that_leads_nowhere_is_refused(self):
        self.file.symlink_to("nothing")
        self.refused("cannot be written: it is a symbolic link to a file that does not exist",
                     "--force")

    @ONLY_ROOT
    def test_a_link_of_another_user_is_refused(self):
        note = self.folder / "note"
        for text in ("", OLD, "note"):
            note.write_text(text)
            for name in (FILE, "new.toml", "page.html"):
                (self.folder / name).unlink(missing_ok=True)
                (self.folder / name).symlink_to("note")
                os.lchown(self.folder / name, 65534, 65534)
            reason = "cannot be written: it is a symbolic link of another user"
            self.refused(reason)
            self.refused(reason, "--force")
            self.check(self.run_program("init", "Run02", "-o", "new.toml", "--force"), 3, "",
                       f"{own_path(self.folder / 'new.toml')}: {reason}\n")
            self.check(self.run_program("report", "cover.toml", "-o", "page.html", "--force"), 3, "",
                       f"page.html: {reason}\n")
            self.assertEqual(note.read_text(), text)

    @ONLY_ROOT
    def test_a_link_of_the_administrator_is_followed(self):
        self.as_another_user()
        (self.folder / "there").write_text(OLD)
        os.chown(self.folder / "there", 65534, 65534)
        self.file.symlink_to("there")
        self.write(**self.as_nobody())
        self.assertTrue(self.file.is_symlink())

    @NOT_ON_WINDOWS
    def test_the_folder_that_is_removed_in_the_end_takes_no_file(self):
        done = self.run_program("write", "cover.toml", "--out", "/proc/self/cwd")
        self.check(done, 3, "", f"cover.toml: /proc/self/cwd/{FILE}: cannot be written: the folder "
                   "is zorbi2's temporary one, which is removed at the end\n")

    @NOT_ON_WINDOWS
    def test_up_from_a_link_is_up_from_where_it_leads_to(self):
        (self.folder / "far" / "inner" / "most").mkdir(parents=True)
        (self.folder / "near").symlink_to("far/inner")
        for up in ("near/..", "near/./..", "near/most/../.."):
            done = self.run_program("write", "cover.toml", "--out", up)
            self.check(done, 0, f"new      {own_path(self.folder / 'far' / FILE)}\n")
            (self.folder / "far" / FILE).unlink()

    @NOT_ON_WINDOWS
    def test_a_link_to_a_recipe_is_refused(self):
        self.file.symlink_to("cover.toml")
        self.refused("is an input of this command (a recipe or a mapped mesh), so it is not replaced",
                     "--force")

    @NOT_ON_WINDOWS
    def test_two_links_to_one_file_are_one_file(self):
        (self.folder / "lid.cmi").write_text(OLD)
        for number in (2, 3):
            (self.folder / f"Cover0{number}.cmi").symlink_to("lid.cmi")
            self.make_recipe(PROJECT.replace("run = 2", f"run = {number}") + TARGET,
                             f"r{number}.toml")
        self.assertEqual(self.run_program("write", "r2.toml", "r3.toml").returncode, 2)
        self.assertEqual((self.folder / "lid.cmi").read_text(), OLD)
        (self.folder / "Cover02.cmi").unlink()
        (self.folder / "Cover03.cmi").unlink()
        (self.folder / "Cover03.cmi").symlink_to("Cover02.cmi")  # which is not there yet
        self.assertEqual(self.run_program("write", "r2.toml", "r3.toml").returncode, 2)
        self.assertFalse((self.folder / "Cover02.cmi").exists())

    @NOT_ON_WINDOWS
    def test_the_mode_stays(self):
        for mode in (0o600, 0o640, 0o664, 0o777):
            self.file.write_text(OLD)
            self.file.chmod(mode)
            self.write()
            self.assertEqual(stat.S_IMODE(self.file.stat().st_mode), mode)

    @NOT_ON_WINDOWS
    def test_a_new_file_has_the_usual_mode(self):
        for mask, mode in ((0o022, 0o644), (0o077, 0o600), (0o002, 0o664)):
            done = self.run_program("write", "cover.toml", preexec_fn=lambda: os.umask(mask))
            self.check(done, 0)
            self.assertEqual(stat.S_IMODE(self.file.stat().st_mode), mode)
            self.file.unlink()

    @ONLY_ROOT
    def test_owner_and_group_stay(self):
        self.file.write_text(OLD)
        os.chown(self.file, 1234, 2345)
        self.write()
        self.assertEqual((self.file.stat().st_uid, self.file.stat().st_gid), (1234, 2345))

    @ONLY_ROOT
    def test_rights_of_an_owner_or_group_that_the_file_loses_are_not_handed_on(self):
        self.as_another_user()
        for owner, group, old, new in ((65534, 65534, 0o6664, 0o6664), (0, 0, 0o6666, 0o606),
                                       (65534, 0, 0o6664, 0o4604), (0, 65534, 0o6664, 0o2664)):
            self.file.write_text(OLD)
            os.chown(self.file, owner, group)
            self.file.chmod(old)
            self.write(**self.as_nobody())
            status = self.file.stat()
            self.assertEqual((status.st_uid, status.st_gid, stat.S_IMODE(status.st_mode)),
                             (65534, 65534, new), (owner, group))

    @NOT_ON_WINDOWS
    def test_a_file_without_write_permission_is_not_replaced(self):
        self.as_another_user()
        self.file.write_text(OLD)
        self.file.chmod(0o444)
        self.refused("cannot be written: Permission denied", "--force", **self.as_nobody())

    @NOT_ON_WINDOWS
    def test_a_folder_that_cannot_be_listed_takes_a_file(self):
        self.as_another_user()
        (self.folder / "box").mkdir()
        (self.folder / "box").chmod(0o333)
        done = self.run_program("write", "cover.toml", "--out", "box", **self.as_nobody())
        self.check(done, 0, f"new      {self.folder / 'box' / FILE}\n")
        (self.folder / "box").chmod(0o755)

    @NOT_ON_WINDOWS
    def test_a_folder_without_write_permission_takes_no_file(self):
        self.as_another_user()
        self.folder.chmod(0o555)
        self.addCleanup(self.folder.chmod, 0o700)
        self.refused("cannot be written: Permission denied", **self.as_nobody())

    @unittest.skipUnless(ON_WINDOWS, "an attribute of Windows")
    def test_a_read_only_file_is_not_replaced(self):
        self.file.write_text(OLD)
        self.file.chmod(0o444)
        done = self.run_program("write", "cover.toml")
        if EMULATOR and done.returncode == 0:
            self.skipTest("the emulator knows root's rights")
        self.check(done, 3, "", None)
        self.assertEqual(self.file.read_text(), OLD)

    # ---- On the way ---------------------------------------------------------------------------

    def test_names_up_to_the_systems_limit_can_be_written(self):
        name = "n" * (255 - len("02.cmi"))
        if ON_WINDOWS:
            name = name[:100]  # the whole path has a limit
        self.make_recipe(f'{PROJECT}{TARGET}[control_file]\nname = "{name}"\n')
        self.file = self.folder / f"{name}02.cmi"
        self.write(word="new")
        self.write("--set", "flow-stress=on")

    @NOT_ON_WINDOWS
    def test_the_engine_writes_where_only_this_user_can_enter(self):
        scratch = self.folder / "tmp"
        scratch.mkdir()
        seen = self.seen_while_writing(scratch)
        self.assertTrue(seen)
        self.assertEqual(set(seen.values()), {0o700})
        self.assertEqual(os.listdir(scratch), [])

    def seen_while_writing(self, scratch):
        """The folders that stand in the temporary folder meanwhile, with their modes."""
        names = [self.make_recipe(f'{PROJECT}{TARGET}[control_file]\nname = "p{number}"\n',
                                  f"p{number}.toml") for number in range(60)]
        seen = {}
        with subprocess.Popen([PROGRAM, "write", *names], cwd=self.folder, umask=0,
                              stdout=subprocess.DEVNULL,
                              env={**os.environ, "TMPDIR": str(scratch)}) as process:
            while process.poll() is None:
                for path in scratch.iterdir():
                    try:
                        seen[path.name] = stat.S_IMODE(path.lstat().st_mode)
                    except FileNotFoundError:
                        pass
        self.assertEqual(process.returncode, 0)
        return seen

    def test_two_at_once_on_one_file_both_end_well(self):
        self.make_recipe(name="cover.toml")
        self.make_recipe(PROJECT + TARGET.replace("ANSYS", "MARC"), "other.toml")
        for _ in range(3 if EMULATOR else 15):
            both = [subprocess.Popen([*EMULATOR, PROGRAM, "write", recipe], cwd=self.folder,
                                     stdout=subprocess.PIPE, stderr=subprocess.PIPE)
                    for recipe in ("cover.toml", "other.toml")]
            for process in both:
                stderr = process.communicate()[1]
                if not EMULATOR:
                    self.assertEqual((process.returncode, stderr), (0, b""))
            self.assert_whole()
        self.assertEqual([name for name in self.files() if "/" not in name],
                         [FILE, "cover.toml", "other.toml"])

    def results_of_many(self, *command):
        """The exit codes and errors of the same command many times at once."""
        many = [subprocess.Popen([*EMULATOR, PROGRAM, *command], cwd=self.folder, text=True,
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE)
                for _ in range(3 if EMULATOR else 12)]
        outputs = [process.communicate() for process in many]
        return [(process.returncode, *output) for process, output in zip(many, outputs)]

    def test_of_many_inits_at_once_one_makes_the_file(self):
        for number in range(2 if EMULATOR else 4):
            file = f"new{number}.toml"
            results = self.results_of_many("init", "Run02", "-o", file)
            refused = [error for code, _, error in results if code == 3]
            self.assertEqual(sum(code == 0 for code, _, _ in results), 1, results)
            self.assertEqual(refused, [f"{own_path(self.folder / file)}: already exists; use "
                                       "--force to replace it\n"] * (len(results) - 1))

    def test_of_many_writes_at_once_that_keep_files_one_makes_the_file(self):
        self.make_recipe()
        for _ in range(2 if EMULATOR else 4):
            results = self.results_of_many("write", "--no-clobber", "cover.toml")
            said = sorted(output.split()[0] for _, output, _ in results)
            self.assertEqual(said, ["kept"] * (len(results) - 1) + ["new"], results)
            self.assert_whole()
            (self.folder / FILE).unlink()

    @unittest.skipIf(ON_WINDOWS or os.geteuid() != 0, "only root mounts file systems")
    def test_a_full_file_system_leaves_the_old_file(self):
        small = self.folder / "small"
        small.mkdir()
        mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=8k", "none", small],
                                 check=False, stderr=subprocess.DEVNULL)
        if mounted.returncode != 0:
            self.skipTest("no file system can be mounted here")
        self.addCleanup(subprocess.run, ["umount", "-l", small], check=False)
        (small / FILE).write_text(OLD)
        (small / "filler").write_text("x" * 4096)
        self.make_recipe(PROJECT + TARGET + '[control_file]\nfolder = "small"\n')
        done = self.run_program("write", "cover.toml")
        self.check(done, 3, "", f"cover.toml: {small / FILE}: cannot be written: "
                   "No space left on device\n")
        self.assertEqual(sorted(os.listdir(small)), [FILE, "filler"])
        self.assertEqual((small / FILE).read_text(), OLD)

    # ---- Recipes that init writes --------------------------------------------------------------

    @NOT_ON_WINDOWS
    def test_init_writes_through_a_link_and_keeps_the_mode(self):
        there = self.folder / "there.toml"
        there.write_text("old")
        there.chmod(0o640)
        (self.folder / "new.toml").symlink_to(there)
        before = self.files()
        self.check(self.run_program("init", "Run02", "-o", "new.toml", "--force"), 0)
        self.assertTrue((self.folder / "new.toml").is_symlink())
        self.assertIn("[project]", there.read_text(encoding="utf-8"))
        self.assertEqual(stat.S_IMODE(there.stat().st_mode), 0o640)
        self.assertEqual(self.files(), before)

    # ---- What was left behind -----------------------------------------------------------------

    def leftover_name(self, process):
        """A temporary name as the program makes them, for a process."""
        with tempfile.TemporaryDirectory() as scratch:
            kept = self.seen_while_writing(pathlib.Path(scratch)) if not self.names else None
            self.names = self.names or sorted(kept)
        start, _, random = self.names[0].rsplit("-", 2)
        return f"{start}-{process}-{random}"

    names = None

    @NOT_ON_WINDOWS
    def test_what_a_killed_run_left_is_removed_by_the_next(self):
        with subprocess.Popen(["true"]) as gone:
            pass
        scratch = self.folder / "tmp"
        scratch.mkdir()
        dead, living = self.leftover_name(gone.pid), self.leftover_name(os.getpid())
        note = self.folder / "note"
        note.write_text("note")
        for name in (dead, living):
            (self.folder / name).write_text("half")
            (scratch / name).mkdir()
            (scratch / name / FILE).write_text("half")
        (self.folder / (dead + "1")).symlink_to(note)
        (scratch / (dead + "1")).symlink_to(self.folder / "Run02")
        (self.folder / (dead + "2")).mkdir()
        self.check(self.run_program("write", "cover.toml", "--set", "flow-stress=on",
                                    environment={"TMPDIR": str(scratch)}), 0)
        self.assertEqual(sorted(name for name in os.listdir(self.folder) if "zorbi2-" in name),
                         sorted([living, dead + "1", dead + "2"]))
        self.assertEqual(sorted(os.listdir(scratch)), sorted([living, dead + "1"]))
        self.assertEqual(note.read_text(), "note")
        self.assertTrue((self.folder / "Run02" / "Cover02.k5f").exists())

    @NOT_ON_WINDOWS
    def test_what_was_left_where_a_link_leads_to_is_removed(self):
        with subprocess.Popen(["true"]) as gone:
            pass
        (self.folder / "far").mkdir()
        for command, name in ((["report", "cover.toml", "-o"], "near.html"),
                              (["init", "Run02", "--force", "-o"], "near.toml")):
            left = self.folder / "far" / self.leftover_name(gone.pid)
            left.touch()
            (self.folder / "far" / name).touch()
            (self.folder / name).symlink_to(f"far/{name}")
            self.check(self.run_program(*command, name), 0, None)
            self.assertFalse(left.exists())

    @ONLY_ROOT
    def test_what_another_user_left_stays(self):
        with subprocess.Popen(["true"]) as gone:
            pass
        name = self.leftover_name(gone.pid)
        (self.folder / name).write_text("half")
        os.chown(self.folder / name, 65534, 65534)
        self.check(self.run_program("write", "cover.toml", "--set", "flow-stress=on"), 0)
        self.assertTrue((self.folder / name).exists())

    @NOT_ON_WINDOWS
    def test_where_others_may_rename_no_folder_is_taken_for_a_left_one(self):
        with subprocess.Popen(["true"]) as gone:
            pass
        scratch = self.folder / "tmp"
        scratch.mkdir()
        dead = scratch / self.leftover_name(gone.pid)
        for mode, owner, stays in ((0o777, -1, True), (0o770, -1, True), (0o1777, -1, False),
                                   (0o1777, 65534, True)):
            if owner >= 0 and os.geteuid() != 0:
                continue
            dead.mkdir(exist_ok=True)
            scratch.chmod(mode)
            os.chown(scratch, owner, -1)
            self.check(self.run_program("write", "cover.toml", "--set", "flow-stress=on",
                                        environment={"TMPDIR": str(scratch)}), 0)
            self.assertEqual(os.listdir(scratch), [dead.name] if stays else [])

    @NOT_ON_WINDOWS
    def test_what_is_left_of_a_process_that_had_the_same_number_is_removed(self):
        scratch = self.folder / "tmp"
        scratch.mkdir()
        self.leftover_name(1)  # finds out what names look like, before the process is there

        def leave():
            name = self.leftover_name(os.getpid())
            (self.folder / name).write_text("half")
            (scratch / name).mkdir()

        self.check(self.run_program("write", "cover.toml", "--set", "flow-stress=on",
                                    environment={"TMPDIR": str(scratch)}, preexec_fn=leave), 0)
        self.assertEqual([name for name in os.listdir(self.folder) if "zorbi2-" in name], [])
        self.assertEqual(os.listdir(scratch), [])

    @unittest.skipIf(ON_WINDOWS or os.geteuid() != 0, "only root gives processes new numbers")
    def test_what_a_process_with_numbers_of_another_container_left_stays(self):
        with subprocess.Popen(["true"]) as gone:
            pass
        name = self.leftover_name(gone.pid)
        (self.folder / name).write_text("half")
        apart = ["unshare", "--pid", "--fork", "--mount-proc"]
        if subprocess.run([*apart, "true"], check=False, stderr=subprocess.DEVNULL).returncode != 0:
            self.skipTest("no new numbers here")
        subprocess.run([*apart, PROGRAM, "write", "cover.toml"], cwd=self.folder, check=True,
                       stdout=subprocess.DEVNULL)
        self.assertIn(name, os.listdir(self.folder))

    @NOT_ON_WINDOWS
    def test_what_a_killed_init_left_is_removed_by_the_next(self):
        with subprocess.Popen(["true"]) as gone:
            pass
        dead, living = self.leftover_name(gone.pid), self.leftover_name(os.getpid())
        for arguments in (["Run02", "-o", "new.toml"], ["--all", "Run02", "-o", "."]):
            for name in (dead, living):
                (self.folder / name).write_text("half")
            self.check(self.run_program("init", *arguments), 0)
            self.assertEqual([name for name in os.listdir(self.folder) if "zorbi2-" in name],
                             [living])

    # ---- What the engine would open -----------------------------------------------------------

    @NOT_ON_WINDOWS
    def test_a_pipe_among_the_runs_files_is_refused_before_the_engine_opens_it(self):
        for name in ("Cover02.cmx", "Cover02.k5o"):
            path = self.folder / "Run02" / name
            path.unlink(missing_ok=True)
            os.mkfifo(path)
            told = f"project.folder: {path} is a pipe or a device, not a regular file\n"
            for command in (["write"], ["items"], ["report", "--json"],
                            ["check", FILE, "--against"]):
                done = self.run_program(*command, "cover.toml", timeout=20)
                self.check(done, 3, None, "" if "--json" in command else
                           f"cover.toml:4:10: {told}")
            self.check(self.run_program("write", "cover.toml", "--set", "none=on", timeout=20), 3,
                       "", "cover.toml: --set none=on: unknown item \"none\"; closest matches: "
                       f"runner, density, weld-line\ncover.toml:4:10: {told}")
            self.check(self.run_program("init", "Run02", "-o", "new.toml", timeout=20), 3, "",
                       f"zorbi2: {told}")
            path.unlink()
        self.assertNotIn("new.toml", self.files())

    @NOT_ON_WINDOWS
    def test_a_pipe_that_the_engine_does_not_open_is_a_result_file_like_any_other(self):
        os.mkfifo(self.folder / "Run02" / "Cover02_vox.k5o")
        self.check(self.run_program("write", "cover.toml", timeout=20), 0)

    def test_a_result_file_of_digits_without_end_is_read_to_its_first(self):
        with open(self.folder / "Run02" / "Cover02.k5o", "wb") as file:
            for _ in range(64):
                file.write(b"1" * (1 << 20))
        self.check(self.run_program("write", "cover.toml", timeout=20), 0)

    def test_a_folder_or_a_large_file_as_shot_file_is_refused(self):
        path = self.folder / "Run02" / "Cover02.cmx"
        path.mkdir()
        self.check(self.run_program("write", "cover.toml"), 3, "", "cover.toml:4:10: "
                   f"project.folder: {own_path(path)} is a folder, not a regular file\n")
        path.rmdir()
        path.write_bytes(b" " * (1 << 20))
        self.write(word="new")
        path.write_bytes(b" " * ((1 << 20) + 1))
        self.check(self.run_program("write", "cover.toml"), 3, "", "cover.toml:4:10: project.folder: "
                   f"{own_path(path)}: 1048577 bytes, but the limit is 1048576\n")

    def test_a_folder_as_result_file_is_what_it_is_for_the_engine(self):
        path = self.folder / "Run02" / "Cover02.k5w"
        path.unlink()
        path.mkdir()
        self.write(word="new")

    @NOT_ON_WINDOWS
    def test_results_that_cannot_be_read_are_told(self):
        self.as_another_user()
        for name in ("Cover02.cmx", "Cover02.k5o"):
            path = self.folder / "Run02" / name
            path.touch()
            path.chmod(0)
            self.check(self.run_program("write", "cover.toml", **self.as_nobody()), 3, "",
                       f"cover.toml:4:10: project.folder: {path}: cannot be read: Permission "
                       "denied\n")
            path.chmod(0o644)

    @NOT_ON_WINDOWS
    def test_results_that_cannot_be_reached_are_told(self):
        self.as_another_user()
        (self.folder / "closed").mkdir()
        (self.folder / "closed" / "Cover02.rso").touch()
        (self.folder / "closed").chmod(0)
        (self.folder / "Run02" / "Cover02.rso").symlink_to("../closed/Cover02.rso")
        self.check(self.run_program("write", "cover.toml", **self.as_nobody()), 3, "",
                   f"cover.toml:4:10: project.folder: {self.folder / 'Run02'}: Cover02.rso: "
                   "Permission denied\n")
        (self.folder / "closed").chmod(0o755)

    def test_files_of_runs_are_replaced_by_no_recipe_and_no_report(self):
        for name in ("Cover02.k5o", "Cover02.cmx", "Lid11_medi.crp"):
            path = self.folder / "Run02" / name
            path.write_text("results", encoding="utf-8")
            for command in (["init", "Run02", "--run", "2", "--name", "Cover"],
                            ["report", "cover.toml"]):
                word = f"Run02/{name}"
                done = self.run_program(*command, "-o", word, "--force")
                shown = own_path(path) if command[0] == "init" else word
                self.check(done, 3, None, f"{shown}: {NAMED_LIKE_A_RUN}\n")
            self.assertEqual(path.read_text(encoding="utf-8"), "results")

    # ---- What is read and written in one call ---------------------------------------------------

    def test_a_recipe_is_not_replaced_however_it_is_called(self):
        (self.folder / "Run02" / "r02.toml").write_text(
            PROJECT.replace('"Run02"', '"."') + TARGET +
            '[control_file]\nname = "r"\nextension = "toml"\n', encoding="utf-8")
        for word in ("Run02/r02.toml", "Run02\\r02.toml", "./Run02/../Run02/r02.toml"):
            done = self.run_program("write", "--force", word)
            self.check(done, 3, "", f"{word}: {own_path(self.folder / 'Run02' / 'r02.toml')}: is an "
                       "input of this command (a recipe or a mapped mesh), so it is not replaced\n")

    @NOT_ON_WINDOWS
    def test_files_whose_names_are_too_long_are_no_same_file(self):
        for name in "ab":
            self.make_recipe(PROJECT + TARGET + f'[control_file]\nname = "{name * 300}"\n',
                             f"{name}.toml")
        done = self.run_program("write", "a.toml", "b.toml")
        self.check(done, 3, None, "".join(
            f"{name}.toml: {self.folder / (name * 300)}02.cmi: cannot be written: File name too "
            "long\n" for name in "ab"))

    def test_a_large_file_is_found_unchanged(self):
        self.make_recipe(PROJECT + TARGET + f'[output]\nfolder = "D:/{"o" * 70000}"\n')
        self.write(word="new")
        self.check(self.run_program("write", "--check", "cover.toml"), 0,
                   f"unchanged {own_path(self.file)}\n")

    @NOT_ON_WINDOWS
    def test_access_rules_beyond_the_mode_are_kept(self):
        entries = [(0x01, 6, -1), (0x02, 6, 1234), (0x04, 0, -1), (0x10, 6, -1), (0x20, 0, -1)]
        rules = struct.pack("<I", 2) + b"".join(
            struct.pack("<HHi", tag, rights, who) for tag, rights, who in entries)
        self.write(word="new")
        try:
            os.setxattr(self.file, "system.posix_acl_access", rules)
        except OSError:
            self.skipTest("no such rules on this file system")
        self.write("--set", "flow-stress=on")
        self.assertEqual(os.getxattr(self.file, "system.posix_acl_access"), rules)
        self.assertEqual(stat.S_IMODE(self.file.stat().st_mode), 0o660)

    @NOT_ON_WINDOWS
    def test_no_access_rules_come_from_the_folder(self):
        self.write(word="new")
        self.file.chmod(0o640)
        entries = [(0x01, 7, -1), (0x02, 7, 1234), (0x04, 5, -1), (0x10, 7, -1), (0x20, 5, -1)]
        rules = struct.pack("<I", 2) + b"".join(
            struct.pack("<HHi", tag, rights, who) for tag, rights, who in entries)
        try:
            os.setxattr(self.folder, "system.posix_acl_default", rules)
        except OSError:
            self.skipTest("no such rules on this file system")
        self.write("--set", "flow-stress=on")
        self.assertNotIn("system.posix_acl_access", os.listxattr(self.file))
        self.assertEqual(stat.S_IMODE(self.file.stat().st_mode), 0o640)

    @NOT_ON_WINDOWS
    def test_a_pipe_as_recipe_is_refused(self):
        os.mkfifo(self.folder / "pipe.toml")
        self.check(self.run_program("write", "pipe.toml", timeout=20), 3, "",
                   "pipe.toml: cannot be read: it is a pipe or a device, not a regular file\n")


if __name__ == "__main__":
    unittest.main()

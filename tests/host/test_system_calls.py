"""System calls: their order when a file is replaced, and each of them failing, once or from then on."""

import concurrent.futures
import itertools
import os
import re
import shutil
import signal
import stat
import subprocess
import time
import unittest

from program import ON_WINDOWS, PROGRAM, ProgramTest

STRACE = shutil.which("strace")
FILE = "Cover02.cmi"
# Every so many of a command's calls fail for good too: 1 tries all of them.
STEP = int(os.environ.get("ZORBI2_CALLS_STEP", "5"))
OLD = "I2-Output Control Parameter File\n"
# What a program asks of the system for files and their names. Not close, whose failure leaves the
# file open.
CALLS = ("openat read write newfstatat getdents64 getcwd chdir mkdir faccessat2 access readlink "
         "fchown fchmod fsync linkat renameat renameat2 unlink unlinkat rmdir ioctl getrandom getxattr "
         "readlinkat").split()


@unittest.skipUnless(STRACE and not ON_WINDOWS and os.environ["ZORBI2_BUILD_TYPE"] == "Release",
                     "needs strace; once, for the program as it is shipped, is enough")
class SystemCalls(ProgramTest):
    def setUp(self):
        super().setUp()
        self.make_run()
        self.make_recipe()
        self.scratch = self.folder / "scratch"
        self.scratch.mkdir()
        self.calls = self.folder.with_name(self.folder.name + " calls")
        self.addCleanup(self.calls.unlink, missing_ok=True)

    def traced(self, *command, options=()):
        return subprocess.run([STRACE, "-f", "--seccomp-bpf", "-o", self.calls, "-e", "trace=" + ",".join(CALLS),
                               *options, PROGRAM, *command], cwd=self.folder, check=False,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              env={**os.environ, "TMPDIR": str(self.scratch)})

    def list_of_calls(self):
        """The calls of the last run as (name, all of it)."""
        lines = self.calls.read_text(encoding="utf-8", errors="replace").splitlines()
        calls = [re.match(r"\d+ +((\w+)\(.*)", line) for line in lines]
        return [(call[2], call[1]) for call in calls if call]

    def start_of_main(self, calls):
        """Before it, the loader opens libraries, reads them and asks for their size."""
        return 3 + max(i for i, (_, text) in enumerate(calls) if re.search(r'\.so[.0-9]*"', text))

    def start_of_cleaning(self, calls):
        """From there on the scratch folder is removed; it stays when that cannot be done."""
        return max((i for i, (_, text) in enumerate(calls)
                    if re.search(r'openat\(AT_FDCWD, "\.", .*O_DIRECTORY', text)),
                   default=len(calls))

    def setup_file(self, text):
        path = self.folder / FILE
        path.unlink(missing_ok=True)
        if text is not None:
            path.write_text(text, encoding="utf-8")

    def test_a_replaced_file_is_on_the_disk_before_it_gets_its_name(self):
        for command, name in ((["write", "cover.toml"], FILE),
                              (["init", "Run02", "-o", "new.toml"], "new.toml")):
            for old in (None, OLD):
                self.setup_file(old)
                done = self.traced(*command)
                self.assertEqual(done.returncode, 0, done.stderr)
                steps = [text for call, text in self.list_of_calls()
                         if call in ("fsync", "renameat", "renameat2", "write")
                         and not re.match(r"write\([12],", text)]
                # The engine's own write comes first, in the scratch folder.
                steps = [re.match(r"\w+", text)[0] for text in steps[-4:]]
                moved = "renameat" if command[0] == "write" and old else "renameat2"
                self.assertEqual(steps, ["write", "fsync", moved, "fsync"])
                self.assertRegex(self.calls.read_text(), rf'{moved}\(.*"{re.escape(name)}"')
                self.remove_made()

    def test_output_of_which_a_part_is_lost_is_an_error(self):
        done = self.traced("--version", options=["-e", "inject=write:error=EIO:when=1"])
        self.assertEqual((done.returncode, done.stderr), (
            3, "zorbi2: cannot write to standard output: some of it was lost\n"))

    def injected(self, fault, *command, **others):
        """One fault, in all calls of a kind or in a certain one."""
        return subprocess.run([STRACE, "-o", self.calls, "-e", "trace=" + fault.split(":")[0],
                               "-e", "inject=" + fault, *command], cwd=self.folder, check=False,
                              capture_output=True, text=True,
                              env={**os.environ, "TMPDIR": str(self.scratch)}, **others)

    def test_an_old_file_that_cannot_be_read_stays(self):
        note = "not a control file\n"
        for command, name in ((["write", "cover.toml", "--force"], FILE),
                              (["report", "cover.toml", "-o", "page.html"], "page.html")):
            path = self.folder / name
            path.write_text(note, encoding="utf-8")
            done = self.injected("read:error=EIO", "-P", str(path), PROGRAM, *command)
            self.assertEqual(done.returncode, 3, done.stderr)
            self.assertTrue(done.stderr.endswith(": cannot be read: Input/output error\n"))
            self.assertEqual(path.read_text(encoding="utf-8"), note)

    def test_results_that_cannot_be_read_are_not_missing(self):
        path = str(self.folder / "Run02" / "Cover02.k5o")
        done = self.injected("read:error=EIO", "-P", path, PROGRAM, "write", "cover.toml")
        self.assertEqual(done.returncode, 3)
        self.assertTrue(done.stderr.endswith(f"{path}: cannot be read: Input/output error\n"))

    def test_a_file_that_comes_while_the_new_one_reaches_the_disk_stays(self):
        self.setup_file(OLD)
        note = self.folder / "note"
        note.write_text("note", encoding="utf-8")

        def replace():
            while not list(self.folder.glob("zorbi2-*")):
                time.sleep(0.001)
            note.rename(self.folder / FILE)

        with concurrent.futures.ThreadPoolExecutor() as others:
            others.submit(replace)
            done = self.injected("fsync:delay_enter=500000", PROGRAM, "write", "cover.toml")
        self.assertEqual(done.returncode, 3)
        self.assertTrue(done.stderr.endswith(
            "is not a control parameter file; use --force to replace it\n"), done.stderr)
        self.assertEqual((self.folder / FILE).read_text(encoding="utf-8"), "note")

    def test_another_folder_in_the_place_of_the_temporary_one_is_not_entered(self):
        kept = self.folder / "kept"

        def link(path):
            path.symlink_to(kept)

        def own_folder(path):
            kept.rename(path)
            kept.symlink_to(path)

        def folder_of_another(path):
            path.mkdir()
            os.chown(path, 65534, 65534)

        for put, reason in ((link, "Not a directory"), (own_folder, "it is not this user's own and empty"),
                            (folder_of_another, "it is not this user's own and empty")):
            if os.geteuid() != 0 and put is folder_of_another:
                continue
            kept.mkdir()
            (kept / "letter").touch()

            def swap():
                while not list(self.scratch.iterdir()):
                    time.sleep(0.001)
                path = next(self.scratch.iterdir())
                path.rmdir()
                put(path)

            with concurrent.futures.ThreadPoolExecutor() as others:
                others.submit(swap)
                done = self.injected("mkdir:delay_exit=500000", PROGRAM, "write", "cover.toml")
            self.assertEqual((done.returncode, done.stderr), (
                3, f"zorbi2: cannot create a temporary folder in {self.scratch}: {reason}\n"))
            self.assertTrue((kept / "letter").exists())
            for path in (kept, *self.scratch.iterdir()):
                path.unlink() if path.is_symlink() else shutil.rmtree(path)

    def test_a_signal_that_comes_before_a_call_blocks_ends_it(self):
        self.traced("write", "-")
        looks = [text for call, text in self.list_of_calls() if call == "newfstatat"]
        last = 1 + next(i for i, text in enumerate(looks) if text.startswith("newfstatat(0,"))
        reading, writing = os.pipe()
        done = self.injected(f"newfstatat:signal=TERM:when={last}", PROGRAM, "write", "-",
                             stdin=reading, timeout=20)
        self.assertEqual((done.returncode, done.stderr.splitlines()[-1]),
                         (-signal.SIGTERM, "zorbi2: interrupted: 0 written, 0 failed, 1 not done; "
                          "continue with -"))
        os.close(reading)
        os.close(writing)

    def test_a_left_file_is_removed_and_never_opened(self):
        self.traced("write", "cover.toml")
        names = re.findall(r"zorbi2-\w+-\d+-\w+", self.calls.read_text())
        left = self.folder / names[-1]  # of a process that is gone
        left.touch()
        self.traced("write", "cover.toml", "--set", "flow-stress=on")
        calls = [call for call, text in self.list_of_calls() if left.name in text]
        self.assertNotIn("openat", calls)
        self.assertFalse(left.exists())

    def test_a_recipe_that_a_signal_may_have_spoiled_is_not_written(self):
        self.traced("init", "Run02", "-o", "new.toml")
        self.remove_made()
        looks = [text for call, text in self.list_of_calls() if call == "newfstatat"]
        last = 1 + max(i for i, text in enumerate(looks) if "Cover02.k5" in text)
        done = self.injected(f"newfstatat:error=EINTR:signal=INT:when={last}", PROGRAM,
                             "init", "Run02", "-o", "new.toml")
        self.assertEqual(done.returncode, -signal.SIGINT)
        self.assertEqual(done.stderr, "zorbi2: interrupted: no recipe was written\n")
        self.assertFalse((self.folder / "new.toml").exists())

    def test_a_signal_ends_the_search_for_runs(self):
        for run in range(3, 23):
            self.make_run(f"Cover{run:02}", f"all/more{run}/Run{run:02}", [".k5f"])
        done = self.injected("getdents64:signal=TERM:when=9", PROGRAM, "init", "--all", "all")
        self.assertEqual(done.returncode, -signal.SIGTERM)
        self.assertEqual(done.stderr, "zorbi2: interrupted: 0 written, 0 failed, of 1 runs\n")
        self.assertLess(self.calls.read_text().count("getdents64"), 25)

    def test_results_that_cannot_be_tested_once_are_not_missing(self):
        for call, name in (("newfstatat", ".k5p"), ("newfstatat", ".k5w"), ("openat", ".k5o")):
            path = str(self.folder / "Run02" / ("Cover02" + name))
            codes = set()
            for when in range(1, 9):  # the host's own looks among them
                self.setup_file(None)
                done = self.injected(f"{call}:error=EIO:when={when}", "-P", path, PROGRAM, "write",
                                     "cover.toml")
                codes.add(done.returncode)
                if done.returncode == 0:
                    text = (self.folder / FILE).read_text(encoding="utf-8")
                    self.whole = getattr(self, "whole", text)
                    self.assertEqual(text, self.whole, f"{name}, {when}")
            self.assertEqual(codes, {0, 3}, name)

    def test_a_shot_file_that_the_engine_cannot_read_is_an_error(self):
        shot = self.folder / "Run02" / "Cover02.cmx"
        shot.write_text("<SOLID_MCM>\n</SOLID_MCM>\n", encoding="utf-8")
        for fault in ("openat:error=EIO:when=2", "read:error=EIO:when=2+"):  # the host looks first
            done = self.injected(fault, "-P", str(shot), PROGRAM, "write", "cover.toml")
            self.assertEqual(done.returncode, 3)
            self.assertTrue(done.stderr.endswith(
                f"{shot}: the engine could not read all of it\n"), done.stderr)

    def test_a_folder_that_does_not_reach_the_disk_is_an_error(self):
        reason = ("the new file is in place, but its folder could not be flushed to disk: "
                  "Input/output error\n")
        for command, name in ((["write", "cover.toml"], FILE),
                              (["write", "cover.toml", "--no-clobber"], FILE),
                              (["init", "Run02", "-o", "new.toml"], "new.toml")):
            (self.folder / name).unlink(missing_ok=True)
            done = self.injected("fsync:error=EIO:when=2", PROGRAM, *command)
            self.assertEqual((done.returncode, done.stdout), (3, ""))
            self.assertTrue(done.stderr.endswith("cannot be written: " + reason), done.stderr)
            self.assertTrue((self.folder / name).exists())

    def test_a_temporary_file_is_made_anew_and_no_link(self):
        self.traced("write", "cover.toml")
        made = [text for call, text in self.list_of_calls()
                if call == "openat" and '"zorbi2-' in text]
        self.assertEqual(len(made), 1)
        for flag in ("O_EXCL", "O_NOFOLLOW"):
            self.assertIn(flag, made[0])

    def test_rights_that_cannot_be_read_are_not_given(self):
        self.setup_file(OLD)
        (self.folder / FILE).chmod(0o664)
        done = self.injected("getxattr:error=EIO", PROGRAM, "write", "cover.toml")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(stat.S_IMODE((self.folder / FILE).stat().st_mode), 0o604)

    def test_a_signal_behind_the_last_file_leaves_nothing_undone(self):
        of_the_folder = "fsync:signal=SIGTERM:when=2"
        done = self.injected(of_the_folder, PROGRAM, "write", "cover.toml")
        self.assertEqual((done.returncode, done.stderr),
                         (-signal.SIGTERM, "zorbi2: interrupted: 1 written, 0 failed\n"))
        self.assertTrue((self.folder / FILE).read_text().endswith("[\\REDUCTION RATE]\n"))

    def test_a_system_without_random_numbers_is_told(self):
        behind_the_heap = "getrandom:error=ENOSYS:when=2+"
        done = self.injected(behind_the_heap, PROGRAM, "write", "cover.toml")
        self.assertEqual((done.returncode, done.stderr), (
            3, "zorbi2: cannot get random numbers from the system: Function not implemented\n"))

    def test_a_closed_stream_whose_number_cannot_be_kept_ends_the_program(self):
        done = self.injected("openat:error=ENOENT", "-P", "/dev/null", PROGRAM, "--version",
                             preexec_fn=lambda: os.close(0))
        self.assertEqual((done.returncode, done.stdout, done.stderr), (3, "", ""))

    def test_where_a_file_system_has_no_links_a_new_file_replaces_none_either(self):
        no_rename = ["-e", "inject=renameat2:error=EINVAL"]
        for error in ("EPERM", "EOPNOTSUPP", "ENOSYS"):
            done = self.traced("init", "Run02", "-o", "new.toml",
                               options=[*no_rename, "-e", f"inject=linkat:error={error}"])
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.assertIn("[project]", (self.folder / "new.toml").read_text(encoding="utf-8"))
            (self.folder / "new.toml").write_text("mine", encoding="utf-8")
            done = self.traced("init", "Run02", "-o", "new.toml",
                               options=[*no_rename, "-e", f"inject=linkat:error={error}"])
            self.assertEqual((done.returncode, done.stderr),
                             (3, f"{self.folder / 'new.toml'}: already exists; use --force to replace it\n"))
            self.assertEqual((self.folder / "new.toml").read_text(encoding="utf-8"), "mine")
            self.assertFalse([path for path in self.folder.iterdir()
                              if path.name.startswith("zorbi2-")])
            (self.folder / "new.toml").unlink()

    def check_after_fault(self, command, number, done, new, is_mute, may_leave):
        text = self.list_of_calls()[number][1]
        what = f"{command[0]}: {text}\n{done.stdout}{done.stderr}"
        self.assertIn("(INJECTED)", text)
        self.assertIn(done.returncode, (0, 1, 2, 3), what)
        if done.returncode != 0 and not is_mute:
            self.assertRegex(done.stderr, r"\A\S[^\n]+\n", what)
        there = (self.folder / FILE).read_text(encoding="utf-8")
        self.assertIn(there, (OLD, new), what)
        if command[0] == "write" and done.returncode == 0:
            self.assertEqual(there, new, what)
        if not may_leave:
            left = [path for path in (*self.folder.iterdir(), *self.scratch.iterdir())
                    if path.name.startswith("zorbi2-")]
            self.assertEqual(left, [], what)

    def fail_each_call(self, *command, least=20):
        self.setup_file(OLD)
        self.assertEqual(self.traced(*command).returncode, 0)
        new = (self.folder / FILE).read_text(encoding="utf-8")
        calls = self.list_of_calls()
        numbers = range(self.start_of_main(calls), len(calls))
        cleaning = self.start_of_cleaning(calls)
        self.assertGreaterEqual(len(numbers), least)
        for number, further in [*itertools.product(numbers, [""]),
                                *itertools.product(numbers[::STEP], ["+"])]:
            call = calls[number][0]
            nth = [name for name, _ in calls[:number + 1]].count(call)
            self.setup_file(OLD)
            self.remove_made()
            done = self.traced(*command, options=[
                "-e", f"inject={call}:error=EIO:when={nth}{further}"])
            with self.subTest(call=calls[number][1], further=further):
                self.check_after_fault(
                    command, number, done, new, is_mute=further and call == "write",
                    may_leave=number >= cleaning or call == "unlinkat" or  # of a temporary file
                    (further and call in [name for name, _ in calls[cleaning:]]))
            self.clean()
        print(f"{command[0]}: {len(numbers)} system calls failed once, "
              f"{len(numbers[::STEP])} for good")

    def remove_made(self):
        for name in ("new.toml", "page.html"):
            (self.folder / name).unlink(missing_ok=True)

    def clean(self):
        for path in (*self.folder.iterdir(), *self.scratch.iterdir()):
            if path.name.startswith("zorbi2-"):
                shutil.rmtree(path) if path.is_dir() else path.unlink()

    def test_each_call_of_write_fails(self):
        self.fail_each_call("write", "cover.toml")

    def test_each_call_of_init_fails(self):
        self.fail_each_call("init", "Run02", "-o", "new.toml")

    def test_each_call_of_items_fails(self):
        self.fail_each_call("items", "cover.toml")

    def test_each_call_of_check_fails(self):
        self.setup_file(None)
        self.run_program("write", "cover.toml")
        shutil.copy(self.folder / FILE, self.folder / "read.cmi")
        self.fail_each_call("check", "--against", "cover.toml", "read.cmi")

    def test_each_call_of_report_fails(self):
        self.fail_each_call("report", "cover.toml", "-o", "page.html")

    def test_each_call_of_what_needs_no_files_fails(self):
        for command in (["schema"], ["complete", "items", "--solver", ""], ["--help"]):
            self.fail_each_call(*command, least=1)


if __name__ == "__main__":
    unittest.main()

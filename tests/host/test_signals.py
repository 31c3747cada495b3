"""Signals at any moment: whole files, nothing left behind, and an end as the signal's."""

import itertools
import os
import pathlib
import random
import re
import signal
import subprocess
import sys
import time
import unittest

from program import (EMULATOR, ON_WINDOWS, PROGRAM, PROJECT, TARGET, ProgramTest, all_from,
                     own_path)

FIRST_LINE = "I2-Output Control Parameter File\n"
KILLS = 100

if not ON_WINDOWS:
    import fcntl
    import termios

    CAUGHT = [signal.SIGHUP, signal.SIGINT, signal.SIGQUIT, signal.SIGTERM, signal.SIGXCPU,
              signal.SIGALRM, signal.SIGVTALRM, signal.SIGPROF, signal.SIGUSR1, signal.SIGUSR2]


class BatchTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.make_run()
        self.out = self.folder / "out"
        self.out.mkdir()

    def make_recipes(self, count):
        return [self.make_recipe(f'{PROJECT}{TARGET}[control_file]\nname = "part{number}"\n',
                                 f"r{number}.toml") for number in range(count)]

    def assert_whole_files(self):
        for path in self.out.iterdir():
            if path.suffix == ".cmi":
                text = path.read_text(encoding="utf-8")
                self.assertTrue(text.startswith(FIRST_LINE + "FileVersion"), path)
                self.assertTrue(text.endswith("[\\REDUCTION RATE]\n"), path)

    def wait_for(self, condition):
        end = time.monotonic() + 60
        while not condition():
            self.assertLess(time.monotonic(), end)


@unittest.skipIf(ON_WINDOWS, "the signals are POSIX's")
class Signals(BatchTest):
    def setUp(self):
        super().setUp()
        self.scratch = self.folder / "tmp"
        self.scratch.mkdir()
        self.environment = {**os.environ, "TMPDIR": str(self.scratch)}

    def start(self, *arguments):
        return subprocess.Popen([PROGRAM, *arguments], cwd=self.folder, env=self.environment,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)

    def signaled(self, number, *arguments):
        """What a process prints, and how it ends, that gets a signal after its first line. One that
        was done before is none."""
        for _ in range(20):
            for path in self.out.iterdir():
                path.unlink()
            with self.start(*arguments) as process:
                first = process.stdout.readline()
                process.send_signal(number)
                stdout, stderr = first + process.stdout.read(), process.stderr.read()
            if process.returncode != 0:
                break
        self.assertEqual(process.returncode, -number, stderr)
        return stdout, stderr

    def assert_nothing_left(self):
        self.assertEqual(os.listdir(self.scratch), [])
        self.assertEqual([name for name in os.listdir(self.out) if not name.endswith(".cmi")], [])

    def test_each_signal_ends_a_batch_between_two_files(self):
        count = 200
        names = self.make_recipes(count)
        for number in CAUGHT:
            with self.subTest(number.name):
                stdout, stderr = self.signaled(number, "write", "--out", "out", *names)
                done = stdout.count("new ")
                self.assertLess(done, count)
                self.assertEqual(stderr, f"zorbi2: interrupted: {done} written, 0 failed, "
                                 f"{count - done} not done; continue with r{done}.toml\n")
                self.assertEqual(len(os.listdir(self.out)), done)
                self.assert_whole_files()
                self.assert_nothing_left()

    def test_a_signal_ends_a_check_of_many_files_between_two(self):
        self.make_recipe()
        self.check(self.run_program("write", "cover.toml"), 0)
        count = 20_000
        stdout, stderr = self.signaled(signal.SIGTERM, "check", *["Cover02.cmi"] * count)
        self.assertEqual(stderr, "zorbi2: interrupted before Cover02.cmi\n")
        self.assertLess(stdout.count("no errors"), count)

    def test_a_signal_ends_init_of_many_runs_between_two(self):
        count = 500
        for number in range(count):
            self.make_run(f"Part{number}x02", f"runs/{number}", files=[".k5f"])
        stdout, stderr = self.signaled(signal.SIGTERM, "init", "--all", "runs", "-o", "out")
        written = stdout.count("wrote")
        self.assertEqual(
            stderr, f"zorbi2: interrupted: {written} written, 0 failed, of {count} runs\n")
        self.assertLess(written, count)
        self.assertEqual(len(os.listdir(self.out)), written)

    def test_a_signal_while_recipes_are_read_leaves_nothing(self):
        count = 3000
        names = self.make_recipes(count)
        with self.start("write", "--out", "out", *names) as process:
            self.wait_for(lambda: os.listdir(self.scratch))
            process.send_signal(signal.SIGTERM)
            stdout, stderr = process.communicate()
        self.assertEqual((process.returncode, stdout), (-signal.SIGTERM, ""))
        self.assertEqual(stderr, f"zorbi2: interrupted: 0 written, 0 failed, {count} not done; "
                         "continue with r0.toml\n")
        self.assertEqual(os.listdir(self.out), [])
        self.assert_nothing_left()

    def test_a_signal_ends_the_wait_for_a_reader_that_does_not_read(self):
        names = self.make_recipes(100)
        for command in (["write", "--dry-run", *names], ["report", "--json", *names]):
            with self.start(*command) as process:
                self.wait_for(lambda: self.size_in(process.stdout) > 60_000)  # 64 KiB fit
                time.sleep(0.1)
                process.send_signal(signal.SIGTERM)
                self.assertEqual(process.wait(timeout=60), -signal.SIGTERM)
            self.assert_nothing_left()

    def size_in(self, pipe):
        """Bytes that wait for their reader."""
        return int.from_bytes(fcntl.ioctl(pipe, termios.FIONREAD, bytes(4)), sys.byteorder)

    def test_two_signals_at_once_count_as_one(self):
        with self.start("write", "--dry-run", *self.make_recipes(100)) as process:
            self.wait_for(lambda: self.size_in(process.stdout) > 60_000)
            process.send_signal(signal.SIGSTOP)  # so that both wait
            process.send_signal(signal.SIGTERM)
            process.send_signal(signal.SIGINT)
            process.send_signal(signal.SIGCONT)
            self.assertIn(process.wait(timeout=60), (-signal.SIGTERM, -signal.SIGINT))
        self.assert_nothing_left()

    def test_a_signal_that_is_ignored_stays_so(self):
        names = self.make_recipes(100)
        with subprocess.Popen(["nohup", PROGRAM, "write", "--out", "out", *names],
                              cwd=self.folder, env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, text=True) as process:
            process.stdout.readline()
            process.send_signal(signal.SIGHUP)
            stdout = process.stdout.read()
        self.assertEqual(process.returncode, 0)
        self.assertTrue(stdout.endswith("100 written, 0 failed\n"))

    def test_json_has_what_is_done(self):
        names = self.make_recipes(200)
        with self.start("write", "--json", "--out", "out", *names) as process:
            self.wait_for(lambda: os.listdir(self.out))
            process.send_signal(signal.SIGINT)
            stdout, stderr = process.communicate()
        self.assertEqual((process.returncode, stderr), (-signal.SIGINT, ""))
        done = stdout.count('"status": "written"')
        self.assertIn(f'"interrupted: {done} written, 0 failed, ', stdout)
        self.assertEqual(len(os.listdir(self.out)), done)

    def test_a_hundred_kills_leave_whole_files_and_the_next_run_cleans_up(self):
        names = self.make_recipes(6)
        options = (["--set", "flow-stress=on"], ["--set", "flow-stress=off"])
        chance = random.Random(1)
        start = time.monotonic()
        self.check(self.run_program("write", "--out", "out", *names), 0)
        longest = time.monotonic() - start
        ends = set()
        for number in range(KILLS):
            with self.start("write", "--out", "out", *names, *options[number % 2]) as process:
                time.sleep(chance.uniform(0, longest))
                kill = chance.choice([signal.SIGKILL, signal.SIGTERM, signal.SIGINT])
                process.send_signal(kill)
                process.communicate()
            self.assertIn(process.returncode, (0, -kill))
            ends.add(process.returncode)
            self.assertEqual(len(list(self.out.glob("*.cmi"))), len(names))
            self.assert_whole_files()
        self.assertIn(-signal.SIGKILL, ends)
        self.check(self.run_program("write", "--out", "out", *names, "--solver", "MARC",
                                    environment=self.environment), 0)
        self.assert_whole_files()
        self.assert_nothing_left()


@unittest.skipUnless(ON_WINDOWS and EMULATOR, "needs Wine, which makes Ctrl-C of a signal")
class Console(BatchTest):
    def start(self, **streams):
        names = self.make_recipes(200)
        environment = {**os.environ, "WINEDEBUG": "-all", "TERM": "xterm"}
        return subprocess.Popen([*EMULATOR, PROGRAM, "write", "--out", own_path(self.out), *names],
                                cwd=self.folder, env=environment, **streams)

    def process_number(self):
        """The program's own; the emulator is started by a script."""
        for path in pathlib.Path("/proc").glob("[0-9]*/cmdline"):
            try:
                words = path.read_bytes().decode().split("\0")
            except OSError:  # gone meanwhile
                continue
            if words[0] == PROGRAM and own_path(self.out) in words:
                return int(path.parent.name)
        return self.fail("the program does not run")

    def signal_when_writing(self, number):
        self.wait_for(lambda: len(os.listdir(self.out)) > 3)
        os.kill(self.process_number(), number)

    def test_control_c_ends_a_batch_between_two_files(self):
        master, slave = os.openpty()
        with self.start(stdin=slave, stdout=slave, stderr=slave) as process:
            os.close(slave)
            self.signal_when_writing(signal.SIGINT)
            text = all_from(master)
        self.assertEqual(process.returncode, 0xC000013A & 0xFF)
        words = re.sub(r"\x1b\[[?0-9]*[a-zA-Z]", "", text.decode())
        told = re.search(r"zorbi2: interrupted: (\d+) written, 0 failed, (\d+) not done; "
                         r"continue with\s*r(\d+)\.toml", words)
        self.assertTrue(told, words[-500:])
        done, rest, first = map(int, told.groups())
        self.assertEqual((done + rest, first), (200, done))
        self.assertEqual(len(os.listdir(self.out)), done)
        self.assert_whole_files()

    def scratch_folders(self):
        return set(pathlib.Path(EMULATOR[-1]).glob("drive_c/users/*/Temp/zorbi2-*"))

    def test_what_a_killed_run_left_is_removed_by_the_next(self):
        before = self.scratch_folders()
        with self.start(stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL):
            self.wait_for(lambda: len(os.listdir(self.out)) > 3)
            left = self.scratch_folders() - before  # of this run, and of others that end soon
            self.assertNotEqual(left, set())
            os.kill(self.process_number(), signal.SIGKILL)
        self.assert_whole_files()
        # The system may close the files of a killed process later: then it is the next but one.
        # Where no file changes, nothing is looked for.
        solvers = itertools.cycle(["MARC", "ANSYS"])
        self.wait_for(lambda: self.run_program("write", "r0.toml", "--out", "out", "--solver",
                                               next(solvers)).returncode == 0
                      and not left & self.scratch_folders()
                      and all(name.endswith(".cmi") for name in os.listdir(self.out)))


if __name__ == "__main__":
    unittest.main()

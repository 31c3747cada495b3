"""Completion: what the program says can stand next, and what each shell makes of it."""

import os
import re
import select
import shutil
import subprocess
import time
import unittest

from program import EMULATOR, ON_WINDOWS, PROGRAM, ROOT, ProgramTest

if os.name == "posix":
    import pty

SCRIPTS = ROOT / "host" / "completion"


class Words(ProgramTest):
    def complete(self, *words):
        done = self.run_program("complete", *words)
        self.check(done, 0)
        return done.stdout.splitlines()

    def options(self, command):
        """Long option to its placeholder, or to None for a flag."""
        text = self.run_program(command, "--help").stdout
        return {name: value or None for name, value in
                re.findall(r"^  (?:-\w, ?)?(--[a-z-]+)(?: +([A-Z][A-Z=]*)(?![a-z]))?", text, flags=re.M)}

    def test_commands(self):
        self.assertEqual(self.complete(""), sorted(self.commands()))
        self.assertEqual(self.complete(), sorted(self.commands()))
        self.assertEqual(self.complete("wr"), ["write"])
        self.assertEqual(self.complete("x"), [])
        self.assertEqual(self.complete("--quiet", "wr"), ["write"])
        self.assertEqual(self.complete("=", "wr"), ["write"])

    def test_flags_are_those_of_the_help(self):
        general = set(self.options("--quiet"))
        self.assertIn("--json", general)
        self.assertEqual(set(self.complete("-")), general)
        for command in self.commands():
            own = set(self.options(command))
            self.assertIn("--help", own)
            self.assertEqual(set(self.complete(command, "--")), own | general)
        self.assertEqual(self.complete("items", "--so"), ["--solver", "--solvers"])

    def test_every_option_with_a_value_has_values(self):
        for command in self.commands():
            for name, placeholder in self.options(command).items():
                if placeholder and placeholder not in ("NAME", "NUMBER"):
                    self.assertTrue(self.complete(command, name, ""), f"{command} {name}")

    def test_where_nothing_can_be_named(self):
        for words in (("init", "--name", ""), ("init", "--run", ""), ("schema", "")):
            self.assertEqual(self.complete(*words), [], words)

    def test_values_are_names_that_the_program_knows(self):
        self.make_run()
        self.make_recipe()
        for option, number in (("--solver", 9), ("--mesh", 4)):
            values = self.complete("items", option, "")
            self.assertEqual(len(values), number)
            for value in values:  # not each is offered for the project
                done = self.run_program("items", "cover.toml", option, value)
                self.assertIn(done.returncode, (0, 1), done.stderr)
        matrix = self.run_program("items", "cover.toml", "--matrix").stdout
        names = re.findall(r"^ *\d+ ([a-z-]+) ", matrix, flags=re.M)
        self.assertEqual(self.complete("write", "--set", ""), sorted(n + "=" for n in names))

    def test_values_behind_an_equals_sign(self):
        self.assertEqual(self.complete("items", "--mesh=m"), ["--mesh=mapped"])
        self.assertEqual(self.complete("items", "--mesh", "=", "m"), ["mapped"])
        self.assertEqual(self.complete("items", "--mesh", "="), self.complete("items", "--mesh", ""))
        for words in (["density", "="], ["density", "=", "o"], ["density=o"]):
            self.assertEqual(self.complete("write", "--set", *words), [])

    def test_kinds_of_files(self):
        for words, kind in ((["write", ""], ":recipes"), (["items", "c"], ":recipes"),
                            (["init", ""], ":folders"), (["check", ""], ":files"),
                            (["report", ""], ":files"), (["report", "--out", ""], ":folders"),
                            (["write", "--out", ""], ":folders"), (["init", "-o", ""], ":files"),
                            (["write", "a.toml", "b"], ":recipes")):
            self.assertEqual(self.complete(*words), [kind], words)


@unittest.skipIf(ON_WINDOWS or EMULATOR, "these shells are POSIX's")
class Shells(ProgramTest):
    def setUp(self):
        super().setUp()
        (self.folder / "bin").mkdir()
        (self.folder / "bin" / "zorbi2").symlink_to(PROGRAM)
        self.make_recipe(name="my cover.toml")
        self.make_recipe("", "my notes.txt")
        (self.folder / "runs").mkdir()
        self.environment = {**os.environ, "HOME": str(self.folder), "TERM": "xterm",
                            "PATH": f"{self.folder / 'bin'}:{os.environ['PATH']}"}

    def typed(self, shell, setup, keys, wanted):
        """Types keys into a shell on a terminal until the wanted text is on the screen."""
        process, terminal = pty.fork()
        if process == 0:
            os.chdir(self.folder)
            os.execvpe(shell[0], shell, self.environment)
        self.addCleanup(os.close, terminal)
        screen = ""
        end = time.monotonic() + 20
        waiting = [(setup + "\necho re''ady\n", "ready"), (keys, wanted)]
        while waiting and time.monotonic() < end:
            text, answer = waiting[0]
            if text:
                screen = ""
                os.write(terminal, text.encode())
                waiting[0] = ("", answer)
            if select.select([terminal], [], [], 0.1)[0]:
                screen += os.read(terminal, 65536).decode(errors="replace")
            if answer in screen:
                waiting.pop(0)
        os.kill(process, 9)
        os.waitpid(process, 0)
        self.assertFalse(waiting, f"{wanted!r} is not in {screen!r}")

    def test_bash(self):
        script = SCRIPTS / "zorbi2.bash"
        for words, expected in ((["it"], ["items"]), (["items", "--solver", "AN"], ["ANSYS"]),
                                (["items", "--mesh", "=", "m"], ["mapped"]),
                                (["write", "--set", "weld"], ["weld-line="]),
                                (["write", "my"], ["my cover.toml"]), (["init", ""], ["bin", "runs"]),
                                (["check", "my"], ["my cover.toml", "my notes.txt"])):
            text = (f"compopt() {{ :; }}; source '{script}'; COMP_WORDS=(zorbi2 \"$@\"); "
                    "COMP_CWORD=$#; _zorbi2; printf '%s\\n' \"${COMPREPLY[@]}\"")
            done = subprocess.run(["bash", "-c", text, "bash", *words], cwd=self.folder,
                                  env=self.environment, capture_output=True, text=True, check=True)
            self.assertEqual((sorted(done.stdout.splitlines()), done.stderr), (expected, ""))
        shell = ["bash", "--norc", "--noprofile", "-i"]
        self.typed(shell, f"source '{script}'", "zorbi2 wri\tmy\t", "zorbi2 write my\\ cover.toml ")
        self.typed(shell, f"source '{script}'", "zorbi2 write --set weld\ton", "weld-line=on")

    @unittest.skipUnless(shutil.which("zsh"), "zsh is not installed")
    def test_zsh(self):
        setup = f"fpath=({SCRIPTS} $fpath); autoload -U compinit; compinit -u -D"
        shell = ["zsh", "-f", "-i"]
        self.typed(shell, setup, "zorbi2 wri\tmy\t", "my\\ cover.toml")
        self.typed(shell, setup, "zorbi2 items --solver AN\tx", "ANSYS")
        self.typed(shell, setup, "zorbi2 write --set weld\ton", "ld-line=on")
        self.typed(shell, setup, "zorbi2 init ru\t", "runs")

    @unittest.skipUnless(shutil.which("fish"), "fish is not installed")
    def test_fish(self):
        for line, expected in (("zorbi2 it", ["items"]), ("zorbi2 items --solver AN", ["ANSYS"]),
                               ("zorbi2 items --mesh=m", ["--mesh=mapped"]),
                               ("zorbi2 write --set weld", ["weld-line="]),
                               ("zorbi2 init ru", ["runs/"])):
            done = subprocess.run(
                ["fish", "--no-config", "-c", f"source '{SCRIPTS / 'zorbi2.fish'}'; "
                 f"complete -C '{line}'"], cwd=self.folder, env=self.environment,
                capture_output=True, text=True, check=False)
            self.assertEqual(([one.split("\t")[0] for one in done.stdout.splitlines()],
                              done.stderr), (expected, ""), line)
        done = subprocess.run(
            ["fish", "--no-config", "-c", f"source '{SCRIPTS / 'zorbi2.fish'}'; "
             "complete -C 'zorbi2 write my'"], cwd=self.folder, env=self.environment,
            capture_output=True, text=True, check=False)
        self.assertEqual(done.stdout.splitlines()[0], "my cover.toml")  # fish shows others behind


if __name__ == "__main__":
    unittest.main()

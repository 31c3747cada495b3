"""Command lines, good and bad; help, version, exit codes and the streams they go to."""

import re
import unittest

from program import EXPECTED, ROOT, ProgramTest

BAD = [
    # arguments, the first line on standard error, the command whose help is named
    ([], "a command is required: init, items, write, check, report or schema", ""),
    (["wirte"], "unexpected: wirte; closest matches: "
     "write, init, items", ""),
    (["--wrong"], "unexpected: --wrong; closest matches: "
     "--json, --trace, --help", ""),
    (["write"], "RECIPE is required", "write "),
    (["write", "a.toml", "--dryrun"],
     "unexpected: --dryrun; "
     "closest matches: --dry-run, --json, --trace", "write "),
    (["write", "--dryrun"],
     "RECIPE is required; unknown option --dryrun; closest matches: --dry-run, --json, --trace",
     "write "),
    (["write", "a.toml", "--out", ""], "argument 4 is empty, perhaps from an unset variable", ""),
    ([""], "argument 1 is empty, perhaps from an unset variable", ""),
    (["itmes", "a.toml"],
     "unexpected: itmes a.toml; "
     "closest matches: items, init, write", ""),
    (["write", "a.toml", "--solver"], "--solver: 1 required S missing", "write "),
    (["write", "a.toml", "--mesh"], "--mesh: 1 required M missing", "write "),
    (["write", "a.toml", "--set"], "--set: 1 required ITEM=CHOICE missing", "write "),
    (["write", "a.toml", "--out"], "--out: 1 required FOLDER missing", "write "),
    (["write", "a.toml", "--matrix"], "unexpected: --matrix; "
     "closest matches: --strict, --trace, --mesh", "write "),
    (["items"], "RECIPE is required", "items "),
    (["items", "a.toml", "b.toml"], "RECIPE: At Most 1 required but received 2", "items "),
    (["items", "a.toml", "--matrix", "--solvers"], "--matrix excludes --solvers", "items "),
    (["items", "a.toml", "--dry-run"], "unexpected: --dry-run; "
     "closest matches: --json, --trace, --version", "items "),
    (["init"], "RUN_FOLDER is required", "init "),
    (["init", "a", "b"], "unexpected: b", "init "),
    (["init", "a", "\033[2J"], "unexpected: \\x1b[2J", "init "),
    (["init", "a", "-o"], "--output: 1 required FILE missing", "init "),
    (["check"], "FILE is required", "check "),
    (["check", "a.cmi", "--out", "x"], "unexpected: --out; "
     "closest matches: --quiet, --help, --json", "check "),
]


class CommandLine(ProgramTest):
    def test_a_wrong_command_line_is_answered_with_its_cure(self):
        for arguments, message, command in BAD:
            with self.subTest(arguments):
                done = self.run_program(*arguments)
                self.check(done, 2, "", f"zorbi2: {message}\n"
                           f"for usage, run zorbi2 {command}--help\n")

    def test_help_is_a_word_too(self):
        for words in ([], ["write"]):
            self.check(self.run_program("help", *words), 0,
                       self.run_program(*words, "--help").stdout)

    def test_help_goes_to_standard_output_and_has_an_example(self):
        self.assertIn("write", self.commands())
        for command in ([], *([name] for name in self.commands())):
            for option in ("--help", "-h"):
                done = self.run_program(*command, option)
                self.check(done, 0)
                self.assertIn("Example", done.stdout)
                self.assertIn("zorbi2 " + (command[0] if command else "init"), done.stdout)

    def test_help_of_the_program_and_of_each_command(self):
        screens = [self.run_program(*command, "--help").stdout
                   for command in ([], *([name] for name in self.commands()))]
        # Flags that exclude one are listed in any order.
        text = re.sub("(?<=Excludes: )--[a-z-]+(?: --[a-z-]+)*",
                      lambda flags: " ".join(sorted(flags[0].split())), "\n".join(screens))
        self.assertEqual(text, (EXPECTED / "help.txt").read_text(encoding="utf-8"))

    def test_no_line_of_help_is_too_long_for_a_terminal(self):
        for command in ([], *([name] for name in self.commands())):
            for line in self.run_program(*command, "--help").stdout.splitlines():
                self.assertLessEqual(len(line), 80, line)

    def test_the_version_is_the_projects(self):
        version = (ROOT / "VERSION").read_text().strip()
        self.check(self.run_program("--version"), 0, f"zorbi2 {version}\n")

    def test_general_options_stand_before_or_behind_the_command(self):
        self.make_run()
        self.make_recipe()
        for arguments in (["--json", "write", "cover.toml"], ["write", "--json", "cover.toml"],
                          ["write", "cover.toml", "--json"]):
            self.assertTrue(self.run_program(*arguments).stdout.startswith('{\n  "version": 1'))

    def test_a_recipe_may_follow_a_choice(self):
        self.make_run()
        self.make_recipe()
        done = self.run_program("write", "--set", "thermal-stress=on", "cover.toml", "--set",
                                "flow-stress=on", "--dry-run")
        self.check(done, 0)
        self.assertIn("IsThermalResidualstressOutput = 1", done.stdout)
        self.assertIn("IsFlowResidualstressOutput =    1", done.stdout)


if __name__ == "__main__":
    unittest.main()

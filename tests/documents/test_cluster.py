"""The scripts for clusters do what docs/cluster.md shows, here without a scheduler."""

import os
import pathlib
import shutil
import subprocess
import unittest

from document import ROOT, indented_blocks, text_of, transcript
from program import PROGRAM, ProgramTest

SCRIPTS = sorted((ROOT / "examples" / "cluster").iterdir())
DOCUMENT = text_of("docs/cluster.md")
SHOWN = dict(transcript(DOCUMENT))
ENDINGS = [".k5f", ".k5p", ".k5c", ".k5w", ".rsf", ".o2w"]


class Cluster(ProgramTest):
    def setUp(self):
        super().setUp()
        for run in ("02", "03", "04", "05", "06"):
            self.make_run(f"Cover{run}", f"runs/Run{run}", ENDINGS)
        (self.folder / "runs/Run05/Cover05.k5w").unlink()
        (self.folder / "handover").mkdir()
        for script in SCRIPTS:
            shutil.copy(script, self.folder)

    def shell(self, command, code=0, **variables):
        """What a command prints, on both streams, as if the folder were that of the document."""
        path = f"{pathlib.Path(PROGRAM).parent}:{os.environ['PATH']}"
        done = subprocess.run(["bash", "-c", command], cwd=self.folder, check=False, text=True,
                              env={**os.environ, "PATH": path, **variables},
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.assertEqual(done.returncode, code, done.stdout)
        return done.stdout.replace(str(self.folder), "/srv/cover")

    def submitted(self, start):
        """The command behind "sbatch" and its options, of the command that starts so."""
        command, = (text for text in SHOWN if text.startswith(start))
        return command[command.index("handover-array" if "--array" in start else "simulate.sbatch"):]

    def test_scripts_are_right(self):
        self.assertEqual([script.name for script in SCRIPTS],
                         ["handover-array.sbatch", "simulate.sbatch"])
        for script in SCRIPTS:
            self.assertEqual(self.shell(f"bash -n {script.name}"), "")
            if shutil.which("shellcheck"):
                self.assertEqual(self.shell(f"shellcheck {script.name}"), "")

    def test_a_simulation_is_handed_over(self):
        (self.folder / "simulate-cover").write_text('#!/bin/bash\necho "simulated $1"\n')
        (self.folder / "simulate-cover").chmod(0o755)
        self.shell("zorbi2 init runs/Run02 -o runs/Run02/handover.toml")
        printed = self.shell("bash " + self.submitted("sbatch --wait simulate.sbatch"))
        self.assertEqual(printed, SHOWN["cat mold-6.log"])

    def test_a_simulation_that_fails_is_not_handed_over(self):
        self.shell("zorbi2 init runs/Run02 -o runs/Run02/handover.toml")
        self.assertEqual(self.shell("bash simulate.sbatch runs/Run02/handover.toml false", 1), "")
        self.assertFalse((self.folder / "runs/Run02/Cover02.cmi").exists())

    def test_an_array_hands_over_every_run(self):
        first, = (text for text in SHOWN if text.endswith("> runs.txt"))
        self.shell(first)
        task = "bash " + self.submitted("sbatch --wait --array=1-")
        codes = {"1": 0, "2": 0, "3": 0, "4": 1, "5": 0}
        printed = "".join(self.shell(task, code, SLURM_ARRAY_TASK_ID=index)
                          for index, code in codes.items())
        self.assertEqual(printed, SHOWN["cat handover-1_*.log"])
        (self.folder / "runs/Run05/Cover05.k5w").touch()
        again = "bash " + self.submitted("sbatch --wait --array=4")
        self.assertEqual(self.shell(again, SLURM_ARRAY_TASK_ID="4"), SHOWN["cat handover-7_4.log"])

    def block(self, start):
        found, = (block for block in indented_blocks(DOCUMENT) if block.startswith(start))
        return found

    def make_recipes(self):
        for run in ("02", "03", "04", "05", "06"):
            self.shell(f"zorbi2 init runs/Run{run} -o runs/Run{run}/handover.toml")

    def control_files(self):
        return sorted(path.name for path in (self.folder / "handover").iterdir())

    def test_make_hands_over(self):
        self.make_recipes()
        rule, _, call = self.block("handover/Cover%").partition("\n\n")
        (self.folder / "Makefile").write_text(rule + "\n")
        self.shell(call)
        self.assertEqual(self.control_files(),
                         ["Cover02.cmi", "Cover03.cmi", "Cover04.cmi", "Cover06.cmi"])
        self.assertIn("up to date", self.shell(call))

    def test_xargs_hands_over(self):
        self.make_recipes()
        call = self.block("ls runs/*/handover.toml | xargs")
        self.shell(call)
        self.assertEqual(len(self.control_files()), 5)
        (self.folder / "runs/Run05/Cover05.k5f").unlink()
        for path in (self.folder / "runs/Run05").glob("Cover05.*"):
            path.unlink()
        self.shell(call, 123)

    def test_one_call_hands_over(self):
        self.make_recipes()
        self.shell("zorbi2 write runs/*/handover.toml --out handover")
        self.assertIn("`zorbi2 write runs/*/handover.toml --out handover`", DOCUMENT)
        self.assertEqual(len(self.control_files()), 5)


if __name__ == "__main__":
    unittest.main()

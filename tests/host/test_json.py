"""JSON documents: one on standard output for every command, in the shapes of docs/json.md."""

import json
import unittest

from program import (EXAMPLE, EXPECTED, ON_WINDOWS, PROJECT, ROOT, TARGET, ProgramTest,
                     copy_example, own_path)


class JsonDocuments(ProgramTest):
    def setUp(self):
        super().setUp()
        copy_example(self.folder)

    def document(self, *arguments, code=0):
        done = self.run_program(*arguments, "--json")
        self.check(done, code)
        document = json.loads(done.stdout)
        self.assertEqual((document["version"], document["command"]), (1, arguments[0]))
        return document

    def assert_like(self, document, name):
        text = json.dumps(document, indent=2, ensure_ascii=False) + "\n"
        folder = json.dumps(own_path(self.folder))[1:-1]
        self.assertEqual(text.replace(folder, "FOLDER").replace("FOLDER\\\\", "FOLDER/"),
                         (EXPECTED / name).read_text(encoding="utf-8"))

    def test_the_dialog(self):
        self.assert_like(self.document("items", "cover.toml"), "items_cover.json")

    def test_the_solvers(self):
        self.assert_like(self.document("items", "cover.toml", "--solvers"), "solvers.json")

    def test_the_matrix(self):
        matrix = self.document("items", "cover.toml", "--matrix")["matrix"]
        solvers = self.document("items", "cover.toml", "--solvers")["solvers"]
        self.assertEqual([(column["solver"], column["mesh"]) for column in matrix],
                         [(solver["name"], label.lower().replace(" ", "-"))
                          for solver in solvers for label in solver["meshKinds"]])
        column = next(column for column in matrix
                      if (column["solver"], column["mesh"]) == ("LS-Dyna", "deformed"))
        offered = ("fiber-orientation", "runner", "digimat-export", "density", "weld-line",
                   "micro-mechanics", "digimat-weldline", "digimat-fiber", "digimat-stress",
                   "digimat-temperature")
        self.assertEqual(column["available"], {name: True for name in offered})

    def test_missing_results_carry_their_reason(self):
        recipe = self.make_recipe(PROJECT + TARGET, "bare.toml")
        items = self.document("items", recipe)["items"]
        runner = next(item for item in items if item["name"] == "runner")
        self.assertEqual(runner, {
            "id": 1, "name": "runner", "group": "Part", "title": "Runner output",
            "description": "Add runner mesh output in the part section.", "available": False,
            "reason": "No runners"})

    def test_a_written_file(self):
        self.assert_like(self.document("write", "cover.toml"), "write_cover.json")
        self.assertIn("Cover02.cmi", self.files())

    def test_a_dry_run_carries_the_text(self):
        entry = self.document("write", "cover.toml", "--dry-run")["recipes"][0]
        self.assertEqual(entry["status"], "shown")
        expected = (EXAMPLE / "expected" / "Cover02.cmi").read_text(encoding="utf-8")
        self.assertEqual(entry["text"].replace("\r\n", "\n"), expected)

    def test_failures_carry_their_places(self):
        self.make_recipe(PROJECT + TARGET + "[choices]\nrunner = 1\nfoo = 1\n", "bad.toml")
        document = self.document("write", "cover.toml", "bad.toml", "none.toml", code=3)
        self.assertEqual([entry["status"] for entry in document["recipes"]],
                         ["written", "failed", "failed"])
        problems = [{"file": "bad.toml", "line": 10, "column": 10, "severity": "error",
                     "exitCode": 1, "message": "choices.runner: results missing: No runners"},
                    {"file": "bad.toml", "line": 11, "column": 1, "severity": "error", "exitCode": 2,
                     "message": 'choices: unknown item "foo"; closest matches: runner, density, '
                                "flow-stress"},
                    {"file": "none.toml", "line": 0, "column": 0, "severity": "error",
                     "exitCode": 3, "message": "cannot be read: No such file or directory"}]
        self.assertEqual(document["problems"], problems)
        self.assertEqual(document["recipes"][1]["problems"], problems[:2])

    def test_a_recipe_that_cannot_be_shown(self):
        document = self.document("items", "none.toml", code=3)
        self.assertEqual(document, {"version": 1, "command": "items", "problems": [
            {"file": "none.toml", "line": 0, "column": 0, "severity": "error",
             "exitCode": 3, "message": "cannot be read: No such file or directory"}]})

    def test_a_new_recipe(self):
        self.assert_like(self.document("init", "Run02"), "init_cover.json")

    def test_a_check(self):
        document = self.document("check", "expected/Cover02.cmi")
        self.assertEqual([entry["ok"] for entry in document["files"]], [True])

    @unittest.skipIf(ON_WINDOWS, "Windows has no such file names")
    def test_bytes_that_are_no_text_do_no_harm(self):
        document = self.document("write", b"n\xff.toml".decode("utf-8", "surrogateescape"), code=3)
        self.assertEqual(document["recipes"][0]["recipe"], "n\ufffd.toml")
        self.assertEqual(document["problems"][0]["file"], "n\ufffd.toml")
        text = (ROOT / "docs" / "json.md").read_text(encoding="utf-8")
        self.assertIn("U+FFFD", text)


if __name__ == "__main__":
    unittest.main()

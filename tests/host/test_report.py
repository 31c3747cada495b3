"""The page that shows recipes and control files, and the data behind it."""

import base64
import hashlib
import html
import json
import os
import re
import shutil
import signal
import subprocess
import time
import unittest

from program import (EXAMPLE, EXPECTED, ON_WINDOWS, PROGRAM, PROJECT, ROOT, TARGET, ProgramTest,
                     own_path)

TEMPLATES = ROOT / "host" / "commands" / "report"


class Report(ProgramTest):
    def setUp(self):
        super().setUp()
        self.make_run()
        self.make_recipe()
        self.page = self.folder / "page.html"

    def report(self, *files, code=0, stderr=""):
        """Makes the page, and gives back its text."""
        done = self.run_program("report", *files, "-o", "page.html")
        self.check(done, code, stderr=stderr)
        return self.page.read_text(encoding="utf-8")

    def data(self, *files, code=0):
        done = self.run_program("report", *files, "--json")
        self.check(done, code)
        return json.loads(done.stdout)

    @unittest.skipIf(ON_WINDOWS, "modes are POSIX's")
    def test_a_recipe_that_may_not_be_read_is_an_entry(self):
        self.make_recipe(name="secret.toml")
        (self.folder / "secret.toml").chmod(0)
        self.as_another_user()
        done = self.run_program("report", "cover.toml", "secret.toml", "-o", "page.html",
                                **self.as_nobody())
        self.check(done, 3, None, "secret.toml: cannot be read: Permission denied\n")
        self.assertIn("secret.toml", self.page.read_text(encoding="utf-8"))

    @unittest.skipIf(ON_WINDOWS, "signals are POSIX's")
    def test_a_file_that_comes_meanwhile_stays(self):
        self.run_program("write", "cover.toml")
        scratch = self.folder / "scratch"
        scratch.mkdir()
        with subprocess.Popen([PROGRAM, "report", *["Cover02.cmi"] * 2000, "-o", "page.html"],
                              cwd=self.folder, env={**os.environ, "TMPDIR": str(scratch)},
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True) as process:
            while not os.listdir(scratch):
                self.assertIsNone(process.poll())
            time.sleep(0.15)  # it has looked at the place, and reads the files now
            process.send_signal(signal.SIGSTOP)
            self.page.write_text("mine", encoding="utf-8")
            process.send_signal(signal.SIGCONT)
            stdout, stderr = process.communicate()
        self.assertEqual((process.returncode, stdout, stderr),
                         (3, "", "page.html: is not a report; use --force to replace it\n"))
        self.assertEqual(self.page.read_text(encoding="utf-8"), "mine")

    # ---- The data -------------------------------------------------------------------------------

    def test_an_entry_has_what_the_other_commands_show(self):
        self.run_program("write", "cover.toml")
        self.make_recipe(PROJECT + TARGET.replace("original", "deformed"))
        entry = self.data("cover.toml")["entries"][0]
        shown = [(("items", "cover.toml"), ("project", "run", "folder", "solver", "mesh", "items")),
                 (("items", "cover.toml", "--matrix"), ("matrix",))]
        for words, keys in shown:
            document = json.loads(self.run_program(*words, "--json").stdout)
            for key in keys:
                self.assertEqual(entry[key], document[key], key)
        for flag, key in (("--diff", "diff"), ("--diff", "change"), ("--dry-run", "text")):
            document = json.loads(self.run_program("write", "cover.toml", flag, "--json").stdout)
            self.assertEqual(entry[key], document["recipes"][0][key], key)
        self.run_program("write", "cover.toml")
        check = json.loads(self.run_program("check", "Cover02.cmi", "--json").stdout)
        self.assertEqual(entry["asks"], check["files"][0]["asks"])

    def test_the_state_of_each_item(self):
        states = self.data("cover.toml")["entries"][0]["states"]
        self.assertEqual(len(states), 22)
        self.assertEqual([states[name] for name in ("fiber-orientation", "runner", "density",
                                                    "annealing-stress", "thermal-stress",
                                                    "micro-mechanics")],
                         ["on", "missing", "off", "not offered", "off", "on"])

    def test_what_others_would_have(self):
        self.make_recipe(PROJECT + TARGET.replace("ANSYS", "NE-Nastran"))
        elsewhere = {item["name"]: item["places"]
                     for item in self.data("cover.toml")["entries"][0]["elsewhere"]}
        self.assertEqual(elsewhere["flow-stress"][0],
                         {"solver": "ANSYS", "meshes": ["original", "mapped"]})
        self.assertNotIn("fiber-orientation", elsewhere)  # is here
        self.assertNotIn("annealing-stress", elsewhere)   # is nowhere

    def test_weld_lines(self):
        self.make_recipe(PROJECT + TARGET + "[weld_lines]\nangles = [10, 20.5, 170]\n"
                         "reduction_rates = [0.125, 0.5, 1]\ndigimat_angle = 90\n")
        self.assertEqual(self.data("cover.toml")["entries"][0]["weldLines"], {
            "ranges": [{"from": 0, "to": 10, "rate": 0.125}, {"from": 10, "to": 20.5, "rate": 0.5},
                       {"from": 20.5, "to": 170, "rate": 1}],
            "digimatAngle": 90})

    def test_the_summary(self):
        self.make_run("Lid03", files=[".k5f"])
        self.make_recipe(PROJECT.replace("Cover", "Lid").replace("run = 2", "run = 3") + TARGET,
                         "lid.toml")
        self.make_recipe("[project]\n", "bad.toml")
        self.run_program("write", "cover.toml")
        document = self.data("cover.toml", "lid.toml", "bad.toml", "Cover02.cmi", code=2)
        summary = document["summary"]
        counts = {key: value for key, value in summary.items() if key != "missing"}
        self.assertEqual(counts, {"entries": 4, "failed": 1, "warned": 0, "new": 1, "changed": 0,
                                  "unchanged": 1, "read": 1})
        most = {item["name"]: item for item in summary["missing"]}
        self.assertEqual(most["runner"], {"name": "runner", "count": 2,
                                          "reasons": [{"reason": "No runners", "count": 2}]})
        self.assertEqual(most["packing-temperature"]["count"], 1)
        numbers = [item["count"] for item in summary["missing"]]
        self.assertEqual(numbers, sorted(numbers, reverse=True))
        self.assertEqual([entry["status"] for entry in document["entries"]],
                         ["compared", "compared", "failed", "read"])

    def test_a_recipe_that_fails_still_shows_what_is_offered(self):
        self.make_recipe(PROJECT + TARGET + "[choices]\nrunner = 1\n")
        entry = self.data("cover.toml", code=1)["entries"][0]
        self.assertEqual(entry["status"], "failed")
        self.assertEqual(entry["states"]["runner"], "missing")
        self.assertEqual(entry["problems"][0]["line"], 10)
        self.assertNotIn("text", entry)

    def test_a_recipe_without_its_run_still_tells_its_target(self):
        self.make_recipe(PROJECT.replace("Run02", "none") + TARGET)
        entry = self.data("cover.toml", code=3)["entries"][0]
        self.assertEqual({key: entry[key] for key in ("project", "run", "folder", "solver", "mesh")},
                         {"project": "Cover", "run": 2, "folder": own_path(self.folder / "none"),
                          "solver": "ANSYS", "mesh": "original"})

    def test_a_recipe_from_standard_input_whatever_file_has_that_name(self):
        shutil.copy(EXAMPLE / "expected" / "Cover02.cmi", self.folder / "-")
        done = self.run_program("report", "-", "--json", input=(PROJECT + TARGET).encode())
        self.check(done, 0)
        entry = json.loads(done.stdout)["entries"][0]
        self.assertEqual((entry["recipe"], entry["status"], entry["change"]),
                         ("-", "compared", "new"))

    def test_a_control_file_tells_what_it_can(self):
        shutil.copy(EXAMPLE / "expected" / "Cover02.cmi", self.folder / "mail.txt")
        entry = self.data("mail.txt")["entries"][0]
        self.assertEqual((entry["file"], entry["status"], entry["solver"], entry["mesh"]),
                         ("mail.txt", "read", "ANSYS", "original"))
        self.assertEqual(entry["states"]["thermal-stress"], "on")
        self.assertEqual(entry["states"]["annealing-stress"], "not offered")
        self.assertNotIn("change", entry)
        items = {item["name"]: item for item in entry["items"]}
        self.assertNotIn("annealing-stress", items)
        self.assertEqual((items["runner"]["available"], items["runner"]["on"]), (True, True))
        self.assertEqual(items["digimat-stress"]["on"], False)
        self.assertEqual(items["micro-mechanics"], {
            "id": 15, "name": "micro-mechanics", "title": "Mirco mechanics model",
            "description": "", "available": True, "model": "Mori-Tanaka"})

    def test_a_faulty_control_file_is_shown_with_its_faults(self):
        (self.folder / "bad.cmi").write_text("Something else\n")
        entry = self.data("bad.cmi", code=1)["entries"][0]
        self.assertEqual((entry["status"], entry["asks"]), ("failed", None))
        self.assertEqual(entry["problems"][0]["line"], 1)
        self.assertIn("Something else", self.report("bad.cmi", code=1, stderr=None))

    def test_a_control_file_that_is_not_there(self):
        for strictness in ((), ("--strict",)):
            done = self.run_program("report", "none.cmi", "--json", *strictness)
            self.assertEqual(done.returncode, 3)
            entry = json.loads(done.stdout)["entries"][0]
            self.assertEqual((entry["status"], entry["asks"]), ("failed", None))
            self.assertIn("none.cmi", entry["problems"][0]["file"])

    # ---- The page -------------------------------------------------------------------------------

    def assert_like(self, page, name):
        """Compares with a committed file what readers see, without style and script."""
        text = re.search("<main>.*</footer>\n", page, re.S)[0]
        text = text.replace(own_path(self.folder), "FOLDER").replace("FOLDER\\", "FOLDER/")
        self.assertEqual(re.sub(r"zorbi2 \d+\.\d+\.\d+", "zorbi2 VERSION", text),
                         (EXPECTED / name).read_text(encoding="utf-8"))

    def test_the_page_of_one_recipe(self):
        self.run_program("write", "cover.toml")
        self.make_recipe(PROJECT + TARGET + "[choices]\nthermal-stress = true\n[weld_lines]\n"
                         "angles = [10, 20.5, 170]\nreduction_rates = [0.125, 0.5, 1]\n")
        self.assert_like(self.report("cover.toml"), "report_one.html")

    def test_the_page_of_several(self):
        """What the page of one recipe shows just so is left out."""
        self.make_run("Lid03", files=[".k5f"])
        self.make_recipe(PROJECT.replace("Cover", "Lid").replace("run = 2", "run = 3") +
                         TARGET.replace("ANSYS", "LSDYNA").replace("original", "deformed") +
                         '[output]\nfolder = "none"\n', "new.toml")
        self.make_recipe(PROJECT + TARGET + '[control_file]\nname = "Other"\n'
                         "[choices]\nrunner = 1\n", "refused.toml")
        self.make_recipe("[project]\n", "bad.toml")
        self.run_program("write", "cover.toml")
        text = (self.folder / "Cover02.cmi").read_bytes()
        for name, old, new in (("missing.cmi", b"IDCompositeModel = 2", b"IDCompositeModel = -2"),
                               ("faulty.cmi", b"SegmentY = 80", b"SegmentY = 101")):
            (self.folder / name).write_bytes(text.replace(old, new))
        page = self.report("cover.toml", "bad.toml", "new.toml", "Cover02.cmi", "refused.toml",
                           "missing.cmi", "faulty.cmi", code=2, stderr=None)
        for element in ("table", "grid"), ("ol", "text"), ("dl", "meanings"), ("div", "weld"):
            page = re.sub('<{} class="{}">.*?</{}>'.format(*element, element[0]),
                          "({})".format(element[1]), page, flags=re.S)
        self.assert_like(page, "report_several.html")

    def test_nothing_but_the_page_is_written(self):
        before = self.files()
        page = self.report("cover.toml")
        self.assertEqual(self.files(), sorted([*before, "page.html"]))
        self.assertIn("Cover", page)
        self.assertNotIn("{{", page)

    def test_the_same_recipes_give_the_same_page(self):
        self.assertEqual(self.report("cover.toml"), self.report("cover.toml"))

    def test_failures_are_rows_on_top_and_stop_no_other(self):
        self.make_recipe("[project]\n", "bad.toml")
        page = self.report("cover.toml", "bad.toml", "none.toml", code=3, stderr=None)
        names = re.findall(r'<th scope="row"><a href="#e\d+"><bdi>([^<]+)</bdi>', page)
        self.assertEqual(names, ["bad.toml", "none.toml", "cover.toml"])

    def test_texts_are_escaped(self):
        self.make_recipe(PROJECT + TARGET + "[output]\nfolder = 'X:\\<script>\"&'\n")
        page = self.report("cover.toml")
        self.assertIn("X:\\&lt;script&gt;&quot;&amp;", page)
        self.assertEqual(page.count("<script>"), 1)

    @unittest.skipIf(ON_WINDOWS, "Windows has no such file names")
    def test_bytes_that_are_no_text_do_no_harm(self):
        os.rename(self.folder / "cover.toml", os.fsencode(self.folder) + b"/n\xff.toml")
        page = self.report(b"n\xff.toml".decode("utf-8", "surrogateescape"))
        self.assertIn("n\ufffd.toml", page)

    def test_every_line_of_a_control_file_is_explained(self):
        page = self.report("cover.toml")
        text = re.search(r'<ol class="text">(.*?)</ol>', page, re.S)[1]
        numbers = re.findall(r'<li><a href="#m(\d+)">', text)
        self.assertEqual(len(numbers), text.count("<li>"))
        self.assertEqual(len(set(numbers)), len(numbers))
        meanings = dict(re.findall(r'<dd id="m(\d+)">([^<]+)</dd>', page))
        self.assertLessEqual(set(numbers), set(meanings))
        lines = dict(re.findall(r'<li><a href="#m(\d+)">([^<]*)</a>', text))
        at = {html.unescape(line).split("=")[0].strip(): number for number, line in lines.items()}
        self.assertIn("Folder", meanings[at["OutFolder"]])
        self.assertIn("Runner output", meanings[at["IsRunnerOutput"]])
        self.assertIn("third", meanings[at["ReductionRate3"]])

    def test_the_page_tells_where_an_item_is_offered(self):
        self.make_recipe(PROJECT + TARGET.replace("ANSYS", "NE-Nastran"))
        self.assertIn("<li><strong>Flow induced residual output.</strong>: "
                      "ANSYS original and mapped; ABAQUS original and mapped; ",
                      self.report("cover.toml"))

    def test_the_page_shows_what_would_change(self):
        self.assertNotIn("What would change", self.report("cover.toml"))  # there is no file yet
        self.run_program("write", "cover.toml")
        self.make_recipe(PROJECT + TARGET + "[choices]\ndensity = 3\n")
        lines = re.search(r'<pre class="difference".*?</pre>', self.report("cover.toml"), re.S)[0]
        for kind, start in (("", "--- "), ("", "+++ "), ("", "@@ "),
                            (' class="removed"', "-DensityReduction ="),
                            (' class="added"', "+DensityReduction =")):
            self.assertIn(f"<span{kind}>{start}", lines)

    def test_the_policy_names_the_style_and_the_script(self):
        page = self.report("cover.toml")
        self.assertIn("content=\"default-src 'none';", page)
        for kind in ("style", "script"):
            text = re.search(f"<{kind}>(.*?)</{kind}>", page, re.S)[1]
            digest = base64.b64encode(hashlib.sha256(text.encode()).digest()).decode()
            self.assertIn(f"{kind}-src 'sha256-{digest}'", page,
                          f"page.html must name this hash of its <{kind}>")
        self.assertNotRegex(page, r"<[a-z][^>]*\s(style|on[a-z]+)=")
        self.assertNotRegex(page, r'(src|href)="(?!#)')

    def test_templates_are_small(self):
        size = sum(path.stat().st_size for path in TEMPLATES.glob("*.html"))
        self.assertLess(size, 60000)

    # ---- Where it goes --------------------------------------------------------------------------

    def test_a_page_is_needed_unless_data_are(self):
        done = self.run_program("report", "cover.toml")
        self.check(done, 2, "", "zorbi2: -o FILE is required unless --json is given\n")

    def test_the_result_is_told(self):
        self.make_recipe("[project]\n", "bad.toml")
        done = self.run_program("report", "cover.toml", "bad.toml", "-o", "page.html")
        self.check(done, 2, f"wrote    {own_path(self.page)}\n1 shown, 1 failed\n", None)

    def test_a_report_is_replaced_and_nothing_else(self):
        self.report("cover.toml")
        self.make_recipe(PROJECT + TARGET.replace("ANSYS", "ABAQUS"))
        self.assertIn("ABAQUS: original", self.report("cover.toml"))
        self.page.write_text("<!DOCTYPE html>\n<html>mine</html>\n")
        done = self.run_program("report", "cover.toml", "-o", "page.html")
        self.check(done, 3, "", "page.html: is not a report; use --force to replace it\n")
        self.assertIn("mine", self.page.read_text())
        self.check(self.run_program("report", "cover.toml", "-o", "page.html", "--force"), 0)
        self.assertIn("ABAQUS", self.page.read_text(encoding="utf-8"))

    def test_what_the_call_reads_is_never_replaced(self):
        self.run_program("write", "cover.toml")
        for name in ("cover.toml", "Cover02.cmi"):
            before = (self.folder / name).read_bytes()
            done = self.run_program("report", "cover.toml", "Cover02.cmi", "-o", name, "--force")
            self.check(done, 3, "",
                       f"{name}: is an input of this command, so it is not replaced\n")
            self.assertEqual((self.folder / name).read_bytes(), before)

    def test_a_folder_that_is_not_there(self):
        done = self.run_program("report", "cover.toml", "-o", "none/page.html")
        self.check(done, 3, "", "none/page.html: cannot be written: its folder does not exist, and is "
                   "not created\n")

    def test_the_command_line_overrides_the_recipe(self):
        done = self.run_program("report", "cover.toml", "--solver", "MARC", "--mesh", "deformed",
                                "--set", "density=3", "--json")
        self.assertEqual(json.loads(done.stdout)["entries"][0]["solver"], "MARC")

    def test_a_failed_recipe_does_not_count_as_one_with_a_warning(self):
        self.make_recipe(PROJECT + TARGET + "[output]\nfolder = 'none'\n"
                         "[choices]\nrunner = \"on\"\n")
        summary = self.data("cover.toml", code=1)["summary"]
        self.assertEqual((summary["failed"], summary["warned"]), (1, 0))

    def test_strict_makes_failures_of_warnings(self):
        self.make_recipe(PROJECT + TARGET + "[output]\nfolder = 'none'\n")
        self.assertEqual(self.data("cover.toml")["summary"]["warned"], 1)
        done = self.run_program("report", "cover.toml", "--json", "--strict")
        self.assertEqual(json.loads(done.stdout)["summary"]["failed"], 1)


if __name__ == "__main__":
    unittest.main()

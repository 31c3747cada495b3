"""Each row of docs/results.md against the engine: every project, fact and file that it names."""

import itertools
import os
import re
import shutil
import subprocess
import unittest

from document import table_rows, text_of
from program import ProgramTest

FACTS_PROGRAM = os.environ["ZORBI2_DOCUMENT_FACTS"]
DOCUMENT = text_of("docs/results.md")
KINDS = {"solid": 0, "shell": 1, "other": 2}
PLAIN, COMPRESSION = 0, 7
NEW, OLD = "a new `.k5o`", "`.k5o`"
EARLIER = "an earlier shot and its `.k5o`"


def answers():
    """Item to the rows about it, with the columns that its first row leaves to the next ones."""
    found, items = {}, []
    for cells in table_rows(DOCUMENT, "| item | project | when |"):
        items = re.findall(r"`([\w-]+)`", cells[0]) or items
        for item in items:
            found.setdefault(item, []).append(cells[1:])
    return found


def alternatives(when):
    """A condition as a list of lists of what must hold together."""
    if when in ("always", "otherwise"):
        return [[]]
    if when == EARLIER:
        return [[EARLIER]]
    return [choice.split(" and ") for choice in when.split(", or ")]


def applies(row, kind, holds):
    if row[0] != "every" and kind not in row[0].split(", "):
        return False
    return any(all(part in holds for part in parts) for parts in alternatives(row[1]))


class Results(ProgramTest):
    def setUp(self):
        super().setUp()
        self.engine = subprocess.Popen([FACTS_PROGRAM, "results"], cwd=self.folder, text=True,
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.addCleanup(self.engine.communicate)
        self.flags = {cells[0]: cells[2].split(",")[0].removeprefix("flag ")
                      for cells in table_rows(DOCUMENT, "| in the table | in a recipe")}
        self.names = {cells[0].strip("`"): [name.strip("`") for name in cells[1:]]
                      for cells in table_rows(DOCUMENT, "| in the table | file |")}

    def ask(self, item, kind, voxel, holds, folder="Runs/Run02"):
        """The engine's code and reason."""
        folder += "\\" if kind == "other" else ""  # as the document says
        flags = [self.flags[part] for part in sorted(holds) if part in self.flags
                 and part != "compression"]
        project_type = COMPRESSION if "compression" in holds else PLAIN
        print(folder, KINDS[kind], project_type, voxel, item, *flags, file=self.engine.stdin,
              flush=True)
        code, reason = self.engine.stdout.readline().rstrip("\n").split("|")
        return int(code), reason

    def write(self, path, text=""):
        path = self.folder / path.replace("\\", "/")
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def make_files(self, holds, voxel):
        shutil.rmtree(self.folder / "Runs", ignore_errors=True)
        (self.folder / "Runs/Run02").mkdir(parents=True)
        for part in holds:
            if part == EARLIER:
                self.write("Runs/Run02/Cover02.cmx", "<SOLID_MCM>\nFlagPrevShot = 1\n"
                                                     "ValueShotRunID = 1\n</SOLID_MCM>\n")
                self.write("Runs/Run01/Cover01.k5o")
            elif part.startswith("`"):
                ending = part.strip("`")
                shown = self.names.get(ending)
                self.write("Runs/Run02/" + (shown[voxel] if shown else "Cover02" + ending))
        if NEW in holds or OLD in holds:
            self.write("Runs/Run02/Cover02.k5o", "1004\n" if NEW in holds else "1003\n")

    def situations(self, rows, kind, everything):
        """Every combination of what the rows of that kind of project name, each without all the
        rest and with it: what a row does not name must not matter."""
        parts = {part for row in rows if row[0] == "every" or kind in row[0].split(", ")
                 for choice in alternatives(row[1]) for part in choice}
        parts |= {OLD} if NEW in parts else set()
        for count in range(len(parts) + 1):
            for holds in map(set, itertools.combinations(sorted(parts), count)):
                if NEW not in holds or OLD in holds:  # the new file is a file
                    yield holds
                    yield holds | (everything - parts - ({NEW} if OLD in parts else set()))

    def test_every_row_of_the_table(self):
        ids = {cells[column + 1].strip("`"): int(cells[column])
               for cells in table_rows(text_of("docs/zorbi2.md"), "| id | short name |")
               for column in (0, 2)}
        table = answers()
        self.assertEqual(set(table), set(ids))
        everything = {part for rows in table.values() for row in rows
                      for parts in alternatives(row[1]) for part in parts}
        self.assertIn("compression", everything)
        used = set()
        for (item, rows), kind, voxel in itertools.product(table.items(), KINDS, (0, 1)):
            for holds in self.situations(rows, kind, everything):
                with self.subTest(item=item, project=kind, voxel=voxel, holds=holds):
                    self.make_files(holds, voxel)
                    row = next(row for row in rows if applies(row, kind, holds))
                    used.add(tuple([item, *row]))
                    self.assertEqual(self.ask(ids[item], kind, voxel, holds),
                                     (int(row[2]), row[4].strip("`")))
        self.assertEqual(used, {tuple([item, *row]) for item, rows in table.items()
                                for row in rows}, "rows that never apply")

    def test_codes_have_their_names(self):
        printed = subprocess.run([FACTS_PROGRAM, "codes"], check=True, text=True,
                                 stdout=subprocess.PIPE).stdout
        values = dict(line.split("|") for line in printed.splitlines())
        shown = {row[3].strip("`"): row[2] for rows in answers().values() for row in rows}
        self.assertEqual(shown, values)

    def test_the_earlier_shot_lies_where_the_table_says(self):
        rows = table_rows(DOCUMENT, "| run folder | run of the earlier shot |")
        self.assertEqual(len(rows), 5)
        for folder, run, file in rows:
            folder, file = folder.strip("`"), file.strip("`")
            with self.subTest(folder=folder, run=run):
                self.write(folder + "/Cover02.cmx", "<SOLID_MCM>\nFlagPrevShot = 1\n"
                                                    f"ValueShotRunID = {run}\n</SOLID_MCM>\n")
                self.assertEqual(self.ask(12, "solid", 1, (), folder)[0], -19)
                self.write(file)
                self.assertEqual(self.ask(12, "solid", 1, (), folder)[0], 1)
                (self.folder / file.replace("\\", "/")).unlink()

    def test_the_shot_file_shown_names_run_1(self):
        block = re.search(r"(?:^    .*\n)+", DOCUMENT, flags=re.M)[0].replace("    ", "")
        self.write("Runs/Run02/Cover02.cmx", block)
        self.write("Runs/Run01/Cover01.k5o")
        self.assertEqual(self.ask(12, "solid", 0, ())[0], 1)

    def test_shell_projects_are_offered_what_is_listed(self):
        text = DOCUMENT[DOCUMENT.index("Shell projects are offered"):]
        listed = set(re.findall(r"`([\w-]+)`", text[:text.index("whatever else")]))
        self.make_run()
        self.make_recipe('[project]\nname = "Cover"\nrun = 2\nfolder = "Run02"\n'
                         'analysis = "shell"\n[target]\n')
        matrix = self.run_program("items", "cover.toml", "--matrix").stdout
        rows = re.findall(r"^ *\d+ ([\w-]+) +(.*)$", matrix, flags=re.M)
        self.assertEqual(listed, {name for name, marks in rows if set(marks) & set("+-")})


if __name__ == "__main__":
    unittest.main()

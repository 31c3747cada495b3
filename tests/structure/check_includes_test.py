#!/usr/bin/env python3
"""Shows that check_includes.py finds what it is there for, on made-up projects."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import check_includes

CHECK = Path(__file__).with_name("check_includes.py")

# A small project that keeps every rule, and uses every edge.
GOOD_TREE = {
    "include/zorbi2/Face.h": "#include <string>\n",
    "include/zorbi2/Record.h": '#include "Face.h"\n#include <stdint.h>\n',
    "platform/Files.h": "#include <cstdio>\n",
    "platform/PlatformPosix.cpp": '#include "platform/Files.h"\n#include <sys/stat.h>\n',
    "platform/PlatformWindows.cpp": '#include "platform/Files.h"\n#include <windows.h>\n',
    "quenta/CQuentaResultReader_Manipulator.h": "",
    "quenta/Other.h": "",
    "results/Checks.h": "#include <zorbi2/Record.h>\n",
    "results/Checks.cpp": '#include "results/Checks.h"\n'
                          '#include "platform/Files.h"\n'
                          '#include "quenta/CQuentaResultReader_Manipulator.h"\n',
    "items/Catalogue.h": "#include <zorbi2/Record.h>\n",
    "cmi/Text.h": '#include <zorbi2/Record.h>\n#include "platform/Files.h"\n',
    "engine/Manager.cpp": "#include <zorbi2/Face.h>\n"
                          '#include "cmi/Text.h"\n'
                          '#include "results/Checks.h"\n'
                          '#include "items/Catalogue.h"\n'
                          '#include "platform/Files.h"\n',
    "host/problems/Problem.h": "",
    "host/system/Paths.h": '#include "problems/Problem.h"\n',
    "host/console/Report.h": "#include <nlohmann/json.hpp>\n"
                             '#include "problems/Problem.h"\n'
                             '#include "system/Paths.h"\n',
    "host/recipes/Recipe.h": "#include <toml++/toml.h>\n"
                             "#include <zorbi2/Face.h>\n"
                             '#include "control_files/File.h"\n'
                             '#include "problems/Problem.h"\n'
                             '#include "system/Paths.h"\n',
    "host/control_files/File.h": '#include <zorbi2/Face.h>\n#include "problems/Problem.h"\n',
    "host/handover/Session.h": "#include <zorbi2/Face.h>\n"
                               '#include "control_files/File.h"\n'
                               '#include "problems/Problem.h"\n'
                               '#include "recipes/Recipe.h"\n'
                               '#include "system/Paths.h"\n',
    "host/commands/Commands.h": "#include <CLI/CLI.hpp>\n"
                                "#include <zorbi2/Face.h>\n"
                                '#include "console/Report.h"\n'
                                '#include "control_files/File.h"\n'
                                '#include "handover/Session.h"\n'
                                '#include "problems/Problem.h"\n'
                                '#include "recipes/Recipe.h"\n'
                                '#include "system/Paths.h"\n',
    "host/Main.cpp": '#include "commands/Commands.h"\n'
                     '#include "console/Report.h"\n'
                     '#include "system/Paths.h"\n',
    "examples/Host.cpp": "#include <zorbi2/Face.h>\n",
    "tests/AnythingGoes.cpp": '#include <sys/stat.h>\n#include "no/such/file.h"\n',
    "tests/support/World.h": "",
    "tests/fuzz/Fuzz.cpp": "#include <zorbi2/Face.h>\n"
                           '#include "platform/Files.h"\n'
                           '#include "results/Checks.h"\n'
                           '#include "cmi/Text.h"\n'
                           '#include "problems/Problem.h"\n'
                           '#include "system/Paths.h"\n'
                           '#include "control_files/File.h"\n'
                           '#include "handover/Session.h"\n'
                           '#include "commands/Commands.h"\n'
                           '#include "tests/support/World.h"\n',
    "bench/Bench.cpp": "#include <benchmark/benchmark.h>\n"
                       "#include <zorbi2/Face.h>\n"
                       '#include "platform/Files.h"\n',
}


def write_tree(root, files):
    for name, text in files.items():
        path = root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")


def faults_with(files):
    """The faults of the good project with files added or replaced, as text."""
    with tempfile.TemporaryDirectory() as folder:
        write_tree(Path(folder), GOOD_TREE | files)
        return [str(fault) for fault in check_includes.check_tree(Path(folder))]


def faults_without_circles(files):
    """The same without the circles, of which a wrong include often closes one besides."""
    return [fault for fault in faults_with(files) if "circle" not in fault]


class IncludeRules(unittest.TestCase):
    def assert_fault(self, files, expected):
        self.assertEqual(faults_without_circles(files), [expected])

    def test_good_project_has_no_fault(self):
        self.assertEqual(faults_with({}), [])

    def test_every_folder_keeps_to_its_row(self):
        targets = {
            "include/zorbi2": "zorbi2/Record.h",
            "platform": "platform/Files.h",
            "quenta": "quenta/Other.h",
            "results": "results/Checks.h",
            "items": "items/Catalogue.h",
            "cmi": "cmi/Text.h",
            "engine": "engine/Own.h",
            "host/problems": "problems/Problem.h",
            "host/system": "system/Paths.h",
            "host/console": "console/Report.h",
            "host/recipes": "recipes/Recipe.h",
            "host/control_files": "control_files/File.h",
            "host/handover": "handover/Session.h",
            "host/commands": "commands/Commands.h",
        }
        allowed = {
            "include/zorbi2": set(),
            "platform": set(),
            "quenta": set(),
            "results": {"include/zorbi2", "platform"},
            "items": {"include/zorbi2"},
            "cmi": {"include/zorbi2", "platform"},
            "engine": {"include/zorbi2", "platform", "results", "items", "cmi"},
            "host": {"host/system", "host/console", "host/commands"},
            "host/problems": set(),
            "host/system": {"host/problems"},
            "host/console": {"host/problems", "host/system"},
            "host/recipes": {"include/zorbi2", "host/problems", "host/system",
                             "host/control_files"},
            "host/control_files": {"include/zorbi2", "host/problems"},
            "host/handover": {"include/zorbi2", "host/problems", "host/system", "host/recipes",
                              "host/control_files"},
            "host/commands": {"include/zorbi2", "host/problems", "host/system", "host/console",
                              "host/recipes", "host/control_files", "host/handover"},
            "examples": {"include/zorbi2"},
            "tests/fuzz": {"include/zorbi2", "platform", "results", "cmi", "host/problems",
                           "host/system", "host/control_files", "host/handover",
                           "host/commands"},
            "bench": {"include/zorbi2", "platform"},
        }
        lines = "".join(f'#include "{target}"\n' for target in targets.values())
        for folder, permitted in allowed.items():
            with self.subTest(folder=folder):
                found = faults_without_circles({"engine/Own.h": "", f"{folder}/New.cpp": lines})
                expected = []
                for line, (target_folder, target) in enumerate(targets.items(), start=1):
                    path = (f"include/{target}" if target.startswith("zorbi2/") else
                            f"host/{target}" if target_folder.startswith("host/") else target)
                    if target_folder not in permitted | {folder}:
                        expected.append(
                            f"{folder}/New.cpp:{line}: {folder}/ may not include {path}")
                self.assertEqual(found, expected)

    def test_edges_that_nothing_uses_are_found(self):
        self.assertEqual(
            faults_with({"results/Checks.cpp": '#include "platform/Files.h"\n'}),
            ["MAY_INCLUDE:0: no file in results/ includes "
             "quenta/CQuentaResultReader_Manipulator.h"])

    def test_only_results_may_include_the_result_reader(self):
        reader = '#include "quenta/CQuentaResultReader_Manipulator.h"\n'
        self.assertEqual(faults_with({"results/New.cpp": reader}), [])
        for folder in ["items", "cmi", "engine", "host"]:
            self.assert_fault(
                {f"{folder}/New.cpp": "\n" + reader},
                f"{folder}/New.cpp:2: {folder}/ may not include "
                "quenta/CQuentaResultReader_Manipulator.h")

    def test_results_may_include_nothing_else_of_the_result_reader(self):
        self.assert_fault({"results/New.cpp": '#include "quenta/Other.h"\n'},
                          "results/New.cpp:1: results/ may not include quenta/Other.h")

    def test_system_headers_stay_in_the_sources_of_a_system(self):
        for file in ["include/zorbi2/New.h", "platform/Files.cpp", "platform/New.h",
                     "results/New.cpp", "items/New.cpp", "cmi/New.cpp", "engine/New.cpp",
                     "quenta/New.cpp", "host/New.cpp", "tests/fuzz/New.cpp"]:
            self.assert_fault(
                {file: "// a comment\n#include <windows.h>\n"},
                f"{file}:2: <windows.h> is no standard header, and this file may have no other")

    def test_libraries_stay_in_their_folders(self):
        for file in ["engine/New.cpp", "examples/New.cpp", "bench/New.cpp", "host/New.cpp",
                     "host/commands/New.cpp"]:
            self.assert_fault(
                {file: "#include <toml++/toml.h>\n"},
                f"{file}:1: <toml++/toml.h> is no standard header, and this file may have no other")

    def test_angle_brackets_hide_nothing(self):
        self.assert_fault({"platform/New.cpp": "#include <results/Checks.h>\n"},
                          "platform/New.cpp:1: platform/ may not include results/Checks.h")

    def test_relative_paths_hide_nothing(self):
        self.assert_fault({"platform/New.cpp": '#include "../results/Checks.h"\n'},
                          "platform/New.cpp:1: platform/ may not include results/Checks.h")

    def test_missing_files_are_found(self):
        for file in ["items/New.cpp", "host/New.cpp"]:
            self.assert_fault({file: '#include "items/NoSuchFile.h"\n'},
                              f'{file}:1: there is no "items/NoSuchFile.h"')

    def test_headers_that_the_build_makes_are_those_of_their_templates(self):
        self.assert_fault(
            {"host/recipes/Text.h.in": "", "examples/New.cpp": '#include "recipes/Text.h"\n'},
            "examples/New.cpp:1: examples/ may not include host/recipes/Text.h.in")

    def test_includes_of_macros_are_refused(self):
        self.assert_fault(
            {"items/New.cpp": "#include HEADER\n"},
            'items/New.cpp:1: neither <...> nor "...", which cannot be checked')

    def test_unusual_spelling_is_read(self):
        self.assert_fault({"items/New.cpp": "  #  include<windows.h> // why\n"},
                          "items/New.cpp:1: <windows.h> is no standard header, and this "
                          "file may have no other")

    def test_circle_of_files_is_found(self):
        faults = faults_with(
            {"cmi/A.h": '#include "cmi/B.h"\n', "cmi/B.h": '#include "cmi/C.h"\n',
             "cmi/C.h": '\n#include "cmi/A.h"\n'})
        self.assertEqual(
            faults, ["cmi/C.h:2: circle of files: cmi/A.h -> cmi/B.h -> cmi/C.h -> cmi/A.h"])

    def test_file_that_includes_itself_is_found(self):
        self.assertEqual(faults_with({"cmi/A.h": '#include "A.h"\n'}),
                         ["cmi/A.h:1: circle of files: cmi/A.h -> cmi/A.h"])

    def test_circle_of_folders_is_found_without_one_of_files(self):
        self.assertEqual(
            faults_with({"platform/New.cpp": '#include "results/Checks.h"\n'}),
            ["platform/New.cpp:1: platform/ may not include results/Checks.h",
             "results/Checks.cpp:2: circle of folders: platform -> results -> platform"])


class CommandLine(unittest.TestCase):
    def run_check(self, files):
        with tempfile.TemporaryDirectory() as folder:
            write_tree(Path(folder), files)
            return subprocess.run([sys.executable, CHECK, folder], capture_output=True, text=True,
                                  check=False)

    def test_good_project_ends_with_0(self):
        result = self.run_check(GOOD_TREE)
        self.assertEqual((result.returncode, result.stdout), (0, "23 files, 0 wrong includes\n"))

    def test_wrong_include_is_printed_and_ends_with_1(self):
        result = self.run_check(GOOD_TREE | {"cmi/A.h": '#include "cmi/A.h"\n'})
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stdout, "cmi/A.h:1: circle of files: cmi/A.h -> cmi/A.h\n"
                                        "24 files, 1 wrong includes\n")

    def test_folder_without_sources_ends_with_2(self):
        self.assertEqual(self.run_check({"README.md": ""}).returncode, 2)


if __name__ == "__main__":
    unittest.main()

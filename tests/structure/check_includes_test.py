#!/usr/bin/env python3
"""Shows that check_includes.py finds what it is there for, on made-up projects."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import check_includes

CHECK = Path(__file__).with_name("check_includes.py")

# A small project that keeps every rule.
GOOD_TREE = {
    "include/Face.h": "#include <string>\n",
    "include/Record.h": '#include "Face.h"\n#include <stdint.h>\n',
    "platform/Files.h": "#include <cstdio>\n",
    "platform/PlatformPosix.cpp": '#include "platform/Files.h"\n#include <sys/stat.h>\n',
    "platform/PlatformWindows.cpp": '#include "platform/Files.h"\n#include <windows.h>\n',
    "quenta/CQuentaResultReader_Manipulator.h": "",
    "quenta/Other.h": "",
    "results/Checks.h": '#include "Record.h"\n',
    "results/Checks.cpp": '#include "results/Checks.h"\n'
                          '#include "platform/Files.h"\n'
                          '#include "quenta/CQuentaResultReader_Manipulator.h"\n',
    "items/SolverSlot.h": '#include "Record.h"\n',
    "items/Catalogue.cpp": '#include "items/SolverSlot.h"\n#include "results/Checks.h"\n',
    "cmi/CZorbI2CMIData.h": "",
    "cmi/Text.h": '#include "items/SolverSlot.h"\n#include "platform/Files.h"\n',
    "engine/PopItemSelector.h": '#include "cmi/CZorbI2CMIData.h"\n',
    "engine/CZorbI2Engine.h": '#include "engine/PopItemSelector.h"\n#include "PopItemSelector.h"\n',
    "engine/CZorbI2Engine.cpp": '#include "cmi/Text.h"\n'
                                '#include "results/Checks.h"\n'
                                '#include "items/SolverSlot.h"\n'
                                '#include "platform/Files.h"\n',
    "host/Recipe.h": "#include <toml++/toml.h>\n",
    "host/Main.cpp": '#include "Recipe.h"\n'
                     '#include "Face.h"\n'
                     '#include "engine/CZorbI2Engine.h"\n',
    "examples/Host.cpp": '#include "Face.h"\n',
    "tests/AnythingGoes.cpp": '#include <sys/stat.h>\n#include "no/such/file.h"\n',
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
            "include": "Record.h",
            "platform": "platform/Files.h",
            "quenta": "quenta/Other.h",
            "results": "results/Checks.h",
            "items": "items/SolverSlot.h",
            "cmi": "cmi/Text.h",
            "engine": "engine/CZorbI2Engine.h",
        }
        allowed = {
            "include": {"include"},
            "platform": {"platform"},
            "quenta": {"quenta"},
            "results": {"results", "include", "platform"},
            "items": {"items", "include", "results"},
            "cmi": {"cmi", "include", "items", "platform"},
            "engine": {"engine", "include", "platform", "results", "items", "cmi"},
        }
        for folder in targets:
            for target_folder, target in targets.items():
                with self.subTest(folder=folder, target=target):
                    rules = faults_without_circles(
                        {f"{folder}/New.cpp": f'#include "{target}"\n'})
                    path = f"include/{target}" if target_folder == "include" else target
                    expected = [] if target_folder in allowed[folder] else [
                        f"{folder}/New.cpp:1: {folder}/ may not include {path}"]
                    self.assertEqual(rules, expected)

    def test_only_results_may_include_the_result_reader(self):
        reader = '#include "quenta/CQuentaResultReader_Manipulator.h"\n'
        self.assertEqual(faults_with({"results/New.cpp": reader}), [])
        for folder in ["items", "cmi", "engine"]:
            self.assert_fault(
                {f"{folder}/New.cpp": "\n" + reader},
                f"{folder}/New.cpp:2: {folder}/ may not include "
                "quenta/CQuentaResultReader_Manipulator.h")

    def test_results_may_include_nothing_else_of_the_result_reader(self):
        self.assert_fault({"results/New.cpp": '#include "quenta/Other.h"\n'},
                          "results/New.cpp:1: results/ may not include quenta/Other.h")

    def test_system_headers_stay_in_the_two_platform_sources(self):
        for file in ["include/New.h", "platform/Files.cpp", "platform/New.h", "results/New.cpp",
                     "items/New.cpp", "cmi/New.cpp", "engine/New.cpp", "quenta/New.cpp"]:
            self.assert_fault(
                {file: "// a comment\n#include <windows.h>\n"},
                f"{file}:2: <windows.h> is no standard header; only platform/PlatformPosix.cpp "
                "and platform/PlatformWindows.cpp may have it")

    def test_engine_knows_no_library(self):
        faults = faults_with({"engine/New.cpp": "#include <toml++/toml.h>\n"})
        self.assertEqual(len(faults), 1)

    def test_engine_knows_no_host(self):
        for folder in ["host", "examples"]:
            self.assert_fault(
                {f"{folder}/New.h": "", "engine/New.cpp": f'#include "{folder}/New.h"\n'},
                f"engine/New.cpp:1: engine/ may not include {folder}/New.h")

    def test_angle_brackets_hide_nothing(self):
        self.assert_fault({"platform/New.cpp": "#include <results/Checks.h>\n"},
                          "platform/New.cpp:1: platform/ may not include results/Checks.h")

    def test_relative_paths_hide_nothing(self):
        self.assert_fault({"platform/New.cpp": '#include "../results/Checks.h"\n'},
                          "platform/New.cpp:1: platform/ may not include results/Checks.h")

    def test_hosts_include_installed_headers_only(self):
        for folder in ["host", "examples"]:
            for target in ["platform/Files.h", "cmi/Text.h", "results/Checks.h",
                           "quenta/CQuentaResultReader_Manipulator.h"]:
                self.assert_fault(
                    {f"{folder}/sub/New.cpp": f'#include "{target}"\n'},
                    f"{folder}/sub/New.cpp:1: a host may include installed headers only, "
                    f"not {target}")

    def test_hosts_do_not_include_each_other(self):
        self.assert_fault(
            {"examples/New.cpp": '#include "host/Recipe.h"\n'},
            "examples/New.cpp:1: a host may include installed headers only, not host/Recipe.h")

    def test_installed_headers_include_installed_headers_only(self):
        self.assert_fault(
            {"engine/CZorbI2Engine.h": '#include "cmi/Text.h"\n'},
            "engine/CZorbI2Engine.h:1: an installed header may not include cmi/Text.h, "
            "which is not installed")

    def test_missing_files_are_found(self):
        for file in ["items/New.cpp", "host/New.cpp"]:
            self.assert_fault({file: '#include "items/NoSuchFile.h"\n'},
                              f'{file}:1: there is no "items/NoSuchFile.h"')

    def test_headers_that_the_build_makes_are_those_of_their_templates(self):
        self.assert_fault(
            {"host/Texts.h.in": "", "examples/New.cpp": '#include "host/Texts.h"\n'},
            "examples/New.cpp:1: a host may include installed headers only, not host/Texts.h.in")

    def test_includes_of_macros_are_refused(self):
        self.assert_fault(
            {"items/New.cpp": "#include HEADER\n"},
            'items/New.cpp:1: neither <...> nor "...", which cannot be checked')

    def test_unusual_spelling_is_read(self):
        self.assert_fault({"items/New.cpp": "  #  include<windows.h> // why\n"},
                          "items/New.cpp:1: <windows.h> is no standard header; only "
                          "platform/PlatformPosix.cpp and platform/PlatformWindows.cpp may "
                          "have it")

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
            faults_with({"results/New.cpp": '#include "items/SolverSlot.h"\n'}),
            ["results/New.cpp:1: results/ may not include items/SolverSlot.h",
             "results/New.cpp:1: circle of folders: items -> results -> items"])


class CommandLine(unittest.TestCase):
    def run_check(self, files):
        with tempfile.TemporaryDirectory() as folder:
            write_tree(Path(folder), files)
            return subprocess.run([sys.executable, CHECK, folder], capture_output=True, text=True,
                                  check=False)

    def test_good_project_ends_with_0(self):
        result = self.run_check(GOOD_TREE)
        self.assertEqual((result.returncode, result.stdout), (0, "19 files, 0 wrong includes\n"))

    def test_wrong_include_is_printed_and_ends_with_1(self):
        result = self.run_check({"cmi/A.h": '#include "cmi/A.h"\n'})
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stdout, "cmi/A.h:1: circle of files: cmi/A.h -> cmi/A.h\n"
                                        "1 files, 1 wrong includes\n")

    def test_folder_without_sources_ends_with_2(self):
        self.assertEqual(self.run_check({"README.md": ""}).returncode, 2)


if __name__ == "__main__":
    unittest.main()

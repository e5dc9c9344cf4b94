#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether the presets fail where nothing is tested, and require the tools in all builds that CI makes."""
import json
import os
import re
import subprocess
import unittest

from tree import ROOT, TreeTest, require

PRESETS = json.loads((ROOT / "CMakePresets.json").read_text(encoding="utf-8"))


def variables_of(name):
    """What a preset sets, with what it inherits."""
    row = next(row for row in PRESETS["configurePresets"] if row["name"] == name)
    inherited = variables_of(row["inherits"]) if "inherits" in row else {}
    return {**inherited, **row.get("cacheVariables", {})}


class Presets(TreeTest):
    copied = ("CMakePresets.json",)

    def test_run_a_test_or_fail(self):
        require("ninja")
        self.write("CMakeLists.txt", "cmake_minimum_required(VERSION 3.22)\nproject(Small LANGUAGES NONE)\n"
                                     "enable_testing()\nadd_test(NAME one COMMAND true)\n"
                                     "set_tests_properties(one PROPERTIES LABELS unit)\n")
        for preset in (row["name"] for row in PRESETS["testPresets"] if not row.get("hidden")):
            if preset == "macos" and os.uname().sysname != "Darwin":
                continue  # it is there on a Mac only; the base of all presets says it
            with self.subTest(preset):
                self.assertEqual(self.run_in_tree(os.environ.get("TARNWICK_CMAKE", "cmake"), "--preset", preset), 0)
                ctest = (os.environ.get("TARNWICK_CTEST", "ctest"), "--preset", preset)
                self.assertEqual(self.run_in_tree(*ctest), 0)
                self.assertNotEqual(self.run_in_tree(*ctest, "-R", "no_such_test"), 0)

    def run_in_tree(self, *command):
        return subprocess.run(command, cwd=self.root, env=self.environment, check=False, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL).returncode

    def test_of_tests_have_one_base(self):
        for row in PRESETS["testPresets"]:
            self.assertEqual(row.get("inherits", "base"), "base", row["name"])

    def test_of_ci_require_the_tools(self):
        script = (ROOT / "scripts/test").read_text(encoding="utf-8")
        used = {"ci"} | set(re.findall(r"^\s*attempt .* run_tests (\w+)$", script, re.M))
        self.assertEqual(used, {"ci", "asan", "fuzz", "trixie"})
        for preset in used - {"fuzz"}:  # which has no test that could do without
            variables = variables_of(preset)
            self.assertEqual(variables.get("TARNWICK_REQUIRE_TOOLS"), "ON", preset)
            self.assertEqual(variables.get("TARNWICK_WERROR"), "ON", preset)

    def test_of_the_debian_13_run_what_is_about_it(self):
        row = next(row for row in PRESETS["testPresets"] if row["name"] == "trixie")
        self.assertEqual(set(row["filter"]["include"]["label"].split("|")), {"unit", "contract", "wayland"})
        self.assertEqual(variables_of("trixie").get("TARNWICK_WAYLAND_TESTS"), "ON")


if __name__ == "__main__":
    unittest.main()

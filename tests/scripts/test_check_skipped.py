#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether scripts/lib/check-skipped counts what test programs of every kind leave out, and fails where that is not
explained."""
import json
import os
import re
import subprocess
import unittest
import xml.sax.saxutils

from tree import ROOT, TreeTest

SCRIPT = "scripts/lib/check-skipped"
GTEST = """[ RUN      ] Number.comma
/tree/tests/unit/NumberTest.cpp:12: Skipped
no locale with
a comma

[  SKIPPED ] Number.comma (0 ms)
[ RUN      ] Number.point
[       OK ] Number.point (0 ms)
[  PASSED  ] 1 test.
[  SKIPPED ] 1 test, listed below:
[  SKIPPED ] Number.comma
"""
PYTHON = """test_one (__main__.A.test_one) ... ok
test_two (__main__.A.test_two)
What it is about. ... skipped 'missing: sway'
setUpClass (__main__.B) ... skipped "it isn't here"
----------------------------------------------------------------------
Ran 2 tests in 0.001s

OK (skipped=2)
"""


class CheckSkipped(TreeTest):
    copied = (SCRIPT,)

    def setUp(self):
        super().setUp()
        self.explain()
        self.build(self.case())

    def explain(self, *rows):
        self.write("tests/skipped.json", json.dumps([
            {"test": test, "reason": reason, "because": "so it is"} for test, reason in rows]))

    @staticmethod
    def case(output="", name="some_test", status="run", message=None):
        skipped = f'<skipped message="{message}"/>' if message is not None else ""
        return (f'<testcase name="{name}" status="{status}">{skipped}'
                f"<system-out>{xml.sax.saxutils.escape(output)}</system-out></testcase>")

    def build(self, *cases, strict=True, left_out=None, name="build/ci"):
        self.write(f"{name}/tests.xml", f"<testsuite>{''.join(cases)}</testsuite>")
        self.write(f"{name}/CMakeCache.txt", f"TARNWICK_REQUIRE_TOOLS:BOOL={'ON' if strict else 'OFF'}\n")
        if left_out:
            self.write(f"{name}/left-out.txt", left_out)

    def assert_line(self, output, expected):
        self.assertEqual(output.splitlines(), [expected])

    def test_tells_that_nothing_was_skipped(self):
        self.assert_line(self.assert_passes(SCRIPT, self.root / "build/ci"), "Skipped: nothing.")

    def test_finds_every_kind(self):
        kinds = {
            "a test of GoogleTest": (self.case(GTEST), 1, "no locale with a comma"),
            "one that is switched off": (self.case("  YOU HAVE 2 DISABLED TESTS\n"), 2, "disabled"),
            "a test and a class of Python": (self.case(PYTHON), 2, "missing: sway"),
            "a test that is not told of": (self.case("Ran 3 tests in 0.1s\n\nOK (skipped=1)\n"), 1, "no reason told"),
            "one among failures": (self.case("FAILED (failures=1, skipped=2)\n", status="fail"), 2, "no reason told"),
            "no test": (self.case("\nRan 0 tests in 0.000s\n\nOK\n"), 1, "there is no test in it"),
            "a whole program": (self.case("x\nA private session needs Xvfb.\n", status="notrun",
                                          message="SKIP_RETURN_CODE=77"), 1, "A private session needs Xvfb."),
            "a whole program of Python": (self.case(PYTHON, status="notrun", message="SKIP_RETURN_CODE=77"), 2,
                                          "it isn't here"),
            "a program that says nothing": (self.case(status="notrun", message="SKIP_RETURN_CODE=77"), 1,
                                            "SKIP_RETURN_CODE=77"),
            "an entry that is switched off": (self.case(status="disabled", message=""), 1, "disabled"),
        }
        for what, (case, count, reason) in kinds.items():
            with self.subTest(what):
                self.build(case)
                output = self.assert_fails(SCRIPT, self.root / "build/ci")
                self.assertEqual(len(output.splitlines()), 1, output)
                self.assertTrue(output.startswith(f"Skipped: {count}: "), output)
                self.assertIn(f"some_test, {reason} (NOT EXPLAINED)", output)

    def test_finds_what_cmake_has_left_out(self):
        self.build(self.case(), left_out="no gtk4: no fixture\n")
        self.assert_line(self.assert_fails(SCRIPT, self.root / "build/ci"),
                         "Skipped: 1: 1 in CMake, no gtk4: no fixture (NOT EXPLAINED).")

    def test_passes_with_what_is_explained_only(self):
        self.build(self.case(GTEST))
        self.explain(("some_test", "no locale .*"))
        self.assert_line(self.assert_passes(SCRIPT, self.root / "build/ci"),
                         "Skipped: 1: 1 in some_test, no locale with a comma (explained).")
        for row in (("some_test", "no locale"), ("some", "no locale .*"), ("other_test", ".*")):
            with self.subTest(row):
                self.explain(row)
                self.assert_fails(SCRIPT, self.root / "build/ci")

    def test_is_strict_in_ci_and_where_tools_are_required(self):
        self.build(self.case(GTEST), strict=False)
        self.assertIn("NOT EXPLAINED", self.assert_passes(SCRIPT, self.root / "build/ci"))
        self.environment["CI"] = "true"
        self.assert_fails(SCRIPT, self.root / "build/ci")

    def test_counts_all_builds_in_one_line(self):
        self.build(self.case(GTEST))
        self.build(self.case(GTEST), name="build/asan")
        self.explain(("some_test", ".*"))
        self.assert_line(self.assert_passes(SCRIPT, self.root / "build/ci", self.root / "build/asan"),
                         "Skipped: 2: 2 in some_test, no locale with a comma (explained).")

    def test_fails_without_results(self):
        for text in (None, "", "<testsuite/>"):
            with self.subTest(text):
                results = self.root / "build/ci/tests.xml"
                results.unlink() if text is None else results.write_text(text, encoding="utf-8")
                self.assertIn("is not known", self.assert_fails(SCRIPT, self.root / "build/ci"))

    def test_fails_with_an_explanation_that_is_none(self):
        self.write("tests/skipped.json", '[{"test": "a", "reason": "b", "because": ""}]')
        self.assertIn("not an explanation", self.assert_fails(SCRIPT, self.root / "build/ci"))


class WhatCTestWrites(TreeTest):
    """The words above are those that the tools really print."""

    copied = (SCRIPT, "tests/skipped.json")

    def test_is_read_as_it_comes(self):
        self.write("Skips.py", "import sys, unittest\n"
                               "class Some(unittest.TestCase):\n"
                               "    def test(self):\n"
                               "        for name in 'ab':\n"
                               "            with self.subTest(name):\n"
                               "                self.skipTest('not ' + name)\n"
                               "class Others(unittest.TestCase):\n"
                               "    @classmethod\n"
                               "    def setUpClass(cls):\n"
                               "        raise unittest.SkipTest('no ' + 'x' * 3000)\n"
                               "    def test(self): pass\n"
                               "unittest.main(verbosity=2)\n")
        self.write("CMakeLists.txt", "cmake_minimum_required(VERSION 3.22)\nproject(Small LANGUAGES NONE)\n"
                                     "enable_testing()\nfind_package(Python3 REQUIRED)\n"
                                     'add_test(NAME python COMMAND Python3::Interpreter "${CMAKE_SOURCE_DIR}/Skips.py")\n'
                                     'add_test(NAME missing COMMAND sh -c "echo nothing here; exit 77")\n'
                                     "set_tests_properties(missing PROPERTIES SKIP_RETURN_CODE 77)\n"
                                     "add_test(NAME off COMMAND true)\n"
                                     "set_tests_properties(off PROPERTIES DISABLED ON)\n")
        build = self.root / "build"
        run = re.search(r"ctest --preset .*(?:\\\n.*)*--output-junit", (ROOT / "scripts/test").read_text("utf-8"))
        sizes = re.findall(r"--test-output-size-\w+ \d+", run.group(0))
        subprocess.run([os.environ.get("TARNWICK_CMAKE", "cmake"), "-S", self.root, "-B", build], check=True,
                       stdout=subprocess.DEVNULL)
        subprocess.run([os.environ.get("TARNWICK_CTEST", "ctest"), "--test-dir", build, *" ".join(sizes).split(),
                        "--output-junit", build / "tests.xml"], check=False, stdout=subprocess.DEVNULL)
        output = self.run_script(SCRIPT, build)[1]
        for part in ("Skipped: 5: ", "python, not a ", "python, not b ", "python, no xxx", "missing, nothing here ",
                     "off, "):
            self.assertIn(part, output)


class TheListInTheTree(unittest.TestCase):
    def test_has_patterns_that_are_ones(self):
        for row in json.loads((ROOT / "tests/skipped.json").read_text(encoding="utf-8")):
            with self.subTest(row):
                re.compile(row["test"])
                re.compile(row["reason"])
                self.assertTrue(row["because"].endswith("."))


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether a tool that is missing ends the configuration where it is required, and is noted where it is not."""
import os
import subprocess
import unittest

from tree import ROOT, TreeTest


class MissingTools(TreeTest):
    copied = ("cmake/TarnwickTools.cmake",)

    def setUp(self):
        super().setUp()
        self.write("CMakeLists.txt", "cmake_minimum_required(VERSION 3.22)\nproject(Small LANGUAGES NONE)\n"
                                     "include(cmake/TarnwickTools.cmake)\nif(MISSING)\n"
                                     'tarnwick_missing("valgrind" "nothing is counted")\nendif()\n')
        self.noted = self.root / "build/left-out.txt"

    def configure(self, *options):
        command = [os.environ.get("TARNWICK_CMAKE", "cmake"), "-S", self.root, "-B", self.root / "build", *options]
        result = subprocess.run(command, check=False, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return result.returncode, result.stdout

    def test_are_noted_once(self):
        for _ in range(2):
            status, output = self.configure("-DMISSING=ON")
            self.assertEqual(status, 0, output)
            self.assertIn("No valgrind: nothing is counted", output)
            self.assertEqual(self.noted.read_text(encoding="utf-8"), "no valgrind: nothing is counted\n")
        self.configure("-DMISSING=OFF")
        self.assertFalse(self.noted.exists())

    def test_are_an_error_where_they_are_required(self):
        status, output = self.configure("-DMISSING=ON", "-DTARNWICK_REQUIRE_TOOLS=ON")
        self.assertNotEqual(status, 0)
        self.assertIn("No valgrind: nothing is counted", output)

    def test_are_told_in_this_way_everywhere(self):
        lists = [path for path in ROOT.glob("**/CMakeLists.txt") if "build" not in path.relative_to(ROOT).parts]
        self.assertGreater(len(lists), 5)
        for path in lists:
            self.assertNotIn("message(STATUS", path.read_text(encoding="utf-8"), path)


if __name__ == "__main__":
    unittest.main()

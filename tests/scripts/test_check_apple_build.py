#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether scripts/lib/check-apple-build notices what a Mac's compiler and library do not take, with each clang and libc++ that
it is run with, and looks at every room."""
import json
import os
import subprocess
import unittest

from tree import ROOT, TreeTest, require

SCRIPT = "scripts/lib/check-apple-build"
ROOMS = ("foundation", "ax", "menu", "mouse", "shortcut", "search", "prefs", "app", "platform/qt", "platform/macos", "tests/unit",
         "tests/macos")
FAULTS = {
    "a number that the library cannot read":
        '#include <charconv>\nfloat f(const char* t) { float v = 0; std::from_chars(t, t + 1, v); return v; }\n',
    "a number that the oldest system cannot write":
        '#include <charconv>\nvoid f(char* t) { (void)std::to_chars(t, t + 9, 0.5, std::chars_format::general, 6); }\n',
    "a hidden member": "struct S { int v; struct T { int f(int w) { int w2 = w; { int w2 = 1; w = w2; } return w2; } }; };\n",
    "braces that are left out": "struct P { int a; int b[2]; };\nP f() { return {1, 2, 3}; }\n",
}


class Tree(TreeTest):
    copied = (SCRIPT, "tests/macos/libcxx/OldestSystem.h")

    def setUp(self):
        require("clang++")
        super().setUp()
        self.files = []
        for room in ROOMS:
            self.add(f"{room}/Clean.cpp", "#include <vector>\nstd::size_t f(std::vector<int>& v) { return v.size(); }\n")

    def add(self, name, text):
        self.write(name, text)
        self.files.append(name)
        self.write_database()

    def write_database(self):
        entries = [{"directory": str(self.root), "file": str(self.root / file),
                    "arguments": ["/usr/bin/ccache", "/usr/bin/c++", "-O3", "-Wshadow", "-std=c++20", "-o", "object.o", "-c",
                                  str(self.root / file)]} for file in self.files]
        self.write("build/ci/compile_commands.json", json.dumps(entries))


class CheckAppleBuild(Tree):
    def test_what_a_mac_takes_passes(self):
        self.assertIn(f"{len(ROOMS)} files are compiled", self.assert_passes(SCRIPT))

    def test_what_only_other_systems_have_is_left_out(self):
        self.add("platform/linux/Other.cpp", "no C++\n")
        self.assert_passes(SCRIPT)

    def test_a_room_without_a_file_is_a_failure(self):
        self.files.remove("platform/macos/Clean.cpp")
        self.write_database()
        self.assertIn("nothing of platform/macos.", self.assert_fails(SCRIPT))


class WithEachLibcxx(Tree):
    def use(self, which):
        """Has the script find the clang and the libc++ that are the oldest or the newest that apt offers."""
        result = subprocess.run([ROOT / "scripts/lib/with-libcxx", which, "env", "-0"], text=True, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, check=False)
        if result.returncode == 125 and os.environ.get("CI") != "true":
            self.skipTest(f"no {which} libc++: {result.stderr.splitlines()[-1]}")
        self.assertEqual(result.returncode, 0, result.stderr)
        found = dict(line.split("=", 1) for line in result.stdout.split("\0") if line)
        self.environment.update({name: found[name] for name in ("PATH", "LD_LIBRARY_PATH")})

    def assert_only_the_faults_are_told(self):
        for number, text in enumerate(FAULTS.values()):
            self.add(f"menu/Fault{number}.cpp", text)
        output = self.assert_fails(SCRIPT)
        self.assertIn(f"{len(FAULTS)} of {len(self.files)} files", output)
        for number, what in enumerate(FAULTS):
            self.assertIn(f"menu/Fault{number}.cpp:", output, what)

    def test_the_installed_does_not_take_what_a_mac_does_not(self):
        self.assert_only_the_faults_are_told()

    def test_the_oldest_does_not_either(self):
        self.use("oldest")
        self.assert_only_the_faults_are_told()

    def test_nor_does_the_newest(self):
        self.use("newest")
        self.assert_only_the_faults_are_told()


if __name__ == "__main__":
    unittest.main()

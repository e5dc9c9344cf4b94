#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether scripts/lib/check-apple-build notices what a Mac's compiler and library do not take, and looks at every room."""
import json
import unittest

from tree import TreeTest, require

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


class CheckAppleBuild(TreeTest):
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

    def test_what_a_mac_takes_passes(self):
        self.assertIn(f"{len(ROOMS)} files are compiled", self.assert_passes(SCRIPT))

    def test_what_a_mac_does_not_take_is_told(self):
        for number, text in enumerate(FAULTS.values()):
            self.add(f"menu/Fault{number}.cpp", text)
        output = self.assert_fails(SCRIPT)
        self.assertIn(f"{len(FAULTS)} of {len(self.files)} files", output)
        for number, what in enumerate(FAULTS):
            self.assertIn(f"menu/Fault{number}.cpp:", output, what)

    def test_what_only_other_systems_have_is_left_out(self):
        self.add("platform/linux/Other.cpp", "no C++\n")
        self.assert_passes(SCRIPT)

    def test_a_room_without_a_file_is_a_failure(self):
        self.files.remove("platform/macos/Clean.cpp")
        self.write_database()
        self.assertIn("nothing of platform/macos.", self.assert_fails(SCRIPT))


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether scripts/lib/check-format tells what is not formatted, and never passes without having looked."""
import unittest

from tree import TreeTest, require

SCRIPT = "scripts/lib/check-format"


class CheckFormat(TreeTest):
    copied = (SCRIPT, "scripts/lib/sources.sh", ".clang-format")

    def setUp(self):
        require("git", "clang-format")
        super().setUp()
        self.write("app/Good.cpp", "int main()\n{\n    return 0;\n}\n")

    def test_passes_where_all_is_formatted(self):
        self.under_git()
        self.assertIn("1 files are formatted.", self.assert_passes(SCRIPT))

    def test_fails_where_something_is_not(self):
        self.under_git()
        self.write("app/with a blank.cpp", "int   x ;\n")
        self.assertIn("with a blank.cpp", self.assert_fails(SCRIPT))
        self.assert_passes(SCRIPT, "--fix")
        self.assertIn("2 files", self.assert_passes(SCRIPT))

    def test_fails_where_git_does(self):
        self.assertIn("nothing was checked", self.assert_fails(SCRIPT))

    def test_fails_where_there_is_no_file(self):
        self.under_git()
        (self.root / "app/Good.cpp").unlink()
        self.assertIn("nothing was checked", self.assert_fails(SCRIPT))


if __name__ == "__main__":
    unittest.main()

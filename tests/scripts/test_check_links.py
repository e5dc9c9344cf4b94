#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether scripts/check_links.py notices what a document names and what is not there."""
import unittest

from tree import TreeTest

SCRIPT = "scripts/check_links.py"


class CheckLinks(TreeTest):
    copied = (SCRIPT,)

    def setUp(self):
        super().setUp()
        for name in ("menu/Menu.h", "menu/Menu.cpp", "ax/Accessibility.h", "docs/ports.md", "tests/data/editor.menu"):
            self.write(name, "")

    def test_finds_what_is_there(self):
        for text in ("[ports](docs/ports.md)", "[ports](docs/ports.md#adding)", "[web](https://example.org/x)",
                     "`menu/Menu.cpp`", "`menu/Menu`", "`menu/`", "`ax/Accessibility`", "`tests/data/*.menu`",
                     "`build/ci/tarnwick`", "`and/or`", "`scripts/check_links.py`"):
            with self.subTest(text):
                self.write("README.md", text)
                self.assert_passes(SCRIPT)

    def test_notices_what_is_not(self):
        for text, missing in (("[ports](docs/port.md)", "docs/port.md"), ("`menu/Menus.cpp`", "menu/Menus.cpp"),
                              ("`menu/Menus`", "menu/Menus"), ("`menu/views/`", "menu/views/"),
                              ("`tests/data/*.menus`", "tests/data/*.menus"),
                              ("One `menu/Menu.h` and\n`ax/Element.h`", "ax/Element.h")):
            with self.subTest(text):
                self.write("README.md", text)
                self.assertIn(f"README.md: there is no {missing}\n", self.assert_fails(SCRIPT))


if __name__ == "__main__":
    unittest.main()

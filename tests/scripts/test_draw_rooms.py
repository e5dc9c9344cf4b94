#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether scripts/draw_rooms.py draws what the targets say, and notices a page that says something else."""
import unittest

from tree import TreeTest

SCRIPT = "scripts/draw_rooms.py"
PAGE = "docs/architecture.md"
BEGIN, END = "<!-- drawn by scripts/draw_rooms.py -->\n", "<!-- end of what is drawn -->\n"


def library(name, *links):
    linked = " ".join(f"tarnwick_{link}" for link in links)
    return f"# What {name} is for.\ntarnwick_add_library({name} SOURCES A.cpp LINK Qt6::Core {linked})\n"


TREE = {
    "foundation/CMakeLists.txt": library("foundation"),
    "menu/CMakeLists.txt": library("menu", "foundation"),
    "app/CMakeLists.txt": library("app", "menu", "foundation") + "add_executable(tarnwick main.cpp)\n",
    "platform/CMakeLists.txt": "# No room.\nadd_subdirectory(qt)\n",
    "platform/qt/tray/CMakeLists.txt": library("qt_tray", "app"),
    "platform/linux/CMakeLists.txt": library("platform", "linux_press", "linux_bus", "qt_tray", "app"),
    "platform/linux/press/CMakeLists.txt": library("linux_press", "linux_bus", "menu"),
    "platform/linux/bus/CMakeLists.txt": library("linux_bus", "foundation"),
    "platform/macos/CMakeLists.txt": library("platform", "qt_tray"),
    PAGE: f"# Before\n\n{BEGIN}{END}\nAfter\n",
}


class DrawRooms(TreeTest):
    copied = (SCRIPT, "scripts/check_layers.py")

    def setUp(self):
        super().setUp()
        for name, text in TREE.items():
            self.write(name, text)

    def drawn(self):
        self.assert_passes(SCRIPT)
        self.assert_passes(SCRIPT, "--check")
        return (self.root / PAGE).read_text(encoding="utf-8")

    def test_keeps_what_stands_around_it(self):
        page = self.drawn()
        self.assertTrue(page.startswith(f"# Before\n\n{BEGIN}"))
        self.assertTrue(page.endswith(f"{END}\nAfter\n"))
        self.assertEqual(self.drawn(), page)

    def test_draws_an_arrow_only_where_no_others_lead(self):
        page = self.drawn()
        for arrow in ("app --> menu", "menu --> foundation", "platform_linux --> platform_linux_press",
                      "platform_linux_press --> platform_linux_bus", "platform_linux --> platform_qt_tray",
                      "platform_qt --> app", "platform_macos --> platform_qt"):
            self.assertIn(f"    {arrow}\n", page)
        for arrow in ("app --> foundation", "platform_linux --> platform_linux_bus", "platform_linux --> app"):
            self.assertNotIn(f"    {arrow}\n", page)

    def test_tells_what_each_room_is_for(self):
        self.assertIn("| `platform/linux/press` | What linux_press is for. |\n", self.drawn())

    def test_notices_what_has_changed(self):
        self.drawn()
        rows = {
            "another link": ("platform/linux/bus/CMakeLists.txt", library("linux_bus", "foundation", "qt_tray")),
            "a link less": ("platform/linux/press/CMakeLists.txt", library("linux_press", "menu")),
            "a room more": ("platform/linux/x11/CMakeLists.txt", library("linux_x11", "linux_bus")),
            "another sentence": ("menu/CMakeLists.txt", library("menu", "foundation").replace("What", "Whatever")),
            "another page": (PAGE, f"{BEGIN}by hand\n{END}"),
        }
        for name, (path, text) in rows.items():
            with self.subTest(name):
                before = TREE.get(path)
                page = (self.root / PAGE).read_text(encoding="utf-8")
                file = self.write(path, text)
                self.assertIn("draw them again", self.assert_fails(SCRIPT, "--check"))
                if path == PAGE:
                    self.write(PAGE, page)
                elif before:
                    self.write(path, before)
                else:
                    file.unlink()
                self.assert_passes(SCRIPT, "--check")

    def test_wants_a_sentence_of_every_room(self):
        self.write("menu/CMakeLists.txt", library("menu", "foundation").split("\n", 1)[1])
        self.assertIn("menu/CMakeLists.txt:", self.assert_fails(SCRIPT, "--check"))

    def test_wants_its_place_on_the_page(self):
        self.write(PAGE, "# Nothing drawn\n")
        self.assertIn(PAGE, self.assert_fails(SCRIPT))
        self.assertEqual((self.root / PAGE).read_text(encoding="utf-8"), "# Nothing drawn\n")


if __name__ == "__main__":
    unittest.main()

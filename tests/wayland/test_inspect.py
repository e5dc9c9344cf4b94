# SPDX-License-Identifier: MIT
"""tarnwick-inspect prints what Tarnwick sees where it runs on Wayland itself: there is no X server."""
import json

from case import NativeFixture, main, wait_for
from harness.applications import DATA, fixture_program
from harness.inspecting import Inspects, menu_lines
from native import MenuTest


class Inspecting(Inspects, MenuTest):
    maxDiff = None

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()

    def test_prints_what_is_in_front(self):
        def check(fixture):
            with self.subTest("the whole bar"):
                self.assertEqual(self.printed("--all"), menu_lines())
            with self.subTest("the bar alone"):
                self.assertEqual(self.printed(), ["File", "Edit", "View", "Help"])
            with self.subTest("whose it is"):
                self.assertEqual(json.loads(self.inspect("--json").stdout)["pid"], fixture.pid)
            with self.subTest("the window"):
                printed = self.inspect("--report").stdout
                for line in ("AXRole:  “AXWindow”", "AXTitle:  “Fixture”", f"AXParent:  “menu_fixture_{fixture.kit}”"):
                    self.assertIn(line, printed)
            with self.subTest("nothing is left behind"):
                self.assertFalse((self.session.directory / "home/.config/Quorlane").exists())
                self.assert_keys_arrive(fixture)
        self.each(check)

    def close(self):
        """There is no menu of ours."""

    def test_pid_names_an_application_behind(self):
        behind = NativeFixture(self.session, "qt6")
        self.wait_until_readable(behind)
        front = self.session.run(fixture_program("gtk3"), DATA / "viewer.menu")
        try:
            wait_for(lambda: self.inspect().stdout.splitlines()[1:3] == ["File", "Image"], "the one in front", step=0.1)
            self.assertEqual(self.printed("--all", "--pid", str(behind.pid)), menu_lines())
            self.assertIn("“Fixture”", self.inspect("--report", "--pid", str(behind.pid)).stdout)
        finally:
            front.stop()
            behind.end()


if __name__ == "__main__":
    main()

# SPDX-License-Identifier: MIT
"""tarnwick-inspect prints what Tarnwick sees where it runs on Wayland itself: there is no X server."""
import json

from case import NativeFixture, main, wait_for
from harness.applications import DATA, fixture_program
from harness.inspecting import Inspects, menu_lines
from native import KITS, MenuTest


class Inspecting(Inspects, MenuTest):
    maxDiff = None

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()

    def each(self, check, kits=KITS):
        """`check` with a fixture of each toolkit in front."""
        for kit in kits:
            with self.subTest(kit):
                fixture = NativeFixture(self.session, kit)
                try:
                    self.wait_until_readable(fixture)
                    check(fixture)
                finally:
                    fixture.end()

    def test_all_prints_the_whole_bar_of_the_application_in_front(self):
        def check(fixture):
            expected = menu_lines(greyed=()) if fixture.kit == "gtk4" else menu_lines()  # that fixture greys nothing
            self.assertEqual(self.printed("--all"), expected)
        self.each(check)

    def test_without_options_prints_the_bar_alone(self):
        self.each(lambda _: self.assertEqual(self.printed(), ["File", "Edit", "View", "Help"]))

    def test_json_tells_whose_it_is(self):
        def check(fixture):
            printed = json.loads(self.inspect("--all", "--json").stdout)
            self.assertEqual(printed["pid"], fixture.pid)
            self.assertEqual([entry["title"] for entry in printed["menu"]], ["File", "Edit", "View", "Help"])
        self.each(check)

    def test_report_describes_the_window_in_front(self):
        def check(fixture):
            result = self.inspect("--report")
            self.assertEqual(result.returncode, 0, result.stderr)
            for line in ("AXRole:  “AXWindow”", "AXTitle:  “Fixture”", f"AXParent:  “menu_fixture_{fixture.kit}”"):
                self.assertIn(line, result.stdout)
        self.each(check)

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

    def test_leaves_nothing_behind(self):
        def check(fixture):
            self.inspect("--all")
            self.assertFalse((self.session.directory / "home/.config/Quorlane").exists())
            self.assert_keys_arrive(fixture)
        self.each(check)


if __name__ == "__main__":
    main()

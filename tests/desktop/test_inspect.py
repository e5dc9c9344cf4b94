# SPDX-License-Identifier: MIT
"""tarnwick-inspect prints what Tarnwick sees, in the form of the menu files of the tests."""
import json
import os

from harness.applications import KITS, Fixture
from harness.case import DesktopTest, main
from harness.inspecting import Inspects, menu_lines
from harness.outside import Exporting
from harness.tarnwick import Tarnwick
from harness.waiting import holds_for


class Inspecting(Inspects, DesktopTest):
    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()

    def in_front(self, kit):
        fixture = Fixture(self.session, kit)
        self.addCleanup(fixture.program.stop)
        fixture.accessible(self.bus)
        return fixture

    def test_all_prints_the_whole_bar_of_the_application_in_front(self):
        for kit in KITS:
            with self.subTest(kit):
                fixture = self.in_front(kit)
                self.assertEqual(self.printed("--all"), menu_lines())
                fixture.program.stop()

    def test_without_options_prints_the_bar_alone(self):
        self.in_front("gtk3")
        self.assertEqual(self.printed(), [line for line in menu_lines() if not line.startswith(" ")])

    def test_pid_names_an_application_behind(self):
        behind = self.in_front("qt6")
        front = Fixture(self.session, "gtk3", menu="viewer.menu", title="Front")
        self.addCleanup(front.program.stop)
        front.accessible(self.bus)
        self.assertEqual(self.printed()[:2], ["File", "Image"])
        self.assertEqual(self.printed("--all", "--pid", str(behind.pid)), menu_lines())

    def test_json_prints_the_same(self):
        fixture = self.in_front("gtk3")
        printed = json.loads(self.inspect("--all", "--json").stdout)
        self.assertEqual(printed["pid"], fixture.pid)
        self.assertEqual([entry["title"] for entry in printed["menu"]], ["File", "Edit", "View", "Help"])

    def test_report_describes_the_window_in_front(self):
        self.in_front("gtk3")
        result = self.inspect("--report")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn("Fixture gtk3", result.stdout)

    def sources(self, *options):
        """What is said of each, by its name."""
        result = self.inspect("--sources", *options)
        self.assertEqual(result.returncode, 0, result.stderr)
        return dict(line.split(": ", 1) for line in result.stdout.splitlines())

    def test_sources_tells_what_is_read_and_what_could_be_switched_on(self):
        fixture = self.in_front("gtk3")
        whole = {"accessibility tree": 'toolkit "gtk", 4 menus, 0 of them with nothing in them',
                 "org.gtk.Menus": "nothing is exported", "com.canonical.dbusmenu": "nothing is exported",
                 "read": "the accessibility tree"}
        self.assertEqual(self.sources(), whole)
        late = Fixture(self.session, "gtk3", menu="kinds.menu", title="Late")
        self.addCleanup(late.program.stop)
        late.accessible(self.bus)
        self.assertEqual(self.sources("--pid", str(fixture.pid)), whole)
        said = self.sources()
        self.assertIn("appmenu-gtk3-module", said.pop("could be switched on"))
        self.assertEqual(said, {**whole, "accessibility tree":
                                'toolkit "gtk", 4 menus, 1 of them with nothing in them'})

    def test_sources_tells_what_is_exported(self):
        with_module = Fixture(self.session, "gtk3", "--module", menu="kinds.menu", title="Module")
        self.addCleanup(with_module.program.stop)
        with_module.accessible(self.bus)
        self.assertEqual(self.sources(), {
            "accessibility tree": 'toolkit "gtk", 4 menus, 1 of them with nothing in them',
            "org.gtk.Menus": "exported by the module of GTK, 2 menus",
            "com.canonical.dbusmenu": "nothing is exported", "read": "the accessibility tree"})
        with_module.program.stop()
        newer = Fixture(self.session, "gtk4", menu="exported.menu", title="Newer")
        self.addCleanup(newer.program.stop)
        self.bus.application(newer.pid)
        self.assertEqual(self.sources(), {
            "accessibility tree": 'toolkit "GTK", no menu bar', "org.gtk.Menus": "exported by the program, 3 menus",
            "com.canonical.dbusmenu": "nothing is exported", "read": "org.gtk.Menus"})

    def test_sources_tells_what_is_exported_for_outside_the_window(self):
        program = Exporting(self.session)
        self.addCleanup(program.program.stop)
        said = self.sources()
        self.assertEqual((said["com.canonical.dbusmenu"], said["read"]),
                         ("exported by the program, 3 menus", "com.canonical.dbusmenu"))

    def test_delay_leaves_time_to_bring_another_application_to_the_front(self):
        later = Fixture(self.session, "gtk3", menu="viewer.menu", title="Later")
        self.addCleanup(later.program.stop)
        later.accessible(self.bus)
        self.in_front("gtk3")
        inspection = self.session.run(os.environ["TARNWICK_INSPECT"], "--delay", "4")
        self.screen.activate(later.window)
        self.assertTrue(inspection.running(), "it has not waited")
        self.assertEqual(inspection.status(), 0)
        self.assertEqual(inspection.output.splitlines()[1:3], ["File", "Image"])

    def test_what_makes_no_sense_is_refused(self):
        for options in (["--pid", "x"], ["--pid", "0"], ["--delay", "-1"], ["--delay", "soon"], ["File"], ["--shout"]):
            with self.subTest(options):
                result = self.inspect(*options)
                self.assertNotEqual(result.returncode, 0)
                self.assertEqual(result.stdout, "")
                self.assertNotEqual(result.stderr, "")

    def test_leaves_nothing_behind(self):
        fixture = self.in_front("gtk3")
        self.inspect("--all")
        self.assertFalse((self.session.directory / "home/.config/Quorlane").exists())
        self.assertEqual(self.screen.grabs_left(), [])
        self.screen.tap(52, "Alt_L")  # nobody holds the hot key
        self.screen.type("x")
        fixture.wait_for_line("typed", "x")


class InspectingBesideTarnwick(DesktopTest):
    def test_leaves_it_alone(self):
        self.connect_accessibility()
        tarnwick = Tarnwick(self.session)
        self.addCleanup(tarnwick.stop)
        tarnwick.wait_until_ready()
        fixture = Fixture(self.session, "gtk3")
        self.session.call(os.environ["TARNWICK_INSPECT"], "--all")
        holds_for(lambda: [window.pid for window in self.screen.windows()] == [fixture.pid], 0.5, "another window")


if __name__ == "__main__":
    main()

# SPDX-License-Identifier: MIT
"""The preferences window: what opens it, and what its controls store and do at once."""
import os
import pathlib
import time

from Xlib import X
from Xlib.ext import xtest

from harness.case import DesktopTest, main
from harness.navigation import Navigation
from harness.preferences import (BUTTON, CHECK_BOX, Preferences, stored, wait_until_stored, windows_of)
from harness.screen import LEFT, MIDDLE, RIGHT
from harness.tarnwick import OPTION, Tarnwick
from harness.tray import icon_at_rest
from harness.waiting import holds_for, wait_for

A_WHILE = 0.4  # seconds in which a window or a menu would have come
BRAND = 0xFF2F5368  # a colour of the icon that its picture for the tray has not
ENTRY = pathlib.Path(__file__).resolve().parents[2] / "packaging/linux/example.quorlane.Tarnwick.desktop.in"
CONTROL, SUPER = "Control_L", "Super_L"
CONTROL_SUPER_X = {"TriggerCharacterUInt": 7, "TriggerModifiers": 0x140000, "NewTrigger": "⌃⌘X"}

DEFAULTS = {"EnableHotkey": "true", "NewTrigger": "\u02c4Z", "TriggerCharacterUInt": "6",
            "TriggerModifiers": "524288", "FoldAlternate": "true", "ShowKeyEquivalents": "false",
            "ShowAppleMenu": "true", "ShowStatusBarIcon": "true", "ShowTarnwickMenu": "true",
            "LaunchOnLogin": "false", "FontSizeSmall": "11", "TitleFontSizeSmall": "0",
            "ShowApplicationMenu": "true", "EnableMouseButton": "false", "MouseButton": "25"}
OTHERS = {"EnableHotkey": True, **CONTROL_SUPER_X, "FoldAlternate": False, "ShowKeyEquivalents": True,
          "ShowAppleMenu": False, "ShowStatusBarIcon": False, "ShowTarnwickMenu": False, "LaunchOnLogin": True,
          "FontSizeSmall": 20, "TitleFontSizeSmall": 3, "ShowApplicationMenu": False, "EnableMouseButton": True,
          "MouseButton": 9}


class ThePreferences(DesktopTest):
    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()

    def start(self, content=None, **settings):
        self.tarnwick = Tarnwick(self.session, content, **settings)
        self.addCleanup(self.tarnwick.stop)

    def restart(self):
        self.tarnwick.stop()
        self.start(self.tarnwick.settings_file.read_bytes())

    def start_with_window(self, **settings):
        """The window opens at a first start."""
        self.start(FirstRun=False, **settings)
        self.preferences = self.window()

    def window(self):
        return Preferences(self.session, self.bus, self.tarnwick)

    def start_again(self):
        """Starts the program a second time, which asks the first to show its window."""
        self.assertEqual(self.session.run(self.tarnwick.program_file).status(), 0)
        return self.window()

    def read_menus(self):
        reader = self.tarnwick.reader(self.bus)
        self.addCleanup(reader.close)
        return reader

    def login_entry(self):
        return self.session.directory / "home/.config/autostart/example.quorlane.Tarnwick.desktop"

    def assert_opens_menu(self, key, *held):
        self.tarnwick.wait_until_at_rest()
        self.tarnwick.open_with(key, *held)
        self.tarnwick.close_menu()

    def assert_does_nothing(self, key, *held):
        self.tarnwick.wait_until_at_rest()
        self.screen.chord(key, *held)
        holds_for(lambda: self.tarnwick.popups.count() == 0, A_WHILE, f"{held} {key} opened the menu")


class TheWindow(ThePreferences):
    tools = ("tint2",)

    def test_opens_at_the_first_start_only(self):
        self.start(b"\n")
        self.assertEqual(self.window().window.title, "Hot Key")
        wait_until_stored(self.tarnwick, FirstRun="true")
        self.restart()
        self.tarnwick.wait_until_ready()
        holds_for(lambda: not self.screen.windows(), A_WHILE, "a window has come at the second start")

    def test_opens_at_a_start_while_it_runs_again_and_again(self):
        self.start()
        self.tarnwick.wait_until_ready()
        for _ in range(2):
            preferences = self.start_again()
            self.assertEqual(len(windows_of(self.screen, self.tarnwick.pid)), 1)
            preferences.close()

    def test_comes_back_to_the_front_with_the_hot_key_pane(self):
        self.start_with_window()
        self.preferences.show_pane("General")
        self.start_again()
        self.preferences.control("Shortcut, ", BUTTON)
        self.assertTrue(self.preferences.is_checked("Hot Key"))

    def test_comes_back_when_it_was_minimised(self):
        self.start_with_window()
        self.screen.minimize(self.preferences.window)
        self.start_again()
        self.assertTrue(self.is_visible())
        self.preferences.close()

    def test_comes_to_the_front_of_the_about_panel_and_the_panel_of_it(self):
        self.start_with_window()
        self.tarnwick.wait_until_ready()
        for _ in range(3):
            about = self.open_about_panel()
            self.assertEqual(self.order(), [self.preferences.window.id, about.id])
            self.start_again()
            self.assertEqual(self.order(), [about.id, self.preferences.window.id])

    def open_about_panel(self):
        """The first entry under the last one. Nothing is read back: keys in its windows would take a detour meanwhile."""
        self.tarnwick.wait_until_at_rest()
        self.tarnwick.open()
        for key in ("Up", "Right"):
            self.screen.tap(key)
        self.tarnwick.popups.wait_for(2)
        self.screen.tap("Return")
        about = self.screen.window_titled("About Tarnwick")
        wait_for(lambda: self.order()[-1:] == [about.id], "the about panel on top")
        return about

    def order(self):
        """The windows of the program, lowest first."""
        own = [window.id for window in windows_of(self.screen, self.tarnwick.pid)]
        return [handle for handle in self.screen.stacked() if handle in own]

    def test_opens_from_the_menu_of_the_tray(self):
        tray = self.session.run("tint2")
        self.addCleanup(tray.stop)
        self.start()
        self.tarnwick.wait_until_ready()
        reader = self.read_menus()
        icon = icon_at_rest(self.screen, self.tarnwick.pid)
        corner = icon.translate_coords(self.screen.root, 0, 0)
        self.screen.click(LEFT, at=(8 - corner.x, 8 - corner.y))
        reader.wait_for(1)
        Navigation(self.screen, reader).choose("Preferences...")
        self.window().close()

    def test_opens_from_the_own_entry_of_the_menu(self):
        self.start()
        self.tarnwick.wait_until_ready()
        reader = self.read_menus()
        self.tarnwick.open()
        reader.wait_for(1)
        Navigation(self.screen, reader).choose("Tarnwick", "Preferences...")
        self.window().close()

    def test_is_on_every_workspace(self):
        self.start_with_window()
        for shown in ("for the first time", "again"):
            for number in (1, 2, 0):
                with self.subTest(shown=shown, workspace=number):
                    self.screen.show_workspace(number)
                    holds_for(self.is_visible, 0.2, "the window is not there")
            self.preferences.close()
            self.preferences = self.start_again()

    def is_visible(self):
        return self.preferences.window.handle.get_attributes().map_state == X.IsViewable

    def test_has_the_icon_of_the_program_where_panels_list_it_and_menus_have_none(self):
        self.start_with_window()
        icons = self.preferences.window.icons
        self.assertEqual(set(icons), {(side, side) for side in (16, 24, 32, 48, 64, 128)})
        for size, pixels in icons.items():
            with self.subTest(size=size):
                self.assertIn(BRAND, pixels)
        self.tarnwick.wait_until_ready()
        self.assertFalse(self.tarnwick.open().icons)

    def test_belongs_to_the_desktop_entry(self):
        self.start_with_window()
        self.assertIn(f"StartupWMClass={self.preferences.window.class_name}", ENTRY.read_text().splitlines())

    def test_keeps_its_top_edge_and_its_width_from_pane_to_pane(self):
        self.start_with_window()
        x, y, width, height = self.preferences.window.frame
        heights = [height]
        for pane in ("General", "About", "Hot Key"):
            self.preferences.show_pane(pane)
            frame = self.preferences.window.frame
            self.assertEqual(frame[:3], (x, y, width))
            heights.append(frame[3])
        self.assertEqual(heights[-1], height)
        self.assertEqual(len(set(heights)), 3)


class TheMouseButton(ThePreferences):
    def test_is_learned_from_a_middle_click(self):
        self.start_with_window(MouseButton=0)
        self.assertEqual(self.preferences.mouse_button.name, "Mouse button, Button Number: 0")
        self.screen.move(*self.preferences.mouse_button.center)
        self.screen.press_button(MIDDLE)
        time.sleep(0.1)
        self.assertEqual(stored(self.tarnwick)["MouseButton"], "0")
        self.screen.release_button(MIDDLE)
        wait_until_stored(self.tarnwick, MouseButton=25)
        self.assertEqual(self.preferences.mouse_button.name, "Mouse button, Button Number: 25")

    def test_is_learned_alike_from_the_buttons_at_the_side(self):
        for button in (8, 9):
            with self.subTest(button=button):
                self.start_with_window(MouseButton=0)
                self.preferences.click_mouse_button(button)
                wait_until_stored(self.tarnwick, MouseButton=25)
                self.tarnwick.stop()

    def test_is_learned_when_press_and_release_come_without_a_pause(self):
        for _ in range(3):
            self.start_with_window(MouseButton=0)
            self.screen.move(*self.preferences.mouse_button.center)
            for kind in (X.ButtonPress, X.ButtonRelease):
                xtest.fake_input(self.screen.display, kind, MIDDLE)
            self.screen.display.sync()
            wait_for(lambda: stored(self.tarnwick)["MouseButton"] != "0", "another mouse button stored")
            self.assertEqual(stored(self.tarnwick)["MouseButton"], "25")
            self.tarnwick.stop()

    def test_is_not_learned_from_the_first_two(self):
        self.start_with_window(MouseButton=0)
        for button in (LEFT, RIGHT):
            self.preferences.click_mouse_button(button)
        holds_for(lambda: stored(self.tarnwick)["MouseButton"] == "0", A_WHILE, "a button has been stored")


class TheOptions(ThePreferences):
    def test_switch_the_hot_key_off_and_on_at_once(self):
        self.start_with_window()
        self.assert_opens_menu("z", OPTION)
        for value in ("false", "true"):
            self.preferences.click("Open the menu with a hot key", CHECK_BOX)
            wait_until_stored(self.tarnwick, EnableHotkey=value)
            if value == "false":
                self.assert_does_nothing("z", OPTION)
        self.assert_opens_menu("z", OPTION)

    def test_write_and_remove_what_starts_it_at_login(self):
        self.start_with_window()
        self.preferences.show_pane("General")
        self.assertFalse(self.login_entry().exists())
        self.preferences.click("Start Tarnwick when I log in", CHECK_BOX)
        wait_for(self.login_entry().exists, "an entry")
        self.assertIn(os.path.realpath(self.tarnwick.program_file), self.login_entry().read_text())
        wait_until_stored(self.tarnwick, LaunchOnLogin="true")
        self.restart()
        self.tarnwick.wait_until_ready()  # or the next start would be the first
        preferences = self.start_again()
        preferences.show_pane("General")
        self.assertTrue(preferences.is_checked("Start Tarnwick when I log in"))
        preferences.click("Start Tarnwick when I log in", CHECK_BOX)
        wait_for(lambda: not self.login_entry().exists(), "no entry")
        wait_until_stored(self.tarnwick, LaunchOnLogin="false")

    def test_are_left_after_a_restart_as_they_were(self):
        boxes = {"Show Tarnwick's icon in the status area": "ShowStatusBarIcon",
                 "Show keyboard shortcuts beside the menu items": "ShowKeyEquivalents"}
        self.start_with_window()
        self.preferences.show_pane("General")
        before = {box: self.preferences.is_checked(box) for box in boxes}
        for box, key in boxes.items():
            self.preferences.click(box, CHECK_BOX)
            wait_until_stored(self.tarnwick, **{key: str(not before[box]).lower()})
        self.restart()
        self.tarnwick.wait_until_ready()  # or the next start would be the first
        preferences = self.start_again()
        preferences.show_pane("General")
        self.assertEqual({box: preferences.is_checked(box) for box in boxes},
                         {box: not was for box, was in before.items()})


class Reset(ThePreferences):
    def test_brings_every_default_back_at_once_and_for_good(self):
        self.start(**OTHERS)
        self.assert_opens_menu("x", CONTROL, SUPER)
        wait_for(self.login_entry().exists, "an entry")
        preferences = self.start_again()
        self.assertEqual(preferences.recorder.combination, "Super+Ctrl+X")
        preferences.show_pane("General")
        preferences.click("Reset to Defaults", BUTTON)
        wait_for(lambda: not self.login_entry().exists(), "no entry")
        self.assert_defaults()
        self.assert_only_option_z_opens_menu()
        self.restart()
        self.assert_only_option_z_opens_menu()
        self.assert_defaults()
        self.assertFalse(self.login_entry().exists())
        self.assert_controls_show_defaults(self.start_again())

    def assert_defaults(self):
        """A key that is not stored has its default."""
        wait_for(lambda: DEFAULTS == {**DEFAULTS, **self.stored_settings()},
                 f"defaults in {self.stored_settings()}", step=0.05)

    def stored_settings(self):
        return {key: value for key, value in stored(self.tarnwick).items() if key in DEFAULTS}

    def assert_only_option_z_opens_menu(self):
        self.assert_opens_menu("z", OPTION)
        self.assert_does_nothing("x", CONTROL, SUPER)

    def assert_controls_show_defaults(self, preferences):
        preferences.show_pane("General")
        self.assertTrue(preferences.is_checked("Show Tarnwick's icon in the status area"))
        self.assertFalse(preferences.is_checked("Start Tarnwick when I log in"))
        preferences.show_pane("Hot Key")
        self.assertEqual(preferences.recorder.combination, "Alt+Z")
        self.assertEqual(preferences.mouse_button.name, "Mouse button, Button Number: 25")
        self.assertFalse(preferences.is_checked("Open the menu with an extra mouse button"))


class WithoutTheAccessibilityBus(DesktopTest):
    session_options = {"accessibility": False}

    def alerts(self):
        return [window for window in self.screen.windows() if window.title == "Tarnwick"]

    def test_the_alert_is_a_sheet_on_the_window_and_blocks_nothing_else(self):
        tarnwick = Tarnwick(self.session)
        self.screen.wait_until_active(self.screen.window_titled("Tarnwick"))
        self.screen.tap("Escape")  # Continue Anyway
        wait_for(lambda: not self.alerts(), "no alert")
        self.assertEqual(self.session.run(tarnwick.program_file).status(), 0)
        window = self.screen.window_titled("Hot Key")
        sheet = wait_for(self.alerts, "the alert")[0]
        self.assertEqual(self.screen.property_of(sheet.handle, "WM_TRANSIENT_FOR")[0], window.id)
        self.screen.wait_until_active(sheet)
        tarnwick.wait_until_ready()  # the hot key opens the menu meanwhile
        self.screen.tap("Escape")
        wait_for(lambda: not self.alerts(), "no alert")
        self.screen.wait_until_active(window)
        self.assertTrue(tarnwick.program.running())


class BeforeAWindowManagerLooks(DesktopTest):
    session_options = {"window_manager": False}

    def test_the_window_asks_for_all_workspaces_in_both_ways(self):
        tarnwick = Tarnwick(self.session, FirstRun=False)

        def mapped():
            for child in self.screen.root.query_tree().children:
                title = self.screen.property_of(child, "_NET_WM_NAME")
                shown = child.get_attributes().map_state == X.IsViewable
                if shown and title is not None and bytes(title) == b"Hot Key":
                    return child
            return None
        window = wait_for(mapped, f"the preferences; Tarnwick wrote: {tarnwick.program.output}")
        self.assertEqual(list(self.screen.property_of(window, "_NET_WM_DESKTOP")), [0xFFFFFFFF])
        states = [self.screen.atom_name(atom) for atom in self.screen.property_of(window, "_NET_WM_STATE")]
        self.assertIn("_NET_WM_STATE_STICKY", states)


if __name__ == "__main__":
    main()

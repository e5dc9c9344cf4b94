# SPDX-License-Identifier: MIT
"""Tarnwick follows how its desktop looks and moves, while it runs."""
import itertools

from Xlib import X, display

from harness.case import DesktopTest, main
from harness.preferences import CHECK_BOX, Preferences
from harness.tarnwick import Tarnwick
from harness.waiting import try_until, wait_for
from harness.xsettings import XSettings

DARK, LIGHT = 90, 160  # means of a part of the screen, of 255
EDGE = 12  # of the preferences: nothing is drawn there


class LookTest(DesktopTest):
    desktop = ""

    @classmethod
    def prepare(cls):
        cls.session.environment["XDG_CURRENT_DESKTOP"] = cls.desktop
        cls.connect_accessibility().switch_on()
        cls.tarnwick = Tarnwick(cls.session, FirstRun=False)
        cls.preferences = Preferences(cls.session, cls.bus, cls.tarnwick)

    def lightness(self, frame):
        """The mean of a part of the screen."""
        pixels = self.screen.pixels(frame)
        return sum(sum(pixels[channel::4]) for channel in range(3)) / (len(pixels) // 4 * 3)

    def ground_of_preferences(self):
        x, y, _, height = self.preferences.window.frame
        return self.lightness((x + 2, y + height // 2, EDGE, EDGE))

    def wait_for_menu(self, dark):
        """Opens the menu, waits until it looks so, and closes it."""
        frame = self.tarnwick.open().frame
        wait_for(lambda: self.is_as(dark, self.lightness(frame)), "the menu in the new colours")
        self.tarnwick.close_menu()

    @staticmethod
    def is_as(dark, lightness):
        return lightness < DARK if dark else lightness > LIGHT

    def wait_for_look(self, dark):
        wait_for(lambda: self.is_as(dark, self.ground_of_preferences()),
                 "dark preferences" if dark else "light preferences", step=0.02)


class WhatOtherDesktopsTell(LookTest):
    @classmethod
    def prepare(cls):
        super().prepare()
        cls.tarnwick.wait_until_ready()
        # The settings program comes late, as it does where Tarnwick starts with the session.
        cls.settings = XSettings(cls.session.environment["DISPLAY"])
        cls.addClassCleanup(cls.settings.close)

    def tearDown(self):
        self.settings.set({"Net/ThemeName": "Adwaita", "Gtk/FontName": "DejaVu Sans 9", "Gtk/EnableAnimations": 1})
        self.wait_for_look(dark=False)

    def test_light_and_dark_are_followed_by_the_preferences_and_the_menu(self):
        for theme, dark in (("Adwaita-dark", True), ("Adwaita", False)):
            with self.subTest(theme):
                self.settings.set({"Net/ThemeName": theme})
                self.wait_for_look(dark)
                self.wait_for_menu(dark)

    def test_high_contrast_is_black_and_white(self):
        for theme, ground in (("HighContrastInverse", 0), ("HighContrast", 255)):
            with self.subTest(theme):
                self.settings.set({"Net/ThemeName": theme})
                wait_for(lambda wanted=ground: self.ground_of_preferences() == wanted, theme, step=0.02)

    def test_another_font_gives_the_window_another_size(self):
        before = self.preferences.window.frame
        self.settings.set({"Gtk/FontName": "DejaVu Serif 16"})

        def grown():
            _, _, width, height = self.preferences.window.frame
            return width > before[2] and height > before[3]
        wait_for(grown, "a larger window")
        self.settings.set({"Gtk/FontName": "DejaVu Sans 9"})
        wait_for(lambda: not grown(), "a smaller window")

    def heights_on_the_way_to(self, pane):
        """The heights that the window has until it shows another pane at rest, each as the server tells of it."""
        watch = display.Display(self.session.environment["DISPLAY"])
        watch.create_resource_object("window", self.preferences.window.id).change_attributes(
            event_mask=X.StructureNotifyMask)
        watch.sync()
        heights = [self.preferences.window.frame[3]]
        self.preferences.click(pane, CHECK_BOX)

        def rests():
            heights.append(self.preferences.window.frame[3])
            return len(heights) > 60 and len(set(heights[-40:])) == 1 and self.preferences.window.title == pane
        wait_for(rests, f"the pane {pane!r} at rest", step=0.01)
        watch.sync()
        told = [watch.next_event() for _ in range(watch.pending_events())]
        watch.close()
        return set(heights) | {event.height for event in told if event.type == X.ConfigureNotify}

    def test_nothing_moves_where_nothing_is_to_move(self):
        self.settings.set({"Gtk/EnableAnimations": 0, "Net/ThemeName": "Adwaita-dark"})
        self.wait_for_look(dark=True)  # both are taken up together
        self.assertLessEqual(len(self.heights_on_the_way_to("About")), 2)
        self.settings.set({"Gtk/EnableAnimations": 1, "Net/ThemeName": "Adwaita"})
        self.wait_for_look(dark=False)
        panes = itertools.cycle(("Hot Key", "About"))  # a program that gets no time jumps to the end
        try_until(lambda: len(self.heights_on_the_way_to(next(panes))) > 2, "heights in between", most=4)


class WhatKdeTells(LookTest):
    desktop = "KDE"

    def tell(self, ground, text):
        path = self.session.directory / "home/.config/kdeglobals"
        group = f"BackgroundNormal={ground}\nForegroundNormal={text}\n"
        path.write_text("".join(f"[Colors:{part}]\n{group}" for part in ("Window", "View", "Button")))
        self.session.call("dbus-send", "--session", "--type=signal", "/KGlobalSettings",
                          "org.kde.KGlobalSettings.notifyChange", "int32:0", "int32:0")

    def test_colours_are_followed_by_the_preferences_and_the_menu(self):
        for ground, text, dark in (("42,46,50", "252,252,252", True), ("239,240,241", "35,38,41", False)):
            with self.subTest(ground):
                self.tell(ground, text)
                self.wait_for_look(dark)
                self.wait_for_menu(dark)


if __name__ == "__main__":
    main()

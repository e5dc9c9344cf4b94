# SPDX-License-Identifier: MIT
"""Another hot key is recorded by pressing it, and then it is the one that opens the menu."""
from Xlib import X

from harness.case import DesktopTest, main
from harness.preferences import AlertOnTop, Preferences, stored, wait_until_stored
from harness.tarnwick import OPTION, Tarnwick
from harness.waiting import holds_for, wait_for

CONTROL, SUPER, SHIFT = "Control_L", "Super_L", "Shift_L"
UNTIL_REPEATS = 1.2  # seconds after which a held key has been repeated several times
A_WHILE = 0.4  # seconds in which a menu would have come
OPTION_Z = {"TriggerCharacterUInt": 6, "TriggerModifiers": 0x80000}
CONTROL_SUPER_X = {"TriggerCharacterUInt": 7, "TriggerModifiers": 0x140000}
NOTHING = {"TriggerCharacterUInt": 2**64 - 1, "TriggerModifiers": 0}


class Recording(DesktopTest):
    """Each test has a Tarnwick with Option-Z whose preferences are open: they open at a first start."""

    @classmethod
    def prepare(cls):
        cls.connect_accessibility()

    def setUp(self):
        self.start(FirstRun=False)
        self.preferences = Preferences(self.session, self.bus, self.tarnwick)
        self.recorder = self.preferences.recorder

    def start(self, **settings):
        self.tarnwick = Tarnwick(self.session, **settings)
        self.addCleanup(self.tarnwick.stop)

    def restart(self, **settings):
        """Ends the program and starts it with what it has stored, and `settings`."""
        self.tarnwick.stop()
        self.start(**{**stored(self.tarnwick), **settings})

    def assert_opens_menu(self, key, *held):
        def opens():
            self.screen.tap(key, *held)
            return self.tarnwick.popups.count() == 1
        wait_for(opens, f"a menu at {held} {key}", step=0.2)
        self.tarnwick.close_menu()

    def assert_does_nothing(self, key, *held):
        self.screen.tap(key, *held)
        holds_for(lambda: self.tarnwick.popups.count() == 0, A_WHILE, f"{held} {key} opened the menu")

    def assert_keeps_option_z(self):
        self.recorder.wait_until_shown("Alt+Z")
        wait_for(lambda: self.screen.grabs_left() == [], "a free keyboard")
        wait_until_stored(self.tarnwick, **OPTION_Z)
        self.assert_opens_menu("z", OPTION)


class ANewHotKey(Recording):
    def test_is_stored_and_opens_the_menu_instead_of_the_old_one_also_after_a_restart(self):
        self.recorder.start()
        self.screen.tap("x", CONTROL, SUPER)
        self.recorder.wait_until_shown("Super+Ctrl+X")
        wait_until_stored(self.tarnwick, **CONTROL_SUPER_X, NewTrigger="⌃⌘X")
        wait_for(lambda: self.screen.grabs_left() == [], "a free keyboard")
        for restarted in (False, True):
            with self.subTest(restarted=restarted):
                self.assert_opens_menu("x", CONTROL, SUPER)
                self.assert_does_nothing("z", OPTION)
                if not restarted:
                    self.restart()

    def test_does_not_open_the_menu_while_its_keys_are_still_held_from_recording(self):
        self.recorder.start()
        for key in (CONTROL, SUPER, "x"):
            self.screen.press(key)
        wait_until_stored(self.tarnwick, **CONTROL_SUPER_X)
        holds_for(lambda: self.tarnwick.popups.count() == 0, UNTIL_REPEATS, "a repeat opened the menu")
        for key in ("x", SUPER, CONTROL):
            self.screen.release(key)
        wait_for(lambda: self.screen.grabs_left() == [], "the keyboard free")
        self.assert_opens_menu("x", CONTROL, SUPER)

    def test_has_its_text_stored_last(self):
        self.recorder.start()
        self.screen.tap("x", CONTROL, SUPER)
        seen = []

        def text_is_new():
            seen.append(stored(self.tarnwick))
            return seen[-1].get("NewTrigger") == "⌃⌘X"
        wait_for(text_is_new, "the text stored", step=0)
        numbers = {key: seen[-1][key] for key in CONTROL_SUPER_X}
        self.assertEqual(numbers, {key: str(value) for key, value in CONTROL_SUPER_X.items()})

    def test_can_be_recorded_with_the_keyboard_alone(self):
        self.screen.tap("s", OPTION)  # the mnemonic of its label
        self.screen.tap("space")
        self.recorder.wait_until_recording()
        self.screen.tap("F5", CONTROL)
        self.recorder.wait_until_shown("Ctrl+F5")
        self.assert_opens_menu("F5", CONTROL)

    def test_is_not_taken_from_a_bare_letter(self):
        self.recorder.start()
        self.screen.tap("x")
        holds_for(self.recorder.is_recording, A_WHILE, "a bare letter has ended recording")
        self.screen.tap("Escape")
        self.assert_keeps_option_z()


class KeyboardOptions:
    """Modifier keys that choose another layout while others are held: what a key is does not depend on that."""

    option = None

    @classmethod
    def prepare(cls):
        super().prepare()
        cls.session.call("setxkbmap", "-layout", "us,de", "-option", cls.option)

    def assert_recorded(self, keys, shown, **values):
        """The first two of `keys` are modifier keys, which are held in either order while the last one goes down."""
        for first, second in (keys[:2], keys[1::-1]):
            with self.subTest(first=first, second=second):
                self.recorder.start()
                self.screen.press(first)
                self.screen.press(second)
                holds_for(self.recorder.is_recording, A_WHILE, "recording has ended at a modifier key")
                self.screen.press(keys[2])
                self.recorder.wait_until_shown(f"{shown}+{keys[2].upper()}")
                wait_until_stored(self.tarnwick, **values)
                for key in reversed(keys):
                    self.screen.release(key)
                wait_for(lambda: self.screen.grabs_left() == [], "the keyboard free")


class AltAndShiftThatChooseTheLayout(KeyboardOptions, Recording):
    option = "grp:alt_shift_toggle"

    def test_are_recorded_as_what_they_are(self):
        self.assert_recorded((OPTION, SHIFT, "x"), "Alt+Shift", TriggerCharacterUInt=7, TriggerModifiers=0xA0000)


class ControlAndShiftThatChooseTheLayout(KeyboardOptions, Recording):
    option = "grp:ctrl_shift_toggle"

    def test_are_recorded_as_what_they_are(self):
        self.assert_recorded((CONTROL, SHIFT, "x"), "Ctrl+Shift", TriggerCharacterUInt=7, TriggerModifiers=0x60000)


class TheOldHotKey(Recording):
    def test_stays_with_escape(self):
        self.recorder.start()
        self.screen.tap("Escape")
        self.assert_keeps_option_z()

    def test_stays_with_delete(self):
        for key in ("Delete", "BackSpace"):
            with self.subTest(key):
                self.recorder.start()
                self.screen.tap(key)
                self.assert_keeps_option_z()

    def test_stays_with_snap_back(self):
        self.recorder.start()
        self.recorder.click_small_button()
        self.assert_keeps_option_z()

    def test_stays_when_the_window_is_closed_while_recording(self):
        self.recorder.start()
        self.screen.click(at=self.close_button())
        wait_for(lambda: not self.screen.windows(), "no window")
        wait_for(lambda: self.screen.grabs_left() == [], "a free keyboard")
        self.assert_opens_menu("z", OPTION)

    def test_stays_when_the_program_crashes_while_recording(self):
        """What recording had taken for itself is free again at once."""
        self.recorder.start()
        self.assertIn("keyboard", self.screen.grabs_left())
        self.tarnwick.program.kill()
        wait_for(lambda: self.screen.grabs_left() == [], "a free keyboard")
        self.restart()
        self.assert_opens_menu("z", OPTION)

    def close_button(self):
        """Where the window manager has put it: at the right end of the title bar."""
        x, y, width, _ = self.preferences.window.frame
        return x + width - 9, y - 9

    def test_does_not_fire_while_recording_and_can_be_recorded_itself(self):
        self.recorder.start()
        self.screen.press(OPTION)
        self.screen.press("z")
        holds_for(lambda: self.tarnwick.popups.count() == 0, A_WHILE, "the hot key opened the menu")
        self.screen.release("z")
        self.screen.release(OPTION)
        self.assertEqual([window.id for window in self.screen.windows()], [self.preferences.window.id])  # no alert
        self.assert_keeps_option_z()

    def test_is_removed_by_the_remove_button_and_no_key_opens_the_menu_also_after_a_restart(self):
        self.recorder.click_small_button()
        self.recorder.wait_until_shown("none")
        wait_until_stored(self.tarnwick, **NOTHING)
        self.assert_no_key_opens_the_menu()
        self.restart(FirstRun=False)
        again = Preferences(self.session, self.bus, self.tarnwick)
        self.assertEqual(again.recorder.combination, "none")
        self.assert_no_key_opens_the_menu()
        again.close()
        self.assert_no_key_opens_the_menu()

    def assert_no_key_opens_the_menu(self):
        self.assert_does_nothing("z", OPTION)
        for letter in "az":
            self.assert_does_nothing(letter)


class ACombinationThatIsTaken(Recording):
    SHORTCUTS = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-keyboard-shortcuts" version="1.0">
  <property name="commands" type="empty">
    <property name="custom" type="empty">
      <property name="override" type="bool" value="true"/>
      <property name="&lt;Primary&gt;&lt;Super&gt;t" type="string" value="xfce4-terminal"/>
    </property>
  </property>
</channel>
"""
    BY_SYSTEM = ("it's already used by a system-wide keyboard shortcut. (If you really want to use this key "
                 "combination, most shortcuts can be changed in the Keyboard & Mouse panel in System Preferences.)")

    @classmethod
    def prepare(cls):
        super().prepare()
        folder = cls.session.directory / "home/.config/xfce4/xfconf/xfce-perchannel-xml"
        folder.mkdir(parents=True)
        (folder / "xfce4-keyboard-shortcuts.xml").write_text(cls.SHORTCUTS)
        cls.session.environment["XDG_CURRENT_DESKTOP"] = "XFCE"

    def assert_refused(self, key, held, keys, reason):
        """An alert tells why; afterwards the field still records, and takes a combination that is free."""
        self.recorder.start()
        self.screen.tap(key, *held)
        alert = AlertOnTop(self.session, self.bus, self.tarnwick)
        self.assertEqual(alert.texts(), [f"The key combination {keys} can't be used!",
                                         f'The key combination "{keys}" can\'t be used because {reason}'])
        alert.dismiss()
        self.screen.wait_until_active(self.preferences.window)
        self.assertTrue(self.recorder.is_recording())
        wait_until_stored(self.tarnwick, **OPTION_Z)
        self.screen.tap("x", CONTROL, SUPER)
        self.recorder.wait_until_shown("Super+Ctrl+X")
        wait_until_stored(self.tarnwick, **CONTROL_SUPER_X)
        self.assert_opens_menu("x", CONTROL, SUPER)

    def test_by_another_program_is_refused(self):
        give_back = self.screen.hold_key("k", X.ControlMask | X.Mod4Mask)
        self.addCleanup(give_back)
        self.assert_refused("k", (CONTROL, SUPER), "Super+Ctrl+K", self.BY_SYSTEM)

    def test_by_the_desktop_is_refused(self):
        self.assert_refused("t", (CONTROL, SUPER), "Super+Ctrl+T", self.BY_SYSTEM)

    def test_by_the_own_menu_is_refused(self):
        self.assert_refused("q", (CONTROL,), "Ctrl+Q", 'it\'s already used by the menu item "Quit".')
        self.assertTrue(self.tarnwick.program.running())


if __name__ == "__main__":
    main()

# SPDX-License-Identifier: MIT
"""The hot key under every circumstance that a keyboard brings."""
from Xlib import X

from harness.case import DesktopTest, main
from harness.over import OverGtk3
from harness.tarnwick import OPTION, TRIGGER, Tarnwick
from harness.waiting import holds_for, wait_for

MENUS_STAY = 0.4  # seconds in which a menu that should not come would come


class TheHotKey(OverGtk3):
    def menus(self):
        return self.tarnwick.popups.count()

    def locked(self, mask):
        return bool(self.screen.root.query_pointer().mask & mask)

    def lock(self, key, mask):
        self.screen.tap(key)
        wait_for(lambda: self.locked(mask), f"{key} on")
        self.addCleanup(self.unlock, key, mask)

    def unlock(self, key, mask):
        self.screen.tap(key)
        wait_for(lambda: not self.locked(mask), f"{key} off")

    def test_works_with_caps_lock(self):
        self.lock("Caps_Lock", X.LockMask)
        self.tarnwick.open()
        self.tarnwick.close_menu()

    def test_works_with_num_lock(self):
        self.lock("Num_Lock", X.Mod2Mask)
        self.tarnwick.open()
        self.tarnwick.close_menu()

    def test_works_with_both_locks(self):
        self.lock("Caps_Lock", X.LockMask)
        self.lock("Num_Lock", X.Mod2Mask)
        self.tarnwick.open()
        self.tarnwick.close_menu()

    def test_does_not_fire_with_a_further_modifier(self):
        self.screen.tap(TRIGGER, OPTION, "Control_L")
        self.screen.tap(TRIGGER, OPTION, "Shift_L")
        holds_for(lambda: self.menus() == 0, MENUS_STAY, "a menu opened")

    def test_keeps_the_key_and_not_the_letter_when_the_layout_changes(self):
        self.addCleanup(self.session.call, "setxkbmap", "us")
        self.session.call("setxkbmap", "de")
        wait_for(lambda: self.screen.keysym_of(TRIGGER) == "y", "the German layout")
        self.tarnwick.open()
        self.tarnwick.close_menu()
        self.screen.tap("z", OPTION)  # the key between T and U
        holds_for(lambda: self.menus() == 0, MENUS_STAY, "the letter opened a menu")

    def test_held_down_opens_one_menu_and_types_nothing(self):
        self.session.call("xset", "r", "rate", "150", "40")
        self.screen.press(OPTION)
        self.screen.press(TRIGGER)
        self.tarnwick.popups.wait_for(1)
        holds_for(lambda: self.menus() == 1, 0.8, "not one menu while the key is held")
        self.screen.release(TRIGGER)
        self.screen.release(OPTION)
        self.screen.tap("Escape")
        self.tarnwick.wait_until_closed()
        holds_for(lambda: self.menus() == 0, MENUS_STAY, "the menu came back")
        self.screen.type("x")
        self.application.wait_for_line("typed", "x")
        self.assertEqual(self.application.typed(), ["x"])

    def test_while_the_menu_is_open_does_nothing_more(self):
        self.tarnwick.open()
        self.tarnwick.trigger()
        holds_for(lambda: self.menus() == 1, 0.3, "the menu did not stay alone")
        self.screen.tap("Escape")
        self.tarnwick.wait_until_closed()
        holds_for(lambda: self.menus() == 0, MENUS_STAY, "the menu came back")

    def test_can_be_pressed_fast_many_times(self):
        for _ in range(20):
            self.tarnwick.open()
            self.screen.tap("Escape")
            self.tarnwick.wait_until_closed()
        self.assert_nothing_is_held()


class AHotKeyThatAnotherProgramHolds(DesktopTest):
    def test_fires_nothing_and_hangs_nothing(self):
        release = self.screen.hold_key(TRIGGER, X.Mod1Mask)
        self.connect_accessibility()
        tarnwick = Tarnwick(self.session, EnableMouseButton=True)
        wait_for(self.bus.is_enabled, "accessibility switched on", step=0.05)
        for _ in range(3):
            tarnwick.trigger()
        holds_for(lambda: tarnwick.popups.count() == 0, 0.6, "a menu opened")
        release()

        self.screen.click(8)
        tarnwick.popups.wait_for(1)
        tarnwick.close_menu()
        self.assertTrue(tarnwick.program.running())


class TheHotKeySwitchedOff(DesktopTest):
    def test_leaves_the_chord_to_the_others(self):
        self.connect_accessibility()
        tarnwick = Tarnwick(self.session, EnableHotkey=False)
        wait_for(self.bus.is_enabled, "accessibility switched on", step=0.05)
        tarnwick.trigger()
        holds_for(lambda: tarnwick.popups.count() == 0, 0.6, "a menu opened")
        self.assertTrue(tarnwick.program.running())
        self.screen.hold_key(TRIGGER, X.Mod1Mask)()


class AnotherHotKey(DesktopTest):
    def test_is_read_from_the_settings_at_start(self):
        """Command-Control-X is Super-Control and the key X."""
        self.connect_accessibility()
        tarnwick = Tarnwick(self.session, TriggerModifiers=0x140000, TriggerCharacterUInt=7)
        wait_for(self.bus.is_enabled, "accessibility switched on", step=0.05)
        tarnwick.wait_until_at_rest()
        tarnwick.open_with("x", "Super_L", "Control_L")
        tarnwick.close_menu()
        tarnwick.trigger()
        holds_for(lambda: tarnwick.popups.count() == 0, MENUS_STAY, "Option-Z opened a menu")


if __name__ == "__main__":
    main()

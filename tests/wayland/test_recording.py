# SPDX-License-Identifier: MIT
"""The preferences on Wayland itself: another hot key is recorded, though the compositor has the keys for itself else, and a
mouse button is learned. Nothing is said to be missing: no alert is before the window."""
import os

from case import NativeFixture, WaylandTest, main, wait_for
from compositors import KWin
from harness.accessible import FOCUSED, SHOWING
from harness.preferences import BUTTON, LABEL
from harness.tarnwick import settings_text
from harness.wayland_input import MIDDLE_BUTTON

ALT, F4, X, CONTROL, ESCAPE = 64, 70, 53, 37, 9
ACTIVE = 1  # the state of a window
INHIBITS = "zwp_keyboard_shortcuts_inhibit_manager_v1"


class Recording(WaylandTest):
    """Each test has a Tarnwick whose preferences are open: they open at a first start."""

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()

    def setUp(self):
        super().setUp()
        self.session.put_pointer_away()
        self.empty = self.session.picture()
        self.settings = self.session.directory / "home/.config/Quorlane/Tarnwick.conf"
        self.settings.parent.mkdir(parents=True, exist_ok=True)
        self.settings.write_text(settings_text({"FirstRun": False, "MouseButton": 0}))
        self.program = self.session.run(os.environ["TARNWICK_BINARY"], QT_QPA_PLATFORM="")
        self.addCleanup(self.program.stop)
        self.application = self.bus.application(self.program.pid)
        self.recorder = self.control("Shortcut, ", BUTTON)
        # What the desktop says of the hot key may come later.
        self.control("Keys given by the desktop" if isinstance(self.session, KWin) else "This desktop gives no keys", LABEL)
        self.wait_until_at_rest()

    def control(self, name, role):
        def find():
            return next((node for node in self.application.descendants()
                         if node.name.startswith(name) and node.role == role and SHOWING in node.states), None)
        return wait_for(find, f"the control {name!r}; the program wrote {self.program.output!r}", step=0.05)

    def wait_until_at_rest(self):
        """Waits for the window in the picture, and gives its frame: (left, top, right, bottom)."""
        seen = []

        def rests():
            seen.append(self.session.picture())
            return len(seen) > 2 and seen[-1] == seen[-2] == seen[-3] and seen[-1].changed_from(self.empty)
        return wait_for(rests, "the window in the picture", step=0.05)

    def start_recording(self):
        self.recorder.press()
        wait_for(lambda: self.recorder.name.startswith("Shortcut, recording"), "recording", step=0.02)

    def wait_until_shown(self, combination):
        wait_for(lambda: self.recorder.name.split(", ")[1] == combination, f"{combination!r} in {self.recorder.name!r}",
                 step=0.02)

    def refused(self, message):
        """The desktop has told whose the keys are: that is said, and they are not taken."""
        self.control(message, LABEL)
        self.control("OK", BUTTON).press()
        wait_for(lambda: FOCUSED in self.recorder.states, f"recording again, not {self.recorder.states}", step=0.02)
        self.input.tap(ESCAPE)
        self.wait_until_shown("Alt+Z")

    def test_a_key_of_the_compositor_is_recorded_and_is_the_compositors_again_afterwards(self):
        self.start_recording()
        if INHIBITS in self.input.names:
            self.input.tap(F4, ALT)
            if isinstance(self.session, KWin):
                self.refused("The key combination Alt+F4 can't be used")
            else:
                self.wait_until_shown("Alt+F4")
        self.assert_keys_are_the_compositors()

    def assert_keys_are_the_compositors(self):
        """One of them closes the window."""
        wait_for(lambda: ACTIVE in self.application.children[0].states, "the window in front", step=0.05)
        self.input.tap(F4, ALT)
        wait_for(lambda: SHOWING not in self.recorder.states, "no window", step=0.05)

    def test_after_escape_keys_are_the_compositors(self):
        self.start_recording()
        self.input.tap(ESCAPE)
        self.wait_until_shown("Alt+Z")
        self.assert_keys_are_the_compositors()

    def test_a_window_that_comes_to_the_front_ends_it_and_keys_are_the_compositors(self):
        self.start_recording()
        other = NativeFixture(self.session, "gtk3")
        self.wait_until_shown("Alt+Z")
        other.program.stop()
        self.assert_keys_are_the_compositors()

    def test_the_windows_end_is_its_end_and_keys_are_the_compositors(self):
        self.start_recording()
        self.session.close_window()
        wait_for(lambda: SHOWING not in self.recorder.states, "no window", step=0.05)
        self.session.call("gapplication", "launch", "example.quorlane.Tarnwick")
        wait_for(lambda: SHOWING in self.recorder.states, "the window", step=0.05)
        self.wait_until_shown("Alt+Z")
        self.assert_keys_are_the_compositors()

    def test_a_mouse_button_is_learned_by_a_click_in_the_control(self):
        button = self.control("Mouse button, ", LABEL)
        _, _, width, height = self.application.children[0].frame  # without the frame around it
        left, _, right, bottom = self.wait_until_at_rest()
        frame = (right - left - width) // 2  # as wide below as beside
        x, y = button.center
        self.input.click((left + frame + x, bottom - frame - height + y), MIDDLE_BUTTON)
        wait_for(lambda: button.name == "Mouse button, Button Number: 25", "an extra button in the control")
        wait_for(lambda: "MouseButton=25\n" in self.settings.read_text(), "an extra button in the settings", step=0.05)

    def test_any_key_is_recorded(self):
        self.start_recording()
        self.input.tap(X, CONTROL, ALT)
        self.wait_until_shown("Ctrl+Alt+X")


if __name__ == "__main__":
    main()

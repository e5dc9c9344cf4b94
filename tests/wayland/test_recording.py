# SPDX-License-Identifier: MIT
"""The preferences on Wayland itself: another hot key is recorded, though the compositor has the keys for itself else. Nothing
is said to be missing: no alert is before the window."""
import os

from case import WaylandTest, main, wait_for
from compositors import KWin
from harness.accessible import FOCUSED, SHOWING
from harness.preferences import BUTTON, LABEL
from harness.tarnwick import settings_text

ALT, F4, X, CONTROL, ESCAPE = 64, 70, 53, 37, 9
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
        settings = self.session.directory / "home/.config/Quorlane/Tarnwick.conf"
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text(settings_text({"FirstRun": False, "MouseButton": 0}))
        self.program = self.session.run(os.environ["TARNWICK_BINARY"], QT_QPA_PLATFORM="")
        self.addCleanup(self.program.stop)
        self.application = self.bus.application(self.program.pid)
        self.recorder = self.control("Shortcut, ", BUTTON)
        # What the desktop says of the hot key comes later, and the window grows with it.
        self.control("The desktop has given" if isinstance(self.session, KWin) else "This desktop gives no keys", LABEL)
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
        self.wait_until_shown("Option Z")

    def test_a_key_of_the_compositor_is_recorded_and_is_the_compositors_again_afterwards(self):
        self.start_recording()
        if INHIBITS in self.input.names:
            self.input.tap(F4, ALT)
            if isinstance(self.session, KWin):
                self.refused("The key combination ⌥F4 can't be used")
            else:
                self.wait_until_shown("Option F4")
        self.input.tap(F4, ALT)  # closes the window
        wait_for(lambda: SHOWING not in self.recorder.states, "no window", step=0.05)

    def test_any_key_is_recorded(self):
        self.start_recording()
        self.input.tap(X, CONTROL, ALT)
        self.wait_until_shown("Option Control X")


if __name__ == "__main__":
    main()

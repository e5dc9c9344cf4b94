# SPDX-License-Identifier: MIT
"""The preferences while the scale of their screen changes."""
from case import main, wait_for
from harness.preferences import LABEL
from harness.rest import wait_until_idle
from harness.wayland_input import SIZE
from test_windows import OwnWindows

SCALES = 2, 1.5, 1


class OpenPreferences(OwnWindows):
    def change_scale(self, scale):
        """The screen has so many more pixels, and is as large as before to whoever is on it."""
        mode = "x".join(str(round(scale * length)) for length in SIZE)
        self.session.call("wlr-randr", "--output", "HEADLESS-1", "--custom-mode", mode, "--scale", scale)

    def has_pixels_for(self, scale):
        return (self.session.picture().width, self.session.picture().height) == tuple(round(scale * n) for n in SIZE)

    def picture_of_new_ones(self):
        self.start(FirstRun=True)
        wait_until_idle([self.program.pid])  # it has found out how keys are had here: a line more makes the window larger
        self.assertEqual(self.second_start(), 0)
        self.control("This desktop gives no keys", LABEL)
        self.wait_for_keyboard()
        wait_until_idle([self.program.pid])
        return self.session.picture_at_rest()

    def test_are_as_sharp_and_as_large_as_new_ones(self):
        self.session.put_pointer_away()
        new = {}
        for scale in SCALES:
            self.change_scale(scale)
            wait_for(lambda now=scale: self.has_pixels_for(now), f"a screen of the scale {scale}", step=0.05)
            new[scale] = self.picture_of_new_ones()
            if scale != SCALES[-1]:
                self.program.stop()
        for scale in SCALES:
            with self.subTest(scale):
                self.change_scale(scale)
                wait_for(lambda now=scale: self.session.picture() == new[now], "what new ones look like", step=0.05)


if __name__ == "__main__":
    main()

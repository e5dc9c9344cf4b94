# SPDX-License-Identifier: MIT
"""What the keys type is known from the compositor: the map with and without a window, which of its layouts with one."""
import os
import pathlib

from case import WaylandTest, main, wait_for

US, DE, RU = "az AZ", "ay AY", "фя ФЯ"
PROBE = pathlib.Path(os.environ["TARNWICK_FIXTURES"]) / "keyboard_probe"


class TheLayout(WaylandTest):
    def setUp(self):
        super().setUp()
        self.session.set_layouts("us")

    def start(self, *options):
        self.probe = self.session.run(PROBE, *options)
        self.addCleanup(self.probe.stop)
        self.wait_until_typing(US)

    def told(self):
        """What the keys type, oldest first, and the comings and goings of the keyboard."""
        return self.probe.output.splitlines()

    def wait_until_typing(self, letters):
        wait_for(lambda: [line for line in self.told() if line.startswith("types")][-1:] == [f"types {letters}"],
                 f"{letters!r} in {self.probe.output_file.name}")

    def test_another_map_is_told_without_a_window(self):
        self.start("--hidden")
        self.session.set_layouts("de")
        self.wait_until_typing(DE)
        self.session.set_layouts("us")
        self.wait_until_typing(US)
        self.assertNotIn("focus in", self.told())

    def test_another_layout_of_the_map_is_told_to_a_window(self):
        self.start()
        wait_for(lambda: "focus in" in self.told(), "the keyboard")
        self.session.set_layouts("us,ru")
        self.session.choose_layout(1)
        self.wait_until_typing(RU)
        self.session.choose_layout(0)
        self.wait_until_typing(US)


if __name__ == "__main__":
    main()

# SPDX-License-Identifier: MIT
"""Menu bars that programs export for a place outside their windows, where the compositor tells which is that of a window."""
import os
import pathlib
import signal
import sys

from case import main, wait_for
from native import OWN_ENTRY, MenuTest
from windows import Windows

PROGRAM = pathlib.Path(__file__).resolve().parent / "exporting.py"
TITLES = ["File", "View", "Help", "", OWN_ENTRY]


class MenusToldOf(MenuTest):
    def setUp(self):
        super().setUp()
        self.windows = Windows(self.session)
        self.addCleanup(self.windows.stop)

    def start(self, *options):
        """Starts the program, and returns it once its window is the active one."""
        program = self.session.run(sys.executable, PROGRAM, *options)
        self.addCleanup(program.stop)
        wait_for(lambda: self.windows.active()[1] == program.pid, f"its window; it wrote {program.output!r}")
        self.addCleanup(self.close)
        return program

    def wait_until_clicked(self, program, *entries):
        def clicked():
            return [line.split(" at ")[0] for line in program.output.splitlines() if line.startswith("clicked ")]
        expected = [f"clicked {entry}" for entry in entries]
        wait_for(lambda: len(clicked()) >= len(expected), f"{entries} carried out; it wrote {program.output!r}")
        self.assertEqual(clicked(), expected)

    def test_are_shown_and_pressed_by_keyboard_and_by_pointer(self):
        program = self.start()
        self.assertEqual(self.open(), TITLES)
        self.choose_in_open_menu("File", "Open Recent", "notes_1.txt")
        self.wait_until_clicked(program, "File > Open Recent > notes_1.txt")
        self.pointer = 640, 400
        self.input.move(*self.pointer)
        self.open()
        self.point_at("Help")
        self.reader.wait_for(2)
        self.click_at("About")
        self.wait_until_closed()
        self.wait_until_clicked(program, "File > Open Recent > notes_1.txt", "Help > About")
        self.assertNotIn("AboutToShow", program.output)

    def test_are_shown_once_the_compositor_is_told(self):
        program = self.start("late")
        self.assertNotIn("File", self.open())
        self.close()
        os.kill(program.pid, signal.SIGUSR1)
        wait_for(lambda: "told" in program.output, "the compositor told")
        self.tarnwick.wait_until_told()
        self.assertEqual(self.open(), TITLES)


if __name__ == "__main__":
    main()

# SPDX-License-Identifier: MIT
"""An application that does not answer for a while after the switch to it has its menu all the same."""
import os
import signal
import time

from harness.applications import Fixture, mousepad
from harness.case import DesktopTest, main
from harness.over import OWN_ENTRY
from harness.tarnwick import Tarnwick
from harness.waiting import wait_for

EDITOR = ["File", "Edit", "View", "Help"]
VIEWER = ["File", "Image", "Go"]
BEYOND_THE_FIRST_LOOK = 1.6  # seconds; the first is over after 1.15, the second begins after 2.45 or more
INTO_THE_FIRST_LOOK = 0.7  # seconds; it begins after 0.65


class ABusyApplication:
    """It stops at the moment of the switch, and this Tarnwick has asked nothing of it before."""

    titles = VIEWER

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.editor = Fixture(cls.session, "gtk3", title="Editor")
        cls.application = cls.start_application()
        cls.bus.application(cls.application.pid)

    def titles_after(self, seconds):
        """What the menu shows of the application when it stands still for so long from the switch on."""
        self.screen.activate(self.editor.window)
        wait_for(self.editor.is_in_front, "the editor in front")
        tarnwick = Tarnwick(self.session)
        self.addCleanup(tarnwick.stop)
        reader = tarnwick.reader(self.bus)
        self.addCleanup(reader.close)
        tarnwick.wait_for_titles(reader, EDITOR)
        os.kill(self.application.pid, signal.SIGSTOP)
        try:
            self.screen.activate(self.application.window)
            wait_for(self.application.is_in_front, "the switch")
            time.sleep(seconds)
        finally:
            os.kill(self.application.pid, signal.SIGCONT)
        return tarnwick.titles(reader)

    def test_has_its_menu_when_it_answers_at_the_second_look(self):
        self.assertEqual(self.titles_after(BEYOND_THE_FIRST_LOOK), self.titles + ["", OWN_ENTRY])

    def test_has_its_menu_when_it_answers_within_the_first_look(self):
        self.assertEqual(self.titles_after(INTO_THE_FIRST_LOOK), self.titles + ["", OWN_ENTRY])


class ABusyViewer(ABusyApplication):
    """It has no desktop entry: its name has to be asked of it, too."""

    kit = None

    @classmethod
    def start_application(cls):
        return Fixture(cls.session, cls.kit, menu="viewer.menu", title="Viewer")


class ABusyProgramOfGtk3(ABusyViewer, DesktopTest):
    kit = "gtk3"


class ABusyProgramOfGtk4(ABusyViewer, DesktopTest):
    kit = "gtk4"


class ABusyProgramOfQt5(ABusyViewer, DesktopTest):
    kit = "qt5"


class ABusyProgramOfQt6(ABusyViewer, DesktopTest):
    kit = "qt6"


class ABusyMousepad(ABusyApplication, DesktopTest):
    @classmethod
    def start_application(cls):
        return mousepad(cls.session)

    @classmethod
    def prepare(cls):
        super().prepare()
        cls.titles = [item.title for item in cls.application.bar_items(cls.bus)]


if __name__ == "__main__":
    main()

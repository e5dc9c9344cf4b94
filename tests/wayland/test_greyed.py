# SPDX-License-Identifier: MIT
"""An application that greys an item while the menu shows it: the choice is not sent any more, and the next one is."""
from case import main, wait_for
from harness.accessible import SENSITIVE
from harness.monitor import BusMonitor
from harness.rest import wait_until_idle
from native import A, CONTROL, RETURN, RIGHT, X, MenuTest

TEXT = 61  # the role
PRESS = "org.a11y.atspi.Action.DoAction"


class GreyedWhileItIsShown(MenuTest):
    def presses(self, monitor):
        own = self.bus.connection.get_unique_name()
        return [call for call in monitor.calls() if call.method == PRESS and call.sender != own]

    @staticmethod
    def entry(application, menu, title):
        holder = next(item.node for item in application.menu_bar().items() if item.title == menu)
        return next(item.node for item in holder.items() if item.title == title)

    def select_all(self, fixture):
        self.input.tap(X)
        wait_for(lambda: fixture.lines("typed"), "the letter")
        self.input.tap(A, CONTROL)

    def test_is_not_pressed(self):
        def check(fixture):
            self.select_all(fixture)
            application = self.bus.application(fixture.pid)
            text = next(node for node in application.descendants(12) if node.role == TEXT)
            copy = self.entry(application, "Edit", "Copy")
            wait_for(lambda: SENSITIVE in copy.states, "Copy offered")
            monitor = BusMonitor(self.session, self.bus.address)
            self.open()
            self._go_to("Edit")
            self.input.tap(RIGHT)
            self.reader.wait_for(2)
            self._go_to("Copy")
            self.assertTrue(text.drop_selection())
            wait_for(lambda: SENSITIVE not in copy.states, "Copy greyed")
            self.input.tap(RETURN)
            self.wait_until_closed()
            wait_until_idle([self.tarnwick.pid])  # it asks again and again whether the item is offered by now
            self.assertEqual(self.presses(monitor), [])
            self.choose("File", "New")
            self.wait_until_chosen(fixture, "File > New")
            self.assertEqual(len(self.presses(monitor)), 1)
        self.each(check, ("gtk3", "qt6"))


if __name__ == "__main__":
    main()

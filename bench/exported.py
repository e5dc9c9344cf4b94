# SPDX-License-Identifier: MIT
"""Programs whose menus are read where they are exported, with what a bare client has to know to read the same."""
from stage import MANY, WARM_UP, Fixture, Stage, milliseconds, messages, run
from table import Series

from harness.accessible import AccessibilityBus, connect
from harness.outside import MENUS, REGISTRAR, Registrar
from harness.session import Session
from harness.waiting import wait_for

from gi.repository import Gio, GLib


class _Exported:
    """What both kinds have; `reading` is as of a menu in the tree."""

    kit = ""
    kind = ""  # as the floor calls it
    environment = {}

    def __init__(self, size):
        self.session = Session().start()
        address = self.session.environment["DBUS_SESSION_BUS_ADDRESS"]
        bus = AccessibilityBus(address)
        bus.switch_on()
        bus.close()
        self.prepare()
        self.fixture = Fixture(self.session, self.kit, "--grow", str(size), **self.environment)
        self.bus = connect(address)
        self.arguments = [address, *wait_for(self.place, "an exported menu")]

    def prepare(self):
        pass

    def place(self):
        """Service, path, kind, and what else names the menu, a word each; nothing as long as it is not exported."""
        raise NotImplementedError

    def close(self):
        self.session.stop()

    def call(self, service, path, interface, method, arguments):
        try:
            return self.bus.call_sync(service, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 30000, None).unpack()
        except GLib.Error:
            return None

    def floor(self, rounds):
        address, service, path, *rest = self.arguments
        output = run(self.session, "bench_floor", address, service, path, self.kind, rounds + WARM_UP, *rest)
        return Series(milliseconds(output), messages=messages(output))

    reading = Stage.reading

    def entries(self, rounds):
        """The same up to where the entries are there: no menu is built of them."""
        output = run(self.session, "bench_reading", self.fixture.pid, MANY, rounds + WARM_UP, 1, "entries")
        return Series(milliseconds(output), messages=messages(output))


class ForOutside(_Exported):
    """Of a program of Qt whose bar somebody has collected, and that is not in the tree."""

    kit = "qt6"
    kind = "dbusmenu"
    environment = {"AT_SPI_BUS_ADDRESS": "unix:path=/nowhere"}

    def prepare(self):
        Registrar(self.session)

    def place(self):
        found = self.call(REGISTRAR, "/com/canonical/AppMenu/Registrar", REGISTRAR, "GetMenuForWindow",
                          GLib.Variant("(u)", (self.fixture.window.id,)))
        if not found or found[1] == "/":
            return None
        layout = self.call(*found, MENUS, "GetLayout", GLib.Variant("(iias)", (0, 1, ["label"])))
        numbers = [number for number, properties, _ in layout[1][2] if properties.get("label", "").replace("_", "") == MANY]
        return [*found, *numbers] if numbers else None


class OfAWindow(_Exported):
    """Of a program of GTK 4, which has nothing of its menus in the tree before they open."""

    kit = "gtk4"
    kind = "gtk-model"

    def place(self):
        window = self.session.screen.property_of

        def text(name):
            return bytes(window(self.fixture.window.handle, name) or b"").decode()
        service, path = text("_GTK_UNIQUE_BUS_NAME"), text("_GTK_MENUBAR_OBJECT_PATH")
        if not service or not path:
            return None
        bar = self.call(service, path, "org.gtk.Menus", "Start", GLib.Variant("(au)", ([0],)))
        links = [entry[":submenu"] for _, _, entries in bar[0] for entry in entries
                 if entry.get("label", "").replace("_", "") == MANY]
        self.call(service, path, "org.gtk.Menus", "End", GLib.Variant("(au)", ([0],)))
        actions = [text(name) for name in ("_GTK_APPLICATION_OBJECT_PATH", "_GTK_WINDOW_OBJECT_PATH")]
        return [service, path, links[0][0], *filter(None, actions)] if links else None

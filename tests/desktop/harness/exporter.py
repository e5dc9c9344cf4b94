# SPDX-License-Identifier: MIT
"""The program behind Exporting: a window, and a menu bar that is exported for a place outside it and is nowhere else. It
writes down what is chosen and what it is asked, a line each. SIGUSR1 gives all entries other numbers, at SIGUSR2 it leaves the
bus."""
import os
import signal
import sys

from gi.repository import Gio, GLib

TITLE = "Exporter"
PATH = "/com/canonical/menu/0"
_INTERFACE = """<node><interface name="com.canonical.dbusmenu">
  <method name="GetLayout"><arg type="i" direction="in"/><arg type="i" direction="in"/><arg type="as" direction="in"/>
    <arg type="u" direction="out"/><arg type="(ia{sv}av)" direction="out"/></method>
  <method name="GetGroupProperties"><arg type="ai" direction="in"/><arg type="as" direction="in"/>
    <arg type="a(ia{sv})" direction="out"/></method>
  <method name="Event"><arg type="i" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="in"/>
    <arg type="u" direction="in"/></method>
  <method name="AboutToShow"><arg type="i" direction="in"/><arg type="b" direction="out"/></method>
</interface></node>"""


def entry(label, *entries, **properties):
    """Names of properties have "_" for "-"."""
    return {"label": label, "entries": list(entries), "properties": properties}


MENU = entry("", *(
    entry("_File", entry("_New", shortcut=[["Control", "N"]]),
          entry("Open _Recent", entry("notes__1.txt"), entry("Older", entry("2019.txt"), entry("2018.txt"))),
          entry("", type="separator"), entry("Save", enabled=False), entry("Hidden", visible=False)),
    entry("_View", entry("Word Wrap", toggle_type="checkmark", toggle_state=1),
          entry("Small", toggle_type="radio", toggle_state=0), entry("Large", toggle_type="radio", toggle_state=1)),
    entry("_Help", entry("About", shortcut=[["Shift", "F1"]]))))
_TYPES = {"shortcut": "aas", "enabled": "b", "visible": "b", "toggle_state": "i"}


class Exporter:
    """What is exported; with `renumbers` every choice gives all entries other numbers."""

    def __init__(self, bus, renumbers, path=PATH):
        self._bus = bus
        self._path = path
        self._renumbers = renumbers
        self._last = 0
        self._number_all()
        bus.register_object(path, Gio.DBusNodeInfo.new_for_xml(_INTERFACE).interfaces[0], self._called, None, None)

    def _number_all(self):
        self._entries, self._paths = {}, {}

        def number(of, path, is_bar):
            self._last += 1
            of["number"] = 0 if is_bar else self._last
            self._entries[of["number"]] = of
            self._paths[of["number"]] = path
            for one in of["entries"]:
                number(one, [*path, one["label"].replace("__", "\0").replace("_", "").replace("\0", "_")], False)
        number(MENU, [], True)

    def renumber(self):
        """Gives all entries other numbers, and tells of it."""
        self._number_all()
        self._bus.emit_signal(None, self._path, "com.canonical.dbusmenu", "LayoutUpdated", GLib.Variant("(ui)", (2, 0)))
        print("renumbered all", flush=True)
        return True

    def leave(self):
        """Leaves the bus."""
        self._bus.set_exit_on_close(False)
        self._bus.close_sync()
        print("left the bus", flush=True)
        return False

    @staticmethod
    def _properties(of):
        values = {"label": GLib.Variant("s", of["label"])}
        if of["entries"]:
            values["children-display"] = GLib.Variant("s", "submenu")
        for name, value in of["properties"].items():
            values[name.replace("_", "-")] = GLib.Variant(_TYPES.get(name, "s"), value)
        return values

    def _layout(self, of, depth):
        below = [GLib.Variant("(ia{sv}av)", self._layout(one, depth - 1)) for one in of["entries"]] if depth else []
        return of["number"], self._properties(of), below

    def _called(self, _connection, _sender, _path, _interface, method, arguments, invocation):
        print("asked", method, flush=True)
        values = arguments.unpack()
        if method == "GetLayout" and values[0] in self._entries:
            layout = self._layout(self._entries[values[0]], values[1])
            invocation.return_value(GLib.Variant("(u(ia{sv}av))", (1, layout)))
        elif method == "GetGroupProperties":
            known = [(number, self._properties(self._entries[number])) for number in values[0] if number in self._entries]
            invocation.return_value(GLib.Variant("(a(ia{sv}))", (known,)))
        elif method == "Event" and values[0] in self._entries:
            print(values[1], " > ".join(self._paths[values[0]]), "at" if values[3] else "at no time", flush=True)
            invocation.return_value(None)
            if self._renumbers:
                self.renumber()
        else:
            invocation.return_dbus_error("com.canonical.dbusmenu.Error", "There is no such entry.")


def show_window():
    """Of the plainest kind, which is in no accessibility tree."""
    from Xlib import X, Xatom, Xutil, display  # pylint: disable=import-outside-toplevel
    server = display.Display()
    screen = server.screen()
    window = screen.root.create_window(50, 50, 400, 200, 0, screen.root_depth, background_pixel=screen.white_pixel)
    window.change_property(server.intern_atom("_NET_WM_NAME"), server.intern_atom("UTF8_STRING"), 8, TITLE.encode())
    window.set_wm_hints(flags=Xutil.InputHint, input=1)
    window.change_property(server.intern_atom("_NET_WM_PID"), Xatom.CARDINAL, 32, [os.getpid()])
    window.map()
    server.sync()
    return server


def main():
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    exporter = Exporter(bus, "--renumbers" in sys.argv)
    GLib.unix_signal_add(GLib.PRIORITY_DEFAULT, signal.SIGUSR1, exporter.renumber)
    GLib.unix_signal_add(GLib.PRIORITY_DEFAULT, signal.SIGUSR2, exporter.leave)
    server = show_window()
    GLib.MainLoop().run()
    del exporter, server


if __name__ == "__main__":
    main()

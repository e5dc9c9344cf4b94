# SPDX-License-Identifier: MIT
"""The desktop behind the portal for global shortcuts, scripted: the portal itself is the one that people have, and hands on
to this what programs ask for."""
from gi.repository import Gio, GLib

from harness.accessible import connect

NAME = "org.freedesktop.impl.portal.desktop.tests"
_PATH = "/org/freedesktop/portal/desktop"
_SHORTCUTS = "org.freedesktop.impl.portal.GlobalShortcuts"
_SESSION = "org.freedesktop.impl.portal.Session"
_INTERFACES = """<node>
<interface name="org.freedesktop.impl.portal.GlobalShortcuts">
  <method name="CreateSession">
    <arg type="o" direction="in"/><arg type="o" direction="in"/><arg type="s" direction="in"/>
    <arg type="a{sv}" direction="in"/><arg type="u" direction="out"/><arg type="a{sv}" direction="out"/>
  </method>
  <method name="BindShortcuts">
    <arg type="o" direction="in"/><arg type="o" direction="in"/><arg type="a(sa{sv})" direction="in"/>
    <arg type="s" direction="in"/><arg type="a{sv}" direction="in"/><arg type="u" direction="out"/>
    <arg type="a{sv}" direction="out"/>
  </method>
  <method name="ListShortcuts">
    <arg type="o" direction="in"/><arg type="o" direction="in"/><arg type="u" direction="out"/>
    <arg type="a{sv}" direction="out"/>
  </method>
  <signal name="Activated"><arg type="o"/><arg type="s"/><arg type="t"/><arg type="a{sv}"/></signal>
  <signal name="Deactivated"><arg type="o"/><arg type="s"/><arg type="t"/><arg type="a{sv}"/></signal>
  <signal name="ShortcutsChanged"><arg type="o"/><arg type="a(sa{sv})"/></signal>
  <property name="version" type="u" access="read"/>
</interface>
<interface name="org.freedesktop.impl.portal.Session">
  <method name="Close"/>
  <signal name="Closed"/>
  <property name="version" type="u" access="read"/>
</interface>
</node>"""


def install(directory, environment):
    """Has a portal that is started in this environment find the desktop of the tests, and no other."""
    folder = directory / "portals"
    folder.mkdir()
    (folder / "tests.portal").write_text(f"[portal]\nDBusName={NAME}\nInterfaces={_SHORTCUTS};\n")
    (folder / "portals.conf").write_text("[preferred]\ndefault=tests\n")
    environment["XDG_DESKTOP_PORTAL_DIR"] = str(folder)


class Desktop:
    """Answers as its levers say, while the tests wait for something."""

    def __init__(self, session_bus_address):
        self.grants = "Super+F12"  # lever: the keys that it gives, whatever is asked for; nothing: it refuses
        self.programs = []  # look: who has made a session
        self.wanted = []  # look: (shortcut, keys) that were asked for
        self.sessions = []  # look: those that are open, with or without shortcuts
        self._objects = {}
        self._interfaces = Gio.DBusNodeInfo.new_for_xml(_INTERFACES).interfaces
        self._bus = connect(session_bus_address)
        self._export(_PATH, _SHORTCUTS)
        self._bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                            GLib.Variant("(su)", (NAME, 4)), None, Gio.DBusCallFlags.NONE, 30000, None)

    def close(self):
        self._bus.close_sync(None)

    def press(self, shortcut="pop-up"):
        """A person presses the keys that were given last, and lets them go."""
        for signal in ("Activated", "Deactivated"):
            self._emit(_PATH, _SHORTCUTS, signal, "(osta{sv})", (self.sessions[-1], shortcut, 1, {}))

    def change(self, keys, shortcut="pop-up"):
        """A person chooses other keys in the settings of the desktop."""
        shortcuts = [(shortcut, {"trigger_description": GLib.Variant("s", keys)})]
        self._emit(_PATH, _SHORTCUTS, "ShortcutsChanged", "(oa(sa{sv}))", (self.sessions[-1], shortcuts))

    def end_session(self):
        """It takes the keys back."""
        self._emit(self.sessions[-1], _SESSION, "Closed", "()", ())
        self._forget(self.sessions[-1])

    def _emit(self, path, interface, signal, kind, arguments):
        self._bus.emit_signal(None, path, interface, signal, GLib.Variant(kind, arguments))
        self._bus.flush_sync(None)

    def _export(self, path, name):
        interface = next(each for each in self._interfaces if each.name == name)
        self._objects[path] = self._bus.register_object_with_closures2(path, interface, self._on_call, self._on_get, None)

    def _forget(self, session):
        self._bus.unregister_object(self._objects.pop(session))
        self.sessions.remove(session)

    @staticmethod
    def _on_get(*_arguments):
        return GLib.Variant("u", 1)

    def _on_call(self, _connection, _sender, path, _interface, method, arguments, invocation):
        answer = getattr(self, f"_{method}")(path, *arguments.unpack())
        invocation.return_value(answer and GLib.Variant("(ua{sv})", answer))

    def _CreateSession(self, _path, _request, session, program, _options):
        self.programs.append(program)
        self.sessions.append(session)
        self._export(session, _SESSION)
        return 0, {}

    def _BindShortcuts(self, _path, _request, _session, shortcuts, _window, _options):
        self.wanted += [(name, properties.get("preferred_trigger")) for name, properties in shortcuts]
        if not self.grants:
            return 1, {}
        bound = [(name, {"description": GLib.Variant("s", properties["description"]),
                         "trigger_description": GLib.Variant("s", self.grants)}) for name, properties in shortcuts]
        return 0, {"shortcuts": GLib.Variant("a(sa{sv})", bound)}

    def _ListShortcuts(self, _path, _request, _session):
        return 0, {"shortcuts": GLib.Variant("a(sa{sv})", [])}

    def _Close(self, path):
        self._forget(path)

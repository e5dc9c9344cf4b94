# SPDX-License-Identifier: MIT
"""The program behind Registrar: collects menu bars until it is ended."""
import sys

from gi.repository import Gio, GLib

NAME = "com.canonical.AppMenu.Registrar"
_PATH = "/com/canonical/AppMenu/Registrar"
_INTERFACE = f"""<node><interface name="{NAME}">
  <method name="RegisterWindow"><arg type="u" direction="in"/><arg type="o" direction="in"/></method>
  <method name="UnregisterWindow"><arg type="u" direction="in"/></method>
  <method name="GetMenuForWindow"><arg type="u" direction="in"/><arg type="s" direction="out"/><arg type="o" direction="out"/></method>
</interface></node>"""


def main():
    menus = dict(zip((int(window) for window in sys.argv[1::3]), zip(sys.argv[2::3], sys.argv[3::3])))

    def called(_connection, sender, _path, _interface, method, arguments, invocation):
        window = arguments.unpack()[0]
        if method == "RegisterWindow":
            menus[window] = (sender, arguments.unpack()[1])
        elif method == "UnregisterWindow":
            menus.pop(window, None)
        answer = menus.get(window, ("", "/"))
        invocation.return_value(GLib.Variant("(so)", answer) if method == "GetMenuForWindow" else None)

    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    bus.register_object(_PATH, Gio.DBusNodeInfo.new_for_xml(_INTERFACE).interfaces[0], called, None, None)
    Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE, lambda *_: print("collecting", flush=True), None)
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()

# SPDX-License-Identifier: MIT
"""What others can reach of Tarnwick, and what it leaves on the disk."""
import os
import pathlib
import re
import shutil
import stat
import xml.etree.ElementTree

from gi.repository import Gio, GLib

from harness.accessible import connect
from harness.case import DesktopTest, main
from harness.preferences import Preferences
from harness.tarnwick import Tarnwick
from harness.tray import PublishedTray
from harness.waiting import wait_for

NAME = "example.quorlane.Tarnwick"
ENTRY = ".config/autostart/example.quorlane.Tarnwick.desktop"
# What every object on a bus has, by the rules of the bus.
ORDINARY = {"org.freedesktop.DBus.Introspectable", "org.freedesktop.DBus.Peer", "org.freedesktop.DBus.Properties"}
SESSION_OBJECTS = {"/example/quorlane/Tarnwick": {"org.freedesktop.Application"},
                   "/StatusNotifierItem": {"org.kde.StatusNotifierItem"},
                   "/MenuBar": {"com.canonical.dbusmenu"}}
# The last one Qt puts beside them; nothing stands behind its methods.
ACCESSIBLE_OBJECTS = re.compile(r"/org/a11y/atspi/(accessible(/.*)?|cache|registry/deviceeventcontroller)")
UNIX_LISTENING = 0x10000
TCP_LISTENING = "0A"


class Bus:
    """One bus, as anybody on it sees it."""

    def __init__(self, address):
        self._connection = connect(address)

    def close(self):
        self._connection.close_sync(None)

    def names_of(self, pid):
        """All names that the process has: unique ones and owned ones."""
        return {name for name in self._ask("ListNames") if self._process(name) == pid}

    def objects_of(self, name, path="/"):
        """Path and interfaces of each object, the ordinary ones aside."""
        root = xml.etree.ElementTree.fromstring(self._introspection(name, path))
        interfaces = {interface.get("name") for interface in root.findall("interface")} - ORDINARY
        found = {path: interfaces} if interfaces else {}
        for node in root.findall("node"):
            child = path.rstrip("/") + "/" + node.get("name")
            found.update(self.objects_of(name, child) if node.get("name") else {})
        return found

    def _introspection(self, name, path):
        try:
            return self._call(name, path, "org.freedesktop.DBus.Introspectable", "Introspect")
        except GLib.Error as error:  # a connection that has no objects says so
            if Gio.DBusError.get_remote_error(error) != "org.freedesktop.DBus.Error.UnknownObject":
                raise
            return "<node/>"

    def _process(self, name):
        try:
            return self._ask("GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)))
        except GLib.Error:  # gone meanwhile
            return None

    def _ask(self, method, arguments=None):
        return self._call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method, arguments)

    def _call(self, name, path, interface, method, arguments=None):
        return self._connection.call_sync(name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE,
                                          5000, None).unpack()[0]


def sockets_of(pid):
    """The inodes of the sockets that a process has open."""
    found = set()
    for descriptor in pathlib.Path(f"/proc/{pid}/fd").iterdir():
        try:
            target = os.readlink(descriptor)
        except OSError:
            continue
        if match := re.fullmatch(r"socket:\[(\d+)\]", target):
            found.add(match[1])
    return found


def lines_of(pid, protocol):
    try:
        return [line.split() for line in pathlib.Path(f"/proc/{pid}/net/{protocol}").read_text().splitlines()[1:]]
    except OSError:  # no such protocol on this machine
        return []


class WhatOthersCanReach(DesktopTest):
    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        session_address = cls.session.environment["DBUS_SESSION_BUS_ADDRESS"]
        cls.tray = PublishedTray(session_address)
        cls.addClassCleanup(cls.tray.close)
        cls.session_bus = Bus(session_address)
        cls.addClassCleanup(cls.session_bus.close)
        cls.accessibility_bus = Bus(cls.bus.address)
        cls.addClassCleanup(cls.accessibility_bus.close)
        cls.tarnwick = Tarnwick(cls.session, FirstRun=False)
        Preferences(cls.session, cls.bus, cls.tarnwick)
        cls.item = cls.tray.item()

    def test_on_the_session_bus_is_one_name_besides_its_item_in_the_tray(self):
        owned = {name for name in self.session_bus.names_of(self.tarnwick.pid) if not name.startswith(":")}
        item = re.compile(rf"org\.kde\.StatusNotifierItem-{self.tarnwick.pid}-\d+")
        self.assertEqual({name for name in owned if not item.fullmatch(name)}, {NAME})

    def test_on_the_session_bus_are_no_other_objects(self):
        seen = {}
        for name in self.session_bus.names_of(self.tarnwick.pid):
            for path, interfaces in self.session_bus.objects_of(name).items():
                seen.setdefault(path, set()).update(interfaces)
        self.assertEqual(seen, SESSION_OBJECTS)

    def test_on_the_accessibility_bus_are_its_accessible_objects_and_no_name(self):
        names = self.accessibility_bus.names_of(self.tarnwick.pid)
        self.assertTrue(names)
        for name in names:
            self.assertTrue(name.startswith(":"), name)
            for path in self.accessibility_bus.objects_of(name):
                self.assertRegex(path, ACCESSIBLE_OBJECTS)

    def test_is_no_socket(self):
        own = sockets_of(self.tarnwick.pid)
        self.assertTrue(own)
        for protocol in ("tcp", "tcp6", "udp", "udp6", "udplite", "raw", "raw6", "packet", "netlink"):
            inode = {"packet": 8, "netlink": 9}.get(protocol, 9)
            open_here = [line for line in lines_of(self.tarnwick.pid, protocol) if own.intersection(line[8:10])]
            self.assertEqual(open_here, [], protocol)
        listening = [line for line in lines_of(self.tarnwick.pid, "unix")
                     if line[6] in own and int(line[3], 16) & UNIX_LISTENING]
        self.assertEqual(listening, [])


class WhatItLeavesOnTheDisk(DesktopTest):
    def test_is_for_the_user_only_even_where_everything_is_for_everybody(self):
        script = self.session.directory / "generous"
        script.write_text(f'#!/bin/sh\numask 000\nexec "{os.environ["TARNWICK_BINARY"]}"\n')
        script.chmod(0o700)
        home = self.session.directory / "home"
        tarnwick = Tarnwick(self.session, program=script, LaunchOnLogin=True)
        wait_for((home / ENTRY).exists, "an entry")
        tarnwick.stop()
        shutil.rmtree(home / ".config")
        # Again without any folder, as on the day it is installed.
        program = self.session.run(script)
        settings = home / ".config/Quorlane/Tarnwick.conf"
        wait_for(lambda: settings.exists() and "FirstRun=true" in settings.read_text(), "settings")
        program.stop()
        for path in (home / ".config").rglob("*"):
            mode = stat.S_IMODE(path.stat().st_mode)
            self.assertEqual(oct(mode), oct(0o700 if path.is_dir() else 0o600), path)

    def test_starts_it_at_login_wherever_it_is(self):
        """By what desktops start such entries with, from a path of all that means something there.

        Of a percent sign the unit tests know: GLib finds no program at all with one in its path.
        """
        folder = self.session.directory / "a b's \"$HOME\" `id` \\n"
        folder.mkdir()
        program = folder / "tarnwick"
        shutil.copy(os.environ["TARNWICK_BINARY"], program)
        tarnwick = Tarnwick(self.session, program=program, LaunchOnLogin=True)
        entry = self.session.directory / "home" / ENTRY
        wait_for(entry.exists, "an entry")
        tarnwick.stop()
        proof = self.session.directory / "started"
        program.write_text(f'#!/bin/sh\nprintf "%s|%s" "$0" "$#" > "{proof}"\n')
        self.session.call("gio", "launch", entry)
        wait_for(lambda: proof.exists() and proof.read_text(), "the program started")
        self.assertEqual(proof.read_text(), f"{program}|0")


if __name__ == "__main__":
    main()

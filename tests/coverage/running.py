# SPDX-License-Identifier: MIT
"""One application on a desktop of its own, read twice: by Tarnwick, and as it really is."""
import dataclasses
import json
import os
import pathlib
import shlex
import subprocess
import time

from gi.repository import Gio, GLib
from Xlib import error

from harness.accessible import SHOWING, VISIBLE, AccessibilityBus, connect
from harness.session import Session
from harness.waiting import TimedOut, dispatch_events, wait_for

import comparison
import popup
import report
from entries import shown_entries, without_home
from truth import OpenedMenus, find_menu_bar
from truth_gtk4 import OpenedMenusOfGtk4

_STARTS_IN = 90.0
_QUIET = 1.5  # seconds without a change in the bar: it has started
_HIGH = "1600x2200"  # so that the longest menu fits
# Windows at the top of the screen, without frames: Qt places its bar wrongly in a frame that came late.
WINDOW_RULES = """<openbox_config xmlns="http://openbox.org/3.4/rc"><applications><application type="normal">
<decor>no</decor><position force="yes"><x>40</x><y>10</y></position></application></applications></openbox_config>
"""


def measured(application, inspect, version, truth_of=None, module=False):
    """A row of the table.

    `truth_of` is the application whose menus are opened instead, where this one tells nothing of those on the screen. With
    `module` the menus are read once more, in a program that has the module of GTK.
    """
    truth = _on_a_desktop(truth_of, _truth) if truth_of else None
    row = _on_a_desktop(application, lambda running, bus: _compared(running, application, inspect, bus, truth))
    if module:
        row["with_module"] = _on_a_desktop(_with_module(application),
                                           lambda running, _: _read_with_module(running, inspect, row.pop("truth")))
    row.pop("truth", None)
    return {**row, "version": version}


def _on_a_desktop(application, work):
    """What `work` makes of the application, which runs on a desktop of its own, and of the accessibility bus there."""
    session = Session(size=_HIGH)
    session.start()
    bus = None
    try:
        bus = AccessibilityBus(session.environment["DBUS_SESSION_BUS_ADDRESS"])
        bus.switch_on()
        write_files({".config/openbox/rc.xml": WINDOW_RULES, **application.get("files", {})}, session)
        session.call("openbox", "--reconfigure")
        if "beside" in application:
            _start_beside(application["beside"], session)
        running = (RunningUnread if "truth" in application else Running)(application, session, bus)
        return work(running, bus)
    except BaseException:
        _keep_evidence(session, application["name"])
        raise
    finally:
        if bus:
            bus.close()
        session.stop()


def _start_beside(service, session):
    """Starts a program that others ask for by its name on the session bus."""
    session.run(*service["command"])
    connection = connect(session.environment["DBUS_SESSION_BUS_ADDRESS"])
    try:
        wait_for(lambda: connection.call_sync(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
            GLib.Variant("(s)", (service["name"],)), None, Gio.DBusCallFlags.NONE, 30000, None).unpack()[0],
            f"{service['name']} on the session bus", step=0.1)
    finally:
        connection.close_sync(None)


def _with_module(application):
    return {**application, "environment": {**application.get("environment", {}), "GTK_MODULES": "appmenu-gtk-module"}}


def _read_with_module(running, inspect, truth):
    running.settle()
    result = comparison.compare(truth, _inspected(inspect, running))
    return {"source": _source(inspect, running), "items": result.items, "right": result.right,
            "wrong_by_kind": result.wrong_by_kind(), "differences": [dataclasses.asdict(each) for each in result.differences]}


def _truth(running, _bus):
    running.settle()
    return running.without_home(_opened(running, running.toolkit).read())


def _compared(running, application, inspect, bus, truth):
    """With a truth from elsewhere nothing is opened in this application."""
    running.settle()
    if truth is not None and application["switched on"]:
        wait_for(lambda: _inspected(inspect, running), "what was switched on", _STARTS_IN, step=0.5)
        running.settle()
    before = _inspected(inspect, running)
    source = _source(inspect, running)
    after = None
    if truth is None:
        truth = _truth(running, bus)
        running.settle()
        after = _inspected(inspect, running)
        running.settle()
    shown = running.without_home(popup.read(running.session, bus)) if before else []
    row = report.row(application, comparison.compare(truth, before),
                     opened=comparison.compare(truth, after) if after is not None else None,
                     popup=comparison.compare(truth, shown))
    return {**row, "source": source, "truth": truth}


def _opened(running, toolkit):
    if toolkit == "GTK 4":
        return OpenedMenusOfGtk4(running.screen, running.bar)
    return OpenedMenus(running.screen, running.bar, toolkit)


def _inspected(inspect, running):
    """What Tarnwick would show of the application in front."""
    result = subprocess.run([inspect, "--all", "--json"], env=running.session.environment, timeout=60, check=False,
                            capture_output=True, text=True)
    if not result.stdout:
        raise RuntimeError(f"nothing to read: {result.stderr.strip()}")
    return running.without_home(shown_entries(json.loads(result.stdout)["menu"]))


def _source(inspect, running):
    """From where Tarnwick reads the menus of the application in front."""
    result = subprocess.run([inspect, "--sources"], env=running.session.environment, timeout=60, check=False,
                            capture_output=True, text=True)
    lines = dict(line.split(": ", 1) for line in result.stdout.splitlines() if ": " in line)
    return lines.get("read", "nothing")


def write_files(files, session):
    """What programs find in their home, by name; for an application, against what it would ask at its first start."""
    for name, text in files.items():
        path = session.directory / "home" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text if isinstance(text, str) else "\n".join(text) + "\n", encoding="utf-8")


def _keep_evidence(session, name):
    directory = os.environ.get("TARNWICK_TEST_OUTPUT")
    if directory and session.environment:
        pathlib.Path(directory).mkdir(parents=True, exist_ok=True)
        session.screenshot(pathlib.Path(directory) / f"{name}.png")


class Running:
    """An application that has come up, with its main window in front."""

    _SIGN_OF_LIFE = "a menu bar"

    def __init__(self, application, session, bus):
        self.session = session
        self.screen = session.screen
        self.toolkit = application["toolkit"]
        self._bus = bus
        self._sign = VISIBLE if application["toolkit"] == "GTK 4" else SHOWING  # GTK 4 never tells the other of widgets
        home = str(session.directory / "home")
        command = [part.replace("~", home) for part in application["command"]]
        self._program = session.run(*command, **application.get("environment", {}))
        self.window = self.bar = None
        try:
            wait_for(self._find, self._SIGN_OF_LIFE, _STARTS_IN, step=0.25)
        except TimedOut:
            said = self._program.output.strip().splitlines()
            raise TimedOut(f"{shlex.join(command)} does not show {self._SIGN_OF_LIFE}; its first line was: {said[:1]}") from None

    def without_home(self, entries):
        """The same entries, whatever directory the home of this session is."""
        return without_home(entries, str(self.session.directory / "home"))

    def settle(self):
        """Waits until the bar has not changed for a while and nothing covers the window."""
        since, last = time.monotonic(), None
        end = since + _STARTS_IN
        while time.monotonic() - since < _QUIET:
            if time.monotonic() > end:
                raise TimedOut("the menu bar does not come to rest")
            dispatch_events()
            seen = self._front_titles()
            if seen is None or seen != last:
                since, last = time.monotonic(), seen
            time.sleep(0.1)

    def _front_titles(self):
        """The titles in the bar; nothing, after a step towards it, while another window is in front."""
        if not self._find():
            return None
        front = self.screen.active_window()
        others = [window for window in self.screen.windows() if window.id != self.window.id and window.pid]
        if others:
            self.screen.activate(others[-1])
            self.screen.tap("Escape")
            time.sleep(0.5)
            return None
        if front is None or front.id != self.window.id:
            self.screen.activate(self.window)
            return None
        return self._seen()

    def _seen(self):
        """What changes while it starts."""
        return [child.name for child in self.bar.children]

    def _find(self):
        """The first window with a menu bar on the screen."""
        for window in self.screen.windows():
            accessible = window.pid and next((found for found in self._bus.applications()
                                              if self._bus.process_of(found.name_on_bus) == window.pid), None)
            for frame in accessible.children if accessible else []:
                bar = find_menu_bar(frame, self._sign)
                if bar and bar.children:
                    self.window, self.bar = window, bar
                    return True
        return False


class RunningUnread(Running):
    """The same of an application that does not tell others of its menu bar: its largest window is the main one."""

    _SIGN_OF_LIFE = "a window"

    def _find(self):
        windows = [window for window in self.screen.windows() if window.pid]
        self.window = max(windows, key=_area, default=None)
        return bool(windows)

    def _seen(self):
        return [self.window.title]


def _area(window):
    """In pixels; nothing of a window that has gone meanwhile."""
    try:
        _, _, width, height = window.frame
    except error.XError:
        return 0
    return width * height

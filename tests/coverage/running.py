# SPDX-License-Identifier: MIT
"""One application on a desktop of its own, read twice: by Tarnwick, and as it really is."""
import json
import os
import pathlib
import shlex
import subprocess
import time

from harness.accessible import SHOWING, VISIBLE, AccessibilityBus
from harness.session import Session
from harness.waiting import TimedOut, dispatch_events, wait_for

import comparison
import popup
import report
from entries import shown_entries
from truth import OpenedMenus, find_menu_bar
from truth_gtk4 import OpenedMenusOfGtk4

_STARTS_IN = 90.0
_QUIET = 1.5  # seconds without a change in the bar: it has started
_HIGH = "1600x2200"  # so that the longest menu fits
# Windows at the top of the screen, without frames: Qt places its bar wrongly in a frame that came late.
WINDOW_RULES = """<openbox_config xmlns="http://openbox.org/3.4/rc"><applications><application type="normal">
<decor>no</decor><position force="yes"><x>40</x><y>10</y></position></application></applications></openbox_config>
"""


def measured(application, inspect, version):
    """A row of the table."""
    session = Session(size=_HIGH)
    session.start()
    bus = None
    try:
        bus = AccessibilityBus(session.environment["DBUS_SESSION_BUS_ADDRESS"])
        bus.switch_on()
        write_files({".config/openbox/rc.xml": WINDOW_RULES, **application.get("files", {})}, session)
        session.call("openbox", "--reconfigure")
        running = Running(application, session, bus)
        row = _compared(running, application, inspect, bus)
    except BaseException:
        _keep_evidence(session, application["name"])
        raise
    finally:
        if bus:
            bus.close()
        session.stop()
    home = str(session.directory / "home")
    text = json.dumps(row).replace(home, "~").replace(home.replace("_", ""), "~")  # a title eats underscores
    return {**json.loads(text), "version": version}


def _compared(running, application, inspect, bus):
    running.settle()
    before = _inspected(inspect, running)
    source = _source(inspect, running)
    truth = _opened(running, application["toolkit"]).read()
    running.settle()
    after = _inspected(inspect, running)
    running.settle()
    shown = popup.read(running.session, bus)
    row = report.row(application, comparison.compare(truth, before),
                     opened=comparison.compare(truth, after), popup=comparison.compare(truth, shown))
    return {**row, "source": source}


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
    return shown_entries(json.loads(result.stdout)["menu"])


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

    def __init__(self, application, session, bus):
        self.session = session
        self.screen = session.screen
        self._bus = bus
        self._sign = VISIBLE if application["toolkit"] == "GTK 4" else SHOWING  # GTK 4 never tells the other of widgets
        home = str(session.directory / "home")
        command = [part.replace("~", home) for part in application["command"]]
        self._program = session.run(*command, **application.get("environment", {}))
        self.window = self.bar = None
        try:
            wait_for(self._find, "a menu bar", _STARTS_IN, step=0.25)
        except TimedOut:
            said = self._program.output.strip().splitlines()
            raise TimedOut(f"{shlex.join(command)} shows no menu bar; its first line was: {said[:1]}") from None

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

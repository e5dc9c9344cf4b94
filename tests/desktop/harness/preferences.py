# SPDX-License-Identifier: MIT
"""The preferences window as a person meets it: controls are found by name and used with pointer and keys."""
from .accessible import CHECKED, SHOWING
from .screen import LEFT, MIDDLE
from .waiting import LIMIT, wait_for

ALERT, CHECK_BOX, LABEL, BUTTON, SPIN_BUTTON = 2, 7, 29, 43, 52
_ALERT_TITLE = "Tarnwick"
_SMALL_BUTTON = 10  # from the right end of the recorder to inside of both of its small buttons
_FROM_LEFT = 40


class Preferences:
    """The preferences window of a Tarnwick, once it is there and in front."""

    def __init__(self, session, bus, tarnwick):
        self._screen = session.screen
        self._tarnwick = tarnwick
        self.window = wait_for(self._find, "the preferences window")
        self._screen.wait_until_active(self.window)
        self.application = bus.application(tarnwick.pid)
        wait_for(self._knows_its_place, "a window that knows where it is", step=0.02)
        self.recorder = Recorder(self._screen, self.control("Shortcut, ", BUTTON))
        self.mouse_button = self.control("Mouse button, ", LABEL)

    def _find(self):
        return next(iter(windows_of(self._screen, self._tarnwick.pid)), None)

    def _knows_its_place(self):
        """Whether the toolkit has heard where the window manager has put the window."""
        return any(node.frame == self.window.frame for node in self.application.children)

    def control(self, name, role, limit=LIMIT):
        """The control that shows and whose name begins so."""
        def find():
            return next((node for node in self.application.descendants()
                         if node.name.startswith(name) and node.role == role and SHOWING in node.states), None)
        return wait_for(find, f"the control {name!r}", limit, step=0.05)

    def click(self, name, role):
        self._screen.click(LEFT, at=self.control(name, role).center)

    def show_pane(self, name):
        """Clicks on an item of the toolbar and waits until its pane has come to rest."""
        self._screen.click(LEFT, at=self.control(name, CHECK_BOX).center)
        wait_for(lambda: self.window.title == name, f"the pane {name!r}")
        frames = []

        def rests():
            frames.append(self.window.frame)
            return len(frames) > 20 and len(set(frames[-20:])) == 1
        wait_for(rests, "the window at rest", step=0.02)

    def is_checked(self, name):
        return CHECKED in self.control(name, CHECK_BOX).states

    def click_mouse_button(self, button=MIDDLE):
        self._screen.click(button, at=self.mouse_button.center)

    def close(self):
        self._screen.tap("w", "Control_L")
        wait_for(lambda: not windows_of(self._screen, self._tarnwick.pid), "no preferences window")


class Recorder:
    """The field that shows the hot key and records another one."""

    def __init__(self, screen, node):
        self._screen = screen
        self._node = node

    @property
    def spoken(self):
        return self._node.name

    @property
    def combination(self):
        """What it shows while it does not record: "Alt+Z"."""
        return self.spoken.split(", ")[1]

    def is_recording(self):
        return self.spoken.startswith("Shortcut, recording")

    def start(self):
        """Clicks into the field and waits until it records."""
        x, y, _, height = self._node.frame
        self._screen.click(LEFT, at=(x + _FROM_LEFT, y + height // 2))
        self.wait_until_recording()

    def wait_until_recording(self):
        wait_for(self.is_recording, "recording", step=0.02)

    def wait_until_shown(self, combination):
        wait_for(lambda: self.combination == combination, f"{combination!r} in the field", step=0.02)

    def click_small_button(self):
        """The one at its right end: it snaps back while recording, else it removes the hot key."""
        x, y, width, height = self._node.frame
        self._screen.click(LEFT, at=(x + width - _SMALL_BUTTON, y + height // 2))


class AlertOnTop:
    """The alert that a Tarnwick shows."""

    def __init__(self, session, bus, tarnwick):
        self._screen = session.screen
        self.window = self._screen.window_titled(_ALERT_TITLE)
        self._screen.wait_until_active(self.window)
        self._application = bus.application(tarnwick.pid)

    def texts(self):
        """All that it says, the message first."""
        def read():
            alert = next((node for node in self._application.children if node.role == ALERT), None)
            return alert and [node.name for node in alert.descendants() if node.role == LABEL and node.name]
        return wait_for(read, "the texts of the alert", step=0.02)

    def dismiss(self):
        self._screen.tap("Return")
        wait_for(lambda: all(window.title != _ALERT_TITLE for window in self._screen.windows()), "no alert")


def windows_of(screen, pid):
    """The windows of a Tarnwick without its alerts."""
    return [window for window in screen.windows() if window.pid == pid and window.title != _ALERT_TITLE]


def stored(tarnwick):
    """What a Tarnwick has in its settings file now, as text."""
    lines = tarnwick.settings_file.read_text().splitlines()
    return dict(line.split("=", 1) for line in lines if "=" in line)


def wait_until_stored(tarnwick, limit=LIMIT, **values):
    def is_stored():
        found = stored(tarnwick)
        return all(found.get(key) == str(value) for key, value in values.items())
    wait_for(is_stored, f"{values} in {stored(tarnwick)}", limit, step=0.02)

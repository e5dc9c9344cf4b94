# SPDX-License-Identifier: MIT
"""A private Wayland session: the compositor sway without a screen, XWayland, and a person's keys and pointer in it."""
import json
import os
import pathlib
import pwd
import subprocess
import tempfile

from .processes import Program, adopt_orphans
from .screen import Screen
from .session import Session
from .waiting import wait_for
from .wayland_input import SIZE, VirtualInput

TOOLS = ("sway", "swaymsg", "Xwayland", "xhost", "grim", "setpriv", "dbus-daemon")

_CONFIGURATION = """
output * resolution {size} position 0 0
xwayland force
default_border none
for_window [title=".*"] floating enable
exec xhost +local:
"""


class WaylandSession(Session):
    """Like a session with an X server of its own, but that is XWayland, and windows may be the compositor's alone."""

    def start(self):
        adopt_orphans()
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="tw"))
        self.directory.chmod(0o755)
        for part in ("run", "home", "out"):
            (self.directory / part).mkdir(mode=0o700)
        self.environment = self._own_environment()
        self.environment["XDG_SESSION_TYPE"] = "wayland"
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_bus()
        self._start_compositor()
        self.screen = Screen(self.environment["DISPLAY"])
        self.input = VirtualInput(self.environment["WAYLAND_DISPLAY"])
        return self

    def stop(self):
        if getattr(self, "input", None):
            self.input.close()
        super().stop()

    def screenshot(self, path):
        subprocess.run(["grim", str(path)], env=self.environment, timeout=20, check=False)

    def window_of(self, pid):
        """The compositor's window of a process as swaymsg describes it; nothing while there is none."""
        return next((node for node in _nodes(self._tree()) if node.get("pid") == pid), None)

    def focus(self, pid):
        """Brings the window of a process to the front, as a person does, and waits until it is there."""
        self._swaymsg(f"[pid={pid}]", "focus")
        wait_for(lambda: (self.window_of(pid) or {}).get("focused"), f"the window of {pid} in front")

    def _tree(self):
        return json.loads(self._swaymsg("-t", "get_tree"))

    def _swaymsg(self, *arguments):
        return subprocess.run(["swaymsg", *arguments], env=self.environment, timeout=60, check=True,
                              capture_output=True, text=True).stdout

    def _start_compositor(self):
        """sway does not run for root, so it has a folder of its own, which belongs to somebody else then."""
        folder = self.directory / "sway"
        folder.mkdir(mode=0o700)
        configuration = folder / "config"
        configuration.write_text(_CONFIGURATION.format(size="x".join(map(str, SIZE))))
        command = ["sway", "--config", str(configuration)]
        if os.geteuid() == 0:
            nobody = pwd.getpwnam("nobody")
            for path in (folder, configuration):
                os.chown(path, nobody.pw_uid, nobody.pw_gid)
            command = ["setpriv", "--reuid", "nobody", "--regid", str(nobody.pw_gid), "--clear-groups", *command]
        environment = {name: value for name, value in self.environment.items()
                       if name not in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS")}
        environment.update(XDG_RUNTIME_DIR=str(folder), HOME=str(folder), WLR_BACKENDS="headless",
                           WLR_LIBINPUT_NO_DEVICES="1", WLR_RENDERER="pixman")
        told = folder / "told"
        with open(configuration, "a", encoding="utf-8") as lines:
            lines.write(f'exec echo "$WAYLAND_DISPLAY $DISPLAY $SWAYSOCK" > {told}.new && mv {told}.new {told}\n')
        self._programs.append(Program(command, environment, self.directory / "out"))
        wait_for(told.exists, f"the compositor; it wrote {self._programs[-1].output}")
        display, x_display, sway_socket = told.read_text().split()
        self.environment.update(WAYLAND_DISPLAY=str(folder / display), DISPLAY=x_display, SWAYSOCK=sway_socket)
        wait_for(self._lets_us_in, "an X server that lets us in", step=0.05)

    def _lets_us_in(self):
        return subprocess.run(["xhost"], env=self.environment, timeout=60, check=False, capture_output=True).returncode == 0


def _nodes(node):
    yield node
    for child in node.get("nodes", []) + node.get("floating_nodes", []):
        yield from _nodes(child)

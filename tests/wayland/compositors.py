# SPDX-License-Identifier: MIT
"""Private sessions of Wayland compositors without a screen, with a session bus, a home, and a person's hands and eyes in
each. What is started runs on Wayland itself, unless it asks for the X server that a session may offer."""
import math
import os
import pathlib
import re
import signal
import subprocess
import tempfile
import time

from harness.processes import adopt_orphans
from harness.session import Session
from harness.waiting import wait_for
from harness.wayland_input import SIZE, FakeInput, VirtualInput, WaylandClient
from kwin_outputs import KWinOutputs
from picture import Picture

OPTION, COMMAND, F1, F2, F4 = 64, 133, 67, 68, 70
LOCKED = 0x11, 0x22, 0x33  # the colour of the screen then
_SIZE = "x".join(map(str, SIZE))
_X_SOCKETS = pathlib.Path("/tmp/.X11-unix")  # where X servers have them; a system makes it as it starts
_HEADLESS = {"WLR_BACKENDS": "headless", "WLR_LIBINPUT_NO_DEVICES": "1", "WLR_RENDERER": "pixman"}


class CompositorSession(Session):
    """What the sessions have in common: each class tells how its compositor is started and driven."""

    tools = ("setpriv", "dbus-daemon", "grim")
    input_class = VirtualInput
    ground = (0, 0, 0)  # the colour of the screen where there is no window
    tells_processes = False  # of which process a window is
    has_input_methods = True  # a seat has room for one that any program may be
    can_be_unlocked = True
    pointer_takes_focus = False  # to the output that it goes to
    _seen = None  # the compositor that has the screen, where it is another one
    _rounded = math.floor  # a size that is no whole number

    def __init__(self, scales=(1,), xwayland=False):
        """`xwayland`: programs that want an X server find the compositor's own."""
        super().__init__()
        self._scales = scales
        self._has_xwayland = xwayland
        self._unseen = {}  # windows on the X server that the compositor does not show, and since when
        self.outputs = []  # (x, y, width, height) of each that is on, in the places that the pointer has

    def start(self):
        adopt_orphans()
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="tw"))
        for part in ("run", "home", "out"):
            (self.directory / part).mkdir(mode=0o700)
        self.environment = self._own_environment()
        self.environment.pop("DISPLAY", None)
        self.environment.update(XDG_SESSION_TYPE="wayland", GDK_BACKEND="wayland", QT_QPA_PLATFORM="wayland")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_bus()
        self.begin_compositor()
        return self

    def arrange(self, *scales):
        """Has the outputs side by side, each with this scale; None for one that is to be off."""
        self.outputs = []
        x = 0
        wanted = []
        for scale in scales:
            wanted.append((x, scale))
            if scale:
                width, height = (type(self)._rounded(length / scale) for length in SIZE)
                self.outputs.append((x, 0, width, height))
                x += width
        self._arrange(wanted)
        self.input.extent = x, max(height for *_, height in self.outputs)

    @property
    def has_pictures(self):
        return True

    def _arrange(self, wanted):
        """`wanted`: of each output where it begins, and its scale."""
        command = ["wlr-randr"]
        for number, (x, scale) in enumerate(wanted, 1):
            command += ["--output", f"HEADLESS-{number}"]
            command += ["--on", "--custom-mode", _SIZE, "--pos", f"{x},0", "--scale", scale] if scale else ["--off"]
        self.call(*command)

    def stop(self):
        if getattr(self, "input", None):
            self.input.close()
        super().stop()

    def end_compositor(self):
        """The compositor goes, and with it whoever does not live without it."""
        self.input.close()
        self.input = None
        self._compositor.kill()

    def begin_compositor(self):
        """Another one comes."""
        _make_place_for_x_sockets()
        self.environment["WAYLAND_DISPLAY"] = self._start_compositor()
        if self._has_xwayland:
            self._use_xwayland()
        self.input = self.input_class(self.environment["WAYLAND_DISPLAY"])
        if len(self._scales) > 1:
            self.arrange(*self._scales)
        else:
            wait_for(self._is_drawn, "the screen as large as it is to be, and drawn", step=0.02)

    def picture(self):
        """What is on the screen now; the pointer is part of it."""
        environment = {**self.environment, "WAYLAND_DISPLAY": self._seen or self.environment["WAYLAND_DISPLAY"]}
        result = subprocess.run(["grim", "-t", "ppm", "-"], env=environment, timeout=60, check=True,
                                stdout=subprocess.PIPE)
        return Picture.from_ppm(result.stdout)

    def picture_at_rest(self):
        """What is on the screen once that does not change any more."""
        seen = []

        def rests():
            seen.append(self.picture())
            return len(seen) > 2 and seen[-1] == seen[-2] == seen[-3] and seen[-1]
        return wait_for(rests, "a picture that stays", step=0.05)

    def put_pointer_away(self):
        """Where no window is, and where it can hardly be seen."""
        self.input.move(SIZE[0] - 1, SIZE[1] - 1)

    def set_layouts(self, layouts):
        """The keyboard has these from now on ("us,ru"), and types on the first one."""
        self.input.set_layouts(layouts)

    def choose_layout(self, number):
        """The keyboard types on this one of its layouts."""
        self.input.choose_layout(number)

    def go_to_workspace(self, number):
        """Another workspace, 1 or 2, is shown, with its own windows, or none; it is made where there is none yet."""
        self.input.tap({1: F1, 2: F2}[number], COMMAND)  # so says the configuration

    def lock(self):
        """Locks the screen, as a person does who goes away; returns when it is locked."""
        self._locker = self.run("swaylock", "--color", bytes(LOCKED).hex())
        wait_for(lambda: self.picture().at(1, 1) == LOCKED, f"the screen locked; swaylock wrote {self._locker.output!r}",
                 step=0.05)

    def unlock(self):
        os.kill(self._locker.pid, signal.SIGUSR1)
        self._locker.status()

    def _is_drawn(self):
        picture = self.picture()
        return (picture.width, picture.height, picture.at(0, 0)) == (*SIZE, self.ground)

    def screenshot(self, path):
        if self.input and self.has_pictures:  # else there is no screen, or none that shows itself
            path.write_bytes(self.picture().png())

    def _start_compositor(self):
        """Starts it and returns the path of its socket."""
        raise NotImplementedError

    def _telling(self):
        """What the compositor is to run: it writes down how its X server is reached, which those that it starts are told."""
        told = self._told_display
        told.unlink(missing_ok=True)
        return self._write("tell", f'#!/bin/sh\necho "$DISPLAY $XAUTHORITY" > {told}.new && mv {told}.new {told}\n', 0o700)

    @property
    def _told_display(self):
        return self.directory / "told"

    def windows_on_xwayland(self):
        """The process of each window that its X server has."""
        processes = (self.call("xprop", "-id", window, "_NET_WM_PID").rpartition(" ")[2] for window in self._listed_windows())
        return [int(process) for process in processes]

    def map_lost_windows(self, process):
        """Has the windows of a process mapped anew that its X server shows and the compositor, for a second, does not: sway
        1.10 loses a window, whoever's it is, whose first picture comes before the X server's word which window that is."""
        if not self._has_xwayland:
            return
        listed = [int(window, 16) for window in self._listed_windows()]
        search = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(process)], env=self.environment,
                                timeout=60, check=False, capture_output=True, text=True)  # fails when it finds nothing
        now = time.monotonic()
        unseen = {int(window) for window in search.stdout.split()}.difference(listed)
        self._unseen = {window: self._unseen.get(window, now) for window in unseen}
        for window in (window for window, since in self._unseen.items() if now - since > 1):
            self._unseen[window] = now
            self.call("xdotool", "windowunmap", "--sync", window, "windowmap", window)

    def _listed_windows(self):
        return re.findall(r"0x\w+", self.call("xprop", "-root", "_NET_CLIENT_LIST"))

    def _use_xwayland(self):
        wait_for(self._told_display.exists, f"an X server; the compositor wrote: {self._compositor.output}", step=0.02)
        told = self._told_display.read_text(encoding="utf-8").split()
        if not told:
            raise RuntimeError(f"the compositor has no X server; it wrote: {self._compositor.output}")
        display, *authority = told
        self.environment["DISPLAY"] = display
        if authority:
            self.environment["XAUTHORITY"] = authority[0]

    def _headless(self):
        return {**_HEADLESS, "WLR_HEADLESS_OUTPUTS": str(len(self._scales))}

    def _socket_of(self, program, pattern="wayland-*"):
        """The socket that a compositor has made; waits until it has a screen, and fails when it has ended."""
        def find():
            if not program.running():
                raise RuntimeError(f"{program.name} has ended: {program.output}")
            sockets = [path for path in (self.directory / "run").glob(pattern) if path.suffix != ".lock"]
            return next((str(path) for path in sockets if "wl_output" in _offered(path)), None)
        return wait_for(find, f"{program.name} with a screen", step=0.02)

    def _write(self, name, text, mode=0o600):
        path = self.directory / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        path.chmod(mode)
        return path


class Sway(CompositorSession):
    tools = (*CompositorSession.tools, "sway", "wlr-randr")
    ground = (0x20, 0x30, 0x40)
    pointer_takes_focus = True
    _CONFIGURATION = (f"output * resolution {_SIZE} position 0 0 background #203040 solid_color\n"
                      'default_border none\nfor_window [title=".*"] floating enable\n'
                      "bindsym Mod1+F4 kill\n"  # as in the other ones
                      "bindsym Mod4+F1 workspace 1\nbindsym Mod4+F2 workspace 2\n")

    def _start_compositor(self):
        return self._start_sway(f"exec {self._telling()}" if self._has_xwayland else "xwayland disable")

    def _start_sway(self, line):
        self._configuration = self._write("sway/config", f"{self._CONFIGURATION}{line}\n")
        self._compositor = self.run("sway", "--config", self._configuration, **self._headless())
        return self._socket_of(self._compositor)

    def tell_what_compositor_it_is(self):
        """What is started from now on finds in its environment what sway tells those that it starts."""
        self.environment["SWAYSOCK"] = str(self._ipc())

    def _ipc(self):
        return next((self.directory / "run").glob("sway-ipc.*.sock"))

    def close_window(self):
        """The window in front is asked to close."""
        self.call("swaymsg", "--socket", self._ipc(), "kill")

    def configure(self, *lines):
        """Puts lines into the configuration; returns when they count."""
        with self._configuration.open("a", encoding="utf-8") as file:
            file.writelines(f"{line}\n" for line, _place in lines)
        self.call("swaymsg", "--socket", self._ipc(), "reload")  # is answered first, and done before the next question
        self.call("swaymsg", "--socket", self._ipc(), "--type", "get_version")


class Labwc(CompositorSession):
    """A click on its screen opens no menu."""

    tools = (*CompositorSession.tools, "labwc", "wlr-randr")
    _CONFIGURATION = """<labwc_config><desktops number="2"/><keyboard><default/>
<keybind key="W-F1"><action name="GoToDesktop" to="1"/></keybind>
<keybind key="W-F2"><action name="GoToDesktop" to="2"/></keybind></keyboard><mouse><context name="Client"><mousebind button="Left" action="Press">
<action name="Focus"/><action name="Raise"/></mousebind></context></mouse></labwc_config>
"""

    def close_window(self):
        """The window in front is asked to close; labwc keeps this key in any case."""
        self.input.tap(F4, OPTION)

    def tell_what_compositor_it_is(self):
        """What is started from now on finds in its environment what labwc tells those that it starts."""
        self.environment["LABWC_PID"] = str(self._compositor.pid)

    def configure(self, *lines):
        """Puts lines into the elements of the configuration that their places name ("rc.xml, <mouse>"); returns when they
        count."""
        text = self._configuration.read_text(encoding="utf-8")
        for line, place in lines:
            element = place.partition(", <")[2].rstrip(">")
            whole = f"<{element}>{line}</{element}>"
            text = text.replace("</labwc_config>", f"{whole}</labwc_config>")
        self._configuration.write_text(text, encoding="utf-8")
        os.kill(self._compositor.pid, signal.SIGHUP)
        for _ in range(2):  # the signal may be looked at after what has come with it
            self.input.wait_until_heard()

    def _start_compositor(self):
        self._configuration = self._write("labwc/rc.xml", self._CONFIGURATION)
        tell = ("-s", self._telling()) if self._has_xwayland else ()
        self._compositor = self.run("labwc", "-C", self._configuration.parent, *tell, **self._headless())
        socket = self._socket_of(self._compositor)
        subprocess.run(["wlr-randr", "--output", "HEADLESS-1", "--custom-mode", _SIZE], timeout=60, check=True,
                       env={**self.environment, "WAYLAND_DISPLAY": socket})
        return socket


class KWin(Sway):
    """KWin takes pictures with OpenGL only. So its screen is a window, which covers that of another compositor; several
    outputs are none, and there are no pictures of them.

    It asks nobody who may press keys, and draws the pointer itself: the other one would tell it never that it was drawn.
    """

    tools = (*Sway.tools, "kwin_wayland")
    tells_processes = True
    has_input_methods = False
    pointer_takes_focus = False
    can_be_unlocked = False  # it believes a part of Plasma only, which is not there, that the password was right
    input_class = FakeInput
    ground = (0, 0, 0)
    _rounded = math.ceil
    _ENVIRONMENT = {"KWIN_COMPOSE": "Q", "KWIN_FORCE_SW_CURSOR": "1", "KWIN_WAYLAND_NO_PERMISSION_CHECKS": "1"}

    _OPEN_BORDERS = "[EdgeBarrier]\nEdgeBarrier=0\n"  # else it holds the pointer back between two outputs

    def set_layouts(self, layouts):
        folder = self.directory / "home" / ".config"
        folder.mkdir(exist_ok=True)
        (folder / "kxkbrc").write_text(f"[Layout]\nUse=true\nLayoutList={layouts}\n", encoding="utf-8")
        self.call("gdbus", "emit", "--session", "--object-path", "/Layouts", "--signal", "org.kde.keyboard.reloadConfig")
        self.choose_layout(0)

    def close_window(self):
        self.call("gdbus", "call", "--session", "--dest", "org.kde.kglobalaccel", "--object-path", "/component/kwin",
                  "--method", "org.kde.kglobalaccel.Component.invokeShortcut", "Window Close")

    def choose_layout(self, number):
        self.call("gdbus", "call", "--session", "--dest", "org.kde.keyboard", "--object-path", "/Layouts",
                  "--method", "org.kde.KeyboardLayouts.setLayout", number)

    def go_to_workspace(self, number):
        for name in range(1, number + 1):  # those that there are stay as they are
            self._desktops("VirtualDesktopManager", "org.kde.KWin.VirtualDesktopManager.createDesktop", name, f"{name}")
        self._desktops("KWin", "org.kde.KWin.setCurrentDesktop", number)

    def lock(self):
        self._screen_saver("Lock")
        wait_for(lambda: "true" in self._screen_saver("GetActive"), "the screen locked")

    def _screen_saver(self, method):
        return self.call("gdbus", "call", "--session", "--dest", "org.freedesktop.ScreenSaver", "--object-path",
                         "/ScreenSaver", "--method", f"org.freedesktop.ScreenSaver.{method}")

    def _desktops(self, of, method, *arguments):
        self.call("gdbus", "call", "--session", "--dest", "org.kde.KWin", "--object-path", f"/{of}",
                  "--method", method, *arguments)

    def _start_compositor(self):
        if len(self._scales) > 1:
            self._write("home/.config/kwinrc", self._OPEN_BORDERS)
            outputs = "--virtual", "--output-count", len(self._scales)
        else:
            self._seen = self._start_sway("xwayland disable")
            outputs = "--wayland-display", self._seen
        width, height = SIZE
        tell = ("--xwayland", self._telling()) if self._has_xwayland else ()
        self._write("home/.config/kscreenlockerrc", "[Daemon]\nAutolock=false\n")  # by itself, after a while
        self._compositor = self.run("kwin_wayland", *outputs, "--socket", "kwin", "--width", width, "--height", height,
                                    *tell, **self._ENVIRONMENT)
        return self._socket_of(self._compositor, "kwin")

    @property
    def has_pictures(self):
        return self._seen is not None

    def _arrange(self, wanted):
        outputs = KWinOutputs(self.environment["WAYLAND_DISPLAY"])
        outputs.arrange(wanted)
        outputs.close()


def _make_place_for_x_sockets():
    """At once as it is to be, before any compositor: one of wlroots makes it without the sticky bit, which others want."""
    mask = os.umask(0)
    try:
        _X_SOCKETS.mkdir(mode=0o1777, exist_ok=True)
    finally:
        os.umask(mask)


def _offered(path):
    """The interfaces of the compositor at a path; none while nobody answers there."""
    try:
        client = WaylandClient(str(path))
    except OSError:
        return set()
    try:
        return client.names
    finally:
        client.close()

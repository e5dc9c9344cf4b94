# SPDX-License-Identifier: MIT
"""One private desktop session."""
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile

from .processes import Program, adopt_orphans, command_line_of, descendants_of, end_all_with, environment_of
from .screen import Screen
from .waiting import wait_for

_BUS_WITHOUT_SERVICES = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>{address}</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""

# What the session of the person who runs the tests must not bring along.
_FOREIGN = ("WAYLAND_DISPLAY", "XAUTHORITY", "SESSION_MANAGER", "DBUS_SESSION_BUS_ADDRESS", "AT_SPI_BUS_ADDRESS",
            "NO_AT_BRIDGE", "GTK_MODULES", "QT_ACCESSIBILITY", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "QT_QPA_PLATFORM",
            "QT_QPA_PLATFORMTHEME", "XDG_CURRENT_DESKTOP", "GNOME_ACCESSIBILITY")


class Session:
    """An X server with a window manager, a session bus and a home of its own; programs in it see nothing else."""

    def __init__(self, size="1280x800", window_manager=True, accessibility=True):
        self._size = size
        self._with_window_manager = window_manager
        self._with_accessibility = accessibility
        self._programs = []
        self._display_server = None
        self._bus = None
        self.bus_answers = False
        self.directory = None
        self.environment = None
        self.screen = None

    def start(self):
        adopt_orphans()
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="tw"))
        for part in ("run", "home", "out"):
            (self.directory / part).mkdir(mode=0o700)
        self.environment = self._own_environment()
        self.environment["DISPLAY"] = self._start_display()
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_bus()
        self.screen = Screen(self.environment["DISPLAY"])
        if self._with_window_manager:
            self.run("openbox", "--sm-disable")
            self.screen.wait_for_window_manager()
        return self

    def stop(self):
        """Ends whatever runs in the session and forgets its files."""
        if self.screen:
            self.screen.close()
        for program in reversed(self._programs[1:]):
            program.stop()
        if self.environment:
            end_all_with(self._marker)  # the services that the bus has started, then the bus
        if self._display_server:
            self._display_server.terminate()
            self._display_server.wait()
        if self.directory:
            shutil.rmtree(self.directory, ignore_errors=True)

    def end_bus(self):
        """The session bus goes, and with it whoever does not live without it."""
        self.bus_answers = False
        self._bus.kill()

    def stop_bus(self):
        """The session bus does not answer any more; ends with the session."""
        self.bus_answers = False
        os.kill(self._bus.pid, signal.SIGSTOP)

    def begin_bus(self):
        """Another session bus comes, at the same address."""
        self._start_bus()

    def services(self, *names):
        """The process ids of what the buses have started, by what is in their command lines."""
        return [pid for pid in descendants_of(os.getpid()) if self._marker in environment_of(pid)
                and any(name in command_line_of(pid) for name in names)]

    @property
    def display_server_pid(self):
        """The X server's process; nothing where somebody else has started it."""
        return self._display_server.pid if self._display_server else None

    def end_display(self):
        """The X server goes, and with it whoever does not live without it."""
        self.screen = None
        self._display_server.kill()
        self._display_server.wait()

    def run(self, *command, **extra_environment):
        """Starts a program and returns it; it is ended with the session at the latest."""
        program = Program([str(part) for part in command], {**self.environment, **extra_environment},
                          self.directory / "out")
        self._programs.append(program)
        return program

    def replace_program(self, name, script):
        """What is started from now on finds a shell script where it looks for a program of that name."""
        folder = self.directory / "bin"
        if not folder.exists():
            folder.mkdir(mode=0o700)
            self.environment["PATH"] = f"{folder}:{self.environment['PATH']}"
        program = folder / name
        program.write_text(f"#!/bin/sh\n{script}\n")
        program.chmod(0o700)

    def call(self, *command, text=None):
        """Runs a program to its end and returns its output; fails when the program does."""
        result = subprocess.run([str(part) for part in command], env=self.environment, input=text, timeout=60,
                                check=True, capture_output=True, text=True)
        return result.stdout

    def set_clipboard(self, text, selection="clipboard"):
        """Puts a text into the clipboard, as another program would: one that keeps running and owns it."""
        program = Program(["xclip", "-quiet", "-selection", selection, str(self._file_with(text))],
                          self.environment, self.directory / "out")
        self._programs.append(program)
        wait_for(lambda: self.clipboard(selection) == text, "the text in the clipboard")

    def clipboard(self, selection="clipboard"):
        result = subprocess.run(["xclip", "-selection", selection, "-out"], env=self.environment, timeout=20,
                                check=False, capture_output=True, text=True)
        return result.stdout if result.returncode == 0 else None

    def screenshot(self, path):
        subprocess.run(["import", "-silent", "-window", "root", str(path)], env=self.environment, timeout=20,
                       check=False)

    @property
    def _marker(self):
        return f"XDG_RUNTIME_DIR={self.directory}/run"

    def _own_environment(self):
        environment = {name: value for name, value in os.environ.items() if name not in _FOREIGN}
        home = self.directory / "home"
        environment.update(HOME=str(home), XDG_RUNTIME_DIR=str(self.directory / "run"),
                           XDG_CONFIG_HOME=str(home / ".config"), XDG_CACHE_HOME=str(home / ".cache"),
                           XDG_DATA_HOME=str(home / ".local/share"), XDG_STATE_HOME=str(home / ".local/state"),
                           XDG_SESSION_TYPE="x11", LANG="C.UTF-8", LC_ALL="C.UTF-8", TZ="UTC")
        return environment

    def _file_with(self, text):
        path = self.directory / "out" / "clipboard.txt"
        path.write_text(text)
        return path

    def _start_display(self):
        reader, writer = os.pipe()
        log = open(self.directory / "out" / "Xvfb.out", "wb")
        with log:
            self._display_server = subprocess.Popen(
                ["setpriv", "--pdeathsig", "KILL", "Xvfb", "-displayfd", str(writer), "-screen", "0",
                 f"{self._size}x24", "-nolisten", "tcp", "-noreset"],
                pass_fds=[writer], env=self.environment, stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        os.close(writer)
        with os.fdopen(reader) as numbers:
            number = numbers.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        return f":{number}"

    def _start_bus(self):
        """The address does not name the daemon, as in the sessions of people: another one may come in its place."""
        reader, writer = os.pipe()
        address = f"unix:path={self.directory}/run/bus"
        command = ["dbus-daemon", "--nofork", f"--print-address={writer}"]
        if self._with_accessibility:
            command += ["--session", f"--address={address}"]
        else:
            configuration = self.directory / "bus.conf"
            configuration.write_text(_BUS_WITHOUT_SERVICES.format(address=address))
            command.append(f"--config-file={configuration}")
        self._bus = Program(command, self.environment, self.directory / "out", pass_fds=[writer])
        self._programs.append(self._bus)
        os.close(writer)
        with os.fdopen(reader) as addresses:
            if not addresses.readline().strip():
                raise RuntimeError("dbus-daemon did not start")
        self.bus_answers = True
        return address

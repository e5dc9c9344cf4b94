# SPDX-License-Identifier: MIT
"""Whether settings are ever lost: when whoever writes them is killed, or cannot write."""
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time
import unittest

from torture import dice, note, times, wait_for

from harness.applications import Fixture
from harness.case import DesktopTest, main
from harness.over import OWN_ENTRY
from harness.preferences import CHECK_BOX, Preferences
from harness.tarnwick import Tarnwick, settings_text
from harness.tools import leave_out

BOX = "Show keyboard shortcuts"
OTHERS = "[General]\nKept=yes\n\n[Another%20group]\nKept=too\n"
WRITER = pathlib.Path(os.environ["TARNWICK_FIXTURES"]) / "settings_writer"


def parsed(file):
    """The settings of the group General; fails where the file is no whole file of settings."""
    text = file.read_text(encoding="utf-8")
    if text and not text.endswith("\n"):
        raise AssertionError(f"cut off: {text!r}")
    values, group = {}, None
    for line in text.splitlines():
        if line.startswith("[") and line.endswith("]"):
            group = line
        elif line:
            key, separator, value = line.partition("=")
            if not separator or not group:
                raise AssertionError(f"not a setting: {line!r}")
            values[key if group == "[General]" else group + key] = value
    return values


def text_for(number):
    """What the writer writes beside a number."""
    text = f"{number} " * (number % 200)
    return f'"{text}"' if text else ""


def in_own_mounts(*lines):
    """A program that does `lines` with file systems that only it sees, and then is Tarnwick."""
    unshare = ["unshare", "--mount"]
    if os.geteuid() != 0:
        unshare += ["--user", "--map-current-user", "--keep-caps"]
    if subprocess.run([*unshare, "mount", "-t", "tmpfs", "none", "/mnt"], check=False, capture_output=True).returncode:
        leave_out("nobody may mount here")
    script = "\n".join(["set -e", *lines, f'exec "{os.environ["TARNWICK_BINARY"]}"'])
    return [*unshare, "sh", "-c", script]


class Writer:
    """A program that writes settings and tells of each that it has written."""

    def __init__(self, directory, arguments):
        self._output = directory / f"writer.{time.monotonic_ns()}"
        with open(self._output, "wb") as output:  # a pipe would be read ahead of what is asked for
            self._process = subprocess.Popen([WRITER, *map(str, arguments)], stdout=output, stderr=output)

    def running(self):
        return self._process.poll() is None

    def told(self):
        """The numbers so far; fails where it told anything else."""
        return [int(line) for line in self._output.read_text().splitlines(keepends=True) if line.endswith("\n")]

    def wait_for_first(self):
        return wait_for(self.told, "a setting written", step=0.001)[0]

    def stop(self):
        self._process.send_signal(signal.SIGSTOP)

    def kill(self):
        """Returns the last number that it told."""
        self._process.kill()
        self._process.wait()
        return self.told()[-1]


class WhoeverWrites(unittest.TestCase):
    def setUp(self):
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="tw"))
        self.addCleanup(shutil.rmtree, self.directory)
        self.file = self.directory / "home/Quorlane/Tarnwick.conf"
        self.file.parent.mkdir(parents=True)

    def write(self, *arguments, file=None):
        return Writer(self.directory, [file or self.file, *arguments])

    def assert_holds(self, key, numbers):
        """A number and its text of the same write, of one of these writes."""
        values = parsed(self.file)
        number = int(values[key])
        self.assertIn(number, numbers)
        self.assertEqual(values.get(f"{key}Text"), text_for(number))
        return number

    def kill_at_random(self, rounds, limit=0.03):
        """Lets a writer write and kills it, `rounds` times; returns how often it got to write anything."""
        random = dice(self.id())
        self.file.write_text(OTHERS + "\n[General]\nNumber=0\nNumberText=\n", encoding="utf-8")
        number = wrote = 0
        for _ in range(rounds):
            writer = self.write("Number", number + 1)
            first = writer.wait_for_first()  # from now on it writes all the time
            time.sleep(random.uniform(0, limit))
            confirmed = writer.kill()
            number = self.assert_holds("Number", (confirmed, confirmed + 1))
            values = parsed(self.file)
            self.assertEqual((values["Kept"], values["[Another%20group]Kept"]), ("yes", "too"))
            wrote += confirmed - first + 1
            self.assertLessEqual({file.name for file in self.file.parent.iterdir()},
                                 {"Tarnwick.conf", "Tarnwick.conf.new"})
        return wrote

    def test_is_killed_at_any_moment(self):
        rounds = times(500, least=25)
        wrote = self.kill_at_random(rounds)
        note("killed while writing settings", rounds, unit="times")
        note("settings written meanwhile, none lost or half", wrote)

    def test_is_killed_where_the_file_is_a_link(self):
        target = self.directory / "dotfiles.conf"
        target.touch()
        self.file.symlink_to(target)
        link, self.file = self.file, target
        target.write_text(OTHERS + "\n[General]\nNumber=0\nNumberText=\n", encoding="utf-8")
        for _ in range(times(50, least=5)):
            writer = self.write("Number", 1, file=link)
            writer.wait_for_first()
            writer.kill()
            parsed(target)
            self.assertTrue(link.is_symlink())
            self.assertFalse(target.is_symlink())

    def test_is_not_alone(self):
        count = times(500, least=50)
        writers = [self.write(key, 1, count) for key in ("One", "Other")]
        while any(writer.running() for writer in writers):
            if self.file.exists():
                parsed(self.file)
            time.sleep(0.002)
        for writer in writers:
            self.assertEqual(writer.told()[-1], count)
        for key in ("One", "Other"):
            self.assert_holds(key, (count,))
        note("settings written by two programs at once, none lost", 2 * count)

    def test_does_not_wait_for_one_that_hangs(self):
        """Stopped at any moment of its writing, the other one still gets on."""
        random = dice(self.id())
        longest = 0.0
        for _ in range(times(40, least=4)):
            hanging = self.write("Number", 1)
            hanging.wait_for_first()
            time.sleep(random.uniform(0, 0.02))
            hanging.stop()
            begin = time.monotonic()
            other = self.write("Other", 7, 1)
            other.wait_for_first()
            longest = max(longest, time.monotonic() - begin)
            hanging.kill()
            other.kill()
            parsed(self.file)
        self.assertLess(longest, 5.0)  # a busy machine is no failure; a lock that is never left would be
        note("longest wait for a program that hangs while it writes, its start included", round(longest, 2), unit="s")


class Tarnwicks(DesktopTest):
    tools = ("unshare",)

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.home = cls.session.directory / "home"

    def test_that_are_killed_at_the_start_leave_whole_settings(self):
        """The first start writes that it was the first."""
        random = dice(self.id())
        rounds = times(40, least=4)
        seen = set()
        for _ in range(rounds):
            tarnwick = Tarnwick(self.session, FirstRun=False, FontSizeSmall=13)
            time.sleep(random.uniform(0, 0.6))
            os.kill(tarnwick.pid, signal.SIGKILL)
            tarnwick.program.status()
            values = parsed(tarnwick.settings_file)
            self.assertEqual(values.pop("FontSizeSmall"), "13")
            seen.add(values["FirstRun"])
            self.assertIn(values["FirstRun"], ("false", "true"))
            self.assertEqual(tarnwick.program.output, "")
        note("Tarnwicks killed within their first 0.6 s", rounds, unit="times")

    def start(self, *mounts):
        """Starts a Tarnwick that cannot write what it should: that it was started before."""
        script = self.session.directory / "tarnwick-without-room"
        command = in_own_mounts(*mounts)
        script.write_text("#!/bin/sh\nexec " + " ".join(_quoted(part) for part in command) + "\n", encoding="utf-8")
        script.chmod(0o700)
        tarnwick = Tarnwick(self.session, program=script, FirstRun=False, ShowKeyEquivalents=False)
        self.addCleanup(tarnwick.stop)
        return tarnwick

    def seen_by(self, tarnwick, path):
        return pathlib.Path(f"/proc/{tarnwick.pid}/root{path}")

    def assert_keeps_settings_in_memory(self, tarnwick):
        """The change counts, in the program; the file stays; nobody is told."""
        preferences = Preferences(self.session, self.bus, tarnwick)
        preferences.show_pane("General")
        preferences.click(BOX, CHECK_BOX)
        wait_for(lambda: preferences.is_checked(BOX), "the box checked")
        preferences.close()
        fixture = Fixture(self.session, "gtk3")
        self.addCleanup(fixture.program.stop)
        titles = [item.title for item in fixture.bar_items(self.bus)]
        reader = tarnwick.reader(self.bus)
        self.addCleanup(reader.close)
        tarnwick.wait_for_titles(reader, titles + ["", OWN_ENTRY])
        self.assertEqual([window.title for window in self.screen.windows() if window.title == "Tarnwick"], [])
        self.assertEqual(tarnwick.program.output, "")
        file = self.seen_by(tarnwick, tarnwick.settings_file)
        self.assertEqual(file.read_text(), settings_text({"FirstRun": False, "ShowKeyEquivalents": False}))
        self.assertEqual([entry.name for entry in file.parent.iterdir() if entry.name != "full"], ["Tarnwick.conf"])
        tarnwick.stop()
        self.assertEqual(tarnwick.program.output, "")

    def test_on_a_full_disk_keep_their_settings_in_memory(self):
        folder = f'"{self.home}/.config/Quorlane"'
        tarnwick = self.start(f"content=$(cat {folder}/Tarnwick.conf)",
                              f"mount -t tmpfs -o size=16k,mode=0700 none {folder}",
                              f'printf "%s\\n" "$content" > {folder}/Tarnwick.conf',
                              f"cat /dev/zero > {folder}/full 2>/dev/null || true")
        self.assert_keeps_settings_in_memory(tarnwick)

    def test_in_a_read_only_home_keep_their_settings_in_memory(self):
        tarnwick = self.start(f'mount --bind "{self.home}" "{self.home}"',
                              f'mount -o remount,bind,ro "{self.home}"')
        self.assert_keeps_settings_in_memory(tarnwick)


def _quoted(text):
    return "'" + text.replace("'", "'\\''") + "'"


if __name__ == "__main__":
    main()

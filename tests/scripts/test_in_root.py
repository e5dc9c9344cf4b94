#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether scripts/in-root makes a system once and says what hinders it, and what a command finds in it. None is made here:
what would make it is played, and a command runs among a handful of the programs of this machine."""
import fcntl
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import time
import unittest

from tree import ROOT, TreeTest, require

SCRIPT = "scripts/in-root"
NO_SYSTEM = 125
PROGRAMS = ("setpriv", "env", "sh", "cat", "id", "ls", "touch", "sleep")


def wait_until(condition, what):
    end = time.monotonic() + 60
    while not condition():
        if time.monotonic() > end:
            raise AssertionError(f"after a minute still not: {what}")
        time.sleep(0.01)


class InRoot(TreeTest):
    copied = (SCRIPT, "scripts/lib/enter-root", "scripts/lib/packages.sh")

    def setUp(self):
        super().setUp()
        self.folder = self.root.parent / "roots/trixie"
        self.system = self.folder / "system"
        self.stamp = self.folder / "packages"
        self.environment.update(TARNWICK_ROOTS=str(self.folder.parent), TARNWICK_MIRROR="http://mirror.invalid/debian",
                                PATH=f"{self.root.parent}/bin:{os.environ['PATH']}")

    def play(self, name, script):
        program = self.root.parent / "bin" / name
        program.parent.mkdir(exist_ok=True)
        program.write_text(f"#!/bin/bash\n{script}\n", encoding="utf-8")
        program.chmod(0o755)

    def start(self, *words, **options):
        return subprocess.Popen([self.root / SCRIPT, *words], env=self.environment, text=True, stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, **options)

    def packages(self):
        script = f". '{self.root}/scripts/lib/packages.sh'; root_packages trixie"
        return subprocess.run(["bash", "-c", script], check=True, text=True, stdout=subprocess.PIPE).stdout

    def stamp_as_whole(self, packages=None):
        self.folder.mkdir(parents=True, exist_ok=True)
        lines = sorted(set((packages or self.packages()).split()))
        self.stamp.write_text("".join(f"{line}\n" for line in lines), encoding="utf-8")


class WithoutASystem(InRoot):
    """The programs that would make one are played: root, namespaces and a network are not needed."""

    def setUp(self):
        super().setUp()
        self.said = self.root.parent / "said"
        self.play("id", "echo 0")
        self.play("dpkg-query", "echo installed")
        # Of the namespaces nothing is left, so that what is run in them runs.
        self.play("unshare", 'while [ "${1#-}" != "$1" ]; do shift; done; exec "$@"')
        self.play("debootstrap", f'echo "debootstrap $*" >>"{self.said}"\n'
                                 'mkdir -p "$3/etc/dpkg/dpkg.cfg.d" "$3/usr/sbin"')
        self.play("mount", "true")
        self.play("chroot", f'echo "chroot ${{*: -2}}" >>"{self.said}"')

    def lines(self, begin):
        lines = self.said.read_text(encoding="utf-8").splitlines() if self.said.exists() else []
        return [line for line in lines if line.startswith(begin)]

    def assert_refuses(self, *words):
        status, output = self.run_script(SCRIPT, *words)
        self.assertEqual(status, NO_SYSTEM, output)
        self.assertEqual(self.lines(""), [], "something was made or run")
        return output

    def test_it_tells_how_it_is_used(self):
        self.assertRegex(self.assert_refuses(), "Usage: scripts/in-root SUITE .*\nSystems that are known: trixie")

    def test_it_knows_its_systems_only(self):
        self.assertIn("'no-such'. Those that are known: trixie", self.assert_refuses("no-such", "true"))

    def test_it_asks_for_root(self):
        self.play("id", "echo 1000")
        self.assertIn("run this with sudo", self.assert_refuses("trixie", "true"))

    def test_it_asks_for_namespaces(self):
        self.play("unshare", "echo Not permitted >&2; exit 1")
        self.assertIn("lets nobody make namespaces", self.assert_refuses("trixie", "true"))

    def test_it_makes_a_system_once_and_of_the_packages_that_are_listed(self):
        for _ in range(2):
            self.assert_passes(SCRIPT, "trixie")
        self.assertEqual(self.lines("debootstrap"),
                         [f"debootstrap --variant=minbase trixie {self.system} http://mirror.invalid/debian"])
        self.assertEqual(self.stamp.read_text(encoding="utf-8").split(), sorted(set(self.packages().split())))

    def test_it_takes_the_mirror_that_apt_uses(self):
        del self.environment["TARNWICK_MIRROR"]
        self.play("apt-get", "[ \"$*\" = \"indextargets --format \\$(REPO_URI) LABEL: Debian\" ] || exit 1\n"
                             "echo file:/srv/debian/; echo http://near.invalid/debian/; echo http://far.invalid/debian/")
        self.assert_passes(SCRIPT, "trixie")
        self.assertTrue(self.lines("debootstrap")[0].endswith(" http://near.invalid/debian/"))

    def test_it_says_why_there_is_none(self):
        self.play("debootstrap", "echo E: No network; exit 1")
        for _ in range(2):
            status, output = self.run_script(SCRIPT, "trixie", "true")
            self.assertEqual(status, NO_SYSTEM, output)
            self.assertIn("E: No network\ndebootstrap could not make a system of trixie", output)
            self.assertIn("http://mirror.invalid/debian", output)
            self.assertFalse(self.stamp.exists())

    def test_it_says_which_packages_there_are_not(self):
        self.play("chroot", 'case "$*" in *" install "*) echo E: Unable to locate package; exit 100 ;; esac')
        status, output = self.run_script(SCRIPT, "trixie", "true")
        self.assertEqual(status, NO_SYSTEM, output)
        self.assertIn("E: Unable to locate package\nNot all packages could be installed", output)
        self.assertFalse(self.stamp.exists())

    def test_one_that_was_not_finished_is_made_anew(self):
        half = self.system / "half"
        half.mkdir(parents=True)
        self.assert_passes(SCRIPT, "trixie")
        self.assertFalse(half.exists())
        self.assertEqual(len(self.lines("debootstrap")), 1)

    def test_packages_that_came_later_are_added(self):
        kept = self.system / "kept"
        kept.mkdir(parents=True)
        of_another = "of-another-checkout"
        self.stamp_as_whole(f"cmake {of_another}")
        self.assert_passes(SCRIPT, "trixie")
        self.assertTrue(kept.exists())
        self.assertEqual(self.lines("debootstrap"), [])
        self.assertIn(of_another, self.stamp.read_text(encoding="utf-8").split())
        self.assertIn("ninja-build", self.stamp.read_text(encoding="utf-8").split())

    def test_while_they_are_added_it_does_not_count_as_whole(self):
        self.system.mkdir(parents=True)
        self.stamp_as_whole("cmake")
        self.play("chroot", "exit 100")
        self.assertEqual(self.run_script(SCRIPT, "trixie")[0], NO_SYSTEM)
        self.assertFalse(self.stamp.exists())

    def test_two_at_a_time_make_one(self):
        self.folder.mkdir(parents=True)
        with open(self.folder / "lock", "w", encoding="utf-8") as lock:
            fcntl.flock(lock, fcntl.LOCK_SH)  # as who looks whether there is one
            both = [self.start("trixie") for _ in range(2)]
            for one in both:
                wait_until(lambda pid=one.pid: self.waits_for_lock(pid), "its turn to make one")
            self.assertEqual(self.lines("debootstrap"), [])
        outputs = [one.communicate()[0] for one in both]
        self.assertEqual([one.returncode for one in both], [0, 0])
        self.assertEqual("".join(outputs).count("Making a system"), 1)
        self.assertEqual(len(self.lines("debootstrap")), 1)
        self.assertEqual(len(self.lines("chroot")), 3, "what apt had to do")

    @staticmethod
    def waits_for_lock(pid):
        return any(re.search(rf" -> FLOCK .* {child} ", locks) for locks in [pathlib.Path("/proc/locks").read_text()]
                   for child in pathlib.Path(f"/proc/{pid}/task/{pid}/children").read_text().split())


class InASystem(InRoot):
    """It consists of what a command needs here, taken from this machine."""

    def setUp(self):
        require("unshare", "setpriv", "ldd")
        if os.geteuid() != 0:
            self.skipTest("only root can enter a system")
        super().setUp()
        self.root.parent.chmod(0o755)
        for folder in ("etc", "proc", "dev", "tmp", "var/tmp", "run", "home", "tarnwick", "ccache", "usr/bin"):
            (self.system / folder).mkdir(parents=True)
        for table in ("passwd", "group"):
            (self.system / "etc" / table).write_text(f"root:x:0:{':/root:/bin/sh' * (table == 'passwd')}\n")
        for program in PROGRAMS:
            self.bring(program)
        self.stamp_as_whole()
        self.environment["FOREIGN"] = "1"
        # By it what goes on is found from outside.
        self.name = f"stays-{os.getpid()}"

    def bring(self, program):
        path = shutil.which(program)
        self.copy(path, f"/usr/bin/{program}")
        libraries = subprocess.run(["ldd", path], check=True, text=True, stdout=subprocess.PIPE).stdout
        for library in re.findall(r"(/\S+) \(0x", libraries):
            self.copy(library, library)

    def copy(self, source, place):
        target = self.system / place.lstrip("/")
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(source, target)

    def inside(self, script, *words):
        return self.run_script(SCRIPT, "trixie", "sh", "-c", script, *words)

    def test_a_command_is_an_ordinary_user_with_places_of_its_own(self):
        status, output = self.inside('id -u; id -un; echo "$HOME $XDG_RUNTIME_DIR"; ls -A "$HOME" "$XDG_RUNTIME_DIR" /tmp; '
                                     'touch "$HOME/a" "$XDG_RUNTIME_DIR/a" /tmp/a /var/tmp/a /dev/shm/a && echo written')
        self.assertEqual(status, 0, output)
        user, name, places, *empty, written = output.splitlines()
        self.assertEqual((name, places, written), ("tester", f"/home/tester /run/user/{user}", "written"))
        self.assertNotEqual(user, "0")
        self.assertEqual([line for line in empty if line], ["/home/tester:", f"/run/user/{user}:", "/tmp:"])
        self.assertEqual(self.inside('ls -A "$HOME" /tmp')[1], "/home/tester:\n\n/tmp:\n", "kept from one to the next")

    def test_it_is_at_the_top_of_the_checkout_and_writes_to_its_build_folder_only(self):
        output = self.inside("cat scripts/in-root >build/trixie/copy; touch new; touch /etc/new; touch build/new")[1]
        self.assertEqual(output.count("Read-only file system"), 3, output)
        self.assertEqual((self.root / "build/trixie/copy").read_text(), (self.root / SCRIPT).read_text())
        self.assertEqual(sorted(os.listdir(self.root / "build")), ["trixie"])

    def test_it_can_not_become_root(self):
        sh = self.system / "usr/bin/sh"
        shutil.copy(sh, self.system / "usr/bin/root-sh")
        (self.system / "usr/bin/root-sh").chmod(0o4755)
        self.assertEqual(self.run_script(SCRIPT, "trixie", "root-sh", "-p", "-c", "id -u"), self.inside("id -u"))

    def test_it_sees_nothing_of_what_runs_outside(self):
        output = self.inside("echo ${FOREIGN-none}; echo /proc/self/fd/*; ls /proc; ls /dev")[1]
        self.assertEqual(output.splitlines()[:2], ["none", "/proc/self/fd/0 /proc/self/fd/1 /proc/self/fd/2 /proc/self/fd/3"])
        processes = [line for line in output.splitlines() if line.isdigit()]
        self.assertLess(len(processes), 6, processes)
        self.assertFalse({"dri", "input", "snd", "uinput"} & set(output.split()))
        self.assertEqual(self.inside("cat /proc/net/dev")[1].count(":"), 1, "a network besides the loopback")

    def test_it_gets_its_arguments_and_input_and_gives_its_status(self):
        result = subprocess.run([self.root / SCRIPT, "trixie", "sh", "-c", 'cat; echo "$1|$2"; exit 42', "sh", "a  b", "*"],
                                env=self.environment, input="typed\n", text=True, stdout=subprocess.PIPE, check=False)
        self.assertEqual((result.returncode, result.stdout), (42, "typed\na  b|*\n"))

    def test_nothing_is_left_when_it_has_ended(self):
        mounts = pathlib.Path("/proc/self/mountinfo").read_text()
        self.assertEqual(self.inside(f"sh -c 'sleep 600; : {self.name}' &")[0], 0)
        self.assert_is_gone(mounts)

    def test_nothing_is_left_when_it_is_ended(self):
        mounts = pathlib.Path("/proc/self/mountinfo").read_text()
        for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGKILL):
            with self.subTest(number):
                going_on = self.start("trixie", "sh", "-c", f"echo begun; sleep 600; : {self.name}")
                self.addCleanup(going_on.kill)
                self.assertEqual(going_on.stdout.readline(), "begun\n")
                self.assertTrue(self.still_there())
                going_on.send_signal(number)
                going_on.communicate(timeout=60)
                self.assert_is_gone(mounts)

    def test_it_is_not_changed_while_somebody_is_in_it(self):
        going_on = self.start("trixie", "sh", "-c", "echo begun; cat", stdin=subprocess.PIPE)
        self.assertEqual(going_on.stdout.readline(), "begun\n")
        with open(self.folder / "lock", "w", encoding="utf-8") as lock:
            self.assertRaises(BlockingIOError, fcntl.flock, lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
            self.assertEqual(self.inside("echo meanwhile"), (0, "meanwhile\n"))
            going_on.communicate()
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)

    def still_there(self):
        """The processes with our name in their command lines."""
        found = []
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                command = (process / "cmdline").read_text()
            except OSError:
                continue
            if self.name in command and int(process.name) != os.getpid():
                found.append(process.name)
        return found

    def assert_is_gone(self, mounts):
        wait_until(lambda: not self.still_there(), "the end of what was started")
        self.assertEqual(pathlib.Path("/proc/self/mountinfo").read_text(), mounts)


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether what scripts/lib/meanwhile.sh runs in the background is waited for, heard, and ended with the script."""
import os
import signal
import subprocess
import time
import unittest

from tree import TreeTest

SCRIPT = "scripts/lib/meanwhile.sh"


class Meanwhile(TreeTest):
    copied = (SCRIPT,)

    def setUp(self):
        super().setUp()
        self.folder = self.root.parent / "temporary"
        self.folder.mkdir()
        self.environment["TMPDIR"] = str(self.folder)

    def script(self, text):
        self.write("script", f"#!/usr/bin/env bash\nset -euo pipefail\n. {self.root / SCRIPT}\n{text}\n").chmod(0o755)
        return "script"

    def test_a_script_that_waited_and_has_nothing_to_complain_about_succeeds(self):
        output = self.assert_passes(self.script("begin_meanwhile echo heard\nfinish_meanwhile\n[ 0 -eq 0 ]"))
        self.assertEqual(output, "heard\n")
        self.assertEqual(os.listdir(self.folder), [])

    def test_the_status_of_the_command_is_told(self):
        text = 'work() { echo heard; return 3; }\nbegin_meanwhile work\nfinish_meanwhile || echo "status $?"\nexit 7'
        self.assertEqual(self.run_script(self.script(text)), (7, "heard\nstatus 3\n"))
        self.assertEqual(os.listdir(self.folder), [])

    def test_a_failure_in_the_middle_of_the_command_is_told(self):
        text = 'work() { false; echo unheard; }\nbegin_meanwhile work\nfinish_meanwhile || echo "status $?"'
        self.assertEqual(self.assert_passes(self.script(text)), "status 1\n")

    def test_one_after_the_other_is_heard_and_leaves_nothing_behind(self):
        text = "begin_meanwhile echo one\nfinish_meanwhile\nbegin_meanwhile echo two\nfinish_meanwhile"
        self.assertEqual(self.assert_passes(self.script(text)), "one\ntwo\n")
        self.assertEqual(os.listdir(self.folder), [])

    def test_a_command_that_ended_before_anybody_asked_does_no_harm(self):
        self.assert_passes(self.script('begin_meanwhile true\nwhile kill -0 "$background" 2>/dev/null; do sleep 0.01; done'))

    def test_what_runs_ends_with_the_script(self):
        pid = self.folder.parent / "pid"
        text = f'work() {{ sleep 600 & echo $! >"{pid}.new"; mv "{pid}.new" "{pid}"; wait; }}\nbegin_meanwhile work\n'
        script = self.script(text + f'until [ -e "{pid}" ]; do sleep 0.01; done\nexit 5')
        self.assertEqual(self.run_script(script), (5, ""))
        self.assert_ended(int(pid.read_text(encoding="utf-8")))
        self.assertEqual(os.listdir(self.folder), [])

    def test_what_runs_ends_with_a_script_that_is_interrupted(self):
        pid = self.folder.parent / "pid"
        script = self.script(f'begin_meanwhile bash -c \'echo $$ >"{pid}.new"; mv "{pid}.new" "{pid}"; exec sleep 600\'\n'
                             "finish_meanwhile")
        with subprocess.Popen([self.root / script], env=self.environment, stdin=subprocess.DEVNULL) as running:
            while not pid.exists():
                time.sleep(0.01)
            running.send_signal(signal.SIGTERM)
        self.assert_ended(int(pid.read_text(encoding="utf-8")))

    def assert_ended(self, pid):
        deadline = time.monotonic() + 30
        while time.monotonic() < deadline:
            try:
                with open(f"/proc/{pid}/stat", encoding="utf-8") as stat:
                    if stat.read().rpartition(")")[2].split()[0] == "Z":
                        return
            except FileNotFoundError:
                return
            time.sleep(0.01)
        self.fail(f"process {pid} is still there")


if __name__ == "__main__":
    unittest.main()

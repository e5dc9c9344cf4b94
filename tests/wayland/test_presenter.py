# SPDX-License-Identifier: MIT
"""The promises of whoever shows menus, checked in the compositor. The checks are a program of their own
(tests/contract/linux/wayland), which asks for a person's hands; the lines that it writes for them begin with "hands"."""
import os
import subprocess

from case import WaylandTest, main

BUTTONS = {"left": 0x110, "right": 0x111, "middle": 0x112}


class ThePresenter(WaylandTest):
    def act(self, words):
        """What the words say, one after another."""
        words = iter(words)
        for word in words:
            if word in ("tap", "press", "release"):
                getattr(self.input, word)(int(next(words)))
            elif word == "move":
                self.input.move(int(next(words)), int(next(words)))
            elif word == "click":
                place = int(next(words)), int(next(words))
                self.input.click(place, BUTTONS[next(words)])
            else:
                raise ValueError(word)

    def test_it_keeps_its_promises(self):
        command = [os.environ["TARNWICK_CONTRACT_WAYLAND"], *os.environ.get("TARNWICK_CONTRACT_ARGUMENTS", "").split()]
        said = []
        with subprocess.Popen(["setpriv", "--pdeathsig", "KILL", *command], env=self.session.environment, text=True,
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT) as checks:
            for line in checks.stdout:
                said.append(line)
                kind, *words = line.split() or [""]
                if kind == "hands":
                    self.act(words)
                    try:
                        checks.stdin.write("done\n")
                        checks.stdin.flush()
                    except BrokenPipeError:  # it has ended, and its status says how
                        break
        self.assertEqual(checks.returncode, 0, "".join(said))


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Has the session bus start the Tarnwick that is installed, by its name, and asks it for its menu and its preferences."""
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tests/desktop"))

from harness.session import Session  # noqa: E402
from harness.tarnwick import settings_text  # noqa: E402
from harness.waiting import wait_for  # noqa: E402

NAME = "example.quorlane.Tarnwick"
POINTER = 330, 260


def main():
    session = Session()
    session.start()
    try:
        settings = session.directory / "home/.config/Quorlane/Tarnwick.conf"
        settings.parent.mkdir(parents=True)
        settings.write_text(settings_text({}))
        session.screen.move(*POINTER)
        print("-- call the action pop-up; nothing runs yet", flush=True)
        session.call("gapplication", "action", NAME, "pop-up")
        wait_for(lambda: any(window.frame[:2] == POINTER for window in session.screen.unmanaged_windows()),
                 "a menu at the pointer")
        session.screen.tap("Escape")
        print("-- launch it as a desktop does", flush=True)
        session.call("gapplication", "launch", NAME)
        window = session.screen.window_titled("Hot Key")
        program = pathlib.Path(f"/proc/{window.pid}/exe").resolve()
        print(f"   the preferences of {program}")
    finally:
        session.stop()


if __name__ == "__main__":
    main()

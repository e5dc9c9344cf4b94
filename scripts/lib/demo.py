#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tarnwick at work on a private display: opens an editor's menu at the pointer and chooses File > New Window in it.

Prints what it saw at each step, leaves screenshots, and ends with a status other than 0 when a step did not happen.
"""
import argparse
import os
import pathlib
import shutil
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tests/desktop"))

from harness.accessible import AccessibilityBus  # noqa: E402
from harness.applications import mousepad  # noqa: E402
from harness.session import Session  # noqa: E402
from harness.tarnwick import Tarnwick  # noqa: E402
from harness.waiting import TimedOut, wait_for  # noqa: E402

POINTER = (420, 300)


class Demo:
    def __init__(self, program, screenshots):
        os.environ["TARNWICK_BINARY"] = str(program)
        self._screenshots = screenshots
        self._screenshots.mkdir(parents=True, exist_ok=True)
        self._pictures = []

    def play(self, session):
        self._session = session
        bus = AccessibilityBus(session.environment["DBUS_SESSION_BUS_ADDRESS"])
        tarnwick = self._step("start Tarnwick", lambda: Tarnwick(session))
        editor = self._step("start the editor mousepad", lambda: mousepad(session))
        self._step("wait until Tarnwick answers", tarnwick.wait_until_ready)
        reader = tarnwick.reader(bus)

        before = len(editor.windows())
        print(f"   windows of the editor: {before}")
        session.screen.move(*POINTER)
        popup = self._step(f"move the pointer to {POINTER[0]}, {POINTER[1]} and press Option-Z", tarnwick.open)
        self._step("read the menu", lambda: reader.wait_for(1))
        print(f"   a menu at {popup.frame[0]}, {popup.frame[1]}: {self._titles(reader, 0)}")
        self._picture("1-menu")

        self._step("open File", lambda: self._choose(session, reader, "File", 0, then=2))
        print(f"   its entries: {self._titles(reader, 1)}")
        self._picture("2-file")

        self._step("choose New Window", lambda: self._choose(session, reader, "New Window", 1, then=0))
        self._step("see a new window", lambda: wait_for(lambda: len(editor.windows()) == before + 1,
                                                        "one more window of the editor"))
        print(f"   windows of the editor: {len(editor.windows())}")
        self._picture("3-new-window")

        reader.close()
        bus.close()
        print("Screenshots:\n" + "\n".join(f"   {picture}" for picture in self._pictures))

    @staticmethod
    def _step(what, action):
        print(f"-- {what}", flush=True)
        return action()

    @staticmethod
    def _titles(reader, level):
        return " | ".join(item.title or "---" for item in reader.items(level))

    @staticmethod
    def _choose(session, reader, title, level, then):
        """Goes down to the entry with the keyboard and takes it; `then` menus are open afterwards."""
        for _ in range(len(reader.items(level))):
            if reader.focused_title() == title:
                break
            last = reader.focused_title()
            session.screen.tap("Down")
            wait_for(lambda: reader.focused_title() != last, "the next entry highlighted", limit=2.0)
        else:
            raise TimedOut(f"no entry titled {title!r}")
        session.screen.tap("Return")
        reader.wait_for(then)

    def _picture(self, name):
        path = self._screenshots / f"{name}.png"
        self._session.screenshot(path)
        self._pictures.append(path)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--program", type=pathlib.Path, required=True)
    parser.add_argument("--screenshots", type=pathlib.Path, required=True)
    parser.add_argument("--keep-home", type=pathlib.Path, help="leave here what the programs wrote into their home")
    arguments = parser.parse_args()

    session = Session()
    session.start()
    try:
        Demo(arguments.program.resolve(), arguments.screenshots.resolve()).play(session)
    except (AssertionError, OSError) as failure:
        print(f"This step did not happen: {failure}", file=sys.stderr)
        session.screenshot(arguments.screenshots / "failure.png")
        print(f"The screen as it was: {arguments.screenshots / 'failure.png'}", file=sys.stderr)
        return 1
    finally:
        if arguments.keep_home:
            shutil.copytree(session.directory / "home", arguments.keep_home, dirs_exist_ok=True)
        session.stop()
    print("Everything happened.")
    return 0


if __name__ == "__main__":
    sys.exit(main())

# SPDX-License-Identifier: MIT
"""The pop-up itself: Tarnwick runs, each of its menus is opened as a person does and read while it is on the screen."""
from harness.accessible import CHECKED, ENABLED, POPUP_MENU, SENSITIVE, SEPARATOR
from harness.over import OWN_ENTRY
from harness.tarnwick import Tarnwick
from harness.waiting import TimedOut, wait_for

from entries import EMPTY, GREYED, Entry, without_idle_separators

_MIRRORED_IN, _HEARD_IN = 60.0, 3.0  # seconds
_POINTER = (600, 5)  # so high that the longest menu has room below


def read(session, bus):
    """What the pop-up shows of the application in front."""
    tarnwick = Tarnwick(session, ShowKeyEquivalents=True)
    reader = None
    try:
        wait_for(bus.is_enabled, "accessibility switched on", step=0.05)
        reader = tarnwick.reader(bus)
        session.screen.move(*_POINTER)
        tarnwick.wait_until_ready()
        wait_for(lambda: _opens_with_a_bar(tarnwick, reader), "a bar in the pop-up", _MIRRORED_IN)
        entries = _read_below(session.screen, reader, _entries(reader))
        tarnwick.close_menu()
        return _without_own(entries)
    finally:
        if reader:
            reader.close()
        tarnwick.stop()


def _opens_with_a_bar(tarnwick, reader):
    """It stays open then. Until the bar has been read for the first time only its own entry is there.

    The toolkit tells nothing of a menu that opens before it has heard that somebody reads.
    """
    tarnwick.open()
    try:
        reader.wait_for(1, _HEARD_IN)
        if _without_own(_entries(reader)):
            return True
    except TimedOut:
        pass
    tarnwick.close_menu()
    reader.wait_for(0)
    return False


def _entries(reader):
    """Of the last open menu."""
    return [_entry(node) for node in reader.menus()[-1].children if node.takes_room()]


def _entry(node):
    """The shortcut is drawn behind the title."""
    if node.role == SEPARATOR:
        return Entry(separator=True)
    states = node.states
    title, _, shortcut = node.name.partition("\t")
    return Entry(title=title.strip(), enabled=bool(states & {SENSITIVE, ENABLED}), checked=CHECKED in states,
                 shortcut=shortcut or None, holds_menu=any(child.role == POPUP_MENU for child in node.children), node=node)


def _without_own(entries):
    """Its own entry stands at the foot, behind a separator."""
    if not entries or entries[-1].title != OWN_ENTRY:
        raise AssertionError("its own entry is not the last one")
    return without_idle_separators(entries[:-1])


def _read_below(screen, reader, entries):
    """Opens each submenu of the last open menu with the pointer, and closes it with a key."""
    level = len(reader.menus())
    for entry in entries:
        if not entry.holds_menu or entry.title == OWN_ENTRY and level == 1:
            continue
        if not entry.enabled:
            entry.unread = GREYED
            continue
        screen.move(*entry.node.center)
        wait_for(lambda: len(reader.menus()) == level + 1, f"the menu of {entry.title!r}")
        entry.entries = without_idle_separators(_read_below(screen, reader, _entries(reader)))
        entry.unread = None if entry.entries else EMPTY
        screen.tap("Left")
        wait_for(lambda: len(reader.menus()) == level, f"the menu of {entry.title!r} closed")
    return entries

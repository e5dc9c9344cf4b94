# SPDX-License-Identifier: MIT
"""Windows, keys and buttons of one X display, as a second person at the same screen has them."""
import time

from Xlib import X, XK, display, error
from Xlib.ext import res, xtest
from Xlib.protocol import event

from .waiting import LIMIT, TimedOut, try_until, wait_for

PRESS = 0.05  # seconds that a person holds a key down; no program need be faster than that

# Buttons as the server numbers them.
LEFT, MIDDLE, RIGHT = 1, 2, 3

XK.load_keysym_group("xf86")


class Window:
    """A top-level window."""

    def __init__(self, screen, handle):
        self._screen = screen
        self.handle = handle

    @property
    def id(self):
        return self.handle.id

    @property
    def pid(self):
        value = self._screen.property_of(self.handle, "_NET_WM_PID")
        return value[0] if value else None

    @property
    def title(self):
        value = self._screen.property_of(self.handle, "_NET_WM_NAME")
        return bytes(value).decode(errors="replace") if value is not None else ""

    @property
    def types(self):
        value = self._screen.property_of(self.handle, "_NET_WM_WINDOW_TYPE") or []
        return [self._screen.atom_name(atom) for atom in value]

    @property
    def class_name(self):
        """The second part of its WM_CLASS, which desktop entries name."""
        return self.handle.get_wm_class()[1]

    @property
    def icons(self):
        """The pictures that panels show of it, as pixels by their widths and heights."""
        values = list(self._screen.property_of(self.handle, "_NET_WM_ICON") or [])
        pictures = {}
        while values:
            width, height = values[:2]
            pictures[width, height] = values[2:2 + width * height]
            del values[:2 + width * height]
        return pictures

    @property
    def frame(self):
        """(x, y, width, height) on the screen, without what the window manager adds."""
        geometry = self.handle.get_geometry()
        corner = self.handle.translate_coords(self._screen.root, 0, 0)
        return -corner.x, -corner.y, geometry.width, geometry.height

    @property
    def center(self):
        x, y, width, height = self.frame
        return x + width // 2, y + height // 2


class Screen:
    """One connection to a display: it looks, and it moves the pointer and the keys."""

    def __init__(self, name):
        self.display = display.Display(name)
        self.root = self.display.screen().root
        self._atoms = {}
        self._pressed_keys = []
        self._pressed_buttons = []

    def close(self):
        self.display.close()

    # Looking

    def property_of(self, window, name):
        try:
            value = window.get_full_property(self.display.intern_atom(name), X.AnyPropertyType)
        except error.XError:
            return None
        return value.value if value else None

    def atom_name(self, atom):
        if atom not in self._atoms:
            self._atoms[atom] = self.display.get_atom_name(atom)
        return self._atoms[atom]

    def wait_for_window_manager(self):
        """Waits until one manages new windows: it may overlook those of its first moments, long after it says it is there."""
        wait_for(lambda: self.property_of(self.root, "_NET_SUPPORTING_WM_CHECK"), "a window manager")
        try_until(self._manages_a_window, "a window manager that manages windows", most=60)

    def wait_for_desktop(self):
        """Waits until a desktop has put up what it shows by itself: its panel, its background."""
        seen = []

        def rests():
            seen.append({window.id for window in self.windows()})
            enough = 20 if seen[-1] else 60  # a shell may draw everything without windows
            return len(seen) > enough and all(one == seen[-1] for one in seen[-enough:])
        wait_for(rests, "the windows of the desktop", limit=60, step=0.2)

    def _manages_a_window(self):
        probe = self.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        probe.map()
        self.display.sync()
        try:
            wait_for(lambda: self.windows(), "the probe managed", limit=0.5)
            return True
        except TimedOut:
            return False
        finally:
            probe.destroy()
            self.display.sync()
            wait_for(lambda: not self.windows(), "the probe gone")

    def pixels(self, frame):
        """A part of the screen (x, y, width, height) as it is now: blue, green, red and a byte of padding each."""
        return self.root.get_image(*frame, X.ZPixmap, 0xFFFFFFFF).data

    def window_manager_pid(self):
        """The process that manages the windows; nothing when there is none."""
        window = self.property_of(self.root, "_NET_SUPPORTING_WM_CHECK")
        if window is None:
            return None
        ids = self.display.res_query_client_ids([{"client": window[0], "mask": res.LocalClientPIDMask}]).ids
        return next((value.value[0] for value in ids if value.value), None)

    def windows(self):
        """The windows that the window manager knows, oldest first."""
        handles = self.property_of(self.root, "_NET_CLIENT_LIST")
        return [Window(self, self.display.create_resource_object("window", handle)) for handle in handles or []]

    def unmanaged_windows(self):
        """The windows on the screen that pass by the window manager, lowest first: menus, tooltips."""
        found = []
        for handle in self.root.query_tree().children:
            try:
                attributes = handle.get_attributes()
            except error.XError:
                continue
            if attributes.override_redirect and attributes.map_state == X.IsViewable:
                found.append(Window(self, handle))
        return found

    def unmanaged_window_at(self, corner):
        """The one whose upper left corner is there; nothing when there is none, or it is just going."""
        for window in self.unmanaged_windows():
            try:
                if window.frame[:2] == corner:
                    return window
            except error.XError:
                continue
        return None

    def active_window(self):
        value = self.property_of(self.root, "_NET_ACTIVE_WINDOW")
        return Window(self, self.display.create_resource_object("window", value[0])) if value and value[0] else None

    def pointer(self):
        position = self.root.query_pointer()
        return position.root_x, position.root_y

    def focused_window_id(self):
        focus = self.display.get_input_focus().focus
        return focus if isinstance(focus, int) else focus.id

    def focus_at_rest(self):
        """Waits until the focus moves no more: toolkits hand it on to a window of their own, some time after they have got it."""
        seen = []

        def rests():
            seen.append(self.focused_window_id())
            return len(seen) > 20 and len(set(seen[-20:])) == 1
        wait_for(rests, "the focus at rest", step=0.01)
        return seen[-1]

    # The window manager's part

    def window_titled(self, title, limit=LIMIT):
        def find():
            return next((window for window in self.windows() if window.title == title), None)
        return wait_for(find, f"a window titled {title!r}", limit)

    def activate(self, window):
        """Brings a window to the front, as a task bar does, and waits until it is there."""
        self._ask_window_manager(window.handle, "_NET_ACTIVE_WINDOW", 2, X.CurrentTime)
        self.wait_until_active(window)

    def minimize(self, window):
        """Puts a window away, as the button in its title bar does, and waits until it is gone."""
        iconic_state = 3
        self._ask_window_manager(window.handle, "WM_CHANGE_STATE", iconic_state)
        wait_for(lambda: window.handle.get_attributes().map_state != X.IsViewable, f"{window.title!r} minimised")

    def stacked(self):
        """The ids of the windows that the window manager knows, lowest first."""
        return list(self.property_of(self.root, "_NET_CLIENT_LIST_STACKING") or [])

    def ask_to_close(self, window):
        """Closes a window, as a task bar does."""
        self._ask_window_manager(window.handle, "_NET_CLOSE_WINDOW", X.CurrentTime, 2)

    def show_workspace(self, number):
        """Goes to another workspace, the first being 0, as a pager does, and waits until it is there."""
        self._ask_window_manager(self.root, "_NET_CURRENT_DESKTOP", number, X.CurrentTime)
        wait_for(lambda: list(self.property_of(self.root, "_NET_CURRENT_DESKTOP")) == [number], f"workspace {number}")

    def _ask_window_manager(self, handle, name, *data):
        request = event.ClientMessage(window=handle, client_type=self.display.intern_atom(name),
                                      data=(32, [*data, *[0] * (5 - len(data))]))
        self.root.send_event(request, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.flush()

    def wait_until_active(self, window):
        wait_for(lambda: (front := self.active_window()) is not None and front.id == window.id,
                 f"{window.title!r} in front")

    def place(self, window, x, y):
        """Moves a window's own area to about (x, y) and waits until it has moved."""
        before = window.frame
        window.handle.configure(x=x, y=y)
        self.display.flush()
        wait_for(lambda: window.frame != before or before[:2] == (x, y), f"{window.title!r} moved")

    # Keys and buttons

    def key_code(self, key):
        """The code of a key by its name on the current layout ("a", "Escape"), or the code itself."""
        if isinstance(key, int):
            return key
        symbol = XK.string_to_keysym(key)
        first = self.display.display.info.min_keycode
        count = self.display.display.info.max_keycode - first + 1
        for code, symbols in enumerate(self.display.get_keyboard_mapping(first, count), first):
            if symbols[0] == symbol:
                return code
        raise ValueError(f"no key {key!r} on this layout")

    def keysym_of(self, code):
        """The name of what a key types alone on the current layout."""
        symbols = self.display.get_keyboard_mapping(code, 1)[0]
        return XK.keysym_to_string(symbols[0])

    def press(self, key):
        code = self.key_code(key)
        xtest.fake_input(self.display, X.KeyPress, code)
        self.display.sync()
        self._pressed_keys.append(code)

    def release(self, key):
        code = self.key_code(key)
        xtest.fake_input(self.display, X.KeyRelease, code)
        self.display.sync()
        if code in self._pressed_keys:
            self._pressed_keys.remove(code)

    def tap(self, key, *held):
        """Presses and releases a key while the keys `held` are down."""
        for modifier in held:
            self.press(modifier)
        self.press(key)
        self.release(key)
        for modifier in reversed(held):
            self.release(modifier)

    def chord(self, key, *held, length=PRESS):
        """Presses a key with the keys `held`, as a hand does: all are down for a moment, and the key comes up first."""
        for each in (*held, key):
            self.press(each)
        time.sleep(length)
        for each in (key, *reversed(held)):
            self.release(each)

    def type(self, text):
        for letter in text:
            self.tap({" ": "space", "\n": "Return", "\t": "Tab"}.get(letter, letter))

    def move(self, x, y):
        xtest.fake_input(self.display, X.MotionNotify, x=x, y=y)
        self.display.sync()

    def press_button(self, button):
        xtest.fake_input(self.display, X.ButtonPress, button)
        self.display.sync()
        self._pressed_buttons.append(button)

    def release_button(self, button):
        xtest.fake_input(self.display, X.ButtonRelease, button)
        self.display.sync()
        if button in self._pressed_buttons:
            self._pressed_buttons.remove(button)

    def click(self, button=LEFT, at=None):
        if at:
            self.move(*at)
        self.press_button(button)
        self.release_button(button)

    def release_everything(self):
        """Lets go of what a failed test still holds down."""
        for key in list(self._pressed_keys):
            self.release(key)
        for button in list(self._pressed_buttons):
            self.release_button(button)

    # Grabs

    def grabs_left(self):
        """Which of "keyboard" and "pointer" somebody holds. Takes both for a moment when they are free."""
        left = []
        if self.root.grab_keyboard(False, X.GrabModeAsync, X.GrabModeAsync, X.CurrentTime) == X.GrabSuccess:
            self.display.ungrab_keyboard(X.CurrentTime)
        else:
            left.append("keyboard")
        if self.root.grab_pointer(False, 0, X.GrabModeAsync, X.GrabModeAsync, 0, 0, X.CurrentTime) == X.GrabSuccess:
            self.display.ungrab_pointer(X.CurrentTime)
        else:
            left.append("pointer")
        self.display.sync()
        return left

    def hold_key(self, key, modifiers):
        """Takes a chord for ourselves, as another program's hot key; the result gives it back.

        Raises a BadAccess when somebody else holds it.
        """
        code = self.key_code(key)
        refusal = error.CatchError(error.BadAccess)
        self.root.grab_key(code, modifiers, False, X.GrabModeAsync, X.GrabModeAsync, onerror=refusal)
        self.display.sync()
        if refusal.get_error():
            raise refusal.get_error()
        return lambda: (self.root.ungrab_key(code, modifiers), self.display.sync())

# SPDX-License-Identifier: MIT
"""Nobody is left without keyboard or pointer: whatever happens, both are free once no menu is open."""
import os
import signal
import statistics
import time

from Xlib import X

from torture import WatchedTarnwick, dice, note, times, wait_for

from harness.accessible import AccessibilityBus
from harness.applications import DATA, KITS, Fixture
from harness.case import DesktopTest, main
from harness.fair import FairTimer
from harness.preferences import AlertOnTop, Preferences
from harness.screen import LEFT, Screen
from harness.tarnwick import OPTION, TRIGGER, Tarnwick

FREE_WITHIN = 0.6  # seconds after a step that leaves no menu
PATIENCE = 3.0  # seconds after which nobody can put it down to a busy machine
HOLD = 0.6  # seconds that Tarnwick may hold keyboard or pointer while it waits for somebody
LOOKED_AFTER = 0.4  # seconds; looking costs the display server time, too
STEPS = 2200
HURRY = 0.05  # Tarnwick's pauses in the random steps, of their length
KILLS = 5
HOLDS = 3
LOCKS = ("Caps_Lock", "Num_Lock")
LAYOUTS = ("us", "de", "fr", "ru", "us(dvorak)")
WALKS = ("Down", "Up", "Right", "Left", "Home", "End", "Page_Down", "f", "e", "x")
SEARCHES = ("", "e", "find", "save as", "zzz")
WINDOW_MANAGERS = {"openbox": ("--replace", "--sm-disable"), "xfwm4": ("--replace", "--compositor=off"),
                   "icewm": ("--replace",)}


class OtherClient(Screen):
    """A client with grabs of its own, which can tell whether it could have those that it does not hold."""

    def __init__(self, name):
        super().__init__(name)
        self._held = set()

    def take(self, what):
        """What somebody else has stays theirs."""
        if self._grab(what):
            self._held.add(what)

    def give_back(self):
        for what in list(self._held):
            self._ungrab(what)
        self._held.clear()
        self.display.sync()

    def grabs_left(self):
        left = []
        for what in ("keyboard", "pointer"):
            if not self._grab(what):
                left.append(what)
            elif what not in self._held:
                self._ungrab(what)
        self.display.sync()
        return left

    def holds(self, what):
        return what in self._held

    def _grab(self, what):
        if what == "keyboard":
            status = self.root.grab_keyboard(False, X.GrabModeAsync, X.GrabModeAsync, X.CurrentTime)
        else:
            status = self.root.grab_pointer(False, 0, X.GrabModeAsync, X.GrabModeAsync, 0, 0, X.CurrentTime)
        return status == X.GrabSuccess

    def _ungrab(self, what):
        if what == "keyboard":
            self.display.ungrab_keyboard(X.CurrentTime)
        else:
            self.display.ungrab_pointer(X.CurrentTime)


def random_steps(numbers, count):
    """Steps as (name, arguments): what a person might do, the menu being opened more often than not."""
    steps = []
    seems_open = False
    while len(steps) < count:
        if not seems_open:
            name = numbers.choices(("summon", "hold", "switch", "switch_by_key", "click", "type", "lock", "layout", "other"),
                                   (45, 15, 9, 2, 5, 6, 5, 3, 10))[0]
        else:
            name = numbers.choices(("walk", "search", "choose", "cancel", "click", "click_beside", "switch",
                                    "switch_by_key", "summon", "hold", "lock", "layout", "other"),
                                   (45, 12, 10, 12, 9, 6, 6, 2, 2, 1, 3, 1, 3))[0]
        arguments = {
            "hold": lambda: (numbers.choice(("key", "option")), numbers.choice((0, 0, 0.02, 0.08))),
            "walk": lambda: (numbers.choices(WALKS, k=numbers.randint(1, 4)),),
            "search": lambda: (numbers.choice(SEARCHES),),
            "choose": lambda: (numbers.choice(("Return", "space", "KP_Enter")),),
            "cancel": lambda: (numbers.choice(("once", "all")),),
            "switch": lambda: (numbers.randrange(len(KITS)),),
            "click": lambda: (numbers.random(), numbers.random()),
            "click_beside": lambda: (numbers.randrange(len(KITS)),),
            "type": lambda: ("".join(numbers.choices("abcdefg", k=3)),),
            "lock": lambda: (numbers.choice(LOCKS),),
            "layout": lambda: (numbers.choice(LAYOUTS),),
            "other": lambda: (numbers.choice(("keyboard", "pointer", "both")), numbers.randint(1, 3)),
        }.get(name, tuple)()
        steps.append((name, *arguments))
        if name in ("summon", "hold"):
            seems_open = True
        elif name in ("choose", "switch", "switch_by_key", "click_beside") or name == "cancel" and "all" in arguments:
            seems_open = False
    return steps


class RandomSteps(DesktopTest):
    """A person between three applications, and another program that takes keyboard and pointer now and then."""

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.other = OtherClient(cls.session.environment["DISPLAY"])
        cls.addClassCleanup(cls.other.close)
        cls.tarnwick = WatchedTarnwick(cls.session, hurry=HURRY)
        cls.tarnwick.wait_until_ready()
        menu = cls.session.directory / "steps.menu"
        menu.write_text("".join(line for line in (DATA / "editor.menu").read_text().splitlines(keepends=True)
                                if "Quit" not in line))
        cls.applications = []
        for number, kit in enumerate(KITS):
            fixture = Fixture(cls.session, kit, menu=str(menu))
            cls.screen.place(fixture.window, 20 + 420 * number, 60)
            cls.applications.append(fixture)

    def test_leave_keyboard_and_pointer_free(self):
        steps = random_steps(dice("steps"), times(STEPS, least=60))
        self.opened = self.given_back_in = 0
        self.freed = []
        for number, step in enumerate(steps):
            try:
                self._let_time_pass_for_the_other()
                getattr(self, "_" + step[0])(*step[1:])
                self._check()
            except AssertionError as error:
                last = "\n".join(f"  {at}: {steps[at]}" for at in range(max(0, number - 30), number + 1))
                raise AssertionError(f"{error}\nat step {number} of {len(steps)}; the last ones:\n{last}\n"
                                     f"Tarnwick wrote: {self.tarnwick.program.output!r}") from error
        self.other.give_back()
        self._cancel("all")  # a search goes back to its menu first
        self.tarnwick.close_menu()
        self.tarnwick.wait_until_at_rest()  # what was chosen last may just be opening the preferences
        self._close_own_windows()
        wait_for(lambda: not self._own_windows(), "the preferences closed")
        self._assert_all_works()
        self.assertGreater(self.opened, len(steps) / 20)
        late = [time for time in self.freed if not time.is_within(FREE_WITHIN)]
        if len(late) >= 0.02 * len(self.freed):
            max(late).assert_within(FREE_WITHIN, f"{len(late)} of {len(self.freed)} steps were late; setting both free")
        note("random steps", len(steps))
        note("menus opened in them", self.opened)
        note("free after a step that leaves no menu, median", round(1000 * statistics.median(self._fair())), unit="ms")
        note("free after a step that leaves no menu, longest", round(1000 * max(self._fair())), 1000 * FREE_WITHIN, "ms")

    def _fair(self):
        return [time.fair for time in self.freed]

    def _assert_all_works(self):
        self.session.call("setxkbmap", "us")
        for lock in LOCKS:
            self._lock_off(lock)
        for fixture in self.applications:
            self.screen.activate(fixture.window)
            self.screen.click(at=fixture.window.center)
            self.tarnwick.wait_until_ready()
            fixture.forget()
            self.screen.type("q")
            fixture.wait_for_line("typed", "q")
        self.assertEqual(self.tarnwick.program.output, "")

    def _lock_off(self, lock):
        bit = {"Caps_Lock": X.LockMask, "Num_Lock": X.Mod2Mask}[lock]
        if self.screen.root.query_pointer().mask & bit:
            self.screen.tap(lock)

    def _check(self):
        """With no menu open, what the other client does not hold is free; what was chosen in our own entry is undone."""
        timer = self._timer()
        while left := self.other.grabs_left():
            if self.tarnwick.popups.count():
                return
            if timer.read().fair > PATIENCE:
                self._close_menus_of_others(left)
                timer = self._timer()
            time.sleep(0.001)
        self.freed.append(timer.read())
        if not self.tarnwick.program.running():
            self.assertEqual((self.tarnwick.program.status(), self.tarnwick.program.output), (0, ""))
            type(self).tarnwick = WatchedTarnwick(self.session, hurry=HURRY)
            self.other.give_back()
            self.tarnwick.wait_until_ready()
        self._close_own_windows()

    def _close_own_windows(self):
        for window in self._own_windows():
            self.screen.ask_to_close(window)

    def _own_windows(self):
        return [window for window in self.screen.windows() if window.pid == self.tarnwick.pid]

    def _timer(self):
        return FairTimer(self.tarnwick.pid, self.session.display_server_pid)

    def _close_menus_of_others(self, left):
        """At a key or a click an application may have opened a menu of its own, or the window manager its list of windows,
        which stays when the keys are up too soon; else somebody has kept something."""
        menus = [window for window in self.screen.unmanaged_windows() if self._is_of_another(window)]
        if not menus:
            self.fail(f"{left} held after {PATIENCE} s without a menu, {self._whose()}")
        self._tap("Escape")

    def _whose(self):
        """A server does not tell who holds something, but gives it back when that client ends."""
        self.tarnwick.program.kill()
        time.sleep(0.2)
        left = self.other.grabs_left()
        return f"{left} by others than Tarnwick" if left else "by Tarnwick"

    def _is_of_another(self, window):
        if window.pid is None:
            return min(window.frame[2:]) > 1  # others are there to hold something
        return any(window.pid == application.pid for application in self.applications)

    # The steps

    def _summon(self):
        self.screen.chord(TRIGGER, OPTION)
        self._look_for_a_menu()

    def _hold(self, first_up, longer):
        """Lets go of the keys when the menu is there, or a while after."""
        self.screen.press(OPTION)
        self.screen.press(TRIGGER)
        self._look_for_a_menu()
        time.sleep(longer)
        for key in (TRIGGER, OPTION) if first_up == "key" else (OPTION, TRIGGER):
            self.screen.release(key)

    def _look_for_a_menu(self):
        """For a moment only: there need not be one."""
        end = time.monotonic() + (0.1 if self._keyboard_is_free() else 0.01)
        while not self.tarnwick.popups.count() and time.monotonic() < end:
            time.sleep(0.002)
        self.opened += self.tarnwick.popups.count() > 0

    def _keyboard_is_free(self):
        return not self.other.holds("keyboard")

    def _walk(self, keys):
        for key in keys:
            if not self.tarnwick.popups.count():
                return
            self._tap(key)

    def _search(self, text):
        """What is typed after the menu has gone is for the application."""
        for key in ("slash", *text.replace(" ", "")):
            if not self.tarnwick.popups.count():
                return
            self._tap(key)

    def _choose(self, key):
        if self.tarnwick.popups.count():
            self._tap(key)

    def _cancel(self, how):
        if how == "once" and self.tarnwick.popups.count():
            self._tap("Escape")
        for _ in range(4 if how == "all" else 0):
            if self.tarnwick.popups.count():
                self._tap("Escape")

    def _click(self, across, down):
        """Into a menu, if one is open."""
        menus = self.tarnwick.popups.windows()
        if not menus:
            return
        try:
            x, y, width, height = menus[-1].frame
        except Exception:  # it has just gone
            return
        self.screen.click(LEFT, at=(int(x + across * width), int(y + down * height)))

    def _click_beside(self, number):
        self.screen.click(LEFT, at=self.applications[number].window.center)

    def _switch(self, number):
        self.screen.activate(self.applications[number].window)

    def _switch_by_key(self):
        self.screen.tap("Tab", OPTION)

    def _type(self, text):
        for letter in text:
            self._tap(letter)

    def _lock(self, lock):
        self.screen.tap(lock)

    def _layout(self, layout):
        self.session.call("setxkbmap", *layout.replace("(", " -variant ").strip(")").split())

    def _other(self, what, steps):
        self.other.give_back()
        self.given_back_in = steps
        for one in ("keyboard", "pointer") if what == "both" else (what,):
            self.other.take(one)

    def _let_time_pass_for_the_other(self):
        self.given_back_in -= 1
        if self.given_back_in == 0:
            self.other.give_back()

    def _tap(self, key):
        try:
            self.screen.tap(key)
        except ValueError:  # not on this layout
            self.screen.tap("Down")


class AKilledProgram(DesktopTest):
    """The X server takes back what a client has held."""

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.application = Fixture(cls.session, "gtk3")

    def assert_frees_both(self, tarnwick):
        self.assertNotEqual(self.screen.grabs_left(), [])
        timer = FairTimer(self.session.display_server_pid)
        tarnwick.program.kill()
        wait_for(lambda: self.screen.grabs_left() == [], "keyboard and pointer free", step=0.001)
        took = timer.read()
        took.assert_within(FREE_WITHIN, "setting both free")
        self.screen.activate(self.application.window)
        self.application.forget()
        self.screen.type("k")
        self.application.wait_for_line("typed", "k")
        return took.fair

    def killed(self, what, prepare):
        took = []
        for _ in range(times(KILLS)):
            tarnwick = Tarnwick(self.session, FirstRun=False) if what == "recording" else Tarnwick(self.session)
            self.addCleanup(tarnwick.stop)
            prepare(tarnwick)
            took.append(self.assert_frees_both(tarnwick))
        note(f"free after SIGKILL {what}, longest", round(1000 * max(took)), 1000 * FREE_WITHIN, "ms")

    def test_with_its_menu_open_frees_both(self):
        def open_two_levels(tarnwick):
            tarnwick.wait_until_ready()
            tarnwick.open()
            self.screen.tap("Down")
            self.screen.tap("Right")
            tarnwick.popups.wait_for(2)
            self.assertEqual(self.screen.grabs_left(), ["keyboard", "pointer"])
        self.killed("with a menu open", open_two_levels)

    def test_while_recording_frees_both(self):
        def record(tarnwick):
            Preferences(self.session, self.bus, tarnwick).recorder.start()
            self.assertIn("keyboard", self.screen.grabs_left())
        self.killed("recording", record)


class TheWindowManager(DesktopTest):
    """Another one takes over, which first lets go of all windows and then manages them anew."""

    tools = tuple(WINDOW_MANAGERS)

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.tarnwick = Tarnwick(cls.session)
        cls.tarnwick.wait_until_ready()
        cls.application = Fixture(cls.session, "gtk3")
        cls.titles = [item.title for item in cls.application.bar_items(cls.bus)]

    def replace_with(self, name):
        before = self.manager()
        self.session.run(name, *WINDOW_MANAGERS[name])
        wait_for(lambda: self.manager() not in (None, before), f"{name} in charge")
        wait_for(lambda: any(window.pid == self.application.pid for window in self.screen.windows()),
                 f"{name} managing windows")

    def manager(self):
        window = self.screen.property_of(self.screen.root, "_NET_SUPPORTING_WM_CHECK")
        return window[0] if window else None

    def assert_all_is_as_before(self):
        self.tarnwick.close_menu()
        wait_for(lambda: self.screen.grabs_left() == [], "keyboard and pointer free")
        self.screen.activate(self.application.window)
        reader = self.tarnwick.reader(self.bus)
        try:
            self.tarnwick.wait_for_titles(reader, self.titles)
        finally:
            reader.close()
        self.application.forget()
        self.screen.type("w")
        self.application.wait_for_line("typed", "w")

    def managers(self):
        """Each of them, and last the first one again."""
        others = [name for name in WINDOW_MANAGERS if name != "openbox"]
        return ["openbox", *others[:times(len(others))], "openbox"]

    def test_is_replaced_while_no_menu_is_open(self):
        for name in self.managers():
            with self.subTest(name):
                self.replace_with(name)
                self.assert_all_is_as_before()
        note("window managers in turn", ", ".join(self.managers()))

    def test_is_replaced_while_a_menu_is_open(self):
        for name in self.managers():
            with self.subTest(name):
                self.tarnwick.open()
                self.screen.tap("Down")
                self.screen.tap("Right")
                self.tarnwick.popups.wait_for(2)
                self.replace_with(name)
                self.assert_all_is_as_before()


class TheDisplayServer(DesktopTest):
    """Its end ends Tarnwick, in order and without a word. Each test needs a session of its own."""

    def setUp(self):
        self.mine = type(self).session_class()
        self.mine.start()
        self.addCleanup(self.mine.stop)

    def assert_ends_well(self, tarnwick):
        self.mine.end_display()
        self.assertEqual(tarnwick.program.status(), 0)
        self.assertEqual(tarnwick.program.output, "")
        self.assertEqual([path.name for path in self.mine.directory.rglob("core*")], [])

    def test_ends_while_nothing_is_open(self):
        tarnwick = Tarnwick(self.mine)
        tarnwick.wait_until_ready()
        self.assert_ends_well(tarnwick)

    def test_ends_while_a_menu_is_open(self):
        tarnwick = Tarnwick(self.mine)
        tarnwick.wait_until_ready()
        tarnwick.open()
        self.mine.screen.tap("Down")
        self.assert_ends_well(tarnwick)

    def test_ends_while_the_preferences_record(self):
        bus = AccessibilityBus(self.mine.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(bus.close)
        tarnwick = Tarnwick(self.mine, FirstRun=False)
        Preferences(self.mine, bus, tarnwick).recorder.start()
        self.assert_ends_well(tarnwick)


class HoldingForAWhile(DesktopTest):
    def assert_held_within(self, times, what):
        note(what, round(max(time.fair for time in times), 3), HOLD, "s")
        for time in times:
            time.assert_within(HOLD, what)


class RecordingAHotKey(HoldingForAWhile):
    """Takes the keyboard, and gives it back before anything that takes time when another application comes to the front."""

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.application = Fixture(cls.session, "gtk3", "--no-bar")

    def test_holds_the_keyboard_only_while_its_window_is_in_front_and_ends_with_that(self):
        """Without a menu bar in front Tarnwick pauses for longest."""
        tarnwick = Tarnwick(self.session, FirstRun=False)
        self.addCleanup(tarnwick.stop)
        preferences = Preferences(self.session, self.bus, tarnwick)
        involved = (tarnwick.pid, self.session.display_server_pid, *self.session.services("openbox"))
        held = []
        for _ in range(times(HOLDS)):
            preferences.recorder.start()
            self.assertIn("keyboard", self.screen.grabs_left())
            timer = FairTimer(*involved)
            self.screen.activate(self.application.window)
            wait_for(lambda: self.screen.grabs_left() == [], "keyboard and pointer free", step=0.001)
            held.append(timer.read())
            self.screen.activate(preferences.window)
            wait_for(lambda: not preferences.recorder.is_recording(), "the end of recording", step=0.02)
        self.assert_held_within(held, "keyboard held by the recorder after a switch, longest")


class RecordingWhereTheSettingsProgramHangs(HoldingForAWhile):
    """The desktop's own shortcuts are asked for while the keyboard is held."""

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.asked = cls.session.directory / "asked"
        cls.session.replace_program("gsettings", f'echo "$@" >>{cls.asked}\nexec sleep 60')
        cls.session.environment["XDG_CURRENT_DESKTOP"] = "GNOME"

    def test_does_not_wait_for_it_for_long(self):
        tarnwick = WatchedTarnwick(self.session, FirstRun=False)
        self.addCleanup(tarnwick.stop)
        preferences = Preferences(self.session, self.bus, tarnwick)
        preferences.recorder.start()
        self.assertIn("keyboard", self.screen.grabs_left())
        begin = time.monotonic()
        self.screen.tap("x", "Control_L", "Super_L")
        alert = AlertOnTop(self.session, self.bus, tarnwick)  # what is not known counts as taken
        wait_for(lambda: tarnwick.absences(begin), "a program that is waited for")
        self.assertIn("list-schemas", self.asked.read_text())
        self.assert_held_within([tarnwick.longest_absence(begin)],
                                "keyboard held by the recorder over a settings program that hangs")
        alert.dismiss()
        self.screen.wait_until_active(preferences.window)
        self.screen.tap("Escape")
        wait_for(lambda: self.screen.grabs_left() == [], "keyboard and pointer free", step=0.001)


class WaitingForAStoppedApplication(HoldingForAWhile):
    """An application is stopped in the middle of what Tarnwick asks of it."""

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.tarnwick = WatchedTarnwick(cls.session)
        cls.tarnwick.wait_until_ready()

    def over(self, kit):
        application = Fixture(self.session, kit)
        self.addCleanup(application.program.kill)
        titles = [item.title for item in application.bar_items(self.bus)]
        reader = self.tarnwick.reader(self.bus)
        self.tarnwick.wait_for_titles(reader, titles)
        reader.close()
        return application

    def held_for(self, kit, *keys):
        """Seconds from the keys, with Escape after them, until both are free, over a new application that is stopped."""
        application = self.over(kit)
        self.tarnwick.open()
        os.kill(application.pid, signal.SIGSTOP)
        try:
            for key in keys:
                self.screen.tap(key)
            timer = FairTimer(self.tarnwick.pid, self.session.display_server_pid)
            for _ in range(4):
                self.screen.tap("Escape")
            time.sleep(LOOKED_AFTER)
            wait_for(lambda: self.screen.grabs_left() == [], "keyboard and pointer free", step=0.002)
            return timer.read()
        finally:
            os.kill(application.pid, signal.SIGCONT)
            application.program.kill()

    def test_holds_neither_keyboard_nor_pointer_for_long(self):
        ways = {"into one menu": ("Down", "Right"),
                "through four menus": ("Down", "Right", "Left", "Down", "Right", "Left", "Down", "Right", "Left", "Down",
                                       "Right")}
        for name, keys in ways.items():
            held = []
            for kit in KITS:
                with self.subTest(kit, way=name):
                    held += [self.held_for(kit, *keys) for _ in range(times(HOLDS))]
            self.assert_held_within(held, f"keyboard and pointer held over a stopped application, {name}, longest")


if __name__ == "__main__":
    main()

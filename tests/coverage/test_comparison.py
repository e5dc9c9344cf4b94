# SPDX-License-Identifier: MIT
"""What counts as right, and how what is wrong is named."""
import unittest

from comparison import compare
from entries import EMPTY, GREYED, SHUT, Entry, shown_entries, without_home, without_idle_separators


def bar(*entries):
    return [Entry(title="File", holds_menu=True, entries=list(entries))]


def found(truth, shown):
    """Kind and path below File of each difference."""
    result = compare(bar(*truth), bar(*shown))
    return [(each.kind, each.path.removeprefix("File > ")) for each in result.differences]


A, B, C, D = (Entry(title=letter) for letter in "ABCD")
LINE = Entry(separator=True)


class Comparison(unittest.TestCase):
    def test_names_each_kind(self):
        rows = [
            ("nothing", [A, LINE, B], [A, LINE, B], []),
            ("missing", [A, B], [A], [("missing", "B")]),
            ("extra", [A], [A, B], [("extra", "B")]),
            ("extra in front", [A], [B, A], [("extra", "B")]),
            ("order", [A, B, C], [C, A, B], [("order", "C")]),
            ("title", [A, B, C], [A, D, C], [("title", "B")]),
            ("separator missing", [A, LINE, B], [A, B], [("separator", "--- [A]")]),
            ("separator too many", [A, B], [A, LINE, B], [("separator", "--- [A]")]),
            ("submenu", [A], [Entry("A", holds_menu=True)], [("submenu", "A")]),
            ("enabled", [A], [Entry("A", enabled=False)], [("enabled", "A")]),
            ("checked", [A], [Entry("A", checked=True)], [("checked", "A")]),
            ("shortcut", [Entry("A", shortcut="Ctrl+A")], [A], [("shortcut", "A")]),
            ("two at once", [A], [Entry("A", enabled=False, checked=True)], [("enabled", "A"), ("checked", "A")]),
            ("titles that occur twice", [A, A, B], [A, B], [("missing", "A")]),
        ]
        for name, truth, shown, expected in rows:
            with self.subTest(name):
                self.assertEqual(found(truth, shown), expected)

    def test_counts_the_bar_by_itself(self):
        result = compare(bar(A, B), [*bar(A), Entry("Help")])
        self.assertEqual((result.bar, result.bar_right), (2, 1))
        self.assertEqual((result.items, result.right), (2, 1))
        self.assertEqual(result.wrong_by_kind(), {"missing": 1, "extra": 1})

    def test_says_what_is_expected_and_what_is_shown(self):
        result = compare(bar(Entry("A", shortcut="Ctrl+A")), bar(Entry("A", enabled=False)))
        self.assertEqual([(each.expected, each.shown) for each in result.differences],
                         [("yes", "no"), ("Ctrl+A", "none")])

    def test_all_below_a_missing_submenu_is_missing(self):
        self.assertEqual(found([Entry("A", holds_menu=True, entries=[B])], []),
                         [("missing", "A"), ("missing", "A > B")])

    def test_what_is_greyed_on_both_sides_is_listed_and_not_compared(self):
        closed = Entry("A", holds_menu=True, enabled=False, unread=GREYED)
        result = compare(bar(closed), bar(Entry("A", holds_menu=True, enabled=False, entries=[B])))
        self.assertEqual(result.differences, [])
        self.assertEqual(result.unread, [{"path": "File > A", "why": GREYED}])

    def test_what_lies_below_an_entry_that_is_greyed_or_empty_on_one_side_only_counts(self):
        opened = Entry("A", holds_menu=True, entries=[B])
        rows = [
            ("greyed in the program", Entry("A", holds_menu=True, enabled=False, unread=GREYED), opened,
             [("enabled", "A"), ("extra", "A > B")]),
            ("greyed in the mirror", opened, Entry("A", holds_menu=True, enabled=False, entries=[B]),
             [("enabled", "A"), ("missing", "A > B")]),
            ("empty in the program", Entry("A", holds_menu=True, unread=EMPTY), opened, [("extra", "A > B")]),
            ("empty in the mirror", opened, Entry("A", holds_menu=True, entries=[]), [("missing", "A > B")]),
            ("empty in both", Entry("A", holds_menu=True, unread=EMPTY), Entry("A", holds_menu=True, entries=[]), []),
            ("did not open", Entry("A", holds_menu=True, unread=SHUT), opened, []),
        ]
        for name, truth, shown, expected in rows:
            with self.subTest(name):
                self.assertEqual(found([truth], [shown]), expected)

    def test_an_entry_without_a_title_counts_on_either_side(self):
        untitled = Entry()
        for truth, shown, expected in (([A, untitled], [A], [("missing", "")]), ([A], [A, untitled], [("extra", "")]),
                                       ([A, untitled], [A, untitled], [])):
            with self.subTest((truth, shown)):
                self.assertEqual(found(truth, shown), expected)

    def test_an_item_that_has_a_shortcut_and_shows_none_is_wrong_for_who_wants_to_see_it(self):
        result = compare(bar(Entry("A", apart="why"), Entry("B", apart="why", enabled=False), C), bar(A, B, C))
        self.assertEqual((result.items, result.right, result.right_with_shortcuts), (3, 2, 1))

    def test_counts_shortcuts_apart_by_cause(self):
        result = compare(bar(Entry("A", apart="why"), Entry("B", apart="why")), bar(A, B))
        self.assertEqual((dict(result.apart), result.right), ({"why": 2}, 2))


class Entries(unittest.TestCase):
    def test_separators_are_kept_where_they_separate(self):
        self.assertEqual(without_idle_separators([LINE, A, LINE, LINE, B, LINE]), [A, LINE, B])
        self.assertEqual(without_idle_separators([LINE]), [])

    def test_what_the_inspector_prints_is_understood(self):
        printed = [{"title": "File", "enabled": True, "checked": False, "submenu": True, "entries": [
            {"title": "New", "enabled": False, "checked": True, "keyEquivalent": "Ctrl+N"}, {"separator": True},
            {"title": "More", "enabled": True, "checked": False, "submenu": True, "entries": []}]}]
        unmade = {"title": "Open this menu in the application once", "enabled": False, "checked": False}
        late = [{"title": "Late", "enabled": True, "checked": False, "submenu": True, "entries": [unmade]}]
        self.assertEqual(shown_entries(late), [Entry("Late", holds_menu=True, entries=[])], "which is no entry of it")
        self.assertEqual(shown_entries(printed), [Entry("File", holds_menu=True, entries=[
            Entry("New", enabled=False, checked=True, shortcut="Ctrl+N"), LINE,
            Entry("More", holds_menu=True, entries=[])])])

    def test_the_home_has_a_name_whatever_a_title_has_left_of_its_underscores(self):
        for left in ("/tmp/t_a__b/home", "/tmp/ta_b/home", "/tmp/tab/home"):
            with self.subTest(left):
                deep = [Entry("Go", holds_menu=True, entries=[Entry(f"Open {left}/x")])]
                self.assertEqual(without_home(deep, "/tmp/t_a__b/home")[0].entries, [Entry("Open ~/x")])
        self.assertEqual(without_home([Entry("/tmp/tacb/home")], "/tmp/t_a__b/home"), [Entry("/tmp/tacb/home")])


if __name__ == "__main__":
    unittest.main()

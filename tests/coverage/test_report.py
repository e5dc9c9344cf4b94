# SPDX-License-Identifier: MIT
"""The table and its explanations."""
import json
import pathlib
import tempfile
import unittest

import catalogue
import report
from comparison import compare
from entries import GREYED, SHUT, Entry

APPLICATION = {"name": "editor", "toolkit": "GTK 3"}
EXPLAINED = {"applications": ["editor"], "entries": ["Edit > Pas*"], "kinds": ["enabled"],
             "why": "Known when the menu opens only."}


def row(shown_enabled=False):
    truth = [Entry("Edit", holds_menu=True, entries=[Entry("Paste", apart="no code"), Entry("Cut")])]
    shown = [Entry("Edit", holds_menu=True, entries=[Entry("Paste", enabled=shown_enabled), Entry("Cut")])]
    result = compare(truth, shown)
    return report.row(APPLICATION, result, opened=compare(truth, truth), popup=compare(truth, truth))


class Report(unittest.TestCase):
    def test_a_row_holds_figures_and_differences(self):
        one = row()
        self.assertEqual((one["bar_right"], one["bar"], one["right"], one["items"]), (1, 1, 1, 2))
        self.assertEqual((one["wrong_by_kind"], one["apart"]), ({"enabled": 1}, {"no code": 1}))
        self.assertEqual([each["path"] for each in one["differences"]], ["Edit > Paste"])
        self.assertEqual(json.loads(json.dumps(one)), one)

    def test_the_page_has_a_line_for_each_application_and_a_sum(self):
        page = report.markdown([row(), {**row(True), "name": "viewer"}], [])
        self.assertIn("| editor |  | GTK 3 |  | 1/1 | 2 | 1 | 50.0 % |  | 50.0 % | 1 enabled | 1 | 100.0 % | 100.0 % |", page)
        self.assertIn("| **all 2** |  |  |  | **2/2** | **4** | **3** | **75.0 %** | **75.0 %** | **50.0 %** | "
                      "**1 enabled** | **2** |", page)
        self.assertIn("| no code | 2 |", page)

    def test_the_page_tells_the_source_and_what_is_right_with_the_module(self):
        module = {"source": "org.gtk.Menus", "items": 2, "right": 2, "wrong_by_kind": {}, "differences": []}
        one = {**row(), "source": "the accessibility tree", "with_module": module}
        page = report.markdown([one, {**row(), "name": "viewer"}], [])
        self.assertIn("| GTK 3 | the accessibility tree | 1/1 | 2 | 1 | 50.0 % | 100.0 %, org.gtk.Menus | 50.0 % |", page)
        self.assertIn("| **4** | **2** | **50.0 %** | **75.0 %** | **50.0 %** |", page)
        same = {**one, "with_module": {**module, "source": "the accessibility tree"}}
        self.assertIn("| 50.0 % | 100.0 % | 50.0 % |", report.markdown([same], []))

    def test_what_was_not_opened_has_no_figure_of_it(self):
        truth = [Entry("Edit", holds_menu=True, entries=[Entry("Paste")])]
        one = report.row(APPLICATION, compare(truth, []), opened=None, popup=compare(truth, truth))
        self.assertNotIn("right_once_opened", one)
        page = report.doors([{**one, "source": "nothing"}], {"editor": "a switch"})
        self.assertIn("| GTK 3 | a switch | nothing | 0/1 | 1 | 0 | 0.0 % | 0.0 % | 2 missing | – | 100.0 % |", page)
        self.assertIn("once opened –", report.summary([one]))

    def test_what_can_be_switched_on_is_written_and_read_again_without_lists_of_what_is_missing(self):
        with tempfile.TemporaryDirectory() as directory:
            table = pathlib.Path(directory) / "doors.md"
            rows = [{**row(), "source": "nothing"}, {**row(), "name": "viewer", "source": "org.gtk.Menus"}]
            report.write_doors(table, rows, {"editor": "", "viewer": "a switch"})
            written = report.load(table.with_suffix(".json"))
            self.assertEqual([each.get("differences") for each in written], [None, row()["differences"]])
            self.assertEqual(table.read_text(encoding="utf-8"), report.doors(written, {"editor": "", "viewer": "a switch"}))

    def test_a_difference_stands_under_its_explanation(self):
        page = report.markdown([row()], [EXPLAINED])
        self.assertIn("- Known when the menu opens only.\n  - enabled: `Edit > Paste`: yes, shown: no", page)
        self.assertNotIn("Not explained", page)
        self.assertIn("**Not explained.**", report.markdown([row()], []))

    def test_what_stays_wrong_once_the_menu_was_open_is_marked(self):
        one = row()
        one["differences_once_opened"] = one["differences"]
        self.assertIn("shown: no; once opened too\n", report.markdown([one], []))
        self.assertNotIn("once opened too", report.markdown([row()], []))

    def test_what_is_wrong_only_once_the_menu_was_open_is_named_and_wants_its_explanation(self):
        one = row(True)
        one["differences_once_opened"] = row()["differences"]
        self.assertIn("shown: no; only once opened\n", report.markdown([one], [EXPLAINED]))
        self.assertTrue(report.is_explained(one, [EXPLAINED]))
        self.assertFalse(report.is_explained(one, []))

    def test_what_is_wrong_in_the_pop_up_is_named_and_wants_its_explanation(self):
        one = {**row(True), "differences_in_popup": row()["differences"]}
        self.assertIn("shown: no; only in the pop-up\n", report.markdown([one], [EXPLAINED]))
        self.assertFalse(report.is_explained(one, []))
        self.assertIn("; in the pop-up too\n", report.markdown([{**one, "differences": row()["differences"]}], []))

    def test_the_page_says_at_which_commit_it_was_measured(self):
        one, other = {**row(), "commit": "abc"}, {**row(), "name": "viewer", "commit": "def"}
        self.assertIn("All of them were measured at commit abc.\n", report.markdown([one], []))
        page = report.markdown([one, other, {**row(), "name": "terminal"}], [])
        for line in ("commit abc: editor.", "commit def: viewer.", "commit one that was not written down: terminal."):
            self.assertIn(f"Measured at {line}\n", page)

    def test_two_measurements_are_alike_but_for_their_commit(self):
        self.assertEqual(report.unlike({**row(), "commit": "abc"}, row()), [])
        for field in ("right", "items_in_popup", "right_with_shortcuts"):
            self.assertEqual(report.unlike({**row(), field: 7}, row()), [f"{field}: 7 instead of {row()[field]}"])
        self.assertTrue(report.unlike({**row(), "differences_in_popup": row()["differences"]}, row()))
        self.assertEqual(report.unlike(report.failed(APPLICATION, "why"), row()), ["why"])

    def test_an_explanation_covers_its_application_kind_and_entries_only(self):
        self.assertTrue(report.is_explained(row(), [EXPLAINED]))
        for other in ({"applications": ["viewer"]}, {"kinds": ["missing"]}, {"entries": ["Paste"]}):
            with self.subTest(other):
                self.assertFalse(report.is_explained(row(), [{**EXPLAINED, **other}]))

    def test_a_submenu_that_did_not_open_is_not_passed_over(self):
        self.assertTrue(report.is_explained({**row(True), "unread": [{"path": "Edit", "why": GREYED}]}, []))
        self.assertFalse(report.is_explained({**row(True), "unread": [{"path": "Edit", "why": SHUT}]}, []))

    def test_brackets_in_a_pattern_are_brackets(self):
        difference = {"path": "Edit > --- [Paste]", "kind": "separator"}
        known = [{**EXPLAINED, "kinds": ["separator"], "entries": ["Edit > --- [Paste]"]}]
        self.assertIsNotNone(catalogue.explanation_of(difference, "editor", known))

    def test_a_failed_application_is_named_with_its_reason(self):
        lost = report.failed({**APPLICATION, "name": "viewer"}, "it did not start")
        page = report.markdown([row(True), lost], [])
        self.assertIn("- viewer: it did not start", page)
        self.assertFalse(report.is_explained(lost, []))
        self.assertIn("1 of 2 applications", report.summary([row(), lost]))

    def test_a_new_run_keeps_the_rows_of_other_applications_in_the_order_of_the_list(self):
        old = [{"name": "a", "right": 1}, {"name": "b", "right": 1}]
        self.assertEqual(report.merged(old, [{"name": "b", "right": 2}, {"name": "c"}], ["c", "b", "a"]),
                         [{"name": "c"}, {"name": "b", "right": 2}, {"name": "a", "right": 1}])

    def test_what_is_written_is_read_again(self):
        with tempfile.TemporaryDirectory() as directory:
            table = pathlib.Path(directory) / "coverage.md"
            self.assertEqual(report.load(table.with_suffix(".json")), [])
            report.write(table, [row()], [])
            self.assertEqual(report.load(table.with_suffix(".json")), [row()])
            self.assertEqual(table.read_text(encoding="utf-8"), report.markdown([row()], []))


class Documents(unittest.TestCase):
    """What is told is what was measured."""

    ROOT = pathlib.Path(__file__).resolve().parents[2]

    def setUp(self):
        self.rows = report.load(self.ROOT / "docs/coverage.json")

    def test_the_page_is_written_from_the_figures(self):
        self.assertEqual((self.ROOT / "docs/coverage.md").read_text(encoding="utf-8"),
                         report.markdown(self.rows, catalogue.explanations()))

    def test_all_applications_are_in_it_and_each_difference_is_explained(self):
        self.assertEqual([row["name"] for row in self.rows], list(catalogue.applications()))
        self.assertEqual([row["name"] for row in self.rows if not report.is_explained(row, catalogue.explanations())], [])

    def test_the_page_of_what_can_be_switched_on_is_written_from_its_figures(self):
        known = catalogue.doors()
        rows = report.load(self.ROOT / "docs/doors.json")
        self.assertEqual([row["name"] for row in rows], list(known))
        self.assertEqual((self.ROOT / "docs/doors.md").read_text(encoding="utf-8"),
                         report.doors(rows, {name: each["switched on"] for name, each in known.items()}))

    def test_the_readme_tells_its_sums(self):
        readme = " ".join((self.ROOT / "README.md").read_text(encoding="utf-8").split())
        for words in report.told_elsewhere(self.rows):
            self.assertIn(words, readme)


class Catalogue(unittest.TestCase):
    def test_every_application_can_be_installed_and_started(self):
        for name, each in [*catalogue.applications().items(), *catalogue.doors().items()]:
            with self.subTest(name):
                self.assertTrue(each["packages"] and each["command"] and each["toolkit"])

    def test_a_package_is_named_once(self):
        chosen = [{"packages": ["a", "b"]}, {"packages": ["b", "c"]}]
        self.assertEqual(catalogue.packages(chosen, {}), ["a", "b", "c"])

    def test_the_package_of_the_module_is_named_where_a_toolkit_takes_it(self):
        for toolkit, names in {"GTK 3": ["a", catalogue.MODULE], "wxGTK 3": ["a", catalogue.MODULE], "Qt 5": ["a"],
                               "GTK 4": ["a"]}.items():
            with self.subTest(toolkit):
                self.assertEqual(catalogue.packages([{"packages": ["a"], "toolkit": toolkit}], {}, module=True), names)
        self.assertEqual(catalogue.packages([{"packages": ["a"], "toolkit": "GTK 3"}], {}), ["a"])

    def test_whose_menus_are_opened_instead_is_installed_too(self):
        known = {"one": {"packages": ["a"], "truth": "other"}, "other": {"packages": ["a", "b"]}}
        self.assertEqual(catalogue.packages([known["one"]], known), ["a", "b"])
        self.assertIsNone(catalogue.truth_of(known["other"], known))

    def test_the_menus_that_are_opened_instead_are_of_the_same_program_and_can_be_opened(self):
        known = catalogue.doors()
        for name, each in known.items():
            truth = catalogue.truth_of(each, known)
            with self.subTest(name):
                self.assertTrue(truth is None or truth["packages"][0] == each["packages"][0] and "truth" not in truth)

    def test_explanations_name_applications_of_the_list_and_give_a_reason(self):
        known = catalogue.applications()
        for each in catalogue.explanations():
            with self.subTest(each["why"]):
                self.assertTrue(each["why"] and each["entries"] and each["kinds"])
                self.assertLessEqual(set(each["applications"]), set(known))


if __name__ == "__main__":
    unittest.main()

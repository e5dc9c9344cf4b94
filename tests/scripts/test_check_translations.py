# SPDX-License-Identifier: MIT
"""Each fault that a catalogue may have is noticed."""
import pathlib
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))

import check_translations  # noqa: E402

ABOUT = "<source>About Tarnwick...</source>"
QUIT = "<source>Quit</source>"


class ACatalogue(unittest.TestCase):
    def problems(self, catalogue, old="", new=""):
        """What is said of a catalogue whose first `old` is `new`."""
        text = catalogue.read_text(encoding="utf-8")
        self.assertIn(old, text)
        with tempfile.TemporaryDirectory() as directory:
            changed = pathlib.Path(directory) / catalogue.name
            changed.write_text(text.replace(old, new, 1), encoding="utf-8")
            return check_translations.catalogue_problems(changed, check_translations.texts_of_sources())

    def translated(self, catalogue, source):
        """The line of the translation of a text."""
        lines = catalogue.read_text(encoding="utf-8").splitlines()
        return lines[next(i for i, line in enumerate(lines) if source in line) + 1].strip()

    def test_is_complete(self):
        for catalogue in self.catalogues():
            self.assertEqual(self.problems(catalogue), [])

    def test_has_three_full_stops_where_the_program_has_them_and_no_sign_in_their_place(self):
        for catalogue in self.catalogues():
            line = self.translated(catalogue, ABOUT)
            for planted in ("…", " …", "", "..", "....", " ...…"):
                with self.subTest(catalogue=catalogue.name, planted=planted):
                    found = self.problems(catalogue, line, line.replace("...", planted))
                    self.assertEqual(len(found), 1, found)
                    self.assertIn("not the same full stops: 'About Tarnwick...'", found[0])

    def test_has_none_where_the_program_has_none(self):
        for catalogue in self.catalogues():
            line = self.translated(catalogue, QUIT)
            for planted in ("...", "…"):
                with self.subTest(catalogue=catalogue.name, planted=planted):
                    found = self.problems(catalogue, line, line.replace("</", f"{planted}</"))
                    self.assertEqual(len(found), 1, found)
                    self.assertIn("not the same full stops: 'Quit'", found[0])

    def test_has_every_text_finished_and_no_other(self):
        catalogue = self.catalogues()[0]
        line = self.translated(catalogue, QUIT)
        self.assertIn("not finished", self.problems(catalogue, line, "<translation></translation>")[0])
        self.assertIn("not finished", self.problems(catalogue, line, line.replace(">", ' type="unfinished">', 1))[0])
        missing, unused = self.problems(catalogue, QUIT, "<source>Leave</source>")
        self.assertIn("missing: 'Quit'", missing)
        self.assertIn("not used: 'Leave'", unused)

    def catalogues(self):
        found = sorted((ROOT / "translations").glob("*.ts"))
        self.assertEqual(len(found), 5)
        return found


if __name__ == "__main__":
    unittest.main()

# SPDX-License-Identifier: MIT
"""That figures which nothing measures are found, and no others."""
import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

import check_figures  # noqa: E402


def problems(text):
    return list(check_figures.problems_in("README.md", text))


class Figures(unittest.TestCase):
    def test_without_a_command_are_found(self):
        rows = ["It takes 5 ms.", "| start | 24 ms |\n|---|---|", "It is 1.5 times as fast.", "97.9 % are right.",
                "`scripts/nothing` prints 5 ms.", "`scripts/bench nothing` prints 5 ms.", "`tests/torture/nothing.py`: 5 ms",
                "# Speed\n\n`scripts/bench` measures.\n\nMuch else.\n\nIt takes 5 ms.",
                "# One: `scripts/bench`\n\nText.\n\n# Two\n\nIt takes 5 ms."]
        for text in rows:
            with self.subTest(text):
                self.assertEqual(len(problems(text)), 1)

    def test_with_a_command_or_a_page_are_not(self):
        rows = ["`scripts/bench` prints 5 ms.", "# Speed: `scripts/bench idle`\n\nText.\n\nText.\n\nIt takes 5 ms.",
                "`scripts/bench idle` measured:\n\n| start | 24 ms |\n|---|---|", "5 ms: [more](docs/performance.md)",
                "    TARNWICK_SOAK_ROUNDS=7 scripts/torture soak\n\nIt takes 5 ms.", "`tests/torture/test_soak.py`: 5 ms",
                "Text of 1280x800, version 6.4, 3 windows."]
        for text in rows:
            with self.subTest(text):
                self.assertEqual(problems(text), [])

    def test_tell_the_line_of_their_paragraph(self):
        self.assertIn("README.md:5:", problems("# Speed\n\nText.\n\nIt takes 5 ms.\n")[0])


if __name__ == "__main__":
    unittest.main()

# SPDX-License-Identifier: MIT
"""What the figures of the table are made of."""
import contextlib
import io
import struct
import unittest

from display_counter import Connection
from line import fitted
from table import HEAD, Series, late, print_compared, print_head


def printed(function, *arguments):
    output = io.StringIO()
    with contextlib.redirect_stdout(output):
        function(*arguments)
    return output.getvalue()


class Percentiles(unittest.TestCase):
    def test_of_late_values_are_those_that_one_in_twenty_is_beyond(self):
        rows = [([7], 7), ([1, 2], 2), (range(1, 101), 95), (list(range(100, 0, -1)), 95), ([1] * 19 + [50], 1),
                ([1] * 18 + [50, 50], 50)]
        for values, expected in rows:
            with self.subTest(values):
                self.assertEqual(late(values), expected)


class Cells(unittest.TestCase):
    def test_have_as_many_digits_as_mean_something(self):
        rows = [(0.4567, "0.46 ms"), (12.345, "12.35 ms"), (123.45, "123.5 ms"), (1234.5, "1234 ms"), (7, "7 ms")]
        for value, expected in rows:
            with self.subTest(value):
                self.assertEqual(Series([value]).cells()[0], expected)

    def test_hold_the_median_and_no_percentile_of_one_value(self):
        self.assertEqual(Series([5.0, 1.0, 2.0], messages=121).cells(), ("2.00 ms", "5.00 ms", 121))
        self.assertEqual(Series([5.0]).cells(), ("5.00 ms", "", ""))


class Rows(unittest.TestCase):
    def test_have_a_cell_for_each_column(self):
        head, rule = printed(print_head).splitlines()
        row = printed(print_compared, "reading", Series([1.0]), "the floor", Series([1.0]), 1.25).strip()
        self.assertEqual([line.count("|") for line in (head, rule, row)], [len(HEAD) + 1] * 3)

    def test_tell_whether_the_median_is_within_so_many_times_that_of_the_baseline(self):
        for measured, expected in ((1.25, "| 1.25 | ≤ 1.25 × | yes |"), (1.26, "| 1.26 | ≤ 1.25 × | **no** |")):
            with self.subTest(measured):
                self.assertIn(expected, printed(print_compared, "", Series([measured]), "", Series([1.0]), 1.25))


class Lines(unittest.TestCase):
    def test_through_points_in_line_are_that_line(self):
        fixed, slope, off = fitted({count: 3 + 0.5 * count for count in (10, 30, 100, 3000)})
        self.assertAlmostEqual(fixed, 3)
        self.assertAlmostEqual(slope, 0.5)
        self.assertAlmostEqual(off, 0)

    def test_tell_how_far_the_worst_point_is_off_as_a_part_of_the_line(self):
        _, _, off = fitted({10: 10, 20: 20, 30: 30, 40: 60})
        self.assertGreater(off, 0.1)
        self.assertLess(off, 0.5)

    def test_are_not_decided_by_the_largest_point_alone(self):
        """Half as much again at the one end weighs as much as at the other."""
        fixed, slope, _ = fitted({10: 10, 100: 100, 1000: 1000, 3000: 4500})
        self.assertLess(abs((fixed + slope * 10) / 10 - 1), 0.1)


class Connections(unittest.TestCase):
    """Of a program that asks for an extension, uses it, and sends more than 256 KiB; with an event in between."""

    SENT = b"".join([
        struct.pack("<BxHHHHxx", ord("l"), 11, 0, 3, 5) + b"key\0" + b"value\0\0\0",
        struct.pack("<BxHHxx", 98, 4, 7) + b"DAMAGES\0",
        struct.pack("<BxHI", 43, 1, 0)[:4],
        struct.pack("<BxHI", 72, 0, 4) + bytes(8),
        struct.pack("<BBHI", 143, 2, 2, 0)])
    RECEIVED = b"".join([
        struct.pack("<BxHHH", 1, 11, 0, 2) + bytes(8),
        struct.pack("<BxHIBB", 1, 1, 0, 1, 143) + bytes(22),
        struct.pack("<BxH", 2, 1) + bytes(28),
        struct.pack("<BxHI", 35, 1, 1) + bytes(28),
        struct.pack("<BxHI", 1, 2, 2) + bytes(32),
        struct.pack("<BxHI", 1, 4, 0) + bytes(24)])

    def test_count_what_is_answered_however_the_bytes_come(self):
        for size in (1, 7, 4096):
            with self.subTest(size):
                connection = Connection()
                for bytes_of, take in ((self.SENT, connection.sent), (self.RECEIVED, connection.received)):
                    for place in range(0, len(bytes_of), size):
                        take(bytes_of[place:place + size])
                self.assertEqual(dict(connection.answers), {"QueryExtension": 1, "GetInputFocus": 1, "DAMAGES 2": 1})


if __name__ == "__main__":
    unittest.main()

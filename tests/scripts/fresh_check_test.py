#!/usr/bin/env python3
"""Tests of scripts/lib/fresh_check.py, whose folder is the argument: good pages and pictures pass, and
each thing that can be wrong with them is told."""

import contextlib
import io
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, sys.argv.pop())
import fresh_check  # noqa: E402

HEADER = "ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8"
ROWS = [f"{identifier:03X}  2   0A FF                     100ms" for identifier in range(0x100, 0x128)]


class FreshCheck(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def check(self, *arguments: str) -> tuple[int, str]:
        out = io.StringIO()
        with contextlib.redirect_stdout(out):
            status = fresh_check.main(*arguments)
        return status, out.getvalue().rstrip("\n")

    def check_page(self, *lines: str) -> tuple[int, str]:
        file = self.folder / "page.txt"
        file.write_text("\r\n".join(lines), encoding="utf-8")
        return self.check("page", str(file))

    def test_a_page_of_the_vehicle_passes(self):
        self.assertEqual((0, "the page has 40 rows, 40 of them with a cycle"), self.check_page(HEADER, *ROWS))

    def test_a_page_without_header_is_wrong(self):
        self.assertEqual(1, self.check_page(*ROWS)[0])
        self.assertEqual(1, self.check_page()[0])

    def test_an_empty_table_is_wrong(self):
        self.assertEqual((1, "the page has 0 rows, at least 40 are the vehicle's"), self.check_page(HEADER))

    def test_a_line_that_is_no_row_is_wrong(self):
        rows = [*ROWS, "128  2   0A                       100ms"]
        self.assertEqual(1, self.check_page(HEADER, *rows)[0])
        self.assertEqual(1, self.check_page(HEADER, *ROWS, "128")[0])

    def test_rows_that_came_only_once_are_wrong(self):
        rows = [row.replace("100ms", "----ms") for row in ROWS]
        self.assertEqual((1, "0 rows of the page have a cycle, at least 30 should"),
                         self.check_page(HEADER, *rows))

    def test_a_missing_page_is_wrong(self):
        self.assertEqual(1, self.check("page", str(self.folder / "none.txt"))[0])

    def test_a_picture_of_the_window_passes(self):
        self.assertEqual(0, self.check("picture", "1008", "686", "367")[0])

    def test_a_picture_of_one_colour_or_of_a_piece_is_wrong(self):
        self.assertEqual(1, self.check("picture", "1008", "686", "1")[0])
        self.assertEqual(1, self.check("picture", "106", "88", "38")[0])


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""Tests of scripts/lib/write_zip.py, whose folder is the argument: equal files make an equal archive."""

import os
import pathlib
import sys
import tempfile
import unittest
import zipfile

sys.path.insert(0, sys.argv.pop())
import write_zip  # noqa: E402

SECONDS = 1_700_000_000  # 2023-11-14 22:13:20 UTC


class Archives(unittest.TestCase):
    def make(self, names: list[str], mode: int, time: int) -> pathlib.Path:
        place = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        for name in names:
            file = place / "release" / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(f"text of {name}\n" * 100, encoding="utf-8")
            file.chmod(mode)
            os.utime(file, (time, time))
        write_zip.write_zip(place / "out.zip", place / "release", SECONDS)
        return place / "out.zip"

    def test_times_rights_and_order_of_the_files_leave_no_trace(self):
        first = self.make(["b.txt", "sub/c.txt", "a.txt"], 0o600, 1_000_000_000)
        second = self.make(["a.txt", "b.txt", "sub/c.txt"], 0o755, 1_500_000_000)
        self.assertEqual(first.read_bytes(), second.read_bytes())

    def test_names_begin_with_the_folder_and_times_are_the_given_one(self):
        with zipfile.ZipFile(self.make(["b.txt", "a.txt"], 0o600, 1_000_000_000)) as archive:
            self.assertEqual(["release/a.txt", "release/b.txt"], archive.namelist())
            for entry in archive.infolist():
                self.assertEqual((2023, 11, 14, 22, 13, 20), entry.date_time)
                self.assertEqual(zipfile.ZIP_DEFLATED, entry.compress_type)
            self.assertEqual(b"text of a.txt\n" * 100, archive.read("release/a.txt"))


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""Tests of tolvane-log as a Windows program: names, statuses, and the bytes of its output. The arguments are what runs
a Windows program here, the program, and a folder for its files."""

import os
import pathlib
import shutil
import subprocess
import sys
import unittest

PLACE = pathlib.Path(sys.argv.pop())
TOOL = sys.argv[1:]
del sys.argv[1:]
HEAD = ("Tolvane Ver1.23,,,Copyright (C) 2026 Tolvane Project,,,,https://tolvane.example/\r\n\r\n"
        "2026/11/20 9:05:07,,,bit rate：,500k bps\r\nCANUSB ABCD 、V1.0\r\n\r\n走行 1\r\n\r\n"
        "  時間[ms] , ID  ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8\r\n")
FILES = {"KL26112009-001.csv": "         0 , 100 , 1 ,  0A\r\n       1.5 , 200 , 0\r\n",
         "KL26112009-002.csv": "       2.5 , 100 , 1 ,  0B\r\n"}
# Nine hours behind the clock on the wall, and 1.5 ms, rounded, ahead of the first file's moment.
CANDUMP = (b"(1795133106.998000) can0 100#0A\n(1795133106.999500) can0 200#\n"
           b"(1795133107.000500) can0 100#0B\n")


class Program(unittest.TestCase):
    def setUp(self):
        self.folder = PLACE / "走行 記録"
        shutil.rmtree(PLACE, ignore_errors=True)
        self.folder.mkdir(parents=True)
        for name, records in FILES.items():
            (self.folder / name).write_bytes((HEAD + records).encode("cp932"))

    def run_tool(self, *words: str) -> subprocess.CompletedProcess:
        return subprocess.run([*TOOL, *words], cwd=self.folder, capture_output=True, timeout=300, check=False,
                              env={**os.environ, "TZ": "Asia/Tokyo", "WINEDEBUG": "-all"})

    def test_info_takes_a_wildcard_and_writes_utf_8(self):
        done = self.run_tool("info", "KL*.csv")
        self.assertEqual(0, done.returncode, done.stderr)
        text = done.stdout.decode("utf-8")
        self.assertIn("  files         2: KL26112009-001.csv to KL26112009-002.csv\n", text)
        self.assertIn("  comment       走行 1\n", text)
        self.assertNotIn("\r", text)

    def test_convert_writes_a_new_file_in_the_time_of_the_zone(self):
        words = ("convert", "--to", "candump", "--out", "変換 1.log", *FILES)
        done = self.run_tool(*words)
        self.assertEqual((0, b""), (done.returncode, done.stdout), done.stderr)
        self.assertEqual(CANDUMP, (self.folder / "変換 1.log").read_bytes())
        done = self.run_tool(*words)
        self.assertEqual(1, done.returncode)
        self.assertIn("変換 1.log: this file is there already", done.stderr.decode("utf-8"))
        self.assertEqual(CANDUMP, (self.folder / "変換 1.log").read_bytes())

    def test_a_file_that_is_named_twice_by_two_paths_is_told(self):
        name = "KL26112009-001.csv"
        for other in (name.lower(), ".\\" + name):
            done = self.run_tool("info", name, other)
            self.assertEqual(1, done.returncode, other)
            self.assertIn(f"{other}: this file is named twice, also as {name}", done.stderr.decode("utf-8"))

    def test_a_fault_leaves_no_file_and_is_told_with_its_line(self):
        with open(self.folder / "KL26112009-002.csv", "ab") as file:
            file.write(b"rubbish\r\n")
        done = self.run_tool("convert", "--to", "candump", "--out", "run.log", *FILES)
        self.assertEqual(1, done.returncode)
        self.assertIn(b"KL26112009-002.csv:10: this is no record", done.stderr)
        self.assertFalse((self.folder / "run.log").exists())
        done = self.run_tool("convert", "--keep", "--to", "candump", *FILES)
        self.assertEqual((1, CANDUMP), (done.returncode, done.stdout))

    def test_a_missing_file_and_an_unknown_word_have_their_status(self):
        done = self.run_tool("info", "無い.csv")
        self.assertEqual((1, b""), (done.returncode, done.stdout))
        self.assertIn("無い.csv: this file cannot be opened", done.stderr.decode("utf-8"))
        self.assertEqual(2, self.run_tool("play").returncode)

    def test_what_cannot_be_opened_or_made_is_told_with_the_reason(self):
        for words, message in ((("info", "."), r"\.: this is a folder"),
                               (("info", "nul"), r"nul: this is no file on a disk, .*"),
                               (("info", "gone.csv"), r"gone\.csv: this file cannot be opened: \S.*"),
                               (("convert", "--to", "asc", "--out", r"gone\run.asc", *FILES),
                                r"gone\\run\.asc: this file cannot be made: \S.*")):
            done = self.run_tool(*words)
            self.assertEqual((1, b""), (done.returncode, done.stdout), words)
            self.assertRegex(done.stderr.decode("utf-8"), rf"\Atolvane-log: {message}\n\Z")


if __name__ == "__main__":
    unittest.main()

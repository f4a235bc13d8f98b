#!/usr/bin/env python3
"""Tests of tolvane-log as a Linux program: what its files may be. The argument is the program."""

import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = sys.argv.pop()
LOG = ("Tolvane Ver1.23,,,C,,,,H\r\n\r\n2026/11/20 9:05:07,,,bit rate：,500k bps\r\nCANUSB\r\n\r\n走行 1\r\n\r\n"
       "  時間[ms] , ID  ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8\r\n         0 , 100 , 1 ,  0A\r\n").encode("cp932")


class Program(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)
        (self.folder / "a.csv").write_bytes(LOG)

    def run_tool(self, *words: str | bytes, **how) -> subprocess.CompletedProcess:
        return subprocess.run([TOOL, *words], cwd=self.folder, capture_output=True, timeout=60, check=False, **how)

    def refuses(self, message: str, *words: str, **how) -> None:
        done = self.run_tool(*words, **how)
        self.assertEqual((1, b"", f"tolvane-log: {message}\n"), (done.returncode, done.stdout, done.stderr.decode()))

    def test_a_pipe_is_told_to_be_none_of_its_files(self):
        for command in (["info"], ["convert", "--to", "asc"]):
            self.refuses("/dev/stdin: this is no file on a disk, and logs are read more than once; copy it into one",
                         *command, "/dev/stdin", input=LOG)
        os.mkfifo(self.folder / "pipe")
        self.refuses("pipe: this is no file on a disk, and logs are read more than once; copy it into one", "info", "pipe")

    def test_a_redirected_file_is_read(self):
        with open(self.folder / "a.csv", "rb") as log:
            self.assertEqual(0, self.run_tool("info", "/dev/stdin", stdin=log).returncode)

    def test_a_file_that_is_named_twice_by_two_paths_is_told(self):
        (self.folder / "link.csv").symlink_to("a.csv")
        for other in ("./a.csv", "link.csv", str(self.folder / "a.csv")):
            for command in (["info"], ["convert", "--to", "asc"]):
                self.refuses(f"{other}: this file is named twice, also as a.csv", *command, "a.csv", other)

    def test_what_cannot_be_opened_is_told_with_the_reason(self):
        self.refuses(".: this is a folder", "info", ".")
        self.refuses("gone.csv: this file cannot be opened: No such file or directory", "info", "gone.csv")
        self.refuses("a.csv/b.csv: this file cannot be opened: Not a directory", "info", "a.csv/b.csv")

    def test_what_cannot_be_made_is_told_with_the_reason(self):
        convert = ("convert", "--to", "asc", "a.csv", "--out")
        self.refuses("gone/run.asc: this file cannot be made: No such file or directory", *convert, "gone/run.asc")
        self.refuses("a.csv: this file is there already", *convert, "a.csv")
        self.assertEqual(LOG, (self.folder / "a.csv").read_bytes())

    def test_json_is_utf_8_whatever_the_path_is(self):
        os.rename(self.folder / "a.csv", os.fsencode(self.folder) + b"/\x91\x96.csv")
        done = self.run_tool("info", "--json", b"\x91\x96.csv")
        (run,) = json.loads(done.stdout.decode("utf-8"))["runs"]
        self.assertEqual(("\ufffd\ufffd.csv", "走行 1"), (run["files"][0]["path"], run["comment"]))


if __name__ == "__main__":
    unittest.main()

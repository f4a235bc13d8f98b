#!/usr/bin/env python3
"""Tests of own_recording in scripts/lib/recordings.sh; the argument is the project's folder."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop())
SCRIPT = 'source "$1/scripts/lib/common.sh"; build=$2; source "$1/scripts/lib/recordings.sh"; own_recording "$3"'


class OwnRecording(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.build = pathlib.Path(folder.name) / "a build"
        self.boat = self.build / "recordings" / "boat.log"

    def start(self, name: str) -> subprocess.Popen:
        return subprocess.Popen(["bash", "-c", SCRIPT, "bash", ROOT, self.build, name], text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def run_on(self, name: str) -> tuple[str, int]:
        process = self.start(name)
        return process.communicate()[0], process.returncode

    def left(self) -> list[str]:
        return [path.name for path in (self.build / "recordings").iterdir()]

    def test_an_equal_one_stays_and_another_is_replaced(self):
        self.assertEqual((f"{self.boat}\n", 0), self.run_on("boat"))
        made, first = self.boat.read_bytes(), self.boat.stat()
        self.run_on("boat")
        self.assertEqual((first.st_ino, first.st_mtime_ns), (self.boat.stat().st_ino, self.boat.stat().st_mtime_ns))
        self.boat.write_bytes(made[:1000])
        with open(self.boat, "rb") as played:
            self.run_on("boat")
            self.assertEqual(made[:1000], played.read(), "who plays the old one keeps it")
        self.assertEqual(made, self.boat.read_bytes())
        self.assertEqual(["boat.log"], self.left())

    def test_two_at_once_do_no_harm(self):
        both = [self.start("boat") for _ in range(2)]
        for process in both:
            self.assertEqual((f"{self.boat}\n", ""), process.communicate())
        self.assertEqual(["boat.log"], self.left())

    def test_an_unknown_name_fails_and_leaves_nothing(self):
        out, status = self.run_on("plane")
        self.assertEqual(("", 1), (out, status))
        self.assertEqual([], self.left())


if __name__ == "__main__":
    unittest.main()

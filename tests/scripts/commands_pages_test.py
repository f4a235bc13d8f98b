#!/usr/bin/env python3
"""Tests of the look at the page that a run leaves. The project's folder is the argument."""

import subprocess
import tempfile
import unittest

from commands_place import PROJECT


class Pages(unittest.TestCase):
    """What a run leaves is looked at before it is called a success; here a stand-in leaves it."""

    def leaves(self, picture: str, page: str) -> subprocess.CompletedProcess:
        with tempfile.TemporaryDirectory() as folder:
            steps = f'''source "$1/scripts/lib/common.sh"
                source "$1/scripts/lib/unattended.sh"
                drive() {{ convert -size 64x64 {picture} "bmp:${{2#Z:}}"; printf '%b' '{page}' >"${{6#Z:}}"; }}
                drive_page "$2"'''
            return subprocess.run(["bash", "-c", steps, "page", str(PROJECT), folder], text=True, timeout=60,
                                  capture_output=True, check=False)

    def test_a_window_with_a_page_is_a_success(self):
        for head in ("ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8", "E    ID    DLC  D1 D2 D3 D4 D5 D6 D7 D8"):
            done = self.leaves("gradient:red-blue", head + r"\n123  0\n")
            self.assertEqual((0, ""), (done.returncode, done.stderr))

    def test_a_black_picture_is_none(self):
        done = self.leaves("xc:black", r"ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\n123  0\n")
        self.assertEqual(1, done.returncode)
        self.assertRegex(done.stderr, "shows no window")

    def test_a_text_without_head_or_lines_is_no_page(self):
        for page, reason in (("", "shows no page"), (r"hello\nyou\n", "shows no page"),
                             (r"ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\n", "has no line")):
            done = self.leaves("gradient:red-blue", page)
            self.assertEqual(1, done.returncode, page)
            self.assertRegex(done.stderr, reason)


if __name__ == "__main__":
    unittest.main()

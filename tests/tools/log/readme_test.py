#!/usr/bin/env python3
"""README.md tells each option of tolvane-log, as its help does. The arguments are the project's folder and the
program."""

import pathlib
import re
import subprocess
import sys
import unittest

TOOL = sys.argv.pop()
README = (pathlib.Path(sys.argv.pop()) / "README.md").read_text(encoding="utf-8")


class Readme(unittest.TestCase):
    def test_it_tells_each_option_with_its_command(self):
        told = re.findall(r"^\| (info|convert|both) \| `([^`]+)` \|", README, re.M)
        command, said = "", []
        for line in subprocess.run([TOOL, "--help"], capture_output=True, text=True, check=True).stdout.splitlines():
            if head := re.match(r"(info|convert|Both)\b", line):
                command = head[1].lower()
            if option := re.match(r"  (--[a-z-]+(?: [A-Z]+)?)  ", line):
                said.append((command, option[1]))
        self.assertEqual(6, len(said))
        self.assertEqual(said, told)


if __name__ == "__main__":
    unittest.main()

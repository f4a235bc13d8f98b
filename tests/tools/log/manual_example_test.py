#!/usr/bin/env python3
"""The example of a log in the manual is what tolvane-log tells of it: our recording of a car as the program logs it, with
0.4 s cut out. The arguments are the project's folder and the program."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = sys.argv.pop()
PROJECT = pathlib.Path(sys.argv.pop())
sys.path.insert(0, str(PROJECT / "scripts/lib"))
import recording as rec  # noqa: E402

NAME = "KL26112218-001.csv"
HEAD = ("Tolvane Ver1.23,,,Copyright (C) 2026 Tolvane Project,,,,https://tolvane.example/\r\n\r\n"
        "2026/11/22 18:05:07,,,bit rate：,500k bps\r\nCANUSB TV100001 、V1.02N0.93\r\n\r\n走行 1\r\n\r\n"
        "  時間[ms] , ID  ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8\r\n")
CUT = range(4000, 4400)  # ms


def log() -> bytes:
    car = subprocess.run([sys.executable, "-B", PROJECT / "tests/traffic/generate.py", "car"], capture_output=True,
                         check=True).stdout
    lines = [HEAD]
    for frame in rec.parse("", car).frames:
        time = frame.microseconds // 1000
        if frame.kind != "data" or frame.extended or time in CUT:
            continue
        data = ",".join(f"{byte:02X}" for byte in frame.data)
        lines.append(f"{time:>10} , {frame.identifier:03X} , {frame.length}" + (f" ,  {data}" if data else "") + "\r\n")
    return "".join(lines).encode("cp932")


class Example(unittest.TestCase):
    def test_each_line_is_told(self):
        manual = (PROJECT / "docs/manual.ja.md").read_text(encoding="utf-8")
        example = manual[manual.index("   run 1\n"):]
        example = example[:example.index("   ```\n")]
        shown = [line.removeprefix("   ") for line in example.splitlines() if line.strip()]
        self.assertGreater(len(shown), 12)
        with tempfile.TemporaryDirectory() as folder:
            pathlib.Path(folder, NAME).write_bytes(log())
            told = subprocess.run([TOOL, "info", NAME], cwd=folder, capture_output=True, text=True, encoding="utf-8",
                                  check=True).stdout.splitlines()
        for line in shown:
            self.assertIn(line, told)
        places = [told.index(line) for line in shown]
        self.assertEqual(sorted(places), places)


if __name__ == "__main__":
    unittest.main()

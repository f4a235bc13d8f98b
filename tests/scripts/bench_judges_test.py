#!/usr/bin/env python3
"""Tests of bench_judges in scripts/lib/bench.sh: what the simulated libraries say of a run, and of no earlier one,
decides whether it passes. The argument is the project's folder."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

PROJECT = pathlib.Path(sys.argv.pop())
CALLS = "canusbdrv canusb_Open(\"LWR1\", \"500\", 0, -1, 1) = 1\n"
FAULT = "canusbdrv fault: canusb_Close(2) of a handle that is not open\n"


class BenchJudges(unittest.TestCase):
    def judged(self, report: str | None, first: str = ":") -> tuple[int, str]:
        """`first` is what is done ahead of it."""
        with tempfile.TemporaryDirectory(prefix="a bench ") as folder:
            if report is not None:
                (pathlib.Path(folder) / "bench-report.txt").write_text(report, encoding="utf-8")
            done = subprocess.run(
                ["bash", "-c", f'source "{PROJECT}/scripts/lib/common.sh"; source "{PROJECT}/scripts/lib/bench.sh"\n'
                               f'declare -A opt; bench="{folder}/bench.ini"; {first}; bench_judges "$bench"'],
                capture_output=True, text=True, timeout=60)
            return done.returncode, done.stderr.replace(folder, "FOLDER")

    def test_a_report_of_right_calls_passes(self):
        self.assertEqual((0, ""), self.judged(CALLS))

    def test_a_fault_fails_and_is_told(self):
        self.assertEqual((1, f"error: calls that no adapter takes: {FAULT}"), self.judged(CALLS + FAULT + CALLS))

    def test_no_report_fails(self):
        for report in (None, ""):
            self.assertEqual((1, "error: the simulated libraries left no report in FOLDER/bench-report.txt\n"),
                             self.judged(report))

    def test_what_was_reported_ahead_of_the_bench_goes(self):
        for log in ('""', "drive.log", "-"):
            self.assertEqual((1, "error: the simulated libraries left no report in FOLDER/bench-report.txt\n"),
                             self.judged(CALLS, f'bench_write "$bench" {log}'))


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""Tests of scripts/lib/tally.py, whose folder is the argument: every outcome lands in its count."""

import contextlib
import io
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, sys.argv.pop())
import tally  # noqa: E402

ENTRIES = """<testsuite>
<testcase name="good" status="run"/>
<testcase name="bad" status="fail"><failure message=""/></testcase>
<testcase name="not_built" status="notrun"><skipped message="Unable to find executable"/></testcase>
<testcase name="skips" status="notrun"><skipped message="SKIP_RETURN_CODE=77"/></testcase>
<testcase name="off" status="disabled"/>
</testsuite>"""

CASES = """<testsuites><testsuite name="S">
<testcase classname="S" name="good" status="run"/>
<testcase classname="S" name="skips" status="run"><skipped message="a_test.cpp:3&#x0A;not in this language&#x0A;"/></testcase>
{}
</testsuite></testsuites>"""
BAD_CASE = '<testcase classname="S" name="bad" status="run">' \
           '<failure message="a_test.cpp:7&#x0A;  three&#x0A;four"/><failure message="a_test.cpp:9"/></testcase>'


class Counts(unittest.TestCase):
    def count(self, entries: str, **reports: str) -> list[str]:
        with tempfile.TemporaryDirectory() as folder:
            junit = pathlib.Path(folder) / "entries.junit"
            junit.write_text(entries, encoding="utf-8")
            for name, report in reports.items():
                (pathlib.Path(folder) / f"{name}.xml").write_text(report, encoding="utf-8")
            out = io.StringIO()
            with contextlib.redirect_stdout(out):
                tally.main(str(junit), folder)
            return out.getvalue().splitlines()

    def test_every_outcome_of_an_entry_is_counted_once(self):
        self.assertEqual(["1 2 2", "failed: bad", "failed: not_built", "skipped: skips", "skipped: off"],
                         self.count(ENTRIES))

    def test_the_cases_of_a_binary_stand_for_its_entry(self):
        entry = '<testsuite><testcase name="binary" status="fail"/></testsuite>'
        self.assertEqual(["1 1 1", "failed: S.bad: a_test.cpp:7 three four; a_test.cpp:9",
                          "skipped: S.skips: not in this language"],
                         self.count(entry, binary=CASES.format(BAD_CASE)))

    def test_a_binary_that_failed_without_a_failed_case_counts_as_one_failure_more(self):
        entry = '<testsuite><testcase name="binary" status="fail"/></testsuite>'
        self.assertEqual(["1 1 1", "failed: binary", "skipped: S.skips: not in this language"],
                         self.count(entry, binary=CASES.format("")))

    def test_no_entries_give_no_counts(self):
        self.assertEqual(["0 0 0"], self.count("<testsuite/>"))


if __name__ == "__main__":
    unittest.main()

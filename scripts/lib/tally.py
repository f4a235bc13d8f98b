#!/usr/bin/env python3
"""Counts the outcome of one stage.

usage: tally.py JUNIT [FOLDER]

JUNIT is what `ctest --output-junit` wrote. An entry that ran a whole GoogleTest binary left
FOLDER/NAME.xml, whose cases are counted instead of the entry. Prints "PASSED FAILED SKIPPED" on the
first line, then the names of what failed, and of what was skipped, with what a case said to it.
"""

import pathlib
import sys
import xml.etree.ElementTree as xml


class Tally:
    def __init__(self) -> None:
        self.passed = 0
        self.failed: list[str] = []
        self.skipped: list[str] = []

    def add(self, name: str, outcome: str, reason: str = "") -> None:
        if outcome == "passed":
            self.passed += 1
        else:
            getattr(self, outcome).append(f"{name}: {reason}" if reason else name)


def outcome_of_entry(entry: xml.Element) -> str:
    status, skipped = entry.get("status"), entry.find("skipped")
    if status == "run":
        return "passed"
    # A binary that was not built is "notrun" too, which is a failure and not a skipped test.
    if status == "notrun" and skipped is not None and "Unable" in skipped.get("message", ""):
        return "failed"
    return "skipped" if status in ("notrun", "disabled") else "failed"


def outcome_of_case(case: xml.Element) -> str:
    if case.find("failure") is not None:
        return "failed"
    if case.find("skipped") is not None or case.get("status") == "notrun":
        return "skipped"
    return "passed"


def reason_of_case(case: xml.Element) -> str:
    """What a case said that failed or was skipped. The first line of a message is the place in the code: a skip goes
    without it."""
    if failures := [one_line(failure.get("message", "")) for failure in case.iter("failure")]:
        return "; ".join(failures)
    skipped = case.find("skipped")
    message = "" if skipped is None else skipped.get("message", "")
    return one_line("\n".join(message.split("\n")[1:]))


def one_line(text: str) -> str:
    return " ".join(text.split())


def add_entry(tally: Tally, entry: xml.Element, folder: pathlib.Path | None) -> None:
    name = entry.get("name", "")
    outcome = outcome_of_entry(entry)
    report = folder / f"{name}.xml" if folder else None
    if report is None or not report.exists():
        tally.add(name, outcome)
        return
    cases = [(f'{case.get("classname")}.{case.get("name")}', outcome_of_case(case), reason_of_case(case))
             for case in xml.parse(report).getroot().iter("testcase")]
    for case in cases:
        tally.add(*case)
    # The binary failed although no case did: it crashed or ran out of time.
    if outcome == "failed" and all(result != "failed" for _, result, _ in cases):
        tally.add(name, "failed")


def main(junit: str, folder: str | None = None) -> None:
    tally = Tally()
    for entry in xml.parse(junit).getroot().iter("testcase"):
        add_entry(tally, entry, pathlib.Path(folder) if folder else None)
    print(tally.passed, len(tally.failed), len(tally.skipped))
    for name in tally.failed:
        print("failed:", name)
    for name in tally.skipped:
        print("skipped:", name)


if __name__ == "__main__":
    main(*sys.argv[1:])

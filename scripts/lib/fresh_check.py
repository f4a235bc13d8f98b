#!/usr/bin/env python3
"""Looks at what a demo left, and says in one sentence what is there or what is wrong with it.

usage: fresh_check.py page FILE                       the page's text
       fresh_check.py picture WIDTH HEIGHT COLOURS    the window's picture, as measured
"""

import pathlib
import re
import sys

HEADER = "ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8"
ROW = re.compile(r"[0-9A-F]{3}  (?P<length>[0-8])  (?P<data>(?: [0-9A-F]{2}){0,8}) +"
                 r"(?P<cycle>\d+|-{4}|\?{4})ms")
# The synthetic vehicle has some 50 messages; those with the longest cycles come once in a second.
LEAST_ROWS, LEAST_CYCLES = 40, 30
LEAST_WIDTH, LEAST_HEIGHT, LEAST_COLOURS = 900, 600, 20


class Wrong(Exception):
    """A problem, described in one sentence."""


def need(condition: bool, sentence: str) -> None:
    if not condition:
        raise Wrong(sentence)


def page(file: str) -> str:
    lines = pathlib.Path(file).read_text(encoding="utf-8").splitlines()
    need(lines[:1] == [HEADER], f"the page does not begin with its header but with {lines[:1]}")
    cycles = 0
    for number, line in enumerate(lines[1:], 2):
        row = ROW.fullmatch(line)
        need(row is not None, f"line {number} of the page is no row: {line!r}")
        need(len(row["data"]) == 3 * int(row["length"]), f"line {number} has other bytes than its length: {line!r}")
        cycles += row["cycle"].isdigit()
    rows = len(lines) - 1
    need(rows >= LEAST_ROWS, f"the page has {rows} rows, at least {LEAST_ROWS} are the vehicle's")
    need(cycles >= LEAST_CYCLES, f"{cycles} rows of the page have a cycle, at least {LEAST_CYCLES} should")
    return f"the page has {rows} rows, {cycles} of them with a cycle"


def picture(width: str, height: str, colours: str) -> str:
    need(int(width) >= LEAST_WIDTH and int(height) >= LEAST_HEIGHT,
         f"the picture has {width} x {height} pixels, less than the window")
    need(int(colours) >= LEAST_COLOURS, f"the picture has {colours} colours, so it shows no window")
    return f"the picture has {width} x {height} pixels and {colours} colours"


def main(what: str, *arguments: str) -> int:
    try:
        print({"page": page, "picture": picture}[what](*arguments))
    except (Wrong, OSError) as wrong:
        print(wrong)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))

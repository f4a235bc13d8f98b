#!/usr/bin/env python3
"""Compares the page's text after a replay with what the recording itself says.

usage: compare_replay.py RECORDING PAGE [CLOCK_START]

Each identifier's line shows the data length and the bytes of its last frame, and the cycle between
its last two frames on the run's time line. The adapter's clock counts milliseconds from 0 to 59,999,
CLOCK_START at the beginning (0); after its first wrap the time line jumps once, by the first stamp.
"""

import re
import sys
from typing import NamedTuple

FRAME = re.compile(r"\((\d+)\.(\d{6})\) \S+ ([0-9A-F]{3})#((?:[0-9A-F]{2})*)$")
HEADER = "ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8"
CLOCK_RANGE = 60000  # ms


class Seen(NamedTuple):
    data: bytes
    time: float  # on the run's time line, ms
    previous: float | None


class TimeLine:
    """The run's time line from the adapter's stamps, ratio 1."""

    def __init__(self) -> None:
        self.origin: int | None = None
        self.last = 0
        self.time = 0

    def add(self, stamp: int) -> int:
        if self.origin is None:
            self.origin = stamp
        elapsed = stamp - self.origin
        if elapsed >= self.last:
            self.time += elapsed - self.last
        else:
            self.time += elapsed + CLOCK_RANGE - self.last
            self.origin = 0
        self.last = elapsed
        return self.time


class Frame(NamedTuple):
    microseconds: int  # since the recording's first frame
    identifier: int
    data: bytes


def read_frames(lines: list[str]) -> list[Frame]:
    frames: list[Frame] = []
    first = None
    for number, line in enumerate(lines, 1):
        match = FRAME.match(line.strip())
        if not match:
            raise ValueError(f"line {number} is no 11-bit data frame: {line.strip()}")
        microseconds = int(match[1]) * 1_000_000 + int(match[2])
        first = microseconds if first is None else first
        frames.append(Frame(microseconds - first, int(match[3], 16), bytes.fromhex(match[4])))
    return frames


def stamp_of(microseconds: int, clock_start: int) -> int:
    """The adapter's stamp so long after its first frame."""
    return (clock_start + microseconds // 1000) % CLOCK_RANGE


def read_recording(lines: list[str], clock_start: int) -> dict[int, Seen]:
    """What the last two frames of each identifier say."""
    table: dict[int, Seen] = {}
    line_of_time = TimeLine()
    for frame in read_frames(lines):
        before = table.get(frame.identifier)
        time = line_of_time.add(stamp_of(frame.microseconds, clock_start))
        table[frame.identifier] = Seen(frame.data, time, before.time if before else None)
    return table


def cycle_text(seen: Seen) -> str:
    if seen.previous is None:
        return "----"
    cycle = seen.time - seen.previous
    if cycle > 0:
        return str(cycle)
    return "----" if seen.time == 0 else "????"


def page_line(identifier: int, seen: Seen) -> str:
    cells = "".join(f" {byte:02X}" for byte in seen.data)
    return f"{identifier:03X}  {len(seen.data)}  {cells:<24}   {cycle_text(seen)}ms"


def expected_page(table: dict[int, Seen]) -> list[str]:
    """Identifier 0 is stored but never shown."""
    return [HEADER] + [page_line(identifier, table[identifier])
                       for identifier in sorted(table) if identifier != 0]


def differences(expected: list[str], page: list[str]) -> list[str]:
    found = [f"line {number}: page {have!r}, recording {want!r}"
             for number, (want, have) in enumerate(zip(expected, page), 1) if want != have]
    if len(expected) != len(page):
        found.append(f"the page has {len(page)} lines, the recording makes {len(expected)}")
    return found


def main(recording: str, page: str, clock_start: str = "0") -> int:
    with open(recording, encoding="ascii") as file:
        expected = expected_page(read_recording(file.readlines(), int(clock_start)))
    with open(page, encoding="utf-8") as file:
        found = differences(expected, file.read().splitlines())
    for difference in found[:20]:
        print(difference)
    print(f"{len(expected)} lines compared, {len(found)} differ")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))

#!/usr/bin/env python3
"""Compares the page's text after a replay with what the recording itself says.

Each identifier's line shows the data length and the bytes of its last frame, and the cycle between
its last two frames on the run's time line.
"""

import argparse
import sys
from typing import NamedTuple

import recording as rec

HEADERS = {
    11: "ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8",
    29: "E    ID    DLC  D1 D2 D3 D4 D5 D6 D7 D8",
}

Key = tuple[int, bool]  # identifier, extended


class Seen(NamedTuple):
    data: bytes
    time: int  # on the run's time line, ms
    previous: int | None


def last_of_each(frames: list[rec.Frame], time_line: rec.TimeLine) -> dict[Key, Seen]:
    """What the last two frames of each identifier say."""
    table: dict[Key, Seen] = {}
    for frame in frames:
        key = frame.identifier, frame.extended
        before = table.get(key)
        time = time_line.add(frame.microseconds)
        table[key] = Seen(frame.data, time, before.time if before else None)
    return table


def cycle_text(seen: Seen) -> str:
    if seen.previous is None:
        return "----"
    cycle = seen.time - seen.previous
    if cycle > 0:
        return str(cycle)
    return "----" if seen.time == 0 else "????"


def page_line(key: Key, seen: Seen, ids: int) -> str:
    identifier, extended = key
    name = f"{identifier:03X}" if ids == 11 else f"{'*' if extended else ' '} {identifier:08X}"
    cells = "".join(f" {byte:02X}" for byte in seen.data)
    return f"{name}  {len(seen.data)}  {cells:<24}   {cycle_text(seen)}ms"


def expected_page(table: dict[Key, Seen], ids: int) -> list[str]:
    """Of 11 bits, identifier 0 is stored but never shown."""
    shown = sorted(key for key in table if ids == 29 or key[0] != 0)
    return [HEADERS[ids]] + [page_line(key, table[key], ids) for key in shown]


def differences(expected: list[str], page: list[str]) -> list[str]:
    found = [f"line {number}: page {have!r}, recording {want!r}"
             for number, (want, have) in enumerate(zip(expected, page), 1) if want != have]
    if len(expected) != len(page):
        found.append(f"the page has {len(page)} lines, the recording makes {len(expected)}")
    return found


def run_options(description: str) -> argparse.ArgumentParser:
    """What says how the recording was played."""
    options = argparse.ArgumentParser(description=description)
    options.add_argument("recording")
    options.add_argument("--ids", type=int, choices=(11, 29), default=11, help="bits of the run's identifiers")
    options.add_argument("--adapter", choices=rec.CLOCKS, default="canusb")
    options.add_argument("--clock-start", type=int, default=0,
                         help="where the adapter's clock stood at first, in its own ticks")
    return options


def main() -> int:
    options = run_options(__doc__.splitlines()[0])
    options.add_argument("page", help="the page's text, UTF-8")
    given = options.parse_args()
    time_line = rec.TimeLine(rec.CLOCKS[given.adapter], given.clock_start)
    expected = expected_page(last_of_each(rec.read_file(given.recording), time_line), given.ids)
    with open(given.page, encoding="utf-8") as file:
        found = differences(expected, file.read().splitlines())
    for difference in found[:20]:
        print(difference)
    print(f"{len(expected)} lines compared, {len(found)} differ")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())

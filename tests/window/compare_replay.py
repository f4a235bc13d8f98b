#!/usr/bin/env python3
"""Compares the page's text after a replay with what the recording itself says.

Each identifier's line shows the data length and the bytes of its last frame, and the cycle between
its last two frames on the run's time line. Where these two came at the same time, the line of an
Interface board keeps the cycle that an earlier tick saw, which may be any of the identifier's.
"""

import argparse
import pathlib
import sys
from typing import NamedTuple

import played
from played import rec
from time_line import TimeLine

from counted import counted

HEADERS = {
    11: "ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8",
    29: "E    ID    DLC  D1 D2 D3 D4 D5 D6 D7 D8",
}

Key = tuple[int, bool]  # identifier, extended


class Seen(NamedTuple):
    data: bytes
    time: int  # on the run's time line, ms
    previous: int | None
    cycles: frozenset[int]  # all above 0 ms


def last_of_each(frames: list[rec.Frame], time_line: TimeLine, ids: int) -> dict[Key, Seen]:
    """What the last two frames of each identifier say. Of 29 bits, a standard frame of identifier 0 has no
    line and writes over that of the first identifier that came."""
    table: dict[Key, Seen] = {}
    for frame in frames:
        key = frame.identifier, frame.extended
        time = time_line.add(frame.microseconds)
        if ids == 29 and key == (0, False):
            if not table:
                continue
            key = next(iter(table))
        before = table.get(key)
        if before is None:
            table[key] = Seen(frame.data, time, None, frozenset())
            continue
        cycle = time - before.time
        table[key] = Seen(frame.data, time, before.time,
                          before.cycles | {cycle} if cycle > 0 else before.cycles)
    return table


def cycle_texts(seen: Seen, adapter: str) -> list[str]:
    if seen.previous is None:
        return ["----"]
    cycle = seen.time - seen.previous
    if cycle > 0:
        return [str(cycle)]
    if adapter == "interface":
        return [str(kept) for kept in sorted(seen.cycles | {0})]
    return ["----" if seen.time == 0 else "????"]


def page_line(key: Key, seen: Seen, ids: int, adapter: str) -> list[str]:
    """What the line may be."""
    identifier, extended = key
    name = f"{identifier:03X}" if ids == 11 else f"{'*' if extended else ' '} {identifier:08X}"
    cells = "".join(f" {byte:02X}" for byte in seen.data)
    return [f"{name}  {len(seen.data)}  {cells:<24}   {cycle}ms" for cycle in cycle_texts(seen, adapter)]


def expected_page(table: dict[Key, Seen], ids: int, adapter: str) -> list[list[str]]:
    """What each line may be. Of 11 bits, identifier 0 is stored but never shown."""
    shown = sorted(key for key in table if ids == 29 or key[0] != 0)
    return [[HEADERS[ids]]] + [page_line(key, table[key], ids, adapter) for key in shown]


def differences(expected: list[list[str]], page: list[str]) -> list[str]:
    found = [f"line {number}: page {have!r}, recording {' or '.join(map(repr, allowed))}"
             for number, (allowed, have) in enumerate(zip(expected, page), 1) if have not in allowed]
    if len(expected) != len(page):
        found.append(f"the page has {counted(len(page), 'line')}, the recording makes {len(expected)}")
    return found


def read_page(path: str) -> list[str]:
    try:
        return pathlib.Path(path).read_text(encoding="utf-8").splitlines()
    except UnicodeDecodeError:
        raise rec.Refused(f"{path} is no page's text, which would be UTF-8") from None


def compare(recording: rec.Recording, given: argparse.Namespace) -> int:
    rec.page_frames(recording, given.ids)
    table = last_of_each(played.accepted(recording.frames, given.ids), played.time_line(given), given.ids)
    expected = expected_page(table, given.ids, given.adapter)
    found = differences(expected, read_page(given.page))
    for difference in found[:20]:
        print(difference)
    print(f"{counted(len(expected), 'line')} compared, {counted(len(found), 'difference')}"
          f"{rec.bad_lines_text(recording)}")
    return 1 if found else 0


def main() -> int:
    options = played.options(__doc__.splitlines()[0])
    options.add_argument("page", help="the page's text, UTF-8")
    given = options.parse_args()
    return played.compare(lambda recording: compare(recording, given), given)


if __name__ == "__main__":
    sys.exit(main())

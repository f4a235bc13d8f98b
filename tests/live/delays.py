#!/usr/bin/env python3
"""How long lines took to the page: compares when the counted frames were printed (paced.py --sent) with when the page
first showed them (tolvane_drive follow). Fails when too little was seen, or when more than a fifth was later than the
limit: frames wait for as long as other work has the processor, and nothing is measured again for it."""

import argparse
import statistics
import sys

FEWEST = 100
LIMIT = 50  # ms
LATE = 0.2  # of all, at most


def sent_times(text: str) -> dict[int, int]:
    return {int(number): int(time) for number, time in map(str.split, text.splitlines())}


def seen_times(text: str) -> dict[int, int]:
    """A line is the time, then the row of the page: identifier, length, bytes, cycle."""
    seen: dict[int, int] = {}
    for line in text.splitlines():
        time, _, row = line.partition(" ")
        number = int("".join(row.split()[2:10]), 16)
        seen.setdefault(number, int(time))
    return seen


def delays(sent: dict[int, int], seen: dict[int, int]) -> list[float]:
    """ms, of each counted frame that the page has shown; one that the next one overtook is not seen."""
    return [(time - sent[number]) / 1000 for number, time in seen.items() if number in sent]


def main() -> int:
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("sent")
    options.add_argument("seen")
    given = options.parse_args()
    with open(given.sent, encoding="ascii") as sent, open(given.seen, encoding="utf-8") as seen:
        found = delays(sent_times(sent.read()), seen_times(seen.read()))
    if len(found) < FEWEST:
        print(f"error: the page has shown {len(found)} of the counted frames", file=sys.stderr)
        return 1
    late = sum(delay > LIMIT for delay in found)
    print(f"from the line to the page: median {statistics.median(found):.1f} ms, longest {max(found):.1f} ms, "
          f"{late} of {len(found)} above {LIMIT} ms")
    return 0 if late <= LATE * len(found) else 1


if __name__ == "__main__":
    sys.exit(main())

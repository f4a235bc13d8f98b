#!/usr/bin/env python3
"""Prints the lines of a recording at their times, as candump does on a bus, with a counted frame among them: its
identifier has 11 bits, its eight bytes are the number, the highest byte first."""

import argparse
import pathlib
import sys
import time
from collections.abc import Iterator

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts" / "lib"))
import recording as rec  # noqa: E402


def lines(frames: list[rec.Frame], identifier: int, period: int, seconds: int) -> Iterator[tuple[int, bytes, int | None]]:
    """µs since the start, the line, and the number of a counted frame. The recording is repeated."""
    end, number, due = seconds * 1_000_000, 0, 0
    began = 0
    while True:
        for frame in frames:
            at = began + frame.microseconds
            while due <= min(at, end):
                data = number.to_bytes(8, "big")
                yield due, rec.line_of(rec.Frame(due, identifier, False, data, "data", 8)), number
                number, due = number + 1, due + period
            if at > end:
                return
            yield at, rec.line_of(frame._replace(microseconds=at)), None
        began += rec.pass_length(frames)


def main() -> None:
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("recording")
    options.add_argument("--identifier", type=lambda text: int(text, 16), default=0x7E0)
    options.add_argument("--period", type=int, default=10_000, help="µs between counted frames")
    options.add_argument("--seconds", type=int, default=20)
    options.add_argument("--sent", required=True, help="file for the numbers and the µs since 1970 at which each was printed")
    given = options.parse_args()
    began = time.monotonic_ns() // 1000
    with open(given.sent, "w", encoding="ascii") as sent:
        for at, line, number in lines(rec.read(given.recording).frames, given.identifier, given.period, given.seconds):
            wait = began + at - time.monotonic_ns() // 1000
            if wait > 0:
                time.sleep(wait / 1_000_000)
            if number is not None:
                print(number, time.time_ns() // 1000, file=sent)
            sys.stdout.buffer.write(line)
            sys.stdout.buffer.flush()


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Prints what a recording contains, or in one sentence why it cannot be played."""

import argparse
import sys

import recording as rec
from contents import Contents

COMPARABLE = {"page": rec.page_frames, "logs": rec.comparable_frames}


def duration(frames: list[rec.Frame], times: int) -> int:
    """From the first frame to the last when the recording is played so many times, in µs."""
    return (times - 1) * rec.pass_length(frames) + frames[-1].microseconds


def summary(recording: rec.Recording) -> str:
    contents = Contents(recording.name)
    for frame in recording.frames:
        contents.add(frame)
    return contents.summary() + rec.bad_lines_text(recording)


def main() -> int:
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("recording", help="in the candump log form")
    options.add_argument("--ids", choices=("11", "29", "both"), default="both", help="bits of the run's identifiers")
    options.add_argument("--comparable", choices=COMPARABLE,
                         help="refuses also what a run's page or logs cannot be compared with")
    options.add_argument("--duration", type=int, metavar="TIMES",
                         help="tells alone how long it takes to play the recording so many times over, in µs")
    given = options.parse_args()
    try:
        recording = rec.read(given.recording)
        COMPARABLE.get(given.comparable, rec.shown_frames)(recording, 11 if given.ids == "11" else 29)
    except rec.Refused as refused:
        print(f"error: {refused}", file=sys.stderr)
        return 1
    print(summary(recording) if given.duration is None else duration(recording.frames, given.duration))
    return 0


if __name__ == "__main__":
    sys.exit(main())

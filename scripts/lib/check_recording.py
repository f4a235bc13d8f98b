#!/usr/bin/env python3
"""Prints what a recording contains, or in one sentence why it cannot be played."""

import argparse
import collections
import sys

import recording as rec
from counted import counted

COMPARABLE = {"page": rec.page_frames, "logs": rec.comparable_frames}


def summary(recording: rec.Recording) -> str:
    frames = recording.frames
    counts = collections.Counter(
        ("extended" if frame.extended else "standard") if frame.kind == "data" else frame.kind
        for frame in frames)
    kinds = ", ".join(f"{counts[kind]} {kind}" for kind in ("standard", "extended", "remote", "error"))
    sent = f", {counts['sent']} sent by the recorder" if counts["sent"] else ""
    milliseconds = frames[-1].microseconds // 1000
    return (f"{recording.name}: {counted(len(frames), 'frame')} in {milliseconds // 1000}.{milliseconds % 1000:03} s: "
            f"{kinds}{sent}{rec.bad_lines_text(recording)}")


def duration(frames: list[rec.Frame], times: int) -> int:
    """From the first frame to the last when the recording is played so many times, in µs."""
    return (times - 1) * rec.pass_length(frames) + frames[-1].microseconds


def advice(recording: rec.Recording) -> str:
    """For a run whose identifiers' bits are unknown. Empty when each run shows something."""
    try:
        rec.shown_frames(recording, 11)
    except rec.Refused:
        return ("all its identifiers have 29 bits, and a window set to 11 bits shows none of them: give --ids 29, "
                "or choose 29 bits in the window's settings")
    return ""


def main() -> int:
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("recording")
    options.add_argument("--ids", choices=("11", "29", "both", "unknown"), default="both",
                         help="bits of the run's identifiers; when they are unknown, a second line says what a "
                              "run with 11 bits lacks")
    options.add_argument("--comparable", choices=COMPARABLE,
                         help="refuses also what a run's page or logs cannot be compared with")
    options.add_argument("--duration", type=int, metavar="TIMES",
                         help="tells alone how long it takes to play the recording so many times over, in µs")
    given = options.parse_args()
    try:
        recording = rec.read(given.recording)
        ids = 11 if given.ids == "11" else 29
        COMPARABLE.get(given.comparable, rec.shown_frames)(recording, ids)
    except rec.Refused as refused:
        print(f"error: {refused}", file=sys.stderr)
        return 1
    if given.duration is not None:
        print(duration(recording.frames, given.duration))
        return 0
    print(summary(recording))
    if given.ids == "unknown" and advice(recording):
        print(advice(recording))
    return 0


if __name__ == "__main__":
    sys.exit(main())

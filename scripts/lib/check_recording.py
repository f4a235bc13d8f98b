#!/usr/bin/env python3
"""Tells what a recording holds, or in one sentence why it cannot be played."""

import argparse
import collections
import sys

import recording as rec


def summary(recording: rec.Recording) -> str:
    frames = recording.frames
    counts = collections.Counter(
        ("extended" if frame.extended else "standard") if frame.kind == "data" else frame.kind
        for frame in frames)
    kinds = ", ".join(f"{counts[kind]} {kind}" for kind in ("standard", "extended", "remote", "error"))
    sent = f", {counts['sent']} sent by the recorder" if counts["sent"] else ""
    milliseconds = frames[-1].microseconds // 1000
    return (f"{recording.name}: {len(frames)} frames in {milliseconds // 1000}.{milliseconds % 1000:03} s: "
            f"{kinds}{sent}{rec.bad_lines_text(recording)}")


def main() -> int:
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("recording")
    options.add_argument("--ids", choices=("11", "29", "both"), default="both",
                         help="bits of the run's identifiers")
    options.add_argument("--comparable", action="store_true",
                         help="refuses also what page and logs cannot be compared with")
    given = options.parse_args()
    try:
        recording = rec.read(given.recording)
        ids = 11 if given.ids == "11" else 29
        (rec.comparable_frames if given.comparable else rec.shown_frames)(recording, ids)
    except rec.Refused as refused:
        print(f"error: {refused}", file=sys.stderr)
        return 1
    print(summary(recording))
    return 0


if __name__ == "__main__":
    sys.exit(main())

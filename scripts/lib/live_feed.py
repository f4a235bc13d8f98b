#!/usr/bin/env python3
"""Copies what comes on the standard input to the files PATH.1, PATH.2 and so on, each byte at once, for the simulated
adapters: simulator/live_text.h tells where one file ends, and that the old ones may go."""

import os
import pathlib
import sys

SEGMENT = 8_388_608
KEPT = 4
AT_ONCE = LONGEST_LINE = 65_536


class Segments:
    def __init__(self, path: str, segment: int = SEGMENT) -> None:
        self.path, self.segment = path, segment
        self.number = 0
        self.next_file()

    def next_file(self) -> None:
        self.number += 1
        self.size = 0
        self.file = open(f"{self.path}.{self.number}", "wb", buffering=0)
        pathlib.Path(f"{self.path}.{self.number - KEPT}").unlink(missing_ok=True)

    def write(self, data: bytes) -> None:
        while data:
            end = data.find(b"\n", max(self.segment - self.size - 1, 0)) + 1
            part, data = (data[:end], data[end:]) if end else (data, b"")
            self.file.write(part)
            self.size += len(part)
            if end:
                self.file.close()
                self.next_file()


def feed(source: int, segments: Segments) -> None:
    """To the end of the source. Of a line without end the rest is left away: a file ends with a line."""
    line = 0
    while data := os.read(source, AT_ONCE):
        newline = data.rfind(b"\n") + 1
        if not newline and line > LONGEST_LINE:
            continue
        segments.write(data)
        line = len(data) - newline + (0 if newline else line)


def main() -> int:
    try:
        feed(sys.stdin.fileno(), Segments(sys.argv[1]))
    except OSError as error:
        print(f"error: the lines cannot be handed on: {error}", file=sys.stderr)
        return 1
    print("-- the lines have ended; the page stays as it is", flush=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())

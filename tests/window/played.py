"""How a recording was played: what the comparisons of its page and of its logs have in common."""

import argparse
import pathlib
import sys
from collections.abc import Callable

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts" / "lib"))
import recording as rec  # noqa: E402
import time_line as tl  # noqa: E402

HIGHEST_CLOCK_START = 0xFFFF_FFFF


def whole_number(lowest: int, highest: int) -> Callable[[str], int]:
    def read(text: str) -> int:
        number = int(text) if text.isascii() and text.isdecimal() else -1
        if not lowest <= number <= highest:
            raise argparse.ArgumentTypeError(f"{text} is no whole number from {lowest} to {highest}")
        return number
    return read


def options(description: str) -> argparse.ArgumentParser:
    found = argparse.ArgumentParser(description=description)
    found.add_argument("recording", help="in the candump log form")
    found.add_argument("--ids", type=int, choices=(11, 29), default=11, help="bits of the run's identifiers (11)")
    found.add_argument("--adapter", choices=tl.CLOCKS, default="canusb", help="what was plugged in (canusb)")
    found.add_argument("--clock-start", type=whole_number(0, HIGHEST_CLOCK_START), default=0,
                       help="where the adapter's clock stood at first, in its own ticks (0)")
    return found


def time_line(given: argparse.Namespace) -> tl.TimeLine:
    return tl.TimeLine(tl.CLOCKS[given.adapter], given.clock_start)


def accepted(frames: list[rec.Frame], ids: int) -> list[rec.Frame]:
    """With identifiers of 11 bits a run drops extended frames before it looks at their time."""
    return [frame for frame in frames if ids == 29 or not frame.extended]


def compare(comparison: Callable[[rec.Recording], int], given: argparse.Namespace) -> int:
    """Runs it and returns the status. If nothing can be compared, prints the reason in one sentence."""
    try:
        recording = rec.read(given.recording)
        rec.comparable_frames(recording, given.ids)
        return comparison(recording)
    except rec.Refused as refused:
        reason = str(refused)
    except OSError as error:
        reason = f"{error.filename} cannot be read: {error.strerror}"
    print(f"error: {reason}", file=sys.stderr)
    return 1

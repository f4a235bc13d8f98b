"""The jump of a log's times where the clock of its adapter first starts over, as tools/log/runs/clock_jump.h finds it.
The table tests/tools/log/log_jumps.inc holds the two together, and adapter_tables_test.py the wraps with
src/run/adapter_kind.h."""

import math
from typing import NamedTuple

WRAPS = {b"CANUSB ": 60_000, b"Interface ": 429_491}  # ms, by what begins the adapter's line
FRAMES_MIN = 2
TIMES_THE_LONGEST = 2


class Found(NamedTuple):
    """In ms; the jump may be so much longer or shorter by its doubt."""
    at: float  # the time ahead of it
    jump: float
    doubt: float


def wrap_of(adapter: bytes) -> float:
    return next((wrap for name, wrap in WRAPS.items() if adapter.startswith(name)), math.inf)


class ClockJump:
    def __init__(self, wrap: float) -> None:
        self.wrap = wrap
        self.found: Found | None = None
        self.frames, self.last, self.last_step, self.longest_step = 0, 0.0, 0.0, 0.0
        self.passed = False

    def follow(self, time: float) -> bool:
        """To be called with the time of each frame in order. True at the one behind the jump."""
        if self.passed:
            return False
        step = time - self.last if self.frames else 0.0
        behind = time - self.wrap
        self.passed = behind >= 0
        if (self.passed and self.frames >= FRAMES_MIN and step > TIMES_THE_LONGEST * self.longest_step
                and behind <= 10 * self.longest_step + 100):
            doubt = max(0.0, min(behind, self.last_step)) / 2
            self.found = Found(self.last, step - behind + math.floor(doubt), math.ceil(doubt))
        self.frames += 1
        self.last, self.last_step, self.longest_step = time, step, max(self.longest_step, step)
        return self.found is not None

"""The steps of a board's times where its stamps turn negative, as tools/log/runs/stamp_turn.h finds and takes them out.
The table tests/tools/log/log_turns.inc holds the two together."""

import math
from dataclasses import dataclass

from clock_jump import WRAPS

BOARD = b"Interface "
HIGHEST_READING, WORD = (2**31 - 1) // 1000, 2**32 // 1000  # ms
STEP_BACK = WORD - WRAPS[BOARD]
SILENCE_MAX = 60_000  # ms, over the turn


@dataclass
class Found:
    """In ms; the jump may be so much longer or shorter by its doubt."""
    at: float  # the time ahead of the first step back
    steps: int = 1
    jump: float = 0.0  # at the frame behind that step
    doubt: float = 0.0


def has_signed_stamps(adapter: bytes) -> bool:
    return adapter.startswith(BOARD)


class StampTurn:
    def __init__(self, steps: bool) -> None:
        self.has_steps = steps
        self.found: Found | None = None
        self.ahead = 0.0  # how far the times are
        self.last: float | None = None
        self.origin_most, self.origin_distance = 0.0, 0.0

    def follow(self, time: float) -> bool:
        """To be called with the time of each frame in order. True at the one behind the first step back."""
        if not self.has_steps:
            return False
        turned = self.found is not None
        step = 0.0 if self.last is None else time - self.last
        if self.origin_most > 0:
            self.take_jump(step)
        elif step < 0 and 0 <= step + STEP_BACK <= SILENCE_MAX:
            self.take_step(step + STEP_BACK)
        self.last = time
        return not turned and self.found is not None

    def take_step(self, distance: float) -> None:
        self.ahead -= STEP_BACK
        if self.found:
            self.found.steps += 1
            return
        self.found = Found(self.last)
        self.origin_most, self.origin_distance = max(0.0, HIGHEST_READING - self.last), distance

    def take_jump(self, step: float) -> None:
        most, least = min(self.origin_most, step), max(0.0, self.origin_most - self.origin_distance)
        self.origin_most = 0.0
        if most >= least:
            doubt = (most - least) / 2
            self.found.jump, self.found.doubt = least + math.floor(doubt), math.ceil(doubt)
            self.ahead += self.found.jump

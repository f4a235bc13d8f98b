"""What a run makes of the times of a recording.

A frame's time in a log and the cycles of the page lie on the run's time line, which is summed up from
the stamps of the adapter's clock.
"""

from typing import NamedTuple


class Clock(NamedTuple):
    """How a kind of adapter counts its time, and what the program makes of it."""

    tick: int   # µs
    range: int  # ticks; the count runs from 0 to one below and starts over
    wrap: int   # ms that are added when a stamp is below the one before
    signed: bool = False  # the upper half of the range is negative

    def milliseconds(self, microseconds: int, start: int) -> int:
        """The stamp so long after the first frame, at which the clock stood at `start` ticks."""
        ticks = (start + microseconds // self.tick) % self.range
        if self.signed and ticks >= self.range // 2:
            ticks -= self.range
        return int(ticks * self.tick / 1000)  # towards zero


CLOCKS = {
    "canusb": Clock(1000, 60_000, 60_000),
    "interface": Clock(1, 1 << 32, 429_491, True),
    "kvaser": Clock(1000, 1 << 32, 0, True),
}


class TimeLine:
    """The run's time line at ratio 1. After the clock's first wrap it jumps once, by the first stamp. With a
    first stamp below zero it stands still; -1 counts as none."""

    def __init__(self, clock: Clock, start: int) -> None:
        self.clock, self.start = clock, start
        self.origin = -1
        self.last = 0
        self.time = 0

    def add(self, microseconds: int) -> int:
        """The time of the next frame, so long after the first, ms."""
        stamp = self.clock.milliseconds(microseconds, self.start)
        elapsed = 0
        if self.origin >= 0:
            elapsed = stamp - self.origin
        elif self.origin == -1:
            self.origin = stamp
        if elapsed >= self.last:
            self.time += elapsed - self.last
        else:
            self.time += elapsed + self.clock.wrap - self.last
            self.origin = 0
        self.last = elapsed
        return self.time

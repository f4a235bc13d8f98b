"""What a recording holds, found while it is read once, and what it asks of the bench."""

import collections

import recording as rec
from counted import counted

MINUTE = 60_000_000  # µs; CANUSB's clock starts over, and a longer silence is lost on it
HALF_WORD = 1 << 31  # µs; from there on the stamps of Interface's boards are negative


class Contents:
    def __init__(self, name: str, noun: str = "line") -> None:
        self.name = name
        self.noun = noun  # what a bad one is called
        self.counts: collections.Counter[str] = collections.Counter()
        self.formats: set[bool] = set()  # of the frames that each adapter receives: whether they are extended
        self.samples: list[rec.Frame] = []
        self.bad_lines = 0
        self.first_bad = rec.BadLine(0, b"")
        self.span = 0
        self.longest_silence = 0
        self.time = rec.TimeSinceFirst()

    def add(self, item: rec.Frame | rec.BadLine) -> rec.Frame | None:
        """The frame with its time since the first one."""
        if isinstance(item, rec.BadLine):
            self.bad_lines += 1
            self.first_bad = self.first_bad if self.bad_lines > 1 else item
            return None
        frame = item._replace(microseconds=self.time.of(item))
        self.counts[("extended" if frame.extended else "standard") if frame.kind == "data" else frame.kind] += 1
        self.longest_silence = max(self.longest_silence, frame.microseconds - self.span)
        self.span = frame.microseconds
        received = frame.kind in ("data", "remote")
        if not self.samples or received and frame.extended not in self.formats:
            self.samples.append(frame)
        if received:
            self.formats.add(frame.extended)
        return frame

    def frames(self) -> int:
        return sum(self.counts.values())

    def refuse_unshown(self, ids: int) -> None:
        """Raises Refused when a run with identifiers of so many bits shows nothing."""
        rec.shown_frames(rec.Recording(self.name, self.samples, self.bad_lines, self.first_bad.line,
                                       self.first_bad.text), ids)

    def ids(self) -> str:
        return {frozenset([True]): "29", frozenset([False]): "11"}.get(frozenset(self.formats), "both")

    def adapter(self, recorded_with: str = "canusb") -> str:
        """The adapter it was recorded with, unless that cannot deliver all of it: error frames and the recorder's own come
        from Kvaser's alone, and only Kvaser's clock tells times of any length."""
        limits = {"canusb": self.longest_silence >= MINUTE, "interface": self.span >= HALF_WORD}
        unheard = self.counts["error"] or self.counts["sent"]
        return "kvaser" if unheard or limits.get(recorded_with, False) else recorded_with

    def summary(self) -> str:
        kinds = ", ".join(f"{self.counts[kind]} {kind}" for kind in ("standard", "extended", "remote", "error"))
        sent = f", {self.counts['sent']} sent by the recorder" if self.counts["sent"] else ""
        milliseconds = self.span // 1000
        return (f"{self.name}: {counted(self.frames(), 'frame')} in "
                f"{milliseconds // 1000}.{milliseconds % 1000:03} s: {kinds}{sent}{self.bad_lines_text()}{self.steps_text()}")

    def steps_text(self) -> str:
        """For the end of a message; empty without any."""
        steps = self.time.steps_back
        return f"; its clock steps back {counted(steps, 'time')}, which takes no time" if steps else ""

    def bad_lines_text(self) -> str:
        return rec.left_out_text(self.bad_lines, self.first_bad, self.noun)

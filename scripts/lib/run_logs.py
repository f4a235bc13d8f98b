"""The program's own csv logs, read back as a recording: the files of a run in order. docs/formats.md tells their
form."""

import pathlib
import re
from collections.abc import Iterator

import recording as rec

HEAD_LINES = 8
RECORDS_PER_FILE = 20_001
FIRST_WORDS = b"Tolvane Ver"
NAME = re.compile(r"KL(?P<hour>\d{8})-(?P<number>\d{3,4})\.csv", re.IGNORECASE)
# The head is in a code page of Japan, and what is looked for in it is not.
COLUMNS_11, COLUMNS_29 = b" , ID  ,DLC,  D1,", b" , E ,    ID    ,DLC,  D1,"
RATE = re.compile(rb",(?P<number>\d+)(?P<unit>[kM]) bps\s*$")
KILOBITS = {b"k": 1, b"M": 1000}
RATES = (10, 20, 50, 100, 125, 250, 500, 800, 1000)  # kbit/s, those of the program's settings
# The zeros that identifiers of 29 bits have lost stand ahead of a record in a later file.
RECORD = re.compile(
    rb"0*? *(?P<time>-?(?:0|[1-9]\d{0,14})(?:\.\d{1,15})?(?:E-\d{1,3})?) , (?:(?P<mark>[* ]) , )?"
    rb"(?P<identifier>[0-9A-F]{1,8}) , (?P<length>\d{1,2})(?: ,  (?P<data>[0-9A-F]{2}(?:,[0-9A-F]{2}){0,7}))?")


class Log:
    """One file, as far as its head tells: for a recording's adapter, rate and identifiers."""

    def __init__(self, path: pathlib.Path) -> None:
        self.path = path
        with rec.opened(str(path)) as file:
            self.lines = file.read().split(b"\n")
        head = self.lines[:HEAD_LINES]
        if len(head) < HEAD_LINES or not head[0].startswith(FIRST_WORDS) or b"DLC," not in head[-1]:
            raise rec.Refused(f"{path} has not the eight lines at the head of a log")
        self.marked = COLUMNS_29 in head[-1]
        rate = RATE.search(head[2].rstrip(b"\r"))
        self.rate = int(rate["number"]) * KILOBITS[rate["unit"]] if rate else None
        if self.rate is not None and self.rate not in RATES:
            raise rec.Refused(f"{path}, line 3: a bus of {self.rate} kbit/s, and the program's settings have no such rate")
        adapter = head[3].split(b" ")[0].lower()
        self.adapter = adapter.decode() if adapter in (b"canusb", b"interface") else "kvaser"
        # All but the moment of writing, which is ahead of the rate.
        self.run = (head[0], head[2].partition(b",")[2], *head[3:])

    def records(self) -> list[bytes]:
        return self.lines[HEAD_LINES:]

    def full(self) -> bool:
        """The program has then begun another file; the last line ends like all others."""
        return len(self.lines) - HEAD_LINES - 1 >= RECORDS_PER_FILE

    def frame(self, line: bytes, number: int) -> rec.Frame | None:
        """None when the line is no record."""
        match = RECORD.fullmatch(line)
        if match is None or (match["mark"] is not None) != self.marked:
            return None
        identifier, length = int(match["identifier"], 16), int(match["length"])
        extended = match["mark"] == b"*"
        data = bytes.fromhex((match["data"] or b"").replace(b",", b"").decode())
        if identifier > (rec.MAX_EXTENDED if extended else rec.MAX_STANDARD) or length > 15 or len(data) != min(length, 8):
            return None
        return rec.Frame(round(float(match["time"]) * 1000), identifier, extended, data, "data", length, number)

    def first_time(self) -> int | None:
        for line in self.records():
            frame = self.frame(line.rstrip(b"\r"), 0)
            if frame is not None:
                return frame.microseconds
        return None


def is_log(first_bytes: bytes) -> bool:
    return first_bytes.startswith(FIRST_WORDS)


def follower_name(path: pathlib.Path) -> pathlib.Path | None:
    """The log that was begun next in its folder. Names begin with the hour, and the number grows within it."""
    def place(name: str) -> tuple[str, int] | None:
        match = NAME.fullmatch(name)
        return (match["hour"], int(match["number"])) if match else None

    own = place(path.name)
    if own is None:
        return None
    try:
        later = [(at, name) for name in path.parent.iterdir() if (at := place(name.name)) is not None and at > own]
    except OSError as error:
        raise rec.Refused(f"the logs beside {path} cannot be listed: {error.strerror}") from None
    return min(later)[1] if later else None


class Run:
    """The named log and those that go on from it: a full file is followed by the next one of its folder, if that has the
    same head and does not begin anew."""

    def __init__(self, path: str) -> None:
        self.first = Log(pathlib.Path(path))
        self.files = 0
        self.last_time = 0

    def frames(self) -> Iterator[rec.Frame | rec.BadLine]:
        log: Log | None = self.first
        while log is not None:
            self.files += 1
            yield from self.frames_of(log)
            log = self.next(log)

    def frames_of(self, log: Log) -> Iterator[rec.Frame | rec.BadLine]:
        for number, line in enumerate(log.records(), HEAD_LINES + 1):
            line = line.rstrip(b"\r")
            frame = log.frame(line, number)
            if frame is not None:
                self.last_time = frame.microseconds
                yield frame
            elif line:
                yield rec.BadLine(number, line, log.path.name)

    def next(self, log: Log) -> Log | None:
        name = follower_name(log.path) if log.full() else None
        if name is None:
            return None
        try:
            follower = Log(name)
        except rec.Refused:
            return None
        time = follower.first_time()
        goes_on = time is not None and time >= self.last_time
        return follower if goes_on and follower.run == log.run else None

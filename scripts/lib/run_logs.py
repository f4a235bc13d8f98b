"""The program's own csv logs, read back as a recording: the files of a run in order. docs/formats.md tells their
form. tools/log reads them too; the tables tests/tools/log/*.inc hold the two together."""

import pathlib
import re
from collections.abc import Iterator
from typing import NamedTuple

import recording as rec
from clock_jump import ClockJump, wrap_of
from stamp_turn import StampTurn, has_signed_stamps

RECORDS_PER_FILE = 20_001
NAME = re.compile(r"KL(?P<hour>\d{8})-(?P<number>\d{3,9})\.csv", re.IGNORECASE | re.ASCII)
# The head is in a code page of Japan, and what is looked for in it is not. Only a settings file brings line ends into
# a comment, which has fifty characters.
WRITTEN_LINE, ADAPTER_LINE, COMMENT_LINE, COLUMNS_LINE = 2, 3, 5, 7
HEAD_LINES_MAX = COLUMNS_LINE + 1 + 50
COLUMNS_11, COLUMNS_29 = b"[ms] , ID  ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8", b"[ms] , E ,    ID    ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8"
BIT_RATE = b",,,bit rate"
RATE = re.compile(rb"(?P<number>\d+)(?P<unit>[kM]) bps")
KILOBITS = {b"k": 1, b"M": 1000}
RATES = (10, 20, 50, 100, 125, 250, 500, 800, 1000)  # kbit/s, those of the program's settings
RECORD = re.compile(
    rb" *(?P<time>-?(?:\d+\.?\d*|\.\d+)(?:E[+-]?\d+)?) , (?:(?P<mark>[* ]) , )?"
    rb"(?P<identifier>[0-9A-Fa-f]+) , (?P<length>-?\d+)(?: ,  (?P<data>[0-9A-Fa-f]{2}(?:,[0-9A-Fa-f]{2}){0,7}))?")
LONGEST_TIME = 1e13  # ms
LENGTHS = range(-2**31, 2**31)


class Head(NamedTuple):
    """What stands ahead of the records."""
    program: bytes
    bit_rate: bytes
    adapter: bytes
    comment: bytes
    marked: bool  # 29-bit mode

    def rate(self) -> int | None:
        """kbit/s."""
        match = RATE.fullmatch(self.bit_rate.strip())
        return int(match["number"]) * KILOBITS[match["unit"]] if match else None


def read_head(lines: list[bytes]) -> tuple[Head, int] | None:
    """And how many lines it has. None when the line of the columns, by which a log is known, does not come."""
    for at, line in enumerate(lines[:HEAD_LINES_MAX]):
        marked = line.endswith(COLUMNS_29)
        if marked or line.endswith(COLUMNS_11):
            ahead = lines[:at] + [b""] * (COMMENT_LINE - at)
            rate = ahead[WRITTEN_LINE].partition(BIT_RATE)[2].partition(b",")[2]
            comment = b" ".join(ahead[COMMENT_LINE:at - (COLUMNS_LINE - COMMENT_LINE - 1)])
            return Head(ahead[0].partition(b",,,")[0], rate, ahead[ADAPTER_LINE], comment, marked), at + 1
    return None


class Record(NamedTuple):
    milliseconds: float
    identifier: int
    extended: bool
    length: int  # as the adapter told it
    data: bytes


def read_record(line: bytes, marked: bool) -> Record | None:
    """None when the line is no record."""
    # The zeros that identifiers of 29 bits have lost stand ahead of a record in a later file. Times are padded with
    # blanks, so one that begins the line with a zero of its own has a period behind it.
    bare = line.lstrip(b"0")
    if bare.startswith(b".") and bare != line:
        bare = b"0" + bare
    if bare != line and not marked:
        return None
    match = RECORD.fullmatch(bare)
    if match is None or (match["mark"] is not None) != marked:
        return None
    time, identifier, length = float(match["time"]), int(match["identifier"], 16), int(match["length"])
    extended = match["mark"] == b"*"
    data = bytes.fromhex((match["data"] or b"").replace(b",", b"").decode())
    highest = rec.MAX_EXTENDED if extended else rec.MAX_STANDARD
    if abs(time) > LONGEST_TIME or identifier > highest or length not in LENGTHS or len(data) != min(max(length, 0), 8):
        return None
    return Record(time, identifier, extended, length, data)


def is_block(line: bytes, marked: bool) -> bool:
    """Zeros that no record follows, as the last file of a run can have them, or an empty line."""
    return not line.strip(b"0") and (marked or not line)


class Log:
    """One file, as far as its head tells: for a recording's adapter, rate and identifiers."""

    def __init__(self, path: pathlib.Path) -> None:
        self.path = path
        with rec.opened(str(path)) as file:
            lines = [line.removesuffix(b"\r") for line in file.read().split(b"\n")]
        head = read_head(lines)
        if head is None:
            raise rec.Refused(f"{path} has not the line of columns at the head of a log")
        self.head, self.head_lines = head
        self.lines = lines[self.head_lines:]
        self.marked, self.rate = self.head.marked, self.head.rate()
        if self.rate is not None and self.rate not in RATES:
            raise rec.Refused(f"{path}, line 3: a bus of {self.rate} kbit/s, and the program's settings have no such rate")
        adapter = self.head.adapter.split(b" ")[0].lower()
        self.adapter = adapter.decode() if adapter in (b"canusb", b"interface") else "kvaser"

    def full(self) -> bool:
        """The program has then begun another file. A bad line was a record too."""
        return sum(not is_block(line, self.marked) for line in self.lines) >= RECORDS_PER_FILE

    def times(self) -> Iterator[float]:
        return (record.milliseconds for line in self.lines if (record := read_record(line, self.marked)))

    def first_time(self) -> float | None:
        return next(self.times(), None)


def frame_of(record: Record, line: int) -> rec.Frame | None:
    """None of a length that no recording has."""
    if not 0 <= record.length <= 15:
        return None
    return rec.Frame(round(record.milliseconds * 1000), record.identifier, record.extended, record.data, "data",
                     record.length, line)


def is_log(first_bytes: bytes) -> bool:
    """Whether a file begins like a log, by its title or its columns."""
    return first_bytes.startswith(rec.LOG_WORDS) or COLUMNS_11 in first_bytes or COLUMNS_29 in first_bytes


def goes_on(log: Log, last: Log, last_time: float | None) -> bool:
    """Whether a file goes on a run. `last` is that run's last file with a record, and `last_time` the time of that
    record in ms; while no file of the run has a record, its first file and None. A file with another head does not go
    on, nor one with a time before the last one, nor one with the time 0: a run begins there. But where the last time
    is 0 too and that file is full, 0 goes on."""
    if log.head != last.head:
        return False
    first = log.first_time()
    if first is None:
        return True
    if first == 0:
        return last_time == 0 and last.full()
    return last_time is None or first >= last_time


def place(name: str) -> tuple[str, int] | None:
    """The hour and the number of a log's name."""
    match = NAME.fullmatch(name)
    return (match["hour"], int(match["number"])) if match else None


def follower_name(path: pathlib.Path) -> pathlib.Path | None:
    """The log that was begun next in its folder. Names begin with the hour, and the number grows within it."""
    own = place(path.name)
    if own is None:
        return None
    try:
        later = [(at, name) for name in path.parent.iterdir() if (at := place(name.name)) is not None and at > own]
    except OSError as error:
        raise rec.Refused(f"the logs beside {path} cannot be listed: {error.strerror}") from None
    return min(later)[1] if later else None


def numbers_between(before: pathlib.Path, path: pathlib.Path) -> int:
    """How many numbers the program has given between two logs of a run; it begins at 1 in each hour."""
    first, second = place(before.name), place(path.name)
    return max(0, second[1] - (first[1] if first[0] == second[0] else 0) - 1)


class Run:
    """The named log and those that go on from it: a full file is followed by the next one of its folder, if that is of
    the same run."""

    def __init__(self, path: str) -> None:
        self.first = Log(pathlib.Path(path))
        self.files = 0
        self.missing: list[str] = []
        self.left = ""  # the file that seems to belong to the run and is not played, and why
        self.cut_off = ""  # the last one, where it is full: the program writes one more at each disconnect
        self.begins: float | None = None  # the time of the first record
        self.last, self.last_time = self.first, None  # of the last file with a record
        self.clock = ClockJump(wrap_of(self.first.head.adapter))
        self.clock_place = ""  # of the record behind the jump
        self.stamps = StampTurn(has_signed_stamps(self.first.head.adapter))
        self.turn_place = ""  # of the record behind the first step

    def frames(self) -> Iterator[rec.Frame | rec.BadLine]:
        log: Log | None = self.first
        while log is not None:
            self.files += 1
            yield from self.frames_of(log)
            log = self.next(log)

    def frames_of(self, log: Log) -> Iterator[rec.Frame | rec.BadLine]:
        for number, line in enumerate(log.lines, log.head_lines + 1):
            record = read_record(line, log.marked)
            if record is not None:
                self.begins = record.milliseconds if self.begins is None else self.begins
                self.last, self.last_time = log, record.milliseconds
                if self.clock.follow(record.milliseconds):
                    self.clock_place = f"line {number} of {log.path.name}"
                if self.stamps.follow(record.milliseconds):
                    self.turn_place = f"line {number} of {log.path.name}"
                record = record._replace(milliseconds=record.milliseconds - self.stamps.ahead)
            frame = frame_of(record, number) if record is not None else None
            if frame is not None:
                yield frame
            elif not is_block(line, log.marked):
                yield rec.BadLine(number, line, log.path.name)

    def next(self, log: Log) -> Log | None:
        follower = self.follower(log)
        if follower is None and log.full():
            self.cut_off = log.path.name
        return follower

    def follower(self, log: Log) -> Log | None:
        name = follower_name(log.path)
        if name is None:
            return None
        try:
            follower = Log(name)
            is_of_run = goes_on(follower, self.last, self.last_time)
        except rec.Refused:
            is_of_run = False
        if log.full() and not is_of_run:
            self.left = f"{name.name} beside it is not played, as it is no log of this run"
        elif not log.full() and is_of_run:
            self.left = f"{name.name} beside it is not played, as {log.path.name} is not full"
        if not log.full() or not is_of_run:
            return None
        if numbers_between(log.path, name) > 0:
            self.missing.append(f"between {log.path.name} and {name.name}")
        return follower

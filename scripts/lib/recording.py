"""Recordings of bus traffic in the candump log form, read line for line as the simulated adapters read
them: simulator/candump_log.h tells the form, tests/simulator/candump_lines.inc holds the two together."""

import contextlib
import re
from collections.abc import Iterable, Iterator
from typing import BinaryIO, NamedTuple

from counted import counted

GOOD_LINE = "a line looks like \"(1502984866.421964) can0 123#0102\", as candump -L writes it"
ERROR_FRAME = 0x2000_0000
MAX_STANDARD, MAX_EXTENDED = 0x7FF, 0x1FFF_FFFF

LOG_WORDS = b"Tolvane Ver"  # begin a log of the program
GZIP = b"\x1f\x8b"  # begins what is compressed

BLANKS = rb"[ \t][ \t\r]*"
LINE = re.compile(
    rb"\((?P<seconds>\d{1,12})(?:\.(?P<fraction>\d*))?\)" + BLANKS
    + rb"[^ \t\r][^ \t]*" + BLANKS  # the channel
    + rb"(?P<identifier>[0-9A-Fa-f]{3}|[0-9A-Fa-f]{8})#"
    + rb"(?:(?P<remote>[Rr])(?P<remote_length>[0-8]?)"
    + rb"|(?P<data>(?:[0-9A-Fa-f]{2}){0,8})(?:_(?P<length_code>[9A-Fa-f]))?)"
    + rb"(?:" + BLANKS + rb"(?P<direction>[RT]))?")
# What else people take for such a recording.
FOREIGN_LINES = (
    (re.compile(rb"(?:\([^)]*\)\s+)?[^\s#]+\s+[0-9A-Fa-f]{3,8}\s+\[\d+\]"),
     "is candump's output for the screen"),
    (re.compile(rb"\(\S+\)\s+\S+\s+[0-9A-Fa-f]+##"), "is a frame of the flexible data rate"),
    (re.compile(re.escape(GZIP)), "is the beginning of a compressed file"),
    (re.compile(re.escape(LOG_WORDS)), "is the head of a log of the program"),
)
# What a frame that cannot be compared is called.
NAMES = {"data": "a frame with a length code above 8", "remote": "a remote frame", "error": "an error frame",
         "sent": "a frame that the recorder itself sent"}


# Of a recording with a single frame, which comes once a second, in µs.
LONE_PASS = 1_000_000
OUT_OF_ORDER_MAX = 1_000_000  # µs; two frames in a row that are further back are behind a step of the recorder's clock


class Refused(Exception):
    """Why a recording cannot be used, in one sentence."""


class Frame(NamedTuple):
    microseconds: int  # the line's own time, or in a Recording that since its first frame
    identifier: int
    extended: bool
    data: bytes
    kind: str          # "data", "remote", "error", or "sent" by the recorder itself
    length: int        # 0 to 15; above 8 still means eight bytes
    line: int = 0      # from 1


class BadLine(NamedTuple):
    """Of a file that is read: what holds no frame and is left out."""
    line: int  # from 1
    text: bytes
    file: str = ""  # where a recording has several


class Recording(NamedTuple):
    name: str
    frames: list[Frame]   # their times never step back
    bad_lines: int
    first_bad_line: int
    first_bad_text: bytes


def parse_line(text: bytes) -> Frame | None:
    match = LINE.fullmatch(text.strip(b" \t\r"))
    if match is None:
        return None
    identifier = int(match["identifier"], 16)
    extended = len(match["identifier"]) == 8
    kind = "remote" if match["remote"] else "data"
    if extended and identifier & ERROR_FRAME:
        if match["remote"]:
            return None
        identifier -= ERROR_FRAME
        kind = "error"
    if identifier > (MAX_EXTENDED if extended else MAX_STANDARD):
        return None
    data = bytes.fromhex((match["data"] or b"").decode("ascii"))
    length = int(match["remote_length"] or b"0") if match["remote"] else len(data)
    if match["length_code"]:
        if len(data) < 8:
            return None
        length = int(match["length_code"], 16)
    if match["direction"] == b"T" and kind == "data":
        kind = "sent"
    fraction = (match["fraction"] or b"")[:6].ljust(6, b"0")
    return Frame(int(match["seconds"] + fraction), identifier, extended and kind != "error", data, kind,
                 length)


def line_of(frame: Frame) -> bytes:
    """The reverse of parse_line."""
    extended = frame.extended or frame.kind == "error"
    identifier = frame.identifier + (ERROR_FRAME if frame.kind == "error" else 0)
    content = frame.data.hex().upper() + (f"_{frame.length:X}" if frame.length > 8 else "")
    if frame.kind == "remote":
        content = f"R{frame.length or ''}"
    return (f"({frame.microseconds // 1_000_000}.{frame.microseconds % 1_000_000:06}) can0 "
            f"{identifier:0{8 if extended else 3}X}#{content}{' T' if frame.kind == 'sent' else ''}\n").encode("ascii")


def frames_of_lines(lines: Iterable[bytes]) -> Iterator[Frame | BadLine]:
    for number, line in enumerate(lines, 1):
        line = line.removesuffix(b"\n")
        frame = parse_line(line)
        if frame is not None:
            yield frame._replace(line=number)
        elif line.strip(b" \t\r"):
            yield BadLine(number, line)


class TimeSinceFirst:
    """Of one frame after the other, in µs: it begins with the first one and never steps back. A frame out of order comes
    with the one ahead of it, however far back one alone is. A step of the recorder's clock takes no time, and the frames
    behind it keep their pace."""

    def __init__(self) -> None:
        self.origin: int | None = None
        self.last = 0
        self.far_back: int | None = None  # what the frame ahead tells, if it is further back than one out of order
        self.steps_back = 0

    def of(self, frame: Frame) -> int:
        if self.origin is None:
            self.origin = frame.microseconds
        if self.far_back is not None and self.is_far_back(frame):
            self.origin = self.far_back - self.last
            self.steps_back += 1
        self.far_back = frame.microseconds if self.is_far_back(frame) else None
        self.last = max(frame.microseconds - self.origin, self.last)
        return self.last

    def is_far_back(self, frame: Frame) -> bool:
        return frame.microseconds - self.origin < self.last - OUT_OF_ORDER_MAX


def parse(name: str, text: bytes) -> Recording:
    frames: list[Frame] = []
    bad_lines: list[BadLine] = []
    time = TimeSinceFirst()
    for item in frames_of_lines(text.split(b"\n")):
        if isinstance(item, Frame):
            frames.append(item._replace(microseconds=time.of(item)))
        else:
            bad_lines.append(item)
    first = bad_lines[0] if bad_lines else BadLine(0, b"")
    return Recording(name, frames, len(bad_lines), first.line, first.text)


@contextlib.contextmanager
def opened(path: str) -> Iterator[BinaryIO]:
    try:
        with open(path, "rb") as file:
            yield file
    except FileNotFoundError:
        raise Refused(f"there is no recording {path}") from None
    except IsADirectoryError:
        raise Refused(f"{path} is a folder, and a recording is a file") from None
    except OSError as error:
        raise Refused(f"the recording {path} cannot be read: {error.strerror}") from None


def read(path: str) -> Recording:
    with opened(path) as file:
        return parse(path, file.read())


def what_is_wrong(text: bytes) -> str:
    for form, reason in FOREIGN_LINES:
        if form.match(text.strip()):
            return reason
    return "is no frame"


def shown_frames(recording: Recording, ids: int) -> list[Frame]:
    """The frames that every kind of adapter receives and that a run with identifiers of so many bits
    shows. Never empty: a recording without any is refused."""
    name = recording.name
    if not recording.frames:
        if recording.bad_lines == 0:
            raise Refused(f"{name} is empty; {GOOD_LINE}")
        raise Refused(f"{name}, line {recording.first_bad_line}: this {what_is_wrong(recording.first_bad_text)}"
                      f", and no other line can be played; {GOOD_LINE}")
    received = [frame for frame in recording.frames if frame.kind in ("data", "remote")]
    line = recording.frames[0].line
    if not received:
        raise Refused(f"{name}, from line {line} on: only error frames and frames that the recorder itself "
                      "sent, and not each adapter receives these; data frames are needed")
    shown = [frame for frame in received if ids == 29 or not frame.extended]
    if not shown:
        raise Refused(f"{name}, from line {line} on: only identifiers of 29 bits, of which a run with 11 bits "
                      "shows nothing; it needs --ids 29")
    return shown


def comparable_frames(recording: Recording, ids: int) -> list[Frame]:
    """All frames, when page and logs of a run can be compared with them: what an adapter makes of others
    than plain data frames is its own affair."""
    shown_frames(recording, ids)
    for frame in recording.frames:
        if frame.kind != "data" or frame.length > 8:
            raise Refused(f"{recording.name}, line {frame.line}: this is {NAMES[frame.kind]}, and only data "
                          "frames of up to eight bytes can be compared")
    return recording.frames


def page_frames(recording: Recording, ids: int) -> list[Frame]:
    """The same for the page alone, which has no line of its own for a standard frame of identifier 0."""
    frames = comparable_frames(recording, ids)
    if not any(frame.extended and ids == 29 or not frame.extended and frame.identifier for frame in frames):
        raise Refused(f"{recording.name} has frames of identifier 0 alone, for which the page has no line")
    return frames


def pass_length(frames: list[Frame]) -> int:
    """From one start of a repeated recording to the next, in µs: its length and one mean
    distance."""
    if len(frames) == 1:
        return LONE_PASS
    span = frames[-1].microseconds
    return span + max(span // (len(frames) - 1), 1)


def left_out_text(bad_lines: int, first: BadLine, noun: str = "line") -> str:
    """For the end of a message; empty without any."""
    if bad_lines == 0:
        return ""
    place = f"{noun} {first.line}" + (f" of {first.file}" if first.file else "")
    return f"; {counted(bad_lines, f'bad {noun}')} left out, the first is {place}"


def bad_lines_text(recording: Recording) -> str:
    return left_out_text(recording.bad_lines, BadLine(recording.first_bad_line, recording.first_bad_text))

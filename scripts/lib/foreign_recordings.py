"""Recordings in the forms of other tools, read by python3-can. Error frames, remote frames and those that the recorder
itself sent keep their kind."""

import logging
import math
import pathlib
import struct
from collections.abc import Iterator

import debians_python
import recording as rec
from counted import counted

FORMS = (".asc", ".blf", ".csv", ".db", ".mf4", ".trc")
# python3-can takes any text for one of its own.
CSV_HEAD = b"timestamp,arbitration_id,extended,remote,error,dlc,data"


class Missing(Exception):
    """python3-can is not installed."""


def form_of(path: str) -> str:
    """Empty when it is none of the above. Each may be compressed."""
    suffixes = [suffix.lower() for suffix in pathlib.PurePath(path).suffixes]
    form = suffixes[-2] if suffixes[-1:] == [".gz"] and len(suffixes) > 1 else "".join(suffixes[-1:])
    return form if form in FORMS else ""


def frame_of(message) -> rec.Frame | None:
    """None for what no adapter of the bench receives, or no bus carries."""
    identifier, data = message.arbitration_id, bytes(message.data or b"")
    extended = bool(message.is_extended_id) and not message.is_error_frame
    highest = rec.MAX_EXTENDED if message.is_extended_id or message.is_error_frame else rec.MAX_STANDARD
    if message.is_fd or not math.isfinite(message.timestamp) or len(data) > 8 or not 0 <= identifier <= highest:
        return None
    kind = "error" if message.is_error_frame else "remote" if message.is_remote_frame else "data"
    length = len(data)
    if kind == "remote":
        length, data = min(message.dlc, 8), b""
    elif kind == "data":
        kind = "data" if message.is_rx else "sent"
        length = message.dlc if length == 8 and 8 < message.dlc <= 15 else length
    return rec.Frame(round(message.timestamp * 1_000_000), identifier, extended, data, kind, length)


def reason_of(error: Exception) -> str:
    """What a reader says of a file, or what it means when Python itself has said it."""
    if isinstance(error, UnicodeDecodeError):
        return "it is not text"
    if isinstance(error, (NameError, TypeError, LookupError, AttributeError, struct.error)):
        return "something in it is missing"
    if isinstance(error, ValueError):  # the readers' own errors are others
        return "something in it is no number or is missing"
    return " ".join(str(error).split()) or "it is damaged"


class Unread(logging.Handler):
    """Counts the lines that the reader of .trc leaves out; it warns of each, and no other reader leaves lines out."""

    def __init__(self) -> None:
        super().__init__(logging.WARNING)
        self.lines = 0

    def emit(self, record: logging.LogRecord) -> None:
        self.lines += record.name == "can.io.trc"


class ForeignRecording:
    """Raises Missing without python3-can."""
    plays_itself = False
    adapter, rate, followers, oddities = "canusb", None, 0, ""
    noun = "frame"  # what a bad one is called

    def __init__(self, path: str) -> None:
        self.path, self.form = path, form_of(path)
        if self.form == ".db" and path.lower().endswith(".gz"):
            raise rec.Refused(f"{path}: a .db is read as it is, and not as .gz: unpack it first")
        if not debians_python.has("can"):
            raise Missing
        self.cut = ""  # what could not be read, and why

    def messages(self) -> Iterator:
        import can

        try:
            reader = can.LogReader(self.path)
        except ValueError:
            raise rec.Refused(f"{self.path}: the installed python3-can does not read {self.form}, Debian 12's lacks .mf4; "
                              "write it as .blf or .asc with the tool that made it") from None
        with reader:
            yield from reader

    def frames(self) -> Iterator[rec.Frame | rec.BadLine]:
        number, unread = 0, Unread()
        logging.getLogger("can").addHandler(unread)
        try:
            for number, message in enumerate(self.messages(), 1):
                frame = frame_of(message)
                yield rec.BadLine(number, b"") if frame is None else frame._replace(line=number)
        except rec.Refused:
            raise
        except Exception as error:  # any error of the readers on a damaged file
            reason = reason_of(error)
            if number == 0:
                raise rec.Refused(f"{self.path} is no {self.form}: {reason}") from None
            self.cut = f"; behind {number} of them it cannot be read: {reason}"
        if unread.lines:
            self.cut += f"; {counted(unread.lines, 'line')} left out that python3-can cannot read"

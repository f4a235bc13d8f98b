#!/usr/bin/env python3
"""Makes any recording ready for the bench: converts it to the candump log form, unless it has that.
Prints what the recording contains and what it asks of the run, a word and its value to a line:

  say      what it contains
  play     the file to play, the recording itself when it has the form
  ids      bits of its identifiers, 11, 29 or both
  adapter  the kind that can deliver all of it
  rate     kbit/s of the bus, if it tells

or in one sentence why it cannot be played. The status 3 says that python3-can is needed, which is not installed."""

import argparse
import gzip
import os
import sys
import time
import zlib
from collections.abc import Iterator

import foreign_recordings
import recording as rec
import run_logs
from contents import Contents
from counted import counted

HEAD_BYTES = 4096
WORKBOOKS = (".xls", ".xlsx")
NEEDS_PYTHON_CAN = 3
PROGRESS_FRAMES, PROGRESS_SECONDS = 10_000, 5


class Candump:
    """What the bench plays as it is."""
    plays_itself = True
    adapter, rate, followers, oddities, cut, noun = "canusb", None, 0, "", "", "line"

    def __init__(self, path: str) -> None:
        self.path = path

    def frames(self) -> Iterator[rec.Frame | rec.BadLine]:
        with rec.opened(self.path) as file:
            yield from rec.frames_of_lines(file)


class RunLogs:
    """Of the program itself."""
    plays_itself = False
    cut, noun = "", "line"

    def __init__(self, path: str) -> None:
        self.run = run_logs.Run(path)
        self.adapter, self.rate = self.run.first.adapter, self.run.first.rate

    @property
    def followers(self) -> int:
        return self.run.files - 1

    @property
    def oddities(self) -> str:
        told = []
        if self.run.begins:
            told.append(f"it begins at {self.run.begins:.15g} ms, and what the run has ahead of that is not played")
        if self.run.missing:
            told.append(f"files seem to be missing, by the names, {', '.join(self.run.missing)}")
        if self.run.left:
            told.append(self.run.left)
        if self.run.cut_off:
            told.append(f"{self.run.cut_off} is full, but no file goes on: the end of the run is missing, or was not written")
        if self.run.clock.found:
            told.append(f"the adapter's clock jumps at {self.run.clock_place} by {self.run.clock.found.jump:g} ms, "
                        "which is played as a silence")
        if turn := self.run.stamps.found:
            jump = f", and jump behind it by {turn.jump:.15g} ms, right to {turn.doubt:.15g} ms" if turn.jump else ""
            times = f" {turn.steps} times, first" if turn.steps > 1 else ""
            told.append(f"the board's stamps turn negative{times} at {self.run.turn_place}: the times step back there{jump}, "
                        "which is taken out")
        return "".join(f"; {text}" for text in told)

    def frames(self) -> Iterator[rec.Frame | rec.BadLine]:
        return self.run.frames()

    def ids(self, found: str) -> str:
        """The run's own: one with identifiers of 29 bits logs standard frames in another form."""
        if not self.run.first.marked:
            return "11"
        return "29" if found == "29" else "both"


def head_of(path: str) -> tuple[bytes, bool]:
    """What it begins with, and whether it is compressed."""
    with rec.opened(path) as file:
        head = file.read(HEAD_BYTES)
        if not head.startswith(rec.GZIP):
            return head, False
        file.seek(0)
        try:
            return gzip.GzipFile(fileobj=file).read(HEAD_BYTES), True
        except (OSError, EOFError, zlib.error):
            raise rec.Refused(f"{path} is compressed and damaged") from None


def source_of(path: str):
    head, packed = head_of(path)
    form = foreign_recordings.form_of(path)
    own = "a log of the program" if run_logs.is_log(head) else ""
    if not own and (not form or rec.parse_line(head.partition(b"\n")[0])):
        own = "a text of candump"
    if own and packed:
        raise rec.Refused(f"{path} is compressed, and {own} is not read so: unpack it first")
    if run_logs.is_log(head):
        return RunLogs(path)
    if path.lower().endswith(WORKBOOKS):
        raise rec.Refused(f"{path} is a workbook, and only csv logs are played; have it saved as one")
    if not form:
        return Candump(path)
    if not head:
        raise rec.Refused(f"{path} is empty")
    if path.lower().endswith(".gz") and not packed:
        raise rec.Refused(f"{path} is no .gz: it is not compressed")
    if own:
        raise rec.Refused(f"{path} is no {form} but {own}: give it a name that ends in .log")
    if form == ".csv" and not head.startswith(foreign_recordings.CSV_HEAD):
        raise rec.Refused(f"{path} begins neither like a log of the program nor like a csv of python3-can")
    return foreign_recordings.ForeignRecording(path)


class Progress:
    """A line now and then, of what takes long."""

    def __init__(self, name: str) -> None:
        self.name = name
        self.told = time.monotonic()

    def at(self, frames: int) -> None:
        if frames % PROGRESS_FRAMES == 0 and time.monotonic() - self.told >= PROGRESS_SECONDS:
            self.told = time.monotonic()
            print(f"-- reading {self.name}: {frames:,} frames so far", file=sys.stderr, flush=True)


def read_through(source, path: str, out) -> Contents:
    contents, progress = Contents(path, source.noun), Progress(path)
    for item in source.frames():
        frame = contents.add(item)
        if frame is None:
            continue
        if out is not None:
            out.write(rec.line_of(frame))
        progress.at(contents.frames())
    return contents


def facts(source, contents: Contents, path: str, converted: str) -> Iterator[tuple[str, str]]:
    followers = f", with {counted(source.followers, 'file')} that {'follows' if source.followers == 1 else 'follow'} it"
    yield "say", contents.summary() + (followers if source.followers else "") + source.oddities + source.cut
    yield "play", os.path.realpath(path if source.plays_itself else converted)
    yield "ids", source.ids(contents.ids()) if isinstance(source, RunLogs) else contents.ids()
    yield "adapter", contents.adapter(source.adapter)
    if source.rate is not None:
        yield "rate", str(source.rate)


def main() -> int:
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("recording")
    options.add_argument("converted", help="the file that it is converted to, if it has another form")
    options.add_argument("--ids", choices=("11", "29", "both"), default="both",
                         help="bits of the run's identifiers, when they are not left to the recording")
    given = options.parse_args()
    try:
        source = source_of(given.recording)
        if source.plays_itself:
            contents = read_through(source, given.recording, None)
        else:
            with open(given.converted, "wb") as out:
                contents = read_through(source, given.recording, out)
            if contents.frames() == 0:
                raise rec.Refused(f"{given.recording} holds no frame that can be played{contents.bad_lines_text()}"
                                  f"{source.cut}")
        contents.refuse_unshown(11 if given.ids == "11" else 29)
    except rec.Refused as refused:
        print(f"error: {refused}", file=sys.stderr)
        return 1
    except OSError as error:  # what reads has sentences of its own
        print(f"error: {given.recording} cannot be converted to {given.converted}: {error.strerror}", file=sys.stderr)
        return 1
    except foreign_recordings.Missing:
        return NEEDS_PYTHON_CAN
    for word, value in facts(source, contents, given.recording, given.converted):
        print(word, value)
    return 0


if __name__ == "__main__":
    sys.exit(main())

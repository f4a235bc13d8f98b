#!/usr/bin/env python3
"""Reads what tolvane-log writes with the tools it is for: python3-can, log2asc and can_logconvert. The arguments are
scripts/lib and the program, with the words in front of it that start it. Every record of the log comes back."""

import collections
import csv
import datetime
import json
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import zoneinfo
from typing import NamedTuple

sys.path.insert(0, sys.argv[1])
import debians_python  # noqa: E402

SKIPPED = 77
TOOL = sys.argv[2:]
RECORDS_PER_FILE = 20001
TOKYO = zoneinfo.ZoneInfo("Asia/Tokyo")
COLUMNS = {11: "  時間[ms] , ID  ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8",
           29: "  時間[ms] , E ,    ID    ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8"}


class Record(NamedTuple):
    microseconds: int  # since the first one
    identifier: int
    extended: bool
    data: bytes


def records(bits: int, count: int) -> list[Record]:
    random.seed(bits)
    found, time = [], 0
    for _ in range(count):
        extended = bits == 29 and random.random() < 0.8
        width = random.choice((3, 7, 11, 20, 28, 29)) if extended else 11
        found.append(Record(time, random.getrandbits(width), extended, random.randbytes(random.randint(0, 8))))
        time += random.choice((0, 125, 250, 1000, 9000))
    return found


def head(bits: int, written: datetime.datetime) -> str:
    date = f"{written:%Y/%m/%d} {written.hour}:{written:%M:%S}"
    return ("Tolvane Ver1.23,,,Copyright (C) 2026 Tolvane Project,,,,https://tolvane.example/\r\n\r\n"
            f"{date},,,bit rate：,500k bps\r\nKvaser virtual bench 、P/N：1\r\n\r\n走行 1\r\n\r\n{COLUMNS[bits]}\r\n")


def write_run(folder: pathlib.Path, bits: int, run: list[Record], written: datetime.datetime) -> list[str]:
    """The files as the program writes them, with the zeros that channel 2 leaves to channel 1."""
    paths, strays = [], ""
    for number, begin in enumerate(range(0, len(run) + 1, RECORDS_PER_FILE), 1):
        second = number % 2 == 0
        lines = [] if second else [strays]
        strays = strays if second else ""
        for record in run[begin:begin + RECORDS_PER_FILE]:
            time = f"{record.microseconds / 1000:.3f}".rstrip("0").rstrip(".")
            digits = f"{record.identifier:X}"
            zeros = "0" * ((3 if bits == 11 else 7 if record.identifier == 0xFFFFFFF else 8) - len(digits))
            if bits == 29 and second:
                strays, zeros = strays + zeros, ""
            mark = "" if bits == 11 else "* , " if record.extended else "  , "
            line = f"{time:>10} , {mark}{zeros}{digits} , {len(record.data)}"
            data = ",".join(f"{byte:02X}" for byte in record.data)
            lines.append(line + (f" ,  {data}" if data else "") + "\r\n")
        path = folder / f"KL26112009-{number:03d}.csv"
        path.write_bytes((head(bits, written) + "".join(lines)).encode("cp932"))
        paths.append(path.name)
    return paths


class Place(unittest.TestCase):
    bits = 11
    count = 45_000

    @classmethod
    def setUpClass(cls):
        if cls is Place:
            raise unittest.SkipTest("the records of no mode")
        cls.folder = pathlib.Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.records = records(cls.bits, cls.count)
        written = datetime.datetime(2026, 11, 20, 9, 5, 7, tzinfo=TOKYO)
        cls.paths = write_run(cls.folder, cls.bits, cls.records, written)
        first_file = cls.records[:RECORDS_PER_FILE][-1].microseconds
        cls.begin = written.timestamp() - (first_file + 500) // 1000 / 1000
        for form in ("candump", "asc", "csv"):
            out = {"candump": "run.log"}.get(form, f"run.{form}")
            cls.tool("convert", "--to", form, "--out", out, *reversed(cls.paths))

    @classmethod
    def run_in(cls, *words: str) -> str:
        done = subprocess.run(words, cwd=cls.folder, capture_output=True, text=True, timeout=300, check=False)
        if done.returncode != 0:
            raise AssertionError(f"{words}: {done.stdout[-2000:]}{done.stderr[-2000:]}")
        return done.stdout

    @classmethod
    def tool(cls, *words: str) -> str:
        return cls.run_in(*TOOL, *words)

    def expect_messages(self, messages, begin: float, doubt: float = 2e-6, count: int | None = None) -> None:
        found = list(messages)
        self.assertEqual(count or len(self.records), len(found))
        for record, message in zip(self.records, found):
            self.assertEqual(record[1:], (message.arbitration_id, message.is_extended_id, bytes(message.data)))
            self.assertEqual(len(record.data), message.dlc)
            self.assertFalse(message.is_remote_frame or message.is_error_frame)
            self.assertAlmostEqual(begin + record.microseconds / 1e6, message.timestamp, delta=doubt)


class ElevenBits(Place):
    def test_candump_is_read_by_python3_can(self):
        self.expect_messages(can.LogReader(self.folder / "run.log"), self.begin)

    def test_asc_is_read_by_python3_can(self):
        self.expect_messages(can.ASCReader(self.folder / "run.asc"), 0.0)

    def test_the_date_of_asc_is_the_begin(self):
        self.expect_messages(can.ASCReader(self.folder / "run.asc", relative_timestamp=False), self.begin)

    def test_candump_is_read_by_log2asc_and_gives_the_same_asc(self):
        self.run_in("log2asc", "-I", "run.log", "-O", "theirs.asc", "can0")
        ours, theirs = ((self.folder / name).read_text().splitlines() for name in ("run.asc", "theirs.asc"))
        self.assertEqual(theirs[3:], ours[3:])
        self.assertEqual(theirs[1:3], ours[1:3])
        self.assertEqual(len(self.records) + 3, len(ours))

    def test_csv_has_each_record_in_its_columns(self):
        with open(self.folder / "run.csv", encoding="ascii", newline="") as file:
            rows = list(csv.DictReader(file))
        self.assertEqual(len(self.records), len(rows))
        for record, row in zip(self.records, rows):
            data = bytes.fromhex("".join(row[f"d{n}"] for n in range(1, 9)))
            moment = datetime.datetime.fromisoformat(row["date_time"]).replace(tzinfo=TOKYO)
            self.assertEqual(record[1:], (int(row["id"], 16), row["extended"] == "1", data))
            self.assertEqual((len(data), record.microseconds / 1000), (int(row["length"]), float(row["ms"])))
            self.assertAlmostEqual(self.begin + record.microseconds / 1e6, moment.timestamp(), delta=2e-6)

    def test_the_converter_makes_every_other_format_of_it(self):
        for suffix, doubt in ((".blf", 2e-6), (".trc", 1e-3), (".csv", 2e-6), (".asc", 2e-3)):
            with self.subTest(suffix):
                theirs = f"converted{suffix}"
                self.run_in("can_logconvert", "run.log", theirs)
                # asc and trc count from their first frame.
                begin = 0.0 if suffix in (".asc", ".trc") else self.begin
                self.expect_messages(can.LogReader(self.folder / theirs), begin, doubt)

    def test_the_converter_makes_a_database_of_a_short_one(self):
        # Version 4.1 closes it before what is behind the first few hundred has been written.
        count = 400
        lines = (self.folder / "run.log").read_text().splitlines(keepends=True)
        (self.folder / "short.log").write_text("".join(lines[:count]))
        self.run_in("can_logconvert", "short.log", "short.db")
        self.expect_messages(can.LogReader(self.folder / "short.db"), self.begin, count=count)

    def test_info_counts_what_was_logged(self):
        run, = json.loads(self.tool("info", "--json", *self.paths))["runs"]
        self.assertEqual(len(self.records), run["frames"])
        self.assertEqual("走行 1", run["comment"])
        counts = {(int(row["id"], 16), row["extended"]): row["frames"] for row in run["identifiers"]}
        self.assertEqual(collections.Counter(record[1:3] for record in self.records), counts)
        self.assertEqual(self.records[-1].microseconds / 1000, run["last_ms"])


class TwentyNineBits(ElevenBits):
    bits = 29


if __name__ == "__main__":
    # Of this process too: python3-can reads dates in its zone.
    os.environ["TZ"] = "Asia/Tokyo"
    time.tzset()
    if not debians_python.has("can") or shutil.which("log2asc") is None:
        print("python3-can and can-utils are not installed")
        sys.exit(SKIPPED)
    import can
    unittest.main(argv=sys.argv[:1])

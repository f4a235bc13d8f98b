#!/usr/bin/env python3
"""Compares the logs of a replay with the recording: every frame once, in order, with its time."""

import argparse
import pathlib
import re
import sys
from collections.abc import Iterator

import played
from played import rec
from time_line import TimeLine

import debians_python
from counted import counted

RECORDS_PER_FILE = 20001
HEAD_LINES = 8
MOST_TIMES = 1_000_000
TITLES = ("経過時間 [ms]", "EX", "CAN ID", "DLC", "D1", "D2", "D3", "D4", "D5", "D6", "D7", "D8")
# What the logs say of the bench's adapters.
HARDWARE = {
    "canusb": "CANUSB TV100001 、V1.02N0.93",
    "interface": "Interface PCI-485120 RevID:1 ch:1 高速CAN対応",
    "kvaser": "Kvaser virtual bench (channel 0) 、P/N：733-01300-09810-7  S/N：10000  FW：3.18.0",
}
RATE = "bit rate：500k bps"
COMMENT = "ＣＡＮ受信ログ"  # a fresh installation's
# Text and font size.
HEAD_CELLS = {
    "A1": ("Tolvane Ver1.23", 10), "A2": ("https://tolvane.example/", 8), "A4": (COMMENT, 10),
    "C1": ("Copyright (C) 2026 Tolvane Project", 8), "D2": (RATE, 10),
}
WIDTHS = dict(zip("ABCDEFGHIJKL", (11, 4, 7, 5, 4, 4, 4, 4, 4, 4, 4, 4)))
WIDE_IDENTIFIERS = {"C": 9}
DATE = re.compile(r"\d{4}/\d{1,2}/\d{1,2}( \d{1,2}:\d{2}:\d{2})?")  # no time at midnight
FIRST_LINE = "Tolvane Ver1.23,,,Copyright (C) 2026 Tolvane Project,,,,https://tolvane.example/"
COLUMNS = {
    11: "  時間[ms] , ID  ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8",
    29: "  時間[ms] , E ,    ID    ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8",
}
FIRST_ROW, LAST_ROW = 7, 20007

# Time, mark, identifier, length, and the bytes that there are.
Record = tuple[str, ...]


def identifier_text(identifier: int, ids: int) -> str:
    """FFFFFFF alone has seven digits of its 29 bits."""
    digits = 3 if ids == 11 else 7 if identifier == 0xFFFFFFF else 8
    return f"{identifier:0{digits}X}"


def expected_records(frames: list[rec.Frame], times: int, time_line: TimeLine,
                     ids: int) -> Iterator[Record]:
    for repetition in range(times):
        began = repetition * rec.pass_length(frames)
        for frame in played.accepted(frames, ids):
            time = time_line.add(began + frame.microseconds)
            yield (str(time), "*" if frame.extended else "", identifier_text(frame.identifier, ids),
                   str(len(frame.data)), *(f"{byte:02X}" for byte in frame.data))


def csv_line(record: Record, ids: int) -> str:
    time, mark, identifier, length, *data = record
    marked = "" if ids == 11 else f"{mark or ' '} , "
    line = f"{time:>10} , {marked}{identifier} , {length}"
    return line + " ,  " + ",".join(data) if data else line


class CsvLogs:
    """The files of a run, in order. They alternate between the log's two channels, and of identifiers
    of 29 bits the second one loses its leading zeros to the next file of the first."""

    def __init__(self, adapter: str, ids: int) -> None:
        self.adapter, self.ids = adapter, ids
        self.strays = ""

    def lines(self, place: int, records: list[Record]) -> list[str]:
        if self.ids == 11:
            return [csv_line(record, self.ids) for record in records]
        if place % 2 == 0:
            lines = [csv_line(record, self.ids) for record in records]
            if lines:
                lines[0] = self.strays + lines[0]
            self.strays = ""
            return lines
        lines = []
        for time, mark, identifier, *rest in records:
            bare = identifier.lstrip("0") or "0"
            self.strays += "0" * (len(identifier) - len(bare))
            lines.append(csv_line((time, mark, bare, *rest), self.ids))
        return lines

    def head_faults(self, head: list[str]) -> Iterator[str]:
        date, _, rate = head[2].partition(",,,")
        if not DATE.fullmatch(date):
            yield f"line 3 begins with {date!r}, no date and time"
        found = [head[0], head[1], rate, *head[3:]]
        expected = [FIRST_LINE, "", RATE.replace("：", "：,"), HARDWARE[self.adapter], "",
                    COMMENT, "", COLUMNS[self.ids]]
        if found != expected:
            yield f"the head is {found}, not {expected}"

    def faults(self, path: pathlib.Path, place: int, records: list[Record]) -> Iterator[str]:
        lines = path.read_bytes().decode("cp932", errors="replace").split("\r\n")
        expected = self.lines(place, records)
        if len(lines) <= HEAD_LINES or lines[-1] != "" or "\n" in "".join(lines):
            yield f"{path.name}: its lines are not those of a log"
            return
        yield from (f"{path.name}: {fault}" for fault in self.head_faults(lines[:HEAD_LINES]))
        lines = lines[HEAD_LINES:-1]
        if len(lines) != len(expected):
            yield f"{path.name}: {counted(len(lines), 'record')} instead of {len(expected)}"
        for number, (line, want) in enumerate(zip(lines, expected), HEAD_LINES + 1):
            if line != want:
                yield f"{path.name} line {number}: {line!r}, recording {want!r}"


def cell_looks(cell) -> tuple:
    """Size, alignment, colour of the filling, lines around."""
    filled = cell.fill.fgColor.rgb if cell.fill.patternType == "solid" else None
    lines = {getattr(cell.border, side).style for side in ("left", "right", "top", "bottom")}
    return cell.font.size, cell.alignment.horizontal, filled, lines


def sheet_head_faults(sheet, adapter: str, ids: int) -> Iterator[str]:
    """Rows 1 to 6, and what belongs to the sheet as a whole."""
    head = HEAD_CELLS | {"A3": (HARDWARE[adapter], 9)}
    widths = WIDTHS | (WIDE_IDENTIFIERS if ids == 29 else {})
    texts = {cell.coordinate: cell.value for row in sheet["A1:L5"] for cell in row if cell.value}
    if not DATE.fullmatch(texts.pop("H1", "")):
        yield "H1 holds no date and time"
    if texts != {name: text for name, (text, _) in head.items()}:
        yield f"the head holds {texts}"
    looks = {name: (size, None, None, {None}) for name, (_, size) in head.items()}
    looks["H1"] = looks["K2"] = (10, "right", None, {None})
    looks |= {f"{column}6": (9, None, "FFFFFF99", {"thin"}) for column in WIDTHS}
    looks |= {name: (10, None, None, {None}) for name in ("A5", "A7", "L7")}
    for name, expected in looks.items():
        if cell_looks(sheet[name]) != expected:
            yield f"{name} looks {cell_looks(sheet[name])}, not {expected}"
    if tuple(cell.value for cell in sheet["A6:L6"][0]) != TITLES:
        yield "row 6 holds other titles"
    whole = ({name: sheet.column_dimensions[name].width for name in widths},
             [str(area) for area in sheet.merged_cells.ranges], sheet.auto_filter.ref)
    if whole != (widths, ["H1:K1"], "A7:L20007"):
        yield f"widths, merged cells and filter are {whole}"


def xlsx_faults(path: pathlib.Path, expected: list[Record], adapter: str, ids: int) -> Iterator[str]:
    import openpyxl

    try:
        sheet = openpyxl.load_workbook(path).active
    except Exception as error:  # any error of the reader on a damaged file
        yield f"{path.name}: cannot be read as a workbook: {error}"
        return
    yield from (f"{path.name}: {fault}" for fault in sheet_head_faults(sheet, adapter, ids))
    found = [tuple(cell or "" for cell in row) for row in
             sheet.iter_rows(min_row=FIRST_ROW, max_row=LAST_ROW, max_col=12, values_only=True)]
    records = [row for row in found if row[0] != ""]
    if len(records) != len(expected) or any(any(row) for row in found[len(records):]):
        yield f"{path.name}: {counted(len(records), 'record')} instead of {len(expected)}"
    for number, (row, record) in enumerate(zip(records, expected), FIRST_ROW):
        if row != record + ("",) * (12 - len(record)):
            yield f"{path.name} row {number}: {row}, recording {record}"


def faults(logs: list[pathlib.Path], expected: list[Record], adapter: str = "canusb",
           ids: int = 11) -> Iterator[str]:
    """The last file holds what is left over, maybe nothing."""
    needed = len(expected) // RECORDS_PER_FILE + 1
    if len(logs) != needed:
        yield f"{counted(len(logs), 'log file')} instead of {needed}"
    csv_logs = CsvLogs(adapter, ids)
    for place, path in enumerate(logs):
        part = expected[place * RECORDS_PER_FILE:(place + 1) * RECORDS_PER_FILE]
        if path.suffix == ".xlsx":
            yield from xlsx_faults(path, part, adapter, ids)
        else:
            yield from csv_logs.faults(path, place, part)


def logs_of(folder: pathlib.Path) -> list[pathlib.Path]:
    """In the order in which they were written: names begin with the hour, followed by a growing number."""
    return sorted(path for path in folder.iterdir()
                  if re.fullmatch(r"KL\d{8}-\d{3}\.(csv|xlsx)", path.name))


def compare(recording: rec.Recording, given: argparse.Namespace) -> int:
    logs = logs_of(pathlib.Path(given.folder))
    if any(path.suffix == ".xlsx" for path in logs) and not debians_python.has("openpyxl"):
        raise rec.Refused("workbooks are read with openpyxl, which is not installed")
    expected = list(expected_records(recording.frames, given.times, played.time_line(given), given.ids))
    found = list(faults(logs, expected, given.adapter, given.ids))
    for fault in found[:20]:
        print(fault)
    print(f"{counted(len(expected), 'frame')} sent, {counted(len(logs), 'log file')} compared, "
          f"{counted(len(found), 'fault')}{rec.bad_lines_text(recording)}")
    return 1 if found else 0


def main() -> int:
    options = played.options(__doc__)
    options.add_argument("folder", help="holds the logs of one run, .csv or .xlsx")
    options.add_argument("--times", type=played.whole_number(1, MOST_TIMES), default=1,
                         help="how often the recording was played over (1)")
    given = options.parse_args()
    return played.compare(lambda recording: compare(recording, given), given)


if __name__ == "__main__":
    sys.exit(main())

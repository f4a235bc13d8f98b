#!/usr/bin/env python3
"""Compares the logs of a replay with the recording: every frame once, in order, with its time.

usage: compare_logs.py RECORDING FOLDER TIMES CLOCK_START

FOLDER holds the logs of one run, .csv or .xlsx, in which RECORDING was played TIMES times over. The
adapter's clock counts milliseconds from 0 to 59,999, CLOCK_START at the beginning; after its first
wrap the time line jumps once, by the first stamp.
"""

import os
import pathlib
import re
import sys
from collections.abc import Iterator

import compare_replay as replay

SKIPPED = 77
DEBIANS_PYTHON = "/usr/bin/python3"  # the one that python3-openpyxl belongs to
RECORDS_PER_FILE = 20001
HEAD_LINES = 8
TITLES = ("経過時間 [ms]", "EX", "CAN ID", "DLC", "D1", "D2", "D3", "D4", "D5", "D6", "D7", "D8")
# Text and font size.
HEAD_CELLS = {
    "A1": ("Tolvane Ver1.23", 10), "A2": ("https://tolvane.example/", 8),
    "A3": ("CANUSB TV100001 、V1.02N0.93", 9), "A4": ("ＣＡＮ受信ログ", 10),
    "C1": ("Copyright (C) 2026 Tolvane Project", 8), "D2": ("bit rate：500k bps", 10),
}
WIDTHS = dict(zip("ABCDEFGHIJKL", (11, 4, 7, 5, 4, 4, 4, 4, 4, 4, 4, 4)))
DATE = re.compile(r"\d{4}/\d{1,2}/\d{1,2}( \d{1,2}:\d{2}:\d{2})?")  # no time at midnight
COLUMNS = "  時間[ms] , ID  ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8"
FIRST_ROW, LAST_ROW = 7, 20007

# Time, mark, identifier, length, and the bytes that there are.
Record = tuple[str, ...]


def pass_length(frames: list[replay.Frame]) -> int:
    """From one beginning of the recording to the next, in µs: its length and one mean distance."""
    span = frames[-1].microseconds
    return span + max(span // (len(frames) - 1), 1)


def expected_records(frames: list[replay.Frame], times: int, clock_start: int) -> Iterator[Record]:
    line_of_time = replay.TimeLine()
    for repetition in range(times):
        began = repetition * pass_length(frames)
        for frame in frames:
            time = line_of_time.add(replay.stamp_of(began + frame.microseconds, clock_start))
            yield (str(time), "", f"{frame.identifier:03X}", str(len(frame.data)),
                   *(f"{byte:02X}" for byte in frame.data))


def csv_line(record: Record) -> str:
    time, _, identifier, length, *data = record
    line = f"{time:>10} , {identifier} , {length}"
    return line + " ,  " + ",".join(data) if data else line


def csv_faults(path: pathlib.Path, expected: list[Record]) -> Iterator[str]:
    lines = path.read_bytes().decode("cp932").split("\r\n")
    if lines[HEAD_LINES - 1] != COLUMNS or lines[-1] != "" or "\n" in "".join(lines):
        yield f"{path.name}: head or line ends are not those of a log"
    lines = lines[HEAD_LINES:-1]
    if len(lines) != len(expected):
        yield f"{path.name}: {len(lines)} records instead of {len(expected)}"
    for number, (line, record) in enumerate(zip(lines, expected), HEAD_LINES + 1):
        if line != csv_line(record):
            yield f"{path.name} line {number}: {line!r}, recording {csv_line(record)!r}"


def cell_looks(cell) -> tuple:
    """Size, alignment, colour of the filling, lines around."""
    filled = cell.fill.fgColor.rgb if cell.fill.patternType == "solid" else None
    lines = {getattr(cell.border, side).style for side in ("left", "right", "top", "bottom")}
    return cell.font.size, cell.alignment.horizontal, filled, lines


def sheet_head_faults(sheet) -> Iterator[str]:
    """Rows 1 to 6, and what belongs to the sheet as a whole."""
    texts = {cell.coordinate: cell.value for row in sheet["A1:L5"] for cell in row if cell.value}
    if not DATE.fullmatch(texts.pop("H1", "")):
        yield "H1 holds no date and time"
    if texts != {name: text for name, (text, _) in HEAD_CELLS.items()}:
        yield f"the head holds {texts}"
    looks = {name: (size, None, None, {None}) for name, (_, size) in HEAD_CELLS.items()}
    looks["H1"] = looks["K2"] = (10, "right", None, {None})
    looks |= {f"{column}6": (9, None, "FFFFFF99", {"thin"}) for column in WIDTHS}
    looks |= {name: (10, None, None, {None}) for name in ("A5", "A7", "L7")}
    for name, expected in looks.items():
        if cell_looks(sheet[name]) != expected:
            yield f"{name} looks {cell_looks(sheet[name])}, not {expected}"
    if tuple(cell.value for cell in sheet["A6:L6"][0]) != TITLES:
        yield "row 6 holds other titles"
    whole = ({name: sheet.column_dimensions[name].width for name in WIDTHS},
             [str(area) for area in sheet.merged_cells.ranges], sheet.auto_filter.ref)
    if whole != (WIDTHS, ["H1:K1"], "A7:L20007"):
        yield f"widths, merged cells and filter are {whole}"


def xlsx_faults(path: pathlib.Path, expected: list[Record]) -> Iterator[str]:
    import openpyxl

    sheet = openpyxl.load_workbook(path).active
    yield from (f"{path.name}: {fault}" for fault in sheet_head_faults(sheet))
    found = [tuple(cell or "" for cell in row) for row in
             sheet.iter_rows(min_row=FIRST_ROW, max_row=LAST_ROW, max_col=12, values_only=True)]
    records = [row for row in found if row[0] != ""]
    if len(records) != len(expected) or any(any(row) for row in found[len(records):]):
        yield f"{path.name}: {len(records)} records instead of {len(expected)}"
    for number, (row, record) in enumerate(zip(records, expected), FIRST_ROW):
        if row != record + ("",) * (12 - len(record)):
            yield f"{path.name} row {number}: {row}, recording {record}"


def faults(logs: list[pathlib.Path], expected: list[Record]) -> Iterator[str]:
    """The last file holds what is left over, maybe nothing."""
    needed = len(expected) // RECORDS_PER_FILE + 1
    if len(logs) != needed:
        yield f"{len(logs)} log files instead of {needed}"
    for place, path in enumerate(logs):
        part = expected[place * RECORDS_PER_FILE:(place + 1) * RECORDS_PER_FILE]
        yield from (xlsx_faults if path.suffix == ".xlsx" else csv_faults)(path, part)


def logs_of(folder: pathlib.Path) -> list[pathlib.Path]:
    """In the order of their writing, since the number grows and the hour stands ahead of it."""
    return sorted(path for path in folder.iterdir()
                  if re.fullmatch(r"KL\d{8}-\d{3}\.(csv|xlsx)", path.name))


def change_to_a_python_with_openpyxl() -> None:
    try:
        import openpyxl  # noqa: F401
    except ImportError:
        if sys.executable == DEBIANS_PYTHON or not os.path.exists(DEBIANS_PYTHON):
            print("skipped: python3-openpyxl is not installed")
            sys.exit(SKIPPED)
        sys.stdout.flush()
        os.execv(DEBIANS_PYTHON, [DEBIANS_PYTHON, "-B", *sys.argv])


def main(recording: str, folder: str, times: str, clock_start: str) -> int:
    logs = logs_of(pathlib.Path(folder))
    if any(path.suffix == ".xlsx" for path in logs):
        change_to_a_python_with_openpyxl()
    with open(recording, encoding="ascii") as file:
        frames = replay.read_frames(file.readlines())
    expected = list(expected_records(frames, int(times), int(clock_start)))
    found = list(faults(logs, expected))
    for fault in found[:20]:
        print(fault)
    print(f"{len(expected)} frames sent, {len(logs)} log files compared, {len(found)} faults")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))

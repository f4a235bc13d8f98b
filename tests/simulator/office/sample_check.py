"""Checks the sample workbooks against their table, through a reader of others, cell by cell."""

import pathlib
import subprocess
import sys
from typing import Callable, NamedTuple, Protocol

import sample_table

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[3] / "scripts" / "lib"))
import debians_python  # noqa: E402

SKIPPED = 77
COLUMNS = 12
SIDES = "left", "right", "top", "bottom"
LIGHT_YELLOW = 255, 255, 153


class Looks(NamedTuple):
    size: float
    alignment: str | None = None
    colour: tuple[int, int, int] | None = None
    lines: tuple[int, ...] = (0, 0, 0, 0)  # 1 for a thin one; left, right, top, bottom


class Sheet(Protocol):
    """A sheet as the reader returns it; rows and columns from 1."""

    def size(self) -> tuple[int, int]: ...
    def text(self, row: int, column: int) -> str: ...   # "" for an empty cell; fails on numbers
    def looks(self, row: int, column: int) -> Looks: ...
    def merged(self) -> list[tuple[int, int, int, int]]: ...  # rows and columns, first to last
    def width(self, column: int) -> float: ...


def same(what, found, expected) -> None:
    if found != expected:
        sys.exit(f"{what}: found {found!r}, expected {expected!r}")


def expected_looks(filled: int) -> dict[tuple[int, int], Looks]:
    looks = {sample_table.place(name): Looks(size) for name, (_, size) in sample_table.HEADS.items()}
    for name in ("H1", "H2", "I2", "J2", "K2"):
        looks[sample_table.place(name)] = Looks(10, alignment="right")
    looks |= {(6, column): Looks(9, colour=LIGHT_YELLOW, lines=(1, 1, 1, 1)) for column in range(1, COLUMNS + 1)}
    return looks | {(7, 1): Looks(10), (6 + filled, COLUMNS): Looks(10)}


def check_sheet(name: str, sheet: Sheet, filled: int) -> None:
    same(f"{name}: rows and columns", sheet.size(), (6 + filled, COLUMNS))
    for row in range(1, 7 + filled):
        for column in range(1, COLUMNS + 1):
            same(f"{name}, row {row}, column {column}", sheet.text(row, column),
                 sample_table.text(row, column, filled))
    for (row, column), looks in expected_looks(filled).items():
        same(f"{name}: looks of row {row}, column {column}", sheet.looks(row, column), looks)
    same(f"{name}: merged ranges", sheet.merged(), [(1, 8, 1, 11)])
    same(f"{name}: widths", [sheet.width(column) for column in range(1, COLUMNS + 1)], [11, 4, 9, 5] + 8 * [4])


def write_books(*modules: str) -> pathlib.Path:
    """The folder into which our workbooks have been written, for these readers. The words of the command are
    the program that writes them, and the folder."""
    for module in modules:
        if not debians_python.has(module):
            print(f"skipped: python3-{module} is not installed")
            sys.exit(SKIPPED)
    folder = pathlib.Path(sys.argv[2])
    subprocess.run([sys.argv[1], folder], check=True)
    return folder


def check_books(module: str, suffix: str, open_sheet: Callable[[pathlib.Path], Sheet]) -> None:
    folder = write_books(module)
    for name, filled in sample_table.BOOKS.items():
        path = folder / f"{name}.{suffix}"
        check_sheet(path.name, open_sheet(path), filled)

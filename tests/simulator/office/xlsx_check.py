"""xlsx_check.py SAMPLE_BOOKS FOLDER: reads the .xlsx workbooks with openpyxl, cell by cell."""

import pathlib
import zipfile

import sample_check
from sample_check import Looks, same

LINES = {None: 0, "thin": 1}


def colour_of(cell) -> tuple[int, int, int] | None:
    if cell.fill.patternType != "solid":
        return None
    opaque, *colour = bytes.fromhex(cell.fill.fgColor.rgb)
    same("opaqueness", opaque, 255)
    return tuple(colour)


class Sheet:
    def __init__(self, path: pathlib.Path) -> None:
        import openpyxl

        same("broken entry", zipfile.ZipFile(path).testzip(), None)
        self.sheet = openpyxl.load_workbook(path).active
        same("filter", self.sheet.auto_filter.ref, "A7:L20007")
        same("first row and column", (self.sheet.min_row, self.sheet.min_column), (1, 1))

    def size(self) -> tuple[int, int]:
        return self.sheet.max_row, self.sheet.max_column

    def text(self, row: int, column: int) -> str:
        cell = self.sheet.cell(row, column)
        if cell.value is None:
            return ""
        same(f"type of {cell.coordinate}", cell.data_type, "s")
        return cell.value

    def looks(self, row: int, column: int) -> Looks:
        cell = self.sheet.cell(row, column)
        styles = [getattr(cell.border, side).style for side in sample_check.SIDES]
        return Looks(cell.font.size, cell.alignment.horizontal, colour_of(cell),
                     tuple(LINES.get(style, style) for style in styles))

    def merged(self) -> list[tuple[int, int, int, int]]:
        return [(area.min_row, area.min_col, area.max_row, area.max_col)
                for area in self.sheet.merged_cells.ranges]

    def width(self, column: int) -> float:
        return self.sheet.column_dimensions["ABCDEFGHIJKL"[column - 1]].width


sample_check.check_books("openpyxl", "xlsx", Sheet)

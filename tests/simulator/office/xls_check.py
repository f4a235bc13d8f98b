"""xls_check.py SAMPLE_BOOKS FOLDER: reads the .xls workbooks with xlrd, cell by cell."""

import pathlib

import sample_check
from sample_check import Looks

ALIGNMENTS = {0: None, 3: "right"}


class Sheet:
    def __init__(self, path: pathlib.Path) -> None:
        import xlrd

        self.text_kind, self.empty_kinds = xlrd.XL_CELL_TEXT, (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK)
        self.book = xlrd.open_workbook(path, formatting_info=True)
        self.sheet, = self.book.sheets()

    def size(self) -> tuple[int, int]:
        return self.sheet.nrows, self.sheet.ncols

    def text(self, row: int, column: int) -> str:
        cell = self.sheet.cell(row - 1, column - 1)
        if cell.ctype in self.empty_kinds:
            return ""
        sample_check.same(f"type of row {row}, column {column}", cell.ctype, self.text_kind)
        return cell.value

    def looks(self, row: int, column: int) -> Looks:
        form = self.book.xf_list[self.sheet.cell_xf_index(row - 1, column - 1)]
        background = form.background
        colour = self.book.colour_map[background.pattern_colour_index] if background.fill_pattern == 1 else None
        return Looks(self.book.font_list[form.font_index].height / 20,
                     ALIGNMENTS.get(form.alignment.hor_align, "another"), colour,
                     tuple(getattr(form.border, f"{side}_line_style") for side in sample_check.SIDES))

    def merged(self) -> list[tuple[int, int, int, int]]:
        # The reader's ends are exclusive.
        return [(top + 1, left + 1, bottom, right)
                for top, bottom, left, right in self.sheet.merged_cells]

    def width(self, column: int) -> float:
        return self.sheet.colinfo_map[column - 1].width / 256


sample_check.check_books("xlrd", "xls", Sheet)

"""xlsx_check.py SAMPLE_BOOKS FOLDER: reads the .xlsx workbooks with openpyxl, cell by cell."""

import os
import pathlib
import subprocess
import sys
import zipfile

import sample_table

SKIPPED = 77
DEBIANS_PYTHON = "/usr/bin/python3"  # the one that Debian's packages belong to


def same(what, found, expected):
    if found != expected:
        sys.exit(f"{what}: found {found!r}, expected {expected!r}")


def check_texts(sheet, filled):
    same("dimensions", sheet.dimensions, "A1:L%d" % (6 + filled))
    for row in sheet.iter_rows(min_row=1, max_row=sample_table.ROWS + 6, max_col=12):
        for cell in row:
            expected = sample_table.text(cell.row, cell.column, filled)
            same(cell.coordinate, cell.value, expected or None)
            if expected:
                same(f"type of {cell.coordinate}", cell.data_type, "s")


def looks(cell):
    edges = {getattr(cell.border, side).style for side in ("left", "right", "top", "bottom")}
    colour = cell.fill.fgColor.rgb if cell.fill.patternType == "solid" else None
    return cell.font.size, cell.alignment.horizontal, colour, edges


def check_looks(sheet, filled):
    for name, (_, size) in sample_table.HEADS.items():
        right = "right" if name in ("H1", "K2") else None
        same(f"looks of {name}", looks(sheet[name]), (size, right, None, {None}))
    for cell in sheet["H2:K2"][0]:
        same(f"alignment of {cell.coordinate}", cell.alignment.horizontal, "right")
    for cell in sheet["A6:L6"][0]:
        same(f"looks of {cell.coordinate}", looks(cell), (9, None, "FFFFFF99", {"thin"}))
    for name in ("A7", f"L{6 + filled}"):
        same(f"looks of {name}", looks(sheet[name]), (10, None, None, {None}))


def check_sheet(sheet):
    same("merged ranges", [str(area) for area in sheet.merged_cells.ranges], ["H1:K1"])
    widths = {name: sheet.column_dimensions[name].width for name in "ABCD"}
    same("widths of A to D", widths, {"A": 11, "B": 4, "C": 9, "D": 5})
    for name in "EFGHIJKL":
        same(f"width of {name}", sheet.column_dimensions[name].width, 4)
    same("filter", sheet.auto_filter.ref, "A7:L20007")


def main():
    try:
        import openpyxl
    except ImportError:
        if sys.executable != DEBIANS_PYTHON and os.path.exists(DEBIANS_PYTHON):
            sys.stdout.flush()
            os.execv(DEBIANS_PYTHON, [DEBIANS_PYTHON, *sys.argv])
        print("skipped: python3-openpyxl is not installed")
        sys.exit(SKIPPED)
    folder = pathlib.Path(sys.argv[2])
    subprocess.run([sys.argv[1], folder], check=True)
    for name, filled in sample_table.BOOKS.items():
        path = folder / f"{name}.xlsx"
        same("broken entry", zipfile.ZipFile(path).testzip(), None)
        sheet = openpyxl.load_workbook(path).active
        check_texts(sheet, filled)
        check_looks(sheet, filled)
        check_sheet(sheet)


main()

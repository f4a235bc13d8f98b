"""typed_check.py SAMPLE_BOOKS FOLDER: what texts taken as typed became, as other people's readers see it."""

import datetime
import sys

import sample_check

# The texts that sample_books.cpp puts from A1 down, and what a spreadsheet program makes of them.
TYPED = {
    "7E8": 7e8, "1E5": 1e5, "001": 1.0, "00": 0.0, "0E": "0E", "50%": 0.5, "TRUE": True,
    "2024/01/02 3:04:05": datetime.datetime(2024, 1, 2, 3, 4, 5), "'001": "001", "CAN": "CAN",
}


def xlsx_values(path):
    import openpyxl

    for cell, in openpyxl.load_workbook(path).active.iter_rows():
        yield float(cell.value) if isinstance(cell.value, int) and cell.data_type == "n" else cell.value


def xls_values(path):
    import xlrd

    book = xlrd.open_workbook(path)
    for cell, in book.sheets()[0].get_rows():
        if cell.ctype == xlrd.XL_CELL_DATE:
            yield xlrd.xldate_as_datetime(cell.value, book.datemode)
        else:
            yield bool(cell.value) if cell.ctype == xlrd.XL_CELL_BOOLEAN else cell.value


folder = sample_check.write_books("openpyxl", "xlrd")
for name, values in ("typed.xlsx", xlsx_values), ("typed.xls", xls_values):
    found = list(values(folder / name))
    if found != list(TYPED.values()) or [*map(type, found)] != [*map(type, TYPED.values())]:
        sys.exit(f"{name} holds {found}")

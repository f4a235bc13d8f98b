"""xls_check.py SAMPLE_BOOKS FOLDER: has LibreOffice read the .xls workbooks, compares all cells."""

import csv
import pathlib
import shutil
import subprocess
import sys

import sample_table

SKIPPED = 77
UTF8_ALL_AS_SHOWN = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true"


def main():
    office = shutil.which("soffice")
    if office is None:
        print("skipped: libreoffice-calc-nogui is not installed")
        sys.exit(SKIPPED)
    folder = pathlib.Path(sys.argv[2])
    subprocess.run([sys.argv[1], folder], check=True)
    out = folder / "csv"
    books = [folder / f"{name}.xls" for name in sample_table.BOOKS]
    subprocess.run(
        [office, f"-env:UserInstallation={(folder / 'profile').resolve().as_uri()}", "--headless",
         "--convert-to", UTF8_ALL_AS_SHOWN, "--outdir", out, *books],
        check=True, stdin=subprocess.DEVNULL, timeout=240)
    for name, filled in sample_table.BOOKS.items():
        with open(out / f"{name}.csv", encoding="utf-8", newline="") as file:
            rows = list(csv.reader(file))
        if len(rows) not in (filled + 6, sample_table.ROWS + 6):
            sys.exit(f"{name}.xls: {len(rows)} rows")
        for row, cells in enumerate(rows, start=1):
            expected = [sample_table.text(row, column, filled) for column in range(1, 13)]
            if cells != expected:
                sys.exit(f"{name}.xls, row {row}: found {cells}, expected {expected}")


main()

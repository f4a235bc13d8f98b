#!/usr/bin/env python3
"""Writes a zip file whose bytes depend only on the files' names and bytes.

usage: write_zip.py ZIP FOLDER SECONDS

FOLDER with all its files becomes the zip's one folder. SECONDS since 1970 are the time that every file
bears; the order is that of the names, and neither rights nor owners are kept.
"""

import pathlib
import sys
import time
import zipfile


def write_zip(target: pathlib.Path, folder: pathlib.Path, seconds: int) -> None:
    files = sorted((path.relative_to(folder.parent).as_posix(), path)
                   for path in folder.rglob("*") if path.is_file())
    with zipfile.ZipFile(target, "w") as archive:
        for name, path in files:
            entry = zipfile.ZipInfo(name, time.gmtime(seconds)[:6])
            entry.create_system = 3
            entry.external_attr = 0o644 << 16
            archive.writestr(entry, path.read_bytes(), zipfile.ZIP_DEFLATED, compresslevel=9)


if __name__ == "__main__":
    write_zip(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), int(sys.argv[3]))

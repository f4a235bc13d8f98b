#!/usr/bin/env python3
"""Tests of check_program on the built program, whose folder and machine are the arguments: a header in which
one flag is changed is found out."""

import pathlib
import struct
import sys
import unittest

import check_program
from pe_file import PeFile

MACHINE = sys.argv.pop()
PROGRAM = (pathlib.Path(sys.argv.pop()) / "Tolvane.exe").read_bytes()
HEADER = struct.unpack_from("<I", PROGRAM, 0x3C)[0]
OPTIONAL = HEADER + 24
RELOCATIONS = OPTIONAL + (112 if MACHINE == "AMD64" else 96) + 8 * 5


def problems(offset: int, kind: str, value: int) -> list[str]:
    """What is found when a number of the headers is another one."""
    changed = bytearray(PROGRAM)
    struct.pack_into("<" + kind, changed, offset, value)
    return check_program.check_flags(PeFile(bytes(changed)), "Tolvane.exe", MACHINE)


class Flags(unittest.TestCase):
    def test_each_one_that_is_lost_is_told(self):
        flags = struct.unpack_from("<H", PROGRAM, OPTIONAL + 70)[0]
        characteristics = struct.unpack_from("<H", PROGRAM, HEADER + 22)[0]
        rows = [
            (HEADER + 4, "H", 0x01C4, "made for"),
            (HEADER + 8, "I", 1_700_000_000, "time of its making"),
            (HEADER + 22, "H", characteristics & ~0x0020, "large addresses"),
            (OPTIONAL + 40, "H", 4, "Windows 7"),
            (OPTIONAL + 48, "H", 5, "Windows 7"),
            (OPTIONAL + 70, "H", flags & ~0x0040, "nobody foresees"),
            (OPTIONAL + 70, "H", flags & ~0x0100, "not executed"),
            (OPTIONAL + 70, "H", flags & ~0x8000, "terminal servers"),
            (RELOCATIONS + 4, "I", 0, "relocations"),
        ]
        if MACHINE == "AMD64":
            rows.append((OPTIONAL + 70, "H", flags & ~0x0020, "64-bit addresses"))
        for offset, kind, value, wanted in rows:
            found = problems(offset, kind, value)
            self.assertEqual(1, len(found), found)
            self.assertIn(wanted, found[0])


class Imports(unittest.TestCase):
    def test_one_more_and_one_less_are_told(self):
        file = PeFile(PROGRAM.replace(b"USER32.dll", b"ELSE32.dll"))
        self.assertEqual(["Tolvane.exe imports else32.dll, which is not in the list",
                          "Tolvane.exe does not import user32.dll of the list"],
                         check_program.check_imports(file, "Tolvane.exe"))


class Files(unittest.TestCase):
    def test_what_is_no_program_is_refused(self):
        for data in (b"", b"#!/bin/sh\n", b"MZ" + b"\0" * 100):
            with self.assertRaises(ValueError):
                PeFile(data)


if __name__ == "__main__":
    unittest.main()

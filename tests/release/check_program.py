#!/usr/bin/env python3
"""Checks what the headers of the built programs and the library say to Windows.

usage: check_program.py FOLDER MACHINE

FOLDER holds Tolvane.exe, qxt100.dll and tolvane-log.exe, MACHINE is AMD64 or i386. Link flags are silent: a
flag that gets lost changes nothing that a run would show.
"""

import pathlib
import sys

import pe_file
from pe_file import PeFile

MACHINES = {"AMD64": 0x8664, "i386": 0x014C}
WINDOWS_7 = (6, 1)

# Every library that must be there for a program to start at all. A longer list is a reason not to start.
# The system takes each of these from its own folder or, COMCTL32, from its side-by-side store, whatever
# lies beside the program; one for which that does not hold is to be loaded by its full path.
IMPORTS = {
    "Tolvane.exe": {"comctl32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "oleaut32.dll",
                    "shell32.dll", "user32.dll"},
    "qxt100.dll": {"kernel32.dll", "msvcrt.dll"},
    "tolvane-log.exe": {"kernel32.dll", "msvcrt.dll"},
}


def check_flags(file: PeFile, name: str, machine: str) -> list[str]:
    wanted = {
        f"made for {machine}": file.machine == MACHINES[machine],
        "for Windows 7 and later": file.os_version == file.subsystem_version == WINDOWS_7,
        "at an address that nobody foresees": bool(file.dll_characteristics & pe_file.DYNAMIC_BASE),
        "movable, with a table of relocations": file.relocations() > 0,
        "with data that is not executed": bool(file.dll_characteristics & pe_file.NX_COMPAT),
        "aware of large addresses": bool(file.characteristics & pe_file.LARGE_ADDRESS_AWARE),
        "without the time of its making": file.time_stamp == 0 and file.export_time_stamp() == 0,
    }
    if machine == "AMD64":
        wanted["at any of the 64-bit addresses"] = bool(
            file.dll_characteristics & pe_file.HIGH_ENTROPY_VA) and file.image_base >= 1 << 32
    if name.endswith(".exe"):  # the flag says nothing in a library
        wanted["aware of terminal servers"] = bool(
            file.dll_characteristics & pe_file.TERMINAL_SERVER_AWARE)
    return [f"{name} is not {what}" for what, holds in wanted.items() if not holds]


def check_imports(file: PeFile, name: str) -> list[str]:
    imports = file.imports()
    return ([f"{name} imports {library}, which is not in the list" for library in
             sorted(imports - IMPORTS[name])] +
            [f"{name} does not import {library} of the list" for library in
             sorted(IMPORTS[name] - imports)])


def check_folder(folder: pathlib.Path, machine: str) -> list[str]:
    problems = []
    for name in IMPORTS:
        file = PeFile.read(folder / name)
        problems += check_flags(file, name, machine) + check_imports(file, name)
    return problems


def main(folder: pathlib.Path, machine: str) -> int:
    problems = check_folder(folder, machine)
    for problem in problems:
        print(problem)
    print(f"{len(IMPORTS)} files, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]), sys.argv[2]))

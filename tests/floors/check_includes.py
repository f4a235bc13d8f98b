#!/usr/bin/env python3
"""Holds the real includes of the sources against the floors that they may use.

usage: check_includes.py ROOT

Templates and headers alone defeat a fence at link time, so the includes themselves are compared
with the table in floors.txt, and that table with the drawing in ARCHITECTURE.md. Found are:
includes of a floor above or of another part of the same floor, files that include each other
(directly or around), Windows where the logic lives, and files on no floor.
"""

import fnmatch
import pathlib
import re
import sys
from typing import NamedTuple

SOURCE_SUFFIXES = {".h", ".cpp"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
WINDOWS_HEADER = re.compile(r"(windows|win\w+|ole\w*|oaidl|richedit|commctrl|commdlg|shellapi|"
                            r"shlobj|richole|imm|mmsystem|tlhelp32|psapi)\.h", re.IGNORECASE)
WINDOWS_MACRO = re.compile(r"^\s*#.*\b(_WIN32|_WIN64|__MINGW\w*)\b", re.MULTILINE)
# Folders that may know Windows, relative to the root.
WINDOWS_FOLDERS = ("src/platform/windows/", "support/", "simulator/", "tools/drive/",
                   "tests/window/", "tests/platform/windows/", "tests/simulator/", "tests/support/")
CHECKED_FOLDERS = ("src", "support", "simulator", "tools", "tests", "bench")


class Part(NamedTuple):
    floor: int
    names: tuple[str, ...]
    patterns: tuple[str, ...]


def read_floors(text: str) -> list[Part]:
    """The parts of the table, in its order."""
    parts = []
    for line in text.splitlines():
        if not line.strip() or line.startswith("#"):
            continue
        head, patterns = line.split(":")
        floor, *names = head.split()
        parts.append(Part(int(floor), tuple(names), tuple(patterns.split())))
    return parts


def read_drawing(text: str) -> list[list[str]]:
    """The names of each floor in the ```floors block of ARCHITECTURE.md, top floor first."""
    block = re.search(r"^```floors\n(.*?)^```", text, re.MULTILINE | re.DOTALL)
    if not block:
        return []
    # Fields stand apart by two blanks or more; the last one of a line says what the floor is.
    return [re.split(r" {2,}", line.strip())[:-1] for line in block.group(1).splitlines() if line]


def compare_drawing(parts: list[Part], drawing: list[list[str]]) -> list[str]:
    floors: dict[int, set[str]] = {}
    for part in parts:
        floors.setdefault(part.floor, set()).update(part.names)
    table = [floors[floor] for floor in sorted(floors, reverse=True)]
    if table == [set(names) for names in drawing]:
        return []
    return [f"ARCHITECTURE.md draws the floors {drawing}, floors.txt has {table}"]


def part_of(path: str, parts: list[Part]) -> Part | None:
    """The part of `path`, which is relative to src/."""
    fitting = [(len(pattern), part) for part in parts for pattern in part.patterns
               if fnmatch.fnmatchcase(path, pattern)]
    return max(fitting, key=lambda entry: entry[0])[1] if fitting else None


def strip_comments(text: str) -> str:
    """`text` without comments; line breaks stay."""
    text = re.sub(r"/\*.*?\*/", lambda match: "\n" * match.group().count("\n"), text,
                  flags=re.DOTALL)
    return re.sub(r"//[^\n]*", "", text)


def includes_of(text: str) -> list[tuple[str, str]]:
    """Pairs of the opening mark and the name, in order."""
    return INCLUDE.findall(text)


def check_floors(sources: dict[str, str], parts: list[Part]) -> list[str]:
    """`sources` maps paths relative to src/ to their text."""
    problems = []
    for path, text in sorted(sources.items()):
        part = part_of(path, parts)
        if part is None:
            problems.append(f"src/{path}: on no floor of floors.txt")
            continue
        for mark, name in includes_of(text):
            if mark != '"':
                continue
            if name not in sources:
                problems.append(f'src/{path}: "{name}" is no file below src/')
                continue
            other = part_of(name, parts)
            if other is not None and other != part and other.floor >= part.floor:
                problems.append(f'src/{path}: on the floor of {" ".join(part.names)}, may not '
                                f'include "{name}" of {" ".join(other.names)}')
    return problems


def check_circles(sources: dict[str, str]) -> list[str]:
    """Chains of includes that come back to where they began, each told once."""
    graph = {path: [name for mark, name in includes_of(text) if mark == '"' and name in sources]
             for path, text in sources.items()}
    problems: list[str] = []
    done: set[str] = set()

    def visit(path: str, road: list[str]) -> None:
        if path in road:
            circle = road[road.index(path):] + [path]
            problems.append("files include each other: " + " -> ".join(circle))
            return
        if path in done:
            return
        for name in graph[path]:
            visit(name, road + [path])
        done.add(path)

    for path in sorted(graph):
        visit(path, [])
    return problems


def check_windows(files: dict[str, str]) -> list[str]:
    """`files` maps paths relative to the root to their text."""
    problems = []
    for path, text in sorted(files.items()):
        if path.startswith(WINDOWS_FOLDERS):
            continue
        for mark, name in includes_of(text):
            if mark == "<" and WINDOWS_HEADER.fullmatch(name):
                problems.append(f"{path}: <{name}> belongs to the folders that know Windows")
        if WINDOWS_MACRO.search(text):
            problems.append(f"{path}: a choice by system belongs to the folders that know Windows")
    return problems


def read_sources(root: pathlib.Path, folder: str) -> dict[str, str]:
    return {path.relative_to(root).as_posix(): strip_comments(path.read_text(encoding="utf-8"))
            for path in sorted((root / folder).rglob("*")) if path.suffix in SOURCE_SUFFIXES}


def main(root: pathlib.Path) -> int:
    parts = read_floors((pathlib.Path(__file__).parent / "floors.txt").read_text(encoding="utf-8"))
    drawing = read_drawing((root / "ARCHITECTURE.md").read_text(encoding="utf-8"))
    files: dict[str, str] = {}
    for folder in CHECKED_FOLDERS:
        files.update(read_sources(root, folder))
    sources = {path.removeprefix("src/"): text for path, text in files.items()
               if path.startswith("src/")}
    problems = (compare_drawing(parts, drawing) + check_floors(sources, parts) +
                check_circles(sources) + check_windows(files))
    for problem in problems:
        print(problem)
    print(f"{len(sources)} files of src/ on {len(parts)} parts, {len(problems)} problems")
    return 1 if problems or not sources else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))

#!/usr/bin/env python3
"""Holds the real includes of the sources against the floors that they may use.

usage: check_includes.py ROOT

Templates and headers alone defeat a fence at link time, so the includes themselves are compared
with the table in floors.txt, and that table with the drawing in ARCHITECTURE.md. Found are:
includes of a room on a floor above or on the same floor, rooms that are linked with such a room or with
one of which they include nothing, files and folders, also outside src/, that include each other
(directly or around), Windows where the logic lives, and files on no floor.
"""

import pathlib
import re
import sys

SOURCE_SUFFIXES = {".h", ".cpp"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
WINDOWS_HEADER = re.compile(r"(windows|win\w+|ole\w*|oaidl|richedit|commctrl|commdlg|shellapi|"
                            r"shlobj|richole|imm|mmsystem|tlhelp32|psapi)\.h", re.IGNORECASE)
WINDOWS_MACRO = re.compile(r"^\s*#.*\b(_WIN32|_WIN64|__MINGW\w*)\b", re.MULTILINE)
# Folders that may know Windows, relative to the root.
WINDOWS_FOLDERS = ("bench/windows/", "src/platform/windows/", "support/", "simulator/", "tools/drive/",
                   "tools/log/windows/",
                   "tests/window/", "tests/platform/windows/", "tests/simulator/", "tests/support/")
# Headers that the build of a room makes, included by their name alone.
MADE_HEADERS = {"tolvane_control_ids.h": "platform/windows/resources"}
# Pairs of a room and one that it is linked with and includes nothing of.
LINKED_ALONE = {("platform/windows/main_window", "shell")}  # Form1's methods that are defined there
CHECKED_FOLDERS = ("src", "support", "simulator", "tools", "tests", "bench")


def read_floors(text: str) -> dict[str, int]:
    """The floor of each room of the table."""
    floors = {}
    for line in text.splitlines():
        if line.strip() and not line.startswith("#"):
            floor, *rooms = line.split()
            floors.update({room: int(floor) for room in rooms})
    return floors


def read_drawing(text: str) -> list[set[str]]:
    """The rooms of each floor in the ```floors block of ARCHITECTURE.md, top floor first. Fields stand
    apart by two blanks or more."""
    block = re.search(r"^```floors\n(.*?)^```", text, re.MULTILINE | re.DOTALL)
    if not block:
        return []
    drawing: list[set[str]] = []
    for line in block.group(1).splitlines():
        fields = re.split(r" {2,}", line.strip())
        if line.startswith(" "):
            # More rooms of the floor before.
            drawing[-1].update(fields)
        else:
            # The last field says what the floor is.
            drawing.append(set(fields[:-1]))
    return drawing


def compare_drawing(floors: dict[str, int], drawing: list[set[str]]) -> list[str]:
    table = [{room for room, its in floors.items() if its == floor}
             for floor in sorted(set(floors.values()), reverse=True)]
    if table == drawing:
        return []
    return [f"ARCHITECTURE.md draws the floors {drawing}, floors.txt has {table}"]


def room_of(path: str) -> str:
    """The folder of `path`; of a path relative to src/ that is its room."""
    return path.rpartition("/")[0]


def strip_comments(text: str) -> str:
    """`text` without comments; line breaks stay."""
    text = re.sub(r"/\*.*?\*/", lambda match: "\n" * match.group().count("\n"), text,
                  flags=re.DOTALL)
    return re.sub(r"//[^\n]*", "", text)


def includes_of(text: str) -> list[tuple[str, str]]:
    """Pairs of the opening mark and the name, in order."""
    return INCLUDE.findall(text)


def check_floors(sources: dict[str, str], floors: dict[str, int]) -> list[str]:
    """`sources` maps paths relative to src/ to their text."""
    problems = []
    for path, text in sorted(sources.items()):
        room = room_of(path)
        if room not in floors:
            problems.append(f"src/{path}: its folder is no room of floors.txt")
            continue
        for mark, name in includes_of(text):
            if mark != '"':
                continue
            if name not in sources:
                problems.append(f'src/{path}: "{name}" is no file below src/')
                continue
            other = room_of(name)
            if other != room and floors.get(other, -1) >= floors[room]:
                problems.append(f'src/{path}: the room {room} may not include "{name}"')
    return problems


def includes_of_rooms(sources: dict[str, str]) -> dict[str, set[str]]:
    """The rooms that each room includes."""
    included: dict[str, set[str]] = {}
    for path, text in sources.items():
        rooms = included.setdefault(room_of(path), set())
        rooms.update(MADE_HEADERS.get(name, room_of(name)) for _, name in includes_of(text))
    return included


def check_uses(builds: dict[str, str], floors: dict[str, int], sources: dict[str, str]) -> list[str]:
    """`builds` maps rooms to their CMakeLists.txt: what a room is linked with lies below it, and the
    room includes something of it."""
    problems = []
    rooms = includes_of_rooms(sources)
    for room, text in sorted(builds.items()):
        included = rooms.get(room, set())
        for used in " ".join(re.findall(r"\bUSES ([^)]*)\)", text)).split():
            if floors.get(used, -1) >= floors.get(room, -1):
                problems.append(f"src/{room}/CMakeLists.txt: the room {room} may not use {used}")
            elif used not in included and (room, used) not in LINKED_ALONE:
                problems.append(f"src/{room}/CMakeLists.txt: the room {room} includes nothing of {used}")
            elif used in included and (room, used) in LINKED_ALONE:
                problems.append(f"src/{room}: includes {used}, which LINKED_ALONE denies")
    return problems


def circles(graph: dict[str, set[str]], what: str) -> list[str]:
    """Roads that come back to where they began, each told once. `graph` has all ways on."""
    problems: list[str] = []
    done: set[str] = set()

    def visit(node: str, road: list[str]) -> None:
        if node in road:
            circle = road[road.index(node):] + [node]
            problems.append(f"{what} include each other: " + " -> ".join(circle))
            return
        if node in done:
            return
        for name in sorted(graph[node]):
            visit(name, road + [node])
        done.add(node)

    for node in sorted(graph):
        visit(node, [])
    return problems


def check_circles(files: dict[str, str]) -> list[str]:
    """Files, and folders, that include each other. `files` maps paths relative to the root to their
    text; an include is relative to the root or to src/."""
    graph: dict[str, set[str]] = {}
    folders: dict[str, set[str]] = {}
    for path, text in sorted(files.items()):
        names = [name if name in files else "src/" + name
                 for mark, name in includes_of(text) if mark == '"']
        graph[path] = {name for name in names if name in files}
        folders.setdefault(room_of(path), set()).update(room_of(name) for name in graph[path])
    for folder, others in folders.items():
        others.discard(folder)
    return circles(graph, "files") + circles(folders, "folders")


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
    floors = read_floors((pathlib.Path(__file__).parent / "floors.txt").read_text(encoding="utf-8"))
    drawing = read_drawing((root / "ARCHITECTURE.md").read_text(encoding="utf-8"))
    files: dict[str, str] = {}
    for folder in CHECKED_FOLDERS:
        files.update(read_sources(root, folder))
    sources = {path.removeprefix("src/"): text for path, text in files.items()
               if path.startswith("src/")}
    builds = {path.parent.relative_to(root / "src").as_posix(): path.read_text(encoding="utf-8")
              for path in (root / "src").rglob("CMakeLists.txt")}
    problems = (compare_drawing(floors, drawing) + check_floors(sources, floors) +
                check_uses(builds, floors, sources) + check_circles(files) + check_windows(files))
    for problem in problems:
        print(problem)
    print(f"{len(sources)} files of src/ in {len(floors)} rooms, {len(problems)} problems")
    return 1 if problems or not sources else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))

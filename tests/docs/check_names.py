#!/usr/bin/env python3
"""Checks what the documents say of the code and of its tests.

usage: check_names.py ROOT

In code marks, `file.cpp: Function, Other` stands for names that this file defines or declares, and `Suite.Name`
for a test. A file goes by its name alone, so that it can move; with a folder in front it must be there. Each entry
of docs/oddities.md says why it stays, where it is, and which test holds it.
"""

import pathlib
import re
import sys

DOCUMENTS = ("ARCHITECTURE.md", "CONTRIBUTING.md", "docs/formats.md", "docs/oddities.md", "docs/soak.md")
ODDITIES = "docs/oddities.md"
SOURCE_FOLDERS = ("src", "support", "simulator", "tests", "bench", "tools", "scripts")

CODE_MARK = re.compile(r"`([^`]+)`")
PLACE = re.compile(r"([\w./-]+\.(?:h|cpp|rc|py|cmake)): (\w+(?:, \w+)*)")
TEST = re.compile(r"[A-Z]\w*\.[A-Z]\w+")
TEST_MACRO = re.compile(r"\b(?:TYPED_)?TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\s*\)")
FENCE = re.compile(r"^```.*?^```", re.MULTILINE | re.DOTALL)
ENTRY = re.compile(r"^- \*\*(.+?)\*\*(.*?)(?=^- \*\*|^#|\Z)", re.MULTILINE | re.DOTALL)


def sources_of(root: pathlib.Path) -> list[pathlib.Path]:
    return [path for folder in SOURCE_FOLDERS for path in sorted((root / folder).rglob("*")) if path.is_file()]


def tests_of(sources: list[pathlib.Path]) -> set[str]:
    return {f"{suite}.{name}" for path in sources if path.suffix == ".cpp"
            for suite, name in TEST_MACRO.findall(path.read_text(encoding="utf-8"))}


def defines(text: str, name: str, is_header: bool) -> bool:
    """Definitions begin at the start of a line, members of a header's class two blanks behind it. What stands
    deeper, and what is only told in a comment, uses the name."""
    indent = "(?:  )?" if is_header else ""
    line = re.compile(rf"^{indent}(?![ /]|#(?!define)).*\b{name}\b", re.MULTILINE)
    code = re.sub(r"//.*", "", text)
    return line.search(code) is not None


def marks_of(text: str) -> list[str]:
    """What stands in code marks, line ends within them read as blanks."""
    return [re.sub(r"\s+", " ", mark) for mark in CODE_MARK.findall(FENCE.sub("", text))]


def check_place(file: str, names: str, sources: list[pathlib.Path]) -> list[str]:
    found = [path for path in sources if path.as_posix().endswith("/" + file)]
    if not found:
        return [f"`{file}` is not there"]
    texts = [(path.read_text(encoding="utf-8"), path.suffix != ".cpp") for path in found]
    return [f"`{file}` does not define {name}" for name in names.split(", ")
            if not any(defines(text, name, is_header) for text, is_header in texts)]


def check_document(name: str, text: str, sources: list[pathlib.Path], tests: set[str]) -> list[str]:
    problems = []
    for mark in marks_of(text):
        place = PLACE.fullmatch(mark)
        if place:
            problems += check_place(*place.groups(), sources)
        elif TEST.fullmatch(mark) and mark not in tests:
            problems.append(f"there is no test `{mark}`")
    return [f"{name}: {problem}" for problem in problems]


def entries_of(text: str) -> list[tuple[str, str]]:
    return ENTRY.findall(text[text.find("\n## "):])


def check_entries(name: str, text: str) -> list[str]:
    problems = []
    for title, entry in entries_of(text):
        marks = marks_of(entry)
        if not any(PLACE.fullmatch(mark) for mark in marks):
            problems.append(f"'{title}' names no place in the code")
        if not any(TEST.fullmatch(mark) for mark in marks):
            problems.append(f"'{title}' names no test")
        if "Stays: " not in entry:
            problems.append(f"'{title}' does not say why it stays")
    return [f"{name}: {problem}" for problem in problems]


def main(root: pathlib.Path) -> int:
    sources = sources_of(root)
    tests = tests_of(sources)
    texts = {name: (root / name).read_text(encoding="utf-8") for name in DOCUMENTS}
    problems = [problem for name, text in texts.items() for problem in check_document(name, text, sources, tests)]
    problems += check_entries(ODDITIES, texts[ODDITIES])
    for problem in problems:
        print(problem)
    entries = len(entries_of(texts[ODDITIES]))
    print(f"{len(texts)} documents, {entries} oddities, {len(tests)} tests known, {len(problems)} problems")
    return 1 if problems or not entries or not tests else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve()))

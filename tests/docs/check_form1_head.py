#!/usr/bin/env python3
"""Holds the list of methods at the head of form1.h against the files that define them.

usage: check_form1_head.py ROOT
"""

import pathlib
import re
import sys

HEADER = "src/run/control/form1.h"
FILE_LINE = re.compile(r"^///   (\S+\.cpp): ")
METHOD_LINE = re.compile(r"^///     (\w+) ")
DEFINITION = re.compile(r"^(?:\S.* )?Form1::(\w+)\(", re.MULTILINE)


def methods_told(header: str) -> set[tuple[str, str]]:
    told, file = set(), ""
    for line in header.splitlines():
        if named := FILE_LINE.match(line):
            file = named[1]
        elif method := METHOD_LINE.match(line):
            told.add((file, method[1]))
    return told


def methods_defined(source: pathlib.Path) -> set[tuple[str, str]]:
    return {(path.relative_to(source).as_posix(), method) for path in source.rglob("*.cpp")
            for method in DEFINITION.findall(path.read_text(encoding="utf-8"))}


def main(root: pathlib.Path) -> int:
    told = methods_told((root / HEADER).read_text(encoding="utf-8"))
    defined = methods_defined(root / "src")
    problems = [f"{method} is told to be in {file}, and is not" for file, method in sorted(told - defined)]
    problems += [f"{method} of {file} is not told" for file, method in sorted(defined - told)]
    for problem in problems:
        print(problem)
    print(f"{len(defined)} methods, {len(problems)} problems")
    return 1 if problems or not defined else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve()))

#!/usr/bin/env python3
"""Holds the keys of the bench file against simulator/README.md, in both directions.

usage: check_bench_keys.py ROOT
"""

import pathlib
import re
import sys

KEY_READ = re.compile(r"\b(?:[Tt]ake\w*|Look)\(\"(\w+)\"")
KEY_ROW = re.compile(r"^\|(?: `\[[^|]*\|| +\|)? ((?:`\w+` ?)+)\|", re.MULTILINE)


def keys_read(source: str) -> set[str]:
    return set(KEY_READ.findall(source))


def keys_told(text: str) -> set[str]:
    """The names in the first cells of the tables of the bench file, behind a cell with a section if there is one."""
    bench_file = text[text.index("\n## The bench file"):text.index("\n## The report")]
    return {key for row in KEY_ROW.findall(bench_file) for key in re.findall(r"`(\w+)`", row)}


def main(root: pathlib.Path) -> int:
    read = keys_read((root / "simulator/bench_config.cpp").read_text(encoding="utf-8"))
    told = keys_told((root / "simulator/README.md").read_text(encoding="utf-8"))
    problems = [f"{key} is read, but not told" for key in sorted(read - told)]
    problems += [f"{key} is told, but not read" for key in sorted(told - read)]
    for problem in problems:
        print(problem)
    print(f"{len(read)} keys, {len(problems)} problems")
    return 1 if problems or not read else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve()))

#!/usr/bin/env python3
"""Checks what the documents point at inside the repository.

usage: check_links.py ROOT

Found are: links and pictures whose file is absent, links to a heading that no heading makes, and
paths in code marks, such as `scripts/demo`, that do not exist. Addresses on the net are left alone.
"""

import pathlib
import re
import sys

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)(?:\s+\"[^\"]*\")?\)")
CODE_PATH = re.compile(r"`((?:src|scripts|tests|bench|docs|cmake|simulator|support|tools|\.ci)/[\w./-]*)")
FENCE = re.compile(r"^```.*?^```", re.MULTILINE | re.DOTALL)
HEADING = re.compile(r"^#+\s+(.*?)\s*#*$", re.MULTILINE)


def anchor(heading: str) -> str:
    """The name under which a heading is linked to."""
    heading = re.sub(r"[^\w\- ]", "", heading.lower())
    return heading.replace(" ", "-")


def check_document(root: pathlib.Path, document: pathlib.Path) -> list[str]:
    name = document.relative_to(root).as_posix()
    text = document.read_text(encoding="utf-8")
    prose = FENCE.sub("", text)
    problems = []
    for target in LINK.findall(prose):
        if re.match(r"[a-z]+:", target):
            continue
        path, _, heading = target.partition("#")
        file = document.parent / path if path else document
        if not file.exists():
            problems.append(f"{name}: {target} is not there")
        elif heading and heading not in {anchor(entry) for entry in HEADING.findall(
                FENCE.sub("", file.read_text(encoding="utf-8")))}:
            problems.append(f"{name}: {target} names no heading")
    for path in CODE_PATH.findall(prose):
        # A file may be named without its suffix, as classes and modules are.
        if not (root / path).exists() and not list(root.glob(path.rstrip("/.") + ".*")):
            problems.append(f"{name}: `{path}` is not there")
    return problems


def documents_of(root: pathlib.Path) -> list[pathlib.Path]:
    return sorted(path for path in root.rglob("*.md")
                  if not path.relative_to(root).parts[0] in ("build", ".git"))


def main(root: pathlib.Path) -> int:
    documents = documents_of(root)
    problems = [problem for document in documents for problem in check_document(root, document)]
    for problem in problems:
        print(problem)
    print(f"{len(documents)} documents, {len(problems)} problems")
    return 1 if problems or not documents else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve()))

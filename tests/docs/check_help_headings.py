"""check_help_headings.py ROOT: the manual has the headings at which the program opens it.

The program names a heading as the converted manual does: in small letters, a hyphen for each blank, without
punctuation. An address with another heading would show the manual's first page, and nobody would be told.
"""
import pathlib
import re
import sys


def heading_names(manual):
    names = set()
    for heading in re.findall(r"^#+ (.+)$", manual, re.MULTILINE):
        kept = "".join(c for c in heading.lower() if c.isalnum() or c in " -_")
        names.add(kept.replace(" ", "-"))
    return names


def main(root):
    wizard = (root / "src/shell/helpwizard.cpp").read_text(encoding="utf-8")
    asked = re.findall(r'StringView k\w+ = u"(\d+-[^"]+)"', wizard)
    if not asked:
        sys.exit("no heading of the manual is named in src/shell/helpwizard.cpp")
    names = heading_names((root / "docs/manual.ja.md").read_text(encoding="utf-8"))
    missing = [name for name in asked if name not in names]
    if missing:
        sys.exit("headings that the manual does not have: " + ", ".join(missing))
    print(f"{len(asked)} headings found")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))

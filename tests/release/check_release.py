#!/usr/bin/env python3
"""Checks that a release is what it says, and that anyone can make the same one again.

usage: check_release.py ROOT WORK

Clones the commit of the checkout ROOT twice below WORK, into folders of different names, one with a blank,
and packages it in both. The surroundings differ: zone, language, mask, compiler flags of the caller, and the
time. What comes out must not. The two releases stay in WORK/first and WORK/second.
"""

import hashlib
import io
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import zipfile
import zlib

import check_program
from pe_file import PeFile

MACHINES = {"x64": "AMD64", "x86": "i386"}
MOST_BYTES = 3_000_000  # of programs and library together
SYMBOLS = "debug-symbols"

Files = dict[str, bytes]


def members(archive: bytes) -> Files:
    """The files of a zip, without the name of its one folder."""
    with zipfile.ZipFile(io.BytesIO(archive)) as file:
        return {name.partition("/")[2]: file.read(name) for name in file.namelist()}


def read_folder(folder: pathlib.Path) -> Files:
    return {path.name: path.read_bytes() for path in sorted(folder.iterdir())}


def compare(first: Files, second: Files) -> list[str]:
    """Where they differ."""
    problems = []
    for name in sorted(first.keys() | second.keys()):
        if name not in second:
            problems.append(f"{name} was made the first time alone")
        elif name not in first:
            problems.append(f"{name} was made the second time alone")
        elif first[name] == second[name]:
            continue
        elif name.endswith(".zip"):
            inner = compare(members(first[name]), members(second[name]))
            problems += [f"{name}: {problem}" for problem in inner]
            if not inner:
                problems.append(f"{name} differs, and its files do not")
        else:
            problems.append(f"{name} differs")
    return problems


def check_sums(release: Files) -> list[str]:
    wanted = "".join(f"{hashlib.sha256(content).hexdigest()}  {name}\n"
                     for name, content in sorted(release.items()) if name != "SHA256SUMS")
    return [] if release.get("SHA256SUMS") == wanted.encode() else ["SHA256SUMS does not fit the files"]


def check_readme(readme: bytes, commit: str) -> list[str]:
    problems = []
    if not readme.startswith(b"\xef\xbb\xbf"):
        problems.append("README.txt has no byte order mark")
    if readme.count(b"\n") != readme.count(b"\r\n") or not readme.endswith(b"\r\n"):
        problems.append("README.txt has lines that do not end with CR LF")
    text = readme.decode("utf-8")
    if "@" in text:
        problems.append("README.txt holds a place that was not filled in")
    if commit not in text:
        problems.append("README.txt does not name the commit")
    return problems


def check_manual(manual: str, source: str) -> list[str]:
    """`source` is the manual's own text, which says how many pictures and chapters there are."""
    problems = []
    pictures = re.findall(r'<img src="data:image/png;base64,iVBORw0KGgo', manual)
    if len(pictures) != source.count("![") or manual.count("<img") != len(pictures):
        problems.append(f"manual.html holds {len(pictures)} pictures of {source.count('![')}")
    chapters = len(re.findall("^## ", source, re.MULTILINE))
    if manual.count("<h2 ") != chapters:
        problems.append(f"manual.html has {manual.count('<h2 ')} chapters of {chapters}")
    problems += [f"manual.html points at {address}"
                 for address in re.findall(r'(?:src|href)="([^"#][^"]*)"', manual)
                 if not address.startswith("data:")]
    return problems


def check_program_file(name: str, content: bytes, symbols: bytes | None) -> list[str]:
    problems = []
    file = PeFile(content)
    if file.symbols or any(section.startswith(".debug") for section in file.section_names()):
        problems.append(f"{name} is not stripped")
    if symbols is None:
        return problems + [f"the symbols of {name} are not there"]
    link = f"{name}.debug".encode() + b"\0"
    link += b"\0" * (-len(link) % 4) + zlib.crc32(symbols).to_bytes(4, "little")
    if link not in content:
        problems.append(f"{name} does not name its symbols")
    if ".debug_info" not in PeFile(symbols).section_names():
        problems.append(f"the symbols of {name} are none")
    return problems


def check_archive(files: Files, symbols: Files, arch: str, commit: str, source: str) -> list[str]:
    """One of the two archives for users; `symbols` are the members of the third."""
    names = {*check_program.IMPORTS, "manual.html", "README.txt"}
    if files.keys() != names:
        return [f"the archive holds {sorted(files)} in place of {sorted(names)}"]
    problems = check_readme(files["README.txt"], commit)
    problems += check_manual(files["manual.html"].decode("utf-8"), source)
    size = sum(len(files[name]) for name in check_program.IMPORTS)
    if size > MOST_BYTES:
        problems.append(f"the program's files have {size} bytes")
    with tempfile.TemporaryDirectory() as folder:
        for name in check_program.IMPORTS:
            problems += check_program_file(name, files[name], symbols.get(f"{arch}/{name}.debug"))
            (pathlib.Path(folder) / name).write_bytes(files[name])
        problems += check_program.check_folder(pathlib.Path(folder), MACHINES[arch])
    return problems


def check_release(release: Files, commit: str, source: str) -> list[str]:
    problems = check_sums(release)
    symbol_archives = [name for name in release if SYMBOLS in name]
    symbols = members(release[symbol_archives[0]]) if symbol_archives else {}
    for arch in MACHINES:
        archives = [name for name in release if re.fullmatch(rf"tolvane-[\d.]+-windows-{arch}\.zip", name)]
        if len(archives) != 1:
            problems.append(f"there is not one archive for {arch}: {archives}")
            continue
        inner = check_archive(members(release[archives[0]]), symbols, arch, commit, source)
        problems += [f"{archives[0]}: {problem}" for problem in inner]
    return problems


def find_path(release: Files, path: pathlib.Path) -> list[str]:
    """Files that tell where they were built."""
    return [f"{archive}: {name} holds the path {path}"
            for archive, content in release.items() if archive.endswith(".zip")
            for name, inner in members(content).items() if str(path).encode() in inner]


def git(folder: pathlib.Path, *arguments: str) -> str:
    return subprocess.run(["git", "-C", str(folder), *arguments], check=True, text=True,
                          stdout=subprocess.PIPE).stdout.strip()


def package(root: pathlib.Path, place: pathlib.Path, target: pathlib.Path, commit: str,
            mask: int, **surroundings: str) -> Files:
    """The release that a clone of the commit makes, moved to `target`; the clone does not stay."""
    shutil.rmtree(place, ignore_errors=True)
    place.parent.mkdir(parents=True, exist_ok=True)
    subprocess.run(["git", "clone", "--quiet", "--no-checkout", str(root), str(place)], check=True)
    git(place, "checkout", "--quiet", "--detach", commit)
    subprocess.run([str(place / "scripts" / "package")], check=True,
                   env=os.environ | surroundings, preexec_fn=lambda: os.umask(mask))
    shutil.rmtree(target, ignore_errors=True)
    (place / "build" / "release").rename(target)
    shutil.rmtree(place)
    return read_folder(target)


def main(root: pathlib.Path, work: pathlib.Path) -> int:
    commit = git(root, "rev-parse", "HEAD")
    if git(root, "status", "--porcelain"):
        print("the changes in this checkout that are in no commit are not part of what is checked")
    places = work / "one place", work / "quite-another" / "place"
    source = (root / "docs" / "manual.ja.md").read_text(encoding="utf-8")
    first = package(root, places[0], work / "first", commit, 0o077, TZ="Asia/Tokyo",
                    LC_ALL="ja_JP.UTF-8")
    second = package(root, places[1], work / "second", commit, 0o002, TZ="America/New_York",
                     LC_ALL="C", CXXFLAGS="-O1")
    problems = check_release(first, commit, source) + compare(first, second)
    for place in places:
        problems += find_path(first, place) + find_path(second, place)
    for release in first, second:
        print(release["SHA256SUMS"].decode(), end="")
    for problem in problems:
        print(problem)
    print(f"{len(first)} files, the second time {len(second)}, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()))

"""What git tracks in the project."""

import pathlib
import re
import subprocess


def shell_scripts(project: pathlib.Path) -> set[str]:
    """Paths from the project's folder."""
    names = subprocess.run(["git", "-C", project, "ls-files", "-z"], capture_output=True, check=True, text=True).stdout
    return {name for name in names.split("\0") if name and is_shell_script(project / name)}


def is_shell_script(path: pathlib.Path) -> bool:
    with path.open("rb") as file:
        return path.suffix == ".sh" or re.fullmatch(rb"#!.*\b(ba)?sh\n", file.readline()) is not None

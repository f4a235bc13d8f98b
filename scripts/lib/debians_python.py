"""Modules from Debian's packages, which only Debian's own Python has; another Python may come first in PATH."""

import importlib.util
import os
import pathlib
import sys

DEBIANS_PYTHON = "/usr/bin/python3"


def has(module: str) -> bool:
    """Whether the module is there. If this Python lacks it, starts the script again with Debian's."""
    if importlib.util.find_spec(module) is not None:
        return True
    if sys.executable == DEBIANS_PYTHON or not os.path.exists(DEBIANS_PYTHON):
        return False
    sys.stdout.flush()
    os.environ["TOLVANE_PYTHON"] = DEBIANS_PYTHON
    run = str(pathlib.Path(__file__).resolve().parent / "python-run")
    os.execv(run, [run, *sys.argv])

"""Processes that tests start."""

import contextlib
import os
import signal
import subprocess
import unittest


def start(test: unittest.TestCase, words: list[str], **how) -> subprocess.Popen:
    """In a session of its own, which ends with the test."""
    process = subprocess.Popen(words, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True,
                               start_new_session=True, **how)
    test.addCleanup(process.communicate)
    test.addCleanup(end, process)
    return process


def end(process: subprocess.Popen) -> None:
    """With all that it started."""
    with contextlib.suppress(ProcessLookupError):
        os.killpg(process.pid, signal.SIGKILL)

#!/usr/bin/env python3
"""Tests of a demo that a signal reaches alone, without what it started: it ends at once, and the next run need not wait.
The project's folder is the argument.

What would build, and Wine, stand here as programs that a test plays."""

import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import processes

PROJECT = pathlib.Path(sys.argv.pop())
SECONDS = "86399"  # by which what the demo waits for is known
TOOLS = {
    "dpkg-query": "printf installed", "locale": "echo ja_JP.utf8", "cmake": "", "wineserver": "",
    "Xvfb": "echo 77 >&3; exec sleep 60",
    # The window is there once the program runs.
    "wine": f'''case "$*" in
        Tolvane.exe) touch "$HOME/window"; exec sleep 60 ;;
        *" wait-window "*) until [ -e "$HOME/window" ]; do sleep 0.02; done ;;
        *" wait-same "*) exec sleep {SECONDS} ;;
    esac''',
}


class Signals(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="signals ")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        shutil.copytree(PROJECT / "scripts", self.folder / "scripts")
        self.lock = self.folder / "build/wine-prefix-run.lock"
        for name in ("build/wine-prefix-run/tolvane-ready", "build/wine-prefix-run/drive_c/windows/system32/a.dll",
                     "build/wine-prefix-run/dosdevices/c:",
                     "build/windows-x64/simulator/a.dll", "build/windows-x64/program/Tolvane.exe",
                     "build/windows-x64/program/qxt100.dll", *(f"tools/{tool}" for tool in TOOLS)):
            (self.folder / name).parent.mkdir(parents=True, exist_ok=True)
            (self.folder / name).touch(mode=0o755)
        for tool, script in TOOLS.items():
            (self.folder / "tools" / tool).write_text(f"#!/bin/bash\n{script}\n", encoding="utf-8")
        self.recording = self.folder / "bus.log"
        self.recording.write_text("(1.0) can0 123#01\n", encoding="ascii")

    def connected(self, *words: str) -> subprocess.Popen:
        (self.folder / "window").unlink(missing_ok=True)
        process = processes.start(self, [str(self.folder / "scripts/demo"), *words], stderr=subprocess.STDOUT,
                                  env={"PATH": f"{self.folder}/tools:/usr/bin:/bin", "HOME": str(self.folder)})
        self.assertTrue(any(line.startswith("-- connected; ") for line in process.stdout))
        while not waiting(process.pid):
            self.assertIsNone(process.poll(), "the demo does not wait")
            time.sleep(0.02)
        return process

    def test_end_it_at_once_and_leave_the_lock_to_the_next_run(self):
        for words in (("--seconds", SECONDS), ("--seconds", SECONDS, "--every", "600"),
                      ("--still", "5", "--log", str(self.recording)),
                      ("--still", "5", "--log", str(self.recording), "--every", "600")):
            for number, status in ((signal.SIGTERM, 143), (signal.SIGKILL, -signal.SIGKILL)):
                with self.subTest(words=words, number=number):
                    process = self.connected(*words)
                    process.send_signal(number)
                    self.assertEqual(status, process.wait(timeout=20))
                    self.assertEqual(0, subprocess.run(["flock", "--timeout", "5", self.lock, "true"], check=False).returncode)
                    deadline = time.monotonic() + 10
                    while waiting(process.pid) and time.monotonic() < deadline:
                        time.sleep(0.02)
                    self.assertFalse(waiting(process.pid))


def waiting(session: int) -> bool:
    """Whether a process of the session counts the seconds."""
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        # One may end while it is looked at.
        with contextlib.suppress(OSError):
            words = (process / "cmdline").read_bytes().split(b"\0")
            if words[:2] == [b"sleep", SECONDS.encode()] and os.getsid(int(process.name)) == session:
                return True
    return False


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""Tests of scripts/lib/python-run: Ctrl-C ends a Python script without a message at any time. The
project's folder is the argument."""

import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import processes
import tracked

PROJECT = pathlib.Path(sys.argv.pop())
RUN = PROJECT / "scripts/lib/python-run"
RECORDING = "(1502984866.421964) can0 123#0102\n"


class Interruption(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="an interruption ")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def script(self, name: str, text: str) -> pathlib.Path:
        path = self.folder / name
        path.write_text(text, encoding="utf-8")
        return path

    def start(self, *words, **environment: str) -> subprocess.Popen:
        return processes.start(self, [str(word) for word in words], env=os.environ | environment,
                               stderr=subprocess.PIPE)

    def test_a_script_is_run_as_python_itself_runs_it(self):
        self.script("neighbour.py", "NAME = 'neighbour'\n")
        script = self.script("script.py", "import sys\nimport neighbour\n"
                                          "print(__name__, __file__, sys.argv, neighbour.NAME)\nsys.exit(3)\n")
        process = self.start(RUN, script, "one", "two words", "--three")
        self.assertEqual((f"__main__ {script} {[str(script), 'one', 'two words', '--three']} neighbour\n", ""),
                         process.communicate())
        self.assertEqual(3, process.returncode)
        self.assertFalse((self.folder / "__pycache__").exists())

    def test_an_interruption_while_a_script_still_imports_ends_it(self):
        began = self.folder / "began"
        self.script("slow.py", f"import pathlib, time\npathlib.Path({str(began)!r}).touch()\ntime.sleep(60)\n")
        process = self.start(RUN, self.script("script.py", "import slow\n"))
        while not began.exists():
            self.assertIsNone(process.poll())
            time.sleep(0.01)
        os.killpg(process.pid, signal.SIGINT)
        self.assertEqual(("", ""), process.communicate(timeout=20))
        self.assertEqual(-signal.SIGINT, process.returncode)

    def test_what_python_does_before_the_script_says_nothing_of_an_interruption(self):
        # Stands for the modules that Python itself reads first.
        began = self.folder / "began"
        self.script("sitecustomize.py",
                    f"import pathlib, time\npathlib.Path({str(began)!r}).touch()\ntime.sleep(0.5)\n")
        process = self.start(RUN, self.script("script.py", "print('ran')\n"), PYTHONPATH=str(self.folder))
        while not began.exists():
            self.assertIsNone(process.poll())
            time.sleep(0.01)
        os.killpg(process.pid, signal.SIGINT)
        self.assertEqual(("ran\n", ""), process.communicate(timeout=20))

    def test_every_script_starts_python_so(self):
        # Python itself may be started where Ctrl-C is ignored already.
        scripts = tracked.shell_scripts(PROJECT)
        self.assertLess({"bench/compare", "scripts/demo", "scripts/lib/python-run"}, scripts)
        for name in scripts:
            lines = (PROJECT / name).read_text(encoding="utf-8").splitlines()
            for before, line in zip(["", *lines], lines):
                if re.search(r'python3[}"]* [-"$/]', line):
                    self.assertEqual("trap '' INT", before.strip(), f"{name}: {line}")

    def test_an_interrupted_demo_says_nothing_of_python(self):
        # Stands for a disk that does not answer, so the demo waits for its reader.
        self.script("sitecustomize.py", "import builtins, time\n"
                                        "real_open = builtins.open\n"
                                        "def waiting_open(path, *rest, **how):\n"
                                        "    if str(path).endswith('recording.log'): time.sleep(600)\n"
                                        "    return real_open(path, *rest, **how)\n"
                                        "builtins.open = waiting_open\n")
        recording = self.script("recording.log", RECORDING)
        (self.folder / "project").mkdir()
        for name in ("scripts", "tests"):
            (self.folder / "project" / name).symlink_to(PROJECT / name)
        for delay in range(0, 200, 20):
            with self.subTest(milliseconds=delay):
                process = self.start(self.folder / "project/scripts/demo", "--log", recording,
                                     PYTHONPATH=str(self.folder))
                time.sleep(delay / 1000)
                # One that comes before Python can be ended ends the demo later.
                for _ in range(20):
                    os.killpg(process.pid, signal.SIGINT)
                    time.sleep(0.3)
                    if process.poll() is not None:
                        break
                self.assertEqual(("", ""), process.communicate(timeout=20))
                self.assertIn(process.returncode, (130, -signal.SIGINT))


if __name__ == "__main__":
    unittest.main()

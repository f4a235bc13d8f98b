"""What tests have in common that look at what a script says before it installs, builds or starts anything. The
project's folder is the argument.

Whatever would install, build or start stands here as a program that only leaves a trace."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

PROJECT = pathlib.Path(sys.argv.pop())
# Those without a folder are in scripts/.
SCRIPTS = ("demo", "replay-check", "log-check", "pictures", "build", "package", "test", "bench/compare", "tests/soak/run",
           "tests/fuzz/run", "tests/live/live_check", "tests/scripts/commands_check")
WITHOUT_OPTIONS = {"tests/live/live_check", "tests/scripts/commands_check"}
# Those that start Wine themselves; scripts/test does so in its stages.
WITH_WINE = ("demo", "replay-check", "log-check", "pictures", "bench/compare", "tests/soak/run", *sorted(WITHOUT_OPTIONS))
HEAVY = ("apt-get", "sudo", "dpkg-query", "cmake", "ninja", "wine", "wineserver", "Xvfb", "convert")
NOBODY = 65534
GOOD_LINE = "(1502984866.421964) can0 123#0102\n"
# What bash says on a machine without the locale, which the played `locale` says is there.
WITHOUT_LOCALE = re.compile(r"^.*: warning: setlocale: .*\(ja_JP\.UTF-8\).*\n", re.MULTILINE)


def path_of(name: str) -> str:
    return name if "/" in name else f"scripts/{name}"


class Ended:
    def __init__(self, done: subprocess.CompletedProcess, trace: pathlib.Path) -> None:
        self.status, self.said = done.returncode, done.stdout
        self.errors = WITHOUT_LOCALE.sub("", done.stderr)
        self.begun = trace.read_text().split() if trace.exists() else []


class Place(unittest.TestCase):
    """A folder with a copy of what the scripts read, and a PATH without anything heavy."""

    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)
        self.folder.chmod(0o755)
        self.project = self.folder / "a stranger's project"
        for part in ("scripts", "tests/window", "tests/traffic"):
            shutil.copytree(PROJECT / part, self.project / part, ignore=shutil.ignore_patterns("__pycache__"))
        for name in filter(lambda name: "/" in name, SCRIPTS):
            (self.project / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(PROJECT / name, self.project / name)
        self.tools = self.folder / "tools"
        self.tools.mkdir()
        self.trace = self.folder / "trace"
        for name in HEAVY:
            self.play(name, f'echo {name} >>"{self.trace}"; exit 1')

    def play(self, name: str, script: str) -> None:
        tool = self.tools / name
        tool.write_text(f"#!/bin/sh\n{script}\n")
        tool.chmod(0o755)

    def play_installed(self) -> None:
        """All packages and the locale."""
        self.play("dpkg-query", "printf installed")
        self.play("locale", "echo ja_JP.utf8")

    def file(self, name: str, content: str | bytes) -> str:
        path = self.folder / name
        path.write_bytes(content.encode() if isinstance(content, str) else content)
        return str(path)

    def run_script(self, name: str, *words: str, environment: dict[str, str] | None = None,
                   user: int | None = None, stdin: int = subprocess.DEVNULL, closed: bool = False) -> Ended:
        paths = [str(self.tools), *dict.fromkeys((os.path.dirname(sys.executable), "/usr/bin", "/bin"))]
        begin = ["bash", "-c", 'exec "$0" "$@" <&-'] if closed else []
        # A machine has the locale or not: here none has it.
        told = {"PATH": ":".join(paths), "LOCPATH": str(self.tools)} | (environment or {})
        done = subprocess.run([*begin, str(self.project / path_of(name)), *words], user=user, cwd=self.folder,
                              env=told, text=True, timeout=60, stdin=stdin, capture_output=True, check=False)
        return Ended(done, self.trace)

    def refuses(self, sentence: str, name: str, *words: str, **how) -> None:
        """One line on the error output, before anything heavy has begun."""
        ended = self.run_script(name, *words, **how)
        self.assertRegex(ended.errors, rf"\Aerror: {sentence}\n\Z", (name, words))
        self.assertEqual((1, "", []), (ended.status, ended.said, ended.begun), (name, words))

"""A folder with recordings, each made ready for the bench by scripts/lib/ready_recording.py."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest


class Readied(unittest.TestCase):
    lib: str  # the script's folder

    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="a folder ")
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)
        self.converted = self.folder / "converted"

    def file(self, name: str, content: bytes | str) -> str:
        path = self.folder / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return str(path)

    def run_on(self, path: str, *words: str) -> tuple[int, str, str]:
        command = [sys.executable, "-B", os.path.join(self.lib, "ready_recording.py"), *words, path, str(self.converted)]
        done = subprocess.run(command, capture_output=True, text=True, encoding="utf-8", check=False)
        # A busy machine is slow enough for lines of progress.
        errors = [line for line in done.stderr.splitlines(keepends=True) if not line.startswith("-- reading ")]
        return done.returncode, done.stdout, "".join(errors)

    def facts(self, path: str, *words: str) -> dict[str, str]:
        status, out, errors = self.run_on(path, *words)
        self.assertEqual((0, ""), (status, errors))
        return dict(line.split(" ", 1) for line in out.splitlines())

    def played(self, path: str) -> list[str]:
        """The lines that the bench gets."""
        return pathlib.Path(self.facts(path)["play"]).read_text(encoding="ascii").splitlines()

    def refuses(self, said: str, path: str, *words: str) -> None:
        status, out, errors = self.run_on(path, *words)
        self.assertEqual((1, ""), (status, out))
        self.assertRegex(errors, rf"\Aerror: [^\n]*{said}[^\n]*\n\Z")

"""A machine that is played: the scripts stand in a folder of their own, which has a blank in its name, and
find a few of this machine's tools and others that a test plays."""

import pathlib
import shutil
import subprocess
import tempfile
import unittest

# From this machine.
TOOLS = ("bash", "cat", "cut", "dirname", "env", "flock", "getent", "grep", "iconv", "ln", "mkdir", "mktemp", "realpath",
         "rm", "sh", "sleep", "tail", "touch")


class PlayedMachine(unittest.TestCase):
    project: pathlib.Path

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="played machine ")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "scripts").symlink_to(self.project / "scripts")
        self.bin = self.folder / "bin"
        self.bin.mkdir()
        for tool in TOOLS:
            (self.bin / tool).symlink_to(shutil.which(tool))
        self.play("id", "echo 0")

    def play(self, tool: str, script: str) -> None:
        path = self.bin / tool
        path.write_text(f"#!{shutil.which('bash')}\n{script}\n", encoding="utf-8")
        path.chmod(0o755)

    def remove(self, tool: str) -> None:
        (self.bin / tool).unlink()

    def bash(self, script: str, *libraries: str, **environment: str) -> tuple[int, list[str]]:
        """Status and what was said, without a terminal."""
        sources = "".join(f'source "$root/scripts/lib/{library}.sh"\n' for library in libraries)
        done = subprocess.run([shutil.which("bash"), "-c",
                               f'source "{self.folder}/scripts/lib/common.sh"\n{sources}{script}'],
                              env={"PATH": str(self.bin), "HOME": str(self.folder), "TMPDIR": str(self.folder)} | environment,
                              start_new_session=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=60, check=False)
        return done.returncode, done.stdout.splitlines()

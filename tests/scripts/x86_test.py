#!/usr/bin/env python3
"""Tests of scripts/lib/x86.sh and of its programs in arch.sh, with a root that is played: its process runs what would run
there. The argument is the project's folder."""

import pathlib
import subprocess
import sys
import time
import unittest

import processes
from played_machine import PlayedMachine

PlayedMachine.project = pathlib.Path(sys.argv.pop())
# The root's number comes as from the real one; what comes before the command describes the root.
ROOT = """x86_describe() { x86_entry=() x86_environment=(); }
debian_root_start() {
  echo 4711 >"$2"
  "${@:4}" &
  debian_root_process=$!
  at_exit debian_root_leave
}
debian_root_leave() { kill "$debian_root_process" 2>/dev/null; wait "$debian_root_process" || true; }
"""
STAY = 'x86_stay && echo "stayed ${TOLVANE_X86_ROOT:-}" || echo failed\n'


class Stay(PlayedMachine):
    def setUp(self):
        super().setUp()
        # The scripts' folder is a link, so the one program that is played has a folder of its own.
        self.libraries = self.folder / "scripts"
        self.libraries.unlink()
        lib = self.libraries / "lib"
        lib.mkdir(parents=True)
        for path in (self.project / "scripts/lib").iterdir():
            if path.name != "wine-run":
                (lib / path.name).symlink_to(path)
        (self.folder / "build").mkdir()

    def wine_run(self, script: str) -> None:
        path = self.libraries / "lib/wine-run"
        path.write_text(f"#!/bin/bash\n{script}\n", encoding="utf-8")
        path.chmod(0o755)

    def stay(self, text: str = STAY) -> tuple[int, list[str]]:
        return self.bash(ROOT + text, "packages", "x86")

    def left(self) -> list[str]:
        return sorted(path.name for path in (self.folder / "build").iterdir())

    def test_a_wine_that_ends_at_once_is_told(self):
        self.wine_run("exit 1")
        self.assertEqual((0, ["failed"]), self.stay())
        self.assertEqual([], self.left())

    def test_a_wine_that_never_answers_is_told(self):
        self.wine_run("exec sleep 3")
        self.assertEqual((0, ["failed"]), self.stay("wine_patience=1\n" + STAY))

    def test_a_wine_that_answers_stays(self):
        self.wine_run('read -r _ word; echo "$word"; cat >/dev/null')
        names = 'echo "$build"/*\n'
        status, said = self.stay(STAY + names + 'kill -0 "$debian_root_process" && echo runs')
        self.assertEqual((0, "stayed 4711", "runs"), (status, said[0], said[-1]))
        self.assertRegex(said[1], r"/build/x86-root-\d+\.answers .*/build/x86-root-\d+\.process$")
        self.assertEqual([], self.left())


class Resolution(PlayedMachine):
    def test_the_root_has_that_of_the_caller_and_a_prefix_for_it(self):
        for dpi, ending in (("144", "-144"), ("", "")):
            said = self.bash(f"export TOLVANE_DPI={dpi}\n" 'source "$root/scripts/lib/x86.sh"; x86_describe; '
                             'printf "%s\\n" "${x86_environment[@]}"', "packages")[1]
            self.assertIn(f"TOLVANE_DPI={dpi}", said)
            self.assertIn(f"TOLVANE_WINE_PREFIX={self.folder}/build/wine-prefix-x86{ending}", said)


class Killed(PlayedMachine):
    def test_the_root_ends_though_a_program_runs_on(self):
        """As long as something holds its input, the root stays."""
        began, left = self.folder / "began", self.folder / "left"
        self.play("sudo", 'exec "$@"')
        self.play("mountpoint", "exit 1")
        self.play("unshare", f'case "$*" in *true) exit 1 ;; esac; read -r _; echo left >"{left}"')
        self.play("nsenter", f'echo began >"{began}"; exec sleep 50')
        for start in ("arch_begin program; wait", "arch_run program"):
            with self.subTest(start):
                for path in (began, left):
                    path.unlink(missing_ok=True)
                process = processes.start(self, ["bash", "-c", f'''source "{self.folder}/scripts/lib/common.sh"
                    for name in packages arch; do source "$root/scripts/lib/$name.sh"; done
                    debian_root_start "$build/a root" true-for-ever
                    arch_of_session=x86
                    export TOLVANE_X86_ROOT=4711
                    {start}'''], env={"PATH": str(self.bin), "HOME": str(self.folder), "TMPDIR": str(self.folder)},
                                          stderr=subprocess.STDOUT)
                self.wait_for(began)
                self.assertFalse(left.exists())
                process.kill()
                self.wait_for(left)

    def wait_for(self, path: pathlib.Path) -> None:
        for _ in range(500):
            if path.exists():
                return
            time.sleep(0.02)
        self.fail(f"{path.name} does not come")


if __name__ == "__main__":
    unittest.main()

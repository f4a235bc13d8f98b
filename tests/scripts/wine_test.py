#!/usr/bin/env python3
"""Tests of scripts/lib/wine.sh with a Wine that is played: what keeps Wine's services running, and what a script that
has Wine's lock waits for. The argument is the project's folder."""

import os
import pathlib
import re
import signal
import subprocess
import sys
import time
import unittest

import processes
from played_machine import PlayedMachine

PlayedMachine.project = pathlib.Path(sys.argv.pop())
# Answers as a command interpreter does, which has its first look at its input after a while.
LATE = 'sleep 0.5; read -r line; echo "services run" >>"$HOME/told"; echo "${line##* }"; cat >/dev/null'
STAY = "wine_stay || echo failed\necho stayed >>\"$HOME/told\""


class Services(PlayedMachine):
    def setUp(self):
        super().setUp()
        self.play("setpriv", 'shift 2; exec "$@"')

    def told(self) -> list[str]:
        return (self.folder / "told").read_text(encoding="utf-8").splitlines()

    def test_they_run_before_anything_else_is_started(self):
        self.play("wine", LATE)
        self.assertEqual((0, []), self.bash(STAY, "wine"))
        self.assertEqual(["services run", "stayed"], self.told())

    def test_a_wine_that_ends_at_once_is_told(self):
        self.play("wine", "exit 1")
        self.assertEqual((0, ["failed"]), self.bash(STAY, "wine"))

    def test_one_that_never_answers_is_told(self):
        self.play("wine", "exec sleep 3")
        self.assertEqual((0, ["failed"]), self.bash("wine_patience=1\n" + STAY, "wine"))

    def test_a_signal_meanwhile_leaves_no_file(self):
        self.assertEqual(143, self.bash('wine() { kill "$$"; sleep 3; }\n' + STAY, "wine")[0])
        self.assertEqual([], list(self.folder.glob("tmp.*")))

    def test_a_program_leaves_no_entries_in_the_users_menus(self):
        self.play("wine", 'echo "$WINEDLLOVERRIDES" >>"$HOME/told"; [ "$*" != "wineboot --init" ]')
        self.assertEqual(1, self.bash('wine x; WINEPREFIX=$HOME/prefix wine_make_template', "wine")[0])
        self.assertEqual(["winemenubuilder.exe=d", "winemenubuilder.exe=d;mscoree,mshtml="], self.told())

    def test_the_status_of_a_driver_that_fails_is_told(self):
        for status, said in ((53, ["tolvane_drive ended with 53"]), (1, ["tolvane_drive ended with 1"]), (0, [])):
            self.play("wine", f"exit {status}")
            self.assertEqual((status, said), self.bash("drive close", "wine", "program"))

    def template(self, regedit: str) -> tuple[int, list[str]]:
        """Makes a template with a Wine whose editor of the registry does this."""
        self.play("cp", "exit 0")
        self.play("wineserver", "exit 0")
        self.play("wine", f"""case $1 in
            regedit) {regedit} ;;
        esac""")
        return self.bash("WINEPREFIX=$HOME/prefix wine_make_template", "wine")

    def test_a_run_never_reads_the_disk_below_z(self):
        prefix = self.folder / "prefix"
        template = self.folder / "build/wine-prefix-template"
        template.mkdir(parents=True)
        (template / "tolvane-template").touch()
        for tool in ("cp", "tar"):
            self.play(tool, 'mkdir -p "$WINEPREFIX/dosdevices"')
        self.assertEqual((0, []), self.bash("WINEPREFIX=$HOME/prefix wine_make_prefix", "wine"))
        self.assertEqual("/dev/null", os.readlink(prefix / "dosdevices/z::"))

    def test_a_registry_that_is_refused_or_interrupted_leaves_no_file(self):
        for regedit, status in (("exit 1", 1), ('kill "$PPID"', 143)):
            self.assertEqual(status, self.template(regedit)[0])
            self.assertEqual([], list(self.folder.glob("tmp.*")))

    def test_a_display_that_does_not_start_leaves_no_file(self):
        for tool, script in (("setsid", 'exec "$@"'), ("Xvfb", "exit 1")):
            self.play(tool, script)
        self.assertEqual((1, ["error: the X server Xvfb does not start"]), self.bash("display_start", "wine"))
        self.assertEqual([], list(self.folder.glob("tmp.*")))


class Waiting(PlayedMachine):
    def pausing(self) -> tuple[subprocess.Popen, pathlib.Path, int]:
        """A script that has Wine's lock and pauses, the lock, and the process that counts the seconds."""
        lock = self.folder / "lock"
        process = processes.start(self, ["bash", "-c", f'''source "{self.folder}/scripts/lib/common.sh"
            source "$root/scripts/lib/wine.sh"
            catch_the_end
            lock_open "{lock}"
            wine_lock=$lock_descriptor
            flock "$wine_lock"
            echo locked
            pause 600'''])
        self.assertEqual("locked\n", process.stdout.readline())
        children = pathlib.Path(f"/proc/{process.pid}/task/{process.pid}/children")
        for _ in range(500):
            for child in children.read_text(encoding="ascii").split():
                if pathlib.Path(f"/proc/{child}/comm").read_text(encoding="ascii") == "sleep\n":
                    return process, lock, int(child)
            time.sleep(0.02)
        self.fail("the script does not pause")

    def test_a_signal_to_the_script_alone_acts_at_once(self):
        for number, status in ((signal.SIGTERM, 143), (signal.SIGKILL, -signal.SIGKILL)):
            process, lock, sleeper = self.pausing()
            process.send_signal(number)
            self.assertEqual(status, process.wait(timeout=20))
            self.assertEqual(0, subprocess.run(["flock", "-n", lock, "true"], check=False).returncode)
            for _ in range(500):
                if not pathlib.Path(f"/proc/{sleeper}").exists():
                    break
                time.sleep(0.02)
            self.assertFalse(pathlib.Path(f"/proc/{sleeper}").exists())

    def test_no_script_with_the_lock_sleeps_with_it(self):
        for name in ("scripts/demo", "scripts/log-check", "scripts/pictures", "scripts/replay-check", "tests/soak/run",
                     "bench/compare"):
            self.assertIsNone(re.search(r"^ *sleep ", (self.project / name).read_text(encoding="utf-8"), re.M), name)


if __name__ == "__main__":
    unittest.main()

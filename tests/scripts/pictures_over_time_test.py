#!/usr/bin/env python3
"""Tests of scripts/demo --every without a program: no picture is taken before its time. The argument is the project's
folder."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

PROJECT = pathlib.Path(sys.argv.pop())
# Begins at the end of a second, where whole seconds count one that has hardly begun. A run of 2.5 seconds.
SCRIPT = r"""
eval "$(sed -n '/^stay_with_pictures() {$/,/^}$/p' "$1/scripts/demo")"
declare -A opt=([every]=1)
folder=$2
at_exit() { :; }
pause() { sleep "$1"; }
begin_stay() { sleep 2.5 & }
drive_watched() { wait "$1"; }
microseconds() { printf '%s\n' "${EPOCHREALTIME/[.,]/}"; }
drive_leave() {
  touch "$1/$2.png" "$1/$2.txt"
  printf '%s %s\n' "$2" $(($(microseconds) - began))
}
mkdir "$folder/out"
touch "$folder/out"/page-{00005-before,000123-after,00007.note,0000x}.{png,txt} "$folder/out"/page-{0001,99999,100000}.{png,txt}
until [ $(($(microseconds) % 1000000 / 100000)) -eq 8 ]; do sleep 0.02; done
began=$(microseconds)
stay_with_pictures "$folder/out"
"""


class Every(unittest.TestCase):
    def test_no_picture_is_early(self):
        with tempfile.TemporaryDirectory() as folder:
            done = subprocess.run(["bash", "-c", SCRIPT, "bash", PROJECT, folder], capture_output=True, text=True,
                                  timeout=60, check=True)
            left = sorted(path.name for path in pathlib.Path(folder, "out").iterdir())
        self.assertEqual("", done.stderr)
        users = {f"page-{name}{end}" for name in ("00005-before", "000123-after", "00007.note", "0000x", "0001")
                 for end in (".png", ".txt")}
        self.assertEqual(users, users & set(left), "a user's own file was removed")
        left = sorted(set(left) - users)
        taken = {name: int(time) for name, time in map(str.split, done.stdout.splitlines())}
        self.assertIn("page-00001", taken)
        self.assertEqual(sorted(name + end for name in taken for end in (".png", ".txt")), left)
        for name, time in taken.items():
            self.assertGreaterEqual(time, int(name[-5:]) * 1_000_000)


if __name__ == "__main__":
    unittest.main()

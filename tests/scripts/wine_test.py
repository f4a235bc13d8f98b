#!/usr/bin/env python3
"""Tests of scripts/lib/wine.sh with a Wine that is played: what keeps Wine's services running. The argument is
the project's folder."""

import pathlib
import sys
import unittest

from played_machine import PlayedMachine

PlayedMachine.project = pathlib.Path(sys.argv.pop())
# Answers as a command interpreter does, which has its first look at its input after a while.
LATE = 'sleep 0.5; read -r _ word; echo "services run" >>"$HOME/told"; echo "$word"; cat >/dev/null'
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


if __name__ == "__main__":
    unittest.main()

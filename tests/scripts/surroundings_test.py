#!/usr/bin/env python3
"""Tests of what scripts/lib/common.sh makes of its surroundings, on a machine that is played: the home folder and
what git says. The argument is the project's folder."""

import pathlib
import sys
import unittest

from played_machine import PlayedMachine

PlayedMachine.project = pathlib.Path(sys.argv.pop())


class Home(PlayedMachine):
    def home(self) -> list[str]:
        status, said = self.bash('bash -c "printf %s \\"\\$HOME\\""', HOME="")
        self.assertEqual(0, status, said)
        return said

    def test_that_of_the_users_is_taken_where_none_is_set(self):
        self.play("getent", f'[ "$*" = "passwd 0" ] && echo "root:x:0:0:,,,:{self.folder}:/bin/sh"')
        self.assertEqual([str(self.folder)], self.home())

    def test_a_user_without_a_folder_has_that_for_temporary_files(self):
        for told in ("exit 2", "echo u:x:0:0::/nowhere/at/all:/bin/sh", "echo u:x:0:0:::/bin/sh"):
            self.play("getent", told)
            with self.subTest(told):
                self.assertEqual(["/tmp"], self.home())

    def test_a_machine_without_getent_too(self):
        self.remove("getent")
        self.assertEqual(["/tmp"], self.home())


class CommitObstacle(PlayedMachine):
    def said(self, script: str) -> list[str]:
        self.play("git", script)
        status, said = self.bash("commit_obstacle")
        self.assertEqual(0, status, said)
        return said

    def test_there_is_none_though_git_warns(self):
        self.assertEqual([], self.said("echo 1234; echo 'warning: unable to access a file' >&2"))

    def test_the_reason_stands_between_a_warning_and_an_advice(self):
        fatal = "fatal: detected dubious ownership in repository at '/x'"
        self.assertEqual([fatal], self.said(f'''printf '%s\\n' "warning: something else" "{fatal}" \\
            "To add an exception for this directory, call:" >&2; exit 128'''))

    def test_what_has_no_such_line_is_told_whole(self):
        self.assertEqual(["bus error", "core dumped"], self.said("printf 'bus error\\ncore dumped\\n' >&2; exit 135"))


if __name__ == "__main__":
    unittest.main()

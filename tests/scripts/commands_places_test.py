#!/usr/bin/env python3
"""Tests of what the scripts say of the places that they work in: folders, project, screen. The project's folder is the
argument."""

import os
import re
import subprocess
import unittest

from commands_place import GOOD_LINE, NOBODY, SCRIPTS, WITH_WINE, Place


class Places(Place):
    def test_a_search_path_for_folders_changes_nothing(self):
        done = subprocess.run(["scripts/build", "--help"], env={"PATH": "/usr/bin:/bin", "CDPATH": "."}, cwd=self.project,
                              capture_output=True, text=True, timeout=60, check=False)
        self.assertEqual((0, ""), (done.returncode, done.stderr))

    def test_a_folder_for_pictures_that_cannot_be_made_is_told(self):
        out = f"{self.file('file', '')}/out"
        for name in ("demo", "pictures"):
            self.refuses(f"the folder {re.escape(out)} cannot be written: name another with --out", name, "--out", out)

    def test_a_release_needs_a_commit(self):
        self.play_installed()
        self.refuses("a release is made of a commit, and git says: fatal: not a git repository .*", "package")

    def test_a_folder_for_pictures_is_made_when_the_recording_is_good(self):
        out = self.folder / "-new"
        for content, is_made in (("?\n", False), (GOOD_LINE, True)):
            ended = self.run_script("demo", "--log", self.file("bus.log", content), "--out=-new")
            self.assertEqual((is_made, is_made), (out.exists(), "dpkg-query" in ended.begun))
        self.assertNotIn("realpath", ended.errors + self.run_script("pictures", "--out=-new").errors)

    def test_a_project_whose_path_the_bench_cannot_be_told_is_refused(self):
        for name, reason in ((b"a\nb", "holds a line break or another control character"), (b"caf\xe9", "is not UTF-8"),
                             (b"last\n", "holds a line break or another control character")):
            self.project = self.project.rename(os.fsdecode(os.fsencode(self.folder) + b"/" + name))
            for script in SCRIPTS:
                self.refuses(rf"the path of the project \S*'[^\n]* {reason}: copy it to another place", script)
                self.assertEqual(0, self.run_script(script, "--help").status)
            self.assertFalse((self.project / "build").exists())

    def test_a_warning_of_git_does_not_come_into_a_release(self):
        self.play_installed()
        self.play("git", 'echo "warning: odd" >&2; case "$*" in *rev-parse*) echo 4711 ;; *log*) echo 1 ;; esac')
        script = self.project / "scripts/package"
        text = script.read_text()
        self.assertIn("\nlock_alone ", text)
        script.write_text(text.replace("\nlock_alone ", '\necho "of $commit"; exit\nlock_alone '))
        self.assertEqual("of 4711\n", self.run_script("package").said)

    def test_a_screen_has_one_of_four_resolutions(self):
        for name in (*WITH_WINE, "test"):
            self.refuses("TOLVANE_DPI is 96, 120, 144 or 192, not 'abc'", name, environment={"TOLVANE_DPI": "abc"})
            self.assertEqual(0, self.run_script(name, "--help", environment={"TOLVANE_DPI": "abc"}).status)

    def test_a_folder_that_cannot_be_written_is_told(self):
        if os.geteuid() == 0:
            how = {"user": NOBODY}
        else:
            self.project.chmod(0o555)
            how = {}
        for name in SCRIPTS:
            self.refuses(f"the folder {re.escape(str(self.project))}/build cannot be written: copy the project .*",
                         name, **how)

    def test_a_build_folder_of_another_place_is_told(self):
        cache = self.project / "build/windows-x64/CMakeCache.txt"
        cache.parent.mkdir(parents=True)
        cache.write_text("CMAKE_HOME_DIRECTORY:INTERNAL=/elsewhere\n")
        for name in SCRIPTS:
            self.refuses(f"{re.escape(str(self.project))}/build was made for /elsewhere and does not serve here: "
                         "remove that folder and start again", name)
        cache.write_text(f"CMAKE_HOME_DIRECTORY:INTERNAL={self.project}\n")
        self.assertIn("dpkg-query", self.run_script("demo").begun)


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""Tests of scripts/lib/packages.sh on a machine that is played: what misses is told and installed, and
what cannot be installed is told in one sentence. The argument is the project's folder."""

import pathlib
import shutil
import sys
import unittest

from played_machine import PlayedMachine

PlayedMachine.project = pathlib.Path(sys.argv.pop())
DPKG_QUERY = 'case " git shellcheck imagemagick " in *" ${!#} "*) printf installed ;; *) exit 1 ;; esac'
MISSING = "-- this machine misses these Debian packages, they are installed now: clang-format"


class Packages(PlayedMachine):
    def setUp(self):
        super().setUp()
        self.calls = self.folder / "calls"
        self.calls.touch()
        self.play("dpkg-query", DPKG_QUERY)
        self.play("locale", "echo ja_JP.utf8")
        self.play("apt-get", f'echo "$*" >>"{self.calls}"')

    def need(self, *groups: str) -> tuple[int, list[str], list[str]]:
        """Status, what was said, and what apt-get was asked to install."""
        status, said = self.bash(f"need_packages {' '.join(groups)}", "packages")
        calls = self.calls.read_text(encoding="utf-8").splitlines()
        return status, said, [call for call in calls if "install" in call]

    def test_exactly_what_misses_is_told_and_installed(self):
        self.assertEqual((0, [MISSING], ["install -y --no-install-recommends clang-format"]), self.need("checks"))

    def test_a_package_of_two_groups_is_installed_once(self):
        status, said, installed = self.need("native_tests", "windows_tests")
        self.assertEqual((0, 1, 1), (status, len(said), len(installed)))
        self.assertEqual(1, installed[0].split().count("libgtest-dev"))

    def test_each_windows_brings_its_own_compiler_alone(self):
        compilers = {"x64": "g++-mingw-w64-x86-64-posix", "x86": "g++-mingw-w64-i686-posix"}
        for arch, compiler in compilers.items():
            self.calls.write_text("")
            installed = self.need(f"build_{arch}")[2][0].split()
            self.assertEqual([compiler], [name for name in compilers.values() if name in installed])
            self.assertNotIn("binutils-mingw-w64", installed)

    def test_a_wrong_recording_is_told_before_more_than_python_is_installed(self):
        python = self.bin / "python3"
        self.play("apt-get", f"""case " $* " in *" install "*) echo "$*" >>"{self.calls}" ;; esac
            printf '#!/bin/sh\\nexec "{sys.executable}" "$@"\\n' >"{python}"; chmod +x "{python}" """)
        (self.bin / "chmod").symlink_to(shutil.which("chmod"))
        status, said = self.bash('need_recording gone.log 11', "unattended")
        self.assertEqual((1, ["error: there is no recording gone.log"]), (status, said))
        status, said = self.bash('need_recording / 11', "unattended")
        self.assertEqual((1, "error: / is a folder, and a recording is a file"), (status, said[-1]))
        self.assertEqual(["install -y --no-install-recommends python3"], self.calls.read_text().splitlines())

    def test_python3_can_is_installed_with_the_first_recording_that_needs_it(self):
        recording = self.folder / "bus.asc"
        recording.touch()
        installed = self.folder / "installed"
        # Its reader, which tells what it found, or with 3 that python3-can is missing.
        self.play("python3", f"""if [ -e "{installed}" ]; then printf 'say two frames\\nplay %s\\nids 29\\n' /a; else exit 3; fi""")
        self.play("dpkg-query", f'[ -e "{installed}" ] && printf installed')
        self.play("apt-get", f"""case " $* " in *" install "*) echo "$*" >>"{self.calls}"; touch "{installed}" ;; esac""")
        ready = f'ready_recording "{recording}"; echo "${{ready[play]}} ${{ready[ids]}}"'
        missing = "-- this machine misses these Debian packages, they are installed now: python3 python3-can"
        self.assertEqual((0, [missing, "-- two frames", "/a 29"]), self.bash(ready, "unattended"))
        self.assertEqual((0, ["-- two frames", "/a 29"]), self.bash(ready, "unattended"))
        self.assertEqual(["install -y --no-install-recommends python3 python3-can"], self.calls.read_text().splitlines())

    def test_a_machine_that_has_all_hears_nothing(self):
        self.play("dpkg-query", "printf installed")
        self.assertEqual((0, [], []), self.need("build_x64", "build_x86", "run", "checks"))

    def test_the_locale_is_found_among_many(self):
        self.play("dpkg-query", "printf installed")
        self.play("locale", "echo ja_JP.utf8; printf 'xx_XX.utf8 %s\\n' {1..100000}")
        self.assertEqual((0, [], []), self.need("run"))

    def test_old_package_lists_are_fetched_anew(self):
        self.play("apt-get", f'echo "$*" >>"{self.calls}"; case $1 in update) touch "{self.folder}/new" ;; '
                             f'install) [ -e "{self.folder}/new" ] ;; esac')
        status, said, installed = self.need("checks")
        self.assertEqual((0, [MISSING, "-- fetching the package lists"], 2), (status, said, len(installed)))

    def test_what_cannot_be_installed_is_told_with_the_reason(self):
        self.play("apt-get", '[ "$1" = --version ] || { echo "E: no way to the server"; echo "E: sorry"; exit 100; }')
        self.assertEqual((1, [MISSING, "-- fetching the package lists",
                              "error: the packages above cannot be installed: no way to the server "
                              f"(the whole output: {self.folder}/build/packages.log)"], []), self.need("checks"))

    def test_without_root_rights_and_sudo_a_sentence_says_so(self):
        self.play("id", "echo 1000")
        self.assertEqual((1, [MISSING, "error: 'apt-get' needs root rights, and this machine has no sudo: run the "
                                       "script once as root"], []), self.need("checks"))

    def test_a_refusing_sudo_is_told(self):
        self.play("id", "echo 1000")
        self.play("sudo", "echo 'sudo: you may not' >&2; exit 1")
        self.assertEqual((1, [MISSING, "sudo: you may not", "error: without root rights they cannot be installed"], []),
                         self.need("checks"))

    def test_a_machine_of_another_kind_is_told_what_to_install(self):
        self.remove("apt-get")
        self.assertEqual((1, [MISSING, "error: no apt-get here: install the packages above (or their like) by hand"],
                          []), self.need("checks"))


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""Tests of two commands at once in one checkout: the second waits and says for whom. The project's folder is
the argument.

What would install or build stands here as a program that waits until it is let go."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import threading
import time
import unittest

import processes

PROJECT = pathlib.Path(sys.argv.pop())


class Together(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="two together ")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.project = self.folder / "project"
        for name in ("scripts", "bench"):
            shutil.copytree(PROJECT / name, self.project / name)
        self.tools = self.folder / "tools"
        self.tools.mkdir()
        self.calls, self.go = self.folder / "calls", self.folder / "go"
        self.calls.touch()
        self.play("dpkg-query", "printf installed")
        self.play("locale", "echo ja_JP.utf8")
        # Whoever runs this: nothing of the machine's own is installed.
        self.play("id", "echo 0")
        self.play("sudo", "exit 1")
        self.play("git", 'case " $* " in *" status "*) ;; *) echo 1 ;; esac')

    def play(self, name: str, script: str) -> None:
        tool = self.tools / name
        tool.write_text(f"#!/bin/bash\n{script}\n", encoding="utf-8")
        tool.chmod(0o755)

    def play_waiting(self, name: str, afterwards: str) -> None:
        self.play(name, f'echo begun >>"{self.calls}"\nwhile [ ! -e "{self.go}" ]; do sleep 0.02; done\n{afterwards}')

    def start(self, *words: str) -> subprocess.Popen:
        environment = {"PATH": f"{self.tools}:/usr/bin:/bin", "HOME": str(self.folder)}
        return processes.start(self, [str(self.project / words[0]), *words[1:]], env=environment,
                               stderr=subprocess.STDOUT)

    def begun(self) -> int:
        return len(self.calls.read_text(encoding="utf-8").splitlines())

    def begin_both(self, which: str, first: tuple[str, ...], second: tuple[str, ...]) -> list[subprocess.Popen]:
        """Starts both; the second one waits then."""
        one = self.start(*first)
        self.wait_for_begun(1, one)
        other = self.start(*second)
        # One that does not wait for the first has nothing to say while its tool waits.
        deadline = threading.Timer(30, processes.end, [other])
        deadline.start()
        self.addCleanup(deadline.cancel)
        told = next((line for line in other.stdout if line.startswith("-- waiting ")), "")
        self.assertEqual(f"-- waiting for {first[0]}, process {one.pid}, which {which}\n", told)
        self.assertEqual(1, self.begun(), "the second one did not wait")
        return [one, other]

    def wait_for_begun(self, number: int, process: subprocess.Popen) -> None:
        for _ in range(1500):
            if self.begun() == number:
                return
            self.assertIsNone(process.poll(), process.args)
            time.sleep(0.02)
        self.fail(f"{process.args} does not begin")

    def the_second_waits(self, which: str, first: tuple[str, ...], second: tuple[str, ...]) -> list[str]:
        """Starts both, and lets them go once the second one waits. What each said at last."""
        both = self.begin_both(which, first, second)
        self.go.touch()
        return [process.communicate(timeout=60)[0] for process in both]

    def the_second_goes_on_when_the_first_is_killed(self, which: str, *words: str) -> None:
        """Though what the first one started runs on."""
        self.play_waiting("dpkg-query", "exit 1")
        self.play("apt-get", "exit 1")
        one, other = self.begin_both(which, words, words)
        one.kill()
        self.wait_for_begun(2, other)

    def test_two_runs_of_the_tests(self):
        self.play_waiting("dpkg-query", "exit 1")
        self.play("apt-get", "exit 1")
        for said in self.the_second_waits("runs the tests too", *2 * [("scripts/test", "--only", "fresh")]):
            self.assertIn("this machine misses these Debian packages", said)

    def test_a_killed_run_of_the_tests(self):
        self.the_second_goes_on_when_the_first_is_killed("runs the tests too", "scripts/test", "--only", "fresh")

    def test_a_signal_to_the_one_that_waits_ends_it_at_once(self):
        self.play_waiting("dpkg-query", "exit 1")
        self.play("apt-get", "exit 1")
        words = ("scripts/test", "--only", "fresh")
        other = self.begin_both("runs the tests too", words, words)[1]
        other.terminate()
        self.assertEqual(143, other.wait(timeout=20))

    def test_a_killed_measurement(self):
        self.the_second_goes_on_when_the_first_is_killed("measures too", "bench/compare", "--only", "ticks")

    def test_two_measurements(self):
        self.play_waiting("dpkg-query", "exit 1")
        self.play("apt-get", "exit 1")
        self.the_second_waits("measures too", *2 * [("bench/compare", "--only", "ticks")])

    def test_two_builds_keep_what_the_first_one_said(self):
        self.play_waiting("cmake", 'echo "$$ cannot do this"; exit 1')
        said = self.the_second_waits(f"builds in {self.project}/build/windows-x64 too", *2 * [("scripts/build",)])
        self.assertEqual([1, 1], [text.count(" cannot do this") for text in said])
        self.assertEqual(2, len({line for text in said for line in text.splitlines() if "cannot do" in line}))

    def test_two_releases(self):
        self.play_waiting("cmake", "exit 1")
        for said in self.the_second_waits("makes a release too", *2 * [("scripts/package", "x64")]):
            self.assertIn("error: the program for Windows (x64) cannot be built", said)

    def test_two_that_miss_the_same_package_install_it_once(self):
        installed = self.folder / "installed"
        self.play("dpkg-query", f'[ -e "{installed}" ] && printf installed')
        self.play("id", "echo 0")
        self.play_waiting("apt-get", f'[ "$1" != install ] || touch "{installed}"')
        self.play("cmake", "exit 1")
        first, second = self.the_second_waits("installs packages too", *2 * [("scripts/build",)])
        self.assertIn("this machine misses", first)
        self.assertNotIn("this machine misses", second)

    def test_two_that_need_the_32_bit_root_make_it_once(self):
        self.make_script("root-maker", f'''
            source "$root/scripts/lib/packages.sh"
            source "$root/scripts/lib/x86.sh"
            x86_root_ready() {{ [ -e "{self.go}" ]; }}
            x86_root_anew() {{ wait-for-it; }}
            x86_make_root && echo ready''')
        said = self.the_second_waits("makes the 32-bit root too", *2 * [("root-maker",)])
        self.assertEqual(["ready\n", "ready\n"], said)
        self.assertEqual(1, self.begun())

    def make_script(self, name: str, text: str) -> None:
        """One that may start `wait-for-it`."""
        script = self.project / name
        script.write_text(f'#!/bin/bash\nsource "{self.project}/scripts/lib/common.sh"\n{text}', encoding="utf-8")
        script.chmod(0o755)
        self.play_waiting("wait-for-it", "")

    def test_two_that_need_the_wine_prefix_make_it_once(self):
        self.play("wine", "")
        self.make_script("session", f'''
            source "$root/scripts/lib/wine.sh"
            display_start() {{ :; }}
            wine_end() {{ :; }}
            wine_prefix_ready() {{ [ -e "{self.go}" ]; }}
            wine_prepare() {{ wait-for-it; }}
            wine_session && echo ready''')
        for said in self.the_second_waits("has the Wine prefix to itself", *2 * [("session",)]):
            # A machine without the locale says so before.
            self.assertTrue(said.endswith("ready\n"), said)
        self.assertEqual(1, self.begun())

    def test_two_that_make_a_wine_prefix(self):
        self.make_script("prefix-maker", '''
            source "$root/scripts/lib/wine.sh"
            wine_make_prefix() { wait-for-it; }
            wine_prepare && echo ready''')
        said = self.the_second_waits("makes a Wine prefix too", *2 * [("prefix-maker",)])
        self.assertEqual(["ready\n", "ready\n"], said)


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""Tests of scripts/lib/debian_root.sh on a machine that is played: why a root cannot be made or entered. The
argument is the project's folder. What needs a real root is seen in the stages `x86` and `fresh`."""

import pathlib
import shutil
import sys
import unittest

from played_machine import PlayedMachine

PlayedMachine.project = pathlib.Path(sys.argv.pop())
REASON = 'debian_root_make "$build/a root" amd64 || debian_root_reason'


class DebianRoot(PlayedMachine):
    def setUp(self):
        super().setUp()
        for tool in ("debootstrap", "unshare"):
            self.play(tool, "exit 0")
        self.play("mountpoint", "exit 1")

    def obstacle(self) -> list[str]:
        status, said = self.bash("debian_root_obstacle", "packages", "debian_root")
        self.assertEqual(0, status, said)
        self.assertEqual([], list((self.folder / "build").glob("root-probe*")))
        return said

    def test_there_is_none_where_everything_is_allowed(self):
        self.assertEqual([], self.obstacle())

    def test_a_user_without_sudo(self):
        self.play("id", "echo 1000")
        self.assertEqual(["it needs root rights, and this machine has no sudo"], self.obstacle())

    def test_a_user_whom_sudo_refuses(self):
        self.play("id", "echo 1000")
        self.play("sudo", "echo 'We trust you have received'; echo 'sudo: a password is required' >&2; exit 1")
        self.assertEqual(["it needs root rights, and sudo says: sudo: a password is required"], self.obstacle())

    def test_a_user_whom_sudo_refuses_and_reports(self):
        self.play("id", "echo 1000")
        self.play("sudo", "echo 'u is not in the sudoers file.'; "
                          "echo 'This incident has been reported to the administrator.'; exit 1")
        self.assertEqual(["it needs root rights, and sudo says: u is not in the sudoers file."], self.obstacle())

    def test_a_user_whom_sudo_serves(self):
        self.play("id", "echo 1000")
        self.play("sudo", '[ "$1" != -n ] || shift; exec "$@"')
        self.play("true", "exit 0")
        self.assertEqual([], self.obstacle())

    def test_a_user_whom_sudo_asks_each_time(self):
        self.play("id", "echo 1000")
        self.play("sudo", '[ "$1" != -n ] || { echo "sudo: a password is required"; exit 1; }; exec "$@"')
        self.play("true", "exit 0")
        self.assertEqual(["it needs root rights, and sudo says: sudo: a password is required"], self.obstacle())

    def test_sudo_hands_the_proxies_on(self):
        self.play("id", "echo 1000")
        self.play("sudo", 'exec env -i PATH="$PATH" "$@"')
        self.assertEqual((0, ["far:3128 near"]),
                         self.bash("as_root bash -c 'echo \"$http_proxy $no_proxy\"'", http_proxy="far:3128", no_proxy="near"))

    def test_a_missing_tool(self):
        self.remove("debootstrap")
        self.assertEqual(["debootstrap is not installed"], self.obstacle())

    def test_a_tool_of_administrators_is_found_by_a_user(self):
        (self.folder / "sbin").mkdir()
        (self.bin / "debootstrap").rename(self.folder / "sbin/debootstrap")
        self.assertEqual([], self.obstacle())

    def test_forbidden_namespaces(self):
        self.play("unshare", "echo 'unshare: unshare failed: Operation not permitted' >&2; exit 1")
        self.assertEqual(["a root cannot be entered here: unshare: unshare failed: Operation not permitted"],
                         self.obstacle())

    def test_a_chroot_whose_mounts_cannot_be_made_private_is_none(self):
        self.play("unshare", 'case "$*" in *"propagation private"*) exit 1 ;; *"propagation unchanged"*) exit 0 ;; '
                             "*) exit 1 ;; esac")
        self.assertEqual([], self.obstacle())

    def test_a_root_that_cannot_be_made_is_told_with_the_first_complaint(self):
        self.play("debootstrap", "echo 'I: begun'; echo 'E: no such mirror'; echo 'W: sorry'; exit 1")
        status, said = self.bash(REASON, "packages", "debian_root")
        self.assertEqual((0, [f"no such mirror (the whole output: {self.folder}/build/roots/bookworm-amd64.log)"]),
                         (status, said[1:]))
        self.assertEqual([], list(self.folder.glob("build/roots/*.tar*")))

    def test_debootstrap_meets_no_blank(self):
        self.play("debootstrap", f'printf "%s\\n" "$@" >"{self.folder}/called"; exit 1')
        self.bash(REASON, "packages", "debian_root")
        *options, release, folder = (self.folder / "called").read_text(encoding="utf-8").splitlines()
        self.assertEqual((["--variant=minbase", "--arch=amd64"], "bookworm"), (options, release))
        self.assertNotIn(" ", folder.removeprefix(str(self.folder)))

    def test_debootstrap_has_the_proxy_of_apts_settings_or_of_the_environment(self):
        self.play("debootstrap", f'echo "${{http_proxy:-none}}" >"{self.folder}/called"; exit 1')
        for environment, setting, proxy in ({}, "set:1", "set:1"), ({"http_proxy": "a:1"}, "set:1", "set:1"), \
                ({"http_proxy": "a:1"}, "", "a:1"), ({"http_proxy": "a:1"}, "DIRECT", "none"), ({}, "", "none"):
            self.play("apt-config", f"[ -z '{setting}' ] || echo \"$2='{setting}'\"")
            self.bash(REASON, "packages", "debian_root", **environment)
            self.assertEqual(proxy, (self.folder / "called").read_text(encoding="utf-8").strip())

    def test_the_root_has_the_proxies_of_this_machines_environment_and_of_its_settings(self):
        for tool in ("cp", "tee"):
            (self.bin / tool).symlink_to(shutil.which(tool))
        self.play("apt-config", """echo 'Acquire::http::Proxy "set";'; echo 'APT::Other "1";'""")
        settings = self.folder / "etc/apt/apt.conf.d"
        settings.mkdir(parents=True)
        for environment, first in (({"http_proxy": "a:1", "https_proxy": "b:2"},
                                    ['Acquire::http::Proxy "a:1";', 'Acquire::https::Proxy "b:2";']),
                                   ({"http_proxy": ""}, [])):
            status, said = self.bash('debian_root_network "$HOME"', "packages", "debian_root", **environment)
            self.assertEqual((0, []), (status, said))
            self.assertEqual([*first, 'Acquire::http::Proxy "set";'],
                             (settings / "00machine").read_text(encoding="utf-8").splitlines())

    def test_an_interruption_leaves_no_file(self):
        self.play("chroot", "exit 0")
        (self.bin / "tee").symlink_to(shutil.which("tee"))
        self.play("debootstrap", 'mkdir -p "${!#}/etc/dpkg/dpkg.cfg.d"')
        # One after the other, the last one first.
        for tool in ("tar", "debootstrap"):
            self.play(tool, 'kill "$PPID"; sleep 1')
            with self.subTest(tool):
                self.assertEqual(143, self.bash(REASON, "packages", "debian_root")[0])
                self.assertEqual([], list(self.folder.glob("tmp.*")))
                self.assertEqual([], list(self.folder.glob("build/roots/*.tar*")))

    def test_an_interrupted_look_for_obstacles_leaves_no_file(self):
        for signal, status in ("TERM", 143), ("INT", 130):
            self.play("unshare", f'case "$*" in *--pid*) kill -{signal} -- -$$; kill -{signal} 0; sleep 5 ;; esac')
            with self.subTest(signal):
                self.assertEqual(status, self.bash("at_exit :\nsaid=$(debian_root_obstacle)", "packages", "debian_root")[0])
                self.assertEqual([], list(self.folder.glob("build/root-probe*")))

    def test_a_root_is_left_though_what_runs_there_keeps_its_input(self):
        self.play("sudo", 'exec "$@"')
        self.play("unshare", 'case "$*" in *true) exit 1 ;; esac; read -r _; echo left')
        self.play("mountpoint", "exit 1")
        status, said = self.bash("""debian_root_start "$build/a root" sleep infinity
            sleep 30 >/dev/null 2>&1 &
            debian_root_leave
            kill "$!\"""", "packages", "debian_root")
        self.assertEqual((0, ["left"]), (status, said))


if __name__ == "__main__":
    unittest.main()

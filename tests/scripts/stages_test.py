#!/usr/bin/env python3
"""Tests of scripts/test and its stages. The argument is the project's folder."""

import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import tracked

PROJECT = pathlib.Path(sys.argv.pop())
STAGES = "checks unit sanitizers fuzz soak commands wine window replay logs x86 release fresh"
NO_WINE = {"wine", "wine64", "wine32", "xvfb"}
# What the end of a process takes at most on a busy machine, in seconds.
PATIENCE = 30
X64, X86 = "g++-mingw-w64-x86-64-posix", "g++-mingw-w64-i686-posix"
NO_WINDOWS = NO_WINE | {X64, X86}
# The stages that start scripts, each with what starts and counts one.
COMMAND_STAGES = {"commands": "count_command", "replay": "replay_case", "logs": "log_case"}

# Tells its process.
TELL_AND_STAY = '''tell_and_stay() {
    bash -c 'echo $$ >"$0.new"; mv "$0.new" "$0"; exec sleep 1000' "$results/inner"
}
'''


def run(*arguments: str) -> subprocess.CompletedProcess:
    return subprocess.run([PROJECT / "scripts/test", *arguments], capture_output=True, text=True, timeout=60)


class Stages(unittest.TestCase):
    def setUp(self):
        # The scripts under another path, so that their build folder is another one too.
        folder = tempfile.TemporaryDirectory(prefix="stages test ")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "scripts").symlink_to(PROJECT / "scripts")

    def start(self, text: str, *before: str, **how) -> subprocess.Popen:
        libraries = "".join(f'source "$root/scripts/lib/{name}.sh"\n'
                            for name in ("packages", "compile", "stages", "stage_release", "stage_fresh"))
        process = subprocess.Popen([*before, "bash", "-c", f'source "{self.folder}/scripts/lib/common.sh"\n{libraries}'
                                    f'at_exit stop_running\n{text}'],
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **how)
        # A failed test leaves nothing that waits for ever.
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def bash(self, text: str) -> str:
        process = self.start(text)
        output = process.communicate(timeout=60)[0]
        self.assertEqual(0, process.returncode, output)
        return output

    def packages_of(self, stage: str) -> set[str]:
        return set(self.bash(f'for group in $(stage_groups {stage}); do list=packages_$group; echo ${{!list}}; done')
                   .split())

    def test_every_stage_has_its_function_and_its_groups(self):
        self.assertEqual(STAGES, " ".join(self.bash("all_stages").split()))
        self.bash('for stage in $(all_stages); do declare -F "stage_$stage"; done')
        self.bash('for group in $(stage_groups $(all_stages)); do list=packages_$group; : "${!list:?}"; done')

    def test_the_stage_of_the_commands_has_the_packages_that_their_check_needs(self):
        needed = re.search("^need_packages (.*)$", (PROJECT / "tests/scripts/commands_check").read_text(), re.MULTILINE)
        self.assertEqual(needed[1], self.bash("stage_groups commands").strip())
        self.assertIn("foreign_recordings", needed[1].split(), "a recording of another tool is played")

    def test_what_is_built_by_name_is_built_by_a_stage(self):
        for stage, targets in {"unit": "native", "sanitizers": "native-sanitize", "x86": "windows-x86",
                               "soak": "native soak_tests tolvane_soak benchmarks",
                               "wine": "windows-x64 all benchmarks"}.items():
            said = self.bash(f'''need_wine() {{ :; }}
                x86_obstacle() {{ :; }}
                x86_make_root() {{ :; }}
                display_start() {{ :; }}
                source() {{ :; }}
                build_all() {{ echo "$*"; return 1; }}
                stage_{stage} || true''')
            self.assertEqual([targets], said.splitlines(), stage)

    def test_every_suite_of_the_soaks_own_tests_is_in_its_stage_and_in_no_other(self):
        folder = PROJECT / "tests/soak"
        entries = re.search(r"tolvane_test\(soak_tests (?:ENTRIES (\S+) )?", (folder / "CMakeLists.txt").read_text())[1] or ""
        suites = {entries + name for path in folder.glob("*_test.cpp")
                  for name in re.findall(r"^(?:TEST|TEST_F|INSTANTIATE_TEST_SUITE_P)\((\w+),", path.read_text(), re.M)}
        self.assertIn(entries + "NumberedLogs", suites)
        self.assertIn(entries + "Modes", suites)
        for stage in ("checks", "unit", "sanitizers", "soak", "fuzz"):
            chosen = self.bash(f'''build_all() {{ :; }}
                configure_preset() {{ :; }}
                count_command() {{ :; }}
                run_ctest() {{ printf '%s\\n' "${{@: -2}}"; }}
                stage_{stage}''').splitlines()
            self.assertIn(chosen[0], ("-R", "-E"), stage)
            ran = {name for name in suites if bool(re.search(chosen[1], name)) == (chosen[0] == "-R")}
            self.assertEqual(suites if stage == "soak" else set(), ran, stage)

    def test_a_whole_run_leaves_three_stages_to_the_fresh_root(self):
        self.assertEqual([stage for stage in STAGES.split() if stage not in ("checks", "unit", "soak")],
                         self.bash("stages_of_whole_run").split())
        commands = self.bash('''count_command() { echo "$*"; touch "$results/$1.log"; }
            fresh_clone() { :; }
            fresh_make_user() { :; }
            debian_root_make() { :; }
            debian_root_remove() { :; }
            mkdir -p "$results"
            fresh_in_root''')
        for stage in ("checks", "unit", "soak"):
            self.assertIn(f"fresh-{stage} fresh_test {stage}\n", commands)

    def test_what_was_left_to_a_root_that_cannot_be_made_runs_without_it(self):
        for left, ran in (("unit soak", ["unit", "soak"]), ("", [])):
            said = self.bash(f'''left_to_fresh=({left})
                fresh_obstacle() {{ echo no roots here; }}
                need_packages() {{ :; }}
                run_stage() {{ echo "ran $1"; }}
                stage_fresh; echo "$skipped"''').splitlines()
            self.assertEqual(["-- skipped: fresh: no roots here", *(f"ran {stage}" for stage in ran), "1"], said)

    def test_a_stage_left_to_the_root_that_finds_no_packages_fails_and_the_next_one_runs(self):
        said = self.bash("""left_to_fresh=(checks unit)
            fresh_obstacle() { echo no roots here; }
            need_packages() { [[ $* != *foreign* ]] || fail without root rights they cannot be installed; }
            run_stage() { echo "ran $1"; }
            stage_fresh; echo "$failed $skipped\"""").splitlines()
        self.assertEqual(["-- skipped: fresh: no roots here",
                          "-- failed: checks: its packages cannot be installed", "ran unit", "1 1"],
                         [line for line in said if not line.startswith("error: ")])
        self.assertIn("error: without root rights they cannot be installed", said)

    def test_a_root_without_a_way_to_packages_is_skipped(self):
        said = self.bash("""left_to_fresh=(unit)
            fresh_obstacle() { :; }
            debian_root_make() { debian_root_log=$build/root.log; mkdir -p "$1"; }
            debian_root_remove() { rm -r "$1"; echo removed; }
            debian_root_enter() { echo "W: old"; echo "E: no way to the server"; return 100; }
            fresh_clone() { echo cloned; }
            need_packages() { :; }
            run_stage() { echo "ran $1"; }
            stage_fresh; echo "$failed $skipped\"""").splitlines()
        self.assertEqual(["removed", "-- skipped: fresh: no packages can be fetched there: no way to the server (the whole "
                          f"output: {self.folder}/build/root.log)", "ran unit", "0 1"], said)

    def test_a_stage_begun_ahead_is_told_and_counted_in_its_turn(self):
        said = self.bash('''stages=(window release fresh)
            rights_unasked() { :; }
            stage_release() { passed=3 skipped=1; }
            stage_fresh() { exit 1; }
            begin_ahead first; begin_ahead window
            echo in the meantime
            passed=2
            for stage in release fresh; do is_ahead "$stage" && collect_stage "$stage"; done
            echo "$passed $failed $skipped"; is_ahead window || echo window is not ahead''').splitlines()
        self.assertEqual("in the meantime", said[0])
        self.assertEqual("-- stage release", said[1])
        self.assertRegex(said[2], "^-- stage release: [0-9]+ s$")
        self.assertEqual(["-- stage fresh", "-- failed: fresh ended early", "5 1 1", "window is not ahead"], said[3:])

    def test_nothing_is_begun_ahead_for_a_stage_that_is_not_chosen(self):
        said = self.bash('''stages=(window release)
            prepare_x86() { touch "$results/prepared"; }
            stage_release() { :; }
            stage_fresh() { touch "$results/freshened"; }
            begin_ahead first; begin_ahead window
            collect_stage release
            wait "${process_ahead[release]}"
            ls "$results"''').splitlines()
        self.assertEqual(["release.counts", "release.txt"], said[-2:])
        self.assertNotIn("prepared", said)

    def test_nothing_is_begun_ahead_for_a_stage_that_is_alone(self):
        said = self.bash('''stages=(release)
            stage_release() { :; }
            begin_ahead first; begin_ahead window
            is_ahead release || echo in its turn''')
        self.assertEqual("in its turn", said.strip())

    def test_chains_are_begun_beside_each_other(self):
        said = self.bash('''stages=(x86 release fresh)
            rights_unasked() { :; }
            prepare_x86() { touch "$results/prepared"; }
            stage_release() { [ -e "$results/prepared" ]; until [ -e "$results/fresh.begun" ]; do sleep 0.1; done; }
            stage_fresh() { touch "$results/fresh.begun"; until [ -e "$results/release.counts" ]; do sleep 0.1; done; }
            begin_ahead first; begin_ahead window
            for stage in release fresh; do collect_stage "$stage"; done
            echo "$failed"''')
        self.assertEqual("0", said.splitlines()[-1])

    def asking_sudo(self, remembers: str = "false") -> str:
        """A user whose sudo wants a password, each time or unless it remembers one."""
        return self.played("id", "echo 1000") + self.played("sudo", f"""
            if [ "$1" != -k ] && {remembers}; then
              [ "$1" != -n ] || shift
              exec "$@"
            fi
            case $1 in -k | -n) echo "sudo: a password is required"; exit 1 ;; esac
            read -rs word </dev/tty && echo "said $word" && exec "$@\"""")

    def test_what_would_ask_for_a_password_is_not_begun_ahead(self):
        for remembers in ("false", "true"):
            said = self.bash(self.asking_sudo(remembers) + """stages=(window x86 release fresh)
                prepare_x86() { touch "$results/prepared"; }
                stage_release() { :; }
                stage_fresh() { :; }
                begin_ahead first; begin_ahead window
                collect_stage release
                wait "${process_ahead[release]}"
                is_ahead fresh || echo fresh in its turn
                ls "$results\"""").splitlines()
            self.assertEqual(["fresh in its turn", "release.counts", "release.txt"], said[-3:], remembers)

    def test_a_password_is_asked_for_in_the_foreground_of_a_terminal_alone(self):
        # In the background the question would stop the process for ever.
        keyboard, terminal = os.openpty()
        self.addCleanup(os.close, keyboard)
        self.addCleanup(os.close, terminal)
        os.write(keyboard, b"open\n")
        process = self.start(self.asking_sudo() + """as_root echo a root
            in_group as_root echo no root || echo refused""", "setsid", "--ctty", stdin=terminal)
        said = process.communicate(timeout=60)[0].splitlines()
        self.assertEqual(["said open", "a root", "sudo: a password is required", "refused"], said)

    def expect_end_of(self, number: str) -> None:
        """Of the process that a script told before its own end; the system may take it away a moment later."""
        self.assertRegex(number, "^[0-9]+$")
        deadline = time.monotonic() + PATIENCE
        while (is_there := pathlib.Path(f"/proc/{number}").exists()) and time.monotonic() < deadline:
            time.sleep(0.1)
        self.assertFalse(is_there)

    def test_the_end_of_the_script_ends_what_was_begun_ahead(self):
        process = self.start(TELL_AND_STAY + '''stages=(window release)
            stage_release() { count_command release tell_and_stay; }
            begin_ahead first; begin_ahead window
            until [ -e "$results/inner" ]; do sleep 0.1; done
            cat "$results/inner"''')
        self.expect_end_of(process.communicate(timeout=60)[0].strip())

    def test_the_end_of_the_script_ends_a_preparation(self):
        process = self.start(TELL_AND_STAY + '''stages=(x86 release)
            rights_unasked() { :; }
            prepare_x86() { at_exit 'touch "$results/undone"'; tell_and_stay; }
            begin_ahead first; begin_ahead window
            until [ -e "$results/inner" ]; do sleep 0.1; done
            cat "$results/inner"''')
        self.expect_end_of(process.communicate(timeout=60)[0].strip())
        # A moment later, as its shell ends behind what it has started.
        deadline = time.monotonic() + PATIENCE
        while not (undone := (self.folder / "build/test-results/undone").exists()) and time.monotonic() < deadline:
            time.sleep(0.1)
        self.assertTrue(undone)

    def test_a_stage_brings_only_what_it_needs(self):
        for stage, strangers in {"checks": NO_WINDOWS | {"clang", "debootstrap"},
                                 "unit": NO_WINDOWS | {"clang", "git", "shellcheck"},
                                 "fuzz": NO_WINDOWS | {"shellcheck"},
                                 "wine": {X86, "clang", "shellcheck", "debootstrap", "libbenchmark-dev"},
                                 "x86": {X64, "wine", "wine64", "wine32", "clang"},
                                 "fresh": NO_WINDOWS | {"cmake", "sudo", "clang"}}.items():
            self.assertEqual(set(), self.packages_of(stage) & strangers, stage)

    def test_the_program_is_built_without_tests_and_wine(self):
        for arch in ("x64", "x86"):
            build = set(self.bash(f"echo $packages_build_{arch}").split())
            self.assertEqual(set(), build & (NO_WINE | {"libgtest-dev", "libbenchmark-dev", "g++"}))

    def test_a_stage_has_the_compilers_of_what_it_builds(self):
        for stage, compilers in {"wine": {X64}, "logs": {X64}, "x86": {X86}, "release": {X64, X86}}.items():
            self.assertEqual(compilers, self.packages_of(stage) & {X64, X86}, stage)

    def test_the_checks_have_the_tools_that_their_tests_call(self):
        self.assertLessEqual({"git", "python3", "imagemagick", "shellcheck"}, self.packages_of("checks"))

    def test_the_first_wine_prefix_belongs_to_no_commands_limit_of_time(self):
        for stage, case in COMMAND_STAGES.items():
            said = self.bash(f'''build_program() {{ echo build; }}
                need_wine() {{ echo prefix; }}
                own_recording() {{ echo /dev/null; }}
                {case}() {{ echo case; }}
                stage_{stage}''').splitlines()
            self.assertEqual(["build", "prefix", "case"], said[:3], stage)

    def test_the_first_build_belongs_to_no_commands_limit_of_time(self):
        for stage, case in COMMAND_STAGES.items():
            said = self.bash(f'''build_program() {{ echo "build $*"; exit 1; }}
                own_recording() {{ echo /dev/null; }}
                {case}() {{ echo case; }}
                stage_{stage} || true; echo "$failed"''').splitlines()
            self.assertRegex(said[0], "^build x64 tolvane_drive", stage)
            self.assertEqual("1", said[-1])
            self.assertNotIn("case", said)

    def test_a_wine_prefix_that_cannot_be_had_fails_its_stage_and_ends_no_other(self):
        for stage in ("wine", "window", *COMMAND_STAGES):
            said = self.bash(f'''source() {{ :; }}
                wine_session() {{ at_exit echo ended; fail "no prefix"; }}
                build_program() {{ :; }}
                build_all() {{ echo built; }}
                own_recording() {{ echo /dev/null; }}
                run_stage {stage} 2>&1; echo "$failed"''').splitlines()
            self.assertIn("error: no prefix", said, stage)
            self.assertIn("ended", said, stage)
            self.assertNotIn("built", said, stage)
            self.assertEqual("1", said[-1], stage)

    def test_wines_services_that_do_not_start_fail_each_of_their_stages(self):
        said = self.bash('''source() { :; }
            wine_session() { wine_lock=0; }
            wine_stay() { false; }
            build_all() { echo built; }
            for stage in wine window; do run_stage "$stage"; done; echo "$failed"''').splitlines()
        self.assertEqual(2, said.count("-- failed: Wine's services do not start"), said)
        self.assertEqual("2", said[-1])

    def test_no_file_that_is_read_sets_a_trap_while_others_are_still_to_come(self):
        for path in (PROJECT / "scripts/lib").glob("*.sh"):
            self.assertEqual([], re.findall(r"^(?:at_exit|at_very_end|catch_the_end|trap) .*", path.read_text(encoding="utf-8"),
                                            re.M), path.name)
        lines = (PROJECT / "scripts/test").read_text(encoding="utf-8").splitlines()
        last_read = max(number for number, line in enumerate(lines) if line.startswith(("source ", "read_options ")))
        self.assertGreater(lines.index("at_exit stop_running"), last_read)

    def test_help_stands_anywhere_and_names_every_stage(self):
        for arguments in (["--help"], ["--only", "unit", "--help"], ["--x86", "-h"]):
            done = run(*arguments)
            self.assertEqual((0, ""), (done.returncode, done.stderr))
            self.assertIn(f"Stages: {STAGES}", done.stdout.splitlines())

    def test_a_wrong_option_is_refused_in_one_sentence(self):
        one_of = STAGES.replace(" ", ", ").replace(", fresh", " or fresh")
        for arguments, sentence in ((["--only"], "error: --only needs a value (scripts/test --help)\n"),
                                    (["--only", "units"], f"error: --only is {one_of}, not 'units'\n"),
                                    (["unit"], "error: 'unit' belongs to no option (scripts/test --help names them)\n")):
            done = run(*arguments)
            self.assertEqual((1, "", sentence), (done.returncode, done.stdout, done.stderr))

    def test_one_thing_is_told_as_one(self):
        self.assertEqual("0 seconds,1 second,2 seconds,1 log file,",
                         self.bash('for n in 0 1 2; do counted "$n" second; done; counted 1 "log file"')
                         .replace("\n", ","))

    def test_a_command_counts_once_as_passed_failed_or_skipped(self):
        output = self.bash('count_command good true; count_command bad sh -c "echo broken; exit 3"\n'
                           'count_command away sh -c "echo why; exit 77"\necho "$passed $failed $skipped"')
        self.assertEqual(["broken", f"-- failed: bad (the whole output: {self.folder}/build/test-results/bad.log)",
                          "-- skipped: away: why", "1 1 1"], output.splitlines())

    def test_what_failed_is_kept_for_the_end(self):
        ctest = """echo broken; while [ "$1" != --output-junit ]; do shift; done
            echo '<testsuite><testcase name="bad" status="fail"/></testsuite>' >"$2\""""
        output = self.bash(self.played("ctest", ctest) + """rm -rf "$results"; exec 3>&1 >/dev/null
            count_failed "no prefix"; run_ctest unit native; cat "$failures" >&3""")
        self.assertEqual(["failed: no prefix", "failed: bad"], output.splitlines())

    def played(self, tool: str, script: str) -> str:
        """What makes a shell find the tool."""
        path = self.folder / "bin" / tool
        path.parent.mkdir(exist_ok=True)
        path.write_text(f"#!/bin/bash\n{script}\n", encoding="utf-8")
        path.chmod(0o755)
        return f'PATH="{path.parent}:$PATH"\n'

    def test_every_shell_script_of_the_project_is_checked(self):
        output = self.bash(self.played("shellcheck", 'printf "%s\\n" "$@"') + f'root="{PROJECT}"\ncheck_scripts')
        self.assertEqual(sorted(tracked.shell_scripts(PROJECT)), sorted(output.splitlines()))

    def test_the_tests_of_a_killed_run_end(self):
        mark = self.folder / "started"
        process = self.start(self.played("ctest", f'sleep 300 & echo $! >"{mark}"; wait') + "run_ctest unit native")
        test = self.number_in(mark)
        process.kill()
        process.communicate(timeout=20)
        self.assertFalse(running(test), f"process {test} still runs")

    def number_in(self, file: pathlib.Path) -> int:
        while not (file.exists() and file.read_text()):
            time.sleep(0.02)
        return int(file.read_text())

    def test_what_an_interrupted_stage_started_ends(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            mark = self.folder / f"started-{number}"
            process = self.start(f'wait_long() {{ sleep 300 & echo $! >"{mark}"; wait; }}\ncount_command long wait_long')
            sleeper = self.number_in(mark)
            process.send_signal(number)
            process.communicate(timeout=20)
            self.assertEqual(128 + number, process.returncode)
            self.assertFalse(running(sleeper), f"process {sleeper} still runs")


def running(process: int) -> bool:
    """Whether it still runs after a while; a zombie process counts as ended."""
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        try:
            os.kill(process, 0)
            if pathlib.Path(f"/proc/{process}/stat").read_text(encoding="utf-8").rsplit(")", 1)[1].split()[0] == "Z":
                return False
        except (ProcessLookupError, FileNotFoundError):
            return False
        time.sleep(0.02)
    return True


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""Tests of the words that follow a script's name. The project's folder is the argument."""

import os
import pathlib
import pty
import re
import sys
import unittest

from commands_place import GOOD_LINE, NOBODY, PROJECT, SCRIPTS, WITHOUT_OPTIONS, Place, path_of

sys.path.insert(0, str(PROJECT / "scripts/lib"))
import clock_jump  # noqa: E402

MOST_WHOLE = 999_999_999
LIVE_USE = re.escape("--log - takes lines from a pipe, as in: candump -L can0 | scripts/demo --log -")
# What the measuring programs of bench/compare tell.
FIGURES = ("rows", "regions", "live_tick", "baseline_tick", "first_tick_empty", "first_tick_full", "longest_rows",
           "longest_tick", "longest_compose", "fitting_rows", "fitting_tick", "fitting_compose", "tolvane_start",
           "empty_start", "tolvane_resident", "empty_resident", "flush", "flush_longest", "search", "search_longest")


class Options(Place):
    def test_help_works_at_any_place_among_the_words(self):
        for name in SCRIPTS:
            for words in (["--help"], ["-h"], ["--out", "--help"], ["--only", "--help"], ["x64", "--help"],
                          ["--nonsense", "--help"]):
                ended = self.run_script(name, *words)
                self.assertEqual((0, "", []), (ended.status, ended.errors, ended.begun), (name, words))
                self.assertTrue(ended.said.startswith(f"usage: {path_of(name)} "), ended.said)

    def test_the_help_of_the_demo_tells_that_a_recording_chooses_the_adapter(self):
        said = " ".join(self.run_script("demo", "--help").said.split())
        self.assertIn("interface or kvaser; unless told otherwise what the recording asks for, or canusb --ids", said)

    def test_help_needs_no_folder_that_can_be_written(self):
        self.assertEqual(0, self.run_script("demo", "--help", user=NOBODY if os.geteuid() == 0 else None).status)

    def test_the_usage_names_every_option(self):
        for name in SCRIPTS:
            text = (PROJECT / path_of(name)).read_text()
            if "bench_options " in text:
                text += (PROJECT / "scripts/lib/bench.sh").read_text()
            declared = set(re.findall(r"^ *(?:option|flag) ([a-z0-9-]+) ", text, re.M))
            named = set(re.findall(r"^  --([a-z0-9-]+)", self.run_script(name, "--help").said, re.M))
            self.assertEqual(declared | {"help"}, named, name)

    def test_the_readme_tells_each_option_of_each_script(self):
        readme = (PROJECT / "README.md").read_text(encoding="utf-8")
        # The demo's own table has no column of scripts.
        rows = [(option, "`demo`") for option in re.findall(r"^\| `([^`]+)` \|(?=[^|]*\|$)", readme, re.M)]
        rows += re.findall(r"^\| `([^`]+)` \| ([^|]*) \|[^|]*\|$", readme, re.M)
        self.assertEqual(set(SCRIPTS) - WITHOUT_OPTIONS,
                         {name for _, names in rows for name in re.findall(r"`([^`]+)`", names)})
        for name in WITHOUT_OPTIONS:
            self.assertIn(f"`{name}`", readme)
        for name in SCRIPTS:
            told = sorted(option for option, names in rows if f"`{name}`" in names)
            said = re.findall(r"^  (--[a-z0-9-]+(?: [A-Z]+)?|[A-Z]+)  ", self.run_script(name, "--help").said, re.M)
            self.assertEqual(told, sorted(set(said) - {"--help"}), name)

    def test_what_is_no_option_is_refused(self):
        self.refuses(r"no such option: --nonsense \(scripts/demo --help names them\)", "demo", "--nonsense", "1")
        self.refuses(r"no such option: -x \(scripts/log-check --help names them\)", "log-check", "-x")
        self.refuses(r"no such option: -- .*", "demo", "--")
        self.refuses(r"'word' belongs to no option .*", "demo", "--ids", "29", "word")
        self.refuses(r"'b.log' belongs to no option .*", "log-check", "a.log", "b.log")
        for name in WITHOUT_OPTIONS:
            self.refuses(r"no such option: --nonsense \(.*\)", name, "--nonsense")
            self.refuses(r"'word' belongs to no option .*", name, "word")

    def test_a_flag_takes_no_value(self):
        self.refuses(r"--again takes no value \(scripts/log-check --help\)", "log-check", "--again=a.log")
        self.refuses(r"--x86 takes no value \(scripts/test --help\)", "test", "--x86=1")
        self.refuses(r"--help takes no value \(scripts/demo --help\)", "demo", "--help=1")
        self.refuses(r"no such option: --=1 .*", "demo", "--=1")

    def test_an_option_without_a_value_is_refused(self):
        for words in (["--log"], ["--log", ""], ["--log="], ["--log", "--ids"], ["--out", ""]):
            self.refuses(rf"{words[0].rstrip('=')} needs a value \(scripts/demo --help\)", "demo", *words)

    def test_a_wrong_value_is_refused_with_the_right_ones(self):
        whole, ticks = f"is a whole number from 1 to {MOST_WHOLE}", "is a whole number from 0 to 4294967295"
        for name, option, value, wanted in (
                ("demo", "--seconds", "0", whole), ("demo", "--seconds", "1.5", whole),
                ("demo", "--seconds", str(MOST_WHOLE + 1), whole), ("demo", "--still", "0", whole),
                ("demo", "--still", "-1", whole), ("demo", "--seconds", "9" * 30, whole),
                ("demo", "--seconds", "01", f"{whole} without leading zeros"),
                ("demo", "--clock-start", "00", f"{ticks} without leading zeros"),
                ("demo", "--clock-start", "-1", ticks), ("demo", "--clock-start", "4294967296", ticks),
                ("demo", "--rate", "300", "is 10, 20, 50, 100, 125, 250, 500, 800 or 1000"),
                ("demo", "--repeat", "-1", "is a whole number from 0 to 1000000"),
                ("demo", "--speed", "0", "is a number from 0.001 to 1000, with three decimals at most"),
                ("demo", "--adapter", "usb", "is canusb, interface or kvaser"),
                ("demo", "--adapter", "canusb|interface", "is canusb, interface or kvaser"),
                ("test", "--only", "units", "is checks, unit, .* release or fresh"),
                ("bench/compare", "--only", "tick", "is ticks, start, flush, logs, conversions or receive"),
                ("bench/compare", "--rounds", "0", "is a whole number from 1 to 999999"),
                ("tests/soak/run", "--minutes", "x", "is a whole number from 1 to 10000"),
                ("tests/soak/run", "--load", "full", "is short, long, short29 or ids29"),
                ("tests/soak/run", "--queue", "255", "is a whole number from 256 to 65536"),
                ("tests/soak/run", "--taken", "1000", "is a whole number from 0 to 999"),
                ("tests/soak/run", "--page", "half", "is empty or full"),
                ("tests/soak/run", "--arch", "arm", "is x64 or x86"),
                ("bench/compare", "--arch", "arm", "is x64 or x86"),
                ("tests/fuzz/run", "--seconds", "0", "is a whole number from 1 to 1000000"),
                ("tests/fuzz/run", "--only", "page", "is candump_log, .* or whole_run"),
                ("replay-check", "--ids", "12", "is 11, 29 or both"),
                ("log-check", "--format", "xls", "is csv or xlsx"),
                ("log-check", "--speed", "0", "is a number from 0.001 to 1000, with three decimals at most"),
                ("log-check", "--speed", "1001", "is a number from 0.001 to 1000, with three decimals at most")):
            self.refuses(rf"{option} {wanted}, not '{re.escape(value)}'", name, option, value)

    def test_every_fuzz_target_can_search_on_as_it_is_declared(self):
        declared = set()
        for folder in ("fuzz", "simulator"):
            text = (PROJECT / "tests" / folder / "CMakeLists.txt").read_text()
            declared |= {(name.removesuffix("_fuzz"), folder, longest) for name, longest in
                         re.findall(r"^(?:tolvane_fuzz|fuzz_target)\((\w+) SECONDS \d+ LONGEST (\d+) ", text, re.M)}
        rows = re.findall(r'^  "(\w+) +(\w+) +(\d+) +(\S+)"$', (PROJECT / "tests/fuzz/run").read_text(), re.M)
        self.assertEqual(declared, {row[:3] for row in rows})
        for name, folder, _, corpus in rows:
            self.assertTrue(any((PROJECT / "tests" / folder / corpus).iterdir()), name)

    def test_the_document_tells_of_every_fuzz_target(self):
        targets = re.findall(r'^  "(\w+) +\w+ +\d+ +\S+"$', (PROJECT / "tests/fuzz/run").read_text(), re.M)
        chapter = (PROJECT / "docs/soak.md").read_text(encoding="utf-8").split("\n## Hostile inputs\n")[1]
        chapter = chapter.split("\n## ")[0]
        promises = re.findall(r"^\| ((?:`\w+`(?:, )?)+) \| [^|]* \|$", chapter, re.M)
        figures = re.findall(r"^\| `(\w+)` \| \d+ \| ", chapter, re.M)
        self.assertEqual(sorted(targets), sorted(re.findall(r"`(\w+)`", " ".join(promises))))
        self.assertEqual(sorted(targets), sorted(figures))

    def test_there_are_two_architectures(self):
        for name in ("build", "package"):
            self.refuses("the program's architecture is x64 or x86, not 'arm'", name, "arm")
        self.refuses("'x86' belongs to no option .*", "package", "x64", "x86")

    def test_stages_are_named_with_or_without_an_equals_sign_and_more_than_once(self):
        for words in (["--only=fuzz", "--only", "fresh"], ["--only", "fresh", "--only=fuzz"]):
            said = self.run_script("test", *words).said
            self.assertRegex(said, r"\A-- this machine misses .* clang .*debootstrap")
            self.assertNotIn("shellcheck", said)
        self.assertIn("g++-mingw-w64-i686-posix", self.run_script("test", "--x86").said)
        self.assertNotIn("clang", self.run_script("test", "--x86").said)

    def test_logs_as_workbooks_need_their_readers(self):
        log = self.file("good.log", GOOD_LINE)
        self.assertIn("python3-openpyxl", self.run_script("log-check", log, "--format", "xlsx").said)
        self.assertNotIn("python3-openpyxl", self.run_script("log-check", log).said)

    def test_logs_are_compared_as_often_as_a_recording_can_be_played_over(self):
        most = int(re.search(r"^MOST_TIMES = ([0-9_]+)$",
                             (PROJECT / "tests/window/compare_logs.py").read_text(encoding="utf-8"), re.M)[1])
        log = self.file("good.log", GOOD_LINE)
        self.assertIn("dpkg-query", self.run_script("log-check", log, "--times", str(most)).begun)
        self.trace.unlink()
        self.refuses(f"--times is a whole number from 1 to {most}, not '{most + 1}'", "log-check", "--times",
                     str(most + 1))

    def test_a_run_ends_by_seconds_or_by_standing_still(self):
        self.refuses("--seconds and --still exclude each other: leave one away", "demo", "--still", "1",
                     "--seconds", "1")

    def test_a_jump_of_a_clock_does_not_end_the_run_of_the_example(self):
        still = re.search(r"scripts/demo --log KL\d{8}-001\.csv --still (\d+) ", self.run_script("demo", "--help").said)
        self.assertGreater(int(still[1]), clock_jump.WRAPS[b"CANUSB "] // 1000)

    def test_the_vehicle_never_stands_still(self):
        self.refuses("--still needs a recording, --log: the vehicle never stands still", "demo", "--still", "1")

    def test_what_belongs_to_a_recording_needs_one(self):
        self.refuses("--repeat needs a recording, --log: the vehicle never ends", "demo", "--repeat", "2")
        log = self.file("good.log", GOOD_LINE)
        self.refuses("--still waits for the recording's end, and with --repeat 0 it has none", "demo", "--log", log,
                     "--still", "2", "--repeat", "0")

    def test_a_live_bus_comes_through_a_pipe_once_and_at_its_own_speed(self):
        for words in (("--speed", "2"), ("--repeat", "2"), ("--speed", "1")):
            self.refuses("a live bus has a speed of its own and comes once: leave --speed and --repeat away", "demo",
                         "--log", "-", *words)
        said = self.run_script("demo", "--log", "-").said
        self.assertTrue(said.startswith("-- on the adapter canusb, with identifiers of 11 and 29 bits\n"), said)
        self.trace.unlink()
        terminal, side = pty.openpty()
        self.addCleanup(os.close, terminal)
        self.addCleanup(os.close, side)
        folder = os.open(self.folder, os.O_RDONLY)
        self.addCleanup(os.close, folder)
        for stdin in (side, folder):
            self.refuses(LIVE_USE, "demo", "--log", "-", stdin=stdin)

    def test_a_live_bus_needs_a_standard_input(self):
        ended = self.run_script("demo", "--log", "-", closed=True)
        self.assertRegex(ended.errors, rf"\Aerror: {LIVE_USE}\n\Z")
        self.assertEqual([], ended.begun)

    def test_a_rate_that_the_adapter_lacks_is_refused(self):
        for adapter, lacking in (("canusb", ()), ("interface", (10, 20, 800)), ("kvaser", (20, 800))):
            for rate in (10, 20, 50, 100, 125, 250, 500, 800, 1000):
                words = ("demo", "--adapter", adapter, "--rate", str(rate))
                if rate in lacking:
                    self.refuses(f"the adapter {adapter} has no rate of {rate} kbit/s: name another with --adapter", *words)
                else:
                    self.assertIn("dpkg-query", self.run_script(*words).begun)
                    self.trace.unlink()

    def test_parts_are_measured_in_their_order_and_each_once(self):
        self.play_installed()
        for words in (("logs", "conversions"), ("conversions", "logs", "logs")):
            said = self.run_script("bench/compare", *(word for part in words for word in ("--only", part))).errors
            self.assertRegex(said, r"\Aerror: tolvane_log_job cannot be built\n\Z")
        self.assertRegex(self.run_script("bench/compare", "--only", "logs", "--only", "conversions", "--only", "start",
                                         "--arch", "x86", "--arch", "x64").errors,
                         r"\Aerror: the measuring programs for x64 cannot be built\n\Z")

    def test_a_program_is_chosen_for_the_parts_of_the_window(self):
        self.refuses("--arch is for the parts ticks, start and flush alone: leave it away", "bench/compare", "--only", "logs",
                     "--arch", "x86")

    def play_wine(self, script: str) -> None:
        """With all that is built, and a prefix."""
        self.play_installed()
        for name, words in (("cmake", "exit 0"), ("x86_64-w64-mingw32-objcopy", "exit 0"), ("wineserver", "exit 0"),
                            ("Xvfb", "echo 77 >&3; exec sleep 60"), ("wine", script)):
            self.play(name, words)
        for name in ("wine-prefix-run/drive_c/windows/system32/a.dll", "wine-prefix-run/tolvane-ready",
                     "wine-prefix-run/dosdevices/c:", "windows-x64/simulator/canusbdrv.dll"):
            (self.project / "build" / name).parent.mkdir(parents=True, exist_ok=True)
            (self.project / "build" / name).touch()

    def play_measurements(self, *left_out: str, **others: int) -> None:
        told = "".join(rf"{name}\t{others.get(name, 10)}\n" for name in FIGURES if name not in left_out)
        self.play_wine(f"printf '{told}'")

    def test_the_parts_of_the_window_share_a_session(self):
        self.play_measurements()
        ended = self.run_script("bench/compare", "--only", "start", "--only", "ticks", "--only", "flush")
        self.assertEqual((0, ""), (ended.status, ended.errors))
        self.assertRegex(ended.said, r"\n\| x64 \| whole tick, .*\n\| x64 \| start to window, ")
        self.assertIn("\n| x64 | a flush of 20001 records with eight bytes | 0.01 ms, longest 0.01 ms | at most 3 ms |\n",
                      ended.said)

    def test_what_is_wanted_stands_beside_each_figure_and_what_is_missed_is_marked(self):
        tick = "whole tick, 10 rows, 10 coloured regions | {} | rich-edit baseline (ours) | {} times as fast | " \
               "at least 700 times as fast, at most 1.5 ms"
        start = "start to window, one adapter | {} | an empty window program (ours) | 0.01 ms | {} times as long | " \
                "at most 1.5 times as long"
        flush = "a flush of 20001 records with eight bytes | {}, longest 0.01 ms | at most 3 ms"
        search = "the search for a name behind 900 taken ones | {}, longest 0.01 ms | at most 3 ms"
        for part, figures, held, missed in (
                ("ticks", {"live_tick": 1500, "baseline_tick": 1_050_000}, [tick.format("1.50 ms", "1050.00 ms | 700")], []),
                ("ticks", {"live_tick": 1501, "baseline_tick": 3_002_000}, [], [tick.format("1.50 ms", "3002.00 ms | 2000")]),
                ("ticks", {"live_tick": 10, "baseline_tick": 6990}, [], [tick.format("0.01 ms", "6.99 ms | 699")]),
                ("start", {"tolvane_start": 15}, [start.format("0.01 ms", "1.50")], []),
                ("start", {"tolvane_start": 16}, [], [start.format("0.02 ms", "1.60")]),
                ("flush", {"flush": 3000, "search": 3001}, [flush.format("3.00 ms")], [search.format("3.00 ms")]),
                ("flush", {"flush": 3001}, [search.format("0.01 ms")], [flush.format("3.00 ms")])):
            self.play_measurements(**figures)
            ended = self.run_script("bench/compare", "--only", part)
            self.assertEqual((0, ""), (ended.status, ended.errors))
            for rows, mark in ((held, ""), (missed, ": **missed**")):
                for row in rows:
                    self.assertIn(f"\n| x64 | {row}{mark} |\n", ended.said)

    def test_ticks_are_told_in_what_goes_with_the_rows_and_what_with_those_that_are_seen(self):
        self.play_measurements(longest_rows=4001, longest_tick=2010, longest_compose=1500, fitting_rows=20)
        self.assertIn("Tick of 4001 rows: 2.01 ms, 1.50 ms to compose them and 0.51 ms to show them; Tick of 20 rows: "
                      "0.01 ms, 0.01 ms to compose them and 0.00 ms to show them, which the window shows all at once.",
                      self.run_script("bench/compare", "--only", "ticks").said)

    def test_a_figure_that_is_missing_is_a_failure(self):
        for part, name in (("ticks", "regions"), ("ticks", "baseline_tick"), ("ticks", "longest_rows"),
                           ("start", "tolvane_start"), ("start", "empty_resident"), ("flush", "search_longest")):
            self.play_measurements(name)
            ended = self.run_script("bench/compare", "--only", part)
            file = self.project / f"build/compare/{part}-x64.txt"
            self.assertEqual((1, f"error: the figure {name} is missing in {file}\n"), (ended.status, ended.errors))
            self.assertNotIn("|", ended.said)

    def test_a_rate_that_is_missing_is_a_failure(self):
        self.play_installed()
        self.play("cmake", "exit 0")
        bench = self.project / "build/native/bench/receive_bench"
        bench.parent.mkdir(parents=True)
        row = '"{}/canusb_11bit/2047_median",3,5e7\n'
        for second, status in (("ReceiveAndLog", 0), ("Other", 1)):
            told = "name,iterations,items_per_second\n" + row.format("Receive") + row.format(second)
            bench.write_text(f"#!/bin/sh\ncat <<'END'\n{told}END\n")
            bench.chmod(0o755)
            ended = self.run_script("bench/compare", "--only", "receive")
            self.assertEqual(status, ended.status, ended.errors)
            if status == 0:
                self.assertIn("| 50.0 million a second of processor time | at least 40 million a second of processor time |\n",
                              ended.said)
        self.assertEqual("error: the figure ReceiveAndLog/canusb_11bit/2047_median is missing in "
                         f"{self.project}/build/compare/receive.csv\n", ended.errors)

    def test_a_part_that_was_named_is_not_left_out(self):
        self.play("dpkg-query", 'case "$*" in *can*) exit 1 ;; *) printf installed ;; esac')
        self.play("apt-get", "exit 1")
        self.play("sudo", "exit 1")
        for part in ("logs", "conversions"):
            ended = self.run_script("bench/compare", "--only", part)
            self.assertEqual(1, ended.status)
            self.assertRegex(ended.errors, f"error: {part}: the packages can-utils python3-can cannot be installed\n\\Z")

    def test_the_names_that_earlier_logs_have_taken_are_made_in_a_folder_of_any_name(self):
        self.play_wine("exit 1")
        soak = self.project / "build/native/tests/soak/tolvane_soak"
        soak.parent.mkdir(parents=True)
        soak.write_text("""#!/bin/sh\n[ "$1" != take ] || printf '%s\\n' "$@" >"$0.taken"\n""")
        soak.chmod(0o755)
        errors = self.run_script("tests/soak/run", "--minutes", "3", "--taken", "2").errors
        self.assertEqual(["take", str(self.project / "build/soak/x64-short"), "3", "2"],
                         pathlib.Path(f"{soak}.taken").read_text().splitlines(), errors)
        self.assertEqual("error: the program does not start\n", errors)

    def test_what_a_measured_tool_complains_of_is_told_where(self):
        self.play_installed()
        self.play("cmake", "exit 0")
        self.play("awk", "exit 0")
        for name, script in (("bench/tolvane_log_job", "exit 0"), ("tools/tolvane-log", "echo broken >&2; exit 1")):
            tool = self.project / "build/native" / name
            tool.parent.mkdir(parents=True)
            tool.write_text(f"#!/bin/sh\n{script}\n")
            tool.chmod(0o755)
        said = self.run_script("bench/compare", "--only", "conversions").errors
        log = self.project / "build/compare/conversions-ours.log"
        self.assertEqual(f"error: {self.project}/build/native/tools/tolvane-log failed (see {log})\n", said)
        self.assertEqual("broken\n", log.read_text())

    def test_logs_that_are_played_again_are_csv(self):
        self.refuses("--again plays csv logs: leave --format away", "log-check", "--again", "--format", "xlsx")

    def test_the_demo_shows_uses_of_its_options(self):
        said = self.run_script("demo", "--help").said
        self.assertRegex(said, r"\n  --help +this text\n\nfor instance:\n  scripts/demo\n      ")

    def test_options_come_in_any_order(self):
        log = self.file("b.log", "")
        for words in ([log, "--ids", "29"], ["--ids", "29", log], ["--ids=29", log, "--adapter=kvaser"]):
            self.refuses(f"{re.escape(log)} is empty; .*", "replay-check", *words)

    def test_a_command_keeps_its_own_options(self):
        for words in (["true", "--help"], ["--offline", "true", "--offline", "--nonsense"], ["--user", "me", "true"]):
            self.refuses("there is no fresh root: .*", "scripts/lib/fresh-run", *words)
        for name in ("fresh-run", "wine-run", "x86-run"):
            self.refuses(r"no command is named \(.*\)", f"scripts/lib/{name}")
            self.refuses(r"no such option: --nonsense \(.*\)", f"scripts/lib/{name}", "--nonsense", "true")
            self.assertTrue(self.run_script(f"scripts/lib/{name}", "-h").said.startswith("usage: "), name)


if __name__ == "__main__":
    unittest.main()

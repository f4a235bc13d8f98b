#!/usr/bin/env python3
"""Tests of scripts/lib/recording.py and check_recording.py, whose folder is the first argument; the second
is the table of lines that the simulated adapters are held to as well."""

import ast
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import unittest

TABLE = sys.argv.pop()
LIB = sys.argv.pop()
sys.path.insert(0, LIB)
import recording as rec  # noqa: E402

DATA = "(1.5) can0 123#01\n"
EXTENDED = "(1.5) can0 00000123#01\n"
ERROR = "(1.5) can0 20000004#0001\n"


def shared_lines() -> list[tuple[str, str, str]]:
    with open(TABLE, encoding="utf-8") as file:
        rows = [line.strip().rstrip(",") for line in file if not line.startswith("//")]
    # The strings of a row are written the same way in both languages.
    return [ast.literal_eval("(" + row.removeprefix("{").removesuffix("}") + ")") for row in rows]


def frame_text(frame: rec.Frame) -> str:
    return (f"{frame.microseconds} {frame.identifier:X} {'extended' if frame.extended else 'standard'} "
            f"{frame.kind} {frame.length} {frame.data.ljust(8, bytes(1)).hex().upper()}")


def times_of(*seconds: str) -> list[int]:
    recording = rec.parse("", "".join(f"({time}) c 001#\n" for time in seconds).encode())
    return [frame.microseconds for frame in recording.frames]


class Lines(unittest.TestCase):
    def test_each_shared_line_is_the_stated_frame_or_refused(self):
        rows = shared_lines()
        self.assertGreater(len(rows), 50)
        for label, line, stated in rows:
            with self.subTest(label):
                frame = rec.parse_line(line.encode("ascii"))
                self.assertEqual(stated, frame_text(frame) if frame else "")


class Recordings(unittest.TestCase):
    def test_times_begin_with_the_first_frame_and_never_step_back(self):
        text = b"\r\n(10.5) c 001#\r\n\n(10.75) c 002#\r\n(9.75) c 003#\n(10.8) c 004#"
        recording = rec.parse("", text)
        self.assertEqual([0, 250_000, 250_000, 300_000], [frame.microseconds for frame in recording.frames])
        self.assertEqual([2, 4, 5, 6], [frame.line for frame in recording.frames])
        self.assertEqual(0, recording.bad_lines)

    # tests/simulator/candump_log_test.cpp has these three too.
    def test_behind_a_clock_that_stepped_back_frames_keep_their_pace(self):
        self.assertEqual([0, 500_000, 500_000, 600_000, 1_200_001, 1_200_001, 1_200_001, 1_450_001], times_of(
            "9000.0", "9000.5", "8999.399999", "8999.499999", "9000.1", "2.0", "1.5", "2.25"))

    def test_a_frame_that_is_far_back_alone_moves_no_other(self):
        self.assertEqual([0, 5_000_000, 5_000_000, 5_000_000, 5_000_000, 5_500_000, 5_500_000], times_of(
            "9000.0", "9005.0", "2.0", "9004.0", "9003.9", "9005.5", "8000.0"))

    def test_each_of_two_steps_in_a_row_takes_no_time(self):
        self.assertEqual([0, 0, 0, 500_000], times_of("9000.0", "100.0", "2.0", "2.5"))

    def test_bad_lines_are_counted_from_the_first(self):
        recording = rec.parse("", b"(1.0) c 001#\n\nbad\n(1.1) c 002#\nworse\n")
        self.assertEqual((2, 2, 3, b"bad"), (len(recording.frames), *recording[2:]))

    def test_only_what_all_adapters_receive_and_the_run_shows_is_shown(self):
        recording = rec.parse("", (DATA + EXTENDED + ERROR + DATA.replace("\n", " T\n")
                                   + "(2) c 124#R\n").encode())
        self.assertEqual([1, 5], [frame.line for frame in rec.shown_frames(recording, 11)])
        self.assertEqual([1, 2, 5], [frame.line for frame in rec.shown_frames(recording, 29)])


class Command(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = pathlib.Path(folder.name) / "bus.log"

    def run_on(self, *words: str) -> tuple[int, str, str]:
        done = subprocess.run([sys.executable, "-B", os.path.join(LIB, "check_recording.py"), *words],
                              capture_output=True, text=True, encoding="utf-8", check=False)
        return done.returncode, done.stdout, done.stderr

    def check(self, content: str | bytes, *options: str) -> tuple[int, str, str]:
        self.file.write_bytes(content if isinstance(content, bytes) else content.encode())
        return self.run_on(*options, str(self.file))

    def refused(self, said: str, content: str | bytes, *options: str) -> None:
        status, out, error = self.check(content, *options)
        self.assertEqual((1, ""), (status, out))
        self.assertTrue(error.startswith(f"error: {self.file}{said}"), error)
        self.assertEqual(1, error.count("\n"), error)

    def test_tells_what_a_recording_holds(self):
        content = DATA + EXTENDED + "bad\n" + ERROR + "(2) c 124#R\nworse\n(3.75) c 1#\n(4) c 001# T\n"
        self.assertEqual((0, f"{self.file}: 5 frames in 2.500 s: 1 standard, 1 extended, 1 remote, 1 error, "
                          "1 sent by the recorder; 3 bad lines left out, the first is line 3\n", ""),
                         self.check(content))

    def test_a_single_frame_is_one(self):
        self.assertEqual((0, f"{self.file}: 1 frame in 0.000 s: 1 standard, 0 extended, 0 remote, 0 error\n", ""),
                         self.check(DATA))

    def test_a_replay_lasts_as_long_as_the_frames_say_and_bad_lines_nothing(self):
        for label, content, times, microseconds in (
                ("one frame", DATA, 1, 0),
                ("one frame, once a second", DATA, 4, 3_000_000),
                ("two frames, and their distance before each next pass", DATA + "(2) c 1ff#\n", 3, 2_500_000),
                ("junk first and last", "(junk) x\n" + DATA + "(2) c 1ff#\n(junk) x\n", 1, 500_000),
                ("a bad line of another time", "(9) x\n" + DATA + "(2) c 1ff#\n(9) x", 1, 500_000),
                ("a clock that steps back", DATA + "(2) c 1ff#\n(0.1) c 1ff#\n", 1, 500_000),
                ("a clock that starts below its end", "(9) c 1ff#\n" + DATA, 2, 1)):
            with self.subTest(label):
                self.assertEqual((0, f"{microseconds}\n", ""), self.check(content, "--duration", str(times)))

    def test_identifier_0_alone_has_logs_and_no_page(self):
        zero = "(1) c 000#01\n"
        for ids in ("11", "29", "both"):
            self.refused(" has frames of identifier 0 alone", zero, "--comparable", "page", "--ids", ids)
            self.assertEqual(0, self.check(zero, "--comparable", "logs", "--ids", ids)[0])
            self.assertEqual(0, self.check(zero + DATA, "--comparable", "page", "--ids", ids)[0])
        extended_zero = zero + "(1) c 00000000#01\n"
        self.refused(" has frames of identifier 0 alone", extended_zero, "--comparable", "page", "--ids", "11")
        self.assertEqual(0, self.check(extended_zero, "--comparable", "page", "--ids", "29")[0])

    def test_an_interruption_while_it_reads_ends_it_without_a_word(self):
        os.mkfifo(self.file)
        command = [os.path.join(LIB, name) for name in ("python-run", "check_recording.py")]
        reader = subprocess.Popen([*command, str(self.file)], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                  text=True)
        # Opens once the other side does.
        with open(self.file, "wb"):
            reader.send_signal(signal.SIGINT)
            self.assertEqual(("", ""), reader.communicate(timeout=60))
        self.assertEqual(-signal.SIGINT, reader.returncode)

    def test_an_empty_one_is_refused(self):
        self.refused(" is empty; a line looks like", "")
        self.refused(" is empty; a line looks like", "\n \r\n")

    def test_random_bytes_are_refused(self):
        self.refused(", line 1: this is no frame, and no other line", bytes(range(1, 256)) * 40)

    def test_output_for_the_screen_is_refused(self):
        for line in ("  can0  123   [2]  01 02\n", " (1502984866.421964)  can0  00000123   [2]  01 02\n"):
            self.refused(", line 2: this is candump's output for the screen, ", "\n" + 3 * line)

    def test_frames_of_the_flexible_data_rate_are_refused(self):
        self.refused(", line 1: this is a frame of the flexible data rate, ", "(1.5) can0 123##10011\n")

    def test_what_only_the_demo_reads_is_named(self):
        self.refused(", line 1: this is the beginning of a compressed file, ", b"\x1f\x8b\x08\x00")
        self.refused(", line 1: this is the head of a log of the program, ", "Tolvane Ver1.23,,,Copyright\n")

    def test_error_frames_and_own_ones_alone_are_refused(self):
        self.refused(", from line 2 on: only error frames", "bad\n" + ERROR + DATA.replace("\n", " T\n"))

    def test_extended_frames_alone_are_refused_with_11_bits(self):
        self.refused(", from line 1 on: only identifiers of 29 bits", EXTENDED, "--ids", "11")
        for ids in ("29", "both"):
            self.assertEqual(0, self.check(EXTENDED, "--ids", ids)[0])
            self.assertEqual(0, self.check(DATA, "--ids", ids)[0])
        self.assertEqual(0, self.check(EXTENDED)[0])

    def test_a_folder_and_a_missing_file_are_refused(self):
        folder = str(self.file.parent)
        self.assertEqual((1, "", f"error: {folder} is a folder, and a recording is a file\n"),
                         self.run_on(folder))
        self.assertEqual((1, "", f"error: there is no recording {self.file}\n"), self.run_on(str(self.file)))

    def test_options_come_in_any_order(self):
        self.file.write_text(DATA, encoding="ascii")
        self.assertEqual(0, self.run_on(str(self.file), "--ids", "11")[0])
        self.assertEqual(0, self.run_on("--help")[0])


if __name__ == "__main__":
    unittest.main()

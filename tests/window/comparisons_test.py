#!/usr/bin/env python3
"""Tests of compare_replay.py and compare_logs.py as commands: what they cannot compare they refuse at once
and in one sentence, and nothing compared is no success."""

import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import unittest

import compare_logs as logs
import compare_replay as replay

HERE = pathlib.Path(__file__).parent
RUN = str(HERE.parents[1] / "scripts/lib/python-run")
FRAME = "(1.000000) can0 1A0#0102\n"
PAGE = replay.HEADERS[11] + "\n1A0  2   01 02" + " " * 18 + "   ----ms\n"
LOG = "\r\n".join([logs.FIRST_LINE, "", "2026/01/02 3:04:05,,,bit rate：,500k bps", logs.HARDWARE["canusb"], "",
                   logs.COMMENT, "", logs.COLUMNS[11], "         0 , 1A0 , 2 ,  01,02", ""])


class Comparison(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.recording = self.folder / "bus.log"
        self.page = self.folder / "page.txt"
        self.page.write_text(PAGE, encoding="utf-8")
        (self.folder / "KL26010203-001.csv").write_bytes(LOG.encode("cp932"))
        self.commands = {"compare_replay.py": str(self.page), "compare_logs.py": str(self.folder)}

    def run_on(self, command: str, *words: str) -> tuple[int, str, str]:
        done = subprocess.run([sys.executable, "-B", str(HERE / command), *words], capture_output=True,
                              text=True, encoding="utf-8", check=False)
        return done.returncode, done.stdout, done.stderr

    def write(self, content: str) -> None:
        self.recording.write_text(content, encoding="ascii")

    def refused(self, said: str, command: str, *words: str) -> None:
        status, out, error = self.run_on(command, *words)
        self.assertEqual((1, ""), (status, out), error)
        self.assertEqual(f"error: {said}", error[:len(said) + 7])
        self.assertEqual(1, error.count("\n"), error)

    def all_refuse(self, said: str, *words: str) -> None:
        for command, compared in self.commands.items():
            with self.subTest(command):
                self.refused(said, command, str(self.recording), compared, *words)

    def test_true_pages_and_logs_pass_with_options_in_any_order(self):
        self.write(FRAME + "bad\n")
        told = "; 1 bad line left out, the first is line 2\n"
        for command, said in (("compare_replay.py", "2 lines compared, 0 differences"),
                              ("compare_logs.py", "1 frame sent, 1 log file compared, 0 faults")):
            recording, compared = str(self.recording), self.commands[command]
            for words in (("--ids", "11", recording, compared), (recording, "--ids", "11", compared),
                          (recording, compared, "--adapter", "canusb")):
                self.assertEqual((0, said + told, ""), self.run_on(command, *words))
            self.assertEqual(0, self.run_on(command, "--help")[0])

    def test_others_fail(self):
        self.write(FRAME.replace("0102", "0103"))
        for command, compared in self.commands.items():
            status, out, error = self.run_on(command, str(self.recording), compared)
            self.assertEqual((1, ""), (status, error))
            self.assertRegex(out, "2 lines compared, 1 difference\n|1 frame sent, 1 log file compared, 1 fault\n")

    def test_a_recording_with_nothing_playable_is_refused(self):
        self.all_refuse(f"there is no recording {self.recording}")
        self.write("")
        self.all_refuse(f"{self.recording} is empty; ")
        self.write("  can0  123   [1]  01\n")
        self.all_refuse(f"{self.recording}, line 1: this is candump's output for the screen, ")

    def test_frames_that_cannot_be_compared_are_refused(self):
        for text, called in (("123#R", "a remote frame"), ("20000004#00", "an error frame"),
                             ("123# T", "a frame that the recorder itself sent"),
                             ("123#0102030405060708_9", "a frame with a length code above 8")):
            self.write(FRAME + f"(2.0) can0 {text}\n")
            self.all_refuse(f"{self.recording}, line 2: this is {called}, and only data frames")

    def test_extended_frames_alone_are_refused_with_11_bits(self):
        self.write(FRAME.replace("1A0", "000001A0"))
        self.all_refuse(f"{self.recording}, from line 1 on: only identifiers of 29 bits")

    def test_a_page_of_nothing_but_its_header_is_no_success(self):
        self.write(FRAME.replace("1A0", "000"))
        self.page.write_text(replay.HEADERS[11] + "\n", encoding="utf-8")
        self.refused(f"{self.recording} has frames of identifier 0 alone", "compare_replay.py", str(self.recording),
                     str(self.page))

    def test_an_interruption_while_they_read_ends_them_without_a_word(self):
        os.mkfifo(self.recording)
        for command, compared in self.commands.items():
            reader = subprocess.Popen([RUN, str(HERE / command), str(self.recording), compared],
                                      stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
            # Opens once the other side does.
            with open(self.recording, "wb"):
                reader.send_signal(signal.SIGINT)
                self.assertEqual(("", ""), reader.communicate(timeout=60))
            self.assertEqual(-signal.SIGINT, reader.returncode)

    def test_a_missing_page_or_folder_is_refused(self):
        self.write(FRAME)
        missing = str(self.folder / "missing")
        for command in self.commands:
            self.refused(f"{missing} cannot be read: ", command, str(self.recording), missing)

    def test_a_page_that_is_no_text_is_refused(self):
        self.write(FRAME)
        self.page.write_bytes(b"\xff\xfe")
        self.refused(f"{self.page} is no page's text", "compare_replay.py", str(self.recording), str(self.page))

    def test_a_folder_without_logs_fails(self):
        self.write(FRAME)
        (self.folder / "KL26010203-001.csv").unlink()
        status, out, _ = self.run_on("compare_logs.py", str(self.recording), str(self.folder))
        self.assertEqual(1, status)
        self.assertIn("0 log files instead of 1", out)

    def test_numbers_out_of_range_are_refused(self):
        self.write(FRAME)
        for word in ("0", "-1", "x", "1.5", ""):
            status, out, error = self.run_on("compare_logs.py", str(self.recording), str(self.folder),
                                             f"--times={word}")
            self.assertEqual((2, ""), (status, out))
            self.assertIn("--times", error)


if __name__ == "__main__":
    unittest.main()

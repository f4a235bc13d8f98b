#!/usr/bin/env python3
"""Tests of what the scripts say of a recording before they play it. The project's folder is the argument."""

import os
import re
import unittest

from commands_place import GOOD_LINE, Place


class Recordings(Place):
    def test_what_cannot_be_played_is_refused_at_once(self):
        bad = {"empty": (self.file("empty", ""), " is empty; .*"),
               "random": (self.file("random", bytes(range(256)) * 8), ", line 1: this is no frame, .*"),
               "screen": (self.file("screen", "  can0  123   [2]  01 02\n"), ", line 1: this is candump's output .*")}
        for path, sentence in bad.values():
            for words in (("demo", "--log"), ("replay-check",), ("log-check",)):
                self.refuses(re.escape(path) + sentence, *words, path)
        for words in (("demo", "--log"), ("replay-check",), ("log-check",)):
            self.refuses(f"{re.escape(str(self.folder))} is a folder, .*", *words, str(self.folder))

    def test_a_pipe_or_a_device_is_none(self):
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        for path in (str(pipe), "/dev/null"):
            told = f"{path} is a pipe or a device, and a recording is a file"
            self.refuses(f"{told}; --log - plays the lines of a pipe", "demo", "--log", path)
            for name in ("replay-check", "log-check"):
                self.refuses(told, name, path)

    def test_a_name_that_the_bench_cannot_be_told_is_refused(self):
        for name, reason in ((b"a\nb.log", "holds a line break or another control character"), (b"caf\xe9.log", "is not UTF-8"),
                             (b"last\n", "holds a line break or another control character")):
            path = os.fsencode(self.folder) + b"/" + name
            with open(path, "w", encoding="ascii") as file:
                file.write(GOOD_LINE)
            for words in (("demo", "--log"), ("replay-check",), ("log-check",)):
                for locale in ("C", "C.UTF-8"):
                    self.refuses(rf"the name of the recording \S*'[^\n]* {reason}: give it another one", *words,
                                 os.fsdecode(path), environment={"LC_ALL": locale})
        log = self.file("録音 1.log", GOOD_LINE)
        for locale in ("C", "C.UTF-8"):
            self.assertIn("dpkg-query", self.run_script("demo", "--log", log, environment={"LC_ALL": locale}).begun)

    def test_a_missing_one_is_an_error_and_no_skip(self):
        for words in (("demo", "--log"), ("replay-check",), ("log-check",)):
            self.refuses("there is no recording gone.log", *words, "gone.log")

    def test_one_that_the_identifiers_leave_empty_is_refused_at_once(self):
        log = self.file("extended.log", GOOD_LINE.replace("123#", "00000123#"))
        for words in (("demo", "--ids", "11", "--log"), ("replay-check",), ("log-check",)):
            self.refuses(".* it needs --ids 29", *words, log)
        self.refuses(".* it needs --ids 29", "demo", "--log", log, "--ids", "11", environment={"DISPLAY": ":4095"})

    def test_the_demo_takes_what_the_recording_asks_for_unless_told(self):
        extended = GOOD_LINE.replace("123#", "00000123#")
        error = GOOD_LINE.replace("123#", "20000123#")
        for content, words, chosen in (
                (GOOD_LINE, (), "canusb, with identifiers of 11 bits"),
                (extended, (), "canusb, with identifiers of 29 bits"),
                (GOOD_LINE + extended, (), "canusb, with identifiers of 11 and 29 bits"),
                (GOOD_LINE + error, (), "kvaser, with identifiers of 11 bits"),
                (GOOD_LINE + error, ("--adapter", "interface", "--ids", "29"), "interface, with identifiers of 29 bits")):
            log = self.file("bus.log", content)
            for environment in ({}, {"DISPLAY": ":4095"}):
                ended = self.run_script("demo", "--log", log, *words, environment=environment)
                self.assertRegex(ended.said, rf"\A-- .*: \d frames? in .*\n-- on the adapter {chosen}\n")
                self.assertIn("dpkg-query", ended.begun)
        self.assertEqual([], [path.name for path in (self.project / "build/recordings").iterdir()])

    def test_identifier_0_alone_has_logs_and_no_page(self):
        log = self.file("zero.log", GOOD_LINE.replace("123#", "000#"))
        self.refuses(".* identifier 0 alone, for which the page has no line", "replay-check", log)
        self.assertIn("dpkg-query", self.run_script("log-check", log).begun)

    def test_one_that_cannot_be_compared_is_refused_at_once(self):
        log = self.file("remote.log", GOOD_LINE + GOOD_LINE.replace("#0102", "#R"))
        for name in ("replay-check", "log-check"):
            self.refuses(f"{re.escape(log)}, line 2: this is a remote frame, .*", name, log)

    def test_a_good_one_is_told_with_its_bad_lines(self):
        log = self.file("good.log", GOOD_LINE + "?\n")
        ended = self.run_script("demo", "--log", log)
        self.assertRegex(ended.said, rf"\A-- {re.escape(log)}: 1 frame in .*; 1 bad line left out, the first is line 2\n")
        self.assertIn("dpkg-query", ended.begun)


if __name__ == "__main__":
    unittest.main()

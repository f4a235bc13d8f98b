#!/usr/bin/env python3
"""Tests of scripts/lib/foreign_recordings.py, whose folder is the argument: recordings that python3-can has written,
and such as nobody has."""

import gzip
import sys
import unittest

from readied import Readied

sys.path.insert(0, sys.argv[-1])
import debians_python  # noqa: E402

HAS_CAN = debians_python.has("can")
Readied.lib = sys.argv.pop()
BEGAN = 1502984866.421964

DATA = ["(0.000000) can0 123#FF72", "(0.001000) can0 7FF#", "(0.002500) can0 00000123#0102030405060708"]
OTHERS = ["(0.003000) can0 123#R4", "(0.004000) can0 09F112CC#R", "(0.005000) can0 20000000#"]
SENT = ["(0.006000) can0 124#01 T"]
BYTES = bytes(range(256))
CSV = "timestamp,arbitration_id,extended,remote,error,dlc,data\n"
NO_NUMBER = "something in it is no number or is missing"


def messages() -> list:
    """Those of DATA, OTHERS and SENT."""
    import can

    def message(seconds: float, identifier: int, extended: bool = False, **content):
        return can.Message(timestamp=BEGAN + seconds, arbitration_id=identifier, is_extended_id=extended, **content)

    return [message(0, 0x123, data=b"\xff\x72"), message(0.001, 0x7FF),
            message(0.0025, 0x123, True, data=bytes(range(1, 9))),
            message(0.003, 0x123, is_remote_frame=True, dlc=4), message(0.004, 0x9F112CC, True, is_remote_frame=True),
            message(0.005, 0, is_error_frame=True), message(0.006, 0x124, data=b"\1", is_rx=False)]


@unittest.skipUnless(HAS_CAN, "python3-can is not installed")
class OfPythonCan(Readied):
    def written(self, form: str, frames: list) -> str:
        import can

        path = str(self.folder / f"bus{form}")
        with can.Logger(path) as logger:
            for frame in frames:
                logger(frame)
        return path

    def test_each_form_keeps_its_frames_and_their_kinds(self):
        received = ["(0.006000) can0 124#01"]  # where the form does not say who sent
        for form, lines in ((".asc", DATA + OTHERS + SENT), (".blf", DATA + OTHERS + SENT), (".csv", DATA + OTHERS + received),
                            (".db", DATA + OTHERS + received)):
            with self.subTest(form):
                path = self.written(form, messages())
                self.assertEqual(lines, self.played(path))
                facts = self.facts(path)
                self.assertEqual(("both", "kvaser"), (facts["ids"], facts["adapter"]))

    def test_a_trace_has_its_data_frames(self):
        path = self.written(".trc", messages()[:3])
        self.assertEqual(DATA, self.played(path))
        self.assertEqual("canusb", self.facts(path)["adapter"])

    def test_a_candump_recording_is_played_as_it_is(self):
        path = self.written(".log", messages())
        self.assertEqual(path, self.facts(path)["play"])
        # There an error frame is one of the bus, and a remote frame has no length.
        frames = [line.split()[2].replace("20000000#", "20000080#").replace("#R4", "#R") for line in DATA + OTHERS + SENT]
        self.assertEqual(frames, [line.split()[2] for line in self.played(path)])

    def test_a_compressed_one_is_read(self):
        plain = self.written(".asc", messages())
        with open(plain, "rb") as file, gzip.open(plain + ".gz", "wb") as packed:
            packed.write(file.read())
        self.assertEqual(DATA + OTHERS + SENT, self.played(plain + ".gz"))

    def test_frames_that_no_adapter_receives_are_left_out_and_told(self):
        import can

        long = can.Message(timestamp=BEGAN, arbitration_id=1, is_extended_id=False, is_fd=True, data=bytes(12))
        path = self.written(".blf", [*messages()[:1], long, *messages()[1:3]])
        self.assertEqual(DATA, self.played(path))
        self.assertTrue(self.facts(path)["say"].endswith("; 1 bad frame left out, the first is frame 2"))

    def test_what_is_cut_short_is_played_as_far_as_it_goes(self):
        head = self.folder / "cut.csv"
        with open(self.written(".csv", messages()), "rb") as file:
            head.write_bytes(file.read()[:-40] + b"0x124,zero")
        self.assertEqual(DATA, self.played(str(head))[:3])
        self.assertRegex(self.facts(str(head))["say"], rf"; behind \d of them it cannot be read: {NO_NUMBER}\Z")

    def test_what_is_none_of_its_form_is_refused(self):
        for form in (".asc", ".blf", ".csv", ".db", ".trc", ".asc.gz", ".mf4"):
            for content in (b"", BYTES * 40, b"timestamp,arbitration_id,extended,remote,error,dlc,data\n" + BYTES):
                with self.subTest((form, content[:20])):
                    path = self.file("junk" + form, content)
                    status, out, errors = self.run_on(path)
                    self.assertEqual((1, ""), (status, out))
                    self.assertRegex(errors, r"(?s)(\A|\n)error: [^\n]*junk[^\n]*\n\Z")

    def test_the_reason_is_told_without_words_of_python(self):
        for name, content, said in (("a.trc", b"", "a.trc is empty"), ("a.blf", b"", "a.blf is empty"),
                                    ("a.asc.gz", b"", "a.asc.gz is empty"),
                                    ("b.asc", BYTES, r"b\.asc is no \.asc: it is not text"),
                                    ("b.blf", b"LOGG", r"b\.blf is no \.blf: something in it is missing"),
                                    ("n.csv", CSV + "1.0,0x12,0,0,0,1,A\n", rf"n\.csv is no \.csv: {NO_NUMBER}"),
                                    ("n.csv", CSV + "1.0,0x12,0\n", rf"n\.csv is no \.csv: {NO_NUMBER}"),
                                    ("n.csv", CSV + "1.0,zero,0,0,0,1,AA==\n", rf"n\.csv is no \.csv: {NO_NUMBER}"),
                                    ("n.csv", CSV + "one,0x12,0,0,0,1,AA==\n", rf"n\.csv is no \.csv: {NO_NUMBER}"),
                                    ("b.asc.gz", BYTES, r"b\.asc\.gz is no \.gz: it is not compressed"),
                                    ("c.asc.gz", b"\x1f\x8b", r"c\.asc\.gz is compressed and damaged")):
            with self.subTest(name):
                self.refuses(said, self.file(name, content))

    def test_lines_that_python3_can_leaves_out_are_counted(self):
        path = self.written(".trc", messages()[:3])
        with open(path, "a", encoding="ascii") as file:
            file.write("1)\n2)\n")
        self.assertEqual(DATA, self.played(path))
        self.assertTrue(self.facts(path)["say"].endswith("; 2 lines left out that python3-can cannot read"))
        self.refuses("holds no frame that can be played; 1 line left out that python3-can cannot read",
                     self.file("lone.trc", ";$FILEVERSION=1.1\n1)\n"))

    def test_a_csv_is_known_by_its_head(self):
        self.refuses("begins neither like a log of the program nor like a csv of python3-can",
                     self.file("other.csv", "time;id;data\n0;1;2\n"))


if __name__ == "__main__":
    unittest.main()

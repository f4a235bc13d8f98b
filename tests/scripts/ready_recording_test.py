#!/usr/bin/env python3
"""Tests of scripts/lib/ready_recording.py, whose folder is the argument: any recording becomes one that the bench
plays, and says what it asks of the run."""

import gzip
import pathlib
import re
import subprocess
import sys
import unittest

from readied import Readied

sys.path.insert(0, sys.argv[-1])
Readied.lib = sys.argv.pop()
import recording as rec  # noqa: E402
import run_logs  # noqa: E402

HEAD = ("Tolvane Ver1.23,,,Copyright (C) 2026 Tolvane Project,,,,https://tolvane.example/\r\n\r\n"
        "2026/01/05 9:07:03,,,bit rate：,{rate} bps\r\n{adapter}\r\n\r\nＣＡＮ受信ログ\r\n\r\n{columns}\r\n")
COLUMNS_11 = "  時間[ms] , ID  ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8"
COLUMNS_29 = "  時間[ms] , E ,    ID    ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8"
CANUSB, INTERFACE = "CANUSB LAW00001 、V1011", "Interface PCI-485120 RevID:1 ch:1 高速CAN対応"


def log(*records: str, columns: str = COLUMNS_11, rate: str = "500k", adapter: str = CANUSB) -> bytes:
    text = HEAD.format(columns=columns, rate=rate, adapter=adapter) + "".join(record + "\r\n" for record in records)
    return text.encode("cp932")


def log_29(*records: str, **how: str) -> bytes:
    return log(*records, columns=COLUMNS_29, **how)


def full(*, begins: int = 0, records: int = 20_001, **how: str) -> bytes:
    return log(*(f"{begins + n:>10} , 123 , 1 ,  {n % 256:02X}" for n in range(records)), **how)


class Lines(unittest.TestCase):
    def test_a_frame_of_each_kind_is_written_as_it_is_read(self):
        for line in (b"(0.000000) can0 123#\n", b"(1502984866.421964) can0 09F112CC#FF72\n",
                     b"(1.000000) can0 00000123#0102030405060708_F\n", b"(2.500000) can0 123#R\n",
                     b"(2.500000) can0 1FFFFFFF#R8\n", b"(3.000001) can0 20000004#0001000000000000\n",
                     b"(3.000001) can0 3FFFFFFF#\n", b"(4.000000) can0 123#01 T\n"):
            self.assertEqual(line, rec.line_of(rec.parse_line(line.removesuffix(b"\n"))))


class CandumpRecordings(Readied):
    def test_are_played_as_they_are(self):
        path = self.file("bus.log", "(1.0) can0 123#01\nbad\n(2.5) can0 124#\n")
        self.assertEqual({"say": f"{path}: 2 frames in 1.500 s: 2 standard, 0 extended, 0 remote, 0 error; "
                                 "1 bad line left out, the first is line 2",
                          "play": path, "ids": "11", "adapter": "canusb"}, self.facts(path))
        self.assertFalse(self.converted.exists())

    def test_ask_for_the_bits_of_their_identifiers(self):
        standard, extended, remote = "(1) c 123#\n", "(1) c 00000123#\n", "(1) c 00000123#R\n"
        error = "(1) c 20000004#\n"
        for content, ids in ((standard, "11"), (extended, "29"), (remote, "29"), (standard + extended, "both"),
                             (remote + standard, "both"), (standard + error, "11"), (error + extended, "29")):
            self.assertEqual(ids, self.facts(self.file("bus.log", content))["ids"], content)

    def test_ask_for_an_adapter_that_delivers_all_of_them(self):
        data = "(1) c 123#\n"
        for content, adapter in ((data, "canusb"), (data + "(2) c 123# T\n", "kvaser"),
                                 (data + "(2) c 20000004#\n", "kvaser"), (data + "(61) c 123#\n", "kvaser"),
                                 (data + "(60.999999) c 123#\n", "canusb"), ("(99) c 123#\n" + data, "canusb")):
            self.assertEqual(adapter, self.facts(self.file("bus.log", content))["adapter"], content)

    def test_are_refused_when_the_run_shows_nothing_of_them(self):
        path = self.file("bus.log", "(1) c 20000004#\n(1) c 00000123#\n")
        self.assertEqual("29", self.facts(path)["ids"])
        self.facts(path, "--ids", "29")
        self.refuses("from line 1 on: only identifiers of 29 bits", path, "--ids", "11")
        self.refuses("only error frames", self.file("errors.log", "(1) c 20000004#\n"))
        self.refuses("line 1: this is no frame", self.file("junk.log", b"\0\xff" * 99))
        self.refuses("is empty", self.file("empty.log", ""))
        self.refuses("is a folder", str(self.folder))
        self.refuses("there is no recording", str(self.folder / "gone"))


class Names(Readied):
    """A recording of our own forms under the name of another."""

    def test_a_text_of_candump_is_known(self):
        for form in (".asc", ".blf", ".csv", ".db", ".trc"):
            self.refuses(rf"bus\{form} is no \{form} but a text of candump: give it a name that ends in \.log",
                         self.file("bus" + form, "(1502984866.421964) vcan0 1FFFFFFF#0102030405060708 T\n"))

    def test_what_is_compressed_is_told(self):
        line, of_program = b"(1.0) can0 123#01\n", log("         0 , 123 , 0")
        for name, content, form in (("bus.log.gz", line, "a text of candump"), ("bus.asc.gz", line, "a text of candump"),
                                    ("KL26010509-001.csv.gz", of_program, "a log of the program")):
            self.refuses(f"is compressed, and {form} is not read so: unpack it first", self.file(name, gzip.compress(content)))

    def test_a_database_is_not_read_compressed(self):
        self.refuses(r"bus\.db\.gz: a \.db is read as it is, and not as \.gz: unpack it first",
                     self.file("bus.db.gz", gzip.compress(b"SQLite format 3\0")))


class Logs(Readied):
    def test_of_11_bits_are_played(self):
        path = self.file("a.csv", log("         0 , 1A0 , 8 ,  01,1A,FF,03,44,55,66,77", "        50 , 00F , 2 ,  09,1A",
                                      "     100.5 , 7FF , 0", "1234567890 , 7FF , 9 ,  00,00,00,00,00,00,00,00"))
        self.assertEqual(["(0.000000) can0 1A0#011AFF0344556677", "(0.050000) can0 00F#091A", "(0.100500) can0 7FF#",
                          "(1234567.890000) can0 7FF#0000000000000000_9"], self.played(path))

    def test_of_29_bits_are_played_whatever_zeros_were_lost_or_found(self):
        path = self.file("a.csv", log_29(
            "00000         0 , * , 18DAF110 , 1 ,  01", "        50 ,   , 123 , 0", "      60.5 , * , 7 , 0",
            "0001234567890 ,   , 00000123 , 0", "0001234567890.5 , * , FFFFFFF , 0"))
        self.assertEqual(["(0.000000) can0 18DAF110#01", "(0.050000) can0 123#", "(0.060500) can0 00000007#",
                          "(1234567.890000) can0 123#", "(1234567.890500) can0 0FFFFFFF#"], self.played(path))

    def test_ask_for_what_the_run_had(self):
        standard, extended = "         0 ,   , 00000123 , 0", "         0 , * , 00000123 , 0"
        for content, facts in (
                (log("         0 , 123 , 0"), ("11", "canusb", "500")),
                (log_29(extended, rate="1M"), ("29", "canusb", "1000")),
                (log_29(standard, rate="125k", adapter=INTERFACE), ("both", "interface", "125")),
                (log_29(standard, extended, adapter="Kvaser Leaf"), ("both", "kvaser", "500"))):
            found = self.facts(self.file("a.csv", content))
            self.assertEqual(facts, (found["ids"], found["adapter"], found["rate"]))

    def test_with_a_rate_that_the_program_lacks_are_refused(self):
        for rate, kilobits in (("300k", 300), ("0k", 0), ("5M", 5000)):
            self.refuses(rf"a\.csv, line 3: a bus of {kilobits} kbit/s, and the program's settings have no such rate",
                         self.file("a.csv", log("         0 , 123 , 0", rate=rate)))
        options = (pathlib.Path(self.lib).parent / "demo").read_text(encoding="utf-8")
        known = re.search(r'^option rate KBITS "([0-9|]+)"', options, re.M)[1].split("|")
        for rate in known:
            path = self.file("a.csv", log("         0 , 123 , 0", rate="1M" if rate == "1000" else f"{rate}k"))
            self.assertEqual(rate, self.facts(path)["rate"])
        self.assertEqual(known, [str(rate) for rate in run_logs.RATES])

    def test_ask_for_another_adapter_where_the_clock_of_theirs_cannot_tell_their_times(self):
        for adapter, time, wanted in ((CANUSB, 59_999, "canusb"), (CANUSB, 60_000, "kvaser"),
                                      (INTERFACE, 2_147_483, "interface"), (INTERFACE, 2_147_484, "kvaser")):
            path = self.file("a.csv", log("         0 , 123 , 0", f"{time:>10} , 123 , 0", adapter=adapter))
            self.assertEqual(wanted, self.facts(path)["adapter"], (adapter, time))

    def test_bad_lines_are_left_out_and_told(self):
        good = "         0 , 123 , 1 ,  01"
        for bad in ("", "x", "         0 , 123", "         0 , 123 , 2 ,  01", "         0 , 123 , 1", "0 , 800 , 0",
                    "         0 , * , 00000123 , 0", "         0 , 123 , 255 ,  00,00,00,00,00,00,00,00",
                    "         0 , 123 , 16 ,  00,00,00,00,00,00,00,00", "         0 , 123 , 1 ,  1", "-- , 123 , 0",
                    "9" * 5000 + " , 123 , 0", "1E999 , 123 , 0", "         0 , 123 , 1 ,  01\0"):
            path = self.file("a.csv", log(good, bad, good))
            self.assertEqual(2, len(self.played(path)), bad)
            told = "; 1 bad line left out, the first is line 10 of a.csv" if bad else ""
            self.assertTrue(self.facts(path)["say"].endswith(f" 0 error{told}"), self.facts(path)["say"])

    def test_that_hold_nothing_are_refused(self):
        self.refuses("holds no frame that can be played", self.file("a.csv", log()))
        self.refuses("no frame that can be played; 1 bad line left out, the first is line 9", self.file("a.csv", log("x")))
        self.refuses("has not the line of columns at the head of a log", self.file("a.csv", "Tolvane Ver1.23\r\n"))
        self.refuses("only identifiers of 29 bits", self.file("a.csv", log_29("         0 , * , 1 , 0")), "--ids", "11")

    def test_comments_with_line_ends_keep_the_records_where_they_are(self):
        content = log("         0 , 123 , 0", "x").replace("ＣＡＮ受信ログ".encode("cp932"), b"one\r\ntwo")
        path = self.file("a.csv", content)
        self.assertEqual(["(0.000000) can0 123#"], self.played(path))
        self.assertIn("the first is line 11 of a.csv", self.facts(path)["say"])

    def test_a_block_of_zeros_alone_is_no_bad_line(self):
        path = self.file("a.csv", log_29("         0 , * , 123 , 0") + b"0000000")
        self.assertTrue(self.facts(path)["say"].endswith(" 0 error"), self.facts(path)["say"])

    def test_a_workbook_is_told_to_be_one(self):
        for name in ("KL26010509-001.xls", "KL26010509-001.XLSX"):
            self.refuses("is a workbook, and only csv logs are played", self.file(name, b"PK\x03\x04"))

    def test_that_cannot_be_converted_are_refused(self):
        self.converted.symlink_to("/dev/full")
        self.refuses("a.csv cannot be converted to .*converted: No space left on device",
                     self.file("a.csv", log("         0 , 123 , 0")))

    def test_any_bytes_behind_a_head_are_survived(self):
        for content in (bytes(range(256)) * 64, b"\r\n" * 99, b"0" * 100_000, b" , " * 9999):
            status, out, errors = self.run_on(self.file("a.csv", log("         0 , 123 , 0") + content))
            self.assertEqual((0, ""), (status, errors))

    def test_times_that_step_back_keep_their_pace_behind_the_step(self):
        times = (100, 200, -3000, -2900, -1900)
        path = self.file("a.csv", log(*(f"{time:>10} , 123 , 0" for time in times)))
        self.assertEqual([f"({seconds}) can0 123#" for seconds in ("0.000000", "0.100000", "0.100000", "0.200000", "1.200000")],
                         self.played(path))
        self.assertIn(" 0 error; its clock steps back 1 time, which takes no time", self.facts(path)["say"])
        times = (0, 1000, 0, -1, -1, 900, -1101, -1001)
        path = self.file("a.csv", log(*(f"{time:>10} , 123 , 0" for time in times)))
        self.assertIn("; its clock steps back 2 times, which takes no time", self.facts(path)["say"])

    def test_one_time_that_is_far_back_alone_moves_no_other(self):
        times = (0, 10, 20, 5000, 5010, 3000, 5020, 5030)
        path = self.file("a.csv", log(*(f"{time:>10} , 123 , 0" for time in times)))
        self.assertEqual([f"({max(times[:n + 1]) / 1000:.6f}) can0 123#" for n in range(len(times))], self.played(path))
        self.assertTrue(self.facts(path)["say"].endswith(" 0 error"), self.facts(path)["say"])

    def test_of_a_board_whose_stamps_turn_negative_keep_their_pace(self):
        times = (0, 10, 20, -3_865_446, -1_717_979, -1_717_969)
        lines = [f"{time:>10} , 123 , 0" for time in times]
        path = self.file("a.csv", log(*lines, adapter=INTERFACE))
        self.assertEqual([f"(0.{n:03}000) can0 123#" for n in (0, 10, 20, 30, 39, 49)], self.played(path))
        self.assertTrue(self.facts(path)["say"].endswith(
            " 0 error; the board's stamps turn negative at line 12 of a.csv: the times step back there, and jump behind it by "
            "2147458 ms, right to 5 ms, which is taken out"), self.facts(path)["say"])
        self.assertIn("; its clock steps back 1 time", self.facts(self.file("b.csv", log(*lines)))["say"])
        path = self.file("a.csv", log(*lines[:4], adapter=INTERFACE))
        self.assertTrue(self.facts(path)["say"].endswith("line 12 of a.csv: the times step back there, which is taken out"),
                        self.facts(path)["say"])
        times = (0, 10, 20, -3_865_446, -1_717_979, 2_576_960, -1_288_506)
        path = self.file("a.csv", log(*(f"{time:>10} , 123 , 0" for time in times), adapter=INTERFACE))
        self.assertIn("; the board's stamps turn negative 2 times, first at line 12 of a.csv: ", self.facts(path)["say"])


class Progress(Readied):
    def test_is_told_now_and_then(self):
        path = self.file("a.csv", full(records=20_001))
        steps = ("import sys; sys.path.insert(0, sys.argv[1]); sys.argv[:2] = ['ready']; import ready_recording as ready; "
                 "ready.PROGRESS_SECONDS = 0; sys.exit(ready.main())")
        done = subprocess.run([sys.executable, "-B", "-c", steps, self.lib, path, str(self.converted)],
                              capture_output=True, text=True, check=False)
        self.assertEqual((0, [f"-- reading {path}: {n:,} frames so far" for n in (10_000, 20_000)]),
                         (done.returncode, done.stderr.splitlines()))


class Followers(Readied):
    def say(self) -> str:
        return self.facts(str(self.folder / "KL26010509-001.csv"))["say"]

    def count(self, first: str = "KL26010509-001.csv") -> int:
        return len(self.played(str(self.folder / first)))

    def test_of_a_full_log_are_played_behind_it_in_their_order(self):
        self.file("KL26010509-998.csv", full())
        self.file("KL26010509-999.csv", full(begins=20_001))
        self.file("KL26010509-1000.csv", full(begins=40_002))
        self.file("KL26010510-001.csv", log("     60003 , 123 , 0"))
        self.file("KL26010510-002.csv", log("     60004 , 123 , 0"))
        path = str(self.folder / "KL26010509-998.csv")
        self.assertEqual([f"({n // 1000}.{n % 1000:03}000)" for n in range(60_004)],
                         [line.split()[0] for line in self.played(path)])
        self.assertTrue(self.facts(path)["say"].endswith(
            ", with 3 files that follow it; KL26010510-002.csv beside it is not played, as KL26010510-001.csv is not full"))
        self.assertTrue(self.facts(str(self.folder / "KL26010509-1000.csv"))["say"].partition("; ")[0]
                        .endswith(", with 1 file that follows it"))

    def test_are_those_of_the_same_run(self):
        self.file("KL26010509-001.csv", full())
        for content, follows in ((log("     20001 , 123 , 0"), True), (log("     20000 , 123 , 0"), True),
                                 (log("         0 , 123 , 0"), False),  # a run that begins
                                 (log(), False), (b"hello", False), (log("x"), False),
                                 (log("     20001 , 123 , 0", rate="1M"), False),
                                 (log("     20001 , 123 , 0", adapter="CANUSB LAW00002"), False),
                                 (log_29("     20001 , * , 00000123 , 0"), False)):
            self.file("KL26010509-003.csv", content)
            self.assertEqual(20_001 + follows, self.count(), content[:400])

    def test_are_none_of_a_log_that_is_not_full(self):
        self.file("KL26010509-001.csv", full(records=20_000))
        self.file("KL26010509-002.csv", log("     20001 , 123 , 0"))
        self.assertEqual(20_000, self.count())
        self.assertIn("; KL26010509-002.csv beside it is not played, as KL26010509-001.csv is not full", self.say())
        self.file("KL26010509-002.csv", log("         0 , 123 , 0"))
        self.assertNotIn("beside it", self.say(), "that is the next run")

    def test_that_a_full_log_should_have_and_has_not_are_told(self):
        self.file("KL26010509-001.csv", full())
        cut_off = "; KL26010509-001.csv is full, but no file goes on: the end of the run is missing, or was not written"
        self.assertTrue(self.say().endswith(" 0 error" + cut_off), self.say())
        for content in (log("         0 , 123 , 0"), log("     20001 , 123 , 0", rate="1M"), b"hello"):
            self.file("KL26010509-002.csv", content)
            self.assertIn("; KL26010509-002.csv beside it is not played, as it is no log of this run" + cut_off, self.say())

    def test_that_are_ahead_of_the_named_one_are_told(self):
        self.file("KL26010509-001.csv", full())
        self.file("KL26010509-002.csv", log("     20001 , 123 , 0"))
        self.assertNotIn("ahead", self.say())
        for content, begins in ((log("     20001 , 123 , 0"), "20001"), (log("x", " 1234567890.5 , 123 , 0"), "1234567890.5"),
                                (log("       -30 , 123 , 0"), "-30")):
            path = self.file("KL26010509-002.csv", content)
            self.assertIn(f"; it begins at {begins} ms, and what the run has ahead of that is not played", self.facts(path)["say"])

    def test_at_whose_end_one_is_not_full_are_the_whole_run(self):
        self.file("KL26010509-001.csv", full())
        for content in (log("     20001 , 123 , 0"), log(), full(begins=20_001, records=20_000)):
            self.file("KL26010509-002.csv", content)
            self.assertNotIn("no file goes on", self.say())
        self.file("KL26010509-002.csv", full(begins=20_001))
        self.assertIn("; KL26010509-002.csv is full, but no file goes on", self.say())

    def test_of_zeros_alone_go_on_behind_one_without_records(self):
        self.file("KL26010509-001.csv", log(*["         0 , 123 , 0"] * 20_001))
        self.file("KL26010509-002.csv", log(*["x"] * 20_001))
        self.file("KL26010509-003.csv", log("         0 , 123 , 0"))
        self.assertEqual(20_002, self.count())

    def test_behind_a_jump_of_the_clock_are_told_with_it(self):
        self.file("KL26010509-001.csv", full())
        self.file("KL26010509-002.csv", log("     60001 , 123 , 0", "     60002 , 123 , 0"))
        jump = "; the adapter's clock jumps at line 9 of KL26010509-002.csv by 40000 ms, which is played as a silence"
        self.assertTrue(self.say().endswith(jump), self.say())
        self.file("KL26010509-001.csv", full(adapter="Kvaser Leaf"))
        self.file("KL26010509-002.csv", log("     60001 , 123 , 0", adapter="Kvaser Leaf"))
        self.assertNotIn("clock", self.say(), "that never starts over")

    def test_are_not_looked_for_beside_a_log_with_a_name_of_its_own(self):
        self.file("mine.csv", full())
        self.file("KL26010509-002.csv", log("     20001 , 123 , 0"))
        self.assertEqual(20_001, self.count("mine.csv"))

    def test_that_are_missing_by_their_names_are_told(self):
        self.file("KL26010509-001.csv", full())
        self.file("KL26010509-003.csv", log("     20001 , 123 , 0"))
        say = self.facts(str(self.folder / "KL26010509-001.csv"))["say"]
        self.assertTrue(say.endswith("; files seem to be missing, by the names, between KL26010509-001.csv and "
                                     "KL26010509-003.csv"), say)
        self.file("KL26010509-002.csv", full(begins=20_001))
        self.assertNotIn("by the names", self.say())

    def test_of_a_run_whose_times_are_all_zero_are_played(self):
        zeros = [f"{0:>10} , 123 , 0"] * 20_001
        self.file("KL26010509-001.csv", log(*zeros))
        self.file("KL26010509-002.csv", log(*zeros[:3]))
        self.assertEqual(20_004, self.count())

    def test_tell_where_their_bad_lines_are(self):
        self.file("KL26010509-001.csv", full())
        self.file("KL26010509-002.csv", log("     20001 , 123 , 0", "x"))
        self.assertIn("1 bad line left out, the first is line 10 of KL26010509-002.csv",
                      self.facts(str(self.folder / "KL26010509-001.csv"))["say"])


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""Tests of compare_logs: the records are the stated ones, and logs that differ are found."""

import pathlib
import sys
import tempfile
import unittest
import unittest.mock

import compare_logs as logs
from played import rec
from time_line import CLOCKS, TimeLine

RECORDING = ["(5.000000) can0 00F#", "(5.010900) can0 7FF#0102030405060708", "(5.020000) can0 1A0#0A"]
LINES = ["         0 , 00F , 0\r\n", "        10 , 7FF , 8 ,  01,02,03,04,05,06,07,08\r\n",
         "        20 , 1A0 , 1 ,  0A\r\n"]


def head(adapter: str = "canusb", ids: int = 11, date: str = "2026/01/02 3:04:05") -> str:
    lines = [logs.FIRST_LINE, "", date + ",,,bit rate：,500k bps", logs.HARDWARE[adapter], "", logs.COMMENT, "",
             logs.COLUMNS[ids], ""]
    return "\r\n".join(lines)


HEAD = head()


def records(times: int = 1, clock_start: int = 0, recording=RECORDING, ids: int = 11) -> list[logs.Record]:
    time_line = TimeLine(CLOCKS["canusb"], clock_start)
    frames = rec.parse("", "\n".join(recording).encode()).frames
    return list(logs.expected_records(frames, times, time_line, ids))


def faults(*files: str, expected: list[logs.Record] | None = None, adapter: str = "canusb",
           ids: int = 11) -> list[str]:
    with tempfile.TemporaryDirectory() as folder:
        for number, text in enumerate(files, 1):
            path = pathlib.Path(folder) / f"KL26010203-{number:03}.csv"
            path.write_bytes(text.encode("cp932"))
        return list(logs.faults(logs.logs_of(pathlib.Path(folder)), expected or records(), adapter, ids))


class Records(unittest.TestCase):
    def test_a_pass_begins_one_mean_distance_behind_the_last(self):
        self.assertEqual(["0", "10", "20", "30", "40", "50"], [record[0] for record in records(2)])

    def test_the_time_line_jumps_once_by_the_first_stamp(self):
        times = [record[0] for record in records(2, clock_start=59985)]
        self.assertEqual(["0", "10", "20", "60015", "60025", "60035"], times)

    def test_a_single_frame_comes_once_a_second(self):
        found = records(3, recording=["(5.000000) can0 00F#"])
        self.assertEqual(["0", "1000", "2000"], [record[0] for record in found])

    def test_with_11_bits_extended_frames_are_dropped_and_their_times_too(self):
        mixed = ["(5.000000) can0 00000123#", "(5.010000) can0 00F#", "(5.020000) can0 000000FF#",
                 "(5.030000) can0 010#"]
        self.assertEqual([("0", "00F"), ("20", "010"), ("40", "00F"), ("60", "010")],
                         [(record[0], record[2]) for record in records(2, recording=mixed)])


class WideRecords(unittest.TestCase):
    RECORDING = ["(5.000000) can0 09F112CC#01", "(5.010000) can0 123#", "(5.020000) can0 0FFFFFFF#02",
                 "(5.030000) can0 00000000#03"]
    FIRST = ["         0 , * , 09F112CC , 1 ,  01\r\n", "        10 ,   , 00000123 , 0\r\n",
             "        20 , * , FFFFFFF , 1 ,  02\r\n", "        30 , * , 00000000 , 1 ,  03\r\n"]
    SECOND = ["        40 , * , 9F112CC , 1 ,  01\r\n", "        50 ,   , 123 , 0\r\n",
              "        60 , * , FFFFFFF , 1 ,  02\r\n", "        70 , * , 0 , 1 ,  03\r\n"]

    def faults(self, *files: str) -> list[str]:
        with unittest.mock.patch.object(logs, "RECORDS_PER_FILE", 4):
            expected = records(3, recording=self.RECORDING, ids=29)[:9]
            return faults(*files, expected=expected, ids=29)

    def test_the_second_channel_loses_its_zeros_to_the_next_file_of_the_first(self):
        wide = head(ids=29)
        # 1 and 5 and 7 zeros.
        third = "0" * 13 + self.FIRST[0].replace(" 0 ,", "80 ,")
        files = [wide + "".join(self.FIRST), wide + "".join(self.SECOND), wide + third]
        self.assertEqual([], self.faults(*files))
        files[2] = wide + third[1:]
        self.assertEqual(1, len(self.faults(*files)))


class Faults(unittest.TestCase):
    def test_a_true_log_has_none(self):
        self.assertEqual([], faults(HEAD + "".join(LINES)))

    def test_a_wrong_time_is_found(self):
        self.assertEqual(1, len(faults(HEAD + "".join(LINES).replace("10 ,", "11 ,"))))

    def test_a_missing_frame_is_found(self):
        self.assertIn("2 records instead of 3", faults(HEAD + LINES[0] + LINES[2])[0])

    def test_a_frame_that_came_twice_is_found(self):
        self.assertIn("4 records instead of 3", faults(HEAD + "".join(LINES) + LINES[2])[0])

    def test_frames_in_another_order_are_found(self):
        self.assertEqual(2, len(faults(HEAD + LINES[1] + LINES[0] + LINES[2])))

    def test_a_file_too_many_is_found(self):
        self.assertIn("2 log files instead of 1", faults(HEAD + "".join(LINES), HEAD)[0])

    def test_a_head_without_its_columns_is_found(self):
        other = HEAD.replace(logs.COLUMNS[11], logs.COLUMNS[29])
        self.assertEqual(1, len(faults(other + "".join(LINES))))

    def test_a_head_of_another_adapter_or_without_its_date_is_found(self):
        text = "".join(LINES)
        self.assertEqual(1, len(faults(head("kvaser") + text)))
        self.assertEqual([], faults(head("kvaser") + text, adapter="kvaser"))
        self.assertEqual(1, len(faults(head(date="today") + text)))
        self.assertEqual([], faults(head(date="2026/1/2") + text), "midnight has no time")

    def test_bytes_that_are_no_text_are_found(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "KL26010203-001.csv"
            path.write_bytes(bytes(range(256)) * 8)
            self.assertNotEqual([], list(logs.faults([path], records())))

    def test_a_workbook_that_cannot_be_read_is_found(self):
        reader = unittest.mock.Mock()
        reader.load_workbook.side_effect = KeyError("no sheet")
        with unittest.mock.patch.dict(sys.modules, openpyxl=reader):
            found = list(logs.faults([pathlib.Path("KL26010203-001.xlsx")], records()))
        self.assertEqual(["KL26010203-001.xlsx: cannot be read as a workbook: 'no sheet'"], found)


if __name__ == "__main__":
    unittest.main()

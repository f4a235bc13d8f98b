#!/usr/bin/env python3
"""Tests of compare_logs: the records are the stated ones, and logs that differ are found."""

import pathlib
import tempfile
import unittest

import compare_logs as logs
import compare_replay as replay

RECORDING = ["(5.000000) can0 00F#", "(5.010900) can0 7FF#0102030405060708", "(5.020000) can0 1A0#0A"]
HEAD = "\r\n" * 7 + logs.COLUMNS + "\r\n"
LINES = ["         0 , 00F , 0\r\n", "        10 , 7FF , 8 ,  01,02,03,04,05,06,07,08\r\n",
         "        20 , 1A0 , 1 ,  0A\r\n"]


def records(times: int = 1, clock_start: int = 0) -> list[logs.Record]:
    return list(logs.expected_records(replay.read_frames(RECORDING), times, clock_start))


def faults(*files: str) -> list[str]:
    with tempfile.TemporaryDirectory() as folder:
        for number, text in enumerate(files, 1):
            path = pathlib.Path(folder) / f"KL26010203-{number:03}.csv"
            path.write_bytes(text.encode("cp932"))
        return list(logs.faults(logs.logs_of(pathlib.Path(folder)), records()))


class Records(unittest.TestCase):
    def test_a_pass_begins_one_mean_distance_behind_the_last(self):
        self.assertEqual(["0", "10", "20", "30", "40", "50"], [record[0] for record in records(2)])

    def test_the_time_line_jumps_once_by_the_first_stamp(self):
        times = [record[0] for record in records(2, clock_start=59985)]
        self.assertEqual(["0", "10", "20", "60015", "60025", "60035"], times)


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
        self.assertEqual(1, len(faults("\r\n" * 8 + "".join(LINES))))


if __name__ == "__main__":
    unittest.main()

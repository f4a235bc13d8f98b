#!/usr/bin/env python3
"""Tests of compare_replay: its page is the stated one, and a page that differs is found."""

import unittest

import compare_replay as replay


def page(*frames: str, clock_start: int = 0) -> list[str]:
    return replay.expected_page(replay.read_recording(list(frames), clock_start))[1:]


class Page(unittest.TestCase):
    def test_a_full_frame_stands_under_the_header(self):
        self.assertEqual(["1A0  8   01 02 03 04 05 06 07 08   100ms"],
                         page("(1.000000) can0 1A0#0000000000000000",
                              "(1.100000) can0 1A0#0102030405060708"))

    def test_missing_bytes_are_padded(self):
        self.assertEqual(["00F  0  " + " " * 24 + "   ----ms", "010  1   0A" + " " * 21 + "   ----ms"],
                         page("(1.000000) can0 00F#", "(1.000000) can0 010#0A"))

    def test_two_frames_at_one_stamp_have_no_cycle(self):
        lines = page("(1.000000) can0 100#", "(1.005000) can0 200#", "(1.005000) can0 200#")
        self.assertTrue(lines[1].endswith("   ????ms"))
        self.assertTrue(page("(1.000000) can0 001#", "(1.000000) can0 001#")[0].endswith("   ----ms"))

    def test_the_time_line_jumps_once_by_the_first_stamp(self):
        frames = ["(0.000000) can0 100#", "(29.990000) can0 100#", "(30.010000) can0 100#"]
        self.assertTrue(page(*frames, clock_start=30000)[0].endswith("   20ms"))
        frames.append("(30.030000) can0 100#")
        self.assertTrue(page(*frames, clock_start=30000)[0].endswith("   30020ms"))

    def test_identifier_0_has_no_line(self):
        self.assertEqual([], page("(1.000000) can0 000#"))


class Differences(unittest.TestCase):
    def test_equal_pages_have_none(self):
        self.assertEqual([], replay.differences(["a", "b"], ["a", "b"]))

    def test_a_different_line_is_found(self):
        self.assertEqual(1, len(replay.differences(["a", "b"], ["a", "c"])))

    def test_a_missing_line_is_found(self):
        self.assertEqual(1, len(replay.differences(["a", "b"], ["a"])))


if __name__ == "__main__":
    unittest.main()

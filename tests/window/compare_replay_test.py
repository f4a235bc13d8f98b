#!/usr/bin/env python3
"""Tests of compare_replay: its page is the stated one, and a page that differs is found."""

import unittest

import compare_replay as replay
import played
from played import rec
from time_line import CLOCKS, TimeLine


def choices(*frames: str, clock_start: int = 0, ids: int = 11, adapter: str = "canusb") -> list[list[str]]:
    time_line = TimeLine(CLOCKS[adapter], clock_start)
    recording = rec.parse("", "\n".join(frames).encode())
    table = replay.last_of_each(played.accepted(recording.frames, ids), time_line, ids)
    return replay.expected_page(table, ids, adapter)[1:]


def page(*frames: str, clock_start: int = 0, ids: int = 11, adapter: str = "canusb") -> list[str]:
    """The lines of a page that may be no other."""
    found = choices(*frames, clock_start=clock_start, ids=ids, adapter=adapter)
    assert all(len(lines) == 1 for lines in found), found
    return [line for line, in found]


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

    def test_interface_keeps_one_of_the_cycles_at_one_stamp(self):
        lines = choices("(1.000000) can0 200#", "(1.005000) can0 200#", "(1.012000) can0 200#",
                        "(1.012000) can0 200#", adapter="interface")
        self.assertEqual(["0ms", "5ms", "7ms"], [line.split()[-1] for line in lines[0]])

    def test_interface_shows_a_cycle_that_there_is(self):
        frames = "(1.000000) can0 200#", "(1.005000) can0 200#", "(1.012000) can0 200#"
        self.assertTrue(page(*frames, adapter="interface")[0].endswith("   7ms"))

    def test_the_time_line_jumps_once_by_the_first_stamp(self):
        frames = ["(0.000000) can0 100#", "(29.990000) can0 100#", "(30.010000) can0 100#"]
        self.assertTrue(page(*frames, clock_start=30000)[0].endswith("   20ms"))
        frames.append("(30.030000) can0 100#")
        self.assertTrue(page(*frames, clock_start=30000)[0].endswith("   30020ms"))

    def test_identifier_0_has_no_line(self):
        self.assertEqual([], page("(1.000000) can0 000#"))

    def test_extended_frames_have_no_line_and_their_times_do_not_count(self):
        self.assertEqual(["123  0  " + " " * 24 + "   ----ms"],
                         page("(1.000000) can0 00000123#01", "(1.500000) can0 123#"))


class WidePage(unittest.TestCase):
    def test_standard_and_extended_frames_of_a_number_have_a_line_each(self):
        self.assertEqual(["  00000123  1   01" + " " * 21 + "   ----ms",
                          "* 00000123  1   02" + " " * 21 + "   ----ms",
                          "* 1FFFFFFF  0  " + " " * 24 + "   ----ms"],
                         page("(1.000000) can0 1FFFFFFF#",
                              "(1.000000) can0 00000123#02", "(1.000000) can0 123#01", ids=29))

    def test_identifier_0_has_a_line(self):
        self.assertEqual(1, len(page("(1.000000) can0 00000000#", ids=29)))

    def test_standard_frames_of_identifier_0_write_over_the_first_line_that_came(self):
        frames = ["(1.000000) can0 000#00", "(1.010000) can0 124#01", "(1.020000) can0 123#02",
                  "(1.050000) can0 000#03"]
        self.assertEqual(["  00000123  1   02" + " " * 21 + "   ----ms",
                          "  00000124  1   03" + " " * 21 + "   40ms"], page(*frames, ids=29))
        self.assertEqual([], page(frames[0], ids=29))


class Clocks(unittest.TestCase):
    def test_each_kind_counts_in_its_own_ticks(self):
        frames = "(0.000000) can0 100#", "(0.000600) can0 100#"
        for adapter, start, cycle in (("canusb", 500, "----"), ("interface", 0, "0"),
                                      ("interface", 500, "1"), ("kvaser", 500, "----")):
            line = page(*frames, adapter=adapter, clock_start=start)[0]
            self.assertTrue(line.endswith(f"   {cycle}ms"), (adapter, start, line))

    def test_interface_counts_through_32_bits_and_stands_still_when_it_begins_below_zero(self):
        for start, cycle in ((429_490_000, 2), (0x80000000, 0)):
            line = page("(0.000000) can0 100#", "(0.002000) can0 100#", adapter="interface",
                        clock_start=start)[0]
            self.assertTrue(line.endswith(f"   {cycle}ms"), (start, line))


class Differences(unittest.TestCase):
    def test_equal_pages_have_none(self):
        self.assertEqual([], replay.differences([["a"], ["b", "c"]], ["a", "b"]))

    def test_any_allowed_line_will_do(self):
        self.assertEqual([], replay.differences([["a"], ["b", "c"]], ["a", "c"]))

    def test_a_different_line_is_found(self):
        self.assertEqual(1, len(replay.differences([["a"], ["b", "c"]], ["a", "d"])))

    def test_a_missing_line_is_found(self):
        self.assertEqual(1, len(replay.differences([["a"], ["b", "c"]], ["a"])))


if __name__ == "__main__":
    unittest.main()

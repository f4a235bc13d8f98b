#!/usr/bin/env python3
"""Tests of the generators: the recordings are the same bytes everywhere, and hold what the checks that play
them rely on. The argument is the folder of scripts/lib/recording.py."""

import collections
import hashlib
import os
import pathlib
import signal
import subprocess
import sys
import unittest

import boat
import both
import bus
import car
from bus import Bus, Message
from content import Content
from dice import Dice

LIB = sys.argv.pop()
sys.path.insert(0, LIB)
import recording as rec  # noqa: E402

# Of each recording, SHA-256. A deliberate change of a generator changes its line here.
HASHES = {
    "car": "dc708ac633468b0f9ae9bbdf0f2364cfe81cbaa2f9c80447f63b605680b91fc4",
    "boat": "4f4325e10a5cb682a7be07ee127f594c190f1665feb468d0394bcf36ef7ad398",
    "both": "101b8b3d023eed4690f74125249eb20f049e3f03841e2fcdc669c6239b8cf23f",
}


def bus_of(*messages: Message, length: int = 1_000_000) -> Bus:
    return Bus(list(messages), bit_time=2, began=5_000_000, length=length, seed=3, channel="can0")


def read(played: Bus) -> list[rec.Frame]:
    recording = rec.parse("", "".join(bus.candump_lines(played)).encode("ascii"))
    assert recording.bad_lines == 0
    return rec.comparable_frames(recording, 29)


def times_by_identifier(frames: list[rec.Frame]) -> dict[tuple[int, bool], list[int]]:
    found = collections.defaultdict(list)
    for frame in frames:
        found[frame.identifier, frame.extended].append(frame.microseconds)
    return found


def gaps(times: list[int]) -> list[int]:
    return [later - earlier for earlier, later in zip(times, times[1:])]


class Bytes(unittest.TestCase):
    def test_are_the_same_on_every_machine(self):
        script = pathlib.Path(__file__).parent / "generate.py"
        for name, expected in HASHES.items():
            for seed in ("1", "2"):
                environment = {"PYTHONHASHSEED": seed, "LC_ALL": "C", "PATH": os.environ["PATH"]}
                out = subprocess.run([sys.executable, "-B", script, name], check=True, env=environment,
                                     stdout=subprocess.PIPE).stdout
                self.assertEqual(expected, hashlib.sha256(out).hexdigest(), name)


class Interruption(unittest.TestCase):
    def test_the_generator_ends_without_a_word(self):
        # Nobody reads the rest of its output, so it is still writing.
        writer = subprocess.Popen([os.path.join(LIB, "python-run"), pathlib.Path(__file__).parent / "generate.py",
                                   "car"], stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        writer.stdout.read(1)
        writer.send_signal(signal.SIGINT)
        self.assertEqual(b"", writer.communicate(timeout=60)[1])
        self.assertEqual(-signal.SIGINT, writer.returncode)


class Recordings(unittest.TestCase):
    def assert_between(self, low: float, value: float, high: float, what: object = None) -> None:
        self.assertTrue(low <= value <= high, f"{what}: {value} lies outside {low} to {high}")

    def test_the_car_has_the_load_of_one(self):
        frames = read(car.BUS)
        self.assert_between(12_500, len(frames), 13_500)
        self.assert_between(8_900_000, frames[-1].microseconds, 9_000_000)
        self.assertEqual(180, len({frame.identifier for frame in frames}))
        self.assertFalse(any(frame.extended for frame in frames))
        self.assertEqual(set(range(9)), {frame.length for frame in frames})

    def test_steady_messages_keep_their_cycle_with_some_jitter(self):
        found = times_by_identifier(read(car.BUS))
        steady = [message for message in car.BUS.messages
                  if message.habit == "steady" and message != car.STOPS_AND_RETURNS]
        self.assertGreater(len(steady), 160)
        self.assertEqual({10, 20, 50, 100, 200, 500, 1_000}, {message.cycle // 1_000 for message in steady})
        for message in steady:
            # A message of low priority waits for others, for a few frames at most.
            distances = gaps(found[message.identifier, False])
            for distance in distances:
                self.assert_between(message.cycle - 5_000, distance, message.cycle + 5_000, message)
            self.assertGreater(len(set(distances)), 3, message)

    def test_a_message_of_the_car_stops_for_three_seconds_and_comes_back(self):
        times = times_by_identifier(read(car.BUS))[car.STOPS_AND_RETURNS.identifier, False]
        self.assertEqual(1, sum(gap > 2_500_000 for gap in gaps(times)))
        self.assert_between(2_900_000, max(gaps(times)), 3_200_000)
        self.assertGreater(sum(time > 6_000_000 for time in times), 20)

    def test_a_message_of_the_car_wavers(self):
        distances = gaps(times_by_identifier(read(car.BUS))[car.WAVERS.identifier, False])
        self.assertLess(min(distances), car.WAVERS.cycle * 6 // 10)
        self.assertGreater(max(distances), car.WAVERS.cycle * 14 // 10)

    def test_the_car_ends_with_identifiers_that_have_no_cycle(self):
        found = times_by_identifier(read(car.BUS)).values()
        self.assertEqual(len(car.ONCE), sum(len(times) == 1 for times in found))
        together = [times for times in found if len(times) > 1 and times[-2] // 1_000 == times[-1] // 1_000]
        self.assertGreater(len(together), 0)

    def test_two_passes_of_the_car_and_17_of_the_boat_roll_the_logs_over(self):
        self.assertGreater(2 * len(read(car.BUS)), 20_001)
        self.assert_between(2 * 20_001 + 1, 17 * len(read(boat.BUS)), 3 * 20_001)

    def test_the_boat_has_the_load_of_one(self):
        frames = read(boat.BUS)
        self.assert_between(2_350, len(frames), 2_450)
        self.assert_between(16_900_000, frames[-1].microseconds, 17_000_000)
        self.assertEqual(35, len({frame.identifier for frame in frames}))
        self.assertTrue(all(frame.extended for frame in frames))
        self.assertTrue(any(frame.length == 0 for frame in frames))
        self.assertGreater(len({frame.microseconds % 1_000 for frame in frames}), 500)
        self.assertTrue(any(frame.identifier < 0x1000 for frame in frames), "logs cut leading zeros")

    def test_both_formats_share_numbers(self):
        kinds = collections.defaultdict(set)
        for frame in read(both.BUS):
            kinds[frame.identifier].add(frame.extended)
        self.assertEqual({False, True}, kinds[0x123])
        self.assertEqual(set(both.SHARED_NUMBERS),
                         {number for number, formats in kinds.items() if len(formats) == 2})
        self.assertEqual(({False}, {True}), (kinds[0x2AB], kinds[0x1FFFFFFF]))


class TheBus(unittest.TestCase):
    def test_carries_one_frame_at_a_time(self):
        for played in (car.BUS, boat.BUS, both.BUS):
            before = 0
            for time, message, _ in bus.frames(played):
                self.assertGreaterEqual(time - before, bus.duration(message, played.bit_time))
                before = time

    def test_lets_the_lowest_go_first_and_a_standard_frame_before_an_extended_one(self):
        low, standard = Message(0x100, "", 500_000), Message(0x101, "", 500_000)
        extended, high = Message(0x101 << 18, "", 500_000, extended=True), Message(0x102, "", 500_000)
        self.assertEqual([low, standard, extended, high],
                         sorted((high, extended, standard, low), key=bus.rank))
        # Many that want to send at once leave in that order.
        crowd = [Message(number, "kkkkkkkk", 1_000) for number in (5, 4, 3, 2, 1)]
        numbers = [message.identifier for _, message, _ in bus.frames(bus_of(*crowd, length=20_000))]
        self.assertGreater(numbers.count(1), numbers.count(5) // 2)
        self.assertEqual([5] * 10, numbers[-10:], "the highest goes when all others have gone")

    def test_sends_a_burst_back_to_back(self):
        message = Message(0x55, "p", 100_000, burst=3)
        found = list(bus.frames(bus_of(message)))
        self.assertEqual(0, len(found) % 3)
        self.assertEqual([0, 1, 2] * (len(found) // 3), [data[0] & 0x1F for _, _, data in found])
        self.assertEqual([1, 2, 3, 4], [data[0] >> 5 for _, _, data in found[:12:3]])
        times = [time for time, _, _ in found[:3]]
        self.assertEqual([bus.duration(message, 2)] * 2, gaps(times))

    def test_sends_once_what_is_to_come_once_and_nothing_while_silent(self):
        messages = (Message(1, "", 500_000, habit="once"), Message(2, "", 10_000, silent=(200_000, 900_000)))
        times = times_by_identifier(read(bus_of(*messages)))
        self.assertEqual(1, len(times[1, False]))
        self.assertGreater(max(gaps(times[2, False])), 690_000)


class Contents(unittest.TestCase):
    def frames(self, signs: str, count: int) -> list[bytes]:
        content = Content(signs, Dice(7))
        return [content.next(0) for _ in range(count)]

    def test_counters_and_sums_run(self):
        found = self.frames("w#x", 20)
        self.assertEqual([number % 16 for number in range(20)], [data[1] for data in found])
        for data in found:
            self.assertEqual(0xFF, (data[0] + data[1] + data[2]) % 256)

    def test_slow_values_move_by_one_and_states_by_one_bit(self):
        found = self.frames("vb", 400)
        for byte, changes in ((0, {0, 1, 255}), (1, {0} | {1 << bit for bit in range(8)})):
            steps = {(later[byte] - earlier[byte]) % 256 if byte == 0 else later[byte] ^ earlier[byte]
                     for earlier, later in zip(found, found[1:])}
            self.assertLessEqual(steps, changes)
            self.assertGreater(len(steps), 1)

    def test_constants_stay(self):
        self.assertEqual(1, len(set(self.frames("kk0f", 50))))
        self.assertEqual(b"\x00\xff", self.frames("0f", 1)[0])

    def test_other_signs_are_refused(self):
        with self.assertRaises(ValueError):
            self.frames("q", 1)


class Chance(unittest.TestCase):
    def test_is_the_known_sequence(self):
        dice = Dice(1234567)
        self.assertEqual([6457827717110365317, 3203168211198807973, 9817491932198370423],
                         [dice.throw() for _ in range(3)])


if __name__ == "__main__":
    unittest.main()

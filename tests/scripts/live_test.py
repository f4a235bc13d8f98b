#!/usr/bin/env python3
"""Tests of what brings a live bus to the simulated adapters, scripts/lib/live_feed.py and live.sh, and of what measures
it, tests/live. The argument is the project's folder."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

PROJECT = pathlib.Path(sys.argv.pop())
sys.path[:0] = [str(PROJECT / "scripts/lib"), str(PROJECT / "tests/live")]
import delays  # noqa: E402
import live_feed  # noqa: E402
import paced  # noqa: E402
import recording as rec  # noqa: E402


class Feed(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.path = os.path.join(holder.name, "live")

    def fed(self, *chunks: bytes, segment: int = 10) -> dict[str, bytes]:
        """The files after these chunks, each of which comes alone."""
        source, sink = os.pipe()
        segments = live_feed.Segments(self.path, segment)
        self.addCleanup(lambda: segments.file.close())
        for chunk in chunks:
            os.write(sink, chunk)
        os.close(sink)
        with os.fdopen(source, "rb") as pipe:
            live_feed.feed(pipe.fileno(), segments)
        files = pathlib.Path(self.path).parent.iterdir()
        return {path.name: path.read_bytes() for path in files}

    def test_a_file_ends_with_the_line_that_reaches_its_size_and_the_next_one_is_there(self):
        self.assertEqual({"live.1": b"123\n45"}, self.fed(b"123\n45"))
        self.assertEqual({"live.1": b"123456789\n", "live.2": b""}, self.fed(b"123456789\n"))
        self.assertEqual({"live.1": b"12345678\n1\n", "live.2": b"2"}, self.fed(b"12345678\n1\n2"))
        self.assertEqual({"live.1": b"123456789012\n", "live.2": b"1234567890\n", "live.3": b"1\n"},
                         self.fed(b"123456789012\n1234567890\n1\n"))

    def test_the_last_four_files_are_kept(self):
        files = self.fed(b"".join(b"%09d\n" % n for n in range(6)))
        self.assertEqual({f"live.{n + 1}": b"%09d\n" % n for n in range(3, 6)} | {"live.7": b""}, files)

    def test_a_line_without_end_does_not_fill_the_disk(self):
        (size,) = [len(content) for content in self.fed(b"x" * 50_000, segment=live_feed.SEGMENT).values()]
        self.assertEqual(50_000, size)
        done = subprocess.run(["bash", "-c", f'(head -c 9000000 /dev/zero; printf "\\n1\\n") | '
                               f'"{sys.executable}" -B "{live_feed.__file__}" "{self.path}"'],
                              capture_output=True, text=True, check=False)
        self.assertEqual((0, "-- the lines have ended; the page stays as it is\n", ""),
                         (done.returncode, done.stdout, done.stderr))
        content = pathlib.Path(self.path + ".1").read_bytes()
        self.assertLess(len(content), 3 * live_feed.LONGEST_LINE)
        self.assertTrue(content.endswith(b"\n1\n"))

    def test_the_size_is_the_one_that_the_adapters_expect(self):
        header = (PROJECT / "simulator/live_text.h").read_text(encoding="utf-8")
        size = re.search(r"kSegment = ([0-9']+);", header)[1].replace("'", "")
        self.assertEqual(int(size), live_feed.SEGMENT)
        script = (PROJECT / "scripts/lib/live.sh").read_text(encoding="utf-8")
        self.assertIn(f'live_file_size="{live_feed.SEGMENT >> 20} MiB"', script)
        self.assertIn(f"{live_feed.SEGMENT:,} bytes", (PROJECT / "simulator/README.md").read_text(encoding="utf-8"))


class Counts(unittest.TestCase):
    def told(self, report: str, of: str = "live_counts") -> tuple[int, str]:
        with tempfile.NamedTemporaryFile("w", suffix=".txt") as file:
            file.write(report)
            file.flush()
            done = subprocess.run(["bash", "-c", f'source "{PROJECT}/scripts/lib/common.sh"\n'
                                   f'source "{PROJECT}/scripts/lib/bench.sh"\n'
                                   f'source "{PROJECT}/scripts/lib/live.sh"\n{of} "{file.name}"'],
                                  capture_output=True, text=True, check=False)
            return done.returncode, done.stdout

    def test_are_those_of_the_last_run(self):
        run = "canusbdrv run TV100001 reads=9 delivered={} dropped={} longest_gap_ms=1.000 queue_high_water=7\n"
        live = "canusbdrv live frames={} refused_lines={} files_passed_over={}\n"
        report = run.format(0, 0) + live.format(0, 0, 5) + run.format(40, 2) + live.format(42, 1, 0)
        self.assertEqual((0, "-- 42 frames came: 40 received, 2 dropped as the adapter's queue was full; "
                          "1 bad line left out\n"), self.told(report))

    def test_tell_of_lines_that_went_unread(self):
        status, said = self.told("canusbdrv run TV100001 delivered=40 dropped=2\n"
                                 "canusbdrv live frames=42 refused_lines=1 files_passed_over=3\n")
        self.assertEqual((0, 2), (status, said.count("\n")))
        self.assertIn("\n-- lines have come faster than the adapter took them: 3 files of them, of 8 MiB each, went unread\n",
                      said)

    def test_of_a_recording_are_what_its_last_run_dropped(self):
        run = "ifcan run 1 reads=9 delivered={} dropped={} longest_gap_ms=1.000 queue_high_water=7\n"
        first, drops, none = run.format(1, 9), run.format(4096, 1), run.format(40, 0)
        self.assertEqual((0, "-- 1 frame dropped as the adapter's queue was full; 4096 received\n"),
                         self.told(first + drops, "bench_drops"))
        self.assertEqual((0, ""), self.told(drops + none, "bench_drops"))
        self.assertEqual((0, ""), self.told("ifcan load\n", "bench_drops"))

    def test_are_not_told_of_a_program_that_never_was_on_the_bus(self):
        self.assertEqual((0, ""), self.told("canusbdrv load\n"))


class Measurement(unittest.TestCase):
    def test_counted_frames_come_among_the_lines_at_their_times(self):
        frames = rec.parse("", b"(5.0) c 123#\n(5.015) c 124#\n").frames
        found = [(at, number) for at, _, number in paced.lines(frames, 0x7E0, 10_000, 1)]
        self.assertEqual(sorted(at for at, _ in found), [at for at, _ in found])
        self.assertEqual(list(range(101)), [number for _, number in found if number is not None])
        self.assertEqual([0, 15_000, 30_000, 45_000], [at for at, number in found if number is None][:4])
        self.assertEqual([b"(0.010000) can0 7E0#0000000000000001\n"],
                         [line for at, line, number in paced.lines(frames, 0x7E0, 10_000, 1) if number == 1])

    def test_a_delay_is_from_the_line_to_the_first_page_with_it(self):
        sent = delays.sent_times("0 1000\n1 11000\n2 21000\n3 31000\n")
        seen = delays.seen_times("3000 7E0  8   00 00 00 00 00 00 00 00   ----ms\n"
                                 "30000 7E0  8   00 00 00 00 00 00 00 02     10ms\n"
                                 "45000 7E0  8   00 00 00 00 00 00 00 02     11ms\n")
        self.assertEqual([2.0, 9.0], delays.delays(sent, seen))

    def test_a_fifth_of_the_frames_may_be_late_and_no_more(self):
        with tempfile.TemporaryDirectory() as folder:
            for late, status in ((20, 0), (21, 1)):
                sent, seen = pathlib.Path(folder, "sent"), pathlib.Path(folder, "seen")
                sent.write_text("".join(f"{n} {n * 1_000_000}\n" for n in range(100)), encoding="ascii")
                rows = (f"{n * 1_000_000 + (51_000 if n < late else 49_000)} 7E0  8   {n.to_bytes(8, 'big').hex(' ')} 10ms\n"
                        for n in range(100))
                seen.write_text("".join(rows), encoding="utf-8")
                done = subprocess.run([sys.executable, "-B", delays.__file__, sent, seen], capture_output=True,
                                      text=True, check=False)
                self.assertEqual((status, ""), (done.returncode, done.stderr))
                self.assertIn(f"longest 51.0 ms, {late} of 100 above 50 ms\n", done.stdout)


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
"""The tables that hold the scripts' reader of logs and tolvane-log together. The arguments are the script's folder and
that of the tables."""

import ast
import pathlib
import sys
import tempfile
import unittest

TABLES = pathlib.Path(sys.argv.pop())
sys.path.insert(0, sys.argv.pop())
import clock_jump  # noqa: E402
import run_logs  # noqa: E402
import stamp_turn  # noqa: E402

HEAD = ("Tolvane Ver1.23,,,C,,,,H\r\n\r\n2026/11/20 9:05:07,,,bit rate：,{rate} bps\r\nCANUSB\r\n\r\n\r\n\r\n"
        "  時間[ms] , {columns},DLC,  D1,D2,D3,D4,D5,D6,D7,D8\r\n")
COLUMNS = {11: "ID  ", 29: "E ,    ID    "}


def rows(table: str) -> list[tuple]:
    with open(TABLES / table, encoding="utf-8") as file:
        found = [line.strip().rstrip(",") for line in file if not line.startswith("//")]
    # The values of a row are written the same way in both languages.
    return [ast.literal_eval("(" + row.removeprefix("{").removesuffix("}") + ")") for row in found]


def record_text(record: run_logs.Record) -> str:
    return (f"{record.milliseconds:.15g} {record.identifier:X} {'extended' if record.extended else 'standard'} "
            f"{record.length} {record.data.hex().upper()}")


def times(text: str) -> list[str]:
    """Each as it is written."""
    found = []
    for part in filter(None, text.split(",")):
        first, _, last = part.partition("..")
        time, _, count = part.partition("*")
        found += map(str, range(int(first), int(last) + 1)) if last else [time] * int(count or 1)
    return found


def line_of(time: str) -> str:
    return {"_": "", "x": "x"}.get(time, f"{time:>10} , 123 , 0") + "\r\n"


class Tables(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)

    def log(self, name: str, content: bytes) -> run_logs.Log:
        path = self.folder / name
        path.write_bytes(content)
        return run_logs.Log(path)

    def test_each_line_is_the_stated_record_or_none(self):
        table = rows("log_records.inc")
        self.assertGreater(len(table), 50)
        for label, bits, line, stated in table:
            with self.subTest(label):
                head = HEAD.format(rate="500k", columns=COLUMNS[bits]).encode("cp932")
                log = self.log("one.csv", head + line.encode() + b"\r\n")
                read = log.lines[0]
                record = run_logs.read_record(read, log.marked)
                found = record_text(record) if record else "no record"
                self.assertEqual(stated, "passed over" if run_logs.is_block(read, log.marked) else found)

    def test_each_head_tells_what_is_stated(self):
        table = rows("log_heads.inc")
        self.assertGreater(len(table), 10)
        for label, head, stated in table:
            with self.subTest(label):
                lines = [line.removesuffix(b"\r") for line in head.encode("latin-1").split(b"\n")]
                found = run_logs.read_head(lines)
                told = ""
                if found:
                    told = "|".join([text.decode("latin-1") for text in found[0][:4]]
                                    + ["29" if found[0].marked else "11", str(found[1])])
                self.assertEqual(stated, told)

    def test_files_are_the_stated_runs(self):
        table = rows("log_runs.inc")
        self.assertGreater(len(table), 15)
        for label, files, stated in table:
            with self.subTest(label):
                runs: list[list[run_logs.Log]] = []
                run = None
                for file in files.split():
                    name, _, text = file.partition(":")
                    head = HEAD.format(rate="250k" if name.endswith("!") else "500k", columns=COLUMNS[11])
                    records = "".join(map(line_of, times(text)))
                    log = self.log(name.rstrip("!"), (head + records).encode("cp932"))
                    if run is None or not run_logs.goes_on(log, run.last, run.last_time):
                        runs.append([])
                        run = run_logs.Run(str(log.path))
                    runs[-1].append(log)
                    for _ in run.frames_of(log):  # which keeps what its run's last time is
                        pass
                self.assertEqual(stated, "|".join(" ".join(log.path.name for log in logs) for logs in runs))

    def test_names_tell_the_stated_hour_and_number(self):
        table = rows("log_names.inc")
        self.assertGreater(len(table), 20)
        for label, name, stated in table:
            with self.subTest(label):
                place = run_logs.place(name)
                self.assertEqual(stated, f"{place[0]} {place[1]}" if place else "none")

    def test_times_tell_the_stated_jump_of_the_clock(self):
        table = rows("log_jumps.inc")
        self.assertGreater(len(table), 10)
        for label, text, wrap, stated in table:
            with self.subTest(label):
                clock = clock_jump.ClockJump(wrap)
                behind = [time for time in map(float, times(text)) if clock.follow(time)]
                found = " ".join(f"{value:g}" for value in clock.found) if clock.found else "none"
                self.assertEqual((stated, int(found != "none")), (found, len(behind)))

    def test_times_tell_the_stated_steps_of_a_board(self):
        table = rows("log_turns.inc")
        self.assertGreater(len(table), 10)
        for label, text, stated in table:
            with self.subTest(label):
                stamps = stamp_turn.StampTurn(True)
                behind = [time for time in map(float, times(text)) if stamps.follow(time)]
                turn = stamps.found
                found = (f"{turn.at:.0f} {turn.steps} {turn.jump:.0f} {turn.doubt:.0f} {stamps.ahead:.0f}" if turn
                         else "none")
                self.assertEqual((stated, int(found != "none")), (found, len(behind)))


if __name__ == "__main__":
    unittest.main()

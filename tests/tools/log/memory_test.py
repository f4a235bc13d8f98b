#!/usr/bin/env python3
"""tolvane-log takes the same little memory of a log of any length. The argument is the program. By hand, with ten million
records: tests/tools/log/memory_test.py build/native/tools/tolvane-log --records 10000000"""

import argparse
import pathlib
import subprocess
import sys
import tempfile
import time

CEILING = 12 << 20  # bytes; less than half of the log
RECORDS = 500_000
RECORDS_PER_FILE = 20_001
HEAD = ("Tolvane Ver1.23,,,C,,,,H\r\n\r\n2026/11/20 9:05:07,,,bit rate：,500k bps\r\nCANUSB ABCD\r\n\r\n\r\n\r\n"
        "  時間[ms] , ID  ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8\r\n").encode("cp932")
LINE = b"%10d , %03X , 8 ,  01,02,03,04,05,06,07,08\r\n"


def write_log(folder: pathlib.Path, records: int) -> list[str]:
    names = []
    for first in range(0, records, RECORDS_PER_FILE):
        names.append(f"KL261120{9 + len(names) // 1000:02}-{len(names) % 1000 + 1:03}.csv")
        some = range(first, min(first + RECORDS_PER_FILE, records))
        (folder / names[-1]).write_bytes(HEAD + b"".join(LINE % (n // 2, n % 0x800) for n in some))
    return names


def run_tool(folder: pathlib.Path, *words: str) -> tuple[int, float, str]:
    """The most memory that it had in use at once, the seconds it took, and what it said. What a process has been before it
    became this program counts in what the system tells at the end, so it is watched."""
    began, most = time.monotonic(), 0
    with open(folder / "said", "w+", encoding="utf-8") as said:
        with subprocess.Popen(words, cwd=folder, stdout=subprocess.DEVNULL, stderr=said) as tool:
            while tool.poll() is None:
                with open(f"/proc/{tool.pid}/status", encoding="ascii") as status:
                    most = max([most] + [int(line.split()[1]) << 10 for line in status if line.startswith("VmHWM:")])
                time.sleep(0.002)
        said.seek(0)
        text = said.read()
    if tool.returncode != 0:
        sys.exit(f"{words[1]} ended with {tool.returncode}: {text}")
    return most, time.monotonic() - began, text


def main() -> int:
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("tool", type=pathlib.Path)
    options.add_argument("--records", type=int, default=RECORDS)
    given = options.parse_args()
    tool = given.tool.resolve()
    failed = False
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        files = write_log(folder, given.records)
        for words in (["info"], ["convert", "--to", "candump"], ["convert", "--to", "asc", "--mend-clock"]):
            most, seconds, said = run_tool(folder, str(tool), *words, *files)
            wrong = most == 0 or most > CEILING
            failed = failed or wrong
            print(f"{' '.join(words)}: {given.records} records, {most / 2**20:.1f} MiB at most, {seconds:.2f} s"
                  f"{', which is wrong' if wrong else ''}")
            if words[0] == "convert" and f" {given.records} frames of {len(files)} files" not in said:
                sys.exit(f"not all records were read: {said}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())

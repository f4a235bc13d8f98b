#!/usr/bin/env python3
"""Tests that the scripts know the program's adapters: the tables src/receive/adapters/bit_rate.h and
src/run/adapter_kind.h against their own. The argument is the project's folder."""

import pathlib
import re
import subprocess
import sys
import unittest

PROJECT = pathlib.Path(sys.argv.pop())
sys.path.insert(0, str(PROJECT / "scripts/lib"))

import clock_jump  # noqa: E402
import run_logs  # noqa: E402

ROW = re.compile(r'\{u"(\d+)([kM]) bps",\s*([\w.]+),\s*([\w.]+),\s*([\w.]+)\}')
CLOCK = re.compile(r'\.name = u"([^"]*)",\s*\.timer_wrap = ([\d\']+)')
KINDS = ("canusb", "interface", "kvaser")


def of_the_program() -> dict[str, list[str]]:
    """In kbit/s, all rates in their order, and those that each kind of adapter lacks."""
    rows = ROW.findall((PROJECT / "src/receive/adapters/bit_rate.h").read_text(encoding="utf-8"))
    rates = {"all": [number + ("000" if unit == "M" else "") for number, unit, *_ in rows]}
    for place, kind in enumerate(KINDS, start=2):
        rates[kind] = sorted(rate for rate, row in zip(rates["all"], rows) if row[place] == "kNone")
    return rates


def of_the_scripts() -> dict[str, list[str]]:
    script = f'''source "{PROJECT}/scripts/lib/common.sh"
        source "$root/scripts/lib/bench.sh"
        source "$root/scripts/lib/settings.sh"
        echo all "${{rates_of_settings[@]}}"
        for kind in {" ".join(KINDS)}; do echo "$kind" ${{rates_lacking[$kind]}}; done'''
    said = subprocess.run(["bash", "-c", script], capture_output=True, text=True, check=True).stdout
    rates = {kind: rest for kind, *rest in map(str.split, said.splitlines())}
    return rates | {kind: sorted(rates[kind]) for kind in KINDS}


class Rates(unittest.TestCase):
    def test_those_of_the_scripts_are_the_programs(self):
        self.assertEqual(9, len(of_the_program()["all"]))
        self.assertEqual(of_the_program(), of_the_scripts())

    def test_those_of_an_option_and_of_a_logs_head_are_all_of_them(self):
        rates = sorted(map(int, of_the_program()["all"]))
        option = re.search(r'^option rate KBITS "([\d|]+)"', (PROJECT / "scripts/demo").read_text(encoding="utf-8"),
                           re.MULTILINE)
        self.assertEqual(rates, sorted(map(int, option[1].split("|"))))
        self.assertEqual(rates, sorted(run_logs.RATES))

    def test_the_wraps_of_the_clocks_are_the_programs(self):
        rows = CLOCK.findall((PROJECT / "src/run/adapter_kind.h").read_text(encoding="utf-8"))
        self.assertEqual(len(KINDS), len(rows))
        wraps = {name.encode("ascii"): int(wrap.replace("'", "")) for name, wrap in rows}
        self.assertEqual({name: wrap for name, wrap in wraps.items() if name and wrap}, clock_jump.WRAPS)


if __name__ == "__main__":
    unittest.main()

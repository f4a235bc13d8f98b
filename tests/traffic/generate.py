#!/usr/bin/env python3
"""Writes the recording of one of our buses to the standard output, the same bytes every time."""

import argparse
import sys

import boat
import both
import bus
import car

BUSES = {"car": car.BUS, "boat": boat.BUS, "both": both.BUS}


def main() -> None:
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("name", choices=BUSES)
    given = options.parse_args()
    sys.stdout.reconfigure(encoding="ascii", newline="\n")
    sys.stdout.writelines(bus.candump_lines(BUSES[given.name]))


if __name__ == "__main__":
    main()

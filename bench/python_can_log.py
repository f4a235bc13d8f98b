#!/usr/bin/env python3
"""The whole job of bench/compare in python3-can: a candump recording into its csv log.

usage: python_can_log.py RECORDING LOG
"""

import signal
import sys

# Ctrl-C ends it without a word, while it imports the rest too.
signal.signal(signal.SIGINT, signal.SIG_DFL)
import can  # noqa: E402


def main(recording: str, log: str) -> None:
    with can.LogReader(recording) as reader, can.CSVWriter(log) as writer:
        for message in reader:
            writer.on_message_received(message)


if __name__ == "__main__":
    main(*sys.argv[1:])

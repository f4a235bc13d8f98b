"""A CAN bus with its senders: when each wants to send, and which frame wins. Times are whole µs."""

import heapq
from collections.abc import Iterator
from typing import NamedTuple

from content import Content
from dice import Dice

LARGEST_JITTER = 1_000


class Message(NamedTuple):
    identifier: int
    signs: str             # its data, see content.Content
    cycle: int
    extended: bool = False
    habit: str = "steady"  # or "wavering", "event": at any time, once a cycle in the mean; "once"
    burst: int = 1         # frames back to back each time
    silent: tuple[int, int] = (0, 0)  # not sent from the one time to the other


class Bus(NamedTuple):
    messages: list[Message]
    bit_time: int
    began: int    # the recorder's clock
    length: int
    seed: int
    channel: str


def distance(message: Message, dice: Dice) -> int:
    """From one wish to send to the next, without jitter."""
    match message.habit:
        case "wavering": return message.cycle * dice.between(55, 145) // 100
        case "event": return message.cycle * dice.between(5, 195) // 100
    return message.cycle


def due_times(message: Message, dice: Dice, length: int) -> Iterator[int]:
    jitter = min(message.cycle // 100, LARGEST_JITTER) if message.habit == "steady" else 0
    nominal = dice.between(jitter, message.cycle)
    while nominal + jitter < length:
        if not message.silent[0] <= nominal < message.silent[1]:
            yield nominal + dice.between(-jitter, jitter)
        if message.habit == "once":
            return
        nominal += distance(message, dice)


def duration(message: Message, bit_time: int) -> int:
    """With one stuffed bit to ten others."""
    bits = (67 if message.extended else 47) + 8 * len(message.signs)
    return bits * 11 // 10 * bit_time


def rank(message: Message) -> tuple[int, bool, int]:
    """The lowest wins: the upper eleven bits decide, then a standard frame goes first."""
    upper = message.identifier >> 18 if message.extended else message.identifier
    return upper, message.extended, message.identifier


def frames(bus: Bus) -> Iterator[tuple[int, Message, bytes]]:
    """Each frame with the time of its end, since the bus began."""
    wishes: list[tuple[int, int]] = []
    contents = []
    for number, message in enumerate(bus.messages):
        dice = Dice(bus.seed * 1_000 + number)
        contents.append(Content(message.signs, dice))
        wishes.extend((due, number) for due in due_times(message, dice, bus.length))
    wishes.sort(reverse=True)
    waiting: list[tuple[tuple[int, bool, int], int, int, int]] = []
    free = 0
    while wishes or waiting:
        time = free if waiting else max(free, wishes[-1][0])
        while wishes and wishes[-1][0] <= time:
            due, number = wishes.pop()
            message = bus.messages[number]
            for place in range(message.burst):
                heapq.heappush(waiting, (rank(message), due, place, number))
        _, _, place, number = heapq.heappop(waiting)
        message = bus.messages[number]
        free = time + duration(message, bus.bit_time)
        yield free, message, contents[number].next(place)


def candump_lines(bus: Bus) -> Iterator[str]:
    for time, message, data in frames(bus):
        seconds, microseconds = divmod(bus.began + time, 1_000_000)
        digits = 8 if message.extended else 3
        yield (f"({seconds}.{microseconds:06}) {bus.channel} {message.identifier:0{digits}X}"
               f"#{data.hex().upper()}\n")

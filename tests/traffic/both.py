"""A bus on which standard and extended frames have the same numbers: what tells them apart is the format
alone."""

from bus import Bus, Message

SEED = 40
MS = 1_000
SHARED_NUMBERS = (0x000, 0x001, 0x07B, 0x123, 0x124, 0x2AA, 0x3FF, 0x456, 0x700, 0x7FF)
STANDARD = ((0x100, "vwb#", 20 * MS), (0x2AB, "", 100 * MS), (0x555, "kkkkkkkk", 500 * MS))
# Numbers beyond eleven bits, the highest of all, and the one that logs write with seven digits.
EXTENDED = ((0x00000800, "vb", 50 * MS), (0x00012345, "v#x", 100 * MS), (0x048D1123, "vvwwbb#x", 20 * MS),
            (0x0FFFFFFF, "b", 250 * MS), (0x10000123, "", 200 * MS), (0x1FFFFFFF, "wwvvbbkk", 100 * MS))


def messages() -> list[Message]:
    found = []
    for place, number in enumerate(SHARED_NUMBERS):
        found.append(Message(number, "#bvwkx0f"[:place % 9], 50 * MS))
        found.append(Message(number, "vwkkkk#x"[:8 - place % 9], 80 * MS, extended=True))
    found += [Message(number, signs, cycle) for number, signs, cycle in STANDARD]
    found += [Message(number, signs, cycle, extended=True) for number, signs, cycle in EXTENDED]
    return found


BUS = Bus(messages(), bit_time=2, began=1_720_000_000_000_001, length=8_000 * MS, seed=SEED, channel="can0")

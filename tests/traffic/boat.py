"""A boat at 250 kbit/s: 35 identifiers of 29 bits, made of a priority, the number of what is told, and the
device that tells it. What is too long for one frame comes as a burst."""

from bus import Bus, Message

SEED = 29
MS = 1_000
COMPASS, WIND, ENGINE, RECEIVER, DISPLAY = 0x17, 0x2C, 0x41, 0x85, 0xC3
# Priority, number, device, cycle, data, frames of a burst.
TOLD = (
    (2, 0x1F200, ENGINE, 100 * MS, "vwb#kfff", 1),
    (2, 0x1F112, COMPASS, 100 * MS, "#vwffffb", 1),
    (2, 0x1F113, COMPASS, 100 * MS, "#wwv0fff", 1),
    (2, 0x1F10D, COMPASS, 100 * MS, "bvffwwff", 1),
    (2, 0x1FD02, WIND, 100 * MS, "#wwwvbff", 1),
    (2, 0x1F801, RECEIVER, 100 * MS, "vvvvwwvv", 1),
    (2, 0x1F802, RECEIVER, 200 * MS, "#bwwvvff", 1),
    (3, 0x1F119, COMPASS, 100 * MS, "#wvwv0ff", 1),
    (3, 0x1F503, ENGINE, 250 * MS, "#vvffffb", 1),
    (3, 0x1F805, RECEIVER, 1_000 * MS, "pvvwwkkf", 7),
    (3, 0x1F206, ENGINE, 500 * MS, "pwwvvbkf", 4),
    (3, 0x1F905, DISPLAY, 2_000 * MS, "pkkkkkkk", 9),
    (4, 0x1FA04, RECEIVER, 1_000 * MS, "pwvbkwvb", 5),
    (5, 0x1F50B, WIND, 1_000 * MS, "#vvvffff", 1),
    (5, 0x1FD06, WIND, 250 * MS, "#vvvvkkk", 1),
    (5, 0x1FD07, WIND, 500 * MS, "#bvvkkkk", 1),
    (6, 0x1F211, ENGINE, 1_000 * MS, "bvv0000f", 1),
    (6, 0x1F214, ENGINE, 1_000 * MS, "kvvwwff#", 1),
    (6, 0x1F010, RECEIVER, 1_000 * MS, "#kvvwwww", 1),
    (7, 0x1F014, DISPLAY, 4_000 * MS, "pkkkkkkk", 19),
    (7, 0x1EF00, DISPLAY, 500 * MS, "kkbv", 1),
    (7, 0x1FF4F, WIND, 100 * MS, "kkffffvv", 1),
    (7, 0x1FF16, ENGINE, 200 * MS, "kkb#vw", 1),
    (0, 0x00001, ENGINE, 1_000 * MS, "b#x", 1),
    (0, 0x00000, COMPASS, 2_000 * MS, "", 1),
)
# At any time: what devices ask and answer.
ASKED = ((6, 0x0EA23, DISPLAY, "kkk"), (6, 0x0E8FF, RECEIVER, "kbkkkkkk"), (7, 0x0EF85, DISPLAY, "kwwwwwww"),
         (6, 0x0EAFF, ENGINE, "kk0"), (7, 0x1FF20, WIND, ""))
# Each device sends its name once.
NAME = 6, 0x0EEFF, "kkkkkkkk"


def identifier(priority: int, number: int, device: int) -> int:
    return priority << 26 | number << 8 | device


def messages() -> list[Message]:
    found = [Message(identifier(priority, number, device), signs, cycle, extended=True, burst=burst)
             for priority, number, device, cycle, signs, burst in TOLD]
    found += [Message(identifier(priority, number, device), signs, 1_500 * MS, extended=True, habit="event")
              for priority, number, device, signs in ASKED]
    priority, number, signs = NAME
    found += [Message(identifier(priority, number, device), signs, 9_000 * MS, extended=True, habit="once")
              for device in (COMPASS, WIND, ENGINE, RECEIVER, DISPLAY)]
    return found


BUS = Bus(messages(), bit_time=4, began=1_710_000_000_731_906, length=17_000 * MS, seed=SEED, channel="can1")

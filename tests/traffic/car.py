"""A car at 500 kbit/s: 180 identifiers of 11 bits, some 1,450 frames a second."""

from bus import Bus, Message
from dice import Dice

SEED = 11
MS = 1_000
# The shorter the cycle, the lower the identifiers: how many, cycle, from, to.
CYCLIC = (
    (8, 10 * MS, 0x010, 0x0FF),
    (4, 20 * MS, 0x100, 0x17F),
    (6, 50 * MS, 0x180, 0x1FF),
    (15, 100 * MS, 0x200, 0x2FF),
    (4, 200 * MS, 0x300, 0x33F),
    (11, 500 * MS, 0x340, 0x3FF),
    (116, 1_000 * MS, 0x400, 0x6FF),
)
SIGNS = ("v#wb0kfx", "vvwwbb#x", "wwvvbbkk", "kkkkkkkk", "0000v00b", "w#vbbkk", "vvbb#x", "wwkbvf", "wwk#x",
         "vwb#", "kkvb", "vb#", "vb", "b")
STOPS_AND_RETURNS = Message(0x2F7, "vvbb#x", 100 * MS, silent=(3_000 * MS, 6_000 * MS))
WAVERS = Message(0x1B8, "vw#x", 50 * MS, habit="wavering")
# A tester's questions and answers; the last of them once.
DIAGNOSIS = [Message(0x703 + 8 * number, signs, 800 * MS, habit="event", burst=burst)
             for number, (signs, burst) in enumerate((
                 ("kk000000", 1), ("pwwwwwww", 3), ("kkk", 1), ("vb", 2), ("pwwwwwww", 2), ("b", 2),
                 ("vb", 1), ("", 1), ("", 2), ("kkkkkkkk", 2)))]
ONCE = [Message(0x7D0, "kkkkkkkk", 4_000 * MS, habit="once"), Message(0x7DF, "", 6_000 * MS, habit="once"),
        Message(0x7E8, "kv0", 8_000 * MS, habit="once")]
NO_DATA = Message(0x33F, "", 200 * MS)


def cyclic_messages() -> list[Message]:
    dice = Dice(SEED)
    taken = {STOPS_AND_RETURNS.identifier, WAVERS.identifier, NO_DATA.identifier}
    return [Message(identifier, dice.pick(SIGNS), cycle)
            for count, cycle, low, high in CYCLIC
            for identifier in dice.distinct(count, low, high) if identifier not in taken]


BUS = Bus(cyclic_messages() + [STOPS_AND_RETURNS, WAVERS, NO_DATA, *DIAGNOSIS, *ONCE],
          bit_time=2, began=1_700_000_000_250_000, length=9_000 * MS, seed=SEED, channel="can0")

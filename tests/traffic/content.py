"""What the data bytes of a message hold from frame to frame."""

from dice import Dice


class Content:
    """Each sign of `signs` is one data byte:

    #  a counter from 0 to 15           x  the sum of the bytes before it, inverted
    v  a value that drifts slowly       w  a value that jumps with every frame
    b  state bits that flip now and then
    p  the place within a burst, below the burst's number in the upper three bits
    k  a constant of the message        0  zero        f  all bits set
    """

    def __init__(self, signs: str, dice: Dice) -> None:
        self.signs, self.dice = signs, dice
        self.frames = self.bursts = 0
        self.constant, self.slow, self.state = (dice.below(256) for _ in range(3))

    def next(self, place: int) -> bytes:
        """The bytes of the next frame, which has that place in its burst."""
        self.bursts += place == 0
        if self.dice.below(8) == 0:
            self.slow = (self.slow + self.dice.pick((-1, 1))) % 256
        if self.dice.below(32) == 0:
            self.state ^= 1 << self.dice.below(8)
        data: list[int] = []
        for sign in self.signs:
            data.append(self.byte(sign, data, place))
        self.frames += 1
        return bytes(data)

    def byte(self, sign: str, before: list[int], place: int) -> int:
        match sign:
            case "#": return self.frames % 16
            case "x": return ~sum(before) % 256
            case "v": return (self.slow + len(before)) % 256
            case "w": return self.dice.below(256)
            case "b": return self.state
            case "p": return self.bursts % 8 << 5 | place
            case "k": return (self.constant + 37 * len(before)) % 256
            case "0": return 0x00
            case "f": return 0xFF
        raise ValueError(f"no such sign: {sign}")

"""Chance that comes out the same on every machine and with every Python."""

MASK = (1 << 64) - 1


class Dice:
    """SplitMix64."""

    def __init__(self, seed: int) -> None:
        self.state = seed & MASK

    def throw(self) -> int:
        """64 bits."""
        self.state = (self.state + 0x9E3779B97F4A7C15) & MASK
        bits = self.state
        bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9 & MASK
        bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EB & MASK
        return bits ^ (bits >> 31)

    def below(self, limit: int) -> int:
        return self.throw() % limit

    def between(self, low: int, high: int) -> int:
        """Both ends may come."""
        return low + self.below(high - low + 1)

    def pick(self, choices):
        return choices[self.below(len(choices))]

    def distinct(self, count: int, low: int, high: int) -> list[int]:
        """So many different numbers from low to high, in rising order."""
        found: set[int] = set()
        while len(found) < count:
            found.add(self.between(low, high))
        return sorted(found)

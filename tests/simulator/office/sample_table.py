"""What sample_flush.cpp writes, computed independently: the cells of the sample workbooks."""

ROWS = 20001
HEADS = {
    "A1": ("Title & <more>", 10), "A2": ("https://example.invalid/", 8),
    "A3": ("機器 、\"版\"", 9), "A4": ("  コメント  ", 10), "C1": ("Copyright", 8),
    "D2": ("bit rate：500k bps", 10), "H1": ("2024/01/02 3:04:05", 10), "K2": ("除外ON", 10),
}
NAMES = ["経過時間 [ms]", "EX", "CAN ID", "DLC"] + [f"D{n}" for n in range(1, 9)]
LIKE_NUMBERS = ["7E8", "1E5", "001"]
BOOKS = {"full": ROWS, "short": 3}


def record(row):
    """The twelve texts of one record, row from 0."""
    identifier = LIKE_NUMBERS[row] if row < 3 else f"{row * 7919 % 0x20000000:08X}"
    return [f"{row * 3}.125", "" if row % 2 else "*", identifier, "8"] + [
        f"{(row * 31 + column) % 256:02X}" for column in range(4, 12)]


def place(name):
    """Row and column, from 1, of a cell such as "H1"."""
    return int(name[1:]), "ABCDEFGHIJKL".index(name[0]) + 1


def text(row, column, filled):
    """The text of a cell of the sheet, both from 1; "" for an empty one."""
    name = "ABCDEFGHIJKL"[column - 1] + str(row)
    if name in HEADS:
        return HEADS[name][0]
    if row == 6:
        return NAMES[column - 1]
    if 7 <= row < 7 + filled:
        return record(row - 7)[column - 1]
    return ""

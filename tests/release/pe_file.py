"""Reads the headers of a Windows executable or library."""

import pathlib
import struct
from typing import NamedTuple

LARGE_ADDRESS_AWARE = 0x0020  # Characteristics
HIGH_ENTROPY_VA = 0x0020  # DllCharacteristics, from here on
DYNAMIC_BASE = 0x0040
NX_COMPAT = 0x0100
TERMINAL_SERVER_AWARE = 0x8000

_EXPORTS, _IMPORTS, _RELOCATIONS, _DELAYED_IMPORTS = 0, 1, 5, 13


class Section(NamedTuple):
    name: str
    address: int
    size: int
    offset: int


class PeFile:
    """The headers of one file; a file of another kind raises ValueError."""

    def __init__(self, data: bytes) -> None:
        self._data = data
        if data[:2] != b"MZ":
            raise ValueError("no Windows file")
        header = self._number("I", 0x3C)
        if data[header:header + 4] != b"PE\0\0":
            raise ValueError("no PE header")
        (self.machine, sections, self.time_stamp, symbol_table, self.symbols, optional_size,
         self.characteristics) = struct.unpack_from("<HHIIIHH", data, header + 4)
        optional = header + 24
        self.is_64 = self._number("H", optional) == 0x20B
        self.image_base = self._number("Q" if self.is_64 else "I", optional + (24 if self.is_64 else 28))
        self.os_version = struct.unpack_from("<HH", data, optional + 40)
        self.subsystem_version = struct.unpack_from("<HH", data, optional + 48)
        self.dll_characteristics = self._number("H", optional + 70)
        self._directories = optional + (112 if self.is_64 else 96)
        self._strings = symbol_table + 18 * self.symbols
        self.sections = [self._section(optional + optional_size + 40 * n) for n in range(sections)]

    @classmethod
    def read(cls, path: pathlib.Path) -> "PeFile":
        return cls(path.read_bytes())

    def section_names(self) -> list[str]:
        return [section.name for section in self.sections]

    def imports(self) -> set[str]:
        """The imported libraries, in lower case."""
        return self._libraries(_IMPORTS, 20, 12) | self._libraries(_DELAYED_IMPORTS, 32, 4)

    def relocations(self) -> int:
        """Bytes of the table without which the file cannot be moved to another address."""
        return self._directory(_RELOCATIONS)[1]

    def export_time_stamp(self) -> int:
        """0 too without exports."""
        address, size = self._directory(_EXPORTS)
        return self._number("I", self._offset(address) + 4) if size else 0

    def _libraries(self, directory: int, row_size: int, name_at: int) -> set[str]:
        address, size = self._directory(directory)
        names: set[str] = set()
        if size == 0:
            return names
        row = self._offset(address)
        while name := self._number("I", row + name_at):
            names.add(self._text(self._offset(name)).lower())
            row += row_size
        return names

    def _number(self, kind: str, offset: int) -> int:
        return struct.unpack_from("<" + kind, self._data, offset)[0]

    def _text(self, offset: int) -> str:
        return self._data[offset:self._data.index(b"\0", offset)].decode("ascii")

    def _section(self, row: int) -> Section:
        name = self._data[row:row + 8].rstrip(b"\0").decode("ascii")
        if name.startswith("/"):  # a longer name is stored after the symbols
            name = self._text(self._strings + int(name[1:]))
        _, address, size, offset = struct.unpack_from("<IIII", self._data, row + 8)
        return Section(name, address, size, offset)

    def _directory(self, index: int) -> tuple[int, int]:
        return struct.unpack_from("<II", self._data, self._directories + 8 * index)

    def _offset(self, address: int) -> int:
        for section in self.sections:
            if section.address <= address < section.address + section.size:
                return section.offset + address - section.address
        raise ValueError(f"no section holds the address {address:#x}")

#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Reads an ELF library (64 bits, little-endian) and adds up its sections and relocations.

    library_size.py library.so

Prints a Markdown table.
"""
import pathlib
import re
import struct
import sys

# What a section is for, by its name; the first that fits. The debugger's sections are not loaded.
GROUPS = [
    ("code", r"\.(text|init|fini|plt)"),
    ("constants, shared by all processes", r"\.(rodata|note)"),
    ("unwinding", r"\.(eh_frame|gcc_except_table)"),
    ("names and relocations", r"\.(gnu\.|dyn|rela|hash)"),
    ("constants that hold addresses", r"\.(data\.rel\.ro|init_array|fini_array|got|tm_clone)"),
    ("variables", r"\.(data|bss|tbss|tdata)"),
]
SHF_ALLOC = 2
SHT_RELA = 4
R_RELATIVE = {62: 8, 183: 1027}  # by machine: x86-64, AArch64


class Library:
    """Bytes of each group of sections, and the counts of relocations."""

    def __init__(self, path):
        image = pathlib.Path(path).read_bytes()
        if image[:6] != b"\x7fELF\x02\x01":
            sys.exit(f"{path}: not an ELF file of 64 bits, little-endian")
        machine, = struct.unpack_from("<H", image, 18)
        table, = struct.unpack_from("<Q", image, 40)
        entry, count, names = struct.unpack_from("<HHH", image, 58)
        headers = [struct.unpack_from("<IIQQQQ", image, table + i * entry) for i in range(count)]
        self.sizes = {group: 0 for group, _ in GROUPS}
        self.relative = 0
        self.by_symbol = 0
        for name, kind, flags, _, offset, size in headers:
            start = headers[names][4] + name
            text = image[start:image.index(b"\0", start)].decode()
            if flags & SHF_ALLOC:
                self.sizes[self.group(text)] += size
            if kind == SHT_RELA:
                for at in range(offset, offset + size, 24):
                    info, = struct.unpack_from("<Q", image, at + 8)
                    if info & 0xFFFFFFFF == R_RELATIVE.get(machine):
                        self.relative += 1
                    else:
                        self.by_symbol += 1

    @staticmethod
    def group(section):
        for group, pattern in GROUPS:
            if re.match(pattern, section):
                return group
        sys.exit(f"section {section} has no group")

    def table(self):
        """Lines of a Markdown table, and a sentence on relocations."""
        lines = ["| Part | KiB |", "| --- | ---: |"]
        lines += [f"| {group} | {size / 1024:.1f} |" for group, size in self.sizes.items()]
        lines += [f"| all | {sum(self.sizes.values()) / 1024:.1f} |", "",
                  f"Relocations: {self.relative} relative, {self.by_symbol} by symbol."]
        return lines


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    print("\n".join(Library(sys.argv[1]).table()))


if __name__ == "__main__":
    main()

# SPDX-License-Identifier: Apache-2.0
"""Reads the mapping files in mappings/. Their format is told in README.md beside this file.

Codes are numbers: a byte, two bytes with the lead first, or four. They sort as the bytes do.
"""

import re
from dataclasses import dataclass, field

FOUR_BYTES = (range(0x81, 0xFF), range(0x30, 0x3A)) * 2


class MappingError(Exception):
    """A file that is not as README.md says."""


@dataclass
class Mapping:
    name: str = ""
    class_name: str = ""
    leads: list = field(default_factory=list)
    trails: list = field(default_factory=list)
    decode: dict = field(default_factory=dict)
    encode: dict = field(default_factory=dict)

    def position_after(self, code):
        """The next code of the same length, None after the last."""
        if code < 0x100:
            return code + 1 if code < 0xFF else None
        digits = FOUR_BYTES if code > 0xFFFF else [self.leads, self.trails]
        if (code & 0xFF) + 1 in digits[-1]:
            return code + 1
        values = code.to_bytes(len(digits), "big")
        result = []
        carry = True
        for value, choices in zip(reversed(values), reversed(digits)):
            place = choices.index(value) + carry
            carry = place == len(choices)
            result.append(choices[0 if carry else place])
        return None if carry else int.from_bytes(bytes(reversed(result)), "big")


def numbers(ranges):
    result = []
    for part in ranges.split():
        first, _, last = part.partition("-")
        result.extend(range(int(first, 16), int(last or first, 16) + 1))
    return result


def add(table, key, value):
    if key in table:
        raise MappingError(f"{key:04X} has two rows")
    table[key] = value


def read_line(mapping, line, decode_only, encode_rows):
    word, _, rest = line.partition(" ")
    if word == "set":
        mapping.name = rest
    elif word == "class":
        mapping.class_name = rest
    elif word == "lead":
        mapping.leads = numbers(rest)
    elif word == "trail":
        mapping.trails = numbers(rest)
    elif word == "run":
        first, last, character = (int(x, 16) for x in re.split("[- ]", rest))
        while True:
            add(mapping.decode, first, character)
            if first == last:
                break
            first = mapping.position_after(first)
            character += 1
            if first is None:
                raise MappingError("run beyond the last position")
    elif word == "decode-only":
        decode_only.update(int(x, 16) for x in rest.split())
    elif word == "encode":
        first, codes = rest.split(": ")
        for character, code in enumerate(codes.split(), int(first, 16)):
            if code != ".":
                add(encode_rows, character, int(code, 16))
    elif word.endswith(":"):
        code = int(word[:-1], 16)
        for character in rest.split():
            if code is None:
                raise MappingError("row beyond the last position")
            if character != ".":
                add(mapping.decode, code, int(character, 16))
            code = mapping.position_after(code)
    else:
        raise MappingError("unknown line")


def read(path):
    """The mapping in a file."""
    mapping = Mapping()
    decode_only = set()
    encode_rows = {}
    with open(path, encoding="ascii") as file:
        for number, line in enumerate(file, 1):
            line = line.rstrip("\n")
            if line and not line.startswith("#"):
                try:
                    read_line(mapping, line, decode_only, encode_rows)
                except (MappingError, ValueError) as error:
                    raise MappingError(f"{path}:{number}: {error}") from None
    if not decode_only <= mapping.decode.keys():
        raise MappingError(f"{path}: decode-only code without a row")
    for code, character in mapping.decode.items():
        if code not in decode_only:
            add(mapping.encode, character, code)
    for character, code in encode_rows.items():
        add(mapping.encode, character, code)
    return mapping

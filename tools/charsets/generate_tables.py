#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes the tables of the character sets from the mapping files beside it.

    generate_tables.py [--output DIRECTORY] [--check]

One header for each mapping file. With --check nothing is written: the exit code is 1 if a header is
not what its mapping file gives. The same mappings give the same bytes on every run.
"""

import argparse
import pathlib
import sys

import mapping_file

HERE = pathlib.Path(__file__).resolve().parent
MAPPINGS = HERE / "mappings"
DEFAULT_OUTPUT = HERE.parents[1] / "orv/liborvxx/charset/tables"
LINE_WIDTH = 100

UNMAPPABLE = 0xDFFF
NO_PAGE = 0xFFFF
NO_BYTES = 0xFFFF

# The shapes of the tables. They are part of what the coders are; a page size is fixed for each set,
# so that a change of its rows does not move pages about.
DIRECT_SINGLE_BYTE = {"ISO_8859_2", "ISO_8859_3", "ISO_8859_4", "ISO_8859_9"}
SPARSE_SINGLE_BYTE = {
    "ISO_8859_5": 7, "ISO_8859_6": 6, "ISO_8859_7": 6, "ISO_8859_8": 6, "ISO_8859_10": 7,
    "ISO_8859_11": 6, "ISO_8859_13": 7, "ISO_8859_14": 7, "ISO_8859_15": 7, "ISO_8859_16": 6,
    "KOI8_R": 7, "KOI8_U": 5,
    "Micsft_874": 6, "Micsft_1250": 6, "Micsft_1251": 6, "Micsft_1252": 5, "Micsft_1253": 5,
    "Micsft_1254": 5, "Micsft_1255": 5, "Micsft_1256": 5, "Micsft_1257": 6, "Micsft_1258": 5,
}
# Bits of a page: to Unicode, from Unicode.
DOUBLE_BYTE = {
    "Shift_JIS": (6, 6), "Micsft_932": (6, 5), "GBK": (14, 6), "Micsft_936": (14, 6),
    "Micsft_949": (5, 5), "Big5": (5, 6), "Micsft_950": (5, 6), "Big5_HKSCS": (5, 4),
}
DOUBLE_BYTE_IDS = 24576
LARGEST_DOUBLE_BYTE_ID = (0xFE - 0x80) * 192 + 0xFF

# GB18030: pages of 64. A page that lies inside a linear run is not stored; its index entry names
# the run. L = c + delta.
GB18030_SHIFT = 6
GB18030_DELTAS = [24036, 23746, 23444, 23435, 23433, 23428, 23422, 23411, 2495, -1621, -1642, -1794,
                  147786]
GB18030_FIRST_RUN = 0xFFFE
GB18030_LAST_BMP = 63741


class Writer:
    """The text of one header."""

    def __init__(self, mapping):
        self.name = mapping.class_name.lower()
        self.lines = []
        self.text = [
            "// SPDX-License-Identifier: Apache-2.0",
            "/// \\file",
            f"/// \\brief Tables of {mapping.name}. Made by tools/charsets/generate_tables.py from",
            f"/// tools/charsets/mappings/{self.name}.map; do not edit.",
        ]

    def constant(self, kind, name, value):
        self.lines.append(f"inline constexpr {kind} {name} = {value};")

    def array(self, kind, name, values):
        width = 5 if kind == "std::uint32_t" else 4
        form = "{:d}" if kind == "std::int32_t" else "0x{:0%dX}" % width
        if kind == "char16":
            form = "u'\\x{:04X}'"
        self.lines.append(f"inline constexpr {kind} {name}[{len(values)}] = {{")
        line = "   "
        for value in values:
            cell = " " + form.format(value) + ","
            if len(line) + len(cell) > LINE_WIDTH:
                self.lines.append(line)
                line = "   "
            line += cell
        self.lines.append(line)
        self.lines.append("};")

    def contents(self):
        guard = f"ORV_LIBORVXX_CHARSET_TABLES_{self.name.upper()}_H"
        includes = ["#include <cstdint>"]
        if any("constexpr char16" in line for line in self.lines):
            includes = ['#include "orv/liborvxx/text/char16.h"', ""] + includes
        space = f"namespace orv::tables::{self.name} {{"
        return "\n".join(
            self.text + [f"#ifndef {guard}", f"#define {guard}", ""] + includes +
            ["", "// clang-format off", space, ""] + self.lines +
            ["", "} " + f"// namespace orv::tables::{self.name}", "", "#endif", ""])


def paged(entries, shift, default, count, end):
    """Index and data of a table with `count` keys whose data stops before key `end`."""
    size = 1 << shift
    used = {key >> shift for key in entries}
    index = []
    data = []
    for page in range((count + size - 1) >> shift):
        if page not in used:
            index.append(NO_PAGE)
            continue
        index.append(len(data))
        first = page << shift
        data.extend(entries.get(key, default) for key in range(first, min(first + size, end)))
    return index, data


def single_byte_tables(mapping, writer):
    name = mapping.class_name
    writer.array("char16", "DECODE", [mapping.decode.get(b, UNMAPPABLE) for b in range(256)])
    highest = max(mapping.encode)
    writer.constant("std::uint32_t", "MAX_CHAR", f"0x{highest:04X}")
    if name in DIRECT_SINGLE_BYTE:
        writer.array("std::uint16_t", "ENCODE",
                     [mapping.encode.get(c, NO_BYTES) for c in range(highest + 1)])
        return
    shift = SPARSE_SINGLE_BYTE[name]
    index, data = paged(mapping.encode, shift, NO_BYTES, highest + 1, highest + 1)
    writer.constant("unsigned int", "ENCODE_SHIFT", shift)
    writer.array("std::uint16_t", "ENCODE_INDEX", index)
    writer.array("std::uint16_t", "ENCODE_DATA", data)


def double_byte_id(code):
    return code if code < 0x100 else ((code >> 8) - 0x80) * 192 + (code & 0xFF)


def double_byte_tables(mapping, writer):
    decode_shift, encode_shift = DOUBLE_BYTE[mapping.class_name]
    ids = {double_byte_id(code): character for code, character in mapping.decode.items()}
    wide = max(ids.values()) > 0xFFFF
    index, data = paged(ids, decode_shift, UNMAPPABLE, DOUBLE_BYTE_IDS, LARGEST_DOUBLE_BYTE_ID + 1)
    writer.constant("unsigned int", "DECODE_SHIFT", decode_shift)
    writer.array("std::uint16_t", "DECODE_INDEX", index)
    writer.array("std::uint32_t" if wide else "char16", "DECODE_DATA", data)

    highest = max(mapping.encode)
    size = 1 << encode_shift
    whole_pages = (highest // size + 1) * size
    index, data = paged(mapping.encode, encode_shift, NO_BYTES, highest + 1, whole_pages)
    writer.constant("unsigned int", "ENCODE_SHIFT", encode_shift)
    writer.constant("std::uint32_t", "MAX_KEY", f"0x{highest:04X}")
    writer.array("std::uint16_t", "ENCODE_INDEX", index)
    writer.array("std::uint16_t", "ENCODE_DATA", data)


def gb18030_linear(code):
    """The linear index of a code."""
    if code < 0x100:
        return code
    if code < 0x10000:
        return (code >> 8) * 191 + (code & 0xFF) - 24447
    b1, b2, b3, b4 = code.to_bytes(4, "big")
    return ((b1 * 10 + b2) * 126 + b3) * 10 + b4 - 1662896


def gb18030_paged(entries, sign, default, count):
    """As `paged`, with runs: a page is in one if every entry is its key plus or minus the delta."""
    size = 1 << GB18030_SHIFT
    index = []
    data = []
    for first in range(0, count, size):
        page = [entries.get(key) for key in range(first, first + size)]
        distances = {None if entry is None else sign * (entry - key)
                     for key, entry in enumerate(page, first)}
        if distances == {None}:
            index.append(NO_PAGE)
        elif len(distances) == 1 and (delta := distances.pop()) in GB18030_DELTAS:
            index.append(GB18030_FIRST_RUN - GB18030_DELTAS.index(delta))
        else:
            index.append(len(data))
            data.extend(default if entry is None else entry for entry in page)
    return index, data


def gb18030_tables(mapping, writer):
    linear = {gb18030_linear(code): character for code, character in mapping.decode.items()}
    beyond = {key - character for key, character in linear.items() if character > 0xFFFF}
    if beyond != {GB18030_DELTAS[-1]}:
        raise mapping_file.MappingError("GB18030: supplementary characters are not one run")
    linear = {key: character for key, character in linear.items() if character <= 0xFFFF}
    index, data = gb18030_paged(linear, -1, UNMAPPABLE, GB18030_LAST_BMP + 1)
    writer.array("std::uint16_t", "DECODE_INDEX", index)
    writer.array("char16", "DECODE_DATA", data)
    index, data = gb18030_paged({c: key for key, c in linear.items()}, 1, NO_BYTES, 0x10000)
    writer.array("std::uint16_t", "ENCODE_INDEX", index)
    writer.array("std::uint16_t", "ENCODE_DATA", data)
    writer.array("std::int32_t", "DELTAS", GB18030_DELTAS)


def header(mapping):
    writer = Writer(mapping)
    if mapping.class_name == "GB18030":
        gb18030_tables(mapping, writer)
    elif mapping.class_name in DOUBLE_BYTE:
        double_byte_tables(mapping, writer)
    else:
        single_byte_tables(mapping, writer)
    return writer.name + ".h", writer.contents()


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("--output", type=pathlib.Path, default=DEFAULT_OUTPUT)
    parser.add_argument("--check", action="store_true", help="compare, write nothing")
    arguments = parser.parse_args()
    headers = dict(header(mapping_file.read(path)) for path in sorted(MAPPINGS.glob("*.map")))
    if not arguments.check:
        arguments.output.mkdir(parents=True, exist_ok=True)
        for name, text in headers.items():
            (arguments.output / name).write_text(text, encoding="ascii")
        return 0
    present = {path.name: path.read_text(encoding="ascii")
               for path in arguments.output.glob("*.h")}
    wrong = [name for name in sorted(headers.keys() | present.keys())
             if headers.get(name) != present.get(name)]
    for name in wrong:
        print(f"{arguments.output / name} is not what the mapping files give", file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes orv/liborv/unicode/tables/unichar_tables.inc from the Unicode Character Database.

    generate_unichar_tables.py [UCD_DIRECTORY] [--output FILE] [--check]

UCD_DIRECTORY holds UnicodeData.txt, PropList.txt and DerivedCoreProperties.txt, plain or
compressed (.gz, .bz2). The default is where Debian's package unicode-data puts them. With --check
nothing is written: the exit code is 1 if the file is not what the data gives. The same data gives
the same bytes on every run.
"""

import argparse
import bz2
import gzip
import pathlib
import re
import sys

CODE_POINTS = 0x110000
BLOCK_SIZE = 256
LINE_WIDTH = 100
REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
DEFAULT_OUTPUT = REPOSITORY / "orv/liborv/unicode/tables/unichar_tables.inc"
DEFAULT_UCD = pathlib.Path("/usr/share/unicode")

# The numbers of enum OrvUniClass.
CLASSES = {
    "Cn": 0,
    "Lu": 8, "Ll": 9, "Lt": 10, "Lm": 11, "Lo": 12,
    "Mn": 16, "Mc": 17, "Me": 18,
    "Nd": 24, "Nl": 25, "No": 26,
    "Pc": 32, "Pd": 33, "Ps": 34, "Pe": 35, "Pi": 36, "Pf": 37, "Po": 38,
    "Sm": 40, "Sc": 41, "Sk": 42, "So": 43,
    "Zs": 48, "Zl": 49, "Zp": 50,
    "Cc": 57, "Cf": 58, "Cs": 60, "Co": 61,
}

# The bits of enum OrvUniProperty: those that follow from the category, and those listed in a file.
DEFINED, LETTER, TITLECASE, DECIMAL_DIGIT, CONTROL = 1 << 0, 1 << 1, 1 << 5, 1 << 6, 1 << 7
LISTED_PROPERTIES = {
    "DerivedCoreProperties.txt": {
        "Alphabetic": 1 << 2,
        "Lowercase": 1 << 3,
        "Uppercase": 1 << 4,
        "ID_Start": 1 << 14,
        "ID_Continue": 1 << 15,
    },
    "PropList.txt": {"White_Space": 1 << 18},
}


class DataError(Exception):
    """The database is not there, or not as expected."""


def read_lines(directory, name):
    for suffix, opener in (("", open), (".gz", gzip.open), (".bz2", bz2.open)):
        path = directory / (name + suffix)
        if path.is_file():
            with opener(path, "rt", encoding="utf-8") as file:
                return file.read().splitlines()
    raise DataError(f"{directory / name}: not found (Debian package: unicode-data)")


def read_version(directory):
    """The version, from the first line of a file that carries it: "# PropList-15.0.0.txt"."""
    found = set()
    for name in LISTED_PROPERTIES:
        match = re.match(r"# \w+-(\d+\.\d+\.\d+)\.txt$", read_lines(directory, name)[0])
        if not match:
            raise DataError(f"{directory / name}: the first line names no version")
        found.add(match.group(1))
    if len(found) != 1:
        raise DataError(f"{directory}: files of several versions: {', '.join(sorted(found))}")
    return found.pop()


def read_ranges(directory, name):
    """Yields (range, value) from the lines "0041..005A ; Value # comment"."""
    for line in read_lines(directory, name):
        fields = [field.strip() for field in line.split("#")[0].split(";")]
        if len(fields) >= 2:
            first, _, last = fields[0].partition("..")
            yield range(int(first, 16), int(last or first, 16) + 1), fields[1]


def read_unicode_data(directory):
    """Yields (range, fields) from UnicodeData.txt, a First/Last pair of lines as one range."""
    first = None
    for line in read_lines(directory, "UnicodeData.txt"):
        fields = line.split(";")
        if len(fields) != 15:
            raise DataError(f"UnicodeData.txt: not 15 fields: {line}")
        code_point = int(fields[0], 16)
        if fields[1].endswith(", First>"):
            first = code_point
        elif fields[1].endswith(", Last>"):
            yield range(first, code_point + 1), fields
        else:
            yield range(code_point, code_point + 1), fields


def category_properties(category):
    properties = 0 if category == "Cn" else DEFINED
    if category[0] == "L":
        properties |= LETTER
    return properties | {"Lt": TITLECASE, "Nd": DECIMAL_DIGIT, "Cc": CONTROL}.get(category, 0)


def read_records(directory):
    """One record for each code point: (lower, upper, title, properties, class, digit)."""
    listed = [0] * CODE_POINTS
    for name, bits in LISTED_PROPERTIES.items():
        seen = set()
        for code_points, value in read_ranges(directory, name):
            if value in bits:
                seen.add(value)
                for code_point in code_points:
                    listed[code_point] |= bits[value]
        if seen != set(bits):
            raise DataError(f"{name}: no {', '.join(sorted(set(bits) - seen))}")

    records = [(0, 0, 0, properties, CLASSES["Cn"], -1) for properties in listed]
    for code_points, fields in read_unicode_data(directory):
        category, decimal, upper, lower, title = (fields[i] for i in (2, 6, 12, 13, 14))
        if (category == "Nd") != (decimal != ""):
            raise DataError(f"UnicodeData.txt: U+{fields[0]}: a decimal digit without a value")
        title = title or upper  # the file's own rule for an empty title field
        for code_point in code_points:
            lower_by, upper_by, title_by = (
                int(target, 16) - code_point if target else 0 for target in (lower, upper, title))
            records[code_point] = (
                lower_by, upper_by, title_by, listed[code_point] | category_properties(category),
                CLASSES[category], int(decimal or "-1"))
    return records


def compress(records):
    unassigned = (0, 0, 0, 0, CLASSES["Cn"], -1)
    record_numbers = {unassigned: 0}  # the lookup relies on this one being first
    numbers = [record_numbers.setdefault(record, len(record_numbers)) for record in records]
    block_numbers = {}
    block_of = [
        block_numbers.setdefault(tuple(numbers[start:start + BLOCK_SIZE]), len(block_numbers))
        for start in range(0, CODE_POINTS, BLOCK_SIZE)]
    places = [number for block in block_numbers for number in block]
    return block_of, places, list(record_numbers)


def wrap(items):
    lines, line = [], "   "
    for item in items:
        if len(line) + len(item) + 2 > LINE_WIDTH:
            lines.append(line)
            line = "   "
        line += f" {item},"
    return "\n".join(lines + [line])


def integer_array(name, values):
    width = "uint8_t" if max(values) < 0x100 else "uint16_t"
    return (f"static const {width} {name}[{len(values)}] = {{\n"
            f"{wrap([str(value) for value in values])}\n}};\n")


def record_array(records):
    rows = ["{%d, %d, %d, 0x%X, %d, %d}" % record for record in records]
    return f"static const UniCharRecord unicharRecords[{len(rows)}] = {{\n{wrap(rows)}\n}};\n"


def render(directory):
    version = read_version(directory)
    block_of, places, records = compress(read_records(directory))
    header = (
        "// SPDX-License-Identifier: Apache-2.0 AND Unicode-DFS-2016\n"
        "/// \\file\n"
        f"/// \\brief Unicode {version} property tables, for unichar.c alone.\n"
        "///\n"
        "/// Generated by tools/unicode/generate_unichar_tables.py; change that, and not this.\n"
        "// clang-format off\n\n"
        f"#define UNICHAR_UNICODE_VERSION \"{version}\"\n"
        f"enum {{ UNICHAR_CODE_POINTS = 0x{CODE_POINTS:X}, UNICHAR_BLOCK_SIZE = {BLOCK_SIZE} }};\n\n")
    return header + "\n".join([
        "// {lower, upper, title, properties, charClass, digitValue}\n" + record_array(records),
        "// The block of each run of code points.\n" + integer_array("unicharBlocks", block_of),
        "// The record of each place in each block.\n" + integer_array("unicharPlaces", places)])


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("ucd", nargs="?", type=pathlib.Path, default=DEFAULT_UCD)
    parser.add_argument("--output", type=pathlib.Path, default=DEFAULT_OUTPUT)
    parser.add_argument("--check", action="store_true")
    arguments = parser.parse_args()
    try:
        text = render(arguments.ucd).encode("ascii")
    except DataError as error:
        sys.exit(f"generate_unichar_tables.py: {error}")
    if not arguments.check:
        arguments.output.write_bytes(text)
        return
    if not arguments.output.is_file():
        sys.exit(f"{arguments.output}: missing; run tools/unicode/generate_unichar_tables.py")
    if arguments.output.read_bytes() != text:
        sys.exit(f"{arguments.output}: differs from what {arguments.ucd} gives; "
                 "run tools/unicode/generate_unichar_tables.py and look at the difference")


if __name__ == "__main__":
    main()

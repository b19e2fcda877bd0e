# SPDX-License-Identifier: Apache-2.0
"""Reads the files of the Unicode Character Database, plain or compressed (.gz, .bz2)."""

import bz2
import gzip
import pathlib
import re

DEFAULT_DIRECTORY = pathlib.Path("/usr/share/unicode")  # of Debian's package unicode-data


class DataError(Exception):
    """The database is not there, or not as expected."""


def read_lines(directory, name):
    for suffix, opener in (("", open), (".gz", gzip.open), (".bz2", bz2.open)):
        path = directory / (name + suffix)
        if path.is_file():
            with opener(path, "rt", encoding="utf-8") as file:
                return file.read().splitlines()
    raise DataError(f"{directory / name}: not found (Debian package: unicode-data)")


def read_version(directory, names):
    """The version, from the first lines of the files: "# PropList-15.0.0.txt"."""
    found = set()
    for name in names:
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

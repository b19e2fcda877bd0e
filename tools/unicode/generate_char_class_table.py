#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes orv/liborvxx/locale/tables/char_class_table.inc from the Unicode Character Database.

    generate_char_class_table.py [UCD_DIRECTORY] [--output FILE] [--check]

UCD_DIRECTORY holds UnicodeData.txt, PropList.txt and DerivedAge.txt, plain or compressed (.gz,
.bz2). The default is where Debian's package unicode-data puts them. With --check nothing is
written: the exit code is 1 if the file is not what the data gives. The same data gives the same
bytes on every run. The classes are those of Unicode 4.1, whatever the version of the data.
"""

from table_file import REPOSITORY, main, wrap
from ucd import DataError, read_ranges, read_unicode_data, read_version

CODE_UNITS = 0x10000
PAGE_SIZE = 16
UNIFORM = 0x8000  # marks an entry of the index that is itself the mask of a whole page
REPERTOIRE = (4, 1)
DEFAULT_OUTPUT = REPOSITORY / "orv/liborvxx/locale/tables/char_class_table.inc"

# The bits of enum CharClass.
UPPER, LOWER, DIGIT, SPACE, PUNCT, CNTRL, BLANK, XDIGIT, ALPHA = (1 << bit for bit in range(9))

# Punctuation stands for everything visible that is no letter and no digit: enclosing marks too,
# which put a circle or a square around a letter. Numbers that are letters by their form (Nl) are
# letters.
MASKS = {
    "Cn": 0, "Cs": 0, "Co": 0,
    "Cc": CNTRL, "Cf": CNTRL,
    "Lu": UPPER, "Ll": LOWER, "Lt": UPPER | LOWER, "Lm": ALPHA, "Lo": ALPHA,
    "Mn": ALPHA, "Mc": ALPHA, "Me": PUNCT,
    "Nd": DIGIT, "Nl": ALPHA, "No": PUNCT,
    "Pc": PUNCT, "Pd": PUNCT, "Ps": PUNCT, "Pe": PUNCT, "Pi": PUNCT, "Pf": PUNCT, "Po": PUNCT,
    "Sm": PUNCT, "Sc": PUNCT, "Sk": PUNCT, "So": PUNCT,
    "Zs": SPACE | BLANK, "Zl": SPACE, "Zp": SPACE,
}

# General categories that later versions of Unicode changed, as they were in 4.1; only where the
# mask depends on it.
CATEGORIES_THEN = [
    ([0x00AA, 0x00BA], "Ll"),               # ordinal indicators: Lo since 6.1
    ([0x0294], "Ll"),                       # glottal stop: Lo since 5.0, without case
    ([0x0374], "Sk"),                       # Greek numeral sign: Lm since 5.1
    (range(0x10D0, 0x10FB), "Lo"),          # Georgian: Ll since 11.0, when it got an upper case
    ([0x10FC], "Lo"),                       # modifier letter nar: no Other_Lowercase before
    (range(0x13A0, 0x13F6), "Lo"),          # Cherokee has case since 8.0
    ([0x17B4, 0x17B5], "Cf"),               # Khmer inherent vowels: Mn since 6.1
    ([0x180E], "Zs"),                       # Mongolian vowel separator: Cf since 6.3
    ([0x2132], "So"),                       # turned F: Lu since 5.0, when it got a lower case
    ([0x2183], "Nl"),                       # reversed Roman numeral C: Lu since 5.0, likewise
]

# Categories that take their case from the properties Other_Lowercase and Other_Uppercase: modifier
# letters and Roman numerals. A circled letter (So) is a symbol, whatever is in the circle.
CASED_BY_PROPERTY = {"Lm", "Nl"}
YPOGEGRAMMENI = 0x0345  # a mark (Mn) that is a lower-case letter in all but its place

# Controls that are white space: blank-like too, so that isuprint accepts a tab.
WHITE_CONTROLS = [*range(0x09, 0x0E), 0x85]
HEX_DIGITS = [first + offset + i
              for offset in (0, 0xFF00 - 0x20)  # ASCII and its full-width forms
              for first, count in ((0x30, 10), (0x41, 6), (0x61, 6)) for i in range(count)]


def read_categories(directory):
    """The general category of each code unit in Unicode 4.1."""
    known = [False] * CODE_UNITS
    for units, version in read_ranges(directory, "DerivedAge.txt"):
        if tuple(int(part) for part in version.split(".")) <= REPERTOIRE:
            for unit in units:
                if unit < CODE_UNITS:
                    known[unit] = True
    categories = ["Cn"] * CODE_UNITS
    for units, fields in read_unicode_data(directory):
        for unit in units:
            if unit < CODE_UNITS and known[unit]:
                categories[unit] = fields[2]
    for units, category in CATEGORIES_THEN:
        for unit in units:
            if known[unit]:
                categories[unit] = category
    return categories


def read_masks(directory):
    """The mask of each code unit."""
    categories = read_categories(directory)
    masks = [MASKS[category] for category in categories]
    case = {"Other_Lowercase": LOWER, "Other_Uppercase": UPPER}
    for units, name in read_ranges(directory, "PropList.txt"):
        for unit in units if name in case else ():
            if unit == YPOGEGRAMMENI or (
                    unit < CODE_UNITS and categories[unit] in CASED_BY_PROPERTY):
                masks[unit] = case[name]
    for unit in WHITE_CONTROLS:
        masks[unit] = CNTRL | SPACE | BLANK
    for unit in HEX_DIGITS:
        masks[unit] |= XDIGIT
    return masks


def compress(masks):
    """The index, and the masks of the pages that are not uniform, one after the other."""
    index, data = [], []
    for start in range(0, CODE_UNITS, PAGE_SIZE):
        page = masks[start:start + PAGE_SIZE]
        if len(set(page)) == 1:
            index.append(UNIFORM | page[0])
        else:
            index.append(len(data))
            data += page
    if len(data) >= UNIFORM:
        raise DataError("more pages than the index can tell apart")
    return index, data


def render(directory):
    version = read_version(directory, ["PropList.txt", "DerivedAge.txt"])
    index, data = compress(read_masks(directory))
    return (
        "// SPDX-License-Identifier: Apache-2.0 AND Unicode-DFS-2016\n"
        "/// \\file\n"
        "/// \\brief The table of character classes, for char_class.cpp alone: Unicode "
        f"{'.'.join(str(part) for part in REPERTOIRE)}, by the data of {version}.\n"
        "///\n"
        "/// Generated by tools/unicode/generate_char_class_table.py; change that, and not this.\n"
        "// clang-format off\n\n"
        "// The mask of a uniform page, with the top bit set, or the place of its masks.\n"
        f"{{\n{wrap([f'0x{entry:04X}' if entry & UNIFORM else str(entry) for entry in index])}\n}},\n\n"
        "// The masks of all other pages.\n"
        f"{{\n{wrap([f'0x{mask:X}' for mask in data])}\n}},\n")


if __name__ == "__main__":
    main("generate_char_class_table.py", __doc__.splitlines()[0], DEFAULT_OUTPUT, render)

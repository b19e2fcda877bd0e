#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes orv/liborvxx/number/tables/pow10_significands.inc: the top 128 bits of powers of ten.

    generate_pow10_table.py [--output FILE] [--check]

With --check nothing is written: the exit code is 1 if the file is not what this program gives.
"""

import argparse
import pathlib
import sys

MIN_EXPONENT = -351
MAX_EXPONENT = 350
BITS = 128
REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
DEFAULT_OUTPUT = REPOSITORY / "orv/liborvxx/number/tables/pow10_significands.inc"


def significand(n):
    """The floor of 10^n / 2^e, with e such that the top bit of 128 is set."""
    if n >= 0:
        power = 10**n
        shift = power.bit_length() - BITS
        return power >> shift if shift > 0 else power << -shift
    # 2^s / 10^-n with a quotient of at least 128 bits, whose top bits are those of 10^n.
    divisor = 10**-n
    quotient = (1 << (divisor.bit_length() + BITS)) // divisor
    return quotient >> (quotient.bit_length() - BITS)


def table():
    yield "// SPDX-License-Identifier: Apache-2.0"
    yield "// Made by tools/numbers/generate_pow10_table.py: low limb, high limb."
    for n in range(MIN_EXPONENT, MAX_EXPONENT + 1):
        value = significand(n)
        assert value.bit_length() == BITS
        low, high = value & (2**64 - 1), value >> 64
        yield f"{{0x{low:016X}, 0x{high:016X}}}, // 10^{n}"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--output", type=pathlib.Path, default=DEFAULT_OUTPUT)
    parser.add_argument("--check", action="store_true", help="compare, write nothing")
    arguments = parser.parse_args()

    text = "\n".join(table()) + "\n"
    if arguments.check:
        if arguments.output.is_file() and arguments.output.read_text() == text:
            return 0
        print(f"{arguments.output} is not what this program writes", file=sys.stderr)
        return 1
    arguments.output.write_text(text)
    return 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Tells how close the decisions of orv/liborvxx/number/detail/shortest_digits.h can be.

    closest_decisions.py [double | float] [--above BITS]

Writing a number c * 2^q asks twice how a fraction compares: whether one of the middles to its
neighbours lies beyond a multiple of 10^(k+1), and whether the number lies beyond a middle of two
multiples of 10^k, with k the floor of log10(2^q). This program finds all c and q where these differ
by less than 2^-58 of 10^(k+1) and 10^k (2^-29 for float), but are not equal, and prints them, the
closest first: the logarithm of the difference, q, k, and 2c + 1 or 2c - 1 (middle) or c (number).

With --above the exit code is 1 if there is a difference of less than 2^-BITS.
"""

import argparse
import math
import sys

FORMATS = {"double": (53, -1074, 971, 58), "float": (24, -149, 104, 29)}


def first_within(a, m, low, high):
    """The least x >= 0 with low <= a * x mod m <= high, or None: Euclid's algorithm."""
    a %= m
    if low == 0:
        return 0
    if a == 0:
        return None
    x = -(-low // a)
    if a * x <= high:
        return x
    y = first_within(m % a, a, -high % a, -low % a)
    return None if y is None else -(-(low + m * y) // a)


def all_near(a, b, m, x, last, step, limit):
    """All of x, x + step, ... last for which a * x + b is within limit of a multiple of m."""
    while True:
        offset = (a * x + b + limit) % m
        if offset > 2 * limit:
            low, high = m - offset, m - offset + 2 * limit
            steps = first_within(a * step, m, low, min(high, m - 1))
            if steps is None:
                return
            x += step * steps
        if x > last:
            return
        rest = (a * x + b) % m
        yield x, min(rest, m - rest)
        x += step


def floor_log10_pow2(q):
    return len(str(2**q)) - 1 if q >= 0 else -len(str(2**-q))


def close_decisions(name):
    precision, lowest, highest, bits = FORMATS[name]
    for q in range(lowest, highest + 1):
        k = floor_log10_pow2(q)
        least = 100 if q == lowest else 2 ** (precision - 1)
        most = 2**precision - 1
        for kind, exponent2, exponent10, half, x, last, step in (
            ("middle", q - 1, k + 1, 0, 2 * least - 1, 2 * most + 1, 2),
            ("number", q, k, 1, least, most, 1),
        ):
            a = 2 * 2 ** max(exponent2, 0) * 10 ** max(-exponent10, 0)
            m = 2 * 2 ** max(-exponent2, 0) * 10 ** max(exponent10, 0)
            if m // math.gcd(a, m) <= 2 << bits:
                continue  # differences are multiples of its inverse, or 0
            for found, rest in all_near(a, half * m // 2, m, x, last, step, m >> bits):
                if rest:
                    yield math.log2(rest << 64 + bits) - math.log2(m) - 64 - bits, kind, q, k, found


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("format", nargs="?", choices=FORMATS, default="double")
    parser.add_argument("--above", type=float, metavar="BITS")
    arguments = parser.parse_args()
    sys.setrecursionlimit(10000)

    closest = sorted(close_decisions(arguments.format))
    for bits, kind, q, k, x in closest:
        print(f"2^{bits:.2f} {kind} q {q} k {k} {x}")
    return 1 if arguments.above is not None and closest[0][0] < -arguments.above else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Programs with decimal literals that do not fit, or are to another base, do not compile, and the
compiler says why.

    refused_literals_test.py COMPILER ROOT
"""

import subprocess
import sys

TOO_LARGE = "the decimal type cannot hold the literal exactly"
OTHER_BASE = "a decimal literal is written to the base 10"
LITERALS = {
    "12345678_d32": TOO_LARGE,
    "12345678901234567_d64": TOO_LARGE,
    "1e-399_d64": TOO_LARGE,
    "1e385_d64": TOO_LARGE,
    "12345678901234567890123456789012345_d128": TOO_LARGE,
    "0x10_d64": OTHER_BASE,
    "0b1_d64": OTHER_BASE,
    "010_d64": OTHER_BASE,
    "1.25_d64": None,
}


def main():
    compiler, root = sys.argv[1:]
    faults = []
    for literal, reason in LITERALS.items():
        program = ('#include "orv/liborvxx/decimal/decimal_literals.h"\n'
                   f"using namespace orv::literals;\nauto number = {literal};\n")
        result = subprocess.run(
            [compiler, "-std=c++20", f"-I{root}", "-fsyntax-only", "-x", "c++", "-"],
            input=program, capture_output=True, text=True)
        if reason is None and result.returncode != 0:
            faults.append(f"{literal} does not compile: {result.stderr}")
        if reason is not None and (result.returncode == 0 or reason not in result.stderr):
            faults.append(f"{literal} is not refused with '{reason}': {result.stderr}")
    if faults:
        sys.exit("\n".join(faults))


main()

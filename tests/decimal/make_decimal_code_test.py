#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""`_make_decimalNN` of what is in range compiles to shifts: nothing is called and nothing loaded.

    make_decimal_code_test.py OBJDUMP OBJECT

What code calls or loads is named by relocations, on every kind of processor. Functions named
shifts... have none; those named tests... have one, to the function for what is out of range, and in
front of it a way out.
"""

import re
import subprocess
import sys

FUNCTIONS = 9
OUT_OF_RANGE = re.compile(r"makeDecimal\d+OutOfRange")
RELOCATION = re.compile(r"^\s+[0-9a-f]+:\s+R_\w+\s+(\S+)", re.MULTILINE)
FUNCTION = re.compile(r"^[0-9a-f]+ <((?:shifts|tests)\w+)(?:\.cold)?>:\n(.*?)(?:\n\n|\Z)",
                      re.MULTILINE | re.DOTALL)
RETURN = re.compile(r"\tret")
TARGET = re.compile(r"<\w+\+0x([0-9a-f]+)>$", re.MULTILINE)
OFFSET = re.compile(r"^\s*([0-9a-f]+):", re.MULTILINE)


def fault_of(name, code):
    relocations = list(RELOCATION.finditer(code))
    if name.startswith("shifts"):
        return "mentions " + relocations[0].group(1) if relocations else None
    if len(relocations) != 1 or not OUT_OF_RANGE.search(relocations[0].group(1)):
        return f"mentions {[r.group(1) for r in relocations]} and not just the one function"
    # What is in range returns ahead of the call, or jumps over it.
    call = relocations[0]
    start = int(OFFSET.search(code).group(1), 16)
    offset = int(OFFSET.search(call.group()).group(1), 16) - start
    ahead = code[:call.start()].rstrip("\n").rpartition("\n")[0]
    targets = [int(target, 16) for target in TARGET.findall(ahead)]
    if not RETURN.search(ahead) and max(targets, default=0) <= offset:
        return "cannot do without the call"
    return None


def main():
    objdump, object_file = sys.argv[1:]
    listing = subprocess.run([objdump, "-dr", "--no-show-raw-insn", object_file],
                             capture_output=True, text=True, check=True).stdout
    # A part that is split off for being cold belongs to its function.
    codes = {}
    for name, code in FUNCTION.findall(listing):
        codes[name] = codes.get(name, "") + code
    faults = [f"{name} {fault}:\n{code}" for name, code in codes.items()
              if (fault := fault_of(name, code))]
    if len(codes) != FUNCTIONS:
        faults.append(f"{len(codes)} functions are found and not {FUNCTIONS}")
    if faults:
        sys.exit("\n".join(faults))


main()

#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""A shared library carries its SONAME, needs no library it should not, calls nothing that writes to
the process's standard streams or ends the process, and has its tables where processes share them.

    shared_library_test.py NM OBJDUMP LIBRARY SONAME BUILD_TYPE
"""

import re
import subprocess
import sys

# Standard streams, and formatted output in any spelling, fortified ones included.
FORBIDDEN = re.compile(
    r"(__)?v?(f|d|s|sn|as|w|fw|sw|ob_)?printf(_chk)?"
    r"|f?put[sc]|putchar|perror|psignal|std(in|out|err)"
    r"|_ZSt\dw?(cin|cout|cerr|clog)|_ZNSt8ios_base4Init.*"
    r"|abort|exit|_exit|_Exit|quick_exit")
# Assertions are for debug builds.
FORBIDDEN_IN_RELEASES = re.compile(r"__assert(_fail|_perror_fail)?")
NEEDED = re.compile(r"lib(orv|c|m|gcc_s|stdc\+\+|c\+\+|c\+\+abi|unwind)\.so\.\d+|ld-linux.*")


# Namespaces of generated tables, as mangled, and how many arrays of them a library has at least.
TABLES = re.compile(r"(\w) _ZN3orv6tables\S+")
TABLES_AT_LEAST = {"liborvxx": 100}


def output_of(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def main():
    nm, objdump, library, soname, build_type = sys.argv[1:]
    faults = []

    header = output_of(objdump, "-p", library)
    found = re.findall(r"^\s+SONAME\s+(\S+)$", header, re.MULTILINE)
    if found != [soname]:
        faults.append(f"SONAME is {found} and should be {soname}")
    for name in re.findall(r"^\s+NEEDED\s+(\S+)$", header, re.MULTILINE):
        if not NEEDED.fullmatch(name):
            faults.append(f"needs {name}")

    undefined = re.findall(r"^\s+[Uw] ([^@\s]+)", output_of(nm, "-D", "-u", library), re.MULTILINE)
    if "memcpy" not in undefined:
        faults.append("undefined symbols cannot be read: memcpy is not among them")
    for name in undefined:
        if FORBIDDEN.fullmatch(name):
            faults.append(f"refers to {name}")
        if build_type == "Release" and FORBIDDEN_IN_RELEASES.fullmatch(name):
            faults.append(f"refers to {name}: an assertion in a release")

    # Constants without relocations are in .rodata; any that need code or addresses are not.
    tables = TABLES.findall(output_of(nm, library))
    if len(tables) < TABLES_AT_LEAST.get(soname.partition(".")[0], 0):
        faults.append(f"only {len(tables)} tables are found")
    if set(tables) - set("rR"):
        faults.append("tables are not all in read-only data without relocations")

    if faults:
        sys.exit("\n".join(f"{library}: {fault}" for fault in faults))


main()

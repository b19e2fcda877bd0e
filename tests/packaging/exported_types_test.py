#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The comparison of exported types must see every change of a small library that breaks programs
compiled before it, and no other.

    exported_types_test.py TOOL CXX FOLDER

FOLDER has the library's source, its header and the list of its types.
"""

import pathlib
import re
import subprocess
import sys
import tempfile

# By the macro that makes the change, a line of the difference.
CHANGES = {
    "UNCHANGED": "",
    "CHANGED_ENUMERATOR": "+shapes::Colour: enumerator RED is 1",
    "CHANGED_ENUM_TYPE": "+shapes::Colour: 4 bytes",
    "CHANGED_ORDER": "+shapes::Point: member at 0: y, int",
    "CHANGED_MEMBER_TYPE": "+shapes::Point: member at 0: x, float",
    "CHANGED_SIZE": "+shapes::Point: 12 bytes",
    "CHANGED_VIRTUAL_ORDER": "-shapes::Base: virtual function 2: shapes::Base::first() const",
    "CHANGED_BASES": "+shapes::Shape: virtual base at 24: shapes::Other",
    "CHANGED_RESULT": "-shapes::Shape::colour() const: returns shapes::Colour",
    "CHANGED_VARIABLE": "-shapes::variable: is int",
}


def main():
    tool, compiler, folder = sys.argv[1:]
    source = pathlib.Path(folder) / "shapes.cpp"
    header = pathlib.Path(folder) / "shapes.h"
    if set(re.findall(r"CHANGED_\w+", header.read_text(encoding="utf-8"))) | {"UNCHANGED"} \
            != set(CHANGES):
        sys.exit("shapes.h has other changes than this test")
    for change, expected in CHANGES.items():
        with tempfile.TemporaryDirectory() as directory:
            library = pathlib.Path(directory) / "libshapes.so"
            subprocess.run([compiler, "-std=c++20", "-g", "-fPIC", "-shared", f"-D{change}", source,
                            "-o", library], check=True)
            result = subprocess.run(
                [sys.executable, tool, library, source.with_suffix(".types"), header],
                capture_output=True, text=True)
        if (result.returncode != 0) != bool(expected) or \
                expected not in result.stdout.splitlines() + [""]:
            sys.exit(f"{change}: exit code {result.returncode}\n{result.stdout}{result.stderr}")


main()

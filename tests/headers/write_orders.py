#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes sources that include all public headers, each in a random order of its own.

    write_orders.py FOLDER TREE HEADER...

plain_0.cpp and so on have the headers alone. macros_0.cpp and so on have before them what other
libraries and systems bring: ICU's headers, and macros that are words; and after them a check that
the macros are as they were. The standard headers that the library uses come first there, since
macros such as `min` are theirs to fail on. Prints the names of the sources.
"""
import pathlib
import random
import re
import sys

PLAIN = 4
AMONG_MACROS = 2
SEED = 20131


def standard_headers(tree, headers):
    found = {"math.h", "complex.h"}
    for header in headers:
        found.update(re.findall(r"#include <([a-z_0-9.]+)>", (tree / header).read_text("utf-8")))
    return sorted(found)


def include(names, brackets):
    return "".join(f"#include {brackets[0]}{name}{brackets[1]}\n" for name in names)


def write_if_changed(path, text):
    if not path.exists() or path.read_text("utf-8") != text:
        path.write_text(text, "utf-8")


def main():
    folder, tree = map(pathlib.Path, sys.argv[1:3])
    headers = sys.argv[3:]
    folder.mkdir(parents=True, exist_ok=True)
    source = random.Random(SEED)
    before = (include(standard_headers(tree, headers), "<>")
              + '#include "tests/headers/hostile_macros.h"\n')
    after = '#include "tests/headers/hostile_macros_check.h"\n'
    names = [f"plain_{i}.cpp" for i in range(PLAIN)]
    names += [f"macros_{i}.cpp" for i in range(AMONG_MACROS)]
    for name in names:
        shuffled = source.sample(headers, len(headers))
        text = include(shuffled, '""')
        if name.startswith("macros"):
            text = before + text + after
        write_if_changed(folder / name, text)
    print(";".join(names), end="")


main()

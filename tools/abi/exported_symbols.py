#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Compares what a shared library exports with the list kept in the tree, and with its headers.

    exported_symbols.py [--update] [--nm NM] LIBRARY LIST HEADER...

Each line of LIST is a demangled name with its version node. The exit code is 1 if the library
exports something else, or a name that no header declares, or one outside namespace orv that is no
member of a standard template made for a type of orv (in the C library: without the prefix orv).
--update writes LIST instead of comparing with it; from a build directory, "cmake --build .
--target update-abi-lists" does so for both libraries. A line that goes away from the list of a
released version is a break of the binary interface.
"""

import argparse
import difflib
import pathlib
import re
import subprocess
import sys


def exported_symbols(nm, library):
    """The demangled names with their versions, sorted, each once: constructors come in several
    mangled forms that read alike."""
    listing = subprocess.run([nm, "-D", "-C", "--defined-only", library], capture_output=True,
                             text=True, check=True).stdout
    names = {line.split(" ", 2)[2] for line in listing.splitlines()}
    # The version nodes themselves are listed as absolute symbols.
    return sorted(name for name in names if not re.fullmatch(r"ORV(XX)?_\d+", name))


def without_template_arguments(name):
    """The name with all that stands between angle brackets taken out, and operators' signs."""
    name = re.sub(r"operator(\+\+|--|\(\)|\[\]|<=>|<<=?|>>=?|->\*?|[-+*/%^&|~!=<>,]=?)", "operator", name)
    while True:
        shorter = re.sub(r"<[^<>]*>", "", name)
        if shorter == name:
            return name
        name = shorter


def declared_identifiers(symbol):
    """The identifiers of a symbol's qualified name, outermost first: ["orv", "UUID", "node"]."""
    name = symbol.split("@")[0]
    name = re.sub(r"^(typeinfo( name)?|vtable|VTT|guard variable) for ", "", name)
    name = without_template_arguments(re.sub(r"\[abi:\w+\]", "", name))
    name = name.split("(")[0]
    # An instance of a function template is printed with its result in front, and a conversion
    # operator with its target behind.
    name = re.sub(r"operator .*", "operator", name)
    qualified = name.split(" ")[-1]
    parts = [part.lstrip("~") for part in qualified.split("::")]
    # The standard library's inline namespaces.
    return [part for part in parts if not (parts[0] == "std" and part.startswith("__"))]


def is_ours(symbol, parts):
    return (parts[0] == "orv"
            or len(parts) == 1 and re.match("orv[A-Z]", parts[0])
            or re.match(r"((typeinfo( name)?|vtable) for )?std::(__\w+::)?\w+<orv::\w+(>(::|@@)|, )",
                        symbol))


def undeclared(symbols, headers):
    words = set()
    for header in headers:
        text = re.sub(r"//.*|/\*.*?\*/", "", pathlib.Path(header).read_text(encoding="utf-8"))
        words.update(re.findall(r"\w+", text))
    faults = []
    for symbol in symbols:
        parts = declared_identifiers(symbol)
        if not is_ours(symbol, parts):
            faults.append(f"not in namespace orv: {symbol}")
        elif any(part not in words for part in parts):
            faults.append(f"in no public header: {symbol}")
    return faults


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--update", action="store_true")
    parser.add_argument("--nm", default="nm")
    parser.add_argument("library")
    parser.add_argument("list", type=pathlib.Path)
    parser.add_argument("headers", nargs="*")
    arguments = parser.parse_args()

    symbols = exported_symbols(arguments.nm, arguments.library)
    faults = undeclared(symbols, arguments.headers)
    if arguments.update:
        arguments.list.write_text("".join(f"{symbol}\n" for symbol in symbols), encoding="utf-8")
    else:
        expected = arguments.list.read_text(encoding="utf-8").splitlines()
        faults += difflib.unified_diff(expected, symbols, str(arguments.list),
                                       arguments.library, lineterm="", n=0)
    if faults:
        print("\n".join(faults))
        if not arguments.update:
            print("If the change is meant: cmake --build <build directory> "
                  "--target update-abi-lists, and look at the difference.")
        sys.exit(1)


main()

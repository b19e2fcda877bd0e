#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes the programs of the documentation as source files.

Each ```cpp block of a Markdown page that has a main() becomes a program; an ```output block behind it is
what the program prints. The \\code blocks of the headers become functions of one program.

usage: extract_examples.py OUT-DIR HEADER-DIR PAGE...
Prints the names of the programs, separated by semicolons.
"""

import pathlib
import re
import sys

FENCE = re.compile(r"^```(\w+)\n(.*?)^```$", re.M | re.S)
CODE = re.compile(r"/// \\code\n(.*?)/// \\endcode", re.S)


def write_if_changed(path, text):
    if not path.exists() or path.read_text(encoding="utf-8") != text:
        path.write_text(text, encoding="utf-8")


def page_programs(out, page):
    blocks = FENCE.findall(page.read_text(encoding="utf-8"))
    names = []
    for index, (kind, text) in enumerate(blocks):
        if kind != "cpp":
            continue
        if "int main()" not in text:
            sys.exit(f"{page}: a C++ block without a main()")
        if index + 1 == len(blocks) or blocks[index + 1][0] != "output":
            sys.exit(f"{page}: a program without its output")
        name = f"{page.stem.lower()}_{len(names) + 1}"
        write_if_changed(out / f"{name}.cpp", text)
        write_if_changed(out / f"{name}.expected", blocks[index + 1][1])
        names.append(name)
    return names


def header_program(out, headers):
    includes, functions = [], []
    for header in sorted(headers.rglob("*.h")):
        snippets = CODE.findall(header.read_text(encoding="utf-8"))
        for snippet in snippets:
            lines = [re.sub(r"^\s*/// ?", "", line) for line in snippet.splitlines()]
            body = "\n".join("    " + line for line in lines if line.strip())
            functions.append(f"// {header.name}\nvoid example{len(functions) + 1}() {{\n{body}\n}}\n")
        if snippets:
            includes.append(f'#include "{header.relative_to(headers.parents[1]).as_posix()}"')
    calls = "\n".join(f"    example{i + 1}();" for i in range(len(functions)))
    text = "\n".join(includes) + "\n\nnamespace {\n\n" + "\n".join(functions)
    text += "\n} // namespace\n\nint main() {\n" + calls + "\n}\n"
    write_if_changed(out / "headers.cpp", text)
    write_if_changed(out / "headers.expected", "")


def main():
    out, headers = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]).resolve()
    out.mkdir(parents=True, exist_ok=True)
    names = []
    for page in sys.argv[3:]:
        names += page_programs(out, pathlib.Path(page))
    header_program(out, headers)
    print(";".join(names + ["headers"]), end="")


main()

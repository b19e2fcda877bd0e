# SPDX-License-Identifier: Apache-2.0
"""What the generators of Unicode tables share: the layout of a table and the command line."""

import argparse
import pathlib
import sys

import ucd

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
LINE_WIDTH = 100


def wrap(items):
    lines, line = [], "   "
    for item in items:
        if len(line) + len(item) + 2 > LINE_WIDTH:
            lines.append(line)
            line = "   "
        line += f" {item},"
    return "\n".join(lines + [line])


def main(generator, summary, default_output, render):
    """Writes or checks the file that render(UCD directory) gives as text."""
    parser = argparse.ArgumentParser(description=summary)
    parser.add_argument("ucd", nargs="?", type=pathlib.Path, default=ucd.DEFAULT_DIRECTORY)
    parser.add_argument("--output", type=pathlib.Path, default=default_output)
    parser.add_argument("--check", action="store_true")
    arguments = parser.parse_args()
    try:
        text = render(arguments.ucd).encode("ascii")
    except ucd.DataError as error:
        sys.exit(f"{generator}: {error}")
    if not arguments.check:
        arguments.output.write_bytes(text)
        return
    if not arguments.output.is_file():
        sys.exit(f"{arguments.output}: missing; run tools/unicode/{generator}")
    if arguments.output.read_bytes() != text:
        sys.exit(f"{arguments.output}: differs from what {arguments.ucd} gives; "
                 f"run tools/unicode/{generator} and look at the difference")

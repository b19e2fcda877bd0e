#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The comparison of exported symbols must see a name too many, a name too few, and a name that no
header declares.

    exported_symbols_test.py TOOL --nm NM LIBRARY LIST HEADER...
"""

import pathlib
import subprocess
import sys
import tempfile


def main():
    tool, _, nm, library, symbols, *headers = sys.argv[1:]
    lines = pathlib.Path(symbols).read_text(encoding="utf-8").splitlines()

    def expect(what, text, header_files, expected_output):
        with tempfile.TemporaryDirectory() as directory:
            path = pathlib.Path(directory) / "list"
            path.write_text("\n".join(text) + "\n", encoding="utf-8")
            result = subprocess.run(
                [sys.executable, tool, "--nm", nm, library, path, *header_files],
                capture_output=True, text=True)
        if (result.returncode != 0) != bool(expected_output) or \
                expected_output not in result.stdout:
            sys.exit(f"{what}: exit code {result.returncode}\n{result.stdout}{result.stderr}")

    expect("the list itself", lines, headers, "")
    expect("a line too few", lines[1:], headers, f"+{lines[0]}")
    expect("a line too many", [*lines, "zebra@@ORV_0"], headers, "-zebra@@ORV_0")
    expect("one header for all", lines, headers[:1], "in no public header")


main()

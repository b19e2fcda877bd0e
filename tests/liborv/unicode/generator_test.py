#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""A table generator's --check must accept its own output, and refuse it once a byte differs.

    generator_test.py GENERATOR UCD_DIRECTORY
"""

import pathlib
import subprocess
import sys
import tempfile


def run(*arguments):
    return subprocess.run([sys.executable, *map(str, arguments)], capture_output=True, text=True)


def expect(condition, what, result):
    if not condition:
        sys.exit(f"{what}\nexit code {result.returncode}\n{result.stdout}{result.stderr}")


def main():
    generator, ucd = sys.argv[1:]
    with tempfile.TemporaryDirectory() as directory:
        tables = pathlib.Path(directory) / "tables.inc"
        check = (generator, ucd, "--output", tables, "--check")

        result = run(*check)
        expect(result.returncode == 1 and "missing" in result.stderr, "missing file accepted",
               result)
        result = run(generator, ucd, "--output", tables)
        expect(result.returncode == 0, "generation failed", result)
        result = run(*check)
        expect(result.returncode == 0, "own output refused", result)

        content = tables.read_bytes()
        last = content.rindex(b"1")
        tables.write_bytes(content[:last] + b"2" + content[last + 1:])
        result = run(*check)
        expect(result.returncode == 1 and "differs" in result.stderr, "changed byte accepted",
               result)
        result = run(generator, pathlib.Path(directory) / "nothing", "--output", tables, "--check")
        expect(result.returncode == 1 and "not found" in result.stderr, "missing data accepted",
               result)


if __name__ == "__main__":
    main()

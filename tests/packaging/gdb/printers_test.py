#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""GDB shows the objects of a program as the program's comments say, with the printers that it loads
by itself.

    printers_test.py GDB SOURCE PROGRAM SCRIPT_DIRECTORY BUILD_TYPE
"""

import os
import re
import subprocess
import sys

SECONDS = 60


def main():
    gdb, source, program, scripts, build_type = sys.argv[1:]
    with open(source, encoding="utf-8") as file:
        expected = re.findall(r"^ *//= (.*?) \| (.*)$", file.read(), re.MULTILINE)
    commands = ["set confirm off", "set width 0", "set debuginfod enabled off",
                f"set auto-load safe-path {scripts}", "break stopHere", "run", "up"]
    commands += [f"print {expression}" for expression, _ in expected]
    arguments = [gdb, "-nx", "-q", "-batch"]
    for command in commands:
        arguments += ["-ex", command]
    try:
        output = subprocess.run(arguments + [program], stdin=subprocess.DEVNULL, timeout=SECONDS,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                env={**os.environ, "LC_ALL": "C"}).stdout
    except subprocess.TimeoutExpired as error:
        sys.exit(f"GDB hangs:\n{error.stdout}")

    shown = re.findall(r"^\$\d+ = (.*)$", output, re.MULTILINE)
    faults = []
    if len(shown) != len(expected) or not expected:
        faults.append(f"{len(expected)} expressions and {len(shown)} answers:\n{output}")
    for (expression, text), answer in zip(expected, shown):
        with_symbols, _, without = text.partition(" WITHOUT DEBUG SYMBOLS ")
        text = without if without and build_type != "Debug" else with_symbols
        pattern = re.escape(text).replace(re.escape("[...]"), ".*")
        if not re.fullmatch(pattern, answer) or len(answer) > 2000:
            faults.append(f"{expression}: {text} expected, and shown {answer[:300]}")
    if faults:
        sys.exit("\n".join(faults))


main()

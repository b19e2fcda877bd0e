# SPDX-License-Identifier: Apache-2.0
"""The tour prints what the README shows.

    tour_test.py TOUR
"""
import difflib
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]

readme = (ROOT / "README.md").read_text(encoding="utf-8")
shown = re.findall(r"```text\n(A tour of orvxx\n.*?)```", readme, re.DOTALL)
if len(shown) != 1:
    sys.exit("README.md must show the tour once")
run = subprocess.run([sys.argv[1], ROOT / "examples"], capture_output=True, check=True, timeout=300)
printed = run.stdout.decode()
if run.stderr or printed != shown[0]:
    difference = difflib.unified_diff(shown[0].splitlines(), printed.splitlines(), "README.md",
                                      "printed", lineterm="")
    sys.exit("\n".join(difference) + run.stderr.decode())

for wrong in ([], ["/nonexistent"]):
    run = subprocess.run([sys.argv[1], *wrong], capture_output=True, timeout=300)
    if run.returncode != 2 or not run.stderr:
        sys.exit(f"called with {wrong} it must fail and say why")

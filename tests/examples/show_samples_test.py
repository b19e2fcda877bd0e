# SPDX-License-Identifier: Apache-2.0
"""The show of the samples: runs without a terminal, and fails when a round trip fails."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "examples" / "show-samples.sh"


def show(build):
    return subprocess.run([SCRIPT, build, "2"], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, timeout=300)


class ShowSamples(unittest.TestCase):
    def test_all_round_trips_are_identical(self):
        result = show(BUILD)
        text = result.stdout.decode()
        self.assertEqual((result.returncode, result.stderr), (0, b""), text)
        self.assertEqual(text.count("  identical  "), 22)
        self.assertNotIn("DIFFERENT", text)
        self.assertIn("byte 34: C3 20 is not valid UTF-8", text)
        self.assertRegex(text, r"(?m)^Speed on 2 MiB of mixed text: UTF-8 to CESU-8 \d+ MB/s, "
                               r"back \d+ MB/s, identical$")

    def test_a_program_that_changes_the_text_is_found_out(self):
        with tempfile.TemporaryDirectory() as folder:
            examples = pathlib.Path(folder) / "examples"
            examples.mkdir()
            fake = examples / "recode"
            real = os.path.join(BUILD, "examples", "recode")
            # Every e that goes to CESU-8 becomes an x.
            fake.write_text('#!/bin/bash\nif [ "$4" = CESU-8 ]; then\n'
                            f'    "{real}" "${{@:1:4}}" "$7" | tr e x >"$6"\n'
                            f'else\n    exec "{real}" "$@"\nfi\n')
            fake.chmod(0o755)
            result = show(folder)
        self.assertEqual(result.returncode, 1, result.stdout.decode() + result.stderr.decode())
        self.assertIn(b"DIFFERENT", result.stdout)
        self.assertIn(b"round trips changed the text", result.stderr)


if __name__ == "__main__":
    BUILD = os.path.abspath(sys.argv.pop(1))
    unittest.main()

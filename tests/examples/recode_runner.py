# SPDX-License-Identifier: Apache-2.0
"""What the tests of recode share: the program, the samples, and one way to run it."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAM = None
SAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples" / "samples"
# Bytes that recode reads at a time. Faults are placed around this border.
CHUNK = 64 * 1024
# Generous: sanitizers and valgrind slow the program down.
PATIENCE = 300


def main():
    """Takes the path of the program off the command line and runs the tests of the caller."""
    global PROGRAM
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main(module="__main__")


def samples():
    """The valid UTF-8 samples."""
    found = sorted(p for p in SAMPLES.glob("*.utf-8.txt") if not p.name.startswith("broken-"))
    assert len(found) == 11, found
    return found


def cesu8(text):
    """Text as CESU-8: each UTF-16 unit by itself."""
    units = text.encode("utf-16-be", "surrogatepass")
    return b"".join(chr(units[i] << 8 | units[i + 1]).encode("utf-8", "surrogatepass")
                    for i in range(0, len(units), 2))


class RecodeTest(unittest.TestCase):
    """Runs recode in a folder of its own."""

    def setUp(self):
        self._folder = tempfile.TemporaryDirectory()
        self.addCleanup(self._folder.cleanup)
        self.folder = pathlib.Path(self._folder.name)

    def file(self, name, data):
        (self.folder / name).write_bytes(data)
        return name

    def run_recode(self, *arguments, data=b"", **options):
        return subprocess.run([PROGRAM, *map(str, arguments)], input=data, cwd=self.folder,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=PATIENCE,
                              **options)

    def start(self, *arguments, **options):
        return subprocess.Popen([PROGRAM, *map(str, arguments)], cwd=self.folder, **options)

    def convert(self, from_name, to_name, data, *arguments):
        """The output of a conversion that must go well."""
        result = self.run_recode("-f", from_name, "-t", to_name, *arguments, data=data)
        self.assertEqual(result.stderr, b"")
        self.assertEqual(result.returncode, 0)
        return result.stdout

    def assert_fails(self, result, status, error, output=b""):
        self.assertEqual(result.stderr.decode(), error)
        self.assertEqual(result.returncode, status)
        self.assertEqual(result.stdout, output)

    def assert_bad_input(self, from_name, to_name, data, fault, output):
        """Conversion stops with this sentence, and what stands before the fault is written."""
        result = self.run_recode("-f", from_name, "-t", to_name, data=data)
        self.assert_fails(result, 1, "recode: standard input: " + fault + "\n", output)

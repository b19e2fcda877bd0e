#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The generator of the mapping tables: --check accepts its own output and refuses a changed one, and
mapping files that break a rule are refused.

    charset_tables_test.py TOOLS_CHARSETS_DIRECTORY
"""

import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(sys.argv.pop())
sys.path.insert(0, str(TOOLS))

import mapping_file  # noqa: E402  (after the path)


class Generator(unittest.TestCase):
    def run_generator(self, *arguments):
        return subprocess.run([sys.executable, str(TOOLS / "generate_tables.py"), *arguments],
                              capture_output=True, text=True, check=False)

    def test_check_accepts_its_own_output_and_refuses_a_changed_byte_and_an_extra_file(self):
        with tempfile.TemporaryDirectory() as name:
            check = ("--output", name, "--check")
            result = self.run_generator(*check)
            self.assertEqual(1, result.returncode)
            self.assertEqual(35, result.stderr.count("is not what the mapping files give"))
            self.assertEqual(0, self.run_generator("--output", name).returncode)
            self.assertEqual(0, self.run_generator(*check).returncode)

            table = pathlib.Path(name) / "micsft_1252.h"
            text = table.read_text(encoding="ascii")
            table.write_text(text.replace("20AC", "20AD", 1), encoding="ascii")
            result = self.run_generator(*check)
            self.assertEqual((1, 1), (result.returncode, result.stderr.count("\n")))
            self.assertIn("micsft_1252.h", result.stderr)

            table.write_text(text, encoding="ascii")
            (pathlib.Path(name) / "other.h").write_text("", encoding="ascii")
            self.assertIn("other.h", self.run_generator(*check).stderr)


class MappingFile(unittest.TestCase):
    def read(self, *lines):
        with tempfile.TemporaryDirectory() as name:
            path = pathlib.Path(name) / "a.map"
            path.write_text("\n".join(lines) + "\n", encoding="ascii")
            return mapping_file.read(path)

    def refusal(self, *lines):
        with self.assertRaises(mapping_file.MappingError) as caught:
            self.read(*lines)
        return str(caught.exception).rpartition(": ")[2]

    def test_rows_runs_and_one_way_rows(self):
        mapping = self.read("# comment", "", "set X", "class Y", "lead 81-82", "trail 40-41 80",
                            "run 00-7F 0000", "8141: 3000 . ", "run 8180-8241 4E00",
                            "decode-only 8180", "encode 00A2: 8240 . 5C", "encode 4E00: 41")
        self.assertEqual(("X", "Y", [0x81, 0x82], [0x40, 0x41, 0x80]),
                         (mapping.name, mapping.class_name, mapping.leads, mapping.trails))
        pairs = {0x8141: 0x3000, 0x8180: 0x4E00, 0x8240: 0x4E01, 0x8241: 0x4E02}
        ascii_rows = {c: c for c in range(0x80)}
        self.assertEqual(ascii_rows | pairs, mapping.decode)
        self.assertEqual(ascii_rows | {0x3000: 0x8141, 0x4E00: 0x41, 0x4E01: 0x8240,
                                       0x4E02: 0x8241, 0xA2: 0x8240, 0xA4: 0x5C}, mapping.encode)

    def test_four_byte_positions_carry_from_byte_to_byte(self):
        mapping = self.read("run 81308139-81308231 0100", "run 8139FE39-82308130 0200")
        self.assertEqual({0x81308139: 0x100, 0x81308230: 0x101, 0x81308231: 0x102,
                          0x8139FE39: 0x200, 0x82308130: 0x201}, mapping.decode)

    def test_two_rows_of_one_position_or_character_are_refused(self):
        self.assertEqual("0041 has two rows", self.refusal("41: 0041", "41: 0042"))
        with self.assertRaisesRegex(mapping_file.MappingError, "0041 has two rows"):
            self.read("41: 0041 0041")

    def test_what_it_does_not_know_is_refused(self):
        self.assertEqual("unknown line", self.refusal("sett X"))
        self.assertEqual("row beyond the last position", self.refusal("FF: 0041 0042"))
        self.assertEqual("run beyond the last position", self.refusal("run FF-FE 0041"))
        with self.assertRaisesRegex(mapping_file.MappingError, "a.map:1"):
            self.read("41: 00G1")
        with self.assertRaisesRegex(mapping_file.MappingError, "decode-only code without a row"):
            self.read("decode-only 41")


if __name__ == "__main__":
    unittest.main()

# SPDX-License-Identifier: Apache-2.0
"""lines by its command line: numbers, lengths, character sets, locales, bad text."""
import os
import subprocess
import sys
import tempfile
import unittest

PROGRAM = os.path.abspath(sys.argv.pop(1))
SAMPLES = os.path.join(os.path.dirname(__file__), "../../examples/samples")
PATIENCE = 300


def run(*arguments, data=b"", **streams):
    return subprocess.run([PROGRAM, *arguments], input=data, timeout=PATIENCE,
                          **(streams or {"capture_output": True}))


class Lines(unittest.TestCase):
    maxDiff = None

    def good(self, *arguments, data=b""):
        result = run(*arguments, data=data)
        self.assertEqual((result.stderr.decode(), result.returncode), ("", 0))
        return result.stdout.decode()

    def bad(self, status, *arguments, data=b""):
        result = run(*arguments, data=data)
        self.assertEqual(result.returncode, status)
        return result.stderr.decode()

    def test_counts_characters_of_all_lengths(self):
        self.assertEqual(self.good(data="straße €\n\n😀 grün\r\nend".encode()), """\
      1      8  straße €
      2      0  
      3      7  😀 grün\r
      4      3  end
lines         4
longest line  8 characters, line 1
longest word  6 characters, line 1: straße
""")

    def test_of_nothing(self):
        self.assertEqual(self.good(), "lines         0\n")
        self.assertEqual(self.good(data=b"\n"), "      1      0  \nlines         1\n")

    def test_the_first_of_several_longest_is_named(self):
        self.assertIn("longest word  2 characters, line 1: ab\n", self.good(data=b"ab cd\nef gh"))
        self.assertIn("longest line  5 characters, line 2\n", self.good(data=b"a\nab cd\nef gh"))

    def test_reads_a_file_in_its_set_as_in_utf_8(self):
        for name, charset in (("french", "iso-8859-1"), ("russian", "windows-1251"),
                              ("japanese", "shift_jis"), ("emoji", "gb18030"),
                              ("emoji", "cesu-8"), ("hindi", "utf-16le")):
            with self.subTest(charset):
                path = os.path.join(SAMPLES, name)
                text = self.good(f"{path}.{charset}.txt", "-e", charset)
                self.assertEqual(text, self.good(f"{path}.utf-8.txt"))
                with open(f"{path}.utf-8.txt", encoding="utf-8") as file:
                    for line in file:
                        self.assertIn(f"{len(line) - 1:7}  {line}", text)

    def test_a_long_text_passes_in_pieces(self):
        line = "ä€😀" * 5000
        out = self.good(data=(f"{line}\n" * 20).encode()).splitlines()
        self.assertEqual(out[19], f"     20  15000  {line}")
        self.assertEqual(out[20], "lines         20")

    def test_numbers_have_the_punctuation_of_the_locale(self):
        data = b"x" * 1234567
        self.assertIn("longest line  1234567 ", self.good(data=data))
        self.assertIn("longest line  1.234.567 ", self.good("-l", "de_DE", data=data))
        self.assertIn("longest line  1234567 ", self.good("-l", "C", data=data))

    def test_bad_text_is_told_with_its_line(self):
        result = run(data=b"good\nbad \xff\n")
        self.assertEqual(result.stdout, b"      1      4  good\n")
        self.assertEqual(result.stderr, b"lines: line 2 is not valid UTF-8\n")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(self.bad(1, data=b"cut off \xe2\x82"),
                         "lines: line 1 is not valid UTF-8\n")
        self.assertEqual(self.bad(1, "-e", "ascii", data="é".encode()),
                         "lines: line 1 is not valid US-ASCII\n")

    def test_failures(self):
        self.assertEqual(self.bad(2, "/no/such/file"), "lines: cannot open /no/such/file\n")
        self.assertEqual(self.bad(2, "-e", "klingon"), "lines: no character set klingon\n")
        for name in ("xx_XX", "german", ""):
            self.assertEqual(self.bad(2, "-l", name), f"lines: no locale {name} on this system\n")
        self.assertEqual(self.bad(2, tempfile.gettempdir()),
                         f"lines: cannot read {tempfile.gettempdir()}\n")
        self.assertIn("lines --help tells how to call it.\n", self.bad(2, "--no-such-option"))

    def test_a_full_disk_is_told(self):
        with open("/dev/full", "wb") as full:
            result = run(data=b"a\n", stdout=full, stderr=subprocess.PIPE)
        self.assertEqual(result.stderr, b"lines: cannot write to standard output\n")
        self.assertEqual(result.returncode, 2)

    def test_help_and_version(self):
        self.assertIn("--encoding", self.good("--help"))
        self.assertRegex(self.good("--version"), r"^lines \(orvxx\) \d")

    def test_a_character_may_come_in_two_reads(self):
        with subprocess.Popen([PROGRAM], stdin=subprocess.PIPE, stdout=subprocess.PIPE) as program:
            program.stdin.write("é".encode()[:1])
            program.stdin.flush()
            out, _ = program.communicate("é\n".encode()[1:], timeout=PATIENCE)
        self.assertIn("      1      1  é\n", out.decode())


if __name__ == "__main__":
    unittest.main()

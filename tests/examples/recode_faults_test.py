# SPDX-License-Identifier: Apache-2.0
"""recode on bad input: the sentence, the exact offset, and the output before the fault."""
import os
import subprocess
import threading
import time

import recode_runner
from recode_runner import CHUNK, RecodeTest, SAMPLES

CONTINUATION = "continuation byte (0x80 to 0xBF)"
LONE = "half of a surrogate pair, and the other half is missing"


class Sentences(RecodeTest):
    def test_malformed_utf_8(self):
        for data, shown, why in [
                (b"\xC3A", "C3 41", f"expected a {CONTINUATION} after 0xC3"),
                (b"\xE2\x28\xA1", "E2 28", f"expected a {CONTINUATION} after 0xE2"),
                (b"\xE2\x82A", "E2 82 41", f"expected a {CONTINUATION} after 0x82"),
                (b"\xF0\x9F\x98A", "F0 9F 98 41", f"expected a {CONTINUATION} after 0x98"),
                (b"\x80", "80", f"expected a lead byte, not a {CONTINUATION}"),
                (b"\xBF", "BF", f"expected a lead byte, not a {CONTINUATION}"),
                (b"\xF8", "F8", "no sequence begins with 0xF8"),
                (b"\xFF", "FF", "no sequence begins with 0xFF"),
                (b"\xC0\x80", "C0 80", "expected the shortest form of U+0000"),
                (b"\xC1\xBF", "C1 BF", "expected the shortest form of U+007F"),
                (b"\xE0\x80\xAF", "E0 80 AF", "expected the shortest form of U+002F"),
                (b"\xF0\x80\x80\x80", "F0 80 80 80", "expected the shortest form of U+0000"),
                (b"\xED\xA0\x80", "ED A0 80", "expected no surrogate, and this is U+D800"),
                (b"\xED\xBF\xBF", "ED BF BF", "expected no surrogate, and this is U+DFFF"),
                (b"\xF4\x90\x80\x80", "F4 90 80 80", "expected nothing beyond U+10FFFF"),
                (b"\xF7\xBF\xBF\xBF", "F7 BF BF BF", "expected nothing beyond U+10FFFF")]:
            for tail in b"", b"tail":
                self.assert_bad_input("UTF-8", "UTF-8", b"ok " + data + tail,
                                      f"byte 3: {shown} is not valid UTF-8: {why}", b"ok ")

    def test_utf_8_that_ends_too_soon(self):
        for data, shown in [(b"\xC3", "C3"), (b"\xE2\x82", "E2 82"), (b"\xE2", "E2"),
                            (b"\xF0\x9F\x98", "F0 9F 98"), (b"\xF0", "F0")]:
            self.assert_bad_input(
                "UTF-8", "UTF-8", b"ok" + data,
                f"byte 2: {shown} is not valid UTF-8: the input ends where a {CONTINUATION} is "
                "expected", b"ok")

    def test_malformed_cesu_8(self):
        for data, shown, why in [
                (b"\xF0\x9F\x98\x80", "F0",
                 "expected a supplementary character as two sequences of three bytes"),
                (b"\xF8", "F8", "no sequence begins with 0xF8"),
                (b"\xC3A", "C3 41", f"expected a {CONTINUATION} after 0xC3"),
                (b"\xE0\x80\x80", "E0 80 80", "expected the shortest form of U+0000")]:
            self.assert_bad_input("CESU-8", "UTF-8", b"ok" + data,
                                  f"byte 2: {shown} is not valid CESU-8: {why}", b"ok")

    def test_malformed_us_ascii(self):
        self.assert_bad_input("US-ASCII", "UTF-8", b"ok\x80",
                              "byte 2: 80 is not valid US-ASCII: expected 0x00 to 0x7F", b"ok")

    def test_malformed_utf_16(self):
        mark = "a byte order mark of the other byte order"
        for charset, ok, data, shown, why in [
                ("UTF-16BE", b"\0o", b"\xFF\xFE", "FF FE", mark),
                ("UTF-16LE", b"o\0", b"\xFE\xFF", "FE FF", mark),
                ("UTF-16BE", b"\0o", b"\xD8\0\0A", "D8 00",
                 "expected the other half of a surrogate pair after U+D800"),
                ("UTF-16LE", b"o\0", b"\0\xDC", "00 DC",
                 "expected half of a surrogate pair before U+DC00"),
                ("UTF-16LE", b"o\0", b"\xD8", "D8", "the input ends inside a unit")]:
            self.assert_bad_input(charset, "UTF-8", ok + data,
                                  f"byte 2: {shown} is not valid {charset}: {why}", b"o")

    def test_malformed_multi_byte_characters(self):
        rest = "expected the rest of a character"
        for charset, data, shown, why in [
                ("Shift_JIS", b"\x81 ", "81", rest), ("Shift_JIS", b"\x81", "81", rest),
                ("GB18030", b"\x80", "80", "no character begins so"),
                ("GB18030", b"\x81\x30 ", "81 30 20", rest)]:
            self.assert_bad_input(charset, "UTF-8", b"ok" + data,
                                  f"byte 2: {shown} is not valid {charset}: {why}", b"ok")

    def test_unassigned_codes(self):
        for charset, data, shown in [
                ("windows-1252", b"\x81", "81"), ("Shift_JIS", b"\x85\x40", "85 40"),
                ("Big5-HKSCS", b"\x88\x62", "88 62"), ("GB18030", b"\x84\x32\x81\x30",
                                                       "84 32 81 30")]:
            self.assert_bad_input(charset, "UTF-8", b"ok" + data,
                                  f"byte 2: {shown} is unassigned in {charset}", b"ok")

    def test_characters_without_a_counterpart(self):
        self.assert_bad_input(
            "UTF-8", "ISO-8859-1", "é€".encode(),
            "byte 2: E2 82 AC is U+20AC, which has no counterpart in ISO-8859-1", b"\xE9")
        self.assert_bad_input("UTF-8", "US-ASCII", "aé".encode(),
                              "byte 1: C3 A9 is U+00E9, which has no counterpart in US-ASCII", b"a")
        self.assert_bad_input(
            "UTF-8", "US-ASCII", "a😀b".encode(),
            "byte 1: F0 9F 98 80 is U+1F600, which has no counterpart in US-ASCII", b"a")
        self.assert_bad_input("ISO-8859-1", "US-ASCII", b"a\xFFb",
                              "byte 1: FF is U+00FF, which has no counterpart in US-ASCII", b"a")
        self.assert_bad_input(
            "CESU-8", "ISO-8859-1", b"a\xED\xA0\xBD\xED\xB8\x80b",
            "byte 1: ED A0 BD ED B8 80 is U+1F600, which has no counterpart in ISO-8859-1", b"a")

    def test_lone_surrogates(self):
        for data, shown, unit in [(b"\xED\xA0\x80", "ED A0 80", "U+D800"),
                                  (b"\xED\xB0\x80", "ED B0 80", "U+DC00")]:
            for target in "UTF-8", "CESU-8", "ISO-8859-1":
                for tail in b"", b"a", b"\xED\xA0\x80\xED\xB0\x80":
                    self.assert_bad_input("CESU-8", target, b"ok" + data + tail,
                                          f"byte 2: {shown} is {unit}, {LONE}", b"ok")

    def test_half_a_pair_before_bad_bytes_is_the_first_fault(self):
        for tail in b"\xFF", b"\xED\xB0":
            self.assert_bad_input("CESU-8", "UTF-8", b"a\xED\xA0\x80" + tail,
                                  f"byte 1: ED A0 80 is U+D800, {LONE}", b"a")

    def test_an_unmappable_character_before_malformed_bytes_is_the_first_fault(self):
        self.assert_bad_input("UTF-8", "US-ASCII", b"a\xC3\xA9\xFF",
                              "byte 1: C3 A9 is U+00E9, which has no counterpart in US-ASCII", b"a")

    def test_ignored_characters_before_a_fault_are_counted(self):
        self.assert_bad_input("UTF-8", "US-ASCII", "a\u00AD\u200Db€".encode(),
                              "byte 7: E2 82 AC is U+20AC, which has no counterpart in US-ASCII",
                              b"ab")

    def test_the_broken_samples(self):
        for name, offset in [("continuation", 34), ("latin1", 2), ("overlong", 22), ("end", 15)]:
            path = SAMPLES / f"broken-{name}.utf-8.txt"
            result = self.run_recode("-f", "UTF-8", "-t", "UTF-8", path)
            self.assertEqual(result.returncode, 1)
            self.assertTrue(result.stderr.decode().startswith(f"recode: {path}: byte {offset}: "))
            self.assertEqual(result.stdout, path.read_bytes()[:offset])


class Offsets(RecodeTest):
    """Faults placed around the borders of the chunks in which recode reads."""

    BORDERS = [border + shift for border in (CHUNK, 2 * CHUNK) for shift in range(-7, 3)]

    def check(self, from_name, to_name, fault_bytes, sentence, filler=b"x", written=b"x", tail=b""):
        for border in self.BORDERS:
            count, padding = divmod(border, len(filler))
            before = b"p" * padding + filler * count
            self.file("in", before + fault_bytes + tail)
            # A file is read in full chunks; a pipe may be cut anywhere.
            result = self.run_recode("-f", from_name, "-t", to_name, "in")
            self.assert_fails(result, 1, f"recode: in: byte {border}: {sentence}\n",
                              b"p" * padding + written * count)

    def test_malformed_bytes(self):
        self.check("UTF-8", "UTF-8", b"\xE2\x82A",
                   f"E2 82 41 is not valid UTF-8: expected a {CONTINUATION} after 0x82", tail=b"z")

    def test_malformed_four_bytes(self):
        self.check("UTF-8", "UTF-8", b"\xF4\x90\x80\x80",
                   "F4 90 80 80 is not valid UTF-8: expected nothing beyond U+10FFFF",
                   tail=b"z" * CHUNK)

    def test_a_cut_sequence_at_the_end(self):
        self.check("UTF-8", "UTF-8", b"\xF0\x9F\x98",
                   f"F0 9F 98 is not valid UTF-8: the input ends where a {CONTINUATION} is expected")

    def test_unmappable_after_wide_characters(self):
        self.check("UTF-8", "ISO-8859-1", "€".encode(),
                   "E2 82 AC is U+20AC, which has no counterpart in ISO-8859-1",
                   filler="é".encode(), written=b"\xE9", tail="€".encode() * 10)

    def test_unmappable_pair(self):
        self.check("UTF-8", "US-ASCII", "😀".encode(),
                   "F0 9F 98 80 is U+1F600, which has no counterpart in US-ASCII", tail=b"z")

    def test_unmappable_pair_in_two_sequences(self):
        self.check("CESU-8", "US-ASCII", b"\xED\xA0\xBD\xED\xB8\x80",
                   "ED A0 BD ED B8 80 is U+1F600, which has no counterpart in US-ASCII",
                   tail=b"z" * CHUNK)

    def test_lone_high_surrogate_before_text(self):
        self.check("CESU-8", "UTF-8", b"\xED\xA0\xBD", f"ED A0 BD is U+D83D, {LONE}", tail=b"zz")

    def test_lone_high_surrogate_at_the_end(self):
        self.check("CESU-8", "UTF-8", b"\xED\xA0\xBD", f"ED A0 BD is U+D83D, {LONE}")

    def test_lone_low_surrogate(self):
        self.check("CESU-8", "UTF-8", b"\xED\xB8\x80", f"ED B8 80 is U+DE00, {LONE}", tail=b"z")

    def test_lone_high_surrogate_after_pairs(self):
        pair = b"\xED\xA0\xBD\xED\xB8\x80"
        self.check("CESU-8", "UTF-8", b"\xED\xA0\xBE", f"ED A0 BE is U+D83E, {LONE}", filler=pair,
                   written="😀".encode(), tail=pair)

    def test_offsets_count_from_where_standard_input_stands(self):
        self.file("in", b"\xFF" * 1000 + b"\0" * (2 * CHUNK) + b"ab\xFF")
        with open(self.folder / "in", "rb", buffering=0) as file:
            file.seek(1000)
            process = self.start("-f", "UTF-8", "-t", "UTF-8", stdin=file, stdout=subprocess.PIPE,
                                 stderr=subprocess.PIPE)
            output, error = process.communicate(timeout=recode_runner.PATIENCE)
        self.assertEqual(error.decode(), f"recode: standard input: byte {2 * CHUNK + 2}: FF is not "
                                         "valid UTF-8: no sequence begins with 0xFF\n")
        self.assertEqual(output, b"\0" * (2 * CHUNK) + b"ab")


class Pipes(RecodeTest):
    """Input that comes in small pieces, cut at any byte."""

    def feed(self, from_name, to_name, pieces):
        process = self.start("-f", from_name, "-t", to_name, stdin=subprocess.PIPE,
                             stdout=subprocess.PIPE, stderr=subprocess.PIPE)

        def write():
            with process.stdin:
                for piece in pieces:
                    try:
                        os.write(process.stdin.fileno(), piece)
                    except BrokenPipeError:  # it has stopped at the fault
                        return
                    time.sleep(0.002)

        writer = threading.Thread(target=write)
        writer.start()
        output = process.stdout.read()
        error = process.stderr.read().decode()
        writer.join()
        process.stdout.close()
        process.stderr.close()
        return process.wait(recode_runner.PATIENCE), output, error

    def test_every_cut_of_good_text(self):
        data = "aé€😀b".encode()
        out = b"a\xC3\xA9\xE2\x82\xAC\xED\xA0\xBD\xED\xB8\x80b"
        for i in range(len(data)):
            self.assertEqual(self.feed("UTF-8", "CESU-8", [data[:i], data[i:]]), (0, out, ""))
        self.assertEqual(self.feed("UTF-8", "CESU-8", [bytes([b]) for b in data]), (0, out, ""))
        for i in range(len(out)):
            self.assertEqual(self.feed("CESU-8", "UTF-8", [out[:i], out[i:]]), (0, data, ""))
        self.assertEqual(self.feed("CESU-8", "UTF-8", [bytes([b]) for b in out]), (0, data, ""))

    def test_every_cut_around_a_character_without_a_counterpart(self):
        data = "é".encode() + b"\xED\xA0\xBD\xED\xB8\x80z"
        error = ("recode: standard input: byte 2: ED A0 BD ED B8 80 is U+1F600, which has no "
                 "counterpart in ISO-8859-1\n")
        for i in range(len(data)):
            self.assertEqual(self.feed("CESU-8", "ISO-8859-1", [data[:i], data[i:]]),
                             (1, b"\xE9", error))
        for i in range(3, 8):
            self.assertEqual(self.feed("CESU-8", "ISO-8859-1",
                                       [data[:2], data[2:i], data[i:i + 1], data[i + 1:]]),
                             (1, b"\xE9", error))

    def test_every_cut_around_malformed_bytes(self):
        data = "é".encode() + b"\xF0\x9F\x98Az"
        error = ("recode: standard input: byte 2: F0 9F 98 41 is not valid UTF-8: expected a "
                 f"{CONTINUATION} after 0x98\n")
        for i in range(len(data)):
            self.assertEqual(self.feed("UTF-8", "ISO-8859-1", [data[:i], data[i:]]),
                             (1, b"\xE9", error))

    def test_every_cut_around_half_a_pair(self):
        data = b"ab\xED\xA0\xBD\xC3\xA9"
        error = f"recode: standard input: byte 2: ED A0 BD is U+D83D, {LONE}\n"
        for i in range(len(data)):
            self.assertEqual(self.feed("CESU-8", "UTF-8", [data[:i], data[i:]]), (1, b"ab", error))
        self.assertEqual(self.feed("CESU-8", "UTF-8", [bytes([b]) for b in data]),
                         (1, b"ab", error))


if __name__ == "__main__":
    recode_runner.main()

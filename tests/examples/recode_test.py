# SPDX-License-Identifier: Apache-2.0
"""recode by its command line: options, names, files, streams and what it converts."""
import os
import re
import signal
import subprocess

import recode_runner
from recode_runner import CHUNK, SAMPLES, RecodeTest, cesu8, samples

HELP_HINT = "recode --help tells how to call it.\n"
LIST_HINT = "recode --list shows all character sets.\n"


# Sets with a codec of the same rows in the standard library, and samples that they can hold.
LEGACY = [
    ("Shift_JIS", "shift_jis", "japanese"), ("Windows-31J", "cp932", "japanese"),
    ("x-windows-949", "cp949", "korean"), ("Big5-HKSCS", "big5hkscs", "cantonese"),
    ("GBK", "gbk", "chinese"), ("x-mswin-936", "gbk", "chinese"),
    ("windows-1251", "cp1251", "russian"), ("windows-1253", "cp1253", "greek"),
    ("windows-1256", "cp1256", "arabic"), ("windows-1252", "cp1252", "french"),
    ("ISO-8859-15", "iso8859-15", "french"), ("UTF-16BE", "utf-16-be", "hindi"),
]


class Conversions(RecodeTest):
    def test_samples_in_sets_of_their_languages_and_back(self):
        for charset, codec, language in LEGACY:
            data = (SAMPLES / f"{language}.utf-8.txt").read_bytes() * 500
            there = self.convert("UTF-8", charset, data)
            self.assertEqual(there, data.decode().encode(codec), charset)
            self.assertEqual(self.convert(charset, "UTF-8", there), data, charset)

    def test_every_sample_goes_through_the_sets_that_hold_all_of_unicode(self):
        for charset, codec in (("GB18030", "gb18030"), ("UTF-16BE", "utf-16-be"),
                               ("UTF-16LE", "utf-16-le")):
            for sample in samples():
                data = sample.read_bytes()
                there = self.convert("UTF-8", charset, data)
                self.assertEqual(there, data.decode().encode(codec), (charset, sample.name))
                self.assertEqual(self.convert(charset, "UTF-8", there), data)

    def test_the_samples_in_other_sets_are_the_utf_8_samples(self):
        for file in SAMPLES.glob("*.txt"):
            language, charset = file.name.removesuffix(".txt").split(".")
            if charset == "utf-8":
                continue
            utf8 = (SAMPLES / f"{language}.utf-8.txt").read_bytes()
            self.assertEqual(self.convert(charset, "UTF-8", file.read_bytes()), utf8, file.name)
            self.assertEqual(self.convert("UTF-8", charset, utf8), file.read_bytes(), file.name)

    def test_every_sample_comes_back_from_cesu_8(self):
        for sample in samples():
            data = sample.read_bytes()
            there = self.convert("UTF-8", "CESU-8", data)
            self.assertEqual(there, cesu8(data.decode()), sample.name)
            self.assertEqual(self.convert("CESU-8", "UTF-8", there), data, sample.name)

    def test_every_sample_survives_utf_8_to_utf_8(self):
        for sample in samples():
            data = sample.read_bytes()
            self.assertEqual(self.convert("UTF-8", "UTF-8", data), data, sample.name)

    def test_all_bytes_pass_through_iso_8859_1(self):
        data = bytes(range(256)) * 1000
        there = self.convert("ISO-8859-1", "UTF-8", data)
        self.assertEqual(there, data.decode("latin-1").encode())
        self.assertEqual(self.convert("UTF-8", "ISO-8859-1", there), data)

    def test_empty_input_gives_empty_output(self):
        self.assertEqual(self.convert("UTF-8", "CESU-8", b""), b"")

    def test_nul_bytes_are_text(self):
        data = b"\0a\0\0b" + b"\0" * (2 * CHUNK)
        self.assertEqual(self.convert("UTF-8", "US-ASCII", data), data)

    def test_long_texts_of_every_width_and_alignment(self):
        for piece in "a", "é", "€", "😀", "aé€😀":
            for padding in range(4):
                text = "x" * padding + piece * (3 * CHUNK // len(piece.encode()))
                self.assertEqual(self.convert("UTF-8", "CESU-8", text.encode()), cesu8(text))
                self.assertEqual(self.convert("CESU-8", "UTF-8", cesu8(text)), text.encode())

    def test_ignorable_characters_without_a_counterpart_vanish(self):
        self.assertEqual(self.convert("UTF-8", "US-ASCII", "soft\u00ADhy\u200Dphen".encode()),
                         b"softhyphen")


class Actions(RecodeTest):
    def test_replace_malformed(self):
        self.assertEqual(self.convert("UTF-8", "UTF-8", b"a\xFFb\xC3", "--on-error", "replace"),
                         "a\uFFFDb\uFFFD".encode())

    def test_replace_unmappable(self):
        self.assertEqual(self.convert("UTF-8", "US-ASCII", "10 € 😀!".encode(), "--on-error=replace"),
                         b"10 ? ?!")

    def test_replace_both(self):
        self.assertEqual(self.convert("UTF-8", "ISO-8859-1", b"\xE9t\xC3\xA9", "--on-error=replace"),
                         b"?\xE9")

    def test_replace_a_lone_surrogate(self):
        self.assertEqual(self.convert("CESU-8", "UTF-8", b"a\xED\xA0\x80b", "--on-error=replace"),
                         b"a?b")

    def test_ignore_malformed_and_unmappable(self):
        self.assertEqual(self.convert("UTF-8", "ISO-8859-1", b"a\xFFb\xE2\x82\xACc\xE2\x82",
                                      "--on-error", "ignore"), b"abc")

    def test_a_text_of_faults_alone(self):
        data = b"\xFF" * (3 * CHUNK + 1)
        self.assertEqual(self.convert("UTF-8", "UTF-8", data, "--on-error=ignore"), b"")
        self.assertEqual(self.convert("UTF-8", "UTF-8", data, "--on-error=replace"),
                         "\uFFFD".encode() * len(data))
        self.assertEqual(self.convert("UTF-8", "US-ASCII", data, "--on-error=replace"),
                         b"?" * len(data))

    def test_report_is_the_default_and_can_be_asked_for(self):
        for arguments in [], ["--on-error", "report"], ["--on-error=report"]:
            result = self.run_recode("-f", "UTF-8", "-t", "UTF-8", *arguments, data=b"ab\xFF")
            self.assertEqual((result.returncode, result.stdout), (1, b"ab"))

    def test_an_unknown_action_is_refused(self):
        result = self.run_recode("-f", "UTF-8", "-t", "UTF-8", "--on-error", "panic")
        self.assertEqual((result.returncode, result.stdout), (2, b""))
        self.assertIn(b"panic", result.stderr)
        self.assertTrue(result.stderr.decode().endswith(HELP_HINT))


class Names(RecodeTest):
    def test_names_are_loose_and_aliases_work(self):
        for name in "ISO-8859-1", "iso8859_1", "latin1", "L1", "iso-8859-01":
            self.assertEqual(self.convert(name, "utf8", b"\xE9"), "é".encode())

    def test_long_options(self):
        result = self.run_recode("--from", "latin1", "--to=UTF-8", data=b"\xE9")
        self.assertEqual((result.returncode, result.stdout), (0, "é".encode()))

    def test_an_unknown_name_is_told_with_the_nearest(self):
        for name, near in [("utf9", "UTF-8"), ("cyrilic", "cyrillic (ISO-8859-5)"),
                           ("us-asci", "US-ASCII"), ("CESU", "CESU-8")]:
            result = self.run_recode("-f", name, "-t", "UTF-8")
            self.assert_fails(result, 2, f'recode: unknown character set "{name}"; near to it: '
                                         f'{near}\n{LIST_HINT}')

    def test_a_name_that_is_near_to_nothing(self):
        for name in "xyzzy-plugh", "€€", "n" * 5000:
            result = self.run_recode("-f", name, "-t", "UTF-8")
            self.assert_fails(result, 2, f'recode: unknown character set "{name}"\n{LIST_HINT}')

    def test_two_unknown_names_are_told_in_one_go(self):
        result = self.run_recode("-f", "utf9", "-t", "latn1")
        self.assertEqual(result.returncode, 2)
        self.assertIn(b'"utf9"', result.stderr)
        self.assertIn(b'"latn1"', result.stderr)

    def test_an_unknown_name_leaves_the_output_alone(self):
        self.file("out", b"precious")
        self.assertEqual(self.run_recode("-f", "utf9", "-t", "UTF-8", "-o", "out").returncode, 2)
        self.assertEqual((self.folder / "out").read_bytes(), b"precious")


class Information(RecodeTest):
    def test_list_shows_names_aliases_and_numbers_in_columns(self):
        for option in "--list", "-l":
            result = self.run_recode(option)
            self.assertEqual((result.returncode, result.stderr), (0, b""))
            lines = result.stdout.decode().splitlines()
            self.assertRegex(lines[0], r"^NAME +MIB  ALIASES$")
            mib_end = lines[0].index("MIB") + 3
            aliases = lines[0].index("ALIASES")
            for line in lines:
                self.assertLessEqual(len(line), 80)
                self.assertEqual(line, line.rstrip())
                self.assertEqual(line[mib_end:aliases].strip(), "")
                self.assertNotEqual(line[aliases], " ")
            rows = {line[:mib_end].split()[0]: int(line[:mib_end].split()[1])
                    for line in lines[1:] if line[0] != " "}
            self.assertEqual(len(rows), 41)
            for name, mib in [("US-ASCII", 3), ("ISO-8859-1", 4), ("UTF-8", 106), ("CESU-8", 1016),
                              ("x-mswin-936", 0), ("Big5-HKSCS", 2101), ("windows-1258", 2258)]:
                self.assertEqual(rows.get(name), mib)
            self.assertEqual(list(rows), sorted(rows, key=lambda n: re.sub(r"\W", "", n).upper()))
            words = re.split(r"[\s,]+", result.stdout.decode())
            for alias in "latin1", "csASCII", "csUTF8unicode-1-1-utf-8", "csCESU-8":
                self.assertEqual(words.count(alias), 1, alias)

    def test_every_listed_name_can_be_used(self):
        lines = self.run_recode("--list").stdout.decode().splitlines()[1:]
        for name in [line.split()[0] for line in lines if line[0] != " "]:
            self.assertEqual(self.convert(name, name, b""), b"")

    def test_help(self):
        for option in "--help", "-h":
            result = self.run_recode(option)
            self.assertEqual((result.returncode, result.stderr), (0, b""))
            for word in b"--from", b"--to", b"--on-error", b"--output", b"--list", b"--version":
                self.assertIn(word, result.stdout)

    def test_version(self):
        result = self.run_recode("--version")
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        self.assertRegex(result.stdout.decode(), r"^recode \(orvxx\) \d+\.\d+\.\d+\n$")


class Usage(RecodeTest):
    def test_both_sets_must_be_given(self):
        self.assert_fails(self.run_recode(), 2, "recode: --from is required\n" + HELP_HINT)
        self.assert_fails(self.run_recode("-t", "UTF-8"), 2,
                          "recode: --from is required\n" + HELP_HINT)
        self.assert_fails(self.run_recode("-f", "UTF-8"), 2,
                          "recode: --to is required\n" + HELP_HINT)

    def test_unknown_options_are_refused(self):
        result = self.run_recode("-f", "UTF-8", "-t", "UTF-8", "--frobnicate")
        self.assertEqual((result.returncode, result.stdout), (2, b""))
        self.assertIn(b"--frobnicate", result.stderr)


class Files(RecodeTest):
    ARGUMENTS = ("-f", "UTF-8", "-t", "ISO-8859-1")

    def test_a_file_to_standard_output(self):
        self.file("in", "é".encode())
        result = self.run_recode(*self.ARGUMENTS, "in")
        self.assertEqual((result.returncode, result.stdout), (0, b"\xE9"))

    def test_several_files_and_standard_input_among_them(self):
        self.file("a", "é".encode())
        self.file("empty", b"")
        self.file("b", "ü".encode())
        result = self.run_recode(*self.ARGUMENTS, "a", "empty", "-", "b", data="ß".encode())
        self.assertEqual((result.returncode, result.stdout), (0, b"\xE9\xDF\xFC"))

    def test_a_character_may_not_be_split_between_files(self):
        self.file("a", b"x\xC3")
        self.file("b", b"\xA9")
        self.assert_fails(
            self.run_recode(*self.ARGUMENTS, "a", "b"), 1,
            "recode: a: byte 1: C3 is not valid UTF-8: the input ends where a continuation byte "
            "(0x80 to 0xBF) is expected\n", b"x")

    def test_offsets_count_from_the_start_of_each_file(self):
        self.file("a", b"x" * (CHUNK + 5))
        self.file("b", b"yy\x80")
        self.assert_fails(
            self.run_recode(*self.ARGUMENTS, "a", "b"), 1,
            "recode: b: byte 2: 80 is not valid UTF-8: expected a lead byte, not a continuation "
            "byte (0x80 to 0xBF)\n", b"x" * (CHUNK + 5) + b"yy")

    def test_a_surrogate_pair_may_not_be_split_between_files(self):
        self.file("a", b"\xED\xA0\xBD")
        self.file("b", b"\xED\xB8\x80")
        self.assert_fails(
            self.run_recode("-f", "CESU-8", "-t", "UTF-8", "a", "b"), 1,
            "recode: a: byte 0: ED A0 BD is U+D83D, half of a surrogate pair, and the other half "
            "is missing\n")

    def test_nothing_after_a_fault_is_converted(self):
        self.file("a", b"x\xFF")
        self.file("b", b"y")
        result = self.run_recode(*self.ARGUMENTS, "a", "b")
        self.assertEqual((result.returncode, result.stdout), (1, b"x"))

    def test_an_output_file_is_made(self):
        for option in (["-o", "out"], ["--output=out"]):
            self.file("in", "é".encode())
            self.assert_fails(self.run_recode(*self.ARGUMENTS, *option, "in"), 0, "")
            self.assertEqual((self.folder / "out").read_bytes(), b"\xE9")
            (self.folder / "out").unlink()

    def test_an_output_file_is_overwritten_whole(self):
        self.file("out", b"much longer than what comes")
        self.run_recode(*self.ARGUMENTS, "-o", "out", data=b"short")
        self.assertEqual((self.folder / "out").read_bytes(), b"short")

    def test_an_output_of_dash_is_standard_output(self):
        result = self.run_recode(*self.ARGUMENTS, "-o", "-", data=b"x")
        self.assertEqual(result.stdout, b"x")
        self.assertEqual(os.listdir(self.folder), [])

    def test_the_output_file_holds_what_stands_before_the_fault(self):
        result = self.run_recode(*self.ARGUMENTS, "-o", "out", data=b"x" * CHUNK + b"\xFF")
        self.assertEqual(result.returncode, 1)
        self.assertEqual((self.folder / "out").read_bytes(), b"x" * CHUNK)

    def test_the_output_may_not_be_an_input(self):
        self.file("in", b"precious")
        self.file("other", b"x")
        os.link(self.folder / "in", self.folder / "hard")
        os.symlink("in", self.folder / "soft")
        for output in "in", "hard", "soft", "./in":
            result = self.run_recode(*self.ARGUMENTS, "-o", output, "other", "in")
            self.assert_fails(result, 2, f"recode: cannot write {output}: it is the same file as "
                                         "the input in\n")
            self.assertEqual((self.folder / "in").read_bytes(), b"precious")

    def test_standard_output_may_not_be_an_input(self):
        self.file("in", b"precious")
        with open(self.folder / "in", "ab") as output:
            process = self.start(*self.ARGUMENTS, "in", stdout=output, stderr=subprocess.PIPE)
            _, error = process.communicate(timeout=recode_runner.PATIENCE)
        self.assertEqual(process.returncode, 2)
        self.assertEqual(error, b"recode: cannot write standard output: it is the same file as the "
                                b"input in\n")
        self.assertEqual((self.folder / "in").read_bytes(), b"precious")

    def test_the_same_device_twice_is_no_conflict(self):
        result = self.run_recode(*self.ARGUMENTS, "-o", "/dev/null", "/dev/null")
        self.assert_fails(result, 0, "")

    def test_a_missing_input_is_told_before_the_output_is_touched(self):
        self.file("in", b"x")
        self.file("out", b"precious")
        result = self.run_recode(*self.ARGUMENTS, "-o", "out", "in", "missing")
        self.assert_fails(result, 2, "recode: cannot read missing: No such file or directory\n")
        self.assertEqual((self.folder / "out").read_bytes(), b"precious")

    def test_a_folder_is_no_input(self):
        result = self.run_recode(*self.ARGUMENTS, ".")
        self.assert_fails(result, 2, "recode: cannot read .: Is a directory\n")

    def test_an_output_in_a_missing_folder(self):
        result = self.run_recode(*self.ARGUMENTS, "-o", "missing/out", data=b"x")
        self.assert_fails(result, 2,
                          "recode: cannot write missing/out: No such file or directory\n")

    def test_a_file_whose_name_looks_like_an_option(self):
        self.file("-t", "é".encode())
        result = self.run_recode(*self.ARGUMENTS, "--", "-t")
        self.assertEqual((result.returncode, result.stdout), (0, b"\xE9"))


class Streams(RecodeTest):
    ARGUMENTS = ("-f", "UTF-8", "-t", "CESU-8")

    def test_a_full_device_is_told(self):
        for arguments in self.ARGUMENTS, ("--list",):
            with open("/dev/full", "wb") as full:
                process = self.start(*arguments, stdin=subprocess.PIPE, stdout=full,
                                     stderr=subprocess.PIPE)
                _, error = process.communicate(b"x", timeout=recode_runner.PATIENCE)
            self.assertEqual(process.returncode, 2)
            self.assertEqual(error, b"recode: cannot write standard output: No space left on "
                                    b"device\n")

    def test_a_full_device_as_the_output_file(self):
        result = self.run_recode(*self.ARGUMENTS, "-o", "/dev/full", data=b"x")
        self.assert_fails(result, 2, "recode: cannot write /dev/full: No space left on device\n")

    def test_a_reader_that_goes_away_ends_it_quietly(self):
        process = self.start(*self.ARGUMENTS, "/dev/zero", stdout=subprocess.PIPE,
                             stderr=subprocess.PIPE)
        self.assertEqual(process.stdout.read(10), b"\0" * 10)
        process.stdout.close()
        self.assertEqual(process.stderr.read(), b"")
        process.stderr.close()
        self.assertEqual(process.wait(recode_runner.PATIENCE), -signal.SIGPIPE)

    def test_each_piece_of_a_slow_stream_comes_out_at_once(self):
        process = self.start(*self.ARGUMENTS, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        for byte, out in [(b"a", b"a"), (b"\xC3", b""), (b"\xA9", b"\xC3\xA9"), (b"\xF0\x9F", b""),
                          (b"\x98\x80", b"\xED\xA0\xBD\xED\xB8\x80")]:
            process.stdin.write(byte)
            process.stdin.flush()
            self.assertEqual(process.stdout.read(len(out)), out)
        rest, _ = process.communicate(timeout=recode_runner.PATIENCE)
        self.assertEqual((rest, process.returncode), (b"", 0))

    def test_nothing_is_said_where_no_terminal_is(self):
        data = b"x" * (20 * CHUNK)
        self.assertEqual(self.convert("UTF-8", "US-ASCII", data), data)


if __name__ == "__main__":
    recode_runner.main()

# SPDX-License-Identifier: Apache-2.0
"""The line of progress under a pseudo terminal."""
import fcntl
import os
import pty
import re
import struct
import subprocess
import termios
import time

import recode_runner
from recode_runner import CHUNK, RecodeTest

CLEARED = "\r\x1b[K"
# Longer than the half second in which nothing is shown.
LONG = 0.8


class Progress(RecodeTest):
    def setUp(self):
        super().setUp()
        self.master, self.slave = pty.openpty()
        self.addCleanup(os.close, self.master)
        self.set_width(80)

    def set_width(self, columns):
        fcntl.ioctl(self.slave, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))

    def start_on_terminal(self, *arguments, **options):
        process = self.start("-f", "UTF-8", "-t", "UTF-8", *arguments, stderr=self.slave, **options)
        os.close(self.slave)
        return process

    def shown(self):
        """All that the terminal got."""
        text = b""
        while True:
            try:
                piece = os.read(self.master, 4096)
            except OSError:  # how a terminal says that the other side is closed
                piece = b""
            if not piece:
                return text.decode()
            text += piece

    def run_slowly_from_pipe(self, tail=b""):
        process = self.start_on_terminal(stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        for _ in range(3):
            os.write(process.stdin.fileno(), b"x" * 1024)
            time.sleep(LONG / 2)
        os.write(process.stdin.fileno(), tail)
        process.stdin.close()
        output = process.stdout.read()
        process.stdout.close()
        return process.wait(recode_runner.PATIENCE), output, self.shown()

    def run_slowly_from_file(self):
        self.file("in", b"x" * (16 * CHUNK))
        process = self.start_on_terminal("in", stdout=subprocess.PIPE)
        time.sleep(LONG)  # the pipe is full meanwhile
        output = process.stdout.read()
        process.stdout.close()
        self.assertEqual(process.wait(recode_runner.PATIENCE), 0)
        self.assertEqual(output, b"x" * (16 * CHUNK))
        return self.shown()

    def test_a_pipe_shows_bytes_and_rate_and_is_cleared(self):
        status, output, shown = self.run_slowly_from_pipe()
        self.assertEqual((status, output), (0, b"x" * 3072))
        self.assertRegex(shown, r"^\r\d\.\d KiB, [\d.]+ K?i?B/s\x1b\[K")
        self.assertTrue(shown.endswith(CLEARED), repr(shown))

    def test_a_file_shows_a_bar_and_is_cleared(self):
        shown = self.run_slowly_from_file()
        self.assertRegex(shown, r"^\r\[#*\.*\] \d+ %, [\d.]+ [KM]iB of 1\.0 MiB, [\d.]+ [KM]iB/s"
                                r"\x1b\[K")
        self.assertTrue(shown.endswith(CLEARED), repr(shown))

    def test_the_line_fits_a_narrow_terminal(self):
        for columns in (1, 10, 30, 60):
            with self.subTest(columns=columns):
                if columns != 1:
                    os.close(self.master)
                    self.master, self.slave = pty.openpty()
                self.set_width(columns)
                for line in re.findall(r"\r([^\r\x1b]*)", self.run_slowly_from_file()):
                    self.assertLess(len(line), columns)

    def test_a_fault_is_told_on_a_clean_line(self):
        status, output, shown = self.run_slowly_from_pipe(b"\xFF")
        self.assertEqual((status, output), (1, b"x" * 3072))
        self.assertIn("KiB", shown)
        self.assertIn(CLEARED + "recode: standard input: byte 3072: FF is not valid", shown)

    def test_quick_work_shows_nothing(self):
        process = self.start_on_terminal(stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        output, _ = process.communicate(b"x" * 10, timeout=recode_runner.PATIENCE)
        self.assertEqual((output, self.shown()), (b"x" * 10, ""))

    def test_nothing_is_shown_where_the_text_goes_to_the_terminal(self):
        slave = os.dup(self.slave)
        process = self.start_on_terminal(stdin=subprocess.PIPE, stdout=slave)
        os.close(slave)
        for _ in range(3):
            os.write(process.stdin.fileno(), b"x")
            time.sleep(LONG / 2)
        process.stdin.close()
        self.assertEqual(process.wait(recode_runner.PATIENCE), 0)
        self.assertEqual(self.shown(), "xxx")


if __name__ == "__main__":
    recode_runner.main()

# SPDX-License-Identifier: Apache-2.0
"""recode on gibibytes: the memory stays the same, and offsets stay exact."""
import os
import pathlib
import re
import subprocess
import threading

import recode_runner
from recode_runner import RecodeTest

TOTAL = 2 * 2 ** 30
MOST_KIBIBYTES = 32 * 1024


def peak_kibibytes(process):
    """The largest resident set of a running process. That of a finished one, as the system reports
    it to the parent, would count what the parent itself had in memory when it forked."""
    status = pathlib.Path(f"/proc/{process}/status").read_text()
    return int(re.search(r"VmHWM:\s+(\d+) kB", status).group(1))


class LargeInput(RecodeTest):
    def test_two_gibibytes_in_less_than_32_mebibytes(self):
        piece = ("Plain text, été, 10 €, 😀.\n" * 40000).encode()[:2 ** 20]
        piece = piece[:piece.rindex(b"\n") + 1]
        pieces = TOTAL // len(piece) + 1
        process = self.start("-f", "UTF-8", "-t", "UTF-8", stdin=subprocess.PIPE,
                             stdout=subprocess.PIPE)

        def write():
            for _ in range(pieces):
                process.stdin.write(piece)
            process.stdin.flush()

        writer = threading.Thread(target=write)
        writer.start()
        expected = memoryview(piece)
        at = 0
        count = 0
        while count < pieces * len(piece):
            # Compared with the text that repeats, without keeping it.
            data = os.read(process.stdout.fileno(), 2 ** 16)
            self.assertNotEqual(data, b"")
            count += len(data)
            while data:
                length = min(len(data), len(piece) - at)
                self.assertEqual(data[:length], expected[at:at + length])
                at = (at + length) % len(piece)
                data = data[length:]
        writer.join()
        # All is through, and the program waits for more.
        peak = peak_kibibytes(process.pid)
        process.stdin.close()
        self.assertEqual(process.stdout.read(), b"")
        process.stdout.close()
        self.assertEqual(process.wait(recode_runner.PATIENCE), 0)
        self.assertGreaterEqual(count, TOTAL)
        print(f"{count} bytes, peak {peak} KiB")
        self.assertLess(peak, MOST_KIBIBYTES)

    def test_an_offset_beyond_four_gibibytes(self):
        offset = 2 ** 32 + 12345
        with open(self.folder / "in", "wb") as file:
            file.seek(offset)  # the hole before it takes no room on the disk
            file.write("é".encode())
        result = self.run_recode("-f", "UTF-8", "-t", "US-ASCII", "-o", "/dev/null", "in")
        self.assert_fails(result, 1, f"recode: in: byte {offset}: C3 A9 is U+00E9, which has no "
                                     "counterpart in US-ASCII\n")


if __name__ == "__main__":
    recode_runner.main()

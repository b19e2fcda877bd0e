# SPDX-License-Identifier: Apache-2.0
"""orvxx.h names every public header once, each with what it is for.

    umbrella_test.py TREE HEADER...
"""
import pathlib
import re
import sys
import unittest

TREE = pathlib.Path(sys.argv[1])
UMBRELLA = "orv/liborvxx/orvxx.h"
PUBLIC = [header for header in sys.argv[2:] if header != UMBRELLA]
LINES = [line for line in (TREE / UMBRELLA).read_text("utf-8").splitlines()
         if line.startswith("#include")]


class UmbrellaTest(unittest.TestCase):
    maxDiff = None

    def test_names_every_public_header_once(self):
        named = [re.search(r'"([^"]*)"', line).group(1) for line in LINES]
        self.assertEqual(sorted(named), sorted(PUBLIC))

    def test_says_what_each_is_for(self):
        for line in LINES:
            self.assertRegex(line, r'^#include "\S+" +// .+')

    def test_there_are_headers(self):
        self.assertGreater(len(PUBLIC), 50)


unittest.main(argv=sys.argv[:1])

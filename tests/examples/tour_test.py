# SPDX-License-Identifier: Apache-2.0
"""The tour prints what its text promises."""
import subprocess
import sys

EXPECTED = """\
A tour of orvxx
Text is UTF-16: views, strings, code points
  Καλημέρα, 🌍! Γειά.
  19 units, 18 code points
  the first word: Καλημέρα

Text under construction
  true: pi is 3.14159!
  !95141.3 si ip

Bytes to text and back, at once
  ISO-8859-1: Maís, grüß dich
  US-ASCII: Ma?s, gr?? dich

Decoding in slices, as bytes arrive
  slice 1: 2 bytes came, 2 wait, text so far: ""
  slice 2: 7 bytes came, 0 wait, text so far: "€ 5, ca"
  slice 3: 3 bytes came, 0 wait, text so far: "€ 5, café"

Bad input: throw, replace, or ask where
  a malformed sequence of 2 bytes
  replaced: caf\N{REPLACEMENT CHARACTER}
  no counterpart in US-ASCII: unit 3, U+20AC

Exact numbers
  30! = 265252859812191058636308480000000
  2^200 has 61 digits: 1606938044258990275541962092341162602522202993782792835301376
  123456789 / 10^13 as a double: 1.23456789e-05
  the nearest half to 1/3: 0.333252

Numbers from text and to text, in every locale alike
  6.02214076E23
  4.9E-324
  12.5
  " mole" is none

Decimals: what is written with a point is exact
  0.1 + 0.2 is 0.3: true, as doubles: false
  59.70 + 11.34 = 71.04
  a third: 0.3333333333333333333333333333333333
  the double 0.1 as a person reads it: 0.1

URIs: parse, take apart, resolve, compare
  in ASCII: http://example.org/caf%C3%A9/men%C3%BC?size=XL&q=a+b#top
  segments: café menü
  size: XL
  a neighbour: http://example.org/images/
  scheme and host match in any case: true
  value greater than 255, index 18

UUIDs
  of a name: 1d983fa2-e448-3ca9-988f-afcdbc377091, version 3
  parsed again it is the same
  a random one has version 4
  invalid UUID string: not-a-uuid
"""

printed = subprocess.run(sys.argv[1], capture_output=True, check=True, timeout=300)
if printed.stderr or printed.stdout.decode() != EXPECTED:
    sys.exit(f"expected:\n{EXPECTED}\nprinted:\n{printed.stdout.decode()}{printed.stderr.decode()}")

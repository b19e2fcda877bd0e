# SPDX-License-Identifier: Apache-2.0
"""invoice by its command line: sums, rounding, payments, punctuation, bad lines."""
import decimal
import os
import random
import re
import subprocess
import sys
import unittest

PROGRAM = os.path.abspath(sys.argv.pop(1))
SAMPLE = os.path.join(os.path.dirname(__file__), "../../examples/invoice/sample.txt")
PATIENCE = 300


def run(*arguments, data=""):
    return subprocess.run([PROGRAM, *arguments], input=data.encode(), capture_output=True,
                          timeout=PATIENCE)


class Invoice(unittest.TestCase):
    maxDiff = None

    def good(self, *arguments, data=""):
        result = run(*arguments, data=data)
        self.assertEqual((result.stderr.decode(), result.returncode), ("", 0))
        return result.stdout.decode()

    def bad(self, status, *arguments, data=""):
        result = run(*arguments, data=data)
        self.assertEqual(result.returncode, status)
        self.assertEqual(result.stdout, b"")
        return result.stderr.decode()

    def test_the_sample_adds_up(self):
        self.assertEqual(self.good(SAMPLE, "--currency", "€", "--payments", "3"), """\
Notebook, squared                3        19.99        59.97
Pencils, by the dozen           12        0.745         8.94
Apples, 1.25 kg               1.25         7.80         9.75
Advice, half an hour           0.5       129.90        64.95
Café crème                       1         4.50         4.50
Copies                         200       0.0075         1.50
------------------------------------------------------------
net                                                   149.61
tax 7 % of                                14.25         1.00
tax 19 % of                              135.36        25.72
------------------------------------------------------------
total                                                 176.33 €
payment 1                                              58.78 €
payment 2                                              58.78 €
payment 3                                              58.77 €
""")

    def test_takes_the_punctuation_of_a_locale(self):
        out = self.good("-l", "de_DE.UTF-8", data="1000;1234.50;19;A\n")
        self.assertIn("1.234.500,00", out)
        self.assertIn("1.469.055,00", out)

    def test_rounds_half_a_cent_up(self):
        self.assertIn("0.02\n", self.good(data="1;0.015;0;a\n"))
        self.assertIn("0.03\n", self.good(data="1;0.025;0;a\n"))

    def test_one_rate_is_one_rate_however_it_is_written(self):
        out = self.good(data="1;1.00;7;a\n1;1.00;7.0;b\n1;1.00;7.00;c\n")
        self.assertEqual(out.count("tax"), 1)

    def test_random_invoices_add_up_as_exact_arithmetic_does(self):
        cents, rng = decimal.Decimal("0.01"), random.Random(7)
        for _ in range(20):
            lines, taxes = [], {}
            for _ in range(rng.randrange(1, 30)):
                quantity = decimal.Decimal(rng.randrange(1, 5000)).scaleb(-rng.randrange(3))
                price = decimal.Decimal(rng.randrange(1, 10**6)).scaleb(-rng.randrange(5))
                rate = rng.choice(("0", "7", "8.1", "19"))
                lines.append(f"{quantity:f};{price:f};{rate};x")
                net = (quantity * price).quantize(cents, decimal.ROUND_HALF_UP)
                taxes[rate] = taxes.get(rate, 0) + net
            tax = sum((net * decimal.Decimal(rate) / 100).quantize(cents, decimal.ROUND_HALF_UP)
                      for rate, net in taxes.items())
            total = sum(taxes.values()) + tax
            out = self.good("-p", "7", data="\n".join(lines))
            self.assertEqual(re.search(r"^total +(\S+)", out, re.M)[1], str(total))
            parts = [decimal.Decimal(part) for part in re.findall(r"^payment .* (\S+)$", out, re.M)]
            self.assertEqual((len(parts), sum(parts)), (7, total))
            self.assertLessEqual(max(parts) - min(parts), cents)

    def test_says_what_is_wrong_with_a_line(self):
        for line, complaint in (("1;2;3", "no semicolon behind the tax rate"),
                                ("x;2;3;a", '"x" is no quantity'), ("1;2,5;3;a", '"2,5" is no price'),
                                ("1;;3;a", '"" is no price'), ("1;2;nan;a", '"nan" is no tax rate'),
                                ("1e9;1e9;0;a", "the amount has more than 16 digits")):
            self.assertEqual(self.bad(1, data="# a comment\n\n" + line + "\n"),
                             f"invoice: line 3: {complaint}\n")

    def test_says_what_else_is_wrong(self):
        self.assertEqual(self.bad(2, "/no/such/file"), "invoice: cannot open /no/such/file\n")
        self.assertEqual(self.bad(2, "-l", "xx_YY", data=""), "invoice: no locale xx_YY on this system\n")
        self.assertEqual(self.bad(2, data="9e12;10;0;a\n" * 2), "invoice: the total has more than 16 digits\n")
        self.assertIn("--help", self.bad(2, "--payments", "0"))

    def test_an_empty_invoice_is_nothing(self):
        self.assertRegex(self.good(), r"total +0\.00\n")


if __name__ == "__main__":
    unittest.main()

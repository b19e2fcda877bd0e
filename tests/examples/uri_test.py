# SPDX-License-Identifier: Apache-2.0
"""uri by its command line: explanations, resolution, normal form, bad text."""
import os
import subprocess
import sys
import unittest

PROGRAM = os.path.abspath(sys.argv.pop(1))
PATIENCE = 300


def run(*arguments, data=""):
    return subprocess.run([PROGRAM, *arguments], input=data.encode(), capture_output=True,
                          timeout=PATIENCE)


class Uri(unittest.TestCase):
    maxDiff = None

    def good(self, *arguments, data=""):
        result = run(*arguments, data=data)
        self.assertEqual((result.stderr.decode(), result.returncode), ("", 0))
        return result.stdout.decode()

    def bad(self, status, *arguments, data=""):
        result = run(*arguments, data=data)
        self.assertEqual(result.returncode, status)
        return result.stderr.decode()

    def test_explains_every_component(self):
        self.assertEqual(
            self.good("http://me@example.org:8080/caf%C3%A9/a?q=x+y&flag&n=1#e%20nd"), """\
http://me@example.org:8080/caf%C3%A9/a?q=x+y&flag&n=1#e%20nd
  absolute, hierarchical
  scheme      http
  user info   me
  host        example.org
  port        8080
  path        /caf%C3%A9/a  =  /café/a
    segment   caf%C3%A9  =  café
    segment   a
  query       q=x+y&flag&n=1
    parameter q: x y
    parameter flag
    parameter n: 1
  fragment    e%20nd  =  e nd
""")

    def test_explains_text_beyond_ascii(self):
        self.assertEqual(self.good("//bücher.example/"), """\
//bücher.example/
  relative, with an authority
  host        bücher.example
  path        /
  in ASCII    //b%C3%BCcher.example/
""")

    def test_tells_the_kinds_apart(self):
        for text, kind in (("mailto:me@h", "absolute, opaque"), ("/a", "relative, from the root"),
                           ("a/b", "relative"), ("", "relative")):
            self.assertEqual(self.good(text).splitlines()[1].strip(), kind, text)

    def test_resolves_against_a_base(self):
        self.assertEqual(self.good("-b", "http://h/a/b", "c", "../d?x", "//i/j"),
                         "http://h/a/c\nhttp://h/d?x\nhttp://i/j\n")

    def test_prints_the_normal_form(self):
        self.assertEqual(self.good("--normalize", "HTTP://Host:080/%7ea/./b/../c/é"),
                         "http://host:80/~a/c/%C3%A9\n")
        self.assertEqual(self.good("-n", "http://H", "a/%2e%2e/b"), "http://h\nb\n")

    def test_resolves_and_normalizes_at_once(self):
        self.assertEqual(self.good("-n", "-b", "http://H/a/", "./%41"), "http://h/a/A\n")

    def test_reads_lines_without_arguments(self):
        self.assertEqual(self.good("-n", data="a/./b\nC:x\n"), "a/b\nc:x\n")

    def test_marks_the_place_of_an_error(self):
        self.assertEqual(self.bad(1, "s://ä/b c"), """\
uri: unexpected character
  s://ä/b c
         ^ unit 7
""")

    def test_goes_on_after_a_bad_text(self):
        result = run("-n", "a b", "c")
        self.assertEqual((result.returncode, result.stdout), (1, b"c\n"))

    def test_refuses_a_bad_base(self):
        self.assertIn("uri: ']' expected\n", self.bad(1, "-b", "s://[v1.x", "a"))

    def test_tells_of_bad_options(self):
        self.assertIn("uri --help tells how to call it.\n", self.bad(2, "--no-such-option"))

    def test_tells_when_output_fails(self):
        with open("/dev/full", "wb") as full:
            result = subprocess.run([PROGRAM, "a"], stdout=full, stderr=subprocess.PIPE,
                                    timeout=PATIENCE)
        self.assertEqual((result.returncode, result.stderr),
                         (2, b"uri: cannot write to standard output\n"))

    def test_prints_help_and_version(self):
        self.assertIn("--base", self.good("--help"))
        self.assertRegex(self.good("--version"), r"^uri \(orvxx\) \d+\.\d+\.\d+\n$")


unittest.main()

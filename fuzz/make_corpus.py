#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes the seed corpora of the fuzz targets: one folder for each target, one file for each seed.

Run it after a change to a target's input format or to the seeds below; a seed's format is described at
the head of its target. Seeds that keep a failure of the past are added here too, with their bytes.
"""
import pathlib

CORPUS = pathlib.Path(__file__).parent / "corpus"

UTF_8, CESU_8, US_ASCII, ISO_8859_1, UTF_16BE, UTF_16LE = range(6)
# Further sets, by their place in charsets.h, with the codec that writes most of their characters.
TABLES = {
    "iso-8859-2": (6, "iso8859-2", "P\u0159\u00edli\u0161 \u017elu\u0165ou\u010dk\u00fd k\u016f\u0148 "),
    "iso-8859-3": (7, "iso8859-3", "e\u0125o\u015dan\u011do \u0109iu\u0135a\u016dde "),
    "iso-8859-6": (10, "iso8859-6", "\u0627\u0644\u0639\u0631\u0628\u064a\u0629 "),
    "iso-8859-7": (11, "iso8859-7", "\u03be\u03b5\u03c3\u03ba\u03b5\u03c0\u03ac\u03b6\u03c9 \u20ac "),
    "windows-1252": (22, "cp1252", "\u20ac\u201cna\u00efve\u201d\u2122 caf\u00e9 "),
    "windows-1258": (28, "cp1258", "Vi\u00ea\u0323t \u20ab "),
    "windows-874": (29, "cp874", "\u0e20\u0e32\u0e29\u0e32\u0e44\u0e17\u0e22 "),
    "windows-31j": (30, "cp932", "\u65e5\u672c\u8a9e \u30c6\u30b9\u30c8\uff71\uff72\u2460\ue000 "),
    "x-windows-949": (32, "cp949", "\ud55c\uad6d\uc5b4 \ub6a0\ubc29\uac01\ud558 "),
    "koi8-u": (35, "koi8_u", "\u0457\u0436\u0430\u043a \u2502\u25a0 "),
    "big5": (36, "big5", "\u4e2d\u6587\u3002\u7e41\u9ad4 "),
    "big5-hkscs": (37, "big5hkscs", "\u9999\u6e2f\U0002010c\u4e2d\U00027267\u0100 "),
    "gbk": (38, "gbk", "\u4e2d\u6587\u3002\u4e02\u9fa5\u7b80\u4f53 "),
    "gb18030": (39, "gb18030", "\u4e2d\u6587 \u0416\u00e9\u0590\U0001f600\uffff\ue78d "),
    "shift_jis": (40, "shift_jis", "\u65e5\u672c\u8a9e\uff76\uff85\u3002\u301c "),
}
REPORT, REPLACE, IGNORE = range(3)

ALL = 255  # the largest step
ENGLISH = "The quick brown fox, 3 caf\u00e9s and a \u201cna\u00efve\u201d r\u00e9sum\u00e9; "
RUSSIAN = "\u0421\u044a\u0435\u0448\u044c \u0435\u0449\u0451 \u044d\u0442\u0438\u0445 "
CHINESE = "\u4e2d\u6587\uff0c2024\u5e74\u3002\u8fd9\u662f\u4e00\u4e2a\u6d4b\u8bd5\uff01\n"
EMOJI = "ok \U0001f600\U0001f468\u200d\U0001f469 \u2764\ufe0f lol \U0001f1eb\U0001f1f7 "


def plan(*steps):
    """Steps as pairs: input added, room."""
    return bytes([len(steps)] + [size for step in steps for size in step])


def coder(charset, action, steps, payload):
    return bytes([charset, action, action]) + steps + payload


def utf16(text):
    return text.encode("utf-16-be", "surrogatepass")


def cesu8(text):
    units = utf16(text)
    return b"".join(chr(units[i] << 8 | units[i + 1]).encode("utf-8", "surrogatepass")
                    for i in range(0, len(units), 2))


AT_ONCE = plan((ALL, ALL))
SINGLE = plan((1, 1))
UNEVEN = plan((3, 1), (16, 2), (0, ALL), (33, 16), (8, 0), (1, 31))
WIDE = plan((16, 16), (100, 70), (64, 33), (200, 90))

DECODE = {
    "utf8-english-at-once": coder(UTF_8, REPORT, AT_ONCE, (ENGLISH * 3).encode()),
    "utf8-russian-uneven": coder(UTF_8, REPORT, UNEVEN, (RUSSIAN * 3).encode()),
    "utf8-chinese-wide-steps": coder(UTF_8, REPORT, WIDE, (CHINESE * 3).encode()),
    "utf8-emoji-single": coder(UTF_8, REPORT, SINGLE, (EMOJI * 2).encode()),
    "utf8-bad-continuations": coder(
        UTF_8, REPORT, UNEVEN,
        b"A\xc3A\xe2(\xa1\xe2\x82A\xf0(\xf0\x90(\xf0\x90\x80(\xc3\xc3\xa9 and on it goes"),
    "utf8-overlong": coder(
        UTF_8, REPLACE, UNEVEN,
        b"\xc0\x80\xc1\xbf\xe0\x80\x80\xe0\x9f\xbf\xf0\x80\x80\x80\xf0\x8f\xbf\xbf tail"),
    "utf8-surrogates-and-beyond": coder(
        UTF_8, IGNORE, WIDE, b"\xed\xa0\x80\xed\xbf\xbf\xf4\x90\x80\x80\xf7\xbf\xbf\xbf\xf8\xff ok"),
    "utf8-error-inside-ascii": coder(UTF_8, REPLACE, WIDE, b"x" * 30 + b"\x80" + b"y" * 40),
    "utf8-cut-off-at-end": coder(UTF_8, REPORT, WIDE, "text \U0001f600".encode()[:-1]),
    "utf8-e0-a-at-end": coder(UTF_8, REPORT, SINGLE, b"\xe0A"),
    "utf8-noncharacters-and-bom": coder(
        UTF_8, REPORT, UNEVEN, "\ufeffa\ufffe\uffff\U0010ffff\0z".encode()),
    "cesu8-emoji": coder(CESU_8, REPORT, UNEVEN, cesu8(EMOJI * 2)),
    "cesu8-lone-surrogates": coder(CESU_8, REPORT, WIDE, b"\xed\xb0\x80a\xed\xa0\x80b\xed\xa0\x80"),
    "cesu8-four-bytes": coder(CESU_8, REPLACE, WIDE, (EMOJI * 2).encode()),
    "ascii-with-high-bytes": coder(US_ASCII, REPORT, UNEVEN, b"plain \x80 text \xff" * 4),
    "ascii-replaced": coder(US_ASCII, REPLACE, WIDE, b"z" * 40 + b"\xe9" + b"z" * 40),
    "latin1-all-bytes": coder(ISO_8859_1, REPORT, UNEVEN, bytes(range(256))),
    "empty-utf8": coder(UTF_8, REPORT, AT_ONCE, b""),
    "utf16be-mixed": coder(UTF_16BE, REPORT, UNEVEN, utf16(EMOJI + CHINESE * 3)),
    "utf16le-swapped-mark": coder(UTF_16LE, REPLACE, WIDE, b"\xfe\xff" + utf16(ENGLISH)),
    "utf16be-lone-and-odd": coder(UTF_16BE, REPORT, SINGLE, utf16("a\ud800b\udc00\ufffe") + b"\xd8"),
    "gb18030-all-errors": coder(
        39, REPORT, UNEVEN,
        b"\x80\xffA\x81\x7f\x81\xff\x81\x20\x81\x30\x20\x81\x30\x81\x20\x84\x32\x81\x30"
        b"\xfe\x39\xfe\x39\x90\x30\x81\x30\xe3\x32\x9a\x35\x81\x30\x81"),
    "shift_jis-bad-trails": coder(40, REPORT, UNEVEN, b"\x81 \x81\x7f\xfd\xa0\x85\x40\x81\x5c\x81"),
    "big5-hkscs-bad-trails": coder(37, REPLACE, WIDE, b"\x81\x80\x88\x62\x87\x45\xfe\xfd\xff\x80" * 4),
}

ENCODE = {
    "utf8-english-at-once": coder(UTF_8, REPORT, AT_ONCE, utf16(ENGLISH * 3)),
    "utf8-russian-uneven": coder(UTF_8, REPORT, UNEVEN, utf16(RUSSIAN * 3)),
    "utf8-chinese-wide-steps": coder(UTF_8, REPORT, WIDE, utf16(CHINESE * 3)),
    "utf8-emoji-single": coder(UTF_8, REPORT, SINGLE, utf16(EMOJI * 2)),
    "utf8-lone-surrogates": coder(UTF_8, REPORT, UNEVEN, utf16("a\udc00b\ud800c\ud800\ud800 d\ud83d")),
    "utf8-lone-replaced": coder(UTF_8, REPLACE, WIDE, utf16(RUSSIAN + "\udfff" + CHINESE * 2)),
    "utf8-bounds": coder(
        UTF_8, REPORT, WIDE, utf16("\x7f\x80\u07ff\u0800\ud7ff\ue000\uffff\U00010000\U0010ffff" * 3)),
    "cesu8-emoji": coder(CESU_8, REPORT, UNEVEN, utf16(EMOJI * 2)),
    "cesu8-high-at-end": coder(CESU_8, IGNORE, WIDE, utf16("text \ud83d")),
    "ascii-unmappable": coder(US_ASCII, REPORT, UNEVEN, utf16(ENGLISH)),
    "ascii-default-ignorable": coder(
        US_ASCII, REPORT, WIDE, utf16("a\u00adb\u200bc\ufe80d\U000e0fffe\U000e1000f\u034f")),
    "ascii-pairs-replaced": coder(US_ASCII, REPLACE, SINGLE, utf16(EMOJI)),
    "latin1-all-units": coder(ISO_8859_1, REPORT, UNEVEN, utf16("".join(map(chr, range(256))))),
    "latin1-beyond-in-the-middle": coder(
        ISO_8859_1, REPLACE, WIDE, utf16("z" * 40 + "\u0100" + "z" * 40)),
    "utf16le-mixed": coder(UTF_16LE, REPORT, UNEVEN, utf16(EMOJI + CHINESE * 3)),
    "utf16be-lone": coder(UTF_16BE, REPLACE, WIDE, utf16(RUSSIAN + "\udfff\ufffe" + EMOJI + "\ud800")),
    "big5-hkscs-one-way": coder(37, REPORT, WIDE, utf16("\ue000\ufffd\U0002fffd\U00020000\U000e0001 ")),
    "windows-31j-one-way": coder(30, REPORT, WIDE, utf16("\u00a2\u00a5\u203e\u3094\ue757\ue758 ")),
    "empty-utf8": coder(UTF_8, REPORT, AT_ONCE, b""),
}

ROUNDTRIP = {
    "bytes-english": b"\0" + ENGLISH.encode(),
    "bytes-russian": b"\0" + RUSSIAN.encode(),
    "bytes-chinese": b"\0" + CHINESE.encode(),
    "bytes-emoji": b"\0" + EMOJI.encode(),
    "bytes-cesu8-emoji": b"\0" + cesu8(EMOJI),
    "bytes-cesu8-lone": b"\0" + b"\xed\xa0\xbd!",
    "bytes-latin1": b"\0" + bytes(range(0x80, 0x100)),
    "bytes-bounds": b"\0" + "\x7f\x80\u07ff\u0800\ud7ff\ue000\uffff\U00010000\U0010ffff".encode(),
    "units-russian": b"\1" + utf16(RUSSIAN),
    "units-emoji": b"\1" + utf16(EMOJI),
    "units-latin1": b"\1" + utf16("gr\u00fc\u00dfe \u00e0 \u00e9t\u00e9 " * 3),
    "units-lone": b"\1" + utf16("a\ud800b\udc00"),
}

for name, (place, codec, text) in TABLES.items():
    DECODE[name] = coder(place, REPORT, WIDE, (text * 8).encode(codec))
    DECODE[name + "-broken"] = coder(
        place, REPLACE, UNEVEN, bytes(range(0x20, 0x100)) + text.encode(codec)[:-2])
    ENCODE[name] = coder(place, REPORT, WIDE, utf16(text * 8))
    ENCODE[name + "-other-scripts"] = coder(place, IGNORE, UNEVEN, utf16(text + RUSSIAN + EMOJI + CHINESE))
    ROUNDTRIP["bytes-" + name] = bytes([2 * place]) + text.encode(codec)
    ROUNDTRIP["units-" + name] = bytes([2 * place + 1]) + utf16(text)


def names(*texts):
    return b"\0" + b"\xff".join(text.encode("latin-1") for text in texts)


CHARSET_NAME = {
    "spellings-of-utf8": names("UTF-8", "utf8", "U.T.F:8"),
    "leading-zeros": names("ISO-8859-01", "ISO-8859-1", "ISO-8859-10"),
    "zeros-alone": names("0", "00", "000"),
    "zero-before-letter": names("a0b", "ab", "A0B"),
    "zero-before-punctuation": names("x0-1", "x-01", "x01"),
    "zero-in-number": names("100", "10-0", "1-00"),
    "trailing-delimiters": names("x", "x-", "x---"),
    "delimiters-only": names("", "-", "$$"),
    "aliases": names("latin1", "CP819", "iso_ir_100"),
    "ascii-aliases": names("default", "646", "ISO_646.irv:1991"),
    "case": names("us-ascii", "US-ASCII", "Us_Ascii"),
    "beyond-ascii": names("UTF\u00e98", "UTF8\u00b2", "\u00df"),
    "wide-with-surrogates": b"\1" + utf16("utf\U0001f600" "8\uffffutf\ud800" "8\uffffutf\udc008"),
}

RFC_TEXT = b"f81d4fae-7dec-11d0-a765-00a0c91e6bf6"
UUID = {
    "rfc-4122-example": RFC_TEXT,
    "upper-case": RFC_TEXT.upper(),
    "nil": b"00000000-0000-0000-0000-000000000000",
    "all-ones": b"ffffffff-ffff-ffff-ffff-ffffffffffff",
    "short-groups": b"1-2-3-4-5",
    "first-group-too-long": b"123456789-0-0-0-0",
    "last-group-too-long": b"0-0-0-0-1234567890123",
    "empty-group": b"1--3-4-5",
    "missing-group": b"1-2-3-4",
    "text-behind": RFC_TEXT + b" ",
    "braces": b"{" + RFC_TEXT + b"}",
    "wide": utf16(RFC_TEXT.decode()),
    "wide-full-width-digits": utf16("\uff11\u0662-3-4-5-6"),
    "values": bytes(range(0x70, 0x90)),
}


def view(pos, pos2, count, needle, text):
    return bytes([pos, pos2, count, len(needle)]) + needle + text


STRING_REF = {
    "needle-in-the-middle": view(0, 0, 2, b"ana", b"bananas"),
    "needle-at-the-end": view(4, 0, 3, b"nas", b"bananas"),
    "needle-longer": view(0, 1, 9, b"bananas and more", b"bananas"),
    "needle-empty": view(3, 0, 0, b"", b"bananas"),
    "text-empty": view(0, 0, 1, b"a", b""),
    "both-empty": view(0, 0, 0, b"", b""),
    "position-beyond": view(200, 0, 1, b"a", b"aaa"),
    "position-npos": view(0xF0, 0xF0, 0xF0, b"a", b"abcabc"),
    "position-near-npos": view(0xF1, 0xF2, 0xF3, b"bc", b"abcabc"),
    "nul-inside": view(0, 2, 5, b"a\0b", b"xa\0ba\0c"),
    "prefix": view(0, 0, 0xF0, b"same", b"same and longer"),
    "high-bytes": view(1, 1, 3, b"\xff\x80\x7f", b"\x7f\xff\x80\x7f\x00\xff"),
    "repetitive": view(5, 0, 30, b"aaaaaaab", b"a" * 40 + b"b"),
}


def numbers(first, second, shift=7):
    """Two numbers in little-endian bytes, behind the length of the first and the shift."""
    return len(first).to_bytes(2, "little") + bytes([shift]) + first + second


BIG_UINT = {
    "zeros": b"",
    "one-by-one": numbers(b"\x01", b"\x01"),
    "small": numbers(b"\x39\x30", b"\x07", 0),
    "words": numbers(b"\xff" * 16, b"\xff" * 8, 32),
    "add-back": numbers(bytes(11) + b"\x80", b"\x01" + bytes(10) + b"\x80", 64),
    "power-of-ten": numbers((10 ** 77).to_bytes(32, "little"), (10 ** 19).to_bytes(8, "little")),
    "half-way": numbers((2 ** 54 - 1).to_bytes(7, "little"), b"\x03", 13),
    "longer-divisor": numbers(b"\x05", b"\xff" * 40, 1),
    "all-ones-long": numbers(b"\xff" * 700, b"\xff" * 300, 101),
    "runs-long": numbers((b"\x00" * 40 + b"\xff" * 40) * 8, b"\x00\xff" * 128, 255),
    "digits-long": numbers((10 ** 1500 - 1).to_bytes(623, "little"), (10 ** 700).to_bytes(291, "little")),
}



def narrow_number(text, radix=10):
    return bytes([radix, 0]) + text


def wide_number(text, radix=10):
    return bytes([radix, 1]) + utf16(text)


NUMBER_TEXT = {
    "integer": narrow_number(b"1234567 and more"),
    "integer-limit": narrow_number(b"-9223372036854775808"),
    "integer-beyond": narrow_number(b"18446744073709551616"),
    "integer-zeros": narrow_number(b"  +" + b"0" * 30 + b"42"),
    "prefix-hex": narrow_number(b"0x7fFFffFF", 0),
    "prefix-alone": narrow_number(b"0xg", 0),
    "octal": narrow_number(b"0177777777777", 0),
    "radix-36": narrow_number(b"3w5e11264sgsf", 36),
    "radix-1": narrow_number(b"0001", 1),
    "float": narrow_number(b"-12345.678e-9x"),
    "float-hex": narrow_number(b"0x1.fffffffffffff8p1023"),
    "float-long": narrow_number(b"0." + b"0" * 30 + b"1234567890" * 5 + b"e31"),
    "float-tie": narrow_number(b"9007199254740993"),
    "float-subnormal": narrow_number(b"2.4703282292062327208e-324"),
    "float-range": narrow_number(b"1.7976931348623159e308"),
    "float-exponent-long": narrow_number(b"1e0000000001"),
    "words": narrow_number(b"-iNfInItY_"),
    "nan": narrow_number(b"nan(1)"),
    "nul-inside": narrow_number(b"12\x0034"),
    "wide-scripts": wide_number("\u0661\u0662.\uff15e\u0663"),
    "wide-space": wide_number("\u00a0\u300012"),
    "wide-prefix": wide_number("\uff10x\u0661F", 0),
}


URI_TEXTS = {
    "whole": "http://me:pw@example.org:8080/a/b%20c?q=1&r=%C3%A9#top",
    "dots": "s://h/a/./b/../../../c/.",
    "dots-relative": "../../a/../b:c",
    "slashes": "s://h//a///b//",
    "colon": "x/../a:b",
    "empty-parts": "s://@:/?#",
    "opaque": "urn:a:b?c",
    "mail": "mailto:me@example.org",
    "ipv4": "//192.168.0.1:0080/",
    "ipv6": "s://[2001:db8::1.2.3.4]:80/",
    "ipv6-full": "//[1:2:3:4:5:6:7:8]",
    "ipv6-octet": "//[::1.2.3.256]/",
    "ipv6-colons": "//[1:::2]/",
    "ipvfuture": "s://[v1.a:b]/",
    "escape-bad": "s://a/%4g",
    "escape-cut": "s://a/%4",
    "escape-host": "s://%41b%c3%a9/%7e%2f",
    "escape-malformed": "s://h/%ff%c3x",
    "space": "s://a b",
    "bracket": "s://a/[x]",
    "beyond-ascii": "s://b\u00fccher/\u65e5\u672c?\u03b1#\U0001f600",
    "lone-surrogate": "a\ud800b",
    "end-mark": "a\uffffb",
    "empty": "",
}
URI_PAIRS = {
    "sibling": ("http://a/b/c/d;p?q", "../g?y#s"),
    "empty": ("http://a/b/c", ""),
    "fragment": ("http://a/b/c?q", "#s"),
    "query": ("http://a/b/c", "?y"),
    "authority": ("http://a/b", "//g/./h"),
    "absolute": ("http://a/b", "s:x"),
    "root": ("http://a/b", "/./../g"),
    "no-path": ("s://a", "d"),
    "opaque": ("urn:x", "y"),
    "below": ("s://a/b/", "s://a/b/c/d?q"),
    "same": ("s://a/b", "S://A:/b#f"),
    "beside": ("s://a/b", "s://a/bc"),
    "up": ("a/../../b/", "a/../../b/c:d"),
    "host-escape": ("s://%41b/", "s://ab/x"),
    "ports": ("s://a:080/x", "s://a:80/x"),
    "bad": ("s://a/b", "c d"),
}


def for_normalizing(text):
    return bytes([1]) + utf16(text) if max(text, default="") > "\xff" else \
        bytes([0]) + text.encode("latin-1")


# All modes: with and without a scheme, ASCII alone or not, from the start or not, narrow or wide.
URI_PARSE = {f"{name}-{switches}": bytes([switches, 7]) + (utf16(text) if switches & 4 else
                                                           text.encode("latin-1", "replace"))
             for name, text in URI_TEXTS.items() for switches in (0, 5, 14)}
URI_NORMALIZE = {name: for_normalizing(text) for name, text in URI_TEXTS.items()}
URI_TWO = {name: bytes([0, len(base)]) + (base + other).encode()
           for name, (base, other) in URI_PAIRS.items()}
# Each operation in turn, on a text of a few units with pairs of surrogates in it.
STRING_BUILDER = {
    "each-operation": b"".join(bytes([1, 0, 0, 5]) + b"ab\xd8\xdcc" + bytes([operation, 1, 3, 3])
                               + b"xyz" for operation in range(16)),
    "own-text": bytes([1, 0, 0, 4]) + b"abcd" + b"".join(
        bytes([operation, 2, 3, 248]) for operation in (1, 2, 7, 9) * 4),
    "beyond": bytes([1, 0, 0, 2]) + b"ab" + b"".join(
        bytes([operation, 255, 255, 1]) + b"x" for operation in range(16)),
    "reverse": bytes([1, 0, 0, 6]) + b"\xd8\xdc\xdc\xd8a\xd8" + bytes([12, 0, 0]) * 3,
}

def decimal_digits(text, point=".", separator=",", mode=4, cut=3):
    """Text to read digit by digit; mode: 7, 16 or 34 digits, 3 more to skip space."""
    return bytes([0, ord(point), ord(separator), mode, cut]) + text.encode()


def decimal_format(width, conversion, flags, precision, grouping, bits):
    """A number to write: a width from 0 to 2, and an index in "GEFgef"."""
    return bytes([1, width, conversion, flags, precision & 0xFF, *grouping]) + bits


DECIMAL_TEXT = {
    "plain": decimal_digits("1234.50"),
    "groups": decimal_digits("1,234,567.5e-3"),
    "comma": decimal_digits("1.234,5", ",", "."),
    "space-and-sign": decimal_digits(" \t-0.00012E+5x"),
    "many-digits": decimal_digits("1" * 40 + "." + "5" * 40, mode=5, cut=41),
    "tie": decimal_digits("1.0000005000000000000000000001", mode=3),
    "subnormal": decimal_digits("12345678901234567e-415"),
    "beyond": decimal_digits("1e99999999999999999999"),
    "unfinished": decimal_digits("12e+"),
    "words": decimal_digits("-infinity and nan"),
    "cut-word": decimal_digits("infin"),
    "write-money": decimal_format(1, 2, 0x26, 2, (3, 0), (398 - 2 << 53 | 123456789).to_bytes(8, "big")),
    "write-all": decimal_format(1, 0, 0, -1, (0, 0), (0x6C7 << 52 | 0x386F26FC0FFFF).to_bytes(8, "big")),
    "write-scientific": decimal_format(0, 1, 1, 3, (0, 0), bytes.fromhex("32bfffff") + bytes(4)),
    "write-wide": decimal_format(
        2, 2, 0x62, 40, (3, 2), (6176 + 20 << 49 | 10 ** 34 - 1 >> 64).to_bytes(8, "big")
        + (10 ** 34 - 1 & 2 ** 64 - 1).to_bytes(8, "big")),
    "write-largest": decimal_format(2, 2, 0, 0, (1, 0), bytes.fromhex("5fffed09bead87c0378d8e63ffffffff")),
    "write-infinity": decimal_format(1, 4, 0, 0, (0, 0), bytes.fromhex("f800000000000000")),
    "write-nan": decimal_format(0, 1, 1, 0, (0, 0), bytes.fromhex("fc00000100000000")),
}


DECIMAL_NUMBER = {
    "one": b"\x00" + (6176 << 49).to_bytes(8, "big") + (1).to_bytes(8, "big"),
    "money": b"\x00" + (398 - 2 << 53 | 1990).to_bytes(8, "big") + bytes(8),
    "all-digits": b"\x00" + bytes.fromhex("3041ed09bead87c0378d8e63ffffffff"),
    "too-large": b"\x00" + bytes.fromhex("6c7fffffffffffffffffffffffffffff"),
    "zero-far": b"\x00" + bytes.fromhex("80000000000000000000000000000000"),
    "nan": b"\x00" + bytes.fromhex("fe00000000000001") + bytes(8),
    "double-tenth": b"\x01" + bytes.fromhex("3fb999999999999a"),
    "double-smallest": b"\x01" + bytes.fromhex("0000000000000001"),
    "double-long": b"\x01" + bytes.fromhex("400921fb54442d18"),
    "double-negative-zero": b"\x01" + bytes.fromhex("8000000000000000"),
    "text": b"\x02 -12345.6700e-3 m",
    "text-long": b"\x02" + b"0.000" + b"1234567890" * 8 + b"5",
    "text-exponent": b"\x020e-9999999999",
    "text-word": b"\x02+iNfinity_",
    "text-hex": b"\x020x10",
    "units": b"\x03" + utf16("\u3000\u0661\u0662.\u096be\uff12 "),
    "units-nan": b"\x03" + utf16("NaN(1)"),
}


BOOL, SHORT, USHORT, INT, ULONG, LONG_LONG, FLOAT, DOUBLE, LONG_DOUBLE = range(9)
OCT, DEC, HEX, FIXED, SCIENTIFIC, HEX_FLOAT = 1, 2, 3, 4, 8, 12
SHOWBASE, SHOWPOS, UPPERCASE, BOOLALPHA = 16, 32, 64, 128


def stream_number(kind, text, flags=DEC, punctuation=".,", grouping=(0, 0)):
    return bytes([kind, flags, *punctuation.encode("latin-1"), *grouping]) + text.encode("latin-1")


STREAM_NUMBER = {
    "integer": stream_number(INT, "-123456 and more"),
    "groups": stream_number(LONG_LONG, "1,234,567,890.5", grouping=(3, 3)),
    "groups-uneven": stream_number(ULONG, "12,34,567", grouping=(3, 2)),
    "groups-wrong": stream_number(INT, "1,23,4567", grouping=(3, 0)),
    "groups-unlimited": stream_number(INT, "1234,567", grouping=(3, 127)),
    "prefix-decides": stream_number(LONG_LONG, "0xFFg", 0),
    "octal-zero-group": stream_number(LONG_LONG, "0,123", 0, grouping=(3, 0)),
    "octal": stream_number(ULONG, "0777", OCT | SHOWBASE),
    "hexadecimal": stream_number(ULONG, "0xdeadbeef", HEX | SHOWBASE | UPPERCASE),
    "too-large": stream_number(USHORT, "70000"),
    "negative-unsigned": stream_number(USHORT, "-1"),
    "true": stream_number(BOOL, "true", DEC | BOOLALPHA),
    "name-cut": stream_number(BOOL, "falsy", DEC | BOOLALPHA),
    "two": stream_number(BOOL, "2"),
    "double": stream_number(DOUBLE, "6.02214076e23 mol"),
    "double-comma": stream_number(DOUBLE, "1.234,5", DEC | FIXED, ",.", (3, 0)),
    "double-tie": stream_number(DOUBLE, "9007199254740993." + "0" * 800 + "1"),
    "double-huge": stream_number(DOUBLE, "1e999"),
    "double-no-exponent": stream_number(DOUBLE, "1e+"),
    "float-tie": stream_number(FLOAT, "16777217", DEC | SCIENTIFIC),
    "hex-float": stream_number(DOUBLE, "0x1.8p-1074", DEC | HEX_FLOAT),
    "long-double": stream_number(LONG_DOUBLE, "3.14159265358979323846264338327950288"),
    "long-double-hex": stream_number(LONG_DOUBLE, "0xc.9p-3", DEC | HEX_FLOAT),
    "long-double-smallest": stream_number(LONG_DOUBLE, "3.6451995318824746025e-4951"),
    "point-is-separator": stream_number(DOUBLE, "1.2.3", DEC, "..", (1, 0)),
    "digit-as-point": stream_number(DOUBLE, "15253", DEC, "5,", (0, 0)),
    "sign-as-separator": stream_number(INT, "-1-2", DEC, ".-", (1, 0)),
}


def pieces(charset, steps, payload):
    """Steps: the size of a piece of bytes in the low half, that of a block of text in the high one."""
    return bytes([charset, len(steps), *steps]) + payload


CHARSET_STREAMBUF = {
    "utf-8-single-bytes": pieces(UTF_8, [0x11], (RUSSIAN + EMOJI).encode()),
    "utf-8-blocks": pieces(UTF_8, [0xF3, 0x2F], (ENGLISH + CHINESE + EMOJI).encode()),
    "utf-8-cut-off": pieces(UTF_8, [0x12], EMOJI.encode()[:-2]),
    "utf-8-bad": pieces(UTF_8, [0x41, 0x14], b"ok \xff\xc3( \xed\xa0\xbd \xf0\x9f\x98"),
    "utf-16-odd": pieces(UTF_16LE, [0x13, 0x31], EMOJI.encode("utf-16-le") + b"\x3d"),
    "utf-16-lone": pieces(UTF_16BE, [0x22], b"\xd8\x3d\x00a\xde\x00\xff\xff\xd8\x3d"),
    "cesu-8": pieces(CESU_8, [0x15], cesu8(EMOJI)),
    "ascii-bad": pieces(US_ASCII, [0x71], b"caf\xc3\xa9"),
    **{name: pieces(charset, [0x11, 0x32, 0xF7], text.encode(codec, "ignore"))
       for name, (charset, codec, text) in TABLES.items()},
}


TARGETS = {
    "fuzz_big_uint": BIG_UINT,
    "fuzz_charset_name": CHARSET_NAME,
    "fuzz_charset_streambuf": CHARSET_STREAMBUF,
    "fuzz_decode": DECODE,
    "fuzz_encode": ENCODE,
    "fuzz_decimal_number": DECIMAL_NUMBER,
    "fuzz_decimal_text": DECIMAL_TEXT,
    "fuzz_number_text": NUMBER_TEXT,
    "fuzz_roundtrip": ROUNDTRIP,
    "fuzz_stream_number": STREAM_NUMBER,
    "fuzz_string_builder": STRING_BUILDER,
    "fuzz_string_ref": STRING_REF,
    "fuzz_uri_normalize": URI_NORMALIZE,
    "fuzz_uri_parse": URI_PARSE,
    "fuzz_uri_relativize": URI_TWO,
    "fuzz_uri_resolve": URI_TWO,
    "fuzz_uuid": UUID,
}


def main():
    for target, seeds in TARGETS.items():
        folder = CORPUS / target
        folder.mkdir(parents=True, exist_ok=True)
        for old in folder.iterdir():
            if old.name not in seeds:
                old.unlink()
        for name, content in seeds.items():
            (folder / name).write_bytes(content)


if __name__ == "__main__":
    main()

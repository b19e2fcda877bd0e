# SPDX-License-Identifier: Apache-2.0
"""Shows the library's objects in GDB as what they stand for: text, numbers, names.

GDB loads this file by itself when it loads the shared library, if the file has the name of the
library, links followed, with "-gdb.py" behind it (liborvxx.so.0.1.0-gdb.py), and is

  - in the directory of the library, as in the build tree and under every prefix but /usr, or
  - in /usr/share/gdb/auto-load, under the path of that directory, as installed by the packages.

GDB trusts the second place. The first has to be declared safe once, in ~/.config/gdb/gdbinit:

    add-auto-load-safe-path /opt/orvxx/lib

Programs that link with the archive, and anything else, load it by hand: source orvxx_printers.py

Text is cut at "set print elements" units. An object that cannot be what it should be, such as one
that is not made yet, is shown as <not valid: ...> or <not readable: ...>. "print /r" shows the members of any.
"""

import re

import gdb
import gdb.printing

# Where "set print elements" sets no limit, an object that is not valid must not take for ever.
MOST_UNITS = 1 << 20
# A number with more words is told by its size: Python converts no longer ones.
MOST_WORDS = 400

ESCAPES = {0: "\\0", 7: "\\a", 8: "\\b", 9: "\\t", 10: "\\n", 11: "\\v", 12: "\\f", 13: "\\r",
           0x22: '\\"', 0x5C: "\\\\"}


class NotValid(Exception):
    """The object cannot be shown; the text says why."""


# Text from units. Nothing here asks GDB for anything.


def joined_surrogates(units):
    """The characters of UTF-16 text; a surrogate without the other stays by itself."""
    characters = []
    for unit in units:
        if 0xDC00 <= unit < 0xE000 and characters and 0xD800 <= characters[-1] < 0xDC00:
            unit = 0x10000 + ((characters[-1] - 0xD800) << 10) + unit - 0xDC00
            characters[-1] = unit
        else:
            characters.append(unit)
    return characters


def utf_8_characters(units):
    """The characters of UTF-8 text, and a byte that belongs to none as itself plus 0x110000."""
    text = bytes(unit & 0xFF for unit in units).decode("utf-8", "surrogateescape")
    return [ord(c) + 0x110000 - 0xDC00 if 0xDC80 <= ord(c) < 0xDD00 else ord(c) for c in text]


def shown_character(character, charset, quote='"'):
    """The character, or an escape for it where it cannot be seen or the terminal lacks it."""
    if character == ord("'"):
        return "\\'" if quote == "'" else "'"
    if character == 0x22 and quote == "'":
        return '"'
    if character in ESCAPES:
        return ESCAPES[character]
    if 0x110000 <= character < 0x110100:
        return f"\\x{character - 0x110000:02x}"
    if character >= 0x110000:
        return f"<{character:#x}>"
    text = chr(character)
    try:
        if text.isprintable() and text.encode(charset):
            return text
    except UnicodeEncodeError:
        pass
    return f"\\u{character:04x}" if character < 0x10000 else f"\\U{character:08x}"


def quoted(prefix, characters, charset):
    return prefix + '"' + "".join(shown_character(c, charset) for c in characters) + '"'


class DecimalLayout:
    """One of the three encodings of decimal numbers, with the coefficient as one integer."""

    def __init__(self, width, field, digits, least_exponent):
        self.width, self.field, self.digits, self.least = width, field, digits, least_exponent

    def text(self, bits):
        """The number as it stands, zeros included: what format.h calls g."""
        if bits >> (self.width - 6) & 0x1F == 0x1F:
            return "nan"
        sign = "-" if bits >> (self.width - 1) else ""
        if bits >> (self.width - 6) & 0x1F == 0x1E:
            return sign + "inf"
        large = bits >> (self.width - 3) & 3 == 3
        field = self.field - 2 if large else self.field
        exponent = (bits >> field & ((1 << (self.width - 1 - self.field)) - 1)) + self.least
        coefficient = (1 << self.field if large else 0) | bits & ((1 << field) - 1)
        if coefficient >= 10 ** self.digits:
            coefficient = 0
        digits = str(coefficient)
        if -(len(digits) + 5) <= exponent <= 0:
            digits = digits.rjust(1 - exponent, "0")
            point = len(digits) + exponent
            return sign + digits[:point] + ("." + digits[point:] if exponent else "")
        fraction = "." + digits[1:] if len(digits) > 1 else ""
        return f"{sign}{digits[0]}{fraction}e{exponent + len(digits) - 1:+03d}"


DECIMALS = {"32": DecimalLayout(32, 23, 7, -101), "64": DecimalLayout(64, 53, 16, -398),
            "128": DecimalLayout(128, 113, 34, -6176)}


# Objects, as GDB gives them.


def terminal_charset():
    """The character set that GDB writes in."""
    answer = gdb.execute("show host-charset", to_string=True)
    name = re.findall(r"([\w-]+)\"?\.?\s*$", answer)
    try:
        "".encode(name[-1])
        return name[-1]
    except (IndexError, LookupError):
        return "ascii"


def target_of(pointer):
    """The type that a pointer points to."""
    return pointer.type.strip_typedefs().target().strip_typedefs().unqualified()


def members(value):
    """Names of the members, those of bases included."""
    return names_in(value.type.strip_typedefs())


def names_in(kind):
    names = set()
    for field in kind.fields():
        names |= names_in(field.type.strip_typedefs()) if field.is_base_class else {field.name}
    return names


def units_of(data, size):
    """The first units of text, as integers, and whether there are more."""
    size = int(size)
    if size == 0:
        return [], False
    if int(data) == 0:
        raise NotValid(f"{size} units at a null pointer")
    limit = gdb.parameter("print elements")
    shown = min(size, MOST_UNITS if limit is None or limit == 0 else limit)
    unit = target_of(data)
    if unit.code == gdb.TYPE_CODE_STRUCT:
        unit = unit.fields()[0].type.strip_typedefs()
    memory = gdb.selected_inferior().read_memory(int(data), shown * unit.sizeof)
    order = "big" if "big" in gdb.execute("show endian", to_string=True) else "little"
    raw = memory.tobytes()
    return ([int.from_bytes(raw[at:at + unit.sizeof], order)
             for at in range(0, len(raw), unit.sizeof)], shown < size)


def text_at(data, size):
    """Text in quotes, with "..." behind it if it is cut."""
    if not 0 <= int(size) < 1 << 62:
        raise NotValid(f"{int(size)} units")
    units, is_cut = units_of(data, size)
    width = target_of(data).sizeof
    prefix, decode = {1: ("", utf_8_characters), 2: ("u", joined_surrogates), 4: ("L", list)}[width]
    return quoted(prefix, decode(units), terminal_charset()) + ("..." if is_cut else "")


def libstdcxx_string(value):
    data, size = value["_M_dataplus"]["_M_p"], int(value["_M_string_length"])
    local = value["_M_local_buf"]
    capacity = local.type.sizeof // target_of(data).sizeof - 1
    if int(data) != int(local.address):
        capacity = int(value["_M_allocated_capacity"])
    if size > capacity:
        raise NotValid(f"{size} units where {capacity} have room")
    return text_at(data, size)


def libcxx_string(value):
    store = value["__r_"]["__value_"]
    short, long = store["__s"], store["__l"]
    if "__is_long_" in members(short):
        is_long, size = int(short["__is_long_"]) != 0, int(short["__size_"])
    else:
        # The lowest bit of the first byte tells which form it is.
        is_long, size = int(short["__size_"]) & 1 != 0, int(short["__size_"]) >> 1
    if is_long:
        return text_at(long["__data_"], long["__size_"])
    capacity = short.type.sizeof // target_of(long["__data_"]).sizeof - 1
    if size > capacity:
        raise NotValid(f"{size} units where {capacity} have room")
    return text_at(short["__data_"].address.cast(long["__data_"].type), size)


def string(value):
    return libstdcxx_string(value) if "_M_dataplus" in members(value) else libcxx_string(value)


def view(value):
    """A view of the standard library or of this one."""
    names = members(value)
    for data, size in [("data_", "size_"), ("_M_str", "_M_len"), ("__data_", "__size_"),
                       ("__data", "__size")]:
        if data in names:
            return text_at(value[data], value[size])
    raise NotValid("a view of an unknown library")


def unit(value):
    number = int(value[value.type.strip_typedefs().fields()[0]])
    return f"{number} u'{shown_character(number, terminal_charset(), quote=chr(39))}'"


def big_uint(value):
    size, reserved = int(value["size_"]), int(value["reserved_"])
    if size > reserved:
        raise NotValid(f"{size} words where {reserved} have room")
    if size == 0:
        return "0"
    words, is_cut = [], size > MOST_WORDS
    for index in range(size - 1 if is_cut else 0, size):
        words.append(int(value["data_"][index]))
    number = sum(word << 32 * index for index, word in enumerate(words))
    if is_cut:
        return f"a number of {32 * (size - 1) + number.bit_length()} bits"
    return str(number)


def decimal(value):
    record = value["record_"]
    if "bits" in members(record):
        bits = int(record["bits"])
    else:
        bits = int(record["high"]) << 64 | int(record["low"])
    return DECIMALS[str(record.type.sizeof * 8)].text(bits)


def uuid(value):
    record = value["record_"]
    node = "".join(f"{int(record['nodeBytes'][index]):02x}" for index in range(6))
    return (f"{int(record['timeLow']):08x}-{int(record['timeMid']):04x}"
            f"-{int(record['timeHiAndVersion']):04x}-{int(record['clockSeqHiAndVariant']):02x}"
            f"{int(record['clockSeqLow']):02x}-{node}")


def uri_reference(value):
    pointer = value["object_"]
    return "null" if int(pointer) == 0 else string(pointer.dereference()["uriText"])


def ulocale(value):
    shared = value["data_"]
    pointer = shared["_M_ptr" if "_M_ptr" in members(shared) else "__ptr_"]
    data = pointer.dereference()
    if not members(data):
        raise NotValid("the library's debug symbols are missing")
    return string(data["name"])


class Printer:
    """Calls a function on an object, and never fails: GDB would show an error and no more."""

    def __init__(self, show, value):
        self.show, self.value = show, value

    def to_string(self):
        try:
            value = self.value
            if value.type.strip_typedefs().code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
                value = value.referenced_value()
            if not members(value):
                return f"<no debug symbols of {value.type.strip_typedefs().unqualified()}>"
            return self.show(value)
        except NotValid as reason:
            return f"<not valid: {reason}>"
        except (gdb.error, ArithmeticError, LookupError, MemoryError, TypeError,
                ValueError) as error:
            return f"<not readable: {' '.join(str(error).split())[:80]}>"


# What shows the objects of a class, by its whole name.
UNITS = r"(char|wchar_t|char16_t|orv::char16)"
CLASSES = {
    "char16": (r"orv::char16(_int)?", unit),
    "string": (r"std::(__\w+::)?basic_string<orv::char16, .*>", string),
    "view": (r"std::(__\w+::)?basic_string_view<orv::char16, .*>", view),
    "string_ref": (rf"orv::basic_string_ref<{UNITS}>", view),
    "StringBuilder": (r"orv::String(Builder|CharSequence)", lambda value: string(value["text_"])),
    "big_uint": (r"orv::big_uint", big_uint),
    "decimal": (r"orv::decimal::decimal(32|64|128)", decimal),
    "UUID": (r"orv::UUID", uuid),
    "URI": (r"orv::net::URI", lambda value: string(value["uriText"])),
    "gref<URI>": (r"orv::gref<orv::net::URI>", uri_reference),
    "ulocale": (r"orv::ulocale", ulocale),
    "Charset": (r"orv::Charset", lambda value: view(value["name_"])),
}


def register(objfile):
    printers = gdb.printing.RegexpCollectionPrettyPrinter("orvxx")
    for name, (pattern, show) in CLASSES.items():
        printers.add_printer(name, f"^{pattern}$", lambda value, show=show: Printer(show, value))
    gdb.printing.register_pretty_printer(objfile, printers, replace=True)


register(gdb.current_objfile())

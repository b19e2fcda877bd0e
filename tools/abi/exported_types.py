#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Compares the types in a shared library's interface with the list kept in the tree.

    exported_types.py [--update] [--abidw ABIDW] [--cxxfilt CXXFILT] LIBRARY LIST HEADER...

The list has what a compiled program relies on beyond the names of exported_symbols.py: of each
class that a header defines the size, where its bases and members are, and the slots of its virtual
functions; values of enumerators; results of functions, which mangled names do not tell; types of
variables. Every line tells all of one thing, and typedefs are looked through. What the library
itself never uses, such as a template that it does not instantiate, is not there.

The library needs its debug information. The exit code is 1 if the lists differ; --update writes
LIST instead. From a build directory, "cmake --build . --target update-abi-lists" does so for all
lists. A line that goes away from the list of a released version is a break of the binary interface.
"""

import argparse
import difflib
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

# Names of strings are long, and frequent.
SHORT_NAMES = [
    (f"std::__cxx11::basic_string<{unit}, std::char_traits<{unit}>, std::allocator<{unit}> >", name)
    for unit, name in [("char", "std::string"), ("orv::char16", "orv::ustring")]]

CLASSES = ("class-decl", "union-decl")


class Interface:
    """What abidw read from a library."""

    def __init__(self, xml, headers):
        self.headers = headers
        self.by_id = {}  # elements that are types
        self.scopes = {}  # of each element the qualified name of what it is in
        self.classes, self.enums, self.functions, self.variables = [], [], [], []
        for unit in xml.iter("abi-instr"):
            self.collect(unit, "")

    def collect(self, parent, scope):
        for element in parent:
            self.scopes[element] = scope
            if "id" in element.attrib:
                # A definition rather than one of its declarations.
                old = self.by_id.get(element.get("id"))
                if old is None or old.get("is-declaration-only"):
                    self.by_id[element.get("id")] = element
            if element.tag in CLASSES:
                self.classes.append(element)
            elif element.tag == "enum-decl":
                self.enums.append(element)
            elif element.tag == "function-decl" and "elf-symbol-id" in element.attrib:
                self.functions.append(element)
            elif element.tag == "var-decl" and "elf-symbol-id" in element.attrib:
                self.variables.append(element)
            inner = self.qualified(element) if "name" in element.attrib else scope
            self.collect(element, inner)

    def qualified(self, element):
        scope = self.scopes[element]
        return f"{scope}::{element.get('name')}" if scope else element.get("name")

    def is_public(self, element):
        """Whether one of the headers defines the type. The compiler may have named it by a path
        from the build directory."""
        path = element.get("filepath", "").replace("../", "")
        return path != "" and any(f"/{header}".endswith(f"/{path}") for header in self.headers)

    def type_name(self, type_id):
        """A type as one would write it, with typedefs looked through."""
        element = self.by_id.get(type_id)
        if element is None:
            return "void"
        target = element.get("type-id")
        if element.tag == "typedef-decl":
            return self.type_name(target)
        if element.tag == "pointer-type-def":
            return f"{self.type_name(target)}*"
        if element.tag == "reference-type-def":
            return self.type_name(target) + ("&" if element.get("kind") == "lvalue" else "&&")
        if element.tag == "qualified-type-def":
            words = [word for word in ("const", "volatile") if element.get(word) == "yes"]
            return " ".join([self.type_name(target), *words])
        if element.tag == "array-type-def":
            sizes = [f"[{part.get('length')}]" for part in element.iter("subrange")]
            return self.type_name(target) + "".join(sizes)
        if element.tag == "function-type":
            parameters = [self.type_name(p.get("type-id")) for p in element.iter("parameter")]
            return f"{self.type_name(element.find('return').get('type-id'))}({', '.join(parameters)})"
        return self.qualified(element)

    def lines(self):
        found = set()
        for element in self.classes:
            if self.is_public(element) and element.get("is-declaration-only") != "yes":
                found.update(self.class_lines(element))
        for element in self.enums:
            if self.is_public(element):
                found.update(self.enum_lines(element))
        for element in self.functions:
            result = element.find("return")
            result = "void" if result is None else self.type_name(result.get("type-id"))
            if result != "void":
                found.add(f"{element.get('elf-symbol-id').partition('@')[0]}: returns {result}")
        for element in self.variables:
            found.add(f"{element.get('elf-symbol-id').partition('@')[0]}: is "
                      f"{self.type_name(element.get('type-id'))}")
        return found

    def enum_lines(self, element):
        name = self.qualified(element)
        integer = self.by_id[element.find("underlying-type").get("type-id")]
        yield f"{name}: {int(integer.get('size-in-bits')) // 8} bytes"
        for enumerator in element.iter("enumerator"):
            yield f"{name}: enumerator {enumerator.get('name')} is {enumerator.get('value')}"

    def class_lines(self, element):
        name = self.qualified(element)
        if element.get("size-in-bits") is not None:
            yield f"{name}: {int(element.get('size-in-bits')) // 8} bytes"
        for base in element.findall("base-class"):
            offset = int(base.get("layout-offset-in-bits")) // 8
            word = "virtual base" if base.get("is-virtual") == "yes" else "base"
            yield f"{name}: {word} at {offset}: {self.type_name(base.get('type-id'))}"
        for member in element.findall("data-member"):
            variable = member.find("var-decl")
            if member.get("static") != "yes":
                bits = int(member.get("layout-offset-in-bits", "0"))
                place = f"{bits // 8}" + (f" bit {bits % 8}" if bits % 8 else "")
                yield (f"{name}: member at {place}: {variable.get('name')}, "
                       f"{self.type_name(variable.get('type-id'))}")
        for member in element.findall("member-function"):
            function = member.find("function-decl")
            if member.get("destructor") == "yes" and member.get("vtable-offset") is not None:
                yield f"{name}: virtual destructor"
            elif member.get("vtable-offset") is not None:
                yield (f"{name}: virtual function {member.get('vtable-offset')}: "
                       f"{function.get('mangled-name', function.get('name'))}")


def exported_types(abidw, cxxfilt, library, headers):
    dump = subprocess.run([abidw, "--exported-interfaces-only", library],
                          capture_output=True, check=True).stdout
    lines = Interface(ElementTree.fromstring(dump), headers).lines()
    if not any(" bytes" in line for line in lines):
        sys.exit(f"{library}: no class of the headers is found; has it debug information?")
    text = subprocess.run([cxxfilt], input="\n".join(lines), capture_output=True, text=True,
                          check=True).stdout
    for long_name, name in SHORT_NAMES:
        text = text.replace(long_name, name)
    return sorted(set(text.splitlines()), key=by_numbers)


def by_numbers(line):
    """Orders lines by the values of the numbers in them."""
    return [int(part) if part.isdigit() else part for part in re.split(r"(\d+)", line)]


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--update", action="store_true")
    parser.add_argument("--abidw", default="abidw")
    parser.add_argument("--cxxfilt", default="c++filt")
    parser.add_argument("library")
    parser.add_argument("list", type=pathlib.Path)
    parser.add_argument("headers", nargs="+")
    arguments = parser.parse_args()

    lines = exported_types(arguments.abidw, arguments.cxxfilt, arguments.library,
                           arguments.headers)
    if arguments.update:
        arguments.list.write_text("".join(f"{line}\n" for line in lines), encoding="utf-8")
        return
    expected = arguments.list.read_text(encoding="utf-8").splitlines()
    faults = list(difflib.unified_diff(expected, lines, str(arguments.list), arguments.library,
                                       lineterm="", n=0))
    if faults:
        print("\n".join(faults))
        print("If the change is meant: cmake --build <build directory> "
              "--target update-abi-lists, and look at the difference.")
        sys.exit(1)


main()

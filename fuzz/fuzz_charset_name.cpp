// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Loose names of character sets: a strict weak order over any texts, and a registry that
/// obeys it.
///
/// Input: a byte of which the lowest bit says whether units are one byte (0) or two (1) wide; then
/// three names, separated by unit 0xFF or U+FFFF.
#include "fuzz/check.h"
#include "fuzz/input.h"

#include "orv/liborvxx/charset/charset.h"

#include <algorithm>
#include <array>

namespace {

using Less = orv::Charset::NameLess<orv::ustring_ref>;

bool less(const orv::ustring& a, const orv::ustring& b) {
    const bool result = Less()(a, b);
    // The same question has the same answer.
    FUZZ_CHECK(Less()(a, b) == result);
    return result;
}

bool same(const orv::ustring& a, const orv::ustring& b) {
    return !less(a, b) && !less(b, a);
}

void checkOrder(const orv::ustring& a, const orv::ustring& b, const orv::ustring& c) {
    FUZZ_CHECK(!less(a, a));
    FUZZ_CHECK(!(less(a, b) && less(b, a)));
    FUZZ_CHECK(!(less(a, b) && less(b, c)) || less(a, c));
    FUZZ_CHECK(!(same(a, b) && same(b, c)) || same(a, c));
}

void checkRegistry(const orv::ustring& a, const orv::ustring& b) {
    orv::Charset* const charset = orv::Charset::forName(a);
    if (charset != nullptr) {
        FUZZ_CHECK(orv::Charset::isSupported(a));
        FUZZ_CHECK(orv::Charset::forName(charset->name()) == charset);
        const auto& aliases = charset->aliases();
        FUZZ_CHECK(same(a, charset->name()) ||
                   std::any_of(aliases.begin(), aliases.end(),
                               [&](orv::ustring_ref alias) { return same(a, alias); }));
    }
    if (same(a, b)) {
        FUZZ_CHECK(orv::Charset::forName(b) == charset);
        FUZZ_CHECK(orv::Charset::isSupported(a) == orv::Charset::isSupported(b));
    }
}

// Punctuation and the case of ASCII letters do not count.
void checkLooseness(const orv::ustring& name) {
    orv::ustring other;
    for (const orv::char16 c : name) {
        const bool upper = c >= u'A' && c <= u'Z';
        other.push_back(upper ? orv::char16(static_cast<int>(c) + 0x20) : c);
    }
    // A '0' decides by its neighbours, of which an ASCII letter is delivered with the case that it
    // has.
    if (std::find(name.begin(), name.end(), orv::char16(u'0')) == name.end()) {
        FUZZ_CHECK(same(name, other));
        FUZZ_CHECK(same(name, other + orv::ustring(1, u'-')));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const bool wide = input.byte() % 2 != 0;
    const orv::ustring text = wide ? fuzz::toUnits(input.rest()) : fuzz::widen(input.rest());
    const orv::char16 separator(wide ? u'\xFFFF' : u'\xFF');
    std::array<orv::ustring, 3> names;
    auto from = text.begin();
    for (orv::ustring& name : names) {
        const auto end = std::find(from, text.end(), separator);
        name.assign(from, end);
        from = end == text.end() ? end : end + 1;
    }
    std::sort(names.begin(), names.end());
    do {
        checkOrder(names[0], names[1], names[2]);
        checkRegistry(names[0], names[1]);
    } while (std::next_permutation(names.begin(), names.end()));
    for (const orv::ustring& name : names) {
        checkLooseness(name);
    }
    return 0;
}

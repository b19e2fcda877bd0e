// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UUIDs: what parses prints and parses again to the same value, narrow and wide alike.
///
/// Input: the bytes of a text, read as narrow text, as wide text of one byte a unit, and as wide
/// text of two bytes a unit; also, from 32 bytes on, two values.
#include "fuzz/check.h"
#include "fuzz/input.h"

#include "orv/liborvxx/uuid/uuid.h"

#include <optional>
#include <stdexcept>
#include <string>

namespace {

std::string narrow(const orv::ustring& ascii) {
    std::string text;
    for (const orv::char16 c : ascii) {
        FUZZ_CHECK(c < u'\x80');
        text.push_back(static_cast<char>(c));
    }
    return text;
}

void checkPrinting(const orv::UUID& id) {
    const std::string text = id.toString();
    FUZZ_CHECK(text.size() == 36);
    FUZZ_CHECK(text.find_first_not_of("0123456789abcdef-") == std::string::npos);
    for (const std::size_t dash : {8U, 13U, 18U, 23U}) {
        FUZZ_CHECK(text[dash] == '-');
    }
    FUZZ_CHECK(narrow(id.toUString()) == text);
    FUZZ_CHECK(orv::UUID::fromString(text) == id);
    FUZZ_CHECK(orv::UUID::fromString(id.toUString()) == id);
    FUZZ_CHECK(orv::UUID(id.getMostSignificantBits(), id.getLeastSignificantBits()) == id);
    FUZZ_CHECK(orv::UUID(id.record()) == id);
    FUZZ_CHECK(id.hashCode() == (id.getMostSignificantBits() ^ id.getLeastSignificantBits()));
}

std::optional<orv::UUID> parse(const std::string& text) {
    try {
        return orv::UUID::fromString(text);
    } catch (const std::invalid_argument& error) {
        FUZZ_CHECK(error.what() == std::string(("invalid UUID string: " + text).c_str()));
        return std::nullopt;
    }
}

std::optional<orv::UUID> parse(const orv::ustring& text) {
    try {
        return orv::UUID::fromString(text);
    } catch (const std::invalid_argument& error) {
        FUZZ_CHECK(std::string(error.what()).starts_with("invalid UUID string: "));
        return std::nullopt;
    }
}

std::size_t number(const std::string& bytes, std::size_t from) {
    std::size_t value = 0;
    for (std::size_t i = from; i < from + 8; ++i) {
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    }
    return value;
}

// The order of the values is that of the texts.
void checkOrder(const orv::UUID& a, const orv::UUID& b) {
    const int byText = a.toString().compare(b.toString());
    const int byValue = a.compareTo(b);
    FUZZ_CHECK(byValue == (byText < 0 ? -1 : byText > 0 ? 1 : 0));
    FUZZ_CHECK(b.compareTo(a) == -byValue);
    FUZZ_CHECK((a == b) == (byValue == 0) && (a < b) == (byValue < 0));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes = fuzz::Input(data, size).rest();
    const auto id = parse(bytes);
    if (id) {
        checkPrinting(*id);
    }
    // No unit from U+0080 to U+00FF is a decimal digit, so both forms accept the same.
    FUZZ_CHECK(parse(fuzz::widen(bytes)) == id);
    if (const auto wide = parse(fuzz::toUnits(bytes))) {
        checkPrinting(*wide);
    }
    if (bytes.size() >= 32) {
        const orv::UUID a(number(bytes, 0), number(bytes, 8));
        const orv::UUID b(number(bytes, 16), number(bytes, 24));
        checkPrinting(a);
        checkOrder(a, b);
    }
    FUZZ_CHECK(orv::UUID::nameUUIDFromBytes(bytes.data(), bytes.size()).version() == 3);
    return 0;
}

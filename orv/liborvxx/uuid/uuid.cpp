// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UUID: fields, order, text form, and new values from the C library.
#include "orv/liborvxx/uuid/uuid.h"

#include "orv/liborv/system/error.h"
#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/text/code_points.h"

#include <array>
#include <cstdint>
#include <stdexcept>

namespace orv {

namespace {

// Groups of the text form, in digits.
constexpr std::array<std::size_t, 5> GROUPS = {8, 4, 4, 4, 12};

void requireTimeBased(const UUID& id) {
    if (id.version() != 1) {
        throw UnsupportedOperationError("not a time-based UUID");
    }
}

int hexDigit(char c) {
    // As the UTF-16 form does, but without the digits of other scripts: those are no bytes.
    return static_cast<unsigned char>(c) < 0x80 ? Char16::digit(Char16::widen(c), 16) : -1;
}

int hexDigit(char16 c) {
    return Char16::digit(c, 16);
}

std::string printable(string_ref text) {
    return text.to_string();
}

std::string printable(ustring_ref text) {
    std::string narrow;
    narrow.reserve(text.size());
    for (const char16 c : text) {
        narrow.push_back(Char16::narrow(c, '?'));
    }
    return narrow;
}

template <typename StringRef>
UUID parse(StringRef text) {
    const auto fail = [text] {
        throw std::invalid_argument("invalid UUID string: " + printable(text));
    };
    std::array<std::uint64_t, GROUPS.size()> values{};
    std::size_t pos = 0;
    for (std::size_t group = 0; group < GROUPS.size(); ++group) {
        if (group != 0) {
            if (pos == text.size() || text[pos] != typename StringRef::value_type(u'-')) {
                fail();
            }
            ++pos;
        }
        std::size_t digits = 0;
        for (; pos != text.size(); ++pos, ++digits) {
            const int digit = hexDigit(text[pos]);
            if (digit < 0) {
                break;
            }
            values[group] = values[group] << 4 | static_cast<std::uint64_t>(digit);
        }
        if (digits == 0 || digits > GROUPS[group]) {
            fail();
        }
    }
    if (pos != text.size()) {
        fail();
    }
    return {values[0] << 32 | values[1] << 16 | values[2], values[3] << 48 | values[4]};
}

template <typename String>
String print(std::uint64_t msb, std::uint64_t lsb) {
    String text;
    text.reserve(36);
    for (std::size_t i = 0; i < 32; ++i) {
        if (i == 8 || i == 12 || i == 16 || i == 20) {
            text.push_back(typename String::value_type(u'-'));
        }
        const std::uint64_t half = i < 16 ? msb : lsb;
        const auto digit = static_cast<unsigned int>(half >> (60 - 4 * (i % 16)) & 0xF);
        text.push_back(static_cast<typename String::value_type>(Char16::forDigit(digit, 16)));
    }
    return text;
}

void check(int code, const char* what) {
    if (code < 0) {
        throw RuntimeError(std::string(what) + orvStrError(code));
    }
}

} // namespace

UUID::UUID(std::size_t msb, std::size_t lsb) noexcept
    : record_{static_cast<std::uint32_t>(msb >> 32),
              static_cast<std::uint16_t>(msb >> 16),
              static_cast<std::uint16_t>(msb),
              static_cast<std::uint8_t>(lsb >> 56),
              static_cast<std::uint8_t>(lsb >> 48),
              {static_cast<std::uint8_t>(lsb >> 40), static_cast<std::uint8_t>(lsb >> 32),
               static_cast<std::uint8_t>(lsb >> 24), static_cast<std::uint8_t>(lsb >> 16),
               static_cast<std::uint8_t>(lsb >> 8), static_cast<std::uint8_t>(lsb)}} {}

std::size_t UUID::getMostSignificantBits() const noexcept {
    return std::size_t{record_.timeLow} << 32 | std::size_t{record_.timeMid} << 16 |
           record_.timeHiAndVersion;
}

std::size_t UUID::getLeastSignificantBits() const noexcept {
    std::size_t bits = std::size_t{record_.clockSeqHiAndVariant} << 8 | record_.clockSeqLow;
    for (const std::uint8_t byte : record_.nodeBytes) {
        bits = bits << 8 | byte;
    }
    return bits;
}

int UUID::version() const noexcept {
    return record_.timeHiAndVersion >> 12;
}

int UUID::variant() const noexcept {
    static constexpr std::array<int, 8> VARIANTS = {0, 0, 0, 0, 2, 2, 6, 7};
    return VARIANTS[record_.clockSeqHiAndVariant >> 5];
}

std::size_t UUID::timestamp() const {
    requireTimeBased(*this);
    return std::size_t{record_.timeHiAndVersion & 0x0FFFU} << 48 |
           std::size_t{record_.timeMid} << 32 | record_.timeLow;
}

unsigned short UUID::clockSequence() const {
    requireTimeBased(*this);
    return static_cast<unsigned short>((record_.clockSeqHiAndVariant & 0x3FU) << 8 |
                                       record_.clockSeqLow);
}

std::size_t UUID::node() const {
    requireTimeBased(*this);
    return getLeastSignificantBits() & 0xFFFF'FFFF'FFFFU;
}

bool UUID::isNil() const noexcept {
    return equals(UUID());
}

std::size_t UUID::hashCode() const noexcept {
    return getMostSignificantBits() ^ getLeastSignificantBits();
}

bool UUID::equals(const UUID& other) const noexcept {
    return compareTo(other) == 0;
}

int UUID::compareTo(const UUID& other) const noexcept {
    const std::size_t msb = getMostSignificantBits();
    const std::size_t otherMsb = other.getMostSignificantBits();
    if (msb != otherMsb) {
        return msb < otherMsb ? -1 : 1;
    }
    const std::size_t lsb = getLeastSignificantBits();
    const std::size_t otherLsb = other.getLeastSignificantBits();
    return lsb == otherLsb ? 0 : lsb < otherLsb ? -1 : 1;
}

std::string UUID::toString() const {
    return print<std::string>(getMostSignificantBits(), getLeastSignificantBits());
}

ustring UUID::toUString() const {
    return print<ustring>(getMostSignificantBits(), getLeastSignificantBits());
}

UUID UUID::fromString(string_ref text) {
    return parse(text);
}

UUID UUID::fromString(ustring_ref text) {
    return parse(text);
}

UUID UUID::randomUUID() {
    OrvUUID record;
    check(orvUUIDCreate(&record), "orvUUIDCreate() failed: ");
    return record;
}

UUID UUID::nameUUIDFromBytes(const void* data, std::size_t size) {
    OrvUUID record;
    // The message names the function as it has always been spelt; callers match on it.
    check(orvUUIDCreateFromName(nullptr, data, size, &record), "orvUUIDCreateForName() failed: ");
    return record;
}

} // namespace orv

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers: all readers agree on any text, what is written of any bits reads back as
/// the same number, binary numbers give the decimals that their own text gives, and the ways
/// through a locale agree with the parser and the streams.
///
/// Input: 0 to 3; 0: the bits of a decimal128, the upper half first, whose upper parts are those of
/// the narrower types; 1: the bits of a double; 2: a text; 3: a text in units of two bytes each,
/// the high byte first.
#include "fuzz/check.h"
#include "fuzz/input.h"

#include "orv/liborv/decimal/parse.h"
#include "orv/liborvxx/decimal/binary_to_decimal.h"
#include "orv/liborvxx/decimal/decimal_io.h"
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/string_to_decimal.h"
#include "orv/liborvxx/number/to_chars.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

using namespace orv::decimal;
using orv::char16;

bool sameBits(const ODecimal32& a, const ODecimal32& b) {
    return a.bits == b.bits;
}
bool sameBits(const ODecimal64& a, const ODecimal64& b) {
    return a.bits == b.bits;
}
bool sameBits(const ODecimal128& a, const ODecimal128& b) {
    return a.high == b.high && a.low == b.low;
}
template <class Decimal>
bool same(const Decimal& a, const Decimal& b) {
    return sameBits(a.record(), b.record());
}

// All writers give the same text.
template <class Decimal>
std::string written(const Decimal& value) {
    std::string text = orv::to_string_c(value);
    FUZZ_CHECK(fuzz::widen(text) == orv::to_ustring_c(value));
    for (const std::size_t room : {text.size() - 1, text.size(), std::size_t{64}}) {
        char narrow[64];
        char16 wide[64];
        const auto first = orv::to_chars_c(narrow, narrow + room, value);
        const auto second = orv::to_chars_c(wide, wide + room, value);
        FUZZ_CHECK(first.fits == (room >= text.size()) && second.fits == first.fits);
        FUZZ_CHECK(!first.fits || text == std::string(narrow, first.end));
        FUZZ_CHECK(!second.fits || fuzz::widen(text) == orv::ustring(wide, second.end));
    }
    return text;
}

// What is written of a value reads back, and that is canonical.
template <class Decimal>
void checkValue(const Decimal& value) {
    const std::string text = written(value);
    const auto back = orv::from_chars_c<Decimal>(orv::string_ref(text));
    FUZZ_CHECK(back && back.length == text.size());
    FUZZ_CHECK(written(back.value) == text || text.find('E') != std::string::npos);
    // The exponent of a zero that is not canonical may be one that a zero cannot have.
    const std::string again = written(back.value);
    const auto twice = orv::from_chars_c<Decimal>(orv::string_ref(again));
    FUZZ_CHECK(twice && same(twice.value, back.value) && written(twice.value) == again);
    FUZZ_CHECK(same(Decimal(orv::string_ref(text)), back.value));
}

// The string of a number is what a stream writes.
template <class Decimal>
void checkPrinting(const Decimal& value, int precision) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << std::fixed << std::setprecision(precision) << value;
    FUZZ_CHECK(stream.str() == to_string(value, precision));
}

// `strtod64` and a stream take what the parser takes character by character.
void checkLocaleReaders(const std::string& text) {
    const char* const begin = text.c_str();
    DecimalParseState state;
    orvDecParseInit(&state, 16, '.', '\0', ORV_DEC_PARSE_SKIP_SPACE);
    const char* complete = begin;
    bool isComplete = false;
    for (const char* p = begin; *p != '\0'; ++p) {
        const int result = orvDecParseNextChar(&state, *p);
        if (result == ORV_DEC_PARSE_STOP) {
            break;
        }
        isComplete = result == ORV_DEC_PARSE_COMPLETE;
        complete = isComplete ? p + 1 : complete;
    }
    const decimal64 value = orvDec64ParseGetValue(&state);
    const char* end = nullptr;
    FUZZ_CHECK(same(strtod64(begin, &end), value) && end == complete);

    std::istringstream stream(begin);
    stream.imbue(std::locale::classic());
    const decimal64 before = 7;
    decimal64 read = before;
    stream >> read;
    FUZZ_CHECK(stream.fail() != isComplete && same(read, isComplete ? value : before));
}

template <class Decimal, class CharT, class OfCursor, class InC>
orv::from_chars_result<Decimal> checkReaders(const std::basic_string<CharT>& text,
                                             const OfCursor& ofCursor, const InC& inC) {
    const orv::basic_string_ref<CharT> view(text);
    const auto read = orv::from_chars_c<Decimal>(view);
    FUZZ_CHECK(read.length <= text.size());
    FUZZ_CHECK(read.status != orv::number_status::out_of_range);

    orv::BasicCharIterator<CharT> it{view};
    bool isNumber = true;
    try {
        FUZZ_CHECK(same<Decimal>(ofCursor(it), read.value));
    } catch (const std::invalid_argument&) {
        isNumber = false;
    }
    FUZZ_CHECK(isNumber == static_cast<bool>(read) && it.position() == read.length);

    bool isWhole = true;
    try {
        FUZZ_CHECK(same(Decimal(view), read.value));
    } catch (const std::invalid_argument&) {
        isWhole = false;
    }
    FUZZ_CHECK(isWhole == (read && read.length == text.size()));

    CharT* end = nullptr;
    errno = 0;
    FUZZ_CHECK(same<Decimal>(inC(text.c_str(), &end), read.value));
    FUZZ_CHECK(static_cast<std::size_t>(end - text.c_str()) == read.length && errno == 0);

    // By the other road: what stands in front of the number keeps it from the quick one.
    const std::basic_string<CharT> behind = CharT(u' ') + text;
    const auto slow = orv::from_chars_c<Decimal>(orv::basic_string_ref<CharT>(behind));
    FUZZ_CHECK(slow.status == read.status && same(slow.value, read.value));
    FUZZ_CHECK(slow.length == (read ? read.length + 1 : 0));
    checkValue(read.value);
    return read;
}

template <class CharT>
void checkText(const std::basic_string<CharT>& text) {
    using Cursor = orv::BasicCharIterator<CharT>;
    using Text = const CharT*;
    using End = CharT**;
    const auto in32 = checkReaders<decimal32>(
        text, [](Cursor& it) { return orv::stod32_c(it); },
        [](Text p, End end) { return orv::strtod32_c(p, end); });
    const auto in64 = checkReaders<decimal64>(
        text, [](Cursor& it) { return orv::stod64_c(it); },
        [](Text p, End end) { return orv::strtod64_c(p, end); });
    const auto in128 = checkReaders<decimal128>(
        text, [](Cursor& it) { return orv::stod128_c(it); },
        [](Text p, End end) { return orv::strtod128_c(p, end); });
    FUZZ_CHECK(in32.length == in64.length && in32.status == in64.status);
    FUZZ_CHECK(in64.length == in128.length && in64.status == in128.status);
}

// An ASCII text reads the same in both types of characters.
void checkTypes(const std::string& text) {
    const orv::ustring wide = fuzz::widen(text);
    const auto a = orv::from_chars_c<decimal64>(orv::string_ref(text));
    const auto b = orv::from_chars_c<decimal64>(orv::ustring_ref(wide));
    FUZZ_CHECK(same(a.value, b.value) && a.length == b.length && a.status == b.status);
    const auto c = orv::from_chars_c<decimal128>(orv::string_ref(text));
    const auto d = orv::from_chars_c<decimal128>(orv::ustring_ref(wide));
    FUZZ_CHECK(same(c.value, d.value) && c.length == d.length && c.status == d.status);
}

// The shortest digits without the zeros behind them: 17 always fit a decimal128.
void checkBinary(double value) {
    const decimal128 wide = binary_to_decimal128(value);
    checkValue(wide);
    checkValue(binary_to_decimal64(value));
    checkValue(binary_to_decimal32(value));
    FUZZ_CHECK(same(binary_to_decimal128(static_cast<long double>(value)), wide));
    const std::string digits = written(wide);
    const auto back = orv::from_chars_c<double>(orv::string_ref(digits));
    FUZZ_CHECK(back);
    FUZZ_CHECK(std::isnan(value) ? std::isnan(back.value) : back.value == value);
    FUZZ_CHECK(std::isnan(value) || std::signbit(back.value) == std::signbit(value));
}

std::uint64_t bitsOf(fuzz::Input& input) {
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) {
        bits = bits << 8U | input.byte();
    }
    return bits;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    switch (input.byte() % 4) {
    case 0: {
        const std::uint64_t high = bitsOf(input);
        checkValue(decimal128(ODecimal128{bitsOf(input), high}));
        checkValue(decimal64(ODecimal64{high}));
        checkValue(decimal32(ODecimal32{static_cast<std::uint32_t>(high >> 32U)}));
        checkPrinting(decimal64(ODecimal64{high}), static_cast<int>(high % 40));
        break;
    }
    case 1:
        checkBinary(std::bit_cast<double>(bitsOf(input)));
        break;
    case 2: {
        const std::string text = input.rest();
        checkText(text);
        checkLocaleReaders(text);
        if (std::all_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
            checkTypes(text);
        }
        break;
    }
    default:
        checkText(fuzz::toUnits(input.rest()));
        break;
    }
    return 0;
}

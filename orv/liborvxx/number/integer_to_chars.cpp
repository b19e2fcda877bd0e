// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Integers as text in the caller's memory.
#include "orv/liborvxx/number/to_chars.h"

#include "orv/liborvxx/number/words/decimal_digits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <limits>

namespace orv::detail {

namespace {

constexpr char DIGITS[] = "0123456789abcdefghijklmnopqrstuvwxyz";
constexpr unsigned MAX_RADIX = 36;

// floor(2^64 / radix) + 1 for each radix that is no power of two. The upper half of a number's
// product with it is the quotient by the radix if the number is below 2^64 / radix: the factor is
// too large by less than 1, so the product by less than 2^64 / radix, which is 1 / radix in the
// upper half.
constexpr auto RECIPROCALS = [] {
    std::array<words::Limb, MAX_RADIX + 1> reciprocals{};
    for (unsigned radix = 3; radix <= MAX_RADIX; ++radix) {
        reciprocals[radix] = std::numeric_limits<words::Limb>::max() / radix + 1;
    }
    return reciprocals;
}();

template <class CharT>
void putSign(CharT*& text, bool negative) noexcept {
    if (negative) {
        *text++ = static_cast<CharT>('-');
    }
}

template <class CharT>
bool hasRoom(const CharT* first, const CharT* last, std::size_t units) noexcept {
    return static_cast<std::size_t>(last - first) >= units;
}

template <class CharT>
to_chars_result<CharT> writeDecimal(CharT* first, CharT* last, bool negative,
                                    std::uint64_t magnitude) noexcept {
    const unsigned digits = words::countDigits(magnitude);
    if (!hasRoom(first, last, digits + (negative ? 1U : 0U))) {
        return {last, false};
    }
    putSign(first, negative);
    words::writeDigits(first, digits, magnitude);
    return {first + digits, true};
}

// A radix of 2^Bits.
template <unsigned Bits, class CharT>
to_chars_result<CharT> writeBits(CharT* first, CharT* last, bool negative,
                                 std::uint64_t magnitude) noexcept {
    const auto width = static_cast<unsigned>(std::bit_width(magnitude | 1U));
    const unsigned digits = (width + Bits - 1) / Bits;
    if (!hasRoom(first, last, digits + (negative ? 1U : 0U))) {
        return {last, false};
    }
    putSign(first, negative);
    for (unsigned i = digits; i > 0; magnitude >>= Bits) {
        first[--i] = static_cast<CharT>(DIGITS[magnitude & ((1U << Bits) - 1)]);
    }
    return {first + digits, true};
}

template <class CharT>
to_chars_result<CharT> writeOther(CharT* first, CharT* last, bool negative, std::uint64_t magnitude,
                                  unsigned radix) noexcept {
    std::array<char, 41> buffer; // 2^64 - 1 in radix 3
    char* const end = buffer.data() + buffer.size();
    char* text = end;
    // A true division makes what is left small enough.
    std::uint64_t rest = magnitude / radix;
    *--text = DIGITS[magnitude - rest * radix];
    while (rest != 0) {
        const std::uint64_t quotient = words::multiplyLimbs(rest, RECIPROCALS[radix]).high;
        *--text = DIGITS[rest - quotient * radix];
        rest = quotient;
    }
    const auto digits = static_cast<std::size_t>(end - text);
    if (!hasRoom(first, last, digits + (negative ? 1U : 0U))) {
        return {last, false};
    }
    putSign(first, negative);
    return {std::transform(text, end, first, [](char c) { return static_cast<CharT>(c); }), true};
}

template <class CharT>
to_chars_result<CharT> write(CharT* first, CharT* last, bool negative, std::uint64_t magnitude,
                             int radix) noexcept {
    assert(radix >= 2 && radix <= 36);
    assert(first <= last);
    if (radix == 10) {
        return writeDecimal(first, last, negative, magnitude);
    }
    switch (radix) {
    case 2:
        return writeBits<1>(first, last, negative, magnitude);
    case 4:
        return writeBits<2>(first, last, negative, magnitude);
    case 8:
        return writeBits<3>(first, last, negative, magnitude);
    case 16:
        return writeBits<4>(first, last, negative, magnitude);
    case 32:
        return writeBits<5>(first, last, negative, magnitude);
    default:
        return writeOther(first, last, negative, magnitude, static_cast<unsigned>(radix));
    }
}

} // namespace

to_chars_result<char> writeInteger(char* first, char* last, bool negative, std::uint64_t magnitude,
                                   int radix) noexcept {
    return write(first, last, negative, magnitude, radix);
}

to_chars_result<char16> writeInteger(char16* first, char16* last, bool negative,
                                     std::uint64_t magnitude, int radix) noexcept {
    return write(first, last, negative, magnitude, radix);
}

} // namespace orv::detail

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Floating-point values as text, by this library and by the standard one, and the
/// differences that there are.
#ifndef ORV_TESTS_SUPPORT_FLOAT_TEXTS_H
#define ORV_TESTS_SUPPORT_FLOAT_TEXTS_H

#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/to_chars.h"
#include "tests/support/decimal_text.h"

#include <bit>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <type_traits>

namespace orvtest {

template <class Float>
using FloatBitsOf = std::conditional_t<sizeof(Float) == 4, std::uint32_t, std::uint64_t>;

template <class Float>
std::string textOf(Float value) {
    char text[orv::MAX_DOUBLE_LENGTH];
    const auto [end, fits] = orv::to_chars_c(text, text + sizeof text, value);
    return fits ? std::string(text, end) : "does not fit";
}

template <class Float>
std::string standardTextOf(Float value) {
    char text[64];
    const auto result =
        std::to_chars(text, text + sizeof text, value, std::chars_format::scientific);
    return {text, result.ptr};
}

/// Whether the text reads back as exactly the value, by this library and by the C library: by its
/// bits, so that -0 is not +0.
template <class Float>
bool readsBackAs(const std::string& text, Float value) {
    Float read{};
    char* end = nullptr;
    if constexpr (std::is_same_v<Float, float>) {
        read = std::strtof(text.c_str(), &end);
    } else {
        read = std::strtod(text.c_str(), &end);
    }
    const auto own = orv::from_chars_c<Float>(text);
    const auto expected = std::bit_cast<FloatBitsOf<Float>>(value);
    return end == text.data() + text.size() &&
           std::bit_cast<FloatBitsOf<Float>>(read) == expected && own &&
           own.length == text.size() && std::bit_cast<FloatBitsOf<Float>>(own.value) == expected;
}

/// How the text of a value compares with the standard library's shortest one.
enum class Comparison {
    SAME,
    TWO_DIGITS,   ///< the shortest has one digit, ours two
    POWER_OF_TWO, ///< where the neighbours are not equally far, ours has more digits
    DIFFERENT
};

/// \param value finite and not 0
template <class Float>
Comparison compareWithStandard(Float value, const std::string& text) {
    const DecimalText own = decimalOf(text);
    const DecimalText shortest = decimalOf(standardTextOf(value));
    if (own == shortest) {
        return Comparison::SAME;
    }
    constexpr int FRACTION = std::numeric_limits<Float>::digits - 1;
    const auto magnitude = std::bit_cast<FloatBitsOf<Float>>(value) &
                           (std::numeric_limits<FloatBitsOf<Float>>::max() >> 1U);
    const auto field = magnitude >> FRACTION;
    const auto fraction = magnitude & ((FloatBitsOf<Float>{1} << FRACTION) - 1);
    if (field == 0 && fraction < 100 && shortest.digits.size() == 1 && own.digits.size() == 2) {
        return Comparison::TWO_DIGITS;
    }
    if (field > 1 && fraction == 0 && own.digits.size() > shortest.digits.size()) {
        return Comparison::POWER_OF_TWO;
    }
    return Comparison::DIFFERENT;
}

} // namespace orvtest

#endif

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The value of a decimal literal.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL_LITERAL_VALUE_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL_LITERAL_VALUE_H

#include "orv/liborvxx/decimal/decimal_layout.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "orv/liborvxx/base/macros_push.h"

namespace orv::decimal::detail {

/// What is to be said of a literal.
enum class LiteralStatus { FITS, NOT_DECIMAL, DOES_NOT_FIT };

/// The digits of a literal: those from the first to the last that is not 0, the zeros behind them,
/// and the exponent of the last of these.
struct LiteralDigits {
    /// Digits that are kept in `coefficient`. No type has more.
    static constexpr int MOST = 34;
    /// Farther than any exponent from 0 by more than the digits of any literal.
    static constexpr std::int64_t FAR = 1'000'000'000;

    DecimalCoefficient coefficient{0, 0};
    std::int64_t count = 0;
    std::int64_t zeros = 0;
    std::int64_t exponent = 0;

    constexpr void append(char digit) noexcept {
        if (digit == '0' && count == 0) {
            return;
        }
        if (digit == '0') {
            ++zeros;
            return;
        }
        for (; zeros > 0; --zeros) {
            appendSignificant(0);
        }
        appendSignificant(static_cast<unsigned>(digit - '0'));
    }

private:
    constexpr void appendSignificant(unsigned digit) noexcept {
        if (++count <= MOST) {
            appendTo(coefficient, digit);
        }
    }

public:
    /// 10 * n + digit.
    static constexpr void appendTo(DecimalCoefficient& n, unsigned digit) noexcept {
        constexpr std::uint64_t LOW_HALF = 0xFFFFFFFF;
        const std::uint64_t lower = (n.low & LOW_HALF) * 10 + digit;
        const std::uint64_t upper = (n.low >> 32U) * 10 + (lower >> 32U);
        n.high = n.high * 10 + (upper >> 32U);
        n.low = upper << 32U | (lower & LOW_HALF);
    }
};

/// Where the first of \p wanted is in \p text, or its size.
// By hand: GCC 12 with UndefinedBehaviorSanitizer finds no constant in std's searches.
constexpr std::size_t findFirst(std::string_view text, std::string_view wanted) noexcept {
    for (std::size_t i = 0; i < text.size(); ++i) {
        for (const char c : wanted) {
            if (text[i] == c) {
                return i;
            }
        }
    }
    return text.size();
}

/// The exponent that a literal ends with, its letter in front.
constexpr std::int64_t literalExponent(std::string_view text) noexcept {
    const bool negative = findFirst(text, "-") < text.size();
    std::int64_t n = 0;
    for (const char c : text) {
        if (c >= '0' && c <= '9') {
            n = std::min(n * 10 + (c - '0'), LiteralDigits::FAR);
        }
    }
    return negative ? -n : n;
}

/// The digits of a number that the compiler has found well-formed.
constexpr LiteralDigits literalDigits(std::string_view text) noexcept {
    LiteralDigits digits;
    const std::size_t letter = findFirst(text, "eE");
    bool behindPoint = false;
    for (const char c : text.substr(0, letter)) {
        if (c == '.') {
            behindPoint = true;
        } else if (c != '\'') {
            digits.append(c);
            digits.exponent -= behindPoint ? 1 : 0;
        }
    }
    digits.exponent += literalExponent(text.substr(letter));
    return digits;
}

/// Whether C++ reads a literal to another base than 10.
constexpr bool isOtherBase(std::string_view text) noexcept {
    if (!text.starts_with('0') || text.size() == 1) {
        return false;
    }
    return findFirst(text, "xXbB") < text.size() || findFirst(text, ".eE") == text.size();
}

/// A literal as a record, and whether it is one.
template <class Record>
struct LiteralValue {
    LiteralStatus status;
    Record record;
};

/// The record of \p text, which is a literal without its suffix.
template <class Record>
constexpr LiteralValue<Record> literalValue(std::string_view text) noexcept {
    using Layout = DecimalLayout<Record>;
    if (isOtherBase(text)) {
        return {LiteralStatus::NOT_DECIMAL, {}};
    }
    LiteralDigits digits = literalDigits(text);
    if (digits.count == 0) {
        const auto exponent =
            std::clamp<std::int64_t>(digits.exponent, Layout::MIN_EXPONENT, Layout::MAX_EXPONENT);
        return {LiteralStatus::FITS, Layout::encode(false, static_cast<int>(exponent), 0)};
    }
    // Zeros that can be kept: as many as are written, if the exponent is in range then.
    const std::int64_t leading = digits.exponent + digits.zeros; // with all zeros dropped
    const std::int64_t least = std::max<std::int64_t>(0, leading - Layout::MAX_EXPONENT);
    const std::int64_t most =
        std::min(Layout::DIGITS - digits.count, leading - Layout::MIN_EXPONENT);
    if (least > most) {
        return {LiteralStatus::DOES_NOT_FIT, {}};
    }
    const std::int64_t kept = std::clamp(digits.zeros, least, most);
    for (std::int64_t i = 0; i < kept; ++i) {
        LiteralDigits::appendTo(digits.coefficient, 0);
    }
    return {LiteralStatus::FITS, Layout::encode(false, static_cast<int>(leading - kept),
                                                digits.coefficient.low, digits.coefficient.high)};
}

/// The value of a literal of these characters, which must be one.
template <class Record, char... TEXT>
class LiteralOf {
    static constexpr char CHARACTERS[] = {TEXT...};
    static constexpr auto VALUE =
        literalValue<Record>(std::string_view(CHARACTERS, sizeof...(TEXT)));

public:
    static constexpr const Record& value() noexcept {
        static_assert(VALUE.status != LiteralStatus::NOT_DECIMAL,
                      "a decimal literal is written to the base 10, and does not begin with a 0 "
                      "that makes it octal");
        static_assert(VALUE.status != LiteralStatus::DOES_NOT_FIT,
                      "the decimal type cannot hold the literal exactly");
        return VALUE.record;
    }
};

} // namespace orv::decimal::detail

#include "orv/liborvxx/base/macros_pop.h"

#endif

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reads the text of a number, unit by unit.
#include "orv/liborvxx/locale/detail/number_field.h"

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/locale/detail/digit_grouping.h"

#include <limits>

namespace orv::detail {

namespace {

// The small form of an ASCII letter; of other units anything that is no small letter.
constexpr unsigned lowerCase(unsigned unit) noexcept {
    return unit | 0x20U;
}

// The value of an ASCII digit, or the radix and more.
template <unsigned RADIX>
constexpr unsigned digitOf(unsigned unit) noexcept {
    const unsigned value = unit - '0';
    if constexpr (RADIX == 16) {
        const unsigned letter = lowerCase(unit) - 'a';
        return value <= 9 ? value : letter <= 5 ? letter + 10 : RADIX;
    }
    return value;
}

// Steps over a sign.
// Returns whether it was a minus.
bool takeSign(FieldCursor& in, const NumberPunctuation& punctuation) {
    const unsigned unit = in.unit();
    if ((unit != '-' && unit != '+') || punctuation.has(unit)) {
        return false;
    }
    in.step();
    return unit == '-';
}

enum class Prefix : unsigned char { NONE, ZERO, HEX };

// Steps over a zero and what makes a hexadecimal prefix of it.
Prefix takePrefix(FieldCursor& in, const NumberPunctuation& punctuation, bool mayBeHex) {
    if (in.unit() != '0' || punctuation.has('0')) {
        return Prefix::NONE;
    }
    in.step();
    if (!mayBeHex || lowerCase(in.unit()) != 'x' || punctuation.has(in.unit())) {
        return Prefix::ZERO;
    }
    in.step();
    return Prefix::HEX;
}

// Reads the digits of an integer part with their separators.
// Returns whether no separator was without a digit before it; one that is stays unread.
template <unsigned RADIX, class TakeDigit>
ORVXX_ALWAYS_INLINE bool takeGroups(FieldCursor& in, const NumberPunctuation& punctuation,
                                    GroupingCheck& groups, TakeDigit&& takeDigit) {
    for (;; in.step()) {
        if (in.unit() == punctuation.separator) {
            if (!groups.separator()) {
                return false;
            }
            continue;
        }
        const unsigned digit = digitOf<RADIX>(in.unit());
        if (digit >= RADIX || in.unit() == punctuation.point) {
            return true;
        }
        takeDigit(digit);
        groups.digit();
    }
}

// Reads digits up to anything else.
template <unsigned RADIX, class TakeDigit>
ORVXX_ALWAYS_INLINE void takeDigits(FieldCursor& in, const NumberPunctuation& punctuation,
                                    TakeDigit&& takeDigit) {
    for (;; in.step()) {
        const unsigned digit = digitOf<RADIX>(in.unit());
        if (digit >= RADIX || punctuation.has(in.unit())) {
            return;
        }
        takeDigit(digit);
    }
}

// The digits of an integer, behind its prefix.
template <unsigned RADIX>
bool takeInteger(FieldCursor& in, const NumberPunctuation& punctuation, GroupingCheck& groups,
                 IntegerField& field) {
    constexpr std::uint64_t MOST = std::numeric_limits<std::uint64_t>::max();
    return takeGroups<RADIX>(in, punctuation, groups, [&field](unsigned digit) {
        field.isValid = true;
        field.isTooLarge |= field.magnitude > MOST / RADIX ||
                            (field.magnitude == MOST / RADIX && digit > MOST % RADIX);
        field.magnitude = field.magnitude * RADIX + digit;
    });
}

struct Exponent {
    bool isValid = true;
    std::int64_t value = 0;
};

// The exponent behind a mark, or 0 if there is no mark.
Exponent takeExponent(FieldCursor& in, const NumberPunctuation& punctuation, unsigned mark) {
    if (lowerCase(in.unit()) != mark || punctuation.has(in.unit())) {
        return {};
    }
    in.step();
    constexpr std::int64_t ENOUGH = 100000000000000000;
    const bool isNegative = takeSign(in, punctuation);
    Exponent exponent{false, 0};
    takeDigits<10>(in, punctuation, [&exponent](unsigned digit) {
        exponent.isValid = true;
        if (exponent.value < ENOUGH) {
            exponent.value = exponent.value * 10 + static_cast<int>(digit);
        }
    });
    exponent.value = isNegative ? -exponent.value : exponent.value;
    return exponent;
}

template <class Digits>
FloatField scan(FieldCursor& in, const NumberPunctuation& punctuation, Digits& digits) {
    constexpr bool IS_HEX = Digits::RADIX == HexDigits::RADIX;
    FloatField field;
    field.isNegative = takeSign(in, punctuation);
    GroupingCheck groups(punctuation.grouping);
    bool hasDigit = false;
    const auto take = [&](unsigned digit) {
        digits.add(digit);
        hasDigit = true;
    };
    if (IS_HEX && takePrefix(in, punctuation, true) == Prefix::ZERO) {
        groups.digit();
        hasDigit = true;
    }
    if (!takeGroups<Digits::RADIX>(in, punctuation, groups, take)) {
        return field;
    }
    std::int64_t places = 0;
    if (in.unit() == punctuation.point) {
        in.step();
        takeDigits<Digits::RADIX>(in, punctuation, [&](unsigned digit) {
            take(digit);
            ++places;
        });
    }
    if (!hasDigit) {
        return field;
    }
    const Exponent exponent = takeExponent(in, punctuation, IS_HEX ? 'p' : 'e');
    field.isValid = groups.matches() && exponent.isValid;
    field.exponent = exponent.value + (digits.dropped() - places) * (IS_HEX ? 4 : 1);
    return field;
}

} // namespace

IntegerField scanInteger(FieldCursor& in, const NumberPunctuation& punctuation,
                         std::ios_base::fmtflags basefield) {
    IntegerField field;
    field.isNegative = takeSign(in, punctuation);
    GroupingCheck groups(punctuation.grouping);
    const bool isHex = basefield == std::ios_base::hex;
    const bool isAny = basefield == std::ios_base::fmtflags{};
    Prefix prefix = Prefix::NONE;
    if (isHex || isAny || basefield == std::ios_base::oct) {
        prefix = takePrefix(in, punctuation, isHex || isAny);
    }
    field.isValid = prefix == Prefix::ZERO;
    bool isWhole = false;
    if (isHex || prefix == Prefix::HEX) {
        if (prefix == Prefix::ZERO) {
            groups.digit();
        }
        isWhole = takeInteger<16>(in, punctuation, groups, field);
    } else if (basefield == std::ios_base::oct || prefix == Prefix::ZERO) {
        // The zero that says "octal" is in no group.
        isWhole = takeInteger<8>(in, punctuation, groups, field);
    } else {
        isWhole = takeInteger<10>(in, punctuation, groups, field);
    }
    field.isValid = field.isValid && isWhole && groups.matches();
    return field;
}

FloatField scanFloat(FieldCursor& in, const NumberPunctuation& punctuation, DecimalDigits& digits) {
    return scan(in, punctuation, digits);
}

FloatField scanFloat(FieldCursor& in, const NumberPunctuation& punctuation, HexDigits& digits) {
    return scan(in, punctuation, digits);
}

} // namespace orv::detail

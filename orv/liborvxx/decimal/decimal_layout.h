// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The decimal formats in numbers, and records made of their fields: IEEE 754-2008, clause
/// 3.5, with binary integer encoding.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL_LAYOUT_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL_LAYOUT_H

#include "orv/liborv/decimal/decimal.h"

#include <cstdint>
#include <limits>

#include "orv/liborvxx/base/macros_push.h"

namespace orv::decimal::detail {

/// What the word with sign and exponent tells. A coefficient that needs a bit more than its FIELD
/// has is marked by two set bits behind the sign, and leaves out its own top three, 100; the
/// exponent follows the mark then.
template <class Bits, int FIELD_BITS, int LEAST_EXPONENT>
struct TopWordLayout {
    static constexpr int FIELD = FIELD_BITS;
    static constexpr int WIDTH = std::numeric_limits<Bits>::digits;
    static constexpr int MIN_EXPONENT = LEAST_EXPONENT;
    static constexpr Bits SIGN = Bits{1} << (WIDTH - 1);

    static constexpr bool isNegative(Bits top) noexcept { return top >> (WIDTH - 1) != 0; }
    static constexpr bool isFinite(Bits top) noexcept { return (~top >> (WIDTH - 5) & 0xF) != 0; }
    static constexpr bool isInfinite(Bits top) noexcept {
        return (top >> (WIDTH - 6) & 0x1F) == 0x1E;
    }
    static constexpr bool isNan(Bits top) noexcept { return (top >> (WIDTH - 6) & 0x1F) == 0x1F; }

    /// Of a finite number: whether the mark is set.
    static constexpr bool isLarge(Bits top) noexcept { return (top >> (WIDTH - 3) & 3) == 3; }

    /// Of a finite number: the exponent of the lowest digit.
    static constexpr int exponent(Bits top) noexcept {
        constexpr Bits MASK = (Bits{1} << (WIDTH - 1 - FIELD)) - 1;
        const Bits field = top >> (isLarge(top) ? FIELD - 2 : FIELD) & MASK;
        return static_cast<int>(field) + MIN_EXPONENT;
    }

    static constexpr Bits infinityBits(bool negative) noexcept {
        return Bits{negative} << (WIDTH - 1) | Bits{0x78} << (WIDTH - 8);
    }
    static constexpr Bits QUIET_NAN = Bits{0x7C} << (WIDTH - 8);
    static constexpr Bits SIGNALLING_NAN = Bits{0x7E} << (WIDTH - 8);
};

/// A coefficient of up to 128 bits.
struct DecimalCoefficient {
    std::uint64_t low;
    std::uint64_t high;
};

/// What the two formats of one integer share.
template <class Record, int FIELD_BITS, int LEAST_EXPONENT>
struct OneIntegerLayout : TopWordLayout<decltype(Record::bits), FIELD_BITS, LEAST_EXPONENT> {
    using Bits = decltype(Record::bits);
    using Top = TopWordLayout<Bits, FIELD_BITS, LEAST_EXPONENT>;
    static constexpr unsigned WORDS = Top::WIDTH / 32;

    static constexpr Bits topWord(const Record& x) noexcept { return x.bits; }
    static constexpr Record withTopWord(const Record& /*x*/, Bits top) noexcept { return {top}; }

    /// The bits of the coefficient of a finite number, whether or not it has too many digits.
    static constexpr DecimalCoefficient coefficient(const Record& x) noexcept {
        if (Top::isLarge(x.bits)) {
            return {Bits{1} << Top::FIELD | (x.bits & LARGE_MASK), 0};
        }
        return {x.bits & ((Bits{1} << Top::FIELD) - 1), 0};
    }

    static constexpr Record encode(bool negative, int exponent, std::uint64_t low,
                                   std::uint64_t /*high*/ = 0) noexcept {
        const auto coefficient = static_cast<Bits>(low);
        const auto field = static_cast<Bits>(exponent - Top::MIN_EXPONENT);
        const Bits sign = Bits{negative} << (Top::WIDTH - 1);
        if (coefficient >> Top::FIELD == 0) {
            return {sign | field << Top::FIELD | coefficient};
        }
        return {sign | Bits{3} << (Top::WIDTH - 3) | field << (Top::FIELD - 2) |
                (coefficient & LARGE_MASK)};
    }

    static constexpr Record infinity(bool negative) noexcept {
        return {Top::infinityBits(negative)};
    }
    static constexpr Record quietNan() noexcept { return {Top::QUIET_NAN}; }
    static constexpr Record signallingNan() noexcept { return {Top::SIGNALLING_NAN}; }

private:
    static constexpr Bits LARGE_MASK = (Bits{1} << (Top::FIELD - 2)) - 1;
};

/// For each record: DIGITS; the least and greatest exponent of the lowest digit, where the bias is
/// -MIN_EXPONENT; MAX_COEFFICIENT, the greatest number of 64 bits that is one; LARGEST, the
/// greatest of all; LEAST_FULL, the least of DIGITS digits; WORDS, the 32-bit words that hold a
/// coefficient; and
///
/// - `encode`: a finite number, the coefficient given as two halves
/// - `coefficient`: those halves
/// - `topWord`, `withTopWord`: the word with sign and exponent
/// - `infinity`, `quietNan`, `signallingNan`
template <class Record>
struct DecimalLayout;

template <>
struct DecimalLayout<ODecimal32> : OneIntegerLayout<ODecimal32, 23, -101> {
    static constexpr int DIGITS = 7;
    static constexpr int MAX_EXPONENT = 90;
    static constexpr std::uint64_t MAX_COEFFICIENT = 9999999;
    static constexpr DecimalCoefficient LARGEST = {MAX_COEFFICIENT, 0};
    static constexpr DecimalCoefficient LEAST_FULL = {1000000, 0};
};

template <>
struct DecimalLayout<ODecimal64> : OneIntegerLayout<ODecimal64, 53, -398> {
    static constexpr int DIGITS = 16;
    static constexpr int MAX_EXPONENT = 369;
    static constexpr std::uint64_t MAX_COEFFICIENT = 9999999999999999;
    static constexpr DecimalCoefficient LARGEST = {MAX_COEFFICIENT, 0};
    static constexpr DecimalCoefficient LEAST_FULL = {1000000000000000, 0};
};

template <>
struct DecimalLayout<ODecimal128> : TopWordLayout<std::uint64_t, 49, -6176> {
    static constexpr int DIGITS = 34;
    static constexpr int MAX_EXPONENT = 6111;
    static constexpr unsigned WORDS = 4;
    static constexpr std::uint64_t MAX_COEFFICIENT = std::numeric_limits<std::uint64_t>::max();
    static constexpr DecimalCoefficient LARGEST = {0x378D8E63FFFFFFFF, 0x0001ED09BEAD87C0};
    static constexpr DecimalCoefficient LEAST_FULL = {0x38C15B0A00000000, 0x0000314DC6448D93};

    static constexpr std::uint64_t topWord(const ODecimal128& x) noexcept { return x.high; }
    static constexpr ODecimal128 withTopWord(const ODecimal128& x, std::uint64_t top) noexcept {
        return {x.low, top};
    }

    /// The marked form has no valid coefficient: it is 0.
    static constexpr DecimalCoefficient coefficient(const ODecimal128& x) noexcept {
        if (isLarge(x.high)) {
            return {0, 0};
        }
        return {x.low, x.high & ((std::uint64_t{1} << FIELD) - 1)};
    }

    static constexpr ODecimal128 encode(bool negative, int exponent, std::uint64_t low,
                                        std::uint64_t high = 0) noexcept {
        const auto field = static_cast<std::uint64_t>(exponent - MIN_EXPONENT);
        return {low, std::uint64_t{negative} << 63U | field << FIELD | high};
    }

    static constexpr ODecimal128 infinity(bool negative) noexcept {
        return {0, infinityBits(negative)};
    }
    static constexpr ODecimal128 quietNan() noexcept { return {0, QUIET_NAN}; }
    static constexpr ODecimal128 signallingNan() noexcept { return {0, SIGNALLING_NAN}; }
};

} // namespace orv::decimal::detail

#include "orv/liborvxx/base/macros_pop.h"

#endif

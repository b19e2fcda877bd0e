// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The functions of one width as a class, and operands that are hard on them.
#ifndef ORV_TESTS_DIFFERENTIAL_DECIMAL_DECIMAL_CASES_H
#define ORV_TESTS_DIFFERENTIAL_DECIMAL_DECIMAL_CASES_H

#include "orv/liborv/decimal/arithmetic.h"
#include "orv/liborv/decimal/compare.h"
#include "orv/liborv/decimal/convert.h"
#include "orv/liborvxx/decimal/decimal_functions.h"

#include "tests/reference/decimal_model.h"
#include "tests/support/number_source.h"

#include <algorithm>
#include <cstdint>
#include <ostream>

namespace orvtest {

inline std::uint64_t lowBits(ODecimal32 x) {
    return x.bits;
}

inline std::uint64_t lowBits(ODecimal64 x) {
    return x.bits;
}

inline std::uint64_t lowBits(ODecimal128 x) {
    return x.low;
}

inline std::uint64_t highBits(ODecimal32 x) {
    return x.bits;
}

inline std::uint64_t highBits(ODecimal64 x) {
    return x.bits;
}

inline std::uint64_t highBits(ODecimal128 x) {
    return x.high;
}

template <class Record>
bool sameBits(Record a, Record b) {
    return lowBits(a) == lowBits(b) && highBits(a) == highBits(b);
}

inline void fromBits(NumberSource& source, ODecimal32& x) {
    x.bits = static_cast<std::uint32_t>(source.bits());
}

inline void fromBits(NumberSource& source, ODecimal64& x) {
    x.bits = source.bits();
}

inline void fromBits(NumberSource& source, ODecimal128& x) {
    x.low = source.bits();
    x.high = source.bits();
}

/// What there is in three widths, with what the classes of the C++ library have no use for.
template <class Record>
struct Functions;

#define ORV_FUNCTIONS(width)                                                                       \
    template <>                                                                                    \
    struct Functions<ODecimal##width> : orv::decimal::detail::DecimalFunctions<ODecimal##width> {  \
        static constexpr DecimalFormat FORMAT = DECIMAL##width;                                    \
        static constexpr auto isNaN = orvDec##width##IsNaN;                                        \
        static constexpr auto isSignalling = orvDec##width##IsSignalling;                          \
        static constexpr auto isNormal = orvDec##width##IsNormal;                                  \
        static constexpr auto isCanonical = orvDec##width##IsCanonical;                            \
        static constexpr auto fromUInt64 = orvDec##width##FromUInt64;                              \
        static constexpr auto toUInt64 = orvDec##width##ToUInt64;                                  \
    };

ORV_FUNCTIONS(32)
ORV_FUNCTIONS(64)
ORV_FUNCTIONS(128)
#undef ORV_FUNCTIONS

/// A source of operands: one at a time, or the next one related to the one before.
template <class Record>
class DecimalCases {
public:
    explicit DecimalCases(std::uint64_t seed) : source_(seed) {}

    NumberSource& source() { return source_; }

    /// Any encoding: mostly finite numbers of all shapes, at times any bits whatsoever.
    Record operand() {
        Record x{};
        if (source_.below(16) == 0) {
            fromBits(source_, x);
            last_ = decode(x);
            return x;
        }
        last_.kind = DecimalValue::Kind::FINITE;
        last_.negative = source_.coin();
        last_.coefficient = coefficient();
        last_.exponent = exponent();
        encode(last_, x);
        return x;
    }

    /// An operand that meets the one before: on its scale or near it, cancelling it, a tie below
    /// its last digit, or on the other side of the range.
    Record partner() {
        if (!last_.isFinite() || source_.below(8) == 0) {
            return operand();
        }
        DecimalValue y = last_;
        y.negative = source_.coin();
        const int last = last_.exponent;
        switch (source_.below(8)) {
        case 0:
            y.coefficient = coefficient();
            break;
        case 1: // next to it
            y.coefficient += source_.between(-2, 2);
            break;
        case 2: // the same value in another form
            if (y.coefficient % 10 == 0) {
                y.coefficient /= 10;
                ++y.exponent;
            } else {
                y.coefficient *= 10;
                --y.exponent;
            }
            break;
        case 3: { // a tie, or next to it
            const int below = static_cast<int>(source_.below(3)) + 1;
            y.coefficient = 5 * powerOfTen(below - 1) + source_.between(-1, 1);
            y.exponent = last - below;
            break;
        }
        case 4: // a tie below all digits that the other may get
            y.coefficient = 5 * powerOfTen(FORMAT.digits - 1) + source_.between(-1, 1);
            y.exponent = last - source_.between(FORMAT.digits - 1, 2 * FORMAT.digits + 1);
            break;
        case 5: // the exponents cancel, or their sum is at an end of the range
            y.coefficient = coefficient();
            y.exponent = (source_.coin() ? FORMAT.least : FORMAT.greatest) - last +
                         source_.between(-FORMAT.digits, 3);
            break;
        default:
            y.coefficient = coefficient();
            y.exponent = last + source_.between(-FORMAT.digits - 2, FORMAT.digits + 2);
            break;
        }
        return made(y);
    }

private:
    static constexpr DecimalFormat FORMAT = Functions<Record>::FORMAT;

    // A value near the one wished for, in range.
    Record made(DecimalValue y) {
        y.coefficient = ::abs(y.coefficient) % powerOfTen(FORMAT.digits);
        y.exponent = std::clamp(y.exponent, FORMAT.least, FORMAT.greatest);
        last_ = y;
        Record x{};
        encode(y, x);
        return x;
    }

    mpz_class digits(int count) {
        mpz_class n = 0;
        for (int i = 0; i < count; i += 9) {
            n = n * 1'000'000'000 + source_.below(1'000'000'000);
        }
        return n % powerOfTen(count);
    }

    mpz_class coefficient() {
        const int count = source_.between(1, FORMAT.digits);
        switch (source_.below(10)) {
        case 0:
            return 0;
        case 1: // a power of ten, or next to it
            return (powerOfTen(count - 1) + source_.between(-1, 1)) % powerOfTen(FORMAT.digits);
        case 2: // the largest ones
            return powerOfTen(FORMAT.digits) - 1 - source_.below(3);
        case 3: // zeros behind
            return digits(count) * powerOfTen(FORMAT.digits - count);
        case 4: // a tie wherever it is cut
            return (10 * digits(count) + 5) * powerOfTen(FORMAT.digits - count) %
                   powerOfTen(FORMAT.digits);
        case 5: // a power of two, or next to it
            return ((mpz_class(1) << source_.below(113)) + source_.between(-1, 1)) %
                   powerOfTen(FORMAT.digits);
        case 6: // all digits
            return digits(FORMAT.digits);
        default:
            return digits(count);
        }
    }

    int exponent() {
        switch (source_.below(8)) {
        case 0:
            return source_.between(FORMAT.least, FORMAT.least + 2 * FORMAT.digits);
        case 1:
            return source_.between(FORMAT.greatest - 2 * FORMAT.digits, FORMAT.greatest);
        case 2:
            return source_.between(FORMAT.least, FORMAT.greatest);
        default:
            return source_.between(-FORMAT.digits - 3, 3);
        }
    }

    NumberSource source_;
    DecimalValue last_;
};

} // namespace orvtest

#endif

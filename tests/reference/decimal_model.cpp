// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The steps of decimal arithmetic, one by one.
#include "tests/reference/decimal_model.h"

#include <algorithm>
#include <cstdint>
#include <ostream>

namespace orvtest {

namespace {

using Kind = DecimalValue::Kind;

const DecimalValue NOT_A_NUMBER{Kind::NOT_A_NUMBER, false, 0, 0};

DecimalValue infinity(bool negative) {
    return {Kind::INFINITE, negative, 0, 0};
}

mpz_class fromWords(std::uint64_t high, std::uint64_t low) {
    const std::uint64_t words[] = {low, high};
    mpz_class n;
    mpz_import(n.get_mpz_t(), 2, -1, sizeof words[0], 0, 0, words);
    return n;
}

std::uint64_t word(const mpz_class& n, unsigned index) {
    mpz_class shifted;
    mpz_fdiv_q_2exp(shifted.get_mpz_t(), n.get_mpz_t(), mp_bitcnt_t{64} * index);
    mpz_fdiv_r_2exp(shifted.get_mpz_t(), shifted.get_mpz_t(), 64);
    std::uint64_t low = 0;
    mpz_export(&low, nullptr, -1, sizeof low, 0, 0, shifted.get_mpz_t());
    return low;
}

// How an encoding is cut, all widths alike as integers.
struct Layout {
    unsigned width;
    unsigned coefficientBits; // of the usual form; the other one has two less
    DecimalFormat format;
};

const Layout LAYOUT32{32, 23, DECIMAL32};
const Layout LAYOUT64{64, 53, DECIMAL64};
const Layout LAYOUT128{128, 113, DECIMAL128};

mpz_class shifted(const mpz_class& n, unsigned bits) {
    return n * (mpz_class(1) << bits);
}

unsigned long bitsAt(const mpz_class& n, unsigned from, unsigned count) {
    const mpz_class field = (n >> from) % (mpz_class(1) << count);
    return field.get_ui();
}

DecimalValue decoded(const mpz_class& bits, const Layout& layout) {
    const unsigned exponentBits = layout.width - 1 - layout.coefficientBits;
    DecimalValue value;
    value.negative = bitsAt(bits, layout.width - 1, 1) != 0;
    if (bitsAt(bits, layout.width - 5, 4) == 15) {
        value.kind = bitsAt(bits, layout.width - 6, 1) != 0 ? Kind::NOT_A_NUMBER : Kind::INFINITE;
        return value;
    }
    const bool isLarge = bitsAt(bits, layout.width - 3, 2) == 3;
    const unsigned cut = layout.coefficientBits - (isLarge ? 2 : 0);
    value.exponent = static_cast<int>(bitsAt(bits, cut, exponentBits)) + layout.format.least;
    value.coefficient = bits % (mpz_class(1) << cut);
    if (isLarge) {
        value.coefficient += mpz_class(1) << layout.coefficientBits;
    }
    if (value.coefficient >= powerOfTen(layout.format.digits)) {
        value.coefficient = 0;
    }
    return value;
}

mpz_class encoded(const DecimalValue& value, const Layout& layout) {
    const mpz_class sign = shifted(value.negative ? 1 : 0, layout.width - 1);
    if (!value.isFinite()) {
        return (value.isNaN() ? mpz_class(0) : sign) +
               shifted(value.isNaN() ? 31 : 30, layout.width - 6);
    }
    const mpz_class field = value.exponent - layout.format.least;
    if (value.coefficient < mpz_class(1) << layout.coefficientBits) {
        return sign + shifted(field, layout.coefficientBits) + value.coefficient;
    }
    return sign + shifted(3, layout.width - 3) + shifted(field, layout.coefficientBits - 2) +
           value.coefficient - (mpz_class(1) << layout.coefficientBits);
}

// floor(log10(n / d))
int floorLog10(const mpz_class& n, const mpz_class& d) {
    int log = static_cast<int>(mpz_sizeinbase(n.get_mpz_t(), 10)) -
              static_cast<int>(mpz_sizeinbase(d.get_mpz_t(), 10)) + 1;
    while (log >= 0 ? n < d * powerOfTen(log) : n * powerOfTen(-log) < d) {
        --log;
    }
    return log;
}

DecimalValue zero(const DecimalFormat& format, bool negative, int exponent) {
    return {Kind::FINITE, negative, 0, std::clamp(exponent, format.least, format.greatest)};
}

// A finite value as an integer with its sign, at an exponent not above its own.
mpz_class atExponent(const DecimalValue& x, int exponent) {
    const mpz_class n = x.coefficient * powerOfTen(x.exponent - exponent);
    return x.negative ? mpz_class(-n) : n;
}

} // namespace

std::ostream& operator<<(std::ostream& out, const DecimalValue& value) {
    out << (value.negative ? "-" : "+");
    if (value.isFinite()) {
        return out << value.coefficient << "E" << value.exponent;
    }
    return out << (value.isNaN() ? "NaN" : "infinity");
}

mpz_class powerOfTen(int n) {
    mpz_class power;
    mpz_ui_pow_ui(power.get_mpz_t(), 10, static_cast<unsigned>(n));
    return power;
}

DecimalValue decode(ODecimal32 x) {
    return decoded(x.bits, LAYOUT32);
}

DecimalValue decode(ODecimal64 x) {
    return decoded(fromWords(0, x.bits), LAYOUT64);
}

DecimalValue decode(ODecimal128 x) {
    return decoded(fromWords(x.high, x.low), LAYOUT128);
}

void encode(const DecimalValue& value, ODecimal32& x) {
    x.bits = static_cast<std::uint32_t>(word(encoded(value, LAYOUT32), 0));
}

void encode(const DecimalValue& value, ODecimal64& x) {
    x.bits = word(encoded(value, LAYOUT64), 0);
}

void encode(const DecimalValue& value, ODecimal128& x) {
    const mpz_class bits = encoded(value, LAYOUT128);
    x.low = word(bits, 0);
    x.high = word(bits, 1);
}

mpz_class roundedQuotient(const mpz_class& n, const mpz_class& d, bool negative, int mode) {
    mpz_class quotient;
    mpz_class rest;
    mpz_fdiv_qr(quotient.get_mpz_t(), rest.get_mpz_t(), n.get_mpz_t(), d.get_mpz_t());
    const int half = cmp(2 * rest, d);
    bool away = false;
    switch (mode) {
    case ORV_DEC_HALF_EVEN:
        away = half > 0 || (half == 0 && mpz_odd_p(quotient.get_mpz_t()));
        break;
    case ORV_DEC_FLOOR:
        away = negative && rest != 0;
        break;
    case ORV_DEC_CEILING:
        away = !negative && rest != 0;
        break;
    case ORV_DEC_HALF_AWAY:
        away = half >= 0;
        break;
    default:
        break;
    }
    return away ? mpz_class(quotient + 1) : quotient;
}

DecimalValue rounded(const DecimalFormat& format, bool negative, const mpz_class& n,
                     const mpz_class& d, int exponent, int preferred) {
    if (n == 0) {
        return zero(format, negative, preferred);
    }
    // The lowest exponent at which the number has no more digits than the format.
    int at = std::max(format.least, floorLog10(n, d) + exponent - format.digits + 1);
    const mpz_class up = n * powerOfTen(std::max(0, exponent - at));
    const mpz_class down = d * powerOfTen(std::max(0, at - exponent));
    mpz_class coefficient = roundedQuotient(up, down, negative, ORV_DEC_HALF_EVEN);
    const bool isExact = coefficient * down == up;
    if (coefficient == powerOfTen(format.digits)) {
        coefficient /= 10;
        ++at;
    }
    while (isExact && at < preferred && at < format.greatest && coefficient % 10 == 0) {
        coefficient /= 10;
        ++at;
    }
    return at > format.greatest ? infinity(negative)
                                : DecimalValue{Kind::FINITE, negative, coefficient, at};
}

DecimalValue modelAdd(const DecimalFormat& format, const DecimalValue& x, const DecimalValue& y) {
    const DecimalValue one{Kind::FINITE, false, 1, 0};
    return modelFusedMultiplyAdd(format, x, one, y);
}

DecimalValue modelMultiply(const DecimalFormat& format, const DecimalValue& x,
                           const DecimalValue& y) {
    if (x.isNaN() || y.isNaN() || (x.isInfinite() && y.isZero()) ||
        (y.isInfinite() && x.isZero())) {
        return NOT_A_NUMBER;
    }
    const bool negative = x.negative != y.negative;
    if (x.isInfinite() || y.isInfinite()) {
        return infinity(negative);
    }
    const int exponent = x.exponent + y.exponent;
    return rounded(format, negative, x.coefficient * y.coefficient, 1, exponent, exponent);
}

DecimalValue modelDivide(const DecimalFormat& format, const DecimalValue& x,
                         const DecimalValue& y) {
    if (x.isNaN() || y.isNaN() || (x.isInfinite() && y.isInfinite()) ||
        (x.isZero() && y.isZero())) {
        return NOT_A_NUMBER;
    }
    const bool negative = x.negative != y.negative;
    if (x.isInfinite() || y.isZero()) {
        return infinity(negative);
    }
    if (y.isInfinite()) {
        return zero(format, negative, format.least);
    }
    const int exponent = x.exponent - y.exponent;
    return rounded(format, negative, x.coefficient, y.coefficient, exponent, exponent);
}

DecimalValue modelFusedMultiplyAdd(const DecimalFormat& format, const DecimalValue& x,
                                   const DecimalValue& y, const DecimalValue& z) {
    const DecimalValue kindOfProduct = modelMultiply(format, x, y);
    const bool infinite = x.isInfinite() || y.isInfinite();
    if (kindOfProduct.isNaN() || z.isNaN() ||
        (infinite && z.isInfinite() && z.negative != kindOfProduct.negative)) {
        return NOT_A_NUMBER;
    }
    if (infinite || z.isInfinite()) {
        return infinite ? kindOfProduct : z;
    }
    const DecimalValue product{Kind::FINITE, kindOfProduct.negative, x.coefficient * y.coefficient,
                               x.exponent + y.exponent};
    const int exponent = std::min(product.exponent, z.exponent);
    const mpz_class sum = atExponent(product, exponent) + atExponent(z, exponent);
    const bool negative = sum == 0 ? product.negative && z.negative : sum < 0;
    return rounded(format, negative, abs(sum), 1, exponent, exponent);
}

DecimalValue modelSquareRoot(const DecimalFormat& format, const DecimalValue& x) {
    if (x.isNaN() || (x.negative && !x.isZero())) {
        return NOT_A_NUMBER;
    }
    if (x.isInfinite()) {
        return x;
    }
    const int half = x.exponent >= 0 ? x.exponent / 2 : -((1 - x.exponent) / 2);
    // Many digits of the root, and one behind that tells whether more follow.
    const int extra = format.digits + 2;
    const mpz_class square = x.coefficient * powerOfTen(x.exponent - 2 * half + 2 * extra);
    mpz_class root;
    mpz_class rest;
    mpz_sqrtrem(root.get_mpz_t(), rest.get_mpz_t(), square.get_mpz_t());
    root = root * 10 + (rest != 0 ? 1 : 0);
    return rounded(format, x.negative, root, 1, half - extra - 1, half);
}

DecimalValue modelRemainder(const DecimalFormat& format, const DecimalValue& x,
                            const DecimalValue& y) {
    if (x.isNaN() || y.isNaN() || x.isInfinite() || y.isZero()) {
        return NOT_A_NUMBER;
    }
    if (y.isInfinite()) {
        return x;
    }
    const int exponent = std::min(x.exponent, y.exponent);
    const mpz_class n = abs(atExponent(x, exponent));
    const mpz_class d = abs(atExponent(y, exponent));
    const mpz_class rest = n - d * roundedQuotient(n, d, false, ORV_DEC_HALF_EVEN);
    const bool negative = rest < 0 ? !x.negative : x.negative;
    return rounded(format, negative, abs(rest), 1, exponent, exponent);
}

DecimalValue modelScaleB(const DecimalFormat& format, const DecimalValue& x, int n) {
    if (!x.isFinite()) {
        return x;
    }
    const int range = 2 * (format.greatest - format.least); // beyond it nothing changes
    const int exponent = x.exponent + std::clamp(n, -range, range);
    return rounded(format, x.negative, x.coefficient, 1, exponent, exponent);
}

DecimalValue modelConvert(const DecimalFormat& to, const DecimalValue& x) {
    return modelScaleB(to, x, 0);
}

DecimalValue modelQuantize(const DecimalFormat& format, const DecimalValue& x,
                           const DecimalValue& y, int mode) {
    if (x.isInfinite() && y.isInfinite()) {
        return x;
    }
    if (!x.isFinite() || !y.isFinite()) {
        return NOT_A_NUMBER;
    }
    const mpz_class n = x.coefficient * powerOfTen(std::max(0, x.exponent - y.exponent));
    const mpz_class d = powerOfTen(std::max(0, y.exponent - x.exponent));
    const mpz_class coefficient = roundedQuotient(n, d, x.negative, mode);
    return coefficient < powerOfTen(format.digits)
               ? DecimalValue{Kind::FINITE, x.negative, coefficient, y.exponent}
               : NOT_A_NUMBER;
}

DecimalValue modelRoundExact(const DecimalValue& x, int mode) {
    if (!x.isFinite() || x.exponent >= 0) {
        return x;
    }
    const mpz_class d = powerOfTen(-x.exponent);
    return {Kind::FINITE, x.negative, roundedQuotient(x.coefficient, d, x.negative, mode), 0};
}

int modelCompare(const DecimalValue& x, const DecimalValue& y) {
    if (x.isInfinite() || y.isInfinite()) {
        const int left = x.isInfinite() ? (x.negative ? -1 : 1) : 0;
        const int right = y.isInfinite() ? (y.negative ? -1 : 1) : 0;
        return (left > right) - (left < right);
    }
    const int exponent = std::min(x.exponent, y.exponent);
    const int order = cmp(atExponent(x, exponent), atExponent(y, exponent));
    return (order > 0) - (order < 0);
}

} // namespace orvtest

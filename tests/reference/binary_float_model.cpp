// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The steps of packing, one by one.
#include "tests/reference/binary_float_model.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

namespace orvtest {

namespace {

// A format: the bits of a coefficient; exponents of the top bit from which on a number is infinite
// and below which it is subnormal; the exponent field's bias; decimal magnitudes that decide at
// once; the longest operands of the shortcut; and what a dividend has beyond the highest bit of the
// divisor.
template <class Float>
struct Constants;

template <>
struct Constants<double> {
    using Bits = std::uint64_t;
    static constexpr int PRECISION = 53, INFINITE = 1024, NORMAL = -1022, BIAS = 1023;
    static constexpr int OVERFLOW_ABOVE = 308, UNDERFLOW_BELOW = -324;
    static constexpr int SHORTCUT_EXPONENT = 22, DIVIDEND_EXTRA = 54;
};

template <>
struct Constants<float> {
    using Bits = std::uint32_t;
    static constexpr int PRECISION = 24, INFINITE = 128, NORMAL = -126, BIAS = 127;
    static constexpr int OVERFLOW_ABOVE = 38, UNDERFLOW_BELOW = -46;
    static constexpr int SHORTCUT_EXPONENT = 10, DIVIDEND_EXTRA = 25;
};

std::int64_t bitLength(const mpz_class& n) {
    return n == 0 ? 0 : static_cast<std::int64_t>(mpz_sizeinbase(n.get_mpz_t(), 2));
}

std::int64_t floorLog10(const mpz_class& n) {
    std::size_t digits = mpz_sizeinbase(n.get_mpz_t(), 10); // may be one too many
    mpz_class power;
    mpz_ui_pow_ui(power.get_mpz_t(), 10, digits - 1);
    return static_cast<std::int64_t>(digits) - (n < power ? 2 : 1);
}

mpz_class power10(int n) {
    mpz_class power;
    mpz_ui_pow_ui(power.get_mpz_t(), 10, static_cast<unsigned>(n));
    return power;
}

void shiftRight(mpz_class& n, std::int64_t bits) {
    mpz_fdiv_q_2exp(n.get_mpz_t(), n.get_mpz_t(), static_cast<mp_bitcnt_t>(bits));
}

void shiftLeft(mpz_class& n, std::int64_t bits) {
    mpz_mul_2exp(n.get_mpz_t(), n.get_mpz_t(), static_cast<mp_bitcnt_t>(bits));
}

// What a shift right by so many bits loses: 0 nothing, 1 less than one half, 2 one half, 3 more.
unsigned lost(const mpz_class& n, std::int64_t bits) {
    const auto half = static_cast<mp_bitcnt_t>(bits - 1);
    const bool top = mpz_tstbit(n.get_mpz_t(), half) != 0;
    const bool below = n != 0 && mpz_scan1(n.get_mpz_t(), 0) < half;
    return (top ? 2U : 0U) | (below ? 1U : 0U);
}

bool up(unsigned rounding, const mpz_class& n) {
    return rounding == 3 || (rounding == 2 && mpz_odd_p(n.get_mpz_t()));
}

template <class Float>
Float fromBits(typename Constants<Float>::Bits bits) {
    Float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

template <class Float>
Float signedResult(bool negative, Float magnitude) {
    return negative ? -magnitude : magnitude;
}

template <class Float>
Float pack(bool negative, std::int64_t exponent, mpz_class c, unsigned rounding) {
    using C = Constants<Float>;
    using Bits = typename C::Bits;
    const std::int64_t bits = bitLength(c);
    if (bits == 0) {
        return signedResult(negative, Float{0});
    }
    std::int64_t s = bits - C::PRECISION;
    std::int64_t e = exponent + C::PRECISION - 1 + s;
    if (e >= C::INFINITE) {
        return signedResult(negative, std::numeric_limits<Float>::infinity());
    }
    if (e < C::NORMAL) {
        s += C::NORMAL - e;
        e = C::NORMAL - 1;
    }
    if (s < 0) {
        shiftLeft(c, -s);
    } else if (s > 0) {
        const unsigned below = rounding != 0 ? 1 : 0;
        rounding = lost(c, s) | below;
        shiftRight(c, s);
    }
    const std::uint64_t v = c.get_ui();
    const Bits fraction = static_cast<Bits>(v % (std::uint64_t{1} << (C::PRECISION - 1)));
    Bits assembled =
        static_cast<Bits>(static_cast<Bits>(e + C::BIAS) << (C::PRECISION - 1)) + fraction;
    if (up(rounding, c)) {
        ++assembled;
    }
    return signedResult(negative, fromBits<Float>(assembled));
}

template <class Float>
Float divide(bool negative, int exponent, mpz_class c) {
    using C = Constants<Float>;
    const mpz_class p = power10(-exponent);
    const std::int64_t n = bitLength(p) - 1 + C::DIVIDEND_EXTRA;
    const std::int64_t bits = bitLength(c);
    std::int64_t e = bits - n;
    if (bits < n) {
        shiftLeft(c, n - bits);
    } else {
        shiftRight(c, bits - n); // what falls out is not remembered
    }
    mpz_class q = c / p;
    mpz_class r = c % p;
    unsigned information = 0;
    if (bitLength(q) == C::PRECISION) {
        const mpz_class twice = 2 * r;
        information = twice > p ? 3 : twice == p ? 2 : r != 0 ? 1 : 0;
    } else {
        information = (r != 0 ? 1U : 0U) | (mpz_odd_p(q.get_mpz_t()) ? 2U : 0U);
        shiftRight(q, 1);
        ++e;
    }
    return pack<Float>(negative, e, q, information);
}

template <class Float>
Float make(bool negative, int exponent, mpz_class c, unsigned rounding) {
    using C = Constants<Float>;
    const Float infinite = signedResult(negative, std::numeric_limits<Float>::infinity());
    const Float zero = signedResult(negative, Float{0});
    if (exponent == std::numeric_limits<int>::max()) {
        return infinite;
    }
    if (exponent == std::numeric_limits<int>::min()) {
        return zero;
    }
    if (bitLength(c) <= C::PRECISION && exponent >= -C::SHORTCUT_EXPONENT &&
        exponent <= C::SHORTCUT_EXPONENT) {
        rounding = 0; // correctly rounded, and blind to what is below
        if (c == 0) {
            return zero;
        }
        return exponent < 0 ? divide<Float>(negative, exponent, c)
                            : pack<Float>(negative, 0, c * power10(exponent), 0);
    }
    if (c == 0) {
        return zero;
    }
    const std::int64_t magnitude = floorLog10(c) + exponent;
    if (magnitude > C::OVERFLOW_ABOVE) {
        return infinite;
    }
    if (magnitude < C::UNDERFLOW_BELOW) {
        return zero;
    }
    if (exponent == 0) {
        return pack<Float>(negative, 0, c, rounding);
    }
    if (up(rounding, c)) {
        ++c;
    }
    return exponent > 0 ? pack<Float>(negative, 0, c * power10(exponent), 0)
                        : divide<Float>(negative, exponent, c);
}

} // namespace

double modelPackDouble(bool negative, int exponent, const mpz_class& coefficient,
                       unsigned rounding) {
    return pack<double>(negative, exponent, coefficient, rounding);
}

float modelPackFloat(bool negative, int exponent, const mpz_class& coefficient, unsigned rounding) {
    return pack<float>(negative, exponent, coefficient, rounding);
}

double modelMakeDouble(bool negative, int exponent, const mpz_class& coefficient,
                       unsigned rounding) {
    return make<double>(negative, exponent, coefficient, rounding);
}

float modelMakeFloat(bool negative, int exponent, const mpz_class& coefficient, unsigned rounding) {
    return make<float>(negative, exponent, coefficient, rounding);
}

} // namespace orvtest

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Coefficients and exponents that are hard to round to float and double, and GMP's view of
/// them.
#ifndef ORV_TESTS_DIFFERENTIAL_NUMBER_FLOAT_CASES_H
#define ORV_TESTS_DIFFERENTIAL_NUMBER_FLOAT_CASES_H

#include "orv/liborvxx/number/big_uint.h"
#include "tests/support/number_source.h"

#include <gmpxx.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace orvtest {

/// The bits of a float or double, which tell zeros apart.
template <class Float>
auto floatBits(Float value) {
    return std::bit_cast<std::conditional_t<sizeof(Float) == 4, std::uint32_t, std::uint64_t>>(
        value);
}

/// The value of \p n in an object that keeps its memory.
inline const mpz_class& assign(mpz_class& out, const orv::big_uint& n) {
    mpz_import(out.get_mpz_t(), n.size(), -1, sizeof(unsigned), 0, 0, n.data());
    return out;
}

/// \p n plus -1, 0 or 1.
inline void disturb(NumberSource& source, orv::big_uint& n) {
    switch (source.below(3)) {
    case 0:
        n.increment();
        break;
    case 1:
        if (!n.is_zero()) {
            n.decrement();
        }
        break;
    default:
        break;
    }
}

/// The middle of two neighbours, each of up to \p precision bits, followed by up to 300 zero bits;
/// or 1 more, or 1 less.
inline orv::big_uint nearTie(NumberSource& source, unsigned precision) {
    const unsigned kept = 1 + (source.below(3) == 0 ? source.below(precision) : precision - 1);
    std::uint64_t top = source.bits() >> (64 - kept);
    if (source.below(8) == 0) {
        top = std::numeric_limits<std::uint64_t>::max() >> (64 - kept);
    }
    const unsigned zeros = source.below(source.coin() ? 12 : 300);
    orv::big_uint n(static_cast<unsigned long long>(top << 1U | 1U));
    n.set_size(2 + (zeros + 32) / 32);
    n.shift_left(zeros);
    disturb(source, n);
    return n;
}

} // namespace orvtest

#endif

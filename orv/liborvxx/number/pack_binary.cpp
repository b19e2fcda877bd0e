// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Rounding of coefficient * 2^exponent to the formats of `float` and `double`.
#include "orv/liborvxx/number/pack_binary.h"

#include "orv/liborvxx/number/detail/binary_format.h"
#include "orv/liborvxx/number/detail/bit_window.h"
#include "orv/liborvxx/number/detail/pack_internal.h"
#include "orv/liborvxx/number/detail/rounding.h"

#include <cassert>
#include <cstdint>

namespace orv {

namespace detail {

template <class Float>
Float packBinary(bool negative, int exponent, const big_uint& coefficient, unsigned bits,
                 unsigned rounding) noexcept {
    using Format = BinaryFormat<Float>;
    assert(bits == coefficient.bit_length());
    if (bits == 0) {
        return signedZero<Float>(negative);
    }
    std::int64_t shift = std::int64_t{bits} - Format::PRECISION;
    std::int64_t top = std::int64_t{exponent} + bits - 1; // the exponent of the highest bit
    if (top > Format::MAX_EXPONENT) {
        return signedInfinity<Float>(negative);
    }
    if (top < Format::MIN_EXPONENT) {
        shift += Format::MIN_EXPONENT - top;
        top = Format::MIN_EXPONENT - 1;
    }
    std::uint64_t v = 0;
    if (shift > 0) {
        const auto cut = static_cast<unsigned>(shift);
        rounding = combineRounding(coefficient.compute_rounding_info(cut), rounding);
        v = bitWindow(coefficient, cut);
    } else {
        v = coefficient.to_uint64() << static_cast<unsigned>(-shift);
    }
    return assemble<Float>(negative, static_cast<int>(top), v, roundsUp(rounding, (v & 1U) != 0));
}

template float packBinary<float>(bool, int, const big_uint&, unsigned, unsigned) noexcept;
template double packBinary<double>(bool, int, const big_uint&, unsigned, unsigned) noexcept;

} // namespace detail

double pack_double(bool negative, int exponent, const big_uint& coefficient) noexcept {
    return detail::packBinary<double>(negative, exponent, coefficient, coefficient.bit_length(),
                                      detail::ROUNDING_EXACT);
}

float pack_float(bool negative, int exponent, const big_uint& coefficient) noexcept {
    return detail::packBinary<float>(negative, exponent, coefficient, coefficient.bit_length(),
                                     detail::ROUNDING_EXACT);
}

long double pack_long_double(bool negative, int exponent, const big_uint& coefficient) noexcept {
    return pack_double(negative, exponent, coefficient);
}

} // namespace orv

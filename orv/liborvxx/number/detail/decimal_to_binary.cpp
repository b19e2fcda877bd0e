// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The conversion of 128 bits: what one small product leaves open.
#include "orv/liborvxx/number/detail/decimal_to_binary.h"

#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/detail/exact_tie.h"
#include "orv/liborvxx/number/detail/pack_internal.h"
#include "orv/liborvxx/number/detail/rounding.h"

#include <algorithm>
#include <cassert>

namespace orv::detail {

using words::Limb;
using words::Wide;

namespace {

constexpr int countBits(const Wide& n) noexcept {
    return n.high != 0 ? 128 - std::countl_zero(n.high) : 64 - std::countl_zero(n.low);
}

// Shifted left until the top bit is set.
constexpr Wide normalise(const Wide& n, int bits) noexcept {
    const auto shift = static_cast<unsigned>(128 - bits);
    if (shift == 0) {
        return n;
    }
    return shift < 64 ? Wide{n.low << shift, n.high << shift | n.low >> (64 - shift)}
                      : Wide{0, n.low << shift % 64};
}

constexpr void increment(Wide& n) noexcept {
    ++n.low;
    n.high += n.low == 0 ? 1U : 0U;
    assert((n.low | n.high) != 0); // there is room
}

template <class Float>
Float scale(bool negative, int exponent, const Wide& coefficient) noexcept {
    using Format = BinaryFormat<Float>;
    const int bits = countBits(coefficient);
    const Wide w = cutBits(normalise(coefficient, bits), countedBits<Float>(exponent));
    const FloatBelow below = placeProduct<Float>(w, bits - 1, exponent);
    bool up = below.place == Place::ABOVE_MIDDLE;
    if (below.place == Place::UNKNOWN) {
        const int unit = std::max(below.exponent, Format::MIN_EXPONENT) - Format::PRECISION + 1;
        const auto order = compareWithMiddle(w, bits - 128, exponent, below.v << 1U | 1U, unit - 1);
        up = order > 0 || (order == 0 && (below.v & 1U) != 0);
    }
    return assemble<Float>(negative, below.exponent, below.v, up);
}

} // namespace

template <class Float>
Float packBinary(bool negative, int exponent, const Wide& coefficient, unsigned rounding) noexcept {
    big_uint integer;
    integer.set_size(4); // has room for eight
    words::store(integer.data(), coefficient.low);
    words::store(integer.data() + 2, coefficient.high);
    return packBinary<Float>(negative, exponent, integer,
                             static_cast<unsigned>(countBits(coefficient)), rounding);
}

template float packBinary<float>(bool, int, const Wide&, unsigned) noexcept;
template double packBinary<double>(bool, int, const Wide&, unsigned) noexcept;

template <class Float>
Float makeBinary(bool negative, int exponent, const Wide& coefficient, unsigned rounding) noexcept {
    using Format = BinaryFormat<Float>;
    if (exponent == EXPONENT_OVERFLOW) {
        return signedInfinity<Float>(negative);
    }
    if (coefficient.high == 0 && isNative<Float>(exponent, coefficient.low)) {
        return makeNatively<Float>(negative, exponent, coefficient.low);
    }
    if (countBits(coefficient) == 0 || exponent < MIN_TABLE_POW10) {
        assert(exponent >= MIN_TABLE_POW10 || countBits(coefficient) <= 90);
        return signedZero<Float>(negative);
    }
    if (exponent > Format::MAX_DECIMAL) {
        return signedInfinity<Float>(negative);
    }
    if (exponent == 0) {
        return packBinary<Float>(negative, 0, coefficient, rounding);
    }
    Wide rounded = coefficient;
    if (roundsUp(rounding, (coefficient.low & 1U) != 0)) {
        increment(rounded);
    }
    return scale<Float>(negative, exponent, rounded);
}

template float makeBinary<float>(bool, int, const Wide&, unsigned) noexcept;
template double makeBinary<double>(bool, int, const Wide&, unsigned) noexcept;

} // namespace orv::detail

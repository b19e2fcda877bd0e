// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Products of 128-bit estimates, with their bounds.
///
/// All estimates are lower bounds. With w, p and l for what W, P and L estimate, w < W + 1 and
/// p < P + 1: the exact product is below W * P + W + P + 1, that is, w * p / 2^128 is less than
/// W * P / 2^128 + 2. L leaves out fractions of three partial products, each less than 1, so
/// l < L + 5.
///
/// L has at least 127 bits, so a double leaves 74 bits of it: where these lie 5 or more below one
/// half, or above it, every number from L to L + 5 rounds alike. (One that carries into the bits
/// that are kept is rounded up on both sides of the carry.)
#include "orv/liborvxx/number/detail/decimal_estimate.h"

namespace orv::detail {

using words::Limb;
using words::Wide;

namespace {

constexpr Limb ALL_ONES = std::numeric_limits<Limb>::max();

// Bounds what a product of estimates leaves out: see above.
constexpr Limb SLACK = 5;

} // namespace

template <class Float>
FloatBelow placeProduct(const Wide& w, int top, int exponent) noexcept {
    using Format = BinaryFormat<Float>;
    assert(w.high >> 63U != 0);
    const Wide& p = pow10Significand(exponent);
    const Limb low = words::multiplyLimbs(w.low, p.high).high;
    const Limb middle = words::multiplyLimbs(w.high, p.low).high;
    const Wide l = words::multiplyAdd(w.high, p.high, low, middle);

    const int carry = static_cast<int>(l.high >> 63U);
    top += floorLog2Pow10(exponent) + carry;
    if (top > Format::MAX_EXPONENT) {
        return {0, Format::MAX_EXPONENT + 1, Place::BELOW_MIDDLE};
    }
    constexpr int SUBNORMAL = Format::MIN_EXPONENT - 1;
    if (top < Format::MIN_EXPONENT - Format::PRECISION - 1) { // below half of the smallest
        return {0, SUBNORMAL, Place::BELOW_MIDDLE};
    }
    int cut = 63 + carry - Format::PRECISION; // of the upper limb
    if (top < Format::MIN_EXPONENT) {
        cut += Format::MIN_EXPONENT - top;
        top = SUBNORMAL;
    }
    if (cut >= 64) {
        return {0, SUBNORMAL, Place::UNKNOWN};
    }
    const auto shift = static_cast<unsigned>(cut);
    const Limb rest = l.high & ((Limb{1} << shift) - 1);
    const Limb half = Limb{1} << (shift - 1);
    const bool open =
        (rest == half && l.low == 0) || (rest == half - 1 && l.low > ALL_ONES - SLACK);
    return {l.high >> shift, top,
            open           ? Place::UNKNOWN
            : rest >= half ? Place::ABOVE_MIDDLE
                           : Place::BELOW_MIDDLE};
}

template FloatBelow placeProduct<float>(const Wide&, int, int) noexcept;
template FloatBelow placeProduct<double>(const Wide&, int, int) noexcept;

} // namespace orv::detail

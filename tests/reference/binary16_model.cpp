// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The model of binary16.
#include "tests/reference/binary16_model.h"

#include <cmath>
#include <limits>

namespace orvtest {

namespace {

constexpr unsigned INFINITE_BITS = 0x7C00;

} // namespace

double binary16Magnitude(unsigned magnitudeBits) {
    const int field = static_cast<int>(magnitudeBits >> 10U);
    const int fraction = static_cast<int>(magnitudeBits & 0x3FFU);
    return field == 0 ? std::ldexp(fraction, -24) : std::ldexp(1024 + fraction, field - 25);
}

Binary16Rounding::Binary16Rounding() {
    for (unsigned bits = 0; bits < INFINITE_BITS; ++bits) {
        limits_.push_back((binary16Magnitude(bits) + binary16Magnitude(bits + 1)) / 2);
    }
    limits_.push_back(std::numeric_limits<double>::infinity());
}

std::uint16_t Binary16Rounding::nearest(double value) const {
    if (std::isnan(value)) {
        return 0x7E00;
    }
    unsigned low = 0;
    unsigned high = INFINITE_BITS;
    while (low < high) {
        const unsigned middle = (low + high) / 2;
        if (isAbove(std::fabs(value), middle)) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return static_cast<std::uint16_t>(std::signbit(value) ? low | 0x8000U : low);
}

} // namespace orvtest

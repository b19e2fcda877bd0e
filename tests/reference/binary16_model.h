// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief binary16 by its definition: the values that there are, and the nearest of them.
#ifndef ORV_TESTS_REFERENCE_BINARY16_MODEL_H
#define ORV_TESTS_REFERENCE_BINARY16_MODEL_H

#include <cstdint>
#include <vector>

namespace orvtest {

/// The value of finite bits, by the formula of IEEE 754; for 0x7C00 the 65536 that would come next.
double binary16Magnitude(unsigned magnitudeBits);

/// Rounding to the nearest by looking it up between which two values a number lies.
class Binary16Rounding {
public:
    Binary16Rounding();

    /// Whether a magnitude belongs to greater bits than \p bits.
    bool isAbove(double magnitude, unsigned bits) const {
        const double limit = limits_[bits];
        return magnitude > limit || (magnitude == limit && bits % 2 != 0);
    }

    /// The bits of what is nearest to \p value, ties to even; 0x7E00 for any NaN.
    std::uint16_t nearest(double value) const;

private:
    // Half way between the values of bits i and i + 1, exact in a double; nothing above infinity.
    std::vector<double> limits_;
};

} // namespace orvtest

#endif

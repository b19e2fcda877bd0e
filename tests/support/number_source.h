// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Random and adversarial numbers, the same in every run.
#ifndef ORV_TESTS_SUPPORT_NUMBER_SOURCE_H
#define ORV_TESTS_SUPPORT_NUMBER_SOURCE_H

#include "orv/liborvxx/number/big_uint.h"

#include <cstdint>

namespace orvtest {

/// A source of pseudo-random numbers (SplitMix64), half of them of shapes that break arithmetic.
class NumberSource {
public:
    explicit NumberSource(std::uint64_t seed) : state_(seed) {}

    /// 64 random bits.
    std::uint64_t bits() {
        std::uint64_t z = state_ += 0x9E3779B97F4A7C15U;
        z = (z ^ z >> 30U) * 0xBF58476D1CE4E5B9U;
        z = (z ^ z >> 27U) * 0x94D049BB133111EBU;
        return z ^ z >> 31U;
    }

    /// From 0 to \p limit - 1.
    unsigned below(unsigned limit) {
        return static_cast<unsigned>((bits() >> 32U) * std::uint64_t{limit} >> 32U);
    }

    /// From \p low to \p high, both included.
    int between(int low, int high) {
        return low + static_cast<int>(below(static_cast<unsigned>(high - low) + 1));
    }

    /// A number of words: mostly a few, at times up to 70.
    unsigned size() { return 1 + below(below(8) == 0 ? 70 : 6); }

    bool coin() { return (bits() & 1U) != 0; }

    /// A number of exactly \p size words: random words; long runs of ones and of zeros; all ones;
    /// a single bit, or all but one; a few zero words at the top, or nothing but zeros.
    orv::big_uint number(unsigned size);

    /// A number of 1 to \p maxSize words.
    orv::big_uint numberUpTo(unsigned maxSize) { return number(1 + below(maxSize)); }

private:
    std::uint64_t state_;
};

} // namespace orvtest

#endif

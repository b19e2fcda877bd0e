// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The powers of ten that long numbers are divided by on the way to decimal text.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_DECIMAL_POWERS_H
#define ORV_LIBORVXX_NUMBER_WORDS_DECIMAL_POWERS_H

#include "orv/liborvxx/number/words/long_division.h"

#include <array>
#include <cassert>
#include <cstddef>
#include <memory>

namespace orv::words {

/// The digits that text is made in at a time: 10^19 fills a limb.
inline constexpr std::size_t DECIMAL_GROUP_DIGITS = 19;
/// 10^19, which is normalised as it stands.
inline constexpr Limb DECIMAL_GROUP = 10000000000000000000U;
/// Its reciprocal as `reciprocal` makes it.
inline constexpr Limb DECIMAL_GROUP_RECIPROCAL = 0xD83C94FB6D2AC34AU;

/// 10^digits = divisor * 2^(32 * zeros - shift)
struct DecimalPower {
    std::size_t digits = 0;
    /// Words, an even number.
    unsigned zeros = 0;
    /// Bits, below 64.
    unsigned shift = 0;
    LongDivisor divisor;
};

/// Powers 10^(19 * e), with e half the groups of a text, a quarter, and so on, rounded up, down to
/// MAX_LAST_GROUPS or less.
class DecimalPowers {
public:
    /// The greatest e of the last power.
    static constexpr unsigned MAX_LAST_GROUPS = 29;

    /// \pre \p digits exceeds those of MAX_LAST_GROUPS groups, and is at most 631297, the number of
    ///      digits of a number of 65536 words
    /// \exception std::bad_alloc if there is no memory
    explicit DecimalPowers(std::size_t digits);

    const DecimalPower& operator[](unsigned level) const noexcept {
        assert(level < count_);
        return powers_[level];
    }

    unsigned count() const noexcept { return count_; }

private:
    // Halved eleven times, 33227 groups are 17.
    static constexpr unsigned MAX_COUNT = 11;

    void setLast(unsigned groups) noexcept;
    void set(unsigned level, unsigned groups) noexcept;
    void normalise(unsigned level, unsigned groups) noexcept;

    unsigned count_ = 0;
    std::array<DecimalPower, MAX_COUNT> powers_;

    // 5^(19 * e) of each level, and its size; where normalised divisors go; and space for a
    // product.
    struct Place {
        Word* five = nullptr;
        unsigned n = 0;
        Word* divisor = nullptr;
    };
    std::array<Place, MAX_COUNT> places_;
    Word* product_ = nullptr;
    std::unique_ptr<Word[]> block_;
};

} // namespace orv::words

#endif

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The digits of a number that is read, as many as can decide how it is rounded.
#ifndef ORV_LIBORVXX_LOCALE_DETAIL_SIGNIFICANT_DIGITS_H
#define ORV_LIBORVXX_LOCALE_DETAIL_SIGNIFICANT_DIGITS_H

#include "orv/liborvxx/number/words/limb.h"

#include <cstdint>
#include <limits>

namespace orv::detail {

/// Decimal digits from the first one that is not 0, as many as there is room for. Of the others it
/// is known how many they are, and whether all are 0.
class DecimalDigits {
public:
    static constexpr unsigned RADIX = 10;
    /// How many make a limb.
    static constexpr unsigned IN_LIMB = 19;

    DecimalDigits(const DecimalDigits&) = delete;
    DecimalDigits& operator=(const DecimalDigits&) = delete;

    /// Another digit to the right.
    void add(unsigned digit) noexcept {
        if (inLast_ == IN_LIMB && !startLimb()) {
            ++dropped_;
            hasRest_ |= digit != 0;
            return;
        }
        last_ = last_ * RADIX + digit;
        inLast_ += last_ != 0 || full_ != 0 ? 1U : 0U;
    }

    /// Digits that were not kept.
    std::int64_t dropped() const noexcept { return dropped_; }
    /// Whether one of these is not 0.
    bool hasRest() const noexcept { return hasRest_; }

    /// The limbs of IN_LIMB digits each, but the last one.
    /// @{
    const words::Limb* fullLimbs() const noexcept { return limbs_; }
    unsigned fullCount() const noexcept { return full_; }
    /// @}

    /// The last limb, which has up to IN_LIMB digits; 0 without digits if the number is 0.
    /// @{
    words::Limb last() const noexcept { return last_; }
    unsigned inLast() const noexcept { return inLast_; }
    /// @}

    /// Digits that were kept.
    unsigned count() const noexcept { return full_ * IN_LIMB + inLast_; }

protected:
    DecimalDigits(words::Limb* limbs, unsigned capacity) noexcept
        : limbs_(limbs), capacity_(capacity) {}
    ~DecimalDigits() = default;

private:
    bool startLimb() noexcept {
        if (full_ == capacity_) {
            return false;
        }
        limbs_[full_++] = last_;
        last_ = 0;
        inLast_ = 0;
        return true;
    }

    words::Limb last_ = 0;
    unsigned inLast_ = 0;
    unsigned full_ = 0;
    std::int64_t dropped_ = 0;
    bool hasRest_ = false;
    words::Limb* limbs_;
    unsigned capacity_;
};

/// The most digits of a number in the middle between two neighbours of the type: 768 for `double`.
/// It has a digit for each bit behind the point, less the zeros that a number which is not normal
/// has there.
template <class Float>
inline constexpr int MIDDLE_DIGITS = [] {
    using Limits = std::numeric_limits<Float>;
    static_assert(Limits::radix == 2);
    const int bits = Limits::digits - Limits::min_exponent + 1;
    const std::int64_t zeros = std::int64_t{-Limits::min_exponent} * 30102 / 100000;
    return bits - static_cast<int>(zeros);
}();

/// Decimal digits with room for all that can decide how a Float is rounded, so that of the others
/// no more counts than whether all are 0.
template <class Float>
class DecimalDigitsFor : public DecimalDigits {
public:
    // Not initialised: a limb is written before it counts.
    DecimalDigitsFor() noexcept : DecimalDigits(room_, LIMBS) {} // NOLINT(*-member-init)

private:
    static constexpr unsigned LIMBS = unsigned{MIDDLE_DIGITS<Float>} / IN_LIMB;

    words::Limb room_[LIMBS];
};

/// Hexadecimal digits from the first one that is not 0, up to 32.
class HexDigits {
public:
    static constexpr unsigned RADIX = 16;

    /// Another digit to the right.
    void add(unsigned digit) noexcept {
        if (value_.high >> 60U != 0) {
            ++dropped_;
            hasRest_ |= digit != 0;
            return;
        }
        value_.high = value_.high << 4U | value_.low >> 60U;
        value_.low = value_.low << 4U | digit;
    }

    /// Digits that were not kept.
    std::int64_t dropped() const noexcept { return dropped_; }
    /// Whether one of these is not 0.
    bool hasRest() const noexcept { return hasRest_; }
    /// The digits that were kept.
    const words::Wide& value() const noexcept { return value_; }

private:
    words::Wide value_{0, 0};
    std::int64_t dropped_ = 0;
    bool hasRest_ = false;
};

} // namespace orv::detail

#endif

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The exact decimal digits of binary floating-point numbers, rounded where they end.
#ifndef ORV_LIBORVXX_LOCALE_DETAIL_DECIMAL_EXPANSION_H
#define ORV_LIBORVXX_LOCALE_DETAIL_DECIMAL_EXPANSION_H

#include "orv/liborvxx/number/words/limb.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orv::detail {

/// The number coefficient / 2^64 * 2^exponent, from 2^(exponent - 1) to less than 2^exponent: the
/// top bit of the coefficient is set. Zero has the coefficient 0.
///
/// A type of more than 64 bits has its other bits in `rest`, with the same meaning of the top bit.
struct BinaryFraction {
    words::Limb coefficient;
    words::Limb rest;
    int exponent;
};

/// The fraction of a finite magnitude. Defined for `double` and `long double`.
/// @{
BinaryFraction fractionOf(double magnitude) noexcept;
BinaryFraction fractionOf(long double magnitude) noexcept;
/// @}

/// Digits d.ddd * 10^exponent of a number, rounded to the nearest, ties to even.
///
/// Up to 18 digits of numbers from about 10^-330 to 10^330, of up to 64 significant bits, take no
/// memory from the heap; others do unless they are few. The time is that of the product of whole
/// numbers, and their text, which hold all digits of the number.
class DecimalExpansion {
public:
    DecimalExpansion() noexcept = default;
    DecimalExpansion(const DecimalExpansion&) = delete;
    DecimalExpansion& operator=(const DecimalExpansion&) = delete;
    ~DecimalExpansion() = default;

    /// Rounds to \p count digits, at least 1.
    /// \exception std::bad_alloc
    void roundToDigits(const BinaryFraction& number, std::int64_t count);

    /// Rounds to a multiple of 10^-\p places, at least 0 places.
    /// \exception std::bad_alloc
    void roundToPlaces(const BinaryFraction& number, std::int64_t places);

    /// The digits, of which the first is not 0. None if the number is 0. Zeros may be missing at
    /// the end.
    std::string_view digits() const noexcept { return digits_; }
    /// The power of ten that the first digit counts; 0 if there is none.
    std::int64_t exponent() const noexcept { return exponent_; }

private:
    bool roundDigitsQuickly(const BinaryFraction& number, std::int64_t count);
    bool roundPlacesQuickly(const BinaryFraction& number, std::int64_t places);
    void setFew(words::Limb integer, int scale) noexcept;
    void expand(const BinaryFraction& number);
    void cutTo(std::int64_t count);
    void setZero() noexcept;

    std::string_view digits_;
    std::int64_t exponent_ = 0;
    char few_[20];
    std::string many_;
};

} // namespace orv::detail

#endif

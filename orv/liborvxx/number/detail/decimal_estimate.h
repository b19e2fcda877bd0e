// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Coefficient * 10^exponent in 128 bits: the fast road from decimal to binary, which knows
/// where it cannot decide.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_DECIMAL_ESTIMATE_H
#define ORV_LIBORVXX_NUMBER_DETAIL_DECIMAL_ESTIMATE_H

#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/words/limb.h"

#include <optional>

namespace orv::detail {

/// The exponents for which there are estimates.
/// @{
inline constexpr int MIN_ESTIMATED_EXPONENT = -351;
inline constexpr int MAX_ESTIMATED_EXPONENT = 350;
/// @}

/// A number between significand * 2^exponent and (significand + slack) * 2^exponent, with the slack
/// that the maker tells.
struct Estimate {
    words::Wide significand;
    int exponent;
};

/// 10^n with a slack of 2, which is never reached; the significand is 2^126 at least.
/// \pre \p n is from MIN_ESTIMATED_EXPONENT to MAX_ESTIMATED_EXPONENT
Estimate estimatePow10(int n) noexcept;

/// The floor of log2(10^n), for \p n from -400 to 400: 217706 / 2^16 is near enough to log2(10).
constexpr int floorLog2OfPow10(int n) noexcept {
    return n * 217706 >> 16;
}

/// The Float (`float` or `double`) nearest to coefficient * 10^exponent, ties to even, with the
/// coefficient cut to its top \p kept bits; nothing if 128 bits do not tell it: for ties, for what
/// is within 2^-70 of a tie, and next to half of the smallest subnormal. Allocates nothing.
/// \param bits the coefficient's bit length, from 1 to 2^24
/// \pre the exponent is one that has estimates
template <class Float>
std::optional<Float> roundEstimate(bool negative, int exponent, const big_uint& coefficient,
                                   unsigned bits, unsigned kept) noexcept;

extern template std::optional<float> roundEstimate<float>(bool, int, const big_uint&, unsigned,
                                                          unsigned) noexcept;
extern template std::optional<double> roundEstimate<double>(bool, int, const big_uint&, unsigned,
                                                            unsigned) noexcept;

} // namespace orv::detail

#endif

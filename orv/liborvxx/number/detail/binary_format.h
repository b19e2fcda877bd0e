// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The formats of `float` and `double` in numbers, and values made of their fields.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_BINARY_FORMAT_H
#define ORV_LIBORVXX_NUMBER_DETAIL_BINARY_FORMAT_H

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace orv::detail {

/// 10^0 and so on, as long as they are exact.
template <class Float, std::size_t MAX>
constexpr auto exactPowersOf10() noexcept {
    std::array<Float, MAX + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) {
        powers[i] = powers[i - 1] * 10;
    }
    return powers;
}

template <class Float>
struct BinaryFormat;

template <>
struct BinaryFormat<float> {
    using Bits = std::uint32_t;
    static constexpr int PRECISION = 24;       ///< bits of a coefficient, the implied one included
    static constexpr int MAX_EXPONENT = 127;   ///< of the top bit
    static constexpr int MIN_EXPONENT = -126;  ///< of the top bit of normal numbers
    static constexpr int MAX_DECIMAL = 38;     ///< 10^39 and more are infinite
    static constexpr int MIN_DECIMAL = -46;    ///< what is less than 10^-46 is zero
    static constexpr int MAX_EXACT_POW10 = 10; ///< 10^10 has 24 bits and zeros
    static constexpr auto EXACT_POW10 = exactPowersOf10<float, std::size_t{MAX_EXACT_POW10}>();
};

template <>
struct BinaryFormat<double> {
    using Bits = std::uint64_t;
    static constexpr int PRECISION = 53;
    static constexpr int MAX_EXPONENT = 1023;
    static constexpr int MIN_EXPONENT = -1022;
    static constexpr int MAX_DECIMAL = 308;
    static constexpr int MIN_DECIMAL = -324;
    static constexpr int MAX_EXACT_POW10 = 22; ///< 10^22 has 52 bits and zeros
    static constexpr auto EXACT_POW10 = exactPowersOf10<double, std::size_t{MAX_EXACT_POW10}>();
};

static_assert(std::numeric_limits<float>::is_iec559 && std::numeric_limits<double>::is_iec559);

/// \p magnitude with a sign bit.
template <class Float>
constexpr Float withSign(bool negative, typename BinaryFormat<Float>::Bits magnitude) noexcept {
    using Bits = typename BinaryFormat<Float>::Bits;
    constexpr int SIGN = std::numeric_limits<Bits>::digits - 1;
    return std::bit_cast<Float>(static_cast<Bits>(Bits{negative} << SIGN | magnitude));
}

template <class Float>
constexpr Float signedZero(bool negative) noexcept {
    return withSign<Float>(negative, 0);
}

template <class Float>
constexpr Float signedInfinity(bool negative) noexcept {
    using Bits = typename BinaryFormat<Float>::Bits;
    return withSign<Float>(negative, std::bit_cast<Bits>(std::numeric_limits<Float>::infinity()));
}

/// The number with the coefficient \p v, of `PRECISION` bits for normal numbers and fewer for
/// subnormal ones, whose bit PRECISION - 1 counts 2^\p exponent, or the next larger one if \p
/// roundUp.
///
/// 1 is added to the fields as one integer. The carry out of the fraction is what makes the largest
/// subnormal number normal, a coefficient of all ones a power of two, and the largest finite
/// number infinite.
/// \param exponent from MIN_EXPONENT to MAX_EXPONENT, or MIN_EXPONENT - 1 for a subnormal number
template <class Float>
constexpr Float assemble(bool negative, int exponent, std::uint64_t v, bool roundUp) noexcept {
    using Format = BinaryFormat<Float>;
    using Bits = typename Format::Bits;
    constexpr int FRACTION = Format::PRECISION - 1;
    const int biased = exponent - Format::MIN_EXPONENT + 1;
    const auto field = static_cast<Bits>(biased);
    const auto fraction = static_cast<Bits>(v) & ((Bits{1} << FRACTION) - 1);
    return withSign<Float>(negative, (field << FRACTION | fraction) + (roundUp ? 1U : 0U));
}

} // namespace orv::detail

#endif

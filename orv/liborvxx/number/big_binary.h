// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_binary`: a floating-point number of chosen precision, and fixed-point helpers beside
/// it. For use inside the library.
///
/// It serves where powers of ten are needed approximately, but cheaply and always alike: each
/// operation says to the bit what it gives.
#ifndef ORV_LIBORVXX_NUMBER_BIG_BINARY_H
#define ORV_LIBORVXX_NUMBER_BIG_BINARY_H

#include "orv/liborvxx/number/big_uint.h"

#include <cstdint>

namespace orv {

/// A number `coefficient` * 2^`exponent`.
///
/// The same value has several forms: trailing zero bits of the coefficient are kept. Zero is a zero
/// coefficient with exponent 0.
///
/// Exponents of results must fit 32 bits: that is asserted, and without assertions they wrap.
/// Memory that runs out passes through as `std::bad_alloc`; numbers of up to 128 bits ask for none.
struct big_binary {
    /// Of the coefficient's lowest bit.
    std::int32_t exponent = 0;
    big_uint coefficient;

    /// Zero.
    big_binary() noexcept = default;

    /// The number rounded to at most \p bits bits, ties to even.
    ///
    /// A coefficient that has no more bits stays as it is, zero words and all. Where rounding up
    /// gives one bit more, the last of them, a 0, is shifted out. The result takes over the memory
    /// of \p number unless its words would be far more than \p bits asks for.
    /// \pre \p bits is not 0
    big_binary(int power, big_uint&& number, unsigned int bits);

    /// The coefficient in the width that \p bits needs, rounded up to whole words.
    /// \exception std::logic_error "big_binary::get_coefficient(unsigned) would discard leading
    ///            bits" if it has more significant words
    /// \exception std::invalid_argument "big_uint::make_uninitialized: size == 0" if \p bits is 0
    /// \exception std::length_error "big_uint: size > max_size()"
    big_uint get_coefficient(unsigned int bits) const;

    /// -1, 0 or 1, by value: forms may differ.
    static int compare(const big_binary& a, const big_binary& b);

    /// \p a * \p b, rounded as the constructor does.
    /// \pre \p precision is not 0
    /// \exception std::length_error "big_uint: size > max_size()" if the widths of the two
    ///            coefficients add up to more than 65535 words
    static big_binary multiply(const big_binary& a, const big_binary& b, unsigned int precision);

    /// \p a / \p b, correctly rounded to exactly \p precision bits, ties to even; exact quotients
    /// have their trailing zeros too.
    /// \pre \p precision is not 0
    /// \exception std::overflow_error "divide by zero"
    /// \exception std::length_error "big_uint: size > max_size()" if the dividend needs more than
    ///            65535 words to give so many bits
    static big_binary divide(const big_binary& a, const big_binary& b, unsigned int precision);

    /// 10^n, rounded to \p precision bits; 0 if the magnitude of \p n is 8192 or more.
    ///
    /// Made by squaring with 7 bits more than asked for, and 4 for each squaring (Knuth, 4.6.3).
    /// The result is exact if 10^n has no more than \p precision bits; else an approximation that
    /// is mostly, but not always, the nearest, because it is rounded several times.
    /// \pre \p precision is not 0
    /// \exception std::length_error "big_uint: size > max_size()" if \p n is negative and
    ///            \p precision about the widest number's or more
    static big_binary binary_pow10(int n, unsigned int precision);

    /// `binary_pow10(n, precision)`, for precisions of 64, 128 and 256 and \p n from -100 to 100
    /// out of a cache. For 0 and 1 the exact 1 and 10 at every precision. Safe from any number of
    /// threads.
    static big_binary cached_pow10(int n, unsigned int precision);
};

namespace detail {

/// Whether cutting the low \p bits bits of \p c rounds up: to the nearest, ties to even.
bool round_up_half_even(const big_uint& c, unsigned int bits) noexcept;

/// Compares fixed-point numbers that may be a little wrong.
/// \return -1 or 1; 0 if the numbers are equal, or the highest set bit of their difference is
///         bit \p tolerance or one below it. A negative \p tolerance asks for the exact answer.
/// \pre the widths are equal
int compare_within(const big_uint& a, const big_uint& b, int tolerance) noexcept;

/// Gives a fixed-point number with \p from_fraction bits of fraction \p to_fraction bits, in a
/// width of \p words words. What goes beyond the width at either end is lost.
/// \exception std::invalid_argument "big_uint::make_uninitialized: size == 0" if \p words is 0
/// \exception std::length_error "big_uint: size > max_size()"
void rescale(big_uint& c, int from_fraction, int to_fraction, unsigned int words);

} // namespace detail

} // namespace orv

#endif

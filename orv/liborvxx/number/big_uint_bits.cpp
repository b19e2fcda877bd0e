// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: bit queries, bit operations, shifts.
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/words/bits.h"
#include "orv/liborvxx/number/words/compare.h"
#include "orv/liborvxx/number/words/shift.h"

namespace orv {

int big_uint::highest_set_bit() const noexcept {
    return words::highestSetBit(data_, size_);
}

int big_uint::lowest_set_bit() const noexcept {
    return words::lowestSetBit(data_, size_);
}

unsigned int big_uint::bit_count() const noexcept {
    return words::countBits(data_, size_);
}

bool big_uint::is_zero() const noexcept {
    return words::isZero(data_, size_);
}

bool big_uint::is_power_of_two() const noexcept {
    return words::isPowerOfTwo(data_, size_);
}

unsigned int big_uint::compute_rounding_info(unsigned int bits) const noexcept {
    return words::computeRoundingInfo(data_, size_, bits);
}

void big_uint::bit_and(const big_uint& a, const big_uint& b) noexcept {
    assert(a.size_ >= size_ && b.size_ >= size_);
    words::bitAnd(data_, a.data_, b.data_, size_);
}

void big_uint::bit_not(const big_uint& a) noexcept {
    assert(a.size_ >= size_);
    words::bitNot(data_, a.data_, size_);
}

void big_uint::shift_left() noexcept {
    shift_left(1);
}

void big_uint::shift_right() noexcept {
    shift_right(1);
}

void big_uint::shift_left(unsigned int n) noexcept {
    words::shiftLeft(data_, size_, data_, size_, n);
}

void big_uint::shift_right(unsigned int n) noexcept {
    words::shiftRight(data_, size_, data_, size_, n);
}

void big_uint::shift_left(const big_uint& a, unsigned int n) noexcept {
    words::shiftLeft(data_, size_, a.data_, a.size_, n);
}

void big_uint::shift_right(const big_uint& a, unsigned int n) noexcept {
    words::shiftRight(data_, size_, a.data_, a.size_, n);
}

} // namespace orv

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: division.
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/words/divide.h"

namespace orv {

unsigned int big_uint::divide(unsigned int divisor) {
    return words::divide(data_, size_, divisor);
}

unsigned int big_uint::divide_by_10() noexcept {
    return words::divideBy10(data_, size_);
}

void big_uint::divide(const big_uint& a, const big_uint& b) {
    divide(a, a.size_, b, b.size_);
}

void big_uint::divide(const big_uint& a, const big_uint& b, big_uint& r) {
    divide(a, a.size_, b, b.size_, r);
}

void big_uint::divide(const big_uint& a, unsigned int an, const big_uint& b, unsigned int bn) {
    assert(an <= a.size_ && bn <= b.size_);
    words::divide(data_, size_, nullptr, 0, a.data_, an, b.data_, bn);
}

void big_uint::divide(const big_uint& a, unsigned int an, const big_uint& b, unsigned int bn,
                      big_uint& r) {
    assert(an <= a.size_ && bn <= b.size_);
    words::divide(data_, size_, r.data_, r.size_, a.data_, an, b.data_, bn);
}

} // namespace orv

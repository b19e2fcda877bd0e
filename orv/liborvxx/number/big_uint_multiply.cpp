// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: multiplication.
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/words/multiply.h"

namespace orv {

unsigned int big_uint::multiply(unsigned int factor) noexcept {
    return words::multiply(data_, size_, factor);
}

unsigned int big_uint::multiply_by_10() noexcept {
    return multiply(10);
}

unsigned int big_uint::multiply_by_100() noexcept {
    return multiply(100);
}

void big_uint::multiply(const big_uint& a, const big_uint& b) noexcept {
    words::multiply(data_, size_, a.data_, a.size_, b.data_, b.size_);
}

} // namespace orv

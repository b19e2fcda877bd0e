// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Exact comparison in arrays of fixed size. Powers of ten go to the side where they make
/// integers.
#include "orv/liborvxx/number/detail/exact_tie.h"

#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/detail/pow10_table.h"

#include <array>
#include <bit>
#include <cassert>
#include <cstddef>

namespace orv::detail {

namespace {

using words::Limb;
using words::Wide;

// An integer of up to 1024 bits: 5^351 has 816, and is multiplied by no more than 128.
class StackInteger {
public:
    explicit StackInteger(const Wide& value) noexcept : limbs_{value.low, value.high} {
        size_ = value.high != 0 ? 2 : 1;
    }

    void multiply(Limb factor) noexcept {
        Limb carry = 0;
        for (std::size_t i = 0; i < size_; ++i) {
            const Wide product = words::multiplyAdd(limbs_[i], factor, carry, 0);
            limbs_[i] = product.low;
            carry = product.high;
        }
        append(carry);
    }

    void multiplyByPow5(int n) noexcept {
        // The highest power of 5 in 64 bits.
        constexpr int STEP = static_cast<int>(big_uint::pow5_table.size()) - 1;
        for (; n > STEP; n -= STEP) {
            multiply(big_uint::pow5_table[STEP]);
        }
        multiply(big_uint::pow5_table[static_cast<std::size_t>(n)]);
    }

    void shiftLeft(int bits) noexcept {
        const auto limbs = static_cast<std::size_t>(bits) / 64;
        multiply(Limb{1} << static_cast<unsigned>(bits) % 64);
        assert(size_ + limbs <= limbs_.size());
        for (std::size_t i = size_; i-- > 0;) {
            limbs_[i + limbs] = limbs_[i];
        }
        for (std::size_t i = 0; i < limbs; ++i) {
            limbs_[i] = 0;
        }
        size_ += limbs;
    }

    std::strong_ordering operator<=>(const StackInteger& other) const noexcept {
        if (size_ != other.size_) {
            return size_ <=> other.size_;
        }
        for (std::size_t i = size_; i-- > 0;) {
            if (limbs_[i] != other.limbs_[i]) {
                return limbs_[i] <=> other.limbs_[i];
            }
        }
        return std::strong_ordering::equal;
    }

private:
    void append(Limb top) noexcept {
        if (top != 0) {
            assert(size_ < limbs_.size());
            limbs_[size_++] = top;
        }
    }

    std::array<Limb, 16> limbs_;
    std::size_t size_; // the top limb is not 0
};

} // namespace

std::strong_ordering compareWithMiddle(const Wide& number, int scale, int exponent, Limb middle,
                                       int middleScale) noexcept {
    assert((number.low != 0 || number.high != 0) && middle != 0);
    assert(exponent >= MIN_TABLE_POW10 && exponent <= MAX_TABLE_POW10);
    StackInteger left(number);
    StackInteger right({middle, 0});
    if (exponent >= 0) {
        left.multiplyByPow5(exponent);
    } else {
        right.multiplyByPow5(-exponent);
    }
    const int shift = scale + exponent - middleScale;
    if (shift >= 0) {
        left.shiftLeft(shift);
    } else {
        right.shiftLeft(-shift);
    }
    return left <=> right;
}

} // namespace orv::detail

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: comparison, addition, subtraction.
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/words/add.h"
#include "orv/liborvxx/number/words/compare.h"

namespace orv {

int big_uint::compare(const big_uint& other) const noexcept {
    return words::compare(data_, size_, other.data_, other.size_);
}

bool big_uint::equals(const big_uint& other) const noexcept {
    return words::equals(data_, size_, other.data_, other.size_);
}

bool big_uint::is_equal(unsigned int value) const noexcept {
    assert(size_ > 0);
    return data_[0] == value && words::leadingWordsAreZero(data_, size_);
}

bool big_uint::is_less(unsigned int value) const noexcept {
    assert(size_ > 0);
    return data_[0] < value && words::leadingWordsAreZero(data_, size_);
}

bool big_uint::is_greater(unsigned int value) const noexcept {
    assert(size_ > 0);
    return data_[0] > value || !words::leadingWordsAreZero(data_, size_);
}

bool big_uint::add(unsigned int value) noexcept {
    assert(size_ > 0);
    return words::add(data_, size_, value);
}

bool big_uint::add(const big_uint& b) noexcept {
    assert(size_ > 0 && b.size_ >= size_);
    return words::add(data_, data_, b.data_, size_);
}

bool big_uint::add(const big_uint& a, const big_uint& b) noexcept {
    return words::add(data_, size_, a.data_, a.size_, b.data_, b.size_);
}

int big_uint::subtract(const big_uint& b) noexcept {
    assert(b.size_ > 0 && b.size_ <= size_);
    return words::subtract(data_, size_, b.data_, b.size_) ? -1 : 0;
}

int big_uint::subtract(const big_uint& a, const big_uint& b) noexcept {
    return words::subtract(data_, size_, a.data_, a.size_, b.data_, b.size_);
}

bool big_uint::increment() noexcept {
    return words::increment(data_, size_);
}

bool big_uint::decrement() noexcept {
    return words::decrement(data_, size_);
}

} // namespace orv

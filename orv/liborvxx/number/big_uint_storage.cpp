// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: construction, assignment, width.
#include "orv/liborvxx/number/big_uint.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace orv {

big_uint::big_uint(noinit_t, unsigned int size) : big_uint(noinit_t(), size, size) {}

big_uint::big_uint(noinit_t, unsigned int size, unsigned int capacity) {
    alloc(size, capacity);
}

big_uint::big_uint(std::initializer_list<unsigned int> words)
    : big_uint(noinit_t(),
               static_cast<unsigned int>(std::min<std::size_t>(words.size(), max_size() + 1))) {
    std::copy(words.begin(), words.end(), data_);
}

big_uint::big_uint(const big_uint& other) : big_uint(noinit_t(), other.size_) {
    copy(other.data_, size_, data_);
}

big_uint::big_uint(big_uint&& other) noexcept {
    if (other.is_local()) {
        copy(other.data_, other.size_, alloc_local(other.size_));
        return;
    }
    data_ = other.data_;
    reserved_ = other.reserved_;
    size_ = other.size_;
    other.alloc_local(1);
}

big_uint& big_uint::operator=(const big_uint& other) {
    if (this != &other) {
        if (other.size_ > reserved_) {
            auto* const block = new unsigned int[other.size_];
            if (!is_local()) {
                delete[] data_;
            }
            data_ = block;
            reserved_ = other.size_;
        }
        size_ = other.size_;
        copy(other.data_, size_, data_);
    }
    return *this;
}

big_uint& big_uint::operator=(big_uint&& other) noexcept {
    if (this == &other) {
        return *this;
    }
    if (other.is_local()) {
        size_ = other.size_;
        copy(other.data_, size_, data_);
    } else if (is_local()) {
        data_ = other.data_;
        reserved_ = other.reserved_;
        size_ = other.size_;
        other.alloc_local(1);
    } else {
        std::swap(data_, other.data_);
        std::swap(reserved_, other.reserved_);
        std::swap(size_, other.size_);
    }
    return *this;
}

void big_uint::swap(big_uint& other) noexcept {
    if (this == &other) {
        return;
    }
    if (is_local() && other.is_local()) {
        std::swap_ranges(local_, local_ + std::max(size_, other.size_), other.local_);
    } else if (!is_local() && !other.is_local()) {
        std::swap(data_, other.data_);
    } else {
        big_uint& inside = is_local() ? *this : other;
        big_uint& outside = is_local() ? other : *this;
        copy(inside.local_, inside.size_, outside.local_);
        inside.data_ = outside.data_;
        outside.data_ = outside.local_;
    }
    std::swap(reserved_, other.reserved_);
    std::swap(size_, other.size_);
}

big_uint big_uint::make_uninitialized(unsigned int size) {
    return make_uninitialized(size, size);
}

big_uint big_uint::make_uninitialized(unsigned int size, unsigned int capacity) {
    if (size == 0) {
        throw std::invalid_argument("big_uint::make_uninitialized: size == 0");
    }
    if (capacity < size) {
        throw std::invalid_argument("big_uint::make_uninitialized: capacity < size");
    }
    return {noinit_t(), size, capacity};
}

void big_uint::reserve(unsigned int n) {
    if (n > reserved_) {
        reallocate(n);
    }
}

unsigned int* big_uint::set_size(unsigned int n) {
    if (n == 0) {
        throw std::invalid_argument("big_uint::set_size: new size must not be zero");
    }
    reserve(n);
    if (n > size_) {
        std::fill(data_ + size_, data_ + n, 0U);
    }
    size_ = static_cast<std::uint16_t>(n);
    return data_;
}

void big_uint::prepend(unsigned int word) {
    const unsigned int top = size_;
    set_size(top + 1)[top] = word;
}

void big_uint::trim() noexcept {
    while (size_ > 1 && data_[size_ - 1U] == 0) {
        --size_;
    }
}

// Gives an object that has no block its words, unset.
unsigned int* big_uint::alloc(unsigned int size, unsigned int capacity) {
    if (capacity <= MIN_RESERVED) {
        return alloc_local(size);
    }
    if (capacity > max_size()) {
        throw std::length_error("big_uint: size > max_size()");
    }
    data_ = new unsigned int[capacity];
    reserved_ = static_cast<std::uint16_t>(capacity);
    size_ = static_cast<std::uint16_t>(size);
    return data_;
}

unsigned int* big_uint::alloc_local(unsigned int size) noexcept {
    data_ = local_;
    reserved_ = MIN_RESERVED;
    size_ = static_cast<std::uint16_t>(size);
    return data_;
}

void big_uint::reallocate(unsigned int capacity) {
    if (capacity > max_size()) {
        throw std::length_error("big_uint::max_size() exceeded");
    }
    auto* const block = new unsigned int[capacity];
    copy(data_, size_, block);
    if (!is_local()) {
        delete[] data_;
    }
    data_ = block;
    reserved_ = static_cast<std::uint16_t>(capacity);
}

void big_uint::copy(const unsigned int* src, unsigned int n, unsigned int* dst) noexcept {
    std::copy(src, src + n, dst);
}

} // namespace orv

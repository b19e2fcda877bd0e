// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Buffers: bounds checks and block copies.
#include "orv/liborvxx/charset/buffer.h"

#include <algorithm>
#include <cstring>

namespace orv {

BufferOverflowError::BufferOverflowError() : std::logic_error("buffer overflow") {}
BufferOverflowError::~BufferOverflowError() = default;

BufferUnderflowError::BufferUnderflowError() : std::logic_error("buffer underflow") {}
BufferUnderflowError::~BufferUnderflowError() = default;

BufferBase::BufferBase(std::size_t position, std::size_t limit, std::size_t capacity) {
    init(position, limit, capacity);
}

void BufferBase::init(std::size_t position, std::size_t limit, std::size_t capacity) {
    if (position > limit) {
        throw std::invalid_argument("position > limit");
    }
    if (limit > capacity) {
        throw std::invalid_argument("limit > capacity");
    }
    position_ = position;
    limit_ = limit;
    capacity_ = capacity;
}

void BufferBase::badLimit() {
    throw std::invalid_argument("new_limit > capacity()");
}

void BufferBase::badPosition() {
    throw std::invalid_argument("new_position > limit()");
}

std::size_t BufferBase::check_index(std::size_t index, std::size_t n) const {
    if (index >= limit_ || limit_ - index < n) {
        throw std::out_of_range("index + num_bytes > limit()");
    }
    return index;
}

void BufferBase::underflow() {
    throw BufferUnderflowError();
}

void BufferBase::overflow() {
    throw BufferOverflowError();
}

namespace {

// Source and destination may lie in one array. Null pointers go with no elements.
template <typename E>
void moveElements(E* dest, const E* src, std::size_t n) {
    if (n != 0) {
        std::memmove(dest, src, n * sizeof(E));
    }
}

} // namespace

template <typename E>
void BasicBuffer<E>::init(E* data, std::size_t capacity) {
    init(data, 0, capacity, capacity);
}

template <typename E>
void BasicBuffer<E>::init(E* data, std::size_t position, std::size_t limit, std::size_t capacity) {
    BufferBase::init(position, limit, capacity);
    data_ = data;
}

template <typename E>
Buffer<const E>& BasicBuffer<E>::get(E* dest, std::size_t n) {
    // The hook may aim the buffer anew, so the array is looked at after it.
    const std::size_t index = next_get_index(n);
    moveElements(dest, data_ + index, n);
    return static_cast<Buffer<const E>&>(*this);
}

template <typename E>
Buffer<E>& BasicBuffer<E>::compact() {
    if (limit() < position()) {
        throw std::invalid_argument("new_position > limit()");
    }
    const std::size_t left = remaining();
    moveElements(data_, data_ + position(), left);
    BufferBase::init(left, capacity(), capacity());
    return static_cast<Buffer<E>&>(*this);
}

template <typename E>
Buffer<E>& BasicBuffer<E>::put(E value) {
    const std::size_t index = next_put_index(1);
    data_[index] = value;
    return static_cast<Buffer<E>&>(*this);
}

template <typename E>
Buffer<E>& BasicBuffer<E>::put(std::size_t index, E value) {
    data_[check_index(index, 1)] = value;
    return static_cast<Buffer<E>&>(*this);
}

template <typename E>
Buffer<E>& BasicBuffer<E>::put(const E* src, std::size_t n) {
    const std::size_t index = next_put_index(n);
    moveElements(data_ + index, src, n);
    return static_cast<Buffer<E>&>(*this);
}

template <typename E>
Buffer<E>& BasicBuffer<E>::put(Buffer<const E>& src) {
    return put(src, src.remaining());
}

template <typename E>
Buffer<E>& BasicBuffer<E>::put(Buffer<const E>& src, std::size_t n) {
    const std::size_t count = src.hasRemaining() ? std::min(n, src.remaining()) : 0;
    const std::size_t index = next_put_index(count);
    src.get(data_ + index, count);
    return static_cast<Buffer<E>&>(*this);
}

template class BasicBuffer<unsigned char>;
template class BasicBuffer<char16>;
template class Buffer<const unsigned char>;
template class Buffer<const char16>;
template class Buffer<unsigned char>;
template class Buffer<char16>;

} // namespace orv

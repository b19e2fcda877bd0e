// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Buffers: cursors over memory that they do not own, read and written by coders.
///
/// A buffer has a position, a limit and a capacity, 0 <= position <= limit <= capacity, counted in
/// elements. It allocates nothing and never grows. `Buffer<const E>` reads; `Buffer<E>` also writes
/// and is a `Buffer<const E>`, so it can be passed wherever one is read. Elements are
/// `unsigned char` or `char16`. A buffer belongs to one thread at a time.
#ifndef ORV_LIBORVXX_CHARSET_BUFFER_H
#define ORV_LIBORVXX_CHARSET_BUFFER_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/char16.h"

#include <cstddef>
#include <stdexcept>

namespace orv {

/// A relative write needs more room than there is: "buffer overflow".
class ORVXX_API BufferOverflowError : public std::logic_error {
public:
    BufferOverflowError();
    BufferOverflowError(const BufferOverflowError&) = default;
    BufferOverflowError& operator=(const BufferOverflowError&) = default;
    ~BufferOverflowError() override;
};

/// A relative read needs more elements than there are: "buffer underflow".
class ORVXX_API BufferUnderflowError : public std::logic_error {
public:
    BufferUnderflowError();
    BufferUnderflowError(const BufferUnderflowError&) = default;
    BufferUnderflowError& operator=(const BufferUnderflowError&) = default;
    ~BufferUnderflowError() override;
};

/// Position, limit and capacity, and the checks on them.
class ORVXX_API BufferBase {
public:
    virtual ~BufferBase() = default;

    /// Elements in the array.
    std::size_t capacity() const noexcept { return capacity_; }

    /// Index of the first element that must not be touched.
    std::size_t limit() const noexcept { return limit_; }

    /// Sets the limit and nothing else: a position beyond it stays there, `remaining()` then wraps,
    /// `hasRemaining()` is false and relative access finds no room.
    /// \exception std::invalid_argument "new_limit > capacity()"
    BufferBase& limit(std::size_t newLimit) {
        if (newLimit > capacity_) {
            badLimit();
        }
        limit_ = newLimit;
        return *this;
    }

    /// Index of the next element to read or write.
    std::size_t position() const noexcept { return position_; }

    /// \exception std::invalid_argument "new_position > limit()"
    BufferBase& position(std::size_t newPosition) {
        if (newPosition > limit_) {
            badPosition();
        }
        position_ = newPosition;
        return *this;
    }

    /// Elements from the position to the limit.
    std::size_t remaining() const noexcept { return limit_ - position_; }
    bool hasRemaining() const noexcept { return position_ < limit_; }

    /// Limit to the capacity, position to 0: ready to be filled.
    BufferBase& clear() noexcept {
        limit_ = capacity_;
        position_ = 0;
        return *this;
    }

    /// Limit to the position, position to 0: ready to read what was written.
    BufferBase& flip() noexcept {
        limit_ = position_;
        position_ = 0;
        return *this;
    }

    /// Position to 0: ready to be read again.
    BufferBase& rewind() noexcept {
        position_ = 0;
        return *this;
    }

protected:
    /// Position 0 and the limit at the capacity.
    explicit BufferBase(std::size_t capacity) noexcept
        : position_(0), limit_(capacity), capacity_(capacity) {}

    /// \exception std::invalid_argument "position > limit" or "limit > capacity", in this order
    BufferBase(std::size_t position, std::size_t limit, std::size_t capacity);
    BufferBase(const BufferBase&) = default;
    BufferBase& operator=(const BufferBase&) = default;

    /// Aims the buffer anew. Nothing is stored if it throws.
    /// \exception std::invalid_argument as the constructor
    void init(std::size_t position, std::size_t limit, std::size_t capacity);

    /// Takes \p n elements from the position on for reading and returns where they begin. While
    /// there are fewer, `underflow()` is called, which may provide more.
    std::size_t next_get_index(std::size_t n) {
        while (room() < n) {
            underflow();
        }
        return advance(n);
    }

    /// The same for writing, with `overflow()`.
    std::size_t next_put_index(std::size_t n) {
        while (room() < n) {
            overflow();
        }
        return advance(n);
    }

    /// \p index, if \p index is below the limit and \p n elements lie between the two.
    /// \exception std::out_of_range "index + num_bytes > limit()"
    std::size_t check_index(std::size_t index, std::size_t n) const;

    /// Called for a relative read that finds too few elements. Throws `BufferUnderflowError`; a
    /// derived class may refill the buffer and return, and the read goes on.
    virtual void underflow();

    /// Called for a relative write that finds too little room. Throws `BufferOverflowError`; a
    /// derived class may drain the buffer and return, and the write goes on.
    virtual void overflow();

private:
    // Unlike remaining(), 0 where the limit was set below the position.
    std::size_t room() const noexcept { return hasRemaining() ? remaining() : 0; }

    std::size_t advance(std::size_t n) noexcept {
        const std::size_t index = position_;
        position_ += n;
        return index;
    }

    [[noreturn]] static void badLimit();
    [[noreturn]] static void badPosition();

    std::size_t position_;
    std::size_t limit_;
    std::size_t capacity_;
};

// The export mark stands here too: Clang takes the visibility of the first declaration.
template <typename E>
class ORVXX_API Buffer;

/// The array and all element access. Reading is public; writing becomes so in `Buffer<E>`.
template <typename E>
class ORVXX_API BasicBuffer : public BufferBase {
public:
    ~BasicBuffer() override = default;

    /// The element at the position, which moves on by 1.
    /// \exception BufferUnderflowError if there is none; the position stays
    E get() {
        // The hook may aim the buffer anew, so the array is looked at after it.
        const std::size_t index = next_get_index(1);
        return data_[index];
    }

    /// The element at \p index; the position stays.
    /// \exception std::out_of_range "index + num_bytes > limit()" if \p index is not below the
    /// limit
    E get(std::size_t index) const { return data_[check_index(index, 1)]; }

    /// Copies \p n elements to \p dest; the position moves on by \p n.
    /// \exception BufferUnderflowError if there are fewer; nothing is copied
    Buffer<const E>& get(E* dest, std::size_t n);

protected:
    BasicBuffer(E* data, std::size_t capacity) noexcept : BufferBase(capacity), data_(data) {}
    BasicBuffer(E* data, std::size_t position, std::size_t limit, std::size_t capacity)
        : BufferBase(position, limit, capacity), data_(data) {}
    BasicBuffer(const BasicBuffer&) = default;
    BasicBuffer& operator=(const BasicBuffer&) = default;

    /// Aims the buffer at another array, with position 0 and limit \p capacity, or all given.
    /// \exception std::invalid_argument as the constructor of `BufferBase`
    void init(E* data, std::size_t capacity);
    void init(E* data, std::size_t position, std::size_t limit, std::size_t capacity);

    /// The first element of the array, wherever the position is.
    E* data() const noexcept { return data_; }

    /// Moves the elements between position and limit to the front, the position behind them and the
    /// limit to the capacity: ready to be filled up behind what is left.
    /// \exception std::invalid_argument "new_position > limit()" if the limit was set below the
    /// position
    Buffer<E>& compact();

    /// Stores at the position, which moves on by 1.
    /// \exception BufferOverflowError if there is no room; the position stays
    Buffer<E>& put(E value);

    /// Stores at \p index; the position stays.
    /// \exception std::out_of_range "index + num_bytes > limit()" if \p index is not below the
    /// limit
    Buffer<E>& put(std::size_t index, E value);

    /// Copies \p n elements in; the position moves on by \p n.
    /// \exception BufferOverflowError if there is less room; nothing is copied
    Buffer<E>& put(const E* src, std::size_t n);

    /// Moves all that remains in \p src.
    /// \exception BufferOverflowError if there is less room; nothing is moved
    Buffer<E>& put(Buffer<const E>& src);

    /// Moves min(\p n, what remains in \p src) elements and advances both buffers.
    /// \exception BufferOverflowError if there is less room; nothing is moved
    Buffer<E>& put(Buffer<const E>& src, std::size_t n);

private:
    // Not const also where the elements are: one class serves both kinds of buffer.
    E* data_;
};

/// A buffer to read: what a coder takes as input.
template <typename E>
class ORVXX_API Buffer<const E> : public BasicBuffer<E> {
public:
    /// A buffer over \p capacity elements, position 0 and limit \p capacity.
    Buffer(const E* array, std::size_t capacity)
        : BasicBuffer<E>(const_cast<E*>(array), capacity) {}

    /// \exception std::invalid_argument as the constructor of `BufferBase`
    Buffer(const E* array, std::size_t position, std::size_t limit, std::size_t capacity)
        : BasicBuffer<E>(const_cast<E*>(array), position, limit, capacity) {}

    /// A copy views the same array with a position of its own.
    Buffer(const Buffer&) = default;
    Buffer& operator=(const Buffer&) = default;
    ~Buffer() override = default;

    /// The first element of the array, wherever the position is.
    const E* data() const noexcept { return BasicBuffer<E>::data(); }
};

/// A buffer to read and write.
template <typename E>
class ORVXX_API Buffer : public Buffer<const E> {
public:
    /// A buffer over \p capacity elements, position 0 and limit \p capacity.
    Buffer(E* array, std::size_t capacity) : Buffer<const E>(array, capacity) {}

    /// \exception std::invalid_argument as the constructor of `BufferBase`
    Buffer(E* array, std::size_t position, std::size_t limit, std::size_t capacity)
        : Buffer<const E>(array, position, limit, capacity) {}

    /// A copy views the same array with a position of its own.
    Buffer(const Buffer&) = default;
    Buffer& operator=(const Buffer&) = default;
    ~Buffer() override = default;

    using BasicBuffer<E>::compact;
    using BasicBuffer<E>::data;
    using BasicBuffer<E>::init;
    using BasicBuffer<E>::put;
};

extern template class BasicBuffer<unsigned char>;
extern template class BasicBuffer<char16>;
extern template class Buffer<const unsigned char>;
extern template class Buffer<const char16>;
extern template class Buffer<unsigned char>;
extern template class Buffer<char16>;

} // namespace orv

#endif

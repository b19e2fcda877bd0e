// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Buffers with hooks: those that refill or drain their array, and what derived ones may
/// call.
#include "orv/liborvxx/charset/buffer.h"

#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

using orv::Buffer;
using orv::BufferBase;
using orv::BufferOverflowError;
using orv::BufferUnderflowError;
using orv::char16;
using orvtest::thrownMessage;

template <typename E>
class DerivedBufferOf : public testing::Test {
protected:
    static E e(unsigned int value) { return static_cast<E>(value); }
    static std::vector<E> sequence(std::size_t n) {
        std::vector<E> elements;
        for (std::size_t i = 0; i < n; ++i) {
            elements.push_back(e(static_cast<unsigned int>(i + 1)));
        }
        return elements;
    }
};

using ElementTypes = testing::Types<unsigned char, char16>;
TYPED_TEST_SUITE(DerivedBufferOf, ElementTypes);

// A buffer that reads a stream through a small array, a window at a time.
template <typename E>
class RefillingBuffer : public Buffer<E> {
public:
    RefillingBuffer(std::vector<E> stream, std::size_t perCall)
        : Buffer<E>(window_, 0, 0, WINDOW), stream_(std::move(stream)), perCall_(perCall) {}
    int calls = 0;

protected:
    void underflow() override {
        ++calls;
        if (next_ == stream_.size()) {
            Buffer<E>::underflow();
        }
        this->compact();
        for (std::size_t i = 0; i < perCall_ && next_ < stream_.size(); ++i) {
            this->put(stream_[next_++]);
        }
        this->flip();
    }

private:
    static constexpr std::size_t WINDOW = 8;
    E window_[WINDOW] = {};
    std::vector<E> stream_;
    std::size_t next_ = 0;
    std::size_t perCall_;
};

TYPED_TEST(DerivedBufferOf, ARefillingBufferReadsOnPastItsArray) {
    RefillingBuffer<TypeParam> buffer(this->sequence(20), 3);
    for (unsigned int i = 1; i <= 11; ++i) {
        EXPECT_EQ(buffer.get(), this->e(i));
    }
    // The hook is asked as often as it takes to have six elements at once.
    std::vector<TypeParam> six(6, this->e(0));
    const int before = buffer.calls;
    buffer.get(six.data(), 6);
    EXPECT_EQ(six, (std::vector<TypeParam>{this->e(12), this->e(13), this->e(14), this->e(15),
                                           this->e(16), this->e(17)}));
    EXPECT_EQ(buffer.calls - before, 2);
    EXPECT_EQ(buffer.get(), this->e(18));
    // Moving what a buffer holds asks for no more than that.
    std::vector<TypeParam> sink(8, this->e(0));
    Buffer<TypeParam> out(sink.data(), 8);
    out.put(buffer, 2);
    EXPECT_EQ(out.position(), 0U);
    EXPECT_EQ(buffer.get(), this->e(19));
    out.put(buffer, 2);
    EXPECT_EQ(out.position(), 1U);
    EXPECT_EQ(sink[0], this->e(20));
    EXPECT_EQ(thrownMessage<BufferUnderflowError>([&] { buffer.get(); }), "buffer underflow");
}

// A buffer that hands what is written to a stream whenever its array is full.
template <typename E>
class DrainingBuffer : public Buffer<E> {
public:
    DrainingBuffer() : Buffer<E>(window_, WINDOW) {}
    std::vector<E> drained;

protected:
    void overflow() override {
        this->flip();
        while (this->hasRemaining()) {
            drained.push_back(this->get());
        }
        this->clear();
    }

private:
    static constexpr std::size_t WINDOW = 4;
    E window_[WINDOW] = {};
};

TYPED_TEST(DerivedBufferOf, ADrainingBufferWritesOnPastItsArray) {
    DrainingBuffer<TypeParam> buffer;
    for (unsigned int i = 1; i <= 5; ++i) {
        buffer.put(this->e(i));
    }
    EXPECT_EQ(buffer.drained, this->sequence(4));
    const auto source = this->sequence(4);
    buffer.put(source.data(), 4);
    EXPECT_EQ(buffer.drained.size(), 5U);
    EXPECT_EQ(buffer.position(), 4U);
    Buffer<const TypeParam> in(source.data(), 4);
    buffer.put(in);
    EXPECT_EQ(buffer.drained.size(), 9U);
    EXPECT_EQ(in.position(), 4U);
    EXPECT_EQ(buffer.drained[5], this->e(1));
}

// What is there for derived buffers.
template <typename E>
class ExposedBuffer : public Buffer<E> {
public:
    using Buffer<E>::Buffer;
    using BufferBase::check_index;
    using BufferBase::next_get_index;
    using BufferBase::next_put_index;
    using Buffer<E>::overflow;
    using Buffer<E>::underflow;
    void initBase(std::size_t position, std::size_t limit, std::size_t capacity) {
        BufferBase::init(position, limit, capacity);
    }
};

TYPED_TEST(DerivedBufferOf, CheckIndexWantsAnIndexBelowTheLimitAndRoomBehindIt) {
    auto array = this->sequence(8);
    ExposedBuffer<TypeParam> buffer(array.data(), 6, 6, 8);
    EXPECT_EQ(buffer.check_index(0, 6), 0U);
    EXPECT_EQ(buffer.check_index(5, 1), 5U);
    EXPECT_EQ(buffer.check_index(5, 0), 5U);
    for (const auto& [index, n] : {std::pair<std::size_t, std::size_t>{6, 0},
                                   {0, 7},
                                   {5, 2},
                                   {1, static_cast<std::size_t>(-1)}}) {
        EXPECT_EQ(
            thrownMessage<std::out_of_range>([&, i = index, k = n] { buffer.check_index(i, k); }),
            "index + num_bytes > limit()");
    }
}

TYPED_TEST(DerivedBufferOf, IndicesAreReservedInOrderAndTheHooksThrow) {
    auto array = this->sequence(8);
    ExposedBuffer<TypeParam> buffer(array.data(), 1, 6, 8);
    EXPECT_EQ(buffer.next_get_index(2), 1U);
    EXPECT_EQ(buffer.next_put_index(3), 3U);
    EXPECT_EQ(buffer.position(), 6U);
    EXPECT_EQ(buffer.next_get_index(0), 6U);
    EXPECT_THROW(buffer.next_get_index(1), BufferUnderflowError);
    EXPECT_THROW(buffer.next_put_index(1), BufferOverflowError);
    EXPECT_THROW(buffer.underflow(), BufferUnderflowError);
    EXPECT_THROW(buffer.overflow(), BufferOverflowError);
    EXPECT_EQ(buffer.position(), 6U);
    buffer.initBase(0, 2, 3);
    EXPECT_EQ(buffer.capacity(), 3U);
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { buffer.initBase(3, 2, 1); }),
              "position > limit");
    EXPECT_EQ(buffer.limit(), 2U);
}

} // namespace

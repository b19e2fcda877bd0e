// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Buffers: cursor arithmetic, element access and messages.
#include "orv/liborvxx/charset/buffer.h"

#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <stdexcept>
#include <type_traits>
#include <vector>

namespace {

using orv::BasicBuffer;
using orv::Buffer;
using orv::BufferBase;
using orv::BufferOverflowError;
using orv::BufferUnderflowError;
using orv::char16;
using orvtest::thrownMessage;

template <typename E>
class BufferOf : public testing::Test {
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
TYPED_TEST_SUITE(BufferOf, ElementTypes);

// The class tree.
template <typename E>
constexpr bool TREE_HOLDS = std::is_base_of_v<BufferBase, BasicBuffer<E>>&&
    std::is_base_of_v<BasicBuffer<E>, Buffer<const E>>&&
        std::is_base_of_v<Buffer<const E>, Buffer<E>>&& std::has_virtual_destructor_v<BufferBase>;
static_assert(TREE_HOLDS<unsigned char> && TREE_HOLDS<char16>);

// Writing is public in Buffer<E> only.
template <typename B, typename E>
concept CanPut = requires(B& b, E element) {
    b.put(element);
};
template <typename B>
concept CanCompact = requires(B& b) {
    b.compact();
};
static_assert(CanPut<Buffer<char16>, char16> && CanCompact<Buffer<char16>>);
static_assert(!CanPut<Buffer<const char16>, char16> && !CanCompact<Buffer<const char16>>);
static_assert(!CanPut<BasicBuffer<char16>, char16>);
static_assert(std::is_base_of_v<std::logic_error, BufferOverflowError>);
static_assert(std::is_base_of_v<std::logic_error, BufferUnderflowError>);

TEST(BufferErrors, CarryTheirMessages) {
    EXPECT_STREQ(BufferOverflowError().what(), "buffer overflow");
    EXPECT_STREQ(BufferUnderflowError().what(), "buffer underflow");
    const BufferOverflowError overflow;
    const BufferOverflowError copy(overflow);
    EXPECT_STREQ(copy.what(), "buffer overflow");
}

TYPED_TEST(BufferOf, StartsAtTheFrontWithTheLimitAtTheCapacity) {
    auto array = this->sequence(5);
    Buffer<TypeParam> buffer(array.data(), array.size());
    EXPECT_EQ(buffer.position(), 0U);
    EXPECT_EQ(buffer.limit(), 5U);
    EXPECT_EQ(buffer.capacity(), 5U);
    EXPECT_EQ(buffer.remaining(), 5U);
    EXPECT_TRUE(buffer.hasRemaining());
    EXPECT_EQ(buffer.data(), array.data());
}

TYPED_TEST(BufferOf, TakesPositionLimitAndCapacityAsGiven) {
    auto array = this->sequence(8);
    Buffer<const TypeParam> buffer(array.data(), 2, 5, 8);
    EXPECT_EQ(buffer.position(), 2U);
    EXPECT_EQ(buffer.limit(), 5U);
    EXPECT_EQ(buffer.capacity(), 8U);
    EXPECT_EQ(buffer.remaining(), 3U);
    EXPECT_EQ(buffer.data(), array.data()) << "the array, without regard to the position";
}

TYPED_TEST(BufferOf, CapacityNullOverANullArrayIsValid) {
    Buffer<TypeParam> buffer(nullptr, 0);
    EXPECT_FALSE(buffer.hasRemaining());
    EXPECT_EQ(buffer.remaining(), 0U);
    EXPECT_EQ(buffer.data(), nullptr);
    buffer.clear().flip().rewind();
    buffer.compact();
    buffer.put(static_cast<const TypeParam*>(nullptr), 0);
    TypeParam none{};
    buffer.get(&none, 0);
    EXPECT_EQ(buffer.position(), 0U);
    EXPECT_THROW(buffer.get(), BufferUnderflowError);
}

TYPED_TEST(BufferOf, RefusesAPositionAboveTheLimitAndALimitAboveTheCapacity) {
    auto array = this->sequence(4);
    using B = Buffer<TypeParam>;
    const auto make = [&](std::size_t position, std::size_t limit, std::size_t capacity) {
        return thrownMessage<std::invalid_argument>(
            [&] { B buffer(array.data(), position, limit, capacity); });
    };
    EXPECT_EQ(make(3, 2, 4), "position > limit");
    EXPECT_EQ(make(0, 5, 4), "limit > capacity");
    EXPECT_EQ(make(6, 5, 4), "position > limit") << "is tested first";
    EXPECT_EQ(make(4, 4, 4), "nothing thrown");
}

TYPED_TEST(BufferOf, InitAimsAnewAndStoresNothingWhenItThrows) {
    auto array = this->sequence(4);
    auto other = this->sequence(9);
    Buffer<TypeParam> buffer(array.data(), 1, 3, 4);
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { buffer.init(other.data(), 5, 4, 9); }),
              "position > limit");
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { buffer.init(other.data(), 1, 10, 9); }),
              "limit > capacity");
    EXPECT_EQ(buffer.data(), array.data());
    EXPECT_EQ(buffer.position(), 1U);
    EXPECT_EQ(buffer.limit(), 3U);
    EXPECT_EQ(buffer.capacity(), 4U);
    buffer.init(other.data(), 2, 7, 9);
    EXPECT_EQ(buffer.data(), other.data());
    EXPECT_EQ(buffer.position(), 2U);
    EXPECT_EQ(buffer.limit(), 7U);
    EXPECT_EQ(buffer.capacity(), 9U);
    buffer.init(array.data(), 4);
    EXPECT_EQ(buffer.position(), 0U);
    EXPECT_EQ(buffer.limit(), 4U);
    EXPECT_EQ(buffer.capacity(), 4U);
}

TYPED_TEST(BufferOf, ACopyHasACursorOfItsOwnOverTheSameArray) {
    auto array = this->sequence(4);
    Buffer<TypeParam> buffer(array.data(), 1, 3, 4);
    Buffer<TypeParam> copy(buffer);
    copy.put(this->e(9));
    EXPECT_EQ(copy.position(), 2U);
    EXPECT_EQ(buffer.position(), 1U);
    EXPECT_EQ(buffer.get(), this->e(9));
}

TYPED_TEST(BufferOf, FlipMakesWhatWasWrittenReadable) {
    auto array = this->sequence(8);
    Buffer<TypeParam> buffer(array.data(), 8);
    buffer.put(this->e(7)).put(this->e(8)).put(this->e(9));
    EXPECT_EQ(&buffer.flip(), &buffer);
    EXPECT_EQ(buffer.position(), 0U);
    EXPECT_EQ(buffer.limit(), 3U);
    EXPECT_EQ(buffer.get(), this->e(7));
    buffer.rewind();
    EXPECT_EQ(buffer.position(), 0U);
    EXPECT_EQ(buffer.limit(), 3U) << "rewind leaves the limit";
    buffer.flip();
    EXPECT_EQ(buffer.limit(), 0U) << "a second flip leaves nothing";
}

TYPED_TEST(BufferOf, ClearRestoresTheLimitAndTouchesNoElement) {
    auto array = this->sequence(6);
    Buffer<TypeParam> buffer(array.data(), 2, 3, 6);
    buffer.clear();
    EXPECT_EQ(buffer.position(), 0U);
    EXPECT_EQ(buffer.limit(), 6U);
    EXPECT_EQ(array, this->sequence(6));
}

TYPED_TEST(BufferOf, PositionIsCheckedAgainstTheLimit) {
    auto array = this->sequence(6);
    Buffer<const TypeParam> buffer(array.data(), 1, 4, 6);
    EXPECT_EQ(&buffer.position(4), &buffer);
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { buffer.position(5); }),
              "new_position > limit()");
    EXPECT_EQ(buffer.position(), 4U);
}

TYPED_TEST(BufferOf, LimitIsCheckedAgainstTheCapacity) {
    auto array = this->sequence(6);
    Buffer<const TypeParam> buffer(array.data(), 1, 4, 6);
    EXPECT_EQ(&buffer.limit(6), &buffer);
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { buffer.limit(7); }),
              "new_limit > capacity()");
    EXPECT_EQ(buffer.limit(), 6U);
}

TYPED_TEST(BufferOf, ALimitBelowThePositionLeavesThePosition) {
    auto array = this->sequence(8);
    Buffer<TypeParam> buffer(array.data(), 5, 8, 8);
    buffer.limit(3);
    EXPECT_EQ(buffer.limit(), 3U);
    EXPECT_EQ(buffer.position(), 5U);
    EXPECT_FALSE(buffer.hasRemaining());
    EXPECT_EQ(buffer.remaining(), static_cast<std::size_t>(-2)) << "the difference wraps";
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { buffer.compact(); }),
              "new_position > limit()");
    EXPECT_EQ(array, this->sequence(8)) << "nothing was moved";
    // Nothing is in reach, whatever the wrapped difference says.
    EXPECT_THROW(buffer.get(), BufferUnderflowError);
    EXPECT_THROW(buffer.put(this->e(1)), BufferOverflowError);
    buffer.limit(8);
    EXPECT_EQ(buffer.remaining(), 3U);
}

TYPED_TEST(BufferOf, GetReadsAndAdvances) {
    auto array = this->sequence(3);
    Buffer<const TypeParam> buffer(array.data(), 3);
    EXPECT_EQ(buffer.get(), this->e(1));
    EXPECT_EQ(buffer.get(), this->e(2));
    EXPECT_EQ(buffer.get(), this->e(3));
    EXPECT_EQ(thrownMessage<BufferUnderflowError>([&] { buffer.get(); }), "buffer underflow");
    EXPECT_EQ(buffer.position(), 3U);
}

TYPED_TEST(BufferOf, GetByIndexStaysAndIsBoundByTheLimit) {
    auto array = this->sequence(5);
    Buffer<const TypeParam> buffer(array.data(), 2, 3, 5);
    EXPECT_EQ(buffer.get(std::size_t{0}), this->e(1)) << "in front of the position";
    EXPECT_EQ(buffer.get(std::size_t{2}), this->e(3));
    EXPECT_EQ(buffer.position(), 2U);
    for (const std::size_t index : {std::size_t{3}, std::size_t{4}, static_cast<std::size_t>(-1)}) {
        EXPECT_EQ(thrownMessage<std::out_of_range>([&] { buffer.get(index); }),
                  "index + num_bytes > limit()");
    }
}

TYPED_TEST(BufferOf, GetOfManyCopiesAllOrNothing) {
    auto array = this->sequence(5);
    Buffer<const TypeParam> buffer(array.data(), 1, 4, 5);
    std::vector<TypeParam> dest(4, this->e(0));
    EXPECT_EQ(thrownMessage<BufferUnderflowError>([&] { buffer.get(dest.data(), 4); }),
              "buffer underflow");
    EXPECT_EQ(dest, std::vector<TypeParam>(4, this->e(0)));
    EXPECT_EQ(buffer.position(), 1U);
    EXPECT_EQ(&buffer.get(dest.data(), 3), &buffer);
    EXPECT_EQ(dest, (std::vector<TypeParam>{this->e(2), this->e(3), this->e(4), this->e(0)}));
    EXPECT_EQ(buffer.position(), 4U);
}

TYPED_TEST(BufferOf, PutStoresAndAdvances) {
    auto array = this->sequence(3);
    Buffer<TypeParam> buffer(array.data(), 0, 2, 3);
    EXPECT_EQ(&buffer.put(this->e(8)), &buffer);
    buffer.put(this->e(9));
    EXPECT_EQ(thrownMessage<BufferOverflowError>([&] { buffer.put(this->e(7)); }),
              "buffer overflow");
    EXPECT_EQ(buffer.position(), 2U);
    EXPECT_EQ(array, (std::vector<TypeParam>{this->e(8), this->e(9), this->e(3)}));
}

TYPED_TEST(BufferOf, PutByIndexStaysAndIsBoundByTheLimit) {
    auto array = this->sequence(4);
    Buffer<TypeParam> buffer(array.data(), 2, 3, 4);
    EXPECT_EQ(&buffer.put(std::size_t{0}, this->e(9)), &buffer);
    EXPECT_EQ(buffer.position(), 2U);
    EXPECT_EQ(thrownMessage<std::out_of_range>([&] { buffer.put(std::size_t{3}, this->e(9)); }),
              "index + num_bytes > limit()");
    EXPECT_EQ(array, (std::vector<TypeParam>{this->e(9), this->e(2), this->e(3), this->e(4)}));
}

TYPED_TEST(BufferOf, PutOfManyStoresAllOrNothing) {
    const auto source = this->sequence(4);
    std::vector<TypeParam> array(5, this->e(0));
    Buffer<TypeParam> buffer(array.data(), 1, 4, 5);
    EXPECT_EQ(thrownMessage<BufferOverflowError>([&] { buffer.put(source.data(), 4); }),
              "buffer overflow");
    EXPECT_EQ(array, std::vector<TypeParam>(5, this->e(0)));
    EXPECT_EQ(buffer.position(), 1U);
    EXPECT_EQ(&buffer.put(source.data(), 3), &buffer);
    EXPECT_EQ(buffer.position(), 4U);
    EXPECT_EQ(array,
              (std::vector<TypeParam>{this->e(0), this->e(1), this->e(2), this->e(3), this->e(0)}));
}

TYPED_TEST(BufferOf, PutOfABufferMovesWhatItHolds) {
    const auto source = this->sequence(3);
    std::vector<TypeParam> array(8, this->e(0));
    Buffer<TypeParam> buffer(array.data(), 8);
    Buffer<const TypeParam> in(source.data(), 3);
    EXPECT_EQ(&buffer.put(in, 2), &buffer);
    EXPECT_EQ(in.position(), 2U);
    EXPECT_EQ(buffer.position(), 2U);
    buffer.put(in);
    EXPECT_EQ(in.position(), 3U);
    in.rewind();
    buffer.put(in, 100);
    EXPECT_EQ(in.position(), 3U) << "a count above what there is means all there is";
    EXPECT_EQ(buffer.position(), 6U);
    EXPECT_EQ(array, (std::vector<TypeParam>{this->e(1), this->e(2), this->e(3), this->e(1),
                                             this->e(2), this->e(3), this->e(0), this->e(0)}));
    in.rewind();
    EXPECT_EQ(thrownMessage<BufferOverflowError>([&] { buffer.put(in); }), "buffer overflow");
    EXPECT_EQ(in.position(), 0U);
    EXPECT_EQ(buffer.position(), 6U);
}

TYPED_TEST(BufferOf, AWritableBufferIsReadThroughAReference) {
    auto array = this->sequence(3);
    Buffer<TypeParam> buffer(array.data(), 3);
    Buffer<const TypeParam>& read = buffer;
    EXPECT_EQ(read.get(), this->e(1));
    EXPECT_EQ(buffer.position(), 1U) << "the reader moves the caller's own buffer";
}

TYPED_TEST(BufferOf, CompactMovesTheRestToTheFront) {
    auto array = this->sequence(8);
    Buffer<TypeParam> buffer(array.data(), 2, 7, 8);
    EXPECT_EQ(&buffer.compact(), &buffer);
    EXPECT_EQ(buffer.position(), 5U);
    EXPECT_EQ(buffer.limit(), 8U);
    // The ranges overlap.
    EXPECT_EQ(std::vector<TypeParam>(array.begin(), array.begin() + 5),
              (std::vector<TypeParam>{this->e(3), this->e(4), this->e(5), this->e(6), this->e(7)}));
}

TYPED_TEST(BufferOf, CompactOfNothingAndOfAll) {
    auto array = this->sequence(4);
    Buffer<TypeParam> buffer(array.data(), 3, 3, 4);
    buffer.compact();
    EXPECT_EQ(buffer.position(), 0U);
    EXPECT_EQ(buffer.limit(), 4U);
    EXPECT_EQ(array, this->sequence(4));
    buffer.compact();
    EXPECT_EQ(buffer.position(), 4U);
    EXPECT_EQ(buffer.limit(), 4U);
    EXPECT_EQ(array, this->sequence(4));
}

} // namespace

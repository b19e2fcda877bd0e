// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Writing floating-point values asks for no memory, but for that of long strings.
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/to_chars.h"

#include "tests/support/counting_allocator.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <new>
#include <string>

namespace {

constexpr double VALUES[] = {0.0,
                             -1.5,
                             0.1,
                             1e23,
                             5e-324,
                             2.2250738585072014e-308,
                             0x1p60,
                             0x1p-44,
                             1e-323,
                             1e308,
                             12345.678,
                             std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()};

template <class Call>
std::size_t allocationsOf(Call call) {
    const std::size_t before = orvtest::allocations();
    call();
    return orvtest::allocations() - before;
}

template <class CharT, class Float>
std::size_t allocationsToWrite(Float value) {
    return allocationsOf([value] {
        CharT text[orv::MAX_DOUBLE_LENGTH];
        for (const std::size_t room : {std::size_t{0}, std::size_t{5}, orv::MAX_DOUBLE_LENGTH}) {
            orv::to_chars_c(text, text + room, value);
        }
    });
}

TEST(FloatTextAllocation, IsNoneIntoTheCallersMemory) {
    for (const double value : VALUES) {
        EXPECT_EQ((allocationsToWrite<char>(value)), 0U) << value;
        EXPECT_EQ((allocationsToWrite<orv::char16>(value)), 0U) << value;
        EXPECT_EQ((allocationsToWrite<char>(static_cast<float>(value))), 0U) << value;
        EXPECT_EQ((allocationsToWrite<char>(static_cast<long double>(value))), 0U) << value;
        EXPECT_EQ((allocationsToWrite<orv::char16>(orv::binary16(value))), 0U) << value;
    }
}

template <class String, class Call>
void expectOnlyTheStrings(Call call) {
    std::size_t length = 0;
    const std::size_t count = allocationsOf([&] { length = call().size(); });
    EXPECT_EQ(count, length > String().capacity() ? 1U : 0U) << length;
}

TEST(FloatTextAllocation, IsThatOfLongStringsAlone) {
    for (const double value : VALUES) {
        expectOnlyTheStrings<std::string>([=] { return orv::to_string_c(value); });
        expectOnlyTheStrings<orv::ustring>([=] { return orv::to_ustring_c(value); });
        const auto narrow = static_cast<float>(value);
        expectOnlyTheStrings<std::string>([=] { return orv::to_string_c(narrow); });
        expectOnlyTheStrings<orv::ustring>([=] { return orv::to_ustring_c(narrow); });
    }
}

TEST(FloatTextAllocation, PassesOnThatMemoryRunsOut) {
    const std::size_t blocks = orvtest::liveBlocks();
    orvtest::failAllocation(1);
    EXPECT_THROW(orv::to_string_c(2.2250738585072014e-308), std::bad_alloc);
    orvtest::failAllocation(1);
    EXPECT_THROW(orv::to_ustring_c(2.2250738585072014e-308), std::bad_alloc);
    orvtest::failAllocation(0);
    EXPECT_EQ(orvtest::liveBlocks(), blocks);
}

} // namespace

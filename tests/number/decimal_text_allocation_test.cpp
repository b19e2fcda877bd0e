// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers from and to text, and from binary, take no memory but for that of long
/// strings.
#include "orv/liborvxx/decimal/binary_to_decimal.h"
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/string_to_decimal.h"
#include "orv/liborvxx/number/to_chars.h"
#include "tests/support/counting_allocator.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <new>
#include <string>

namespace {

using namespace orv::decimal;

template <class Call>
std::size_t allocationsOf(Call call) {
    const std::size_t before = orvtest::allocations();
    call();
    return orvtest::allocations() - before;
}

// What reading of the text allocates, in all shapes.
template <class CharT>
std::size_t blocksToRead(const std::basic_string<CharT>& text) {
    return allocationsOf([&text] {
        const orv::basic_string_ref<CharT> view(text);
        static_cast<void>(orv::from_chars_c<decimal32>(view));
        static_cast<void>(orv::from_chars_c<decimal64>(view));
        static_cast<void>(orv::from_chars_c<decimal128>(view));
        static_cast<void>(orv::strtod32_c(text.c_str(), nullptr));
        static_cast<void>(orv::strtod64_c(text.c_str(), nullptr));
        static_cast<void>(orv::strtod128_c(text.c_str(), nullptr));
        if (orv::from_chars_c<decimal64>(view)) {
            static_cast<void>(orv::stod64_c(view));
            orv::BasicCharIterator<CharT> it(view);
            static_cast<void>(orv::stod128_c(it));
        }
    });
}

TEST(DecimalTextAllocation, ReadingTakesNone) {
    const std::string zeros(1'000'000, '0');
    const std::string nines(40, '9');
    for (const std::string& text :
         {std::string("1.5"), std::string("-inf"), std::string("nan"), std::string("infin"),
          std::string(""), nines, nines + "e-6200", nines + "e6072", std::string("12e6120"),
          std::string("12e380"), std::string("12e91"), std::string("12345e-103"),
          std::string("12345e-400"), std::string("12345e-6178"), std::string("1e-9999999999"),
          "1." + zeros + "1", zeros + "12.5e1000000", "1" + zeros + "e-1000000", "1e" + zeros}) {
        EXPECT_EQ(blocksToRead(text), 0U) << text.substr(0, 40);
        EXPECT_EQ(blocksToRead(orvtest::textIn<orv::char16>(text)), 0U) << text.substr(0, 40);
    }
}

template <class Decimal>
void expectOnlyTheStrings(const Decimal& value) {
    EXPECT_EQ(allocationsOf([&] {
                  char text[64];
                  orv::char16 wide[64];
                  for (const std::size_t room : {std::size_t{0}, std::size_t{5}, std::size_t{64}}) {
                      orv::to_chars_c(text, text + room, value);
                      orv::to_chars_c(wide, wide + room, value);
                  }
              }),
              0U);
    const std::size_t length = orv::to_string_c(value).size();
    EXPECT_EQ(allocationsOf([&] { orv::to_string_c(value); }),
              length > std::string().capacity() ? 1U : 0U)
        << length;
    EXPECT_EQ(allocationsOf([&] { orv::to_ustring_c(value); }),
              length > orv::ustring().capacity() ? 1U : 0U)
        << length;
}

TEST(DecimalTextAllocation, WritingTakesThatOfLongStringsAlone) {
    for (const char* text : {"1.5", "-0", "inf", "nan", "1e-98", "1234567", "-1.234567890123456e-9",
                             "1.234567890123456789012345678901234"}) {
        expectOnlyTheStrings(orv::stod32_c(text));
        expectOnlyTheStrings(orv::stod64_c(text));
        expectOnlyTheStrings(orv::stod128_c(text));
    }
}

TEST(DecimalTextAllocation, PassesOnThatMemoryRunsOut) {
    const decimal64 value = orv::stod64_c("-1.234567890123456e-9");
    const std::size_t blocks = orvtest::liveBlocks();
    orvtest::failAllocation(1);
    EXPECT_THROW(orv::to_string_c(value), std::bad_alloc);
    orvtest::failAllocation(1);
    EXPECT_THROW(orv::to_ustring_c(value), std::bad_alloc);
    orvtest::failAllocation(0);
    EXPECT_EQ(orvtest::liveBlocks(), blocks);
}

TEST(DecimalTextAllocation, ConversionFromBinaryTakesNone) {
    for (const double value : {0.0, 0.1, 1.0 / 3, 5e-324, 0x1p-44, 1e-101, 2.5e-101, 1e97, 1e300,
                               123456789.123, std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(allocationsOf([value] {
                      static_cast<void>(binary_to_decimal32(value));
                      static_cast<void>(binary_to_decimal64(value));
                      static_cast<void>(binary_to_decimal128(static_cast<long double>(value)));
                      static_cast<void>(binary_to_decimal32(static_cast<float>(value)));
                      static_cast<void>(binary_to_decimal64(orv::binary16(value)));
                  }),
                  0U)
            << value;
    }
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reading a floating-point number takes no memory, whatever road it goes.
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/make_binary.h"
#include "orv/liborvxx/number/string_to_float.h"
#include "tests/support/counting_allocator.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// What reading of the text allocates, in all shapes.
template <class CharT>
std::size_t blocksToRead(const std::basic_string<CharT>& text) {
    const std::size_t before = orvtest::allocations();
    const orv::basic_string_ref<CharT> view(text);
    static_cast<void>(orv::from_chars_c<double>(view));
    static_cast<void>(orv::from_chars_c<float>(view));
    static_cast<void>(orv::strtod_c(text.c_str(), nullptr));
    static_cast<void>(orv::strtof_c(text.c_str(), nullptr));
    if (orv::from_chars_c<double>(view)) {
        static_cast<void>(orv::stod_c(view));
        orv::BasicCharIterator<CharT> it(view);
        static_cast<void>(orv::stod_c(it));
    }
    return orvtest::allocations() - before;
}

TEST(FloatReadingAllocation, ThereIsNone) {
    const std::string zeros(1'000'000, '0');
    for (const std::string& text :
         {std::string("1.5"), std::string("17976931348623157e292"), std::string("1e309"),
          std::string("1e-400"), std::string("inf"), std::string("nan"), std::string("infin"),
          std::string(""), std::string("0x1.8p5"), std::string("0x123456789abcdef123p-1080"),
          // ties and neighbours of ties, which exact arithmetic decides
          std::string("9007199254740993"), std::string("9007199254740993e1"),
          std::string("9007199254740993.0"), std::string("2.4703282292062328e-324"),
          std::string("2.4703282292062327208e-324"), std::string("2.4703282292062327209e-324"),
          std::string("6631236846766476e-316"), std::string("3237883913302901e-289"),
          std::string("1.7976931348623158079e308"), std::string("8.5e-344"),
          std::string("12345678901234567890.5"), "1." + zeros + "1", zeros + "12.5e1000000",
          "1" + zeros + "e-1000000", "0x1" + zeros, "1e" + zeros}) {
        EXPECT_EQ(blocksToRead(text), 0U) << text.substr(0, 40);
        EXPECT_EQ(blocksToRead(orvtest::textIn<orv::char16>(text)), 0U) << text.substr(0, 40);
    }
}

TEST(MakeBinaryAllocation, TakesNoMemoryForCoefficientsOf127Bits) {
    orv::big_uint ones;
    ones.set_size(4);
    ones.bit_not(ones);
    ones.shift_right(1);
    const orv::big_uint tie(9007199254740993ULL);
    const std::size_t before = orvtest::allocations();
    for (int exponent = -351; exponent <= 310; ++exponent) {
        static_cast<void>(orv::make_double(false, exponent, ones));
        static_cast<void>(orv::make_float(false, exponent, ones));
        static_cast<void>(orv::make_double(false, exponent, tie));
    }
    EXPECT_EQ(orvtest::allocations() - before, 0U);
}

} // namespace

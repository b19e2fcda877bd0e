// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `from_chars_c` for floating-point numbers: values, lengths and statuses.
#include "orv/liborvxx/number/from_chars.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/number/float_readers.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <limits>

namespace {

using namespace orv::literals;
using orv::number_status;
using orv::string_ref;

template <class T>
class FromCharsFloat : public testing::Test {};
using Types = testing::Types<float, double, long double>;
TYPED_TEST_SUITE(FromCharsFloat, Types);

template <class T>
void expectRead(string_ref text, T value, std::size_t length, number_status status) {
    static_assert(noexcept(orv::from_chars_c<T>(text)));
    const orv::ustring units = orvtest::textIn<orv::char16>({text.data(), text.size()});
    errno = 77;
    for (const auto& read :
         {orv::from_chars_c<T>(text), orv::from_chars_c<T>(orv::ustring_ref(units))}) {
        EXPECT_EQ(orvtest::bitsOf(read.value), orvtest::bitsOf(value)) << text.data();
        EXPECT_EQ(read.length, length) << text.data();
        EXPECT_EQ(read.status, status) << text.data();
        EXPECT_EQ(static_cast<bool>(read), status == number_status::ok);
    }
    EXPECT_EQ(errno, 77) << "untouched";
}

TYPED_TEST(FromCharsFloat, GivesTheValueAndTheLength) {
    constexpr TypeParam INF = std::numeric_limits<TypeParam>::infinity();
    expectRead<TypeParam>("2.5 mm", 2.5, 3, number_status::ok);
    expectRead<TypeParam>(" -0x1.8p1;", -3, 9, number_status::ok);
    expectRead<TypeParam>("-inf", -INF, 4, number_status::ok);
    expectRead<TypeParam>("-1e-9999", TypeParam{-0.0}, 8, number_status::ok);
    EXPECT_TRUE(std::isnan(orv::from_chars_c<TypeParam>("nan").value));
    EXPECT_EQ(orv::from_chars_c<TypeParam>(u"7"_u).value, TypeParam{7});
}

TYPED_TEST(FromCharsFloat, TellsWhatIsMissing) {
    for (const char* text : {"", "  ", "x", "-", ".", "0x", "\xC3\xA9"}) {
        expectRead<TypeParam>(text, 0, 0, number_status::digit_expected);
    }
    expectRead<TypeParam>(" -infin", 0, 0, number_status::infinity_expected);
    expectRead<TypeParam>("-nanx", 0, 0, number_status::nan_expected);
}

TYPED_TEST(FromCharsFloat, GivesInfinityForWhatIsTooLarge) {
    constexpr TypeParam INF = std::numeric_limits<TypeParam>::infinity();
    expectRead<TypeParam>("1e999x", INF, 5, number_status::out_of_range);
    expectRead<TypeParam>(" -1e999", -INF, 7, number_status::out_of_range);
    expectRead<TypeParam>("0x1p5000", INF, 8, number_status::out_of_range);
    expectRead<TypeParam>("-0e9999999999", -INF, 13, number_status::out_of_range);
}

TEST(FromCharsFloatNan, IsTheQuietOne) {
    EXPECT_EQ(orvtest::bitsOf(orv::from_chars_c<double>("-nan").value), 0x7FF8000000000000U);
    EXPECT_EQ(orvtest::bitsOf(orv::from_chars_c<float>("-nan").value), 0x7FC00000U);
}

TEST(FromCharsFloatText, MayBeEmptyOrNull) {
    EXPECT_EQ(orv::from_chars_c<double>(string_ref()).status, number_status::digit_expected);
    EXPECT_EQ(orv::from_chars_c<float>(orv::ustring_ref()).status, number_status::digit_expected);
}

// What lies behind the view is no part of the number.
TEST(FromCharsFloatText, EndsWithTheView) {
    const char text[] = "123456789.123456789e123456789";
    const std::u16string wide = u"123456789.123456789e123456789";
    const orv::ustring units(wide.begin(), wide.end());
    for (std::size_t n = 1; n < sizeof text; ++n) {
        const std::string exact(text, n);
        const auto expected = orv::from_chars_c<double>(string_ref(exact));
        const auto read = orv::from_chars_c<double>(string_ref(text, n));
        EXPECT_EQ(orvtest::bitsOf(read.value), orvtest::bitsOf(expected.value)) << n;
        EXPECT_EQ(read.length, expected.length) << n;
        EXPECT_EQ(read.length, n == 20 ? 19U : n) << n;
        EXPECT_EQ(
            orvtest::bitsOf(orv::from_chars_c<double>(orv::ustring_ref(units.data(), n)).value),
            orvtest::bitsOf(expected.value))
            << n;
    }
}

} // namespace

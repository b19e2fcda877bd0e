// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `from_chars_c` for integers: every type, its status and its limits.
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace orv::literals;
using orv::number_status;

constexpr orv::ustring_ref SEVEN = u"7"_u;

template <class T>
class FromCharsInteger : public testing::Test {
public:
    static constexpr T MAX = std::numeric_limits<T>::max();
    static constexpr T MIN = std::numeric_limits<T>::min();
};
using Types = testing::Types<int, long, long long, unsigned, unsigned long, unsigned long long>;
TYPED_TEST_SUITE(FromCharsInteger, Types);

template <class T, class CharT>
void expectRead(const std::basic_string<CharT>& text, int radix, T value, std::size_t length,
                number_status status) {
    const orv::basic_string_ref<CharT> view(text);
    static_assert(noexcept(orv::from_chars_c<T>(view, radix)));
    const orv::from_chars_result<T> read = orv::from_chars_c<T>(view, radix);
    EXPECT_EQ(read.value, value) << "radix " << radix;
    EXPECT_EQ(read.length, length);
    EXPECT_EQ(read.status, status);
    EXPECT_EQ(static_cast<bool>(read), status == number_status::ok);
}

template <class T>
void expectBoth(const std::string& text, int radix, T value, std::size_t length,
                number_status status) {
    expectRead<T>(text, radix, value, length, status);
    expectRead<T>(orvtest::textIn<orv::char16>(text), radix, value, length, status);
}

TYPED_TEST(FromCharsInteger, GivesTheValueAndTheLength) {
    expectBoth<TypeParam>("12 mm", 10, 12, 2, number_status::ok);
    expectBoth<TypeParam>(" 0x1F", 0, 31, 5, number_status::ok);
    expectBoth<TypeParam>("0x", 0, 0, 1, number_status::ok);
    expectBoth<TypeParam>("zz", 36, 35 * 36 + 35, 2, number_status::ok);
    EXPECT_EQ(orv::from_chars_c<TypeParam>("7").value, TypeParam{7}) << "the radix may be left out";
    EXPECT_EQ(orv::from_chars_c<TypeParam>(SEVEN).value, TypeParam{7});
}

TYPED_TEST(FromCharsInteger, TellsThatThereIsNoNumber) {
    for (const char* text : {"", " ", "x", "+", "-", "nan", "inf"}) {
        expectBoth<TypeParam>(text, 10, 0, 0, number_status::digit_expected);
    }
    expectBoth<TypeParam>("8", 8, 0, 0, number_status::digit_expected);
    expectBoth<TypeParam>("8", -8, 0, 0, number_status::digit_expected);
}

TYPED_TEST(FromCharsInteger, GivesTheNearestLimitAndTheWholeLength) {
    const std::string max = std::to_string(this->MAX);
    const std::string beyond(25, '9');
    expectBoth<TypeParam>(max, 10, this->MAX, max.size(), number_status::ok);
    expectBoth<TypeParam>(beyond + '.', 10, this->MAX, 25, number_status::out_of_range);
    const bool isSigned = this->MIN < 0;
    expectBoth<TypeParam>('-' + beyond, 10, isSigned ? this->MIN : 0, isSigned ? 26 : 0,
                          isSigned ? number_status::out_of_range : number_status::digit_expected);
    if (isSigned) {
        const std::string min = std::to_string(this->MIN);
        expectBoth<TypeParam>(min, 10, this->MIN, min.size(), number_status::ok);
    }
}

TYPED_TEST(FromCharsInteger, LeavesErrnoAlone) {
    errno = 5;
    EXPECT_FALSE(orv::from_chars_c<TypeParam>("99999999999999999999999"));
    EXPECT_FALSE(orv::from_chars_c<TypeParam>("x"));
    EXPECT_TRUE(orv::from_chars_c<TypeParam>("1"));
    EXPECT_EQ(errno, 5);
}

TYPED_TEST(FromCharsInteger, ReadsNothingBehindTheView) {
    // Each view ends where its allocation does: a sanitizer would see one unit more.
    for (std::size_t size = 0; size <= 40; ++size) {
        for (const char digit : {'0', '1', ' ', '-'}) {
            const std::vector<char> narrow(size, digit);
            const std::vector<orv::char16> wide(narrow.begin(), narrow.end());
            const auto read = orv::from_chars_c<TypeParam>(orv::string_ref(narrow.data(), size), 0);
            const auto same = orv::from_chars_c<TypeParam>(orv::ustring_ref(wide.data(), size), 0);
            EXPECT_EQ(read.length, digit == '0' || digit == '1' ? size : 0);
            EXPECT_EQ(same.length, read.length);
            EXPECT_EQ(same.value, read.value);
        }
    }
}

TEST(FromCharsIntegerTypes, AreTheFundamentalOnesFromIntUp) {
    static_assert(orv::detail::ReadableInteger<std::int32_t>);
    static_assert(orv::detail::ReadableInteger<std::size_t>);
    static_assert(!orv::detail::ReadableInteger<short>);
    static_assert(!orv::detail::ReadableInteger<char>);
    static_assert(!orv::detail::ReadableInteger<bool>);
    static_assert(!orv::detail::ReadableInteger<char32_t>);
    const auto [value, length, status] = orv::from_chars_c<int>("2 mm");
    EXPECT_EQ(value, 2);
    EXPECT_EQ(length, 1U);
    EXPECT_EQ(status, number_status::ok);
}

} // namespace

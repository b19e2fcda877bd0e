// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The six overloads of `compare`: exact values, which differ between them.
#include "orv/liborvxx/text/string_ref.h"

#include "tests/support/thrown_message.h"
#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace {

using orv::basic_string_ref;
using orv::char16;
using orv::string_ref;
using orv::ustring;
using orv::ustring_ref;
using orvtest::below;
using orvtest::randomText;
using orvtest::signOf;
using orvtest::textOf;
using orvtest::thrownMessage;
using orvtest::unitsOf;

template <typename CharT>
class StringRefCompare : public testing::Test {};

using CharacterTypes = testing::Types<char, char16, char16_t, wchar_t>;
TYPED_TEST_SUITE(StringRefCompare, CharacterTypes);

// The units at which two texts first differ, as numbers; false if one is a prefix of the other.
template <typename String>
bool firstDifference(const String& a, const String& b, long& left, long& right) {
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        if (a[i] != b[i]) {
            using Unit = typename String::value_type;
            if constexpr (std::is_same_v<Unit, char>) {
                left = static_cast<unsigned char>(a[i]);
                right = static_cast<unsigned char>(b[i]);
            } else {
                left = static_cast<long>(a[i]);
                right = static_cast<long>(b[i]);
            }
            return true;
        }
    }
    return false;
}

// What an overload with a length gives; `longer` is its value where the left text is longer.
template <typename String>
int expectedWithLength(const String& a, const String& b, int longer) {
    long left = 0;
    long right = 0;
    if (!firstDifference(a, b, left, right)) {
        return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : longer;
    }
    return std::is_same_v<typename String::value_type, char16> ? static_cast<int>(left - right)
           : left < right                                      ? -1
                                                               : 1;
}

// What an overload on a NUL-terminated text gives.
template <typename String>
int expectedTerminated(const String& a, const String& b) {
    return signOf(expectedWithLength(a, b, 1));
}

// For char the value of a differing prefix is what memcmp gives, and only its sign is known.
template <typename CharT>
void expectValue(int actual, int expected, bool prefixDiffers) {
    if (std::is_same_v<CharT, char> && prefixDiffers) {
        EXPECT_EQ(signOf(actual), signOf(expected));
    } else {
        EXPECT_EQ(actual, expected);
    }
}

TYPED_TEST(StringRefCompare, EqualTextsGiveZeroInEveryOverload) {
    using Ref = basic_string_ref<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    const Ref view = abc;
    EXPECT_EQ(view.compare(Ref(abc)), 0);
    EXPECT_EQ(view.compare(abc.c_str()), 0);
    EXPECT_EQ(view.compare(1, 2, Ref(abc).substr(1)), 0);
    EXPECT_EQ(view.compare(0, 2, Ref(abc), 0, 2), 0);
    EXPECT_EQ(view.compare(1, 2, abc.c_str() + 1), 0);
    EXPECT_EQ(view.compare(1, 1, abc.c_str() + 1, 1), 0);
    EXPECT_EQ(Ref().compare(Ref()), 0);
    EXPECT_EQ(Ref().compare(0, 0, nullptr, 0), 0);
}

TYPED_TEST(StringRefCompare, AShorterViewGivesMinusOneInEveryOverload) {
    using Ref = basic_string_ref<TypeParam>;
    const auto ab = textOf<TypeParam>("ab");
    const auto abc = textOf<TypeParam>("abc");
    const Ref view = ab;
    EXPECT_EQ(view.compare(Ref(abc)), -1);
    EXPECT_EQ(view.compare(abc.c_str()), -1);
    EXPECT_EQ(view.compare(0, 2, Ref(abc)), -1);
    EXPECT_EQ(view.compare(0, 2, Ref(abc), 0, 3), -1);
    EXPECT_EQ(view.compare(0, 2, abc.c_str()), -1);
    EXPECT_EQ(view.compare(0, 2, abc.c_str(), 3), -1);
    EXPECT_EQ(Ref().compare(Ref(abc)), -1);
    EXPECT_EQ(Ref().compare(abc.c_str()), -1);
}

TYPED_TEST(StringRefCompare, ALongerViewGivesTwoAgainstAViewAndOneAgainstAPointer) {
    using Ref = basic_string_ref<TypeParam>;
    const auto ab = textOf<TypeParam>("ab");
    const auto abc = textOf<TypeParam>("abc");
    const Ref view = abc;
    EXPECT_EQ(view.compare(Ref(ab)), 2);
    EXPECT_EQ(view.compare(0, 3, Ref(ab)), 2);
    EXPECT_EQ(view.compare(0, 3, Ref(ab), 0, 2), 2);
    EXPECT_EQ(view.compare(0, 3, ab.c_str(), 2), 1);
    EXPECT_EQ(view.compare(ab.c_str()), 1);
    EXPECT_EQ(view.compare(0, 3, ab.c_str()), 1);
    EXPECT_EQ(view.compare(Ref()), 2);
    EXPECT_EQ(view.compare(0, 3, nullptr, 0), 1);
}

TYPED_TEST(StringRefCompare, APointerOverloadStopsAtTheFirstZeroOfItsText) {
    using Ref = basic_string_ref<TypeParam>;
    const auto withZero = textOf<TypeParam>("a") + TypeParam() + textOf<TypeParam>("b");
    EXPECT_EQ(Ref(withZero).compare(withZero.c_str()), 1);
    EXPECT_EQ(Ref(withZero).compare(0, 3, withZero.c_str()), 1);
    EXPECT_EQ(Ref(withZero).compare(0, 1, withZero.c_str()), 0);
    EXPECT_EQ(Ref(withZero).compare(0, 3, withZero.c_str(), 3), 0) << "a count includes zeros";
}

TYPED_TEST(StringRefCompare, ASubRangeIsClampedAtTheEnd) {
    using Ref = basic_string_ref<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    const auto bc = textOf<TypeParam>("bc");
    EXPECT_EQ(Ref(abc).compare(1, 99, Ref(bc)), 0);
    EXPECT_EQ(Ref(abc).compare(1, Ref::npos, Ref(abc), 1, Ref::npos), 0);
    EXPECT_EQ(Ref(abc).compare(1, 99, bc.c_str()), 0);
    EXPECT_EQ(Ref(abc).compare(1, 99, bc.c_str(), 2), 0);
    EXPECT_EQ(Ref(abc).compare(3, 1, Ref()), 0) << "a position at the end is an empty range";
    EXPECT_EQ(Ref(abc).compare(3, 1, Ref(abc), 3, 1), 0);
    EXPECT_EQ(Ref(abc).compare(1, 0, Ref(bc)), -1);
}

TYPED_TEST(StringRefCompare, APositionBeyondTheEndThrows) {
    using Ref = basic_string_ref<TypeParam>;
    const auto abc = textOf<TypeParam>("abc");
    const Ref view = abc;
    static constexpr const char* MESSAGE = "basic_string_ref<CharT>::compare";
    for (const std::size_t pos : {std::size_t{4}, Ref::npos}) {
        const auto message = [](auto call) { return thrownMessage<std::out_of_range>(call); };
        EXPECT_EQ(message([&] { (void)view.compare(pos, 0, view); }), MESSAGE);
        EXPECT_EQ(message([&] { (void)view.compare(pos, 0, view, 0, 0); }), MESSAGE);
        EXPECT_EQ(message([&] { (void)view.compare(0, 0, view, pos, 0); }), MESSAGE);
        EXPECT_EQ(message([&] { (void)view.compare(pos, 0, abc.c_str()); }), MESSAGE);
        EXPECT_EQ(message([&] { (void)view.compare(pos, 0, abc.c_str(), 0); }), MESSAGE);
    }
    EXPECT_EQ(thrownMessage<std::out_of_range>([&] { (void)Ref().compare(1, 0, view); }), MESSAGE);
}

TYPED_TEST(StringRefCompare, RandomTextsGiveTheDocumentedValues) {
    using Ref = basic_string_ref<TypeParam>;
    using String = std::basic_string<TypeParam>;
    std::mt19937 random(1201);
    String alphabet = textOf<TypeParam>("ab\xFE");
    if constexpr (sizeof(TypeParam) > 1) {
        alphabet.push_back(static_cast<TypeParam>(0x100));
        alphabet.push_back(static_cast<TypeParam>(0x8001));
        alphabet.push_back(static_cast<TypeParam>(0xFFFF));
    }
    for (int i = 0; i < 30'000; ++i) {
        const String a = randomText(random, alphabet, 9);
        String b = randomText(random, alphabet, 9);
        if (i % 2 == 0) { // long common prefixes
            b = a.substr(0, below(random, a.size() + 1)) + b.substr(b.size() / 2);
        }
        const std::size_t pos = below(random, a.size() + 1);
        const std::size_t n = below(random, 12);
        const std::size_t pos2 = below(random, b.size() + 1);
        const std::size_t n2 = below(random, 12);
        const String part = a.substr(pos, n);
        const String part2 = b.substr(pos2, n2);
        const auto differ = [](const String& x, const String& y) {
            long left = 0;
            long right = 0;
            return firstDifference(x, y, left, right);
        };
        const Ref view = a;
        expectValue<TypeParam>(view.compare(Ref(b)), expectedWithLength(a, b, 2), differ(a, b));
        EXPECT_EQ(view.compare(b.c_str()), expectedTerminated(a, b));
        expectValue<TypeParam>(view.compare(pos, n, Ref(b)), expectedWithLength(part, b, 2),
                               differ(part, b));
        expectValue<TypeParam>(view.compare(pos, n, Ref(b), pos2, n2),
                               expectedWithLength(part, part2, 2), differ(part, part2));
        EXPECT_EQ(view.compare(pos, n, b.c_str()), expectedTerminated(part, b));
        expectValue<TypeParam>(view.compare(pos, n, b.c_str() + pos2, part2.size()),
                               expectedWithLength(part, part2, 1), differ(part, part2));
        ASSERT_EQ(signOf(view.compare(Ref(b))),
                  signOf(std::basic_string_view<TypeParam>(a).compare(b)));
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

// The examples that a reader finds in the documentation, and their kin.

TEST(StringRefCompareValues, OfAbcAndAb) {
    EXPECT_EQ(string_ref("abc").compare(string_ref("ab")), 2);
    EXPECT_EQ(string_ref("abc").compare("ab"), 1);
    EXPECT_EQ(string_ref("abc").compare(0, 3, "ab", 2), 1);
}

TEST(StringRefCompareValues, OfUtf16UnitsAreTheirDifference) {
    const ustring a = unitsOf({'a'});
    const ustring b = unitsOf({'b'});
    EXPECT_EQ(ustring_ref(a).compare(ustring_ref(b)), -1);
    const ustring high = unitsOf({0x100});
    const ustring low = unitsOf({1});
    const ustring_ref view = high;
    EXPECT_EQ(view.compare(ustring_ref(low)), 255);
    EXPECT_EQ(ustring_ref(low).compare(view), -255);
    EXPECT_EQ(view.compare(0, 1, ustring_ref(low)), 255);
    EXPECT_EQ(view.compare(0, 1, ustring_ref(low), 0, 1), 255);
    EXPECT_EQ(view.compare(0, 1, low.c_str(), 1), 255);
    EXPECT_EQ(view.compare(low.c_str()), 1) << "NUL-terminated texts give a bare sign";
    EXPECT_EQ(view.compare(0, 1, low.c_str()), 1);
    EXPECT_EQ(ustring_ref(low).compare(high.c_str()), -1);
    const ustring top = unitsOf({0xFFFF});
    const ustring zero = unitsOf({0});
    EXPECT_EQ(ustring_ref(top).compare(ustring_ref(zero)), 65535);
    EXPECT_EQ(ustring_ref(zero).compare(ustring_ref(top)), -65535);
}

TEST(StringRefCompareValues, OfCharAndWideUnitsAreBareSigns) {
    EXPECT_EQ(orv::u16string_ref(u"a").compare(orv::u16string_ref(u"z")), -1);
    EXPECT_EQ(orv::u16string_ref(u"z").compare(0, 1, u"a", 1), 1);
    EXPECT_EQ(orv::wstring_ref(L"z").compare(orv::wstring_ref(L"a")), 1);
    EXPECT_EQ(orv::wstring_ref(L"a").compare(0, 1, L"z", 1), -1);
}

TEST(StringRefCompareValues, BytesCompareUnsigned) {
    const string_ref high = "\x80";
    EXPECT_GT(high.compare(string_ref("\x7F")), 0);
    EXPECT_EQ(high.compare("\x7F"), 1);
    EXPECT_EQ(string_ref("\x7F").compare("\xFF"), -1);
    EXPECT_GT(high.compare(0, 1, "\x7F", 1), 0);
}

} // namespace

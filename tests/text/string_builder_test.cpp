// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `StringBuilder`: reading, appending, inserting, changing.
#include "orv/liborvxx/text/string_builder.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::StringBuilder;
using orv::ustring;
using orv::ustring_ref;

constexpr std::size_t npos = StringBuilder::npos;
static_assert(npos == static_cast<std::size_t>(-1));

static_assert(std::is_base_of_v<orv::Appendable, StringBuilder> &&
              std::is_base_of_v<orv::CharSequence, StringBuilder> &&
              sizeof(StringBuilder) == 2 * sizeof(void*) + sizeof(ustring));
static_assert(std::is_nothrow_default_constructible_v<StringBuilder> &&
              std::is_nothrow_move_constructible_v<StringBuilder> &&
              std::is_copy_constructible_v<StringBuilder> &&
              std::is_copy_assignable_v<StringBuilder> &&
              !std::is_convertible_v<std::size_t, StringBuilder> &&
              !std::is_convertible_v<ustring_ref, StringBuilder> &&
              !std::is_constructible_v<StringBuilder, std::nullptr_t>);

// What is appended and inserted, and what is neither unit nor number nor text.
template <typename T>
concept Appends = requires(StringBuilder& text, T value) {
    text.append(value);
};
template <typename T>
concept Inserts = requires(StringBuilder& text, T value) {
    text.insert(0, value);
};
template <typename T>
constexpr bool isTaken = Appends<T>&& Inserts<T>;
template <typename T>
constexpr bool isRefused = !Appends<T> && !Inserts<T>;

static_assert(isTaken<char16> && isTaken<char16_t> && isTaken<bool> && isTaken<short> &&
              isTaken<unsigned short> && isTaken<signed char> && isTaken<unsigned char> &&
              isTaken<int> && isTaken<unsigned int> && isTaken<long> && isTaken<unsigned long> &&
              isTaken<long long> && isTaken<unsigned long long> && isTaken<std::size_t> &&
              isTaken<std::ptrdiff_t> && isTaken<float> && isTaken<double>);
static_assert(isTaken<ustring> && isTaken<ustring_ref> && isTaken<const char16*> &&
              isTaken<orv::ustring_view>);
static_assert(isRefused<char> && isRefused<wchar_t> && isRefused<char8_t> && isRefused<char32_t> &&
              isRefused<const char*> && isRefused<const char16_t*> && isRefused<void*> &&
              isRefused<int*> && isRefused<std::string> && isRefused<long double> &&
              isRefused<const StringBuilder*> && isRefused<StringBuilder> &&
              isRefused<std::vector<bool>>);
static_assert(Appends<std::nullptr_t> && Appends<StringBuilder*> && !Inserts<StringBuilder*>);

// Editing can go on in the same expression, as the class.
static_assert(
    std::is_same_v<decltype(std::declval<StringBuilder&>().append(u'x')), StringBuilder&> &&
    std::is_same_v<decltype(std::declval<StringBuilder&>().append(char16())), StringBuilder&> &&
    std::is_same_v<decltype(std::declval<StringBuilder&>().append(nullptr)), StringBuilder&> &&
    std::is_same_v<decltype(std::declval<orv::Appendable&>().append(nullptr)), orv::Appendable&>);

TEST(StringBuilderTest, IsMadeEmptyWithRoomOrWithAText) {
    EXPECT_EQ(StringBuilder().length(), 0U);
    const StringBuilder roomy(1000);
    EXPECT_EQ(roomy.length(), 0U);
    EXPECT_GE(roomy.capacity(), 1000U);
    EXPECT_EQ(StringBuilder(u"text"_u).get(), u"text"_u);
    EXPECT_EQ(StringBuilder(ustring_ref()).get(), u""_u);
    ustring text(100, u'x');
    const char16* const units = text.data();
    const StringBuilder taken(std::move(text));
    EXPECT_EQ(taken.get().data(), units);
}

TEST(StringBuilderTest, CopiesAreApart) {
    StringBuilder text(u"one"_u);
    StringBuilder copy = text;
    copy.append(u'!');
    EXPECT_EQ(text.get(), u"one"_u);
    EXPECT_EQ(copy.get(), u"one!"_u);
    text = copy;
    EXPECT_EQ(text.get(), u"one!"_u);
    const StringBuilder moved = std::move(text);
    EXPECT_EQ(moved.get(), u"one!"_u);
}

TEST(StringBuilderTest, ReadsUnits) {
    const StringBuilder text(u"abc"_u);
    EXPECT_EQ(text.length(), 3U);
    EXPECT_EQ(text.charAt(0), u'a');
    EXPECT_EQ(text.charAt(2), u'c');
    EXPECT_EQ(text[1], u'b');
    static_assert(std::is_same_v<decltype(text[1]), char16>);
    EXPECT_EQ(text.toString(), u"abc"_u);
    EXPECT_NE(text.toString().data(), text.get().data());
}

TEST(StringBuilderTest, ReleaseTwiceGivesTheTextAndThenNothing) {
    StringBuilder text(ustring(100, u'x'));
    const char16* const units = text.get().data();
    const ustring first = text.release();
    EXPECT_EQ(first, ustring(100, u'x'));
    EXPECT_EQ(first.data(), units);
    EXPECT_EQ(text.length(), 0U);
    EXPECT_EQ(text.capacity(), ustring().capacity());
    EXPECT_EQ(text.release(), ustring());
    StringBuilder shortText(u"abc"_u);
    EXPECT_EQ(shortText.release(), u"abc"_u);
    EXPECT_EQ(shortText.release(), ustring());
    text.append(u"again"_u);
    EXPECT_EQ(text.get(), u"again"_u);
}

TEST(StringBuilderTest, GivesPartsOfItsOwn) {
    StringBuilder text(u"abcde"_u);
    const std::unique_ptr<orv::CharSequence> part = text.subSequence(1, 4);
    text.setLength(0);
    EXPECT_EQ(part->toString(), u"bcd"_u);
    EXPECT_NE(dynamic_cast<orv::StringCharSequence*>(part.get()), nullptr);
    EXPECT_EQ(text.subSequence(0, 0)->length(), 0U);
    text.append(u"abc"_u);
    EXPECT_EQ(text.subSequence(3, 3)->length(), 0U);
    EXPECT_EQ(text.subSequence(0, 3)->toString(), u"abc"_u);
}

TEST(StringBuilderTest, ReadsCodePoints) {
    const StringBuilder text(u"a\U00010000b\xD800"_u);
    EXPECT_EQ(text.codePointAt(0), U'a');
    EXPECT_EQ(text.codePointAt(1), U'\U00010000');
    EXPECT_EQ(text.codePointAt(2), char32_t{0xDC00});
    EXPECT_EQ(text.codePointAt(4), char32_t{0xD800});
    EXPECT_EQ(text.codePointBefore(3), U'\U00010000');
    EXPECT_EQ(text.codePointBefore(1), U'a');
    EXPECT_EQ(text.codePointCount(0, 5), 4U);
    EXPECT_EQ(text.codePointCount(1, 3), 1U);
    EXPECT_EQ(text.codePointCount(1, 2), 1U) << "a pair that the range cuts";
    EXPECT_EQ(text.codePointCount(5, 5), 0U);
    EXPECT_EQ(text.offsetByCodePoints(0, 2), 3U);
    EXPECT_EQ(text.offsetByCodePoints(3, -1), 1U);
    EXPECT_EQ(text.offsetByCodePoints(0, 9), npos);
}

TEST(StringBuilderTest, FindsFirstAndLast) {
    const StringBuilder text(u"abcabc"_u);
    EXPECT_EQ(text.indexOf(u"bc"_u), 1U);
    EXPECT_EQ(text.indexOf(u"bc"_u, 1), 1U);
    EXPECT_EQ(text.indexOf(u"bc"_u, 2), 4U);
    EXPECT_EQ(text.indexOf(u"bc"_u, 5), npos);
    EXPECT_EQ(text.indexOf(u"bc"_u, 7), npos);
    EXPECT_EQ(text.indexOf(u"x"_u), npos);
    EXPECT_EQ(text.indexOf(u""_u, 6), 6U);
    EXPECT_EQ(text.indexOf(ustring_ref(), 7), npos);
    EXPECT_EQ(text.lastIndexOf(u"bc"_u), 4U);
    EXPECT_EQ(text.lastIndexOf(u"bc"_u, 3), 1U);
    EXPECT_EQ(text.lastIndexOf(u"bc"_u, 0), npos);
    EXPECT_EQ(text.lastIndexOf(u"x"_u), npos);
    EXPECT_EQ(text.lastIndexOf(u""_u), 6U);
    EXPECT_EQ(text.lastIndexOf(u"abc"_u, 100), 3U);
}

TEST(StringBuilderTest, AppendsUnitsAndTexts) {
    StringBuilder text;
    text.append(char16(u'a')).append(u'b').append(u"cd"_u).append(ustring(u"ef"_u));
    text.append(u"0123"_u, 1, 3).append(u"0123"_u, 4, 4).append(ustring_ref());
    text.append(ustring_ref(), 0, 0);
    EXPECT_EQ(text.get(), u"abcdef12"_u);
}

TEST(StringBuilderTest, ANullSequenceIsTheTextNull) {
    StringBuilder text;
    text.append(nullptr).append(nullptr, 1, 3).append(nullptr, 0, 4).append(nullptr, 4, 4);
    text.append(static_cast<StringBuilder*>(nullptr));
    EXPECT_EQ(text.get(), u"nullulnullnull"_u);
}

TEST(StringBuilderTest, WritesTruthValues) {
    StringBuilder text;
    text.append(true).append(false).insert(4, false).insert(0, true);
    EXPECT_EQ(text.get(), u"truetruefalsefalse"_u);
}

template <typename Number>
void expectNumber(Number value, ustring_ref expected) {
    StringBuilder text(u"<>"_u);
    text.append(value);
    EXPECT_EQ(text.get(), u"<>"_u.to_string() + expected.to_string());
    text.setLength(2);
    text.insert(1, value);
    EXPECT_EQ(text.get(), u"<"_u.to_string() + expected.to_string() + u">"_u.to_string());
}

TEST(StringBuilderTest, WritesNumbersOfEveryType) {
    expectNumber(0, u"0"_u);
    expectNumber(INT_MIN, u"-2147483648"_u);
    expectNumber(UINT_MAX, u"4294967295"_u);
    expectNumber(LONG_MIN, u"-9223372036854775808"_u);
    expectNumber(ULONG_MAX, u"18446744073709551615"_u);
    expectNumber(LLONG_MIN, u"-9223372036854775808"_u);
    expectNumber(ULLONG_MAX, u"18446744073709551615"_u);
    expectNumber(static_cast<short>(-7), u"-7"_u);
    expectNumber(static_cast<unsigned char>('a'), u"97"_u);
    expectNumber(npos, u"18446744073709551615"_u);
    expectNumber(0.1F, u"0.1"_u);
    expectNumber(0.1, u"0.1"_u);
    expectNumber(-1e300, u"-1.0E300"_u);
    expectNumber(-2.2250738585072014E-308, u"-2.2250738585072014E-308"_u);
    expectNumber(std::numeric_limits<double>::infinity(), u"Infinity"_u);
    expectNumber(std::numeric_limits<float>::quiet_NaN(), u"NaN"_u);
    expectNumber(std::numeric_limits<float>::max(), u"3.4028235E38"_u);
}

TEST(StringBuilderTest, AppendsCodePointsAsOneOrTwoUnits) {
    StringBuilder text;
    text.appendCodePoint(U'a').appendCodePoint(0xFFFF).appendCodePoint(0x10000);
    text.appendCodePoint(0x10FFFF).appendCodePoint(0xD800);
    EXPECT_EQ(text.get(), u"a\uFFFF\U00010000\U0010FFFF\xD800"_u);
}

TEST(StringBuilderTest, InsertsAnywhereUpToTheEnd) {
    StringBuilder text(u"ad"_u);
    text.insert(1, u"bc"_u).insert(4, char16(u'e')).insert(0, u'_').insert(3, u""_u);
    text.insert(6, ustring_ref()).insert(6, 7);
    EXPECT_EQ(text.get(), u"_abcde7"_u);
}

TEST(StringBuilderTest, Replaces) {
    StringBuilder text(u"abcdef"_u);
    text.replace(1, 3, u"XYZ"_u);
    EXPECT_EQ(text.get(), u"aXYZdef"_u);
    text.replace(1, 4, ustring_ref());
    EXPECT_EQ(text.get(), u"adef"_u);
    text.replace(2, npos, u"!"_u);
    EXPECT_EQ(text.get(), u"ad!"_u) << "an end beyond the length is cut to it";
    text.replace(3, 9, u"?"_u).replace(0, 0, u">"_u);
    EXPECT_EQ(text.get(), u">ad!?"_u);
}

TEST(StringBuilderTest, Deletes) {
    StringBuilder text(u"abcdef"_u);
    text.deleteChars(1, 3).deleteChars(4, 4).deleteCharAt(0);
    EXPECT_EQ(text.get(), u"def"_u);
    text.deleteChars(2, 100);
    EXPECT_EQ(text.get(), u"de"_u);
    text.deleteChars(2, npos).deleteCharAt(1);
    EXPECT_EQ(text.get(), u"d"_u);
    text.deleteChars(0, npos);
    EXPECT_EQ(text.get(), u""_u);
    text.deleteChars(0, npos);
    EXPECT_EQ(text.get(), u""_u);
}

TEST(StringBuilderTest, ReverseKeepsPairs) {
    const auto reversed = [](ustring_ref text) { return StringBuilder(text).reverse().release(); };
    EXPECT_EQ(reversed(u"a\U00010000b"_u), u"b\U00010000a"_u);
    EXPECT_EQ(reversed(u""_u), u""_u);
    EXPECT_EQ(reversed(u"abc"_u), u"cba"_u);
    EXPECT_EQ(reversed(u"\U00010000\U00010401"_u), u"\U00010401\U00010000"_u);
}

TEST(StringBuilderTest, ReverseLetsLoneSurrogatesFall) {
    const auto reversed = [](ustring_ref text) { return StringBuilder(text).reverse().release(); };
    EXPECT_EQ(reversed(u"\xD800"
                       u"a\xDC00"_u),
              u"\xDC00"
              u"a\xD800"_u);
    EXPECT_EQ(reversed(u"\xD801\xD802\xDC00"_u), u"\xD802\xDC00\xD801"_u);
    EXPECT_EQ(reversed(u"\xD801\xDC00\xDC01"_u), u"\xDC01\xD801\xDC00"_u);
    EXPECT_EQ(reversed(u"\xDC00\xD800"_u), u"\xD800\xDC00"_u) << "now a pair";
    EXPECT_EQ(reversed(u"\xDC00\xD800\xDC01"_u), u"\xD800\xDC01\xDC00"_u);
}

TEST(StringBuilderTest, SetsUnitsLengthAndCapacity) {
    StringBuilder text(u"abc"_u);
    text.setCharAt(0, u'x');
    text.setCharAt(2, char16(u'z'));
    EXPECT_EQ(text.get(), u"xbz"_u);
    text.setLength(5);
    EXPECT_EQ(text.get(), ustring({u'x', u'b', u'z', u'\0', u'\0'}));
    text.setLength(1);
    EXPECT_EQ(text.get(), u"x"_u);
    text.setLength(3);
    EXPECT_EQ(text.get(), ustring({u'x', u'\0', u'\0'})) << "what was cut does not come back";
    text.ensureCapacity(500);
    EXPECT_GE(text.capacity(), 500U);
    EXPECT_EQ(text.length(), 3U);
    text.setLength(400);
    text.ensureCapacity(1);
    EXPECT_GE(text.capacity(), 400U);
    EXPECT_EQ(text.length(), 400U);
}

// The builder as a part of itself, where the text stays and where it must move to grow.

template <typename Edit>
void expectOfItself(ustring_ref expected, Edit edit) {
    for (const std::size_t capacity : {std::size_t{0}, std::size_t{1000}}) {
        StringBuilder text(u"abcdefgh"_u);
        text.ensureCapacity(capacity);
        const ustring_ref own = text.get();
        edit(text, own);
        EXPECT_EQ(text.get(), expected) << "capacity " << capacity;
    }
}

TEST(StringBuilderTest, TakesViewsOfItself) {
    expectOfItself(u"abcdefghabcdefgh"_u, [](auto& text, auto own) { text.append(own); });
    expectOfItself(u"abcdefghbcd"_u, [](auto& text, auto own) { text.append(own, 1, 4); });
    expectOfItself(u"abcabcdefghdefgh"_u, [](auto& text, auto own) { text.insert(3, own); });
    expectOfItself(u"abcbcdedefgh"_u,
                   [](auto& text, auto own) { text.insert(3, own.substr(1, 4)); });
    expectOfItself(u"abcabcdefghfgh"_u, [](auto& text, auto own) { text.replace(3, 5, own); });
    expectOfItself(u"abcdefghbcdef"_u,
                   [](auto& text, auto own) { text.replace(8, 8, own.substr(1, 5)); });
    expectOfItself(u"fgh"_u, [](auto& text, auto own) { text.replace(0, 8, own.substr(5)); });
    expectOfItself(u"cdeh"_u, [](auto& text, auto own) { text.replace(0, 7, own.substr(2, 3)); });
}

TEST(StringBuilderTest, TakesItselfAsASequence) {
    expectOfItself(u"abcdefghabcdefgh"_u, [](auto& text, auto) { text.append(&text); });
    expectOfItself(u"abcdefghcde"_u, [](auto& text, auto) { text.append(&text, 2, 5); });
    expectOfItself(u"abcdefgh"_u, [](auto& text, auto) { text.append(&text, 8, 8); });
}

} // namespace

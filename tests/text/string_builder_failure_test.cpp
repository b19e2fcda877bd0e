// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What `StringBuilder` refuses, with what messages, and that the text stays as it was.
#include "orv/liborvxx/text/string_builder.h"

#include "orv/liborvxx/text/detail/range_message.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <locale>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::StringBuilder;
using orv::ustring;
using orv::ustring_ref;

constexpr std::size_t npos = StringBuilder::npos;
constexpr std::size_t FIVE_BILLION = 5000000000;

// The formatter.

std::string message(const char* pattern) {
    return orv::detail::rangeMessage(pattern, "name", 3, FIVE_BILLION);
}

TEST(RangeMessage, PutsNameAndNumbersInPlace) {
    EXPECT_EQ(message("%s: start (%d) > end (%d)"), "name: start (3) > end (5000000000)");
    EXPECT_EQ(message("%d%d"), "35000000000");
    EXPECT_EQ(message("%s%s"), "namename");
    EXPECT_EQ(message("none"), "none");
    EXPECT_EQ(message(""), "");
    EXPECT_EQ(orv::detail::rangeMessage("%d %d", "", npos, 0), "18446744073709551615 0");
    EXPECT_EQ(orv::detail::rangeMessage("<%s>", "", 0, 0), "<>");
}

TEST(RangeMessage, TwoPercentSignsAreOne) {
    EXPECT_EQ(message("100%%"), "100%");
    EXPECT_EQ(message("%%d%d"), "%d3");
    EXPECT_EQ(message("%%%d%%"), "%3%");
    EXPECT_EQ(message("%%%%"), "%%");
}

TEST(RangeMessage, AnyOtherPercentSignStandsForItself) {
    EXPECT_EQ(message("%"), "%");
    EXPECT_EQ(message("%x %5d %D"), "%x %5d %D");
    EXPECT_EQ(message("end%"), "end%");
    EXPECT_EQ(message("%d %d %d"), "3 5000000000 %d");
    EXPECT_EQ(orv::detail::rangeMessage("%s", "%d%s%%", 1, 2), "%d%s%%") << "a name is no pattern";
}

// The operations.

template <typename Error = std::out_of_range>
void expectRefused(const std::string& expected, const std::function<void(StringBuilder&)>& edit) {
    StringBuilder text(u"abc"_u);
    EXPECT_EQ(orvtest::thrownMessage<Error>([&] { edit(text); }), expected);
    EXPECT_EQ(text.get(), u"abc"_u);
}

TEST(StringBuilderFailure, AppendTellsABadRangeOfAText) {
    expectRefused("append: start (3) > end (2)", [](auto& text) { text.append(u"xyz"_u, 3, 2); });
    expectRefused("append: start (9) > end (8)", [](auto& text) { text.append(u"xyz"_u, 9, 8); });
    expectRefused("append: start (5000000000) > end (4999999999)",
                  [](auto& text) { text.append(u"xyz"_u, FIVE_BILLION, FIVE_BILLION - 1); });
    expectRefused("append: end (4) > str.length() (3)",
                  [](auto& text) { text.append(u"xyz"_u, 0, 4); });
    expectRefused("append: end (18446744073709551615) > str.length() (3)",
                  [](auto& text) { text.append(u"xyz"_u, 1, npos); });
    expectRefused("append: end (1) > str.length() (0)",
                  [](auto& text) { text.append(ustring_ref(), 0, 1); });
}

TEST(StringBuilderFailure, AppendTellsABadRangeOfASequence) {
    orv::StringCharSequence sequence(u"xyz"_u);
    expectRefused("append: start (3) > end (2)", [&](auto& text) { text.append(&sequence, 3, 2); });
    expectRefused("append: start (5000000000) > end (3)",
                  [&](auto& text) { text.append(&sequence, FIVE_BILLION, 3); });
    expectRefused("append: end (4) > csq->length() (3)",
                  [&](auto& text) { text.append(&sequence, 0, 4); });
    expectRefused("append: end (5000000000) > csq->length() (3)",
                  [&](auto& text) { text.append(&sequence, 4, FIVE_BILLION); });
    expectRefused("append: end (4) > csq->length() (3)",
                  [](auto& text) { text.append(&text, 0, 4); });
}

TEST(StringBuilderFailure, AppendTellsABadRangeOfTheTextNull) {
    expectRefused("append: start (2) > end (1)", [](auto& text) { text.append(nullptr, 2, 1); });
    expectRefused("append: end (5) > str.length() (4)",
                  [](auto& text) { text.append(nullptr, 0, 5); });
    expectRefused("append: end (5000000000) > str.length() (4)",
                  [](auto& text) { text.append(nullptr, 5, FIVE_BILLION); });
}

// Claims to be very long, and counts what is asked of it.
class Endless : public orv::CharSequence {
public:
    explicit Endless(std::size_t length) : length_(length) {}

    std::size_t length() const override { return length_; }
    char16 charAt(std::size_t index) const override {
        ++asked;
        if (index == 100) {
            throw std::runtime_error("enough");
        }
        return u'x';
    }
    std::unique_ptr<CharSequence> subSequence(std::size_t, std::size_t) const override {
        return nullptr;
    }
    ustring toString() const override { return {}; }

    mutable std::size_t asked = 0;

private:
    std::size_t length_;
};

TEST(StringBuilderFailure, WhatNoStringCanHoldIsALengthError) {
    const std::size_t room = ustring().max_size() - 3;
    const std::string roomText = std::to_string(room);
    const auto told = [&](std::size_t count) {
        return "appendImpl: (end - start) (" + std::to_string(count) +
               ") > (<max_size> - this->length()) (" + roomText + ")";
    };
    Endless endless(npos);
    expectRefused<std::length_error>(told(npos), [&](auto& text) { text.append(&endless); });
    expectRefused<std::length_error>(told(room + 1),
                                     [&](auto& text) { text.append(&endless, 5, room + 6); });
    EXPECT_EQ(endless.asked, 0U);
    const char16 unit = u'x';
    expectRefused<std::length_error>(
        told(room + 1), [&](auto& text) { text.append(ustring_ref(&unit, room + 1)); });
    expectRefused<std::length_error>(
        told(npos - 1), [&](auto& text) { text.append(ustring_ref(&unit, npos), 0, npos - 1); });
}

TEST(StringBuilderFailure, ASequenceThatThrowsLeavesTheText) {
    Endless endless(200);
    expectRefused<std::runtime_error>("enough", [&](auto& text) { text.append(&endless); });
    EXPECT_EQ(endless.asked, 101U) << "one at a time, and only once each";
    StringBuilder text;
    text.append(&endless, 101, 200);
    EXPECT_EQ(text.get(), ustring(99, u'x'));
}

TEST(StringBuilderFailure, SubSequenceTellsABadRange) {
    expectRefused("subSequence: start (3) > end (2)", [](auto& text) { text.subSequence(3, 2); });
    expectRefused("subSequence: start (5000000000) > end (0)",
                  [](auto& text) { text.subSequence(FIVE_BILLION, 0); });
    expectRefused("subSequence: end (4) > this->length() (3)",
                  [](auto& text) { text.subSequence(0, 4); });
    expectRefused("subSequence: end (5000000000) > this->length() (3)",
                  [](auto& text) { text.subSequence(4, FIVE_BILLION); });
}

TEST(StringBuilderFailure, CodePointCountTellsABadRange) {
    expectRefused("codePointCount: beginIndex (3) > endIndex (2)",
                  [](auto& text) { text.codePointCount(3, 2); });
    expectRefused("codePointCount: beginIndex (5000000000) > endIndex (9)",
                  [](auto& text) { text.codePointCount(FIVE_BILLION, 9); });
    expectRefused("codePointCount: endIndex (4) >= this->length() (3)",
                  [](auto& text) { text.codePointCount(0, 4); });
    expectRefused("codePointCount: endIndex (5000000000) >= this->length() (3)",
                  [](auto& text) { text.codePointCount(4, FIVE_BILLION); });
}

TEST(StringBuilderFailure, DeleteAndReplaceTellABadRange) {
    expectRefused("deleteChars: start (2) > end (1)", [](auto& text) { text.deleteChars(2, 1); });
    expectRefused("deleteChars: start (5000000000) > end (1)",
                  [](auto& text) { text.deleteChars(FIVE_BILLION, 1); });
    expectRefused("invalid string position", [](auto& text) { text.deleteChars(4, 4); });
    expectRefused("invalid string position", [](auto& text) { text.deleteChars(4, npos); });
    expectRefused("deleteCharAt: index (3) >= this->length() (3)",
                  [](auto& text) { text.deleteCharAt(3); });
    expectRefused("deleteCharAt: index (18446744073709551615) >= this->length() (3)",
                  [](auto& text) { text.deleteCharAt(npos); });
    expectRefused("replace: start (2) > end (1)", [](auto& text) { text.replace(2, 1, u"x"_u); });
    expectRefused("replace: start (5000000000) > end (4)",
                  [](auto& text) { text.replace(FIVE_BILLION, 4, u"x"_u); });
    expectRefused("invalid string position", [](auto& text) { text.replace(4, 4, u"x"_u); });
    expectRefused("invalid string position", [](auto& text) { text.replace(4, npos, u"x"_u); });
}

TEST(StringBuilderFailure, ABadPlaceIsAnInvalidPosition) {
    const std::string expected = "invalid string position";
    expectRefused(expected, [](auto& text) { text.charAt(3); });
    expectRefused(expected, [](auto& text) { text.charAt(npos); });
    expectRefused(expected, [](auto& text) { text.setCharAt(3, u'x'); });
    expectRefused(expected, [](auto& text) { text.codePointAt(3); });
    expectRefused(expected, [](auto& text) { text.codePointBefore(0); });
    expectRefused(expected, [](auto& text) { text.codePointBefore(4); });
    expectRefused(expected, [](auto& text) { text.insert(4, char16(u'x')); });
    expectRefused(expected, [](auto& text) { text.insert(4, u'x'); });
    expectRefused(expected, [](auto& text) { text.insert(npos, u"x"_u); });
    expectRefused(expected, [](auto& text) { text.insert(4, ustring_ref()); });
    expectRefused(expected, [](auto& text) { text.insert(4, true); });
    expectRefused(expected, [](auto& text) { text.insert(4, 1); });
    expectRefused(expected, [](auto& text) { text.insert(4, 1U); });
    expectRefused(expected, [](auto& text) { text.insert(4, 1L); });
    expectRefused(expected, [](auto& text) { text.insert(4, 1UL); });
    expectRefused(expected, [](auto& text) { text.insert(4, 1LL); });
    expectRefused(expected, [](auto& text) { text.insert(4, 1ULL); });
    expectRefused(expected, [](auto& text) { text.insert(4, 1.0F); });
    expectRefused(expected, [](auto& text) { text.insert(4, 1.0); });
    expectRefused("Char16::offsetByCodePoints(const StringT &, size_type, difference_type)",
                  [](auto& text) { text.offsetByCodePoints(4, 0); });
}

// Writes numbers in groups, as the locales of many countries do.
class Grouping : public std::numpunct<char> {
protected:
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(StringBuilderFailure, TheNumbersArePlainWhateverTheGlobalLocale) {
    const std::locale before = std::locale::global(std::locale(std::locale(), new Grouping));
    expectRefused("deleteCharAt: index (5000000000) >= this->length() (3)",
                  [](auto& text) { text.deleteCharAt(FIVE_BILLION); });
    std::locale::global(before);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Char16`: code points in strings and views, against a plain list of code points.
#include "orv/liborvxx/text/code_points.h"

#include "tests/support/thrown_message.h"
#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using orv::Char16;
using orv::char16;
using orv::ustring;
using orv::ustring_ref;
using orvtest::below;
using orvtest::randomText;
using orvtest::thrownMessage;
using orvtest::unitsOf;

constexpr std::size_t npos = static_cast<std::size_t>(-1);
constexpr char COUNT_MESSAGE[] = "Char16::codePointCount(const StringT &, size_type, size_type)";
constexpr char OFFSET_MESSAGE[] =
    "Char16::offsetByCodePoints(const StringT &, size_type, difference_type)";

// Text of other types does not compile, and neither does writing to a view.
template <typename T>
concept HasCodePoints = requires(const T& text) {
    Char16::codePointAt(text, 0);
}
|| requires(const T& text) {
    Char16::codePointBefore(text, 1);
}
|| requires(const T& text) {
    Char16::codePointCount(text, 0, 1);
}
|| requires(const T& text) {
    Char16::offsetByCodePoints(text, 0, 1);
};
template <typename T>
concept TakesCodePoints = requires(T& text) {
    Char16::toChars(U'a', text);
}
|| requires(T& text) {
    Char16::toChars(U'a', text, 0);
};
static_assert(HasCodePoints<ustring> && HasCodePoints<ustring_ref>);
static_assert(!HasCodePoints<std::string> && !HasCodePoints<std::u16string>);
static_assert(TakesCodePoints<ustring>);
static_assert(!TakesCodePoints<ustring_ref> && !TakesCodePoints<std::u16string>);

static_assert(std::is_same_v<decltype(Char16::codePointAt(ustring(), 0)), char32_t> &&
              std::is_same_v<decltype(Char16::codePointCount(ustring(), 0, 0)), std::size_t> &&
              std::is_same_v<decltype(Char16::offsetByCodePoints(ustring(), 0, 0)), std::size_t>);

struct CodePoint {
    std::size_t index;
    char32_t value;
};

bool pairAt(const ustring& s, std::size_t i) {
    return i + 1 < s.size() && Char16::isSurrogatePair(s[i], s[i + 1]);
}

// The code points in order, with the index of each.
std::vector<CodePoint> codePointsOf(const ustring& s) {
    std::vector<CodePoint> all;
    for (std::size_t i = 0; i < s.size(); ++i) {
        if (pairAt(s, i)) {
            const auto high = static_cast<char32_t>(s[i]) - 0xD800;
            all.push_back({i, 0x10000 + high * 0x400 + static_cast<char32_t>(s[i + 1]) - 0xDC00});
            ++i;
        } else {
            all.push_back({i, static_cast<char32_t>(s[i])});
        }
    }
    return all;
}

template <typename StringT>
class CodePointsInText : public testing::Test {
public:
    static constexpr const char* BAD_INDEX = std::is_same_v<StringT, ustring>
                                                 ? "invalid string position"
                                                 : "basic_string_ref<CharT>::at";
};

using TextTypes = testing::Types<ustring, ustring_ref>;
TYPED_TEST_SUITE(CodePointsInText, TextTypes);

TYPED_TEST(CodePointsInText, RandomTextsAgreeWithTheListOfTheirCodePoints) {
    std::mt19937 random(1301);
    const ustring alphabet =
        unitsOf({'a', 0xD7FF, 0xD800, 0xD83D, 0xDBFF, 0xDC00, 0xDE00, 0xDFFF, 0xE000, 0xFFFF});
    for (int round = 0; round < 3000; ++round) {
        const ustring units = randomText(random, alphabet, 8);
        const TypeParam s = units;
        for (std::size_t i = 0; i < units.size(); ++i) {
            // A code point is read from any index, also from the middle of a pair.
            ASSERT_EQ(Char16::codePointAt(s, i), codePointsOf(units.substr(i)).front().value);
            ASSERT_EQ(Char16::codePointBefore(s, i + 1),
                      codePointsOf(units.substr(0, i + 1)).back().value);
        }
        for (std::size_t index = 0; index <= units.size(); ++index) {
            for (std::size_t count = 0; count <= units.size() + 2; ++count) {
                ASSERT_EQ(Char16::codePointCount(s, index, count),
                          codePointsOf(units.substr(index, count)).size());
            }
            ASSERT_EQ(Char16::codePointCount(s, index, npos),
                      codePointsOf(units.substr(index)).size());

            const std::vector<CodePoint> after = codePointsOf(units.substr(index));
            const std::vector<CodePoint> before = codePointsOf(units.substr(0, index));
            for (std::size_t steps = 0; steps <= units.size() + 2; ++steps) {
                const auto offset = static_cast<std::ptrdiff_t>(steps);
                const std::size_t forward = steps < after.size()    ? index + after[steps].index
                                            : steps == after.size() ? units.size()
                                                                    : npos;
                ASSERT_EQ(Char16::offsetByCodePoints(s, index, offset), forward);
                const std::size_t back = steps == 0 ? index
                                         : steps > before.size()
                                             ? npos
                                             : before[before.size() - steps].index;
                ASSERT_EQ(Char16::offsetByCodePoints(s, index, -offset), back);
            }
        }
    }
}

TYPED_TEST(CodePointsInText, AHighHalfAtTheEndIsItself) {
    const ustring units = unitsOf({'a', 0xD83D});
    EXPECT_EQ(Char16::codePointAt<TypeParam>(units, 1), 0xD83DU);
    const ustring pair = unitsOf({0xD83D, 0xDE00});
    EXPECT_EQ(Char16::codePointAt<TypeParam>(pair, 0), 0x1F600U);
    EXPECT_EQ(Char16::codePointAt<TypeParam>(pair, 1), 0xDE00U);
}

TYPED_TEST(CodePointsInText, ALowHalfAtTheStartIsItself) {
    const ustring units = unitsOf({0xDE00, 'a'});
    EXPECT_EQ(Char16::codePointBefore<TypeParam>(units, 1), 0xDE00U);
    const ustring pair = unitsOf({0xD83D, 0xDE00});
    EXPECT_EQ(Char16::codePointBefore<TypeParam>(pair, 2), 0x1F600U);
    EXPECT_EQ(Char16::codePointBefore<TypeParam>(pair, 1), 0xD83DU);
}

TYPED_TEST(CodePointsInText, AnIndexOutsideTheTextThrows) {
    const ustring units = unitsOf({'a', 'b'});
    const TypeParam s = units;
    const TypeParam empty{};
    const auto message = [](auto call) { return thrownMessage<std::out_of_range>(call); };
    EXPECT_EQ(message([&] { Char16::codePointAt(s, 2); }), this->BAD_INDEX);
    EXPECT_EQ(message([&] { Char16::codePointAt(s, npos); }), this->BAD_INDEX);
    EXPECT_EQ(message([&] { Char16::codePointAt(empty, 0); }), this->BAD_INDEX);
    EXPECT_EQ(message([&] { Char16::codePointBefore(s, 0); }), this->BAD_INDEX);
    EXPECT_EQ(message([&] { Char16::codePointBefore(s, 3); }), this->BAD_INDEX);
    EXPECT_EQ(message([&] { Char16::codePointBefore(empty, 0); }), this->BAD_INDEX);
    EXPECT_EQ(message([&] { Char16::codePointBefore(empty, 1); }), this->BAD_INDEX);
    EXPECT_EQ(message([&] { Char16::codePointCount(s, 3, 0); }), COUNT_MESSAGE);
    EXPECT_EQ(message([&] { Char16::codePointCount(s, npos, npos); }), COUNT_MESSAGE);
    EXPECT_EQ(message([&] { Char16::offsetByCodePoints(s, 3, 0); }), OFFSET_MESSAGE);
    EXPECT_EQ(message([&] { Char16::offsetByCodePoints(s, 3, -1); }), OFFSET_MESSAGE);
    EXPECT_EQ(message([&] { Char16::offsetByCodePoints(empty, 1, 1); }), OFFSET_MESSAGE);
}

TYPED_TEST(CodePointsInText, CountTakesUnitsAndCountsCodePoints) {
    const ustring units = unitsOf({0xD83D, 0xDE00, 0xDE00});
    const TypeParam s = units;
    EXPECT_EQ(Char16::codePointCount(s, 0, 3), 2U);
    EXPECT_EQ(Char16::codePointCount(s, 0, 2), 1U);
    EXPECT_EQ(Char16::codePointCount(s, 0, 1), 1U) << "half a pair counts 1";
    EXPECT_EQ(Char16::codePointCount(s, 1, 2), 2U) << "a count of units, not an end";
    EXPECT_EQ(Char16::codePointCount(s, 3, 5), 0U);
    EXPECT_EQ(Char16::codePointCount(s, 3, 0), 0U);
}

TYPED_TEST(CodePointsInText, AnOffsetOffEitherEndGivesNpos) {
    const TypeParam empty{};
    EXPECT_EQ(Char16::offsetByCodePoints(empty, 0, 1), npos);
    EXPECT_EQ(Char16::offsetByCodePoints(empty, 0, -1), npos);
    EXPECT_EQ(Char16::offsetByCodePoints(empty, 0, 0), 0U);
    const ustring units = unitsOf({'a', 0xD83D, 0xDE00});
    const TypeParam s = units;
    EXPECT_EQ(Char16::offsetByCodePoints(s, 3, 0), 3U);
    EXPECT_EQ(Char16::offsetByCodePoints(s, 0, 2), 3U);
    EXPECT_EQ(Char16::offsetByCodePoints(s, 0, 3), npos);
    EXPECT_EQ(Char16::offsetByCodePoints(s, 3, -2), 0U);
    EXPECT_EQ(Char16::offsetByCodePoints(s, 3, -3), npos);
    EXPECT_EQ(Char16::offsetByCodePoints(s, 1, std::numeric_limits<std::ptrdiff_t>::max()), npos);
    EXPECT_EQ(Char16::offsetByCodePoints(s, 1, std::numeric_limits<std::ptrdiff_t>::min()), npos);
}

TEST(Char16ToChars, AppendsOneOrTwoUnits) {
    ustring s = unitsOf({'x'});
    EXPECT_EQ(Char16::toChars(U'a', s), 1U);
    EXPECT_EQ(Char16::toChars(0xFFFF, s), 1U);
    EXPECT_EQ(Char16::toChars(0xD800, s), 1U) << "a surrogate is a unit like any other";
    EXPECT_EQ(Char16::toChars(0x10000, s), 2U);
    EXPECT_EQ(Char16::toChars(0x10FFFF, s), 2U);
    EXPECT_EQ(s, unitsOf({'x', 'a', 0xFFFF, 0xD800, 0xD800, 0xDC00, 0xDBFF, 0xDFFF}));
}

TEST(Char16ToChars, FoldsValuesAboveTheLastCodePoint) {
    ustring s;
    EXPECT_EQ(Char16::toChars(0x110000, s), 2U);
    EXPECT_EQ(Char16::toChars(0xFFFFFFFF, s), 2U);
    EXPECT_EQ(s, unitsOf({0xD800, 0xDC00, 0xDBBF, 0xDFFF}));
    ASSERT_EQ(Char16::toChars(0x110041, s, 0), 2U);
    EXPECT_EQ(s, unitsOf({0xD800, 0xDC41, 0xDBBF, 0xDFFF}));
}

TEST(Char16ToChars, EveryCodePointIsReadBack) {
    ustring s;
    for (char32_t cp = 0; cp <= 0x10FFFF; ++cp) {
        s.clear();
        ASSERT_EQ(Char16::toChars(cp, s), Char16::charCount(cp));
        ASSERT_EQ(s.size(), Char16::charCount(cp));
        ASSERT_EQ(Char16::codePointAt(s, 0), cp);
        ASSERT_EQ(Char16::codePointBefore(s, s.size()), cp);
    }
}

TEST(Char16ToChars, OverwritesInPlaceAndAppendsBeyondTheEnd) {
    const ustring abc = unitsOf({'a', 'b', 'c'});
    struct Row {
        char32_t cp;
        std::size_t index;
        ustring result;
    };
    for (const Row& row :
         {Row{U'z', 0, unitsOf({'z', 'b', 'c'})}, Row{U'z', 2, unitsOf({'a', 'b', 'z'})},
          Row{U'z', 3, unitsOf({'a', 'b', 'c', 'z'})}, Row{U'z', 99, unitsOf({'a', 'b', 'c', 'z'})},
          Row{U'z', npos, unitsOf({'a', 'b', 'c', 'z'})},
          Row{0x10000, 0, unitsOf({0xD800, 0xDC00, 'c'})},
          Row{0x10000, 1, unitsOf({'a', 0xD800, 0xDC00})},
          Row{0x10000, 2, unitsOf({'a', 'b', 0xD800, 0xDC00})},
          Row{0x10000, 3, unitsOf({'a', 'b', 'c', 0xD800, 0xDC00})},
          Row{0x10000, 99, unitsOf({'a', 'b', 'c', 0xD800, 0xDC00})},
          Row{0x10000, npos, unitsOf({'a', 'b', 'c', 0xD800, 0xDC00})}}) {
        ustring s = abc;
        EXPECT_EQ(Char16::toChars(row.cp, s, row.index), Char16::charCount(row.cp));
        EXPECT_EQ(s, row.result) << static_cast<unsigned int>(row.cp) << " at " << row.index;
    }
    ustring empty;
    EXPECT_EQ(Char16::toChars(0x10000, empty, 0), 2U);
    EXPECT_EQ(empty, unitsOf({0xD800, 0xDC00}));
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Integers from text: grammar, radixes, prefixes and messages, for every name, in every
/// shape and in both types of characters.
#include "tests/number/integer_readers.h"

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/text/literals.h"

#include <limits>

namespace {

using namespace orvtest;
using namespace orv::literals;
using orv::char16;

constexpr char DECIMAL[] = "decimal number expected";

constexpr orv::ustring_ref OTHER_SPACES[] = {u"\u00A05"_u, u"\u30005"_u, u"\u20095"_u,
                                             u"\uFEFF5"_u};
constexpr orv::ustring_ref ARABIC = u"\u0661\u0662\u0663"_u;
constexpr orv::ustring_ref MIXED = u"1\u09682\uFF13x"_u; // Devanagari, full width
constexpr orv::ustring_ref PREFIXED = u"\uFF10xf\u0661"_u;
constexpr orv::ustring_ref WIDE_LETTERS = u"1\uFF21\u0391"_u; // full width, Greek
constexpr orv::ustring_ref ASCII_IN_LOW_BYTES = u"1\u0131\u0141"_u;

template <class Name>
class StringToInteger : public testing::Test {
public:
    using Type = typename Name::Type;
    static constexpr Type MAX = std::numeric_limits<Type>::max();
};
TYPED_TEST_SUITE(StringToInteger, IntegerNames);

template <class Name>
using StringToSigned = StringToInteger<Name>;
TYPED_TEST_SUITE(StringToSigned, SignedIntegerNames);

template <class Name>
using StringToUnsigned = StringToInteger<Name>;
TYPED_TEST_SUITE(StringToUnsigned, UnsignedIntegerNames);

TYPED_TEST(StringToInteger, ReadsDecimalDigitsAndLeavesTheRest) {
    EXPECT_EQ(readEverywhere<TypeParam>("0"), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("12"), number<TypeParam>(12, 2));
    EXPECT_EQ(readEverywhere<TypeParam>("12abc"), number<TypeParam>(12, 2));
    EXPECT_EQ(readEverywhere<TypeParam>("12 34"), number<TypeParam>(12, 2));
    EXPECT_EQ(readEverywhere<TypeParam>("1,234.5"), number<TypeParam>(1, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("12-"), number<TypeParam>(12, 2));
    EXPECT_EQ(readEverywhere<TypeParam>("1234567890"), number<TypeParam>(1234567890, 10));
}

TYPED_TEST(StringToInteger, LeadingZerosDoNotCount) {
    for (std::size_t zeros = 0; zeros < 100; ++zeros) {
        const std::string text = std::string(zeros, '0') + "1234567890";
        EXPECT_EQ(readEverywhere<TypeParam>(text), number<TypeParam>(1234567890, zeros + 10));
        EXPECT_EQ(readEverywhere<TypeParam>(std::string(zeros + 1, '0')),
                  number<TypeParam>(0, zeros + 1));
    }
}

TYPED_TEST(StringToInteger, SkipsTheSixClassicSpaces) {
    EXPECT_EQ(readEverywhere<TypeParam>(" \t\n\v\f\r 12 "), number<TypeParam>(12, 9));
    EXPECT_EQ(readEverywhere<TypeParam>(std::string(100, ' ') + "7"), number<TypeParam>(7, 101));
    EXPECT_EQ(readEverywhere<TypeParam>("0 "), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("   "), noNumber<TypeParam>(DECIMAL));
    EXPECT_EQ(readEverywhere<TypeParam>(" \t\n\v\f\r"), noNumber<TypeParam>(DECIMAL));
}

TYPED_TEST(StringToInteger, SkipsNoOtherUnit) {
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const char16_t c = static_cast<char16_t>(unit);
        const bool isSpace = unit == 0x20 || (unit >= 0x09 && unit <= 0x0D);
        const char16 text[] = {c, u'5'};
        const auto read = orv::from_chars_c<typename TypeParam::Type>(orv::ustring_ref(text, 2));
        const bool isSign = unit == '+' || unit == '-';
        if (!isSign && orvUniCharDigitValue(unit) < 0) {
            ASSERT_EQ(read.length, isSpace ? 2U : 0U) << unit;
        }
        if (unit < 0x100 && !isSign && (unit < '0' || unit > '9')) {
            const char bytes[] = {static_cast<char>(unit), '5'};
            ASSERT_EQ(orv::from_chars_c<typename TypeParam::Type>(orv::string_ref(bytes, 2)).length,
                      isSpace ? 2U : 0U)
                << unit;
        }
    }
    for (const orv::ustring_ref& text : OTHER_SPACES) {
        EXPECT_EQ(readInShapes<TypeParam>(text.to_string(), 10), noNumber<TypeParam>(DECIMAL));
    }
}

TYPED_TEST(StringToInteger, NeedsADigit) {
    for (const char* text : {"", "x", "abc", "+", "-", "+-1", "-+1", "--1", "+ 1", "- 1", "+x", ".",
                             ",1", "/", ":", "@", "inf", "nan", "?5"}) {
        EXPECT_EQ(readEverywhere<TypeParam>(text), noNumber<TypeParam>(DECIMAL)) << text;
        EXPECT_EQ(readEverywhere<TypeParam>(text, 0), noNumber<TypeParam>(DECIMAL)) << text;
    }
    EXPECT_EQ(readEverywhere<TypeParam>("8", 8), noNumber<TypeParam>("octal number expected"));
    EXPECT_EQ(readEverywhere<TypeParam>("g", 16),
              noNumber<TypeParam>("hexadecimal number expected"));
    EXPECT_EQ(readEverywhere<TypeParam>("2", 2), noNumber<TypeParam>("digit ([0..1]) expected"));
    EXPECT_EQ(readEverywhere<TypeParam>("-", 36), noNumber<TypeParam>("digit ([0..Z]) expected"));
}

TYPED_TEST(StringToInteger, NamesTheHighestDigitOfEachRadix) {
    constexpr std::string_view HIGHEST = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (int radix = 1; radix <= 36; ++radix) {
        std::string message = std::string("digit ([0..") +
                              HIGHEST[static_cast<std::size_t>(radix) - 1] + "]) expected";
        if (radix == 8) {
            message = "octal number expected";
        } else if (radix == 10) {
            message = DECIMAL;
        } else if (radix == 16) {
            message = "hexadecimal number expected";
        }
        EXPECT_EQ(readEverywhere<TypeParam>("", radix), noNumber<TypeParam>(message));
        EXPECT_EQ(readEverywhere<TypeParam>("!", radix), noNumber<TypeParam>(message));
    }
}

TYPED_TEST(StringToInteger, ReadsTheDigitsOfEachRadixInEitherCase) {
    constexpr std::string_view SMALL = "0123456789abcdefghijklmnopqrstuvwxyz";
    constexpr std::string_view LARGE = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (int radix = 1; radix <= 36; ++radix) {
        for (std::size_t digit = 0; digit < 36; ++digit) {
            const auto value = static_cast<typename TypeParam::Type>(digit);
            const bool counts = digit < static_cast<std::size_t>(radix);
            for (const char c : {SMALL[digit], LARGE[digit]}) {
                const std::string one(1, c);
                EXPECT_EQ(readEverywhere<TypeParam>("1" + one, radix).length, radix == 1 ? 0U
                                                                              : counts   ? 2U
                                                                                         : 1U);
                const auto outcome = readEverywhere<TypeParam>(one, radix);
                EXPECT_EQ(outcome.length, counts ? 1U : 0U);
                EXPECT_EQ(outcome.value, counts ? value : 0);
            }
        }
    }
}

TYPED_TEST(StringToInteger, EndsAtEachUnitThatIsNoDigit) {
    for (unsigned byte = 0; byte < 0x100; ++byte) {
        if (byte < '0' || byte > '9') {
            const std::string text = std::string("12") + static_cast<char>(byte) + "3456789";
            EXPECT_EQ(readEverywhere<TypeParam>(text), number<TypeParam>(12, 2)) << byte;
            EXPECT_EQ(readEverywhere<TypeParam>("12345678" + text),
                      readEverywhere<TypeParam>("1234567812"))
                << byte;
        }
    }
}

TYPED_TEST(StringToInteger, ReadsTheDigitsOfOtherScripts) {
    EXPECT_EQ(readInShapes<TypeParam>(ARABIC.to_string(), 10), number<TypeParam>(123, 3));
    EXPECT_EQ(readInShapes<TypeParam>(MIXED.to_string(), 10), number<TypeParam>(1223, 4));
    EXPECT_EQ(readInShapes<TypeParam>(PREFIXED.to_string(), 0), number<TypeParam>(0xF1, 4));
}

TYPED_TEST(StringToInteger, TellsEachUnitAtEachPlaceFromADigit) {
    // Places and lengths of all the ways in which several units are read at once.
    for (const std::size_t size : {1U, 2U, 3U, 4U, 6U, 7U, 8U, 9U}) {
        for (std::size_t place = 0; place < size; ++place) {
            orv::ustring text(size, u'1');
            for (unsigned unit = 0x80; unit < 0x10000; ++unit) {
                text[place] = char16(static_cast<char16_t>(unit));
                const int digit = orvUniCharDigitValue(unit);
                const auto read = orv::from_chars_c<typename TypeParam::Type>(text);
                ASSERT_LE(digit, 9) << unit;
                ASSERT_EQ(read.length, digit < 0 ? place : size) << unit << " at " << place;
                if (digit >= 0) {
                    std::string ascii(size, '1');
                    ascii[place] = static_cast<char>('0' + digit);
                    ASSERT_EQ(std::to_string(read.value), std::to_string(std::stoll(ascii)))
                        << unit << " at " << place;
                }
            }
        }
    }
}

TYPED_TEST(StringToInteger, EndsWhereTheViewEnds) {
    const std::string digits = "123456789012345!"; // digits follow, but not many
    const orv::ustring wide = textIn<char16>(digits);
    for (std::size_t begin = 0; begin < 10; ++begin) {
        for (std::size_t size = 1; size <= 9 && begin + size <= 15; ++size) {
            const auto expected = std::stoll(digits.substr(begin, size));
            const auto read = orv::from_chars_c<typename TypeParam::Type>(
                orv::string_ref(digits).substr(begin, size));
            EXPECT_EQ(std::to_string(read.value), std::to_string(expected));
            EXPECT_EQ(read.length, size);
            const auto same = orv::from_chars_c<typename TypeParam::Type>(
                orv::ustring_ref(wide).substr(begin, size));
            EXPECT_EQ(same.value, read.value);
            EXPECT_EQ(same.length, size);
        }
    }
}

TYPED_TEST(StringToInteger, LettersOfOtherScriptsAndWidthsAreNoDigits) {
    EXPECT_EQ(readInShapes<TypeParam>(WIDE_LETTERS.to_string(), 36), number<TypeParam>(1, 1));
    EXPECT_EQ(readInShapes<TypeParam>(ASCII_IN_LOW_BYTES.to_string(), 36), number<TypeParam>(1, 1));
}

TYPED_TEST(StringToInteger, ANulWithinTheTextEndsTheNumber) {
    EXPECT_EQ(readEverywhere<TypeParam>(std::string_view("12\00034", 5)), number<TypeParam>(12, 2));
    EXPECT_EQ(readEverywhere<TypeParam>(std::string_view("\00012", 3)),
              noNumber<TypeParam>(DECIMAL));
    EXPECT_EQ(readEverywhere<TypeParam>(std::string_view("0x\0001", 4), 0),
              number<TypeParam>(0, 1));
}

TYPED_TEST(StringToInteger, Radix0TakesThePrefix) {
    EXPECT_EQ(readEverywhere<TypeParam>("0x1F", 0), number<TypeParam>(31, 4));
    EXPECT_EQ(readEverywhere<TypeParam>("0XfF", 0), number<TypeParam>(255, 4));
    EXPECT_EQ(readEverywhere<TypeParam>(" 0x1Fg", 0), number<TypeParam>(31, 5));
    EXPECT_EQ(readEverywhere<TypeParam>("017", 0), number<TypeParam>(15, 3));
    EXPECT_EQ(readEverywhere<TypeParam>("00x17", 0), number<TypeParam>(0, 2));
    EXPECT_EQ(readEverywhere<TypeParam>("17", 0), number<TypeParam>(17, 2));
    EXPECT_EQ(readEverywhere<TypeParam>("0", 0), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("09", 0), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("0x", 0), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("0xg", 0), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("0x 1", 0), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("0x0x1", 0), number<TypeParam>(0, 3));
    EXPECT_EQ(readEverywhere<TypeParam>("0b11", 0), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("x1", 0), noNumber<TypeParam>(DECIMAL));
}

TYPED_TEST(StringToInteger, Radix16AcceptsThePrefix) {
    EXPECT_EQ(readEverywhere<TypeParam>("0x1F", 16), number<TypeParam>(31, 4));
    EXPECT_EQ(readEverywhere<TypeParam>("0X1f", 16), number<TypeParam>(31, 4));
    EXPECT_EQ(readEverywhere<TypeParam>("1F", 16), number<TypeParam>(31, 2));
    EXPECT_EQ(readEverywhere<TypeParam>("01F", 16), number<TypeParam>(31, 3));
    EXPECT_EQ(readEverywhere<TypeParam>("0x", 16), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("0xg", 16), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("00x1", 16), number<TypeParam>(0, 2));
    EXPECT_EQ(readEverywhere<TypeParam>("x1", 16),
              noNumber<TypeParam>("hexadecimal number expected"));
}

TYPED_TEST(StringToInteger, NoOtherRadixTakesAPrefix) {
    EXPECT_EQ(readEverywhere<TypeParam>("0x1F"), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("017"), number<TypeParam>(17, 3));
    EXPECT_EQ(readEverywhere<TypeParam>("0x17", 8), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("017", 8), number<TypeParam>(15, 3));
    EXPECT_EQ(readEverywhere<TypeParam>("0x1", 34), number<TypeParam>(33 * 34 + 1, 3));
}

TYPED_TEST(StringToInteger, Radix1KnowsTheDigitZeroAlone) {
    EXPECT_EQ(readEverywhere<TypeParam>("0", 1), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>(std::string(100, '0') + "1", 1), number<TypeParam>(0, 100));
    EXPECT_EQ(readEverywhere<TypeParam>("1", 1), noNumber<TypeParam>("digit ([0..0]) expected"));
}

TYPED_TEST(StringToInteger, LargerRadixesKnowNoDigitBeyondZ) {
    EXPECT_EQ(readEverywhere<TypeParam>("z1", 37), number<TypeParam>(35 * 37 + 1, 2));
    EXPECT_EQ(readEverywhere<TypeParam>("Z[", 1000), number<TypeParam>(35, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("12{", 1000000), number<TypeParam>(1000002, 2));
    constexpr int HUGE_RADIX = std::numeric_limits<int>::max();
    EXPECT_EQ(readEverywhere<TypeParam>("10", HUGE_RADIX), number<TypeParam>(HUGE_RADIX, 2));
    EXPECT_EQ(readEverywhere<TypeParam>("zzzz", HUGE_RADIX),
              outOfRange<TypeParam>(TestFixture::MAX, 4));
    EXPECT_EQ(readEverywhere<TypeParam>("!", 37), noNumber<TypeParam>("digit ([0..[]) expected"));
    EXPECT_EQ(readEverywhere<TypeParam>("{", 50), noNumber<TypeParam>("digit ([0..h]) expected"));
    // The sum is cut to eight bits.
    EXPECT_EQ(readEverywhere<TypeParam>("!", 256 + 11),
              noNumber<TypeParam>("digit ([0..A]) expected"));
    EXPECT_EQ(readEverywhere<TypeParam>("!", HUGE_RADIX),
              noNumber<TypeParam>("digit ([0..5]) expected"));
}

TYPED_TEST(StringToInteger, NegativeRadixesHaveNoDigits) {
    for (const char* text : {"", "0", "1", "z", "0x1"}) {
        EXPECT_EQ(readEverywhere<TypeParam>(text, -5),
                  noNumber<TypeParam>("digit ([0..*]) expected"));
        EXPECT_EQ(readEverywhere<TypeParam>(text, std::numeric_limits<int>::min()),
                  noNumber<TypeParam>("digit ([0../]) expected"));
    }
}

TYPED_TEST(StringToInteger, ReadsFromANullViewNothing) {
    const auto& readers = TypeParam::template readers<char>;
    EXPECT_EQ(thrownMessage<std::invalid_argument>(
                  [&] { readers.ofView(orv::string_ref(), nullptr, 10); }),
              DECIMAL);
    EXPECT_EQ(orv::from_chars_c<typename TypeParam::Type>(orv::ustring_ref(), 0).status,
              orv::number_status::digit_expected);
}

TYPED_TEST(StringToSigned, TakesASign) {
    EXPECT_EQ(readEverywhere<TypeParam>("  +12abc"), number<TypeParam>(12, 5));
    EXPECT_EQ(readEverywhere<TypeParam>("-12"), number<TypeParam>(-12, 3));
    EXPECT_EQ(readEverywhere<TypeParam>("\t-0"), number<TypeParam>(0, 3));
    EXPECT_EQ(readEverywhere<TypeParam>("+0x1F", 0), number<TypeParam>(31, 5));
    EXPECT_EQ(readEverywhere<TypeParam>("-0x1F", 16), number<TypeParam>(-31, 5));
    EXPECT_EQ(readEverywhere<TypeParam>("-017", 0), number<TypeParam>(-15, 4));
    EXPECT_EQ(readEverywhere<TypeParam>("0x-1", 16), number<TypeParam>(0, 1));
    EXPECT_EQ(readEverywhere<TypeParam>("-0x", 16), number<TypeParam>(0, 2));
    EXPECT_EQ(readEverywhere<TypeParam>("-1234567"), number<TypeParam>(-1234567, 8));
    EXPECT_EQ(readEverywhere<TypeParam>("-12345678"), number<TypeParam>(-12345678, 9));
}

TYPED_TEST(StringToUnsigned, TakesNoSign) {
    for (const char* text : {"-1", "+1", "-0", "+0", "  -1", "-"}) {
        EXPECT_EQ(readEverywhere<TypeParam>(text), noNumber<TypeParam>(DECIMAL));
        EXPECT_EQ(readEverywhere<TypeParam>(text, 0), noNumber<TypeParam>(DECIMAL));
    }
    EXPECT_EQ(readEverywhere<TypeParam>("-1", 16),
              noNumber<TypeParam>("hexadecimal number expected"));
}

TEST(StringToIntegerNames, SayTheWidthOnEveryPlatform) {
    static_assert(std::is_same_v<decltype(orv::stoi_c("1")), std::int32_t>);
    static_assert(std::is_same_v<decltype(orv::stol_c("1")), std::int32_t>);
    static_assert(std::is_same_v<decltype(orv::stoll_c("1")), std::int64_t>);
    static_assert(std::is_same_v<decltype(orv::stoui_c("1")), std::uint32_t>);
    static_assert(std::is_same_v<decltype(orv::stoul_c("1")), std::uint32_t>);
    static_assert(std::is_same_v<decltype(orv::stoull_c("1")), std::uint64_t>);
    EXPECT_EQ(thrownMessage<std::out_of_range>([] { orv::stol_c("4294967296"); }),
              "number out of range");
}

// Every kind of text a caller may have finds one overload.
template <class Text>
int readAsInt(const Text& text) {
    std::size_t index = 0;
    const int value = orv::stoi_c(text);
    EXPECT_EQ(orv::stoi_c(text, &index), value);
    EXPECT_EQ(orv::stoi_c(text, nullptr, 10), value);
    EXPECT_EQ(index, 2U);
    return value;
}

TEST(StringToIntegerOverloads, TakeEveryKindOfText) {
    EXPECT_EQ(orv::stoi_c("12"), 12);
    EXPECT_EQ(orv::stoi_c("12", nullptr), 12);
    EXPECT_EQ(orv::stoi_c(u"12"_u), 12);
    EXPECT_EQ(orv::stoi_c(u"12"_u, nullptr, 16), 18);
    EXPECT_EQ(readAsInt(static_cast<const char*>("12")), 12);
    EXPECT_EQ(readAsInt(std::string("12")), 12);
    EXPECT_EQ(readAsInt(std::string_view("12")), 12);
    EXPECT_EQ(readAsInt(orv::string_ref("12")), 12);
    const orv::ustring wide(u"12"_u);
    EXPECT_EQ(readAsInt(wide), 12);
    EXPECT_EQ(readAsInt(wide.c_str()), 12);
    EXPECT_EQ(readAsInt(std::basic_string_view<char16>(wide)), 12);
    EXPECT_EQ(readAsInt(orv::ustring_ref(wide)), 12);
    orv::BasicCharIterator<char> it{orv::string_ref("12,ff")};
    EXPECT_EQ(orv::stoi_c(it), 12);
    it.step();
    EXPECT_EQ(orv::stoi_c(it, 16), 255);
    EXPECT_TRUE(it.atEnd());
    EXPECT_EQ(orv::strtoi_c("12", nullptr), 12);
    EXPECT_EQ(orv::strtoi_c(wide.c_str(), nullptr), 12);
}

TEST(StringToIntegerCursor, ReadsAListOneByOne) {
    const std::string text = "1, -2 ,3,x";
    orv::BasicCharIterator<char> it{orv::string_ref(text)};
    EXPECT_EQ(orv::stoi_c(it), 1);
    EXPECT_EQ(it.current(), ',');
    it.step();
    EXPECT_EQ(orv::stoll_c(it), -2);
    EXPECT_EQ(it.position(), 5U);
    it.setPosition(7);
    EXPECT_EQ(orv::stoui_c(it), 3U);
    it.step();
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { orv::stoi_c(it); }), DECIMAL);
    EXPECT_EQ(it.position(), 9U);
    it.step();
    EXPECT_TRUE(it.atEnd());
    EXPECT_EQ(thrownMessage<std::invalid_argument>([&] { orv::stoi_c(it); }), DECIMAL);
    EXPECT_TRUE(it.atEnd());
    EXPECT_EQ(it.current(), '\0');
}

TEST(StringToIntegerC, LeavesEndAtTheStartWithoutANumber) {
    const char text[] = "  abc";
    char* end = nullptr;
    errno = 0;
    EXPECT_EQ(orv::strtoi_c(text, &end, 10), 0);
    EXPECT_EQ(end, text);
    EXPECT_EQ(errno, 0);
}

} // namespace

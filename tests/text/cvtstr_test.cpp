// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `cvtstr` to and from wide strings, under several C locales.
#include "orv/liborvxx/text/cvtstr.h"

#include "orv/liborvxx/text/code_points.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <cwchar>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace {

using namespace orv::literals;
using orv::cvtstr;
using orv::string_ref;
using orv::ustring;
using orv::ustring_ref;
using orv::wstring_ref;
using orvtest::unitsOf;

constexpr bool WIDE_HOLDS_CODE_POINTS = sizeof(wchar_t) > sizeof(char16_t);

template <typename To, typename From>
concept Converts = requires(From text) {
    { cvtstr<To>(text) } -> std::same_as<To>;
};

// Six conversions, and no seventh.
static_assert(Converts<std::string, ustring_ref> && Converts<ustring, string_ref> &&
              Converts<std::string, wstring_ref> && Converts<std::wstring, string_ref> &&
              Converts<std::wstring, ustring_ref> && Converts<ustring, wstring_ref>);
static_assert(!Converts<std::string, string_ref> && !Converts<ustring, ustring_ref> &&
              !Converts<std::wstring, wstring_ref> && !Converts<std::u16string, string_ref> &&
              !Converts<std::string, orv::u16string_ref> && !Converts<std::u32string, wstring_ref>);
// What converts to a view converts.
static_assert(Converts<ustring, std::string> && Converts<ustring, const char*> &&
              Converts<std::string, ustring> && Converts<std::wstring, std::string> &&
              Converts<ustring, const wchar_t*>);

// Sets a C locale for the length of a test.
class CLocale {
public:
    explicit CLocale(const char* name) : before_(std::setlocale(LC_ALL, nullptr)) {
        valid_ = std::setlocale(LC_ALL, name) != nullptr;
    }
    ~CLocale() { std::setlocale(LC_ALL, before_.c_str()); }
    CLocale(const CLocale&) = delete;
    CLocale& operator=(const CLocale&) = delete;
    bool valid() const { return valid_; }

private:
    std::string before_;
    bool valid_;
};

class CvtstrInUtf8Locale : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(locale_.valid()) << "the system has no C.UTF-8"; }

private:
    CLocale locale_{"C.UTF-8"};
};

class CvtstrInCLocale : public testing::Test {
private:
    CLocale locale_{"C"};
};

std::wstring wide(string_ref bytes) {
    return cvtstr<std::wstring>(bytes);
}

std::string utf8(char32_t cp) {
    const auto byte = [](char32_t value) {
        return static_cast<char>(static_cast<unsigned char>(value));
    };
    const auto tail = [&](int shift) { return byte(0x80 | (cp >> shift & 0x3F)); };
    if (cp < 0x80) {
        return {byte(cp)};
    }
    if (cp < 0x800) {
        return {byte(0xC0 | cp >> 6), tail(0)};
    }
    if (cp < 0x10000) {
        return {byte(0xE0 | cp >> 12), tail(6), tail(0)};
    }
    return {byte(0xF0 | cp >> 18), tail(12), tail(6), tail(0)};
}

TEST(Cvtstr, AnEmptyViewGivesAnEmptyStringInAllForms) {
    EXPECT_EQ(cvtstr<std::string>(ustring_ref()), "");
    EXPECT_EQ(cvtstr<ustring>(string_ref()), ustring());
    EXPECT_EQ(cvtstr<std::string>(wstring_ref()), "");
    EXPECT_EQ(cvtstr<std::wstring>(string_ref()), L"");
    EXPECT_EQ(cvtstr<std::wstring>(ustring_ref()), L"");
    EXPECT_EQ(cvtstr<ustring>(wstring_ref()), ustring());
    EXPECT_EQ(cvtstr<ustring>(L""), ustring());
    EXPECT_EQ(cvtstr<ustring>(""), ustring());
}

TEST(Cvtstr, AsciiIsTheSameInEveryForm) {
    std::string narrow;
    std::wstring wideText;
    ustring utf16;
    for (int c = 0; c < 0x80; ++c) {
        narrow.push_back(static_cast<char>(c));
        wideText.push_back(static_cast<wchar_t>(c));
        utf16.push_back(orv::char16(c));
    }
    EXPECT_EQ(cvtstr<std::string>(ustring_ref(utf16)), narrow);
    EXPECT_EQ(cvtstr<ustring>(string_ref(narrow)), utf16);
    EXPECT_EQ(cvtstr<std::string>(wstring_ref(wideText)), narrow);
    EXPECT_EQ(cvtstr<std::wstring>(string_ref(narrow)), wideText);
    EXPECT_EQ(cvtstr<std::wstring>(ustring_ref(utf16)), wideText);
    EXPECT_EQ(cvtstr<ustring>(wstring_ref(wideText)), utf16);
}

TEST_F(CvtstrInUtf8Locale, EveryCodePointGoesThroughTheLocaleAndBack) {
    for (char32_t cp = 0; cp <= 0x10FFFF; ++cp) {
        if (cp >= 0xD800 && cp <= 0xDFFF) {
            continue;
        }
        const auto unit = static_cast<wchar_t>(cp);
        if (static_cast<char32_t>(unit) != cp) {
            break; // does not fit in a wide character of 16 bits
        }
        const std::string bytes = utf8(cp);
        ASSERT_EQ(cvtstr<std::string>(wstring_ref(&unit, 1)), bytes);
        ASSERT_EQ(wide(bytes), std::wstring(1, unit));
    }
}

TEST_F(CvtstrInUtf8Locale, AWideSurrogateBecomesAQuestionMarkEachByItself) {
    for (int value = 0xD800; value <= 0xDFFF; ++value) {
        const auto unit = static_cast<wchar_t>(value);
        ASSERT_EQ(cvtstr<std::string>(wstring_ref(&unit, 1)), "?");
    }
    const wchar_t pair[] = {L'a', static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00), L'b'};
    EXPECT_EQ(cvtstr<std::string>(wstring_ref(pair, 4)), "a??b") << "a pair is two calls";
}

TEST_F(CvtstrInUtf8Locale, EveryWideValueGivesWhatTheRuntimeGivesOrAQuestionMark) {
    std::mt19937 random(1501);
    for (int i = 0; i < 20'000; ++i) {
        const auto unit = static_cast<wchar_t>(random());
        char bytes[MB_LEN_MAX];
        std::mbstate_t state{};
        const std::size_t count = std::wcrtomb(bytes, unit, &state);
        ASSERT_EQ(cvtstr<std::string>(wstring_ref(&unit, 1)),
                  count == static_cast<std::size_t>(-1) ? "?" : std::string(bytes, count));
    }
    const auto minimum = std::numeric_limits<wchar_t>::min();
    const wchar_t outside[] = {L'x', minimum == 0 ? L'\xDFFF' : minimum, L'y'};
    EXPECT_EQ(cvtstr<std::string>(wstring_ref(outside, 3)), "x?y");
}

TEST_F(CvtstrInUtf8Locale, ARunOfBadBytesGivesOneReplacement) {
    EXPECT_EQ(wide("\xFF"), L"\xFFFD");
    EXPECT_EQ(wide("\xFF\xFE\xFF"), L"\xFFFD");
    EXPECT_EQ(wide(std::string(100'000, '\x80')), L"\xFFFD");
    EXPECT_EQ(wide("\xFF\xFE\xFFz\xFF"), L"\xFFFDz\xFFFD");
    EXPECT_EQ(wide("a\xFF\xFF\xC3\xA9\xFF"), L"a\xFFFD\xE9\xFFFD");
    EXPECT_EQ(wide("\xE2(\xA1"), L"\xFFFD(\xFFFD") << "one byte is skipped, not the sequence";
    EXPECT_EQ(wide("\xC0\x80"), L"\xFFFD") << "an overlong NUL";
}

TEST_F(CvtstrInUtf8Locale, ATruncatedTailGivesOneReplacementUnlessABadByteCameJustBefore) {
    EXPECT_EQ(wide("a\xE2"), L"a\xFFFD");
    EXPECT_EQ(wide("a\xE2\x82"), L"a\xFFFD");
    EXPECT_EQ(wide("a\xF0\x9F\x98"), L"a\xFFFD");
    EXPECT_EQ(wide("\xFF\xE2\x82"), L"\xFFFD");
    EXPECT_EQ(wide("\xFFz\xE2\x82"), L"\xFFFDz\xFFFD") << "a good one between starts anew";
}

TEST_F(CvtstrInUtf8Locale, AnEmbeddedNulSurvives) {
    using namespace std::string_literals;
    EXPECT_EQ(wide("a\0b"s), L"a\0b"s);
    EXPECT_EQ(wide("\0\0"s), L"\0\0"s);
    EXPECT_EQ(wide("\xFF\0\xFF"s), L"\xFFFD\0\xFFFD"s) << "a NUL is good and ends a bad run";
    EXPECT_EQ(cvtstr<std::string>(wstring_ref(L"a\0\u20AC"s)), "a\0\xE2\x82\xAC"s);
}

TEST_F(CvtstrInUtf8Locale, NothingOfOneCallReachesTheNext) {
    EXPECT_EQ(wide("\xE2\x82"), L"\xFFFD");
    EXPECT_EQ(wide("\xAC"), L"\xFFFD");
    EXPECT_EQ(wide("z"), L"z");
}

// All texts of up to five bytes over bytes that make good, bad and broken sequences, against a
// reading of the rules.
TEST_F(CvtstrInUtf8Locale, EveryShortTextOverBytesThatMatter) {
    static constexpr char BYTES[] = {'a', '\0', '\xC3', '\xA9', '\xE2', '\x82', '\xFF'};
    const auto isTail = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    const auto expected = [&](const std::string& text) {
        std::wstring result;
        bool lastWasBad = false;
        for (std::size_t i = 0; i < text.size();) {
            const std::size_t length = text[i] == '\xC3' ? 2 : text[i] == '\xE2' ? 3 : 1;
            std::size_t have = 1;
            while (have < length && i + have < text.size() && isTail(text[i + have])) {
                ++have;
            }
            const bool truncated = have < length && i + have == text.size();
            const bool bad = isTail(text[i]) || text[i] == '\xFF' || (have < length && !truncated);
            if (truncated || bad) {
                if (!lastWasBad) {
                    result.push_back(0xFFFD);
                }
                lastWasBad = true;
                i += truncated ? text.size() : 1;
                continue;
            }
            unsigned int cp = static_cast<unsigned char>(text[i]) & (length == 1   ? 0x7FU
                                                                     : length == 2 ? 0x1FU
                                                                                   : 0x0FU);
            for (std::size_t k = 1; k < length; ++k) {
                cp = cp << 6 | (static_cast<unsigned char>(text[i + k]) & 0x3FU);
            }
            result.push_back(static_cast<wchar_t>(cp));
            lastWasBad = false;
            i += length;
        }
        return result;
    };
    std::size_t texts = 1;
    for (std::size_t length = 1; length <= 5; ++length) {
        texts *= std::size(BYTES);
        for (std::size_t number = 0; number < texts; ++number) {
            std::string text;
            for (std::size_t rest = number; text.size() < length; rest /= std::size(BYTES)) {
                text.push_back(BYTES[rest % std::size(BYTES)]);
            }
            ASSERT_EQ(wide(text), expected(text)) << testing::PrintToString(text);
        }
    }
}

TEST_F(CvtstrInCLocale, OnlyAsciiHasACounterpart) {
    EXPECT_EQ(cvtstr<std::string>(wstring_ref(L"a\u00E9\u20ACz")), "a??z");
    EXPECT_EQ(wide("a\xC3\xA9z"), L"a\xFFFDz");
    EXPECT_EQ(wide("\xE4\xE4\xE4z\xE4"), L"\xFFFDz\xFFFD");
}

TEST(Cvtstr, FollowsTheLocaleOfTheMoment) {
    const std::string euro = "\xE2\x82\xAC";
    {
        const CLocale locale("C.UTF-8");
        EXPECT_EQ(wide(euro), L"\u20AC");
    }
    {
        const CLocale locale("C");
        EXPECT_EQ(wide(euro), L"\xFFFD");
    }
}

TEST(CvtstrWideAndUtf16, EveryCodePointKeepsItsValueBothWays) {
    for (char32_t cp = 0; cp <= 0x10FFFF; ++cp) {
        ustring units;
        orv::Char16::toChars(cp, units);
        std::wstring expected;
        if (WIDE_HOLDS_CODE_POINTS) {
            expected.push_back(static_cast<wchar_t>(cp));
        } else {
            for (const orv::char16 unit : units) {
                expected.push_back(static_cast<wchar_t>(unit));
            }
        }
        ASSERT_EQ(cvtstr<std::wstring>(ustring_ref(units)), expected);
        ASSERT_EQ(cvtstr<ustring>(wstring_ref(expected)), units);
    }
}

TEST(CvtstrWideAndUtf16, LoneSurrogatesKeepTheirValue) {
    const ustring units = unitsOf({0xDE00, 0xD83D, 'a', 0xD83D, 0xD83D, 0xDE00, 0xDE00, 0xD83D});
    const std::wstring text = cvtstr<std::wstring>(ustring_ref(units));
    if (WIDE_HOLDS_CODE_POINTS) {
        std::wstring expected;
        for (const int value : {0xDE00, 0xD83D, 0x61, 0xD83D, 0x1F600, 0xDE00, 0xD83D}) {
            expected.push_back(static_cast<wchar_t>(value));
        }
        EXPECT_EQ(text, expected);
    }
    EXPECT_EQ(cvtstr<ustring>(wstring_ref(text)), units);
}

TEST(CvtstrWideAndUtf16, WideHalvesOfAPairAreKeptAsTheyStand) {
    const wchar_t pair[] = {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    EXPECT_EQ(cvtstr<ustring>(wstring_ref(pair, 2)), u"\U0001F600"_u);
}

TEST(CvtstrWideAndUtf16, ValuesAboveTheLastCodePointBecomeTheReplacement) {
    if constexpr (WIDE_HOLDS_CODE_POINTS) {
        for (const std::uint32_t value :
             {0x110000U, 0x110041U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
            const wchar_t text[] = {L'a', static_cast<wchar_t>(value), L'b'};
            EXPECT_EQ(cvtstr<ustring>(wstring_ref(text, 3)), u"a\uFFFDb"_u) << value;
        }
        const auto last = static_cast<wchar_t>(0x10FFFF);
        EXPECT_EQ(cvtstr<ustring>(wstring_ref(&last, 1)), u"\U0010FFFF"_u);
    }
}

TEST(CvtstrWideAndUtf16, ZerosInsideAreKept) {
    using namespace std::string_literals;
    EXPECT_EQ(cvtstr<std::wstring>(u"a\0b"_u), L"a\0b"s);
    EXPECT_EQ(cvtstr<ustring>(wstring_ref(L"a\0b"s)), u"a\0b"_u);
}

} // namespace

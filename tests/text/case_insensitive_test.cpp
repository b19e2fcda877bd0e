// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The case-insensitive functors: folds, laws of order and hash, and fixed hash values.
#include "orv/liborvxx/text/case_insensitive.h"

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/text/code_points.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <map>
#include <random>
#include <set>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <vector>

namespace {

using namespace orv::literals;
using orv::Char16;
using orv::char16;
using orv::string_ref;
using orv::ustring;
using orv::ustring_ref;
using orvtest::below;
using orvtest::randomText;
using orvtest::unitsOf;

template <typename Ref>
using Equal = orv::case_insensitive_equal_to<Ref>;
template <typename Ref>
using Less = orv::case_insensitive_less<Ref>;
template <typename Ref>
using Hash = orv::case_insensitive_hash<Ref>;

static_assert(std::is_empty_v<Equal<string_ref>> && std::is_empty_v<Less<ustring_ref>> &&
              std::is_empty_v<Hash<string_ref>>);

// The folds, by their definitions.
int folded(char c) {
    return std::toupper(static_cast<unsigned char>(c));
}
int folded(char16 c) {
    const std::uint32_t upper = orvUniCharToUpper(static_cast<std::uint32_t>(c)) & 0xFFFF;
    return static_cast<int>(orvUniCharToLower(upper) & 0xFFFF);
}

template <typename String>
std::vector<int> foldedText(const String& text) {
    std::vector<int> key;
    for (const auto unit : text) {
        key.push_back(folded(unit));
    }
    return key;
}

template <typename String>
std::uint64_t expectedHash(const String& text, std::uint64_t factor) {
    std::uint64_t hash = 0;
    for (const int unit : foldedText(text)) {
        hash = hash * factor + static_cast<std::uint64_t>(unit);
    }
    return hash;
}

// Every law at once, for a pair of texts.
template <typename Ref, typename String>
void expectLaws(const String& a, const String& b, std::uint64_t factor) {
    const auto keyA = foldedText(a);
    const auto keyB = foldedText(b);
    const Ref left = a;
    const Ref right = b;
    ASSERT_EQ(Equal<Ref>()(left, right), keyA == keyB);
    ASSERT_EQ(Equal<Ref>()(right, left), keyA == keyB);
    ASSERT_EQ(Less<Ref>()(left, right), keyA < keyB);
    ASSERT_EQ(Less<Ref>()(right, left), keyB < keyA);
    ASSERT_EQ(Hash<Ref>()(left), expectedHash(a, factor));
    if (keyA == keyB) {
        ASSERT_EQ(Hash<Ref>()(left), Hash<Ref>()(right));
    }
}

TEST(CaseInsensitive, RandomUtf16TextsObeyTheLaws) {
    std::mt19937 random(1401);
    // Letters with odd relatives: long s, dotless and dotted i, Kelvin, Angstrom and Ohm signs,
    // final sigma, micro, title-case letters, halves of pairs of a script with case.
    const ustring alphabet =
        unitsOf({'a',    'A',   's',    'S',    0x17F,  'i',    'I',    0x131,  0x130,
                 'k',    'K',   0x212A, 0xE5,   0xC5,   0x212B, 0x3A9,  0x3C9,  0x2126,
                 0x3C2,  0x3C3, 0x3A3,  0xB5,   0x3BC,  0x39C,  0x1C4,  0x1C5,  0x1C6,
                 0x1E9E, 0xDF,  0xD801, 0xDC00, 0xDC28, 0xFF21, 0xFF41, 0xFFFF, 0});
    for (int i = 0; i < 100'000; ++i) {
        const ustring a = randomText(random, alphabet, 4);
        ustring b = randomText(random, alphabet, 4);
        if (i % 2 == 0) { // the same letters in another case
            b = a;
            for (char16& unit : b) {
                unit = random() % 2 == 0 ? Char16::toUpperCase(unit) : Char16::toLowerCase(unit);
            }
        }
        expectLaws<ustring_ref>(a, b, 31);
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST(CaseInsensitive, RandomNarrowTextsObeyTheLaws) {
    std::mt19937 random(1402);
    const std::string alphabet("aAbBzZ@[`{0\0\x7F\x80\xC4\xE4\xFF", 17);
    for (int i = 0; i < 100'000; ++i) {
        const std::string a = randomText(random, alphabet, 4);
        std::string b = randomText(random, alphabet, 4);
        if (i % 2 == 0) {
            b = a;
            std::transform(b.begin(), b.end(), b.begin(), [&](char c) {
                const int byte = static_cast<unsigned char>(c);
                return static_cast<char>(random() % 2 == 0 ? std::toupper(byte)
                                                           : std::tolower(byte));
            });
        }
        expectLaws<string_ref>(a, b, 15);
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST(CaseInsensitive, EveryUnitEqualsTheUnitsOfItsFoldAndNoOther) {
    std::map<int, std::vector<char16>> byFold;
    for (unsigned int value = 0; value <= 0xFFFF; ++value) {
        byFold[folded(char16(value))].push_back(char16(value));
    }
    std::size_t shared = 0;
    const std::vector<char16>* previous = nullptr;
    for (const auto& [fold, units] : byFold) {
        shared += units.size() > 1 ? 1U : 0U;
        for (const char16 a : units) {
            for (const char16 b : units) {
                const ustring_ref left(&a, 1);
                const ustring_ref right(&b, 1);
                ASSERT_TRUE(Equal<ustring_ref>()(left, right));
                ASSERT_FALSE(Less<ustring_ref>()(left, right));
                ASSERT_EQ(Hash<ustring_ref>()(left), static_cast<std::size_t>(fold));
                ASSERT_EQ(Hash<ustring_ref>()(right), static_cast<std::size_t>(fold));
            }
            if (previous != nullptr) {
                const char16 b = previous->back();
                ASSERT_FALSE(Equal<ustring_ref>()(ustring_ref(&a, 1), ustring_ref(&b, 1)));
                ASSERT_TRUE(Less<ustring_ref>()(ustring_ref(&b, 1), ustring_ref(&a, 1)));
            }
        }
        previous = &units;
    }
    EXPECT_GT(shared, 1000U) << "the letters with case";
}

TEST(CaseInsensitive, EveryUnitEqualsItsOwnUpperAndLowerCaseFormsAsTheFoldSays) {
    for (unsigned int value = 0; value <= 0xFFFF; ++value) {
        const ustring unit = unitsOf({value});
        for (const char16 other : {Char16::toUpperCase(unit[0]), Char16::toLowerCase(unit[0]),
                                   Char16::toTitleCase(unit[0])}) {
            expectLaws<ustring_ref>(unit, ustring(1, other), 31);
            ASSERT_FALSE(HasFatalFailure()) << value;
        }
        ASSERT_TRUE(Equal<ustring_ref>()(unit, ustring(1, Char16::toUpperCase(unit[0]))));
    }
}

TEST(CaseInsensitive, RandomPairsOfUnitsObeyTheLaws) {
    std::mt19937 random(1403);
    for (int i = 0; i < 300'000; ++i) {
        const ustring a(1, char16(random()));
        const ustring b(1, char16(random()));
        expectLaws<ustring_ref>(a, b, 31);
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST(CaseInsensitive, EveryPairOfBytesObeysTheLaws) {
    for (int a = 0; a <= 0xFF; ++a) {
        for (int b = 0; b <= 0xFF; ++b) {
            expectLaws<string_ref>(std::string(1, static_cast<char>(a)),
                                   std::string(1, static_cast<char>(b)), 15);
            ASSERT_FALSE(HasFatalFailure());
        }
    }
}

TEST(CaseInsensitive, TheSecondStepOfTheFoldJoinsWhatTheFirstDoesNot) {
    // KELVIN SIGN is upper case already and so is K; their lower-case form is one.
    EXPECT_NE(Char16::toUpperCase(u'\u212A'), Char16::toUpperCase(u'k'));
    EXPECT_TRUE(Equal<ustring_ref>()(u"\u212A"_u, u"k"_u));
    EXPECT_TRUE(Equal<ustring_ref>()(u"\u212A"_u, u"K"_u));
    // Dotless i by its upper-case form, dotted I by its lower-case form.
    EXPECT_TRUE(Equal<ustring_ref>()(u"\u0131"_u, u"i"_u));
    EXPECT_TRUE(Equal<ustring_ref>()(u"\u0130"_u, u"i"_u));
    EXPECT_TRUE(Equal<ustring_ref>()(u"\u0130"_u, u"\u0131"_u));
    EXPECT_TRUE(Equal<ustring_ref>()(u"\u03C2"_u, u"\u03C3"_u)) << "both sigmas";
}

TEST(CaseInsensitive, UnitsAreFoldedWithoutPairingSurrogates) {
    // DESERET LETTER LONG I, upper and lower: one mapping as code points, none as units.
    EXPECT_FALSE(Equal<ustring_ref>()(u"\U00010400"_u, u"\U00010428"_u));
    EXPECT_TRUE(Less<ustring_ref>()(u"\U00010400"_u, u"\U00010428"_u));
    EXPECT_FALSE(Equal<ustring_ref>()(u"\u00DF"_u, u"ss"_u)) << "no fold changes a length";
}

TEST(CaseInsensitive, LengthsMustBeEqualAndAProperPrefixIsLess) {
    EXPECT_FALSE(Equal<string_ref>()("ab", "abc"));
    EXPECT_FALSE(Equal<ustring_ref>()(u"abc"_u, u"ab"_u));
    EXPECT_FALSE(Less<string_ref>()("ab", "AB"));
    EXPECT_FALSE(Less<string_ref>()("AB", "ab"));
    EXPECT_TRUE(Less<string_ref>()("ab", "ABC"));
    EXPECT_FALSE(Less<string_ref>()("ABC", "ab"));
    EXPECT_FALSE(Less<ustring_ref>()(u"ab"_u, u"AB"_u));
    EXPECT_FALSE(Less<ustring_ref>()(u"AB"_u, u"ab"_u));
    EXPECT_TRUE(Less<ustring_ref>()(u"ab"_u, u"ABC"_u));
    EXPECT_FALSE(Less<ustring_ref>()(u"ABC"_u, u"ab"_u));
    EXPECT_FALSE(Less<ustring_ref>()(u""_u, u""_u));
    EXPECT_TRUE(Less<string_ref>()("", "a"));
    EXPECT_TRUE(Equal<string_ref>()("", string_ref()));
    EXPECT_TRUE(Equal<ustring_ref>()(u""_u, ustring_ref()));
}

TEST(CaseInsensitive, NarrowOrderIsThatOfUpperCaseAndWideOrderThatOfLowerCase) {
    // "_" lies between "Z" and "a".
    EXPECT_TRUE(Less<string_ref>()("z", "_"));
    EXPECT_TRUE(Less<ustring_ref>()(u"_"_u, u"Z"_u));
}

TEST(CaseInsensitive, BytesFoldUnsigned) {
    EXPECT_TRUE(Less<string_ref>()("a", "\x80"));
    EXPECT_EQ(Hash<string_ref>()("\xFF"), 0xFFU);
}

TEST(CaseInsensitive, HashValuesAreFixed) {
    EXPECT_EQ(Hash<string_ref>()(string_ref()), 0U);
    EXPECT_EQ(Hash<ustring_ref>()(ustring_ref()), 0U);
    EXPECT_EQ(Hash<string_ref>()("ab"), 1041U);
    EXPECT_EQ(Hash<string_ref>()("AB"), 1041U);
    EXPECT_EQ(Hash<ustring_ref>()(u"ab"_u), 3105U);
    EXPECT_EQ(Hash<ustring_ref>()(u"AB"_u), 3105U);
    EXPECT_EQ(Hash<string_ref>()("utf-8"), 4603106U);
    EXPECT_EQ(Hash<ustring_ref>()(u"Utf-8"_u), 111607186U);
    EXPECT_EQ(Hash<ustring_ref>()(u"\u00C4\u00D6\u00DC"_u), 226986U);
    // Long enough to wrap around 2^64 many times.
    EXPECT_EQ(Hash<string_ref>()("The quick brown fox jumps over the lazy dog"),
              5789671355585417667U);
    EXPECT_EQ(Hash<ustring_ref>()(u"The quick brown fox jumps over the lazy dog"_u),
              9189841723308291443U);
}

TEST(CaseInsensitive, ServesContainers) {
    std::unordered_map<string_ref, int, Hash<string_ref>, Equal<string_ref>> narrow;
    narrow["Key"] = 1;
    EXPECT_EQ(narrow["KEY"], 1);
    std::unordered_map<ustring_ref, int, Hash<ustring_ref>, Equal<ustring_ref>> wide;
    wide[u"Key"_u] = 2;
    EXPECT_EQ(wide[u"kEY"_u], 2);
    const std::set<ustring_ref, Less<ustring_ref>> names{u"b"_u, u"B"_u, u"a"_u};
    EXPECT_EQ(names.size(), 2U);
    EXPECT_TRUE(names.contains(u"A"_u));
}

} // namespace

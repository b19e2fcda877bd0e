// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Numbers read over char16 and over wchar_t are the same, with the same state and the same
/// rest of the text, where our contract is not another one; and those of floating point are what
/// the C library reads.
#include "tests/support/both_widths.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <string>
#include <type_traits>

namespace {

using orv::char16;
using orvtest::NumberSource;
using orvtest::Punctuation;
using orvtest::Reading;

constexpr char MAX = std::numeric_limits<char>::max();
constexpr auto FAIL = std::ios_base::failbit;

const Punctuation PUNCTUATIONS[] = {
    {u'.', u',', ""},
    {u',', u'.', "\3"},
    {u'.', u',', "\3\2"},
    {u'\u066B', u'\u066C', "\2"},
    {u'.', u'\'', "\1"},
    {u'.', u' ', {1, 2, 3}},
    {u'.', u'.', "\2"},
    {u'.', u',', {3, MAX}},
    {u'.', u',', {MAX}},
    {u'.', u',', {'\xFF'}},
    {u'a', u'-', "\1"},
    {u'x', u'e', "\3"},
    {u'-', u'+', "\2\1"},
    {u'.', u',', "\3", u"ja", u"jawohl"},
    {u'.', u',', "\3", u"same", u"same"},
    {u'.', u',', "\3", u"", u"no"},
    {u'.', u',', "\3", u"1", u"10"},
};

// The same as bits, a zero with its sign; of `long double` only the bits of the number.
template <class Value>
bool isSame(Value a, Value b) {
    if constexpr (std::is_floating_point_v<Value>) {
        return a == b && std::signbit(a) == std::signbit(b);
    }
    return a == b;
}

template <class Value>
std::string shown(const Reading<Value>& reading) {
    std::ostringstream text;
    text.precision(25);
    text << reading.value << " state " << reading.state << " rest " << reading.rest;
    return text.str();
}

std::string narrow(const std::u16string& text) {
    std::string result;
    for (const char16_t unit : text) {
        result.push_back(unit < 0x80 ? static_cast<char>(unit) : '?');
    }
    return result;
}

// Digits, and a few of all that a number may have, or not.
std::u16string randomText(NumberSource& source, const Punctuation& punctuation, bool separators) {
    const std::u16string likely = u"0123456789";
    const std::u16string others = u"+-+-eExXaAfFgpP.,\u0663\uFF11 0";
    std::u16string text = source.below(3) == 0 ? (source.coin() ? u"-" : u"+") : u"";
    text += source.below(6) == 0 ? (source.coin() ? u"0x" : u"0") : u"";
    for (unsigned left = source.below(source.below(20) == 0 ? 60 : 12); left > 0; --left) {
        const unsigned kind = source.below(24);
        if (kind == 0) {
            text += others[source.below(static_cast<unsigned>(others.size()))];
        } else if (kind == 1) {
            text += punctuation.point;
        } else if (kind == 2) {
            text += source.coin() ? u'e' : u'E';
            text += source.coin() ? u"-" : u"";
        } else if (kind < 8 && separators) {
            text += punctuation.separator;
        } else {
            text += likely[source.below(10)];
        }
    }
    return text;
}

std::ios_base::fmtflags randomBase(NumberSource& source) {
    std::ios_base::fmtflags flags =
        source.coin() ? std::ios_base::scientific : std::ios_base::fixed;
    for (const auto flag : {std::ios_base::dec, std::ios_base::oct, std::ios_base::hex}) {
        if (source.coin()) {
            flags |= flag;
        }
    }
    return flags;
}

class NumGetC : public testing::Test {
protected:
    NumGetC() { stream_.imbue(orvtest::localeOf(PUNCTUATIONS[0])); }

    // Compares with the C library's value of the same text, which is one number.
    template <class Value>
    void expectRead(const std::string& text, const std::string& forC, Value expected) {
        const std::u16string units(text.begin(), text.end());
        const auto reading = orvtest::read<char16, Value>(stream_, units);
        const bool isTooLarge = std::isinf(expected);
        if (isTooLarge) {
            expected = std::copysign(std::numeric_limits<Value>::max(), expected);
        }
        EXPECT_TRUE(isSame(reading.value, expected)) << forC << ": " << shown(reading);
        EXPECT_EQ(reading.state,
                  std::ios_base::eofbit | (isTooLarge ? FAIL : std::ios_base::goodbit))
            << forC;
        EXPECT_EQ(reading.rest, 0U) << forC;
    }

    void expectRead(const std::string& text, const std::string& forC) {
        expectRead(text, forC, std::strtof(forC.c_str(), nullptr));
        expectRead(text, forC, std::strtod(forC.c_str(), nullptr));
        expectRead(text, forC, std::strtold(forC.c_str(), nullptr));
    }
    void expectRead(const std::string& text) { expectRead(text, text); }

    // glibc 2.36 rounds some hexadecimal texts of subnormal numbers down that it should round up.
    template <class Value>
    void expectReadUnlessSubnormal(const std::string& text, const std::string& forC, Value value) {
        if (std::fpclassify(value) != FP_SUBNORMAL) {
            expectRead(text, forC, value);
        }
    }

    std::string digits(unsigned count) {
        std::string text;
        while (count-- > 0) {
            text += static_cast<char>('0' + source_.below(10));
        }
        return text;
    }

    NumberSource source_{201};
    std::wios stream_{nullptr};
};

TEST_F(NumGetC, ReadsDecimalTextsOfAllLengths) {
    for (std::size_t n = orvtest::caseCount(50000); n-- > 0 && !HasFailure();) {
        std::string text = source_.coin() ? "-" : "";
        text += digits(source_.below(22)) + "." + digits(1 + source_.below(22));
        const int range = source_.below(8) == 0 ? 5000 : source_.coin() ? 320 : 40;
        expectRead(text + "e" + std::to_string(source_.between(-range, range)));
    }
}

// The middle between two neighbours, exactly, a little less and a little more.
template <class Float>
std::string middleOf(Float value) {
    const int exponent = std::max(std::ilogb(value), std::numeric_limits<Float>::min_exponent - 1);
    const auto unit = std::ldexp(1.0L, exponent - std::numeric_limits<Float>::digits);
    static_assert(std::numeric_limits<Float>::digits < std::numeric_limits<long double>::digits);
    std::string text(2500, '\0');
    const long double middle = static_cast<long double>(value) + unit;
    text.resize(
        static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "%.1200Lf", middle)));
    return text;
}

TEST_F(NumGetC, ReadsTheMiddleBetweenNeighbours) {
    const std::string zeros(1500, '0');
    for (std::size_t n = orvtest::caseCount(1000); n-- > 0 && !HasFailure();) {
        const auto bits = source_.bits() & 0x7FEFFFFFFFFFFFFF;
        const double wide = std::bit_cast<double>(source_.coin() ? bits : bits >> 11U);
        const auto narrow =
            std::bit_cast<float>(static_cast<std::uint32_t>(bits >> 32U) % 0x7F800000U);
        for (const std::string& text : {middleOf(wide), middleOf(narrow)}) {
            expectRead(text);
            expectRead(text + zeros);
            expectRead(text + zeros + "1");
            std::string less = text;
            const std::size_t last = less.find_last_not_of("0.");
            if (last != std::string::npos) {
                --less[last];
                expectRead(less + std::string(20, '9') + "e0");
            }
        }
    }
}

// The decimal digits of an odd multiple of a power of two that is half the last bit.
TEST_F(NumGetC, ReadsTheMiddleBetweenLongDoubles) {
    std::string text(40000, '\0');
    for (std::size_t n = orvtest::caseCount(200); n-- > 0 && !HasFailure();) {
        // What is printed has 64 bits: a middle of the doubled range is the text with its last
        // bits.
        const auto mantissa = source_.bits() | 1U;
        const int exponent =
            source_.below(4) == 0 ? source_.between(-16445, -16380) : source_.between(-400, 400);
        const auto value = std::ldexp(static_cast<long double>(mantissa), exponent);
        const auto length = std::snprintf(text.data(), text.size(), "%.17000Lf", value);
        std::string halved(text.data(), static_cast<std::size_t>(length));
        // Half of an odd number of bits: by decimal long division.
        unsigned carry = 0;
        std::string half;
        for (const char c : halved) {
            if (c == '.') {
                half += c;
                continue;
            }
            const unsigned part = carry * 10 + static_cast<unsigned>(c - '0');
            half += static_cast<char>('0' + part / 2);
            carry = part % 2;
        }
        half += carry != 0 ? "5" : "0";
        expectRead(half);
        expectRead(half + "000001");
    }
}

TEST_F(NumGetC, ReadsHexadecimalTexts) {
    stream_.flags(std::ios_base::fixed | std::ios_base::scientific);
    const std::string hex = "0123456789abcdefABCDEF";
    for (std::size_t n = orvtest::caseCount(50000); n-- > 0 && !HasFailure();) {
        std::string text;
        for (unsigned left = 1 + source_.below(source_.below(9) == 0 ? 60 : 20); left > 0; --left) {
            text += hex[source_.below(4) == 0 ? 0 : source_.below(22)];
        }
        text.insert(source_.below(static_cast<unsigned>(text.size())), ".");
        if (source_.coin()) {
            const int range = source_.coin() ? 1100 : 17000;
            text += (source_.coin() ? "p" : "P") + std::to_string(source_.between(-range, range));
        }
        const std::string prefix = source_.coin() ? "0x" : "0X";
        const std::string sign = source_.coin() ? "-" : "";
        const std::string ours = sign + (source_.coin() ? prefix : "") + text;
        const std::string forC = sign + prefix + text;
        expectReadUnlessSubnormal(ours, forC, std::strtof(forC.c_str(), nullptr));
        expectReadUnlessSubnormal(ours, forC, std::strtod(forC.c_str(), nullptr));
        expectReadUnlessSubnormal(ours, forC, std::strtold(forC.c_str(), nullptr));
    }
}

// The facets of other libraries than libstdc++ leave other states and rests for bad texts.
#ifdef __GLIBCXX__

class NumGetWide : public testing::TestWithParam<std::size_t> {
protected:
    NumGetWide() { stream_.imbue(orvtest::localeOf(punctuation())); }

    const Punctuation& punctuation() const { return PUNCTUATIONS[GetParam()]; }
    bool isGrouped() const {
        const std::string& grouping = punctuation().grouping;
        return !grouping.empty() && grouping[0] > 0 && grouping[0] != MAX;
    }
    bool hasSeparator(const std::u16string& text) const {
        return isGrouped() && text.find(punctuation().separator) != std::u16string::npos;
    }

    // The first difference: a number with wrong groups is 0, not what its digits say.
    template <class Value>
    void expectSame(const std::u16string& text) {
        auto wide = orvtest::read<wchar_t, Value>(stream_, text);
        const auto ours = orvtest::read<char16, Value>(stream_, text);
        if (seesNoEnd<Value>(wide)) {
            wide.state |= std::ios_base::eofbit;
        }
        if (losesDigits<Value>(text)) {
            return;
        }
        const bool isSkipped =
            (wide.state & FAIL) != 0 && hasSeparator(text) && ours.value == Value{};
        EXPECT_TRUE(isSkipped || isSame(wide.value, ours.value)) << shown(wide) << '\n'
                                                                 << narrow(text);
        EXPECT_EQ(shown(Reading<int>{0, wide.state, wide.rest}),
                  shown(Reading<int>{0, ours.state, ours.rest}))
            << narrow(text) << " flags " << stream_.flags();
    }

    // The second one: an integer that is too large is read to its end. libstdc++ does not count
    // its digits from there, and takes the next separator for a second one or a group for too
    // small.
    template <class Value>
    bool losesDigits(std::u16string text) {
        if (!hasSeparator(text) || std::is_floating_point_v<Value>) {
            return false;
        }
        std::erase(text, punctuation().separator);
        return (orvtest::read<wchar_t, Value>(stream_, text).state & FAIL) != 0;
    }

    // The third one: the end behind the name of a truth value is seen.
    template <class Value>
    bool seesNoEnd(const Reading<Value>& wide) {
        return std::is_same_v<Value, bool> && wide.rest == 0 &&
               (stream_.flags() & std::ios_base::boolalpha) != 0;
    }

    NumberSource source_{211 + GetParam()};
    std::wios stream_{nullptr};
};

TEST_P(NumGetWide, ReadsIntegersAlike) {
    for (std::size_t n = orvtest::caseCount(5000); n-- > 0 && !HasFailure();) {
        stream_.flags(randomBase(source_));
        const auto text = randomText(source_, punctuation(), source_.coin());
        expectSame<unsigned short>(text);
        expectSame<unsigned int>(text);
        expectSame<long>(text);
        expectSame<unsigned long>(text);
        expectSame<long long>(text);
        expectSame<unsigned long long>(text);
        expectSame<void*>(text);
    }
}

TEST_P(NumGetWide, ReadsFloatsAlike) {
    for (std::size_t n = orvtest::caseCount(5000); n-- > 0 && !HasFailure();) {
        stream_.flags(randomBase(source_));
        const auto text = randomText(source_, punctuation(), source_.coin());
        expectSame<float>(text);
        expectSame<double>(text);
        expectSame<long double>(text);
    }
}

TEST_P(NumGetWide, ReadsTruthValuesAlike) {
    for (std::size_t n = orvtest::caseCount(5000); n-- > 0 && !HasFailure();) {
        stream_.flags(std::ios_base::dec);
        if (source_.coin()) {
            expectSame<bool>(source_.coin() ? u"1" : randomText(source_, punctuation(), false));
            continue;
        }
        stream_.setf(std::ios_base::boolalpha);
        std::u16string text = source_.coin() ? punctuation().trueName : punctuation().falseName;
        text.resize(text.size() - source_.below(static_cast<unsigned>(text.size()) + 1) / 2);
        text += source_.coin() ? u"" : std::u16string(1, u"jtf01 x"[source_.below(7)]);
        expectSame<bool>(text);
    }
}

INSTANTIATE_TEST_SUITE_P(Punctuations, NumGetWide,
                         testing::Range<std::size_t>(0, std::size(PUNCTUATIONS)));

#endif

} // namespace

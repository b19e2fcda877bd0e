// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Numbers written over char16 and over wchar_t are the same, whatever the flags; and those
/// of floating point are what the C library prints.
#include "tests/support/both_widths.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <sstream>
#include <string>

namespace {

using orv::char16;
using orvtest::NumberSource;
using orvtest::Punctuation;

constexpr char MAX = std::numeric_limits<char>::max();

const Punctuation PUNCTUATIONS[] = {
    {u'.', u',', ""},
    {u',', u'.', "\3"},
    {u'.', u',', "\3\2"},
    {u'\u066B', u'\u066C', "\3"},
    {u'.', u'\'', "\1"},
    {u'.', u' ', {1, 2, 3}},
    {u'.', u'.', "\2"},
    {u'.', u',', {3, MAX}},
    {u'.', u',', {MAX}},
    {u'.', u',', {'\xFF'}},
    {u'.', u',', {4, '\xFF', 2}},
    {u'e', u'0', "\3", u"wahr", u""},
};

std::ios_base::fmtflags randomFlags(NumberSource& source) {
    std::ios_base::fmtflags flags{};
    for (const auto flag :
         {std::ios_base::dec, std::ios_base::oct, std::ios_base::hex, std::ios_base::left,
          std::ios_base::internal, std::ios_base::right, std::ios_base::fixed,
          std::ios_base::scientific, std::ios_base::showbase, std::ios_base::showpos,
          std::ios_base::showpoint, std::ios_base::uppercase, std::ios_base::boolalpha}) {
        if (source.below(3) == 0) {
            flags |= flag;
        }
    }
    return flags;
}

double randomDouble(NumberSource& source) {
    switch (source.below(6)) {
    case 0:
        return std::bit_cast<double>(source.bits());
    case 1:
        return static_cast<double>(source.between(-2000, 2000)) / 8;
    case 2:
        return std::ldexp(static_cast<double>(source.bits() >> source.below(64)),
                          source.between(-80, 40));
    case 3:
        return static_cast<double>(source.below(1000000)) / 1000;
    case 4:
        return std::pow(10.0, source.between(-25, 25)) * source.between(-9, 9);
    default:
        return static_cast<double>(source.between(0, 3)) *
               std::ldexp(1, source.between(-1074, 1020));
    }
}

long double randomLongDouble(NumberSource& source) {
    switch (source.below(5)) {
    case 0:
        return randomDouble(source);
    case 1:
        return std::ldexp(static_cast<long double>(source.bits()), source.between(-100, 60));
    case 2:
        return static_cast<long double>(source.bits()) / 1000;
    case 3:
        return std::ldexp(static_cast<long double>(source.bits() >> source.below(64)),
                          source.below(20) == 0 ? source.between(-16445, 16300)
                                                : source.between(-1200, 1200));
    default:
        return -std::ldexp(static_cast<long double>(source.below(64)), source.between(-70, 70));
    }
}

std::streamsize randomPrecision(NumberSource& source) {
    switch (source.below(12)) {
    case 0:
        return -source.between(1, 9);
    case 1:
        return source.between(18, 60);
    case 2:
        return source.below(40) == 0 ? source.between(60, 2500) : 17;
    default:
        return source.between(0, 18);
    }
}

// The C library's text of a number: what it prints for the streams of char.
template <class Float>
std::u16string printed(const std::ios_base& stream, Float value) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.flags(stream.flags());
    text.precision(stream.precision());
    text << value;
    return orvtest::convertText<char16_t>(text.str());
}

// The C library drops a zero behind the point of a number that is rounded up to a power of ten:
// "%#.2g" of 99.5 is "1.e+02" there.
bool losesZero(const std::ios_base& stream, double value) {
    const auto flags = stream.flags();
    if ((flags & std::ios_base::floatfield) != std::ios_base::fmtflags{} ||
        (flags & std::ios_base::showpoint) == std::ios_base::fmtflags{}) {
        return false;
    }
    std::ostringstream text;
    text << std::scientific << std::setprecision(static_cast<int>(stream.precision()) - 1) << value;
    return text.str().find_first_of("23456789") > text.str().find('e') && value != 0;
}

template <class Float>
void expectPrinted(NumberSource& source, Float value) {
    std::wios stream(nullptr);
    stream.imbue(orvtest::localeOf(PUNCTUATIONS[0]));
    stream.flags(randomFlags(source));
    stream.precision(randomPrecision(source));
    if (losesZero(stream, static_cast<double>(value))) {
        return;
    }
    EXPECT_EQ((orvtest::write<char16>(stream, 0, u'*', value)), printed(stream, value))
        << value << " flags " << stream.flags() << " precision " << stream.precision();
}

TEST(NumPutC, WritesDoublesAsTheCLibraryPrintsThem) {
    NumberSource source(101);
    for (std::size_t n = orvtest::caseCount(100000); n-- > 0 && !HasFailure();) {
        expectPrinted(source, randomDouble(source));
    }
}

TEST(NumPutC, WritesLongDoublesAsTheCLibraryPrintsThem) {
    NumberSource source(102);
    for (std::size_t n = orvtest::caseCount(30000); n-- > 0 && !HasFailure();) {
        expectPrinted(source, randomLongDouble(source));
    }
}

// The facets of other libraries than libstdc++ give other texts for the rarer flags.
#ifdef __GLIBCXX__

class NumPutWide : public testing::TestWithParam<std::size_t> {
protected:
    NumPutWide() { stream_.imbue(orvtest::localeOf(PUNCTUATIONS[GetParam()])); }

    template <class Value>
    void expectSame(Value value) {
        const auto flags = randomFlags(source_);
        stream_.flags(flags);
        stream_.precision(randomPrecision(source_));
        const std::streamsize width = source_.coin() ? 0 : source_.between(-3, 40);
        const auto expected = orvtest::write<wchar_t>(stream_, width, u'*', value);
        EXPECT_EQ((orvtest::write<char16>(stream_, width, u'*', value)), expected)
            << "flags " << flags << " precision " << stream_.precision() << " width " << width;
    }

    // libstdc++ separates the 0 and the x of hexadecimal numbers, if groups are small.
    bool separatesPrefix() const {
        const std::string& grouping = PUNCTUATIONS[GetParam()].grouping;
        const bool isHex =
            (stream_.flags() & std::ios_base::floatfield) == std::ios_base::floatfield;
        return isHex && !grouping.empty() && (grouping[0] == 1 || grouping[0] == 2);
    }

    NumberSource source_{103 + GetParam()};
    std::wios stream_{nullptr};
};

TEST_P(NumPutWide, WritesIntegersAlike) {
    for (std::size_t n = orvtest::caseCount(5000); n-- > 0 && !HasFailure();) {
        const std::uint64_t bits = source_.bits() >> source_.below(64);
        expectSame(static_cast<long>(bits));
        expectSame(static_cast<long>(-bits));
        expectSame(static_cast<unsigned long>(bits));
        expectSame(static_cast<long long>(bits));
        expectSame(static_cast<unsigned long long>(-bits));
        expectSame(bits % 2 == 0);
        expectSame(std::bit_cast<const void*>(static_cast<std::uintptr_t>(bits)));
    }
    expectSame(0L);
    expectSame(std::numeric_limits<long long>::min());
}

TEST_P(NumPutWide, WritesFloatsAlike) {
    for (std::size_t n = orvtest::caseCount(5000); n-- > 0 && !HasFailure();) {
        const double value = randomDouble(source_);
        stream_.flags(randomFlags(source_));
        stream_.precision(randomPrecision(source_));
        const std::streamsize width = source_.coin() ? 0 : source_.between(0, 60);
        if (separatesPrefix() || losesZero(stream_, value)) {
            continue;
        }
        const auto put = [&](auto x) {
            const auto expected = orvtest::write<wchar_t>(stream_, width, u'\u00B7', x);
            EXPECT_EQ((orvtest::write<char16>(stream_, width, u'\u00B7', x)), expected)
                << x << " flags " << stream_.flags() << " precision " << stream_.precision();
        };
        put(value);
        put(static_cast<long double>(value));
    }
}

INSTANTIATE_TEST_SUITE_P(Punctuations, NumPutWide,
                         testing::Range<std::size_t>(0, std::size(PUNCTUATIONS)));

#endif

} // namespace

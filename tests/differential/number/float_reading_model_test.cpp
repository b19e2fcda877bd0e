// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Scans and their floats beside the model that reads unit by unit: random texts of the
/// grammar, near misses, and texts at ties.
#include "orv/liborvxx/number/detail/convert_scan.h"
#include "orv/liborvxx/number/detail/text_source.h"
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/string_to_float.h"
#include "tests/differential/number/float_cases.h"
#include "tests/reference/float_scan_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace {

using namespace orv::detail;
using orv::char16;
using orv::number_status;
using orvtest::ModelScan;
using orvtest::NumberSource;
using orvtest::ScanFailure;
using orvtest::Units;

number_status statusOf(ScanFailure failure) {
    switch (failure) {
    case ScanFailure::NO_DIGIT:
        return number_status::digit_expected;
    case ScanFailure::NO_INFINITY:
        return number_status::infinity_expected;
    case ScanFailure::NO_NAN:
        return number_status::nan_expected;
    default:
        return number_status::ok;
    }
}

// A text in a block of exactly its size: what reads beyond it is caught by a sanitizer.
template <class CharT>
struct ExactText {
    ExactText(std::u16string_view units, bool terminated)
        : size(units.size() + (terminated ? 1 : 0)), block(new CharT[size]) {
        for (std::size_t i = 0; i < size; ++i) {
            block[i] = static_cast<CharT>(i < units.size() ? units[i] : u'\0');
        }
    }
    orv::basic_string_ref<CharT> view() const { return {block.get(), size}; }

    std::size_t size;
    std::unique_ptr<CharT[]> block;
};

std::string shown(std::u16string_view units) {
    std::string text;
    for (const char16_t unit : units) {
        text += unit >= 0x20 && unit < 0x7F ? std::string(1, static_cast<char>(unit))
                                            : "<" + std::to_string(unit) + ">";
    }
    return text;
}

template <class Source>
void expectScan(Source source, const ModelScan& expected, int digits, int hexDigits) {
    const auto* const start = source.position();
    float_scanner state{digits, hexDigits};
    state.rounding = 3; // none of what was there before counts
    state.coefficient = {5, 5};
    ASSERT_EQ(scan_float(state, source, true), statusOf(expected.failure));
    if (expected.failure != ScanFailure::NONE) {
        return;
    }
    EXPECT_EQ(static_cast<std::size_t>(source.position() - start), expected.length);
    EXPECT_EQ(state.negative, expected.negative);
    EXPECT_EQ(state.radix, expected.radix);
    EXPECT_EQ((mpz_class(state.coefficient.high) << 64U) + mpz_class(state.coefficient.low),
              expected.coefficient);
    EXPECT_EQ(state.rounding, expected.rounding);
    EXPECT_EQ(state.exponent, expected.exponent);
}

template <class CharT, class Float>
void expectRead(std::u16string_view units, const ModelScan& expected, Float value) {
    const ExactText<CharT> text(units, false);
    const auto read = orv::from_chars_c<Float>(text.view());
    if (expected.failure != ScanFailure::NONE) {
        EXPECT_EQ(read.status, statusOf(expected.failure));
        EXPECT_EQ(read.length, 0U);
        EXPECT_EQ(orvtest::floatBits(read.value), 0U);
        return;
    }
    EXPECT_EQ(orvtest::floatBits(read.value), orvtest::floatBits(value));
    EXPECT_EQ(read.length, expected.length);
    const bool infinite = value == std::numeric_limits<Float>::infinity() ||
                          value == -std::numeric_limits<Float>::infinity();
    EXPECT_EQ(read.status,
              infinite && expected.radix != 0 ? number_status::out_of_range : number_status::ok);
}

// The same in the C shape, which has readers of its own.
template <class CharT>
void expectReadInC(std::u16string_view units, const ModelScan& expected, double value) {
    const ExactText<CharT> text(units, true);
    CharT* end = nullptr;
    const double read = orv::strtod_c(text.block.get(), &end);
    const bool failed = expected.failure != ScanFailure::NONE;
    EXPECT_EQ(orvtest::floatBits(read), orvtest::floatBits(failed ? 0.0 : value));
    EXPECT_EQ(static_cast<std::size_t>(end - text.block.get()), failed ? 0 : expected.length);
}

template <class CharT>
void expectModel(std::u16string_view units, Units kind) {
    SCOPED_TRACE(shown(units));
    const ModelScan scan = modelScan(units, kind, 20, 14);
    const ModelScan floatScan = modelScan(units, kind, 20, 6);
    expectRead<CharT>(units, scan, modelToDouble(scan));
    expectRead<CharT>(units, floatScan, modelToFloat(floatScan));
    expectReadInC<CharT>(units, scan, modelToDouble(scan));
    const ExactText<CharT> exact(units, false);
    const ExactText<CharT> terminated(units, true);
    for (const auto& [digits, hexDigits] : {std::pair(20, 14), std::pair(20, 6), std::pair(7, 0),
                                            std::pair(16, 0), std::pair(34, 0), std::pair(1, 1)}) {
        const ModelScan expected = modelScan(units, kind, digits, hexDigits);
        expectScan(RangeSource<CharT>(exact.view()), expected, digits, hexDigits);
        expectScan(NulTerminatedSource<CharT>(terminated.block.get()), expected, digits, hexDigits);
    }
}

// In all types of text.
void expectModels(std::u16string_view units) {
    expectModel<char16>(units, Units::UTF16);
    std::u16string bytes(units);
    for (char16_t& byte : bytes) {
        byte &= 0xFFU;
    }
    expectModel<char>(bytes, Units::BYTES);
}

void appendDigits(NumberSource& source, std::u16string& text, unsigned most, bool hexadecimal) {
    static const std::u16string DIGITS = u"0123456789abcdefABCDEF";
    const unsigned kind = source.below(6);
    for (unsigned i = source.below(most + 1); i > 0; --i) {
        const unsigned d = kind == 0   ? 0
                           : kind == 1 ? 9
                           : kind == 2 ? 5 * source.below(2)
                                       : source.below(hexadecimal ? 22 : 10);
        text += source.below(200) == 0 ? static_cast<char16_t>(0x660 + d % 10) : DIGITS[d];
    }
}

// A number in the grammar, of any length.
std::u16string number(NumberSource& source) {
    static const std::u16string_view SPACES[] = {u"", u"", u"", u"", u" ", u"\t\n ", u"\u3000"};
    static const std::u16string_view SIGNS[] = {u"", u"", u"-", u"+"};
    static const std::u16string_view WORDS[] = {u"inf", u"Infinity", u"nan", u"NAN", u"infin"};
    std::u16string text(SPACES[source.below(7)]);
    text += SIGNS[source.below(4)];
    if (source.below(20) == 0) {
        return text += WORDS[source.below(5)];
    }
    const bool hexadecimal = source.below(5) == 0;
    if (hexadecimal) {
        text += source.coin() ? u"0x" : u"0X";
    }
    const unsigned most = source.below(8) == 0 ? 60 : 1 + source.below(22);
    if (source.below(8) == 0) {
        text += std::u16string(source.below(30), u'0');
    }
    appendDigits(source, text, most, hexadecimal);
    if (source.coin()) {
        text += u'.';
        if (source.below(8) == 0) {
            text += std::u16string(source.below(30), u'0');
        }
        appendDigits(source, text, most, hexadecimal);
    }
    if (source.below(3) == 0) {
        text += hexadecimal ? u"pP"[source.below(2)] : u"eE"[source.below(2)];
        text += SIGNS[source.below(4)];
        if (source.below(10) == 0) {
            appendDigits(source, text, 12, false);
        } else {
            const std::string digits = std::to_string(source.below(hexadecimal ? 1100 : 340));
            text.append(digits.begin(), digits.end());
        }
    }
    return text;
}

// One unit changed, lost, doubled or put in, or none.
void damage(NumberSource& source, std::u16string& text) {
    static const std::u16string UNITS = u"0123456789+-.eEpPxXiInNfaAtyY_ \t\u0000\u0130\u0663\u00E9"
                                        u"\uFF11\uFFFF\u00A0/:@G`g{\u2028\u0080\u017F";
    const char16_t unit = UNITS[source.below(static_cast<unsigned>(UNITS.size()))];
    const std::size_t at = source.below(static_cast<unsigned>(text.size() + 1));
    switch (source.below(5)) {
    case 0:
        text.insert(at, 1, unit);
        break;
    case 1:
        text.resize(at);
        text += unit;
        break;
    case 2:
        if (at < text.size()) {
            text[at] = unit;
        }
        break;
    case 3:
        if (at < text.size()) {
            text.erase(at, 1);
        }
        break;
    default:
        break;
    }
}

TEST(FloatReadingModel, NumbersOfTheGrammar) {
    NumberSource source(51);
    for (std::size_t i = orvtest::caseCount(60'000); i > 0 && !HasFailure(); --i) {
        expectModels(number(source));
    }
}

TEST(FloatReadingModel, NearMisses) {
    NumberSource source(52);
    for (std::size_t i = orvtest::caseCount(60'000); i > 0 && !HasFailure(); --i) {
        std::u16string text = number(source);
        for (unsigned n = 1 + source.below(2); n > 0; --n) {
            damage(source, text);
        }
        expectModels(text);
    }
}

TEST(FloatReadingModel, RandomUnits) {
    static const std::u16string UNITS = u"0123456789..ee+-xpinf";
    NumberSource source(53);
    for (std::size_t i = orvtest::caseCount(30'000); i > 0 && !HasFailure(); --i) {
        std::u16string text;
        for (unsigned n = source.below(12); n > 0; --n) {
            text += source.below(30) == 0
                        ? static_cast<char16_t>(source.bits())
                        : UNITS[source.below(static_cast<unsigned>(UNITS.size()))];
        }
        expectModels(text);
    }
}

// The decimal digits of middles of neighbours, whole or cut, and their neighbours in the last
// digit.
TEST(FloatReadingModel, Middles) {
    NumberSource source(54);
    mpz_class number;
    for (std::size_t i = orvtest::caseCount(40'000); i > 0 && !HasFailure(); --i) {
        const unsigned precision = source.coin() ? 24 : 53;
        number = mpz_class(source.bits() >> (63 - precision) | std::uint64_t{1} << precision | 1U);
        const int scale = source.coin() ? source.between(-30, 30) : source.between(-1128, 970);
        int exponent = 0;
        if (scale >= 0) {
            number <<= static_cast<unsigned>(scale);
        } else { // n / 2^k is n * 5^k / 10^k
            mpz_class power;
            mpz_ui_pow_ui(power.get_mpz_t(), 5, static_cast<unsigned>(-scale));
            number *= power;
            exponent = scale;
        }
        std::string digits = number.get_str();
        const std::size_t most = source.coin() ? 17 + source.below(6) : 800;
        if (digits.size() > most) {
            exponent += static_cast<int>(digits.size() - most);
            digits.resize(most);
        }
        switch (source.below(4)) {
        case 0:
            digits.back() = static_cast<char>(digits.back() == '9' ? '8' : digits.back() + 1);
            break;
        case 1:
            digits.back() = static_cast<char>(digits.back() == '0' ? '1' : digits.back() - 1);
            break;
        case 2:
            digits += std::string(source.below(30), '0') + "1";
            exponent -= static_cast<int>(digits.size() - std::min(most, digits.size()));
            break;
        default:
            break;
        }
        if (source.coin()) {
            const std::size_t point = source.below(static_cast<unsigned>(digits.size()));
            exponent += static_cast<int>(digits.size() - point);
            digits.insert(point, ".");
        }
        if (exponent != 0 || source.coin()) {
            digits += "e" + std::to_string(exponent);
        }
        expectModel<char>(std::u16string(digits.begin(), digits.end()), Units::BYTES);
    }
}

// Lengths at which groups of eight begin and end, with every place of the point.
TEST(FloatReadingModel, EveryLengthAndPlaceOfThePoint) {
    NumberSource source(55);
    for (std::size_t length = 1; length <= 45 && !HasFailure(); ++length) {
        for (std::size_t point = 0; point <= length; ++point) {
            std::u16string text;
            for (std::size_t i = 0; i < length; ++i) {
                text += static_cast<char16_t>(u'0' + source.below(10));
            }
            text.insert(point, u".");
            expectModels(text);
            expectModels(text + u"e-5");
            expectModels(text + u"\u0663,");
        }
    }
}

TEST(FloatReadingModel, VeryLongTexts) {
    const std::size_t million = orvtest::caseCount(1'000'000);
    const std::u16string zeros(million, u'0');
    const std::u16string nines(million, u'9');
    const std::u16string exponent = u"e-" + [&] {
        const std::string digits = std::to_string(million);
        return std::u16string(digits.begin(), digits.end());
    }();
    for (const auto& text :
         {zeros + u"12.5", u"1." + zeros + u"1", u"12." + nines, nines + exponent,
          u"1" + zeros + exponent, u"12345678901234567890.5" + zeros + u"1",
          u"." + zeros + u"1" + exponent, u"1e" + zeros, u"0x" + zeros + u"1.8", u"0x1." + nines,
          u"0x." + zeros + u"1", zeros, nines}) {
        expectModels(text);
        ASSERT_FALSE(HasFailure()) << shown(text.substr(0, 20)) << "...";
    }
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers from text beside Intel's decimal library and beside exact arithmetic, for
/// texts of any length.
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/string_to_decimal.h"
#include "tests/differential/number/decimal_exact_model.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"
#include "tests/support/shown_decimal.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <bid_conf.h>
#include <bid_functions.h>

#include <algorithm>
#include <cstddef>
#include <string>

namespace {

using namespace orv::decimal;
using orvtest::NumberSource;
using orvtest::shown;

decimal32 intel32(std::string text) {
    _IDEC_flags flags = 0;
    return ODecimal32{bid32_from_string(text.data(), 0, &flags)};
}
decimal64 intel64(std::string text) {
    _IDEC_flags flags = 0;
    return ODecimal64{bid64_from_string(text.data(), 0, &flags)};
}
decimal128 intel128(std::string text) {
    _IDEC_flags flags = 0;
    const BID_UINT128 value = bid128_from_string(text.data(), 0, &flags);
    return ODecimal128{value.w[0], value.w[1]};
}

// Digits of a shape that is hard to round at `kept` digits.
std::string randomDigits(NumberSource& source, unsigned kept) {
    const unsigned shape = source.below(8);
    const unsigned length = 1 + source.below(shape == 0 ? 3 : shape < 6 ? kept + 6 : 100);
    std::string digits(length, '0');
    for (char& digit : digits) {
        digit = static_cast<char>('0' + source.below(10));
    }
    const auto tail = digits.begin() + source.below(length + 1);
    switch (source.below(6)) {
    case 0:
        std::fill(tail, digits.end(), '0');
        break;
    case 1:
        std::fill(tail, digits.end(), '9');
        break;
    case 2: // a tie wherever it is cut, or next to it
        std::fill(tail, digits.end(), '0');
        if (tail != digits.end()) {
            *tail = '5';
        }
        if (source.below(4) == 0) {
            digits.back() = '1';
        }
        break;
    case 3: // a tie at the digits kept, or next to it
        if (length > kept) {
            std::fill(digits.begin() + kept, digits.end(), '0');
            digits[kept] = '5';
            if (source.below(4) == 0) {
                digits.back() = '1';
            }
        }
        break;
    default:
        break;
    }
    return digits;
}

// A text with exponents around both ends of the range, over it, and far beyond.
std::string randomText(NumberSource& source, const orvtest::DecimalRange& range) {
    std::string digits = randomDigits(source, static_cast<unsigned>(range.digits));
    const auto length = static_cast<int>(digits.size());
    if (source.below(8) == 0) {
        digits.insert(0, source.below(50), '0');
    }
    if (source.coin()) {
        digits.insert(source.below(static_cast<unsigned>(digits.size()) + 1), 1, '.');
    }
    const auto least = static_cast<int>(range.least);
    const auto greatest = static_cast<int>(range.greatest);
    std::string text = source.coin() ? "-" : source.coin() ? "+" : "";
    text += digits;
    switch (source.below(6)) {
    case 0:
        return text + 'e' + std::to_string(source.between(least - length - 5, least + 10));
    case 1:
        return text + 'E' + std::to_string(source.between(greatest - length - 5, greatest + 45));
    case 2:
        return text + "E+" + std::to_string(source.below(100'000));
    case 3:
        return text + 'e' + std::to_string(source.between(least - length, greatest));
    default:
        return text;
    }
}

template <class Read, class Intel>
void compareReading(unsigned seed, const orvtest::DecimalRange& range, Read read, Intel intel) {
    NumberSource source(seed);
    for (std::size_t i = orvtest::caseCount(100'000); i > 0; --i) {
        const std::string text = randomText(source, range);
        const std::string value = shown(read(orv::string_ref(text)));
        ASSERT_EQ(value, shownIn(range, orvtest::exactDecimal(text))) << text;
        ASSERT_EQ(value, shown(read(orvtest::textIn<orv::char16>(text)))) << text;
        ASSERT_EQ(value, shown(intel(text))) << text;
    }
}

TEST(DecimalReading, Decimal32IsTheNearest) {
    compareReading(
        1, orvtest::RANGE_32, [](auto text) { return orv::stod32_c(text); }, intel32);
}

TEST(DecimalReading, Decimal64IsTheNearest) {
    compareReading(
        2, orvtest::RANGE_64, [](auto text) { return orv::stod64_c(text); }, intel64);
}

TEST(DecimalReading, Decimal128IsTheNearest) {
    compareReading(
        3, orvtest::RANGE_128, [](auto text) { return orv::stod128_c(text); }, intel128);
}

// Any bits: a coefficient that is not canonical is written as a zero.
template <class Decimal, class Make, class Intel>
void compareWriting(unsigned seed, Make make, Intel intel) {
    NumberSource source(seed);
    for (std::size_t i = orvtest::caseCount(100'000); i > 0; --i) {
        const Decimal value = make(source);
        const std::string text = orv::to_string_c(value);
        if (text == "NaN") {
            continue;
        }
        // Intel's library takes the same number, written its own way, apart.
        const Decimal back = intel(text);
        const std::string bits = shown(value);
        if (bits.substr(0, 4) != "bits") {
            ASSERT_EQ(shown(back), bits) << text;
        } else {
            const std::string number = shown(back);
            ASSERT_TRUE(number.find("inf") != std::string::npos ||
                        number.substr(number[0] == '-' ? 1 : 0, 2) == "0E")
                << bits << ' ' << text;
        }
    }
}

TEST(DecimalWriting, Intel32ReadsTheSame) {
    compareWriting<decimal32>(
        4,
        [](NumberSource& source) {
            return decimal32(ODecimal32{static_cast<std::uint32_t>(source.bits())});
        },
        intel32);
}

TEST(DecimalWriting, Intel64ReadsTheSame) {
    compareWriting<decimal64>(
        5, [](NumberSource& source) { return decimal64(ODecimal64{source.bits()}); }, intel64);
}

TEST(DecimalWriting, Intel128ReadsTheSame) {
    compareWriting<decimal128>(
        6,
        [](NumberSource& source) {
            return decimal128(ODecimal128{source.bits() >> source.below(64),
                                          source.bits() & ~(std::uint64_t{source.coin()} << 46U)});
        },
        intel128);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Coefficient * 10^exponent as decimal numbers, bit for bit beside Intel's decimal library,
/// which reads the same numbers from text.
#include "orv/liborvxx/number/pack_decimal.h"

#include "tests/support/case_count.h"
#include "tests/support/number_source.h"

#include <gtest/gtest.h>

#include <bid_conf.h>
#include <bid_functions.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>

namespace {

using orv::big_uint;
using orvtest::NumberSource;

struct Sample {
    big_uint coefficient;
    int exponent = 0;
    bool negative = false;
    std::string text; // what the other library reads
};

// Digits of a shape that is hard to round at `kept` digits.
std::string digits(NumberSource& source, unsigned kept) {
    const unsigned length = 1 + source.below(source.coin() ? kept + 3 : 80);
    std::string text(length, '0');
    for (char& digit : text) {
        digit = static_cast<char>('0' + source.below(10));
    }
    const unsigned from = source.below(length + 1);
    const auto tail = text.begin() + from;
    switch (source.below(8)) {
    case 0: // ends in zeros
        std::fill(tail, text.end(), '0');
        break;
    case 1: // ends in nines
        std::fill(tail, text.end(), '9');
        break;
    case 2: // all nines
        std::fill(text.begin(), text.end(), '9');
        break;
    case 3: // a tie wherever it is cut, or next to it
        std::fill(tail, text.end(), '0');
        if (tail != text.end()) {
            *tail = '5';
        }
        if (source.below(4) == 0) {
            text.back() = '1';
        }
        break;
    case 4: // a tie at the digits kept
        if (length > kept) {
            std::fill(text.begin() + kept, text.end(), '0');
            text[kept] = '5';
        }
        break;
    default:
        break;
    }
    text.erase(0, std::min(text.find_first_not_of('0'), text.size() - 1));
    return text;
}

// The number that the digits write.
big_uint numberOf(const std::string& text) {
    big_uint n;
    n.set_size(9);
    for (const char digit : text) {
        n.multiply_by_10();
        n.add(static_cast<unsigned>(digit - '0'));
    }
    n.trim();
    return n;
}

// Exponents around both ends of the range, over it, and far beyond.
int exponentFor(NumberSource& source, int length, int least, int greatest) {
    switch (source.below(6)) {
    case 0:
        return source.between(least - length - 5, least + 10);
    case 1:
        return source.between(greatest - length - 5, greatest + 45);
    case 2:
        return source.between(-100'000, 100'000);
    default:
        return source.between(least - length, greatest);
    }
}

Sample nextSample(NumberSource& source, unsigned kept, int least, int greatest) {
    Sample sample;
    const std::string text = digits(source, kept);
    sample.coefficient = numberOf(text);
    sample.exponent = exponentFor(source, static_cast<int>(text.size()), least, greatest);
    sample.negative = source.coin();
    sample.text = (sample.negative ? "-" : "+") + text + "E" + std::to_string(sample.exponent);
    return sample;
}

// Compares random samples; \p areEqual takes the library's number, the sample's text and its flags.
template <class Pack, class Equal>
void compare(unsigned seed, unsigned digits, int least, int greatest, Pack pack, Equal areEqual) {
    NumberSource source(seed);
    for (std::size_t i = orvtest::caseCount(400'000); i > 0; --i) {
        Sample sample = nextSample(source, digits, least, greatest);
        const auto packed = pack(sample.negative, sample.exponent, sample.coefficient);
        _IDEC_flags flags = 0;
        ASSERT_TRUE(areEqual(packed.record(), sample.text.data(), &flags)) << sample.text;
    }
}

TEST(PackDecimalIntel, Decimal32IsTheSame) {
    compare(41, 7, -101, 90, orv::pack_decimal32,
            [](const ODecimal32& record, char* text, _IDEC_flags* flags) {
                return record.bits == bid32_from_string(text, 0, flags);
            });
}

TEST(PackDecimalIntel, Decimal64IsTheSame) {
    compare(42, 16, -398, 369, orv::pack_decimal64,
            [](const ODecimal64& record, char* text, _IDEC_flags* flags) {
                return record.bits == bid64_from_string(text, 0, flags);
            });
}

TEST(PackDecimalIntel, Decimal128IsTheSame) {
    compare(43, 34, -6176, 6111, orv::pack_decimal128,
            [](const ODecimal128& record, char* text, _IDEC_flags* flags) {
                const BID_UINT128 expected = bid128_from_string(text, 0, flags);
                return record.low == expected.w[0] && record.high == expected.w[1];
            });
}

} // namespace

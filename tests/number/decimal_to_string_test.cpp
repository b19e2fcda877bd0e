// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal numbers as text: in every form, into every room, read back and beside the digits
/// one by one.
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/pack_decimal.h"
#include "orv/liborvxx/number/to_chars.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"
#include "tests/support/shown_decimal.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using orv::big_uint;
using orv::char16;
using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using orvtest::NumberSource;
using orvtest::shown;

constexpr std::size_t maxLengthOf(const decimal32& /*value*/) {
    return orv::MAX_DECIMAL32_LENGTH;
}
constexpr std::size_t maxLengthOf(const decimal64& /*value*/) {
    return orv::MAX_DECIMAL64_LENGTH;
}
constexpr std::size_t maxLengthOf(const decimal128& /*value*/) {
    return orv::MAX_DECIMAL128_LENGTH;
}

constexpr std::size_t MARGIN = 8;
constexpr char16_t UNTOUCHED = u'#';

// Writes into exactly `room` units; nothing beside them may change.
template <class CharT, class Decimal>
void checkRoom(const Decimal& value, const std::string& text, std::size_t room) {
    std::vector<CharT> memory(MARGIN + room + MARGIN, static_cast<CharT>(UNTOUCHED));
    CharT* const first = memory.data() + MARGIN;
    const auto [end, fits] = orv::to_chars_c(first, first + room, value);
    ASSERT_EQ(fits, text.size() <= room) << text << " in " << room;
    ASSERT_EQ(static_cast<std::size_t>(end - first), fits ? text.size() : room) << text;
    const auto isUntouched = [](CharT unit) { return unit == static_cast<CharT>(UNTOUCHED); };
    ASSERT_TRUE(std::all_of(memory.data(), first, isUntouched)) << text << " in " << room;
    ASSERT_TRUE(std::all_of(first + room, first + room + MARGIN, isUntouched)) << text;
    if (fits) {
        ASSERT_EQ(std::basic_string<CharT>(first, end), orvtest::textIn<CharT>(text)) << text;
    }
}

// The text that all writers give.
template <class Decimal>
std::string textOf(const Decimal& value) {
    std::string text = orv::to_string_c(value);
    EXPECT_EQ(orv::to_ustring_c(value), orvtest::textIn<char16>(text)) << text;
    EXPECT_LE(text.size(), maxLengthOf(value)) << text;
    for (const std::size_t room : {std::size_t{0}, text.size() - 1, text.size(), text.size() + 1,
                                   maxLengthOf(value), std::size_t{60}}) {
        checkRoom<char>(value, text, room);
        checkRoom<char16>(value, text, room);
    }
    return text;
}

// The text as it is told, from what `shown` says of the value.
std::string formatted(const std::string& value) {
    if (value == "NaN") {
        return value;
    }
    const std::string sign = value[0] == '-' ? "-" : "";
    const std::string magnitude = value.substr(sign.size());
    if (magnitude == "inf") {
        return sign + "Infinity";
    }
    const std::size_t mark = magnitude.find('E');
    const std::string digits = magnitude.substr(0, mark);
    const auto count = static_cast<int>(digits.size());
    const int exponent = std::stoi(magnitude.substr(mark + 1)) + count - 1; // of the first digit
    if (exponent < -3 || exponent > 6 || exponent >= count) {
        return sign + digits[0] + '.' + digits.substr(1) + 'E' + std::to_string(exponent);
    }
    if (exponent < 0) {
        return sign + "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    }
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    return sign + digits.substr(0, whole) + '.' + digits.substr(whole);
}

decimal32 pack(const decimal32& /*type*/, bool negative, int exponent, const big_uint& digits) {
    return orv::pack_decimal32(negative, exponent, digits);
}
decimal64 pack(const decimal64& /*type*/, bool negative, int exponent, const big_uint& digits) {
    return orv::pack_decimal64(negative, exponent, digits);
}
decimal128 pack(const decimal128& /*type*/, bool negative, int exponent, const big_uint& digits) {
    return orv::pack_decimal128(negative, exponent, digits);
}

template <class Decimal>
class DecimalToString : public testing::Test {
public:
    static constexpr int DIGITS = sizeof(Decimal) == 4 ? 7 : sizeof(Decimal) == 8 ? 16 : 34;
    static constexpr int LEAST = sizeof(Decimal) == 4 ? -101 : sizeof(Decimal) == 8 ? -398 : -6176;
    static constexpr int GREATEST = sizeof(Decimal) == 4 ? 90 : sizeof(Decimal) == 8 ? 369 : 6111;

    static Decimal made(unsigned coefficient, int exponent, bool negative = false) {
        return pack(Decimal(), negative, exponent, big_uint(coefficient));
    }
    static Decimal special(unsigned topByte, std::uint64_t rest = 0) {
        if constexpr (sizeof(Decimal) == 4) {
            return Decimal(ODecimal32{topByte << 24U | static_cast<std::uint32_t>(rest)});
        } else if constexpr (sizeof(Decimal) == 8) {
            return Decimal(ODecimal64{std::uint64_t{topByte} << 56U | rest});
        } else {
            return Decimal(ODecimal128{rest, std::uint64_t{topByte} << 56U});
        }
    }
    static Decimal random(NumberSource& source) {
        if constexpr (sizeof(Decimal) == 4) {
            return Decimal(ODecimal32{static_cast<std::uint32_t>(source.bits())});
        } else if constexpr (sizeof(Decimal) == 8) {
            return Decimal(ODecimal64{source.bits()});
        } else {
            return Decimal(ODecimal128{source.bits(), source.bits()});
        }
    }
    // Of any count of digits, often in plain form.
    static Decimal randomFinite(NumberSource& source) {
        const unsigned count = source.below(DIGITS) + 1;
        big_uint digits(0U);
        digits.set_size(4);
        for (unsigned i = 0; i < count; ++i) {
            digits.multiply_by_10();
            digits.add(source.below(4) == 0 ? 9 * source.below(2) : source.below(10));
        }
        const int exponent =
            source.coin() ? source.between(-DIGITS - 5, 5) : source.between(LEAST, GREATEST);
        return pack(Decimal(), source.coin(), exponent, digits);
    }
};

struct NameOfType {
    template <class Decimal>
    static std::string GetName(int /*index*/) {
        return "Decimal" + std::to_string(8 * sizeof(Decimal));
    }
};
using DecimalTypes = testing::Types<decimal32, decimal64, decimal128>;
TYPED_TEST_SUITE(DecimalToString, DecimalTypes, NameOfType);

#define TEXT(...) textOf(TestFixture::made(__VA_ARGS__))

TYPED_TEST(DecimalToString, KeepsAllDigitsOfTheCoefficient) {
    EXPECT_EQ(TEXT(150, -2), "1.50");
    EXPECT_EQ(TEXT(100, 0), "100.");
    EXPECT_EQ(TEXT(123, 0), "123.");
    EXPECT_EQ(TEXT(1, 2), "1.E2");
    EXPECT_EQ(TEXT(1, 0), "1.");
    EXPECT_EQ(TEXT(1, 1), "1.E1");
    EXPECT_EQ(TEXT(12, 1), "1.2E2");
    EXPECT_EQ(TEXT(15, -1, true), "-1.5");
    EXPECT_EQ(TEXT(1000000, 0), "1000000.");
    EXPECT_EQ(TEXT(1000000, 1), "1.000000E7");
    EXPECT_EQ(TEXT(1234567, -6), "1.234567");
    EXPECT_EQ(TEXT(1234567, -1), "123456.7");
    EXPECT_EQ(TEXT(1234567, -10, true), "-1.234567E-4");
}

TYPED_TEST(DecimalToString, IsPlainFromAThousandthOn) {
    EXPECT_EQ(TEXT(1, -1), "0.1");
    EXPECT_EQ(TEXT(1, -2), "0.01");
    EXPECT_EQ(TEXT(1, -3), "0.001");
    EXPECT_EQ(TEXT(1, -4), "1.E-4");
    EXPECT_EQ(TEXT(123, -5), "0.00123");
    EXPECT_EQ(TEXT(123, -6), "1.23E-4");
    EXPECT_EQ(TEXT(1234567, -9), "0.001234567");
    EXPECT_EQ(TEXT(1, -10), "1.E-10");
}

TYPED_TEST(DecimalToString, ShowsTheExponentOfAZero) {
    EXPECT_EQ(TEXT(0, 0), "0.");
    EXPECT_EQ(TEXT(0, 0, true), "-0.");
    EXPECT_EQ(TEXT(0, -1), "0.0");
    EXPECT_EQ(TEXT(0, -2), "0.00");
    EXPECT_EQ(TEXT(0, -3), "0.000");
    EXPECT_EQ(TEXT(0, -4), "0.E-4");
    EXPECT_EQ(TEXT(0, 1), "0.E1");
    EXPECT_EQ(TEXT(0, 7, true), "-0.E7");
    EXPECT_EQ(TEXT(0, -10000), "0.E" + std::to_string(TestFixture::LEAST));
    EXPECT_EQ(TEXT(0, 10000), "0.E" + std::to_string(TestFixture::GREATEST));
    EXPECT_EQ(textOf(TypeParam()), "0.");
}

TYPED_TEST(DecimalToString, NamesWhatIsNoNumber) {
    EXPECT_EQ(textOf(TestFixture::special(0x78)), "Infinity");
    EXPECT_EQ(textOf(TestFixture::special(0xF8)), "-Infinity");
    EXPECT_EQ(textOf(TestFixture::special(0xFB, 0x1234)), "-Infinity") << "not canonical";
    for (const unsigned top : {0x7CU, 0xFCU, 0x7EU, 0xFEU, 0x7FU}) {
        EXPECT_EQ(textOf(TestFixture::special(top)), "NaN");
        EXPECT_EQ(textOf(TestFixture::special(top, 99)), "NaN");
    }
}

TYPED_TEST(DecimalToString, HasTheLongestTexts) {
    big_uint nines(0U);
    nines.set_size(4);
    for (int i = 0; i < TestFixture::DIGITS; ++i) {
        nines.multiply_by_10();
        nines.add(9);
    }
    const TypeParam value = pack(TypeParam(), true, TestFixture::LEAST, nines);
    EXPECT_EQ(textOf(value).size(), maxLengthOf(value));
}

TYPED_TEST(DecimalToString, TakesCoefficientsThatAreTooLargeForZeros) {
    // The coefficient's field holds all ones; the exponent is 0.
    if constexpr (sizeof(TypeParam) == 4) {
        EXPECT_EQ(textOf(TypeParam(ODecimal32{0x6CBFFFFFU})), "0.");
    } else if constexpr (sizeof(TypeParam) == 8) {
        EXPECT_EQ(textOf(TypeParam(ODecimal64{0x6C77FFFFFFFFFFFFU})), "0.");
    } else {
        EXPECT_EQ(textOf(TypeParam(ODecimal128{~std::uint64_t{0}, 0x3041FFFFFFFFFFFFU})), "0.");
        EXPECT_EQ(textOf(TypeParam(ODecimal128{0x378D8E6400000000U, 0x3041ED09BEAD87C0U})), "0.");
        EXPECT_EQ(textOf(TypeParam(ODecimal128{5, 0x6C10000000000000U})), "0.") << "wide form";
    }
}

TYPED_TEST(DecimalToString, HasTheFormToldForRandomNumbers) {
    NumberSource source(11);
    for (std::size_t i = orvtest::caseCount(20'000); i > 0; --i) {
        const TypeParam value = TestFixture::randomFinite(source);
        ASSERT_EQ(textOf(value), formatted(shown(value))) << shown(value);
    }
}

TYPED_TEST(DecimalToString, ReadsBackAsTheSameNumber) {
    NumberSource source(12);
    for (std::size_t i = orvtest::caseCount(100'000); i > 0; --i) {
        const TypeParam value =
            source.coin() ? TestFixture::random(source) : TestFixture::randomFinite(source);
        const std::string text = orv::to_string_c(value);
        const auto back = orv::from_chars_c<TypeParam>(orv::string_ref(text));
        ASSERT_TRUE(back && back.length == text.size()) << text;
        const std::string bits = shown(value);
        if (bits.substr(0, 4) != "bits") { // canonical
            ASSERT_EQ(shown(back.value), bits) << text;
        } else {
            ASSERT_TRUE(text == "NaN" || text.find("Inf") < 2 ||
                        text.find_first_not_of("-0.") == text.find('E'))
                << bits << ' ' << text;
        }
    }
}

} // namespace

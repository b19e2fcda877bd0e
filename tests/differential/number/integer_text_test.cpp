// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Integers from and to text beside GMP, the standard library and the C library.
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/string_to_int.h"
#include "orv/liborvxx/number/to_chars.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <gmpxx.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <string>

namespace {

using orv::char16;
using orv::number_status;
using orvtest::NumberSource;
using orvtest::textIn;

constexpr std::string_view SMALL = "0123456789abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view LARGE = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

template <class T>
class IntegerText : public testing::Test {};
using Types = testing::Types<int, unsigned, long long, unsigned long long>;
TYPED_TEST_SUITE(IntegerText, Types);

// A number whose bit length is any of those of the type: the short ones as often as the long ones.
template <class T>
T anyValue(NumberSource& source) {
    const auto bits = source.bits() >> source.below(64);
    return static_cast<T>(source.coin() ? bits : 0 - bits);
}

std::string digits(NumberSource& source, std::size_t count, unsigned radix) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += (source.coin() ? SMALL : LARGE)[source.below(radix)];
    }
    return text;
}

// What GMP makes of the digits, in the limits of the type.
template <class T>
orv::from_chars_result<T> expectedOf(const std::string& number, bool negative, int radix,
                                     mpz_class& scratch) {
    const mpz_ptr value = scratch.get_mpz_t();
    EXPECT_EQ(mpz_set_str(value, number.c_str(), radix), 0);
    using Limits = std::numeric_limits<T>;
    const auto limit = static_cast<unsigned long>(Limits::max()) + (negative ? 1U : 0U);
    if (mpz_cmp_ui(value, limit) > 0) {
        return {negative ? Limits::min() : Limits::max(), number.size(),
                number_status::out_of_range};
    }
    const unsigned long magnitude = mpz_get_ui(value);
    return {static_cast<T>(negative ? 0 - magnitude : magnitude), number.size(), number_status::ok};
}

template <class T>
void expectSame(const std::string& text, int radix, const orv::from_chars_result<T>& expected) {
    const auto read = orv::from_chars_c<T>(orv::string_ref(text), radix);
    ASSERT_TRUE(read.value == expected.value && read.length == expected.length &&
                read.status == expected.status)
        << '"' << text << "\" in radix " << radix << " gives " << read.value << ", length "
        << read.length << ", expected " << expected.value << ", length " << expected.length;
    const auto wide = orv::from_chars_c<T>(orv::ustring_ref(textIn<char16>(text)), radix);
    ASSERT_TRUE(wide.value == expected.value && wide.length == expected.length &&
                wide.status == expected.status)
        << text << " in radix " << radix;
}

TYPED_TEST(IntegerText, ReadsWhatGmpReads) {
    NumberSource source(11);
    mpz_class scratch;
    const std::size_t cases = orvtest::caseCount(400000);
    for (std::size_t i = 0; i < cases && !this->HasFatalFailure(); ++i) {
        const int radix = source.coin() ? 10 : source.between(2, 36);
        const auto base = static_cast<unsigned>(radix);
        const std::string space(source.below(4) == 0 ? source.below(9) : 0, ' ');
        const bool isSigned = std::numeric_limits<TypeParam>::is_signed;
        const bool negative = isSigned && source.coin();
        const std::string sign(negative ? "-" : isSigned && source.below(4) == 0 ? "+" : "");
        const std::string zeros(source.below(4) == 0 ? source.below(20) : 0, '0');
        const std::string number = zeros + digits(source, 1 + source.below(70) / 3, base);
        const std::string tail = source.coin() ? "" : std::string(1, "!/:@[`{ "[source.below(8)]);
        auto expected = expectedOf<TypeParam>(number, negative, radix, scratch);
        expected.length += space.size() + sign.size();
        expectSame(space + sign + number + tail + digits(source, tail.empty() ? 0 : 9, base), radix,
                   expected);
    }
}

TYPED_TEST(IntegerText, ReadsTheNeighboursOfTheLimits) {
    mpz_class scratch;
    for (int radix = 2; radix <= 36; ++radix) {
        for (const auto limit : {static_cast<std::uint64_t>(std::numeric_limits<TypeParam>::max()),
                                 std::uint64_t{std::numeric_limits<std::uint32_t>::max()},
                                 std::numeric_limits<std::uint64_t>::max()}) {
            for (int offset = -40; offset <= 40; ++offset) {
                mpz_class value;
                mpz_set_ui(value.get_mpz_t(), limit);
                value += offset;
                const std::string text = value.get_str(radix);
                expectSame(text, radix, expectedOf<TypeParam>(text, false, radix, scratch));
                if (std::numeric_limits<TypeParam>::is_signed) {
                    auto expected = expectedOf<TypeParam>(text, true, radix, scratch);
                    ++expected.length;
                    expectSame('-' + text, radix, expected);
                }
            }
        }
    }
}

TYPED_TEST(IntegerText, ReadsWhatTheStandardLibraryReads) {
    NumberSource source(12);
    const std::size_t cases = orvtest::caseCount(400000);
    for (std::size_t i = 0; i < cases && !this->HasFatalFailure(); ++i) {
        const int radix = source.between(2, 36);
        // Any characters that matter, so that most texts are wrong somewhere.
        std::string text;
        for (unsigned n = source.below(24); n > 0; --n) {
            text += "0123456789abyzABYZ-+ .x/:@[`{"[source.below(29)];
        }
        TypeParam value = 0;
        const char* const first = text.data();
        const auto read = std::from_chars(first, first + text.size(), value, radix);
        const auto ours = orv::from_chars_c<TypeParam>(orv::string_ref(text), radix);
        // White space, '+' and the prefix are ours alone.
        const bool comparable = !text.empty() && text[0] != ' ' && text[0] != '+' &&
                                (radix != 16 || text.find('x') == std::string::npos);
        if (!comparable) {
            continue;
        }
        ASSERT_EQ(ours.status == number_status::digit_expected,
                  read.ec == std::errc::invalid_argument)
            << text;
        ASSERT_EQ(ours.status == number_status::out_of_range,
                  read.ec == std::errc::result_out_of_range)
            << text;
        if (ours.status != number_status::digit_expected) {
            ASSERT_EQ(ours.length, static_cast<std::size_t>(read.ptr - first)) << text;
        }
        if (ours) {
            ASSERT_EQ(ours.value, value) << text;
        }
    }
}

// The reader of the C library reads the same text to the same end, with the same errno. It has the
// same grammar, but takes a '-' before unsigned numbers too.
template <class Ours, class Theirs>
void expectAsInC(std::string_view characters, const Ours& ours, const Theirs& theirs) {
    NumberSource source(13);
    const std::size_t cases = orvtest::caseCount(400000);
    for (std::size_t i = 0; i < cases; ++i) {
        const int radix = source.below(3) == 0 ? 0 : source.between(2, 36);
        std::string text = source.coin() ? "0x" : "";
        for (unsigned n = source.below(24); n > 0; --n) {
            text += characters[source.below(static_cast<unsigned>(characters.size()))];
        }
        char* end = nullptr;
        errno = 0;
        const auto expected = theirs(text.c_str(), &end, radix);
        const int error = errno;
        char* ourEnd = nullptr;
        errno = 0;
        ASSERT_EQ(ours(text.c_str(), &ourEnd, radix), expected) << text << " in radix " << radix;
        ASSERT_EQ(ourEnd, end) << text << " in radix " << radix;
        ASSERT_EQ(errno, error) << text << " in radix " << radix;
    }
}

TEST(IntegerTextInC, ReadsWhatTheCLibraryReads) {
    expectAsInC(
        "00123456789afzAFZ-+ \t.xX",
        [](const char* text, char** end, int radix) { return orv::strtoll_c(text, end, radix); },
        [](const char* text, char** end, int radix) { return std::strtoll(text, end, radix); });
    expectAsInC(
        "00123456789afzAFZ \t.xX",
        [](const char* text, char** end, int radix) { return orv::strtoull_c(text, end, radix); },
        [](const char* text, char** end, int radix) { return std::strtoull(text, end, radix); });
}

template <class T>
void expectWritten(T value, int radix) {
    std::array<char, 70> expected;
    const auto peer =
        std::to_chars(expected.data(), expected.data() + expected.size(), value, radix);
    const std::string_view text(expected.data(),
                                static_cast<std::size_t>(peer.ptr - expected.data()));
    std::array<char, 70> narrow;
    const auto written = orv::to_chars_c(narrow.data(), narrow.data() + text.size(), value, radix);
    ASSERT_TRUE(written && std::string_view(narrow.data(), text.size()) == text &&
                written.end == narrow.data() + text.size())
        << text << " in radix " << radix;
    std::array<char16, 70> wide;
    const auto wideWritten = orv::to_chars_c(wide.data(), wide.data() + text.size(), value, radix);
    ASSERT_TRUE(wideWritten);
    for (std::size_t i = 0; i < text.size(); ++i) {
        ASSERT_EQ(wide[i], char16(static_cast<char16_t>(text[i]))) << text;
    }
    const auto back = orv::from_chars_c<T>(orv::string_ref(narrow.data(), text.size()), radix);
    ASSERT_TRUE(back && back.value == value && back.length == text.size()) << text;
}

TYPED_TEST(IntegerText, WritesWhatTheStandardLibraryWrites) {
    NumberSource source(14);
    const std::size_t cases = orvtest::caseCount(10000);
    for (int radix = 2; radix <= 36 && !this->HasFatalFailure(); ++radix) {
        for (std::size_t i = 0; i < cases && !this->HasFatalFailure(); ++i) {
            expectWritten(anyValue<TypeParam>(source), radix);
        }
        for (TypeParam offset = 0; offset < 40; ++offset) {
            using Limits = std::numeric_limits<TypeParam>;
            expectWritten(static_cast<TypeParam>(Limits::max() - offset), radix);
            expectWritten(static_cast<TypeParam>(Limits::min() + offset), radix);
        }
    }
}

TYPED_TEST(IntegerText, WritesEachPowerOfEachRadixAndItsNeighbours) {
    for (int radix = 2; radix <= 36; ++radix) {
        const auto base = static_cast<std::uint64_t>(radix);
        for (std::uint64_t power = 1;; power *= base) {
            for (const std::uint64_t bits : {power - 1, power, power + 1}) {
                expectWritten(static_cast<TypeParam>(bits), radix);
            }
            if (power > std::numeric_limits<std::uint64_t>::max() / base) {
                break;
            }
        }
    }
}

TYPED_TEST(IntegerText, StringsAreWhatTheStandardLibraryWrites) {
    NumberSource source(15);
    const std::size_t cases = orvtest::caseCount(400000);
    for (std::size_t i = 0; i < cases; ++i) {
        const auto value = anyValue<TypeParam>(source);
        const std::string expected = std::to_string(value);
        ASSERT_EQ(orv::to_string_c(value), expected);
        ASSERT_EQ(orv::to_ustring_c(value), textIn<char16>(expected)) << expected;
    }
}

} // namespace

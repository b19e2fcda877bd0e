// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Numbers are read and written the same whatever locale the process runs in.
///
/// The same texts and values go through every function under the classic locale and under locales
/// with another decimal point, with grouping and with digits of their own; what comes out is
/// compared as a whole. The first test makes what comes out under the classic locale.
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/string_to_decimal.h"
#include "orv/liborvxx/number/string_to_float.h"
#include "orv/liborvxx/number/string_to_int.h"
#include "orv/liborvxx/number/to_chars.h"
#include "tests/support/case_count.h"
#include "tests/support/number_source.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <clocale>
#include <cstdint>
#include <limits>
#include <locale>
#include <string>
#include <vector>

namespace {

using orv::char16;
using orvtest::textIn;

// Changes the C and the C++ locale of the process for a while.
class ScopedLocale {
public:
    explicit ScopedLocale(const char* name)
        : cpp_(std::locale::global(std::locale(name))), isSet_(std::setlocale(LC_ALL, name)) {}
    ScopedLocale(const ScopedLocale&) = delete;
    ScopedLocale& operator=(const ScopedLocale&) = delete;
    ~ScopedLocale() {
        std::locale::global(cpp_);
        std::setlocale(LC_ALL, "C");
    }

    bool isSet() const { return isSet_; }

private:
    std::locale cpp_;
    bool isSet_;
};

std::vector<std::string> makeTexts() {
    std::vector<std::string> texts = {"1,5",
                                      "1.5",
                                      "1.234,5",
                                      "1,234.5",
                                      "1,234,567",
                                      "1.234.567",
                                      "-0,5",
                                      "-0.5",
                                      ".5",
                                      ",5",
                                      "5.",
                                      "5,",
                                      "1 234.5",
                                      "1'234",
                                      "1e5",
                                      "1E5",
                                      "1,5e3",
                                      "1.5e-3",
                                      "0x1.8p3",
                                      "0x1,8p3",
                                      "0x1F",
                                      "inf",
                                      "INFINITY",
                                      "infin",
                                      "nan",
                                      "NaN",
                                      "nanx",
                                      "Infinity,",
                                      "  12",
                                      "\t\n 1.25",
                                      "\xA0"
                                      "12",
                                      "\xC2\xA0"
                                      "12",
                                      "1\xA0"
                                      "234",
                                      "1\xE2\x80\xAF"
                                      "234.5",
                                      "",
                                      "-",
                                      "+",
                                      ".",
                                      ",",
                                      "e5",
                                      "017",
                                      "1e400",
                                      "-1e400",
                                      "1e-400",
                                      "9999999999",
                                      "99999999999999999999",
                                      "-2147483649",
                                      "iNfInItY",
                                      "\xC4\xB1nf",
                                      "\xDB\xB1\xDB\xB2"};
    orvtest::NumberSource source(21);
    for (std::size_t i = orvtest::caseCount(3000); i > 0; --i) {
        std::string text;
        for (unsigned n = 1 + source.below(20); n > 0; --n) {
            text += "00112345678999..,,eE+- 'x"[source.below(25)];
        }
        texts.push_back(text);
    }
    return texts;
}

std::vector<orv::ustring> makeWideTexts(const std::vector<std::string>& narrow) {
    std::vector<orv::ustring> texts;
    for (const std::string& text : narrow) {
        texts.push_back(textIn<char16>(text));
    }
    for (const char16_t* text : {u"\u06F1\u06F2\u066B\u06F5", u"\u06F1.\u06F5", u"1\u202F234,5",
                                 u"1\u00A0234.5", u"\u0661\u0662", u"\u0131nf", u"\u0130NF",
                                 u"\uFF11\uFF0E\uFF15", u"\u30001.5", u"\u00A01.5"}) {
        orv::ustring units;
        for (; *text != 0; ++text) {
            units.push_back(*text);
        }
        texts.push_back(units);
    }
    return texts;
}

std::vector<double> makeValues() {
    std::vector<double> values = {0.0,
                                  -0.0,
                                  1.5,
                                  -1234.5,
                                  1234567.0,
                                  12345678.0,
                                  1e7,
                                  0.001,
                                  0.0001,
                                  1e23,
                                  5e-324,
                                  DBL_MAX,
                                  DBL_MIN,
                                  0.1,
                                  1.0 / 3.0,
                                  1e100,
                                  -1e-100,
                                  4294967296.0,
                                  std::numeric_limits<double>::infinity(),
                                  -std::numeric_limits<double>::infinity(),
                                  std::numeric_limits<double>::quiet_NaN()};
    orvtest::NumberSource source(22);
    for (std::size_t i = orvtest::caseCount(1500); i > 0; --i) {
        values.push_back(std::bit_cast<double>(source.bits()));
        values.push_back(static_cast<double>(static_cast<std::int64_t>(source.bits()) >> 20) /
                         1000);
    }
    return values;
}

// Everything that comes out, as one text that has nothing to do with any locale.
class Record {
public:
    void add(const std::string& text) { text_ += text + '\n'; }
    void add(const orv::ustring& text) {
        for (const char16 c : text) {
            text_ += Hex(static_cast<char16_t>(c)).text;
        }
        text_ += '\n';
    }
    void add(std::uint64_t bits) { text_ += Hex(bits).text; }
    void add(double value) { add(std::bit_cast<std::uint64_t>(value)); }
    void add(float value) { add(std::uint64_t{std::bit_cast<std::uint32_t>(value)}); }
    void add(long double value) { add(static_cast<double>(value)); }
    void add(std::int32_t value) { add(static_cast<std::uint64_t>(value)); }
    void add(std::int64_t value) { add(static_cast<std::uint64_t>(value)); }
    void add(std::uint32_t value) { add(std::uint64_t{value}); }
    void add(const orv::decimal::decimal32& value) { add(value.record().bits); }
    void add(const orv::decimal::decimal64& value) { add(value.record().bits); }
    void add(const orv::decimal::decimal128& value) {
        add(value.record().high);
        add(value.record().low);
    }

    template <class T>
    void add(const orv::from_chars_result<T>& read) {
        add(read.value);
        add(std::uint64_t{read.length});
        add(static_cast<std::uint64_t>(read.status));
    }

    // Of a call that may throw.
    template <class Call>
    void addCall(const Call& call) {
        try {
            add(call());
        } catch (const std::exception& e) {
            add(std::string(e.what()));
        }
    }

    const std::string& text() const { return text_; }

private:
    struct Hex {
        explicit Hex(std::uint64_t bits) {
            for (int i = 60; i >= 0; i -= 4) {
                text += "0123456789abcdef"[bits >> i & 0xFU];
            }
        }
        std::string text;
    };

    std::string text_;
};

template <class CharT>
void addWithStatus(Record& record, orv::basic_string_ref<CharT> view) {
    record.add(orv::from_chars_c<float>(view));
    record.add(orv::from_chars_c<double>(view));
    record.add(orv::from_chars_c<long double>(view));
    record.add(orv::from_chars_c<orv::decimal::decimal32>(view));
    record.add(orv::from_chars_c<orv::decimal::decimal64>(view));
    record.add(orv::from_chars_c<orv::decimal::decimal128>(view));
    record.add(orv::from_chars_c<int>(view));
    record.add(orv::from_chars_c<std::int64_t>(view, 0));
    record.add(orv::from_chars_c<unsigned>(view, 16));
    record.add(orv::from_chars_c<std::uint64_t>(view, 36));
}

template <class CharT>
void addThrowing(Record& record, orv::basic_string_ref<CharT> view) {
    record.addCall([=] { return orv::stof_c(view, nullptr); });
    record.addCall([=] { return orv::stod_c(view, nullptr); });
    record.addCall([=] { return orv::stold_c(view, nullptr); });
    record.addCall([=] { return orv::stod32_c(view); });
    record.addCall([=] { return orv::stod64_c(view); });
    record.addCall([=] { return orv::stod128_c(view); });
    record.addCall([=] { return orv::decimal::decimal64(view); });
    record.addCall([=] { return orv::stoi_c(view); });
    record.addCall([=] { return orv::stol_c(view); });
    record.addCall([=] { return orv::stoll_c(view); });
    record.addCall([=] { return orv::stoui_c(view); });
    record.addCall([=] { return orv::stoul_c(view); });
    record.addCall([=] { return orv::stoull_c(view); });
}

template <class CharT>
void addInC(Record& record, const CharT* text) {
    CharT* end = nullptr;
    const auto add = [&](auto value) {
        record.add(value);
        record.add(static_cast<std::uint64_t>(end - text));
    };
    add(orv::strtof_c(text, &end));
    add(orv::strtod_c(text, &end));
    add(orv::strtold_c(text, &end));
    add(orv::strtod32_c(text, &end));
    add(orv::strtod64_c(text, &end));
    add(orv::strtod128_c(text, &end));
    add(orv::strtoi_c(text, &end));
    add(orv::strtol_c(text, &end, 8));
    add(orv::strtoll_c(text, &end));
    add(orv::strtoui_c(text, &end));
    add(orv::strtoul_c(text, &end));
    add(orv::strtoull_c(text, &end));
}

template <class CharT>
std::string readAll(const std::vector<std::basic_string<CharT>>& texts) {
    Record record;
    for (const auto& text : texts) {
        addWithStatus(record, orv::basic_string_ref<CharT>(text));
        addThrowing(record, orv::basic_string_ref<CharT>(text));
        addInC(record, text.c_str());
        orv::BasicCharIterator<CharT> it{orv::basic_string_ref<CharT>(text)};
        record.addCall([&] { return orv::stod_c(it); });
        record.add(std::uint64_t{it.position()});
        record.addCall([&] { return orv::stoll_c(it); });
        record.add(std::uint64_t{it.position()});
    }
    return record.text();
}

template <class CharT, class T>
void addChars(Record& record, T value) {
    CharT text[70];
    const auto written = orv::to_chars_c(text, text + 70, value);
    record.add(std::basic_string<CharT>(text, written.end));
}

template <class T>
void addWritten(Record& record, T value) {
    record.add(orv::to_string_c(value));
    record.add(orv::to_ustring_c(value));
    addChars<char>(record, value);
    addChars<char16>(record, value);
}

std::string writeAll(const std::vector<double>& values) {
    Record record;
    for (const double value : values) {
        addWritten(record, value);
        addWritten(record, static_cast<long double>(value));
        addWritten(record, std::bit_cast<float>(
                               static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(value))));
        addWritten(record,
                   orv::binary16(static_cast<float>(std::bit_cast<std::uint64_t>(value) >> 48U)));
        const auto bits = std::bit_cast<std::int64_t>(value);
        const orv::decimal::decimal64 decimal = ODecimal64{static_cast<std::uint64_t>(bits)};
        addWritten(record, decimal);
        addWritten(record, static_cast<orv::decimal::decimal32>(decimal));
        addWritten(record, orv::decimal::decimal128(decimal));
        addWritten(record, bits);
        addWritten(record, static_cast<std::uint64_t>(bits));
        addWritten(record, static_cast<std::int32_t>(bits));
        addWritten(record, static_cast<std::uint32_t>(bits));
    }
    return record.text();
}

class NumberTextLocales : public testing::TestWithParam<const char*> {};

TEST_P(NumberTextLocales, AreOthersThanTheClassicOne) {
    const ScopedLocale locale(GetParam());
    ASSERT_TRUE(locale.isSet()) << GetParam();
    EXPECT_STRNE(std::localeconv()->thousands_sep, "") << "the C locale has none";
    EXPECT_NE(std::use_facet<std::numpunct<char>>(std::locale()).grouping(), "");
}

TEST_P(NumberTextLocales, ReadTheSame) {
    static const std::vector<std::string> texts = makeTexts();
    static const std::vector<orv::ustring> wide = makeWideTexts(texts);
    static const std::string expected = readAll(texts);
    static const std::string expectedWide = readAll(wide);
    const ScopedLocale locale(GetParam());
    ASSERT_TRUE(locale.isSet()) << GetParam();
    EXPECT_TRUE(readAll(texts) == expected);
    EXPECT_TRUE(readAll(wide) == expectedWide);
}

TEST_P(NumberTextLocales, WriteTheSame) {
    static const std::vector<double> values = makeValues();
    static const std::string expected = writeAll(values);
    const ScopedLocale locale(GetParam());
    ASSERT_TRUE(locale.isSet()) << GetParam();
    EXPECT_TRUE(writeAll(values) == expected);
}

TEST_P(NumberTextLocales, KeepThePointAndNoGroups) {
    const ScopedLocale locale(GetParam());
    ASSERT_TRUE(locale.isSet()) << GetParam();
    EXPECT_EQ(orv::stod_c("1,5", nullptr), 1.0);
    EXPECT_EQ(orv::stod_c("1.5", nullptr), 1.5);
    EXPECT_EQ(orv::stod_c("1.234,5", nullptr), 1.234);
    EXPECT_EQ(orv::stod_c("1,234.5", nullptr), 1.0);
    EXPECT_EQ(orv::stod_c("INFINITY", nullptr), std::numeric_limits<double>::infinity());
    EXPECT_EQ(orv::stoi_c("1.234"), 1);
    EXPECT_EQ(orv::stoi_c("1,234"), 1);
    EXPECT_EQ(orv::to_string_c(1234567.5), "1234567.5");
    EXPECT_EQ(orv::to_string_c(1234567), "1234567");
    EXPECT_EQ(orv::to_ustring_c(-1234567), textIn<char16>("-1234567"));
}

INSTANTIATE_TEST_SUITE_P(Locales, NumberTextLocales,
                         testing::Values("de_DE.UTF-8", "en_US.UTF-8", "fa_IR.UTF-8", "fr_FR.UTF-8",
                                         "tr_TR.UTF-8"));

} // namespace

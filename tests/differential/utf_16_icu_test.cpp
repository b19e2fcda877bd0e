// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-16BE and UTF-16LE beside ICU: the same text for good input, and the same opinion on
/// what is good.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/utf16_interop.h"
#include "tests/support/hex_text.h"
#include "tests/support/sample_texts.h"

#include <gtest/gtest.h>
#include <unicode/ucnv.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace {

using orv::char16;
using Units = std::vector<char16>;

// The names of our set and of ICU's.
struct Names {
    const char* icu;
    orv::Charset* const* set;
};

class Utf16BesideIcu : public testing::TestWithParam<Names> {
protected:
    Utf16BesideIcu() : icu_(ucnv_open(GetParam().icu, &error_)) {
        // Faults end the conversion; by default they would be replaced.
        ucnv_setToUCallBack(icu_.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                            &error_);
        ucnv_setFromUCallBack(icu_.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                              &error_);
    }

    void SetUp() override { ASSERT_TRUE(U_SUCCESS(error_)) << u_errorName(error_); }

    // The text, or nothing if there is a fault.
    std::optional<std::u16string> icuDecode(const std::string& bytes) {
        std::u16string text(bytes.size() + 1, u'\0');
        UErrorCode error = U_ZERO_ERROR;
        const std::int32_t length =
            ucnv_toUChars(icu_.get(), text.data(), static_cast<std::int32_t>(text.size()),
                          bytes.data(), static_cast<std::int32_t>(bytes.size()), &error);
        if (U_FAILURE(error)) {
            return std::nullopt;
        }
        text.resize(static_cast<std::size_t>(length));
        return text;
    }
    std::optional<std::string> icuEncode(const std::u16string& text) {
        std::string bytes(2 * text.size() + 2, '\0');
        UErrorCode error = U_ZERO_ERROR;
        const std::int32_t length =
            ucnv_fromUChars(icu_.get(), bytes.data(), static_cast<std::int32_t>(bytes.size()),
                            text.data(), static_cast<std::int32_t>(text.size()), &error);
        if (U_FAILURE(error)) {
            return std::nullopt;
        }
        bytes.resize(static_cast<std::size_t>(length));
        return bytes;
    }

    static orv::Charset& set() { return **GetParam().set; }

    static std::optional<std::u16string> ownDecode(const std::string& bytes) {
        try {
            return orv::to_u16string(set().newDecoder()->decode(bytes));
        } catch (const orv::MalformedInputError&) {
            return std::nullopt;
        }
    }
    static std::optional<std::string> ownEncode(const std::u16string& text) {
        try {
            return set().newEncoder()->encode(orv::as_ustring_ref(text));
        } catch (const orv::MalformedInputError&) {
            return std::nullopt;
        }
    }

    static std::u16string textOf(const Units& units) {
        return {orv::as_char16_t(units.data()), units.size()};
    }

private:
    struct Close {
        void operator()(UConverter* converter) const { ucnv_close(converter); }
    };
    UErrorCode error_ = U_ZERO_ERROR;
    std::unique_ptr<UConverter, Close> icu_;
};

INSTANTIATE_TEST_SUITE_P(Orders, Utf16BesideIcu,
                         testing::Values(Names{"UTF-16BE", &orv::Charset::UTF_16BE},
                                         Names{"UTF-16LE", &orv::Charset::UTF_16LE}),
                         [](const testing::TestParamInfo<Names>& names) {
                             return names.index == 0 ? "BigEndian" : "LittleEndian";
                         });

TEST_P(Utf16BesideIcu, GoodTextOfAllKinds) {
    std::mt19937 random(21);
    std::vector<Units> texts = orvtest::sampleTexts();
    for (int i = 0; i < 300; ++i) {
        texts.push_back(orvtest::mixedText(1 + random() % 700, 1 + random() % 50, random));
    }
    for (const Units& units : texts) {
        const std::u16string text = textOf(units);
        const auto bytes = ownEncode(text);
        ASSERT_TRUE(bytes.has_value());
        ASSERT_EQ(bytes, icuEncode(text));
        ASSERT_EQ(icuDecode(*bytes), text);
        // The one character that ICU passes and the decoder does not.
        if (text.find(u'\uFFFE') == text.npos) {
            ASSERT_EQ(ownDecode(*bytes), text);
        }
    }
}

TEST_P(Utf16BesideIcu, TheSameBytesAreGood) {
    std::mt19937 random(22);
    int bad = 0;
    for (int i = 0; i < 20'000; ++i) {
        const auto& texts = orvtest::sampleTexts();
        // Units rather than bytes, for a byte too few makes everything else another text.
        const Units units = orvtest::mutated(texts[random() % texts.size()], random);
        std::string bytes;
        for (const char16 unit : units) {
            const auto value = static_cast<unsigned int>(unit);
            const char more = static_cast<char>(value >> 8);
            const char less = static_cast<char>(value & 0xFF);
            bytes += GetParam().icu[6] == 'B' ? more : less;
            bytes += GetParam().icu[6] == 'B' ? less : more;
        }
        const auto icu = icuDecode(bytes);
        bad += icu.has_value() ? 0 : 1;
        if (!icu || icu->find(u'\uFFFE') == icu->npos) {
            ASSERT_EQ(ownDecode(bytes), icu) << orvtest::hexText(bytes);
        }
    }
    EXPECT_GT(bad, 1000) << "the mutations are no test if they break nothing";
    EXPECT_LT(bad, 19'900);
}

TEST_P(Utf16BesideIcu, TheSameUnitsAreGood) {
    std::mt19937 random(23);
    int bad = 0;
    for (int i = 0; i < 20'000; ++i) {
        const auto& texts = orvtest::sampleTexts();
        const Units units = orvtest::mutated(texts[random() % texts.size()], random);
        const auto icu = icuEncode(textOf(units));
        bad += icu.has_value() ? 0 : 1;
        ASSERT_EQ(ownEncode(textOf(units)), icu) << orvtest::hexText(units);
    }
    EXPECT_GT(bad, 1000);
    EXPECT_LT(bad, 19'900);
}

} // namespace

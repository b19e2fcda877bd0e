// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UTF-8 and CESU-8 beside ICU: the same text for good input, and the same opinion on what
/// is good.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/utf16_interop.h"
#include "tests/support/hex_text.h"
#include "tests/support/sample_texts.h"

#include <gtest/gtest.h>
#include <unicode/ucnv.h>
#include <unicode/ustring.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace {

using orv::char16;
using Bytes = std::vector<unsigned char>;
using Units = std::vector<char16>;

// The text, or nothing if ICU or the library finds a fault.
std::optional<std::u16string> icuDecode(const std::string& bytes) {
    std::u16string text(bytes.size() + 1, u'\0');
    std::int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strFromUTF8(text.data(), static_cast<std::int32_t>(text.size()), &length, bytes.data(),
                  static_cast<std::int32_t>(bytes.size()), &error);
    if (U_FAILURE(error)) {
        return std::nullopt;
    }
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::optional<std::string> icuEncode(const std::u16string& text) {
    std::string bytes(3 * text.size() + 1, '\0');
    std::int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strToUTF8(bytes.data(), static_cast<std::int32_t>(bytes.size()), &length, text.data(),
                static_cast<std::int32_t>(text.size()), &error);
    if (U_FAILURE(error)) {
        return std::nullopt;
    }
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

std::optional<std::u16string> ownDecode(const std::string& bytes) {
    try {
        return orv::to_u16string(orv::Charset::UTF_8->newDecoder()->decode(bytes));
    } catch (const orv::MalformedInputError&) {
        return std::nullopt;
    }
}

std::optional<std::string> ownEncode(const std::u16string& text) {
    try {
        return orv::Charset::UTF_8->newEncoder()->encode(orv::as_ustring_ref(text));
    } catch (const orv::MalformedInputError&) {
        return std::nullopt;
    }
}

std::u16string textOf(const Units& units) {
    return {orv::as_char16_t(units.data()), units.size()};
}

TEST(Utf8BesideIcu, GoodTextOfAllKinds) {
    std::mt19937 random(11);
    std::vector<Units> texts = orvtest::sampleTexts();
    for (int i = 0; i < 300; ++i) {
        texts.push_back(orvtest::mixedText(1 + random() % 700, 1 + random() % 50, random));
    }
    for (const Units& units : texts) {
        const std::u16string text = textOf(units);
        const auto bytes = ownEncode(text);
        ASSERT_TRUE(bytes.has_value());
        ASSERT_EQ(bytes, icuEncode(text));
        ASSERT_EQ(ownDecode(*bytes), text);
        ASSERT_EQ(icuDecode(*bytes), text);
    }
}

TEST(Utf8BesideIcu, TheSameBytesAreGood) {
    std::mt19937 random(12);
    int bad = 0;
    for (int i = 0; i < 20000; ++i) {
        const auto& texts = orvtest::sampleTexts();
        const std::string good = *icuEncode(textOf(texts[random() % texts.size()]));
        const Bytes bytes = orvtest::mutated(Bytes(good.begin(), good.end()), random);
        const std::string text(bytes.begin(), bytes.end());
        const auto icu = icuDecode(text);
        bad += icu.has_value() ? 0 : 1;
        ASSERT_EQ(ownDecode(text), icu) << orvtest::hexText(bytes);
    }
    EXPECT_GT(bad, 1000) << "the mutations are no test if they break nothing";
    EXPECT_LT(bad, 19900);
}

TEST(Utf8BesideIcu, TheSameUnitsAreGood) {
    std::mt19937 random(13);
    int bad = 0;
    for (int i = 0; i < 20000; ++i) {
        const auto& texts = orvtest::sampleTexts();
        const Units units = orvtest::mutated(texts[random() % texts.size()], random);
        const auto icu = icuEncode(textOf(units));
        bad += icu.has_value() ? 0 : 1;
        ASSERT_EQ(ownEncode(textOf(units)), icu) << orvtest::hexText(units);
    }
    EXPECT_GT(bad, 1000);
    EXPECT_LT(bad, 19900);
}

TEST(Cesu8BesideIcu, GoodTextOfAllKinds) {
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, decltype(&ucnv_close)> cesu8(ucnv_open("CESU-8", &error),
                                                                   ucnv_close);
    ASSERT_TRUE(U_SUCCESS(error));
    std::mt19937 random(14);
    std::vector<Units> texts = orvtest::sampleTexts();
    for (int i = 0; i < 200; ++i) {
        texts.push_back(orvtest::mixedText(1 + random() % 300, 1 + random() % 30, random));
    }
    for (const Units& units : texts) {
        const std::u16string text = textOf(units);
        std::string expected(3 * text.size() + 1, '\0');
        const std::int32_t length = ucnv_fromUChars(
            cesu8.get(), expected.data(), static_cast<std::int32_t>(expected.size()), text.data(),
            static_cast<std::int32_t>(text.size()), &error);
        ASSERT_TRUE(U_SUCCESS(error));
        expected.resize(static_cast<std::size_t>(length));
        const orv::ustring_ref view = orv::as_ustring_ref(text);
        ASSERT_EQ(orv::Charset::CESU_8->newEncoder()->encode(view), expected);
        ASSERT_TRUE(orv::Charset::CESU_8->newDecoder()->decode(expected) == view);
    }
}

} // namespace

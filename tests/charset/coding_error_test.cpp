// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The exceptions of coders: bases, messages, error code, length.
#include "orv/liborvxx/charset/coding_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ios>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace {

using orv::CharacterCodingError;
using orv::CoderMalfunctionError;
using orv::MalformedInputError;
using orv::UnmappableCharacterError;
using testing::StartsWith;

static_assert(std::is_base_of_v<std::ios_base::failure, CharacterCodingError>);
static_assert(std::is_base_of_v<CharacterCodingError, MalformedInputError>);
static_assert(std::is_base_of_v<CharacterCodingError, UnmappableCharacterError>);
static_assert(std::is_base_of_v<std::logic_error, CoderMalfunctionError>);
static_assert(!std::is_base_of_v<CharacterCodingError, CoderMalfunctionError>);

TEST(CodingErrors, CharacterCodingErrorCarriesTheTextAndTheStreamCode) {
    const std::string text = "some text, cut here";
    const CharacterCodingError error(orv::string_ref(text.data(), 9));
    // The standard library appends its words on the error code.
    EXPECT_THAT(error.what(), StartsWith("some text"));
    EXPECT_THAT(error.what(), testing::Not(testing::HasSubstr("cut here")));
    EXPECT_EQ(error.code(), std::io_errc::stream);
}

TEST(CodingErrors, MalformedInputHasALength) {
    const MalformedInputError error(3);
    EXPECT_THAT(error.what(), StartsWith("malformed input"));
    EXPECT_EQ(error.getInputLength(), 3U);
    EXPECT_EQ(error.code(), std::io_errc::stream);
    const MalformedInputError copy(error);
    EXPECT_EQ(copy.getInputLength(), 3U);
}

TEST(CodingErrors, UnmappableCharacterHasALength) {
    const UnmappableCharacterError error(2);
    EXPECT_THAT(error.what(), StartsWith("unmappable character"));
    EXPECT_EQ(error.getInputLength(), 2U);
    EXPECT_EQ(error.code(), std::io_errc::stream);
    const UnmappableCharacterError copy(error);
    EXPECT_EQ(copy.getInputLength(), 2U);
}

TEST(CodingErrors, AMalfunctionCarriesTheText) {
    EXPECT_STREQ(CoderMalfunctionError("loop").what(), "loop");
}

TEST(CodingErrors, AreCaughtByTheirBases) {
    EXPECT_THROW(throw MalformedInputError(1), CharacterCodingError);
    EXPECT_THROW(throw UnmappableCharacterError(1), CharacterCodingError);
    EXPECT_THROW(throw MalformedInputError(1), std::ios_base::failure);
    EXPECT_THROW(throw CoderMalfunctionError("x"), std::logic_error);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Failure codes and their texts.

#include "orv/liborv/system/error.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

TEST(StrError, EveryCodeHasItsText) {
    EXPECT_STREQ(orvStrError(ORV_ERROR_NOT_PERMITTED), "operation not permitted");
    EXPECT_STREQ(orvStrError(ORV_ERROR_NOT_FOUND), "not found");
    EXPECT_STREQ(orvStrError(ORV_ERROR_IO), "input/output error");
    EXPECT_STREQ(orvStrError(ORV_ERROR_INVALID_ARGUMENT), "invalid argument");
    EXPECT_STREQ(orvStrError(ORV_ERROR_RANGE), "result too large for the buffer");
    EXPECT_STREQ(orvStrError(ORV_ERROR_NOT_SUPPORTED), "not supported by the system");
}

TEST(StrError, CodesKeepTheirNumbers) {
    EXPECT_EQ(ORV_OK, 0);
    EXPECT_EQ(ORV_ERROR_NOT_PERMITTED, -1);
    EXPECT_EQ(ORV_ERROR_NOT_FOUND, -2);
    EXPECT_EQ(ORV_ERROR_IO, -5);
    EXPECT_EQ(ORV_ERROR_INVALID_ARGUMENT, -22);
    EXPECT_EQ(ORV_ERROR_RANGE, -34);
    EXPECT_EQ(ORV_ERROR_NOT_SUPPORTED, -38);
}

TEST(StrError, ZeroAndPositiveNumbersAreNoError) {
    for (int code : {0, 1, 22, INT_MAX})
        EXPECT_STREQ(orvStrError(code), "no error") << code;
}

TEST(StrError, OtherNegativeNumbersAreUnknown) {
    for (int code : {-3, -21, -39, -1000, INT_MIN})
        EXPECT_STREQ(orvStrError(code), "unknown error") << code;
}

} // namespace

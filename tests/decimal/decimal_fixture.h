// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What tests of mathematical functions of the three decimal classes share.
#ifndef ORV_TESTS_DECIMAL_DECIMAL_FIXTURE_H
#define ORV_TESTS_DECIMAL_DECIMAL_FIXTURE_H

#include "orv/liborvxx/decimal/decimal_limits.h"
#include "orv/liborvxx/decimal/make_decimal.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <limits>

namespace orvtest {

inline orv::decimal::decimal32 madeOf(int coefficient, int exponent) {
    return orv::decimal::_make_decimal32(coefficient, exponent);
}

/// Checks that none of the functions tested touches `errno`.
template <class T>
class WithoutErrno : public testing::Test {
protected:
    static constexpr T INF = std::numeric_limits<T>::infinity();
    static constexpr T NOT_A_NUMBER = std::numeric_limits<T>::quiet_NaN();
    static constexpr T MAX = std::numeric_limits<T>::max();
    static constexpr T TINY = std::numeric_limits<T>::denorm_min();

    void SetUp() override { errno = EILSEQ; }
    void TearDown() override {
        EXPECT_EQ(errno, EILSEQ);
        errno = 0;
    }
};

using DecimalClasses =
    testing::Types<orv::decimal::decimal32, orv::decimal::decimal64, orv::decimal::decimal128>;

} // namespace orvtest

#endif

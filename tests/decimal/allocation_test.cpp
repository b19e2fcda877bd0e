// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimals allocate nothing.
#include "orv/liborvxx/decimal/decimal.h"

#include "tests/support/counting_allocator.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>

namespace {

using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;
using namespace orv::literals;

// Calls everything that takes one number, and tells how often it allocated.
template <class T>
std::size_t allocationsWith(const T& x, const T& y) {
    const std::size_t before = orvtest::allocations();
    int n = 0;
    T z = fma(x, y, x / y) + sqrt(x) - fmod(x, y) * remainder(x, y);
    z += round(x, 2) + quantize(x, y) + reduce(x) + frexp(x, &n) + scalbn(x, 3) + logb(x);
    z -= floor(x) + ceil(x) + trunc(x) + rint(x) + next_up(x) + nextafter(x, y);
    z *= abs(x) + copysign(x, y) + fmin(x, y) + fmax(x, y);
    const bool less = x < y || x == z || (x <=> z) < 0 || same_quantum(x, y) || total_order(x, y);
    std::size_t sum = hash_value(x);
    for (const std::int64_t part :
         {std::int64_t{lrint(x)}, std::int64_t{lround(x)}, std::int64_t{ltrunc(x)}, llrint(x),
          llround(x), lltrunc(x), std::int64_t{fp_classify(x)}, std::int64_t{quantexp(x)},
          std::int64_t{ilogb(x)}}) {
        sum += static_cast<std::size_t>(part);
    }
    static_cast<void>(coefficient(x));
    const std::size_t count = orvtest::allocations() - before;
    EXPECT_TRUE(less || sum != 0);
    return count;
}

TEST(DecimalAllocation, NeverHappens) {
    EXPECT_EQ(allocationsWith(12345.67_d32, -0.3_d32), 0U);
    EXPECT_EQ(allocationsWith(-1234567890123.456_d64, 9e9_d64), 0U);
    EXPECT_EQ(allocationsWith(9999999999999999999999999999999.999_d128, 1e30_d128), 0U);
    EXPECT_EQ(allocationsWith(decimal128(ODecimal128{~0ULL, 0x3041FFFFFFFFFFFF}), -1_d128), 0U);
    errno = 0;
}

} // namespace

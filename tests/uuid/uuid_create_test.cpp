// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief New UUIDs from the C library: random ones and named ones.
#include "orv/liborvxx/uuid/uuid.h"

#include "orv/liborv/system/error.h"
#include "orv/liborvxx/base/error.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <thread>
#include <vector>

namespace {

using orv::UUID;
using orvtest::thrownMessage;

TEST(UUIDRandom, AMillionValuesAreAllDifferentAndOfVersionFour) {
    std::vector<UUID> ids(1'000'000);
    std::size_t ones = 0;
    std::size_t zeros = ~std::size_t{0};
    std::size_t lowOnes = 0;
    std::size_t lowZeros = ~std::size_t{0};
    for (UUID& id : ids) {
        id = UUID::randomUUID();
        ASSERT_EQ(id.version(), 4);
        ASSERT_EQ(id.variant(), 2);
        ones |= id.getMostSignificantBits();
        zeros &= id.getMostSignificantBits();
        lowOnes |= id.getLeastSignificantBits();
        lowZeros &= id.getLeastSignificantBits();
    }
    std::sort(ids.begin(), ids.end());
    EXPECT_EQ(std::adjacent_find(ids.begin(), ids.end()), ids.end());
    // Every bit but those of version and variant takes both values.
    EXPECT_EQ(ones, 0xFFFFFFFFFFFF4FFFU);
    EXPECT_EQ(zeros, 0x4000U);
    EXPECT_EQ(lowOnes, 0xBFFFFFFFFFFFFFFFU);
    EXPECT_EQ(lowZeros, 0x8000000000000000U);
}

TEST(UUIDRandom, ThreadsDoNotMakeTheSameValues) {
    std::array<std::vector<UUID>, 4> made;
    std::vector<std::thread> threads;
    for (auto& ids : made) {
        threads.emplace_back([&ids] {
            for (int i = 0; i < 10'000; ++i) {
                ids.push_back(UUID::randomUUID());
            }
        });
    }
    std::vector<UUID> all;
    for (std::size_t i = 0; i < threads.size(); ++i) {
        threads[i].join();
        all.insert(all.end(), made[i].begin(), made[i].end());
    }
    std::sort(all.begin(), all.end());
    EXPECT_EQ(std::adjacent_find(all.begin(), all.end()), all.end());
}

TEST(UUIDNamed, IsTheMd5OfTheBytesWithVersionThree) {
    const auto named = [](const std::string& name) {
        return UUID::nameUUIDFromBytes(name.data(), name.size()).toString();
    };
    // MD5 of "" and "a" are in RFC 1321, appendix A.5; the others are computed with Python's
    // hashlib. The bits of version and variant stand over those of the digest.
    EXPECT_EQ(named(""), "d41d8cd9-8f00-3204-a980-0998ecf8427e");
    EXPECT_EQ(named("a"), "0cc175b9-c0f1-36a8-b1c3-99e269772661");
    EXPECT_EQ(named("hello"), "5d41402a-bc4b-3a76-b971-9d911017c592");
    EXPECT_EQ(named(std::string(1, '\0')), "93b885ad-fe0d-3089-8df6-34904fd59f71");
    EXPECT_EQ(named("http://www.example.com/"), "f1777111-f5d0-31c8-9ffa-04de751128fa");
    std::string all;
    for (int byte = 0; byte <= 0xFF; ++byte) {
        all.push_back(static_cast<char>(byte));
    }
    EXPECT_EQ(named(all), "e2c865db-4162-3ed9-a3bf-aa9ef6ac18f0");
}

TEST(UUIDNamed, HasVersionThreeAndTheVariantOfTheStandard) {
    for (int i = 0; i < 1000; ++i) {
        const UUID id = UUID::nameUUIDFromBytes(&i, sizeof i);
        ASSERT_EQ(id.version(), 3);
        ASSERT_EQ(id.variant(), 2);
        ASSERT_EQ(id, UUID::nameUUIDFromBytes(&i, sizeof i)) << "the same bytes, the same value";
    }
}

TEST(UUIDNamed, ANullPointerNamesNothingOrFails) {
    EXPECT_EQ(UUID::nameUUIDFromBytes(nullptr, 0), UUID::nameUUIDFromBytes("", 0));
    EXPECT_EQ(thrownMessage<orv::RuntimeError>([] { (void)UUID::nameUUIDFromBytes(nullptr, 1); }),
              std::string("orvUUIDCreateForName() failed: ") +
                  orvStrError(ORV_ERROR_INVALID_ARGUMENT));
}

} // namespace

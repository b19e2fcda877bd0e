// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UUIDs as values: fields, order, hash.
#include "orv/liborvxx/uuid/uuid.h"

#include "orv/liborvxx/base/error.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <compare>
#include <cstdint>
#include <cstring>
#include <map>
#include <random>
#include <set>
#include <string>
#include <tuple>
#include <type_traits>
#include <unordered_set>
#include <vector>

namespace {

using orv::UUID;
using orvtest::thrownMessage;

static_assert(sizeof(UUID) == 16 && sizeof(OrvUUID) == 16);
static_assert(!std::is_polymorphic_v<UUID> && std::is_trivially_copyable_v<UUID> &&
              std::is_standard_layout_v<UUID>);
static_assert(std::totally_ordered<UUID> && std::three_way_comparable<UUID, std::strong_ordering>);
static_assert(std::is_convertible_v<OrvUUID, UUID> && std::is_assignable_v<UUID&, OrvUUID>);
static_assert(std::is_same_v<decltype(UUID().getMostSignificantBits()), std::size_t> &&
              std::is_same_v<decltype(UUID().version()), int> &&
              std::is_same_v<decltype(UUID().variant()), int> &&
              std::is_same_v<decltype(UUID().timestamp()), std::size_t> &&
              std::is_same_v<decltype(UUID().clockSequence()), unsigned short> &&
              std::is_same_v<decltype(UUID().node()), std::size_t> &&
              std::is_same_v<decltype(UUID().hashCode()), std::size_t>);

constexpr std::size_t MSB = 0x0123456789ABCDEF;
constexpr std::size_t LSB = 0xFEDCBA9876543210;
// A time-based value: version 1, variant 2.
constexpr std::size_t TIME_MSB = 0x12345678ABCD1FED;
constexpr std::size_t TIME_LSB = 0xBFEE010203040506;

// 64 random bits, with runs of equal bits so that halves often agree.
std::size_t randomBits(std::mt19937_64& random) {
    switch (random() % 4) {
    case 0:
        return random();
    case 1:
        return random() % 3;
    case 2:
        return ~(random() % 3);
    default:
        return std::size_t{1} << (random() % 64);
    }
}

TEST(UUIDValue, ADefaultValueIsNil) {
    const UUID id;
    EXPECT_TRUE(id.isNil());
    EXPECT_EQ(id.getMostSignificantBits(), 0U);
    EXPECT_EQ(id.getLeastSignificantBits(), 0U);
    EXPECT_EQ(id.version(), 0);
    EXPECT_EQ(id.variant(), 0);
    EXPECT_EQ(id.hashCode(), 0U);
    const unsigned char zeros[16] = {};
    EXPECT_EQ(std::memcmp(&id, zeros, 16), 0);
}

TEST(UUIDValue, AnyBitMakesItMoreThanNil) {
    for (int bit = 0; bit < 64; ++bit) {
        EXPECT_FALSE(UUID(std::size_t{1} << bit, 0).isNil()) << bit;
        EXPECT_FALSE(UUID(0, std::size_t{1} << bit).isNil()) << bit;
    }
}

TEST(UUIDValue, TheHalvesGoInAndComeOut) {
    const UUID id(MSB, LSB);
    EXPECT_EQ(id.getMostSignificantBits(), MSB);
    EXPECT_EQ(id.getLeastSignificantBits(), LSB);
    std::mt19937_64 random(1601);
    for (int i = 0; i < 10'000; ++i) {
        const std::size_t msb = random();
        const std::size_t lsb = random();
        ASSERT_EQ(UUID(msb, lsb).getMostSignificantBits(), msb);
        ASSERT_EQ(UUID(msb, lsb).getLeastSignificantBits(), lsb);
    }
}

TEST(UUIDValue, TheFieldsLieWhereTheRecordHasThem) {
    const OrvUUID record = UUID(MSB, LSB).record();
    EXPECT_EQ(record.timeLow, 0x01234567U);
    EXPECT_EQ(record.timeMid, 0x89AB);
    EXPECT_EQ(record.timeHiAndVersion, 0xCDEF);
    EXPECT_EQ(record.clockSeqHiAndVariant, 0xFE);
    EXPECT_EQ(record.clockSeqLow, 0xDC);
    const std::vector<int> node(std::begin(record.nodeBytes), std::end(record.nodeBytes));
    EXPECT_EQ(node, (std::vector<int>{0xBA, 0x98, 0x76, 0x54, 0x32, 0x10}));
    const UUID id(MSB, LSB);
    EXPECT_EQ(std::memcmp(&id, &record, 16), 0) << "the class has the bytes of the record";
}

TEST(UUIDValue, TheLastEightBytesAreBigEndian) {
    const UUID id(0, 0x0102030405060708);
    unsigned char bytes[16];
    std::memcpy(bytes, &id, 16);
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(bytes[8 + i], i + 1);
    }
}

TEST(UUIDValue, ComesFromARecordByConstructionAndAssignment) {
    const OrvUUID record = {0x01234567, 0x89AB, 0xCDEF,
                            0xFE,       0xDC,   {0xBA, 0x98, 0x76, 0x54, 0x32, 0x10}};
    EXPECT_EQ(UUID(record), UUID(MSB, LSB));
    UUID id;
    id = record;
    EXPECT_EQ(id, UUID(MSB, LSB));
    UUID other;
    other = id;
    EXPECT_EQ(other, id);
    const UUID copy = id;
    EXPECT_EQ(copy, id);
}

TEST(UUIDValue, TheVersionIsTheTopFourBitsOfItsField) {
    for (int version = 0; version <= 15; ++version) {
        const auto nibble = static_cast<std::size_t>(version) << 12;
        EXPECT_EQ(UUID(nibble, 0).version(), version);
        EXPECT_EQ(UUID(0xFFFFFFFFFFFF0FFF | nibble, ~std::size_t{0}).version(), version);
    }
}

TEST(UUIDValue, TheVariantIsReadFromTheTopThreeBitsOfItsByte) {
    static constexpr int BY_TOP_BITS[] = {0, 0, 0, 0, 2, 2, 6, 7};
    for (std::size_t byte = 0; byte <= 0xFF; ++byte) {
        EXPECT_EQ(UUID(0, byte << 56).variant(), BY_TOP_BITS[byte / 32]) << byte;
        EXPECT_EQ(UUID(~std::size_t{0}, byte << 56 | 0xFFFFFFFFFFFFFF).variant(),
                  BY_TOP_BITS[byte / 32]);
    }
    EXPECT_EQ(UUID(0, 0xE0ULL << 56).variant(), 7);
    EXPECT_EQ(UUID(0, 0x80ULL << 56).variant(), 2);
}

TEST(UUIDValue, TheFieldsOfATimeBasedValue) {
    const UUID id(TIME_MSB, TIME_LSB);
    ASSERT_EQ(id.version(), 1);
    EXPECT_EQ(id.timestamp(), 0xFEDABCD12345678U);
    EXPECT_EQ(id.clockSequence(), 0x3FEE);
    EXPECT_EQ(id.node(), 0x010203040506U);
    const UUID ones(0xFFFFFFFFFFFF1FFF, ~std::size_t{0});
    EXPECT_EQ(ones.timestamp(), 0xFFFFFFFFFFFFFFFU) << "60 bits";
    EXPECT_EQ(ones.clockSequence(), 0x3FFF) << "14 bits";
    EXPECT_EQ(ones.node(), 0xFFFFFFFFFFFFU) << "48 bits";
    const UUID zeros(0x1000, 0);
    EXPECT_EQ(zeros.timestamp(), 0U);
    EXPECT_EQ(zeros.clockSequence(), 0);
    EXPECT_EQ(zeros.node(), 0U);
}

TEST(UUIDValue, TheFieldsOfATimeBasedValueOfTheStandard) {
    // The name-space identifier for DNS, RFC 4122, appendix C; a value of version 1.
    const UUID id(0x6BA7B8109DAD11D1, 0x80B400C04FD430C8);
    EXPECT_EQ(id.version(), 1);
    EXPECT_EQ(id.variant(), 2);
    EXPECT_EQ(id.timestamp(), 0x1D19DAD6BA7B810U);
    EXPECT_EQ(id.clockSequence(), 0x00B4);
    EXPECT_EQ(id.node(), 0x00C04FD430C8U);
}

TEST(UUIDValue, OtherVersionsHaveNoTimeFields) {
    for (std::size_t version = 0; version <= 15; ++version) {
        if (version == 1) {
            continue;
        }
        const UUID id((TIME_MSB & ~std::size_t{0xF000}) | version << 12, TIME_LSB);
        const auto message = [](auto call) {
            return thrownMessage<orv::UnsupportedOperationError>(call);
        };
        EXPECT_EQ(message([&] { (void)id.timestamp(); }), "not a time-based UUID") << version;
        EXPECT_EQ(message([&] { (void)id.clockSequence(); }), "not a time-based UUID") << version;
        EXPECT_EQ(message([&] { (void)id.node(); }), "not a time-based UUID") << version;
    }
}

TEST(UUIDValue, TheHashIsTheXorOfTheHalves) {
    std::mt19937_64 random(1602);
    for (int i = 0; i < 1000; ++i) {
        const std::size_t msb = random();
        const std::size_t lsb = random();
        ASSERT_EQ(UUID(msb, lsb).hashCode(), msb ^ lsb);
        ASSERT_EQ(std::hash<UUID>()(UUID(msb, lsb)), msb ^ lsb);
    }
    EXPECT_EQ(UUID(MSB, LSB).hashCode(), ~std::size_t{0});
}

TEST(UUIDOrder, IsThatOfTheNumberAndOfTheText) {
    std::mt19937_64 random(1603);
    for (int i = 0; i < 20'000; ++i) {
        const std::size_t msbA = randomBits(random);
        const std::size_t lsbA = randomBits(random);
        const std::size_t msbB = i % 2 == 0 ? msbA : randomBits(random);
        const std::size_t lsbB = i % 5 == 0 ? lsbA : randomBits(random);
        const UUID a(msbA, lsbA);
        const UUID b(msbB, lsbB);
        // A pair of unsigned halves orders as the 128-bit number does.
        const std::strong_ordering order = std::tie(msbA, lsbA) <=> std::tie(msbB, lsbB);
        ASSERT_EQ(a.compareTo(b), order < 0 ? -1 : order > 0 ? 1 : 0);
        ASSERT_EQ(a <=> b, order);
        ASSERT_EQ(a == b, order == 0);
        ASSERT_EQ(a != b, order != 0);
        ASSERT_EQ(a.equals(b), order == 0);
        ASSERT_EQ(a < b, order < 0);
        ASSERT_EQ(a <= b, order <= 0);
        ASSERT_EQ(a > b, order > 0);
        ASSERT_EQ(a >= b, order >= 0);
        ASSERT_EQ(a.toString().compare(b.toString()) <=> 0, order);
        ASSERT_EQ(a.toUString().compare(b.toUString()) <=> 0, order);
    }
}

TEST(UUIDOrder, EveryBitCountsMoreThanAllBelowIt) {
    for (int bit = 0; bit < 64; ++bit) {
        const std::size_t one = std::size_t{1} << bit;
        EXPECT_EQ(UUID(one, 0).compareTo(UUID(one - 1, ~std::size_t{0})), 1) << bit;
        EXPECT_EQ(UUID(0, one - 1).compareTo(UUID(0, one)), -1) << bit;
    }
}

TEST(UUIDOrder, TheTopBitIsNoSign) {
    EXPECT_GT(UUID(0x8000000000000000, 0), UUID(0x7FFFFFFFFFFFFFFF, ~std::size_t{0}));
    EXPECT_GT(UUID(0, 0x8000000000000000), UUID(0, 0x7FFFFFFFFFFFFFFF));
}

TEST(UUIDOrder, ServesContainers) {
    std::map<UUID, int> ordered{{UUID(2, 0), 2}, {UUID(1, 5), 1}};
    EXPECT_EQ(ordered.begin()->second, 1);
    const std::unordered_set<UUID> hashed{UUID(1, 0), UUID(0, 1), UUID(1, 0)};
    EXPECT_EQ(hashed.size(), 2U) << "equal hashes, different values";
}

} // namespace

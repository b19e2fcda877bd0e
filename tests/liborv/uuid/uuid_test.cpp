// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief UUIDs from the real random source and from names.

#include "orv/liborv/system/error.h"
#include "orv/liborv/uuid/uuid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <numeric>
#include <string>
#include <vector>

namespace {

std::string toText(const OrvUUID& u) {
    std::array<char, 37> text;
    std::snprintf(text.data(), text.size(), "%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x",
                  u.timeLow, unsigned{u.timeMid}, unsigned{u.timeHiAndVersion},
                  unsigned{u.clockSeqHiAndVariant}, unsigned{u.clockSeqLow},
                  unsigned{u.nodeBytes[0]}, unsigned{u.nodeBytes[1]}, unsigned{u.nodeBytes[2]},
                  unsigned{u.nodeBytes[3]}, unsigned{u.nodeBytes[4]}, unsigned{u.nodeBytes[5]});
    return text.data();
}

std::string fromName(const OrvUUID* nameSpace, const std::string& name) {
    OrvUUID uuid = {};
    EXPECT_EQ(orvUUIDCreateFromName(nameSpace, name.data(), name.size(), &uuid), 0);
    return toText(uuid);
}

// The namespaces of RFC 4122, appendix C.
const OrvUUID dns = {0x6BA7B810, 0x9DAD, 0x11D1, 0x80, 0xB4, {0, 0xC0, 0x4F, 0xD4, 0x30, 0xC8}};
const OrvUUID url = {0x6BA7B811, 0x9DAD, 0x11D1, 0x80, 0xB4, {0, 0xC0, 0x4F, 0xD4, 0x30, 0xC8}};
const OrvUUID oid = {0x6BA7B812, 0x9DAD, 0x11D1, 0x80, 0xB4, {0, 0xC0, 0x4F, 0xD4, 0x30, 0xC8}};
const OrvUUID x500 = {0x6BA7B814, 0x9DAD, 0x11D1, 0x80, 0xB4, {0, 0xC0, 0x4F, 0xD4, 0x30, 0xC8}};

TEST(OrvUUIDRecord, IsSixteenBytesInTheOrderOfItsFields) {
    EXPECT_EQ(sizeof(OrvUUID), 16U);
    EXPECT_EQ(offsetof(OrvUUID, timeLow), 0U);
    EXPECT_EQ(offsetof(OrvUUID, timeMid), 4U);
    EXPECT_EQ(offsetof(OrvUUID, timeHiAndVersion), 6U);
    EXPECT_EQ(offsetof(OrvUUID, clockSeqHiAndVariant), 8U);
    EXPECT_EQ(offsetof(OrvUUID, clockSeqLow), 9U);
    EXPECT_EQ(offsetof(OrvUUID, nodeBytes), 10U);
}

TEST(OrvUUIDCreate, GivesVersionFourInTheVariantOfTheStandard) {
    for (int i = 0; i < 1000; ++i) {
        OrvUUID uuid = {};
        ASSERT_EQ(orvUUIDCreate(&uuid), 0);
        ASSERT_EQ(uuid.timeHiAndVersion >> 12, 4);
        ASSERT_EQ(uuid.clockSeqHiAndVariant >> 6, 2);
    }
}

TEST(OrvUUIDCreate, EveryOtherBitIsSometimesSetAndSometimesClear) {
    std::array<unsigned char, 16> seenSet = {};
    std::array<unsigned char, 16> seenClear = {};
    for (int i = 0; i < 200; ++i) {
        OrvUUID uuid = {};
        ASSERT_EQ(orvUUIDCreate(&uuid), 0);
        std::array<unsigned char, 16> bytes;
        std::memcpy(bytes.data(), &uuid, bytes.size());
        for (std::size_t j = 0; j < bytes.size(); ++j) {
            seenSet[j] = static_cast<unsigned char>(seenSet[j] | bytes[j]);
            seenClear[j] = static_cast<unsigned char>(seenClear[j] | ~bytes[j]);
        }
    }
    OrvUUID set, clear;
    std::memcpy(&set, seenSet.data(), sizeof set);
    std::memcpy(&clear, seenClear.data(), sizeof clear);
    EXPECT_EQ(toText(set), "ffffffff-ffff-4fff-bfff-ffffffffffff");
    EXPECT_EQ(toText(clear), "ffffffff-ffff-bfff-7fff-ffffffffffff");
}

TEST(OrvUUIDCreate, AMillionValuesDoNotRepeat) {
    std::vector<std::array<unsigned char, 16>> values(1'000'000);
    for (auto& value : values) {
        OrvUUID uuid;
        ASSERT_EQ(orvUUIDCreate(&uuid), 0);
        std::memcpy(value.data(), &uuid, value.size());
    }
    std::sort(values.begin(), values.end());
    EXPECT_EQ(std::adjacent_find(values.begin(), values.end()), values.end());
}

TEST(OrvUUIDCreate, RefusesANullRecord) {
    EXPECT_EQ(orvUUIDCreate(nullptr), ORV_ERROR_INVALID_ARGUMENT);
}

TEST(OrvUUIDCreateFromName, WithoutANamespaceHashesTheBytesAlone) {
    std::string allBytes(256, '\0');
    std::iota(allBytes.begin(), allBytes.end(), '\0');
    EXPECT_EQ(fromName(nullptr, ""), "d41d8cd9-8f00-3204-a980-0998ecf8427e");
    EXPECT_EQ(fromName(nullptr, "hello"), "5d41402a-bc4b-3a76-b971-9d911017c592");
    EXPECT_EQ(fromName(nullptr, std::string(1, '\0')), "93b885ad-fe0d-3089-8df6-34904fd59f71");
    EXPECT_EQ(fromName(nullptr, allBytes), "e2c865db-4162-3ed9-a3bf-aa9ef6ac18f0");
}

TEST(OrvUUIDCreateFromName, WithANamespaceGivesTheValuesOfTheStandard) {
    EXPECT_EQ(fromName(&dns, "www.example.com"), "5df41881-3aed-3515-88a7-2f4a814cf09e");
    EXPECT_EQ(fromName(&url, "www.example.com"), "a777199a-c522-31c4-8f4b-335feec7215b");
    EXPECT_EQ(fromName(&oid, "www.example.com"), "c2c1e4de-6589-389e-9375-32a90c6a83a8");
    EXPECT_EQ(fromName(&x500, "www.example.com"), "f4ea5e25-91d4-38b0-b74f-af6c57210cae");
    EXPECT_EQ(fromName(&dns, ""), "c87ee674-4ddc-3efe-a74e-dfe25da5d7b3");
}

TEST(OrvUUIDCreateFromName, TheNilNamespaceIsNotTheSameAsNone) {
    const OrvUUID nil = {};
    EXPECT_NE(fromName(&nil, "hello"), fromName(nullptr, "hello"));
    EXPECT_EQ(fromName(&nil, "hello"), fromName(nullptr, std::string(16, '\0') + "hello"));
}

TEST(OrvUUIDCreateFromName, TheResultMayOverwriteTheNamespace) {
    OrvUUID record = dns;
    EXPECT_EQ(orvUUIDCreateFromName(&record, "www.example.com", 15, &record), 0);
    EXPECT_EQ(toText(record), "5df41881-3aed-3515-88a7-2f4a814cf09e");
}

TEST(OrvUUIDCreateFromName, AcceptsNullBytesOnlyWithSizeZero) {
    OrvUUID uuid = {};
    EXPECT_EQ(orvUUIDCreateFromName(nullptr, nullptr, 0, &uuid), 0);
    EXPECT_EQ(toText(uuid), "d41d8cd9-8f00-3204-a980-0998ecf8427e");

    uuid = dns;
    EXPECT_EQ(orvUUIDCreateFromName(nullptr, nullptr, 1, &uuid), ORV_ERROR_INVALID_ARGUMENT);
    EXPECT_EQ(toText(uuid), toText(dns)) << "a failure leaves the record alone";
}

TEST(OrvUUIDCreateFromName, RefusesANullRecord) {
    EXPECT_EQ(orvUUIDCreateFromName(nullptr, "x", 1, nullptr), ORV_ERROR_INVALID_ARGUMENT);
}

} // namespace

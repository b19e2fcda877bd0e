// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Random UUIDs over a random source that the test scripts.
///
/// The UUID code is compiled into this test; orvEntropyRead() below takes the place of the real
/// one.

#include "orv/liborv/system/error.h"
#include "orv/liborv/uuid/entropy.h"
#include "orv/liborv/uuid/uuid.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

int scriptedResult = 0;
unsigned char scriptedByte = 0;
std::size_t bytesAsked = 0;

} // namespace

int orvEntropyRead(void* buffer, std::size_t size) {
    bytesAsked += size;
    std::memset(buffer, scriptedByte, size); // a failing source may have written as well
    return scriptedResult;
}

namespace {

OrvUUID createFrom(unsigned char byte) {
    scriptedResult = 0;
    scriptedByte = byte;
    OrvUUID uuid = {};
    EXPECT_EQ(orvUUIDCreate(&uuid), 0);
    return uuid;
}

TEST(OrvUUIDCreateFailure, ReturnsTheCodeOfTheSourceAndLeavesTheRecordAlone) {
    for (int code : {ORV_ERROR_IO, ORV_ERROR_NOT_PERMITTED, ORV_ERROR_NOT_SUPPORTED}) {
        scriptedResult = code;
        scriptedByte = 0xFF;
        const OrvUUID before = {1, 2, 3, 4, 5, {6, 7, 8, 9, 10, 11}};
        OrvUUID uuid = before;
        EXPECT_EQ(orvUUIDCreate(&uuid), code);
        EXPECT_EQ(std::memcmp(&uuid, &before, sizeof uuid), 0);
    }
}

TEST(OrvUUIDCreateFailure, ANullRecordIsRefusedBeforeRandomnessIsSpent) {
    bytesAsked = 0;
    EXPECT_EQ(orvUUIDCreate(nullptr), ORV_ERROR_INVALID_ARGUMENT);
    EXPECT_EQ(bytesAsked, 0U);
}

TEST(OrvUUIDCreateFailure, VersionAndVariantStandOverBytesOfAllOnes) {
    const OrvUUID uuid = createFrom(0xFF);
    EXPECT_EQ(uuid.timeLow, 0xFFFFFFFFU);
    EXPECT_EQ(uuid.timeMid, 0xFFFF);
    EXPECT_EQ(uuid.timeHiAndVersion, 0x4FFF);
    EXPECT_EQ(uuid.clockSeqHiAndVariant, 0xBF);
    EXPECT_EQ(uuid.clockSeqLow, 0xFF);
    EXPECT_EQ(uuid.nodeBytes[0], 0xFF);
    EXPECT_EQ(uuid.nodeBytes[5], 0xFF);
}

TEST(OrvUUIDCreateFailure, VersionAndVariantStandOverBytesOfAllZeros) {
    const OrvUUID uuid = createFrom(0);
    EXPECT_EQ(uuid.timeLow, 0U);
    EXPECT_EQ(uuid.timeHiAndVersion, 0x4000);
    EXPECT_EQ(uuid.clockSeqHiAndVariant, 0x80);
    EXPECT_EQ(uuid.nodeBytes[5], 0);
}

} // namespace

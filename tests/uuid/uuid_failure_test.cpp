// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What new UUIDs make of the C library's answers, which this test scripts.
///
/// The UUID class is compiled into this program; the two functions below take the place of the C
/// library's.
#include "orv/liborvxx/uuid/uuid.h"

#include "orv/liborv/system/error.h"
#include "orv/liborvxx/base/error.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

int scriptedResult = 0;
constexpr OrvUUID SCRIPTED = {1, 2, 3, 4, 5, {6, 7, 8, 9, 10, 11}};

struct NamedCall {
    const OrvUUID* nameSpace;
    const void* name;
    std::size_t size;
};
NamedCall lastCall = {};

} // namespace

int orvUUIDCreate(OrvUUID* uuid) noexcept {
    *uuid = SCRIPTED;
    return scriptedResult;
}

int orvUUIDCreateFromName(const OrvUUID* nameSpace, const void* name, std::size_t size,
                          OrvUUID* uuid) noexcept {
    lastCall = {nameSpace, name, size};
    *uuid = SCRIPTED;
    return scriptedResult;
}

namespace {

using orv::UUID;
using orvtest::thrownMessage;

TEST(UUIDFailure, EveryNegativeResultIsARuntimeErrorWithItsText) {
    for (const int code : {-1, -2, -5, -22, -34, -38, -1000, INT_MIN}) {
        scriptedResult = code;
        EXPECT_EQ(thrownMessage<orv::RuntimeError>([] { (void)UUID::randomUUID(); }),
                  std::string("orvUUIDCreate() failed: ") + orvStrError(code));
        EXPECT_EQ(thrownMessage<orv::RuntimeError>([] { (void)UUID::nameUUIDFromBytes("x", 1); }),
                  std::string("orvUUIDCreateForName() failed: ") + orvStrError(code));
    }
    scriptedResult = ORV_ERROR_IO;
    EXPECT_EQ(thrownMessage<orv::RuntimeError>([] { (void)UUID::randomUUID(); }),
              "orvUUIDCreate() failed: input/output error");
}

TEST(UUIDFailure, AnyOtherResultIsSuccess) {
    for (const int code : {0, 1, INT_MAX}) {
        scriptedResult = code;
        EXPECT_EQ(UUID::randomUUID(), UUID(SCRIPTED)) << code;
        EXPECT_EQ(UUID::nameUUIDFromBytes("x", 1), UUID(SCRIPTED)) << code;
    }
}

TEST(UUIDFailure, TheNameIsHandedOnAsItIsWithoutANamespace) {
    scriptedResult = 0;
    const char name[] = "name";
    (void)UUID::nameUUIDFromBytes(name, 3);
    EXPECT_EQ(lastCall.nameSpace, nullptr);
    EXPECT_EQ(lastCall.name, name);
    EXPECT_EQ(lastCall.size, 3U);
    (void)UUID::nameUUIDFromBytes(nullptr, 0);
    EXPECT_EQ(lastCall.name, nullptr);
    EXPECT_EQ(lastCall.size, 0U);
}

} // namespace

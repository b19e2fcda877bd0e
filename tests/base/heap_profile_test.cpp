// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The heap-profiling hooks do nothing.
#include "orv/liborvxx/base/heap_profile.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <type_traits>

namespace {

using orv::heap::HProfStats;

static_assert(std::is_trivial_v<HProfStats> && std::is_standard_layout_v<HProfStats>);
static_assert(offsetof(HProfStats, allocatedBytes) == 0 && offsetof(HProfStats, allocations) == 8 &&
              sizeof(HProfStats::allocatedBytes) == 8 && sizeof(HProfStats::allocations) == 8);

TEST(HeapProfile, NeverRecords) {
    EXPECT_FALSE(orv::heap::IsRecording());
    orv::heap::StartRecording();
    EXPECT_FALSE(orv::heap::IsRecording());
    orv::heap::ResetRecording();
    orv::heap::StopRecording();
    EXPECT_FALSE(orv::heap::IsRecording());
}

TEST(HeapProfile, ClearsTheTwoCountersOfADirtyRecord) {
    // As a build with a profiler has it, with more behind.
    struct {
        HProfStats stats;
        std::uint64_t more;
    } record = {{123, ~std::uint64_t{0}}, 42};
    orv::heap::GetStatistic(&record.stats);
    EXPECT_EQ(record.stats.allocatedBytes, 0U);
    EXPECT_EQ(record.stats.allocations, 0U);
    EXPECT_EQ(record.more, 42U);
}

TEST(HeapProfile, HasNothingToDumpOrToHandOut) {
    orv::heap::SetDumpAddr(true);
    std::ostringstream os;
    orv::heap::DumpProfile(os);
    EXPECT_EQ(os.str(), "");
    EXPECT_TRUE(os.good());
    EXPECT_EQ(orv::heap::NewCookie(), nullptr);
    orv::heap::RegisterInterpreterCallbacks(nullptr);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The heap-profiling hooks: nothing.
#include "orv/liborvxx/base/heap_profile.h"

#include <cassert>

namespace orv::heap {

void StartRecording() noexcept {}

void StopRecording() noexcept {}

void ResetRecording() noexcept {}

bool IsRecording() noexcept {
    return false;
}

void SetDumpAddr(bool /*on*/) noexcept {}

void DumpProfile(std::ostream& /*os*/) {}

void* NewCookie() noexcept {
    return nullptr;
}

void GetStatistic(HProfStats* stats) noexcept {
    assert(stats != nullptr);
    // These two alone: what stands behind them is the profiler's.
    stats->allocatedBytes = 0;
    stats->allocations = 0;
}

void RegisterInterpreterCallbacks(InterpreterCallbacks* /*callbacks*/) noexcept {}

} // namespace orv::heap

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The hooks of a heap profiler. This library has none: they do nothing, and are kept so
/// that programs written against a build with a profiler link and run.
///
/// Safe from any thread.
#ifndef ORV_LIBORVXX_BASE_HEAP_PROFILE_H
#define ORV_LIBORVXX_BASE_HEAP_PROFILE_H

#include "orv/liborvxx/base/platform.h"

#include <cstdint>
#include <iosfwd>

namespace orv::heap {

/// What a profiler counts. A build with a profiler has more members behind these.
struct HProfStats {
    std::uint64_t allocatedBytes; ///< bytes allocated while recording
    std::uint64_t allocations;    ///< blocks allocated while recording
};

/// Known to a profiler alone; passed by pointer and never looked into.
struct InterpreterCallbacks;

/// Do nothing.
ORVXX_API void StartRecording() noexcept;
ORVXX_API void StopRecording() noexcept;
ORVXX_API void ResetRecording() noexcept;

/// Always false.
ORVXX_API bool IsRecording() noexcept;

/// Does nothing.
ORVXX_API void SetDumpAddr(bool on) noexcept;

/// Writes nothing.
ORVXX_API void DumpProfile(std::ostream& os);

/// A null pointer.
ORVXX_API void* NewCookie() noexcept;

/// Sets both counters of \p stats, which must not be null, to 0.
ORVXX_API void GetStatistic(HProfStats* stats) noexcept;

/// Does nothing.
ORVXX_API void RegisterInterpreterCallbacks(InterpreterCallbacks* callbacks) noexcept;

} // namespace orv::heap

#endif

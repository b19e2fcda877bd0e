// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Counts what `operator new` hands out, and makes the n-th call fail. Its source replaces
/// the global operators of the program that it is linked into.
#ifndef ORV_TESTS_SUPPORT_COUNTING_ALLOCATOR_H
#define ORV_TESTS_SUPPORT_COUNTING_ALLOCATOR_H

#include <cstddef>

namespace orvtest {

/// Blocks that are allocated now.
std::size_t liveBlocks();

/// Calls of `operator new` since the program began.
std::size_t allocations();

/// Makes the \p n-th allocation from now on throw `std::bad_alloc`, and those after it work; 0 for
/// none.
void failAllocation(std::size_t n);

} // namespace orvtest

#endif

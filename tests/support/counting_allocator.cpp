// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The global allocation functions, with a count and a failure on demand.
#include "tests/support/counting_allocator.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> live = 0;
std::atomic<std::size_t> total = 0;
std::atomic<std::size_t> untilFailure = 0;

void* allocate(std::size_t size) noexcept {
    ++total;
    if (untilFailure != 0 && --untilFailure == 0) {
        return nullptr;
    }
    void* const block = std::malloc(size == 0 ? 1 : size);
    live += block != nullptr ? 1 : 0;
    return block;
}

void* allocateOrThrow(std::size_t size) {
    void* const block = allocate(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void release(void* block) noexcept {
    live -= block != nullptr ? 1 : 0;
    std::free(block);
}

} // namespace

namespace orvtest {

std::size_t liveBlocks() {
    return live;
}
std::size_t allocations() {
    return total;
}
void failAllocation(std::size_t n) {
    untilFailure = n;
}

} // namespace orvtest

void* operator new(std::size_t size) {
    return allocateOrThrow(size);
}
void* operator new[](std::size_t size) {
    return allocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
}
void operator delete(void* block) noexcept {
    release(block);
}
void operator delete[](void* block) noexcept {
    release(block);
}
void operator delete(void* block, std::size_t) noexcept {
    release(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    release(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
    release(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
    release(block);
}

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `PublishOnce`: a constant made on first use, without a lock.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_PUBLISH_ONCE_H
#define ORV_LIBORVXX_NUMBER_DETAIL_PUBLISH_ONCE_H

#include <atomic>
#include <memory>

namespace orv::detail {

/// A place for an object that any number of threads may ask for at once.
///
/// Whoever finds the place empty makes the object; if another thread publishes its own meanwhile,
/// that one holds and the loser's is destroyed. The object stays for the life of the process:
/// threads that outlive static destruction may still read it. An empty place is all zero bits and
/// needs no code at load.
template <class T>
class PublishOnce {
public:
    constexpr PublishOnce() noexcept = default;

    /// The object; \p make returns a `std::unique_ptr` to a new one, and is called if there is
    /// none. What it throws passes through, and the place stays as it is.
    template <class Make>
    const T& get(Make make) {
        if (const T* const there = object_.load(std::memory_order_acquire)) {
            return *there;
        }
        std::unique_ptr<const T> made = make();
        const T* winner = nullptr;
        if (object_.compare_exchange_strong(winner, made.get(), std::memory_order_seq_cst)) {
            winner = made.release();
        }
        return *winner;
    }

private:
    std::atomic<const T*> object_{nullptr};
};

} // namespace orv::detail

#endif

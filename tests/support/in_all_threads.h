// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The same work in several threads at once.
#ifndef ORV_TESTS_SUPPORT_IN_ALL_THREADS_H
#define ORV_TESTS_SUPPORT_IN_ALL_THREADS_H

#include <barrier>
#include <cstddef>
#include <thread>
#include <vector>

namespace orvtest {

constexpr std::size_t THREADS = 8;

/// Runs the function in all threads, with the thread's number; none starts before all are there.
template <typename Function>
void inAllThreads(Function function) {
    std::barrier start(static_cast<std::ptrdiff_t>(THREADS));
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < THREADS; ++i) {
        threads.emplace_back([&start, &function, i] {
            start.arrive_and_wait();
            function(i);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace orvtest

#endif

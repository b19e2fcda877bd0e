// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Tests of one URI used from many threads at once.
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/case_count.h"
#include "tests/support/in_all_threads.h"
#include "tests/support/uri_of.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <string>
#include <vector>

namespace {

using namespace orv::literals;
using orv::gref;
using orv::net::URI;
using orvtest::narrowText;
using orvtest::THREADS;
using orvtest::uriOf;

// Runs `work` on all threads at once, and counts those for which it does not hold.
template <typename Work>
std::size_t failuresOf(Work work) {
    std::atomic<std::size_t> failures = 0;
    orvtest::inAllThreads([&](std::size_t i) { failures += work(i) ? 0U : 1U; });
    return failures;
}

TEST(URIThreads, FillTheCachesOfAFreshURIAtOnce) {
    const auto model = uriOf("S://u@h:080/a/../b//c?q#f");
    for (std::size_t round = 20 + orvtest::caseCount(2000); round > 0; --round) {
        const auto uri = uriOf("S://u@h:080/a/../b//c?q#f");
        const std::size_t failures = failuresOf([&](std::size_t i) {
            // Each begins elsewhere.
            bool good = true;
            for (std::size_t step = i; step < i + 4; ++step) {
                switch (step % 4) {
                case 0:
                    good = good && uri->hashCode() == model->hashCode();
                    break;
                case 1:
                    good = good && narrowText(uri->normalize()) == "S://u@h:080/b/c?q#f";
                    break;
                case 2:
                    good = good &&
                           narrowText(uri->resolve(u"#x"_u)->normalize()) == "S://u@h:080/b/c?q#x";
                    break;
                default:
                    good = good && uri->equals(model) && uri->compareTo(model) == 0;
                }
            }
            return good;
        });
        ASSERT_EQ(failures, 0U);
    }
}

TEST(URIThreads, ReadOneURI) {
    const auto uri = uriOf("s://u@%41:1/a/b/c?q#f");
    const auto other = uriOf("s://u@a:1/a/b/c/d");
    const std::size_t rounds = 10 + orvtest::caseCount(5000);
    EXPECT_EQ(failuresOf([&](std::size_t) {
                  bool good = true;
                  for (std::size_t i = 0; i < rounds; ++i) {
                      good = good && narrowText(uri->getHost()) == "A" && uri->getPort() == 1 &&
                             narrowText(uri->resolve(u"../x"_u)) == "s://u@%41:1/a/x" &&
                             narrowText(uri->relativize(other)) == "d" && uri < other &&
                             std::hash<gref<URI>>()(uri) != 0 &&
                             narrowText(uri->toASCIIString()) == narrowText(uri);
                  }
                  return good;
              }),
              0U);
}

TEST(URIThreads, ShareReferencesToOneURI) {
    auto uri = uriOf("s://h/a");
    const std::size_t rounds = 100 + orvtest::caseCount(100000);
    EXPECT_EQ(failuresOf([&, copy = uri](std::size_t) {
                  std::vector<gref<URI>> held(16);
                  bool good = true;
                  for (std::size_t i = 0; i < rounds; ++i) {
                      held[i % held.size()] = i % 3 == 0 ? copy->normalize() : copy;
                      good = good && held[i % held.size()].get() == copy.get();
                      held[(i * 7) % held.size()].reset();
                  }
                  return good;
              }),
              0U);
    EXPECT_EQ(uri.useCount(), 1U);
}

TEST(URIThreads, DropTheLastReferenceOnAnyThread) {
    for (std::size_t round = 20 + orvtest::caseCount(2000); round > 0; --round) {
        std::vector<gref<URI>> references(THREADS, uriOf("s://h/a?q"));
        EXPECT_EQ(references.front().useCount(), THREADS);
        ASSERT_EQ(failuresOf([&](std::size_t i) {
                      const gref<URI> mine = std::move(references[i]);
                      const gref<URI> derived = mine->resolve(u"b"_u);
                      return narrowText(derived) == "s://h/b" && narrowText(mine) == "s://h/a?q";
                  }),
                  0U);
    }
}

} // namespace

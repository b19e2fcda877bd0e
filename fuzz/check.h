// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `FUZZ_CHECK`: ends the process when something does not hold, in every kind of build.
#ifndef ORV_FUZZ_CHECK_H
#define ORV_FUZZ_CHECK_H

#include <cstdio>
#include <cstdlib>

namespace fuzz {

/// Names what failed and aborts, which the fuzzer and the replay program both take for a finding.
[[noreturn]] inline void fail(const char* file, int line, const char* condition) {
    std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, condition);
    std::abort();
}

} // namespace fuzz

#define FUZZ_CHECK(condition)                                                                      \
    ((condition) ? static_cast<void>(0) : ::fuzz::fail(__FILE__, __LINE__, #condition))

#endif

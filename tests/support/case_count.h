// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief How many random cases a test runs in this build.
#ifndef ORV_TESTS_SUPPORT_CASE_COUNT_H
#define ORV_TESTS_SUPPORT_CASE_COUNT_H

#include <cstddef>
#include <cstdlib>

namespace orvtest {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool IS_SANITIZED = true;
#else
inline constexpr bool IS_SANITIZED = false;
#endif

/// The step of a loop over all values of a domain: \p step under sanitizers, which look for another
/// kind of fault, and 1 in all other builds.
constexpr unsigned int strideUnderSanitizers(unsigned int step) {
    return IS_SANITIZED ? step : 1;
}

/// \p optimised in optimised builds, a tenth of it with assertions, a hundredth under sanitizers;
/// times the environment's ORV_CASE_FACTOR for a long run by hand.
inline std::size_t caseCount(std::size_t optimised) {
#if defined(NDEBUG)
    const std::size_t share = IS_SANITIZED ? 100 : 1;
#else
    const std::size_t share = IS_SANITIZED ? 100 : 10;
#endif
    const char* const text = std::getenv("ORV_CASE_FACTOR");
    const std::size_t factor = text == nullptr ? 1 : std::strtoul(text, nullptr, 10);
    return optimised / share * (factor == 0 ? 1 : factor);
}

} // namespace orvtest

#endif

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Asks the system for the processor, and the build for the rest.
#include "bench/context.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <string>

#if ORV_BENCH_ICU
#include <unicode/uvernum.h>
#endif
#if __has_include(<gnu/libc-version.h>)
#include <gnu/libc-version.h>
#endif

namespace bench {

namespace {

std::string processor() {
    std::ifstream info("/proc/cpuinfo");
    for (std::string line; std::getline(info, line);) {
        const std::size_t colon = line.find(": ");
        if (line.starts_with("model name") && colon != std::string::npos) {
            return line.substr(colon + 2);
        }
    }
    return "unknown";
}

} // namespace

void addContext() {
    benchmark::AddCustomContext("processor", processor());
    benchmark::AddCustomContext("compiler", ORV_BENCH_COMPILER);
#if ORV_BENCH_ICU
    benchmark::AddCustomContext("ICU", U_ICU_VERSION);
#endif
#if __has_include(<gnu/libc-version.h>)
    benchmark::AddCustomContext("C library", std::string("glibc ") + gnu_get_libc_version());
#endif
}

} // namespace bench

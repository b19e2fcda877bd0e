// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief How long a program takes from its start to its end that links with the library and does
/// nothing, beside one that does not link with it.
///
/// Names are start/who. The time includes what the system needs to make and to end a process.
#include "bench/context.h"

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <string>

namespace {

bool runsToItsEnd(const char* path) {
    std::string name = path;
    std::array<char*, 2> arguments = {name.data(), nullptr};
    pid_t process = 0;
    int status = 0;
    return posix_spawn(&process, path, nullptr, nullptr, arguments.data(), environ) == 0 &&
           waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void start(benchmark::State& state, const char* path) {
    for ([[maybe_unused]] auto _ : state) {
        if (!runsToItsEnd(path)) {
            state.SkipWithError("the program fails");
            return;
        }
    }
}

void add(const char* who, const char* path) {
    benchmark::RegisterBenchmark((std::string("start/") + who).c_str(), start, path)->UseRealTime();
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    add("neither", ORV_LOAD_PROGRAM_NEITHER);
    add("orvxx", ORV_LOAD_PROGRAM_ORVXX);
#if ORV_BENCH_ICU
    add("ICU", ORV_LOAD_PROGRAM_ICU);
#endif
    bench::addContext();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

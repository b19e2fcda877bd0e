// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Speed of making, printing and parsing UUIDs, beside the system's UUID library.
///
/// Names are operation/who.
#include "bench/context.h"

#include "orv/liborvxx/uuid/uuid.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

#if ORV_BENCH_LIBUUID
#include <uuid/uuid.h>
#endif

namespace {

constexpr std::size_t COUNT = 1024;

const std::vector<orv::UUID>& values() {
    static const std::vector<orv::UUID> list = [] {
        std::vector<orv::UUID> ids;
        for (std::size_t i = 0; i < COUNT; ++i) {
            ids.push_back(orv::UUID::nameUUIDFromBytes(&i, sizeof i));
        }
        return ids;
    }();
    return list;
}

const std::vector<std::string>& texts() {
    static const std::vector<std::string> list = [] {
        std::vector<std::string> all;
        for (const orv::UUID& id : values()) {
            all.push_back(id.toString());
        }
        return all;
    }();
    return list;
}

// Runs `work` on the numbers below COUNT in turn.
template <typename Work>
void inTurn(benchmark::State& state, Work work) {
    std::size_t i = 0;
    for ([[maybe_unused]] auto _ : state) {
        work(i++ % COUNT);
    }
}

constexpr char NAME[] = "http://www.example.com/a/name/of/some/length";

void addOwn() {
    benchmark::RegisterBenchmark("random/orvxx", [](benchmark::State& state) {
        inTurn(state, [](std::size_t) { benchmark::DoNotOptimize(orv::UUID::randomUUID()); });
    });
    benchmark::RegisterBenchmark("named/orvxx", [](benchmark::State& state) {
        inTurn(state, [](std::size_t) {
            benchmark::DoNotOptimize(orv::UUID::nameUUIDFromBytes(NAME, sizeof NAME - 1));
        });
    });
    benchmark::RegisterBenchmark("print/orvxx", [](benchmark::State& state) {
        inTurn(state,
               [](std::size_t i) { benchmark::DoNotOptimize(values()[i].toString().data()); });
    });
    benchmark::RegisterBenchmark("parse/orvxx", [](benchmark::State& state) {
        inTurn(state,
               [](std::size_t i) { benchmark::DoNotOptimize(orv::UUID::fromString(texts()[i])); });
    });
}

#if ORV_BENCH_LIBUUID

struct PeerId {
    uuid_t bytes;
};

PeerId parsePeer(const std::string& text) {
    PeerId id;
    uuid_parse(text.c_str(), id.bytes);
    return id;
}

std::string printPeer(const PeerId& id) {
    char text[37];
    uuid_unparse_lower(id.bytes, text);
    return text;
}

bool peerAgrees() {
    for (const std::string& text : texts()) {
        if (printPeer(parsePeer(text)) != text || orv::UUID::fromString(text).toString() != text) {
            std::fprintf(stderr, "%s is read or printed differently\n", text.c_str());
            return false;
        }
    }
    return true;
}

void addPeer() {
    benchmark::RegisterBenchmark("random/libuuid", [](benchmark::State& state) {
        inTurn(state, [](std::size_t) {
            PeerId id;
            uuid_generate_random(id.bytes);
            benchmark::DoNotOptimize(id);
        });
    });
    benchmark::RegisterBenchmark("named/libuuid", [](benchmark::State& state) {
        const PeerId space = parsePeer(texts()[0]);
        inTurn(state, [&](std::size_t) {
            PeerId id;
            uuid_generate_md5(id.bytes, space.bytes, NAME, sizeof NAME - 1);
            benchmark::DoNotOptimize(id);
        });
    });
    benchmark::RegisterBenchmark("print/libuuid", [](benchmark::State& state) {
        const PeerId id = parsePeer(texts()[0]);
        // Into a string, as ours.
        inTurn(state, [&](std::size_t) { benchmark::DoNotOptimize(printPeer(id).data()); });
    });
    benchmark::RegisterBenchmark("parse/libuuid", [](benchmark::State& state) {
        inTurn(state, [](std::size_t i) { benchmark::DoNotOptimize(parsePeer(texts()[i])); });
    });
}

#else

bool peerAgrees() {
    return true;
}
void addPeer() {}

#endif

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv) || !peerAgrees()) {
        return 1;
    }
    addOwn();
    addPeer();
    bench::addContext();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Speed of decoding and encoding, ours beside the peers', on the same bytes in one process.
///
/// Names are direction/set/text/size/who. The rate counts encoded bytes in both directions.
#include "bench/context.h"
#include "bench/transcoder.h"
#include "bench/workload.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <deque>
#include <string>
#include <vector>

namespace {

using namespace bench;

struct Size {
    const char* name;
    std::size_t bytes;
    std::size_t pieces;
};

constexpr Size LINES = {"64B", 64, 1024};
constexpr Size MEBIBYTE = {"1MiB", 1U << 20, 1};
constexpr Size TWO_MEBIBYTES = {"2MiB", 2U << 20, 1};

struct SetWithTexts {
    const char* charset;
    std::vector<Script> scripts;
    std::vector<Size> sizes = {LINES, TWO_MEBIBYTES};
};

// At least one set for each kind of coder. tools/bench_report.py puts them together in families.
const std::vector<SetWithTexts>& sets() {
    static const std::vector<Size> more = {LINES, MEBIBYTE, TWO_MEBIBYTES};
    static const std::vector<SetWithTexts> list = {
        {"UTF-8", {Script::ENGLISH, Script::CYRILLIC, Script::CHINESE, Script::EMOJI}, more},
        {"CESU-8", {Script::ENGLISH, Script::CYRILLIC, Script::CHINESE, Script::EMOJI}},
        {"UTF-16LE", {Script::ENGLISH, Script::EMOJI}},
        {"UTF-16BE", {Script::ENGLISH, Script::EMOJI}},
        {"US-ASCII", {Script::ASCII}, more},
        {"ISO-8859-1", {Script::ASCII, Script::WESTERN}, more},
        {"ISO-8859-2", {Script::POLISH}},
        {"KOI8-R", {Script::CYRILLIC}},
        {"ISO-8859-3", {Script::ESPERANTO}},
        {"windows-1251", {Script::CYRILLIC}},
        {"windows-1252", {Script::ENGLISH, Script::WESTERN}},
        {"windows-1253", {Script::GREEK}},
        {"windows-1255", {Script::HEBREW}},
        {"windows-874", {Script::THAI}},
        {"Shift_JIS", {Script::JAPANESE}},
        {"Windows-31J", {Script::JAPANESE}},
        {"x-windows-949", {Script::KOREAN}},
        {"Big5", {Script::TRADITIONAL_CHINESE}},
        {"Big5-HKSCS", {Script::CANTONESE}},
        {"GBK", {Script::CHINESE}},
        {"GB18030", {Script::CHINESE, Script::KOREAN, Script::EMOJI}}};
    return list;
}

// What the benchmarks of one set, text and size share.
struct Case {
    std::string name;
    Pieces pieces;
    Transcoders transcoders;
    std::vector<char16_t> units;
    std::vector<char> bytes;
};

void decode(benchmark::State& state, Case& work, Transcoder& transcoder) {
    std::int64_t bytes = 0;
    auto piece = work.pieces.begin();
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(transcoder.decode(piece->bytes, work.units).data());
        benchmark::ClobberMemory();
        bytes += static_cast<std::int64_t>(piece->bytes.size());
        if (++piece == work.pieces.end()) {
            piece = work.pieces.begin();
        }
    }
    state.SetBytesProcessed(bytes);
}

void encode(benchmark::State& state, Case& work, Transcoder& transcoder) {
    std::int64_t bytes = 0;
    auto piece = work.pieces.begin();
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(transcoder.encode(piece->text, work.bytes).data());
        benchmark::ClobberMemory();
        bytes += static_cast<std::int64_t>(piece->bytes.size());
        if (++piece == work.pieces.end()) {
            piece = work.pieces.begin();
        }
    }
    state.SetBytesProcessed(bytes);
}

// A fast wrong answer is worth nothing.
bool convertsAll(Case& work, Transcoder& transcoder) {
    for (const Piece& piece : work.pieces) {
        if (transcoder.decode(piece.bytes, work.units) != piece.text ||
            transcoder.encode(piece.text, work.bytes) != piece.bytes) {
            std::fprintf(stderr, "%s: %s gives another result\n", work.name.c_str(),
                         transcoder.name());
            return false;
        }
    }
    return true;
}

void addCase(std::deque<Case>& cases, const char* charset, Script script, const Size& size) {
    Case& work = cases.emplace_back();
    work.name = std::string(charset) + '/' + nameOf(script) + '/' + size.name;
    work.pieces = makePieces(charset, script, size.bytes, size.pieces);
    // Room for the longest text, with what some peers want beyond it to be at their fastest.
    work.units.resize(size.bytes + 64);
    work.bytes.resize(3 * size.bytes + 64);
    work.transcoders = makeOwn(charset);
    for (auto& peer : makePeers(charset)) {
        work.transcoders.push_back(std::move(peer));
    }
}

bool registerCase(Case& work) {
    for (const auto& owned : work.transcoders) {
        Transcoder& transcoder = *owned;
        if (!convertsAll(work, transcoder)) {
            return false;
        }
        const std::string rest = '/' + work.name + '/' + transcoder.name();
        benchmark::RegisterBenchmark(("decode" + rest).c_str(), [&](benchmark::State& state) {
            decode(state, work, transcoder);
        });
        benchmark::RegisterBenchmark(("encode" + rest).c_str(), [&](benchmark::State& state) {
            encode(state, work, transcoder);
        });
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    std::deque<Case> cases;
    for (const SetWithTexts& set : sets()) {
        for (const Script script : set.scripts) {
            for (const Size& size : set.sizes) {
                addCase(cases, set.charset, script, size);
                if (!registerCase(cases.back())) {
                    return 1;
                }
            }
        }
    }
    addContext();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

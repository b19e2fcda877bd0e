// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Speed of streams over `char16` beside the standard library's over `wchar_t` and `char`:
/// numbers in and out, and lines of a UTF-8 file.
///
/// Names are operation/what/who.
#include "bench/context.h"
#include "bench/number_texts.h"
#include "bench/texts.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/locale/charset_streambuf.h"
#include "orv/liborvxx/locale/uistream.h"
#include "orv/liborvxx/locale/ustringstream.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <ios>
#include <locale>
#include <sstream>
#include <string>
#include <string_view>

namespace {

// Numbers of a set that go into one stream, so that its text stays in the cache.
constexpr std::size_t COUNT = 10000;

struct Own {
    using Char = orv::char16;
    using In = orv::uistringstream;
    using Out = orv::uostringstream;
    static constexpr char NAME[] = "orvxx";
};

struct Wide {
    using Char = wchar_t;
    using In = std::wistringstream;
    using Out = std::wostringstream;
    static constexpr char NAME[] = "wchar_t";
};

struct Narrow {
    using Char = char;
    using In = std::istringstream;
    using Out = std::ostringstream;
    static constexpr char NAME[] = "char";
};

template <class Family, class Value>
typename Family::In streamOf(const bench::NumberSet<Value>& set) {
    using Char = typename Family::Char;
    std::basic_string<Char> text;
    for (std::size_t i = 0; i < COUNT; ++i) {
        for (const char* c = set.narrow.begin(i); c != set.narrow.end(i); ++c) {
            text += Char(static_cast<unsigned char>(*c));
        }
        text += Char(0x20);
    }
    return typename Family::In(text);
}

template <class Family, class Value>
void read(benchmark::State& state, const bench::NumberSet<Value>& set) {
    auto in = streamOf<Family>(set);
    Value value{};
    for ([[maybe_unused]] auto _ : state) {
        if (!(in >> value)) {
            in.clear();
            in.seekg(0);
            in >> value;
        }
        benchmark::DoNotOptimize(value);
    }
}

template <class Family, class Value>
void write(benchmark::State& state, const bench::NumberSet<Value>& set, int precision) {
    typename Family::Out out;
    out.precision(precision);
    std::size_t i = 0;
    for ([[maybe_unused]] auto _ : state) {
        out << set.values[i];
        if (++i == COUNT) {
            i = 0;
            out.seekp(0);
        }
    }
}

template <class Family, class Value>
void addFamily(const bench::NumberSet<Value>& set) {
    const std::string tail = "/" + set.name + "/" + Family::NAME;
    benchmark::RegisterBenchmark(("read" + tail).c_str(),
                                 [&set](benchmark::State& state) { read<Family>(state, set); });
    benchmark::RegisterBenchmark(("write" + tail).c_str(),
                                 [&set](benchmark::State& state) { write<Family>(state, set, 6); });
    if constexpr (std::is_same_v<Value, double>) {
        benchmark::RegisterBenchmark(
            ("write, precision 17" + tail).c_str(),
            [&set](benchmark::State& state) { write<Family>(state, set, 17); });
    }
}

template <class Value>
bool agrees(const bench::NumberSet<Value>& set) {
    auto own = streamOf<Own>(set);
    auto wide = streamOf<Wide>(set);
    orv::uostringstream ownOut;
    std::wostringstream wideOut;
    ownOut.precision(17);
    wideOut.precision(17);
    for (std::size_t i = 0; i < COUNT; ++i) {
        Value a{};
        Value b{};
        own >> a;
        wide >> b;
        ownOut << a;
        wideOut << b;
        if (!own || !wide || a != b) {
            std::fprintf(stderr, "%s is read differently\n", set.narrow.begin(i));
            return false;
        }
    }
    const orv::ustring text = ownOut.str();
    const std::wstring peer = wideOut.str();
    for (std::size_t i = 0; i < peer.size(); ++i) {
        if (i >= text.size() || static_cast<wchar_t>(text[i]) != peer[i]) {
            std::fprintf(stderr, "numbers of \"%s\" are written differently\n", set.name.c_str());
            return false;
        }
    }
    return text.size() == peer.size();
}

// A UTF-8 file that is there while the benchmarks run.
class File {
public:
    explicit File(bench::Script script)
        : path_(std::filesystem::temp_directory_path() /
                ("orv-stream-bench-" + std::string(bench::nameOf(script)))) {
        const std::u16string text = bench::makeText(script, UNITS);
        orv::ustring units;
        for (const char16_t c : text) {
            units += orv::char16(c);
        }
        const std::string bytes = orv::Charset::UTF_8->encode(units);
        size_ = static_cast<std::int64_t>(bytes.size());
        std::ofstream(path_, std::ios::binary) << bytes;
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    std::int64_t size() const { return size_; }

private:
    static constexpr std::size_t UNITS = 1U << 20U;

    std::filesystem::path path_;
    std::int64_t size_ = 0;
};

template <class In, class String>
std::size_t unitsOfLines(In& in, String& line) {
    std::size_t units = 0;
    while (getline(in, line)) {
        units += line.size();
    }
    return units;
}

std::size_t ownLines(const File& file) {
    std::ifstream bytes(file.path(), std::ios::binary);
    orv::charset_streambuf buffer(*bytes.rdbuf(), *orv::Charset::UTF_8);
    orv::uistream in(&buffer);
    orv::ustring line;
    return unitsOfLines(in, line);
}

std::size_t wideLines(const File& file) {
    std::wifstream in;
    in.imbue(std::locale("C.UTF-8"));
    in.open(file.path(), std::ios::binary);
    std::wstring line;
    return unitsOfLines(in, line);
}

std::size_t narrowLines(const File& file) {
    std::ifstream in(file.path(), std::ios::binary);
    std::string line;
    return unitsOfLines(in, line);
}

void addLines(const char* who, const char* what, const File& file,
              std::size_t (*lines)(const File&)) {
    benchmark::RegisterBenchmark(
        (std::string("lines/") + what + "/" + who).c_str(),
        [&file, lines](benchmark::State& state) {
            for ([[maybe_unused]] auto _ : state) {
                benchmark::DoNotOptimize(lines(file));
            }
            state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * file.size());
        });
}

template <class Value>
bool addNumbers(const std::vector<bench::NumberSet<Value>>& sets) {
    for (const auto& set : sets) {
        if (!agrees(set)) {
            return false;
        }
        addFamily<Own>(set);
        addFamily<Wide>(set);
        addFamily<Narrow>(set);
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv) || !addNumbers(bench::floatSets()) ||
        !addNumbers(bench::integerSets())) {
        return 1;
    }
    const File english(bench::Script::ENGLISH);
    const File chinese(bench::Script::CHINESE);
    for (const auto* file : {&english, &chinese}) {
        if (ownLines(*file) != wideLines(*file)) {
            std::fprintf(stderr, "the lines of %s differ\n", file->path().c_str());
            return 1;
        }
        const char* name = file == &english ? "English" : "Chinese";
        addLines("orvxx", name, *file, ownLines);
        addLines("wchar_t", name, *file, wideLines);
        addLines("char", name, *file, narrowLines);
    }
    bench::addContext();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

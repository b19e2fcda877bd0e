// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Speed of reading and writing numbers beside the C library, the standard library,
/// fast_float and double-conversion.
///
/// Names are operation/set/who. Every contestant takes the same numbers in turn; before anything is
/// measured all of them must have the same results.
#include "bench/context.h"
#include "bench/number_texts.h"

#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/string_to_float.h"
#include "orv/liborvxx/number/to_chars.h"

#include <benchmark/benchmark.h>

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#if ORV_BENCH_FAST_FLOAT
#include <fast_float/fast_float.h>
#endif
#if ORV_BENCH_DOUBLE_CONVERSION
#include <double-conversion/double-conversion.h>
#endif

namespace {

using bench::NumberSet;
using orv::char16;

// Room for any text of these numbers.
constexpr std::size_t ROOM = 40;

// Set by the check; no benchmark runs if two contestants differ.
bool allAgree = true;

void report(const std::string& what) {
    std::fprintf(stderr, "%s: wrong result\n", what.c_str());
    allAgree = false;
}

// A reader takes the range of a text and gives its value.
template <class CharT, class Value, class Read>
void addReader(const NumberSet<Value>& set, const bench::TextList<CharT>& texts, const char* who,
               Read read) {
    const std::string name = "read/" + set.name + '/' + who;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (Value{read(texts.begin(i), texts.end(i))} != set.values[i]) {
            return report(name);
        }
    }
    benchmark::RegisterBenchmark(name.c_str(), [&texts, read](benchmark::State& state) {
        std::size_t i = 0;
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(read(texts.begin(i), texts.end(i)));
            i = i + 1 < texts.size() ? i + 1 : 0;
        }
    });
}

// A writer takes a value and room for its text, and gives the text's length.
template <class CharT, class Value, class Write>
void addWriter(const NumberSet<Value>& set, const char* who, Write write) {
    const std::string name = "write/" + set.name + '/' + who;
    std::array<CharT, ROOM> room;
    for (const Value value : set.values) {
        const std::size_t length = write(value, room.data());
        if (length == 0 || length >= ROOM ||
            orv::from_chars_c<double>(orv::basic_string_ref<CharT>(room.data(), length)).value !=
                static_cast<double>(value)) {
            return report(name);
        }
    }
    benchmark::RegisterBenchmark(name.c_str(), [&set, write](benchmark::State& state) {
        std::array<CharT, ROOM> text;
        std::size_t i = 0;
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(write(set.values[i], text.data()));
            benchmark::DoNotOptimize(text);
            i = i + 1 < set.values.size() ? i + 1 : 0;
        }
    });
}

template <class CharT>
orv::basic_string_ref<CharT> view(const CharT* first, const CharT* last) {
    return {first, static_cast<std::size_t>(last - first)};
}

void addFloatReaders(const NumberSet<double>& set) {
    addReader(set, set.narrow, "orvxx", [](const char* first, const char* last) {
        return orv::from_chars_c<double>(view(first, last)).value;
    });
    addReader(set, set.wide, "orvxx char16", [](const char16* first, const char16* last) {
        return orv::from_chars_c<double>(view(first, last)).value;
    });
    addReader(set, set.narrow, "orvxx strtod_c", [](const char* first, const char* /*last*/) {
        return orv::strtod_c(first, nullptr);
    });
    addReader(set, set.narrow, "strtod",
              [](const char* first, const char* /*last*/) { return std::strtod(first, nullptr); });
    addReader(set, set.narrow, "std", [](const char* first, const char* last) {
        double value = 0;
        std::from_chars(first, last, value);
        return value;
    });
#if ORV_BENCH_FAST_FLOAT
    addReader(set, set.narrow, "fast_float", [](const char* first, const char* last) {
        double value = 0;
        fast_float::from_chars(first, last, value);
        return value;
    });
#endif
#if ORV_BENCH_DOUBLE_CONVERSION
    using Reader = double_conversion::StringToDoubleConverter;
    static const Reader reader(Reader::NO_FLAGS, 0, 0, "Infinity", "NaN");
    addReader(set, set.narrow, "double-conversion", [](const char* first, const char* last) {
        int length = 0;
        return reader.StringToDouble(first, static_cast<int>(last - first), &length);
    });
#endif
}

void addFloatWriters(const NumberSet<double>& set) {
    addWriter<char>(set, "orvxx", [](double value, char* text) {
        return static_cast<std::size_t>(orv::to_chars_c(text, text + ROOM, value).end - text);
    });
    addWriter<char16>(set, "orvxx char16", [](double value, char16* text) {
        return static_cast<std::size_t>(orv::to_chars_c(text, text + ROOM, value).end - text);
    });
    addWriter<char>(set, "orvxx to_string_c", [](double value, char* text) {
        return orv::to_string_c(value).copy(text, ROOM);
    });
    addWriter<char>(set, "std", [](double value, char* text) {
        return static_cast<std::size_t>(std::to_chars(text, text + ROOM, value).ptr - text);
    });
    addWriter<char>(set, "snprintf", [](double value, char* text) {
        return static_cast<std::size_t>(std::snprintf(text, ROOM, "%.17g", value));
    });
#if ORV_BENCH_DOUBLE_CONVERSION
    addWriter<char>(set, "double-conversion", [](double value, char* text) {
        double_conversion::StringBuilder builder(text, ROOM);
        double_conversion::DoubleToStringConverter::EcmaScriptConverter().ToShortest(value,
                                                                                     &builder);
        return static_cast<std::size_t>(builder.position());
    });
#endif
}

void addIntegerReaders(const NumberSet<std::int64_t>& set) {
    addReader(set, set.narrow, "orvxx", [](const char* first, const char* last) {
        return orv::from_chars_c<long long>(view(first, last)).value;
    });
    addReader(set, set.wide, "orvxx char16", [](const char16* first, const char16* last) {
        return orv::from_chars_c<long long>(view(first, last)).value;
    });
    addReader(set, set.narrow, "strtoll", [](const char* first, const char* /*last*/) {
        return std::strtoll(first, nullptr, 10);
    });
    addReader(set, set.narrow, "std", [](const char* first, const char* last) {
        long long value = 0;
        std::from_chars(first, last, value);
        return value;
    });
}

void addIntegerWriters(const NumberSet<std::int64_t>& set) {
    addWriter<char>(set, "orvxx", [](std::int64_t value, char* text) {
        return static_cast<std::size_t>(orv::to_chars_c(text, text + ROOM, value).end - text);
    });
    addWriter<char16>(set, "orvxx char16", [](std::int64_t value, char16* text) {
        return static_cast<std::size_t>(orv::to_chars_c(text, text + ROOM, value).end - text);
    });
    addWriter<char>(set, "std", [](std::int64_t value, char* text) {
        return static_cast<std::size_t>(std::to_chars(text, text + ROOM, value).ptr - text);
    });
    addWriter<char>(set, "snprintf", [](std::int64_t value, char* text) {
        return static_cast<std::size_t>(
            std::snprintf(text, ROOM, "%lld", static_cast<long long>(value)));
    });
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    bench::addContext();
    for (const auto& set : bench::floatSets()) {
        addFloatReaders(set);
        addFloatWriters(set);
    }
    for (const auto& set : bench::integerSets()) {
        addIntegerReaders(set);
        addIntegerWriters(set);
    }
    if (!allAgree) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

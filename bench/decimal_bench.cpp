// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Speed of decimal arithmetic and decimal text beside Intel's library called directly and
/// the compiler's own types.
///
/// Names are operation/set/who. Every contestant takes the same numbers in turn; before anything is
/// measured all of them must have the same results.
#include "bench/chooser.h"
#include "bench/context.h"
#include "bench/decimal_arithmetic.h"
#include "bench/decimal_peers.h"
#include "bench/number_texts.h"

#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/to_chars.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using bench::COUNT;
using bench::Operands;
using orv::char16;
using orv::decimal::decimal128;
using orv::decimal::decimal32;
using orv::decimal::decimal64;

// Set by the checks; no benchmark runs if two contestants differ.
bool allAgree = true;

void require(bool agrees) {
    allAgree = agrees && allAgree;
}

std::string digits(bench::Chooser& chooser, unsigned count) {
    std::string text(1, static_cast<char>('1' + chooser.below(9)));
    while (text.size() < count) {
        text += static_cast<char>('0' + chooser.below(10));
    }
    return text;
}

// Sums of money and rates: few digits, two or four of them behind the point.
template <class Decimal>
Operands<Decimal> money(const std::string& width, unsigned mostDigits) {
    bench::Chooser chooser;
    Operands<Decimal> operands{width + " money", {}, {}, {}};
    for (std::size_t i = 0; i < COUNT; ++i) {
        operands.left.emplace_back(
            orv::string_ref(digits(chooser, 1 + chooser.below(mostDigits)) + "E-2"));
        operands.right.emplace_back(orv::string_ref(digits(chooser, 1 + chooser.below(mostDigits)) +
                                                    (chooser.oneIn(2) ? "E-2" : "E-4")));
        operands.quanta.emplace_back(orv::string_ref("0.1"));
    }
    return operands;
}

// All digits that the type has, of nearly one magnitude.
template <class Decimal>
Operands<Decimal> full(const std::string& width, unsigned count) {
    bench::Chooser chooser;
    Operands<Decimal> operands{width + " all digits", {}, {}, {}};
    for (std::size_t i = 0; i < COUNT; ++i) {
        const auto exponent = [&chooser] { return "E-" + std::to_string(chooser.below(8)); };
        operands.left.emplace_back(orv::string_ref(digits(chooser, count) + exponent()));
        operands.right.emplace_back(orv::string_ref(digits(chooser, count) + exponent()));
        operands.quanta.emplace_back(orv::string_ref("1E2"));
    }
    return operands;
}

template <class Contestant, class Decimal>
void addQuantize(const Operands<Decimal>& operands, const char* who) {
    using Value = typename Contestant::Value;
    std::vector<Decimal> expected;
    for (std::size_t i = 0; i < COUNT; ++i) {
        expected.push_back(quantize(operands.left[i], operands.quanta[i]));
    }
    require(bench::addOperation<Contestant>(
        "quantize/" + operands.name + '/' + who, operands.left, operands.quanta,
        [](const Value& x, const Value& y) { return Contestant::quantize(x, y); }, expected));
}

template <class Decimal>
void addAllArithmetic(const Operands<Decimal>& operands) {
    require(bench::addArithmetic<bench::Own<Decimal>>(operands, "orvxx"));
    require(bench::addArithmetic<bench::Intel<Decimal>>(operands, "Intel"));
#if ORV_BENCH_STD_DECIMAL
    require(bench::addCompilerArithmetic(operands));
#endif
    addQuantize<bench::Own<Decimal>>(operands, "orvxx");
    addQuantize<bench::Intel<Decimal>>(operands, "Intel");
}

// --- Text.

constexpr std::size_t ROOM = 64;

template <class Decimal>
struct Texts {
    std::string name;
    std::vector<Decimal> values;
    bench::TextList<char> narrow;
    bench::TextList<char16> wide;
};

template <class Decimal>
Texts<Decimal> textsOf(const Operands<Decimal>& operands) {
    Texts<Decimal> texts{operands.name, operands.left, {}, {}};
    for (const Decimal& value : texts.values) {
        const std::string text = orv::to_string_c(value);
        texts.narrow.add(text);
        texts.wide.add(text);
    }
    return texts;
}

template <class CharT, class Decimal, class Read>
void addReader(const Texts<Decimal>& set, const bench::TextList<CharT>& texts, const char* who,
               Read read) {
    const std::string name = "read/" + set.name + '/' + who;
    for (std::size_t i = 0; i < COUNT; ++i) {
        const auto value = read(texts.begin(i), texts.end(i));
        if (std::memcmp(&value, &set.values[i], sizeof(value)) != 0) {
            return require(bench::differs(name));
        }
    }
    benchmark::RegisterBenchmark(name.c_str(), [&texts, read](benchmark::State& state) {
        std::size_t i = 0;
        for ([[maybe_unused]] auto _ : state) {
            auto value = read(texts.begin(i), texts.end(i));
            benchmark::DoNotOptimize(value);
            i = (i + 1) % COUNT;
        }
    });
}

template <class CharT, class Decimal, class Value, class Write>
void addWriter(const Texts<Decimal>& set, const char* who, const Write& write) {
    const std::string name = "write/" + set.name + '/' + who;
    const auto values = std::make_shared<std::vector<Value>>(bench::convert<Value>(set.values));
    std::array<CharT, ROOM> room;
    for (std::size_t i = 0; i < COUNT; ++i) {
        const std::size_t length = write((*values)[i], room.data());
        const orv::basic_string_ref<CharT> text(room.data(), length);
        if (length == 0 || orv::from_chars_c<Decimal>(text).value != set.values[i]) {
            return require(bench::differs(name));
        }
    }
    benchmark::RegisterBenchmark(name.c_str(), [values, write](benchmark::State& state) {
        std::array<CharT, ROOM> text;
        std::size_t i = 0;
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(write((*values)[i], text.data()));
            benchmark::DoNotOptimize(text);
            i = (i + 1) % COUNT;
        }
    });
}

template <class CharT>
orv::basic_string_ref<CharT> view(const CharT* first, const CharT* last) {
    return {first, static_cast<std::size_t>(last - first)};
}

template <class Decimal>
void addReaders(const Texts<Decimal>& set) {
    using Intel = bench::Intel<Decimal>;
    addReader(set, set.narrow, "orvxx", [](const char* first, const char* last) {
        return orv::from_chars_c<Decimal>(view(first, last)).value;
    });
    addReader(set, set.wide, "orvxx char16", [](const char16* first, const char16* last) {
        return orv::from_chars_c<Decimal>(view(first, last)).value;
    });
    if constexpr (std::same_as<Decimal, decimal64>) {
        addReader(set, set.narrow, "orvxx strtod", [](const char* first, const char* /*last*/) {
            return orv::decimal::strtod64(first, nullptr);
        });
    } else if constexpr (std::same_as<Decimal, decimal128>) {
        addReader(set, set.narrow, "orvxx strtod", [](const char* first, const char* /*last*/) {
            return orv::decimal::strtod128(first, nullptr);
        });
    }
    // Its reader asks for text that may be changed, and leaves it as it is.
    addReader(set, set.narrow, "Intel", [](const char* first, const char* /*last*/) {
        return Intel::read(const_cast<char*>(first));
    });
}

template <class Decimal>
void addWriters(const Texts<Decimal>& set) {
    using Intel = bench::Intel<Decimal>;
    addWriter<char, Decimal, Decimal>(set, "orvxx", [](const Decimal& value, char* text) {
        return static_cast<std::size_t>(orv::to_chars_c(text, text + ROOM, value).end - text);
    });
    addWriter<char16, Decimal, Decimal>(
        set, "orvxx char16", [](const Decimal& value, char16* text) {
            return static_cast<std::size_t>(orv::to_chars_c(text, text + ROOM, value).end - text);
        });
    addWriter<char, Decimal, Decimal>(
        set, "orvxx to_string_c",
        [](const Decimal& value, char* text) { return orv::to_string_c(value).copy(text, ROOM); });
    addWriter<char, Decimal, Decimal>(set, "orvxx to_string", [](const Decimal& value, char* text) {
        const int precision = std::max(0, -quantexp(value));
        return to_string(value, precision).copy(text, ROOM);
    });
    addWriter<char, Decimal, typename Intel::Value>(
        set, "Intel", [](const typename Intel::Value& value, char* text) {
            Intel::write(value, text);
            return std::strlen(text);
        });
    addWriter<char, Decimal, typename Intel::Value>(
        set, "Intel string", [](const typename Intel::Value& value, char* text) {
            char buffer[ROOM];
            Intel::write(value, buffer);
            return std::string(buffer).copy(text, ROOM);
        });
}

// A set for as long as the program runs: the benchmarks refer to it.
template <class Decimal>
void addSet(const Operands<Decimal>& operands) {
    static std::vector<std::unique_ptr<Texts<Decimal>>> kept;
    addAllArithmetic(operands);
    kept.push_back(std::make_unique<Texts<Decimal>>(textsOf(operands)));
    addReaders(*kept.back());
    addWriters(*kept.back());
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    bench::addContext();
    addSet(money<decimal32>("decimal32", 5));
    addSet(full<decimal32>("decimal32", 7));
    addSet(money<decimal64>("decimal64", 9));
    addSet(full<decimal64>("decimal64", 16));
    addSet(money<decimal128>("decimal128", 15));
    addSet(full<decimal128>("decimal128", 34));
    if (!allAgree) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

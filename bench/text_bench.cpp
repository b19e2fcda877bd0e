// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Speed of views, code points, character properties and builders, beside the standard
/// library over `char16_t` and ICU.
///
/// Names are operation/text/who. A time is for one text, of as many units as its name says.
#include "bench/context.h"
#include "bench/texts.h"

#include "orv/liborvxx/text/case_insensitive.h"
#include "orv/liborvxx/text/code_points.h"
#include "orv/liborvxx/text/string_builder.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <vector>

#if ORV_BENCH_ICU
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>
#endif

namespace {

using bench::Script;
using orv::Char16;
using orv::char16;
using orv::ustring_ref;

// A text in both forms, and a copy that is the same up to its last unit.
struct Text {
    Text(Script script, std::size_t size)
        : name(std::string(bench::nameOf(script)) + ", " + std::to_string(size)),
          units(bench::makeText(script, size).substr(0, size)), twin(units),
          own(units.begin(), units.end()), ownTwin(own) {
        for (std::size_t begin = 0; begin < size;) {
            const std::size_t end = std::min(units.find(u' ', begin), size - 1) + 1;
            words.push_back(std::u16string_view(units).substr(begin, end - begin));
            ownWords.push_back(ustring_ref(own).substr(begin, end - begin));
            begin = end;
        }
    }

    std::string name;
    std::u16string units;
    std::u16string twin;
    orv::ustring own;
    orv::ustring ownTwin;
    // With the space behind them.
    std::vector<std::u16string_view> words;
    std::vector<ustring_ref> ownWords;
};

// What an operation makes of a text, in a number that everyone must agree on.
using Work = std::uint64_t (*)(const Text& text);

struct Contestant {
    const char* who;
    Work work;
};

// The number of units of a text for which something holds.
template <class Units, class Predicate>
std::uint64_t countIf(const Units& units, Predicate predicate) {
    std::uint64_t count = 0;
    for (const auto unit : units) {
        count += predicate(unit) ? 1U : 0U;
    }
    return count;
}

constexpr char16_t NOWHERE = u'\u2603';

#if ORV_BENCH_ICU
std::int32_t sizeOf(const Text& text) {
    return static_cast<std::int32_t>(text.units.size());
}
#endif

const std::vector<Contestant> FIND = {
    {"orvxx",
     [](const Text& text) -> std::uint64_t { return ustring_ref(text.own).find(NOWHERE); }},
    {"std",
     [](const Text& text) -> std::uint64_t {
         return std::u16string_view(text.units).find(NOWHERE);
     }},
#if ORV_BENCH_ICU
    {"ICU",
     [](const Text& text) -> std::uint64_t {
         return u_memchr(text.units.data(), NOWHERE, sizeOf(text)) == nullptr
                    ? std::u16string_view::npos
                    : 0;
     }},
#endif
};

const std::vector<Contestant> EQUAL = {
    {"orvxx",
     [](const Text& text) -> std::uint64_t {
         return ustring_ref(text.own) == ustring_ref(text.ownTwin) ? 1 : 0;
     }},
    {"std",
     [](const Text& text) -> std::uint64_t {
         return std::u16string_view(text.units) == std::u16string_view(text.twin) ? 1 : 0;
     }},
#if ORV_BENCH_ICU
    {"ICU",
     [](const Text& text) -> std::uint64_t {
         return u_memcmp(text.units.data(), text.twin.data(), sizeOf(text)) == 0 ? 1 : 0;
     }},
#endif
};

// ICU folds fully, where we map unit by unit.
const std::vector<Contestant> EQUAL_WITHOUT_CASE = {
    {"orvxx",
     [](const Text& text) -> std::uint64_t {
         return orv::case_insensitive_equal_to<ustring_ref>()(text.own, text.ownTwin) ? 1 : 0;
     }},
#if ORV_BENCH_ICU
    {"ICU",
     [](const Text& text) -> std::uint64_t {
         return u_memcasecmp(text.units.data(), text.twin.data(), sizeOf(text),
                             U_FOLD_CASE_DEFAULT) == 0
                    ? 1
                    : 0;
     }},
#endif
};

const std::vector<Contestant> CODE_POINTS = {
    {"orvxx",
     [](const Text& text) -> std::uint64_t {
         return Char16::codePointCount(text.own, 0, text.own.size());
     }},
#if ORV_BENCH_ICU
    {"ICU",
     [](const Text& text) -> std::uint64_t {
         return static_cast<std::uint64_t>(u_countChar32(text.units.data(), sizeOf(text)));
     }},
#endif
};

const std::vector<Contestant> LETTERS = {
    {"orvxx",
     [](const Text& text) {
         return countIf(text.own, [](char16 unit) { return Char16::isLetter(unit); });
     }},
#if ORV_BENCH_ICU
    {"ICU",
     [](const Text& text) {
         return countIf(text.units, [](char16_t unit) { return u_isalpha(unit) != 0; });
     }},
#endif
};

const std::vector<Contestant> CAPITALS = {
    {"orvxx",
     [](const Text& text) {
         return countIf(text.own, [](char16 unit) { return Char16::toLowerCase(unit) != unit; });
     }},
#if ORV_BENCH_ICU
    {"ICU",
     [](const Text& text) {
         return countIf(text.units, [](char16_t unit) {
             return static_cast<char16_t>(u_tolower(unit)) != unit;
         });
     }},
#endif
};

const std::vector<Contestant> APPEND = {
    {"orvxx",
     [](const Text& text) -> std::uint64_t {
         orv::ustring whole;
         for (const ustring_ref word : text.ownWords) {
             whole.append(word.data(), word.size());
         }
         benchmark::DoNotOptimize(whole.data());
         return whole.size();
     }},
    {"orvxx builder",
     [](const Text& text) -> std::uint64_t {
         orv::StringBuilder whole;
         for (const ustring_ref word : text.ownWords) {
             whole.append(word);
         }
         benchmark::DoNotOptimize(whole.charAt(0));
         return whole.length();
     }},
    {"std",
     [](const Text& text) -> std::uint64_t {
         std::u16string whole;
         for (const std::u16string_view word : text.words) {
             whole.append(word);
         }
         benchmark::DoNotOptimize(whole.data());
         return whole.size();
     }},
#if ORV_BENCH_ICU
    {"ICU",
     [](const Text& text) -> std::uint64_t {
         icu::UnicodeString whole;
         for (const std::u16string_view word : text.words) {
             whole.append(word.data(), static_cast<std::int32_t>(word.size()));
         }
         benchmark::DoNotOptimize(whole.getBuffer());
         return static_cast<std::uint64_t>(whole.length());
     }},
#endif
};

// Hashes differ, so that they are not compared.
const std::vector<Contestant> HASH = {
    {"orvxx", [](const Text& text) -> std::uint64_t { return std::hash<ustring_ref>()(text.own); }},
    {"std",
     [](const Text& text) -> std::uint64_t {
         return std::hash<std::u16string_view>()(text.units);
     }},
};

bool agree(const Text& text, const std::vector<Contestant>& contestants) {
    for (const Contestant& contestant : contestants) {
        if (contestant.work(text) != contestants[0].work(text)) {
            std::fprintf(stderr, "%s: %s differs\n", text.name.c_str(), contestant.who);
            return false;
        }
    }
    return true;
}

void add(const char* operation, const Text& text, const std::vector<Contestant>& contestants) {
    for (const Contestant& contestant : contestants) {
        benchmark::RegisterBenchmark((operation + ("/" + text.name) + "/" + contestant.who).c_str(),
                                     [&text, work = contestant.work](benchmark::State& state) {
                                         for ([[maybe_unused]] auto _ : state) {
                                             benchmark::ClobberMemory();
                                             benchmark::DoNotOptimize(work(text));
                                         }
                                     });
    }
}

bool addAll(std::list<Text>& texts) {
    bool areSame = true;
    const auto addChecked = [&](const char* operation, const Text& text,
                                const std::vector<Contestant>& contestants) {
        areSame = areSame && agree(text, contestants);
        add(operation, text, contestants);
    };
    for (const std::size_t units : {12U, 80U, 4096U}) {
        const Text& text = texts.emplace_back(Script::ENGLISH, units);
        addChecked("find a unit", text, FIND);
        addChecked("equal", text, EQUAL);
        addChecked("equal without case", text, EQUAL_WITHOUT_CASE);
        add("hash", text, HASH);
    }
    addChecked("append words", texts.back(), APPEND);
    for (const Script script : {Script::ENGLISH, Script::GREEK, Script::CHINESE, Script::EMOJI}) {
        const Text& text = texts.emplace_back(script, 4096);
        addChecked("count code points", text, CODE_POINTS);
        addChecked("count letters", text, LETTERS);
        addChecked("count capitals", text, CAPITALS);
    }
    return areSame;
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    std::list<Text> texts;
    if (benchmark::ReportUnrecognizedArguments(argc, argv) || !addAll(texts)) {
        return 1;
    }
    bench::addContext();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Speed of whole numbers beside GMP and Boost, and of what floats are made with.
///
/// Names are operation/words/who; a division is of twice as many words by so many.
#include "bench/context.h"
#include "bench/number_contestants.h"

#include "orv/liborvxx/number/binary16.h"
#include "orv/liborvxx/number/make_binary.h"
#include "orv/liborvxx/number/pack_binary.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using bench::NumberWords;
using orv::big_uint;

constexpr std::array<std::size_t, 6> SIZES = {1, 4, 8, 32, 128, 2048};

// Numbers of full width, the same in every run.
NumberWords randomWords(std::size_t size, std::uint64_t seed) {
    NumberWords words(size);
    std::uint64_t state = seed * 0x9E3779B97F4A7C15U + size;
    for (unsigned int& word : words) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        word = static_cast<unsigned int>(state >> 32U);
    }
    words.at(size - 1) |= 0x40000000U;
    return words;
}

// As many pairs of operands as fit the cache, to be taken in turn: equal ones over and over would
// teach the branch predictor their carries.
template <class Who>
struct Operands {
    std::vector<typename Who::Number> a;
    std::vector<typename Who::Number> wide; // of twice the words
    std::vector<typename Who::Number> b;

    explicit Operands(std::size_t size) {
        const std::size_t count = size > 128 ? 4 : 64;
        for (std::size_t i = 0; i < count; ++i) {
            a.push_back(Who::from(randomWords(size, 3 * i)));
            wide.push_back(Who::from(randomWords(2 * size, 3 * i + 1)));
            b.push_back(Who::from(randomWords(size, 3 * i + 2)));
        }
    }
};

template <class Who>
void addition(benchmark::State& state, std::size_t size) {
    const Operands<Who> operands(size);
    auto sum = Who::room(size);
    std::size_t i = 0;
    for ([[maybe_unused]] auto _ : state) {
        Who::add(sum, operands.a[i], operands.b[i]);
        benchmark::DoNotOptimize(sum);
        i = i + 1 < operands.a.size() ? i + 1 : 0;
    }
}

template <class Who>
void multiplication(benchmark::State& state, std::size_t size) {
    const Operands<Who> operands(size);
    auto product = Who::room(2 * size);
    std::size_t i = 0;
    for ([[maybe_unused]] auto _ : state) {
        Who::multiply(product, operands.a[i], operands.b[i]);
        benchmark::DoNotOptimize(product);
        i = i + 1 < operands.a.size() ? i + 1 : 0;
    }
}

template <class Who>
void division(benchmark::State& state, std::size_t size) {
    const Operands<Who> operands(size);
    auto quotient = Who::room(size + 1);
    auto remainder = Who::room(size);
    std::size_t i = 0;
    for ([[maybe_unused]] auto _ : state) {
        Who::divide(quotient, remainder, operands.wide[i], operands.b[i]);
        benchmark::DoNotOptimize(quotient);
        benchmark::DoNotOptimize(remainder);
        i = i + 1 < operands.a.size() ? i + 1 : 0;
    }
}

template <class Who>
void printing(benchmark::State& state, std::size_t size) {
    const Operands<Who> operands(size);
    std::size_t i = 0;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(Who::text(operands.a[i]).data());
        i = i + 1 < operands.a.size() ? i + 1 : 0;
    }
}

// The text of all results for one pair of operands.
template <class Who>
std::string results(std::size_t size) {
    const Operands<Who> operands(size);
    auto sum = Who::room(size);
    auto product = Who::room(2 * size);
    auto quotient = Who::room(size + 1);
    auto remainder = Who::room(size);
    // Operands whose sum fits: what is done with a carry is everyone's own.
    const auto smaller = [size](std::uint64_t seed) {
        NumberWords words = randomWords(size, seed);
        words.at(size - 1) &= 0x3FFFFFFFU;
        return Who::from(words);
    };
    Who::add(sum, smaller(0), smaller(2));
    Who::multiply(product, operands.a[0], operands.b[0]);
    Who::divide(quotient, remainder, operands.wide[0], operands.b[0]);
    return Who::text(sum) + ' ' + Who::text(product) + ' ' + Who::text(quotient) + ' ' +
           Who::text(remainder);
}

template <class Who>
void registerFor(std::size_t size) {
    const std::string end = '/' + std::to_string(size) + '/' + Who::NAME;
    const auto add = [&](const char* operation, void (*run)(benchmark::State&, std::size_t)) {
        benchmark::RegisterBenchmark((operation + end).c_str(), run, size);
    };
    add("add", addition<Who>);
    add("multiply", multiplication<Who>);
    add("divide", division<Who>);
    add("to_string", printing<Who>);
}

// Registers everyone, and tells whether all results are equal.
template <class... Who>
bool addContestants() {
    for (const std::size_t size : SIZES) {
        const std::string expected = results<bench::Own>(size);
        if (((results<Who>(size) != expected) || ...)) {
            std::fprintf(stderr, "results of %zu words differ\n", size);
            return false;
        }
        (registerFor<Who>(size), ...);
    }
    return true;
}

void addPowers() {
    benchmark::RegisterBenchmark("pow10(300)/-/orvxx", [](benchmark::State& state) {
        big_uint cache;
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(big_uint::pow10(300, &cache).data());
        }
    });
#if ORV_BENCH_GMP
    benchmark::RegisterBenchmark("pow10(300)/-/GMP", [](benchmark::State& state) {
        mpz_t power;
        mpz_init(power);
        for ([[maybe_unused]] auto _ : state) {
            mpz_ui_pow_ui(power, 10, 300);
            benchmark::DoNotOptimize(power);
        }
        mpz_clear(power);
    });
#endif
#if ORV_BENCH_BOOST
    benchmark::RegisterBenchmark("pow10(300)/-/Boost", [](benchmark::State& state) {
        for ([[maybe_unused]] auto _ : state) {
            const bench::Boost::Number power =
                boost::multiprecision::pow(bench::Boost::Number(10), 300U);
            benchmark::DoNotOptimize(power);
        }
    });
#endif
    for (const std::size_t size : {std::size_t{2}, std::size_t{8}, std::size_t{32}}) {
        benchmark::RegisterBenchmark(("ilog10/" + std::to_string(size) + "/orvxx").c_str(),
                                     [](benchmark::State& state, std::size_t words) {
                                         const Operands<bench::Own> operands(words);
                                         std::size_t i = 0;
                                         for ([[maybe_unused]] auto _ : state) {
                                             benchmark::DoNotOptimize(operands.a[i].ilog10());
                                             i = i + 1 < operands.a.size() ? i + 1 : 0;
                                         }
                                     },
                                     size);
    }
}

// Coefficients of so many bits, to be taken in turn.
std::vector<big_uint> coefficients(unsigned int bits) {
    std::vector<big_uint> list;
    for (std::size_t i = 0; i < 64; ++i) {
        big_uint n = bench::Own::from(randomWords((bits + 31) / 32, i));
        n.shift_right(n.bit_length() - bits);
        list.push_back(n);
    }
    return list;
}

template <class Make>
void addFloats(const std::string& name, unsigned int bits, int exponent, Make make) {
    benchmark::RegisterBenchmark((name + "/-/orvxx").c_str(), [=](benchmark::State& state) {
        const std::vector<big_uint> list = coefficients(bits);
        std::size_t i = 0;
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(make(false, exponent, list[i++ % 64]));
        }
    });
}

void addPacking() {
    addFloats("pack_double, 64 bits", 64, -100, orv::pack_double);
    addFloats("pack_double, 256 bits", 256, -300, orv::pack_double);
    addFloats("pack_double, subnormal", 64, -1100, orv::pack_double);
    addFloats("make_double, fast path (50 bits, 10^-5)", 50, -5, orv::make_double);
    addFloats("make_double, 60 bits, 10^10", 60, 10, orv::make_double);
    addFloats("make_double, 60 bits, 10^-20", 60, -20, orv::make_double);
    addFloats("make_double, 60 bits, 10^200", 60, 200, orv::make_double);
    addFloats("make_double, 60 bits, 10^-300", 60, -300, orv::make_double);
    addFloats("make_double, 800 bits, 10^-300", 800, -300, orv::make_double);
}

void addHalves() {
    benchmark::RegisterBenchmark("double to binary16/-/orvxx", [](benchmark::State& state) {
        double value = 1e-6;
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(orv::_double_to_binary16(value));
            value = value < 1e5 ? value * 1.01 : 1e-6;
        }
    });
    benchmark::RegisterBenchmark("binary16 to double/-/orvxx", [](benchmark::State& state) {
        std::uint16_t bits = 0;
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(orv::_binary16_to_double(orv::binary16::from_bits(bits++)));
        }
    });
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    bench::addContext();
#if ORV_BENCH_GMP
    benchmark::AddCustomContext("GMP", gmp_version);
#endif
#if ORV_BENCH_BOOST
    benchmark::AddCustomContext("Boost", BOOST_LIB_VERSION);
#endif
    const bool equal = addContestants<bench::Own
#if ORV_BENCH_GMP
                                      ,
                                      bench::Gmp
#endif
#if ORV_BENCH_BOOST
                                      ,
                                      bench::Boost
#endif
                                      >();
    if (!equal) {
        return 1;
    }
    addPowers();
    addPacking();
    addHalves();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Arithmetic of decimals, measured for any contestant after a look at its results.
#ifndef ORV_BENCH_DECIMAL_ARITHMETIC_H
#define ORV_BENCH_DECIMAL_ARITHMETIC_H

#include "orv/liborvxx/decimal/decimal.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace bench {

/// So many pairs in turn.
inline constexpr std::size_t COUNT = 4096;

/// Two lists of operands, and what the second is for `quantize`.
template <class Decimal>
struct Operands {
    std::string name;
    std::vector<Decimal> left;
    std::vector<Decimal> right;
    std::vector<Decimal> quanta;
};

/// Says that a contestant differs.
/// \return false: then nothing is measured
inline bool differs(const std::string& what) {
    std::fprintf(stderr, "%s: wrong result\n", what.c_str());
    return false;
}

/// The same bits as another type.
template <class To, class From>
To sameBits(const From& from) {
    static_assert(sizeof(To) == sizeof(From));
    To to;
    std::memcpy(static_cast<void*>(&to), &from, sizeof(to));
    return to;
}

template <class To, class From>
std::vector<To> convert(const std::vector<From>& values) {
    std::vector<To> converted;
    for (const From& value : values) {
        converted.push_back(sameBits<To>(value));
    }
    return converted;
}

// Registers `operation`, of two values of a Contestant, after a look at whether its results are
// ours.
template <class Contestant, class Decimal, class Operation>
bool addOperation(const std::string& name, const std::vector<Decimal>& left,
                  const std::vector<Decimal>& right, Operation operation,
                  const std::vector<Decimal>& expected) {
    using Value = typename Contestant::Value;
    const auto x = std::make_shared<std::vector<Value>>(convert<Value>(left));
    const auto y = std::make_shared<std::vector<Value>>(convert<Value>(right));
    for (std::size_t i = 0; i < COUNT; ++i) {
        const Value result = operation((*x)[i], (*y)[i]);
        if (std::memcmp(&result, &expected[i], sizeof(result)) != 0) {
            return differs(name);
        }
    }
    benchmark::RegisterBenchmark(name.c_str(), [x, y, operation](benchmark::State& state) {
        std::size_t i = 0;
        for ([[maybe_unused]] auto _ : state) {
            Value result = operation((*x)[i], (*y)[i]);
            benchmark::DoNotOptimize(result);
            i = (i + 1) % COUNT;
        }
    });
    return true;
}

/// The same for a comparison.
template <class Contestant, class Decimal>
bool addComparison(const std::string& name, const Operands<Decimal>& operands) {
    using Value = typename Contestant::Value;
    const auto x = std::make_shared<std::vector<Value>>(convert<Value>(operands.left));
    const auto y = std::make_shared<std::vector<Value>>(convert<Value>(operands.right));
    for (std::size_t i = 0; i < COUNT; ++i) {
        if (Contestant::less((*x)[i], (*y)[i]) != (operands.left[i] < operands.right[i])) {
            return differs(name);
        }
    }
    benchmark::RegisterBenchmark(name.c_str(), [x, y](benchmark::State& state) {
        std::size_t i = 0;
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(Contestant::less((*x)[i], (*y)[i]));
            i = (i + 1) % COUNT;
        }
    });
    return true;
}

/// All that every contestant has.
/// \return whether its results are ours
template <class Contestant, class Decimal>
bool addArithmetic(const Operands<Decimal>& operands, const char* who) {
    using Value = typename Contestant::Value;
    const auto add = [&](const char* operation, auto function, auto own) {
        std::vector<Decimal> expected;
        for (std::size_t i = 0; i < COUNT; ++i) {
            expected.push_back(own(operands.left[i], operands.right[i]));
        }
        return addOperation<Contestant>(std::string(operation) + '/' + operands.name + '/' + who,
                                        operands.left, operands.right, function, expected);
    };
    const bool sums = add(
        "add", [](const Value& x, const Value& y) { return Contestant::add(x, y); },
        [](const Decimal& x, const Decimal& y) { return x + y; });
    const bool products = add(
        "multiply", [](const Value& x, const Value& y) { return Contestant::multiply(x, y); },
        [](const Decimal& x, const Decimal& y) { return x * y; });
    const bool quotients = add(
        "divide", [](const Value& x, const Value& y) { return Contestant::divide(x, y); },
        [](const Decimal& x, const Decimal& y) { return x / y; });
    const bool orders = addComparison<Contestant>("less/" + operands.name + '/' + who, operands);
    return sums && products && quotients && orders;
}

/// \name The compiler's own types
/// They live in a library of their own: their runtime has the same names as Intel's library, with
/// other arguments.
/// @{
bool addCompilerArithmetic(const Operands<orv::decimal::decimal32>& operands);
bool addCompilerArithmetic(const Operands<orv::decimal::decimal64>& operands);
bool addCompilerArithmetic(const Operands<orv::decimal::decimal128>& operands);
/// @}

} // namespace bench

#endif

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal arithmetic of the compiler's own types.
#include "bench/decimal_arithmetic.h"

#include <decimal/decimal>

namespace bench {

namespace {

// The type of the compiler that stands for one of ours.
template <class Decimal>
struct CompilerType;
template <>
struct CompilerType<orv::decimal::decimal32> {
    using Type = std::decimal::decimal32;
};
template <>
struct CompilerType<orv::decimal::decimal64> {
    using Type = std::decimal::decimal64;
};
template <>
struct CompilerType<orv::decimal::decimal128> {
    using Type = std::decimal::decimal128;
};

// The compiler's operators, through the types of ISO/IEC TR 24733. They have no quantize.
template <class Decimal>
struct Compiler {
    using Value = typename CompilerType<Decimal>::Type;
    static Value add(const Value& x, const Value& y) { return x + y; }
    static Value multiply(const Value& x, const Value& y) { return x * y; }
    static Value divide(const Value& x, const Value& y) { return x / y; }
    static bool less(const Value& x, const Value& y) { return x < y; }
};

} // namespace

bool addCompilerArithmetic(const Operands<orv::decimal::decimal32>& operands) {
    return addArithmetic<Compiler<orv::decimal::decimal32>>(operands, "compiler");
}

bool addCompilerArithmetic(const Operands<orv::decimal::decimal64>& operands) {
    return addArithmetic<Compiler<orv::decimal::decimal64>>(operands, "compiler");
}

bool addCompilerArithmetic(const Operands<orv::decimal::decimal128>& operands) {
    return addArithmetic<Compiler<orv::decimal::decimal128>>(operands, "compiler");
}

} // namespace bench

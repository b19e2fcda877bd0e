// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The functions of the C library by the record they work on, for templates over the three
/// widths.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL_FUNCTIONS_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL_FUNCTIONS_H

#include "orv/liborv/decimal/arithmetic.h"
#include "orv/liborv/decimal/compare.h"
#include "orv/liborv/decimal/convert.h"

#include <cstdint>

#include "orv/liborvxx/base/macros_push.h"

namespace orv::decimal::detail {

/// `DecimalFunctions<ODecimal64>::add` is `orvDec64Add`, and so on.
template <class Record>
struct DecimalFunctions;

/// \cond
#define ORVXX_DECIMAL_FUNCTIONS(width)                                                             \
    template <>                                                                                    \
    struct DecimalFunctions<ODecimal##width> {                                                     \
        using Record = ODecimal##width;                                                            \
        static constexpr auto add = orvDec##width##Add;                                            \
        static constexpr auto subtract = orvDec##width##Subtract;                                  \
        static constexpr auto multiply = orvDec##width##Multiply;                                  \
        static constexpr auto divide = orvDec##width##Divide;                                      \
        static constexpr auto fusedMultiplyAdd = orvDec##width##FusedMultiplyAdd;                  \
        static constexpr auto squareRoot = orvDec##width##SquareRoot;                              \
        static constexpr auto remainder = orvDec##width##Remainder;                                \
        static constexpr auto quantize = orvDec##width##Quantize;                                  \
        static constexpr auto scaleB = orvDec##width##ScaleB;                                      \
        static constexpr auto logB = orvDec##width##LogB;                                          \
        static constexpr auto roundExact = orvDec##width##RoundExact;                              \
        static constexpr auto roundHalfUp = orvDec##width##RoundHalfUp;                            \
        static constexpr auto abs = orvDec##width##Abs;                                            \
        static constexpr auto negate = orvDec##width##Negate;                                      \
        static constexpr auto copySign = orvDec##width##CopySign;                                  \
        static constexpr auto min = orvDec##width##Min;                                            \
        static constexpr auto max = orvDec##width##Max;                                            \
        static constexpr auto nextUp = orvDec##width##NextUp;                                      \
        static constexpr auto nextDown = orvDec##width##NextDown;                                  \
        static constexpr auto compare = orvDec##width##Compare;                                    \
        static constexpr auto quietEqual = orvDec##width##QuietEqual;                              \
        static constexpr auto quietNotEqual = orvDec##width##QuietNotEqual;                        \
        static constexpr auto quietLess = orvDec##width##QuietLess;                                \
        static constexpr auto quietLessEqual = orvDec##width##QuietLessEqual;                      \
        static constexpr auto sameQuantum = orvDec##width##SameQuantum;                            \
        static constexpr auto totalOrder = orvDec##width##TotalOrder;                              \
        static constexpr auto classOf = orvDec##width##Class;                                      \
        static constexpr auto isInfinite = orvDec##width##IsInfinite;                              \
        static constexpr auto isNan = orvDec##width##IsNaN;                                        \
        static constexpr auto isFinite = orvDec##width##IsFinite;                                  \
        static constexpr auto isZero = orvDec##width##IsZero;                                      \
        static constexpr auto isSigned = orvDec##width##IsSigned;                                  \
        static constexpr auto fromInt64 = orvDec##width##FromInt64;                                \
        static constexpr auto fromUint64 = orvDec##width##FromUInt64;                              \
        static constexpr auto toInt32 = orvDec##width##ToInt32;                                    \
        static constexpr auto toInt64 = orvDec##width##ToInt64;                                    \
        static constexpr auto toUint64 = orvDec##width##ToUInt64;                                  \
        static constexpr auto toFloat = orvDec##width##ToFloat;                                    \
        static constexpr auto toDouble = orvDec##width##ToDouble;                                  \
    }

ORVXX_DECIMAL_FUNCTIONS(32);
ORVXX_DECIMAL_FUNCTIONS(64);
ORVXX_DECIMAL_FUNCTIONS(128);

#undef ORVXX_DECIMAL_FUNCTIONS
/// \endcond

} // namespace orv::decimal::detail

#include "orv/liborvxx/base/macros_pop.h"

#endif

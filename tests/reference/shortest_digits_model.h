// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The shortest digits of a binary number, in exact integers.
#ifndef ORV_TESTS_REFERENCE_SHORTEST_DIGITS_MODEL_H
#define ORV_TESTS_REFERENCE_SHORTEST_DIGITS_MODEL_H

#include "tests/support/decimal_text.h"

#include <cstdint>

namespace orvtest {

/// The digits of coefficient * 2^exponent. For two digits, three and so on up to \p maxDigits: the
/// nearest number of so many, ties to the even digit, if it lies between the middles to the
/// neighbours, or on one and the coefficient is even; else the nearest of \p maxDigits digits.
/// \param uneven whether the neighbour below is half as far as the one above
DecimalText shortestModel(std::uint64_t coefficient, int exponent, bool uneven, unsigned maxDigits);

} // namespace orvtest

#endif

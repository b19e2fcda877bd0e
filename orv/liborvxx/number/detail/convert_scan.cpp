// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The conversion of words, hexadecimal and decimal numbers.
#include "orv/liborvxx/number/detail/convert_scan.h"

#include "orv/liborvxx/number/detail/binary_format.h"
#include "orv/liborvxx/number/detail/decimal_to_binary.h"
#include "orv/liborvxx/number/detail/pack_internal.h"

#include <stdexcept>

namespace orv::detail {

template <class Float>
Float convertScan(const float_scanner& state) {
    switch (state.radix) {
    case 0:
        return state.exponent == WORD_NAN ? std::numeric_limits<Float>::quiet_NaN()
                                          : signedInfinity<Float>(state.negative);
    case 2:
        return packBinary<Float>(state.negative, state.exponent, state.coefficient, state.rounding);
    case 10:
        return makeBinary<Float>(state.negative, state.exponent, state.coefficient, state.rounding);
    default:
        throw std::logic_error("string_to_float");
    }
}

template float convertScan<float>(const float_scanner&);
template double convertScan<double>(const float_scanner&);

} // namespace orv::detail

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The conversions of `binary16` as functions of the library.
#include "orv/liborvxx/number/binary16.h"

namespace orv {

double _binary16_to_double(binary16 value) noexcept {
    return static_cast<double>(value);
}

float _binary16_to_float(binary16 value) noexcept {
    return static_cast<float>(value);
}

binary16 _double_to_binary16(double value) noexcept {
    return binary16(value);
}

binary16 _float_to_binary16(float value) noexcept {
    return binary16(value);
}

} // namespace orv

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `number_status`: how the reading of a number went.
#ifndef ORV_LIBORVXX_NUMBER_NUMBER_STATUS_H
#define ORV_LIBORVXX_NUMBER_NUMBER_STATUS_H

namespace orv {

/// What the readers of number text found. Each value but `ok` is one kind of exception of the
/// functions that throw, such as `stod_c` and `stoi_c`.
enum class number_status : unsigned char {
    ok,                ///< a number that fits
    digit_expected,    ///< no digit where the number should begin
    infinity_expected, ///< begins like "infinity", and is neither that nor "inf"
    nan_expected,      ///< begins with "n", and is not "nan"
    out_of_range       ///< a number, but larger in magnitude than its type can hold
};

} // namespace orv

#endif

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The reading of floating-point numbers unit by unit, as its rules are told, sharing
/// nothing with the library.
#ifndef ORV_TESTS_REFERENCE_FLOAT_SCAN_MODEL_H
#define ORV_TESTS_REFERENCE_FLOAT_SCAN_MODEL_H

#include <gmpxx.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orvtest {

/// Whether units beyond ASCII are bytes, which mean nothing, or UTF-16.
enum class Units { BYTES, UTF16 };

enum class ScanFailure { NONE, NO_DIGIT, NO_INFINITY, NO_NAN };

/// What a scan finds. Without a number only the failure counts.
struct ModelScan {
    ScanFailure failure = ScanFailure::NONE;
    std::size_t length = 0;
    bool negative = false;
    int radix = 0;
    mpz_class coefficient;
    unsigned rounding = 0;
    std::int32_t exponent = 0;
};

/// Scans a number at the front of \p text, white space in front included. A limit of 0 hexadecimal
/// digits knows no hexadecimal numbers.
ModelScan modelScan(std::u16string_view text, Units units, int maxDigits, int maxHexDigits);

/// The float that a number is made into.
/// @{
double modelToDouble(const ModelScan& scan);
float modelToFloat(const ModelScan& scan);
/// @}

} // namespace orvtest

#endif

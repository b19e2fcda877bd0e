// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal floating-point numbers from text and as text, as the rules are told: in strings
/// and in integers of any size, sharing nothing with the library.
#ifndef ORV_TESTS_REFERENCE_DECIMAL_TEXT_MODEL_H
#define ORV_TESTS_REFERENCE_DECIMAL_TEXT_MODEL_H

#include "orv/liborv/decimal/decimal.h"
#include "orv/liborv/decimal/format.h"

#include <gmpxx.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace orvtest {

enum class ModelKind { NOT_A_NUMBER, INFINITE, FINITE };

/// A number: coefficient * 10^exponent.
struct ModelDecimal {
    ModelKind kind = ModelKind::NOT_A_NUMBER;
    bool negative = false;
    mpz_class coefficient;
    mpz_class exponent;
};

/// The digits, the exponents and the bits of a format.
struct ModelFormat {
    unsigned digits;
    int minExponent;
    int maxExponent;
    unsigned bits;
};

inline constexpr ModelFormat MODEL_32{7, -101, 90, 32};
inline constexpr ModelFormat MODEL_64{16, -398, 369, 64};
inline constexpr ModelFormat MODEL_128{34, -6176, 6111, 128};

mpz_class modelPowerOfTen(unsigned long exponent);

/// The number in the format: rounded to \p digits, those of the format or fewer.
ModelDecimal modelFit(const ModelDecimal& number, const ModelFormat& format, unsigned digits);

/// A number that is in the format as its bits, the highest first; a NaN is the canonical one.
mpz_class modelEncode(const ModelDecimal& number, const ModelFormat& format);
ModelDecimal modelDecode(const mpz_class& bits, const ModelFormat& format);

/// \name The bits of the records
/// @{
mpz_class modelBits(ODecimal32 value);
mpz_class modelBits(ODecimal64 value);
mpz_class modelBits(ODecimal128 value);
/// @}

/// How a text is read.
struct ModelReading {
    char point = '.';
    char separator = '\0';
    bool skipsSpace = false;
};

/// Whether the whole text is a number.
bool modelIsNumber(std::string_view text, const ModelReading& reading);

/// Whether the text is a number or begins one.
bool modelBeginsNumber(std::string_view text, const ModelReading& reading);

/// The number that the whole text is.
ModelDecimal modelParse(std::string_view text, const ModelReading& reading);

/// The whole text of a number in a format.
std::string modelText(const DecimalFormat& format, const ModelDecimal& number);

} // namespace orvtest

#endif

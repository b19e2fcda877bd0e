// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `float_digits` as text, and the texts that have no digits.
#ifndef ORV_LIBORVXX_NUMBER_DETAIL_FORMAT_DIGITS_H
#define ORV_LIBORVXX_NUMBER_DETAIL_FORMAT_DIGITS_H

#include "orv/liborvxx/number/detail/float_digits.h"
#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <cstddef>
#include <string>

namespace orv::detail {

/// The texts of values without digits, constants for each unit.
template <class CharT>
struct FixedTexts;

template <>
struct FixedTexts<char> {
    static constexpr string_ref NOT_A_NUMBER{"NaN", 3};
    static constexpr string_ref NEGATIVE_INFINITY{"-Infinity", 9};
    static constexpr string_ref NEGATIVE_ZERO{"-0.0", 4};
    static constexpr string_ref POSITIVE_INFINITY{"Infinity", 8};
    static constexpr string_ref POSITIVE_ZERO{"0.0", 3};
};

template <>
struct FixedTexts<char16> {
    static constexpr ustring_ref NOT_A_NUMBER = literal_view<u"NaN">;
    static constexpr ustring_ref NEGATIVE_INFINITY = literal_view<u"-Infinity">;
    static constexpr ustring_ref NEGATIVE_ZERO = literal_view<u"-0.0">;
    static constexpr ustring_ref POSITIVE_INFINITY = literal_view<u"Infinity">;
    static constexpr ustring_ref POSITIVE_ZERO = literal_view<u"0.0">;
};

/// Plain text is for numbers of 10^LEAST_PLAIN_EXPONENT up to below 10^(MOST_PLAIN_EXPONENT + 1).
/// @{
inline constexpr int LEAST_PLAIN_EXPONENT = -3;
inline constexpr int MOST_PLAIN_EXPONENT = 6;
/// @}

/// Room for the text of any record: sign, 34 digits, point, 'E', and an exponent of 11 characters.
inline constexpr std::size_t MAX_FORMATTED_LENGTH = 48;

/// Writes the text of a value at \p text, where there is room for MAX_FORMATTED_LENGTH units.
///
/// Plain with an exponent from -3 to 6, for decimal types only if the last digit does not stand
/// before the point's left neighbour: "0.00123", "123.4", "100.0". Else scientific: "1.0E7",
/// "1.23E-4". What has no digit behind the point gets a 0 from a binary type and none from a
/// decimal one: "123." is 123 with a step of 1, and "1.E2" 100 with a step of 100.
/// \return behind the text
/// \exception std::logic_error "no digits for non-special exponent" for null digits and an exponent
///            that is no marker
/// @{
char* formatDigits(char* text, const float_digits& value);
char16* formatDigits(char16* text, const float_digits& value);
/// @}

/// The same as strings.
/// @{
std::string format_digits(const float_digits& value);
ustring format_udigits(const float_digits& value);
/// @}

} // namespace orv::detail

#endif

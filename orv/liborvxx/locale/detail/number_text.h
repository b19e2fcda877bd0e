// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The text of a number in its parts, and how it goes into a stream: with separators, and
/// padded ([facet.num.put.virtuals], stages 2 to 4).
#ifndef ORV_LIBORVXX_LOCALE_DETAIL_NUMBER_TEXT_H
#define ORV_LIBORVXX_LOCALE_DETAIL_NUMBER_TEXT_H

#include "orv/liborvxx/locale/detail/number_punctuation.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/char_traits.h"

#include <cstdint>
#include <ios>
#include <iterator>
#include <streambuf>
#include <string_view>

namespace orv::detail {

/// Up to \p MAX ASCII characters.
template <unsigned MAX>
class ShortText {
public:
    void add(char c) noexcept { text_[size_++] = c; }
    std::string_view view() const noexcept { return {text_, size_}; }
    unsigned size() const noexcept { return size_; }

private:
    char text_[MAX];
    unsigned size_ = 0;
};

/// The parts of a number's text in the order in which they stand. Zeros are counted, so that a text
/// of many takes no memory.
struct NumberText {
    /// "-" or "+", and "0x", or the "0" of octal numbers.
    ShortText<3> prefix;
    /// Behind how much of the prefix `internal` pads.
    unsigned padding = 0;
    /// The integer part, or a word; and zeros behind it.
    std::string_view integer;
    std::uint64_t integerZeros = 0;
    bool isGrouped = false;
    bool hasPoint = false;
    /// The fraction, with zeros before and behind it.
    std::uint64_t zeros = 0;
    std::string_view fraction;
    std::uint64_t lastZeros = 0;
    /// The exponent with its mark, "e-4932" or "p-16385" at most.
    ShortText<8> exponent;
};

/// Writes \p text, as wide as \p stream says, and sets that width to 0.
/// \return behind what was written
std::ostreambuf_iterator<char16> putNumber(std::ostreambuf_iterator<char16> out,
                                           std::ios_base& stream, char16 fill,
                                           const NumberPunctuation& punctuation,
                                           const NumberText& text);

/// Writes a name: the same, where `internal` pads as `right` does.
std::ostreambuf_iterator<char16> putName(std::ostreambuf_iterator<char16> out,
                                         std::ios_base& stream, char16 fill,
                                         std::basic_string_view<char16> name);

} // namespace orv::detail

#endif

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The text of a number in a stream: from where it begins to the first unit that cannot
/// belong to it ([facet.num.get.virtuals], stage 2).
#ifndef ORV_LIBORVXX_LOCALE_DETAIL_NUMBER_FIELD_H
#define ORV_LIBORVXX_LOCALE_DETAIL_NUMBER_FIELD_H

#include "orv/liborvxx/locale/detail/number_punctuation.h"
#include "orv/liborvxx/locale/detail/significant_digits.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/char_traits.h"

#include <cstdint>
#include <ios>
#include <iterator>
#include <streambuf>

namespace orv::detail {

/// A place in a stream, and the unit there.
class FieldCursor {
public:
    using Iterator = std::istreambuf_iterator<char16>;

    /// What `unit` is at the end: no unit.
    static constexpr unsigned AT_END = 0x110001;

    FieldCursor(Iterator in, Iterator end) : in_(in), end_(end) { look(); }

    unsigned unit() const noexcept { return unit_; }
    bool isAtEnd() const noexcept { return unit_ == AT_END; }
    Iterator position() const noexcept { return in_; }

    /// \pre this is not the end
    void step() {
        ++in_;
        look();
    }

private:
    void look() { unit_ = in_ == end_ ? AT_END : static_cast<char16_t>(*in_); }

    Iterator in_;
    Iterator end_;
    unsigned unit_ = AT_END;
};

/// An integer with its sign.
struct IntegerField {
    /// There is a number, and its groups are as they should be.
    bool isValid = false;
    bool isNegative = false;
    /// The number has more than 64 bits; `magnitude` says nothing then.
    bool isTooLarge = false;
    std::uint64_t magnitude = 0;
};

/// Reads an integer.
/// \param basefield of the stream's flags: 0 leaves the base to the prefix, and what is neither
///        `oct` nor `hex` is 10
IntegerField scanInteger(FieldCursor& in, const NumberPunctuation& punctuation,
                         std::ios_base::fmtflags basefield);

/// The rest of what there is to a floating-point number beside its digits.
struct FloatField {
    /// There is a number, and its groups are as they should be.
    bool isValid = false;
    bool isNegative = false;
    /// The digits kept, as an integer, count RADIX^exponent, or 2^exponent if they are hexadecimal.
    /// What was written with more than 17 digits is not exact, but far beyond every type.
    std::int64_t exponent = 0;
};

/// Reads a floating-point number into \p digits, which are empty before. The prefix "0x" of
/// hexadecimal ones may be missing.
/// @{
FloatField scanFloat(FieldCursor& in, const NumberPunctuation& punctuation, DecimalDigits& digits);
FloatField scanFloat(FieldCursor& in, const NumberPunctuation& punctuation, HexDigits& digits);
/// @}

} // namespace orv::detail

#endif

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `std::num_put<char16>`: writes numbers to streams over `char16`.
#ifndef ORV_LIBORVXX_LOCALE_NUM_PUT_H
#define ORV_LIBORVXX_LOCALE_NUM_PUT_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/locale/ctype.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/char_traits.h"

#include <cstddef>
#include <ios>
#include <iterator>
#include <locale>
#include <streambuf>

/// Numbers as UTF-16 text, as the standard facet writes them ([facet.num.put.virtuals]), with the
/// punctuation that the facet `numpunct` of the stream's locale says. Digits are ASCII.
///
/// Floats are laid out as the conversions of C do: "%g"; "%f" with `fixed`, "%e" with `scientific`,
/// and "%a" without a precision with both. Their digits are exact and rounded once, ties to even,
/// whatever the precision. `uppercase` has no effect on `fixed`: an infinity is "inf" there.
/// Pointers are small hexadecimal numbers with their prefix, and 0.
///
/// Nothing depends on the C library's locale. Facets are constant, and safe from any thread. Memory
/// is taken for floats of more than 18 digits, or above 10^330 or below 10^-330, or of more than 64
/// significant bits; zeros behind the last digit of a number take none, and neither does padding.
///
/// \par Example
/// \code
/// std::basic_stringbuf<orv::char16> text;
/// orv::uostream stream(&text);
/// const auto& facet = std::use_facet<std::num_put<orv::char16>>(stream.getloc());
/// stream.width(6);
/// facet.put(std::ostreambuf_iterator<orv::char16>(&text), stream, u'*', 1.5); // "***1.5"
/// \endcode
template <>
class ORVXX_API std::num_put<orv::char16> : public std::locale::facet {
public:
    using char_type = orv::char16;
    using iter_type = std::ostreambuf_iterator<orv::char16>;

    /// Where a locale keeps this facet.
    static std::locale::id id;

    /// A facet that the locales which hold it delete, with \p refs 0; with 1 its owner does.
    explicit num_put(std::size_t refs = 0);

    /// \name The interface: each function calls the virtual one for its type
    /// Writes \p v to \p out in the flags, the width and the locale of \p str, padded with
    /// \p fill, and sets the width to 0.
    /// \return behind what was written
    /// \exception std::bad_alloc
    /// \exception std::bad_cast if the locale has no facet `numpunct`
    /// @{
    iter_type put(iter_type out, std::ios_base& str, char_type fill, bool v) const {
        return do_put(out, str, fill, v);
    }
    iter_type put(iter_type out, std::ios_base& str, char_type fill, long v) const {
        return do_put(out, str, fill, v);
    }
    iter_type put(iter_type out, std::ios_base& str, char_type fill, unsigned long v) const {
        return do_put(out, str, fill, v);
    }
    iter_type put(iter_type out, std::ios_base& str, char_type fill, long long v) const {
        return do_put(out, str, fill, v);
    }
    iter_type put(iter_type out, std::ios_base& str, char_type fill, unsigned long long v) const {
        return do_put(out, str, fill, v);
    }
    iter_type put(iter_type out, std::ios_base& str, char_type fill, double v) const {
        return do_put(out, str, fill, v);
    }
    iter_type put(iter_type out, std::ios_base& str, char_type fill, long double v) const {
        return do_put(out, str, fill, v);
    }
    iter_type put(iter_type out, std::ios_base& str, char_type fill, const void* v) const {
        return do_put(out, str, fill, v);
    }
    /// @}

protected:
    ~num_put() override;

    // In this order the functions stand in the table of virtual functions.
    virtual iter_type do_put(iter_type out, std::ios_base& str, char_type fill,
                             const void* v) const;
    virtual iter_type do_put(iter_type out, std::ios_base& str, char_type fill,
                             long double v) const;
    virtual iter_type do_put(iter_type out, std::ios_base& str, char_type fill, double v) const;
    virtual iter_type do_put(iter_type out, std::ios_base& str, char_type fill,
                             unsigned long long v) const;
    virtual iter_type do_put(iter_type out, std::ios_base& str, char_type fill, long long v) const;
    virtual iter_type do_put(iter_type out, std::ios_base& str, char_type fill,
                             unsigned long v) const;
    virtual iter_type do_put(iter_type out, std::ios_base& str, char_type fill, long v) const;
    virtual iter_type do_put(iter_type out, std::ios_base& str, char_type fill, bool v) const;
};

#endif

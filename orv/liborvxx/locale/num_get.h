// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `std::num_get<char16>`: reads numbers from streams over `char16`.
#ifndef ORV_LIBORVXX_LOCALE_NUM_GET_H
#define ORV_LIBORVXX_LOCALE_NUM_GET_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/locale/ctype.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/char_traits.h"

#include <cstddef>
#include <ios>
#include <iterator>
#include <locale>
#include <streambuf>

/// Numbers from UTF-16 text, as the standard facet reads them ([facet.num.get.virtuals]), with the
/// punctuation that the facet `numpunct` of the stream's locale says.
///
/// Integers: the base is that of the flags; without one the prefix "0x" makes it 16 and "0" 8. A
/// number that does not fit gives the nearest limit, and `failbit`. Those without a sign take a
/// "-", and are negated in their width.
///
/// Floats: the one nearest to the text, ties to even, however long the text is; what is too small
/// is 0 or subnormal, and what is too large the largest number, with `failbit`. With `floatfield`
/// both `fixed` and `scientific` they are hexadecimal, and the prefix "0x" may be missing.
///
/// What is no number sets `failbit` and gives 0; so does one whose separators are not where
/// `grouping()` has them. Only ASCII digits count. Nothing depends on the C library's locale, and
/// `errno` is left alone. Facets are constant, and safe from any thread.
///
/// Time is linear in the length of the text, but for floats of many digits very near the middle
/// between two, which take that of a product of whole numbers; only these take memory, and all of
/// type `long double` where it has more than 64 bits of precision.
///
/// \par Example
/// \code
/// std::basic_stringbuf<orv::char16> text(orv::ustring(3, u'7'));
/// orv::uistream stream(&text);
/// using In = std::istreambuf_iterator<orv::char16>;
/// const auto& facet = std::use_facet<std::num_get<orv::char16>>(stream.getloc());
/// std::ios_base::iostate state = std::ios_base::goodbit;
/// long value = 0;
/// facet.get(In(&text), In(), stream, state, value); // 777, and eofbit
/// \endcode
template <>
class ORVXX_API std::num_get<orv::char16> : public std::locale::facet {
public:
    using char_type = orv::char16;
    using iter_type = std::istreambuf_iterator<orv::char16>;

    /// Where a locale keeps this facet.
    static std::locale::id id;

    /// A facet that the locales which hold it delete, with \p refs 0; with 1 its owner does.
    explicit num_get(std::size_t refs = 0);

    /// \name The interface: each function calls the virtual one for its type
    /// Reads from \p in to at most \p end in the flags and the locale of \p str, and sets \p v.
    ///
    /// `failbit` is added to \p err if there is no such number or it does not fit, and `eofbit`
    /// where the end was seen. Pointers are hexadecimal. `bool` is 0 or 1, and any other
    /// number fails and gives true. With `boolalpha` it is one of the names, of which no more is
    /// read than tells them apart, though the unit behind is looked at; what is neither or both
    /// fails and gives false.
    /// \return behind what was read
    /// \exception std::bad_alloc
    /// \exception std::bad_cast if the locale has no facet `numpunct`
    /// @{
    iter_type get(iter_type in, iter_type end, std::ios_base& str, std::ios_base::iostate& err,
                  bool& v) const {
        return do_get(in, end, str, err, v);
    }
    iter_type get(iter_type in, iter_type end, std::ios_base& str, std::ios_base::iostate& err,
                  unsigned short& v) const {
        return do_get(in, end, str, err, v);
    }
    iter_type get(iter_type in, iter_type end, std::ios_base& str, std::ios_base::iostate& err,
                  unsigned int& v) const {
        return do_get(in, end, str, err, v);
    }
    iter_type get(iter_type in, iter_type end, std::ios_base& str, std::ios_base::iostate& err,
                  long& v) const {
        return do_get(in, end, str, err, v);
    }
    iter_type get(iter_type in, iter_type end, std::ios_base& str, std::ios_base::iostate& err,
                  unsigned long& v) const {
        return do_get(in, end, str, err, v);
    }
    iter_type get(iter_type in, iter_type end, std::ios_base& str, std::ios_base::iostate& err,
                  long long& v) const {
        return do_get(in, end, str, err, v);
    }
    iter_type get(iter_type in, iter_type end, std::ios_base& str, std::ios_base::iostate& err,
                  unsigned long long& v) const {
        return do_get(in, end, str, err, v);
    }
    iter_type get(iter_type in, iter_type end, std::ios_base& str, std::ios_base::iostate& err,
                  float& v) const {
        return do_get(in, end, str, err, v);
    }
    iter_type get(iter_type in, iter_type end, std::ios_base& str, std::ios_base::iostate& err,
                  double& v) const {
        return do_get(in, end, str, err, v);
    }
    iter_type get(iter_type in, iter_type end, std::ios_base& str, std::ios_base::iostate& err,
                  long double& v) const {
        return do_get(in, end, str, err, v);
    }
    iter_type get(iter_type in, iter_type end, std::ios_base& str, std::ios_base::iostate& err,
                  void*& v) const {
        return do_get(in, end, str, err, v);
    }
    /// @}

protected:
    ~num_get() override;

    // In this order the functions stand in the table of virtual functions.
    virtual iter_type do_get(iter_type in, iter_type end, std::ios_base& str,
                             std::ios_base::iostate& err, void*& v) const;
    virtual iter_type do_get(iter_type in, iter_type end, std::ios_base& str,
                             std::ios_base::iostate& err, long double& v) const;
    virtual iter_type do_get(iter_type in, iter_type end, std::ios_base& str,
                             std::ios_base::iostate& err, double& v) const;
    virtual iter_type do_get(iter_type in, iter_type end, std::ios_base& str,
                             std::ios_base::iostate& err, float& v) const;
    virtual iter_type do_get(iter_type in, iter_type end, std::ios_base& str,
                             std::ios_base::iostate& err, unsigned long long& v) const;
    virtual iter_type do_get(iter_type in, iter_type end, std::ios_base& str,
                             std::ios_base::iostate& err, long long& v) const;
    virtual iter_type do_get(iter_type in, iter_type end, std::ios_base& str,
                             std::ios_base::iostate& err, unsigned long& v) const;
    virtual iter_type do_get(iter_type in, iter_type end, std::ios_base& str,
                             std::ios_base::iostate& err, long& v) const;
    virtual iter_type do_get(iter_type in, iter_type end, std::ios_base& str,
                             std::ios_base::iostate& err, unsigned int& v) const;
    virtual iter_type do_get(iter_type in, iter_type end, std::ios_base& str,
                             std::ios_base::iostate& err, unsigned short& v) const;
    virtual iter_type do_get(iter_type in, iter_type end, std::ios_base& str,
                             std::ios_base::iostate& err, bool& v) const;
};

#endif

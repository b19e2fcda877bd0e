// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `std::ctype<char16>`: the facet that tells streams and the standard algorithms on
/// characters the classes of UTF-16 units.
#ifndef ORV_LIBORVXX_LOCALE_CTYPE_H
#define ORV_LIBORVXX_LOCALE_CTYPE_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/char_traits.h"

#include <cstddef>
#include <iterator>
#include <locale>

/// Classes and case of UTF-16 units, the same in every locale: those of char_class.h, in the masks
/// of `std::ctype_base`. A stream over `char16` needs it to pad, to skip white space and to end a
/// line.
///
/// `blank` is white space within a line: what `space` has but for U+000A to U+000D, U+0085, U+2028
/// and U+2029. Bits that belong to no class of `std::ctype_base` are ignored in arguments, and
/// never set in results. Constant, and safe from any thread.
///
/// \par Example
/// \code
/// std::locale here(std::locale::classic(), new std::ctype<orv::char16>);
/// bool space = std::isspace(orv::char16(u'\u3000'), here);
/// \endcode
template <>
class ORVXX_API std::ctype<orv::char16> : public std::locale::facet, public std::ctype_base {
public:
    using char_type = orv::char16;

    /// Where a locale keeps this facet.
    static std::locale::id id;

    /// A facet that the locales which hold it delete, with \p refs 0; with 1 its owner does.
    explicit ctype(std::size_t refs = 0);

    /// \name The interface: each function calls the virtual one of its name
    /// Ranges run from \p low to before \p high. A function over a range returns \p high.
    /// @{

    /// Whether \p c is of a class of \p m.
    bool is(mask m, char_type c) const { return do_is(m, c); }
    /// Writes all classes of each unit to \p masks.
    const char_type* is(const char_type* low, const char_type* high, mask* masks) const {
        return do_is(low, high, masks);
    }
    /// The first unit that is of a class of \p m, else \p high.
    const char_type* scan_is(mask m, const char_type* low, const char_type* high) const {
        return do_scan_is(m, low, high);
    }
    /// The first unit that is of no class of \p m, else \p high.
    const char_type* scan_not(mask m, const char_type* low, const char_type* high) const {
        return do_scan_not(m, low, high);
    }

    /// The simple case mapping, unit by unit: surrogate pairs are not joined.
    char_type toupper(char_type c) const { return do_toupper(c); }
    const char_type* toupper(char_type* low, const char_type* high) const {
        return do_toupper(low, high);
    }
    char_type tolower(char_type c) const { return do_tolower(c); }
    const char_type* tolower(char_type* low, const char_type* high) const {
        return do_tolower(low, high);
    }

    /// The unit of an ASCII character; U+FFFD for any other byte.
    char_type widen(char c) const { return do_widen(c); }
    const char* widen(const char* low, const char* high, char_type* out) const {
        return do_widen(low, high, out);
    }

    /// The byte of an ASCII unit, the ASCII digit of a decimal digit of any script, else \p dflt.
    char narrow(char_type c, char dflt) const { return do_narrow(c, dflt); }
    const char_type* narrow(const char_type* low, const char_type* high, char dflt,
                            char* out) const {
        return do_narrow(low, high, dflt, out);
    }

    /// @}

protected:
    ~ctype() override;

    // In this order the functions stand in the table of virtual functions.
    virtual const char_type* do_is(const char_type* low, const char_type* high, mask* masks) const;
    virtual bool do_is(mask m, char_type c) const;
    virtual const char_type* do_scan_is(mask m, const char_type* low, const char_type* high) const;
    virtual const char_type* do_scan_not(mask m, const char_type* low, const char_type* high) const;
    virtual const char_type* do_toupper(char_type* low, const char_type* high) const;
    virtual char_type do_toupper(char_type c) const;
    virtual const char_type* do_tolower(char_type* low, const char_type* high) const;
    virtual char_type do_tolower(char_type c) const;
    virtual const char* do_widen(const char* low, const char* high, char_type* out) const;
    virtual char_type do_widen(char c) const;
    virtual const char_type* do_narrow(const char_type* low, const char_type* high, char dflt,
                                       char* out) const;
    virtual char do_narrow(char_type c, char dflt) const;
};

// Declared before a stream over char16 can be made with the general templates: see numpunct.h,
// num_get.h and num_put.h. A program that uses such a stream includes uistream.h or uostream.h.
template <>
class std::numpunct<orv::char16>;
template <>
class std::num_get<orv::char16>;
template <>
class std::num_put<orv::char16>;

#endif

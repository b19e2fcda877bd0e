// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `std::numpunct<char16>` and `std::numpunct_byname<char16>`: how a locale writes numbers,
/// over UTF-16.
#ifndef ORV_LIBORVXX_LOCALE_NUMPUNCT_H
#define ORV_LIBORVXX_LOCALE_NUMPUNCT_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/char_traits.h"
#include "orv/liborvxx/text/ustring.h"

#include <cstddef>
#include <locale>
#include <string>

/// The punctuation of numbers in the classic locale: "." and ",", no grouping, "true" and "false".
/// Constant, and safe from any thread.
template <>
class ORVXX_API std::numpunct<orv::char16> : public std::locale::facet {
public:
    using char_type = orv::char16;
    using string_type = orv::ustring;

    /// Where a locale keeps this facet, or one that derives from it.
    static std::locale::id id;

    /// A facet that the locales which hold it delete, with \p refs 0; with 1 its owner does.
    explicit numpunct(std::size_t refs = 0);

    /// \name The interface: each function calls the virtual one of its name
    /// @{

    /// What stands before the fraction.
    char_type decimal_point() const { return do_decimal_point(); }
    /// What stands between groups of digits.
    char_type thousands_sep() const { return do_thousands_sep(); }
    /// The sizes of the groups, from the right, each a number in a `char`; the last one repeats.
    std::string grouping() const { return do_grouping(); }
    /// The names of the values of `bool`.
    string_type truename() const { return do_truename(); }
    string_type falsename() const { return do_falsename(); }

    /// @}

protected:
    ~numpunct() override;

    // In this order the functions stand in the table of virtual functions: the true name before
    // the false one, unlike in the facets of the standard library.
    virtual char_type do_decimal_point() const;
    virtual char_type do_thousands_sep() const;
    virtual std::string do_grouping() const;
    virtual string_type do_truename() const;
    virtual string_type do_falsename() const;
};

namespace orv::detail {

/// Punctuation of numbers that was copied from somewhere.
class ORVXX_API StoredNumpunct : public std::numpunct<char16> {
protected:
    explicit StoredNumpunct(std::size_t refs);
    ~StoredNumpunct() override;

    /// Copies what \p wide says: point and separator as units, their low 16 bits; the names by
    /// `cvtstr`.
    void copy(const std::numpunct<wchar_t>& wide);

    char16 do_decimal_point() const override;
    char16 do_thousands_sep() const override;
    std::string do_grouping() const override;
    ustring do_truename() const override;
    ustring do_falsename() const override;

private:
    char16 decimalPoint_;
    char16 thousandsSep_;
    std::string grouping_;
    ustring trueName_;
    ustring falseName_;
};

} // namespace orv::detail

/// The punctuation of numbers in the C library's locale of a name.
///
/// \par Example
/// \code
/// std::locale here(std::locale::classic(), new std::numpunct_byname<orv::char16>("C.UTF-8"));
/// orv::char16 point = std::use_facet<std::numpunct<orv::char16>>(here).decimal_point();
/// \endcode
template <>
class ORVXX_API std::numpunct_byname<orv::char16> : public orv::detail::StoredNumpunct {
public:
    /// The punctuation of the locale \p name, which is not null; "" is the environment's choice.
    /// The facet is deleted by the locales which hold it, with \p refs 0; with 1 by its owner.
    /// \exception std::runtime_error of the standard library if there is no such locale.
    explicit numpunct_byname(const char* name, std::size_t refs = 0);
    explicit numpunct_byname(const std::string& name, std::size_t refs = 0);

protected:
    ~numpunct_byname() override;

    /// Copies the punctuation of the locale \p name.
    void init(const char* name);
};

#endif

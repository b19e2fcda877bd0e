// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `ulocale`: a standard locale with the facets that streams over `char16` need.
#ifndef ORV_LIBORVXX_LOCALE_ULOCALE_H
#define ORV_LIBORVXX_LOCALE_ULOCALE_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/locale/numpunct.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <locale>
#include <memory>

namespace orv {

/// A `std::locale` that also holds `ctype`, `numpunct`, `num_get` and `num_put` for `char16`, and a
/// short name: "de_DE", "C" for the classic locale, or "*" where the environment's locale has no
/// name of that form.
///
/// A handle on shared data that never changes: copies cost a reference count. One object belongs to
/// one thread at a time; copies of it, `classic` and `global` are safe from any thread.
///
/// \par Example
/// \code
/// using namespace orv::literals;
/// orv::ulocale plain(u"C"_u); // no name of the form xx_YY: the classic locale
/// bool isClassic = plain == orv::ulocale::classic();
/// std::locale standard = plain;
/// \endcode
class ORVXX_API ulocale {
public:
    class numpunct_from_wide;

    /// The global locale, which is `classic` until `global` is called.
    ulocale();

    /// The C library's locale of a name of the form xx_YY, two lower-case and two upper-case ASCII
    /// letters, looked up as "de_DE.UTF-8" and in other spellings. The empty name is the
    /// environment's choice, whose name is cut at the first "." and "*" if it is not of that form
    /// then. Any other name gives `classic` and is no error.
    /// \exception std::runtime_error "bad locale name" for a name of the right form, or an
    ///            environment's choice, that the C library does not know
    /// \exception std::bad_alloc
    explicit ulocale(const ustring_ref& name);

    ulocale(const ulocale&) noexcept;
    ulocale& operator=(const ulocale&) noexcept;
    ~ulocale();

    /// The classic locale: "C", "." and ",", no grouping.
    static const ulocale& classic();

    /// Makes \p loc the global locale of this class. The standard library's is left alone.
    /// \return the one before; the first call returns an empty handle, which may only be assigned
    ///         to, copied and destroyed
    static ulocale global(const ulocale& loc);

    /// The short name.
    ustring name() const;

    /// The standard locale. Its own name is "*".
    operator std::locale() const;

    /// Whether the names are equal; facets do not count.
    friend ORVXX_API bool operator==(const ulocale& a, const ulocale& b) noexcept;

private:
    struct Data;
    struct Global;

    ORVXX_LOCAL explicit ulocale(std::shared_ptr<Data> data) noexcept;
    const std::shared_ptr<Data>& data() const noexcept { return data_; }

    ORVXX_LOCAL static bool isValidLocaleName(const ustring_ref& name) noexcept;
    ORVXX_LOCAL static std::locale addClassicFacets(std::locale loc);
    ORVXX_LOCAL static std::locale addGenericFacets(std::locale loc);
    ORVXX_LOCAL static std::locale addSpecificFacets(std::locale loc);
    ORVXX_LOCAL static std::shared_ptr<Data> makeData(std::locale loc, const ustring_ref& name);
    ORVXX_LOCAL static std::shared_ptr<Data> classicData();
    ORVXX_LOCAL static std::shared_ptr<Data> namedData(const ustring_ref& name);
    ORVXX_LOCAL static std::shared_ptr<Data> environmentData();
    ORVXX_LOCAL static Global& globalHandle() noexcept;

    std::shared_ptr<Data> data_;
};

/// The punctuation of numbers that a locale has for `wchar_t`: point and separator as 16-bit units,
/// the names of the values of `bool` as UTF-16.
class ORVXX_API ulocale::numpunct_from_wide : public detail::StoredNumpunct {
public:
    /// Copies from \p loc; \p refs as for any facet.
    explicit numpunct_from_wide(const std::locale& loc, std::size_t refs = 0);
    ~numpunct_from_wide() override;
};

} // namespace orv

#endif

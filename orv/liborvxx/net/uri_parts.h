// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `PathSegments` and `QueryParameters`: the parts of a path and of a query as ranges of
/// views.
#ifndef ORV_LIBORVXX_NET_URI_PARTS_H
#define ORV_LIBORVXX_NET_URI_PARTS_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <cstddef>
#include <iterator>
#include <ranges>

namespace orv::net {

/// What "+" stands for in a decoded part.
enum class PlusSign {
    LITERAL, ///< a plus sign, as in RFC 3986
    SPACE    ///< a space, as HTML forms write it
};

/// A part of a URI's text as it stands, escapes included. It does not keep the text alive.
class ORVXX_API EncodedText {
public:
    /// A null part.
    constexpr EncodedText() noexcept = default;
    explicit constexpr EncodedText(ustring_ref text) noexcept : raw_(text) {}

    constexpr ustring_ref raw() const noexcept { return raw_; }

    /// Whether it is absent, as the value of a parameter without "=" is. An empty part is not.
    constexpr bool isNull() const noexcept { return raw_.data() == nullptr; }

    /// The text with escapes decoded as UTF-8; malformed bytes become U+FFFD, and a "%" without two
    /// digits stays.
    ustring decoded(PlusSign plus = PlusSign::LITERAL) const;

    /// Of the texts as they stand: "%41" and "A" differ. Absent and empty are equal.
    friend bool operator==(EncodedText a, EncodedText b) noexcept { return a.raw_ == b.raw_; }

private:
    ustring_ref raw_;
};

/// The segments of a path: what stands between its slashes. "/a//b/" has "a", "", "b" and "", as
/// has "a//b/"; "/" has one, which is empty; "" has none. Each is found as the iterator moves: no
/// allocation.
///
/// \code
/// using namespace orv::literals;
/// orv::ustring last;
/// for (orv::net::EncodedText segment : orv::net::PathSegments(u"/docs/read%20me"_u)) {
///     last = segment.decoded();
/// }
/// bool good = last == u"read me"_u;
/// \endcode
class ORVXX_API PathSegments {
public:
    class iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using iterator_concept = std::forward_iterator_tag;
        using value_type = EncodedText;
        using difference_type = std::ptrdiff_t;
        using pointer = const EncodedText*;
        using reference = EncodedText;

        iterator() noexcept = default;

        EncodedText operator*() const noexcept { return segment_; }
        /// Valid until the iterator moves.
        const EncodedText* operator->() const noexcept { return &segment_; }
        ORVXX_API iterator& operator++() noexcept;
        iterator operator++(int) noexcept {
            const iterator old = *this;
            ++*this;
            return old;
        }
        friend bool operator==(const iterator& a, const iterator& b) noexcept {
            return a.segment_.raw().data() == b.segment_.raw().data();
        }

    private:
        friend class PathSegments;
        // The segment that begins at `first`, in a path that ends at `end`.
        ORVXX_LOCAL iterator(const char16* first, const char16* end) noexcept;

        EncodedText segment_;         // null behind the last
        const char16* end_ = nullptr; // of the path
    };

    /// None.
    PathSegments() noexcept = default;
    /// Of a raw path, with or without a leading "/".
    explicit PathSegments(ustring_ref rawPath) noexcept : path_(rawPath) {}

    iterator begin() const noexcept;
    iterator end() const noexcept { return {}; }

    bool empty() const noexcept { return path_.empty(); }

    /// How many there are: linear.
    std::size_t count() const noexcept;

private:
    ustring_ref path_;
};

/// A parameter of a query, "name=value" or "name" alone.
struct QueryParameter {
    EncodedText name;
    EncodedText value; ///< null without "="
};

/// The parameters of a query: what stands between "&", each cut at its first "=". Empty parts, as
/// in "a&&b", are left out. Each is found as the iterator moves: no allocation.
///
/// \code
/// using namespace orv::literals;
/// orv::net::QueryParameters query(u"q=caf%C3%A9+cr%C3%A8me&page=2"_u);
/// orv::ustring text = query.find(u"q"_u).decoded(orv::net::PlusSign::SPACE);
/// bool good = text == u"caf\u00E9 cr\u00E8me"_u;
/// \endcode
class ORVXX_API QueryParameters {
public:
    class iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using iterator_concept = std::forward_iterator_tag;
        using value_type = QueryParameter;
        using difference_type = std::ptrdiff_t;
        using pointer = const QueryParameter*;
        using reference = QueryParameter;

        iterator() noexcept = default;

        QueryParameter operator*() const noexcept { return parameter_; }
        /// Valid until the iterator moves.
        const QueryParameter* operator->() const noexcept { return &parameter_; }
        ORVXX_API iterator& operator++() noexcept;
        iterator operator++(int) noexcept {
            const iterator old = *this;
            ++*this;
            return old;
        }
        friend bool operator==(const iterator& a, const iterator& b) noexcept {
            return a.parameter_.name.raw().data() == b.parameter_.name.raw().data();
        }

    private:
        friend class QueryParameters;
        // The first parameter at or behind `next`, where a part of the query begins or ends.
        ORVXX_LOCAL iterator(const char16* next, const char16* end) noexcept;

        QueryParameter parameter_;     // its name is null behind the last
        const char16* next_ = nullptr; // where it ends
        const char16* end_ = nullptr;  // of the query
    };

    /// None.
    QueryParameters() noexcept = default;
    /// Of a raw query, without the "?"; null for none.
    explicit QueryParameters(ustring_ref rawQuery) noexcept : query_(rawQuery) {}

    iterator begin() const noexcept;
    iterator end() const noexcept { return {}; }

    /// Whether there is none.
    bool empty() const noexcept { return begin() == end(); }

    /// The value of the first parameter whose decoded name is \p name; null if there is none or it
    /// has no "=". Names are compared in place; one with escapes is decoded where its units before
    /// the first escape are those of \p name.
    EncodedText find(ustring_ref name, PlusSign plus = PlusSign::LITERAL) const;

private:
    ustring_ref query_;
};

} // namespace orv::net

/// Neither owns its text, so iterators outlive them.
template <>
inline constexpr bool std::ranges::enable_borrowed_range<orv::net::PathSegments> = true;
template <>
inline constexpr bool std::ranges::enable_borrowed_range<orv::net::QueryParameters> = true;
template <>
inline constexpr bool std::ranges::enable_view<orv::net::PathSegments> = true;
template <>
inline constexpr bool std::ranges::enable_view<orv::net::QueryParameters> = true;

#endif

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `basic_string_ref`, the non-owning view in which every text argument is passed.
#ifndef ORV_LIBORVXX_TEXT_STRING_REF_H
#define ORV_LIBORVXX_TEXT_STRING_REF_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/ustring.h"

#include <cassert>
#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

namespace orv {

/// A view of a text: a pointer and a length in code units. It owns nothing, copies nothing and
/// assumes no terminating NUL; it is valid for as long as the storage behind it.
///
/// Made for `char`, `char16`, `char16_t` and `wchar_t`. Positions, counts and lengths are in code
/// units, and a surrogate pair counts as two. A view may hold a null pointer only with length 0.
/// Members said to be unchecked have undefined behaviour on bad arguments (asserted in debug
/// builds).
template <typename CharT>
class ORVXX_API basic_string_ref {
public:
    using traits_type = std::char_traits<CharT>;
    using value_type = CharT;
    using pointer = const CharT*;
    using const_pointer = const CharT*;
    using reference = const CharT&;
    using const_reference = const CharT&;
    using iterator = const CharT*;
    using const_iterator = const CharT*;
    using reverse_iterator = std::reverse_iterator<const CharT*>;
    using const_reverse_iterator = std::reverse_iterator<const CharT*>;
    using size_type = std::size_t;
    using difference_type = std::ptrdiff_t;
    using string_type = std::basic_string<CharT>;
    using view_type = std::basic_string_view<CharT>;

    /// "Not found", and "to the end" as a count.
    static constexpr size_type npos = static_cast<size_type>(-1);

    /// \name Construction
    /// @{

    /// A null view of length 0.
    constexpr basic_string_ref() noexcept = default;

    /// A view of \p s, valid until \p s changes.
    constexpr basic_string_ref(const string_type& s) noexcept : data_(s.data()), size_(s.size()) {}

    /// A view of the same units as \p s.
    constexpr basic_string_ref(view_type s) noexcept : data_(s.data()), size_(s.size()) {}

    /// A view of the units before the first 0. \p s must not be null.
    constexpr basic_string_ref(const CharT* s) noexcept : data_(s), size_(traits_type::length(s)) {}

    /// A view of \p n units from \p s, unchecked.
    constexpr basic_string_ref(const CharT* s, size_type n) noexcept : data_(s), size_(n) {}

    /// @}
    /// \name Access
    /// @{

    /// Unit \p i, unchecked.
    constexpr const CharT& operator[](size_type i) const noexcept {
        assert(i < size_);
        return data_[i];
    }

    /// Unit \p i.
    /// \exception std::out_of_range "basic_string_ref<CharT>::at" if \p i is not below the length.
    const CharT& at(size_type i) const;

    /// First and last unit, unchecked.
    constexpr const CharT& front() const noexcept { return (*this)[0]; }
    constexpr const CharT& back() const noexcept { return (*this)[size_ - 1]; }

    constexpr const CharT* data() const noexcept { return data_; }
    constexpr const_iterator begin() const noexcept { return data_; }
    constexpr const_iterator cbegin() const noexcept { return data_; }
    constexpr const_iterator end() const noexcept { return data_ + size_; }
    constexpr const_iterator cend() const noexcept { return data_ + size_; }
    constexpr const_reverse_iterator rbegin() const noexcept {
        return const_reverse_iterator(end());
    }
    constexpr const_reverse_iterator crbegin() const noexcept { return rbegin(); }
    constexpr const_reverse_iterator rend() const noexcept {
        return const_reverse_iterator(begin());
    }
    constexpr const_reverse_iterator crend() const noexcept { return rend(); }

    constexpr size_type size() const noexcept { return size_; }
    constexpr size_type length() const noexcept { return size_; }
    /// The largest `size_t`, the same for every character type.
    constexpr size_type max_size() const noexcept { return npos; }
    [[nodiscard]] constexpr bool empty() const noexcept { return size_ == 0; }

    /// @}
    /// \name Changing the view
    /// @{

    /// Drops \p n units at the front or at the back, unchecked.
    constexpr void remove_prefix(size_type n) noexcept {
        assert(n <= size_);
        data_ += n;
        size_ -= n;
    }
    constexpr void remove_suffix(size_type n) noexcept {
        assert(n <= size_);
        size_ -= n;
    }

    /// Exchanges two views.
    constexpr void swap(basic_string_ref& other) noexcept {
        std::swap(data_, other.data_);
        std::swap(size_, other.size_);
    }

    /// @}
    /// \name Extraction
    /// @{

    /// An owning copy of the units.
    string_type to_string() const { return string_type(data_, size_); }
    operator string_type() const { return to_string(); }

    /// The standard view of the same units.
    constexpr operator view_type() const noexcept { return view_type(data_, size_); }

    /// A view of min(\p n, length - \p pos) units from \p pos.
    /// \exception std::out_of_range "basic_string_ref<CharT>::substr" if \p pos exceeds the length.
    basic_string_ref substr(size_type pos = 0, size_type n = npos) const;

    /// Copies min(\p n, length - \p pos) units from \p pos to \p dest, which may overlap, and
    /// returns their count. \exception std::out_of_range "basic_string_ref<CharT>::copy" if \p pos
    /// exceeds the length.
    size_type copy(CharT* dest, size_type n, size_type pos = 0) const;

    /// @}
    /// \name Comparison by code unit
    ///
    /// Negative, 0 or positive. With an equal common prefix and different lengths the value depends
    /// on the overload: -1 where this range is shorter in all of them, and where it is longer 2 in
    /// the overloads that take a view, 1 in those that take a pointer. A `ustring_ref` whose prefix
    /// differs gives the difference of the two units, except from a NUL-terminated text.
    /// `pos` and `n` stand for min(n, length - pos) units from `pos`.
    /// \exception std::out_of_range "basic_string_ref<CharT>::compare" if a position exceeds its
    /// length.
    /// @{

    int compare(basic_string_ref s) const noexcept;
    int compare(const CharT* s) const noexcept;
    int compare(size_type pos, size_type n, basic_string_ref s) const;
    int compare(size_type pos, size_type n, basic_string_ref s, size_type pos2, size_type n2) const;
    int compare(size_type pos, size_type n, const CharT* s) const;
    int compare(size_type pos, size_type n, const CharT* s, size_type n2) const;

    /// @}
    /// \name Search by code unit
    ///
    /// The index found, or `npos`. None throws; a start beyond the end is a miss. The needle or set
    /// is a view, a NUL-terminated text, \p n units at a pointer, or one unit. O(length * needle).
    /// @{

    /// First match at or after \p pos. An empty needle matches at \p pos, up to the length.
    size_type find(basic_string_ref s, size_type pos = 0) const noexcept;
    size_type find(const CharT* s, size_type pos = 0) const noexcept;
    size_type find(const CharT* s, size_type pos, size_type n) const noexcept;
    size_type find(CharT c, size_type pos = 0) const noexcept;

    /// Last match that begins at or before \p pos; but see the overload with a count.
    size_type rfind(basic_string_ref s, size_type pos = npos) const noexcept;
    size_type rfind(const CharT* s, size_type pos = npos) const noexcept;
    /// The same operation as `find(s, pos, n)`: it searches forward from \p pos. Kept for callers
    /// that rely on it; for a backward search pass a view.
    size_type rfind(const CharT* s, size_type pos, size_type n) const noexcept;
    size_type rfind(CharT c, size_type pos = npos) const noexcept;

    /// First unit at or after \p pos that is in the set.
    size_type find_first_of(basic_string_ref s, size_type pos = 0) const noexcept;
    size_type find_first_of(const CharT* s, size_type pos = 0) const noexcept;
    size_type find_first_of(const CharT* s, size_type pos, size_type n) const noexcept;
    size_type find_first_of(CharT c, size_type pos = 0) const noexcept;

    /// First unit at or after \p pos that is not in the set.
    size_type find_first_not_of(basic_string_ref s, size_type pos = 0) const noexcept;
    size_type find_first_not_of(const CharT* s, size_type pos = 0) const noexcept;
    size_type find_first_not_of(const CharT* s, size_type pos, size_type n) const noexcept;
    size_type find_first_not_of(CharT c, size_type pos = 0) const noexcept;

    /// Last unit at or before \p pos that is in the set.
    size_type find_last_of(basic_string_ref s, size_type pos = npos) const noexcept;
    size_type find_last_of(const CharT* s, size_type pos = npos) const noexcept;
    size_type find_last_of(const CharT* s, size_type pos, size_type n) const noexcept;
    size_type find_last_of(CharT c, size_type pos = npos) const noexcept;

    /// Last unit at or before \p pos that is not in the set.
    size_type find_last_not_of(basic_string_ref s, size_type pos = npos) const noexcept;
    size_type find_last_not_of(const CharT* s, size_type pos = npos) const noexcept;
    size_type find_last_not_of(const CharT* s, size_type pos, size_type n) const noexcept;
    size_type find_last_not_of(CharT c, size_type pos = npos) const noexcept;

    /// @}

    /// Equality and order with whatever converts to a view of the same character type: views,
    /// strings, NUL-terminated texts. They follow `compare`.
    template <typename T>
    requires std::convertible_to<const T&, view_type>
    friend bool operator==(basic_string_ref a, const T& b) noexcept {
        const view_type other = b;
        return a.size_ == other.size() && a.compare(basic_string_ref(other)) == 0;
    }
    template <typename T>
    requires std::convertible_to<const T&, view_type>
    friend std::strong_ordering operator<=>(basic_string_ref a, const T& b) noexcept {
        const view_type other = b;
        return a.compare(basic_string_ref(other)) <=> 0;
    }

private:
    static int _compare(const CharT* a, size_type an, const CharT* b, size_type bn) noexcept;
    static int _compare(const CharT* a, size_type an, const CharT* b) noexcept;
    basic_string_ref compared_range(size_type pos, size_type n) const;

    const CharT* data_ = nullptr;
    size_type size_ = 0;
};

/// Narrow text.
using string_ref = basic_string_ref<char>;
/// UTF-16 text over `char16`.
using ustring_ref = basic_string_ref<char16>;
/// UTF-16 text over `char16_t`.
using u16string_ref = basic_string_ref<char16_t>;
/// Wide text.
using wstring_ref = basic_string_ref<wchar_t>;

extern template class basic_string_ref<char>;
extern template class basic_string_ref<char16>;
extern template class basic_string_ref<char16_t>;
extern template class basic_string_ref<wchar_t>;

/// Exchanges two views.
template <typename CharT>
constexpr void swap(basic_string_ref<CharT>& a, basic_string_ref<CharT>& b) noexcept {
    a.swap(b);
}

/// Formatted output: padded to `width()` with the fill character, left or right by `adjustfield`
/// (internal counts as right); `width` is 0 afterwards. A short write sets `badbit`. Padding a
/// stream over `char16` needs a locale with `std::ctype<char16>`, as the fill character does.
ORVXX_API std::ostream& operator<<(std::ostream& os, string_ref text);
ORVXX_API std::wostream& operator<<(std::wostream& os, wstring_ref text);
ORVXX_API std::basic_ostream<char16>& operator<<(std::basic_ostream<char16>& os, ustring_ref text);

} // namespace orv

/// Hash of a view: that of the standard view and of the string with the same units.
template <typename CharT>
struct std::hash<orv::basic_string_ref<CharT>> {
    std::size_t operator()(orv::basic_string_ref<CharT> text) const noexcept {
        return std::hash<std::basic_string_view<CharT>>()(text);
    }
};

/// A view does not own its units, so iterators outlive it.
template <typename CharT>
inline constexpr bool std::ranges::enable_borrowed_range<orv::basic_string_ref<CharT>> = true;
template <typename CharT>
inline constexpr bool std::ranges::enable_view<orv::basic_string_ref<CharT>> = true;

#endif

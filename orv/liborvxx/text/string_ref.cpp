// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `basic_string_ref`: checked access, extraction, comparison and search.
#include "orv/liborvxx/text/string_ref.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace orv {

namespace {

// What the common prefix of two texts with lengths gives: its size alone counts for some types.
template <typename CharT>
int comparePrefix(const CharT* a, const CharT* b, std::size_t n) noexcept {
    const auto [left, right] = std::mismatch(a, a + n, b);
    if (left == a + n) {
        return 0;
    }
    return std::char_traits<CharT>::lt(*left, *right) ? -1 : 1;
}

template <>
int comparePrefix(const char* a, const char* b, std::size_t n) noexcept {
    return n == 0 ? 0 : std::memcmp(a, b, n);
}

template <>
int comparePrefix(const char16* a, const char16* b, std::size_t n) noexcept {
    return std::char_traits<char16>::compare(a, b, n);
}

// Value for an equal prefix and lengths that differ. `longer` is what the overload gives where the
// left text is longer.
int compareLengths(std::size_t an, std::size_t bn, int longer) noexcept {
    return an == bn ? 0 : an < bn ? -1 : longer;
}

} // namespace

template <typename CharT>
int basic_string_ref<CharT>::_compare(const CharT* a, size_type an, const CharT* b,
                                      size_type bn) noexcept {
    const int prefix = comparePrefix(a, b, std::min(an, bn));
    return prefix != 0 ? prefix : compareLengths(an, bn, 2);
}

template <typename CharT>
int basic_string_ref<CharT>::_compare(const CharT* a, size_type an, const CharT* b) noexcept {
    assert(b != nullptr);
    for (; an != 0; ++a, ++b, --an) {
        // A view may hold units 0; the other text ends at its first.
        if (*b == CharT()) {
            return 1;
        }
        if (!traits_type::eq(*a, *b)) {
            return traits_type::lt(*a, *b) ? -1 : 1;
        }
    }
    return *b == CharT() ? 0 : -1;
}

template <typename CharT>
basic_string_ref<CharT> basic_string_ref<CharT>::compared_range(size_type pos, size_type n) const {
    if (pos > size_) {
        throw std::out_of_range("basic_string_ref<CharT>::compare");
    }
    return basic_string_ref(data_ + pos, std::min(n, size_ - pos));
}

template <typename CharT>
const CharT& basic_string_ref<CharT>::at(size_type i) const {
    if (i >= size_) {
        throw std::out_of_range("basic_string_ref<CharT>::at");
    }
    return data_[i];
}

template <typename CharT>
basic_string_ref<CharT> basic_string_ref<CharT>::substr(size_type pos, size_type n) const {
    if (pos > size_) {
        throw std::out_of_range("basic_string_ref<CharT>::substr");
    }
    return basic_string_ref(data_ + pos, std::min(n, size_ - pos));
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::copy(CharT* dest, size_type n, size_type pos) const {
    if (pos > size_) {
        throw std::out_of_range("basic_string_ref<CharT>::copy");
    }
    const size_type count = std::min(n, size_ - pos);
    if (count != 0) {
        traits_type::move(dest, data_ + pos, count);
    }
    return count;
}

template <typename CharT>
int basic_string_ref<CharT>::compare(basic_string_ref s) const noexcept {
    return _compare(data_, size_, s.data_, s.size_);
}

template <typename CharT>
int basic_string_ref<CharT>::compare(const CharT* s) const noexcept {
    return _compare(data_, size_, s);
}

template <typename CharT>
int basic_string_ref<CharT>::compare(size_type pos, size_type n, basic_string_ref s) const {
    return compared_range(pos, n).compare(s);
}

template <typename CharT>
int basic_string_ref<CharT>::compare(size_type pos, size_type n, basic_string_ref s, size_type pos2,
                                     size_type n2) const {
    const basic_string_ref left = compared_range(pos, n);
    return left.compare(s.compared_range(pos2, n2));
}

template <typename CharT>
int basic_string_ref<CharT>::compare(size_type pos, size_type n, const CharT* s) const {
    return compared_range(pos, n).compare(s);
}

template <typename CharT>
int basic_string_ref<CharT>::compare(size_type pos, size_type n, const CharT* s,
                                     size_type n2) const {
    const basic_string_ref left = compared_range(pos, n);
    const int prefix = comparePrefix(left.data_, s, std::min(left.size_, n2));
    // Unlike the overloads that take a view: 1 where this range is longer.
    return prefix != 0 ? prefix : compareLengths(left.size_, n2, 1);
}

// The searches mean what those of the standard view mean, the one noted apart.

template <typename CharT>
std::size_t basic_string_ref<CharT>::find(basic_string_ref s, size_type pos) const noexcept {
    return view_type(*this).find(view_type(s), pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find(const CharT* s, size_type pos) const noexcept {
    return view_type(*this).find(s, pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find(const CharT* s, size_type pos,
                                          size_type n) const noexcept {
    return view_type(*this).find(s, pos, n);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find(CharT c, size_type pos) const noexcept {
    return view_type(*this).find(c, pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::rfind(basic_string_ref s, size_type pos) const noexcept {
    return view_type(*this).rfind(view_type(s), pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::rfind(const CharT* s, size_type pos) const noexcept {
    return view_type(*this).rfind(s, pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::rfind(const CharT* s, size_type pos,
                                           size_type n) const noexcept {
    return find(s, pos, n);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::rfind(CharT c, size_type pos) const noexcept {
    return view_type(*this).rfind(c, pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_first_of(basic_string_ref s,
                                                   size_type pos) const noexcept {
    return view_type(*this).find_first_of(view_type(s), pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_first_of(const CharT* s, size_type pos) const noexcept {
    return view_type(*this).find_first_of(s, pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_first_of(const CharT* s, size_type pos,
                                                   size_type n) const noexcept {
    return view_type(*this).find_first_of(s, pos, n);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_first_of(CharT c, size_type pos) const noexcept {
    return view_type(*this).find_first_of(c, pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_first_not_of(basic_string_ref s,
                                                       size_type pos) const noexcept {
    return view_type(*this).find_first_not_of(view_type(s), pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_first_not_of(const CharT* s,
                                                       size_type pos) const noexcept {
    return view_type(*this).find_first_not_of(s, pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_first_not_of(const CharT* s, size_type pos,
                                                       size_type n) const noexcept {
    return view_type(*this).find_first_not_of(s, pos, n);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_first_not_of(CharT c, size_type pos) const noexcept {
    return view_type(*this).find_first_not_of(c, pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_last_of(basic_string_ref s,
                                                  size_type pos) const noexcept {
    return view_type(*this).find_last_of(view_type(s), pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_last_of(const CharT* s, size_type pos) const noexcept {
    return view_type(*this).find_last_of(s, pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_last_of(const CharT* s, size_type pos,
                                                  size_type n) const noexcept {
    return view_type(*this).find_last_of(s, pos, n);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_last_of(CharT c, size_type pos) const noexcept {
    return view_type(*this).find_last_of(c, pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_last_not_of(basic_string_ref s,
                                                      size_type pos) const noexcept {
    return view_type(*this).find_last_not_of(view_type(s), pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_last_not_of(const CharT* s,
                                                      size_type pos) const noexcept {
    return view_type(*this).find_last_not_of(s, pos);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_last_not_of(const CharT* s, size_type pos,
                                                      size_type n) const noexcept {
    return view_type(*this).find_last_not_of(s, pos, n);
}

template <typename CharT>
std::size_t basic_string_ref<CharT>::find_last_not_of(CharT c, size_type pos) const noexcept {
    return view_type(*this).find_last_not_of(c, pos);
}

template class basic_string_ref<char>;
template class basic_string_ref<char16>;
template class basic_string_ref<char16_t>;
template class basic_string_ref<wchar_t>;

} // namespace orv

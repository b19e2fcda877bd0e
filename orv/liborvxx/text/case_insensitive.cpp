// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The folds behind the case-insensitive functors.
#include "orv/liborvxx/text/case_insensitive.h"

#include "orv/liborvxx/text/code_points.h"

#include <algorithm>
#include <cctype>
#include <cstdint>

namespace orv {

namespace {

int fold(char c) {
    return std::toupper(static_cast<unsigned char>(c));
}

// Two steps: characters whose upper-case forms differ may still share the lower-case form of those.
char16 fold(char16 c) {
    return Char16::toLowerCase(Char16::toUpperCase(c));
}

template <typename StringT>
bool foldedEqual(const StringT& a, const StringT& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](auto left, auto right) {
        return left == right || fold(left) == fold(right);
    });
}

template <typename StringT>
bool foldedLess(const StringT& a, const StringT& b) {
    return std::lexicographical_compare(
        a.begin(), a.end(), b.begin(), b.end(),
        [](auto left, auto right) { return left != right && fold(left) < fold(right); });
}

template <typename StringT>
std::size_t foldedHash(const StringT& text, std::uint64_t factor) {
    std::uint64_t hash = 0;
    for (const auto c : text) {
        hash = hash * factor + static_cast<std::uint64_t>(fold(c));
    }
    return static_cast<std::size_t>(hash);
}

} // namespace

template <>
bool case_insensitive_equal_to<string_ref>::operator()(const string_ref& a,
                                                       const string_ref& b) const {
    return foldedEqual(a, b);
}

template <>
bool case_insensitive_equal_to<ustring_ref>::operator()(const ustring_ref& a,
                                                        const ustring_ref& b) const {
    return foldedEqual(a, b);
}

template <>
bool case_insensitive_less<string_ref>::operator()(const string_ref& a, const string_ref& b) const {
    return foldedLess(a, b);
}

template <>
bool case_insensitive_less<ustring_ref>::operator()(const ustring_ref& a,
                                                    const ustring_ref& b) const {
    return foldedLess(a, b);
}

template <>
std::size_t case_insensitive_hash<string_ref>::operator()(const string_ref& text) const {
    return foldedHash(text, 15);
}

template <>
std::size_t case_insensitive_hash<ustring_ref>::operator()(const ustring_ref& text) const {
    return foldedHash(text, 31);
}

} // namespace orv

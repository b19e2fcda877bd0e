// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Functors that compare and hash texts without regard to case, for keys of containers.
#ifndef ORV_LIBORVXX_TEXT_CASE_INSENSITIVE_H
#define ORV_LIBORVXX_TEXT_CASE_INSENSITIVE_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/string_ref.h"

#include <cstddef>

namespace orv {

/// \name Case-insensitive keys
///
/// Made for `string_ref` and `ustring_ref`. Narrow text is folded byte by byte with `toupper` in
/// the C locale of the moment. UTF-16 text is folded unit by unit, to upper case and from there to
/// lower case, by the simple mappings; surrogates are not paired. Equal keys have equal hashes.
/// @{

/// Equality.
template <typename T>
struct case_insensitive_equal_to {
    ORVXX_API bool operator()(const T& a, const T& b) const;
};

/// Lexicographic order; a proper prefix is less.
template <typename T>
struct case_insensitive_less {
    ORVXX_API bool operator()(const T& a, const T& b) const;
};

/// Polynomial hash modulo 2^64 from 0: h * 15 + upper-case byte, or h * 31 + folded unit. The
/// values are fixed, for callers that store them.
template <typename T>
struct case_insensitive_hash {
    ORVXX_API std::size_t operator()(const T& text) const;
};

/// @}

template <>
ORVXX_API bool case_insensitive_equal_to<string_ref>::operator()(const string_ref&,
                                                                 const string_ref&) const;
template <>
ORVXX_API bool case_insensitive_equal_to<ustring_ref>::operator()(const ustring_ref&,
                                                                  const ustring_ref&) const;
template <>
ORVXX_API bool case_insensitive_less<string_ref>::operator()(const string_ref&,
                                                             const string_ref&) const;
template <>
ORVXX_API bool case_insensitive_less<ustring_ref>::operator()(const ustring_ref&,
                                                              const ustring_ref&) const;
template <>
ORVXX_API std::size_t case_insensitive_hash<string_ref>::operator()(const string_ref&) const;
template <>
ORVXX_API std::size_t case_insensitive_hash<ustring_ref>::operator()(const ustring_ref&) const;

} // namespace orv

#endif

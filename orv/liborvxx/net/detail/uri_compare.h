// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Comparison of single components of URIs.
#ifndef ORV_LIBORVXX_NET_DETAIL_URI_COMPARE_H
#define ORV_LIBORVXX_NET_DETAIL_URI_COMPARE_H

#include "orv/liborvxx/text/string_ref.h"

namespace orv::net::detail {

/// \name Components as views, null for an absent one
///
/// `compare` functions give a negative number, 0 or a positive one, and put what is absent before
/// all that is present. Unless told otherwise each goes with its `equals` function: 0 exactly where
/// that is true, and no read leaves a view.
/// @{

/// User info, path, query and fragment: by code unit, but the two units behind a "%" without regard
/// to case.
int compareComponent(ustring_ref a, ustring_ref b) noexcept;
bool componentEquals(ustring_ref a, ustring_ref b) noexcept;

/// Without regard to case.
int compareScheme(ustring_ref a, ustring_ref b) noexcept;
bool schemeEquals(ustring_ref a, ustring_ref b) noexcept;

/// Without regard to case, up to the first place where one of the two has a "%". From there on both
/// are decoded, with the unit at that place of either taken for a "%": kept for callers that rely
/// on the result. A rest that begins otherwise and is too short for an escape stands as it is.
/// \exception AssertionError "toHexDigit[801]: assertion failed" if two hexadecimal digits do not
/// follow
int compareHost(ustring_ref a, ustring_ref b);
bool hostEquals(ustring_ref a, ustring_ref b);

/// As numbers, of any length. An empty port counts as absent.
int comparePort(ustring_ref a, ustring_ref b) noexcept;
bool portEquals(ustring_ref a, ustring_ref b) noexcept;

/// @}

/// Unit by unit without regard to case; of two texts that differ in length alone the longer is the
/// greater, by 1.
int compareIgnoreCase(ustring_ref a, ustring_ref b) noexcept;
bool equalsIgnoreCase(ustring_ref a, ustring_ref b) noexcept;

} // namespace orv::net::detail

#endif

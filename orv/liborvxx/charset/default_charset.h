// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The choice of the default character set.
#ifndef ORV_LIBORVXX_CHARSET_DEFAULT_CHARSET_H
#define ORV_LIBORVXX_CHARSET_DEFAULT_CHARSET_H

#include "orv/liborvxx/text/string_ref.h"

namespace orv {

class Charset;

namespace detail {

/// The set that the environment and the system ask for. The registry must be complete.
Charset* chooseDefaultCharset();

/// The same from what they say: the value of `ORV_DEFAULT_CHARSET` (empty if unset), the ANSI code
/// page (0 on systems without), the codeset of the environment's locale (empty if unknown).
Charset* chooseDefaultCharset(string_ref wanted, int codePage, string_ref codeset);

} // namespace detail

} // namespace orv

#endif

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The table of all character sets.
#ifndef ORV_EXAMPLES_RECODE_LISTING_H
#define ORV_EXAMPLES_RECODE_LISTING_H

#include <string>

namespace recode {

/// A line for each character set: canonical name, MIB number and aliases, in aligned columns;
/// aliases go on in further lines where they would pass column 80.
std::string listCharsets();

} // namespace recode

#endif

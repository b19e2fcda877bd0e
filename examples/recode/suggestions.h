// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The names of character sets that are nearest to an unknown one.
#ifndef ORV_EXAMPLES_RECODE_SUGGESTIONS_H
#define ORV_EXAMPLES_RECODE_SUGGESTIONS_H

#include "orv/liborvxx/text/string_ref.h"

#include <string>
#include <vector>

namespace recode {

/// Up to three names, nearest first, one for each character set: the canonical name, or an alias
/// with the canonical name in brackets. Empty if nothing is near. Names are compared by their
/// letters and digits, without regard to case, by the number of edits from one to the other.
std::vector<std::string> suggestNames(orv::ustring_ref unknown);

} // namespace recode

#endif

// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The table of character classes.
#include "orv/liborvxx/locale/char_class.h"

namespace orv::detail {

namespace {

constexpr CharClassTable CHAR_CLASSES = {
#include "orv/liborvxx/locale/tables/char_class_table.inc"
};

} // namespace

constinit const CharClassTable& charClassTable = CHAR_CLASSES;

} // namespace orv::detail

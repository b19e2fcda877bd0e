// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The table of powers of ten: constants, 16 bytes each.
#include "orv/liborvxx/number/detail/pow10_table.h"

namespace orv::detail {

const words::Wide POW10_SIGNIFICANDS[] = {
#include "orv/liborvxx/number/tables/pow10_significands.inc"
};

} // namespace orv::detail

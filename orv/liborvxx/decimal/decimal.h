// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal floating point: all of it.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL_H

#include "orv/liborvxx/decimal/binary_to_decimal.h"
#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/decimal/decimal32.h"
#include "orv/liborvxx/decimal/decimal64.h"
#include "orv/liborvxx/decimal/decimal_access.h"
#include "orv/liborvxx/decimal/decimal_fwd.h"
#include "orv/liborvxx/decimal/decimal_hash.h"
#include "orv/liborvxx/decimal/decimal_io.h"
#include "orv/liborvxx/decimal/decimal_limits.h"
#include "orv/liborvxx/decimal/decimal_literals.h"
#include "orv/liborvxx/decimal/decimal_math.h"
#include "orv/liborvxx/decimal/make_decimal.h"

#endif
